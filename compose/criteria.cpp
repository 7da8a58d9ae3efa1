// WHERE and HAVING: the criteria of one column are alternatives, the groups of different columns hold
// together.
#include "common/text.h"
#include "compose/column_view.h"
#include "compose/compose.h"

namespace tessel::compose {

namespace {

constexpr std::wstring_view kOperatorCharacters = L"><!=";

// Only the four operator characters are recognised as the start of a comparison, so words such as Like, and a
// leading blank, get " = " in front (CriterionTexts.WordsAndLeadingBlanksGetAnEqualsSign).
std::wstring_view Separator(std::wstring_view criterion) {
    const bool has_operator = kOperatorCharacters.find(criterion.front()) != std::wstring_view::npos;
    return has_operator ? L" " : L" = ";
}

bool FiltersRows(const ColumnView& column) {
    const std::wstring_view grouping = TrimView(column.GroupBy);
    return grouping.empty() || SameIgnoringCase(grouping, L"agrupado por");
}

void AppendCriterion(const ColumnView& column, std::wstring_view criterion, std::wstring& text) {
    if (criterion.empty()) return;
    AppendExpression(column, text);
    text += Separator(criterion);
    text += criterion;
}

template <class Qualifies>
void AppendCriteria(const ColumnViews& columns, Qualifies qualifies, std::wstring& text) {
    const std::size_t begin = text.size();
    for (const ColumnView& column : columns) {
        if (column.Conditions.empty() || !qualifies(column)) continue;
        const std::size_t before = text.size();
        text += before == begin ? L"(" : L" AND (";
        const std::size_t group = text.size();
        for (const std::wstring& criterion : column.Conditions) {
            if (text.size() > group) text += L" OR ";
            AppendCriterion(column, criterion, text);
        }
        if (TrimView(std::wstring_view(text).substr(group)).empty()) {
            text.resize(before);
        } else {
            text += L')';
        }
    }
}

}  // namespace

std::wstring CriterionText(const std::wstring& expression, const std::wstring& criterion) {
    if (criterion.empty()) return {};
    std::wstring text = expression;
    text += Separator(criterion);
    text += criterion;
    return text;
}

// A column whose "Campo:" is itself an aggregate and whose "Agrupación:" is empty filters in both clauses
// (Criteria.AggregateFieldWithoutGroupingFiltersRowsAndGroups).
void AppendWhere(const ColumnViews& columns, std::wstring& text) {
    AppendCriteria(columns, FiltersRows, text);
}

void AppendHaving(const ColumnViews& columns, std::wstring& text) {
    AppendCriteria(columns, IsAggregated, text);
}

}  // namespace tessel::compose
