// A field that is dragged over the design grid: which query column would take it, and the mark that says so.
#include <algorithm>

#include "common/win32/gdi.h"
#include "controls/grid/win32/design_grid_view.h"

namespace tessel::controls {

namespace {

constexpr int kScrollEdge = 18;  // of the cells, at 96 dpi: a drag that rests there scrolls
constexpr int kMarkWidth = 3;

}  // namespace

int DesignGridView::DropColumnAt(POINT screen) const {
    if (!grid_ || !IsCreated()) return -1;
    ScreenToClient(Handle(), &screen);
    const GridLayout& layout = state_.Layout();
    const GridHit hit = layout.HitTest(screen.x, screen.y);
    if (hit.part == GridPart::Cell || hit.part == GridPart::Header || hit.part == GridPart::Divider)
        return hit.column;
    // Behind the last column.
    const bool behind = screen.x >= layout.CellsArea().left && screen.x < layout.CellsArea().right;
    return behind && hit.part == GridPart::None ? grid_->ColumnCount() : -1;
}

void DesignGridView::ShowDropMark(int column) {
    if (drop_column_ == column || !IsCreated()) return;
    drop_column_ = column;
    InvalidateRect(Handle(), nullptr, FALSE);
}

void DesignGridView::ScrollUnderDrag(POINT screen) {
    if (!IsCreated()) return;
    ScreenToClient(Handle(), &screen);
    const GridLayout& layout = state_.Layout();
    const GridRect cells = layout.CellsArea();
    const int step = Scaled(kScrollEdge);
    if (screen.x >= cells.right - step)
        ScrollTo(layout.ScrollX() + step, layout.ScrollY());
    else if (screen.x < cells.left + step && screen.x >= cells.left)
        ScrollTo(layout.ScrollX() - step, layout.ScrollY());
}

// A bar in front of a used column, where room will be made; a frame around an unused one, which takes the
// field.
void DesignGridView::PaintDropMark(HDC dc) const {
    const GridLayout& layout = state_.Layout();
    if (!grid_ || layout.IndexOf(drop_column_) < 0) return;
    const GridRect header = layout.HeaderRect(drop_column_);
    const GridRect cells = layout.CellsArea();
    const int width = std::max(2, Scaled(kMarkWidth));
    const int bottom = std::min(cells.bottom, layout.CellRect(model::GridRow::Or, drop_column_).bottom);
    const COLORREF colour = GetSysColor(COLOR_HIGHLIGHT);
    const auto fill = [&](int left, int top, int right, int low) {
        const RECT bar{std::max(left, cells.left), top, std::min(right, cells.right), low};
        if (bar.left < bar.right) win32::FillSolid(dc, bar, colour);
    };
    if (grid_->IsColumnUsed(drop_column_)) {
        fill(header.left - width / 2, header.top, header.left - width / 2 + width, bottom);
        return;
    }
    fill(header.left, header.top, header.left + width, bottom);
    fill(header.right - width, header.top, header.right, bottom);
    fill(header.left, header.top, header.right, header.top + width);
    fill(header.left, bottom - width, header.right, bottom);
}

}  // namespace tessel::controls
