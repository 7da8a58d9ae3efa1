// The inside of a table's box: field rows with check boxes and key marks, and the scroll bar.
#include "common/win32/gdi.h"
#include "controls/diagram/win32/diagram_painter.h"

#include <vsstyle.h>

namespace tessel::controls::diagram {

namespace {

/// Restricts painting to a rectangle for a scope.
class Clipped {
public:
    Clipped(HDC dc, const RECT& rect) : dc_(dc), saved_(SaveDC(dc)) {
        IntersectClipRect(dc, rect.left, rect.top, rect.right, rect.bottom);
    }
    ~Clipped() { RestoreDC(dc_, saved_); }
    Clipped(const Clipped&) = delete;
    Clipped& operator=(const Clipped&) = delete;

private:
    HDC dc_;
    int saved_;
};

}  // namespace

void DiagramPainter::PaintRows(int index, const Box& box, const model::DiagramTable& table, bool selected,
                               const std::optional<Rubber>& rubber) {
    const Rect field = box.Field();
    if (IsEmpty(field)) return;
    const Clipped clipped(dc_, At(field));
    const Hit hover = Hovered();
    const int first = box.Scroll() / metrics_.row_height;
    for (int row = first; row < box.Rows() && box.RowVisible(row); ++row) {
        const RECT place = At(box.Row(row));
        if (place.bottom <= clip_.top || place.top >= clip_.bottom) continue;
        const bool under_pointer = hover.table == index && hover.row == row;
        const bool target = rubber && rubber->target.table == index && rubber->target.row == row;
        const bool source = rubber && rubber->table == index && rubber->row == row;
        const bool has_focus = selected && state_->FocusRow() == row;
        COLORREF background = colours_.window;
        if (under_pointer && !rubber) background = colours_.hover;
        if (has_focus || target || source) background = colours_.focus;
        if (background != colours_.window) win32::FillSolid(dc_, place, background);
        PaintRow(box, table, row, background, under_pointer && hover.kind == HitKind::Check && !rubber);
        if (has_focus && focused_) {
            SetTextColor(dc_, colours_.focus_text);
            SetBkColor(dc_, background);
            DrawFocusRect(dc_, &place);
        }
    }
}

void DiagramPainter::PaintRow(const Box& box, const model::DiagramTable& table, int row, COLORREF background,
                              bool hot_check) {
    const model::DiagramField* field = RowField(table, row);
    const RECT text = At(box.Text(row));
    const RECT check = At(box.Check(row));
    if (!IsReadable()) {
        const int middle = (text.top + text.bottom) / 2;
        if (RowChecked(table, row)) win32::FillSolid(dc_, check, colours_.text);
        win32::FillSolid(dc_, {text.left, middle, (text.left + text.right) / 2, middle + 1}, colours_.faint);
        return;
    }
    PaintCheck(check, RowChecked(table, row), hot_check, background);
    const bool has_focus = background == colours_.focus;
    if (field && (field->primary_key || field->foreign_key)) {
        const RECT at = At(box.Mark(row));
        const int size = at.right - at.left;
        marks_.Draw(dc_, at.left, at.top, {MarkShape::Key, size, size, 1, false, false},
                    has_focus && colours_.high_contrast ? colours_.focus_text
                    : field->primary_key                ? colours_.mark
                                                        : colours_.light_mark);
    }
    const win32::Selected font(dc_, row_font_.get());
    COLORREF colour = row == 0 && !colours_.high_contrast ? colours_.faint : colours_.text;
    if (has_focus && colours_.high_contrast) colour = colours_.focus_text;
    win32::DrawTextLine(dc_, text, RowCaption(table, row), colour);
}

void DiagramPainter::PaintCheck(const RECT& rect, bool checked, bool hot, COLORREF background) {
    const int size = rect.right - rect.left;
    const int key = size * 4 + (checked ? 2 : 0) + (hot ? 1 : 0);
    win32::UniqueBitmap& glyph = checks_[{key, background}];
    if (!glyph) glyph = MakeCheck(size, checked, hot, background);
    if (!check_dc_) check_dc_.reset(CreateCompatibleDC(nullptr));
    const win32::Selected selected(check_dc_.get(), glyph.get());
    BitBlt(dc_, rect.left, rect.top, size, size, check_dc_.get(), 0, 0, SRCCOPY);
}

// The visual style draws a check box at sizes of its own choice. At every other size, and where the user's
// few colours are to be kept to, it is drawn here, which is sharper than a picture made smaller.
win32::UniqueBitmap DiagramPainter::MakeCheck(int size, bool checked, bool hot, COLORREF background) {
    const win32::UniqueMemoryDc drawing(CreateCompatibleDC(nullptr));
    const int state =
        checked ? (hot ? CBS_CHECKEDHOT : CBS_CHECKEDNORMAL) : (hot ? CBS_UNCHECKEDHOT : CBS_UNCHECKEDNORMAL);
    SIZE natural{};
    if (theme_) GetThemePartSize(theme_.get(), dc_, BP_CHECKBOX, state, nullptr, TS_TRUE, &natural);
    RECT area{0, 0, size, size};
    win32::UniqueBitmap glyph(CreateCompatibleBitmap(dc_, size, size));
    const win32::Selected selected(drawing.get(), glyph.get());
    win32::FillSolid(drawing.get(), area, background);
    if (natural.cx == size && natural.cy == size)
        DrawThemeBackground(theme_.get(), drawing.get(), BP_CHECKBOX, state, &area, nullptr);
    else
        DrawCheck(drawing.get(), size, checked, hot, background);
    return glyph;
}

void DiagramPainter::DrawCheck(HDC dc, int size, bool checked, bool hot, COLORREF background) {
    const COLORREF ink = background == colours_.focus ? colours_.focus_text : colours_.text;
    const int edge = std::max(1, size / 13);
    RECT inside{0, 0, size, size};
    const COLORREF frame = colours_.high_contrast ? ink : colours_.line;
    win32::FillSolid(dc, inside, hot ? colours_.highlight : frame);
    InflateRect(&inside, -edge, -edge);
    win32::FillSolid(dc, inside, background == colours_.focus ? background : colours_.window);
    if (checked) marks_.Draw(dc, 0, 0, {MarkShape::Tick, size, size, 1, false, false}, ink);
}

void DiagramPainter::PaintThumb(const Box& box, bool hot) {
    const RECT thumb = At(box.ScrollThumb());
    const int width = std::max(3, Px(hot ? 7 : 5));
    const int room = std::max(1, Px(2));
    const int left = (thumb.left + thumb.right - width) / 2;
    const Mark mark{
        MarkShape::Pill, width, std::max(width, static_cast<int>(thumb.bottom - thumb.top) - 2 * room), 1,
        false,           false};
    marks_.Draw(dc_, left, thumb.top + room, mark, hot ? colours_.line : colours_.border);
}

}  // namespace tessel::controls::diagram
