#include "model/block_editing.h"

#include <algorithm>

#include "common/text.h"
#include "model/grid_editing.h"

namespace tessel::model {

namespace {

int RowIndex(GridRow row) {
    return static_cast<int>(row) - 1;
}

bool IsOneCell(const CellBlock& block) {
    return block.size() == 1 && block.front().size() == 1;
}

void EmptyColumn(Design& design, int column) {
    for (const GridRow row : kGridRows) {
        if (!design.grid.SetCell(row, column, L"")) return;
    }
    design.grid.SetCaption(column, L"");
}

/// As if it were typed: an unchanged text sets off nothing.
void Type(Design& design, GridRow row, int column, const std::wstring& text) {
    if (design.grid.Cell(row, column) == text) return;
    if (design.grid.SetCell(row, column, text)) CellCommitted(design, row, column);
}

/// The shown columns from this one on.
std::vector<int> ShownFrom(const DesignGrid& grid, int first) {
    std::vector<int> columns;
    for (int column = first; column < grid.ColumnCount(); ++column) {
        if (grid.IsColumnShown(column)) columns.push_back(column);
    }
    return columns;
}

}  // namespace

CellBlock CopyCells(const DesignGrid& grid, const CellRange& range) {
    CellBlock block;
    for (int row = RowIndex(range.top); row <= RowIndex(range.bottom); ++row) {
        block.emplace_back();
        for (const int column : range.columns) block.back().push_back(grid.Cell(kGridRows[row], column));
    }
    return block;
}

void EmptyCells(Design& design, const CellRange& range) {
    for (const int column : range.columns) {
        if (range.IsWholeColumns()) {
            EmptyColumn(design, column);
            continue;
        }
        for (int row = RowIndex(range.top); row <= RowIndex(range.bottom); ++row) {
            Type(design, kGridRows[row], column, {});
        }
    }
    SyncDiagramChecks(design);
}

PasteProblem PasteCells(Design& design, const CellRange& range, const CellBlock& block) {
    if (range.columns.empty() || block.empty()) return PasteProblem::None;
    for (const std::vector<std::wstring>& row : block) {
        for (const std::wstring& cell : row) {
            if (Utf16Length(cell) > kMaxCellLength) return PasteProblem::CellTooLong;
        }
    }
    if (IsOneCell(block)) {
        for (const int column : range.columns) {
            for (int row = RowIndex(range.top); row <= RowIndex(range.bottom); ++row) {
                Type(design, kGridRows[row], column, block.front().front());
            }
        }
        return PasteProblem::None;
    }

    const int height = static_cast<int>(block.size());
    const std::size_t width = block.front().size();
    const bool whole = height == kGridRowCount;
    const int first_row = whole ? 0 : RowIndex(range.top);
    const std::vector<int> columns = ShownFrom(design.grid, range.columns.front());
    if (first_row + height > kGridRowCount) return PasteProblem::TooFewRows;
    if (width > columns.size()) return PasteProblem::TooFewColumns;
    for (std::size_t i = 0; i < width; ++i) {
        // A whole column leaves nothing of the one that was there.
        if (whole) EmptyColumn(design, columns[i]);
        for (int row = 0; row < height; ++row) {
            Type(design, kGridRows[first_row + row], columns[i], block[static_cast<std::size_t>(row)][i]);
        }
    }
    SyncDiagramChecks(design);
    return PasteProblem::None;
}

int InsertColumn(Design& design, int before) {
    DesignGrid& grid = design.grid;
    const auto make_room = [&](int from, int to) {
        grid.MoveColumn(from, to);
        grid.SetCaption(to, L"");
        grid.ShowColumn(to, true);
        return to;
    };
    for (int column = before + 1; column < grid.ColumnCount(); ++column) {
        if (grid.IsColumnEmpty(column)) return make_room(column, before);
    }
    for (int column = before - 1; column >= 0; --column) {
        if (grid.IsColumnEmpty(column)) return make_room(column, before - 1);
    }
    return -1;
}

}  // namespace tessel::model
