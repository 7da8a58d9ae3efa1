#include "model/cell_block.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace tessel::model {

namespace {

constexpr wchar_t kQuote = L'"';
constexpr std::wstring_view kSeparators = L"\t\r\n";

bool HasSeparator(std::wstring_view text) {
    return text.find_first_of(kSeparators) != std::wstring_view::npos;
}

bool NeedsQuotes(std::wstring_view text) {
    return HasSeparator(text) || text.starts_with(kQuote);
}

void AppendCell(std::wstring& line, std::wstring_view cell) {
    if (!NeedsQuotes(cell)) {
        line += cell;
        return;
    }
    line += kQuote;
    for (const wchar_t ch : cell) line.append(ch == kQuote ? 2 : 1, ch);
    line += kQuote;
}

/// Without the line end that a spreadsheet puts behind the last row.
std::wstring_view WithoutLastLineEnd(std::wstring_view text) {
    if (text.ends_with(L'\n')) text.remove_suffix(1);
    if (text.ends_with(L'\r')) text.remove_suffix(1);
    return text;
}

/// Reads cell after cell.
class BlockReader {
public:
    explicit BlockReader(std::wstring_view text) : text_(text) {}

    CellBlock Read() {
        CellBlock block(1);
        for (;;) {
            block.back().push_back(ReadCell());
            if (at_ == text_.size()) return block;
            const wchar_t separator = text_[at_++];
            if (separator == L'\t') continue;
            if (separator == L'\r' && at_ < text_.size() && text_[at_] == L'\n') ++at_;
            block.emplace_back();
        }
    }

private:
    std::wstring ReadCell() {
        if (std::optional<std::wstring> quoted = ReadQuoted()) return *std::move(quoted);
        const std::size_t end = std::min(text_.find_first_of(kSeparators, at_), text_.size());
        const std::size_t begin = std::exchange(at_, end);
        return std::wstring(text_.substr(begin, end - begin));
    }

    /// A cell between quotation marks that had to be written so. Any other that begins with one, such as a
    /// literal copied by a program that quotes nothing, stands for itself.
    std::optional<std::wstring> ReadQuoted() {
        if (at_ == text_.size() || text_[at_] != kQuote) return std::nullopt;
        std::wstring cell;
        for (std::size_t i = at_ + 1; i < text_.size(); ++i) {
            if (text_[i] != kQuote) {
                cell += text_[i];
            } else if (i + 1 < text_.size() && text_[i + 1] == kQuote) {
                cell += text_[i++];
            } else {
                const bool ends = i + 1 == text_.size() || kSeparators.find(text_[i + 1]) != kSeparators.npos;
                if (!ends || !NeedsQuotes(cell)) return std::nullopt;
                at_ = i + 1;
                return cell;
            }
        }
        return std::nullopt;
    }

    std::wstring_view text_;
    std::size_t at_ = 0;
};

}  // namespace

std::wstring FormatBlock(const CellBlock& block) {
    if (block.size() == 1 && block.front().size() == 1 && !HasSeparator(block.front().front())) {
        return block.front().front();
    }
    std::wstring text;
    for (const std::vector<std::wstring>& row : block) {
        for (std::size_t i = 0; i < row.size(); ++i) {
            if (i > 0) text += L'\t';
            AppendCell(text, row[i]);
        }
        text += L"\r\n";
    }
    return text;
}

CellBlock ParseBlock(std::wstring_view text) {
    if (!HasSeparator(text)) return {{std::wstring(text)}};
    CellBlock block = BlockReader(WithoutLastLineEnd(text)).Read();
    std::size_t width = 0;
    for (const std::vector<std::wstring>& row : block) width = std::max(width, row.size());
    for (std::vector<std::wstring>& row : block) row.resize(width);
    return block;
}

}  // namespace tessel::model
