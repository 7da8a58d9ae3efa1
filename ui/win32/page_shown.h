// Showing and hiding a part of a window that may itself be hidden.
#pragma once

#include <windows.h>

namespace tessel::ui {

/// Whether a window is meant to be seen, even while one around it is not.
inline bool IsShown(HWND hwnd) {
    return (GetWindowLongPtrW(hwnd, GWL_STYLE) & WS_VISIBLE) != 0;
}

/// For pages that share one place: the one that goes leaves nothing to be drawn, the one that comes draws all
/// of it, once, when it is painted.
inline void TurnPage(HWND from, HWND to) {
    constexpr UINT kInPlace = SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE;
    if (IsShown(from)) SetWindowPos(from, nullptr, 0, 0, 0, 0, kInPlace | SWP_HIDEWINDOW | SWP_NOREDRAW);
    if (!IsShown(to)) SetWindowPos(to, nullptr, 0, 0, 0, 0, kInPlace | SWP_SHOWWINDOW | SWP_DEFERERASE);
}

}  // namespace tessel::ui
