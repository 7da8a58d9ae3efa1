#include "common/mdl_global.h"

#include <algorithm>

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

/// What stands before and after the word in each accepted pattern.
struct WordPattern {
    wchar_t before;
    wchar_t after;
};

constexpr WordPattern kWordPatterns[] = {
    {L' ', L' '}, {L' ', L'('}, {L'+', L'('}, {L'-', L'('}, {L'/', L'('}, {L')', L'('},
    {L'*', L'('}, {L'+', L' '}, {L'-', L' '}, {L'/', L' '}, {L')', L' '}, {L'*', L' '},
};

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

const std::array<ADOTypeInfo, 40>& ADOTypeTable() { return kADOTypes; }

ValueClass ADOTypeClass(std::wstring_view typeName) {
    const auto found = std::ranges::find_if(
        kADOTypes, [&](const ADOTypeInfo& type) { return SameName(type.name, typeName); });
    return found == kADOTypes.end() ? ValueClass::Text : found->value_class;
}

std::wstring_view ADOTypeName(int code) {
    const auto found = std::ranges::find(kADOTypes, code, &ADOTypeInfo::code);
    return found == kADOTypes.end() ? std::wstring_view() : found->name;
}

bool IsAggregate(std::wstring_view expression) {
    constexpr std::wstring_view kWords[] = {L"sum", L"count", L"compute", L"avg", L"min", L"max"};
    return std::ranges::any_of(kWords,
                               [&](std::wstring_view word) { return HasFunctionWord(expression, word); });
}

bool HasFunctionWord(std::wstring_view expression, std::wstring_view word) {
    const std::wstring text = Lower(expression);
    const std::wstring inner = Lower(TrimView(word));
    for (const WordPattern& pattern : kWordPatterns) {
        if (text.find(pattern.before + inner + pattern.after) != std::wstring::npos) return true;
    }
    // At the start the word counts as it was given, blanks included, and needs more after it than one character.
    if (text.size() <= word.size() + 1) return false;
    const std::wstring_view start = std::wstring_view(text).substr(0, word.size() + 1);
    const std::wstring whole = Lower(word);
    return start == whole + L' ' || start == whole + L'(';
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
