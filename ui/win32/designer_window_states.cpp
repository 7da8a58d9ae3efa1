// What happens to the designer window from outside: it is activated, minimised and closed, comes to another
// monitor, the screens or their looks change, the session ends.
#include <windows.h>

#include "common/win32/screen.h"
#include "ui/win32/designer_window.h"
#include "ui/win32/rect_area.h"

namespace tessel::ui {

namespace {

constexpr wchar_t kSystemDialogClass[] = L"#32770";  // what message boxes are

BOOL CALLBACK PassOn(HWND child, LPARAM message) {
    SendMessageW(child, static_cast<UINT>(message), 0, 0);
    return TRUE;
}

// Dialogs of our own are told of the end themselves; a message box of the system only waits for an answer.
// The host may have dialogs of the same class, which are its own business.
BOOL CALLBACK EndMessageBox(HWND hwnd, LPARAM designer) {
    wchar_t name[16] = L"";
    GetClassNameW(hwnd, name, 16);
    if (lstrcmpW(name, kSystemDialogClass) != 0) return TRUE;
    for (HWND owner = GetWindow(hwnd, GW_OWNER); owner; owner = GetWindow(owner, GW_OWNER))
        if (owner == reinterpret_cast<HWND>(designer)) EndDialog(hwnd, IDCANCEL);
    return TRUE;
}

}  // namespace

std::optional<LRESULT> DesignerWindow::OnStateMessage(UINT message, WPARAM wparam, LPARAM lparam) {
    switch (message) {
        case WM_GETMINMAXINFO: {
            const SIZE smallest = SmallestSize();
            reinterpret_cast<MINMAXINFO*>(lparam)->ptMinTrackSize = {smallest.cx, smallest.cy};
            return 0;
        }
        case WM_ACTIVATE:
            OnActivated(LOWORD(wparam) != WA_INACTIVE && HIWORD(wparam) == 0);
            return 0;
        case WM_CLOSE:
            // A window that waits for a dialog of its own is not what the user can mean to close.
            if (IsWindowEnabled(Handle())) presenter_.Cancel();
            return 0;
        case WM_DPICHANGED:
            OnScaleChanged(*reinterpret_cast<const RECT*>(lparam));
            return 0;
        case WM_DISPLAYCHANGE:
            OnScreensChanged();
            return 0;
        case WM_SETTINGCHANGE:
            if (wparam == SPI_SETWORKAREA) OnScreensChanged();
            [[fallthrough]];
        case WM_SYSCOLORCHANGE:
        case WM_THEMECHANGED:
            OnLooksChanged(message);
            return std::nullopt;
        case WM_QUERYENDSESSION:
            return TRUE;
        case WM_ENDSESSION:
            if (wparam) OnSessionEnd();
            return 0;
        default:
            return std::nullopt;
    }
}

// Without this the keyboard would be the window's own after a visit to another program, and lost.
void DesignerWindow::OnActivated(bool active) {
    if (!active) {
        const HWND focus = GetFocus();
        if (focus && IsChild(Handle(), focus)) focus_to_restore_ = focus;
        return;
    }
    if (const HWND focus = GetFocus(); focus && IsChild(Handle(), focus)) return;
    const HWND before = focus_to_restore_;
    if (before && IsChild(Handle(), before) && IsWindowVisible(before) && IsWindowEnabled(before))
        SetFocus(before);
    else
        FocusPage();
}

void DesignerWindow::OnScaleChanged(const RECT& suggested) {
    ApplyScale();
    MoveTo(KeptInside(AreaOf(suggested), AreaOf(win32::WorkAreaOf(Handle()))));
    LayoutForm();
}

void DesignerWindow::OnScreensChanged() {
    ApplyScale();
    KeepReachable();
    LayoutForm();
}

// Windows tells top-level windows only.
void DesignerWindow::OnLooksChanged(UINT message) {
    EnumChildWindows(Handle(), PassOn, static_cast<LPARAM>(message));
    ApplyFonts();
    LayoutForm();
}

// The session takes the program away: whatever is open over the window goes, and the host gets its statement
// back as after "Cancelar", if it lives long enough to want it.
void DesignerWindow::OnSessionEnd() {
    EndMenu();
    EnumThreadWindows(GetCurrentThreadId(), EndMessageBox, reinterpret_cast<LPARAM>(Handle()));
    presenter_.Cancel();
}

/// The host's window that the user works in: what is active in this thread, or whatever the user has in
/// front.
HWND DesignerWindow::HostWindow() {
    const HWND active = GetActiveWindow();
    return active ? active : GetForegroundWindow();
}

}  // namespace tessel::ui
