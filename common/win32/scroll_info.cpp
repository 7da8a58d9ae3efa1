#include "common/win32/scroll_info.h"

namespace tessel::win32 {

void UpdateScrollInfo(HWND hwnd, int bar, const SCROLLINFO& info) {
    SCROLLINFO now{};
    now.cbSize = sizeof now;
    now.fMask = SIF_RANGE | SIF_PAGE | SIF_POS;
    if (GetScrollInfo(hwnd, bar, &now) && now.nMin == info.nMin && now.nMax == info.nMax &&
        now.nPage == info.nPage && now.nPos == info.nPos)
        return;
    SetScrollInfo(hwnd, bar, &info, TRUE);
}

}  // namespace tessel::win32
