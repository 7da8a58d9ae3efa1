// Scrolling of the table diagram: its scroll bars and the wheel.
#include <windowsx.h>

#include "common/win32/dpi.h"
#include "common/win32/scroll_info.h"
#include "controls/diagram/win32/diagram_view.h"

namespace tessel::controls {

namespace {

constexpr int kScrollLine_px = 40;

}  // namespace

// Showing or hiding a scroll bar changes the client area, which comes back here as a change of size.
void DiagramView::Refresh() {
    refresh_pending_ = false;
    if (refreshing_) return;
    refreshing_ = true;
    state_.Update();
    for (int round = 0; round < 2; ++round) {
        const diagram::Viewport& view = state_.View();
        const diagram::Rect extent = view.Extent();
        ShowScrollBar(SB_HORZ, view.ToPixels(extent.left), view.ToPixels(diagram::Right(extent)),
                      view.Client().width, view.Scroll().x);
        ShowScrollBar(SB_VERT, view.ToPixels(extent.top), view.ToPixels(diagram::Bottom(extent)),
                      view.Client().height, view.Scroll().y);
    }
    refreshing_ = false;
    PlaceFitButton();
    Announce();
}

void DiagramView::ShowScrollBar(int bar, int low, int high, int page, int position) {
    SCROLLINFO info{};
    info.cbSize = sizeof info;
    info.fMask = SIF_RANGE | SIF_PAGE | SIF_POS;
    info.nMin = low;
    info.nMax = std::max(low, high - 1);
    info.nPage = static_cast<UINT>(std::max(0, page));
    info.nPos = position;
    win32::UpdateScrollInfo(Handle(), bar, info);
}

void DiagramView::OnScrollBar(int bar, int code) {
    SCROLLINFO info{};
    info.cbSize = sizeof info;
    info.fMask = SIF_ALL;
    GetScrollInfo(Handle(), bar, &info);
    const int line = win32::Scale(kScrollLine_px, dpi_);
    int position = info.nPos;
    switch (code) {
        case SB_LINEUP:
            position -= line;
            break;
        case SB_LINEDOWN:
            position += line;
            break;
        case SB_PAGEUP:
            position -= static_cast<int>(info.nPage);
            break;
        case SB_PAGEDOWN:
            position += static_cast<int>(info.nPage);
            break;
        case SB_THUMBTRACK:
        case SB_THUMBPOSITION:
            position = info.nTrackPos;
            break;
        case SB_TOP:
            position = info.nMin;
            break;
        case SB_BOTTOM:
            position = info.nMax;
            break;
        default:
            return;
    }
    diagram::Point scroll = state_.View().Scroll();
    (bar == SB_HORZ ? scroll.x : scroll.y) = position;
    state_.ScrollTo(scroll);
    Refresh();
}

void DiagramView::OnWheel(WPARAM wparam, LPARAM lparam, bool sideways) {
    int& rest = sideways ? wheel_rest_sideways_ : wheel_rest_;
    rest += GET_WHEEL_DELTA_WPARAM(wparam);
    const int steps = rest / WHEEL_DELTA;
    rest %= WHEEL_DELTA;
    POINT point{GET_X_LPARAM(lparam), GET_Y_LPARAM(lparam)};
    ScreenToClient(Handle(), &point);
    const WORD keys = GET_KEYSTATE_WPARAM(wparam);
    state_.Wheel({point.x, point.y}, steps, {(keys & MK_SHIFT) != 0, (keys & MK_CONTROL) != 0}, sideways);
}

}  // namespace tessel::controls
