// GridState's column being moved by its header: from the press on, past the threshold, to the place between
// two columns where it would be put in.
#include <algorithm>
#include <cstdlib>

#include "controls/grid/grid_state.h"

namespace tessel::controls {

void GridState::BeginMove(int column, int x) {
    moved_column_ = column;
    grabbed_at_ = x;
    drop_slot_ = -1;
}

bool GridState::MoveColumnTo(int x, int threshold) {
    if (moved_column_ < 0) return false;
    if (!IsMoving() && std::abs(x - grabbed_at_) < threshold) return false;
    const int inside = x - layout_.Metrics().captions_width + layout_.ScrollX();
    int slot = 0;
    int left = 0;
    for (const GridColumnExtent& extent : layout_.Columns()) {
        if (inside < left + extent.width / 2) break;
        left += extent.width;
        ++slot;
    }
    if (slot == drop_slot_) return false;
    drop_slot_ = slot;
    return true;
}

int GridState::DropTarget() const {
    const int index = layout_.IndexOf(moved_column_);
    if (!IsMoving() || index < 0 || drop_slot_ == index || drop_slot_ == index + 1) return -1;
    const int place = drop_slot_ < index ? drop_slot_ : drop_slot_ - 1;
    return layout_.Columns()[place].column;
}

int GridState::DropMarkX() const {
    const int origin = layout_.Metrics().captions_width - layout_.ScrollX();
    int x = origin;
    for (int index = 0; index < drop_slot_; ++index) x += layout_.Columns()[index].width;
    return x;
}

int GridState::NeighbourOf(int column, bool right) const {
    const int index = layout_.IndexOf(column);
    const int other = index + (right ? 1 : -1);
    if (index < 0 || other < 0 || other >= static_cast<int>(layout_.Columns().size())) return -1;
    return layout_.Columns()[other].column;
}

}  // namespace tessel::controls
