#include <gtest/gtest.h>

#include "compose/compose.h"

namespace tessel::compose {
namespace {

model::ColInfo Col(const wchar_t* expression, const wchar_t* group_by = L"", std::int16_t order_by = 0) {
    model::ColInfo column;
    column.Expresion = expression;
    column.GroupBy = group_by;
    column.OrderBy = order_by;
    return column;
}

TEST(ColumnExpressions, GroupingWordsWrapTheExpressionInTheirCall) {
    EXPECT_EQ(ColumnExpression(Col(L"x", L"Suma")), L"Sum(x)");
    EXPECT_EQ(ColumnExpression(Col(L"x", L"Promedio")), L"Avg(x)");
    EXPECT_EQ(ColumnExpression(Col(L"x", L"Mínimo")), L"Min(x)");
    EXPECT_EQ(ColumnExpression(Col(L"x", L"Máximo")), L"Max(x)");
    EXPECT_EQ(ColumnExpression(Col(L"x", L"Cuenta")), L"count(x)");
}

TEST(ColumnExpressions, OtherWordsLeaveTheExpressionAlone) {
    for (const wchar_t* word : {L"", L"Agrupado por", L"Expresión", L"Minimo", L"Sum"}) {
        EXPECT_EQ(ColumnExpression(Col(L" x ", word)), L" x ") << word;
    }
}

TEST(ColumnExpressions, GroupingWordIgnoresLetterCaseAccentsIncluded) {
    EXPECT_EQ(ColumnExpression(Col(L"x", L"SUMA")), L"Sum(x)");
    EXPECT_EQ(ColumnExpression(Col(L"x", L"MÍNIMO")), L"Min(x)");
}

TEST(ColumnExpressions, GroupingWordWithALeadingBlankIsNotRecognised) {
    EXPECT_EQ(ColumnExpression(Col(L"x", L" Suma")), L"x");
}

TEST(ColumnExpressions, ExpressionIsInsertedUntrimmed) {
    EXPECT_EQ(ColumnExpression(Col(L" a + b ", L"Suma")), L"Sum( a + b )");
    EXPECT_EQ(ColumnExpression(Col(L"*", L"Cuenta")), L"count(*)");
}

TEST(SelectItems, AliasFollowsUnquotedAndUntrimmed) {
    model::ColInfo column = Col(L"Pedidos.Importe", L"Suma");
    column.Alias = L"Total";
    EXPECT_EQ(SelectItem(column), L"Sum(Pedidos.Importe) AS Total");
    column.Alias = L" Mi total ";
    EXPECT_EQ(SelectItem(column), L"Sum(Pedidos.Importe) AS  Mi total ");
}

TEST(SelectItems, BlankAliasGivesTheExpressionAlone) {
    model::ColInfo column = Col(L"a.b");
    EXPECT_EQ(SelectItem(column), L"a.b");
    column.Alias = L"   ";
    EXPECT_EQ(SelectItem(column), L"a.b");
}

TEST(Grouping, AgrupadoPorAloneIsNoTotalsQuery) {
    const Columns columns = {Col(L"a", L"Agrupado por"), Col(L"b", L"Agrupado por")};
    EXPECT_FALSE(IsTotalsQuery(columns));
    EXPECT_EQ(GroupByClause(columns), L"");
}

TEST(Grouping, OneExpressionColumnMakesATotalsQueryAndIsNotGrouped) {
    const Columns columns = {Col(L"a"), Col(L"b", L"Expresión"), Col(L"c", L"Agrupado por")};
    EXPECT_TRUE(IsTotalsQuery(columns));
    EXPECT_EQ(GroupByClause(columns), L"a, c");
}

TEST(Grouping, AnAggregateInTheFieldItselfCounts) {
    const Columns columns = {Col(L"a"), Col(L"Sum(b)")};
    EXPECT_TRUE(IsTotalsQuery(columns));
    EXPECT_EQ(GroupByClause(columns), L"a");
}

TEST(Grouping, AllColumnsAggregatedGivesNoList) {
    const Columns columns = {Col(L"a", L"Suma"), Col(L"b", L"Cuenta")};
    EXPECT_TRUE(IsTotalsQuery(columns));
    EXPECT_EQ(GroupByClause(columns), L"");
}

TEST(Grouping, HiddenAndUngroupedColumnsAreGroupedInATotalsQuery) {
    Columns columns = {Col(L"a"), Col(L"b", L"Suma"), Col(L"c", L"Agrupado por")};
    columns[2].Visible = false;
    columns[0].Alias = L"Titulo";
    EXPECT_EQ(GroupByClause(columns), L"a, c");
}

TEST(Ordering, KeysFollowTheColumnsAndUseTheExpression) {
    Columns columns = {Col(L"a", L"", 1), Col(L"b"), Col(L"x", L"Suma", 2)};
    columns[2].Alias = L"Total";
    columns[0].Visible = false;
    EXPECT_EQ(OrderByClause(columns), L"a, Sum(x) DESC");
}

TEST(Ordering, OtherCodesAndBlankItemsGiveNoKey) {
    EXPECT_EQ(OrderByClause({Col(L"a", L"", 3), Col(L"b", L"", -1)}), L"");
    EXPECT_EQ(OrderByClause({Col(L"  ", L"", 1)}), L"");
}

TEST(DescendingSuffix, BlankDescIsRecognisedInAnyLetterCase) {
    std::wstring item = L"  x DESC ";
    EXPECT_TRUE(IsDescending(item));
    EXPECT_EQ(item, L"x DESC") << "the caller's item is trimmed";
    EXPECT_EQ(StripDescending(item), L"x");
    item = L"Sum(x)  dEsC";
    EXPECT_EQ(StripDescending(item), L"Sum(x)");
}

TEST(DescendingSuffix, OtherEndingsAreNotDescending) {
    for (const wchar_t* text : {L"xDESC", L"desc", L" desc", L"x\tdesc", L"x ASC", L"", L"x DESC;"}) {
        std::wstring item = text;
        EXPECT_FALSE(IsDescending(item)) << text;
        std::wstring again = text;
        EXPECT_EQ(StripDescending(again), item) << text;
    }
}

TEST(DescendingSuffix, ParenthesisBeforeDescIsLost) {
    std::wstring item = L"Sum(x)desc";
    EXPECT_TRUE(IsDescending(item));
    EXPECT_EQ(StripDescending(item), L"Sum(x");
}

}  // namespace
}  // namespace tessel::compose
