#include <gtest/gtest.h>

#include "analyse/analyse_sql.h"
#include "analyse/refusal.h"
#include "common/text.h"

namespace tessel::analyse {
namespace {

/// The text is right, but refused for that reason where `place` first occurs in it.
void ExpectRefused(std::wstring_view text, std::wstring_view place, std::wstring_view message) {
    model::Design design;
    const Analysis analysis = AnalyseSQL(text, design);
    EXPECT_TRUE(analysis.parsed) << ToUtf8(text);
    EXPECT_FALSE(analysis.accepted) << ToUtf8(text);
    ASSERT_TRUE(analysis.error) << ToUtf8(text);
    EXPECT_EQ(ToUtf8(analysis.error->message), ToUtf8(message));
    EXPECT_EQ(analysis.error->range, (TextRange{text.find(place), place.size()})) << ToUtf8(text);
}

TEST(DoubtfulText, CommentsThatEnginesDelimitInDifferentWaysAreRefusedAtTheirPlace) {
    const std::pair<std::wstring_view, std::wstring_view> statements[] = {
        {L"SELECT a -- b\r, c FROM t\n", L"-- b"},
        {L"SELECT a FROM t -- b\rWHERE c = 1", L"-- b"},
        {L"SELECT a FROM t WHERE a > 5--1", L"--1"},
        {L"SELECT a FROM t WHERE a > (5)--(1)\r\n", L"--(1)"},
        {L"SELECT a FROM t WHERE [a]--b\r\n", L"--b"},
        {L"SELECT a /*! , b */ FROM t", L"/*! , b */"},
        {L"SELECT a /*M!50000 , b */ FROM t", L"/*M!50000 , b */"},
        {L"SELECT a /* b /* c */ FROM t", L"/* b /* c */"},
    };
    for (const auto& [text, comment] : statements) ExpectRefused(text, comment, messages::kDoubtfulComment);
}

TEST(DoubtfulText, CommentsThatEveryEngineLeavesOutAreNoReasonToRefuse) {
    const std::wstring_view statements[] = {
        L"SELECT a -- b\r\n, c FROM t",
        L"SELECT a -- b\n, c FROM t -- d",
        L"SELECT a, --b\r\nc FROM t --d\r\nWHERE a = 1",
        L"SELECT a-- b\r\nFROM t",
        L"SELECT a----\r\nFROM t--",
        L"SELECT a FROM t -- b\r",
        L"SELECT a /* b */, /*+ c */ d FROM t /**/",
        L"SELECT a FROM t WHERE b = '--c' AND d = '/*! e'",
    };
    for (const std::wstring_view text : statements) {
        model::Design design;
        EXPECT_TRUE(AnalyseSQL(text, design).accepted) << ToUtf8(text);
    }
}

TEST(DoubtfulText, BlanksThatAreLettersForSomeEnginesAreRefusedAtTheirPlace) {
    for (const wchar_t blank : {L'\v', L'\u00A0', L'\u2003', L'\u200B', L'\u3000', L'\uFEFF'}) {
        const std::wstring text = std::wstring(L"SELECT a FROM t WHERE b = 1 ") + blank + L" AND c = 2";
        ExpectRefused(text, std::wstring_view(&blank, 1), messages::kDoubtfulBlank);
    }
}

TEST(DoubtfulText, BlanksInsideTextsAndNamesAreNoneOfTheStatement) {
    model::Design design;
    EXPECT_TRUE(
        AnalyseSQL(L"SELECT [a\u00A0b] AS ñ FROM t\f WHERE b = 'c\u00A0\v' -- \u3000", design).accepted);
}

TEST(DoubtfulText, ANullCharacterIsRefusedWhereverItStands) {
    using namespace std::string_view_literals;
    for (const std::wstring_view text :
         {L"SELECT a FROM t WHERE b = 'c\0d'"sv, L"SELECT @a\0b FROM t"sv, L"SELECT [a\0b] FROM t"sv})
        ExpectRefused(text, L"\0"sv, messages::kNullCharacter);
}

TEST(DoubtfulText, AWordThatFollowsANumberAtOnceIsRefusedAtItsPlace) {
    const std::pair<std::wstring_view, std::wstring_view> statements[] = {
        {L"SELECT a FROM t WHERE a = 1AND b = 2", L"AND"},
        {L"SELECT .577AS b FROM t", L"AS"},
        {L"SELECT 1.5b FROM t", L"b"},
    };
    for (const auto& [text, word] : statements) ExpectRefused(text, word, messages::kNumberBeforeWord);
    model::Design design;
    EXPECT_TRUE(AnalyseSQL(L"SELECT a1b, 1e3 AS c FROM t2x WHERE d3 = 1.5e+3", design).accepted);
    // The sign behind the number, not the number, stands before the word.
    EXPECT_TRUE(AnalyseSQL(L"SELECT &HF&b FROM t", design).accepted);
}

TEST(DoubtfulText, ATablesAliasThatBeginsWithADigitIsRefused) {
    ExpectRefused(L"SELECT a FROM t 8x", L"8x", messages::kTableAliasDigit);
    model::Design design;
    EXPECT_TRUE(AnalyseSQL(L"SELECT a AS 8x FROM t", design).accepted);
}

TEST(DoubtfulText, ATablesAliasThatHoldsAHashIsRefused) {
    ExpectRefused(L"SELECT a FROM t AS x#1 WHERE x#1.a = 1", L"x#1", messages::kTableAliasHash);
    ExpectRefused(L"SELECT t.a FROM t INNER JOIN u #u ON t.a = #u.a", L"#u", messages::kTableAliasHash);
    model::Design design;
    for (const wchar_t* shown :
         {L"SELECT [x#1].a FROM t AS [x#1]", L"SELECT a FROM t#1 AS x$1", L"SELECT a AS x#1 FROM t"})
        EXPECT_TRUE(AnalyseSQL(shown, design).accepted) << ToUtf8(shown);
}

}  // namespace
}  // namespace tessel::analyse
