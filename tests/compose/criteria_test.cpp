#include <gtest/gtest.h>

#include "compose/compose.h"

namespace tessel::compose {
namespace {

model::ColInfo Col(const wchar_t* expression, std::vector<std::wstring> conditions,
                   const wchar_t* group_by = L"") {
    model::ColInfo column;
    column.Expresion = expression;
    column.GroupBy = group_by;
    column.Conditions = std::move(conditions);
    return column;
}

TEST(CriterionTexts, BareValueGetsAnEqualsSign) {
    EXPECT_EQ(CriterionText(L"Clientes.Pais", L"'Chile'"), L"Clientes.Pais = 'Chile'");
}

TEST(CriterionTexts, OperatorCharacterSuppressesIt) {
    EXPECT_EQ(CriterionText(L"Sum(Pedidos.Importe)", L">1000"), L"Sum(Pedidos.Importe) >1000");
    EXPECT_EQ(CriterionText(L"Precio", L"<>0"), L"Precio <>0");
    EXPECT_EQ(CriterionText(L"x", L"!=3"), L"x !=3");
    EXPECT_EQ(CriterionText(L"x", L"=3"), L"x =3");
}

TEST(CriterionTexts, WordsAndLeadingBlanksGetAnEqualsSign) {
    EXPECT_EQ(CriterionText(L"Precio", L"Between 1 And 5"), L"Precio = Between 1 And 5");
    EXPECT_EQ(CriterionText(L"Nombre", L"Like 'A*'"), L"Nombre = Like 'A*'");
    EXPECT_EQ(CriterionText(L"x", L" >3"), L"x =  >3");
}

TEST(CriterionTexts, EmptyCriterionGivesNothing) {
    EXPECT_EQ(CriterionText(L"x", L""), L"");
}

TEST(Criteria, CriteriaOfAColumnAreAlternativesAndColumnsHoldTogether) {
    EXPECT_EQ(WhereClause({Col(L"A", {L"1", L"2"}), Col(L"B", {L">5"})}), L"(A = 1 OR A = 2) AND (B >5)");
    EXPECT_EQ(WhereClause({Col(L"B", {L">5"})}), L"(B >5)");
    EXPECT_EQ(WhereClause({Col(L"x", {L"1", L"2"})}), L"(x = 1 OR x = 2)");
    EXPECT_EQ(WhereClause({Col(L"x", {L"1"}), Col(L"y", {L"2"})}), L"(x = 1) AND (y = 2)");
}

TEST(Criteria, GroupingWordQualifiesForWhereInAnyCaseAndWithBlanks) {
    EXPECT_EQ(WhereClause({Col(L"x", {L"1"}, L"  Agrupado Por ")}), L"(x = 1)");
    EXPECT_EQ(WhereClause({Col(L"x", {L"1"}, L"   ")}), L"(x = 1)");
}

TEST(Criteria, AggregatedColumnFiltersGroupsOnly) {
    const Columns columns = {Col(L"x", {L">1"}, L"Suma")};
    EXPECT_EQ(WhereClause(columns), L"");
    EXPECT_EQ(HavingClause(columns), L"(Sum(x) >1)");
}

TEST(Criteria, ExpressionColumnFiltersNothingUnlessItHoldsAnAggregate) {
    EXPECT_EQ(WhereClause({Col(L"x", {L"1"}, L"Expresión")}), L"");
    EXPECT_EQ(HavingClause({Col(L"x", {L"1"}, L"Expresión")}), L"");
    EXPECT_EQ(WhereClause({Col(L"Sum(x) / 2", {L"1"}, L"Expresión")}), L"");
    EXPECT_EQ(HavingClause({Col(L"Sum(x) / 2", {L"1"}, L"Expresión")}), L"(Sum(x) / 2 = 1)");
}

TEST(Criteria, AggregateFieldWithoutGroupingFiltersRowsAndGroups) {
    const Columns columns = {Col(L"Sum(Importe)", {L">5"})};
    EXPECT_EQ(WhereClause(columns), L"(Sum(Importe) >5)");
    EXPECT_EQ(HavingClause(columns), L"(Sum(Importe) >5)");
}

TEST(Criteria, NoQualifyingColumnGivesNothing) {
    EXPECT_EQ(WhereClause({}), L"");
    EXPECT_EQ(WhereClause({Col(L"x", {})}), L"");
    EXPECT_EQ(HavingClause({Col(L"x", {L"1"})}), L"");
}

}  // namespace
}  // namespace tessel::compose
