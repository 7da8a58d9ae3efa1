// Painting of the design grid. Colours are the system's, so that high contrast and dark schemes are followed.
#include <algorithm>
#include <string>

#include "common/win32/dpi.h"
#include "common/win32/gdi.h"
#include "common/win32/memory_bitmap.h"
#include "common/win32/screen.h"
#include "controls/grid/win32/design_grid_view.h"

namespace tessel::controls {

namespace {

using model::GridRow;

// Parts and states of the visual styles used here.
constexpr int kHeaderItem = 1;
constexpr int kHeaderNormal = 1;
constexpr int kHeaderPressed = 3;
constexpr int kDropDownButtonRight = 6;
constexpr int kDropDownNormal = 1;
constexpr std::size_t kMostHeaderItems = 24;

constexpr int kLinePart = 40;    ///< of 255: how far grid lines stand out from the background
constexpr int kTintPart = 40;    ///< of 255: the focused cell, row caption and column header
constexpr int kFaintPart = 130;  ///< of 255: the column numbers

RECT ToRect(const GridRect& rect) {
    return {rect.left, rect.top, rect.right, rect.bottom};
}

void FillRight(HDC dc, const RECT& rect, int thickness, COLORREF colour) {
    win32::FillSolid(dc, {rect.right - thickness, rect.top, rect.right, rect.bottom}, colour);
}

void FillBottom(HDC dc, const RECT& rect, int thickness, COLORREF colour) {
    win32::FillSolid(dc, {rect.left, rect.bottom - thickness, rect.right, rect.bottom}, colour);
}

void DrawFrame(HDC dc, const RECT& rect, int thickness, COLORREF colour) {
    win32::FillSolid(dc, {rect.left, rect.top, rect.right, rect.top + thickness}, colour);
    win32::FillSolid(dc, {rect.left, rect.top, rect.left + thickness, rect.bottom}, colour);
    FillRight(dc, rect, thickness, colour);
    FillBottom(dc, rect, thickness, colour);
}

/// Restricts drawing to an area for a scope.
class Clip {
public:
    Clip(HDC dc, const GridRect& area) : dc_(dc), saved_(SaveDC(dc)) {
        IntersectClipRect(dc, area.left, area.top, area.right, area.bottom);
    }
    ~Clip() { RestoreDC(dc_, saved_); }
    Clip(const Clip&) = delete;
    Clip& operator=(const Clip&) = delete;

private:
    HDC dc_;
    int saved_;
};

}  // namespace

/// The colours of one painting.
struct GridColours {
    explicit GridColours(HWND hwnd) {
        if (!IsWindowEnabled(hwnd)) text = face_text = GetSysColor(COLOR_GRAYTEXT);
    }

    bool high_contrast = win32::IsHighContrast();
    COLORREF window = GetSysColor(COLOR_WINDOW);
    COLORREF text = GetSysColor(COLOR_WINDOWTEXT);
    COLORREF face = GetSysColor(COLOR_BTNFACE);
    COLORREF face_text = GetSysColor(COLOR_BTNTEXT);
    COLORREF accent = GetSysColor(COLOR_HIGHLIGHT);
    COLORREF accent_text = GetSysColor(COLOR_HIGHLIGHTTEXT);
    // In high contrast nothing is mixed: what stands out does so in full.
    COLORREF line = high_contrast ? text : win32::Blend(window, text, kLinePart);
    COLORREF face_line = high_contrast ? face_text : win32::Blend(face, face_text, kLinePart);
    COLORREF idle_focus = high_contrast ? text : win32::Blend(window, text, kFaintPart);
};

void DesignGridView::OnPaint() {
    win32::BufferedPaint paint(Handle());
    const HDC dc = paint.Dc();
    const GridColours colours(Handle());
    const GridLayout& layout = state_.Layout();
    win32::FillSolid(dc, paint.Client(), colours.window);
    const win32::Selected font(dc, font_.get());

    const GridLayout::Range range = layout.VisibleRange();
    {
        const Clip clip(dc, layout.CellsArea());
        for (std::size_t i = range.first; grid_ && i < range.last; ++i)
            for (const GridRow row : model::kGridRows) {
                const int column = layout.Columns()[i].column;
                PaintCell(dc, colours, layout.CellRect(row, column), row, column);
            }
        if (grid_) PaintFocusedCell(dc, colours);
    }
    {
        const Clip clip(dc, layout.HeaderArea());
        // Behind the last column the header goes on, empty.
        PaintHeaderItem(dc, colours, layout.HeaderArea(), -1);
        for (std::size_t i = range.first; grid_ && i < range.last; ++i)
            PaintHeaderItem(dc, colours, layout.HeaderRect(layout.Columns()[i].column),
                            layout.Columns()[i].column);
    }
    PaintCaptions(dc, colours);
    PaintHeaderItem(dc, colours, layout.CornerArea(), -1);
    PaintDropMark(dc);
    PaintMoveMark(dc);
}

void DesignGridView::PaintHeaderItem(HDC dc, const GridColours& colours, const GridRect& place, int column) {
    const RECT rect = ToRect(place);
    const int line = std::max(1, Scaled(1));
    const bool focused =
        column >= 0 && (column == state_.FocusedColumn() ||
                        (state_.HasBlock() && state_.IsSelected(state_.FocusedRow(), column)));
    COLORREF text = colours.text;
    if (header_theme_ && !colours.high_contrast) {
        PaintHeaderBackground(dc, rect, focused);
    } else {
        text = colours.face_text;
        COLORREF back = colours.face;
        if (focused) back = win32::Blend(colours.face, colours.accent, kTintPart);
        if (focused && colours.high_contrast) {
            back = colours.accent;
            text = colours.accent_text;
        }
        win32::FillSolid(dc, rect, back);
        FillRight(dc, rect, line, colours.face_line);
    }
    if (focused)
        FillBottom(dc, rect, std::max(2, Scaled(2)), colours.accent);
    else
        FillBottom(dc, rect, line, colours.line);
    if (column < 0) return;

    // The column's number, faint, then its caption.
    const std::wstring number = std::to_wstring(column + 1);
    const COLORREF faint = colours.high_contrast ? text : win32::Blend(text, colours.face, kFaintPart);
    RECT area{rect.left + Scaled(5), rect.top, rect.right - Scaled(4), rect.bottom - line};
    win32::DrawTextLine(dc, area, number, faint);
    area.left += static_cast<LONG>(win32::TextSize(dc, number).cx) + Scaled(6);
    if (area.left >= area.right) return;
    const win32::Selected font(dc, focused ? bold_font_.get() : font_.get());
    win32::DrawTextLine(dc, area, grid_->Caption(column), text);
}

// The visual style draws an item in nine pieces, which takes a while; most items look the same.
void DesignGridView::PaintHeaderBackground(HDC dc, const RECT& rect, bool focused) {
    const int width = rect.right - rect.left;
    const int height = rect.bottom - rect.top;
    const int state = focused ? kHeaderPressed : kHeaderNormal;
    if (header_items_.size() >= kMostHeaderItems) header_items_.clear();
    win32::UniqueBitmap& item = header_items_[{width, height, state}];
    const win32::UniqueMemoryDc memory(CreateCompatibleDC(dc));
    const bool is_new = !item;
    if (is_new && width > 0 && height > 0) item = win32::MemoryBitmap(width, height);
    if (!memory || !item) return;
    const win32::Selected selected(memory.get(), item.get());
    if (is_new) {
        const RECT whole{0, 0, width, height};
        win32::FillSolid(memory.get(), whole, GetSysColor(COLOR_WINDOW));
        DrawThemeBackground(header_theme_.get(), memory.get(), kHeaderItem, state, &whole, nullptr);
    }
    BitBlt(dc, rect.left, rect.top, width, height, memory.get(), 0, 0, SRCCOPY);
}

void DesignGridView::PaintCaptions(HDC dc, const GridColours& colours) {
    const GridLayout& layout = state_.Layout();
    const Clip clip(dc, layout.CaptionsArea());
    const int line = std::max(1, Scaled(1));
    win32::FillSolid(dc, ToRect(layout.CaptionsArea()), colours.face);
    for (const GridRow row : model::kGridRows) {
        const bool focused = grid_ && row == state_.FocusedRow();
        const RECT rect = ToRect(layout.CaptionRect(row));
        COLORREF text = colours.face_text;
        if (focused && colours.high_contrast) {
            win32::FillSolid(dc, rect, colours.accent);
            text = colours.accent_text;
        } else if (focused) {
            win32::FillSolid(dc, rect, win32::Blend(colours.face, colours.accent, kTintPart));
        }
        FillBottom(dc, rect, line, colours.face_line);
        if (focused)
            win32::FillSolid(dc, {rect.left, rect.top, rect.left + Scaled(3), rect.bottom}, colours.accent);
        const win32::Selected font(dc, focused ? bold_font_.get() : font_.get());
        const RECT area{rect.left + Scaled(8), rect.top, rect.right - Scaled(4), rect.bottom - line};
        win32::DrawTextLine(dc, area, model::RowCaption(row), text);
    }
    FillRight(dc, ToRect(layout.CaptionsArea()), line, colours.face_line);
}

void DesignGridView::PaintCell(HDC dc, const GridColours& colours, const GridRect& place, GridRow row,
                               int column) {
    const RECT rect = ToRect(place);
    const int line = std::max(1, Scaled(1));
    COLORREF colour = colours.text;
    const bool focused = row == state_.FocusedRow() && column == state_.FocusedColumn();
    if (state_.HasBlock() && state_.IsSelected(row, column) && !focused) {
        win32::FillSolid(
            dc, rect,
            colours.high_contrast ? colours.accent : win32::Blend(colours.window, colours.accent, kTintPart));
        if (colours.high_contrast) colour = colours.accent_text;
    }
    FillRight(dc, rect, line, colours.line);
    FillBottom(dc, rect, line, colours.line);
    const std::wstring& text = grid_->Cell(row, column);
    if (text.empty()) return;
    const RECT area{rect.left + Scaled(4), rect.top, rect.right - line - Scaled(3), rect.bottom - line};
    win32::DrawTextLine(dc, area, text, colour);
}

void DesignGridView::PaintFocusedCell(HDC dc, const GridColours& colours) {
    if (!state_.IsFocusShown()) return;
    const GridLayout& layout = state_.Layout();
    const GridRow row = state_.FocusedRow();
    const int column = state_.FocusedColumn();
    const int line = std::max(1, Scaled(1));
    RECT rect = ToRect(layout.CellRect(row, column));
    const HWND focus = GetFocus();
    const bool active = focus == Handle() || (focus && IsChild(Handle(), focus));

    // The frame lies on the grid lines around the cell, so that the text stays where it was.
    RECT frame{rect.left - line, rect.top - line, rect.right, rect.bottom};
    frame.left = std::max<LONG>(frame.left, layout.CellsArea().left);
    frame.top = std::max<LONG>(frame.top, layout.CellsArea().top);
    RECT inside = rect;
    inside.right -= line;
    inside.bottom -= line;
    if (active && !colours.high_contrast)
        win32::FillSolid(dc, inside, win32::Blend(colours.window, colours.accent, kTintPart / 2));

    RECT area{rect.left + Scaled(4), rect.top, rect.right - line - Scaled(3), rect.bottom - line};
    if (IsArrowShown()) {
        RECT arrow = ToRect(layout.ArrowRect(row, column));
        arrow.right -= line;
        arrow.bottom -= line;
        area.right = arrow.left - Scaled(1);
        if (combo_theme_) {
            DrawThemeBackground(combo_theme_.get(), dc, kDropDownButtonRight, kDropDownNormal, &arrow,
                                nullptr);
        } else {
            const int centre = (arrow.left + arrow.right) / 2;
            const int top = (arrow.top + arrow.bottom) / 2 - Scaled(2);
            const int size = Scaled(4);
            for (int i = 0; i < size; ++i)
                win32::FillSolid(dc, {centre - size + i, top + i, centre + size - i, top + i + 1},
                                 colours.text);
        }
    }
    win32::DrawTextLine(dc, area, FocusedText(), colours.text);
    DrawFrame(dc, frame, active ? std::max(2, Scaled(2)) : line,
              active ? colours.accent : colours.idle_focus);
}

}  // namespace tessel::controls
