#include <gtest/gtest.h>

#include "common/text.h"
#include "sqlparser/dump.h"
#include "sqlparser/sql_parser.h"

namespace tessel::sql {
namespace {

struct Case {
    const wchar_t* text;
    const wchar_t* dump;
    const wchar_t* beyond = L"";
};

void Check(std::initializer_list<Case> cases) {
    for (const Case& c : cases) {
        SqlParser parser;
        if (parser.Parse(c.text)) {
            ADD_FAILURE() << ToUtf8(c.text) << "\n  " << ToUtf8(parser.Errors()[0].message) << " at "
                          << parser.Errors()[0].range.offset;
            continue;
        }
        EXPECT_EQ(ToUtf8(Dump(*parser.GetStatement())), ToUtf8(c.dump)) << ToUtf8(c.text);
        EXPECT_EQ(ToUtf8(DumpBeyond(*parser.GetStatement())), ToUtf8(c.beyond)) << ToUtf8(c.text);
    }
}

TEST(SelectList, ItemsAndAliases) {
    Check({
        {L"SELECT a", L"(select (columns a))"},
        {L"select a, b from t;", L"(select (columns a b) (from t))"},
        {L"SELECT *", L"(select (columns *))"},
        {L"SELECT t.*, [a].[b].* FROM t", L"(select (columns t.* [a].[b].*) (from t))"},
        {L"SELECT a AS b, c d FROM t", L"(select (columns (as a b) (as c d)) (from t))"},
        {L"SELECT a AS [b c], d `e`, f \"g h\" FROM t",
         L"(select (columns (as a [b c]) (as d `e`) (as f \"g h\")) (from t))"},
        {L"SELECT a AS 2009, b AS 90DaysAvg FROM t",
         L"(select (columns (as a 2009) (as b 90DaysAvg)) (from t))"},
        {L"SELECT a AS Year, b Year, c AS Left, d AS Desc FROM t",
         L"(select (columns (as a Year) (as b Year) (as c Left) (as d Desc)) (from t))"},
        {L"SELECT a AS Order, b AS From FROM t", L"(select (columns (as a Order) (as b From)) (from t))"},
        {L"SELECT a AS 'x' FROM t", L"(select (columns (as a 'x')) (from t))"},
        {L"SELECT a Limit, b Offset, c First, d Full FROM t",
         L"(select (columns (as a Limit) (as b Offset) (as c First) (as d Full)) (from t))"},
        {L"SELECT a + b AS c FROM t", L"(select (columns (as (+ a b) c)) (from t))"},
        {L"SELECT @campo AS x, ? FROM t", L"(select (columns (as @campo x) ?) (from t))"},
    });
}

TEST(SelectList, QuantifiersAndTop) {
    Check({
        {L"SELECT DISTINCT a FROM t", L"(select distinct (columns a) (from t))"},
        {L"SELECT DISTINCTROW a FROM t", L"(select distinct (columns a) (from t))"},
        {L"SELECT ALL a FROM t", L"(select (columns a) (from t))"},
        {L"SELECT TOP 10 a FROM t", L"(select (top \"TOP 10\") (columns a) (from t))"},
        {L"SELECT DISTINCTROW TOP 10 PERCENT WITH TIES a FROM t",
         L"(select distinct (top \"TOP 10 PERCENT WITH TIES\") (columns a) (from t))"},
        {L"SELECT TOP (5) a FROM t", L"(select (top \"TOP (5)\") (columns a) (from t))"},
        {L"SELECT TOP @n a FROM t", L"(select (top \"TOP @n\") (columns a) (from t))", L"Other"},
        {L"SELECT Top, Percent FROM t", L"(select (columns Top Percent) (from t))"},
        {L"SELECT DISTINCT (a), b FROM t", L"(select distinct (columns (paren a) b) (from t))"},
    });
}

TEST(FromList, TablesAndAliases) {
    Check({
        {L"SELECT a FROM t x, u AS y, dbo.v, db.dbo.w z",
         L"(select (columns a) (from (as t x) (as u y) dbo.v (as db.dbo.w z)))"},
        {L"SELECT a FROM [Detalle de pedidos] AS d",
         L"(select (columns a) (from (as [Detalle de pedidos] d)))"},
        {L"SELECT a FROM 87089_Items, 2009", L"(select (columns a) (from 87089_Items 2009))"},
        {L"SELECT a FROM @tabla, ? AS p", L"(select (columns a) (from @tabla (as ? p)))"},
        {L"SELECT a FROM db..t", L"(select (columns a) (from db..t))"},
        {L"SELECT a FROM \"Mis tablas\".`t`", L"(select (columns a) (from \"Mis tablas\".`t`))"},
        {L"SELECT a FROM t IN 'c:\\x.mdb' AS y",
         L"(select (columns a) (from (as t y) (external \"IN 'c:\\x.mdb'\")))", L"InDatabase"},
        {L"SELECT a FROM t IN \"file\" \"EXCEL 5.0;\" WHERE a=1",
         L"(select (columns a) (from t (external \"IN \"file\" \"EXCEL 5.0;\"\")) (where (= a 1)))",
         L"InDatabase"},
    });
}

TEST(FromList, JoinsNestAnyWay) {
    Check({
        {L"SELECT 1 FROM A INNER JOIN B ON A.x = B.x",
         L"(select (columns 1) (from (inner A B (= A.x B.x))))"},
        {L"SELECT 1 FROM (A INNER JOIN B ON A.x = B.x) LEFT JOIN C ON B.y = C.y",
         L"(select (columns 1) (from (left (paren (inner A B (= A.x B.x))) C (= B.y C.y))))"},
        {L"SELECT 1 FROM A LEFT JOIN (B INNER JOIN C ON B.y = C.y) ON A.x = B.x",
         L"(select (columns 1) (from (left A (paren (inner B C (= B.y C.y))) (= A.x B.x))))"},
        {L"SELECT 1 FROM A JOIN B ON a=b LEFT OUTER JOIN C ON c=d RIGHT JOIN D ON e=f",
         L"(select (columns 1) (from (right (left (inner A B (= a b)) C (= c d)) D (= e f))))"},
        {L"SELECT 1 FROM A INNER JOIN B INNER JOIN C ON B.y=C.y ON A.x=B.x",
         L"(select (columns 1) (from (inner A (inner B C (= B.y C.y)) (= A.x B.x))))"},
        {L"SELECT 1 FROM A, B INNER JOIN C ON B.x=C.x, D",
         L"(select (columns 1) (from A (inner B C (= B.x C.x)) D))"},
        {L"SELECT 1 FROM ((A)) INNER JOIN ((B INNER JOIN C ON p)) ON q",
         L"(select (columns 1) (from (inner A (paren (inner B C p)) q)))"},
        {L"SELECT 1 FROM A INNER JOIN B ON ((A.x = B.x) AND (A.y = B.y))",
         L"(select (columns 1) (from (inner A B (paren (and (paren (= A.x B.x)) (paren (= A.y B.y)))))))"},
        {L"SELECT 1 FROM X INNER JOIN X AS X_1 ON X.a = X_1.b",
         L"(select (columns 1) (from (inner X (as X X_1) (= X.a X_1.b))))"},
        {L"SELECT 1 FROM A FULL OUTER JOIN B ON a=b",
         L"(select (columns 1) (from (full-outer-join A B (= a b))))", L"FullJoin"},
        {L"SELECT 1 FROM A CROSS JOIN B", L"(select (columns 1) (from (cross-join A B)))", L"CrossJoin"},
        {L"SELECT 1 FROM A NATURAL LEFT JOIN B", L"(select (columns 1) (from (natural-left-join A B)))",
         L"NaturalJoin"},
        {L"SELECT 1 FROM A JOIN B USING (x, y)",
         L"(select (columns 1) (from (inner A B (using \"(x, y)\"))))", L"JoinUsing"},
        {L"SELECT 1 FROM A JOIN B", L"(select (columns 1) (from (inner A B)))", L"OnMissing"},
    });
}

TEST(Clauses, GroupHavingOrder) {
    Check({
        {L"SELECT a, Sum(b) FROM t WHERE c > 1 GROUP BY a HAVING Sum(b) > 2 ORDER BY a DESC, Sum(b) ASC, c;",
         L"(select (columns a (call Sum b)) (from t) (where (> c 1)) (group a) (having (> (call Sum b) 2)) "
         L"(order (desc a) (call Sum b) c))"},
    });
}

TEST(Beyond, WhatADesignHasNoPlaceForIsParsedAndListed) {
    Check({
        {L"SELECT a FROM t UNION ALL SELECT b FROM u; UNION SELECT c FROM v",
         L"(select (columns a) (from t)) (union all (select (columns b) (from u))) "
         L"(union (select (columns c) (from v)))",
         L"Union Union"},
        {L"WITH q AS (SELECT 1) SELECT * FROM q",
         L"(with q (select (columns 1))) (select (columns *) (from q))", L"With"},
        {L"SELECT a FROM (SELECT b FROM t) AS q",
         L"(select (columns a) (from (as (select (columns b) (from t)) q)))", L"DerivedTable"},
        {L"SELECT a FROM [SELECT b FROM t;]. AS q WHERE a=1",
         L"(select (columns a) (from (as (select (columns b) (from t)) q)) (where (= a 1)))",
         L"DerivedTable"},
        {L"SELECT a INTO n FROM t", L"(select (columns a) (into \"n\") (from t))", L"Into"},
        {L"SELECT a FROM t LIMIT 10 OFFSET 5",
         L"(select (columns a) (from t) (trailing \"LIMIT 10 OFFSET 5\"))", L"Limit Offset"},
        {L"PARAMETERS [a b] Text(255), c DateTime; SELECT a FROM t",
         L"(parameters \"PARAMETERS [a b] Text (255), c DateTime;\") (select (columns a) (from t))",
         L"Parameters"},
        {L"PARAMETERS [Forms]![f]![c] DateTime; SELECT a FROM t",
         L"(parameters \"PARAMETERS [Forms]![f]![c] DateTime;\") (select (columns a) (from t))",
         L"Parameters"},
        {L"SELECT a FROM [Select uno].[t]", L"(select (columns a) (from [Select uno].[t]))"},
        {L"SELECT a FROM t WINDOW w AS (ORDER BY a)",
         L"(select (columns a) (from t) (trailing \"WINDOW w AS (ORDER BY a)\"))", L"Window"},
        {L"SELECT a FROM t FETCH FIRST 5 ROWS ONLY FOR UPDATE",
         L"(select (columns a) (from t) (trailing \"FETCH FIRST 5 ROWS ONLY FOR UPDATE\"))",
         L"Fetch ForUpdate"},
        {L"SELECT a FROM t ORDER BY a OFFSET 5 ROWS",
         L"(select (columns a) (from t) (order a) (trailing \"OFFSET 5 ROWS\"))", L"Offset"},
        {L"SELECT a FROM t INTERSECT SELECT b EXCEPT SELECT c",
         L"(select (columns a) (from t)) (intersect (select (columns b))) (except (select (columns c)))",
         L"Intersect Except"},
        {L"SELECT a FROM t WITH (NOLOCK)", L"(select (columns a) (from t (hint \"WITH (NOLOCK)\")))",
         L"Hint"},
        {L"SELECT a FROM f(1, 2) AS g", L"(select (columns a) (from (as f (1, 2) g)))", L"TableFunction"},
        {L"VALUES (1, 2), (3, 4)", L"(select (tuple 1 2) (tuple 3 4))", L"Values"},
        {L"SELECT Sum(a) OVER (PARTITION BY b) FROM t",
         L"(select (columns (window (call Sum a) b)) (from t))", L"Window"},
        {L"SELECT a FROM t GROUP BY a WITH ROLLUP",
         L"(select (columns a) (from t) (group a) (group-suffix \"WITH ROLLUP\"))", L"Other"},
        {L"SELECT a FROM t WITH OWNERACCESS OPTION;",
         L"(select (columns a) (from t) (trailing \"WITH OWNERACCESS OPTION\"))", L"WithOwnerAccess"},
    });
}

}  // namespace
}  // namespace tessel::sql
