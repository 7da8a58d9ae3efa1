// A column of the design as composition reads it: texts that stay where they are, in the grid or in a record.
// Each builder appends its part of the statement to a text, so that a statement is written once, in place.
// compose.h offers the same for records, each part as a text of its own.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "model/design_grid.h"
#include "model/diagram.h"
#include "model/records.h"

namespace tessel::compose {

/// The members are those of model::ColInfo.
struct ColumnView {
    std::wstring_view Expresion;
    std::wstring_view Alias;
    std::wstring_view GroupBy;
    bool Visible = true;
    std::int16_t OrderBy = 0;
    std::span<const std::wstring> Conditions;
};
using ColumnViews = std::vector<ColumnView>;

[[nodiscard]] ColumnView ViewOf(const model::ColInfo& column);
[[nodiscard]] ColumnViews ViewsOf(const std::vector<model::ColInfo>& columns);
/// The columns whose "Campo:" is not blank.
[[nodiscard]] ColumnViews ViewsOf(const model::DesignGrid& grid);

/// True for an aggregate, be it by "Agrupación:" or in "Campo:" itself.
[[nodiscard]] bool IsAggregated(const ColumnView& column);
[[nodiscard]] bool IsTotalsQuery(const ColumnViews& columns);

void AppendExpression(const ColumnView& column, std::wstring& text);
void AppendSelectItem(const ColumnView& column, std::wstring& text);
void AppendSelectList(const ColumnViews& columns, std::wstring& text);
void AppendWhere(const ColumnViews& columns, std::wstring& text);
void AppendGroupBy(const ColumnViews& columns, std::wstring& text);
void AppendHaving(const ColumnViews& columns, std::wstring& text);
void AppendOrderBy(const ColumnViews& columns, std::wstring& text);

/// The tables and joins of FROM (joins.cpp).
void AppendFrom(const model::Diagram& diagram, std::wstring& text);

}  // namespace tessel::compose
