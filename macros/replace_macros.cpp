#include <algorithm>
#include <numeric>
#include <unordered_set>

#include "common/text.h"
#include "macros/macros.h"

namespace tessel::macros {

namespace {

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

void ReplaceEverywhere(std::wstring& text, std::wstring_view what, std::wstring_view with) {
    std::wstring result;
    std::size_t start = 0;
    for (std::size_t found; (found = text.find(what, start)) != std::wstring::npos; start = found + what.size()) {
        result.append(text, start, found - start);
        result += with;
    }
    if (start == 0) return;
    result.append(text, start);
    text = std::move(result);
}

/// The text cut before every "@". As long as nothing that is replaced or put in holds another "@", an entry can only
/// match at the beginning of a piece, and a piece is replaced once at most. The pieces are kept sorted by content, so
/// that the pieces an entry matches are neighbours.
class Pieces {
public:
    explicit Pieces(std::wstring_view text) {
        std::size_t start = text.find(L'@');
        head_ = text.substr(0, start);
        while (start != std::wstring_view::npos) {
            const std::size_t next = text.find(L'@', start + 1);
            pieces_.push_back({text.substr(start, next == std::wstring_view::npos ? next : next - start), {}, 0});
            start = next;
        }
        order_.resize(pieces_.size());
        std::iota(order_.begin(), order_.end(), std::size_t{0});
        std::sort(order_.begin(), order_.end(),
                  [this](std::size_t a, std::size_t b) { return pieces_[a].text < pieces_[b].text; });
    }

    /// Replaces "@" + entry at the beginning of every piece that still has it.
    void Replace(const std::wstring& what, const std::wstring& with) {
        auto it = std::lower_bound(order_.begin(), order_.end(), what,
                                   [this](std::size_t i, const std::wstring& w) { return pieces_[i].text < w; });
        for (; it != order_.end() && pieces_[*it].text.starts_with(what); ++it) {
            Piece& piece = pieces_[*it];
            if (piece.cut > 0) continue;
            piece.with = with;
            piece.cut = what.size();
        }
    }

    std::wstring Text() const {
        std::wstring text(head_);
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
    std::wstring_view head_;
    std::vector<Piece> pieces_;
    std::vector<std::size_t> order_;
};

bool HoldsAt(std::wstring_view text) { return text.find(L'@') != std::wstring_view::npos; }

}  // namespace

std::wstring ReplaceMacros(std::wstring_view sql, MacroSource& source) {
    const std::vector<std::wstring> macros = GetMacros(sql);
    if (macros.empty()) return std::wstring(sql);

    Pieces pieces(sql);
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
    for (; next < macros.size(); ++next)
        if (const std::optional<std::wstring> with = Replacement(macros[next], source))
            ReplaceEverywhere(text, L"@" + macros[next], *with);
    return text;
}

}  // namespace tessel::macros
