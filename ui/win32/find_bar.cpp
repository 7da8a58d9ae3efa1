#include "ui/win32/find_bar.h"

#include <algorithm>

#include "common/win32/gdi.h"
#include "common/win32/module.h"

namespace tessel::ui {

namespace {

HWND CreateControl(HWND parent, HFONT font, const wchar_t* class_name, const wchar_t* caption, int id,
                   DWORD style, DWORD ex_style = 0) {
    const HWND control =
        CreateWindowExW(ex_style, class_name, caption, WS_CHILD | style, 0, 0, 0, 0, parent,
                        reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), win32::ThisModule(), nullptr);
    if (control) SendMessageW(control, WM_SETFONT, reinterpret_cast<WPARAM>(font), FALSE);
    return control;
}

}  // namespace

bool FindBar::Create(HWND parent, HFONT font, const Captions& captions) {
    captions_ = captions;
    label_ = CreateControl(parent, font, L"STATIC", captions.label, kIdLabel, SS_CENTERIMAGE);
    text_ = CreateControl(parent, font, L"EDIT", L"", kIdText, WS_TABSTOP | ES_AUTOHSCROLL, WS_EX_CLIENTEDGE);
    next_ = CreateControl(parent, font, L"BUTTON", captions.next, kIdNext, WS_TABSTOP);
    previous_ = CreateControl(parent, font, L"BUTTON", captions.previous, kIdPrevious, WS_TABSTOP);
    return label_ && text_ && next_ && previous_;
}

void FindBar::Show(bool shown) {
    shown_ = shown;
    for (HWND control : {label_, text_, next_, previous_}) ShowWindow(control, shown ? SW_SHOWNA : SW_HIDE);
}

bool FindBar::HasFocus() const {
    const HWND focus = GetFocus();
    return focus && (focus == text_ || focus == next_ || focus == previous_);
}

void FindBar::Focus() {
    SetFocus(text_);
    SendMessageW(text_, EM_SETSEL, 0, -1);
}

std::wstring FindBar::Text() const {
    std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(text_)) + 1, L'\0');
    text.resize(static_cast<std::size_t>(GetWindowTextW(text_, text.data(), static_cast<int>(text.size()))));
    return text;
}

void FindBar::SetText(const std::wstring& text) {
    SetWindowTextW(text_, text.c_str());
}

void FindBar::Layout(const RECT& bounds, int gap, int edit_width, const ButtonWidth& button_size) {
    const int height = bounds.bottom - bounds.top;
    int left = bounds.left;
    const auto place = [&](HWND control, int width) {
        MoveWindow(control, left, bounds.top, width, height, TRUE);
        left += width + gap;
    };
    const auto font = reinterpret_cast<HFONT>(SendMessageW(label_, WM_GETFONT, 0, 0));
    const SIZE label = win32::TextSize(win32::MeasuringDc(font).Get(), captions_.label);
    const int next = button_size(next_).cx;
    const int previous = button_size(previous_).cx;
    const int room = bounds.right - bounds.left - label.cx - next - previous - 3 * gap;
    place(label_, label.cx);
    // An edit writes at its top, so it is as high as its text and lies in the middle.
    const int edit_height = std::min<int>(label.cy + gap, height);
    const int edit = std::clamp(room, 0, edit_width);
    MoveWindow(text_, left, bounds.top + (height - edit_height) / 2, edit, edit_height, TRUE);
    left += edit + gap;
    place(next_, next);
    place(previous_, previous);
}

}  // namespace tessel::ui
