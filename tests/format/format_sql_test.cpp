#include "analyse/format_sql.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <random>
#include <sstream>

#include "common/text.h"
#include "macros/macros.h"
#include "sqlparser/dump.h"
#include "sqlparser/lexer.h"
#include "sqlparser/sql_parser.h"
#include "tests/support/seed.h"

namespace tessel::analyse {
namespace {

namespace fs = std::filesystem;

/// The reviewed statements of the corpus, right and wrong ones.
std::vector<std::wstring> Corpus() {
    const char* source = std::getenv("TESSEL_SOURCE_DIR");
    std::vector<std::wstring> statements;
    for (const auto& entry : fs::directory_iterator(fs::path(source ? source : ".") / "tests" / "corpus")) {
        if (entry.path().extension() != ".sql") continue;
        std::ifstream in(entry.path(), std::ios::binary);
        std::string statement;
        for (std::string line; std::getline(in, line);) {
            if (!line.empty() && line.back() == '\r') line.pop_back();
            if (line != "---") {
                statement += line + '\n';
                continue;
            }
            statements.push_back(FromUtf8(statement));
            statement.clear();
        }
        statements.push_back(FromUtf8(statement));
    }
    return statements;
}

std::wstring Tree(std::wstring_view text) {
    sql::SqlParser parser;
    return parser.Parse(text) || !parser.GetStatement() ? L"" : sql::Dump(*parser.GetStatement());
}

std::wstring WithoutWhiteSpace(std::wstring text) {
    std::erase_if(text, [](wchar_t ch) { return IsWhiteSpace(ch); });
    return text;
}

/// What every layout keeps to.
void ExpectLawful(const std::wstring& text) {
    const Formatted formatted = FormatSQL(text);
    EXPECT_TRUE(formatted.is_faithful) << ToUtf8(text);
    if (formatted.error) {
        EXPECT_EQ(formatted.text, text);
        return;
    }
    EXPECT_EQ(ToUtf8(Tree(formatted.text)), ToUtf8(Tree(text)));
    EXPECT_EQ(ToUtf8(WithoutWhiteSpace(formatted.text)), ToUtf8(WithoutWhiteSpace(text)));
    const Formatted again = FormatSQL(formatted.text);
    EXPECT_EQ(ToUtf8(again.text), ToUtf8(formatted.text)) << "of:\n" << ToUtf8(text);
}

TEST(FormatSql, TheCorpusKeepsItsMeaningAndItsLayout) {
    const std::vector<std::wstring> corpus = Corpus();
    ASSERT_GT(corpus.size(), 300u);
    std::size_t formatted = 0;
    for (const std::wstring& statement : corpus) {
        ExpectLawful(statement);
        formatted += !FormatSQL(statement).error;
    }
    EXPECT_GT(formatted, corpus.size() * 8 / 10);
}

/// The text with comments and other white space between its tokens.
std::wstring Disordered(std::wstring_view text, std::mt19937_64& random) {
    constexpr const wchar_t* kSpaces[] = {L" ",          L"\r\n",           L"\n\n  ",       L"\t",
                                          L" /* c */ ",  L" -- c\r\n",      L"\r\n-- c\r\n", L"\n/* c */\n",
                                          L" /* c */\n", L"\n/* a\r\nb */ "};
    std::wstring result;
    sql::Lexer lexer(text);
    for (sql::Token token = lexer.Next(); token.kind != sql::TokenKind::End; token = lexer.Next()) {
        const std::wstring_view piece = text.substr(token.begin, token.length);
        const bool is_space = token.kind == sql::TokenKind::Space;
        result += is_space ? std::wstring_view(kSpaces[random() % std::size(kSpaces)]) : piece;
        if (token.kind == sql::TokenKind::Comment && piece.starts_with(L"--")) result += L"\n";
    }
    return result;
}

TEST(FormatSql, HoldsForAnyWhiteSpaceAndComments) {
    std::mt19937_64 random(tests::Seed());
    for (const std::wstring& statement : Corpus())
        for (int round = 0; round < 3; ++round) ExpectLawful(Disordered(statement, random));
}

TEST(FormatSql, MacrosThatWereFoundAreFoundAgain) {
    for (const wchar_t* text : {L"SELECT a FROM t WHERE f = @fecha AND g = @hora ;",
                                L"SELECT @winuser FROM t WHERE f = (@fecha) GROUP BY a"})
        EXPECT_EQ(macros::GetMacros(FormatSQL(text).text), macros::GetMacros(text)) << ToUtf8(text);
}

TEST(FormatSql, ATextWithAnErrorIsLeftAloneAndTheErrorTold) {
    const std::wstring text = L"SELECT a\r\n  FROM t WHERE";
    const Formatted formatted = FormatSQL(text);
    EXPECT_EQ(formatted.text, text);
    ASSERT_TRUE(formatted.error);
    EXPECT_EQ(formatted.error->line, 2u);
    EXPECT_FALSE(formatted.error->message.empty());
}

TEST(FormatSql, DeepStatementsAreNoTrouble) {
    std::wstring text = L"SELECT ";
    for (int i = 0; i < 450; ++i) text += L"f(a, ";
    text += L"1";
    for (int i = 0; i < 450; ++i) text += L")";
    text += L" FROM t";
    ExpectLawful(text);
    ExpectLawful(L"SELECT a FROM t WHERE " + std::wstring(100'000, L'(') + L"a");
}

TEST(FormatSql, ALongStatementTakesTimeInProportion) {
    std::wstring text = L"SELECT a FROM t WHERE ";
    for (int i = 0; i < 20'000; ++i) text += L"(t.a = 'x' OR t.b BETWEEN 1 AND 2) AND ";
    ExpectLawful(text + L"1 = 1");
}

}  // namespace
}  // namespace tessel::analyse
