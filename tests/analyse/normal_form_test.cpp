// Pairs of statements: which differences count and which do not.
#include "analyse/normal_form.h"

#include <gtest/gtest.h>

#include "common/text.h"
#include "sqlparser/sql_parser.h"
#include "tests/analyse/support.h"

namespace tessel::analyse {
namespace {

const schema::Schema& Tables() {
    static const schema::Schema schema = test::MakeSchema({{L"A", {L"x:3", L"y:3", L"solo", L"activo:11"}},
                                                           {L"B", {L"x", L"y", L"z"}},
                                                           {L"C", {L"x", L"y", L"w"}}});
    return schema;
}

/// The first clause in which the second statement, as a design's, differs from the first.
std::optional<Clause> Difference(const wchar_t* original, const wchar_t* composed, LeftOut left_out = {}) {
    sql::SqlParser first;
    sql::SqlParser second;
    EXPECT_FALSE(first.Parse(original)) << ToUtf8(original);
    EXPECT_FALSE(second.Parse(composed)) << ToUtf8(composed);
    Forms forms;
    const StatementScope first_scope(*first.GetStatement(), &Tables(), forms);
    const StatementScope second_scope(*second.GetStatement(), &Tables(), forms);
    const Canonical first_canonical(first_scope);
    const Canonical second_canonical(second_scope);
    return FirstDifference(Normalise(first_scope, first_canonical), Normalise(second_scope, second_canonical),
                           left_out);
}

void ExpectSame(const wchar_t* original, const wchar_t* composed) {
    const std::optional<Clause> difference = Difference(original, composed);
    EXPECT_FALSE(difference) << ToUtf8(original) << '\n'
                             << ToUtf8(composed) << '\n'
                             << static_cast<int>(difference.value_or(Clause::Select));
}

void ExpectDifferent(const wchar_t* original, const wchar_t* composed, Clause clause) {
    const std::optional<Clause> difference = Difference(original, composed);
    ASSERT_TRUE(difference) << ToUtf8(original) << '\n' << ToUtf8(composed);
    EXPECT_EQ(static_cast<int>(*difference), static_cast<int>(clause)) << ToUtf8(original) << '\n'
                                                                       << ToUtf8(composed);
}

TEST(NormalForms, WhiteSpaceLetterCaseAndSemicolonDoNotCount) {
    ExpectSame(L"select A.x\tfrom A where A.y=1", L"SELECT a.X \r\nFROM a \r\nWHERE (a.Y = 1);");
}

TEST(NormalForms, LettersOfLiteralsCount) {
    ExpectDifferent(L"SELECT x FROM A WHERE y = 'Chile'", L"SELECT x FROM A WHERE y = 'chile'",
                    Clause::Where);
    ExpectDifferent(L"SELECT x FROM A WHERE y = 'a  b'", L"SELECT x FROM A WHERE y = 'a b'", Clause::Where);
}

TEST(NormalForms, BracketsDoNotCount) {
    ExpectSame(L"SELECT [A].[x] FROM [A]", L"SELECT A.x FROM A");
}

TEST(NormalForms, RedundantParenthesesDoNotCount) {
    ExpectSame(L"SELECT ((x + y)) FROM A WHERE (((x)=1) AND ((y)=2))",
               L"SELECT x + y FROM A WHERE x = 1 AND y = 2");
}

TEST(NormalForms, ParenthesesThatGroupCount) {
    ExpectDifferent(L"SELECT (x + y) * 2 FROM A", L"SELECT x + y * 2 FROM A", Clause::Select);
    ExpectDifferent(L"SELECT x FROM A WHERE (x = 1 OR y = 1) AND y = 2",
                    L"SELECT x FROM A WHERE x = 1 OR y = 1 AND y = 2", Clause::Where);
}

TEST(NormalForms, OrderOfConditionsDoesNotCount) {
    ExpectSame(L"SELECT x FROM A WHERE x = 1 AND y = 2", L"SELECT x FROM A WHERE y = 2 AND x = 1");
    ExpectSame(L"SELECT x FROM A WHERE x = 1 OR x = 2", L"SELECT x FROM A WHERE x = 2 OR x = 1");
}

TEST(NormalForms, AndIsNotOr) {
    ExpectDifferent(L"SELECT x FROM A WHERE x = 1 AND y = 2", L"SELECT x FROM A WHERE x = 1 OR y = 2",
                    Clause::Where);
}

TEST(NormalForms, MirroredComparisonsAreTheSame) {
    ExpectSame(L"SELECT x FROM A WHERE 5 < x AND 3 = y", L"SELECT x FROM A WHERE x > 5 AND y = 3");
    ExpectDifferent(L"SELECT x FROM A WHERE 5 < x", L"SELECT x FROM A WHERE x < 5", Clause::Where);
}

TEST(NormalForms, NotBeforeAPredicateIsItsOpposite) {
    ExpectSame(L"SELECT x FROM A WHERE NOT x = 1", L"SELECT x FROM A WHERE x <> 1");
    ExpectSame(L"SELECT x FROM A WHERE NOT (x >= 1)", L"SELECT x FROM A WHERE x < 1");
    ExpectSame(L"SELECT x FROM A WHERE NOT x Is Null", L"SELECT x FROM A WHERE x Is Not Null");
    ExpectDifferent(L"SELECT x FROM A WHERE NOT x > ALL (SELECT z FROM B)",
                    L"SELECT x FROM A WHERE x <= ALL (SELECT z FROM B)", Clause::Where);
}

TEST(NormalForms, PredicateEqualsTrueIsThePredicate) {
    ExpectSame(L"SELECT x FROM A WHERE x Like 'a*'", L"SELECT x FROM A WHERE ((x Like 'a*') =True)");
    ExpectSame(L"SELECT x FROM A WHERE activo", L"SELECT x FROM A WHERE (activo =True)");
}

TEST(NormalForms, NumberIsNotTheSameAsItsEqualityWithTrue) {
    ExpectSame(L"SELECT x FROM A WHERE x", L"SELECT x FROM A WHERE x <> False");
    ExpectDifferent(L"SELECT x FROM A WHERE solo", L"SELECT x FROM A WHERE solo <> False", Clause::Where);
    ExpectDifferent(L"SELECT x FROM A WHERE x", L"SELECT x FROM A WHERE x = True", Clause::Where);
    ExpectDifferent(L"SELECT x FROM A WHERE Not x", L"SELECT x FROM A WHERE (Not x) = True", Clause::Where);
    ExpectDifferent(L"SELECT x FROM A WHERE x And y", L"SELECT x FROM A WHERE (x <> False) AND (y <> False)",
                    Clause::Where);
}

TEST(NormalForms, DistinctAndDistinctRowAreTheSameAndNothingElse) {
    ExpectSame(L"SELECT DISTINCT x FROM A", L"SELECT DISTINCTROW x FROM A");
    ExpectDifferent(L"SELECT DISTINCT x FROM A", L"SELECT x FROM A", Clause::Distinct);
}

TEST(NormalForms, AliasOfTheFieldsOwnNameDoesNotCount) {
    ExpectSame(L"SELECT A.x AS x FROM A", L"SELECT A.x FROM A");
    ExpectSame(L"SELECT A.x FROM A", L"SELECT A.x AS [x] FROM A");
}

TEST(NormalForms, AddedTitlesDoNotCountUnlessTheyCatchAName) {
    ExpectSame(L"SELECT A.x, B.x FROM A, B", L"SELECT A.x AS x, B.x AS x1 FROM A, B");
    ExpectDifferent(L"SELECT A.x, B.x FROM A, B WHERE x1 = 3",
                    L"SELECT A.x AS x, B.x AS x1 FROM A, B WHERE x1 = 3", Clause::Select);
    ExpectDifferent(L"SELECT A.x, B.x FROM A, B ORDER BY x1",
                    L"SELECT A.x AS x, B.x AS x1 FROM A, B ORDER BY x1", Clause::OrderBy);
}

TEST(NormalForms, AliasOfTheUserMustStay) {
    ExpectDifferent(L"SELECT A.x AS otro FROM A", L"SELECT A.x AS x FROM A", Clause::Select);
    ExpectDifferent(L"SELECT A.x AS otro FROM A", L"SELECT A.x FROM A", Clause::Select);
}

TEST(NormalForms, OrderOfTheSelectListCounts) {
    ExpectDifferent(L"SELECT A.x, A.y FROM A", L"SELECT A.y, A.x FROM A", Clause::Select);
}

TEST(NormalForms, TableAliasesAreTheirTables) {
    ExpectSame(L"SELECT p.x FROM A AS p, B q WHERE p.x = q.x", L"SELECT A.x FROM A, B WHERE A.x = B.x");
    ExpectDifferent(L"SELECT p.x FROM A AS p, B AS q", L"SELECT B.x FROM A, B", Clause::Select);
}

TEST(NormalForms, OuterReferencesInSubselectsAreFollowed) {
    ExpectSame(L"SELECT p.x FROM A AS p WHERE Exists (SELECT * FROM B WHERE B.x = p.x)",
               L"SELECT A.x FROM A WHERE Exists (SELECT * FROM B WHERE B.x = A.x)");
    ExpectDifferent(L"SELECT p.x FROM A AS p WHERE Exists (SELECT * FROM A WHERE A.x = p.x)",
                    L"SELECT A.x FROM A WHERE Exists (SELECT * FROM A WHERE A.x = A.x)", Clause::Where);
}

TEST(NormalForms, QualifierThatCouldBeLeftOutDoesNotCount) {
    ExpectSame(L"SELECT solo FROM A, B", L"SELECT A.solo FROM A, B");
    ExpectDifferent(L"SELECT y FROM A, B", L"SELECT A.y FROM A, B", Clause::Select);
}

TEST(NormalForms, InnerJoinsInAnyOrderAreTheSame) {
    ExpectSame(L"SELECT A.x FROM (A INNER JOIN B ON A.x = B.x) INNER JOIN C ON B.y = C.y",
               L"SELECT A.x FROM (C INNER JOIN B ON C.y = B.y) INNER JOIN A ON B.x = A.x");
    ExpectSame(L"SELECT A.x FROM A INNER JOIN B ON A.x = B.x", L"SELECT A.x FROM A, B WHERE A.x = B.x");
}

TEST(NormalForms, KindOfJoinCounts) {
    ExpectDifferent(L"SELECT A.x FROM A LEFT JOIN B ON A.x = B.x",
                    L"SELECT A.x FROM A INNER JOIN B ON A.x = B.x", Clause::From);
    ExpectDifferent(L"SELECT A.x FROM A LEFT JOIN B ON A.x = B.x",
                    L"SELECT A.x FROM A RIGHT JOIN B ON A.x = B.x", Clause::From);
    ExpectSame(L"SELECT A.x FROM A LEFT JOIN B ON A.x = B.x", L"SELECT A.x FROM B RIGHT JOIN A ON A.x = B.x");
}

TEST(NormalForms, NestingOfOuterJoinsCounts) {
    ExpectDifferent(L"SELECT A.x FROM A LEFT JOIN (B INNER JOIN C ON B.y = C.y) ON A.x = B.x",
                    L"SELECT A.x FROM (A LEFT JOIN B ON A.x = B.x) INNER JOIN C ON B.y = C.y", Clause::From);
    ExpectDifferent(L"SELECT A.x FROM A LEFT JOIN (B LEFT JOIN C ON B.y = C.y) ON A.x = C.x",
                    L"SELECT A.x FROM (A LEFT JOIN C ON A.x = C.x) LEFT JOIN B ON B.y = C.y", Clause::From);
}

TEST(NormalForms, ChainedLeftJoinsMayBeNestedEitherWay) {
    ExpectSame(L"SELECT A.x FROM A LEFT JOIN (B LEFT JOIN C ON B.y = C.y) ON A.x = B.x",
               L"SELECT A.x FROM (A LEFT JOIN B ON A.x = B.x) LEFT JOIN C ON B.y = C.y");
}

TEST(NormalForms, ConditionOfAnInnerJoinMayStandInWhere) {
    ExpectSame(L"SELECT A.x FROM (A INNER JOIN B ON A.x = B.x AND A.y = B.y) LEFT JOIN C ON B.z = C.w",
               L"SELECT A.x FROM (A INNER JOIN B ON A.x = B.x) LEFT JOIN C ON B.z = C.w WHERE A.y = B.y");
}

TEST(NormalForms, ConditionOfAnOuterJoinMayNot) {
    ExpectDifferent(L"SELECT A.x FROM A LEFT JOIN B ON A.x = B.x AND A.y = B.y",
                    L"SELECT A.x FROM A LEFT JOIN B ON A.x = B.x WHERE A.y = B.y", Clause::From);
    ExpectDifferent(L"SELECT C.x FROM C LEFT JOIN (A INNER JOIN B ON A.x = B.x AND A.y = B.y) ON C.w = B.z",
                    L"SELECT C.x FROM C LEFT JOIN (A INNER JOIN B ON A.x = B.x) ON C.w = B.z WHERE A.y = B.y",
                    Clause::From);
}

TEST(NormalForms, OrderOfTablesCountsForTheStar) {
    ExpectSame(L"SELECT A.x FROM A, B", L"SELECT A.x FROM B, A");
    ExpectDifferent(L"SELECT * FROM A, B", L"SELECT * FROM B, A", Clause::Select);
}

TEST(NormalForms, OrderOfGroupsDoesNotCount) {
    ExpectSame(L"SELECT x, Count(*) FROM A GROUP BY x, y", L"SELECT x, Count(*) FROM A GROUP BY y, x");
    ExpectDifferent(L"SELECT x, Count(*) FROM A GROUP BY x, y", L"SELECT x, Count(*) FROM A GROUP BY x",
                    Clause::GroupBy);
}

TEST(NormalForms, GroupingByAConditionOfWhereDoesNotCount) {
    ExpectSame(L"SELECT x, Count(*) FROM A WHERE y > 3 GROUP BY x",
               L"SELECT x, Count(*) FROM A WHERE ((y > 3) =True) GROUP BY x, (y > 3)");
    ExpectDifferent(L"SELECT x, Count(*) FROM A WHERE y > 3 GROUP BY x",
                    L"SELECT x, Count(*) FROM A WHERE (y > 3) GROUP BY x, y", Clause::GroupBy);
    ExpectDifferent(L"SELECT Count(*) FROM A WHERE y > 3",
                    L"SELECT Count(*) FROM A WHERE ((y > 3) =True) GROUP BY (y > 3)", Clause::GroupBy);
}

TEST(NormalForms, ConditionOnGroupKeysMayStandInHavingOrInWhere) {
    ExpectSame(L"SELECT x, Count(*) FROM A GROUP BY x HAVING x = 1",
               L"SELECT x, Count(*) FROM A WHERE x = 1 GROUP BY x");
    ExpectSame(L"SELECT x, Sum(y) FROM A GROUP BY x HAVING x Like 'a*' AND Sum(y) > 3",
               L"SELECT x, Sum(y) FROM A WHERE x Like 'a*' GROUP BY x HAVING Sum(y) > 3");
    ExpectSame(L"SELECT Count(*) FROM A GROUP BY x, y HAVING x = y Or Left(x, 1) = Nz([Forms]![f]![c], 'a')",
               L"SELECT Count(*) FROM A WHERE x = y Or Left(x, 1) = Nz([Forms]![f]![c], 'a') GROUP BY x, y");
    ExpectSame(L"SELECT Count(*) FROM A GROUP BY Year(x) HAVING Year(x) In (2019, 2020)",
               L"SELECT Count(*) FROM A WHERE Year(x) In (2019, 2020) GROUP BY Year(x)");
}

TEST(NormalForms, AnyOtherConditionOfHavingIsNotOneOfWhere) {
    const std::wstring conditions[] = {L"y = 1",
                                       L"Count(*) > 1",
                                       L"x = 1 OR Count(*) > 1",
                                       L"x > Rnd(x)",
                                       L"x = total",
                                       L"x = (SELECT Max(z) FROM B)",
                                       L"StrComp(x, 'a', 0) = 0"};
    for (const std::wstring& condition : conditions) {
        ExpectDifferent((L"SELECT x, y + 1 AS total FROM A GROUP BY x HAVING " + condition).c_str(),
                        (L"SELECT x, y + 1 AS total FROM A WHERE " + condition + L" GROUP BY x").c_str(),
                        Clause::Where);
    }
    ExpectDifferent(L"SELECT Left(x, 1) AS y FROM A GROUP BY y HAVING y = 1",
                    L"SELECT Left(x, 1) AS y FROM A WHERE y = 1 GROUP BY y", Clause::Where);
    ExpectDifferent(L"SELECT Count(*) FROM A HAVING 1 = 2", L"SELECT Count(*) FROM A WHERE 1 = 2",
                    Clause::Where);
}

TEST(NormalForms, HavingCounts) {
    ExpectDifferent(L"SELECT x FROM A GROUP BY x HAVING Count(*) > 1", L"SELECT x FROM A GROUP BY x",
                    Clause::Having);
}

TEST(NormalForms, DistinctInsideAnAggregateCounts) {
    ExpectDifferent(L"SELECT Count(DISTINCT x) FROM A", L"SELECT Count(x) FROM A", Clause::Select);
    ExpectDifferent(L"SELECT y FROM A GROUP BY y HAVING Sum(DISTINCT x) > 1",
                    L"SELECT y FROM A GROUP BY y HAVING Sum(x) > 1", Clause::Having);
}

TEST(NormalForms, NullIsComparedAsWritten) {
    ExpectDifferent(L"SELECT x FROM A WHERE x = Null", L"SELECT x FROM A WHERE x Is Null", Clause::Where);
    ExpectDifferent(L"SELECT x FROM A WHERE x <> 1", L"SELECT x FROM A WHERE x <> 1 OR x Is Null",
                    Clause::Where);
    ExpectDifferent(L"SELECT x FROM A WHERE Nz(x, 0) = 0", L"SELECT x FROM A WHERE x = 0", Clause::Where);
    ExpectDifferent(L"SELECT x FROM A WHERE x Is Null", L"SELECT x FROM A WHERE x Is Not Null",
                    Clause::Where);
}

TEST(NormalForms, NotOverAGroupIsNotDistributed) {
    ExpectDifferent(L"SELECT x FROM A WHERE NOT (x = 1 AND y = 2)",
                    L"SELECT x FROM A WHERE x <> 1 AND y <> 2", Clause::Where);
    ExpectDifferent(L"SELECT x FROM A WHERE NOT (x = 1 OR y = 2)", L"SELECT x FROM A WHERE x <> 1 OR y <> 2",
                    Clause::Where);
}

TEST(NormalForms, OmittedArgumentsCount) {
    ExpectDifferent(L"SELECT f(x, , y) FROM A", L"SELECT f(x, y) FROM A", Clause::Select);
    ExpectSame(L"SELECT f(x,,y) FROM A", L"SELECT f(x, , y) FROM A");
}

TEST(NormalForms, SortKeysKeepOrderAndDirection) {
    ExpectDifferent(L"SELECT x FROM A ORDER BY x, y", L"SELECT x FROM A ORDER BY y, x", Clause::OrderBy);
    ExpectDifferent(L"SELECT x FROM A ORDER BY x", L"SELECT x FROM A ORDER BY x DESC", Clause::OrderBy);
    ExpectSame(L"SELECT x FROM A ORDER BY x ASC, y DESC", L"SELECT x FROM A ORDER BY x, (y) DESC");
}

TEST(NormalForms, NumbersAliasesAndRepeatedSortKeysAreTheirExpression) {
    ExpectSame(L"SELECT x + 1 AS n, A.y FROM A ORDER BY n, 2, 1 DESC",
               L"SELECT x + 1 AS n, A.y FROM A ORDER BY x + 1, A.y");
}

TEST(NormalForms, ClauseThatWasLeftOutDoesNotCount) {
    EXPECT_FALSE(Difference(L"SELECT x FROM A WHERE x = 1 OR y = 2", L"SELECT x FROM A", {true, false}));
    EXPECT_TRUE(
        Difference(L"SELECT x FROM A WHERE x = 1 OR y = 2", L"SELECT x FROM A WHERE x = 1", {true, false}));
    EXPECT_TRUE(
        Difference(L"SELECT A.x FROM A INNER JOIN B ON A.x = B.x AND A.y = B.y WHERE A.x = 1 OR B.z = 2",
                   L"SELECT A.x FROM A INNER JOIN B ON A.x = B.x", {true, false}));
    EXPECT_FALSE(Difference(L"SELECT x FROM A GROUP BY x HAVING Max(y) > 1 AND Max(y) < 5",
                            L"SELECT x FROM A GROUP BY x", {false, true}));
}

}  // namespace
}  // namespace tessel::analyse
