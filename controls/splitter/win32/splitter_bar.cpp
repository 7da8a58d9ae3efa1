#include "controls/splitter/win32/splitter_bar.h"

#include <windowsx.h>

#include "common/win32/dpi.h"
#include "common/win32/screen.h"

namespace tessel::controls {

namespace {

constexpr int kBarThickness = 6;  ///< at 96 dpi

bool IsAt(HWND child, const RECT& place) {
    RECT now{};
    if (!GetWindowRect(child, &now)) return false;
    MapWindowPoints(nullptr, GetParent(child), reinterpret_cast<POINT*>(&now), 2);
    return EqualRect(&now, &place) != FALSE;
}

}  // namespace

// A pane belongs to whoever made it, but a window goes with its parent.
SplitterBar::~SplitterBar() {
    Destroy();
}

bool SplitterBar::Create(HWND parent, int id, Orientation orientation, SplitterEvents* events) {
    orientation_ = orientation;
    events_ = events;
    id_ = id;
    const win32::WindowClass window_class{L"TesselSplitterBar", 0, GetSysColorBrush(COLOR_BTNFACE),
                                          IDC_ARROW};
    if (!CreateWindowOf(window_class, L"", WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN, WS_EX_CONTROLPARENT,
                        parent, id))
        return false;
    if (!bar_.Create(orientation)) {
        Destroy();
        return false;
    }
    ApplyMetrics();
    return true;
}

void SplitterBar::SetPanes(HWND first, HWND second) {
    if (!IsCreated()) return;
    first_ = first;
    second_ = second;
    for (HWND pane : {first, second})
        if (pane && GetParent(pane) != Handle()) SetParent(pane, Handle());
    // The order of the windows is the order of the Tab key: first pane, bar, second pane.
    if (second_) SetWindowPos(second_, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    SetWindowPos(bar_.Handle(), HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    if (first_) SetWindowPos(first_, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    Layout();
}

void SplitterBar::SetName(const std::wstring& name) {
    bar_.SetName(name);
}

void SplitterBar::SetPosition(int px_at_96dpi) {
    default_position_ = px_at_96dpi;
    state_.SetPosition(Scaled(px_at_96dpi));
    Layout();
}

int SplitterBar::Position() const {
    return MulDiv(state_.Position(), 96, IsCreated() ? win32::DpiOf(Handle()) : 96);
}

void SplitterBar::SetMinimums(int first, int second) {
    first_minimum_ = first;
    second_minimum_ = second;
    ApplyMetrics();
    Layout();
}

void SplitterBar::SetFirstPaneShown(bool shown) {
    if (!IsCreated() || first_shown_ == shown) return;
    first_shown_ = shown;
    for (HWND window : {first_, bar_.Handle()})
        if (window) ShowWindow(window, shown ? SW_SHOWNA : SW_HIDE);
    Layout();
}

int SplitterBar::Scaled(int dips) const {
    return win32::Scale(dips, win32::DpiOf(Handle()));
}

void SplitterBar::ApplyMetrics() {
    state_.SetMetrics(Scaled(kBarThickness), Scaled(first_minimum_), Scaled(second_minimum_));
}

void SplitterBar::Moved(bool moved) {
    if (!moved) return;
    Layout();
    // Live layout: the panes show their new size while the pointer moves.
    UpdateWindow(Handle());
    bar_.ReportMoved();
}

void SplitterBar::RestoreDefault() {
    if (default_position_ < 0) return;
    state_.SetPosition(Scaled(default_position_));
    Moved(true);
}

void SplitterBar::Layout() {
    if (!IsCreated()) return;
    RECT client;
    GetClientRect(Handle(), &client);
    const int across = orientation_ == Orientation::SideBySide ? client.bottom : client.right;
    struct Piece {
        HWND window;
        int start;
        int size;
    };
    const int along = orientation_ == Orientation::SideBySide ? client.right : client.bottom;
    const Piece second_only{second_, 0, along};
    const Piece pieces[] = {
        {first_, 0, state_.Position()},
        {bar_.Handle(), state_.Position(), state_.Bar()},
        first_shown_ ? Piece{second_, state_.Position() + state_.Bar(), state_.SecondSize()} : second_only};
    // All at once, so that nothing is drawn in between; what keeps its place is left alone.
    HDWP batch = nullptr;
    for (const Piece& piece : pieces) {
        if (!IsWindow(piece.window)) continue;
        const RECT place = orientation_ == Orientation::SideBySide
                               ? RECT{piece.start, 0, piece.start + piece.size, across}
                               : RECT{0, piece.start, across, piece.start + piece.size};
        if (IsAt(piece.window, place)) continue;
        if (!batch) batch = BeginDeferWindowPos(3);
        if (!batch) break;
        batch = DeferWindowPos(batch, piece.window, nullptr, place.left, place.top, place.right - place.left,
                               place.bottom - place.top, SWP_NOZORDER | SWP_NOACTIVATE);
        if (!batch) break;
    }
    if (batch) EndDeferWindowPos(batch);
    if (events_) events_->OnSplitterResized(id_);
}

LRESULT SplitterBar::OnMessage(UINT message, WPARAM wparam, LPARAM lparam) {
    switch (message) {
        case WM_SIZE:
            if (wparam == SIZE_MINIMIZED) return 0;
            state_.SetLength(orientation_ == Orientation::SideBySide ? GET_X_LPARAM(lparam)
                                                                     : GET_Y_LPARAM(lparam));
            Layout();
            return 0;
        case win32::kDpiChangedAfterParent:
            ApplyMetrics();
            Layout();
            return 0;
        case WM_COMMAND:
        case WM_NOTIFY:
        case WM_CONTEXTMENU:
        case WM_DRAWITEM:
        case WM_MEASUREITEM:
        case WM_CTLCOLORSTATIC:
        case WM_CTLCOLORBTN:
        case WM_CTLCOLOREDIT:
        case WM_CTLCOLORLISTBOX:
            return SendMessageW(GetParent(Handle()), message, wparam, lparam);
        default:
            return Window::OnMessage(message, wparam, lparam);
    }
}

}  // namespace tessel::controls
