#include <algorithm>
#include <numeric>
#include <unordered_map>
#include <unordered_set>

#include "common/text.h"
#include "macros/macros.h"

namespace tessel::macros {

namespace {

/// Units looked through, all replacements together, once replacements hold an "@". Two parameters that stand
/// for each other would otherwise be exchanged in a long text as often as it names them.
constexpr std::size_t kMostWork = std::size_t{1} << 27;

/// What stands for a list entry in the text, or nothing when the macro stays.
std::optional<std::wstring> Replacement(std::wstring_view entry, MacroSource& source) {
    const std::wstring_view key = TrimView(entry);
    // Qualified names are never macros.
    if (key.find(L'.') != std::wstring_view::npos) return std::nullopt;
    const std::wstring name = Lower(key);
    const auto is = [&name](std::wstring_view spanish, std::wstring_view english) {
        return name == spanish || name == english;
    };
    const auto quoted = [](std::optional<std::wstring> text) -> std::optional<std::wstring> {
        if (!text) return std::nullopt;
        return L"'" + *text + L"'";
    };
    // Page and date-time macros are for the report engine.
    if (is(L"numpagina", L"pagenumber")) return std::nullopt;
    if (is(L"fecha", L"date")) return L"DATE()";
    if (is(L"hora", L"time")) return L"TIME()";
    if (is(L"fechahora", L"datetime") || is(L"paginas", L"pages")) return std::nullopt;
    if (is(L"usuariowin", L"winuser")) return quoted(source.UserName());
    if (is(L"nombrepcwin", L"winpcname")) return quoted(source.ComputerName());
    // A brace-form key still carries its braces: "@{fecha}" is a parameter named "{fecha}", not the date.
    const bool brace = key.find(L'{') != std::wstring_view::npos;
    return brace ? source.ParameterText(key) : source.ParameterLiteral(key);
}

/// The length of a text in which `count` pieces of `cut` units were replaced by `put` units each.
std::size_t LengthAfter(std::size_t length, std::size_t count, std::size_t cut, std::size_t put) {
    return length - count * cut + count * put;
}

/// True when the text changed. One that would grow beyond `longest` stays.
bool ReplaceEverywhere(std::wstring& text, std::wstring_view what, std::wstring_view with,
                       std::size_t longest) {
    std::size_t count = 0;
    for (std::size_t at = text.find(what); at != std::wstring::npos; at = text.find(what, at + what.size()))
        ++count;
    const std::size_t length = LengthAfter(text.size(), count, what.size(), with.size());
    if (count == 0 || length > longest) return false;
    std::wstring result;
    result.reserve(length);
    std::size_t start = 0;
    for (std::size_t found; (found = text.find(what, start)) != std::wstring::npos;
         start = found + what.size()) {
        result.append(text, start, found - start);
        result += with;
    }
    result.append(text, start);
    text = std::move(result);
    return true;
}

/// The text cut before every "@". As long as nothing that is replaced or put in holds another "@", an entry
/// can only match at the beginning of a piece, and a piece is replaced once at most. The pieces are kept
/// sorted by content, so that the pieces an entry matches are neighbours.
class Pieces {
public:
    Pieces(std::wstring_view text, std::size_t longest) : length_(text.size()), longest_(longest) {
        std::size_t start = text.find(L'@');
        head_ = text.substr(0, start);
        while (start != std::wstring_view::npos) {
            const std::size_t next = text.find(L'@', start + 1);
            pieces_.push_back(
                {text.substr(start, next == std::wstring_view::npos ? next : next - start), {}, 0});
            start = next;
        }
        order_.resize(pieces_.size());
        std::iota(order_.begin(), order_.end(), std::size_t{0});
        std::sort(order_.begin(), order_.end(),
                  [this](std::size_t a, std::size_t b) { return pieces_[a].text < pieces_[b].text; });
    }

    /// Replaces "@" + entry at the beginning of every piece that still has it, unless the text got too long.
    void Replace(const std::wstring& what, const std::wstring& with) {
        const auto first =
            std::lower_bound(order_.begin(), order_.end(), what,
                             [this](std::size_t i, const std::wstring& w) { return pieces_[i].text < w; });
        auto end = first;
        std::size_t count = 0;
        for (; end != order_.end() && pieces_[*end].text.starts_with(what); ++end)
            count += pieces_[*end].cut == 0;
        const std::size_t length = LengthAfter(length_, count, what.size(), with.size());
        if (length > longest_) return;
        length_ = length;
        for (auto it = first; it != end; ++it) {
            Piece& piece = pieces_[*it];
            if (piece.cut > 0) continue;
            piece.with = with;
            piece.cut = what.size();
        }
    }

    std::wstring Text() const {
        std::wstring text;
        text.reserve(length_);
        text += head_;
        for (const Piece& piece : pieces_) {
            text += piece.with;
            text += piece.text.substr(piece.cut);
        }
        return text;
    }

private:
    struct Piece {
        std::wstring_view text;
        std::wstring with;    ///< stands in place of the first `cut` characters
        std::size_t cut = 0;  ///< 0 while the piece is as it was
    };
    std::size_t length_;  ///< of the text as it stands now
    std::size_t longest_;
    std::wstring_view head_;
    std::vector<Piece> pieces_;
    std::vector<std::size_t> order_;
};

bool HoldsAt(std::wstring_view text) {
    return text.find(L'@') != std::wstring_view::npos;
}

/// The rule as it stands, on the whole text, for the entries from `next` on. An entry is not looked for again
/// in a text that has not changed since it was found to be without it.
void ReplaceOneByOne(std::wstring& text, const std::vector<std::wstring>& macros, std::size_t next,
                     MacroSource& source, std::size_t longest) {
    std::unordered_map<std::wstring, std::size_t> absent;  // the text's state in which the entry was missing
    std::size_t state = 0;
    std::size_t work = 0;
    for (; next < macros.size() && work < kMostWork; ++next) {
        const std::wstring& entry = macros[next];
        const auto known = absent.find(entry);
        if (known != absent.end() && known->second == state) continue;
        const std::optional<std::wstring> with = Replacement(entry, source);
        if (!with) continue;
        work += text.size();
        if (ReplaceEverywhere(text, L"@" + entry, *with, longest))
            ++state;
        else
            absent[entry] = state;
    }
}

}  // namespace

std::wstring ReplaceMacros(std::wstring_view sql, MacroSource& source) {
    const std::vector<std::wstring> macros = GetMacros(sql);
    if (macros.empty()) return std::wstring(sql);

    const std::size_t longest = std::max(sql.size(), kLongestExpansion);
    Pieces pieces(sql, longest);
    std::unordered_set<std::wstring> seen;
    std::size_t next = 0;
    for (; next < macros.size(); ++next) {
        const std::wstring& entry = macros[next];
        // Without an "@" in sight, doing the same replacement again finds nothing.
        if (!seen.insert(entry).second) continue;
        const std::optional<std::wstring> with = Replacement(entry, source);
        if (!with) continue;
        if (HoldsAt(entry) || HoldsAt(*with)) break;
        pieces.Replace(L"@" + entry, *with);
    }

    // From the first "@" inside an entry or a replacement on, only the whole text will do.
    std::wstring text = pieces.Text();
    ReplaceOneByOne(text, macros, next, source, longest);
    return text;
}

}  // namespace tessel::macros
