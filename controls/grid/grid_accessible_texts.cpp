#include "controls/grid/grid_accessible_texts.h"

#include "common/text.h"

namespace tessel::controls {

using model::GridRow;

std::wstring GridName() {
    return L"Columnas de la consulta";
}

std::wstring HeadersName() {
    return L"Encabezados";
}

std::wstring RowName(GridRow row) {
    std::wstring name(model::RowCaption(row));
    if (!name.empty() && name.back() == L':') name.pop_back();
    return name;
}

std::wstring HeaderName(const model::DesignGrid& grid, int column) {
    std::wstring name = L"Columna " + std::to_wstring(column + 1);
    if (!grid.Caption(column).empty()) name += L", " + grid.Caption(column);
    return name;
}

std::wstring CellName(const model::DesignGrid& grid, GridRow row, int column) {
    std::wstring name = RowName(row) + L", columna " + std::to_wstring(column + 1);
    if (row != GridRow::Campo && grid.IsColumnUsed(column))
        name += L", " + std::wstring(Trim(grid.Cell(GridRow::Campo, column)));
    return name;
}

}  // namespace tessel::controls
