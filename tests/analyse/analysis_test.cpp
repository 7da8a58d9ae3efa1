#include <gtest/gtest.h>

#include "common/text.h"
#include "compose/compose.h"
#include "tests/analyse/support.h"

namespace tessel::analyse {
namespace {

using model::GridRow;
using test::Columns;
using test::ColumnTexts;
using test::RelationTexts;
using test::TableNames;
using Texts = std::vector<std::wstring>;

constexpr const wchar_t* kTotals =
    L"SELECT Clientes.Nombre, Sum(Pedidos.Importe) AS Total FROM (Clientes INNER JOIN Pedidos ON "
    L"Clientes.IdCliente = "
    L"Pedidos.IdCliente) GROUP BY Clientes.Nombre ORDER BY Sum(Pedidos.Importe) DESC";

TEST(Analysis, TotalsOverAJoinFillTablesRelationGroupingAndOrder) {
    model::Design design;
    ASSERT_TRUE(AnalyseSQL(kTotals, design).accepted);
    EXPECT_EQ(TableNames(design), Texts({L"Clientes", L"Pedidos"}));
    EXPECT_EQ(RelationTexts(design), Texts({L"Clientes.IdCliente = Pedidos.IdCliente"}));
    EXPECT_EQ(ColumnTexts(design), Texts({L"Clientes.Nombre|Nombre|Clientes|Agrupado por|Si",
                                          L"Sum(Pedidos.Importe)|Total||Expresión|Si|Descendente"}));
    EXPECT_FALSE(design.distinct);
    EXPECT_EQ(compose::BuildSQL(design),
              L"SELECT Clientes.Nombre AS Nombre, Sum(Pedidos.Importe) AS Total \r\n"
              L"FROM (Clientes INNER JOIN Pedidos ON Clientes.IdCliente = Pedidos.IdCliente)  \r\n"
              L"GROUP BY Clientes.Nombre \r\nORDER BY Sum(Pedidos.Importe) DESC;");
}

TEST(Analysis, TextThatDoesNotParseLeavesTheDesignAlone) {
    model::Design design;
    ASSERT_TRUE(AnalyseSQL(kTotals, design).accepted);
    const Texts before = ColumnTexts(design);
    for (const wchar_t* text : {L"SELECT FROM WHERE", L"", L"   ", L"esto no es SQL", L"SELECT a FROM (b"}) {
        const Analysis analysis = AnalyseSQL(text, design);
        EXPECT_FALSE(analysis.parsed);
        EXPECT_FALSE(analysis.accepted);
        ASSERT_TRUE(analysis.error);
        EXPECT_FALSE(analysis.error->message.empty());
        EXPECT_TRUE(analysis.messages.empty());
    }
    EXPECT_EQ(ColumnTexts(design), before);
    EXPECT_EQ(TableNames(design).size(), 2u);
    EXPECT_EQ(RelationTexts(design).size(), 1u);
}

TEST(Analysis, RefusedStatementLeavesTheDesignAlone) {
    model::Design design;
    ASSERT_TRUE(AnalyseSQL(kTotals, design).accepted);
    const Texts before = ColumnTexts(design);
    const Analysis analysis = AnalyseSQL(L"SELECT x FROM otra UNION SELECT y FROM mas", design);
    EXPECT_TRUE(analysis.parsed);
    EXPECT_FALSE(analysis.accepted);
    EXPECT_EQ(ColumnTexts(design), before);
    EXPECT_EQ(TableNames(design), Texts({L"Clientes", L"Pedidos"}));
}

TEST(Analysis, ReasonHasLineAndColumn) {
    model::Design design;
    const Analysis analysis = AnalyseSQL(L"SELECT a\r\nFROM t\r\n  LIMIT 5", design);
    ASSERT_TRUE(analysis.error);
    EXPECT_EQ(analysis.error->line, 3u);
    EXPECT_EQ(analysis.error->column, 3u);
    EXPECT_EQ(analysis.error->range.length, 7u);
    EXPECT_EQ(analysis.error->message, L"El diseño no puede mostrar la cláusula LIMIT.");
}

TEST(TopCounts, FillTablesRelationsColumnsAndDistinctOnly) {
    model::Design design;
    const Analysis analysis = AnalyseSQL(
        L"SELECT DISTINCT TOP 10 A.x, Count(*) AS n FROM A INNER JOIN B ON A.id = B.id WHERE A.y = 1 AND A.y "
        L"= 2 "
        L"GROUP BY A.x HAVING Count(*) > 2 ORDER BY A.x",
        design);
    EXPECT_TRUE(analysis.parsed);
    EXPECT_FALSE(analysis.accepted);
    EXPECT_TRUE(analysis.messages.empty());
    ASSERT_TRUE(analysis.error);
    EXPECT_EQ(analysis.error->column, 17u);
    EXPECT_EQ(analysis.error->range.length, 6u);
    EXPECT_EQ(analysis.error->message, L"El diseño no puede mostrar la cláusula TOP.");
    EXPECT_TRUE(design.distinct);
    EXPECT_EQ(TableNames(design), Texts({L"A", L"B"}));
    EXPECT_EQ(RelationTexts(design), Texts({L"A.id = B.id"}));
    EXPECT_EQ(ColumnTexts(design), Texts({L"A.x|x|A||Si", L"Count(*)|n||Expresión|Si"}));
}

TEST(Tables, TableNamedInAnyLetterCaseStaysAndOthersGo) {
    model::Design design;
    design.diagram.AddTable(L"Clientes", true);
    design.diagram.AddTable(L"Pedidos", true);
    design.diagram.SetTableRect(L"Clientes", {10, 20, 100, 90});
    ASSERT_TRUE(AnalyseSQL(L"SELECT a FROM nueva, CLIENTES", design).accepted);
    EXPECT_EQ(TableNames(design), Texts({L"nueva", L"Clientes"}));
    EXPECT_EQ(design.diagram.FindTable(L"Clientes")->rect, (model::DiagramRect{10, 20, 100, 90}));
}

TEST(Tables, EarlierRelationsColumnsAndDistinctAreGone) {
    model::Design design;
    ASSERT_TRUE(
        AnalyseSQL(L"SELECT DISTINCT A.x, B.y FROM A INNER JOIN B ON A.id = B.id WHERE A.x = 1", design)
            .accepted);
    ASSERT_TRUE(AnalyseSQL(L"SELECT A.z FROM A, B", design).accepted);
    EXPECT_TRUE(RelationTexts(design).empty());
    EXPECT_FALSE(design.distinct);
    EXPECT_EQ(ColumnTexts(design), Texts({L"A.z|z|A||Si"}));
}

TEST(Tables, NamesAreShownAsTheSchemaReportsThem) {
    const schema::Schema schema =
        test::MakeSchema({{L"Clientes", {L"Id", L"Nombre"}}, {L"Pedidos", {L"IdCliente"}}});
    model::Design design;
    design.diagram.Bind(&schema);
    ASSERT_TRUE(
        AnalyseSQL(L"SELECT c.nombre FROM clientes c INNER JOIN PEDIDOS p ON c.id = p.idcliente", design)
            .accepted);
    EXPECT_EQ(TableNames(design), Texts({L"Clientes", L"Pedidos"}));
    EXPECT_EQ(RelationTexts(design), Texts({L"Clientes.Id = Pedidos.IdCliente"}));
    EXPECT_EQ(ColumnTexts(design), Texts({L"Clientes.nombre|nombre|Clientes||Si"}));
    EXPECT_TRUE(design.diagram.FindTable(L"Clientes")->fields[1].checked);
}

TEST(Relations, SidesFollowTheTablesOfTheJoin) {
    model::Design design;
    ASSERT_TRUE(AnalyseSQL(L"SELECT A.x FROM A LEFT JOIN B ON B.y = A.x", design).accepted);
    EXPECT_EQ(RelationTexts(design), Texts({L"A.x => B.y"}));
}

TEST(Relations, SideWithoutTableTakesTheTableOfItsOperand) {
    model::Design design;
    ASSERT_TRUE(AnalyseSQL(L"SELECT A.x FROM A INNER JOIN B ON Id = B.IdA", design).accepted);
    EXPECT_EQ(RelationTexts(design), Texts({L"A.Id = B.IdA"}));
}

TEST(Relations, SideWithoutTableIsLookedUpByItsField) {
    const schema::Schema schema =
        test::MakeSchema({{L"A", {L"IdA"}}, {L"B", {L"IdB", L"IdA2"}}, {L"C", {L"Id", L"Otro"}}});
    model::Design design;
    design.diagram.Bind(&schema);
    ASSERT_TRUE(
        AnalyseSQL(L"SELECT IdB FROM (A INNER JOIN B ON IdA = IdA2) INNER JOIN C ON C.Id = IdB", design)
            .accepted);
    EXPECT_EQ(RelationTexts(design), Texts({L"A.IdA = B.IdA2", L"B.IdB = C.Id"}));
}

TEST(Relations, KindsAreInnerLeftAndRight) {
    model::Design design;
    ASSERT_TRUE(AnalyseSQL(L"SELECT A.x FROM ((A INNER JOIN B ON A.b = B.b) LEFT JOIN C ON A.c = C.c) "
                           L"RIGHT JOIN D ON A.d = D.d",
                           design)
                    .accepted);
    EXPECT_EQ(RelationTexts(design), Texts({L"A.b = B.b", L"A.c => C.c", L"A.d <= D.d"}));
}

TEST(Relations, GroupNestedOnTheRightComesFirstAndItsOuterJoinIsMirrored) {
    model::Design design;
    ASSERT_TRUE(AnalyseSQL(L"SELECT A.x FROM A LEFT JOIN (B INNER JOIN C ON B.y = C.y) ON A.x = B.x", design)
                    .accepted);
    EXPECT_EQ(RelationTexts(design), Texts({L"B.y = C.y", L"B.x <= A.x"}));
}

TEST(Relations, FurtherEqualitiesOfAnInnerJoinBecomeHiddenCriteria) {
    EXPECT_EQ(Columns(L"SELECT A.x FROM A INNER JOIN B ON (A.k = B.k) AND (A.m = B.m)"),
              Texts({L"A.x|x|A||Si", L"A.m|m|A||No||= B.m"}));
}

TEST(Relations, JoinOfTwentyTablesIsOneChain) {
    std::wstring from = L"T0";
    for (int table = 1; table < 20; ++table) {
        const std::wstring name = L"T" + std::to_wstring(table);
        from =
            (table > 1 ? L"(" + from + L")" : from) + L" INNER JOIN " + name + L" ON T0.k = " + name + L".k";
    }
    model::Design design;
    ASSERT_TRUE(AnalyseSQL(L"SELECT T0.a FROM " + from, design).accepted);
    EXPECT_EQ(RelationTexts(design).size(), 19u);
}

TEST(SelectLists, AliasIsTakenAsWritten) {
    EXPECT_EQ(Columns(L"SELECT t.a AS [Un título], t.b AS B, t.c Tercero FROM t"),
              Texts({L"t.a|[Un título]|t||Si", L"t.b|B|t||Si", L"t.c|Tercero|t||Si"}));
}

TEST(SelectLists, OnlyAFieldOfATableGetsATitleOfItsOwn) {
    EXPECT_EQ(Columns(L"SELECT t.a, b, t.c + 1, t.* FROM t"),
              Texts({L"t.a|a|t||Si", L"b||||Si", L"t.c + 1||||Si", L"t.*||t||Si"}));
}

TEST(SelectLists, FieldsOfTheSameNameGetCountedTitles) {
    EXPECT_EQ(Columns(L"SELECT A.n, B.n FROM A, B"), Texts({L"A.n|n|A||Si", L"B.n|n1|B||Si"}));
}

TEST(SelectLists, AddedTitleMustNotCatchAFieldOfTheStatement) {
    model::Design design;
    EXPECT_FALSE(AnalyseSQL(L"SELECT A.n, B.n FROM A, B ORDER BY n1", design).accepted);
}

TEST(SelectLists, TableAliasBecomesTheTableName) {
    EXPECT_EQ(Columns(L"SELECT c.a, 'c.a' & c.[b c] AS x FROM [Mi tabla] AS c WHERE c.d = 'c.d'"),
              Texts({L"[Mi tabla].a|a|[Mi tabla]||Si", L"'c.a' & [Mi tabla].[b c]|x|||Si",
                     L"[Mi tabla].d|d|[Mi tabla]||No||= 'c.d'"}));
}

TEST(SelectLists, AggregateOfASubselectIsNoTotal) {
    EXPECT_EQ(Columns(L"SELECT a, (SELECT Max(b) FROM u) AS m FROM t"),
              Texts({L"a||||Si", L"(SELECT\tMax(b) FROM u)|m|||Si"}));
}

TEST(SelectLists, SixtyColumnsFitAndSixtyOneDoNot) {
    std::wstring list = L"c1";
    for (int column = 2; column <= 60; ++column) list += L", c" + std::to_wstring(column);
    model::Design design;
    EXPECT_TRUE(AnalyseSQL(L"SELECT " + list + L" FROM t", design).accepted);
    const Analysis analysis = AnalyseSQL(L"SELECT " + list + L", c61 FROM t", design);
    EXPECT_FALSE(analysis.accepted);
    ASSERT_TRUE(analysis.error);
    EXPECT_EQ(analysis.error->message, L"El diseño no puede mostrar más de 60 columnas.");
    EXPECT_EQ(ColumnTexts(design).size(), 60u);
    EXPECT_FALSE(AnalyseSQL(L"SELECT " + list + L" FROM t WHERE otra = 1", design).accepted);
}

TEST(SelectLists, TextOver255UnitsDoesNotFit) {
    const std::wstring fits(253, L'x');
    model::Design design;
    EXPECT_TRUE(AnalyseSQL(L"SELECT '" + fits + L"' FROM t", design).accepted);
    const Analysis analysis = AnalyseSQL(L"SELECT a, '" + fits + L"x' FROM t", design);
    EXPECT_FALSE(analysis.accepted);
    ASSERT_TRUE(analysis.error);
    EXPECT_EQ(analysis.error->column, 11u);
    EXPECT_FALSE(AnalyseSQL(L"SELECT a FROM t WHERE a = '" + fits + L"'", design).accepted);
    EXPECT_FALSE(AnalyseSQL(L"SELECT a FROM t WHERE a Like '" + fits + L"'", design).accepted);
    EXPECT_FALSE(AnalyseSQL(L"SELECT a AS [" + fits + L"xx] FROM t", design).accepted);
}

TEST(Grouping, FoundColumnIsGroupedAndAMissingOneIsAddedHidden) {
    EXPECT_EQ(Columns(L"SELECT a, Sum(x) AS s FROM t GROUP BY A, b"),
              Texts({L"a|||Agrupado por|Si", L"Sum(x)|s||Expresión|Si", L"b|||Agrupado por|No"}));
}

TEST(Grouping, ColumnsThatAreNotGroupedAreExpressions) {
    EXPECT_EQ(Columns(L"SELECT a, First(x) AS f, 1 AS uno FROM t GROUP BY a"),
              Texts({L"a|||Agrupado por|Si", L"First(x)|f||Expresión|Si", L"1|uno||Expresión|Si"}));
}

TEST(Grouping, WithoutAggregatesAHiddenCountKeepsTheClause) {
    EXPECT_EQ(Columns(L"SELECT a FROM t GROUP BY a"),
              Texts({L"a|||Agrupado por|Si", L"Count(*)|||Expresión|No"}));
}

TEST(Ordering, MissingKeyIsAddedHidden) {
    EXPECT_EQ(Columns(L"SELECT a, b FROM t ORDER BY c DESC"),
              Texts({L"a||||Si", L"b||||Si", L"c||||No|Descendente"}));
}

TEST(Ordering, FoundKeysAreMarkedOnTheirColumns) {
    EXPECT_EQ(Columns(L"SELECT a, t.b FROM t ORDER BY A, b DESC"),
              Texts({L"a||||Si|Ascendente", L"t.b|b|t||Si|Descendente"}));
}

TEST(Ordering, NumbersAndAliasesMeanTheirColumn) {
    EXPECT_EQ(Columns(L"SELECT a AS x, b FROM t ORDER BY x DESC, 2"),
              Texts({L"a|x|||Si|Descendente", L"b||||Si|Ascendente"}));
}

TEST(Ordering, KeyAgainstTheOrderOfTheColumnsGetsAColumnOfItsOwn) {
    EXPECT_EQ(Columns(L"SELECT a, b FROM t ORDER BY b, a"),
              Texts({L"a||||Si", L"b||||Si|Ascendente", L"(a)||||No|Ascendente"}));
}

TEST(Ordering, AliasThatIsAlsoAFieldIsRefused) {
    const schema::Schema schema = test::MakeSchema({{L"t", {L"a", L"Total"}}});
    model::Design design;
    design.diagram.Bind(&schema);
    EXPECT_FALSE(AnalyseSQL(L"SELECT a + 1 AS Total FROM t ORDER BY Total", design).accepted);
    EXPECT_TRUE(AnalyseSQL(L"SELECT a + 1 AS Suma FROM t ORDER BY Suma", design).accepted);
    EXPECT_TRUE(AnalyseSQL(L"SELECT t.Total AS Total FROM t ORDER BY Total", design).accepted);
}

TEST(Analysis, DeepNestingIsAnswered) {
    constexpr std::size_t kDepth = 450;
    const auto nested = [](const std::wstring& open, const std::wstring& core, const std::wstring& close) {
        std::wstring text;
        for (std::size_t level = 0; level < kDepth; ++level) text += open;
        text += core;
        for (std::size_t level = 0; level < kDepth; ++level) text += close;
        return text;
    };
    const std::wstring conditions[] = {
        nested(L"(", L"a = 1", L")"),           nested(L"NOT ", L"a = 1", L""),
        nested(L"(b = 2 AND ", L"a = 1", L")"), nested(L"(b = 2 OR ", L"a = 1", L")"),
        nested(L"-", L"a", L"") + L" = 1",      nested(L"f(", L"a", L")") + L" = 1"};
    for (const std::wstring& condition : conditions) {
        model::Design design;
        const Analysis analysis = AnalyseSQL(L"SELECT a FROM t WHERE " + condition, design);
        EXPECT_TRUE(analysis.accepted || analysis.error) << ToUtf8(condition.substr(0, 20));
    }
    model::Design design;
    ASSERT_TRUE(AnalyseSQL(L"SELECT a FROM t WHERE " + conditions[0], design).accepted);
    EXPECT_EQ(ColumnTexts(design), Texts({L"a||||Si||= 1"}));
}

TEST(Analysis, MegabyteOfAlternativesIsRefused) {
    std::wstring text = L"SELECT a FROM t WHERE a = 0";
    while (text.size() < 1'000'000) text += L" OR a = 1";
    model::Design design;
    const Analysis analysis = AnalyseSQL(text, design);
    EXPECT_TRUE(analysis.parsed);
    EXPECT_FALSE(analysis.accepted);
    EXPECT_TRUE(analysis.error);
}

TEST(Analysis, MegabyteOfAndsTablesAndColumnsIsRefused) {
    std::wstring conditions = L"SELECT a FROM t WHERE c0 = 0";
    std::wstring tables = L"SELECT a FROM t0";
    std::wstring columns = L"SELECT c0";
    for (int index = 1; conditions.size() < 1'000'000; ++index) {
        const std::wstring number = std::to_wstring(index);
        conditions += L" AND c" + number + L" = 0";
        tables += L", t" + number;
        columns += L", c" + number;
    }
    columns += L" FROM t";
    for (const std::wstring& text : {conditions, tables, columns}) {
        model::Design design;
        const Analysis analysis = AnalyseSQL(text, design);
        EXPECT_TRUE(analysis.parsed);
        EXPECT_FALSE(analysis.accepted);
        EXPECT_TRUE(analysis.error);
        EXPECT_TRUE(design.diagram.Tables().empty());
    }
}

}  // namespace
}  // namespace tessel::analyse
