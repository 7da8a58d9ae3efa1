#include "model/pick_lists.h"

#include <string_view>

namespace tessel::model {

namespace {

bool IsOffered(const DiagramTable& table) {
    return table.kind == schema::ObjectKind::Table || table.kind == schema::ObjectKind::View;
}

std::vector<std::wstring> FieldItems(const Diagram& diagram) {
    std::vector<std::wstring> items;
    for (const DiagramTable& table : diagram.Tables()) {
        if (!IsOffered(table)) continue;
        items.push_back(table.name + L".*");
        for (const DiagramField& field : table.fields) items.push_back(table.name + L'.' + field.name);
    }
    return items;
}

std::vector<std::wstring> TableItems(const Diagram& diagram) {
    std::vector<std::wstring> items;
    for (const DiagramTable& table : diagram.Tables()) {
        if (IsOffered(table)) items.push_back(table.name);
    }
    return items;
}

}  // namespace

void RefillPickLists(Design& design, GridRow row, const std::vector<std::wstring>& parameter_names) {
    switch (row) {
        case GridRow::Campo:
            return design.grid.SetPickLists(FieldItems(design.diagram));
        case GridRow::Titulo:
            return design.grid.SetPickLists({});
        case GridRow::Tabla:
            return design.grid.SetPickLists(TableItems(design.diagram));
        case GridRow::Agrupacion:
            return design.grid.SetPickLists(GroupingWords());
        case GridRow::Visible:
            return design.grid.SetPickLists(VisibleWords());
        case GridRow::Orden:
            return design.grid.SetPickLists(OrderWords());
        case GridRow::Condicion:
        case GridRow::Or:
            break;
    }
    if (parameter_names.empty()) return;
    std::vector<std::wstring> items;
    for (const std::wstring& name : parameter_names) items.push_back(L'@' + name);
    design.grid.SetPickLists(items);
}

void FocusMoved(Design& design, GridRow row, int column, const std::vector<std::wstring>& parameter_names) {
    const bool row_changed = row != design.grid.FocusedRow();
    design.grid.SetFocus(row, column);
    if (row_changed) RefillPickLists(design, row, parameter_names);
}

}  // namespace tessel::model
