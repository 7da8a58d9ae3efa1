// What the design grid's view knows beyond the model: its layout, the focused cell with the moves that keys
// ask for, and a column being resized.
//
// Portable and without a window. Hidden columns do not exist for any move. The model's focus is the truth;
// the view copies it in with SetFocus.
#pragma once

#include "controls/grid/grid_layout.h"
#include "model/design_grid.h"

namespace tessel::controls {

enum class GridMove {
    Left,
    Right,
    Up,
    Down,
    RowStart,
    RowEnd,
    First,   ///< the first cell of all
    Last,    ///< the last cell of all
    PageUp,  ///< as many rows as fit the view
    PageDown,
    Next,  ///< to the right, then on to the next row's first cell
    Previous,
};

class GridState {
public:
    GridLayout& Layout() { return layout_; }
    const GridLayout& Layout() const { return layout_; }

    /// Takes the shown columns and their widths, scaled to pixels at `dpi`, from the model. True when they
    /// changed.
    bool TakeColumns(const model::DesignGrid& grid, int dpi);

    model::GridRow FocusedRow() const { return row_; }
    int FocusedColumn() const { return column_; }
    /// True when that is another cell than before.
    bool SetFocus(model::GridRow row, int column);
    /// False while the focus is on a hidden column.
    bool IsFocusShown() const { return layout_.IndexOf(column_) >= 0; }
    /// The shown column at or after `column`, else the one before it; -1 when none is shown.
    int NearestShown(int column) const;

    /// Moves the focus and scrolls to it. False when there is nowhere to go.
    bool Move(GridMove move);
    bool CanMove(GridMove move) const;

    /// The user took hold of the right edge of a column at `x`.
    void BeginResize(int column, int x);
    bool IsResizing() const { return resized_column_ >= 0; }
    int ResizedColumn() const { return resized_column_; }
    /// The width in pixels that the column should have with the pointer at `x`.
    int WidthAt(int x) const;
    /// The width it had when the drag began.
    int WidthBeforeResize() const { return width_before_; }
    void EndResize() { resized_column_ = -1; }

private:
    struct Target {
        int row;    ///< index, 0 to 7
        int index;  ///< into Layout().Columns()
    };
    Target TargetOf(GridMove move) const;
    Target Here() const;

    GridLayout layout_;
    model::GridRow row_ = model::GridRow::Campo;
    int column_ = 0;
    int resized_column_ = -1;
    int grabbed_at_ = 0;
    int width_before_ = 0;
};

/// A column's width in pixels at `dpi`, inside the metrics' limits.
[[nodiscard]] int ColumnPixels(int width_dips, int dpi, const GridMetrics& metrics);
/// The model's width, in pixels at 96 dpi, of a column that is `pixels` wide at `dpi`.
[[nodiscard]] int ColumnDips(int pixels, int dpi);

}  // namespace tessel::controls
