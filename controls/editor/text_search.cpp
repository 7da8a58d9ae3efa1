#include "controls/editor/text_search.h"

#include <algorithm>

#include "common/text.h"

namespace tessel::controls {

namespace {

/// Letters of every alphabet count as parts of a word; only ASCII has signs that do not.
bool IsWordPart(wchar_t ch) {
    const auto code = static_cast<char32_t>(ch);
    if (code >= 0x80) return !IsWhiteSpace(ch) && code != 0xAB && code != 0xBB;
    return (ch >= L'0' && ch <= L'9') || (ch >= L'a' && ch <= L'z') || (ch >= L'A' && ch <= L'Z') ||
           ch == L'_';
}

/// Compares places of a text with what is looked for, whose lower case is made once.
class Matcher {
public:
    Matcher(std::wstring_view text, const SearchFor& what)
        : text_(text), what_(what), sought_(what.match_case ? what.text : Lower(what.text)) {}

    std::size_t Length() const { return sought_.size(); }

    bool IsMatch(std::size_t at) const {
        if (sought_.empty() || at > text_.size() || text_.size() - at < sought_.size()) return false;
        for (std::size_t i = 0; i < sought_.size(); ++i) {
            const wchar_t ch = text_[at + i];
            if ((what_.match_case ? ch : LowerChar(ch)) != sought_[i]) return false;
        }
        return !what_.whole_word || (IsWordEdge(at) && IsWordEdge(at + sought_.size()));
    }

    /// The first match from `from` on that begins before `end`.
    std::optional<std::size_t> First(std::size_t from, std::size_t end) const {
        for (std::size_t at = from; at < end && at + sought_.size() <= text_.size(); ++at)
            if (IsMatch(at)) return at;
        return std::nullopt;
    }

    /// The last match that begins before `end`.
    std::optional<std::size_t> Last(std::size_t end) const {
        if (sought_.size() > text_.size()) return std::nullopt;
        for (std::size_t at = std::min(end, text_.size() - sought_.size() + 1); at > 0; --at)
            if (IsMatch(at - 1)) return at - 1;
        return std::nullopt;
    }

private:
    bool IsWordEdge(std::size_t at) const {
        return at == 0 || at == text_.size() || !IsWordPart(text_[at - 1]) || !IsWordPart(text_[at]);
    }

    std::wstring_view text_;
    const SearchFor& what_;
    std::wstring sought_;
};

}  // namespace

bool Matches(std::wstring_view text, TextRange range, const SearchFor& what) {
    const Matcher matcher(text, what);
    return range.length == matcher.Length() && matcher.IsMatch(range.offset);
}

std::optional<FoundText> FindForward(std::wstring_view text, const SearchFor& what, std::size_t from) {
    if (what.text.empty()) return std::nullopt;
    const Matcher matcher(text, what);
    if (const auto at = matcher.First(from, text.size())) return FoundText{{*at, matcher.Length()}, false};
    if (const auto at = matcher.First(0, from)) return FoundText{{*at, matcher.Length()}, true};
    return std::nullopt;
}

std::optional<FoundText> FindBackward(std::wstring_view text, const SearchFor& what, std::size_t from) {
    if (what.text.empty()) return std::nullopt;
    const Matcher matcher(text, what);
    if (from >= matcher.Length()) {
        if (const auto at = matcher.Last(from - matcher.Length() + 1))
            return FoundText{{*at, matcher.Length()}, false};
    }
    if (const auto at = matcher.Last(text.size())) return FoundText{{*at, matcher.Length()}, true};
    return std::nullopt;
}

Replacement ReplaceAll(std::wstring_view text, const SearchFor& what, std::wstring_view with) {
    Replacement replacement;
    if (what.text.empty()) return replacement;
    const Matcher matcher(text, what);
    std::size_t done = 0;
    for (auto at = matcher.First(0, text.size()); at; at = matcher.First(done, text.size())) {
        if (replacement.count == 0)
            replacement.range.offset = *at;
        else
            replacement.text += text.substr(done, *at - done);
        replacement.text += with;
        ++replacement.count;
        done = *at + matcher.Length();
    }
    if (replacement.count > 0) replacement.range.length = done - replacement.range.offset;
    return replacement;
}

}  // namespace tessel::controls
