#include "ui/win32/link_label.h"

#include <algorithm>

#include "common/win32/dpi.h"
#include "common/win32/gdi.h"
#include "common/win32/handles.h"
#include "common/win32/link_colour.h"
#include "common/win32/screen.h"
#include "ui/text_check_texts.h"

namespace tessel::ui {

namespace {

// All in dips.
constexpr int kPaddingX = 4;
constexpr int kPaddingY = 3;
constexpr int kSignSide = 13;
constexpr int kSignGap = 6;
constexpr COLORREF kErrorColour = RGB(0xD1, 0x1A, 0x1A);
constexpr UINT kFormat = DT_WORDBREAK | DT_NOPREFIX | DT_EDITCONTROL;

bool IsPressKey(WPARAM key) {
    return key == VK_RETURN || key == VK_SPACE;
}

COLORREF ForegroundOf(int background) {
    return GetSysColor(background == COLOR_WINDOW ? COLOR_WINDOWTEXT : COLOR_BTNTEXT);
}

COLORREF LinkColourOn(int background) {
    return win32::LinkColour(GetSysColor(background), ForegroundOf(background));
}

}  // namespace

bool LinkLabel::Create(HWND parent, int id, Look look, int background, std::function<void()> on_pressed) {
    look_ = look;
    background_ = background;
    on_pressed_ = std::move(on_pressed);
    static const win32::WindowClass kClass{L"TesselLink", CS_HREDRAW | CS_VREDRAW, nullptr, IDC_ARROW};
    return CreateWindowOf(kClass, L"", WS_CHILD | WS_CLIPSIBLINGS | WS_VISIBLE, 0, parent, id);
}

void LinkLabel::SetFont(HFONT font) {
    font_ = font;
    if (Handle()) InvalidateRect(Handle(), nullptr, TRUE);
}

void LinkLabel::SetContents(const std::wstring& text, Sign sign, bool leads_somewhere) {
    if (!Handle() || (text == Text() && sign == sign_ && leads_somewhere == leads_somewhere_)) return;
    sign_ = sign;
    leads_somewhere_ = leads_somewhere;
    const LONG_PTR style = GetWindowLongPtrW(Handle(), GWL_STYLE);
    SetWindowLongPtrW(Handle(), GWL_STYLE, leads_somewhere ? style | WS_TABSTOP : style & ~WS_TABSTOP);
    SetWindowTextW(Handle(), text.c_str());
    accessible_.Report(EVENT_OBJECT_NAMECHANGE);
    InvalidateRect(Handle(), nullptr, TRUE);
}

std::wstring LinkLabel::Text() const {
    std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(Handle())), L'\0');
    GetWindowTextW(Handle(), text.data(), static_cast<int>(text.size()) + 1);
    return text;
}

HFONT LinkLabel::FontInUse() const {
    return font_ ? font_ : static_cast<HFONT>(GetStockObject(DEFAULT_GUI_FONT));
}

RECT LinkLabel::TextArea(const RECT& client) const {
    const int dpi = win32::DpiOf(Handle());
    RECT area = client;
    InflateRect(&area, -win32::Scale(kPaddingX, dpi), -win32::Scale(kPaddingY, dpi));
    if (sign_ != Sign::None) area.left += win32::Scale(kSignSide + kSignGap, dpi);
    return area;
}

int LinkLabel::HeightFor(int width) const {
    if (!Handle()) return 0;
    const RECT area = TextArea({0, 0, width, 0});
    const win32::MeasuringDc dc(FontInUse());
    RECT needed{0, 0, std::max<LONG>(area.right - area.left, 1), 0};
    const std::wstring text = Text();
    needed.bottom = win32::TextSize(dc.Get(), L"Áy").cy;
    const int one_line = needed.bottom;
    if (!text.empty())
        DrawTextW(dc.Get(), text.data(), static_cast<int>(text.size()), &needed, kFormat | DT_CALCRECT);
    needed.bottom = std::max<LONG>(needed.bottom, one_line);
    return needed.bottom + 2 * win32::Scale(kPaddingY, win32::DpiOf(Handle()));
}

AccessibleElement LinkLabel::Describe(AccessibleId) const {
    AccessibleElement element;
    element.name = Text();
    element.role = leads_somewhere_ ? AccessibleRole::Link : AccessibleRole::StaticText;
    element.states = leads_somewhere_ ? accessible_state::kFocusable : accessible_state::kReadOnly;
    if (leads_somewhere_) element.action = texts::kLinkAction;
    RECT client{};
    GetClientRect(Handle(), &client);
    element.place = {0, 0, client.right, client.bottom};
    return element;
}

int LinkLabel::Width() const {
    if (!Handle()) return 0;
    const LONG width = win32::TextSize(win32::MeasuringDc(FontInUse()).Get(), Text()).cx;
    const RECT area = TextArea({0, 0, width, 0});
    return static_cast<int>(2 * width - (area.right - area.left));
}

LRESULT LinkLabel::OnMessage(UINT message, WPARAM wparam, LPARAM lparam) {
    if (LRESULT result = 0; accessible_.OnMessage(Handle(), message, wparam, lparam, result)) return result;
    switch (message) {
        case WM_ERASEBKGND:
            return 1;
        case WM_PAINT:
            Paint();
            return 0;
        case WM_GETDLGCODE: {
            // Enter would otherwise press the dialog's own button.
            const auto* key = reinterpret_cast<const MSG*>(lparam);
            const bool wants =
                leads_somewhere_ && key && key->message == WM_KEYDOWN && IsPressKey(key->wParam);
            return wants ? DLGC_WANTMESSAGE : leads_somewhere_ ? DLGC_BUTTON : DLGC_STATIC;
        }
        case WM_KEYDOWN:
            if (IsPressKey(wparam)) Press();
            return 0;
        case WM_NCHITTEST:
            return leads_somewhere_ ? HTCLIENT : HTTRANSPARENT;
        case WM_SETCURSOR:
            SetCursor(LoadCursorW(nullptr, leads_somewhere_ ? IDC_HAND : IDC_ARROW));
            return TRUE;
        case WM_LBUTTONUP:
            Press();
            return 0;
        case WM_SETFOCUS:
            // So that a parent that scrolls can bring it into view.
            SendMessageW(GetParent(Handle()), WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(Handle()), BN_SETFOCUS),
                         reinterpret_cast<LPARAM>(Handle()));
            accessible_.ReportFocus();
            InvalidateRect(Handle(), nullptr, TRUE);
            return 0;
        case WM_KILLFOCUS:
        case WM_ENABLE:
            InvalidateRect(Handle(), nullptr, TRUE);
            return 0;
        default:
            return Window::OnMessage(message, wparam, lparam);
    }
}

void LinkLabel::Press() {
    if (leads_somewhere_ && on_pressed_) on_pressed_();
}

void LinkLabel::Paint() {
    const win32::BufferedPaint paint(Handle());
    const HDC dc = paint.Dc();
    win32::FillSolid(dc, paint.Client(), GetSysColor(background_));
    const std::wstring text = Text();
    if (text.empty()) return;
    RECT area = TextArea(paint.Client());
    if (sign_ != Sign::None) PaintSign(dc, paint.Client());
    const bool as_link = look_ == Look::Link && leads_somewhere_;
    win32::UniqueFont underlined;
    if (as_link) {
        LOGFONTW looks{};
        GetObjectW(FontInUse(), sizeof looks, &looks);
        looks.lfUnderline = TRUE;
        underlined.reset(CreateFontIndirectW(&looks));
    }
    const win32::Selected font(dc, underlined ? underlined.get() : FontInUse());
    SetBkMode(dc, TRANSPARENT);
    SetTextColor(dc, as_link ? LinkColourOn(background_) : ForegroundOf(background_));
    DrawTextW(dc, text.data(), static_cast<int>(text.size()), &area, kFormat | DT_END_ELLIPSIS);
    if (GetFocus() != Handle()) return;
    SetTextColor(dc, ForegroundOf(background_));
    SetBkColor(dc, GetSysColor(background_));
    DrawFocusRect(dc, &paint.Client());
}

// A disc with a cross, or with an "i"; in high contrast in the text's own colour.
void LinkLabel::PaintSign(HDC dc, const RECT& client) const {
    const int dpi = win32::DpiOf(Handle());
    const bool high_contrast = win32::IsHighContrast();
    const COLORREF background = GetSysColor(background_);
    const COLORREF own = sign_ == Sign::Error ? kErrorColour : LinkColourOn(background_);
    const COLORREF colour = high_contrast ? ForegroundOf(background_) : own;
    const int side = win32::Scale(kSignSide, dpi);
    const int left = client.left + win32::Scale(kPaddingX, dpi);
    const int text_height = [&] {
        const win32::Selected font(dc, FontInUse());
        return static_cast<int>(win32::TextSize(dc, L"Áy").cy);
    }();
    const int top = client.top + win32::Scale(kPaddingY, dpi) + (text_height - side) / 2;
    const int stroke = std::max(1, win32::Scale(3, dpi) / 2);
    const win32::UniqueBrush brush(CreateSolidBrush(colour));
    const win32::UniquePen none(CreatePen(PS_SOLID, 1, colour));
    const win32::UniquePen line(CreatePen(PS_SOLID, stroke, background));
    const win32::Selected filled(dc, brush.get());
    {
        const win32::Selected edge(dc, none.get());
        Ellipse(dc, left, top, left + side, top + side);
    }
    const win32::Selected drawn(dc, line.get());
    const int inset = side / 3;
    const int middle = left + side / 2;
    if (sign_ == Sign::Error) {
        MoveToEx(dc, left + inset, top + inset, nullptr);
        LineTo(dc, left + side - inset, top + side - inset);
        MoveToEx(dc, left + side - inset - 1, top + inset, nullptr);
        LineTo(dc, left + inset - 1, top + side - inset);
    } else {
        MoveToEx(dc, middle, top + side * 3 / 8 + 1, nullptr);
        LineTo(dc, middle, top + side - inset / 2 - 1);
        MoveToEx(dc, middle, top + side / 5, nullptr);
        LineTo(dc, middle, top + side / 5 + stroke);
    }
}

}  // namespace tessel::ui
