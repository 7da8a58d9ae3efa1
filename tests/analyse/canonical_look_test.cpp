// A look at two expressions tells what their forms would tell.
#include "sqlparser/sql_parser.h"
#include "tests/analyse/difference_cases.h"
#include "tests/analyse/statement_cases.h"
#include "tests/analyse/support.h"
#include "tests/laws/expression_pairs.h"

namespace tessel::analyse {
namespace {

TEST(CanonicalLook, TellsWhatFormsTell) {
    const schema::Schema schema =
        test::MakeSchema({{L"A", {L"x", L"y:3", L"activo:11"}}, {L"B", {L"x", L"z:3"}}, {L"[T u]", {L"x"}}});
    const wchar_t* const statements[] = {
        // The same to the letter, in other letters, in parentheses, with and without the table.
        L"SELECT x, X, [x], (x), A.x, a.[X], \"A\".x, x.A FROM A",
        L"SELECT x, A.x, B.x, A!x, x + 1, 1 + x, (x) + 1, (x + 1) FROM A, B",
        L"SELECT t.x, [T u].x, x FROM [T u] AS t",
        // Calls, with arguments in any number.
        L"SELECT f(x), F(x), [f](x), f(y), f(x, y), f(), f(DISTINCT x), f(*), g(x), {fn f(x)} FROM A",
        L"SELECT Sum(IIf(x = 1, 2, 3)), Sum(IIf(1 = x, 2, 3)), Sum(IIf(x = 1, 2, 4)) FROM A",
        // Truth values, compared with True and False or not, and negated.
        L"SELECT activo, activo = True, activo <> False, activo = False, Not activo, y <> False, y = True "
        L"FROM A",
        L"SELECT x = y, y = x, x <> y, Not x = y, (x = y) = True, x < y, y > x, Not x >= y FROM A",
        L"SELECT x Like 'a', Not x Like 'a', x Not Like 'a', (x Like 'a') = True, x ALike 'a' FROM A",
        L"SELECT x In (1, 2), x In (1, 2, 3), x Not In (1, 2), x Between 1 And 2, x Is Null, x Is Not Null "
        L"FROM A",
        L"SELECT IsNull(x), {fn IsNull(x)}, Not IsNull(x), IsNull(x) = True FROM A",
        L"SELECT x And y, y And x, x Or y, Not (x Or y), activo And x = 1, x = 1 And activo FROM A",
        // Numbers, texts, operators and their signs.
        L"SELECT 1, 1.0, 01, -1, +1, '1', \"1\", 'a', 'A', N'a' FROM A",
        L"SELECT x + y, y + x, x - y, x + y + 1, (x + y) + 1, x + (y + 1), x || y, x & y, x | y, x BAND y "
        L"FROM A",
        // Parameters are told by their places.
        L"SELECT x + ?, x + ?, ?, ?, f(?), f(?) FROM A",
        L"SELECT Exists (SELECT * FROM B), Exists (SELECT * FROM b), (SELECT x FROM B), x In (SELECT x FROM "
        L"B) FROM A",
        L"SELECT CASE WHEN x = 1 THEN 2 END, CASE WHEN 1 = x THEN 2 END, CAST(x AS int), x::int FROM A",
    };
    for (const wchar_t* statement : statements) {
        sql::SqlParser parser;
        EXPECT_FALSE(parser.Parse(statement)) << ToUtf8(statement);
        EXPECT_EQ(laws::MisjudgedPair(statement, &schema), "");
        EXPECT_EQ(laws::MisjudgedPair(statement, nullptr), "");
    }
}

TEST(CanonicalLook, TellsWhatFormsTellInEveryStatement) {
    for (const test::StatementCase& test : test::kStatementCases)
        EXPECT_EQ(laws::MisjudgedPair(test.statement, nullptr), "");
    for (const test::Forbidden& test : test::kForbidden)
        EXPECT_EQ(laws::MisjudgedPair(test.statement, nullptr), "");
    for (const test::Allowed& test : test::kAllowed) EXPECT_EQ(laws::MisjudgedPair(test.one, nullptr), "");
}

}  // namespace
}  // namespace tessel::analyse
