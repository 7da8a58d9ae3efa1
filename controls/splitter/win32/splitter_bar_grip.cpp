// The bar of a SplitterBar: its mouse, keyboard and drawing.
#include <windowsx.h>

#include "common/win32/dpi.h"
#include "common/win32/gdi.h"
#include "common/win32/screen.h"
#include "controls/splitter/win32/splitter_bar.h"

namespace tessel::controls {

namespace {

constexpr int kKeyboardStep = 8;  ///< at 96 dpi
constexpr int kGripDots = 5;

}  // namespace

bool SplitterBar::Bar::Create(Orientation orientation) {
    const bool upright = orientation == Orientation::SideBySide;
    const win32::WindowClass window_class{upright ? L"TesselSplitterGripV" : L"TesselSplitterGripH",
                                          CS_DBLCLKS, nullptr, upright ? IDC_SIZEWE : IDC_SIZENS};
    return CreateWindowOf(window_class, L"", WS_CHILD | WS_VISIBLE | WS_TABSTOP, 0, owner_.Handle(), 0);
}

void SplitterBar::Bar::SetName(const std::wstring& name) {
    tree_.SetName(name);
    accessible_.Report(EVENT_OBJECT_NAMECHANGE);
}

int SplitterBar::Bar::AlongAxis(LPARAM lparam) const {
    POINT point{GET_X_LPARAM(lparam), GET_Y_LPARAM(lparam)};
    MapWindowPoints(Handle(), owner_.Handle(), &point, 1);
    return static_cast<int>(owner_.orientation_ == Orientation::SideBySide ? point.x : point.y);
}

void SplitterBar::Bar::OnButtonDown(LPARAM lparam) {
    // The focus is here while the bar is dragged, so that Esc ends the drag instead of closing the dialog.
    const HWND before = SetFocus(Handle());
    focus_before_drag_ = before == Handle() ? nullptr : before;
    SetCapture(Handle());
    owner_.state_.BeginDrag(AlongAxis(lparam));
    InvalidateRect(Handle(), nullptr, FALSE);
}

void SplitterBar::Bar::OnButtonUp() {
    if (!owner_.state_.IsDragging()) return;
    owner_.state_.EndDrag();
    ReleaseCapture();
    ReturnFocus();
    InvalidateRect(Handle(), nullptr, FALSE);
}

void SplitterBar::Bar::ReturnFocus() {
    const HWND before = focus_before_drag_;
    focus_before_drag_ = nullptr;
    if (before && IsWindowVisible(before) && IsWindowEnabled(before)) SetFocus(before);
}

bool SplitterBar::Bar::OnKeyDown(WPARAM key) {
    SplitterState& state = owner_.state_;
    if (key == VK_ESCAPE) {
        if (!state.IsDragging()) return false;
        state.CancelDrag();
        owner_.Moved(true);
        ReleaseCapture();
        ReturnFocus();
        return true;
    }
    const bool upright = owner_.orientation_ == Orientation::SideBySide;
    const int step = owner_.Scaled(kKeyboardStep);
    if (key == static_cast<WPARAM>(upright ? VK_LEFT : VK_UP))
        owner_.Moved(state.MoveBy(-step));
    else if (key == static_cast<WPARAM>(upright ? VK_RIGHT : VK_DOWN))
        owner_.Moved(state.MoveBy(step));
    else if (key == VK_HOME)
        owner_.Moved(state.MoveToStart());
    else if (key == VK_END)
        owner_.Moved(state.MoveToEnd());
    else if (key == VK_SPACE)
        owner_.RestoreDefault();
    else
        return false;
    return true;
}

void SplitterBar::Bar::OnPaint() {
    win32::BufferedPaint paint(Handle());
    const HDC dc = paint.Dc();
    const RECT& client = paint.Client();
    const COLORREF face = GetSysColor(COLOR_BTNFACE);
    const bool focused = GetFocus() == Handle() && !owner_.state_.IsDragging();
    const COLORREF accent = GetSysColor(COLOR_HIGHLIGHT);
    COLORREF back = face;
    if (owner_.state_.IsDragging() || focused)
        back = accent;
    else if (hot_)
        back = win32::IsHighContrast() ? accent : win32::Blend(face, accent, 80);
    win32::FillSolid(dc, client, back);

    // The grip: a short row of dots in the middle.
    const COLORREF dot_colour =
        back == accent ? GetSysColor(COLOR_HIGHLIGHTTEXT) : GetSysColor(COLOR_GRAYTEXT);
    const bool upright = owner_.orientation_ == Orientation::SideBySide;
    const int dot = owner_.Scaled(2);
    const int pitch = owner_.Scaled(5);
    const int run = pitch * (kGripDots - 1) + dot;
    int x = (client.right - (upright ? dot : run)) / 2;
    int y = (client.bottom - (upright ? run : dot)) / 2;
    for (int i = 0; i < kGripDots; ++i) {
        win32::FillSolid(dc, RECT{x, y, x + dot, y + dot}, dot_colour);
        (upright ? y : x) += pitch;
    }
}

LRESULT SplitterBar::Bar::OnMessage(UINT message, WPARAM wparam, LPARAM lparam) {
    if (LRESULT result = 0; accessible_.OnMessage(Handle(), message, wparam, lparam, result)) return result;
    switch (message) {
        case WM_LBUTTONDOWN:
            OnButtonDown(lparam);
            return 0;
        case WM_MOUSEMOVE:
            if (owner_.state_.IsDragging()) {
                owner_.Moved(owner_.state_.DragTo(AlongAxis(lparam)));
            } else if (!hot_) {
                hot_ = true;
                TRACKMOUSEEVENT track{sizeof track, TME_LEAVE, Handle(), 0};
                TrackMouseEvent(&track);
                InvalidateRect(Handle(), nullptr, FALSE);
            }
            return 0;
        case WM_MOUSELEAVE:
            hot_ = false;
            InvalidateRect(Handle(), nullptr, FALSE);
            return 0;
        case WM_LBUTTONUP:
            OnButtonUp();
            return 0;
        case WM_LBUTTONDBLCLK:
            owner_.RestoreDefault();
            return 0;
        case WM_CAPTURECHANGED:
            // Taken away, by a message box for one: the bar stays where the user had dragged it.
            owner_.state_.EndDrag();
            InvalidateRect(Handle(), nullptr, FALSE);
            return 0;
        case WM_GETDLGCODE:
            return DLGC_WANTARROWS | (owner_.state_.IsDragging() ? DLGC_WANTALLKEYS : 0);
        case WM_KEYDOWN:
            if (OnKeyDown(wparam)) return 0;
            break;
        case WM_SETFOCUS:
            accessible_.ReportFocus();
            [[fallthrough]];
        case WM_KILLFOCUS:
        case WM_SIZE:
            InvalidateRect(Handle(), nullptr, FALSE);
            return 0;
        case WM_ERASEBKGND:
            return 1;
        case WM_PAINT:
            OnPaint();
            return 0;
        default:
            break;
    }
    return Window::OnMessage(message, wparam, lparam);
}

}  // namespace tessel::controls
