#include "controls/grid/grid_state.h"

#include <gtest/gtest.h>

namespace tessel::controls {
namespace {

using model::GridRow;

/// A state over ten columns of 80 pixels of which the given ones are hidden.
GridState State(std::vector<int> hidden = {}) {
    model::DesignGrid grid;
    for (int column : hidden) grid.ShowColumn(column, false);
    GridState state;
    GridMetrics metrics;
    metrics.captions_width = 100;
    metrics.header_height = 30;
    metrics.row_height = 20;
    metrics.minimum_width = 24;
    metrics.maximum_width = 600;
    state.Layout().SetMetrics(metrics);
    state.Layout().SetClient(100 + 240, 30 + 160);
    state.TakeColumns(grid, 96);
    return state;
}

TEST(GridState, TakesShownColumnsScaledFromTheModel) {
    model::DesignGrid grid;
    grid.LoadColumns();
    grid.ShowColumn(1, false);
    grid.SetColumnWidth(2, 101);
    GridState state;
    EXPECT_TRUE(state.TakeColumns(grid, 144));
    ASSERT_EQ(state.Layout().Columns().size(), 59u);
    EXPECT_EQ(state.Layout().Columns()[0], (GridColumnExtent{0, 120}));
    EXPECT_EQ(state.Layout().Columns()[1], (GridColumnExtent{2, 152}));
    EXPECT_FALSE(state.TakeColumns(grid, 144));
    grid.ShowColumn(1, true);
    EXPECT_TRUE(state.TakeColumns(grid, 144));
}

TEST(GridState, WidthsStayInsideTheLimits) {
    GridMetrics metrics;
    metrics.minimum_width = 24;
    metrics.maximum_width = 600;
    EXPECT_EQ(ColumnPixels(-5, 96, metrics), 24);
    EXPECT_EQ(ColumnPixels(80, 192, metrics), 160);
    EXPECT_EQ(ColumnPixels(100000, 96, metrics), 600);
}

TEST(GridState, WidthsSurviveTheWayToPixelsAndBack) {
    GridMetrics metrics;
    metrics.maximum_width = 2000;
    for (int dpi : {96, 120, 144, 168, 192, 288})
        for (int dips = 24; dips <= 600; ++dips)
            ASSERT_EQ(ColumnDips(ColumnPixels(dips, dpi, metrics), dpi), dips) << dips << " at " << dpi;
}

struct MoveCase {
    GridMove move;
    GridRow from_row;
    int from_column;
    GridRow to_row;
    int to_column;
};

TEST(GridState, KeysMoveTheFocus) {
    const MoveCase cases[] = {
        {GridMove::Left, GridRow::Tabla, 3, GridRow::Tabla, 2},
        {GridMove::Left, GridRow::Tabla, 0, GridRow::Tabla, 0},
        {GridMove::Right, GridRow::Tabla, 3, GridRow::Tabla, 4},
        {GridMove::Right, GridRow::Tabla, 9, GridRow::Tabla, 9},
        {GridMove::Up, GridRow::Tabla, 3, GridRow::Titulo, 3},
        {GridMove::Up, GridRow::Campo, 3, GridRow::Campo, 3},
        {GridMove::Down, GridRow::Tabla, 3, GridRow::Agrupacion, 3},
        {GridMove::Down, GridRow::Or, 3, GridRow::Or, 3},
        {GridMove::RowStart, GridRow::Tabla, 3, GridRow::Tabla, 0},
        {GridMove::RowEnd, GridRow::Tabla, 3, GridRow::Tabla, 9},
        {GridMove::First, GridRow::Tabla, 3, GridRow::Campo, 0},
        {GridMove::Last, GridRow::Tabla, 3, GridRow::Or, 9},
        {GridMove::PageUp, GridRow::Orden, 3, GridRow::Campo, 3},
        {GridMove::PageDown, GridRow::Tabla, 3, GridRow::Or, 3},
        {GridMove::Next, GridRow::Tabla, 3, GridRow::Tabla, 4},
        {GridMove::Next, GridRow::Tabla, 9, GridRow::Agrupacion, 0},
        {GridMove::Next, GridRow::Or, 9, GridRow::Or, 9},
        {GridMove::Previous, GridRow::Tabla, 3, GridRow::Tabla, 2},
        {GridMove::Previous, GridRow::Tabla, 0, GridRow::Titulo, 9},
        {GridMove::Previous, GridRow::Campo, 0, GridRow::Campo, 0},
    };
    for (const MoveCase& c : cases) {
        GridState state = State();
        state.SetFocus(c.from_row, c.from_column);
        const bool moves = c.from_row != c.to_row || c.from_column != c.to_column;
        const std::string name = "move " + std::to_string(static_cast<int>(c.move)) + " from row " +
                                 std::to_string(static_cast<int>(c.from_row)) + " column " +
                                 std::to_string(c.from_column);
        EXPECT_EQ(state.CanMove(c.move), moves) << name;
        EXPECT_EQ(state.Move(c.move), moves) << name;
        EXPECT_EQ(state.FocusedRow(), c.to_row) << name;
        EXPECT_EQ(state.FocusedColumn(), c.to_column) << name;
    }
}

TEST(GridState, MovesSkipHiddenColumns) {
    const MoveCase cases[] = {
        {GridMove::Right, GridRow::Campo, 1, GridRow::Campo, 4},
        {GridMove::Left, GridRow::Campo, 4, GridRow::Campo, 1},
        {GridMove::RowStart, GridRow::Campo, 4, GridRow::Campo, 1},
        {GridMove::RowEnd, GridRow::Campo, 4, GridRow::Campo, 8},
        {GridMove::Next, GridRow::Campo, 8, GridRow::Titulo, 1},
        {GridMove::Previous, GridRow::Titulo, 1, GridRow::Campo, 8},
        {GridMove::First, GridRow::Or, 5, GridRow::Campo, 1},
        {GridMove::Last, GridRow::Campo, 1, GridRow::Or, 8},
    };
    for (const MoveCase& c : cases) {
        GridState state = State({0, 2, 3, 9});
        state.SetFocus(c.from_row, c.from_column);
        EXPECT_TRUE(state.Move(c.move));
        EXPECT_EQ(state.FocusedRow(), c.to_row);
        EXPECT_EQ(state.FocusedColumn(), c.to_column);
    }
}

TEST(GridState, PageMovesByTheRowsThatFit) {
    GridState state = State();
    state.Layout().SetClient(340, 30 + 65);  // three whole rows
    state.SetFocus(GridRow::Campo, 0);
    state.Move(GridMove::PageDown);
    EXPECT_EQ(state.FocusedRow(), GridRow::Agrupacion);
    state.Move(GridMove::PageUp);
    EXPECT_EQ(state.FocusedRow(), GridRow::Campo);
}

TEST(GridState, MovingScrollsToTheFocus) {
    GridState state = State();
    state.SetFocus(GridRow::Campo, 2);
    EXPECT_EQ(state.Layout().ScrollX(), 0);
    state.Move(GridMove::Right);
    EXPECT_EQ(state.Layout().ScrollX(), 80);
    state.Move(GridMove::Last);
    EXPECT_EQ(state.Layout().ScrollX(), 10 * 80 - 240);
    state.Move(GridMove::First);
    EXPECT_EQ(state.Layout().ScrollX(), 0);
}

TEST(GridState, TabWalksEveryCellOnceAndThenLeaves) {
    GridState state = State({4, 7});
    state.SetFocus(GridRow::Campo, 0);
    int cells = 1;
    while (state.Move(GridMove::Next)) ++cells;
    EXPECT_EQ(cells, 8 * model::kGridRowCount);
    while (state.Move(GridMove::Previous)) --cells;
    EXPECT_EQ(cells, 1);
}

TEST(GridState, FocusOnAHiddenColumnHasANearestShownOne) {
    GridState state = State({0, 3, 4, 8, 9});
    EXPECT_EQ(state.NearestShown(0), 1);
    EXPECT_EQ(state.NearestShown(2), 2);
    EXPECT_EQ(state.NearestShown(3), 5);
    EXPECT_EQ(state.NearestShown(9), 7);
    state.SetFocus(GridRow::Campo, 3);
    EXPECT_FALSE(state.IsFocusShown());
    EXPECT_TRUE(state.Move(GridMove::Down));
    EXPECT_EQ(state.FocusedColumn(), 5);
    EXPECT_EQ(state.FocusedRow(), GridRow::Titulo);
}

TEST(GridState, WithEveryColumnHiddenNothingMoves) {
    GridState state = State({0, 1, 2, 3, 4, 5, 6, 7, 8, 9});
    EXPECT_EQ(state.NearestShown(0), -1);
    EXPECT_FALSE(state.IsFocusShown());
    for (GridMove move : {GridMove::Left, GridMove::Right, GridMove::Up, GridMove::Down, GridMove::RowStart,
                          GridMove::RowEnd, GridMove::First, GridMove::Last, GridMove::PageUp,
                          GridMove::PageDown, GridMove::Next, GridMove::Previous})
        EXPECT_FALSE(state.Move(move));
}

TEST(GridState, ResizeFollowsThePointerInsideTheLimits) {
    GridState state = State();
    state.BeginResize(2, 343);
    EXPECT_TRUE(state.IsResizing());
    EXPECT_EQ(state.ResizedColumn(), 2);
    EXPECT_EQ(state.WidthBeforeResize(), 80);
    EXPECT_EQ(state.WidthAt(343), 80);
    EXPECT_EQ(state.WidthAt(383), 120);
    EXPECT_EQ(state.WidthAt(0), 24);
    EXPECT_EQ(state.WidthAt(5000), 600);
    state.EndResize();
    EXPECT_FALSE(state.IsResizing());
}

TEST(GridState, HiddenColumnCannotBeResized) {
    GridState state = State({2});
    state.BeginResize(2, 100);
    EXPECT_FALSE(state.IsResizing());
}

}  // namespace
}  // namespace tessel::controls
