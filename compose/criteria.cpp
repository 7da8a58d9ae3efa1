// WHERE and HAVING: the criteria of one column are alternatives, the groups of different columns hold
// together.
#include "common/mdl_global.h"
#include "common/text.h"
#include "compose/compose.h"

namespace tessel::compose {

namespace {

constexpr std::wstring_view kOperatorCharacters = L"><!=";

bool FiltersRows(const model::ColInfo& column, const std::wstring&) {
    const std::wstring_view grouping = TrimView(column.GroupBy);
    return grouping.empty() || SameIgnoringCase(grouping, L"agrupado por");
}

bool FiltersGroups(const model::ColInfo&, const std::wstring& expression) {
    return IsAggregate(expression);
}

template <class Qualifies>
std::wstring CriteriaClause(const Columns& columns, Qualifies qualifies) {
    std::wstring clause;
    for (const model::ColInfo& column : columns) {
        if (column.Conditions.empty()) continue;
        const std::wstring expression = ColumnExpression(column);
        if (!qualifies(column, expression)) continue;
        std::wstring group;
        for (const std::wstring& criterion : column.Conditions) {
            if (!group.empty()) group += L" OR ";
            group += CriterionText(expression, criterion);
        }
        if (TrimView(group).empty()) continue;
        clause += clause.empty() ? L"(" : L" AND (";
        clause += group;
        clause += L')';
    }
    return clause;
}

}  // namespace

// Only the four operator characters are recognised as the start of a comparison, so words such as Like, and a
// leading blank, get " = " in front (CriterionTexts.WordsAndLeadingBlanksGetAnEqualsSign).
std::wstring CriterionText(const std::wstring& expression, const std::wstring& criterion) {
    if (criterion.empty()) return {};
    const bool has_operator = kOperatorCharacters.find(criterion.front()) != std::wstring_view::npos;
    const std::wstring_view separator = has_operator ? L" " : L" = ";
    std::wstring text;
    text.reserve(expression.size() + separator.size() + criterion.size());
    text += expression;
    text += separator;
    text += criterion;
    return text;
}

// A column whose "Campo:" is itself an aggregate and whose "Agrupación:" is empty filters in both clauses
// (Criteria.AggregateFieldWithoutGroupingFiltersRowsAndGroups).
std::wstring WhereClause(const Columns& columns) {
    return CriteriaClause(columns, FiltersRows);
}

std::wstring HavingClause(const Columns& columns) {
    return CriteriaClause(columns, FiltersGroups);
}

}  // namespace tessel::compose
