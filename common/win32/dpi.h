// Scaling and the user's fonts. Lengths in our sources are pixels at 96 dpi ("dip"); everything that reaches
// Windows goes through Scale. Newer functions are looked up at run time, so that the library loads on every
// Windows.
#pragma once

#include <windows.h>

#include "common/win32/handles.h"

namespace tessel::win32 {

/// Dots per inch of the monitor a window is on; the system's where Windows knows no other.
int DpiOf(HWND hwnd);

/// Pixels of `dips` at `dpi`, rounded to nearest.
inline int Scale(int dips, int dpi) {
    return MulDiv(dips, dpi, 96);
}
/// Pixels of twips (1/1440 inch) at `dpi`.
inline int TwipsToPixels(int twips, int dpi) {
    return MulDiv(twips, dpi, 1440);
}

/// The user's message font at that dpi.
UniqueFont MessageFont(int dpi, bool bold = false);
/// A fixed-pitch font for SQL text: Consolas, else Courier New.
UniqueFont FixedFont(int dpi, int points = 10);

}  // namespace tessel::win32
