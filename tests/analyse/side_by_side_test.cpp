// What is taken for the statement without being parsed, and what is not.
#include "analyse/side_by_side.h"

#include "compose/compose.h"
#include "tests/analyse/difference_cases.h"
#include "tests/analyse/statement_cases.h"
#include "tests/analyse/support.h"
#include "tests/laws/side_by_side.h"

namespace tessel::analyse {
namespace {

/// A composed text with "\n" for the line break of a clause and the blank before it.
std::wstring WithBreaks(std::wstring_view text) {
    std::wstring broken;
    for (const wchar_t ch : text) broken += ch == L'\n' ? std::wstring(L" \r\n") : std::wstring(1, ch);
    return broken;
}

bool IsTaken(const wchar_t* original, const wchar_t* composed) {
    const std::wstring text = WithBreaks(composed);
    EXPECT_EQ(laws::UnfoundedReading(original, text, nullptr), "");
    return laws::IsTakenUnparsed(original, text, nullptr);
}

struct Pair {
    const wchar_t* original;
    const wchar_t* composed;
};

TEST(SideBySide, TakesWhatCompositionWritesOfMostStatements) {
    const Pair pairs[] = {
        {L"select distinct x from A", L"SELECT DISTINCTROW x\nFROM A;"},
        {L"SELECT A.x, A.y AS z, A.x + 1 FROM A", L"SELECT A.x AS x, A.y AS z, A.x + 1\nFROM A;"},
        {L"SELECT * FROM A, B", L"SELECT *\nFROM A, B;"},
        {L"SELECT A.x, A.x FROM A", L"SELECT A.x, (A.x)\nFROM A;"},
        {L"SELECT a.x FROM Tabla AS a", L"SELECT Tabla.x AS x\nFROM Tabla;"},
        {L"SELECT A.x FROM A LEFT JOIN B ON A.i=B.i INNER JOIN C ON A.c=C.c",
         L"SELECT A.x AS x\nFROM ((A LEFT JOIN B ON A.i = B.i)  INNER JOIN C ON C.c = A.c) ;"},
        {L"SELECT A.x FROM A INNER JOIN (B INNER JOIN C ON B.c=C.c) ON A.b = B.b",
         L"SELECT A.x AS x\nFROM ((B INNER JOIN C ON B.c = C.c)  INNER JOIN A ON A.b = B.b) ;"},
        {L"SELECT x FROM A WHERE (((x)=1) AND (y Like 'a*') and z!=2)",
         L"SELECT x\nFROM A\nWHERE (x = 1) AND (z <> 2) AND ((y Like 'a*') =True);"},
        {L"SELECT x, Sum(y) FROM A WHERE z = 1 GROUP BY x HAVING Sum(y) > 5 ORDER BY Sum(y) DESC, x",
         L"SELECT x, Sum(y)\nFROM A\nWHERE ((z = 1) =True)\nGROUP BY x, (z = 1)\nHAVING (Sum(y) > 5)\n"
         L"ORDER BY Sum(y) DESC, (x);"},
        {L"SELECT A.x AS Total FROM A ORDER BY Total DESC",
         L"SELECT A.x AS Total\nFROM A\nORDER BY A.x DESC;"},
        {L"SELECT A.x, A.y FROM A ORDER BY 2", L"SELECT A.x AS x, A.y AS y\nFROM A\nORDER BY A.y;"},
    };
    for (const Pair& pair : pairs)
        EXPECT_TRUE(IsTaken(pair.original, pair.composed)) << ToUtf8(pair.original);
}

TEST(SideBySide, LeavesEveryOtherTextToTheComparison) {
    const Pair pairs[] = {
        // Another statement.
        {L"SELECT DISTINCT x FROM A", L"SELECT x\nFROM A;"},
        {L"SELECT x, y FROM A", L"SELECT x\nFROM A;"},
        {L"SELECT x FROM A", L"SELECT x, y\nFROM A;"},
        {L"SELECT x, y FROM A", L"SELECT y, x\nFROM A;"},
        {L"SELECT x FROM A", L"SELECT xy\nFROM A;"},
        {L"SELECT A.x AS y FROM A", L"SELECT A.x\nFROM A;"},
        {L"SELECT A.x AS y FROM A", L"SELECT A.x AS yy\nFROM A;"},
        {L"SELECT x FROM A", L"SELECT x\nFROM B;"},
        {L"SELECT x FROM A", L"SELECT x\nFROM A, B;"},
        {L"SELECT x FROM A, B", L"SELECT x\nFROM A;"},
        {L"SELECT x FROM A", L"SELECT x\nFROM A AS B;"},
        {L"SELECT A.x FROM A LEFT JOIN B ON A.i=B.i", L"SELECT A.x\nFROM (A INNER JOIN B ON A.i = B.i) ;"},
        {L"SELECT A.x FROM A LEFT JOIN B ON A.i=B.i", L"SELECT A.x\nFROM (B LEFT JOIN A ON A.i = B.i) ;"},
        {L"SELECT A.x FROM A INNER JOIN B ON A.i=B.i", L"SELECT A.x\nFROM (A INNER JOIN B ON A.i = B.ii) ;"},
        {L"SELECT A.x FROM A INNER JOIN B ON A.i=B.i", L"SELECT A.x\nFROM (A INNER JOIN B ON A.i > B.i) ;"},
        {L"SELECT A.x FROM A INNER JOIN B ON A.i>B.i", L"SELECT A.x\nFROM (A INNER JOIN B ON A.i = B.i) ;"},
        {L"SELECT A.x FROM (A LEFT JOIN B ON A.i=B.i) INNER JOIN C ON B.c=C.c",
         L"SELECT A.x\nFROM ((A INNER JOIN C ON B.c = C.c)  LEFT JOIN B ON A.i = B.i) ;"},
        {L"SELECT A.x FROM A LEFT JOIN (B INNER JOIN C ON B.c=C.c) ON A.b=B.b",
         L"SELECT A.x\nFROM ((A LEFT JOIN B ON A.b = B.b)  INNER JOIN C ON B.c = C.c) ;"},
        {L"SELECT x FROM A WHERE x = 1", L"SELECT x\nFROM A;"},
        {L"SELECT x FROM A", L"SELECT x\nFROM A\nWHERE (x = 1);"},
        {L"SELECT x FROM A WHERE x = 1", L"SELECT x\nFROM A\nWHERE (x <> 1);"},
        {L"SELECT x FROM A WHERE x = 1", L"SELECT x\nFROM A\nWHERE (x = 12);"},
        {L"SELECT x FROM A WHERE x = 1 AND y = 2", L"SELECT x\nFROM A\nWHERE (x = 1);"},
        {L"SELECT x FROM A WHERE x = 1", L"SELECT x\nFROM A\nWHERE (x = 1) AND (y = 2);"},
        {L"SELECT x FROM A WHERE x = 1 AND y = 2", L"SELECT x\nFROM A\nWHERE (x = 1 OR y = 2);"},
        {L"SELECT x FROM A WHERE x = 1 AND y = 2", L"SELECT x\nFROM A\nWHERE (x = 1) OR (y = 2);"},
        {L"SELECT x FROM A WHERE (x Or y) = 1", L"SELECT x\nFROM A\nWHERE (x Or y = 1);"},
        {L"SELECT x FROM A WHERE y", L"SELECT x\nFROM A\nWHERE ((y) =True);"},
        {L"SELECT x FROM A GROUP BY x, y", L"SELECT x\nFROM A\nGROUP BY x;"},
        {L"SELECT x FROM A GROUP BY x", L"SELECT x\nFROM A\nGROUP BY x, y;"},
        {L"SELECT Sum(x) FROM A WHERE y = 1",
         L"SELECT Sum(x)\nFROM A\nWHERE ((y = 1) =True)\nGROUP BY (y = 1);"},
        {L"SELECT x FROM A GROUP BY x HAVING Sum(y) > 1", L"SELECT x\nFROM A\nGROUP BY x;"},
        {L"SELECT x FROM A ORDER BY x", L"SELECT x\nFROM A;"},
        {L"SELECT x FROM A ORDER BY x", L"SELECT x\nFROM A\nORDER BY x DESC;"},
        {L"SELECT x FROM A ORDER BY x DESC", L"SELECT x\nFROM A\nORDER BY x;"},
        {L"SELECT x FROM A ORDER BY x, y", L"SELECT x\nFROM A\nORDER BY y, x;"},
        {L"SELECT x FROM A", L"SELECT x\nFROM A"},
        {L"SELECT x FROM A", L"SELECT x\nFROM A;;"},
        // What the grammar or the comparison would have to tell.
        {L"SELECT TOP 3 x FROM A", L"SELECT x\nFROM A;"},
        {L"SELECT x FROM A LIMIT 3", L"SELECT x\nFROM A;"},
        {L"SELECT x FROM A WHERE y = ? AND z = ?", L"SELECT x\nFROM A\nWHERE (z = ?) AND (y = ?);"},
        {L"SELECT #a FROM A", L"SELECT #a\nFROM A;"},
        {L"SELECT * FROM A INNER JOIN (B INNER JOIN C ON B.c=C.c) ON A.b = B.b",
         L"SELECT *\nFROM ((B INNER JOIN C ON B.c = C.c)  INNER JOIN A ON A.b = B.b) ;"},
        {L"SELECT A.x, y FROM A ORDER BY x", L"SELECT A.x AS x, y\nFROM A\nORDER BY x;"},
        {L"SELECT Tabla.x FROM Tabla AS a", L"SELECT Tabla.x\nFROM Tabla;"},
        {L"SELECT a.x FROM B AS a WHERE Exists (SELECT * FROM B WHERE B.y = a.y)",
         L"SELECT B.x\nFROM B\nWHERE ((Exists (SELECT * FROM B WHERE B.y = B.y)) =True);"},
        {L"SELECT x.a FROM dueño.A AS x", L"SELECT A.a AS a\nFROM A;"},
        {L"SELECT y.a FROM A AS x, A AS y", L"SELECT A.a AS a\nFROM A, A;"},
    };
    for (const Pair& pair : pairs)
        EXPECT_FALSE(IsTaken(pair.original, pair.composed)) << ToUtf8(pair.original);
}

// Comments and blanks inside a slice are read with it, and literals keep their letters.
TEST(SideBySide, SlicesAreTakenToTheLetter) {
    EXPECT_TRUE(IsTaken(L"SELECT x  /* y */+ 1 FROM A", L"SELECT x  /* y */+ 1\nFROM A;"));
    EXPECT_FALSE(IsTaken(L"SELECT x  + 1 FROM A", L"SELECT x + 1\nFROM A;"));
    EXPECT_FALSE(IsTaken(L"SELECT 'a' FROM A", L"SELECT 'A'\nFROM A;"));
}

// Deeper than the parser reads, once composition has added its own parentheses.
TEST(SideBySide, LongExpressionsAndManyTablesAreParsed) {
    const std::wstring longer = std::wstring(200, L'(') + L"x" + std::wstring(200, L')');
    EXPECT_FALSE(laws::IsTakenUnparsed(L"SELECT " + longer + L" FROM A",
                                       L"SELECT " + longer + L" \r\nFROM A;", nullptr));
    std::wstring tables = L"t0";
    for (int number = 1; number <= 100; ++number) tables += L", t" + std::to_wstring(number);
    EXPECT_FALSE(
        laws::IsTakenUnparsed(L"SELECT x FROM " + tables, L"SELECT x \r\nFROM " + tables + L";", nullptr));
}

TEST(SideBySide, NoDifferenceThatCountsIsTaken) {
    for (const test::Forbidden& difference : test::kForbidden) {
        EXPECT_EQ(laws::UnfoundedReading(difference.statement, difference.changed, nullptr), "")
            << difference.name;
        EXPECT_EQ(laws::UnfoundedReading(difference.statement, WithBreaks(difference.shown), nullptr), "")
            << difference.name;
    }
    for (const test::Allowed& difference : test::kAllowed) {
        EXPECT_EQ(laws::UnfoundedReading(difference.one, difference.other, nullptr), "") << difference.name;
        EXPECT_EQ(laws::UnfoundedReading(difference.other, difference.one, nullptr), "") << difference.name;
    }
}

TEST(SideBySide, MostStatementsAreTaken) {
    int shown = 0;
    int taken = 0;
    for (const test::StatementCase& test : test::kStatementCases) {
        model::Design design;
        const Analysis analysis = AnalyseSQL(test.statement, design);
        if (!analysis.accepted || !analysis.messages.empty()) continue;
        ++shown;
        const std::wstring composed = compose::BuildSQL(design);
        EXPECT_EQ(laws::UnfoundedReading(test.statement, composed, nullptr), "");
        if (laws::IsTakenUnparsed(test.statement, composed, nullptr)) ++taken;
    }
    std::cout << taken << " of " << shown << std::endl;
    EXPECT_GT(taken * 2, shown);
}

}  // namespace
}  // namespace tessel::analyse
