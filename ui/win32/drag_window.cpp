#include "ui/win32/drag_window.h"

#include <algorithm>
#include <utility>

#include "common/win32/dpi.h"
#include "common/win32/gdi.h"

namespace tessel::ui {

namespace {

constexpr int kOffset = 16;  // from the pointer, at 96 dpi
constexpr int kPadding = 6;
constexpr int kLongest = 320;
constexpr BYTE kOpacity = 225;
constexpr UINT_PTR kRestTimer = 1;
constexpr UINT kRestPeriod_ms = 60;

POINT PointerOnScreen() {
    POINT screen{};
    GetCursorPos(&screen);
    return screen;
}

}  // namespace

DragWindow::~DragWindow() {
    events_ = nullptr;
    Destroy();
}

bool DragWindow::CreateFor(HWND owner) {
    if (IsCreated()) return true;
    constexpr DWORD kExtended =
        WS_EX_LAYERED | WS_EX_TRANSPARENT | WS_EX_TOOLWINDOW | WS_EX_NOACTIVATE | WS_EX_TOPMOST;
    if (!CreateWindowOf({L"TesselDragWindow", CS_SAVEBITS}, L"", WS_POPUP, kExtended, owner, 0)) return false;
    SetLayeredWindowAttributes(Handle(), 0, kOpacity, LWA_ALPHA);
    return true;
}

void DragWindow::Follow(HWND owner, std::wstring_view caption, POINT screen) {
    if (!CreateFor(owner)) return;
    const int dpi = win32::DpiOf(owner);
    if (caption != caption_ || dpi != dpi_) {
        dpi_ = dpi;
        caption_ = caption;
        font_ = win32::MessageFont(dpi);
        const HDC dc = GetDC(Handle());
        SIZE text{};
        {
            const win32::Selected font(dc, font_.get());
            text = win32::TextSize(dc, caption_);
        }
        ReleaseDC(Handle(), dc);
        const int padding = win32::Scale(kPadding, dpi_);
        const int width = std::min(static_cast<int>(text.cx) + 2 * padding, win32::Scale(kLongest, dpi_));
        SetWindowPos(Handle(), nullptr, 0, 0, width, static_cast<int>(text.cy) + padding,
                     SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
        InvalidateRect(Handle(), nullptr, FALSE);
    }
    Move(screen);
}

void DragWindow::Move(POINT screen) {
    const int offset = win32::Scale(kOffset, dpi_);
    SetWindowPos(Handle(), HWND_TOPMOST, screen.x + offset, screen.y + offset, 0, 0,
                 SWP_NOSIZE | SWP_NOACTIVATE | SWP_SHOWWINDOW);
}

bool DragWindow::Begin(HWND owner, std::wstring_view caption, DragEvents& events) {
    Cancel();
    // The button may be up again by the time that the control says so.
    if (GetKeyState(VK_LBUTTON) >= 0 || !CreateFor(owner)) return false;
    const POINT screen = PointerOnScreen();
    Follow(owner, caption, screen);
    SetCapture(Handle());
    if (GetCapture() != Handle()) {
        Hide();
        return false;
    }
    events_ = &events;
    SetTimer(Handle(), kRestTimer, kRestPeriod_ms, nullptr);
    Report(screen);
    return true;
}

void DragWindow::Cancel() {
    Finish(false);
}

void DragWindow::Hide() {
    if (IsCreated()) ShowWindow(Handle(), SW_HIDE);
}

void DragWindow::Report(POINT screen) {
    Move(screen);
    const bool accepted = events_->OnDragMoved(screen);
    SetCursor(LoadCursorW(nullptr, accepted ? IDC_ARROW : IDC_NO));
}

void DragWindow::Finish(bool dropped) {
    DragEvents* events = std::exchange(events_, nullptr);
    if (!events) return;
    const POINT screen = PointerOnScreen();
    if (IsCreated()) {
        KillTimer(Handle(), kRestTimer);
        if (GetCapture() == Handle()) ReleaseCapture();
    }
    Hide();
    dropped ? events->OnDragDropped(screen) : events->OnDragCancelled();
}

LRESULT DragWindow::OnMessage(UINT message, WPARAM wparam, LPARAM lparam) {
    switch (message) {
        case WM_MOUSEMOVE:
        case WM_TIMER:
            if (events_) Report(PointerOnScreen());
            return 0;
        case WM_LBUTTONUP:
            Finish(true);
            return 0;
        case WM_RBUTTONDOWN:
        case WM_CAPTURECHANGED:
        case WM_CANCELMODE:
            Finish(false);
            return 0;
        case WM_DESTROY:
            events_ = nullptr;
            return 0;
        case WM_NCHITTEST:
            return HTTRANSPARENT;
        case WM_MOUSEACTIVATE:
            return MA_NOACTIVATE;
        case WM_ERASEBKGND:
            return 1;
        case WM_PAINT:
            OnPaint();
            return 0;
        default:
            return Window::OnMessage(message, wparam, lparam);
    }
}

void DragWindow::OnPaint() {
    win32::BufferedPaint paint(Handle());
    const HDC dc = paint.Dc();
    const RECT client = paint.Client();
    win32::FillSolid(dc, client, GetSysColor(COLOR_HIGHLIGHT));
    const int edge = std::max(1, win32::Scale(1, dpi_));
    RECT inside = client;
    InflateRect(&inside, -edge, -edge);
    win32::FillSolid(dc, inside, GetSysColor(COLOR_WINDOW));
    const win32::Selected font(dc, font_.get());
    InflateRect(&inside, -(win32::Scale(kPadding, dpi_) - edge), 0);
    win32::DrawTextLine(dc, inside, caption_, GetSysColor(COLOR_WINDOWTEXT));
}

}  // namespace tessel::ui
