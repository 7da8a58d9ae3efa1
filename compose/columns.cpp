// One column's share of the statement: its expression, its select item, its entries of GROUP BY and ORDER BY.
#include <array>

#include "common/mdl_global.h"
#include "common/text.h"
#include "compose/compose.h"

namespace tessel::compose {

namespace {

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
const AggregateCall* CallOf(const model::ColInfo& column) {
    for (const AggregateCall& aggregate : kAggregateCalls) {
        if (column.GroupBy.size() != aggregate.word.size()) continue;
        if (SameIgnoringCase(column.GroupBy, aggregate.word)) return &aggregate;
    }
    return nullptr;
}

/// IsAggregate of the column's expression, without writing it out: a call of ours is always one.
bool IsAggregated(const model::ColInfo& column) {
    return CallOf(column) || IsAggregate(column.Expresion);
}

bool IsExpressionGroup(const model::ColInfo& column) {
    return column.GroupBy.size() == kGroupExpression.size() &&
           SameIgnoringCase(column.GroupBy, kGroupExpression);
}

void AppendToList(std::wstring& list, std::wstring_view item) {
    if (!list.empty()) list += L", ";
    list += item;
}

}  // namespace

std::wstring ColumnExpression(const model::ColInfo& column) {
    const AggregateCall* aggregate = CallOf(column);
    if (!aggregate) return column.Expresion;
    std::wstring text;
    text.reserve(aggregate->call.size() + column.Expresion.size() + 1);
    text += aggregate->call;
    text += column.Expresion;
    text += L')';
    return text;
}

std::wstring SelectItem(const model::ColInfo& column) {
    std::wstring item = ColumnExpression(column);
    if (TrimView(column.Alias).empty()) return item;
    item += L" AS ";
    item += column.Alias;
    return item;
}

bool IsTotalsQuery(const Columns& columns) {
    for (const model::ColInfo& column : columns) {
        if (IsExpressionGroup(column) || IsAggregated(column)) return true;
    }
    return false;
}

// Every column that is not aggregated is grouped, hidden ones and those with an empty "Agrupación:" included
// (Grouping.HiddenAndUngroupedColumnsAreGroupedInATotalsQuery).
std::wstring GroupByClause(const Columns& columns) {
    std::wstring list;
    bool totals = false;
    for (const model::ColInfo& column : columns) {
        if (IsExpressionGroup(column) || IsAggregated(column)) {
            totals = true;
            continue;
        }
        AppendToList(list, column.Expresion);
    }
    return totals ? list : std::wstring();
}

std::wstring OrderByClause(const Columns& columns) {
    std::wstring list;
    for (const model::ColInfo& column : columns) {
        if (column.OrderBy != kAscending && column.OrderBy != kDescending) continue;
        std::wstring item = ColumnExpression(column);
        if (column.OrderBy == kDescending) item += L" DESC";
        if (!TrimView(item).empty()) AppendToList(list, item);
    }
    return list;
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
