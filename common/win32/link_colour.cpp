#include "common/win32/link_colour.h"

#include <cstdlib>

#include "common/win32/screen.h"

namespace tessel::win32 {

namespace {

constexpr COLORREF kPlainBlue = RGB(0x00, 0x55, 0xBB);
constexpr int kReadable = 90;  // of 255

/// How light a colour is to the eye, of 255.
int Lightness(COLORREF colour) {
    return (299 * GetRValue(colour) + 587 * GetGValue(colour) + 114 * GetBValue(colour)) / 1000;
}

bool CanBeRead(COLORREF colour, COLORREF background) {
    return std::abs(Lightness(colour) - Lightness(background)) >= kReadable;
}

}  // namespace

COLORREF LinkColour(COLORREF background, COLORREF text) {
    const COLORREF system = GetSysColor(COLOR_HOTLIGHT);
    if (IsHighContrast() || CanBeRead(system, background)) return system;
    return CanBeRead(kPlainBlue, background) ? kPlainBlue : text;
}

}  // namespace tessel::win32
