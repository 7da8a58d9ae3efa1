// Statements that once were accepted although their design said something else.
#include <gtest/gtest.h>

#include "compose/compose.h"
#include "tests/analyse/support.h"

namespace tessel::laws {
namespace {

using Tables = test::FixedSchema::Tables;

std::string Composed(const wchar_t* statement, const schema::Schema* schema = nullptr) {
    model::Design design;
    design.diagram.Bind(schema);
    const analyse::Analysis analysis = analyse::AnalyseSQL(statement, design);
    return analysis.accepted ? ToUtf8(compose::BuildSQL(design)) : "refused";
}

TEST(FoundByLaws, SortingByAConstantOfTheListIsNotSortingByAColumnNumber) {
    EXPECT_EQ(Composed(L"SELECT a, 5 AS x FROM t ORDER BY x"), "SELECT a, 5 AS x \r\nFROM t;");
    EXPECT_EQ(Composed(L"SELECT a, 0 FROM t ORDER BY 2, 1"), "SELECT a, 0 \r\nFROM t \r\nORDER BY a;");
}

TEST(FoundByLaws, MacroInTheListIsNoConstant) {
    EXPECT_EQ(Composed(L"SELECT a, @m AS x FROM t ORDER BY x"),
              "SELECT a, @m AS x \r\nFROM t \r\nORDER BY @m;");
}

TEST(FoundByLaws, ParametersByPlaceKeepTheirPlaces) {
    EXPECT_EQ(Composed(L"SELECT a, b FROM t WHERE a = ? AND b = ?"),
              "SELECT a, b \r\nFROM t \r\nWHERE (a = ?) AND (b = ?);");
    EXPECT_EQ(Composed(L"SELECT b, a FROM t WHERE a = ? AND b = ?"), "refused");
    EXPECT_EQ(Composed(L"SELECT a + ? AS x FROM t ORDER BY x"), "refused");
}

TEST(FoundByLaws, NameThatTwoTablesHaveIsNotGivenToTheJoinedOne) {
    const schema::Schema schema =
        test::MakeSchema(Tables{{L"A", {L"Id", L"País"}}, {L"B", {L"Id", L"País"}}, {L"C", {L"Otro"}}});
    EXPECT_EQ(Composed(L"SELECT A.Id FROM A INNER JOIN B ON País = B.País", &schema),
              "SELECT A.Id AS Id \r\nFROM A, B \r\nWHERE (País = B.País);");
    EXPECT_EQ(Composed(L"SELECT A.Id FROM A LEFT JOIN B ON País = B.País", &schema), "refused");
    EXPECT_EQ(Composed(L"SELECT A.Id FROM A INNER JOIN C ON Otro = A.Id", &schema),
              "SELECT A.Id AS Id \r\nFROM (A INNER JOIN C ON A.Id = C.Otro) ;");
}

TEST(FoundByLaws, AliasToSortByBesideAStarOfUnknownColumnsIsAmbiguous) {
    EXPECT_EQ(Composed(L"SELECT a.x AS y, b.* FROM a, b ORDER BY y"), "refused");
    const schema::Schema schema = test::MakeSchema(Tables{{L"a", {L"x", L"z"}}, {L"b", {L"x", L"w"}}});
    EXPECT_EQ(Composed(L"SELECT a.x AS x, b.* FROM a, b ORDER BY x", &schema), "refused");
    EXPECT_EQ(Composed(L"SELECT a.x AS y, b.* FROM a, b ORDER BY y", &schema),
              "SELECT a.x AS y, b.* \r\nFROM a, b \r\nORDER BY a.x;");
}

TEST(FoundByLaws, AliasToSortByBesideAColumnOfThatNameIsAmbiguous) {
    EXPECT_EQ(Composed(L"SELECT a.x AS y, b.y FROM a, b ORDER BY y"), "refused");
    EXPECT_EQ(Composed(L"SELECT a.y AS y, b.x FROM a, b ORDER BY y"),
              "SELECT a.y AS y, b.x AS x \r\nFROM a, b \r\nORDER BY a.y;");
}

TEST(FoundByLaws, NumberOfAColumnIsNotReplacedByANameThatAnAliasTakes) {
    EXPECT_EQ(Composed(L"SELECT Id, Cantidad AS Id FROM t ORDER BY 1"), "refused");
    EXPECT_EQ(Composed(L"SELECT t.Id, Cantidad AS x FROM t ORDER BY 1"),
              "SELECT t.Id AS Id, Cantidad AS x \r\nFROM t \r\nORDER BY t.Id;");
}

TEST(FoundByLaws, BareNameInAJoinDoesNotMoveToWhereMoreTablesMayHaveIt) {
    EXPECT_EQ(Composed(L"SELECT a.x FROM c, a INNER JOIN b ON a.id = b.id AND n > 1"), "refused");
    EXPECT_EQ(Composed(L"SELECT a.x FROM a INNER JOIN b ON a.id = b.id AND n > 1"),
              "SELECT a.x AS x \r\nFROM (a INNER JOIN b ON a.id = b.id)  \r\nWHERE (n > 1);");
}

TEST(FoundByLaws, AlternativesBesideAHavingOnGroupKeysAreReadBackWithoutMessage) {
    const std::wstring composed =
        FromUtf8(Composed(L"SELECT e, Count(*) FROM t WHERE c > 0 OR c > 3 GROUP BY c, e HAVING e < 0"));
    model::Design design;
    const analyse::Analysis again = analyse::AnalyseSQL(composed, design);
    EXPECT_TRUE(again.accepted) << ToUtf8(composed);
    EXPECT_TRUE(again.messages.empty()) << ToUtf8(composed);
}

TEST(FoundByLaws, KeysInParenthesesAreShownWithoutThem) {
    EXPECT_EQ(Composed(L"SELECT Count(*) FROM t GROUP BY (a) ORDER BY (b)"),
              Composed(L"SELECT Count(*) FROM t GROUP BY a ORDER BY b"));
}

}  // namespace
}  // namespace tessel::laws
