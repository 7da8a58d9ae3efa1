// The statement as a whole: the grid read as records, and the clauses put together.
#include "common/text.h"
#include "compose/column_view.h"
#include "compose/compose.h"

namespace tessel::compose {

namespace {

using model::GridRow;
using namespace std::string_view_literals;

// Only the exact word hides a column: "no" keeps it (StatementTexts.OnlyTheExactWordNoHidesAColumn).
constexpr std::wstring_view kHidden = L"No";

// Most statements fit.
constexpr std::size_t kUsualLength = 1024;

std::int16_t OrderCode(std::wstring_view cell) {
    if (cell.empty()) return 0;
    if (SameIgnoringCase(cell, L"ascendente"sv)) return 1;
    if (SameIgnoringCase(cell, L"descendente"sv)) return 2;
    return 0;
}

model::ColInfo ReadColumn(const model::DesignGrid& grid, int index) {
    model::ColInfo column;
    column.Expresion = grid.Cell(GridRow::Campo, index);
    column.Alias = grid.Cell(GridRow::Titulo, index);
    column.Table = grid.Cell(GridRow::Tabla, index);
    column.GroupBy = grid.Cell(GridRow::Agrupacion, index);
    column.Visible = grid.Cell(GridRow::Visible, index) != kHidden;
    column.OrderBy = OrderCode(grid.Cell(GridRow::Orden, index));
    for (const GridRow row : {GridRow::Condicion, GridRow::Or}) {
        const std::wstring& criterion = grid.Cell(row, index);
        if (!TrimView(criterion).empty()) column.Conditions.push_back(criterion);
    }
    return column;
}

bool IsBlank(std::wstring_view text) {
    return text.empty() || TrimView(text).empty();
}

/// The criteria cells that are not blank: they stand side by side.
std::span<const std::wstring> Conditions(const model::DesignGrid::Column& column) {
    std::span<const std::wstring> cells(column.cells);
    cells = cells.subspan(static_cast<std::size_t>(GridRow::Condicion) - 1);
    if (IsBlank(cells.back())) cells = cells.first(cells.size() - 1);
    if (!cells.empty() && IsBlank(cells.front())) cells = cells.subspan(1);
    return cells;
}

ColumnView ViewOf(const model::DesignGrid::Column& column) {
    const auto cell = [&](GridRow row) -> const std::wstring& {
        return column.cells[static_cast<std::size_t>(row) - 1];
    };
    ColumnView view;
    view.Expresion = cell(GridRow::Campo);
    view.Alias = cell(GridRow::Titulo);
    view.GroupBy = cell(GridRow::Agrupacion);
    view.Visible = cell(GridRow::Visible) != kHidden;
    view.OrderBy = OrderCode(cell(GridRow::Orden));
    view.Conditions = Conditions(column);
    return view;
}

/// Appends a clause with what `append` adds to it, or nothing when that is blank.
template <class Append>
void AppendClause(std::wstring& statement, std::wstring_view keyword, Append append) {
    const std::size_t before = statement.size();
    statement += L" \r\n"sv;
    statement += keyword;
    const std::size_t begin = statement.size();
    append(statement);
    if (TrimView(std::wstring_view(statement).substr(begin)).empty()) statement.resize(before);
}

}  // namespace

ColumnView ViewOf(const model::ColInfo& column) {
    return {column.Expresion, column.Alias,   column.GroupBy,
            column.Visible,   column.OrderBy, column.Conditions};
}

ColumnViews ViewsOf(const Columns& columns) {
    ColumnViews views;
    for (const model::ColInfo& column : columns) views.push_back(ViewOf(column));
    return views;
}

ColumnViews ViewsOf(const model::DesignGrid& grid) {
    ColumnViews views;
    views.reserve(static_cast<std::size_t>(grid.UsedEnd()));
    for (const model::DesignGrid::Column& column :
         std::span(grid.Columns()).first(static_cast<std::size_t>(grid.UsedEnd()))) {
        if (!IsBlank(column.cells.front())) views.push_back(ViewOf(column));
    }
    return views;
}

Columns ReadDesignColumns(const model::DesignGrid& grid) {
    Columns columns;
    for (int index = 0; index < grid.UsedEnd(); ++index) {
        if (grid.IsColumnUsed(index)) columns.push_back(ReadColumn(grid, index));
    }
    return columns;
}

std::wstring BuildSQL(const model::Design& design) {
    std::wstring statement;
    BuildSQL(design, statement);
    return statement;
}

void BuildSQL(const model::Design& design, std::wstring& statement) {
    const ColumnViews columns = ViewsOf(design.grid);
    statement.clear();
    statement.reserve(kUsualLength);
    statement = L"SELECT ";
    // The check box says DISTINCT, the keyword is the engine's row-wise one
    // (StatementTexts.DistinctIsWrittenAsDistinctRow).
    if (design.distinct) statement += L"DISTINCTROW ";
    const std::size_t list = statement.size();
    AppendSelectList(columns, statement);
    if (TrimView(std::wstring_view(statement).substr(list)).empty()) return statement.clear();
    statement += L" \r\nFROM "sv;
    const std::size_t from = statement.size();
    AppendFrom(design.diagram, statement);
    if (TrimView(std::wstring_view(statement).substr(from)).empty()) return statement.clear();

    const auto append = [&](auto builder) {
        return [&columns, builder](std::wstring& text) { builder(columns, text); };
    };
    AppendClause(statement, L"WHERE ", append(AppendWhere));
    AppendClause(statement, L"GROUP BY ", append(AppendGroupBy));
    AppendClause(statement, L"HAVING ", append(AppendHaving));
    AppendClause(statement, L"ORDER BY ", append(AppendOrderBy));
    statement += L';';
}

// The same for records
// ------------------------------------------------------------------------------------------------------------

std::wstring ColumnExpression(const model::ColInfo& column) {
    std::wstring text;
    AppendExpression(ViewOf(column), text);
    return text;
}

std::wstring SelectItem(const model::ColInfo& column) {
    std::wstring text;
    AppendSelectItem(ViewOf(column), text);
    return text;
}

bool IsTotalsQuery(const Columns& columns) {
    return IsTotalsQuery(ViewsOf(columns));
}

std::wstring GroupByClause(const Columns& columns) {
    std::wstring text;
    AppendGroupBy(ViewsOf(columns), text);
    return text;
}

std::wstring OrderByClause(const Columns& columns) {
    std::wstring text;
    AppendOrderBy(ViewsOf(columns), text);
    return text;
}

std::wstring WhereClause(const Columns& columns) {
    std::wstring text;
    AppendWhere(ViewsOf(columns), text);
    return text;
}

std::wstring HavingClause(const Columns& columns) {
    std::wstring text;
    AppendHaving(ViewsOf(columns), text);
    return text;
}

}  // namespace tessel::compose
