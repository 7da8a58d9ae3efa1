#include "sqlparser/lexer.h"

#include <gtest/gtest.h>

#include <random>

#include "common/text.h"
#include "tests/sqlparser/corpus.h"

namespace tessel::sql {
namespace {

struct Piece {
    TokenKind kind;
    const wchar_t* text;
};

void CheckTokens(const std::wstring& text, std::initializer_list<Piece> pieces) {
    Lexer lexer(text);
    for (const Piece& piece : pieces) {
        const Token token = lexer.NextSignificant();
        EXPECT_EQ(static_cast<int>(token.kind), static_cast<int>(piece.kind))
            << ToUtf8(text) << " " << ToUtf8(piece.text);
        EXPECT_EQ(ToUtf8(text.substr(token.begin, token.length)), ToUtf8(piece.text));
    }
    EXPECT_EQ(lexer.NextSignificant().kind, TokenKind::End) << ToUtf8(text);
}

TEST(Lexer, TellsDatesFromNamesWithTheSign) {
    CheckTokens(L"Item#>5",
                {{TokenKind::Word, L"Item#"}, {TokenKind::Greater, L">"}, {TokenKind::Number, L"5"}});
    CheckTokens(L"d<#1/1/2020#",
                {{TokenKind::Word, L"d"}, {TokenKind::Less, L"<"}, {TokenKind::Date, L"#1/1/2020#"}});
    CheckTokens(L"#1/1/2020#And", {{TokenKind::Date, L"#1/1/2020#"}, {TokenKind::Word, L"And"}});
    CheckTokens(L"#t1.a, #t1", {{TokenKind::Word, L"#t1"},
                                {TokenKind::Point, L"."},
                                {TokenKind::Word, L"a"},
                                {TokenKind::Comma, L","},
                                {TokenKind::Word, L"#t1"}});
    CheckTokens(L"#15-ene-2020#", {{TokenKind::Date, L"#15-ene-2020#"}});
    CheckTokens(L"#enero 15, 2020 10:00 PM#", {{TokenKind::Date, L"#enero 15, 2020 10:00 PM#"}});
    CheckTokens(L"#1/1/2020\n#", {{TokenKind::Date, L"#1/1/2020"}, {TokenKind::Date, L"#"}});
}

TEST(Lexer, NumbersAndNamesThatBeginWithDigits) {
    CheckTokens(L"1 .5 1. 1.5e+3 1e3 2009 90Days 1e3x 87089_Items 0x1F &HFF &O17",
                {{TokenKind::Number, L"1"},
                 {TokenKind::Number, L".5"},
                 {TokenKind::Number, L"1."},
                 {TokenKind::Number, L"1.5e+3"},
                 {TokenKind::Number, L"1e3"},
                 {TokenKind::Number, L"2009"},
                 {TokenKind::Word, L"90Days"},
                 {TokenKind::Word, L"1e3x"},
                 {TokenKind::Word, L"87089_Items"},
                 {TokenKind::Number, L"0x1F"},
                 {TokenKind::Ampersand, L"&"},
                 {TokenKind::Word, L"HFF"},
                 {TokenKind::Ampersand, L"&"},
                 {TokenKind::Word, L"O17"}});
    CheckTokens(L"1AND 2or 3Order 4Andes", {{TokenKind::Number, L"1"},
                                            {TokenKind::Word, L"AND"},
                                            {TokenKind::Number, L"2"},
                                            {TokenKind::Word, L"or"},
                                            {TokenKind::Word, L"3Order"},
                                            {TokenKind::Word, L"4Andes"}});
    CheckTokens(L"=&HFF+&HFFFF&", {{TokenKind::Equal, L"="},
                                   {TokenKind::Number, L"&HFF"},
                                   {TokenKind::Plus, L"+"},
                                   {TokenKind::Number, L"&HFFFF&"}});
    CheckTokens(L"2009.x t.5", {{TokenKind::Number, L"2009"},
                                {TokenKind::Point, L"."},
                                {TokenKind::Word, L"x"},
                                {TokenKind::Word, L"t"},
                                {TokenKind::Point, L"."},
                                {TokenKind::Number, L"5"}});
    CheckTokens(
        L"\"x\"&Hola",
        {{TokenKind::QuotedText, L"\"x\""}, {TokenKind::Ampersand, L"&"}, {TokenKind::Word, L"Hola"}});
}

TEST(Lexer, MacrosRunToTheirTerminator) {
    for (const wchar_t ch : std::wstring(L" {}[]+-*/<>=!(),:?'&\"")) {
        const std::wstring text = std::wstring(L"@a.b") + ch;
        Lexer lexer(text);
        EXPECT_EQ(lexer.Next().length, 4u) << ToUtf8(text);
    }
    CheckTokens(L"@fecha;", {{TokenKind::Macro, L"@fecha"}, {TokenKind::Semicolon, L";"}});
    CheckTokens(L"@{a 'b' (c)}", {{TokenKind::Macro, L"@{a 'b' (c)}"}});
    CheckTokens(L"@a@b", {{TokenKind::Macro, L"@a@b"}});
    CheckTokens(L"@", {{TokenKind::Macro, L"@"}});
}

TEST(Lexer, CommentsAndQuotesDoNotMix) {
    CheckTokens(L"a -- it's\nb /* \" */ c",
                {{TokenKind::Word, L"a"}, {TokenKind::Word, L"b"}, {TokenKind::Word, L"c"}});
    CheckTokens(L"'--' \"/*\" [*/ --]", {{TokenKind::String, L"'--'"},
                                         {TokenKind::QuotedText, L"\"/*\""},
                                         {TokenKind::BracketName, L"[*/ --]"}});
    CheckTokens(L"'a''b' \"a\"\"b\" [a]]b] `a``b`", {{TokenKind::String, L"'a''b'"},
                                                     {TokenKind::QuotedText, L"\"a\"\"b\""},
                                                     {TokenKind::BracketName, L"[a]]b]"},
                                                     {TokenKind::BackQuoteName, L"`a``b`"}});
}

TEST(Lexer, KnowsItsKeywordsInAnyLetterCase) {
    for (const wchar_t* word : {L"select", L"SELECT", L"SeLeCt"}) {
        Lexer lexer(word);
        EXPECT_EQ(lexer.Next().keyword, Keyword::Select);
    }
    for (const wchar_t* word : {L"selec", L"selects", L"_select", L"ſelect", L"a", L""}) {
        Lexer lexer(word);
        EXPECT_EQ(lexer.Next().keyword, Keyword::None) << ToUtf8(word);
    }
    for (int k = 1; k <= static_cast<int>(Keyword::Procedure); ++k) {
        const std::wstring text = Lower(KeywordText(static_cast<Keyword>(k)));
        ASSERT_FALSE(text.empty()) << k;
        EXPECT_EQ(static_cast<int>(FindKeyword(text.data(), text.size())), k) << ToUtf8(text);
    }
}

// Every character belongs to exactly one token.
void CheckCoverage(const std::wstring& text) {
    Lexer lexer(text);
    std::size_t at = 0;
    for (;;) {
        const Token token = lexer.Next();
        ASSERT_EQ(token.begin, at);
        if (token.kind == TokenKind::End) break;
        ASSERT_GT(token.length, 0u);
        at = token.End();
    }
    ASSERT_EQ(at, text.size());
}

// Line by line with the state handed on, the same kinds as in one go: at each character.
void CheckResumption(const std::wstring& text) {
    std::vector<TokenKind> whole(text.size());
    Lexer lexer(text);
    for (Token token = lexer.Next(); token.kind != TokenKind::End; token = lexer.Next()) {
        for (std::size_t i = token.begin; i < token.End(); ++i) whole[i] = token.kind;
    }
    LexerState state;
    for (std::size_t begin = 0; begin < text.size();) {
        std::size_t end = text.find(L'\n', begin);
        end = end == std::wstring::npos ? text.size() : end + 1;
        Lexer line(std::wstring_view(text).substr(0, end), begin, state);
        for (Token token = line.Next(); token.kind != TokenKind::End; token = line.Next()) {
            for (std::size_t i = token.begin; i < token.End(); ++i) {
                ASSERT_EQ(static_cast<int>(token.kind), static_cast<int>(whole[i]))
                    << i << " in " << ToUtf8(text);
            }
        }
        state = line.State();
        begin = end;
    }
}

TEST(Lexer, CoversEveryCharacterAndCanStartAtAnyLine) {
    for (const std::wstring& text : test::Corpus()) {
        CheckCoverage(text);
        std::wstring broken = text;
        for (wchar_t& ch : broken) {
            if (ch == L' ') ch = L'\n';
        }
        CheckCoverage(broken);
        CheckResumption(broken);
    }
    const std::wstring soup =
        L"a /* b\nc */ 'd\ne''f\n' \"g\n\" [h\ni] `j\n` @{k\nl} -- m\nn /* o\n& p &\nHFF";
    CheckResumption(soup);
}

TEST(Lexer, RandomTextsAreCovered) {
    const unsigned seed = 20261121;
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::mt19937 random(seed);
    const std::wstring alphabet = L"a1#@{}[]`'\"/*-\n\r &H.e:?!<>=|()\\,;x\x00e1\x20ac\xd800";
    for (int round = 0; round < 3000; ++round) {
        std::wstring text;
        const std::size_t length = random() % 40;
        for (std::size_t i = 0; i < length; ++i) text += alphabet[random() % alphabet.size()];
        if (round % 7 == 0) text.insert(text.size() / 2, 1, L'\0');
        CheckCoverage(text);
    }
}

}  // namespace
}  // namespace tessel::sql
