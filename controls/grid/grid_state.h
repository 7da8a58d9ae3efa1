// What the design grid's view knows beyond the model: its layout, the focused cell with the moves that keys
// ask for, the selected block, and a column being resized or moved.
//
// Portable and without a window. Hidden columns do not exist for any move. The model's focus is the truth;
// the view copies it in with SetFocus.
#pragma once

#include "controls/grid/grid_layout.h"
#include "model/block_editing.h"
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
    /// True when that is another cell than before; it is then all that is selected.
    bool SetFocus(model::GridRow row, int column);
    /// False while the focus is on a hidden column.
    bool IsFocusShown() const { return layout_.IndexOf(column_) >= 0; }
    /// The shown column at or after `column`, else the one before it; -1 when none is shown.
    int NearestShown(int column) const;

    /// Moves the focus and scrolls to it. False when there is nowhere to go.
    bool Move(GridMove move);
    bool CanMove(GridMove move) const;

    // The selection (grid_selection.cpp): the cells between an anchor and the focus, or whole columns.
    /// Only the focused cell stays selected.
    void CollapseSelection();
    /// Moves the focus and leaves the anchor. True when the focus moved.
    bool ExtendTo(model::GridRow row, int column);
    bool Extend(GridMove move);
    /// Selects a column whole, or all from the anchor's to it. The focus goes there, in its row.
    void SelectColumns(int column, bool extend);
    void SelectAll();
    /// Never without a column while one is shown.
    model::CellRange Selection() const;
    bool IsSelected(model::GridRow row, int column) const;
    bool HasBlock() const { return whole_columns_ || anchor_row_ != row_ || anchor_column_ != column_; }
    bool HasWholeColumns() const { return whole_columns_; }

    // A column moved by its header (grid_column_move.cpp).
    /// The header was pressed at `x`; nothing moves before the pointer passes the threshold.
    void BeginMove(int column, int x);
    /// True when the mark of the place has changed.
    bool MoveColumnTo(int x, int threshold);
    bool IsHeaderPressed() const { return moved_column_ >= 0; }
    bool IsMoving() const { return moved_column_ >= 0 && drop_slot_ >= 0; }
    int MovedColumn() const { return moved_column_; }
    /// The column whose place it would take; -1 when it would stay.
    int DropTarget() const;
    /// Where the mark between two columns stands.
    int DropMarkX() const;
    void EndMove() { moved_column_ = drop_slot_ = -1; }
    /// The shown column beside another; -1 at the end.
    int NeighbourOf(int column, bool right) const;

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
    model::GridRow anchor_row_ = model::GridRow::Campo;
    int anchor_column_ = 0;
    bool whole_columns_ = false;
    int moved_column_ = -1;
    int drop_slot_ =
        -1;  ///< index into Layout().Columns() of the column behind the mark, their number at the end
    int resized_column_ = -1;
    int grabbed_at_ = 0;
    int width_before_ = 0;
};

/// A column's width in pixels at `dpi`, inside the metrics' limits.
[[nodiscard]] int ColumnPixels(int width_dips, int dpi, const GridMetrics& metrics);
/// The model's width, in pixels at 96 dpi, of a column that is `pixels` wide at `dpi`.
[[nodiscard]] int ColumnDips(int pixels, int dpi);

}  // namespace tessel::controls
