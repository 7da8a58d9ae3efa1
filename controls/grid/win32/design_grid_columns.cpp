// The columns of the design grid: their widths, and moving one by its header or its keys.
#include <algorithm>
#include <string>

#include "common/win32/gdi.h"
#include "controls/grid/win32/design_grid_view.h"

namespace tessel::controls {

namespace {

using model::GridRow;

constexpr UINT_PTR kScrollTimer = 1;
constexpr UINT kScrollInterval_ms = 60;
constexpr int kMarkWidth = 3;
constexpr int kStretchStep = 8;  ///< at 96 dpi

int TextWidth(HDC dc, std::wstring_view text) {
    return static_cast<int>(win32::TextSize(dc, text).cx);
}

}  // namespace

// Widths.

void DesignGridView::EndResize(bool keep) {
    if (!state_.IsResizing()) return;
    const int column = state_.ResizedColumn();
    const int before = state_.WidthBeforeResize();
    state_.EndResize();
    if (GetCapture() == Handle()) ReleaseCapture();
    if (!keep && grid_) grid_->SetColumnWidth(column, ColumnDips(before, dpi_));
}

void DesignGridView::FitColumn(int column) {
    const win32::MeasuringDc dc(font_.get());
    if (!dc.Get() || !grid_) return;
    int widest = TextWidth(dc.Get(), std::to_wstring(column + 1) + L"  " + grid_->Caption(column));
    for (const GridRow row : model::kGridRows)
        widest = std::max(widest, TextWidth(dc.Get(), grid_->Cell(row, column)));
    const GridMetrics& metrics = state_.Layout().Metrics();
    const int width = widest + Scaled(2 * kCellPadding) + metrics.arrow_width;
    grid_->SetColumnWidth(column,
                          ColumnDips(std::clamp(width, metrics.minimum_width, metrics.maximum_width), dpi_));
}

void DesignGridView::StretchColumn(bool wider) {
    if (!grid_ || !state_.IsFocusShown() || !CommitEdit()) return;
    const int column = state_.FocusedColumn();
    const GridMetrics& metrics = state_.Layout().Metrics();
    const int step = wider ? kStretchStep : -kStretchStep;
    grid_->SetColumnWidth(
        column, std::clamp(grid_->ColumnWidth(column) + step, ColumnDips(metrics.minimum_width, dpi_),
                           ColumnDips(metrics.maximum_width, dpi_)));
    if (state_.Layout().EnsureVisible(state_.FocusedRow(), column)) RefreshClient();
}

// Moving.

void DesignGridView::BeginMove(int column, int x) {
    state_.BeginMove(column, x);
    SetCapture(Handle());
}

void DesignGridView::DragColumn(int x) {
    const bool was_moving = state_.IsMoving();
    if (!state_.MoveColumnTo(x, GetSystemMetrics(SM_CXDRAG))) return;
    if (!was_moving) {
        SetTimer(Handle(), kScrollTimer, kScrollInterval_ms, nullptr);
        SetCursor(LoadCursorW(nullptr, IDC_SIZEALL));
    }
    InvalidateRect(Handle(), nullptr, FALSE);
}

// Without a movement of the mouse, while the pointer rests at an end of the cells.
void DesignGridView::OnScrollTimer() {
    POINT point{};
    if (!state_.IsMoving() || !GetCursorPos(&point)) return;
    const int before = state_.Layout().ScrollX();
    ScrollUnderDrag(point);
    if (state_.Layout().ScrollX() == before) return;
    ScreenToClient(Handle(), &point);
    DragColumn(point.x);
}

void DesignGridView::EndMove(bool keep) {
    if (!state_.IsHeaderPressed()) return;
    const int column = state_.MovedColumn();
    const int target = keep ? state_.DropTarget() : -1;
    state_.EndMove();
    KillTimer(Handle(), kScrollTimer);
    if (GetCapture() == Handle()) ReleaseCapture();
    InvalidateRect(Handle(), nullptr, FALSE);
    if (target >= 0) MoveColumnTo(column, target, true);
}

void DesignGridView::MoveColumnTo(int from, int to, bool select) {
    if (!events_) return;
    events_->OnGridColumnMoved(from, to);
    if (select) state_.SelectColumns(to, false);
    if (state_.Layout().EnsureVisible(state_.FocusedRow(), to)) RefreshClient();
    Announce();
    InvalidateRect(Handle(), nullptr, FALSE);
}

bool DesignGridView::CanMoveColumn(bool right) const {
    return grid_ && state_.NeighbourOf(state_.FocusedColumn(), right) >= 0;
}

void DesignGridView::MoveColumn(bool right) {
    if (!CanMoveColumn(right) || !CommitEdit()) return;
    const int column = state_.FocusedColumn();
    MoveColumnTo(column, state_.NeighbourOf(column, right), state_.HasWholeColumns());
}

void DesignGridView::PaintMoveMark(HDC dc) const {
    if (!state_.IsMoving() || state_.DropTarget() < 0) return;
    const GridLayout& layout = state_.Layout();
    const GridRect cells = layout.CellsArea();
    const int width = std::max(2, Scaled(kMarkWidth));
    const int middle = state_.DropMarkX();
    if (middle < cells.left || middle > cells.right) return;
    const int left = std::clamp(middle - width / 2, cells.left, std::max(cells.left, cells.right - width));
    const int bottom = std::min(cells.bottom, layout.CaptionRect(GridRow::Or).bottom);
    const COLORREF colour = GetSysColor(COLOR_HIGHLIGHT);
    win32::FillSolid(dc, {left, 0, left + width, bottom}, colour);
    // An arrow head in the header tells it from the frame of a cell.
    const int size = Scaled(5);
    for (int i = 0; i < size; ++i)
        win32::FillSolid(dc, {left - size + i, i, left + width + size - i, i + 1}, colour);
}

}  // namespace tessel::controls
