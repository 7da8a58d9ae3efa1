#include "ui/preview_rows.h"

#include "common/text.h"

namespace tessel::ui {

namespace {

std::wstring QuotedForText(std::wstring_view text) {
    if (text.find_first_of(L"\t\r\n\"") == std::wstring_view::npos) return std::wstring(text);
    std::wstring quoted(1, L'"');
    for (const wchar_t ch : text) quoted.append(ch == L'"' ? 2 : 1, ch);
    return quoted + L'"';
}

}  // namespace

RowSearch::RowSearch(std::wstring_view text, CellPlace from, bool backwards)
    : text_(Lower(text)), place_(from), start_column_(from.column), backwards_(backwards) {}

/// Looks at the row's cells from column `first` to column `last`, both included, in the search's direction.
bool RowSearch::LookThrough(PreviewRows& source, int first, int last) {
    const int step = backwards_ ? -1 : 1;
    for (int column = first; backwards_ ? column >= last : column <= last; column += step) {
        const PreviewCell cell = source.Cell(place_.row, column);
        if (cell.is_null || Lower(cell.text).find(text_) == std::wstring::npos) continue;
        place_.column = column;
        return true;
    }
    return false;
}

// The first row is looked at twice: beside the start when the search begins, up to the start when it ends.
RowSearch::State RowSearch::Advance(PreviewRows& source, std::int64_t rows) {
    const std::int64_t count = source.RowCount();
    const int columns = static_cast<int>(source.Columns().size());
    if (text_.empty() || count == 0 || columns == 0) return State::NotFound;
    const int step = backwards_ ? -1 : 1;
    const int edge_first = backwards_ ? columns - 1 : 0;
    const int edge_last = backwards_ ? 0 : columns - 1;
    for (; rows > 0; --rows) {
        if (rows_done_ > count) return State::NotFound;
        const int first = rows_done_ == 0 ? start_column_ + step : edge_first;
        const int last = rows_done_ == count ? start_column_ : edge_last;
        if (LookThrough(source, first, last)) return State::Found;
        ++rows_done_;
        if (rows_done_ <= count) place_.row = (place_.row + step + count) % count;
    }
    return rows_done_ > count ? State::NotFound : State::Searching;
}

std::wstring RowAsText(PreviewRows& source, std::int64_t row) {
    std::wstring line;
    const int columns = static_cast<int>(source.Columns().size());
    for (int column = 0; column < columns; ++column) {
        if (column > 0) line += L'\t';
        line += QuotedForText(source.Cell(row, column).text);
    }
    return line;
}

std::wstring HeadersAsText(const PreviewRows& source) {
    std::wstring line;
    for (const PreviewColumn& column : source.Columns()) {
        if (!line.empty() || &column != &source.Columns().front()) line += L'\t';
        line += QuotedForText(column.name);
    }
    return line;
}

std::wstring OneLine(std::wstring_view text, std::size_t limit) {
    std::wstring line;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == L'\r' && i + 1 < text.size() && text[i + 1] == L'\n') continue;
        if (line.size() == limit) {
            line.back() = L'…';
            break;
        }
        // Control characters show nothing useful, and a NUL would hide what stands behind it.
        line += static_cast<std::uint32_t>(text[i]) < L' ' ? L' ' : text[i];
    }
    return line;
}

std::wstring Grouped(std::int64_t number, std::wstring_view separator) {
    std::wstring text = std::to_wstring(number);
    const std::size_t first_digit = number < 0 ? 1 : 0;
    for (std::size_t place = text.size(); place > first_digit + 3;) {
        place -= 3;
        text.insert(place, separator);
    }
    return text;
}

}  // namespace tessel::ui
