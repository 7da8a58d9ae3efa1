// The gestures on the design grid beyond a single cell: columns moved and put in, blocks emptied and pasted.
#include "model/block_editing.h"
#include "ui/designer_gesture.h"
#include "ui/designer_presenter.h"
#include "ui/grid_messages.h"

namespace tessel::ui {

void DesignerPresenter::GridColumnMoved(int from, int to) {
    const Gesture gesture(*this);
    if (!design_.grid.MoveColumn(from, to)) return;
    GridFocusMoved(design_.grid.FocusedRow(), to);
}

void DesignerPresenter::GridCellsEmptied(const model::CellRange& range) {
    const Gesture gesture(*this);
    model::EmptyCells(design_, range);
}

bool DesignerPresenter::GridCellsPasted(const model::CellRange& range, const model::CellBlock& block) {
    const Gesture gesture(*this);
    switch (model::PasteCells(design_, range, block)) {
        case model::PasteProblem::None:
            return true;
        case model::PasteProblem::CellTooLong:
            view_.ShowMessage(messages::kPasteTooLong);
            return false;
        case model::PasteProblem::TooFewColumns:
            view_.ShowMessage(messages::kPasteTooWide);
            return false;
        case model::PasteProblem::TooFewRows:
            view_.ShowMessage(messages::kPasteTooHigh);
            return false;
    }
    return false;
}

void DesignerPresenter::InsertColumn() {
    const Gesture gesture(*this);
    const int column = model::InsertColumn(design_, design_.grid.FocusedColumn());
    if (column < 0) {
        view_.ShowMessage(messages::kNoColumnFree);
        return;
    }
    GridFocusMoved(model::GridRow::Campo, column);
}

bool DesignerPresenter::CanRemoveFocusedColumn() const {
    const int column = design_.grid.FocusedColumn();
    return column >= 0 && column < design_.grid.ColumnCount() && !design_.grid.IsColumnEmpty(column);
}

bool DesignerPresenter::CanClearDesign() const {
    for (int column = 0; column < design_.grid.ColumnCount(); ++column) {
        if (!design_.grid.IsColumnEmpty(column)) return true;
    }
    return false;
}

}  // namespace tessel::ui
