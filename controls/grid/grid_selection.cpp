// GridState's selected block: from an anchor to the focus, or whole columns.
#include <algorithm>
#include <utility>

#include "controls/grid/grid_state.h"

namespace tessel::controls {

void GridState::CollapseSelection() {
    anchor_row_ = row_;
    anchor_column_ = column_;
    whole_columns_ = false;
}

bool GridState::ExtendTo(model::GridRow row, int column) {
    if (row == row_ && column == column_) return false;
    row_ = row;
    column_ = column;
    layout_.EnsureVisible(row_, column_);
    return true;
}

bool GridState::Extend(GridMove move) {
    if (!CanMove(move)) return false;
    const Target target = TargetOf(move);
    return ExtendTo(model::kGridRows[target.row], layout_.Columns()[target.index].column);
}

void GridState::SelectColumns(int column, bool extend) {
    if (layout_.IndexOf(column) < 0) return;
    column_ = column;
    if (!extend) {
        anchor_row_ = row_;
        anchor_column_ = column;
    }
    whole_columns_ = true;
}

void GridState::SelectAll() {
    if (layout_.Columns().empty()) return;
    anchor_column_ = layout_.Columns().front().column;
    column_ = layout_.Columns().back().column;
    whole_columns_ = true;
}

model::CellRange GridState::Selection() const {
    model::CellRange range;
    if (layout_.Columns().empty()) return range;
    range.top = whole_columns_ ? model::GridRow::Campo : std::min(anchor_row_, row_);
    range.bottom = whole_columns_ ? model::GridRow::Or : std::max(anchor_row_, row_);
    const auto [first, last] =
        std::minmax({layout_.IndexOf(NearestShown(anchor_column_)), layout_.IndexOf(NearestShown(column_))});
    for (int index = first; index <= last; ++index) range.columns.push_back(layout_.Columns()[index].column);
    return range;
}

bool GridState::IsSelected(model::GridRow row, int column) const {
    const int index = layout_.IndexOf(column);
    const int anchor = layout_.IndexOf(NearestShown(anchor_column_));
    const int focus = layout_.IndexOf(NearestShown(column_));
    if (index < 0) return false;
    if (index < std::min(anchor, focus) || index > std::max(anchor, focus)) return false;
    return whole_columns_ || (row >= std::min(anchor_row_, row_) && row <= std::max(anchor_row_, row_));
}

}  // namespace tessel::controls
