#include "common/win32/window.h"

#include <commctrl.h>

#include <optional>
#include <string>
#include <vector>

#include "common/win32/foreign_call.h"
#include "common/win32/module.h"
#include "common/win32/system_cursor.h"

namespace tessel::win32 {

namespace {

// Only the user-interface thread registers classes, so a plain vector will do.
std::vector<std::wstring>& RegisteredClasses() {
    static std::vector<std::wstring> names;
    return names;
}

bool EnsureRegistered(const WindowClass& window_class, WNDPROC procedure) {
    std::vector<std::wstring>& names = RegisteredClasses();
    for (const std::wstring& name : names)
        if (name == window_class.name) return true;
    WNDCLASSEXW wc{};
    wc.cbSize = sizeof wc;
    wc.style = window_class.style;
    wc.lpfnWndProc = procedure;
    wc.hInstance = ThisModule();
    wc.hCursor = SystemCursor(window_class.cursor);
    wc.hbrBackground = window_class.background;
    wc.lpszClassName = window_class.name;
    // Noted first: a class that there is no memory to note would outlive the library.
    names.emplace_back(window_class.name);
    if (RegisterClassExW(&wc)) return true;
    names.pop_back();
    return false;
}

/// Whether anything of a window is the system's to draw.
bool HasFrame(HWND hwnd) {
    constexpr LONG_PTR kFrame = WS_BORDER | WS_DLGFRAME | WS_THICKFRAME | WS_HSCROLL | WS_VSCROLL;
    constexpr LONG_PTR kEdge = WS_EX_CLIENTEDGE | WS_EX_STATICEDGE | WS_EX_WINDOWEDGE | WS_EX_DLGMODALFRAME;
    return (GetWindowLongPtrW(hwnd, GWL_STYLE) & kFrame) || (GetWindowLongPtrW(hwnd, GWL_EXSTYLE) & kEdge);
}

/// What a control asks or tells its window because of a gesture; nothing for what it needs in order to paint.
std::optional<LRESULT> AnswerToGesture(const NMHDR& header) {
    switch (header.code) {
        case TCN_SELCHANGING:
        case TVN_SELCHANGINGW:
        case TVN_ITEMEXPANDINGW:
            return TRUE;  // it stays as it is
        case NM_CLICK:
        case NM_DBLCLK:
        case NM_RCLICK:
        case NM_RETURN:
        case LVN_ITEMACTIVATE:
        case TVN_BEGINDRAGW:
        case TVN_KEYDOWN:
            return 0;
        default:
            return std::nullopt;
    }
}

/// The answer to a message of the user's that comes while a call into a foreign object runs, see ForeignCall;
/// nothing for every other message.
std::optional<LRESULT> AnswerToInput(UINT message, WPARAM wparam, LPARAM lparam) {
    if (!ForeignCall::IsRunning()) return std::nullopt;
    const bool is_key = message >= WM_KEYFIRST && message <= WM_KEYLAST;
    const bool is_mouse = message >= WM_MOUSEFIRST && message <= WM_MOUSELAST;
    if (is_key || is_mouse) return 0;
    switch (message) {
        case WM_COMMAND:
        case WM_CONTEXTMENU:
        case WM_CLOSE:
            return 0;
        case WM_SYSCOMMAND:
            return (wparam & 0xFFF0) == SC_CLOSE ? std::optional<LRESULT>(0) : std::nullopt;
        case WM_NOTIFY:
            return AnswerToGesture(*reinterpret_cast<const NMHDR*>(lparam));
        default:
            return std::nullopt;
    }
}

}  // namespace

Window::~Window() {
    Destroy();
}

void Window::Destroy() {
    if (hwnd_) DestroyWindow(hwnd_);
}

bool Window::CreateWindowOf(const WindowClass& window_class, const wchar_t* text, DWORD style, DWORD ex_style,
                            HWND parent, int id, const RECT& position) {
    if (!EnsureRegistered(window_class, Procedure)) return false;
    const HMENU menu = (style & WS_CHILD) ? reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)) : nullptr;
    CreateWindowExW(ex_style, window_class.name, text, style, position.left, position.top,
                    position.right - position.left, position.bottom - position.top, parent, menu,
                    ThisModule(), this);
    return hwnd_ != nullptr;
}

LRESULT Window::OnMessage(UINT message, WPARAM wparam, LPARAM lparam) {
    if (message == WM_NCPAINT && !HasFrame(hwnd_)) return 0;
    return DefWindowProcW(hwnd_, message, wparam, lparam);
}

LRESULT CALLBACK Window::Procedure(HWND hwnd, UINT message, WPARAM wparam, LPARAM lparam) {
    if (message == WM_NCCREATE) {
        auto* self = static_cast<Window*>(reinterpret_cast<CREATESTRUCTW*>(lparam)->lpCreateParams);
        self->hwnd_ = hwnd;
        SetWindowLongPtrW(hwnd, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(self));
    }
    auto* self = reinterpret_cast<Window*>(GetWindowLongPtrW(hwnd, GWLP_USERDATA));
    if (!self) return DefWindowProcW(hwnd, message, wparam, lparam);
    if (const auto answer = AnswerToInput(message, wparam, lparam)) return *answer;
    LRESULT result = 0;
    try {
        result = self->OnMessage(message, wparam, lparam);
    } catch (...) {
        // Exhausted memory or a bug: the gesture is lost, the host lives on. WM_PAINT must still be validated
        // or it would be sent for ever.
        if (message == WM_PAINT) ValidateRect(hwnd, nullptr);
    }
    if (message == WM_NCDESTROY) {
        // The object may have been destroyed by its own OnMessage only if the window went first, so it is
        // read here.
        SetWindowLongPtrW(hwnd, GWLP_USERDATA, 0);
        self->hwnd_ = nullptr;
    }
    return result;
}

void UnregisterClasses() {
    for (const std::wstring& name : RegisteredClasses()) UnregisterClassW(name.c_str(), ThisModule());
    RegisteredClasses().clear();
}

}  // namespace tessel::win32
