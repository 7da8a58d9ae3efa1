#include "tests/win_access/accessible_laws.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>

#include "common/text.h"

namespace tessel::testing {

namespace {

using win32::ComPtr;

std::string Named(const AccessibleItem& item) {
    return ToUtf8(PrintAccessible(item).substr(0, 200));
}

bool IsSameObject(const ComPtr<IAccessible>& a, const ComPtr<IAccessible>& b) {
    return a && b && a.As<IUnknown>().Get() == b.As<IUnknown>().Get();
}

bool CanHaveKeyboard(const AccessibleItem& item) {
    if (item.own) return item.Is(STATE_SYSTEM_FOCUSABLE);
    const LONG_PTR style = GetWindowLongPtrW(item.hwnd, GWL_STYLE);
    return (style & WS_TABSTOP) != 0 && (style & WS_CHILD) != 0;
}

POINT Middle(const RECT& rect) {
    return {(rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2};
}

bool IsEmpty(const RECT& rect) {
    return rect.right <= rect.left || rect.bottom <= rect.top;
}

/// The innermost object at a point, asked for step by step.
ComPtr<IAccessible> Hit(ComPtr<IAccessible> from, POINT point) {
    for (;;) {
        VARIANT child{};
        if (from->accHitTest(point.x, point.y, &child) != S_OK) return {};
        if (child.vt != VT_DISPATCH) return from;
        from = ComPtr<IDispatch>::Adopt(child.pdispVal).As<IAccessible>();
    }
}

bool Contains(const AccessibleItem& item, const ComPtr<IAccessible>& object) {
    if (IsSameObject(item.object, object)) return true;
    for (const AccessibleItem& child : item.children)
        if (Contains(child, object)) return true;
    return false;
}

void ExpectChildInPlace(const AccessibleItem& root, const AccessibleItem& parent,
                        const AccessibleItem& child) {
    ComPtr<IDispatch> above;
    EXPECT_EQ(child.object->get_accParent(above.Put()), S_OK) << Named(child);
    EXPECT_TRUE(IsSameObject(above.As<IAccessible>(), parent.object)) << Named(child);
    if (child.Is(STATE_SYSTEM_OFFSCREEN) || child.Is(STATE_SYSTEM_INVISIBLE)) return;
    EXPECT_FALSE(IsEmpty(child.place)) << Named(child);
    RECT common{};
    IntersectRect(&common, &child.place, &parent.place);
    EXPECT_TRUE(EqualRect(&common, &child.place)) << Named(child) << " leaves " << Named(parent);
    // Lines lie where nothing covers them only at some points of their rectangle.
    if (child.role == ROLE_SYSTEM_GRAPHIC) return;
    // Nor is an element found under a window, such as a cell under its editor.
    POINT middle = Middle(child.place);
    ScreenToClient(root.hwnd, &middle);
    if (ChildWindowFromPointEx(root.hwnd, middle, CWP_SKIPINVISIBLE) != root.hwnd) return;
    EXPECT_TRUE(Contains(child, Hit(root.object, Middle(child.place)))) << Named(child);
}

void ExpectOwnElements(const AccessibleItem& root, const AccessibleItem& item) {
    std::map<std::wstring, int> names;
    for (const AccessibleItem& child : item.children) {
        if (!child.own || child.hwnd != root.hwnd) continue;
        EXPECT_FALSE(child.name.empty()) << Named(item);
        EXPECT_EQ(++names[child.name], 1) << ToUtf8(child.name);
        EXPECT_TRUE(child.role != 0) << Named(child);
        ExpectChildInPlace(root, item, child);
        ExpectOwnElements(root, child);
    }
}

}  // namespace

void ExpectLawfulTree(const AccessibleItem& root) {
    ForEachAccessible(root, [](const AccessibleItem& item) {
        EXPECT_TRUE(!CanHaveKeyboard(item) || !item.name.empty()) << Named(item);
        EXPECT_EQ(item.name.find(L'&'), std::wstring::npos) << Named(item);
        if (item.own && item.hwnd) {
            // Only windows are walked into from here; elements are walked from their window.
            HWND inner = nullptr;
            WindowFromAccessibleObject(item.object.Get(), &inner);
            EXPECT_EQ(inner, item.hwnd);
        }
    });
    std::vector<HWND> seen;
    ForEachAccessible(root, [&](const AccessibleItem& item) {
        if (!item.own || std::find(seen.begin(), seen.end(), item.hwnd) != seen.end()) return;
        seen.push_back(item.hwnd);
        ExpectOwnElements(item, item);
    });
}

}  // namespace tessel::testing
