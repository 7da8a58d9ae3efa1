// The table diagram's side of its description for assistive programs: what they ask for, and what they are
// told.
#include <algorithm>
#include <utility>

#include "controls/diagram/win32/diagram_view.h"

namespace tessel::controls {

void DiagramView::CheckField(const std::wstring& table, const std::wstring& field, bool checked) {
    FieldChecked(table, field, checked);
}

void DiagramView::OpenRelation(int key) {
    RelationActivated(key);
}

AccessiblePlace DiagramView::HintPlace() const {
    const diagram::Size client = state_.View().Client();
    const int height = painter_.HintHeight(state_.RelatingHint(), client.width);
    return {0, std::max(0, client.height - height), client.width, client.height};
}

void DiagramView::Announce() {
    Announced now;
    now.focused = tree_.Focused();
    now.children = tree_.ChildrenOf(kAccessibleSelf);
    now.hint = state_.RelatingHint();
    if (now.focused != kAccessibleSelf) now.states = tree_.Describe(now.focused).states;
    if (!now.hint.empty()) now.children.pop_back();
    const Announced before = std::exchange(announced_, now);
    if (now.children != before.children) accessible_.Report(EVENT_OBJECT_REORDER);
    accessible_.ReportFocus();
    if (now.focused == before.focused && now.states != before.states)
        accessible_.Report(EVENT_OBJECT_STATECHANGE, now.focused);
    if (now.focused != before.focused && now.focused != kAccessibleSelf && GetFocus() == Handle())
        accessible_.Report(EVENT_OBJECT_SELECTION, now.focused);
    if (now.hint == before.hint) return;
    const AccessibleId hint = diagram::DiagramAccessible::kHintId;
    if (now.hint.empty()) return accessible_.Report(EVENT_OBJECT_HIDE, hint);
    accessible_.Report(before.hint.empty() ? EVENT_OBJECT_SHOW : EVENT_OBJECT_NAMECHANGE, hint);
    accessible_.Report(EVENT_SYSTEM_ALERT, hint);
}

}  // namespace tessel::controls
