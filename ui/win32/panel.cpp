#include "ui/win32/panel.h"

namespace tessel::ui {

bool Panel::Create(HWND parent, HWND form, int id, bool visible) {
    form_ = form;
    static const win32::WindowClass kClass{L"TesselPanel", 0, nullptr, IDC_ARROW};
    const DWORD style = WS_CHILD | WS_CLIPCHILDREN | WS_CLIPSIBLINGS | (visible ? WS_VISIBLE : 0);
    return CreateWindowOf(kClass, L"", style, WS_EX_CONTROLPARENT, parent, id);
}

LRESULT Panel::OnMessage(UINT message, WPARAM wparam, LPARAM lparam) {
    switch (message) {
        case WM_ERASEBKGND: {
            RECT client;
            GetClientRect(Handle(), &client);
            FillRect(reinterpret_cast<HDC>(wparam), &client, GetSysColorBrush(background_));
            return 1;
        }
        case WM_CTLCOLORSTATIC:
        case WM_CTLCOLORBTN: {
            const HDC dc = reinterpret_cast<HDC>(wparam);
            SetBkMode(dc, TRANSPARENT);
            SetTextColor(dc, GetSysColor(background_ == COLOR_WINDOW ? COLOR_WINDOWTEXT : COLOR_BTNTEXT));
            return reinterpret_cast<LRESULT>(GetSysColorBrush(background_));
        }
        case WM_COMMAND:
        case WM_NOTIFY:
            return form_ ? SendMessageW(form_, message, wparam, lparam) : 0;
        case WM_SIZE:
            if (on_size_) on_size_();
            return 0;
        default:
            return Window::OnMessage(message, wparam, lparam);
    }
}

}  // namespace tessel::ui
