#include <gtest/gtest.h>

#include "controls/grid/grid_state.h"

namespace tessel::controls {
namespace {

using model::CellRange;
using enum model::GridRow;

/// Ten columns of 80 pixels of which the given ones are hidden.
GridState State(std::vector<int> hidden = {}) {
    model::DesignGrid grid;
    for (int column : hidden) grid.ShowColumn(column, false);
    GridState state;
    GridMetrics metrics;
    metrics.captions_width = 100;
    state.Layout().SetMetrics(metrics);
    state.Layout().SetClient(100 + 900, 300);
    state.TakeColumns(grid, 96);
    return state;
}

TEST(GridSelection, TheFocusedCellIsTheSelection) {
    GridState state = State();
    state.SetFocus(Orden, 3);
    EXPECT_EQ(state.Selection(), (CellRange{Orden, Orden, {3}}));
    EXPECT_FALSE(state.HasBlock());
}

TEST(GridSelection, ABlockReachesFromTheAnchorToTheFocusInAnyDirection) {
    GridState state = State();
    state.SetFocus(Orden, 3);
    EXPECT_TRUE(state.ExtendTo(Titulo, 1));
    EXPECT_EQ(state.Selection(), (CellRange{Titulo, Orden, {1, 2, 3}}));
    EXPECT_TRUE(state.IsSelected(Tabla, 2));
    EXPECT_FALSE(state.IsSelected(Campo, 2));
    EXPECT_FALSE(state.IsSelected(Tabla, 4));
    EXPECT_TRUE(state.Extend(GridMove::Up));
    EXPECT_EQ(state.Selection(), (CellRange{Campo, Orden, {1, 2, 3}}));
    EXPECT_FALSE(state.Extend(GridMove::Up));
}

TEST(GridSelection, TheSameFocusAgainKeepsTheBlockAndAnotherEndsIt) {
    GridState state = State();
    state.SetFocus(Campo, 0);
    state.ExtendTo(Titulo, 1);
    state.SetFocus(Titulo, 1);
    EXPECT_TRUE(state.HasBlock());
    state.SetFocus(Titulo, 2);
    EXPECT_FALSE(state.HasBlock());
}

TEST(GridSelection, HiddenColumnsAreNotSelected) {
    GridState state = State({1, 2});
    state.SetFocus(Campo, 0);
    state.ExtendTo(Campo, 3);
    EXPECT_EQ(state.Selection(), (CellRange{Campo, Campo, {0, 3}}));
    EXPECT_FALSE(state.IsSelected(Campo, 1));
}

TEST(GridSelection, WholeColumns) {
    GridState state = State();
    state.SetFocus(Orden, 2);
    state.SelectColumns(4, false);
    EXPECT_EQ(state.Selection(), (CellRange{Campo, Or, {4}}));
    EXPECT_EQ(state.FocusedRow(), Orden);
    state.SelectColumns(2, true);
    EXPECT_EQ(state.Selection(), (CellRange{Campo, Or, {2, 3, 4}}));
    state.SelectAll();
    EXPECT_EQ(state.Selection().columns.size(), 10u);
    state.CollapseSelection();
    EXPECT_FALSE(state.HasBlock());
}

TEST(GridSelection, WithoutAColumnNothingIsSelected) {
    GridState state = State({0, 1, 2, 3, 4, 5, 6, 7, 8, 9});
    EXPECT_TRUE(state.Selection().columns.empty());
    state.SelectAll();
    EXPECT_FALSE(state.Extend(GridMove::Right));
    EXPECT_FALSE(state.IsSelected(Campo, 0));
}

}  // namespace
}  // namespace tessel::controls
