#include "controls/splitter/splitter_state.h"

#include <algorithm>
#include <cmath>

namespace tessel::controls {

void SplitterState::SetMetrics(int bar, int first_minimum, int second_minimum) {
    bar_ = std::max(0, bar);
    first_minimum_ = std::max(0, first_minimum);
    second_minimum_ = std::max(0, second_minimum);
    SetLength(length_);
}

void SplitterState::SetLength(int length) {
    length_ = std::max(0, length);
    if (Available() == 0) {
        position_ = 0;
        return;
    }
    if (wanted_ >= 0) {
        MoveTo(wanted_);
        wanted_ = -1;
        return;
    }
    // The proportion is not read back from the clamped position: a window made small and large again returns
    // to where the user had put the bar.
    position_ = Clamped(static_cast<int>(std::lround(fraction_ * Available())));
}

void SplitterState::SetPosition(int position) {
    if (Available() == 0) {
        wanted_ = std::max(0, position);
        return;
    }
    MoveTo(position);
}

int SplitterState::SecondSize() const {
    return std::max(0, Available() - position_);
}

void SplitterState::BeginDrag(int pointer) {
    dragging_ = true;
    drag_offset_ = pointer - position_;
    position_before_drag_ = position_;
    fraction_before_drag_ = fraction_;
}

bool SplitterState::DragTo(int pointer) {
    return dragging_ && MoveTo(pointer - drag_offset_);
}

void SplitterState::CancelDrag() {
    if (!dragging_) return;
    dragging_ = false;
    position_ = position_before_drag_;
    fraction_ = fraction_before_drag_;
}

bool SplitterState::MoveBy(int delta) {
    return MoveTo(position_ + delta);
}
bool SplitterState::MoveToStart() {
    return MoveTo(0);
}
bool SplitterState::MoveToEnd() {
    return MoveTo(Available());
}

int SplitterState::Clamped(int position) const {
    const int available = Available();
    const int minimums = first_minimum_ + second_minimum_;
    if (minimums > available) {
        // Too little room for both: each gets its share.
        return static_cast<int>(std::lround(static_cast<double>(available) * first_minimum_ / minimums));
    }
    return std::clamp(position, first_minimum_, available - second_minimum_);
}

bool SplitterState::MoveTo(int position) {
    const int available = Available();
    if (available == 0) return false;
    const int clamped = Clamped(position);
    if (clamped == position_) return false;
    position_ = clamped;
    fraction_ = static_cast<double>(clamped) / available;
    return true;
}

}  // namespace tessel::controls
