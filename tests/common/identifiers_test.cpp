#include "common/identifiers.h"

#include <gtest/gtest.h>

namespace tessel {
namespace {

using Pieces = std::vector<std::wstring>;

TEST(NeedsBrackets, PlainNamesDoNot) {
    for (const wchar_t* name : {L"Nombre", L"A\u00F1o", L"Categor\u00EDas", L"a1", L"a_b", L"N\u00BA", L"x",
                                L"\u0416", L"Direcci\u00F3n", L"Fecha", L"Total", L"Orders"}) {
        EXPECT_FALSE(NeedsBrackets(name)) << name;
    }
}

TEST(NeedsBrackets, NamesThatCannotStandBareDo) {
    for (const wchar_t* name :
         {L"", L"1a", L"Detalle de pedidos", L"a-b", L"a.b", L"a%", L"_a", L"Order", L"SELECT", L"a'b",
          L"\u00BFQu\u00E9?", L"a\u00A0b", L"a]", L"[", L"@a", L"a\u2014b"}) {
        EXPECT_TRUE(NeedsBrackets(name)) << name;
    }
}

TEST(BracketIfNeeded, LeavesPlainAndQuotedNamesAndDoublesAClosingBracket) {
    EXPECT_EQ(BracketIfNeeded(L"Nombre"), L"Nombre");
    EXPECT_EQ(BracketIfNeeded(L"Detalle de pedidos"), L"[Detalle de pedidos]");
    EXPECT_EQ(BracketIfNeeded(L"[Detalle de pedidos]"), L"[Detalle de pedidos]");
    EXPECT_EQ(BracketIfNeeded(L"\"a b\""), L"\"a b\"");
    EXPECT_EQ(BracketIfNeeded(L"Group"), L"[Group]");
    EXPECT_EQ(BracketIfNeeded(L"a]b"), L"[a]]b]");
    EXPECT_EQ(BracketIfNeeded(L"[a].[b]"), L"[[a]].[b]]]");
    EXPECT_EQ(BracketIfNeeded(L""), L"[]");
}

TEST(Unbracketed, TakesOffOneEnclosingPair) {
    EXPECT_EQ(Unbracketed(L" [Detalle de pedidos] "), L"Detalle de pedidos");
    EXPECT_EQ(Unbracketed(L"\"a\"\"b\""), L"a\"b");
    EXPECT_EQ(Unbracketed(L"`a b`"), L"a b");
    EXPECT_EQ(Unbracketed(L"[a]]b]"), L"a]b");
    EXPECT_EQ(Unbracketed(L"[a].[b]"), L"[a].[b]");
    EXPECT_EQ(Unbracketed(L"[a"), L"[a");
    EXPECT_EQ(Unbracketed(L" a "), L"a");
}

TEST(Unbracketed, UndoesBracketIfNeeded) {
    for (const wchar_t* name : {L"Nombre", L"a b", L"a]b", L"]", L"]]", L"order", L"a[b", L"1"}) {
        EXPECT_EQ(Unbracketed(BracketIfNeeded(name)), name);
    }
}

TEST(SameIdentifier, IgnoresCaseBlanksAndBrackets) {
    EXPECT_TRUE(SameIdentifier(L"[Detalle de Pedidos]", L" detalle de pedidos"));
    EXPECT_TRUE(SameIdentifier(L"\"A\u00D1O\"", L"[a\u00F1o]"));
    EXPECT_FALSE(SameIdentifier(L"a b", L"ab"));
    EXPECT_EQ(IdentifierKey(L" [A B] "), L"a b");
}

TEST(SplitQualified, DividesAtPointsOutsideBracketsQuotesAndParentheses) {
    const std::pair<const wchar_t*, Pieces> cases[] = {
        {L"Clientes.Nombre", {L"Clientes", L"Nombre"}},
        {L"Nombre", {L"Nombre"}},
        {L"", {L""}},
        {L"[a.b].c", {L"[a.b]", L"c"}},
        {L"\"a.b\".`c.d`.*", {L"\"a.b\"", L"`c.d`", L"*"}},
        {L"Sum(a.b)", {L"Sum(a.b)"}},
        {L"'a.b' & c", {L"'a.b' & c"}},
        {L"a . b", {L"a", L"b"}},
        {L"a.[b.c", {L"a", L"[b.c"}},
        {L"a)b.c", {L"a)b", L"c"}},
    };
    for (const auto& [text, pieces] : cases) EXPECT_EQ(SplitQualified(text), pieces) << text;
}

TEST(IsQualifiedName, AcceptsNamesJoinedByPoints) {
    for (const wchar_t* text :
         {L"Nombre", L"Clientes.Nombre", L"[Detalle de pedidos].[Precio unidad]", L" a . b ", L"db.dbo.t.f",
          L"Clientes.*", L"\"a\".`b`", L"t.Order", L"_a.b", L"a.b$"}) {
        EXPECT_TRUE(IsQualifiedName(text)) << text;
    }
}

TEST(IsQualifiedName, RefusesEverythingElse) {
    for (const wchar_t* text :
         {L"", L" ", L"*", L"1.5", L"a.", L".a", L"a b", L"Sum(a.b)", L"a+b", L"'a'", L"Null", L"a.*.b",
          L"a.b c", L"[a", L"[]", L"a.b.*x", L"@a", L"(a.b)", L"#1.1.2020#"}) {
        EXPECT_FALSE(IsQualifiedName(text)) << text;
    }
}

TEST(IsReservedWord, IgnoresLetterCase) {
    for (const wchar_t* word : {L"select", L"FROM", L"DistinctRow", L"percent", L"When", L"xor", L"add"}) {
        EXPECT_TRUE(IsReservedWord(word)) << word;
    }
    for (const wchar_t* word : {L"Nombre", L"", L"selects", L"Fecha", L"a\u00F1o"}) {
        EXPECT_FALSE(IsReservedWord(word)) << word;
    }
}

}  // namespace
}  // namespace tessel
