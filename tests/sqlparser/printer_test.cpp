#include "sqlparser/printer.h"

#include <gtest/gtest.h>

#include "common/text.h"
#include "sqlparser/dump.h"
#include "sqlparser/sql_parser.h"
#include "tests/sqlparser/corpus.h"

namespace tessel::sql {
namespace {

std::string Printed(std::wstring_view text) {
    SqlParser parser;
    if (parser.Parse(text))
        return ToUtf8(L"error: " + parser.Errors()[0].message + L" in " + std::wstring(text));
    return ToUtf8(Print(*parser.GetStatement()));
}

TEST(Printer, ClausesStandOnLinesOfTheirOwn) {
    EXPECT_EQ(
        Printed(
            L"select distinct a b,c  from (t inner join u on t.x=u.x) where a=1 or not b like 'x' group by a "
            L"having sum(c)>1 order by a desc;"),
        "SELECT DISTINCT a AS b, c\r\nFROM (t INNER JOIN u ON t.x = u.x)\r\nWHERE a = 1 OR NOT b LIKE 'x'\r\n"
        "GROUP BY a\r\nHAVING sum(c) > 1\r\nORDER BY a DESC");
}

TEST(Printer, NestedSelectsStayOnTheirLine) {
    EXPECT_EQ(Printed(L"SELECT a FROM t WHERE b IN(SELECT c\nFROM u\nWHERE d)"),
              "SELECT a\r\nFROM t\r\nWHERE b IN (SELECT c FROM u WHERE d)");
}

// "1 .b" is a number and a name, "1.b" a name; ".5" is a number, ". 5" a point before one.
TEST(Printer, NamesKeepTheirPartsAndAPointBesideANumberItsBlanks) {
    const std::pair<std::wstring_view, const char*> statements[] = {
        {L"SELECT a-1 .@b FROM t", "SELECT a - 1 .@b\r\nFROM t"},
        {L"SELECT t . 1  . b, t.1.b FROM t", "SELECT t. 1 .b, t.1.b\r\nFROM t"},
        {L"SELECT a FROM f1.5e350.3h", "SELECT a\r\nFROM f1.5e350.3h"},
        {L"SELECT a FROM @t .b.1.", "SELECT a\r\nFROM @t .b.1."},
        {L"SELECT a FROM t . 1 . b", "SELECT a\r\nFROM t. 1 .b"},
        {L"SELECT a FROM b..c.d, e..f..g, h.i.j.k, l . . m . n",
         "SELECT a\r\nFROM b..c.d, e..f..g, h.i.j.k, l..m.n"},
        {L"SELECT a.@b .c, @d.* FROM d.@e .f", "SELECT a.@b .c, @d.*\r\nFROM d.@e .f"},
        {L"SELECT a FROM t.. 0x", "SELECT a\r\nFROM t.. 0x"},
        {L"SELECT a FROM t.0x, t . 0x", "SELECT a\r\nFROM t.0x, t. 0x"},
    };
    for (const auto& [text, printed] : statements) {
        EXPECT_EQ(Printed(text), printed);
        EXPECT_EQ(Printed(FromUtf8(printed)), printed);
    }
}

TEST(Printer, AnExclamationMarkAndAnEqualSignStayApart) {
    EXPECT_EQ(Printed(L"SELECT a FROM f(b! = c, d!=e)"), "SELECT a\r\nFROM f (b! = c, d != e)");
}

TEST(Printer, ParsingWhatWasPrintedGivesTheSameTree) {
    for (const std::wstring& text : test::Corpus()) {
        SqlParser first;
        ASSERT_FALSE(first.Parse(text)) << ToUtf8(text) << "\n  " << ToUtf8(first.Errors()[0].message)
                                        << " at " << first.Errors()[0].range.offset;
        const std::wstring printed = Print(*first.GetStatement());
        SqlParser second;
        ASSERT_FALSE(second.Parse(printed))
            << ToUtf8(printed) << "\n  " << ToUtf8(second.Errors()[0].message);
        EXPECT_EQ(ToUtf8(Dump(*first.GetStatement())), ToUtf8(Dump(*second.GetStatement())))
            << ToUtf8(printed);
        EXPECT_EQ(ToUtf8(DumpBeyond(*first.GetStatement())), ToUtf8(DumpBeyond(*second.GetStatement())));
        EXPECT_EQ(ToUtf8(printed), ToUtf8(Print(*second.GetStatement())));
    }
}

}  // namespace
}  // namespace tessel::sql
