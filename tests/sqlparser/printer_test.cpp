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
