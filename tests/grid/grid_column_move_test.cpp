#include <gtest/gtest.h>

#include "controls/grid/grid_state.h"

namespace tessel::controls {
namespace {

/// Columns of 80 pixels beside captions of 100, of which the given ones are hidden.
GridState State(std::vector<int> hidden = {}) {
    model::DesignGrid grid;
    for (int column : hidden) grid.ShowColumn(column, false);
    GridState state;
    GridMetrics metrics;
    metrics.captions_width = 100;
    state.Layout().SetMetrics(metrics);
    state.Layout().SetClient(100 + 400, 300);
    state.TakeColumns(grid, 96);
    return state;
}

TEST(ColumnMove, NothingMovesBeforeTheThreshold) {
    GridState state = State();
    state.BeginMove(0, 140);
    EXPECT_FALSE(state.MoveColumnTo(143, 4));
    EXPECT_FALSE(state.IsMoving());
    EXPECT_EQ(state.DropTarget(), -1);
    EXPECT_TRUE(state.MoveColumnTo(144, 4));
    EXPECT_TRUE(state.IsMoving());
}

struct Drop {
    int column;
    int x;
    int target;
    int mark;
};

TEST(ColumnMove, TheMarkStandsAtTheNearestEdgeAndTheColumnGoesThere) {
    const Drop drops[] = {
        {0, 299, 1, 260},   // not yet past the middle of the third
        {0, 300, 2, 340},   // past it
        {0, 5000, 9, 900},  // behind the last
        {4, 0, 0, 100},     // before the first
        {4, 139, 0, 100},  {4, 140, 1, 180}, {4, 400, -1, 420}, {4, 470, -1, 500}, {4, 540, 5, 580},
    };
    for (const Drop& drop : drops) {
        GridState state = State();
        state.BeginMove(drop.column, drop.column * 80 + 140);
        state.MoveColumnTo(drop.column * 80 + 160, 4);
        state.MoveColumnTo(drop.x, 4);
        EXPECT_EQ(state.DropTarget(), drop.target) << drop.column << " to " << drop.x;
        EXPECT_EQ(state.DropMarkX(), drop.mark) << drop.column << " to " << drop.x;
    }
}

TEST(ColumnMove, HiddenColumnsArePassed) {
    GridState state = State({1, 2});
    state.BeginMove(0, 140);
    state.MoveColumnTo(230, 4);
    EXPECT_EQ(state.DropTarget(), 3);
    EXPECT_EQ(state.NeighbourOf(0, true), 3);
    EXPECT_EQ(state.NeighbourOf(3, false), 0);
    EXPECT_EQ(state.NeighbourOf(0, false), -1);
    EXPECT_EQ(state.NeighbourOf(9, true), -1);
}

TEST(ColumnMove, ScrollingCounts) {
    GridState state = State();
    state.Layout().ScrollTo(160, 0);
    state.BeginMove(2, 140);
    state.MoveColumnTo(230, 4);
    EXPECT_EQ(state.DropTarget(), 3);
    EXPECT_EQ(state.DropMarkX(), 260);
}

TEST(ColumnMove, GivenUpItIsForgotten) {
    GridState state = State();
    state.BeginMove(0, 140);
    state.MoveColumnTo(300, 4);
    state.EndMove();
    EXPECT_FALSE(state.IsMoving());
    EXPECT_FALSE(state.IsHeaderPressed());
    EXPECT_FALSE(state.MoveColumnTo(400, 4));
}

}  // namespace
}  // namespace tessel::controls
