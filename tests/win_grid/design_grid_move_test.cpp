// Moving a query column by its header or its keys.
#include "tests/win_grid/grid_fixture.h"

namespace tessel::controls {
namespace {

using testing::PressKey;
using testing::SavePicture;
using Moves = std::vector<std::pair<int, int>>;

class GridMoving : public GridTest {
protected:
    POINT HeaderOf(int column) const {
        const GridRect rect = view_.State().Layout().HeaderRect(column);
        return {(rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2};
    }
    /// Takes hold of a header and drags it to a place, without letting go.
    void DragTo(int column, int x) {
        const POINT from = HeaderOf(column);
        testing::MoveMouse(view_.Handle(), from.x, from.y);
        testing::PressMouse();
        frame_.Pump();
        testing::MoveMouse(view_.Handle(), (from.x + x) / 2, from.y);
        frame_.Pump();
        testing::MoveMouse(view_.Handle(), x, from.y);
        frame_.Pump();
    }
    void Release() {
        testing::ReleaseMouse();
        frame_.Pump();
    }
};

TEST_F(GridMoving, DraggingAHeaderMovesItsColumn) {
    FillGrid();
    DragTo(0, HeaderOf(2).x + Px(20));
    EXPECT_TRUE(view_.State().IsMoving());
    SavePicture(view_.Handle(), "grid_column_move");
    Release();
    EXPECT_EQ(presenter_.moves, (Moves{{0, 2}}));
    EXPECT_EQ(grid_.Cell(GridRow::Campo, 2), L"Clientes.Nombre");
    EXPECT_EQ(view_.State().Selection(), (model::CellRange{GridRow::Campo, GridRow::Or, {2}}));
    EXPECT_EQ(GetCapture(), nullptr);
}

TEST_F(GridMoving, ToTheLeftItTakesThePlaceOfTheColumnThere) {
    FillGrid();
    DragTo(2, HeaderOf(0).x - Px(20));
    Release();
    EXPECT_EQ(presenter_.moves, (Moves{{2, 0}}));
}

TEST_F(GridMoving, EscapeLeavesItWhereItWas) {
    FillGrid();
    DragTo(0, HeaderOf(2).x + Px(20));
    PressKey(VK_ESCAPE);
    frame_.Pump();
    EXPECT_FALSE(view_.State().IsMoving());
    Release();
    EXPECT_TRUE(presenter_.moves.empty());
    EXPECT_EQ(frame_.last_command, 0);
    EXPECT_EQ(GetCapture(), nullptr);
}

TEST_F(GridMoving, DroppedBesideItselfItStays) {
    FillGrid();
    DragTo(1, HeaderOf(1).x + Px(15));
    Release();
    EXPECT_TRUE(presenter_.moves.empty());
}

TEST_F(GridMoving, KeysMoveTheFocusedColumnAndStopAtTheEnds) {
    FillGrid();
    ClickCell(GridRow::Orden, 1);
    PressKey(VK_RIGHT, true, true);
    frame_.Pump();
    EXPECT_EQ(presenter_.moves, (Moves{{1, 2}}));
    EXPECT_TRUE(IsOn(GridRow::Orden, 2));
    for (int i = 0; i < 4; ++i) {
        PressKey(VK_LEFT, true, true);
        frame_.Pump();
    }
    EXPECT_EQ(presenter_.moves, (Moves{{1, 2}, {2, 1}, {1, 0}}));
    EXPECT_TRUE(IsOn(GridRow::Orden, 0));
}

TEST_F(GridMoving, AColumnHiddenBetweenIsPassed) {
    FillGrid();
    grid_.ShowColumn(1, false);
    frame_.Pump();
    ClickCell(GridRow::Campo, 0);
    PressKey(VK_RIGHT, true, true);
    frame_.Pump();
    EXPECT_EQ(presenter_.moves, (Moves{{0, 2}}));
}

TEST_F(GridMoving, RestingAtTheEdgeScrollsOn) {
    const RECT client = [&] {
        RECT rect{};
        GetClientRect(view_.Handle(), &rect);
        return rect;
    }();
    DragTo(0, client.right - Px(4));
    EXPECT_TRUE(frame_.WaitFor([&] { return view_.State().Layout().ScrollX() > Px(200); }));
    Release();
    ASSERT_EQ(presenter_.moves.size(), 1u);
    EXPECT_GT(presenter_.moves[0].second, 6);
}

}  // namespace
}  // namespace tessel::controls
