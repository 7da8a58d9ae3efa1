// The statement as a whole: the grid read as records, and the clauses put together.
#include "common/text.h"
#include "compose/compose.h"

namespace tessel::compose {

namespace {

using model::GridRow;

std::int16_t OrderCode(const std::wstring& cell) {
    if (SameIgnoringCase(cell, L"ascendente")) return 1;
    if (SameIgnoringCase(cell, L"descendente")) return 2;
    return 0;
}

model::ColInfo ReadColumn(const model::DesignGrid& grid, int index) {
    model::ColInfo column;
    column.Expresion = grid.Cell(GridRow::Campo, index);
    column.Alias = grid.Cell(GridRow::Titulo, index);
    column.Table = grid.Cell(GridRow::Tabla, index);
    column.GroupBy = grid.Cell(GridRow::Agrupacion, index);
    // Only the exact word hides a column: "no" keeps it (StatementTexts.OnlyTheExactWordNoHidesAColumn).
    column.Visible = grid.Cell(GridRow::Visible, index) != L"No";
    column.OrderBy = OrderCode(grid.Cell(GridRow::Orden, index));
    for (const GridRow row : {GridRow::Condicion, GridRow::Or}) {
        const std::wstring& criterion = grid.Cell(row, index);
        if (!TrimView(criterion).empty()) column.Conditions.push_back(criterion);
    }
    return column;
}

std::wstring SelectList(const Columns& columns) {
    std::wstring list;
    bool first = true;
    for (const model::ColInfo& column : columns) {
        if (!column.Visible) continue;
        if (!first) list += L", ";
        list += SelectItem(column);
        first = false;
    }
    return list;
}

void AppendClause(std::wstring& statement, std::wstring_view keyword, const std::wstring& text) {
    if (TrimView(text).empty()) return;
    statement += L" \r\n";
    statement += keyword;
    statement += text;
}

}  // namespace

Columns ReadDesignColumns(const model::DesignGrid& grid) {
    Columns columns;
    for (int index = 0; index < grid.ColumnCount(); ++index) {
        if (TrimView(grid.Cell(GridRow::Campo, index)).empty()) continue;
        columns.push_back(ReadColumn(grid, index));
    }
    return columns;
}

std::wstring BuildSQL(const model::Design& design) {
    const Columns columns = ReadDesignColumns(design.grid);
    const std::wstring list = SelectList(columns);
    if (TrimView(list).empty()) return {};
    const model::Diagram& diagram = design.diagram;
    const std::wstring from = diagram.Relations().empty() ? TableList(diagram) : JoinClause(diagram);
    if (TrimView(from).empty()) return {};

    std::wstring statement = L"SELECT ";
    // The check box says DISTINCT, the keyword is the engine's row-wise one
    // (StatementTexts.DistinctIsWrittenAsDistinctRow).
    if (design.distinct) statement += L"DISTINCTROW ";
    statement += list;
    AppendClause(statement, L"FROM ", from);
    AppendClause(statement, L"WHERE ", WhereClause(columns));
    AppendClause(statement, L"GROUP BY ", GroupByClause(columns));
    AppendClause(statement, L"HAVING ", HavingClause(columns));
    AppendClause(statement, L"ORDER BY ", OrderByClause(columns));
    statement += L';';
    return statement;
}

}  // namespace tessel::compose
