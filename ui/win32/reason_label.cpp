#include "ui/win32/reason_label.h"

#include <algorithm>

#include "common/win32/dpi.h"
#include "common/win32/gdi.h"
#include "common/win32/screen.h"
#include "common/win32/scroll_info.h"
#include "ui/text_check_texts.h"
#include "ui/win32/designer_ids.h"

namespace tessel::ui {

namespace {

// All in dips.
constexpr int kPadding = 14;  // around the text
constexpr int kIconSide = 24;
constexpr int kIconGap = 12;  // between icon and text
constexpr int kReasonGap = 10;
constexpr int kCompactPadding = 4;
constexpr int kCompactGap = 4;
constexpr int kLinkGap = 4;
constexpr int kLinkInset = 4;  // what a LinkLabel leaves at its edge
constexpr int kScrollStep = 24;
constexpr UINT kFormat = DT_WORDBREAK | DT_NOPREFIX;

std::wstring TextOf(HWND hwnd) {
    std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(hwnd)), L'\0');
    GetWindowTextW(hwnd, text.data(), static_cast<int>(text.size()) + 1);
    return text;
}

}  // namespace

bool ReasonLabel::Create(HWND parent, int id, const wchar_t* text, std::function<void()> on_go) {
    static const win32::WindowClass kClass{L"TesselReason", CS_HREDRAW | CS_VREDRAW, nullptr, IDC_ARROW};
    on_go_ = std::move(on_go);
    return CreateWindowOf(kClass, text, WS_CHILD | WS_CLIPSIBLINGS | WS_CLIPCHILDREN | WS_VISIBLE,
                          WS_EX_CONTROLPARENT, parent, id);
}

// Most designs are shown, and never need them.
void ReasonLabel::CreateLabels() {
    if (!Handle() || link_.Handle()) return;
    if (!reason_.Handle() &&
        !reason_.Create(Handle(), kIdReasonText, LinkLabel::Look::Plain, COLOR_WINDOW, nullptr))
        return;
    if (!link_.Create(Handle(), kIdReasonLink, LinkLabel::Look::Link, COLOR_WINDOW, on_go_)) return;
    link_.SetContents(texts::kGoToPlace, LinkLabel::Sign::None, true);
}

void ReasonLabel::SetFont(HFONT font) {
    font_ = font;
    reason_.SetFont(font);
    link_.SetFont(font);
    if (!Handle()) return;
    Layout();
    InvalidateRect(Handle(), nullptr, TRUE);
}

void ReasonLabel::SetReason(const std::wstring& reason) {
    if (!reason.empty()) CreateLabels();
    has_reason_ = !reason.empty() && link_.Handle();
    reason_.SetContents(reason, LinkLabel::Sign::None, false);
    ShowWindow(reason_.Handle(), has_reason_ ? SW_SHOWNA : SW_HIDE);
    ShowWindow(link_.Handle(), has_reason_ ? SW_SHOWNA : SW_HIDE);
    offset_ = 0;
    Layout();
}

HWND ReasonLabel::Link() const {
    return has_reason_ ? link_.Handle() : nullptr;
}

int ReasonLabel::Px(int dips) const {
    return win32::Scale(dips, win32::DpiOf(Handle()));
}

int ReasonLabel::Padding() const {
    return Px(compact_ ? kCompactPadding : kPadding);
}

RECT ReasonLabel::TextArea() const {
    RECT client{};
    GetClientRect(Handle(), &client);
    const int icon = compact_ ? 0 : Px(kIconSide + kIconGap);
    RECT area{Padding() + icon, Padding(), client.right - Padding(), 0};
    area.right = std::max(area.right, area.left + 1);
    const win32::MeasuringDc dc(font_ ? static_cast<HGDIOBJ>(font_) : GetStockObject(DEFAULT_GUI_FONT));
    const std::wstring text = TextOf(Handle());
    RECT needed = area;
    DrawTextW(dc.Get(), text.data(), static_cast<int>(text.size()), &needed, kFormat | DT_CALCRECT);
    area.bottom = needed.bottom;
    return area;
}

void ReasonLabel::Arrange() {
    const RECT text = TextArea();
    int bottom = compact_ ? text.bottom : std::max<int>(text.bottom, Padding() + Px(kIconSide));
    const int left = text.left - Px(kLinkInset);
    const int width = text.right - left;
    const auto place = [&](const LinkLabel& label, int gap, int label_width) {
        const int height = label.HeightFor(label_width);
        SetWindowPos(label.Handle(), nullptr, left, bottom + gap - offset_, label_width, height,
                     SWP_NOZORDER | SWP_NOACTIVATE);
        bottom += gap + height;
    };
    if (has_reason_) {
        place(reason_, Px(compact_ ? kCompactGap : kReasonGap), width);
        place(link_, compact_ ? 0 : Px(kLinkGap), std::min(width, link_.Width()));
    }
    height_ = bottom + Padding();
}

// A scroll bar that comes or goes changes the width, and with it all of this once more.
void ReasonLabel::Layout() {
    if (!Handle() || laying_out_) return;
    laying_out_ = true;
    for (int round = 0; round < 2; ++round) {
        RECT client{};
        GetClientRect(Handle(), &client);
        compact_ = false;
        Arrange();
        if (height_ > client.bottom) {
            compact_ = true;
            Arrange();
        }
        offset_ = std::clamp<int>(offset_, 0, std::max<int>(0, height_ - client.bottom));
        SCROLLINFO info{};
        info.cbSize = sizeof info;
        info.fMask = SIF_RANGE | SIF_PAGE | SIF_POS;
        info.nMax = height_ - 1;
        info.nPage = static_cast<UINT>(std::max<int>(client.bottom, 1));
        info.nPos = offset_;
        win32::UpdateScrollInfo(Handle(), SB_VERT, info);
    }
    laying_out_ = false;
}

void ReasonLabel::ScrollTo(int offset) {
    RECT client{};
    GetClientRect(Handle(), &client);
    offset = std::clamp<int>(offset, 0, std::max<int>(0, height_ - client.bottom));
    if (offset == offset_) return;
    offset_ = offset;
    Layout();
    InvalidateRect(Handle(), nullptr, TRUE);
}

void ReasonLabel::OnScroll(int request) {
    RECT client{};
    GetClientRect(Handle(), &client);
    SCROLLINFO info{};
    info.cbSize = sizeof info;
    info.fMask = SIF_TRACKPOS;
    GetScrollInfo(Handle(), SB_VERT, &info);
    switch (request) {
        case SB_LINEUP:
            return ScrollTo(offset_ - Px(kScrollStep));
        case SB_LINEDOWN:
            return ScrollTo(offset_ + Px(kScrollStep));
        case SB_PAGEUP:
            return ScrollTo(offset_ - client.bottom);
        case SB_PAGEDOWN:
            return ScrollTo(offset_ + client.bottom);
        case SB_TOP:
            return ScrollTo(0);
        case SB_BOTTOM:
            return ScrollTo(height_);
        case SB_THUMBTRACK:
        case SB_THUMBPOSITION:
            return ScrollTo(info.nTrackPos);
        default:
            return;
    }
}

AccessibleElement ReasonLabel::Describe(AccessibleId) const {
    AccessibleElement element;
    element.name = TextOf(Handle());
    element.role = AccessibleRole::StaticText;
    element.states = accessible_state::kReadOnly;
    if (IsCovered()) element.states |= accessible_state::kInvisible;
    return element;
}

bool ReasonLabel::IsCovered() const {
    RECT place{};
    GetWindowRect(Handle(), &place);
    const POINT middle{(place.left + place.right) / 2, (place.top + place.bottom) / 2};
    for (HWND above = GetWindow(Handle(), GW_HWNDPREV); above; above = GetWindow(above, GW_HWNDPREV)) {
        RECT other{};
        if (IsWindowVisible(above) && GetWindowRect(above, &other) && PtInRect(&other, middle)) return true;
    }
    return false;
}

LRESULT ReasonLabel::OnMessage(UINT message, WPARAM wparam, LPARAM lparam) {
    if (LRESULT result = 0; accessible_.OnMessage(Handle(), message, wparam, lparam, result)) return result;
    switch (message) {
        case WM_ERASEBKGND:
            return 1;
        case WM_PAINT:
            Paint();
            return 0;
        case WM_SIZE:
            Layout();
            return 0;
        case WM_COMMAND:
            // The keyboard reached the link: it comes into view.
            if (LOWORD(wparam) == kIdReasonLink) ScrollTo(height_);
            return 0;
        case WM_VSCROLL:
            OnScroll(LOWORD(wparam));
            return 0;
        case WM_MOUSEWHEEL:
            ScrollTo(offset_ - MulDiv(static_cast<short>(HIWORD(wparam)), 3 * Px(kScrollStep), WHEEL_DELTA));
            return 0;
        default:
            return Window::OnMessage(message, wparam, lparam);
    }
}

// A disc with an "i", drawn at the size that it has, so that it is sharp at every scale.
void ReasonLabel::PaintSign(HDC dc) {
    using controls::diagram::MarkShape;
    const int side = Px(kIconSide);
    const int left = Padding();
    const int top = Padding() - offset_;
    const int stroke = std::max(2, side / 7);
    const int middle = left + (side - stroke) / 2;
    const COLORREF background = GetSysColor(COLOR_WINDOW);
    const COLORREF disc = GetSysColor(win32::IsHighContrast() ? COLOR_WINDOWTEXT : COLOR_HOTLIGHT);
    marks_.Draw(dc, left, top, {MarkShape::Disc, side, side, 1, false, false}, disc);
    marks_.Draw(dc, middle, top + side / 5, {MarkShape::Disc, stroke, stroke, 1, false, false}, background);
    win32::FillSolid(dc, {middle, top + side * 2 / 5, middle + stroke, top + side * 4 / 5}, background);
}

void ReasonLabel::Paint() {
    const win32::BufferedPaint paint(Handle());
    const HDC dc = paint.Dc();
    win32::FillSolid(dc, paint.Client(), GetSysColor(COLOR_WINDOW));
    if (!compact_) PaintSign(dc);
    RECT area = TextArea();
    OffsetRect(&area, 0, -offset_);
    const std::wstring text = TextOf(Handle());
    const win32::Selected font(dc, font_ ? static_cast<HGDIOBJ>(font_) : GetStockObject(DEFAULT_GUI_FONT));
    SetBkMode(dc, TRANSPARENT);
    SetTextColor(dc, GetSysColor(COLOR_WINDOWTEXT));
    DrawTextW(dc, text.data(), static_cast<int>(text.size()), &area, kFormat);
}

}  // namespace tessel::ui
