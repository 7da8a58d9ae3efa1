#include "controls/splitter/splitter_accessible.h"

namespace tessel::controls {

AccessibleElement SplitterAccessible::Describe(AccessibleId) const {
    AccessibleElement element;
    element.name = name_;
    element.role = AccessibleRole::Separator;
    element.states = accessible_state::kFocusable;
    return element;
}

std::wstring SplitterAccessible::ValueOf(AccessibleId) const {
    const int room = state_.Length() - state_.Bar();
    if (room <= 0) return {};
    return std::to_wstring((state_.Position() * 100 + room / 2) / room) + L" %";
}

}  // namespace tessel::controls
