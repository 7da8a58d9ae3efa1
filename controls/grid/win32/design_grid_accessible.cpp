// The design grid's side of its description for assistive programs: what they ask for, and what they are
// told.
#include "controls/grid/grid_accessible_texts.h"
#include "controls/grid/win32/design_grid_view.h"

namespace tessel::controls {

using model::GridRow;

bool DesignGridView::IsListShownOn(GridRow row, int column) const {
    return editor_.IsOpen() && edited_row_ == row && edited_column_ == column && editor_.IsListShown();
}

void DesignGridView::GoToCell(GridRow row, int column, bool extend) {
    if (!CommitEdit()) return;
    extend ? ExtendTo(row, column) : GoTo(row, column);
}

void DesignGridView::GoToColumn(int column) {
    SelectColumns(column, false);
}

void DesignGridView::EditCell(GridRow row, int column) {
    BeginEdit(row, column);
}

void DesignGridView::WriteCell(GridRow row, int column, const std::wstring& text) {
    if (!grid_ || !events_ || !CommitEdit()) return;
    GoTo(row, column);
    events_->OnGridCellCommitted(row, column, text);
}

void DesignGridView::Announce() {
    if (!IsCreated()) return;
    Announced now;
    now.cell = tree_.Focused();
    for (const GridColumnExtent& extent : state_.Layout().Columns()) now.columns.push_back(extent.column);
    if (now.cell != kAccessibleSelf) {
        now.name = CellName(*grid_, state_.FocusedRow(), state_.FocusedColumn());
        now.value = FocusedText();
        now.checked = state_.FocusedRow() == GridRow::Visible &&
                      GridAccessible::IsChecked(*grid_, state_.FocusedColumn());
        now.selection = state_.Selection();
    }
    const Announced before = std::exchange(announced_, now);
    if (now.columns != before.columns) accessible_.Report(EVENT_OBJECT_REORDER);
    if (now.cell == before.cell && now.cell != kAccessibleSelf) {
        if (now.name != before.name) accessible_.Report(EVENT_OBJECT_NAMECHANGE, now.cell);
        if (now.value != before.value) accessible_.Report(EVENT_OBJECT_VALUECHANGE, now.cell);
        if (now.checked != before.checked) accessible_.Report(EVENT_OBJECT_STATECHANGE, now.cell);
    }
    accessible_.ReportFocus();
    if (now.selection == before.selection || GetFocus() != Handle()) return;
    if (state_.HasBlock())
        accessible_.Report(EVENT_OBJECT_SELECTIONWITHIN);
    else
        accessible_.Report(EVENT_OBJECT_SELECTION, now.cell);
}

}  // namespace tessel::controls
