#include <gtest/gtest.h>

#include "compose/compose.h"
#include "tests/compose/design_builder.h"

namespace tessel::compose {
namespace {

using test::FillDesign;

TEST(DesignSnapshots, BlankFieldsAreSkippedAndCellsStayVerbatim) {
    model::Design design;
    FillDesign(
        design, {}, {},
        {{L"  "}, {L" a.b ", L" T ", L" a ", L" Suma ", L"no", L"ASCENDENTE", L" ", L" 5"}, {L"", L"x"}});
    const Columns columns = ReadDesignColumns(design.grid);
    ASSERT_EQ(columns.size(), 1u);
    EXPECT_EQ(columns[0].Expresion, L" a.b ");
    EXPECT_EQ(columns[0].Alias, L" T ");
    EXPECT_EQ(columns[0].Table, L" a ");
    EXPECT_EQ(columns[0].GroupBy, L" Suma ");
    EXPECT_TRUE(columns[0].Visible);
    EXPECT_EQ(columns[0].OrderBy, 1);
    EXPECT_EQ(columns[0].Conditions, std::vector<std::wstring>({L" 5"}));
}

TEST(DesignSnapshots, OrderWordsIgnoreLetterCaseButNotBlanks) {
    model::Design design;
    FillDesign(design, {}, {},
               {{L"a", L"", L"", L"", L"", L"Descendente"},
                {L"b", L"", L"", L"", L"", L" Ascendente"},
                {L"c", L"", L"", L"", L"", L"otra"}});
    const Columns columns = ReadDesignColumns(design.grid);
    ASSERT_EQ(columns.size(), 3u);
    EXPECT_EQ(columns[0].OrderBy, 2);
    EXPECT_EQ(columns[1].OrderBy, 0);
    EXPECT_EQ(columns[2].OrderBy, 0);
}

TEST(StatementTexts, WholeDesignWithEveryClause) {
    model::Design design;
    FillDesign(design, {L"Clientes", L"Pedidos"}, {{L"Clientes", L"IdCliente", L"Pedidos", L"IdCliente", 0}},
               {{L"Clientes.Nombre", L"", L"", L"Agrupado por", L"Si", L"Ascendente"},
                {L"Pedidos.Importe", L"Total", L"", L"Suma", L"Si", L"Descendente", L">1000"},
                {L"Clientes.Pais", L"", L"", L"Agrupado por", L"No", L"", L"'Chile'", L"'Peru'"}});
    EXPECT_EQ(BuildSQL(design),
              L"SELECT Clientes.Nombre, Sum(Pedidos.Importe) AS Total \r\n"
              L"FROM (Clientes INNER JOIN Pedidos ON Clientes.IdCliente = Pedidos.IdCliente)  \r\n"
              L"WHERE (Clientes.Pais = 'Chile' OR Clientes.Pais = 'Peru') \r\n"
              L"GROUP BY Clientes.Nombre, Clientes.Pais \r\n"
              L"HAVING (Sum(Pedidos.Importe) >1000) \r\n"
              L"ORDER BY Clientes.Nombre, Sum(Pedidos.Importe) DESC;");
}

TEST(StatementTexts, SelectAndFromAloneAreTwoLines) {
    model::Design design;
    FillDesign(design, {L"A", L"B"}, {}, {{L"A.x"}, {L"B.y", L"z"}});
    EXPECT_EQ(BuildSQL(design), L"SELECT A.x, B.y AS z \r\nFROM A, B;");
}

TEST(StatementTexts, SemicolonFollowsTheLastClauseDirectly) {
    model::Design design;
    FillDesign(design, {L"A", L"B"}, {{L"A", L"x", L"B", L"y", 0}}, {{L"A.x"}});
    EXPECT_EQ(BuildSQL(design), L"SELECT A.x \r\nFROM (A INNER JOIN B ON A.x = B.y) ;");
}

TEST(StatementTexts, DistinctIsWrittenAsDistinctRow) {
    model::Design design;
    FillDesign(design, {L"t"}, {}, {{L"a"}, {L"b"}}, true);
    EXPECT_EQ(BuildSQL(design), L"SELECT DISTINCTROW a, b \r\nFROM t;");
}

TEST(StatementTexts, NothingToStateGivesAnEmptyText) {
    model::Design blank;
    FillDesign(blank, {L"t"}, {}, {{L"  "}, {L"", L"alias"}});
    EXPECT_EQ(BuildSQL(blank), L"");

    model::Design hidden;
    FillDesign(hidden, {L"t"}, {}, {{L"a", L"", L"", L"", L"No", L"", L"1"}});
    EXPECT_EQ(BuildSQL(hidden), L"");

    model::Design without_tables;
    FillDesign(without_tables, {}, {}, {{L"a"}});
    EXPECT_EQ(BuildSQL(without_tables), L"");

    EXPECT_EQ(BuildSQL(model::Design()), L"");
}

TEST(StatementTexts, OnlyTheExactWordNoHidesAColumn) {
    model::Design design;
    FillDesign(design, {L"t"}, {},
               {{L"a", L"", L"", L"", L"no"}, {L"b", L"", L"", L"", L" No"}, {L"c", L"", L"", L"", L"No"}});
    EXPECT_EQ(BuildSQL(design), L"SELECT a, b \r\nFROM t;");
}

TEST(StatementTexts, CriterionRowDoesNotMatter) {
    model::Design above;
    FillDesign(above, {L"t"}, {}, {{L"a", L"", L"", L"", L"Si", L"", L"1"}});
    model::Design below;
    FillDesign(below, {L"t"}, {}, {{L"a", L"", L"", L"", L"Si", L"", L"", L"1"}});
    EXPECT_EQ(BuildSQL(above), L"SELECT a \r\nFROM t \r\nWHERE (a = 1);");
    EXPECT_EQ(BuildSQL(below), BuildSQL(above));

    model::Design both;
    FillDesign(both, {L"t"}, {},
               {{L"a", L"", L"", L"", L"Si", L"", L"", L"1"}, {L"b", L"", L"", L"", L"Si", L"", L"2"}});
    EXPECT_EQ(BuildSQL(both), L"SELECT a, b \r\nFROM t \r\nWHERE (a = 1) AND (b = 2);");
}

TEST(StatementTexts, TheTableRowAndTheDesignAreNotTouched) {
    model::Design design;
    FillDesign(design, {L"t"}, {}, {{L"a", L"x", L"otra tabla", L"", L"Si"}});
    const std::vector<model::DesignGrid::Column> before = design.grid.Columns();
    EXPECT_EQ(BuildSQL(design), L"SELECT a AS x \r\nFROM t;");
    EXPECT_TRUE(design.grid.Columns() == before);
}

TEST(StatementTexts, SixtyColumnsAllTakePart) {
    model::Design design;
    std::vector<test::Column> columns;
    std::wstring list;
    for (int index = 1; index <= model::kGridColumnCount; ++index) {
        const std::wstring field = L"t.c" + std::to_wstring(index);
        columns.push_back({field});
        list += (list.empty() ? L"" : L", ") + field;
    }
    FillDesign(design, {L"t"}, {}, columns);
    EXPECT_EQ(BuildSQL(design), L"SELECT " + list + L" \r\nFROM t;");
}

}  // namespace
}  // namespace tessel::compose
