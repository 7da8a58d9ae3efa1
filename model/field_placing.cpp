#include "model/field_placing.h"

#include "common/text.h"
#include "model/grid_editing.h"

namespace tessel::model {

namespace {

/// The empty column from which room is taken: the nearest to the right, so that as little as possible moves,
/// else the nearest to the left; -1 when there is none.
int NearestEmptyColumn(const DesignGrid& grid, int column) {
    for (int right = column; right < grid.ColumnCount(); ++right)
        if (grid.IsColumnEmpty(right)) return right;
    for (int left = column - 1; left >= 0; --left)
        if (grid.IsColumnEmpty(left)) return left;
    return -1;
}

}  // namespace

int PlaceField(Design& design, std::wstring_view sField, int column) {
    DesignGrid& grid = design.grid;
    const std::wstring_view field = TrimView(sField);
    if (field.empty() || Utf16Length(sField) > kMaxCellLength) return -1;
    if (const int there = FieldCol(grid, field); there >= 0) return there;
    if (column < 0 || column >= grid.ColumnCount()) return AddField(design, sField, L"", kKeepVisibility);
    int place = column;
    if (grid.IsColumnUsed(column)) {
        const int empty = NearestEmptyColumn(grid, column);
        if (empty < 0) return -1;
        // Taken out on the left, the columns up to the wished one close up first.
        place = empty < column ? column - 1 : column;
        if (!grid.MoveColumn(empty, place)) return -1;
    }
    grid.ShowColumn(place, true);
    if (!grid.SetCell(GridRow::Campo, place, sField)) return -1;
    SetColumnField(design, place, L"", kKeepVisibility);
    return place;
}

}  // namespace tessel::model
