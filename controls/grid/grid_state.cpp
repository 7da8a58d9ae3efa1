#include "controls/grid/grid_state.h"

#include <algorithm>

namespace tessel::controls {

namespace {

constexpr int kBaseDpi = 96;
constexpr int kLastRow = model::kGridRowCount - 1;

int ScaleRounded(int value, int numerator, int denominator) {
    return (value * numerator + denominator / 2) / denominator;
}

}  // namespace

int ColumnPixels(int width_dips, int dpi, const GridMetrics& metrics) {
    return std::clamp(ScaleRounded(std::max(0, width_dips), dpi, kBaseDpi), metrics.minimum_width,
                      metrics.maximum_width);
}

int ColumnDips(int pixels, int dpi) {
    return ScaleRounded(pixels, kBaseDpi, dpi);
}

bool GridState::TakeColumns(const model::DesignGrid& grid, int dpi) {
    std::vector<GridColumnExtent> columns;
    for (int column = 0; column < grid.ColumnCount(); ++column)
        if (grid.IsColumnShown(column))
            columns.push_back({column, ColumnPixels(grid.ColumnWidth(column), dpi, layout_.Metrics())});
    if (columns == layout_.Columns()) return false;
    layout_.SetColumns(std::move(columns));
    return true;
}

bool GridState::SetFocus(model::GridRow row, int column) {
    const bool changed = row != row_ || column != column_;
    row_ = row;
    column_ = column;
    if (changed) CollapseSelection();
    return changed;
}

int GridState::NearestShown(int column) const {
    const std::vector<GridColumnExtent>& columns = layout_.Columns();
    if (columns.empty()) return -1;
    for (const GridColumnExtent& extent : columns)
        if (extent.column >= column) return extent.column;
    return columns.back().column;
}

GridState::Target GridState::Here() const {
    return {static_cast<int>(row_) - 1, layout_.IndexOf(NearestShown(column_))};
}

GridState::Target GridState::TargetOf(GridMove move) const {
    const int last_index = static_cast<int>(layout_.Columns().size()) - 1;
    const int row_height = std::max(1, layout_.Metrics().row_height);
    const int page = std::max(1, layout_.ViewHeight() / row_height);
    Target target = Here();
    switch (move) {
        case GridMove::Left:
            target.index = std::max(0, target.index - 1);
            break;
        case GridMove::Right:
            target.index = std::min(last_index, target.index + 1);
            break;
        case GridMove::Up:
            target.row = std::max(0, target.row - 1);
            break;
        case GridMove::Down:
            target.row = std::min(kLastRow, target.row + 1);
            break;
        case GridMove::RowStart:
            target.index = 0;
            break;
        case GridMove::RowEnd:
            target.index = last_index;
            break;
        case GridMove::First:
            target = {0, 0};
            break;
        case GridMove::Last:
            target = {kLastRow, last_index};
            break;
        case GridMove::PageUp:
            target.row = std::max(0, target.row - page);
            break;
        case GridMove::PageDown:
            target.row = std::min(kLastRow, target.row + page);
            break;
        case GridMove::Next:
            if (target.index < last_index)
                ++target.index;
            else if (target.row < kLastRow)
                target = {target.row + 1, 0};
            break;
        case GridMove::Previous:
            if (target.index > 0)
                --target.index;
            else if (target.row > 0)
                target = {target.row - 1, last_index};
            break;
    }
    return target;
}

bool GridState::CanMove(GridMove move) const {
    if (layout_.Columns().empty()) return false;
    const Target target = TargetOf(move);
    return model::kGridRows[target.row] != row_ || layout_.Columns()[target.index].column != column_;
}

bool GridState::Move(GridMove move) {
    if (!CanMove(move)) return false;
    const Target target = TargetOf(move);
    SetFocus(model::kGridRows[target.row], layout_.Columns()[target.index].column);
    layout_.EnsureVisible(row_, column_);
    return true;
}

void GridState::BeginResize(int column, int x) {
    const int index = layout_.IndexOf(column);
    if (index < 0) return;
    resized_column_ = column;
    grabbed_at_ = x;
    width_before_ = layout_.Columns()[index].width;
}

int GridState::WidthAt(int x) const {
    return std::clamp(width_before_ + x - grabbed_at_, layout_.Metrics().minimum_width,
                      layout_.Metrics().maximum_width);
}

}  // namespace tessel::controls
