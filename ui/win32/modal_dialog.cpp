#include "ui/win32/modal_dialog.h"

#include <algorithm>
#include <utility>

#include "common/win32/dpi.h"
#include "common/win32/gdi.h"
#include "common/win32/modal_loop.h"
#include "common/win32/module.h"
#include "common/win32/screen.h"
#include "ui/win32/rect_area.h"
#include "ui/win32/show_help.h"

namespace tessel::ui {

namespace {

constexpr int kButtonHeight = 26;   // dips
constexpr int kButtonPadding = 14;  // dips left and right of a caption
constexpr int kButtonMinimum = 86;  // dips

BOOL CALLBACK PassOn(HWND child, LPARAM message) {
    SendMessageW(child, static_cast<UINT>(message), 0, 0);
    return TRUE;
}

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
    win32::ShowKeyboardCues(Handle());
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
    const Area work = AreaOf(win32::WorkAreaOf(owner ? owner : Handle()));
    RECT window{};
    const Area over = owner && GetWindowRect(owner, &window) ? AreaOf(window) : work;
    MoveTo(Centred(Px(static_cast<int>(size.cx)), Px(static_cast<int>(size.cy)), over, work));
}

void ModalDialog::MoveTo(const Area& place) {
    SetWindowPos(Handle(), nullptr, place.left, place.top, place.Width(), place.Height(),
                 SWP_NOZORDER | SWP_NOACTIVATE);
}

LRESULT ModalDialog::OnMessage(UINT message, WPARAM wparam, LPARAM lparam) {
    switch (message) {
        case WM_SIZE:
            if (wparam != SIZE_MINIMIZED) Layout();
            return 0;
        case WM_GETMINMAXINFO: {
            const Area work = AreaOf(win32::WorkAreaOf(Handle()));
            reinterpret_cast<MINMAXINFO*>(lparam)->ptMinTrackSize = {
                std::min(Px(static_cast<int>(minimum_.cx)), work.Width()),
                std::min(Px(static_cast<int>(minimum_.cy)), work.Height())};
            return 0;
        }
        case WM_ERASEBKGND: {
            RECT client;
            GetClientRect(Handle(), &client);
            FillRect(reinterpret_cast<HDC>(wparam), &client, GetSysColorBrush(COLOR_BTNFACE));
            return 1;
        }
        case WM_CTLCOLORSTATIC:
        case WM_CTLCOLORBTN:
            SetBkMode(reinterpret_cast<HDC>(wparam), TRANSPARENT);
            SetTextColor(reinterpret_cast<HDC>(wparam), GetSysColor(COLOR_BTNTEXT));
            return reinterpret_cast<LRESULT>(GetSysColorBrush(COLOR_BTNFACE));
        case DM_GETDEFID:
            return MAKELRESULT(DefaultButton(), DC_HASDEFID);
        case WM_COMMAND:
            OnCommand(LOWORD(wparam), HIWORD(wparam));
            return 0;
        case WM_NOTIFY:
            return OnNotify(reinterpret_cast<NMHDR*>(lparam));
        case WM_CLOSE:
            if (IsWindowEnabled(Handle())) Close();
            return 0;
        default:
            return OnStateMessage(message, wparam, lparam);
    }
}

LRESULT ModalDialog::OnStateMessage(UINT message, WPARAM wparam, LPARAM lparam) {
    switch (message) {
        case WM_ACTIVATE:
            OnActivated(LOWORD(wparam) != WA_INACTIVE && HIWORD(wparam) == 0);
            return 0;
        case WM_DPICHANGED:
            ApplyScale();
            MoveTo(KeptInside(AreaOf(*reinterpret_cast<const RECT*>(lparam)),
                              AreaOf(win32::WorkAreaOf(Handle()))));
            Layout();
            return 0;
        case WM_DISPLAYCHANGE: {
            RECT window{};
            GetWindowRect(Handle(), &window);
            ApplyScale();
            if (!IsZoomed(Handle())) MoveTo(KeptInside(AreaOf(window), AreaOf(win32::WorkAreaOf(Handle()))));
            Layout();
            return 0;
        }
        case WM_SETTINGCHANGE:
        case WM_SYSCOLORCHANGE:
        case WM_THEMECHANGED:
            // Windows tells top-level windows only.
            EnumChildWindows(Handle(), PassOn, static_cast<LPARAM>(message));
            ApplyScale();
            Layout();
            break;
        case WM_ENDSESSION:
            if (wparam) Close();
            return 0;
        default:
            break;
    }
    return Window::OnMessage(message, wparam, lparam);
}

// Without this the keyboard would be the dialog's own after a visit to another program, and lost.
void ModalDialog::OnActivated(bool active) {
    if (!active) {
        const HWND focus = GetFocus();
        if (focus && IsChild(Handle(), focus)) focus_to_restore_ = focus;
        return;
    }
    if (!created_) return;
    if (const HWND focus = GetFocus(); focus && IsChild(Handle(), focus)) return;
    const HWND before = focus_to_restore_;
    SetFocus(before && IsChild(Handle(), before) && IsWindowVisible(before) ? before : FirstFocus());
}

void ModalDialog::ApplyScale() {
    const int before = std::exchange(dpi_, win32::DpiOf(Handle()));
    if (!created_) return;
    win32::UniqueFont font = win32::MessageFont(dpi_);
    // Controls hand the font on to the windows that they are made of.
    for (HWND child = GetWindow(Handle(), GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT))
        SendMessageW(child, WM_SETFONT, reinterpret_cast<WPARAM>(font.get()), TRUE);
    font_ = std::move(font);
    OnScaled(before);
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
    RECT text{};
    DrawTextW(win32::MeasuringDc(Font()).Get(), caption, -1, &text, DT_SINGLELINE | DT_CALCRECT);
    return {std::max<LONG>(text.right + 2 * Px(kButtonPadding), Px(kButtonMinimum)), Px(kButtonHeight)};
}

}  // namespace tessel::ui
