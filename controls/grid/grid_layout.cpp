#include "controls/grid/grid_layout.h"

#include <algorithm>

namespace tessel::controls {

namespace {

int RowIndex(model::GridRow row) {
    return static_cast<int>(row) - 1;
}

}  // namespace

GridRect Intersection(const GridRect& rect, const GridRect& area) {
    const GridRect common{std::max(rect.left, area.left), std::max(rect.top, area.top),
                          std::min(rect.right, area.right), std::min(rect.bottom, area.bottom)};
    return common.IsEmpty() ? GridRect{} : common;
}

void GridLayout::SetMetrics(const GridMetrics& metrics) {
    metrics_ = metrics;
    ClampScroll();
}

void GridLayout::SetClient(int width, int height) {
    width_ = std::max(0, width);
    height_ = std::max(0, height);
    ClampScroll();
}

void GridLayout::SetColumns(std::vector<GridColumnExtent> columns) {
    columns_ = std::move(columns);
    edges_.assign(1, 0);
    for (const GridColumnExtent& extent : columns_) edges_.push_back(edges_.back() + extent.width);
    ClampScroll();
}

GridRect GridLayout::CornerArea() const {
    return {0, 0, std::min(metrics_.captions_width, width_), std::min(metrics_.header_height, height_)};
}

GridRect GridLayout::HeaderArea() const {
    const GridRect corner = CornerArea();
    return {corner.right, 0, width_, corner.bottom};
}

GridRect GridLayout::CaptionsArea() const {
    const GridRect corner = CornerArea();
    return {0, corner.bottom, corner.right, height_};
}

GridRect GridLayout::CellsArea() const {
    const GridRect corner = CornerArea();
    return {corner.right, corner.bottom, width_, height_};
}

GridRect GridLayout::HeaderRect(int column) const {
    const int index = IndexOf(column);
    if (index < 0) return {};
    const int origin = metrics_.captions_width - scroll_x_;
    return {origin + edges_[index], 0, origin + edges_[index + 1], metrics_.header_height};
}

GridRect GridLayout::CaptionRect(model::GridRow row) const {
    const int top = metrics_.header_height - scroll_y_ + RowIndex(row) * metrics_.row_height;
    return {0, top, metrics_.captions_width, top + metrics_.row_height};
}

GridRect GridLayout::CellRect(model::GridRow row, int column) const {
    const GridRect header = HeaderRect(column);
    if (header.IsEmpty()) return {};
    const GridRect caption = CaptionRect(row);
    return {header.left, caption.top, header.right, caption.bottom};
}

GridRect GridLayout::ArrowRect(model::GridRow row, int column) const {
    GridRect rect = CellRect(row, column);
    rect.left = std::max(rect.left, rect.right - metrics_.arrow_width);
    return rect;
}

GridHit GridLayout::HitTest(int x, int y) const {
    if (CornerArea().Contains(x, y)) return {GridPart::Corner};
    if (HeaderArea().Contains(x, y)) {
        // From the right, so that of two columns meeting in one place the pointer takes the later one, and a
        // column made very narrow can be widened again.
        const Range range = VisibleRange();
        for (std::size_t i = range.last; i-- > range.first;) {
            const int edge = HeaderRect(columns_[i].column).right;
            if (x >= edge - metrics_.divider_reach && x < edge + metrics_.divider_reach)
                return {GridPart::Divider, model::GridRow::Campo, columns_[i].column};
        }
    }
    const auto column_at = [&]() -> int {
        const int inside = x - metrics_.captions_width + scroll_x_;
        const auto edge = std::upper_bound(edges_.begin(), edges_.end(), inside);
        if (inside < 0 || edge == edges_.end()) return -1;
        return columns_[static_cast<std::size_t>(edge - edges_.begin()) - 1].column;
    };
    const auto row_at = [&]() -> int {
        const int inside = y - metrics_.header_height + scroll_y_;
        if (inside < 0 || metrics_.row_height <= 0) return -1;
        const int index = inside / metrics_.row_height;
        return index < model::kGridRowCount ? index : -1;
    };
    if (HeaderArea().Contains(x, y)) {
        const int column = column_at();
        return column < 0 ? GridHit{} : GridHit{GridPart::Header, model::GridRow::Campo, column};
    }
    const int row = row_at();
    if (row < 0) return {};
    if (CaptionsArea().Contains(x, y)) return {GridPart::Caption, model::kGridRows[row]};
    if (!CellsArea().Contains(x, y)) return {};
    const int column = column_at();
    return column < 0 ? GridHit{} : GridHit{GridPart::Cell, model::kGridRows[row], column};
}

GridLayout::Range GridLayout::VisibleRange() const {
    const int right = scroll_x_ + ViewWidth();
    Range range;
    while (range.first < columns_.size() && edges_[range.first + 1] <= scroll_x_) ++range.first;
    range.last = range.first;
    while (range.last < columns_.size() && edges_[range.last] < right) ++range.last;
    return range;
}

int GridLayout::MaximumScrollX() const {
    return std::max(0, ContentWidth() - ViewWidth());
}
int GridLayout::MaximumScrollY() const {
    return std::max(0, ContentHeight() - ViewHeight());
}

bool GridLayout::ScrollTo(int x, int y) {
    const int old_x = scroll_x_;
    const int old_y = scroll_y_;
    scroll_x_ = x;
    scroll_y_ = y;
    ClampScroll();
    return scroll_x_ != old_x || scroll_y_ != old_y;
}

int GridLayout::ColumnStepX(bool forward) const {
    if (forward) {
        const auto next = std::upper_bound(edges_.begin(), edges_.end(), scroll_x_);
        return next == edges_.end() ? scroll_x_ : *next;
    }
    const auto here = std::lower_bound(edges_.begin(), edges_.end(), scroll_x_);
    return here == edges_.begin() ? 0 : *(here - 1);
}

int GridLayout::PageStepX(bool forward) const {
    if (columns_.empty()) return 0;
    // The column cut off at one side becomes the first one whole at the other.
    if (forward) {
        const auto cut = std::upper_bound(edges_.begin(), edges_.end(), scroll_x_ + ViewWidth());
        return std::max(*(cut - 1), ColumnStepX(true));
    }
    const auto first = std::lower_bound(edges_.begin(), edges_.end(), scroll_x_ - ViewWidth());
    return std::min(first == edges_.end() ? 0 : *first, ColumnStepX(false));
}

bool GridLayout::EnsureVisible(model::GridRow row, int column) {
    int x = scroll_x_;
    int y = scroll_y_;
    if (const int index = IndexOf(column); index >= 0) {
        x = std::max(x, edges_[index + 1] - ViewWidth());
        x = std::min(x, edges_[index]);
    }
    const int top = RowIndex(row) * metrics_.row_height;
    y = std::max(y, top + metrics_.row_height - ViewHeight());
    y = std::min(y, top);
    return ScrollTo(x, y);
}

int GridLayout::IndexOf(int column) const {
    const auto found =
        std::find_if(columns_.begin(), columns_.end(),
                     [column](const GridColumnExtent& extent) { return extent.column == column; });
    return found == columns_.end() ? -1 : static_cast<int>(found - columns_.begin());
}

void GridLayout::ClampScroll() {
    scroll_x_ = std::clamp(scroll_x_, 0, MaximumScrollX());
    scroll_y_ = std::clamp(scroll_y_, 0, MaximumScrollY());
}

}  // namespace tessel::controls
