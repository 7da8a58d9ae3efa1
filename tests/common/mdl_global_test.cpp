#include "common/mdl_global.h"

#include <gtest/gtest.h>

namespace tessel {
namespace {

std::wstring Stripped(std::wstring text) {
    const Result<std::wstring> result = StripOuterParens(text);
    return result ? result.Value() : L"error: " + result.Reason().message;
}

TEST(ADOTypeTable, HoldsTheFortyTypesInTheirOrder) {
    struct Row {
        int code;
        const wchar_t* name;
        int value_class;
        bool preferred;
    };
    const Row rows[] = {
        {0, L"adEmpty", 0, false},
        {16, L"adTinyInt", 1, false},
        {2, L"adSmallInt", 1, false},
        {3, L"adInteger", 1, false},
        {20, L"adBigInt", 1, false},
        {17, L"adUnsignedTinyInt", 1, false},
        {18, L"adUnsignedSmallInt", 1, false},
        {19, L"adUnsignedInt", 1, false},
        {21, L"adUnsignedBigInt", 1, false},
        {4, L"adSingle", 1, false},
        {5, L"adDouble", 1, true},
        {6, L"adCurrency", 1, false},
        {14, L"adDecimal", 1, false},
        {131, L"adNumeric", 1, false},
        {11, L"adBoolean", 3, false},
        {10, L"adError", 0, false},
        {132, L"adUserDefined", 5, false},
        {12, L"adVariant", 5, false},
        {9, L"adIDispatch", 5, false},
        {13, L"adIUnknown", 5, false},
        {72, L"adGUID", 1, false},
        {7, L"adDate", 4, true},
        {133, L"adDBDate", 4, false},
        {134, L"adDBTime", 4, false},
        {135, L"adDBTimeStamp", 4, false},
        {8, L"adBSTR", 4, false},
        {129, L"adChar", 2, false},
        {200, L"adVarChar", 2, true},
        {201, L"adLongVarChar", 2, false},
        {130, L"adWChar", 2, false},
        {202, L"adVarWChar", 2, false},
        {203, L"adLongVarWChar", 2, false},
        {128, L"adBinary", 5, false},
        {204, L"adVarBinary", 5, false},
        {205, L"adLongVarBinary", 5, false},
        {136, L"adChapter", 5, false},
        {64, L"adFileTime", 5, false},
        {138, L"adPropVariant", 5, false},
        {139, L"adVarNumeric", 1, false},
        {8192, L"adArray", 5, false},
    };
    ASSERT_EQ(std::size(rows), ADOTypeTable().size());
    for (std::size_t i = 0; i < std::size(rows); ++i) {
        const ADOTypeInfo& type = ADOTypeTable()[i];
        EXPECT_EQ(type.code, rows[i].code) << i;
        EXPECT_EQ(type.name, rows[i].name) << i;
        EXPECT_EQ(static_cast<int>(type.value_class), rows[i].value_class) << i;
        EXPECT_EQ(type.preferred, rows[i].preferred) << i;
    }
}

TEST(ADOTypeClass, ComparesTrimmedAndLowered) {
    EXPECT_EQ(ADOTypeClass(L"  ADVARCHAR "), ValueClass::Text);
    EXPECT_EQ(ADOTypeClass(L" ADDATE"), ValueClass::DateTime);
}

TEST(ADOTypeClass, KeepsTheThreeSurprisingClasses) {
    EXPECT_EQ(ADOTypeClass(L"adBSTR"), ValueClass::DateTime);
    EXPECT_EQ(ADOTypeClass(L"adGUID"), ValueClass::Number);
    EXPECT_EQ(ADOTypeClass(L"adError"), ValueClass::None);
    EXPECT_EQ(ADOTypeClass(L"adEmpty"), ValueClass::None);
}

TEST(ADOTypeClass, UnknownAndEmptyNamesAreText) {
    EXPECT_EQ(ADOTypeClass(L""), ValueClass::Text);
    EXPECT_EQ(ADOTypeClass(L"nvarchar"), ValueClass::Text);
}

TEST(ADOTypeName, GivesTheConstantOfACode) {
    EXPECT_EQ(ADOTypeName(202), L"adVarWChar");
    EXPECT_EQ(ADOTypeName(0), L"adEmpty");
    EXPECT_EQ(ADOTypeName(-5), L"");
}

TEST(IsAggregate, FindsTheSixWordsAsCalls) {
    for (const wchar_t* text :
         {L"SUM(Total)", L"1+Avg(x)", L"a compute b", L"Sum(Importe)", L"a+count(*)", L"x * max (y)",
          L"min (x)", L"2*Min(x)", L"a/Count(b)", L"(a)Sum(b)", L"a-sum (b)", L"count x"}) {
        EXPECT_TRUE(IsAggregate(text)) << text;
    }
}

TEST(IsAggregate, LeavesOtherWordsAlone) {
    for (const wchar_t* text : {L"Summe", L"minimo", L"Sum(", L"Summary(x)", L"", L"a, sum", L"x sum",
                                L"(Sum(x))", L"a=Sum(x)", L"Total.Sum", L"first(x)", L"asum(x)"}) {
        EXPECT_FALSE(IsAggregate(text)) << text;
    }
}

TEST(HasFunctionWord, AcceptsEachPatternAnywhere) {
    for (const wchar_t* text : {L"a f b", L"a f(b", L"a+f(b", L"a-f(b", L"a/f(b", L")f(b", L"a*f(b", L"a+f b",
                                L"a-f b", L"a/f b", L")f b", L"a*f b", L"f(b", L"f b", L"F(B"}) {
        EXPECT_TRUE(HasFunctionWord(text, L"f")) << text;
    }
    for (const wchar_t* text : {L"af(b", L",f(b", L"=f(b", L"(f(b", L"a f", L"f(", L"f ", L"f)", L"fx(b"}) {
        EXPECT_FALSE(HasFunctionWord(text, L"f")) << text;
    }
}

TEST(HasFunctionWord, TrimsTheWordInsideButNotAtTheStart) {
    EXPECT_TRUE(HasFunctionWord(L"a+f(b)", L" f "));
    EXPECT_FALSE(HasFunctionWord(L"f(bcd)", L" f "));
    EXPECT_TRUE(HasFunctionWord(L"f (bcd)", L"f "));
    EXPECT_TRUE(HasFunctionWord(L" f (bcd)", L" f"));
}

TEST(StripOuterParens, TakesOffWhatEnclosesAllOfIt) {
    EXPECT_EQ(Stripped(L"((a+b))"), L"a+b");
    EXPECT_EQ(Stripped(L" ( x = ')' ) "), L"x = ')'");
    EXPECT_EQ(Stripped(L"( ( a ) )"), L"a");
    EXPECT_EQ(Stripped(L"(a \"(\" b)"), L"a \"(\" b");
}

TEST(StripOuterParens, LeavesWhatIsNotEnclosed) {
    EXPECT_EQ(Stripped(L"(a)+(b)"), L"(a)+(b)");
    EXPECT_EQ(Stripped(L"Sum(x)"), L"Sum(x)");
    EXPECT_EQ(Stripped(L"  a  "), L"a");
    EXPECT_EQ(Stripped(L""), L"");
    EXPECT_EQ(Stripped(L"((a)"), L"((a)");
}

TEST(StripOuterParens, ASingleCharacterBeforeTheParenthesisCountsAsEnclosed) {
    EXPECT_EQ(Stripped(L"a(b)"), L"");
    EXPECT_EQ(Stripped(L"a(b+c)"), L"b+");
}

TEST(StripOuterParens, AnOpenParenthesisLosesTheLastCharacter) {
    EXPECT_EQ(Stripped(L"(a"), L"");
}

TEST(StripOuterParens, ALoneOpeningParenthesisIsAnInvalidArgument) {
    EXPECT_EQ(Stripped(L"("), L"error: Argumento o llamada a procedimiento no v\u00E1lidos.");
    EXPECT_EQ(Stripped(L" ( "), L"error: Argumento o llamada a procedimiento no v\u00E1lidos.");
}

TEST(StripOuterParens, TrimsTheArgumentInPlace) {
    std::wstring text = L"  (a)  ";
    EXPECT_EQ(StripOuterParens(text).Value(), L"a");
    EXPECT_EQ(text, L"(a)");
}

}  // namespace
}  // namespace tessel
