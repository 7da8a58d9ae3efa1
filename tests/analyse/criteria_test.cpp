// WHERE and HAVING as criteria cells.
#include <gtest/gtest.h>

#include "analyse/refusal.h"
#include "common/text.h"
#include "compose/compose.h"
#include "tests/analyse/support.h"

namespace tessel::analyse {
namespace {

using test::Columns;
using test::Messages;
using test::Texts;

const Texts kWhereMessage = {L"La cláusula Where es demasiado compleja para poder ser representada"};
const Texts kHavingMessage = {L"La cláusula Having es demasiado compleja para poder ser representada"};

TEST(Criteria, ComparisonIsOperatorBlankAndValueAsWritten) {
    EXPECT_EQ(Columns(L"SELECT Pais FROM t WHERE Pais='Chile'"), Texts({L"Pais||||Si||= 'Chile'"}));
    EXPECT_EQ(Columns(L"SELECT a FROM t WHERE t.Precio>=( 3*2 )"),
              Texts({L"a||||Si", L"t.Precio|Precio|t||No||>= ( 3*2 )"}));
}

TEST(Criteria, ColumnsAddedForThemAreHidden) {
    EXPECT_EQ(Columns(L"SELECT a FROM t WHERE b <> 3 AND c < d"),
              Texts({L"a||||Si", L"b||||No||<> 3", L"c||||No||< d"}));
}

TEST(Criteria, ConstantOnTheLeftIsMirrored) {
    EXPECT_EQ(Columns(L"SELECT a FROM t WHERE 5 < a"), Texts({L"a||||Si||> 5"}));
    EXPECT_EQ(Columns(L"SELECT a FROM t WHERE @x >= a"), Texts({L"a||||Si||<= @x"}));
}

TEST(Criteria, NotBeforeAComparisonIsTheOppositeOperator) {
    EXPECT_EQ(Columns(L"SELECT a FROM t WHERE NOT a = 1"), Texts({L"a||||Si||<> 1"}));
    EXPECT_EQ(Columns(L"SELECT a FROM t WHERE NOT (a < 1)"), Texts({L"a||||Si||>= 1"}));
    EXPECT_EQ(Columns(L"SELECT a FROM t WHERE NOT 1 < a"), Texts({L"a||||Si||<= 1"}));
}

TEST(Criteria, PredicateWithoutOperatorIsShownWhole) {
    EXPECT_EQ(Columns(L"SELECT Clientes.Nombre FROM Clientes WHERE Clientes.Nombre Like 'A*'"),
              Texts({L"Clientes.Nombre|Nombre|Clientes||Si", L"(Clientes.Nombre Like 'A*')||||No||=True"}));
    EXPECT_EQ(
        Columns(L"SELECT a FROM t WHERE b Between 1 And 5 AND c In (1,2) AND d Is Null AND Not e Like 'x'"),
        Texts({L"a||||Si", L"(b Between 1 And 5)||||No||=True", L"(c In (1,2))||||No||=True",
               L"(d Is Null)||||No||=True", L"(Not e Like 'x')||||No||=True"}));
}

TEST(Criteria, ComparisonOfASubselectStaysAComparison) {
    EXPECT_EQ(Columns(L"SELECT a FROM t WHERE a > (SELECT Avg(a) FROM t)"),
              Texts({L"a||||Si||> (SELECT Avg(a) FROM t)"}));
}

TEST(Criteria, BooleanFieldEqualsTrueAndAnyOtherValueIsNotFalse) {
    const schema::Schema schema = test::MakeSchema({{L"t", {L"Activo:11", L"Nivel:3"}}});
    EXPECT_EQ(Columns(L"SELECT Nivel FROM t WHERE Activo", &schema),
              Texts({L"Nivel||||Si", L"Activo||||No||=True"}));
    EXPECT_EQ(Columns(L"SELECT Nivel FROM t WHERE Nivel", &schema), Texts({L"Nivel||||Si||<> False"}));
    EXPECT_EQ(Columns(L"SELECT a FROM t WHERE b"), Texts({L"a||||Si", L"b||||No||<> False"}));
}

TEST(Criteria, TwoAlternativesOfOneColumnAreItsTwoCells) {
    EXPECT_EQ(Columns(L"SELECT a FROM t WHERE a = 1 OR a = 2"), Texts({L"a||||Si||= 1|= 2"}));
    EXPECT_EQ(Columns(L"SELECT a FROM t WHERE (((t.a)=1)) OR (((t.a)=3))"), Texts({L"a||||Si||= 1|= 3"}));
}

TEST(Criteria, ParenthesesAroundTheWholeClauseAreNoGroup) {
    EXPECT_EQ(Columns(L"SELECT a FROM t WHERE (a = 1 OR a = 2)"), Texts({L"a||||Si||= 1|= 2"}));
    EXPECT_EQ(Columns(L"SELECT a FROM t WHERE ((a = 1) AND (b = 2))"),
              Texts({L"a||||Si||= 1", L"b||||No||= 2"}));
}

TEST(Criteria, OrBelowAndDoesNotFitAndTheCellsStayEmpty) {
    Texts columns;
    EXPECT_EQ(Messages(L"SELECT a FROM t WHERE (a = 1 OR b = 2) AND c = 3", &columns), kWhereMessage);
    EXPECT_EQ(columns, Texts({L"a||||Si"}));
    EXPECT_EQ(Messages(L"SELECT a FROM t WHERE (a = 1 OR a = 2) AND c = 3", &columns), kWhereMessage);
    EXPECT_EQ(columns, Texts({L"a||||Si"}));
    EXPECT_EQ(Messages(L"SELECT a FROM t WHERE NOT (a = 1 OR b = 2)"), kWhereMessage);
}

TEST(Criteria, TwoComparisonsOfOneColumnWithAndDoNotFit) {
    EXPECT_EQ(Messages(L"SELECT a FROM t WHERE a >= 1 AND a <= 5"), kWhereMessage);
    EXPECT_EQ(Messages(L"SELECT a FROM t WHERE t.a >= 1 AND (b = 2 AND (A) <= 5)"), kWhereMessage);
    EXPECT_EQ(Messages(L"SELECT a FROM t WHERE [a] > 1 AND 5 > a"), kWhereMessage);
    EXPECT_EQ(Messages(L"SELECT a FROM t WHERE NOT (a > 1 AND a < 5)"), kWhereMessage);
}

TEST(Criteria, OtherConnectivesAtTheTopDoNotFit) {
    for (const wchar_t* connective : {L"XOR", L"EQV", L"IMP"}) {
        const std::wstring text = std::wstring(L"SELECT a FROM t WHERE a = 1 ") + connective + L" b = 2";
        EXPECT_EQ(Messages(text.c_str()), kWhereMessage) << ToUtf8(text);
    }
}

TEST(Criteria, OtherAlternativesAreShownWhole) {
    EXPECT_EQ(Columns(L"SELECT a FROM t WHERE a = 1 OR b = 2"),
              Texts({L"a||||Si", L"(a = 1 OR b = 2)||||No||=True"}));
    EXPECT_EQ(Columns(L"SELECT a FROM t WHERE a = 1 OR a = 2 OR a = 3"),
              Texts({L"a||||Si", L"(a = 1 OR a = 2 OR a = 3)||||No||=True"}));
    EXPECT_EQ(Columns(L"SELECT a FROM t WHERE (((t.a)=1) AND ((t.b)=2)) OR (((t.a)=3))"),
              Texts({L"a||||Si", L"((((t.a)=1) AND ((t.b)=2)) OR (((t.a)=3)))||||No||=True"}));
    EXPECT_EQ(Columns(L"SELECT a FROM t GROUP BY a HAVING Sum(b) > 1 OR Count(*) > 2"),
              Texts({L"a|||Agrupado por|Si", L"(Sum(b) > 1 OR Count(*) > 2)|||Expresión|No||=True"}));
}

TEST(Criteria, AlternativesWithAGroupThatDoesNotFitDoNotFitEither) {
    EXPECT_EQ(Messages(L"SELECT a FROM t WHERE a = 1 OR (b = 2 AND (c = 3 OR d = 4))"), kWhereMessage);
    EXPECT_EQ(Messages(L"SELECT a FROM t WHERE (a >= 1 AND a <= 5) OR b = 2"), kWhereMessage);
    EXPECT_EQ(Messages(L"SELECT a FROM t WHERE a = 1 OR NOT (b = 2 OR c = 3)"), kWhereMessage);
}

TEST(Criteria, AlternativesLongerThanTheCellsOfAColumnAreRefused) {
    std::wstring text = L"SELECT a FROM t WHERE b = 1";
    while (text.size() < 22 + 3 * 255) text += L" OR b = 1";
    model::Design design;
    const Analysis analysis = AnalyseSQL(text, design);
    EXPECT_FALSE(analysis.accepted);
    ASSERT_TRUE(analysis.error);
    EXPECT_EQ(analysis.error->range.offset, 22u);
    EXPECT_EQ(ToUtf8(analysis.error->message), ToUtf8(messages::kCellTooLong));
}

TEST(Criteria, ATotalInWhereOrInAJoinIsRefusedAtItsPlace) {
    const wchar_t* const statements[] = {
        L"SELECT a, Sum(b) AS s FROM t WHERE Count(*) > 1 GROUP BY a",
        L"SELECT a, Sum(b)/Count(*) AS m FROM t WHERE (((t.c/Count(*))>10))",
        L"SELECT a FROM t WHERE a = 1 AND Count(*) Between 1 And 2",
        L"SELECT A.x FROM A INNER JOIN B ON A.k2 = Count(*) AND A.k0 = B.k1 WHERE B.y > 5",
    };
    for (const std::wstring text : statements) {
        model::Design design;
        const Analysis analysis = AnalyseSQL(text, design);
        EXPECT_FALSE(analysis.accepted) << ToUtf8(text);
        ASSERT_TRUE(analysis.error) << ToUtf8(text);
        EXPECT_EQ(analysis.error->range, (TextRange{text.rfind(L"Count(*)"), 8})) << ToUtf8(text);
        EXPECT_EQ(ToUtf8(analysis.error->message), ToUtf8(messages::kAggregateInWhere));
    }
}

// For an engine that reads a number from a text, 'abc' is false and differs from False.
TEST(Criteria, ATextIsNoBareCondition) {
    const schema::Schema schema = test::MakeSchema({{L"t", {L"texto", L"numero:3", L"otro:0"}}});
    const std::pair<std::wstring_view, bool> conditions[] = {
        {L"'abc'", false},
        {L"+'abc'", false},
        {L"texto", false},
        {L"texto & 'a'", false},
        {L"Left(otro, 1)", false},
        {L"(SELECT 1)", false},
        {L"IIf(otro = 1, 'a', 2)", false},
        {L"numero", true},
        {L"otro", true},
        {L"numero + 1", true},
        {L"-texto", true},
        {L"InStr(texto, 'a')", true},
        {L"IIf(texto = 'a', 1, 2)", true},
        {L"texto <> False", true},
    };
    for (const auto& [condition, accepted] : conditions) {
        model::Design design;
        design.diagram.Bind(&schema);
        const std::wstring text = L"SELECT numero FROM t WHERE " + std::wstring(condition);
        EXPECT_EQ(AnalyseSQL(text, design).accepted, accepted) << ToUtf8(text);
    }
}

TEST(Criteria, ATotalInASubSelectOfWhereIsNoTotalInWhere) {
    model::Design design;
    EXPECT_TRUE(AnalyseSQL(L"SELECT t.a FROM t WHERE t.a > (SELECT Max(u.b) FROM u)", design).accepted);
}

TEST(Criteria, BothClausesGiveOneMessageThatOfHaving) {
    EXPECT_EQ(Messages(L"SELECT a FROM t GROUP BY a HAVING Count(*) > 1 AND Count(*) < 5"), kHavingMessage);
    EXPECT_EQ(
        Messages(L"SELECT a FROM t WHERE b = 1 XOR c = 2 GROUP BY a HAVING Count(*) > 1 AND Count(*) < 5"),
        kHavingMessage);
    EXPECT_EQ(Messages(L"SELECT a FROM t WHERE b = 1 XOR c = 2 GROUP BY a HAVING Count(*) > 1"),
              kWhereMessage);
}

TEST(Criteria, HavingGoesToTheColumnOfItsAggregate) {
    EXPECT_EQ(
        Columns(L"SELECT a, Sum(b) AS s FROM t GROUP BY a HAVING Sum(b) > 10 AND 3 < Max(c)"),
        Texts({L"a|||Agrupado por|Si", L"Sum(b)|s||Expresión|Si||> 10", L"Max(c)|||Expresión|No||> 3"}));
}

TEST(Criteria, AggregateInsideParenthesesIsMadeVisible) {
    EXPECT_EQ(Columns(L"SELECT a FROM t GROUP BY a HAVING Count(*) Between 2 And 5"),
              Texts({L"a|||Agrupado por|Si", L"( Count(*) Between 2 And 5)|||Expresión|No||=True"}));
}

TEST(Criteria, FilterOnAGroupedColumnIsItsCriterion) {
    EXPECT_EQ(Columns(L"SELECT a, Count(*) AS n FROM t WHERE a = 1 GROUP BY a"),
              Texts({L"a|||Agrupado por|Si||= 1", L"Count(*)|n||Expresión|Si"}));
}

TEST(Criteria, HavingOnTheKeysOfTheGroupsIsACriterionOfTheirColumns) {
    EXPECT_EQ(Columns(L"SELECT a, Sum(b) AS s FROM t GROUP BY a HAVING (((a)=\"x\") AND ((Sum(b))>5))"),
              Texts({L"a|||Agrupado por|Si||= \"x\"", L"Sum(b)|s||Expresión|Si||> 5"}));
    EXPECT_EQ(Columns(L"SELECT Count(*) AS n FROM t GROUP BY a HAVING a = 1 OR a = 2"),
              Texts({L"Count(*)|n||Expresión|Si", L"a|||Agrupado por|No||= 1|= 2"}));
    EXPECT_EQ(Columns(L"SELECT a, Sum(b) AS s FROM t WHERE a > 1 GROUP BY a HAVING a < 9"),
              Texts({L"a|||Agrupado por|Si||> 1", L"Sum(b)|s||Expresión|Si", L"(a < 9)||||No||=True"}));
}

TEST(Criteria, AlternativesBesideHavingOnKeysAreShownWhole) {
    EXPECT_EQ(
        Columns(L"SELECT a FROM t WHERE (a = 1 OR a = 2) GROUP BY a HAVING a > 1"),
        Texts({L"a|||Agrupado por|Si||> 1", L"(a = 1 OR a = 2)||||No||=True", L"Count(*)|||Expresión|No"}));
}

TEST(Criteria, HavingOnKeysBesideAWhereThatDoesNotFitKeepsItsCriterion) {
    Texts columns;
    EXPECT_EQ(Messages(L"SELECT a FROM t WHERE b = 1 XOR c = 2 GROUP BY a HAVING a = 1", &columns),
              kWhereMessage);
    EXPECT_EQ(columns, Texts({L"a|||Agrupado por|Si||= 1", L"Count(*)|||Expresión|No"}));
}

TEST(Criteria, FilterOfOneTotalRowHidesTheAggregateFromComposition) {
    EXPECT_EQ(Columns(L"SELECT Sum(x) AS s FROM t WHERE y = 1"),
              Texts({L"(Sum(x))|s|||Si", L"y||||No||= 1"}));
    EXPECT_EQ(Columns(L"SELECT Max(x) / Min(x) AS s FROM t WHERE y Is Null"),
              Texts({L"(Max(x) /\tMin(x))|s|||Si", L"(y Is Null)||||No||=True"}));
    EXPECT_EQ(Columns(L"SELECT Count(*) AS n FROM A INNER JOIN B ON A.x = B.x AND A.y = B.y"),
              Texts({L"(Count(*))|n|||Si", L"A.y|y|A||No||= B.y"}));
    EXPECT_EQ(Columns(L"SELECT Sum(x) AS s FROM t"), Texts({L"Sum(x)|s||Expresión|Si"}));
}

TEST(Criteria, FilterOnAColumnThatIsNotGroupedIsShownWhole) {
    EXPECT_EQ(Columns(L"SELECT a, Count(*) AS n FROM t WHERE b = 1 AND c GROUP BY a"),
              Texts({L"a|||Agrupado por|Si", L"Count(*)|n||Expresión|Si", L"(b = 1)||||No||=True",
                     L"(c <> False)||||No||=True"}));
}

/// Alternatives of two conditions each, over a hundred characters long.
std::wstring LongAlternatives(int count) {
    std::wstring text;
    for (int number = 1; number <= count; ++number) {
        const std::wstring digit = std::to_wstring(number);
        if (number > 1) text += L" OR ";
        text += L"(((t.[Fecha de entrega prevista " + digit + L"]) > #2020-01-0" + digit +
                L"#) AND ((t.[Estado " + digit + L"]) = 'Pendiente de la entrega " + digit + L"'))";
    }
    return text;
}

TEST(Criteria, AlternativesTooLongForACellFollowTheCriteriaOfTheFirst) {
    for (const int count : {3, 4, 5}) {
        const std::wstring statement = L"SELECT t.a FROM t WHERE " + LongAlternatives(count);
        model::Design design;
        const Analysis analysis = AnalyseSQL(statement, design);
        ASSERT_TRUE(analysis.accepted) << count;
        EXPECT_TRUE(analysis.messages.empty());
        EXPECT_TRUE(
            design.grid.Cell(model::GridRow::Campo, 1).starts_with(L"(((t.[Fecha de entrega prevista 1])"));
        EXPECT_TRUE(design.grid.Cell(model::GridRow::Condicion, 1).starts_with(L"=True OR ("));
        EXPECT_EQ(design.grid.Cell(model::GridRow::Or, 1).empty(), count == 3);
        // The same design again, cell for cell.
        model::Design again;
        ASSERT_TRUE(AnalyseSQL(compose::BuildSQL(design), again).accepted);
        EXPECT_EQ(test::ColumnTexts(again), test::ColumnTexts(design));
    }
    model::Design design;
    EXPECT_FALSE(AnalyseSQL(L"SELECT t.a FROM t WHERE " + LongAlternatives(6), design).accepted);
}

TEST(Criteria, AlternativesTooLongForACellAreRefusedWhereGroupsWouldBeSplit) {
    model::Design design;
    const std::wstring totals =
        L"SELECT t.a, Count(*) FROM t WHERE " + LongAlternatives(3) + L" GROUP BY t.a";
    EXPECT_FALSE(AnalyseSQL(totals, design).accepted);
    const std::wstring beside = L"SELECT t.a FROM t INNER JOIN u ON t.x = u.x AND t.y = u.y WHERE ";
    EXPECT_FALSE(AnalyseSQL(beside + LongAlternatives(3), design).accepted);
}

}  // namespace
}  // namespace tessel::analyse
