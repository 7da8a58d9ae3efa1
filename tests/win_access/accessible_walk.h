// An accessibility client: reads the accessible tree of a window through the system's library, as a screen
// reader does, and prints it as text.
//
// The names that programs give to standard controls are kept by a service of the system, whose stand-in is in
// recorded_names.h; the tree shows them. Wine's own objects of standard controls know little more than names
// and places, so the walk tells them apart: `own` elements are described by the product.
#pragma once

#include <windows.h>

#include <oleacc.h>

#include <functional>
#include <string>
#include <vector>

#include "common/win32/com.h"

namespace tessel::testing {

struct AccessibleItem {
    win32::ComPtr<IAccessible> object;
    HWND hwnd = nullptr;
    bool own = false;  ///< described by the product, not by the system
    std::wstring name;
    std::wstring value;
    std::wstring description;
    std::wstring action;
    LONG role = 0;
    LONG state = 0;
    RECT place{};  ///< on the screen
    std::vector<AccessibleItem> children;

    bool Is(LONG state_bit) const { return (state & state_bit) != 0; }
};

/// The object of a window's client area; an empty pointer when there is none.
win32::ComPtr<IAccessible> AccessibleOf(HWND hwnd);
VARIANT ChildSelf();

/// Reads one object without its children.
AccessibleItem ReadAccessible(const win32::ComPtr<IAccessible>& object);
/// Reads a window with everything in it that is visible.
AccessibleItem WalkAccessible(HWND hwnd);

/// The first item for which `wanted` holds, from the top; nullptr when there is none.
const AccessibleItem* FindAccessible(const AccessibleItem& item,
                                     const std::function<bool(const AccessibleItem&)>& wanted);
const AccessibleItem* FindAccessible(const AccessibleItem& item, std::wstring_view name);
void ForEachAccessible(const AccessibleItem& item, const std::function<void(const AccessibleItem&)>& action);

/// One line an item, indented: role, name, value, states.
std::wstring PrintAccessible(const AccessibleItem& item);

}  // namespace tessel::testing
