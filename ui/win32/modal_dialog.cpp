#include "ui/win32/modal_dialog.h"

#include <algorithm>

#include "common/win32/dpi.h"
#include "common/win32/gdi.h"
#include "common/win32/modal_loop.h"
#include "common/win32/module.h"
#include "ui/win32/show_help.h"

namespace tessel::ui {

namespace {

constexpr int kButtonHeight = 26;   // dips
constexpr int kButtonPadding = 14;  // dips left and right of a caption
constexpr int kButtonMinimum = 86;  // dips

}  // namespace

bool ModalDialog::Run(HWND owner, const wchar_t* title, SIZE size, SIZE minimum) {
    static const win32::WindowClass kClass{L"TesselDialog", 0, nullptr, IDC_ARROW};
    minimum_ = minimum;
    closed_ = false;
    win32::DisabledPeers peers(nullptr);
    constexpr DWORD kStyle =
        WS_POPUP | WS_CAPTION | WS_SYSMENU | WS_THICKFRAME | WS_MAXIMIZEBOX | WS_CLIPCHILDREN;
    if (!CreateWindowOf(kClass, title, kStyle, WS_EX_CONTROLPARENT | WS_EX_DLGMODALFRAME, owner, 0))
        return false;
    dpi_ = win32::DpiOf(owner ? owner : Handle());
    font_ = win32::MessageFont(dpi_);
    Place(owner, size);
    if (!OnCreateControls()) {
        peers.Enable();
        Destroy();
        return false;
    }
    created_ = true;
    Layout();
    ShowWindow(Handle(), SW_SHOW);
    SetFocus(FirstFocus());
    win32::RunModalLoop(
        Handle(), [this] { return closed_; },
        [this](const MSG& message) { return IsHelpKey(message) || OnPreTranslate(message); });
    peers.Enable();
    Destroy();
    created_ = false;
    return true;
}

bool ModalDialog::IsHelpKey(const MSG& message) {
    if (message.message != WM_KEYDOWN || message.wParam != VK_F1) return false;
    ShowHelp(nullptr, HelpTopic());
    return true;
}

void ModalDialog::Place(HWND owner, SIZE size) {
    RECT over{};
    MONITORINFO monitor{};
    monitor.cbSize = sizeof monitor;
    GetMonitorInfoW(MonitorFromWindow(owner ? owner : Handle(), MONITOR_DEFAULTTONEAREST), &monitor);
    const RECT& work = monitor.rcWork;
    if (!owner || !GetWindowRect(owner, &over)) over = work;
    const int width = std::min<int>(Px(static_cast<int>(size.cx)), work.right - work.left);
    const int height = std::min<int>(Px(static_cast<int>(size.cy)), work.bottom - work.top);
    const int left = std::clamp<int>((over.left + over.right - width) / 2, work.left, work.right - width);
    const int top = std::clamp<int>((over.top + over.bottom - height) / 2, work.top, work.bottom - height);
    SetWindowPos(Handle(), nullptr, left, top, width, height, SWP_NOZORDER | SWP_NOACTIVATE);
}

LRESULT ModalDialog::OnMessage(UINT message, WPARAM wparam, LPARAM lparam) {
    switch (message) {
        case WM_SIZE:
            if (wparam != SIZE_MINIMIZED) Layout();
            return 0;
        case WM_GETMINMAXINFO:
            reinterpret_cast<MINMAXINFO*>(lparam)->ptMinTrackSize = {Px(static_cast<int>(minimum_.cx)),
                                                                     Px(static_cast<int>(minimum_.cy))};
            return 0;
        case WM_ERASEBKGND: {
            RECT client;
            GetClientRect(Handle(), &client);
            FillRect(reinterpret_cast<HDC>(wparam), &client, GetSysColorBrush(COLOR_BTNFACE));
            return 1;
        }
        case WM_CTLCOLORSTATIC:
        case WM_CTLCOLORBTN:
            SetBkMode(reinterpret_cast<HDC>(wparam), TRANSPARENT);
            return reinterpret_cast<LRESULT>(GetSysColorBrush(COLOR_BTNFACE));
        case DM_GETDEFID:
            return MAKELRESULT(DefaultButton(), DC_HASDEFID);
        case WM_COMMAND:
            OnCommand(LOWORD(wparam), HIWORD(wparam));
            return 0;
        case WM_NOTIFY:
            return OnNotify(reinterpret_cast<NMHDR*>(lparam));
        case WM_CLOSE:
            Close();
            return 0;
        default:
            return Window::OnMessage(message, wparam, lparam);
    }
}

LRESULT ModalDialog::OnNotify(NMHDR*) {
    return 0;
}

void ModalDialog::Layout() {
    if (!created_) return;
    RECT client{};
    GetClientRect(Handle(), &client);
    OnLayout({client.right, client.bottom});
}

void ModalDialog::Close() {
    closed_ = true;
    PostMessageW(Handle(), WM_NULL, 0, 0);
}

int ModalDialog::Px(int dips) const {
    return win32::Scale(dips, dpi_);
}

HWND ModalDialog::AddButton(const wchar_t* caption, int id, bool is_default) {
    const DWORD style = WS_CHILD | WS_VISIBLE | WS_TABSTOP | (is_default ? BS_DEFPUSHBUTTON : BS_PUSHBUTTON);
    const HWND button =
        CreateWindowExW(0, L"BUTTON", caption, style, 0, 0, 0, 0, Handle(),
                        reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), win32::ThisModule(), nullptr);
    SendMessageW(button, WM_SETFONT, reinterpret_cast<WPARAM>(Font()), FALSE);
    return button;
}

SIZE ModalDialog::ButtonSize(HWND button) const {
    wchar_t caption[64] = L"";
    GetWindowTextW(button, caption, 64);
    const HDC dc = GetDC(button);
    RECT text{};
    {
        const win32::Selected font(dc, Font());
        DrawTextW(dc, caption, -1, &text, DT_SINGLELINE | DT_CALCRECT);
    }
    ReleaseDC(button, dc);
    return {std::max<LONG>(text.right + 2 * Px(kButtonPadding), Px(kButtonMinimum)), Px(kButtonHeight)};
}

}  // namespace tessel::ui
