// One column's share of the statement: its expression, its select item, its entries of GROUP BY and ORDER BY.
#include <array>

#include "common/mdl_global.h"
#include "common/text.h"
#include "compose/column_view.h"
#include "compose/compose.h"

namespace tessel::compose {

namespace {

using namespace std::string_view_literals;

constexpr std::wstring_view kGroupExpression = L"expresión";
constexpr std::int16_t kAscending = 1;
constexpr std::int16_t kDescending = 2;
constexpr std::size_t kDescLength = 5;  // " DESC", or ")desc"

struct AggregateCall {
    std::wstring_view word;  // "Agrupación:" in lower case
    std::wstring_view call;
};

// The mixture of capitals and lower case is relied upon by hosts that search the text.
constexpr std::array<AggregateCall, 5> kAggregateCalls = {{{L"suma", L"Sum("},
                                                           {L"promedio", L"Avg("},
                                                           {L"mínimo", L"Min("},
                                                           {L"máximo", L"Max("},
                                                           {L"cuenta", L"count("}}};

// The grouping word is compared untrimmed: " Suma" is no aggregate
// (ColumnExpressions.GroupingWordWithALeadingBlankIsNotRecognised).
const AggregateCall* CallOf(const ColumnView& column) {
    for (const AggregateCall& aggregate : kAggregateCalls) {
        if (column.GroupBy.size() != aggregate.word.size()) continue;
        if (SameIgnoringCase(column.GroupBy, aggregate.word)) return &aggregate;
    }
    return nullptr;
}

bool IsExpressionGroup(const ColumnView& column) {
    return column.GroupBy.size() == kGroupExpression.size() &&
           SameIgnoringCase(column.GroupBy, kGroupExpression);
}

/// Appends ", " unless nothing stands behind `begin`.
void Separate(std::wstring& text, std::size_t begin) {
    if (text.size() > begin) text += L", "sv;
}

}  // namespace

/// A call of ours is always one, whatever it is called with.
bool IsAggregated(const ColumnView& column) {
    return CallOf(column) || IsAggregate(column.Expresion);
}

bool IsTotalsQuery(const ColumnViews& columns) {
    for (const ColumnView& column : columns) {
        if (IsExpressionGroup(column) || IsAggregated(column)) return true;
    }
    return false;
}

void AppendExpression(const ColumnView& column, std::wstring& text) {
    const AggregateCall* aggregate = CallOf(column);
    if (aggregate) text += aggregate->call;
    text += column.Expresion;
    if (aggregate) text += L')';
}

void AppendSelectItem(const ColumnView& column, std::wstring& text) {
    AppendExpression(column, text);
    if (TrimView(column.Alias).empty()) return;
    text += L" AS "sv;
    text += column.Alias;
}

void AppendSelectList(const ColumnViews& columns, std::wstring& text) {
    bool first = true;
    for (const ColumnView& column : columns) {
        if (!column.Visible) continue;
        if (!first) text += L", "sv;
        AppendSelectItem(column, text);
        first = false;
    }
}

// Every column that is not aggregated is grouped, hidden ones and those with an empty "Agrupación:" included
// (Grouping.HiddenAndUngroupedColumnsAreGroupedInATotalsQuery).
void AppendGroupBy(const ColumnViews& columns, std::wstring& text) {
    const std::size_t begin = text.size();
    bool totals = false;
    for (const ColumnView& column : columns) {
        if (IsExpressionGroup(column) || IsAggregated(column)) {
            totals = true;
            continue;
        }
        Separate(text, begin);
        text += column.Expresion;
    }
    if (!totals) text.resize(begin);
}

void AppendOrderBy(const ColumnViews& columns, std::wstring& text) {
    const std::size_t begin = text.size();
    for (const ColumnView& column : columns) {
        if (column.OrderBy != kAscending && column.OrderBy != kDescending) continue;
        const std::size_t before = text.size();
        Separate(text, begin);
        const std::size_t item = text.size();
        AppendExpression(column, text);
        if (column.OrderBy == kDescending) text += L" DESC";
        if (TrimView(std::wstring_view(text).substr(item)).empty()) text.resize(before);
    }
}

bool IsDescending(std::wstring& item) {
    item = Trim(item);
    if (item.size() <= kDescLength) return false;
    const std::wstring_view end = std::wstring_view(item).substr(item.size() - kDescLength);
    return SameIgnoringCase(end, L" desc") || SameIgnoringCase(end, L")desc");
}

// Five characters go, also when the first of them is a closing parenthesis: "Sum(x)desc" gives "Sum(x"
// (DescendingSuffix.ParenthesisBeforeDescIsLost).
std::wstring StripDescending(std::wstring& item) {
    if (!IsDescending(item)) return item;
    return Trim(std::wstring_view(item).substr(0, item.size() - kDescLength));
}

}  // namespace tessel::compose
