// Where everything of the design grid lies, in device pixels of its client area: the fixed column of row
// captions, the header, the cells, and how far both directions are scrolled.
//
// Pure arithmetic over metrics, the client's size and the shown columns; knows no window, no font and no
// model contents. Which cell has the focus, and how it moves, is in grid_state.h.
#pragma once

#include <cstddef>
#include <vector>

#include "model/design_grid.h"

namespace tessel::controls {

/// Left and top belong to the rectangle, right and bottom do not.
struct GridRect {
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;

    int Width() const { return right - left; }
    int Height() const { return bottom - top; }
    bool IsEmpty() const { return right <= left || bottom <= top; }
    bool Contains(int x, int y) const { return x >= left && x < right && y >= top && y < bottom; }
    friend bool operator==(const GridRect&, const GridRect&) = default;
};

/// The part of `rect` that lies in `area`; an empty rectangle at 0 when there is none.
[[nodiscard]] GridRect Intersection(const GridRect& rect, const GridRect& area);

struct GridMetrics {
    int row_height = 22;
    int header_height = 24;
    int captions_width = 100;
    int divider_reach = 4;  ///< how near to a column's edge the pointer takes hold of it
    int arrow_width = 18;   ///< of the drop-down arrow in the focused cell
    int minimum_width = 24;
    int maximum_width = 600;
    friend bool operator==(const GridMetrics&, const GridMetrics&) = default;
};

/// A shown column with its width.
struct GridColumnExtent {
    int column = 0;
    int width = 0;
    friend bool operator==(const GridColumnExtent&, const GridColumnExtent&) = default;
};

enum class GridPart { None, Corner, Caption, Header, Divider, Cell };

/// What a point is on. `row` counts for Caption and Cell, `column` for Header, Divider and Cell.
struct GridHit {
    GridPart part = GridPart::None;
    model::GridRow row = model::GridRow::Campo;
    int column = -1;
    friend bool operator==(const GridHit&, const GridHit&) = default;
};

class GridLayout {
public:
    void SetMetrics(const GridMetrics& metrics);
    const GridMetrics& Metrics() const { return metrics_; }
    void SetClient(int width, int height);
    /// The shown columns from left to right. The scroll position is kept as far as it still exists.
    void SetColumns(std::vector<GridColumnExtent> columns);
    const std::vector<GridColumnExtent>& Columns() const { return columns_; }

    /// The areas that scroll along one axis, both, or none.
    GridRect CornerArea() const;
    GridRect HeaderArea() const;
    GridRect CaptionsArea() const;
    GridRect CellsArea() const;

    /// Places by the scroll position, not clipped to their areas. Empty for a column that is not shown.
    GridRect CellRect(model::GridRow row, int column) const;
    GridRect HeaderRect(int column) const;
    GridRect CaptionRect(model::GridRow row) const;
    /// The drop-down arrow at the right end of a cell.
    GridRect ArrowRect(model::GridRow row, int column) const;

    GridHit HitTest(int x, int y) const;

    /// Indices into Columns() of the columns that show at least one pixel: [first, last).
    struct Range {
        std::size_t first = 0;
        std::size_t last = 0;
        friend bool operator==(const Range&, const Range&) = default;
    };
    Range VisibleRange() const;

    int ContentWidth() const { return edges_.back(); }
    int ContentHeight() const { return metrics_.row_height * model::kGridRowCount; }
    int ViewWidth() const { return CellsArea().Width(); }
    int ViewHeight() const { return CellsArea().Height(); }
    int ScrollX() const { return scroll_x_; }
    int ScrollY() const { return scroll_y_; }
    int MaximumScrollX() const;
    int MaximumScrollY() const;
    /// Scroll positions are brought into what exists. True when something moved.
    bool ScrollTo(int x, int y);
    /// Targets of one step: the next or previous column's start, and about a view's width.
    int ColumnStepX(bool forward) const;
    int PageStepX(bool forward) const;
    /// Scrolls as little as shows the whole cell. True when something moved.
    bool EnsureVisible(model::GridRow row, int column);

    /// Index into Columns(), or -1 for a column that is not shown.
    int IndexOf(int column) const;

private:
    void ClampScroll();

    GridMetrics metrics_;
    std::vector<GridColumnExtent> columns_;
    std::vector<int> edges_{0};  ///< starts of the columns from the first one's, and the last one's end
    int width_ = 0;
    int height_ = 0;
    int scroll_x_ = 0;
    int scroll_y_ = 0;
};

}  // namespace tessel::controls
