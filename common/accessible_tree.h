// What a control of our own tells assistive programs: the elements that it draws, each with a name, a role, a
// value and a state, and how they lie in one another.
//
// Portable, so that names, numbers and order of the elements are tested without a window. A control describes
// itself by deriving from AccessibleTree; common/win32/accessible_window.h shows that description to the
// system. What belongs to the window and not to an element (whether it has the keyboard, is enabled, is
// visible) is added there.
//
// An element has a number for as long as the control lives: 0 is the control itself, the others are negative,
// because positive numbers count the children of a parent. A number whose element is gone is not given to
// another.
#pragma once

#include <string>
#include <vector>

namespace tessel {

using AccessibleId = int;
inline constexpr AccessibleId kAccessibleSelf = 0;

/// The numbers are those of the system's roles.
enum class AccessibleRole : int {
    Alert = 0x08,
    Separator = 0x15,
    Table = 0x18,
    ColumnHeader = 0x19,
    RowHeader = 0x1A,
    Row = 0x1C,
    Cell = 0x1D,
    Link = 0x1E,
    List = 0x21,
    Graphic = 0x28,
    StaticText = 0x29,
    Text = 0x2A,
    CheckButton = 0x2C,
    Diagram = 0x35,
};

/// States that an element has of itself, to be added up. The numbers are the system's.
namespace accessible_state {
inline constexpr unsigned kSelected = 0x2;
inline constexpr unsigned kChecked = 0x10;
inline constexpr unsigned kReadOnly = 0x40;
inline constexpr unsigned kExpanded = 0x200;
inline constexpr unsigned kCollapsed = 0x400;
inline constexpr unsigned kInvisible = 0x8000;
inline constexpr unsigned kOffscreen = 0x10000;
inline constexpr unsigned kFocusable = 0x100000;
inline constexpr unsigned kSelectable = 0x200000;
inline constexpr unsigned kMultiSelectable = 0x1000000;
inline constexpr unsigned kHasPopup = 0x40000000;
}  // namespace accessible_state

/// Client pixels; right and bottom are outside.
struct AccessiblePlace {
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;
    friend bool operator==(const AccessiblePlace&, const AccessiblePlace&) = default;
};

struct AccessibleElement {
    std::wstring name;
    AccessibleRole role = AccessibleRole::StaticText;
    unsigned states = 0;
    std::wstring description;
    std::wstring action;  ///< what Act does, as a verb; empty when it does nothing
    AccessiblePlace place;
};

enum class AccessibleDirection { Up, Down, Left, Right };

/// The base is a control without parts. Numbers given to any member but Has are those of elements that are
/// there.
class AccessibleTree {
public:
    virtual ~AccessibleTree() = default;

    virtual bool Has(AccessibleId id) const { return id == kAccessibleSelf; }
    virtual AccessibleElement Describe(AccessibleId id) const = 0;
    virtual std::wstring ValueOf(AccessibleId) const { return {}; }

    virtual AccessibleId ParentOf(AccessibleId) const { return kAccessibleSelf; }
    virtual std::vector<AccessibleId> ChildrenOf(AccessibleId) const { return {}; }
    /// The element beside another, in the sense of the arrow keys; itself when there is none.
    virtual AccessibleId Beside(AccessibleId id, AccessibleDirection) const { return id; }
    /// The innermost element at a point of the client area.
    virtual AccessibleId ElementAt(int /*x*/, int /*y*/) const { return kAccessibleSelf; }

    /// The element that has the keyboard while the control has it.
    virtual AccessibleId Focused() const { return kAccessibleSelf; }
    virtual std::vector<AccessibleId> Selected() const { return {}; }

    /// Moves the control's own focus to an element and selects it; with `extend` everything from the one that
    /// was selected. False when that cannot be done.
    virtual bool Select(AccessibleId, bool /*extend*/) { return false; }
    /// Does what the element's action says.
    virtual void Act(AccessibleId) {}
};

}  // namespace tessel
