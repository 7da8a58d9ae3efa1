#include <gtest/gtest.h>

#include <span>

#include "common/text.h"
#include "sqlparser/sql_parser.h"
#include "tests/sqlparser/malformed_texts.h"

namespace tessel::sql {
namespace {

std::string Describe(const Diagnostic& d) {
    return std::to_string(d.line) + ":" + std::to_string(d.column) + "+" + std::to_string(d.range.length) +
           " " + ToUtf8(d.message);
}

void Check(std::span<const test::MalformedText> cases) {
    for (const test::MalformedText& c : cases) {
        SqlParser parser;
        EXPECT_TRUE(parser.Parse(c.text)) << ToUtf8(c.text);
        if (parser.Errors().empty()) continue;
        Diagnostic expected;
        expected.line = c.line;
        expected.column = c.column;
        expected.range.length = c.length;
        expected.message = c.message;
        EXPECT_EQ(Describe(parser.Errors()[0]), Describe(expected)) << ToUtf8(c.text);
    }
}

TEST(Errors, TextsThatAreNoSelect) {
    Check(test::kNoSelects);
}

TEST(Errors, SelectList) {
    Check(test::kSelectLists);
}

TEST(Errors, CrosstabsAndEscapes) {
    Check(test::kCrosstabsAndEscapes);
}

TEST(Errors, WhatIsNotClosed) {
    Check(test::kNotClosed);
}

TEST(Errors, FromAndJoins) {
    Check(test::kFromAndJoins);
}

TEST(Errors, ConditionsAndClauses) {
    Check(test::kConditionsAndClauses);
}

TEST(Errors, SeveralClausesGiveSeveralErrors) {
    SqlParser parser;
    ASSERT_TRUE(parser.Parse(L"SELECT a +\nFROM t INNER\nWHERE b =\nORDER a"));
    std::string all;
    for (const Diagnostic& error : parser.Errors()) all += Describe(error) + "\n";
    EXPECT_EQ(all,
              "2:1+4 Se esperaba una expresión después de «+».\n"
              "3:1+5 Se esperaba JOIN.\n"
              "4:1+5 Se esperaba una expresión después de «=».\n"
              "4:7+1 Se esperaba BY después de ORDER.\n");
    ASSERT_NE(parser.GetStatement(), nullptr);
}

TEST(Errors, InASubselectDoNotHideThoseAfterIt) {
    SqlParser parser;
    ASSERT_TRUE(parser.Parse(L"SELECT a FROM t WHERE b IN (SELECT FROM u WHERE) AND c = ORDER BY d"));
    std::string all;
    for (const Diagnostic& error : parser.Errors()) all += Describe(error) + "\n";
    EXPECT_EQ(all,
              "1:36+4 Se esperaba una expresión después de SELECT.\n"
              "1:48+1 Se esperaba una expresión después de WHERE.\n"
              "1:58+5 Se esperaba una expresión después de «=».\n");
}

TEST(Errors, AreNoMoreThanAHundred) {
    std::wstring text = L"SELECT a";
    for (int i = 0; i < 1000; ++i) text += L" WHERE =";
    SqlParser parser;
    EXPECT_TRUE(parser.Parse(text));
    EXPECT_EQ(parser.Errors().size(), 100u);
}

TEST(Errors, TheStatementSurvivesAsFarAsItWasUnderstood) {
    SqlParser parser;
    ASSERT_TRUE(parser.Parse(L"SELECT a, b FROM t WHERE ORDER BY a"));
    ASSERT_NE(parser.GetStatement(), nullptr);
    EXPECT_EQ(parser.GetStatement()->Columns.size(), 2u);
    EXPECT_EQ(parser.GetStatement()->Tables.size(), 1u);
    EXPECT_EQ(parser.GetStatement()->OrderItems.size(), 1u);
    EXPECT_TRUE(parser.Parse(L"hola"));
    EXPECT_EQ(parser.GetStatement(), nullptr);
}

TEST(Errors, AreForgottenByTheNextParse) {
    SqlParser parser;
    EXPECT_TRUE(parser.Parse(L"SELECT"));
    EXPECT_FALSE(parser.Parse(L"SELECT a"));
    EXPECT_TRUE(parser.Errors().empty());
}

}  // namespace
}  // namespace tessel::sql
