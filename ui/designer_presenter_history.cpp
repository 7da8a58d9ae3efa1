// Undo and redo of the design, and what a change of tab means to them.
//
// The design and the text are never both in force. On the SQL tab the text is, and undoing there is the
// editor's. A text that comes back as the designer wrote it goes on with the history; only when the analysis
// left something out, cells without a field for instance, is that a step of its own. A text that the user
// changed starts a new history: otherwise undoing would bring back a design that the text had replaced.
#include "model/pick_lists.h"
#include "ui/designer_presenter.h"

namespace tessel::ui {

void DesignerPresenter::StepDone() {
    if (gestures_ == 0 && IsDesignShown()) history_.Record(design_);
}

void DesignerPresenter::Undo() {
    if (IsDesignShown() && gestures_ == 0) ShowRestored(history_.Undo(design_));
}

void DesignerPresenter::Redo() {
    if (IsDesignShown() && gestures_ == 0) ShowRestored(history_.Redo(design_));
}

void DesignerPresenter::DesignAnalysed(bool text_is_ours) {
    if (text_is_ours) {
        history_.RecordReadBack(design_);
    } else {
        history_.Start(design_);
    }
}

void DesignerPresenter::ShowRestored(const model::DesignHistory::Outcome& outcome) {
    if (!outcome.done) return;
    view_.ShowDistinct(design_.distinct);
    // The focus goes where something changed, so that the user sees it.
    if (outcome.cell && design_.grid.IsColumnShown(outcome.cell->column)) {
        GridFocusMoved(outcome.cell->row, outcome.cell->column);
    }
    RefillFieldLists();
}

}  // namespace tessel::ui
