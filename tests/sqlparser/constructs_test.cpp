// Every construct that real statements hold, one test for each, as the tree it becomes. What the design has
// no place for is listed beside it.
#include <gtest/gtest.h>

#include "common/text.h"
#include "sqlparser/dump.h"
#include "sqlparser/printer.h"
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
        SqlParser again;
        const std::wstring printed = Print(*parser.GetStatement());
        EXPECT_FALSE(again.Parse(printed)) << ToUtf8(printed);
        if (again.GetStatement()) {
            EXPECT_EQ(ToUtf8(Print(*again.GetStatement())), ToUtf8(printed)) << ToUtf8(c.text);
        }
    }
}

TEST(Union, OperandsKeepTheirOrderAndWords) {
    Check({
        {L"SELECT a FROM t UNION SELECT b FROM u",
         L"(select (columns a) (from t)) (union (select (columns b) (from u)))", L"Union"},
        {L"SELECT a FROM t UNION ALL SELECT b FROM u ORDER BY a",
         L"(select (columns a) (from t)) (union all (select (columns b) (from u) (order a)))", L"Union"},
        {L"SELECT a FROM t; UNION SELECT b FROM u;",
         L"(select (columns a) (from t)) (union (select (columns b) (from u)))", L"Union"},
        {L"(SELECT a FROM t) UNION (SELECT b FROM u)",
         L"(group-0 (select (columns a) (from t)) (union (group-0 (select (columns b) (from u)))))",
         L"Union"},
    });
}

TEST(Union, ATableMayStandForAllItsRows) {
    Check({
        {L"TABLE t", L"(select (table \"TABLE t\") (from t))", L"TableStatement"},
        {L"SELECT a FROM t UNION TABLE [mis datos] ORDER BY a",
         L"(select (columns a) (from t)) (union (select (table \"TABLE [mis datos]\") (from [mis datos]) "
         L"(order a)))",
         L"Union"},
        {L"TABLE t UNION ALL SELECT * FROM u;",
         L"(select (table \"TABLE t\") (from t)) (union all (select (columns *) (from u)))",
         L"TableStatement Union"},
        {L"SELECT Table FROM t", L"(select (columns Table) (from t))"},
        {L"SELECT a FROM Table", L"(select (columns a) (from Table))"},
    });
}

TEST(DerivedTable, InParenthesesOrInTheEnginesBrackets) {
    Check({
        {L"SELECT q.a FROM (SELECT a FROM t) AS q",
         L"(select (columns q.a) (from (as (select (columns a) (from t)) q)))", L"DerivedTable"},
        {L"SELECT a FROM (SELECT a FROM t)", L"(select (columns a) (from (select (columns a) (from t))))",
         L"DerivedTable"},
        {L"SELECT q.a FROM [SELECT a FROM t]. AS q",
         L"(select (columns q.a) (from (as (select (columns a) (from t)) q)))", L"DerivedTable"},
        {L"SELECT q.a FROM [SELECT a FROM t;]. AS q INNER JOIN u ON q.a = u.a",
         L"(select (columns q.a) (from (inner (as (select (columns a) (from t)) q) u (= q.a u.a))))",
         L"DerivedTable"},
        {L"SELECT q.a FROM (SELECT a FROM t UNION SELECT b FROM u) q",
         L"(select (columns q.a) (from (as (select (columns a) (from t)) (union (select (columns b) (from "
         L"u))) q)))",
         L"DerivedTable"},
    });
}

TEST(With, NamesTablesBeforeTheSelect) {
    Check({
        {L"WITH q AS (SELECT a FROM t) SELECT a FROM q",
         L"(with q (select (columns a) (from t))) (select (columns a) (from q))", L"With"},
        {L"WITH RECURSIVE q (n) AS (SELECT 1 UNION ALL SELECT n FROM q) SELECT n FROM q",
         L"(with q (columns \"(n)\") (select (columns 1)) (union all (select (columns n) (from q)))) (select "
         L"(columns n) (from q))",
         L"With"},
    });
}

TEST(Subselect, StandsWhereAnExpressionDoes) {
    Check({
        {L"SELECT (SELECT Max(b) FROM u WHERE u.a = t.a) AS m FROM t",
         L"(select (columns (as (subquery (select (columns (call Max b)) (from u) (where (= u.a t.a)))) m)) "
         L"(from t))"},
        {L"SELECT a FROM t WHERE (SELECT Count(*) FROM u) > 1",
         L"(select (columns a) (from t) (where (> (subquery (select (columns (call-star Count)) (from u))) "
         L"1)))"},
        {L"SELECT a FROM t WHERE a In (SELECT [a] FROM [u] As Tmp GROUP BY [a] HAVING Count(*)>1 )",
         L"(select (columns a) (from t) (where (in-select a (select (columns [a]) (from (as [u] Tmp)) (group "
         L"[a]) (having (> (call-star Count) 1))))))"},
        {L"SELECT a FROM t WHERE Not Exists (SELECT * FROM u;)",
         L"(select (columns a) (from t) (where (not (exists (select (columns *) (from u))))))"},
        {L"SELECT a FROM t WHERE a >= ALL (SELECT b FROM u) ORDER BY (SELECT 1)",
         L"(select (columns a) (from t) (where (>= a (all (select (columns b) (from u))))) (order (subquery "
         L"(select (columns 1)))))"},
        {L"SELECT IIf((SELECT 1) Is Null, 0, 1) FROM t",
         L"(select (columns (call IIf (is-null (subquery (select (columns 1)))) 0 1)) (from t))"},
    });
}

TEST(Parameters, AreDeclaredBeforeTheStatement) {
    Check({
        {L"PARAMETERS Desde DateTime; SELECT a FROM t",
         L"(parameters \"PARAMETERS Desde DateTime;\") (select (columns a) (from t))", L"Parameters"},
        {L"PARAMETERS [Desde el día] DateTime, n Long, x Text ( 255 ), c Currency, v Value; SELECT a FROM t;",
         L"(parameters \"PARAMETERS [Desde el día] DateTime, n Long, x Text (255), c Currency, v Value;\") "
         L"(select (columns a) (from t))",
         L"Parameters"},
        {L"PARAMETERS [Forms]![f]![c] Short, Forms!f!s.Form!d IEEEDouble; SELECT a FROM t",
         L"(parameters \"PARAMETERS [Forms]![f]![c] Short, Forms!f!s.Form!d IEEEDouble;\") (select (columns "
         L"a) (from t))",
         L"Parameters"},
        {L"PARAMETERS a Bit, b Byte, c Guid, d LongText\n; SELECT x FROM t UNION SELECT y FROM u",
         L"(parameters \"PARAMETERS a Bit, b Byte, c Guid, d LongText;\") (select (columns x) (from t)) "
         L"(union (select (columns y) (from u)))",
         L"Parameters Union"},
    });
}

TEST(Procedure, NamesTheStatement) {
    Check({
        {L"PROCEDURE Lista; SELECT a FROM t",
         L"(parameters \"PROCEDURE Lista;\") (select (columns a) (from t))", L"Procedure"},
        {L"PROCEDURE [Ventas de zona] [Zona] Text(20), Desde DateTime; SELECT a FROM t WHERE z = [Zona]",
         L"(parameters \"PROCEDURE [Ventas de zona] [Zona] Text (20), Desde DateTime;\") (select (columns a) "
         L"(from t) (where (= z [Zona])))",
         L"Procedure"},
        {L"SELECT Procedure FROM t Procedure", L"(select (columns Procedure) (from (as t Procedure)))"},
    });
}

TEST(Crosstab, TransformBeforeAndPivotAfter) {
    Check({
        {L"TRANSFORM Sum(v) SELECT a FROM t GROUP BY a PIVOT b;",
         L"(transform \"TRANSFORM Sum (v)\") (select (columns a) (from t) (group a) (pivot \"PIVOT b\"))",
         L"Crosstab"},
        {L"TRANSFORM Count(*) AS n SELECT a, Count(*) AS Total FROM t INNER JOIN u ON t.k = u.k WHERE d "
         L"Between #1/1/2020# And #12/31/2020# GROUP BY a ORDER BY a PIVOT Format([d],\"mmm\") In "
         L"(\"ene\",\"feb\");",
         L"(transform \"TRANSFORM Count (*) AS n\") (select (columns a (as (call-star Count) Total)) (from "
         L"(inner t u (= t.k u.k))) (where (between d #1/1/2020# #12/31/2020#)) (group a) (order a) (pivot "
         L"\"PIVOT Format ([d], \"mmm\") In (\"ene\", \"feb\")\"))",
         L"Crosstab"},
        {L"PARAMETERS p Long; TRANSFORM First(v) SELECT a FROM t GROUP BY a PIVOT b & \"-\" & c WITH "
         L"OWNERACCESS OPTION",
         L"(parameters \"PARAMETERS p Long;\") (transform \"TRANSFORM First (v)\") (select (columns a) (from "
         L"t) (group a) (pivot \"PIVOT b & \"-\" & c\") (trailing \"WITH OWNERACCESS OPTION\"))",
         L"Parameters Crosstab WithOwnerAccess"},
        {L"TRANSFORM Sum(v) SELECT a FROM Pivot AS Transform GROUP BY a PIVOT Transform.c",
         L"(transform \"TRANSFORM Sum (v)\") (select (columns a) (from (as Pivot Transform)) (group a) "
         L"(pivot \"PIVOT Transform.c\"))",
         L"Crosstab"},
        {L"SELECT Pivot, Transform FROM t Pivot", L"(select (columns Pivot Transform) (from (as t Pivot)))"},
    });
}

TEST(InDatabase, AfterATableOrAfterTheWholeFrom) {
    Check({
        {L"SELECT a FROM t IN 'C:\\datos\\x.mdb'",
         L"(select (columns a) (from t (external \"IN 'C:\\datos\\x.mdb'\")))", L"InDatabase"},
        {L"SELECT a FROM t IN \"C:\\x.xls\" \"EXCEL 5.0;\"",
         L"(select (columns a) (from t (external \"IN \"C:\\x.xls\" \"EXCEL 5.0;\"\")))", L"InDatabase"},
        {L"SELECT a FROM t IN '' [dBase IV;DATABASE=C:\\datos] AS q WHERE a=1",
         L"(select (columns a) (from (as t q) (external \"IN '' [dBase IV;DATABASE=C:\\datos]\")) (where (= "
         L"a 1)))",
         L"InDatabase"},
        {L"SELECT a FROM t, u IN \"\" [MS Access;DATABASE=C:\\x.mdb;PWD=y]",
         L"(select (columns a) (from t u (external \"IN \"\" [MS Access;DATABASE=C:\\x.mdb;PWD=y]\")))",
         L"InDatabase"},
        {L"SELECT a FROM t INNER JOIN u ON t.k = u.k IN 'C:\\x.mdb' WHERE t.a = 1",
         L"(select (columns a) (from (inner t u (= t.k u.k)) (external \"IN 'C:\\x.mdb'\")) (where (= t.a "
         L"1)))",
         L"InDatabase"},
        {L"SELECT a FROM (t INNER JOIN u ON t.k = u.k) LEFT JOIN v ON u.j = v.j IN \"\" [ODBC;DSN=x;] GROUP "
         L"BY a",
         L"(select (columns a) (from (left (paren (inner t u (= t.k u.k))) v (= u.j v.j)) (external \"IN "
         L"\"\" [ODBC;DSN=x;]\")) (group a))",
         L"InDatabase"},
        {L"SELECT a FROM t INNER JOIN u ON t.k IN (1, 2)",
         L"(select (columns a) (from (inner t u (in t.k 1 2))))"},
        {L"SELECT a FROM [Excel 8.0;HDR=YES;DATABASE=C:\\x.xls].[Hoja1$]",
         L"(select (columns a) (from [Excel 8.0;HDR=YES;DATABASE=C:\\x.xls].[Hoja1$]))"},
        {L"SELECT a FROM [;DATABASE=C:\\x.mdb;PWD=y].[t] AS q",
         L"(select (columns a) (from (as [;DATABASE=C:\\x.mdb;PWD=y].[t] q)))"},
        {L"SELECT a FROM `C:\\datos\\x`.`t`", L"(select (columns a) (from `C:\\datos\\x`.`t`))"},
        {L"SELECT a FROM [text;HDR=Yes;FMT=Delimited(,);Database=C:\\datos].ventas.csv AS v",
         L"(select (columns a) (from (as [text;HDR=Yes;FMT=Delimited(,);Database=C:\\datos].ventas.csv v)))"},
    });
}

TEST(CaseExpression, WithAndWithoutAnOperand) {
    Check({
        {L"SELECT CASE WHEN a > 1 THEN 'x' ELSE 'y' END AS c FROM t",
         L"(select (columns (as (case-else (when (> a 1) 'x') 'y') c)) (from t))"},
        {L"SELECT CASE a WHEN 1 THEN b WHEN 2 THEN c END FROM t",
         L"(select (columns (case-of a (when 1 b) (when 2 c))) (from t))"},
        {L"SELECT a FROM t WHERE CASE WHEN a = 1 THEN b END = 2 ORDER BY CASE a WHEN 1 THEN 0 ELSE 1 END",
         L"(select (columns a) (from t) (where (= (case (when (= a 1) b)) 2)) (order (case-of-else a (when 1 "
         L"0) 1)))"},
    });
}

TEST(WindowFunction, PartitionOrderAndFrame) {
    Check({
        {L"SELECT Row_Number() OVER (ORDER BY a) FROM t",
         L"(select (columns (window (call Row_Number) a)) (from t))", L"Window"},
        {L"SELECT Sum(v) OVER (PARTITION BY a, b ORDER BY c DESC ROWS BETWEEN UNBOUNDED PRECEDING AND "
         L"CURRENT ROW) AS s FROM t",
         L"(select (columns (as (window (call Sum v) a b c) s)) (from t))", L"Window"},
        {L"SELECT Count(*) FILTER (WHERE a > 1) FROM t",
         L"(select (columns (window (call-star Count) (> a 1))) (from t))", L"Window"},
        {L"SELECT Rank() OVER w FROM t WINDOW w AS (ORDER BY a)",
         L"(select (columns (window (call Rank))) (from t) (trailing \"WINDOW w AS (ORDER BY a)\"))",
         L"Window Window"},
    });
}

TEST(Limit, OffsetAndFetchEndTheStatement) {
    Check({
        {L"SELECT a FROM t LIMIT 10", L"(select (columns a) (from t) (trailing \"LIMIT 10\"))", L"Limit"},
        {L"SELECT a FROM t LIMIT 5, 10", L"(select (columns a) (from t) (trailing \"LIMIT 5, 10\"))",
         L"Limit"},
        {L"SELECT a FROM t ORDER BY a LIMIT 10 OFFSET 5",
         L"(select (columns a) (from t) (order a) (trailing \"LIMIT 10 OFFSET 5\"))", L"Limit Offset"},
        {L"SELECT a FROM t ORDER BY a OFFSET 5 ROWS FETCH NEXT 10 ROWS ONLY",
         L"(select (columns a) (from t) (order a) (trailing \"OFFSET 5 ROWS FETCH NEXT 10 ROWS ONLY\"))",
         L"Offset Fetch"},
        {L"SELECT Limit, Offset, Fetch FROM t", L"(select (columns Limit Offset Fetch) (from t))"},
        {L"SELECT a FROM t FETCH FIRST ROW ONLY",
         L"(select (columns a) (from t) (trailing \"FETCH FIRST ROW ONLY\"))", L"Fetch"},
        {L"SELECT a FROM t fetch next (2 + 3) percent rows with ties",
         L"(select (columns a) (from t) (trailing \"fetch next (2 + 3) percent rows with ties\"))", L"Fetch"},
    });
}

TEST(ForClause, LocksRowsAndFormsResults) {
    Check({
        {L"SELECT a FROM t FOR UPDATE OF t, s.u NOWAIT",
         L"(select (columns a) (from t) (trailing \"FOR UPDATE OF t, s.u NOWAIT\"))", L"ForUpdate"},
        {L"SELECT a FROM t FOR NO KEY UPDATE SKIP LOCKED LIMIT 5",
         L"(select (columns a) (from t) (trailing \"FOR NO KEY UPDATE SKIP LOCKED LIMIT 5\"))",
         L"ForUpdate Limit"},
        {L"SELECT a FROM t FOR KEY SHARE WAIT 5",
         L"(select (columns a) (from t) (trailing \"FOR KEY SHARE WAIT 5\"))", L"ForUpdate"},
        {L"SELECT a FROM t FOR READ ONLY", L"(select (columns a) (from t) (trailing \"FOR READ ONLY\"))",
         L"ForUpdate"},
        {L"SELECT a FROM t FOR BROWSE", L"(select (columns a) (from t) (trailing \"FOR BROWSE\"))",
         L"ForUpdate"},
        {L"SELECT a FROM t FOR XML PATH('fila'), ROOT('filas'), ELEMENTS XSINIL",
         L"(select (columns a) (from t) (trailing \"FOR XML PATH ('fila'), ROOT ('filas'), ELEMENTS "
         L"XSINIL\"))",
         L"ForUpdate"},
    });
}

TEST(WindowClause, NamesSeveralWindowsBeforeOrAfterTheOrder) {
    Check({
        {L"SELECT a FROM t WINDOW w AS (PARTITION BY a), v AS (w ORDER BY b DESC)",
         L"(select (columns a) (from t) (trailing \"WINDOW w AS (PARTITION BY a), v AS (w ORDER BY b "
         L"DESC)\"))",
         L"Window"},
        {L"SELECT a FROM t WINDOW w AS (ORDER BY a) ORDER BY b LIMIT 5",
         L"(select (columns a) (from t) (order b) (trailing \"WINDOW w AS (ORDER BY a) LIMIT 5\"))",
         L"Window Limit"},
    });
}

TEST(Names, InEveryKindOfQuotes) {
    Check({
        {L"SELECT [a b], [c-d], [¿qué?], [a.b], [%], [#1], [\"x\"] FROM [mi tabla]",
         L"(select (columns [a b] [c-d] [¿qué?] [a.b] [%] [#1] [\"x\"]) (from [mi tabla]))"},
        {L"SELECT `a b`, t.`c d` FROM `mi tabla` AS t",
         L"(select (columns `a b` t.`c d`) (from (as `mi tabla` t)))"},
        {L"SELECT \"t\".\"a b\" FROM \"mi tabla\" AS \"t\"",
         L"(select (columns \"t\".\"a b\") (from (as \"mi tabla\" \"t\")))"},
        {L"SELECT [a]]b] FROM [t]]u]", L"(select (columns [a]]b]) (from [t]]u]))"},
        {L"SELECT Año, Teléfono, Straße, Όνομα, Номер, 名前 FROM Årsdata",
         L"(select (columns Año Teléfono Straße Όνομα Номер 名前) (from Årsdata))"},
    });
}

TEST(Names, ThatBeginWithADigit) {
    Check({
        {L"SELECT 2009_Ventas.Total AS 2009, 1T FROM 2009_Ventas AS 2a",
         L"(select (columns (as 2009_Ventas.Total 2009) 1T) (from (as 2009_Ventas 2a)))"},
        {L"SELECT v.2009, v.[2009], v.1T FROM 87089_Items AS v",
         L"(select (columns v.2009 v.[2009] v.1T) (from (as 87089_Items v)))"},
        {L"SELECT a FROM t WHERE 3DiasAntes = 1 AND b=2",
         L"(select (columns a) (from t) (where (and (= 3DiasAntes 1) (= b 2))))"},
    });
}

TEST(Names, ThatAreWordsOfTheLanguage) {
    Check({
        {L"SELECT Date, Time, Name, Value, Count, Year, Month, Text, Type, Level, First, Last, Top, Limit "
         L"FROM t",
         L"(select (columns Date Time Name Value Count Year Month Text Type Level First Last Top Limit) "
         L"(from t))"},
        {L"SELECT t.Select, t.From, t.Order, t.Group, t.And, t.Null, t!On, t!Where FROM t",
         L"(select (columns t.Select t.From t.Order t.Group t.And t.Null t!On t!Where) (from t))"},
        {L"SELECT a AS Order, b AS Group, c AS Value FROM t AS Date",
         L"(select (columns (as a Order) (as b Group) (as c Value)) (from (as t Date)))"},
    });
}

TEST(Bang, JoinsNamesAndReachesForms) {
    Check({
        {L"SELECT t!a, [t]![a b], t![c].Value FROM t",
         L"(select (columns t!a [t]![a b] t![c].Value) (from t))"},
        {L"SELECT a FROM t WHERE b = [Forms]![f]![c] AND d = Forms!f.c AND e = Forms![un "
         L"formulario]!sub.Form![c]",
         L"(select (columns a) (from t) (where (and (= b [Forms]![f]![c]) (= d Forms!f.c) (= e Forms![un "
         L"formulario]!sub.Form![c]))))"},
        {L"SELECT [TempVars]![x], Reports!r!c, [Screen].[ActiveForm]![c] FROM t",
         L"(select (columns [TempVars]![x] Reports!r!c [Screen].[ActiveForm]![c]) (from t))"},
        {L"SELECT Forms!f!c & \"\" AS x FROM t WHERE Forms!f!c Is Null OR Nz(Forms!f!c) = a",
         L"(select (columns (as (& Forms!f!c \"\") x)) (from t) (where (or (is-null Forms!f!c) (= (call Nz "
         L"Forms!f!c) a))))"},
    });
}

TEST(Casts, WithColonsAndWithACall) {
    Check({
        {L"SELECT a::int, b::varchar(10)::text, (a + b)::numeric(10, 2) FROM t",
         L"(select (columns (cast a int) (cast (cast b varchar (10)) text) (cast (paren (+ a b)) numeric "
         L"(10, 2))) (from t))"},
        {L"SELECT CAST(a AS INTEGER), TRY_CAST(b AS date) FROM t WHERE c::date = d",
         L"(select (columns (cast a INTEGER) (cast b date)) (from t) (where (= (cast c date) d)))"},
        {L"SELECT CInt(a), CDbl(b), CVDate(c), CStr(d) FROM t",
         L"(select (columns (call CInt a) (call CDbl b) (call CVDate c) (call CStr d)) (from t))"},
    });
}

TEST(Comments, StandAnywhere) {
    Check({
        {L"SELECT a -- uno\nFROM t -- dos\nWHERE b = 1 /* tres */",
         L"(select (columns a) (from t) (where (= b 1)))"},
        {L"/* antes */ SELECT /* x */ a/**/,b FROM/* y */t --", L"(select (columns a b) (from t))"},
        {L"SELECT a FROM t WHERE b = '-- no' AND c = \"/* no */\" AND [d--e] = 1",
         L"(select (columns a) (from t) (where (and (= b '-- no') (= c \"/* no */\") (= [d--e] 1))))"},
    });
}

TEST(Macros, StandWhereAnExpressionDoes) {
    Check({
        {L"SELECT @fecha, @{un nombre}, f(@x) AS y FROM t WHERE a = @winuser AND b IN (@lista) AND c BETWEEN "
         L"@desde AND @hasta GROUP BY @x HAVING Sum(v) > @min ORDER BY @orden",
         L"(select (columns @fecha @{un nombre} (as (call f @x) y)) (from t) (where (and (= a @winuser) (in "
         L"b @lista) (between c @desde @hasta))) (group @x) (having (> (call Sum v) @min)) (order @orden))"},
        {L"SELECT @{tabla}.campo FROM @tabla AS q",
         L"(select (columns @{tabla}.campo) (from (as @tabla q)))"},
        {L"SELECT a FROM t WHERE b Like @{texto} & \"*\" AND c IN @{lista}",
         L"(select (columns a) (from t) (where (and (like b (& @{texto} \"*\")) (in c @{lista}))))"},
    });
}

TEST(ParameterMarks, StandWhereAnExpressionDoes) {
    Check({
        {L"SELECT ?, :p FROM t WHERE a = ? AND b IN (?, :q) AND c Like ? & '%'",
         L"(select (columns ? :p) (from t) (where (and (= a ?) (in b ? :q) (like c (& ? '%')))))"},
        {L"SELECT a FROM t WHERE d Between [Desde el día:] And [Hasta el día (incluido):] AND e = [¿Qué "
         L"zona?]",
         L"(select (columns a) (from t) (where (and (between d [Desde el día:] [Hasta el día (incluido):]) "
         L"(= e [¿Qué zona?]))))"},
    });
}

TEST(Functions, WithATypeSignOrANameOfTheLanguage) {
    Check({
        {L"SELECT Left$([a],2), Mid$(a,2,3), Chr$(13) & Chr$(10), Format$(d,\"dd/mm/yyyy\") FROM t",
         L"(select (columns (call Left$ [a] 2) (call Mid$ a 2 3) (& (call Chr$ 13) (call Chr$ 10)) (call "
         L"Format$ d \"dd/mm/yyyy\")) (from t))"},
        {L"SELECT Left(a,1), Right(a,1), Asc(a), Date(), Time(), Now(), Year(d), First(a), Last(a) FROM t",
         L"(select (columns (call Left a 1) (call Right a 1) (call Asc a) (call Date) (call Time) (call Now) "
         L"(call Year d) (call First a) (call Last a)) (from t))"},
        {L"SELECT StDev(a), StDevP(a), Var(a), VarP(a), Count(*), Count(DISTINCT b) FROM t",
         L"(select (columns (call StDev a) (call StDevP a) (call Var a) (call VarP a) (call-star Count) "
         L"(call-distinct Count b)) (from t))"},
        {L"SELECT IIf(a Is Null Or b Like \"x*\" Or c In (1,2) Or d Between 1 And 2, 1, 0), "
         L"Switch(a=1,\"x\",True,\"y\"), Choose(n,\"a\",\"b\"), Partition(n,0,100,10) FROM t",
         L"(select (columns (call IIf (or (is-null a) (like b \"x*\") (in c 1 2) (between d 1 2)) 1 0) (call "
         L"Switch (= a 1) \"x\" true \"y\") (call Choose n \"a\" \"b\") (call Partition n 0 100 10)) (from "
         L"t))"},
        {L"SELECT DLookUp(\"[Precio]\",\"Tarifas\",\"[Id]=\" & [Id] & \" And x='\"\"'\") FROM t",
         L"(select (columns (call DLookUp \"[Precio]\" \"Tarifas\" (& \"[Id]=\" [Id] \" And x='\"\"'\"))) "
         L"(from t))"},
        {L"SELECT InStr(,a,b), f(a,,c), f() FROM t",
         L"(select (columns (call InStr (omitted) a b) (call f a (omitted) c) (call f)) (from t))"},
    });
}

TEST(Escapes, OfOdbcForCallsDatesAndJoins) {
    Check({
        {L"SELECT {fn UCASE(a)}, {fn NOW()}, {fn CONCAT(a, {fn LEFT(b, 2)})} FROM t",
         L"(select (columns (escape (call UCASE a)) (escape (call NOW)) (escape (call CONCAT a (escape (call "
         L"LEFT b 2))))) (from t))"},
        {L"SELECT a FROM t WHERE d = {d '2020-01-31'} OR e > {ts '2020-01-31 10:00:00'} OR f < {t "
         L"'10:00:00'}",
         L"(select (columns a) (from t) (where (or (= d {d '2020-01-31'}) (> e {ts '2020-01-31 10:00:00'}) "
         L"(< f {t '10:00:00'}))))"},
        {L"SELECT a FROM t WHERE g = {guid {7A5B1C22-0000-0000-C000-000000000046}}",
         L"(select (columns a) (from t) (where (= g {guid {7A5B1C22-0000-0000-C000-000000000046}})))"},
        {L"SELECT a FROM {oj t LEFT OUTER JOIN u ON t.k = u.k} WHERE b = 1",
         L"(select (columns a) (from (paren (left t u (= t.k u.k)))) (where (= b 1)))"},
        {L"SELECT a FROM { oj t RIGHT JOIN (u INNER JOIN v ON u.j = v.j) ON t.k = u.k }, w",
         L"(select (columns a) (from (paren (right t (paren (inner u v (= u.j v.j))) (= t.k u.k))) w))"},
        {L"SELECT a FROM t WHERE b LIKE '50!%' {escape '!'}",
         L"(select (columns a) (from t) (where (like b '50!%' '!')))"},
    });
}

TEST(Operators, OfTheDialect) {
    Check({
        {L"SELECT 7 Mod 3, 7 \\ 3, 2 ^ 3, a & b, -a, a - -b FROM t",
         L"(select (columns (mod 7 3) (\\ 7 3) (^ 2 3) (& a b) (neg a) (- a (neg b))) (from t))"},
        {L"SELECT a FROM t WHERE x Eqv y OR z Imp w AND Not u Xor v",
         L"(select (columns a) (from t) (where (imp (eqv x (or y z)) (xor (and w (not u)) v))))"},
        {L"SELECT a FROM t WHERE b ALIKE 'x%' AND c Not Like \"[!A-C]#?*\" AND d Not Between 1 And 2 AND e "
         L"Not In (1)",
         L"(select (columns a) (from t) (where (and (alike b 'x%') (not-like c \"[!A-C]#?*\") (not-between d "
         L"1 2) (not-in e 1))))"},
        {L"SELECT a FROM t WHERE b <> 1 AND c != 2 AND d =< 3 AND e => 4 AND Not f = 5 AND Not (g) Is Null",
         L"(select (columns a) (from t) (where (and (<> b 1) (<> c 2) (<= d 3) (>= e 4) (not (= f 5)) (not "
         L"(is-null (paren g))))))"},
        {L"SELECT a FROM t WHERE b=1AND c=2OR d>3",
         L"(select (columns a) (from t) (where (or (and (= b 1) (= c 2)) (> d 3))))"},
        {L"SELECT a FROM t WHERE b=True AND c=Yes AND On AND (d=On) AND e=Off",
         L"(select (columns a) (from t) (where (and (= b true) (= c Yes) true (paren (= d true)) (= e "
         L"Off))))"},
    });
}

TEST(Operators, OfBitsAreTitlesWhereNoValueFollows) {
    Check({
        {L"SELECT a BAND 2 BAND b, c BOR -d AS e, f bxor (g + 1) FROM t WHERE (h BAND 4) <> 0 AND i BAND 1 = "
         L"1",
         L"(select (columns (band a 2 b) (as (bor c (neg d)) e) (bxor f (paren (+ g 1)))) (from t) (where "
         L"(and "
         L"(<> (paren (band h 4)) 0) (= (band i 1) 1))))"},
        {L"SELECT a BAND BAND, a BOR Null, a BXOR LEFT(b, 1), a BAND CASE WHEN b THEN 1 END FROM t",
         L"(select (columns (band a BAND) (bor a null) (bxor a (call LEFT b 1)) (band a (case (when b 1)))) "
         L"(from "
         L"t))"},
        {L"SELECT a Band, b Bor, Bxor FROM Band INNER JOIN Bor Bxor ON Band.a = Bxor.a ORDER BY Band",
         L"(select (columns (as a Band) (as b Bor) Bxor) (from (inner Band (as Bor Bxor) (= Band.a Bxor.a))) "
         L"(order Band))"},
    });
}

TEST(Literals, OfEveryKind) {
    Check({
        {L"SELECT 1, 1.5, .5, 5., 1E3, -1.5E-3, &HFF, &O17, &H10& FROM t",
         L"(select (columns 1 1.5 .5 5. 1E3 (neg 1.5E-3) &HFF &O17 &H10&) (from t))"},
        {L"SELECT #1/31/2020#, #2020-01-31 10:00#, #10:30:00 PM#, #Jan 5 2020#, #15-ene-2020# FROM t",
         L"(select (columns #1/31/2020# #2020-01-31 10:00# #10:30:00 PM# #Jan 5 2020# #15-ene-2020#) (from "
         L"t))"},
        {L"SELECT 'it''s', \"say \"\"x\"\"\", \"O'Brien\", '\"', '' FROM t",
         L"(select (columns 'it''s' \"say \"\"x\"\"\" \"O'Brien\" '\"' '') (from t))"},
        {L"SELECT Null, True, False FROM t", L"(select (columns null true false) (from t))"},
    });
}

TEST(Quantifiers, InAnyOrder) {
    Check({
        {L"SELECT DISTINCTROW TOP 5 a FROM t", L"(select distinct (top \"TOP 5\") (columns a) (from t))"},
        {L"SELECT TOP 5 PERCENT a FROM t", L"(select (top \"TOP 5 PERCENT\") (columns a) (from t))"},
        {L"SELECT TOP 5 DISTINCT a FROM t", L"(select distinct (top \"TOP 5\") (columns a) (from t))"},
        {L"SELECT ALL a FROM t", L"(select (columns a) (from t))"},
        {L"SELECT DISTINCT TOP 10 t.*, a FROM t",
         L"(select distinct (top \"TOP 10\") (columns t.* a) (from t))"},
        {L"SELECT*FROM[t]WHERE[a]='x'", L"(select (columns *) (from [t]) (where (= [a] 'x')))"},
    });
}

}  // namespace
}  // namespace tessel::sql
