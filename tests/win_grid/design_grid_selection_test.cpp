// Blocks of cells and the clipboard, by real mouse and keyboard.
#include <windows.h>

#include "common/win32/clipboard.h"
#include "tests/win_grid/grid_fixture.h"

namespace tessel::controls {
namespace {

using model::CellBlock;
using model::CellRange;
using testing::Click;
using testing::PressKey;
using testing::SavePicture;
using enum GridRow;

class GridSelecting : public GridTest {
protected:
    void Press(WORD key, bool shift = false, bool control = false) {
        PressKey(key, shift, control);
        frame_.Pump();
    }
    CellRange Selected() const { return view_.State().Selection(); }
    std::wstring Clipboard() {
        for (int attempt = 0; attempt < 100; ++attempt) {
            if (const auto text = win32::TextFromClipboard(frame_.Handle())) return *text;
            frame_.Pump();
        }
        return L"(none)";
    }
    POINT HeaderOf(int column) const {
        const GridRect rect = view_.State().Layout().HeaderRect(column);
        return {(rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2};
    }
};

TEST_F(GridSelecting, ShiftAndArrowsSelectABlockAndAnArrowAloneEndsIt) {
    ClickCell(Titulo, 1);
    Press(VK_RIGHT, true);
    Press(VK_DOWN, true);
    EXPECT_EQ(Selected(), (CellRange{Titulo, Tabla, {1, 2}}));
    EXPECT_TRUE(IsOn(Tabla, 2));
    Press(VK_DOWN);
    EXPECT_EQ(Selected(), (CellRange{Agrupacion, Agrupacion, {2}}));
}

TEST_F(GridSelecting, DraggingOverCellsSelectsThem) {
    const POINT from = Middle(Campo, 0);
    const POINT to = Middle(Tabla, 2);
    testing::MoveMouse(view_.Handle(), from.x, from.y);
    testing::PressMouse();
    frame_.Pump();
    testing::MoveMouse(view_.Handle(), to.x, to.y);
    frame_.Pump();
    testing::ReleaseMouse();
    frame_.Pump();
    EXPECT_EQ(Selected(), (CellRange{Campo, Tabla, {0, 1, 2}}));
    EXPECT_EQ(GetCapture(), nullptr);
}

TEST_F(GridSelecting, AClickOnTheHeaderSelectsTheColumn) {
    FillGrid();
    const POINT point = HeaderOf(1);
    Click(view_.Handle(), point.x, point.y);
    frame_.Pump();
    EXPECT_EQ(Selected(), (CellRange{Campo, Or, {1}}));
    EXPECT_EQ(GetCapture(), nullptr);
    SavePicture(view_.Handle(), "grid_column_selected");
}

TEST_F(GridSelecting, ControlSpaceSelectsTheColumnAndShiftWidensIt) {
    ClickCell(Orden, 2);
    Press(VK_SPACE, false, true);
    EXPECT_EQ(Selected(), (CellRange{Campo, Or, {2}}));
    Press(VK_LEFT, true);
    EXPECT_EQ(Selected(), (CellRange{Campo, Or, {1, 2}}));
    EXPECT_FALSE(view_.IsEditing());
}

TEST_F(GridSelecting, ControlASelectsEverything) {
    ClickCell(Orden, 2);
    Press('A', false, true);
    EXPECT_EQ(Selected().columns.size(), 60u);
    EXPECT_TRUE(Selected().IsWholeColumns());
}

TEST_F(GridSelecting, CopyingOneCellPutsItsTextOnTheClipboard) {
    FillGrid();
    ClickCell(Condicion, 1);
    Press('C', false, true);
    EXPECT_EQ(Clipboard(), L">1000");
}

TEST_F(GridSelecting, CopyingABlockPutsTabsAndLinesOnTheClipboard) {
    FillGrid();
    ClickCell(Titulo, 0);
    Press(VK_RIGHT, true);
    Press(VK_DOWN, true);
    Press(VK_INSERT, false, true);
    EXPECT_EQ(Clipboard(), L"Nombre del cliente\tTotal\r\nClientes\tPedidos\r\n");
}

TEST_F(GridSelecting, CopyingAnEmptyCellLeavesTheClipboard) {
    ASSERT_TRUE(win32::CopyToClipboard(frame_.Handle(), L"antes"));
    ClickCell(Or, 5);
    Press('C', false, true);
    EXPECT_EQ(Clipboard(), L"antes");
}

TEST_F(GridSelecting, CuttingCopiesAndEmpties) {
    FillGrid();
    ClickCell(Condicion, 1);
    Press('X', false, true);
    EXPECT_EQ(Clipboard(), L">1000");
    EXPECT_EQ(grid_.Cell(Condicion, 1), L"");
    ClickCell(Condicion, 2);
    Press(VK_DOWN, true);
    Press(VK_DELETE, true);
    EXPECT_EQ(presenter_.emptied, (CellRange{Condicion, Or, {2}}));
}

TEST_F(GridSelecting, DeleteEmptiesTheBlock) {
    FillGrid();
    ClickCell(Titulo, 0);
    Press(VK_RIGHT, true);
    Press(VK_DELETE);
    EXPECT_EQ(presenter_.emptied, (CellRange{Titulo, Titulo, {0, 1}}));
    EXPECT_TRUE(presenter_.commits.empty());
}

TEST_F(GridSelecting, PastingReportsTheBlockAndWhereItGoes) {
    ASSERT_TRUE(win32::CopyToClipboard(frame_.Handle(), L"a\tb\r\nc\td\r\n"));
    ClickCell(Campo, 3);
    Press('V', false, true);
    EXPECT_EQ(presenter_.pasted, (CellBlock{{L"a", L"b"}, {L"c", L"d"}}));
    EXPECT_EQ(presenter_.pasted_over, (CellRange{Campo, Campo, {3}}));
    EXPECT_FALSE(view_.IsEditing());
}

TEST_F(GridSelecting, TheRightButtonKeepsABlockUnderItAndSelectsTheColumnOfAHeader) {
    FillGrid();
    ClickCell(Titulo, 0);
    Press(VK_RIGHT, true);
    const auto right_click = [&](POINT point) {
        testing::MoveMouse(view_.Handle(), point.x, point.y);
        testing::PressMouse(true);
        testing::ReleaseMouse(true);
        frame_.Pump();
    };
    right_click(Middle(Titulo, 0));
    EXPECT_EQ(Selected(), (CellRange{Titulo, Titulo, {0, 1}}));
    EXPECT_EQ(presenter_.menu_column, 0);
    right_click(Middle(Orden, 2));
    EXPECT_EQ(Selected(), (CellRange{Orden, Orden, {2}}));
    right_click(HeaderOf(1));
    EXPECT_EQ(Selected(), (CellRange{Campo, Or, {1}}));
    EXPECT_EQ(presenter_.menu_column, 1);
}

TEST_F(GridSelecting, ABlockIsPainted) {
    FillGrid();
    ClickCell(Titulo, 0);
    Press(VK_RIGHT, true);
    Press(VK_DOWN, true);
    SavePicture(view_.Handle(), "grid_block");
    EXPECT_TRUE(view_.State().HasBlock());
}

}  // namespace
}  // namespace tessel::controls
