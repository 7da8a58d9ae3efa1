// Showing, moving and scrolling; editing is in design_grid_editing_test.cpp.
#include "tests/win_grid/grid_fixture.h"

namespace tessel::controls {
namespace {

using testing::Click;
using testing::MoveMouse;
using testing::PressKey;
using testing::PressMouse;
using testing::ReleaseMouse;
using testing::SavePicture;
using testing::TypeText;

TEST_F(GridTest, FirstCellIsBesideTheCaptionsAndUnderTheHeader) {
    const RECT cell = view_.CellRect(GridRow::Campo, 0);
    EXPECT_EQ(cell.left, view_.State().Layout().Metrics().captions_width);
    EXPECT_EQ(cell.top, view_.State().Layout().Metrics().header_height);
    EXPECT_EQ(cell.right - cell.left, Px(80));
}

TEST_F(GridTest, HiddenColumnHasNoCellAndTheNextTakesItsPlace) {
    const RECT second = view_.CellRect(GridRow::Campo, 1);
    grid_.ShowColumn(1, false);
    const RECT hidden = view_.CellRect(GridRow::Campo, 1);
    EXPECT_TRUE(IsRectEmpty(&hidden));
    EXPECT_EQ(view_.CellRect(GridRow::Campo, 2).left, second.left);
}

TEST_F(GridTest, ClickMovesTheFocus) {
    ClickCell(GridRow::Orden, 3);
    EXPECT_TRUE(frame_.WaitFor([&] { return IsOn(GridRow::Orden, 3); }));
    EXPECT_EQ(GetFocus(), view_.Handle());
    EXPECT_FALSE(view_.IsEditing());
}

TEST_F(GridTest, ClickOnAHeaderOrACaptionMovesAlongOneAxis) {
    ClickCell(GridRow::Orden, 3);
    const RECT cell = view_.CellRect(GridRow::Campo, 1);
    Click(view_.Handle(), cell.left + Px(20), cell.top - Px(8));
    EXPECT_TRUE(frame_.WaitFor([&] { return IsOn(GridRow::Orden, 1); }));
    Click(view_.Handle(), Px(10), Middle(GridRow::Tabla, 0).y);
    EXPECT_TRUE(frame_.WaitFor([&] { return IsOn(GridRow::Tabla, 1); }));
}

TEST_F(GridTest, ArrowsHomeAndEndMove) {
    ClickCell(GridRow::Tabla, 2);
    PressKey(VK_RIGHT);
    EXPECT_TRUE(frame_.WaitFor([&] { return IsOn(GridRow::Tabla, 3); }));
    PressKey(VK_DOWN);
    EXPECT_TRUE(frame_.WaitFor([&] { return IsOn(GridRow::Agrupacion, 3); }));
    PressKey(VK_HOME);
    EXPECT_TRUE(frame_.WaitFor([&] { return IsOn(GridRow::Agrupacion, 0); }));
    PressKey(VK_END);
    EXPECT_TRUE(frame_.WaitFor([&] { return IsOn(GridRow::Agrupacion, 59); }));
    PressKey(VK_HOME, false, true);
    EXPECT_TRUE(frame_.WaitFor([&] { return IsOn(GridRow::Campo, 0); }));
    PressKey(VK_END, false, true);
    EXPECT_TRUE(frame_.WaitFor([&] { return IsOn(GridRow::Or, 59); }));
    const RECT cell = view_.CellRect(GridRow::Or, 59);
    EXPECT_EQ(cell.right - cell.left, Px(80));
    SavePicture(frame_.Handle(), "grid_column_60");
}

TEST_F(GridTest, TabMovesFromCellToCellAndLeavesBehindTheLast) {
    ClickCell(GridRow::Campo, 0);
    PressKey(VK_TAB);
    EXPECT_TRUE(frame_.WaitFor([&] { return IsOn(GridRow::Campo, 1); }));
    PressKey(VK_TAB, true);
    EXPECT_TRUE(frame_.WaitFor([&] { return IsOn(GridRow::Campo, 0); }));
    PressKey(VK_TAB, true);
    EXPECT_TRUE(frame_.WaitFor([&] { return GetFocus() == before_; }));
    SetFocus(view_.Handle());
    PressKey(VK_END, false, true);
    ASSERT_TRUE(frame_.WaitFor([&] { return IsOn(GridRow::Or, 59); }));
    PressKey(VK_TAB);
    EXPECT_TRUE(frame_.WaitFor([&] { return GetFocus() == after_; }));
}

TEST_F(GridTest, ControlTabLeavesFromAnyCell) {
    ClickCell(GridRow::Tabla, 2);
    PressKey(VK_TAB, false, true);
    EXPECT_TRUE(frame_.WaitFor([&] { return GetFocus() == after_; }));
}

TEST_F(GridTest, EscapeBelongsToTheDialogWhileNothingIsEdited) {
    ClickCell(GridRow::Tabla, 2);
    PressKey(VK_ESCAPE);
    EXPECT_TRUE(frame_.WaitFor([&] { return frame_.last_command == IDCANCEL; }));
    EXPECT_TRUE(IsOn(GridRow::Tabla, 2));
}

// Whoever presses it once too often after typing must not end the dialog with it.
TEST_F(GridTest, EnterGoesDownAndStaysInTheLastRow) {
    ClickCell(GridRow::Condicion, 2);
    PressKey(VK_RETURN);
    EXPECT_TRUE(frame_.WaitFor([&] { return IsOn(GridRow::Or, 2); }));
    PressKey(VK_RETURN);
    PressKey(VK_LEFT);
    EXPECT_TRUE(frame_.WaitFor([&] { return IsOn(GridRow::Or, 1); }));
    EXPECT_EQ(frame_.last_command, 0);
}

TEST_F(GridTest, ModelFocusIsShownAndScrolledTo) {
    grid_.SetFocus(GridRow::Condicion, 40);
    EXPECT_EQ(view_.State().FocusedColumn(), 40);
    const RECT cell = view_.CellRect(GridRow::Condicion, 40);
    EXPECT_EQ(cell.right - cell.left, Px(80));
    EXPECT_EQ(presenter_.focus_moves, 0);
}

TEST_F(GridTest, FocusLeavesAColumnThatIsHidden) {
    ClickCell(GridRow::Campo, 2);
    grid_.ShowColumn(2, false);
    EXPECT_TRUE(frame_.WaitFor([&] { return IsOn(GridRow::Campo, 3); }));
}

TEST_F(GridTest, HidingEveryColumnIsHarmless) {
    for (int column = 0; column < 60; ++column) grid_.ShowColumn(column, false);
    frame_.Pump();
    PressKey(VK_RIGHT);
    PressKey(VK_F2);
    PressKey(VK_DELETE);
    TypeText(L"x");
    frame_.Pump();
    EXPECT_FALSE(view_.IsEditing());
    EXPECT_TRUE(presenter_.commits.empty());
}

TEST_F(GridTest, DraggingAHeaderEdgeResizesTheColumn) {
    const RECT cell = view_.CellRect(GridRow::Campo, 1);
    const int y = cell.top - Px(8);
    MoveMouse(view_.Handle(), cell.right - 1, y);
    PressMouse();
    frame_.Pump();
    MoveMouse(view_.Handle(), cell.right - 1 + Px(45), y);
    EXPECT_TRUE(frame_.WaitFor([&] { return grid_.ColumnWidth(1) == 125; })) << grid_.ColumnWidth(1);
    ReleaseMouse();
    frame_.Pump();
    EXPECT_EQ(view_.CellRect(GridRow::Campo, 1).right, cell.right + Px(45));
    EXPECT_EQ(GetCapture(), nullptr);
}

TEST_F(GridTest, EscapeTakesAColumnResizeBack) {
    const RECT cell = view_.CellRect(GridRow::Campo, 1);
    MoveMouse(view_.Handle(), cell.right - 1, cell.top - Px(8));
    PressMouse();
    frame_.Pump();
    MoveMouse(view_.Handle(), cell.right + Px(100), cell.top - Px(8));
    ASSERT_TRUE(frame_.WaitFor([&] { return grid_.ColumnWidth(1) > 100; }));
    PressKey(VK_ESCAPE);
    EXPECT_TRUE(frame_.WaitFor([&] { return grid_.ColumnWidth(1) == 80; })) << grid_.ColumnWidth(1);
    ReleaseMouse();
    frame_.Pump();
    EXPECT_NE(frame_.last_command, IDCANCEL);
}

TEST_F(GridTest, DoubleClickOnAHeaderEdgeFitsTheContents) {
    FillGrid();
    const RECT cell = view_.CellRect(GridRow::Campo, 2);
    testing::DoubleClick(view_.Handle(), cell.right - 1, cell.top - Px(8));
    EXPECT_TRUE(frame_.WaitFor([&] { return grid_.ColumnWidth(2) > 200; })) << grid_.ColumnWidth(2);
    frame_.Pump();
    SavePicture(frame_.Handle(), "grid_fitted");
}

TEST_F(GridTest, ShiftWheelScrollsSideways) {
    const POINT point = Middle(GridRow::Campo, 0);
    POINT screen = point;
    ClientToScreen(view_.Handle(), &screen);
    SendMessageW(view_.Handle(), WM_MOUSEWHEEL, MAKEWPARAM(MK_SHIFT, static_cast<WORD>(-WHEEL_DELTA)),
                 MAKELPARAM(screen.x, screen.y));
    EXPECT_EQ(view_.State().Layout().ScrollX(), Px(80));
    SendMessageW(view_.Handle(), WM_MOUSEWHEEL, MAKEWPARAM(MK_SHIFT, WHEEL_DELTA),
                 MAKELPARAM(screen.x, screen.y));
    EXPECT_EQ(view_.State().Layout().ScrollX(), 0);
}

TEST_F(GridTest, ScrollBarReachesColumn60) {
    SendMessageW(view_.Handle(), WM_HSCROLL, SB_RIGHT, 0);
    RECT client;
    GetClientRect(view_.Handle(), &client);
    EXPECT_EQ(view_.CellRect(GridRow::Campo, 59).right, client.right);
    SCROLLINFO info{};
    info.cbSize = sizeof info;
    info.fMask = SIF_ALL;
    ASSERT_TRUE(GetScrollInfo(view_.Handle(), SB_HORZ, &info));
    EXPECT_EQ(info.nMax, 60 * Px(80) - 1);
    EXPECT_EQ(static_cast<int>(info.nPage), view_.State().Layout().ViewWidth());
    EXPECT_EQ(info.nPos, view_.State().Layout().MaximumScrollX());
    SendMessageW(view_.Handle(), WM_HSCROLL, SB_LINELEFT, 0);
    EXPECT_EQ(view_.State().Layout().ScrollX() % Px(80), 0);
}

TEST_F(GridTest, VerticalScrollBarOnlyInALowWindow) {
    EXPECT_EQ(GetWindowLongPtrW(view_.Handle(), GWL_STYLE) & WS_VSCROLL, 0);
    MoveView(Px(600), Px(120));
    EXPECT_NE(GetWindowLongPtrW(view_.Handle(), GWL_STYLE) & WS_VSCROLL, 0);
    grid_.SetFocus(GridRow::Or, 0);
    const RECT cell = view_.CellRect(GridRow::Or, 0);
    EXPECT_EQ(cell.bottom - cell.top, view_.State().Layout().Metrics().row_height);
    frame_.Pump();
    SavePicture(frame_.Handle(), "grid_low");
    MoveView(Px(600), Px(280));
    EXPECT_EQ(GetWindowLongPtrW(view_.Handle(), GWL_STYLE) & WS_VSCROLL, 0);
}

TEST_F(GridTest, ContextMenuNamesTheColumnUnderThePointer) {
    const POINT point = Middle(GridRow::Tabla, 2);
    MoveMouse(view_.Handle(), point.x, point.y);
    PressMouse(true);
    ReleaseMouse(true);
    EXPECT_TRUE(frame_.WaitFor([&] { return presenter_.menu_column == 2; })) << presenter_.menu_column;
    EXPECT_TRUE(IsOn(GridRow::Tabla, 2));
}

TEST_F(GridTest, MenuKeyNamesTheFocusedColumn) {
    ClickCell(GridRow::Tabla, 3);
    SendMessageW(view_.Handle(), WM_CONTEXTMENU, reinterpret_cast<WPARAM>(view_.Handle()),
                 MAKELPARAM(-1, -1));
    EXPECT_EQ(presenter_.menu_column, 3);
    POINT corner{view_.CellRect(GridRow::Tabla, 3).left, view_.CellRect(GridRow::Tabla, 3).bottom};
    ClientToScreen(view_.Handle(), &corner);
    EXPECT_EQ(presenter_.menu_point.x, corner.x);
    EXPECT_EQ(presenter_.menu_point.y, corner.y);
}

TEST_F(GridTest, PaintsWithAndWithoutContents) {
    SavePicture(frame_.Handle(), "grid_empty");
    FillGrid();
    ClickCell(GridRow::Agrupacion, 1);
    SavePicture(frame_.Handle(), "grid_filled");
    EnableWindow(view_.Handle(), FALSE);
    frame_.Pump();
    SavePicture(frame_.Handle(), "grid_disabled");
    view_.Bind(nullptr, nullptr);
    frame_.Pump();
    EXPECT_TRUE(view_.State().Layout().Columns().empty());
}

TEST_F(GridTest, WorksWithoutVisualStyles) {
    FillGrid();
    SetWindowTheme(view_.Handle(), L" ", L" ");
    frame_.Pump();
    ClickCell(GridRow::Orden, 1);
    EXPECT_TRUE(IsOn(GridRow::Orden, 1));
    SavePicture(frame_.Handle(), "grid_classic");
}

TEST_F(GridTest, DestroyedWindowLeavesAnObjectOnWhichCallsAreHarmless) {
    view_.BeginEdit(GridRow::Campo, 0);
    DestroyWindow(view_.Handle());
    EXPECT_FALSE(view_.IsEditing());
    EXPECT_TRUE(view_.CommitEdit());
    view_.BeginEdit(GridRow::Campo, 1);
    grid_.SetFocus(GridRow::Or, 5);
    EXPECT_FALSE(view_.IsEditing());
}

}  // namespace
}  // namespace tessel::controls
