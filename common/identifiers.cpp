#include "common/identifiers.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <optional>

#include "common/text.h"

namespace tessel {

namespace {

// Sorted: looked up by the first letter. Words that only matter in statements of other kinds stand here when
// a bare name of that spelling is refused by the engines all the same.
constexpr std::wstring_view kReservedWords[] = {
    L"add",         L"alike",     L"all",        L"alter",       L"and",         L"any",       L"as",
    L"asc",         L"begin",     L"between",    L"by",          L"case",        L"cast",      L"check",
    L"collate",     L"column",    L"commit",     L"constraint",  L"create",      L"cross",     L"database",
    L"default",     L"delete",    L"desc",       L"distinct",    L"distinctrow", L"drop",      L"else",
    L"end",         L"eqv",       L"escape",     L"except",      L"exists",      L"false",     L"fetch",
    L"for",         L"foreign",   L"from",       L"full",        L"grant",       L"group",     L"having",
    L"imp",         L"in",        L"index",      L"inner",       L"insert",      L"intersect", L"into",
    L"is",          L"join",      L"key",        L"left",        L"like",        L"limit",     L"mod",
    L"natural",     L"not",       L"null",       L"offset",      L"on",          L"option",    L"or",
    L"order",       L"outer",     L"over",       L"owneraccess", L"parameters",  L"percent",   L"pivot",
    L"primary",     L"procedure", L"references", L"revoke",      L"right",       L"rollback",  L"select",
    L"set",         L"some",      L"table",      L"then",        L"ties",        L"to",        L"top",
    L"transaction", L"transform", L"trigger",    L"true",        L"union",       L"unique",    L"update",
    L"user",        L"using",     L"values",     L"view",        L"when",        L"where",     L"with",
    L"xor"};
static_assert(std::is_sorted(std::begin(kReservedWords), std::end(kReservedWords)));

/// By a letter from "a" on, where in kReservedWords the words begin that begin with it; one more for the end.
consteval std::array<std::uint8_t, 27> MakeFirstWords() {
    std::array<std::uint8_t, 27> first{};
    for (std::uint32_t letter = 0; letter < first.size(); ++letter) {
        for (const std::wstring_view word : kReservedWords)
            first[letter] += static_cast<std::uint32_t>(word.front()) < L'a' + letter ? 1 : 0;
    }
    return first;
}

constexpr std::array<std::uint8_t, 27> kFirstWordOf = MakeFirstWords();

constexpr std::size_t kLongestReservedWord =
    std::ranges::max(kReservedWords, {}, [](std::wstring_view word) { return word.size(); }).size();

/// The character that closes what `open` opens, or nothing when it opens no quoted name.
std::optional<wchar_t> ClosingOf(wchar_t open) {
    if (open == L'[') return L']';
    if (open == L'"' || open == L'`') return open;
    return std::nullopt;
}

/// Where a quoted stretch that starts at `at` ends (behind its closing character, a doubled one inside not
/// counting), or npos when it is never closed.
std::size_t EndOfQuoted(std::wstring_view text, std::size_t at, wchar_t close) {
    for (std::size_t i = at + 1; i < text.size(); ++i) {
        if (text[i] != close) continue;
        if (i + 1 < text.size() && text[i + 1] == close) {
            ++i;
            continue;
        }
        return i + 1;
    }
    return std::wstring_view::npos;
}

/// True when all of the text is one name in brackets or quotes.
bool IsQuotedName(std::wstring_view text) {
    if (text.size() < 3) return false;
    const std::optional<wchar_t> close = ClosingOf(text.front());
    return close && EndOfQuoted(text, 0, *close) == text.size();
}

/// The name without its brackets or quotes as a part of the text, or nothing when a closing character is
/// doubled inside.
std::optional<std::wstring_view> PlainName(std::wstring_view name) {
    if (name.empty()) return name;
    const bool bare = name.back() != L' ' && name.front() != L' ' && !ClosingOf(name.front());
    if (bare) return name;
    const std::wstring_view trimmed = TrimView(name);
    if (!IsQuotedName(trimmed)) return trimmed;
    const std::wstring_view inner = trimmed.substr(1, trimmed.size() - 2);
    if (inner.find(trimmed.back()) != std::wstring_view::npos) return std::nullopt;
    return TrimView(inner);
}

/// Where the bare name that starts at `at` ends; `at` when there is none.
std::size_t EndOfBareName(std::wstring_view text, std::size_t at) {
    if (at >= text.size() || !(IsIdentifierStart(text[at]) || text[at] == L'_')) return at;
    std::size_t end = at + 1;
    while (end < text.size() && (IsIdentifierPart(text[end]) || text[end] == L'$')) ++end;
    return end;
}

/// Calls `visit` with the offset of every point outside brackets, quotes and parentheses.
template <class Visit>
void ForEachPoint(std::wstring_view text, Visit visit) {
    int depth = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const wchar_t ch = text[i];
        if (ch >= L'a' && ch <= L'z') continue;
        const std::optional<wchar_t> close = ch == L'\'' ? std::optional(ch) : ClosingOf(ch);
        if (close) {
            const std::size_t end = EndOfQuoted(text, i, *close);
            if (end == std::wstring_view::npos) return;
            i = end - 1;
        } else if (ch == L'(') {
            ++depth;
        } else if (ch == L')') {
            depth = std::max(0, depth - 1);
        } else if (ch == L'.' && depth == 0) {
            visit(i);
        }
    }
}

std::size_t SkipBlanks(std::wstring_view text, std::size_t at) {
    while (at < text.size() && text[at] == L' ') ++at;
    return at;
}

}  // namespace

bool IsIdentifierPart(wchar_t ch) {
    // Names are long enough for a look into a table to be worth it.
    static constexpr auto kAscii = [] {
        std::array<bool, 0x80> parts{};
        for (std::size_t i = 0; i < parts.size(); ++i)
            parts[i] = IsIdentifierStart(static_cast<wchar_t>(i)) || (i >= L'0' && i <= L'9') || i == L'_';
        return parts;
    }();
    const auto code = static_cast<std::uint32_t>(ch);
    return code < kAscii.size() ? kAscii[code] : IsIdentifierStart(ch);
}

bool NeedsBrackets(std::wstring_view name) {
    if (name.empty() || !IsIdentifierStart(name.front())) return true;
    return !std::ranges::all_of(name, IsIdentifierPart) || IsReservedWord(name);
}

std::wstring BracketIfNeeded(std::wstring_view name) {
    return IsQuotedName(name) ? std::wstring(name) : WrittenName(name);
}

std::wstring WrittenName(std::wstring_view name) {
    if (!NeedsBrackets(name)) return std::wstring(name);
    std::wstring bracketed = L"[";
    for (const wchar_t ch : name) {
        bracketed += ch;
        if (ch == L']') bracketed += ch;
    }
    return bracketed + L']';
}

std::wstring Unbracketed(std::wstring_view name) {
    const std::wstring_view trimmed = TrimView(name);
    if (!IsQuotedName(trimmed)) return std::wstring(trimmed);
    const wchar_t close = trimmed.back();
    const std::wstring_view inner = trimmed.substr(1, trimmed.size() - 2);
    if (inner.find(close) == std::wstring_view::npos) return Trim(inner);
    std::wstring bare;
    for (std::size_t i = 0; i < inner.size(); ++i) {
        bare += inner[i];
        if (inner[i] == close) ++i;
    }
    return Trim(bare);
}

bool SameIdentifier(std::wstring_view a, std::wstring_view b) {
    if (a == b) return true;
    const auto is_bare = [](std::wstring_view name) {
        return !name.empty() && IsIdentifierStart(name.front()) && name.back() != L' ';
    };
    if (is_bare(a) && is_bare(b)) return SameIgnoringCase(a, b);
    const std::optional<std::wstring_view> first = PlainName(a);
    const std::optional<std::wstring_view> second = PlainName(b);
    if (first && second) return SameIgnoringCase(*first, *second);
    return SameIgnoringCase(Unbracketed(a), Unbracketed(b));
}

std::wstring IdentifierKey(std::wstring_view name) {
    std::wstring key;
    AppendIdentifierKey(name, key);
    return key;
}

void AppendIdentifierKey(std::wstring_view name, std::wstring& text) {
    const std::optional<std::wstring_view> plain = PlainName(name);
    if (!plain) {
        text += Lower(Unbracketed(name));
        return;
    }
    const std::size_t begin = text.size();
    text.resize(begin + plain->size());
    std::ranges::transform(*plain, text.begin() + static_cast<std::ptrdiff_t>(begin), LowerChar);
}

std::vector<std::wstring> SplitQualified(std::wstring_view text) {
    std::vector<std::wstring> pieces;
    std::size_t start = 0;
    ForEachPoint(text, [&](std::size_t point) {
        pieces.push_back(Trim(text.substr(start, point - start)));
        start = point + 1;
    });
    pieces.push_back(Trim(text.substr(start)));
    return pieces;
}

std::size_t LastPoint(std::wstring_view text) {
    std::size_t last = std::wstring_view::npos;
    ForEachPoint(text, [&](std::size_t point) { last = point; });
    return last;
}

QualifiedName ReadQualifiedName(std::wstring_view text) {
    QualifiedName name;
    std::size_t at = SkipBlanks(text, 0);
    while (at < text.size()) {
        std::size_t end = at;
        ++name.parts;
        if (name.parts > 1 && text[at] == L'*') {
            name.is_one = SkipBlanks(text, at + 1) == text.size();
            return name;
        }
        if (const std::optional<wchar_t> close = ClosingOf(text[at])) {
            end = EndOfQuoted(text, at, *close);
            if (end == std::wstring_view::npos || end - at < 3) return name;
        } else {
            end = EndOfBareName(text, at);
            if (end == at) return name;
        }
        const std::wstring_view part = text.substr(at, end - at);
        at = SkipBlanks(text, end);
        if (at == text.size()) {
            name.is_one = name.parts > 1 || !IsReservedWord(part);
            return name;
        }
        if (text[at] != L'.') return name;
        name.last_point = at;
        at = SkipBlanks(text, at + 1);
    }
    return name;
}

bool IsReservedWord(std::wstring_view word) {
    if (word.empty() || word.size() > kLongestReservedWord) return false;
    const std::uint32_t letter = static_cast<std::uint32_t>(LowerChar(word.front())) - L'a';
    if (letter >= kFirstWordOf.size() - 1) return false;
    const auto same = [&](std::wstring_view reserved) { return SameIgnoringCase(word, reserved); };
    return std::any_of(kReservedWords + kFirstWordOf[letter], kReservedWords + kFirstWordOf[letter + 1],
                       same);
}

}  // namespace tessel
