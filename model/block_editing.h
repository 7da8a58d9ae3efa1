// The editing operations on more than a cell: copying, emptying and pasting blocks, and whole columns put in.
// They do to each cell what typing there does (grid_editing.h), so that captions, grouping and the diagram's
// marks follow.
#pragma once

#include <string_view>
#include <vector>

#include "model/cell_block.h"
#include "model/design.h"

namespace tessel::model {

/// A rectangle of cells: the rows from one to another of these columns, left to right as they are shown.
struct CellRange {
    GridRow top = GridRow::Campo;
    GridRow bottom = GridRow::Campo;
    std::vector<int> columns;

    bool IsWholeColumns() const { return top == GridRow::Campo && bottom == GridRow::Or; }
    bool IsOneCell() const { return top == bottom && columns.size() == 1; }
    friend bool operator==(const CellRange&, const CellRange&) = default;
};

[[nodiscard]] CellBlock CopyCells(const DesignGrid& grid, const CellRange& range);

/// Empties the cells. Whole columns lose everything, their captions too, and stay shown.
void EmptyCells(Design& design, const CellRange& range);

/// Why a block cannot be pasted.
enum class PasteProblem { None, CellTooLong, TooFewColumns, TooFewRows };

/// Writes a block from the range's first cell on, over the columns that are shown there; a single cell fills
/// the whole range; a block of all the rows begins at the first. When it does not fit, nothing is written.
[[nodiscard]] PasteProblem PasteCells(Design& design, const CellRange& range, const CellBlock& block);

/// Makes room for an empty column before this one, out of the nearest empty column, on the right rather than
/// on the left. Returns the place of the empty column, or -1 when no column is empty.
int InsertColumn(Design& design, int before);

}  // namespace tessel::model
