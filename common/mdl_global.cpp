#include "common/mdl_global.h"

#include <algorithm>
#include <span>

#include "common/text.h"

namespace tessel {

namespace {

using enum ValueClass;

constexpr std::array<ADOTypeInfo, 40> kADOTypes = {{
    {0, L"adEmpty", None, false},
    {16, L"adTinyInt", Number, false},
    {2, L"adSmallInt", Number, false},
    {3, L"adInteger", Number, false},
    {20, L"adBigInt", Number, false},
    {17, L"adUnsignedTinyInt", Number, false},
    {18, L"adUnsignedSmallInt", Number, false},
    {19, L"adUnsignedInt", Number, false},
    {21, L"adUnsignedBigInt", Number, false},
    {4, L"adSingle", Number, false},
    {5, L"adDouble", Number, true},
    {6, L"adCurrency", Number, false},
    {14, L"adDecimal", Number, false},
    {131, L"adNumeric", Number, false},
    {11, L"adBoolean", Boolean, false},
    {10, L"adError", None, false},
    {132, L"adUserDefined", Other, false},
    {12, L"adVariant", Other, false},
    {9, L"adIDispatch", Other, false},
    {13, L"adIUnknown", Other, false},
    {72, L"adGUID", Number, false},
    {7, L"adDate", DateTime, true},
    {133, L"adDBDate", DateTime, false},
    {134, L"adDBTime", DateTime, false},
    {135, L"adDBTimeStamp", DateTime, false},
    {8, L"adBSTR", DateTime, false},
    {129, L"adChar", Text, false},
    {200, L"adVarChar", Text, true},
    {201, L"adLongVarChar", Text, false},
    {130, L"adWChar", Text, false},
    {202, L"adVarWChar", Text, false},
    {203, L"adLongVarWChar", Text, false},
    {128, L"adBinary", Other, false},
    {204, L"adVarBinary", Other, false},
    {205, L"adLongVarBinary", Other, false},
    {136, L"adChapter", Other, false},
    {64, L"adFileTime", Other, false},
    {138, L"adPropVariant", Other, false},
    {139, L"adVarNumeric", Number, false},
    {8192, L"adArray", Other, false},
}};

constexpr std::wstring_view kInvalidArgument = L"Argumento o llamada a procedimiento no válidos.";

// What may stand before a function word and after it: every pair of these is an accepted pattern.
constexpr bool MayStandBeforeWord(wchar_t ch) {
    if (ch > L'/') return false;
    return ch == L' ' || ch == L'+' || ch == L'-' || ch == L'/' || ch == L')' || ch == L'*';
}

constexpr bool MayFollowWord(wchar_t ch) {
    return ch == L' ' || ch == L'(';
}

/// True when the text holds `word`, which is in lower case, at that place with an accepted sign after it.
bool HasWordAt(std::wstring_view text, std::size_t at, std::wstring_view word) {
    if (text.size() - at <= word.size() || !MayFollowWord(text[at + word.size()])) return false;
    for (std::size_t i = 0; i < word.size(); ++i) {
        if (LowerChar(text[at + i]) != word[i]) return false;
    }
    return true;
}

using Words = std::span<const std::wstring_view>;

/// The aggregates that begin with that letter.
Words WordsFrom(wchar_t ch) {
    static constexpr std::wstring_view kWords[] = {L"sum", L"count", L"compute", L"avg", L"min", L"max"};
    switch (ch) {
        case L's':
        case L'S':
            return Words(kWords).subspan(0, 1);
        case L'c':
        case L'C':
            return Words(kWords).subspan(1, 2);
        case L'a':
        case L'A':
            return Words(kWords).subspan(3, 1);
        case L'm':
        case L'M':
            return Words(kWords).subspan(4, 2);
        default:
            return {};
    }
}

/// At the start of the text a word needs more after it than one character.
bool StartsWithWord(std::wstring_view text, std::wstring_view word) {
    return text.size() > word.size() + 1 && HasWordAt(text, 0, word);
}

/// What one pass over the expression keeps in mind.
struct ParenScan {
    bool in_quote = false;
    bool spans_all = true;
    bool seen_other = false;
    long depth = 0;

    void Take(wchar_t ch, bool last) {
        if (ch == L'(') {
            if (!in_quote) ++depth;
        } else if (ch == L')') {
            if (!in_quote) --depth;
            if (last && spans_all) {
                ++depth;
            } else if (depth == 0) {
                spans_all = false;
            }
        } else if (ch != L' ') {
            if (seen_other && depth == 0) spans_all = false;
            seen_other = true;
        }
        if (ch == L'"' || ch == L'\'') in_quote = !in_quote;
    }
};

bool IsEnclosed(std::wstring_view text) {
    ParenScan scan;
    for (std::size_t i = 0; i < text.size(); ++i) scan.Take(text[i], i + 1 == text.size());
    return scan.depth == 1;
}

}  // namespace

const std::array<ADOTypeInfo, 40>& ADOTypeTable() {
    return kADOTypes;
}

ValueClass ADOTypeClass(std::wstring_view typeName) {
    const auto found = std::ranges::find_if(
        kADOTypes, [&](const ADOTypeInfo& type) { return SameName(type.name, typeName); });
    return found == kADOTypes.end() ? ValueClass::Text : found->value_class;
}

std::wstring_view ADOTypeName(int code) {
    const auto found = std::ranges::find(kADOTypes, code, &ADOTypeInfo::code);
    return found == kADOTypes.end() ? std::wstring_view() : found->name;
}

// One pass over the text and no allocation: composition asks this of every column, several times a statement.
bool IsAggregate(std::wstring_view expression) {
    // Behind the word stands one of these, which names of fields hardly ever hold.
    if (expression.find(L'(') == expression.npos && expression.find(L' ') == expression.npos) return false;
    const auto starts = [&](std::wstring_view word) { return StartsWithWord(expression, word); };
    if (std::ranges::any_of(WordsFrom(expression.front()), starts)) return true;
    for (std::size_t at = 1; at < expression.size(); ++at) {
        if (!MayStandBeforeWord(expression[at - 1])) continue;
        const auto is_here = [&](std::wstring_view word) { return HasWordAt(expression, at, word); };
        if (std::ranges::any_of(WordsFrom(expression[at]), is_here)) return true;
    }
    return false;
}

bool HasFunctionWord(std::wstring_view expression, std::wstring_view word) {
    const std::wstring inner = Lower(TrimView(word));
    for (std::size_t at = 1; at < expression.size(); ++at) {
        if (MayStandBeforeWord(expression[at - 1]) && HasWordAt(expression, at, inner)) return true;
    }
    // At the start the word counts as it was given, blanks included.
    return StartsWithWord(expression, Lower(word));
}

Result<std::wstring> StripOuterParens(std::wstring& expression) {
    expression = Trim(expression);
    std::wstring_view text = expression;
    while (IsEnclosed(text)) {
        if (text.size() < 2) return Error{std::wstring(kInvalidArgument)};
        text = TrimView(text.substr(1, text.size() - 2));
    }
    return std::wstring(text);
}

}  // namespace tessel
