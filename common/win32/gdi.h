// Painting helpers: flicker-free paint, selection scope, text measuring.
#pragma once

#include <windows.h>

#include <string_view>

#include "common/win32/handles.h"

namespace tessel::win32 {

/// Selects an object into a device context for a scope.
class Selected {
public:
    Selected(HDC dc, HGDIOBJ object) : dc_(dc), old_(SelectObject(dc, object)) {}
    ~Selected() { SelectObject(dc_, old_); }
    Selected(const Selected&) = delete;
    Selected& operator=(const Selected&) = delete;

private:
    HDC dc_;
    HGDIOBJ old_;
};

/// A device context of the screen's kind to measure texts of a font in. No window has to lend its own, which
/// costs the system more than the measuring.
class MeasuringDc {
public:
    explicit MeasuringDc(HGDIOBJ font) : dc_(CreateCompatibleDC(nullptr)), font_(dc_.get(), font) {}

    HDC Get() const { return dc_.get(); }

private:
    UniqueMemoryDc dc_;
    Selected font_;
};

/// BeginPaint with a memory bitmap of the client area; EndPaint copies it to the screen in one go. Answer
/// WM_ERASEBKGND with 1 in windows that paint this way.
class BufferedPaint {
public:
    explicit BufferedPaint(HWND hwnd);
    ~BufferedPaint();
    BufferedPaint(const BufferedPaint&) = delete;
    BufferedPaint& operator=(const BufferedPaint&) = delete;

    HDC Dc() const { return memory_ ? memory_.get() : paint_.hdc; }
    const RECT& Client() const { return client_; }
    /// What needs painting; everything else of the client area stays as it is.
    const RECT& Area() const { return paint_.rcPaint; }

private:
    HWND hwnd_;
    PAINTSTRUCT paint_{};
    RECT client_{};
    UniqueMemoryDc memory_;
    UniqueBitmap bitmap_;
    HGDIOBJ old_bitmap_ = nullptr;
};

void FillSolid(HDC dc, const RECT& rect, COLORREF colour);
/// Size in pixels of one line of text in the selected font.
SIZE TextSize(HDC dc, std::wstring_view text);
/// One line, clipped with an ellipsis, no "&" processing; `format` adds DT_ flags such as DT_CENTER.
void DrawTextLine(HDC dc, const RECT& rect, std::wstring_view text, COLORREF colour, UINT format = DT_LEFT);
/// The colour `part` of 255 on the way from `from` to `to`.
COLORREF Blend(COLORREF from, COLORREF to, int part);

}  // namespace tessel::win32
