// Texts that are very long, very deep, or no text at all.
#include <gtest/gtest.h>

#include <random>

#include "common/text.h"
#include "sqlparser/dump.h"
#include "sqlparser/lexer.h"
#include "sqlparser/printer.h"
#include "sqlparser/sql_parser.h"
#include "tests/sqlparser/corpus.h"

namespace tessel::sql {
namespace {

std::wstring Repeated(std::wstring_view piece, std::size_t times) {
    std::wstring text;
    text.reserve(piece.size() * times);
    for (std::size_t i = 0; i < times; ++i) text += piece;
    return text;
}

constexpr const wchar_t* kTooDeep = L"La instrucción tiene demasiados niveles de anidamiento.";

TEST(Limits, NestingUpToTheLimitIsAccepted) {
    const std::size_t levels = kMaxDepth - kSelectLevels - 1;
    for (const auto& [open, close] :
         std::initializer_list<std::pair<const wchar_t*, const wchar_t*>>{{L"(", L")"},
                                                                          {L"f(", L")"},
                                                                          {L"a IN (", L")"},
                                                                          {L"CASE WHEN a THEN ", L" END"},
                                                                          {L"NOT ", L""},
                                                                          {L"- ", L""},
                                                                          {L"a = NOT ", L""}}) {
        const std::size_t times = std::wstring_view(open) == L"a = NOT " ? levels / 2 : levels - 1;
        const std::wstring text = L"SELECT " + Repeated(open, times) + L"a" + Repeated(close, times);
        SqlParser parser;
        EXPECT_FALSE(parser.Parse(text)) << ToUtf8(open) << ToUtf8(parser.Errors()[0].message);
        if (!parser.Errors().empty()) continue;
        const std::wstring printed = Print(*parser.GetStatement());
        SqlParser again;
        EXPECT_FALSE(again.Parse(printed));
        EXPECT_EQ(Dump(*parser.GetStatement()), Dump(*again.GetStatement()));
    }
}

TEST(Limits, NestedSelectsAndJoins) {
    const std::size_t levels = kMaxDepth / (kSelectLevels + 1) - 2;
    SqlParser parser;
    EXPECT_FALSE(parser.Parse(Repeated(L"SELECT (", levels) + L"SELECT 1" + Repeated(L")", levels)));
    EXPECT_FALSE(parser.Parse(Repeated(L"SELECT a FROM (", levels) + L"SELECT 1" + Repeated(L")", levels)));
    EXPECT_FALSE(parser.Parse(L"SELECT 1 FROM " + Repeated(L"(", 400) + L"a" +
                              Repeated(L" LEFT JOIN b ON c=d)", 400)));
    EXPECT_FALSE(parser.Parse(L"SELECT 1 FROM a" + Repeated(L" LEFT JOIN b ON c=d", 400)));
}

TEST(Limits, BeyondItIsAnErrorAndNoCrash) {
    const std::size_t many = 100000;
    for (const std::wstring& text : {
             L"SELECT " + Repeated(L"(", many) + L"a" + Repeated(L")", many),
             L"SELECT " + Repeated(L"(", many),
             L"SELECT " + Repeated(L"f(", many),
             L"SELECT a IN " + Repeated(L"(a IN ", many),
             L"SELECT " + Repeated(L"NOT ", many) + L"a",
             L"SELECT " + Repeated(L"- ", many) + L"a",
             L"SELECT " + Repeated(L"CASE WHEN ", many) + L"a",
             L"SELECT " + Repeated(L"CAST(", many) + L"a",
             L"SELECT a" + Repeated(L"::int", many),
             L"SELECT a" + Repeated(L" + a - a", many),
             L"SELECT a" + Repeated(L" = a", many),
             L"SELECT a" + Repeated(L" LIKE a", many),
             L"SELECT a" + Repeated(L" IS NULL", many),
             Repeated(L"SELECT (", many),
             Repeated(L"(", many) + L"SELECT",
             Repeated(L"SELECT EXISTS (", many),
             Repeated(L"SELECT a FROM (", many),
             L"SELECT a FROM " + Repeated(L"(", many),
             L"SELECT a FROM a " + Repeated(L" LEFT JOIN b", many),
             L"SELECT a FROM a " + Repeated(L" LEFT JOIN b ON c", many),
             L"SELECT a FROM " + Repeated(L"(a LEFT JOIN ", many),
             L"SELECT f() OVER " + Repeated(L"(ORDER BY f() OVER ", many),
             Repeated(L"WITH q AS (", many),
             L"SELECT a FROM (" + Repeated(L"a, ", many) + L"a)",
         }) {
        SqlParser parser;
        EXPECT_TRUE(parser.Parse(text)) << ToUtf8(text.substr(0, 30));
        ASSERT_FALSE(parser.Errors().empty());
        EXPECT_EQ(ToUtf8(parser.Errors()[0].message), ToUtf8(kTooDeep)) << ToUtf8(text.substr(0, 30));
    }
}

TEST(Limits, LongTextsAreNoProblem) {
    const std::size_t many = 100000;
    for (const std::wstring& text : {
             L"SELECT a" + Repeated(L", a", many),
             L"SELECT a" + Repeated(L" + a", many),
             L"SELECT a" + Repeated(L" & 'x'", many),
             L"SELECT a" + Repeated(L".b", many),
             L"SELECT a FROM t" + Repeated(L", t", many),
             L"SELECT f(a" + Repeated(L", a", many) + L")",
             L"SELECT a IN (1" + Repeated(L", 1", many) + L")",
             L"SELECT a" + Repeated(L" UNION SELECT a", many / 10),
             L"SELECT '" + Repeated(L"x", many) + L"'",
             L"SELECT a" + Repeated(L" ", many),
             L"SELECT a " + Repeated(L"/* x */", many),
             L"SELECT a" + Repeated(L" OR (SELECT a)", many / 10),
             L"SELECT a FROM t" + Repeated(L", a INNER JOIN b ON a.x=b.x", many / 10),
             L"SELECT a FROM t WHERE a=1" + Repeated(L" AND (b=2 OR c=3)", many / 10),
             L"SELECT a" + Repeated(L";", many),
         }) {
        SqlParser parser;
        EXPECT_FALSE(parser.Parse(text)) << ToUtf8(text.substr(0, 30));
    }
}

TEST(Limits, AMillionAlternativesAreOneFlatRun) {
    const std::size_t many = 1000000;
    SqlParser parser;
    ASSERT_FALSE(parser.Parse(L"SELECT a FROM t WHERE a" + Repeated(L" OR a", many)));
    EXPECT_EQ(parser.GetStatement()->Where().size(), 2 * many + 1);
}

TEST(Limits, WrongLongTextsAreNoProblemEither) {
    const std::size_t many = 50000;
    for (const wchar_t* piece : {L"#",
                                 L"#1 ",
                                 L"[",
                                 L"[SELECT ",
                                 L"[SELECT a FROM t]. ",
                                 L"@{",
                                 L"'",
                                 L"'a' ",
                                 L"/*",
                                 L"(",
                                 L")",
                                 L",",
                                 L"=",
                                 L"SELECT ",
                                 L"FROM ",
                                 L"WHERE (",
                                 L"(SELECT ",
                                 L"UNION ",
                                 L"; ",
                                 L"a ",
                                 L"\xD800",
                                 L"“",
                                 L"¿",
                                 L"{",
                                 L"# a ",
                                 L"&H",
                                 L"1.",
                                 L"..",
                                 L"::",
                                 L"NOT ",
                                 L"JOIN ",
                                 L"(SELECT a FROM ",
                                 L") UNION (",
                                 L"SELECT WHERE )",
                                 L"PARAMETERS "}) {
        for (const wchar_t* begin : {L"", L"SELECT ", L"SELECT a FROM "}) {
            SqlParser parser;
            (void)parser.Parse(begin + Repeated(piece, many));
        }
    }
}

TEST(Limits, StrangeCharacters) {
    SqlParser parser;
    EXPECT_TRUE(parser.Parse(std::wstring_view(L"SELECT a\0b FROM t", 17)));
    EXPECT_EQ(parser.Errors()[0].range.offset, 8u);
    EXPECT_FALSE(parser.Parse(std::wstring_view(L"SELECT 'a\0b' FROM t", 19)));
    EXPECT_FALSE(parser.Parse(L"SELECT '\xD800' AS [\xDC00] FROM t\xD801"));
    EXPECT_FALSE(parser.Parse(L"SELECT\u00A0a\u3000FROM\u2028t"));
    EXPECT_FALSE(parser.Parse(L"\uFEFFSELECT a FROM t"));
}

TEST(Limits, EveryCutOfAStatementIsAnswered) {
    for (const std::wstring& text : test::Corpus()) {
        for (std::size_t length = 0; length < text.size(); ++length) {
            SqlParser parser;
            const bool failed = parser.Parse(text.substr(0, length));
            EXPECT_EQ(failed, !parser.Errors().empty());
            for (const Diagnostic& error : parser.Errors()) {
                EXPECT_LE(error.range.End(), length);
                EXPECT_FALSE(error.message.empty());
            }
        }
    }
}

// Tokens of all statements, shuffled: whatever comes of it, the parser answers, and what it understands can
// be printed and read again.
TEST(Limits, RandomTokensAreAnswered) {
    const unsigned seed = 4711;
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::vector<std::wstring> words;
    for (const std::wstring& text : test::Corpus()) {
        Lexer lexer(text);
        for (Token token = lexer.NextSignificant(); token.kind != TokenKind::End;
             token = lexer.NextSignificant()) {
            words.push_back(text.substr(token.begin, token.length));
        }
    }
    std::mt19937 random(seed);
    int understood = 0;
    for (int round = 0; round < 20000; ++round) {
        std::wstring text = L"SELECT ";
        const std::size_t length = 1 + random() % 12;
        for (std::size_t i = 0; i < length; ++i) text += words[random() % words.size()] + L" ";
        SqlParser parser;
        if (parser.Parse(text)) continue;
        ++understood;
        const std::wstring printed = Print(*parser.GetStatement());
        SqlParser again;
        ASSERT_FALSE(again.Parse(printed)) << ToUtf8(text) << "\n" << ToUtf8(printed);
        ASSERT_EQ(ToUtf8(Dump(*parser.GetStatement())), ToUtf8(Dump(*again.GetStatement())))
            << ToUtf8(text) << "\n"
            << ToUtf8(printed);
        (void)parser.GetStatement()->Where();
    }
    EXPECT_GT(understood, 100);
}

// One to three characters of a statement changed, lost or doubled.
TEST(Limits, DamagedStatementsAreAnswered) {
    const unsigned seed = 1605;
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::mt19937 random(seed);
    const std::wstring signs = L"()[]{}'\"`#@.,;:!=<>+-*/\\^&%|~? \n1aE\x00e9";
    for (int round = 0; round < 20000; ++round) {
        std::wstring text = test::Corpus()[random() % test::Corpus().size()];
        for (unsigned damage = 0; damage <= random() % 3; ++damage) {
            const std::size_t at = random() % text.size();
            switch (random() % 3) {
                case 0:
                    text[at] = signs[random() % signs.size()];
                    break;
                case 1:
                    text.erase(at, 1 + random() % 3);
                    break;
                default:
                    text.insert(at, 1, signs[random() % signs.size()]);
                    break;
            }
            if (text.empty()) text = L"a";
        }
        SqlParser parser;
        if (parser.Parse(text)) {
            ASSERT_FALSE(parser.Errors().empty());
            for (const Diagnostic& error : parser.Errors())
                ASSERT_LE(error.range.End(), text.size()) << ToUtf8(text);
            continue;
        }
        const std::wstring printed = Print(*parser.GetStatement());
        SqlParser again;
        ASSERT_FALSE(again.Parse(printed)) << ToUtf8(text) << "\n" << ToUtf8(printed);
        ASSERT_EQ(ToUtf8(Dump(*parser.GetStatement())), ToUtf8(Dump(*again.GetStatement())))
            << ToUtf8(text) << "\n"
            << ToUtf8(printed);
    }
}

}  // namespace
}  // namespace tessel::sql
