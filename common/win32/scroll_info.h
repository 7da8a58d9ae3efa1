// Scroll bars that are only touched when something about them is new: the system draws a bar again each time
// it is told, in dozens of pieces, whatever it is told.
#pragma once

#include <windows.h>

namespace tessel::win32 {

/// SetScrollInfo of a window's own bar with the range, page and position of `info`, unless they are what it
/// has. `info.fMask` must hold these three, and may hold SIF_DISABLENOSCROLL.
void UpdateScrollInfo(HWND hwnd, int bar, const SCROLLINFO& info);

}  // namespace tessel::win32
