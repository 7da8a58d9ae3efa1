#include "common/win32/gdi.h"

#include "common/win32/memory_bitmap.h"

namespace tessel::win32 {

BufferedPaint::BufferedPaint(HWND hwnd) : hwnd_(hwnd) {
    BeginPaint(hwnd, &paint_);
    GetClientRect(hwnd, &client_);
    const int width = client_.right > 0 ? client_.right : 1;
    const int height = client_.bottom > 0 ? client_.bottom : 1;
    memory_.reset(CreateCompatibleDC(paint_.hdc));
    if (!memory_) return;
    bitmap_ = MemoryBitmap(width, height);
    if (!bitmap_) {
        memory_.reset();
        return;
    }
    old_bitmap_ = SelectObject(memory_.get(), bitmap_.get());
}

BufferedPaint::~BufferedPaint() {
    if (memory_) {
        const RECT& area = paint_.rcPaint;
        BitBlt(paint_.hdc, area.left, area.top, area.right - area.left, area.bottom - area.top, memory_.get(),
               area.left, area.top, SRCCOPY);
        SelectObject(memory_.get(), old_bitmap_);
    }
    EndPaint(hwnd_, &paint_);
}

void FillSolid(HDC dc, const RECT& rect, COLORREF colour) {
    const COLORREF old = SetBkColor(dc, colour);
    ExtTextOutW(dc, 0, 0, ETO_OPAQUE, &rect, nullptr, 0, nullptr);
    SetBkColor(dc, old);
}

SIZE TextSize(HDC dc, std::wstring_view text) {
    SIZE size{};
    GetTextExtentPoint32W(dc, text.data(), static_cast<int>(text.size()), &size);
    return size;
}

void DrawTextLine(HDC dc, const RECT& rect, std::wstring_view text, COLORREF colour, UINT format) {
    RECT area = rect;
    const COLORREF old = SetTextColor(dc, colour);
    const int mode = SetBkMode(dc, TRANSPARENT);
    DrawTextW(dc, text.data(), static_cast<int>(text.size()), &area,
              DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS | format);
    SetBkMode(dc, mode);
    SetTextColor(dc, old);
}

COLORREF Blend(COLORREF from, COLORREF to, int part) {
    const auto mix = [part](int a, int b) { return a + (b - a) * part / 255; };
    return RGB(mix(GetRValue(from), GetRValue(to)), mix(GetGValue(from), GetGValue(to)),
               mix(GetBValue(from), GetBValue(to)));
}

}  // namespace tessel::win32
