#include "ui/win32/reason_label.h"

#include <string>

#include "common/win32/dpi.h"
#include "common/win32/gdi.h"

namespace tessel::ui {

namespace {

constexpr int kPadding = 14;   // dips around the text
constexpr int kIconSide = 24;  // dips
constexpr int kIconGap = 12;   // dips between icon and text

}  // namespace

bool ReasonLabel::Create(HWND parent, int id, const wchar_t* text) {
    static const win32::WindowClass kClass{L"TesselReason", CS_HREDRAW | CS_VREDRAW, nullptr, IDC_ARROW};
    return CreateWindowOf(kClass, text, WS_CHILD | WS_CLIPSIBLINGS | WS_VISIBLE, 0, parent, id);
}

void ReasonLabel::SetFont(HFONT font) {
    font_ = font;
    if (Handle()) InvalidateRect(Handle(), nullptr, TRUE);
}

LRESULT ReasonLabel::OnMessage(UINT message, WPARAM wparam, LPARAM lparam) {
    switch (message) {
        case WM_ERASEBKGND:
            return 1;
        case WM_PAINT:
            Paint();
            return 0;
        default:
            return Window::OnMessage(message, wparam, lparam);
    }
}

void ReasonLabel::Paint() {
    const win32::BufferedPaint paint(Handle());
    const HDC dc = paint.Dc();
    RECT area = paint.Client();
    win32::FillSolid(dc, area, GetSysColor(COLOR_WINDOW));
    const int dpi = win32::DpiOf(Handle());
    const int padding = win32::Scale(kPadding, dpi);
    const int icon_side = win32::Scale(kIconSide, dpi);
    InflateRect(&area, -padding, -padding);
    DrawIconEx(dc, area.left, area.top, LoadIconW(nullptr, IDI_INFORMATION), icon_side, icon_side, 0, nullptr,
               DI_NORMAL);
    area.left += icon_side + win32::Scale(kIconGap, dpi);
    std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(Handle())), L'\0');
    GetWindowTextW(Handle(), text.data(), static_cast<int>(text.size()) + 1);
    const win32::Selected font(dc, font_ ? static_cast<HGDIOBJ>(font_) : GetStockObject(DEFAULT_GUI_FONT));
    SetBkMode(dc, TRANSPARENT);
    SetTextColor(dc, GetSysColor(COLOR_WINDOWTEXT));
    DrawTextW(dc, text.data(), static_cast<int>(text.size()), &area, DT_WORDBREAK | DT_NOPREFIX);
}

}  // namespace tessel::ui
