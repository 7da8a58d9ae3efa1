// What is dropped on the designer: tables and fields from the schema browser or the diagram.
#include "model/field_placing.h"
#include "ui/designer_gesture.h"
#include "ui/designer_presenter.h"

namespace tessel::ui {

void DesignerPresenter::TableDropped(std::wstring_view table) {
    if (!IsDesignShown()) return;
    TableChosen(table);
}

// A field brings its table along, related as a table that the user adds.
void DesignerPresenter::FieldDropped(std::wstring_view table, std::wstring_view field, int column) {
    if (!IsDesignShown()) return;
    const Gesture gesture(*this);
    if (!design_.diagram.FindTable(table)) TableChosen(table);
    const model::DiagramTable* shown = design_.diagram.FindTable(table);
    if (!shown) return;
    const std::wstring name = shown->name + L'.' + std::wstring(field);
    const int placed = model::PlaceField(design_, name, column);
    if (placed >= 0) GridFocusMoved(model::GridRow::Campo, placed);
}

}  // namespace tessel::ui
