#include <gtest/gtest.h>

#include "common/text.h"
#include "sqlparser/dump.h"
#include "sqlparser/sql_parser.h"

namespace tessel::sql {
namespace {

struct Case {
    const wchar_t* text;
    const wchar_t* dump;
};

// The dump of the only item of a select list, or the first message.
std::string DumpOf(const std::wstring& expression) {
    SqlParser parser;
    if (parser.Parse(L"SELECT " + expression + L" FROM t"))
        return ToUtf8(L"error: " + parser.Errors()[0].message);
    return ToUtf8(DumpExpression(*parser.GetStatement(), parser.GetStatement()->Columns[0].node));
}

void Check(std::initializer_list<Case> cases) {
    for (const Case& c : cases) EXPECT_EQ(DumpOf(c.text), ToUtf8(c.dump)) << ToUtf8(c.text);
}

TEST(Expressions, ArithmeticBindsAsTheDialectSays) {
    Check({
        {L"a + b * c", L"(+ a (* b c))"},
        {L"a * b + c", L"(+ (* a b) c)"},
        {L"a + b + c", L"(+ a b c)"},
        {L"a - b - c", L"(- a b c)"},
        {L"a + b - c", L"(- (+ a b) c)"},
        {L"(a + b) * c", L"(* (paren (+ a b)) c)"},
        {L"a Mod b + c", L"(+ (mod a b) c)"},
        {L"a \\ b * c", L"(\\ a (* b c))"},
        {L"a Mod b \\ c", L"(mod a (\\ b c))"},
        {L"-a ^ 2", L"(neg (^ a 2))"},
        {L"2 ^ -3", L"(^ 2 (neg 3))"},
        {L"2 ^ 3 ^ 2", L"(^ 2 3 2)"},
        {L"-a * b", L"(* (neg a) b)"},
        {L"a & b + c", L"(& a (+ b c))"},
        {L"a || b", L"(& a b)"},
        {L"- - a", L"(neg (neg a))"},
        {L"~a", L"(~ a)"},
        {L"+a", L"(pos a)"},
        {L"a % 2", L"(mod a 2)"},
        {L"a | b", L"(| a b)"},
        {L"1 - -1", L"(- 1 (neg 1))"},
    });
}

TEST(Expressions, LogicalOperatorsMakeFlatRuns) {
    Check({
        {L"a OR b OR c", L"(or a b c)"},
        {L"a AND b OR c AND d", L"(or (and a b) (and c d))"},
        {L"a Imp b Eqv c Xor d Or e And f", L"(imp a (eqv b (xor c (or d (and e f)))))"},
        {L"NOT a = 1", L"(not (= a 1))"},
        {L"NOT a AND b", L"(and (not a) b)"},
        {L"a AND NOT b = c OR d", L"(or (and a (not (= b c))) d)"},
        {L"NOT NOT a", L"(not (not a))"},
        {L"a = NOT b", L"(= a (not b))"},
        {L"a = NOT b AND c", L"(and (= a (not b)) c)"},
        {L"Not (x) Is Null", L"(not (is-null (paren x)))"},
        {L"(x) Is Not Null", L"(is-not-null (paren x))"},
    });
}

TEST(Expressions, ComparisonsBindLooserThanConcatenation) {
    Check({
        {L"a & b = c", L"(= (& a b) c)"},
        {L"a <> b", L"(<> a b)"},
        {L"a != b", L"(<> a b)"},
        {L"a >= b", L"(>= a b)"},
        {L"a => b", L"(>= a b)"},
        {L"a =< b", L"(<= a b)"},
        {L"a < b = c", L"(= (< a b) c)"},
        {L"a Is True", L"(is= a true)"},
        {L"a Is Not False", L"(is<> a false)"},
    });
}

TEST(Expressions, PredicatesTakeTheirOperands) {
    Check({
        {L"a Like 'x*'", L"(like a 'x*')"},
        {L"a Not Like 'x' & b", L"(not-like a (& 'x' b))"},
        {L"a ALike 'x%'", L"(alike a 'x%')"},
        {L"a LIKE 'x!%' ESCAPE '!'", L"(like a 'x!%' '!')"},
        {L"a Between 1 And 2 And b", L"(and (between a 1 2) b)"},
        {L"a Not Between #1/1/2020# And #31/12/2020#", L"(not-between a #1/1/2020# #31/12/2020#)"},
        {L"a + 1 Between b And c + 2", L"(between (+ a 1) b (+ c 2))"},
        {L"a In (1, 2, 'x')", L"(in a 1 2 'x')"},
        {L"a Not In (SELECT b FROM u)", L"(not-in-select a (select (columns b) (from u)))"},
        {L"a In (@lista)", L"(in a @lista)"},
        {L"a In @lista", L"(in a @lista)"},
        {L"(a, b) In ((1, 2), (3, 4))", L"(in (tuple a b) (tuple 1 2) (tuple 3 4))"},
        {L"Exists (SELECT * FROM u)", L"(exists (select (columns *) (from u)))"},
        {L"Not Exists (SELECT 1)", L"(not (exists (select (columns 1))))"},
        {L"a > ANY (SELECT b FROM u)", L"(> a (any (select (columns b) (from u))))"},
        {L"a = ALL (SELECT b FROM u)", L"(= a (all (select (columns b) (from u))))"},
        {L"a <> SOME (SELECT b FROM u)", L"(<> a (some (select (columns b) (from u))))"},
        {L"a Is Null And b Is Not Null", L"(and (is-null a) (is-not-null b))"},
        {L"NOT a LIKE 'x' AND b", L"(and (not (like a 'x')) b)"},
        {L"a = b Like c", L"(like (= a b) c)"},
    });
}

TEST(Expressions, NamesMayBeBracketedQuotedAndQualified) {
    Check({
        {L"a.b.c", L"a.b.c"},
        {L"[Detalle de pedidos].[Id pedido]", L"[Detalle de pedidos].[Id pedido]"},
        {L"`a b`.`c`", L"`a b`.`c`"},
        {L"\"Clientes\".\"Nombre\"", L"\"Clientes\".\"Nombre\""},
        {L"\"texto\"", L"\"texto\""},
        {L"Forms!f!c", L"Forms!f!c"},
        {L"[Forms]![f]![c].Value", L"[Forms]![f]![c].Value"},
        {L"t.*", L"t.*"},
        {L"[a].[b].*", L"[a].[b].*"},
        {L"campo.Value", L"campo.Value"},
        {L"t . a", L"t.a"},
        {L"t.Year", L"t.Year"},
        {L"t.Order", L"t.Order"},
        {L"Order.Id", L"Order.Id"},
        {L"87089_Items.x", L"87089_Items.x"},
        {L"2009.Campo", L"2009.Campo"},
        {L"t.2009", L"t.2009"},
        {L"t.90DaysAvg", L"t.90DaysAvg"},
        {L"Year", L"Year"},
        {L"Top", L"Top"},
        {L"año + Ñandú", L"(+ año Ñandú)"},
        {L"[a/b #1%-\"x\"]", L"[a/b #1%-\"x\"]"},
        {L"[a]]b]", L"[a]]b]"},
        {L"Item#", L"Item#"},
        {L"#tmp.a", L"#tmp.a"},
        {L"Σύνολο", L"Σύνολο"},
    });
}

TEST(Expressions, LiteralsKeepTheirText) {
    Check({
        {L"1", L"1"},
        {L".5", L".5"},
        {L"1.", L"1."},
        {L"1e3", L"1e3"},
        {L"1.5E-10", L"1.5E-10"},
        {L"&HFF", L"&HFF"},
        {L"0x1F", L"0x1F"},
        {L"a &HFF", L"(& a HFF)"},
        {L"a & &HFF", L"(& a &HFF)"},
        {L"'it''s'", L"'it''s'"},
        {L"\"a\"\"b\"", L"\"a\"\"b\""},
        {L"'-- /* no'", L"'-- /* no'"},
        {L"#1/31/2020 10:00:00 PM#", L"#1/31/2020 10:00:00 PM#"},
        {L"#January 1, 2020#", L"#January 1, 2020#"},
        {L"#2020-01-31#", L"#2020-01-31#"},
        {L"DATE '2020-01-31'", L"DATE '2020-01-31'"},
        {L"N'x'", L"N'x'"},
        {L"{d '2020-01-31'}", L"{d '2020-01-31'}"},
        {L"Null", L"null"},
        {L"True = False", L"(= true false)"},
        {L"a /* x */ + -- y\n b", L"(+ a b)"},
    });
}

TEST(Expressions, MacrosAndParametersStandForValues) {
    Check({
        {L"@fecha", L"@fecha"},
        {L"a = @{un texto, con (todo)}", L"(= a @{un texto, con (todo)})"},
        {L"@T.Campo + 1", L"(+ @T.Campo 1)"},
        {L":p1", L":p1"},
        {L"a = ?", L"(= a ?)"},
        {L"[Escriba un número:]", L"[Escriba un número:]"},
        {L"a::int", L"(cast a int)"},
        {L"@@identity", L"@@identity"},
        {L"@{tabla}.campo", L"@{tabla}.campo"},
        {L"@tabla!campo", L"@tabla!campo"},
        {L"t.@campo", L"t.@campo"},
        {L"@tabla.*", L"@tabla.*"},
        {L"@f(1) * @x", L"(* (call @f 1) @x)"},
        {L"@n*2", L"(* @n 2)"},
    });
}

TEST(Expressions, CallsKeepTheirNameAndArguments) {
    Check({
        {L"IIf(a > 1, 'x', \"y\")", L"(call IIf (> a 1) 'x' \"y\")"},
        {L"Left$(a, 2)", L"(call Left$ a 2)"},
        {L"Left(a, 2) & Right(a, 1)", L"(& (call Left a 2) (call Right a 1))"},
        {L"count(*)", L"(call-star count)"},
        {L"COUNT(DISTINCT x)", L"(call-distinct COUNT x)"},
        {L"Sum(ALL x)", L"(call Sum x)"},
        {L"Now()", L"(call Now)"},
        {L"dbo.f(1)", L"(call dbo.f 1)"},
        {L"Asc('a')", L"(call Asc 'a')"},
        {L"Year([Fecha pedido])", L"(call Year [Fecha pedido])"},
        {L"EXTRACT(YEAR FROM d)", L"(call EXTRACT YEAR d)"},
        {L"Date()", L"(call Date)"},
        {L"First(x)", L"(call First x)"},
        {L"f((SELECT 1))", L"(call f (subquery (select (columns 1))))"},
        {L"row_number() OVER (PARTITION BY a ORDER BY b DESC ROWS BETWEEN 1 PRECEDING AND CURRENT ROW)",
         L"(window (call row_number) a b)"},
        {L"Sum(x) FILTER (WHERE y > 1) OVER w", L"(window (call Sum x) (> y 1))"},
    });
}

TEST(Expressions, CaseCastAndSubselects) {
    Check({
        {L"CASE WHEN a THEN 1 ELSE 2 END", L"(case-else (when a 1) 2)"},
        {L"CASE a WHEN 1 THEN 'x' WHEN 2 THEN 'y' END", L"(case-of a (when 1 'x') (when 2 'y'))"},
        {L"CAST(a AS decimal(10, 2))", L"(cast a decimal (10, 2))"},
        {L"CAST(a AS double precision)", L"(cast a double precision)"},
        {L"a::varchar(10)::text", L"(cast (cast a varchar (10)) text)"},
        {L"a COLLATE nocase = b", L"(= (collate a nocase) b)"},
        {L"(SELECT Max(x) FROM u)", L"(subquery (select (columns (call Max x)) (from u)))"},
        {L"(SELECT 1) + 2", L"(+ (subquery (select (columns 1))) 2)"},
        {L"((a))", L"(paren (paren a))"},
    });
}

}  // namespace
}  // namespace tessel::sql
