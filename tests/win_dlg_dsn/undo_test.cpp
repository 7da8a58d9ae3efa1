// Undo and redo by their keys, in the real window.
#include <windows.h>

#include <commctrl.h>

#include "tests/win_dlg_dsn/dlg_dsn_fixture.h"

namespace tessel::testing {

using model::GridRow;

class UndoKeys : public DlgDsnTest {
protected:
    POINT CellOf(GridRow row, int column) {
        return ScreenPoint(window_.GridControl().Handle(), window_.GridControl().CellRect(row, column));
    }
    void TypeOrder() {
        script_.Do([this] { MouseClick(CellOf(GridRow::Condicion, 0)); });
        script_.Do([] { TypeText(L">5"); });
        script_.Until([this] { return window_.GridControl().IsEditing(); }, "the cell is being edited");
        script_.Do([] { PressKey(VK_RETURN); });
        script_.Until([this] { return Cell(GridRow::Condicion, 0) == L">5"; }, "the cell is written");
    }
    void Cancel() {
        script_.Do([this] { Press(ui::kIdCancel); });
    }
};

TEST_F(UndoKeys, EveryPairOfKeysUndoesAndRedoes) {
    TypeOrder();
    const auto undone = [this] { return Cell(GridRow::Condicion, 0).empty(); };
    const auto redone = [this] { return Cell(GridRow::Condicion, 0) == L">5"; };
    script_.Do([] { PressKey('Z', false, true); });
    script_.Until(undone, "undone by Ctrl+Z");
    script_.Do([] { PressKey('Y', false, true); });
    script_.Until(redone, "redone by Ctrl+Y");
    script_.Do([] { PressAlt(VK_BACK); });
    script_.Until(undone, "undone by Alt+Backspace");
    script_.Do([] { PressKey('Z', true, true); });
    script_.Until(redone, "redone by Ctrl+Shift+Z");
    script_.Do([] { PressKey('Z', false, true); });
    script_.Until(undone, "undone again");
    script_.Do([] { PressAlt(VK_BACK, true); });
    script_.Until(redone, "redone by Alt+Shift+Backspace");
    Cancel();
    EXPECT_FALSE(Run(L"SELECT Clientes.Nombre FROM Clientes"));
}

TEST_F(UndoKeys, InAnOpenCellTheyBelongToItsEditor) {
    TypeOrder();
    script_.Do([this] { MouseClick(CellOf(GridRow::Or, 0)); });
    script_.Do([] { TypeText(L"abc"); });
    script_.Until([this] { return window_.GridControl().Editor().Text() == L"abc"; }, "typed");
    script_.Do([] { PressKey('Z', false, true); });
    script_.Until([this] { return window_.GridControl().Editor().Text() != L"abc"; },
                  "the editor undid its typing");
    script_.Do([this] {
        EXPECT_TRUE(window_.GridControl().IsEditing());
        EXPECT_EQ(Cell(GridRow::Condicion, 0), L">5");
        PressKey(VK_ESCAPE);
    });
    script_.Until([this] { return !window_.GridControl().IsEditing(); }, "the editor is closed");
    Cancel();
    EXPECT_FALSE(Run(L"SELECT Clientes.Nombre FROM Clientes"));
}

TEST_F(UndoKeys, OnTheSqlTabTheyBelongToTheText) {
    TypeOrder();
    std::wstring composed;
    script_.Do([this] { ClickTab(ui::Tab::Sql); });
    script_.Until([this] { return EditorText().ends_with(L";") && GetFocus() == Control(ui::kIdEditor); },
                  "the text is composed");
    script_.Do([&] {
        composed = EditorText();
        TypeText(L"x");
    });
    script_.Until([&] { return EditorText() != composed; }, "typed into the text");
    script_.Do([] { PressKey('Z', false, true); });
    script_.Until([&] { return EditorText() == composed; }, "the text is as before");
    script_.Do([this] { EXPECT_EQ(Cell(GridRow::Condicion, 0), L">5"); });
    Cancel();
    EXPECT_FALSE(Run(L"SELECT Clientes.Nombre FROM Clientes"));
}

TEST_F(UndoKeys, ADraggedBoxGoesBackInOneStep) {
    model::DiagramRect before;
    script_.Do([&] {
        before = Diagram().Tables().front().rect;
        const RECT box = window_.DiagramControl().TableRect(L"Clientes");
        POINT title{box.left + 30, box.top + 8};
        ClientToScreen(window_.DiagramControl().Handle(), &title);
        MouseDrag(title, {title.x + 60, title.y + 20});
    });
    script_.Until([&] { return Diagram().Tables().front().rect != before; }, "the box has moved");
    script_.Until([this] { return window_.Presenter().CanUndo(); }, "the move is a step");
    script_.Do([] { PressKey('Z', false, true); });
    script_.Until([&] { return Diagram().Tables().front().rect == before; }, "the box is back");
    script_.Do([this] { EXPECT_FALSE(window_.Presenter().CanUndo()); });
    Cancel();
    EXPECT_FALSE(Run(L"SELECT Clientes.Nombre FROM Clientes"));
}

TEST_F(UndoKeys, MovingABoxByKeysIsOneStepWhileTheKeyIsHeld) {
    model::DiagramRect before;
    const auto hold = [](bool down) {
        INPUT input{};
        input.type = INPUT_KEYBOARD;
        input.ki.wVk = VK_CONTROL;
        input.ki.dwFlags = down ? 0 : KEYEVENTF_KEYUP;
        SendInput(1, &input, sizeof input);
    };
    const auto left = [this] { return Diagram().Tables().front().rect.left; };
    int moved = 0;
    script_.Do([this] {
        const RECT box = window_.DiagramControl().TableRect(L"Clientes");
        MouseClick(ScreenPoint(window_.DiagramControl().Handle(),
                               {box.left + 20, box.top + 2, box.left + 40, box.top + 14}));
    });
    script_.Until([this] { return Diagram().SelectedTable() == L"Clientes"; }, "the table is selected");
    script_.Do([&] {
        before = Diagram().Tables().front().rect;
        hold(true);
        PressKey(VK_RIGHT);
    });
    script_.Until([&] { return left() > before.left; }, "moved once");
    script_.Do([&] {
        moved = left();
        PressKey(VK_RIGHT);
    });
    script_.Until([&] { return left() > moved; }, "moved twice");
    script_.Do([this] { EXPECT_FALSE(window_.Presenter().CanUndo()); });
    script_.Do([&] { hold(false); });
    script_.Until([this] { return window_.Presenter().CanUndo(); }, "the moves are a step");
    script_.Do([] { PressKey('Z', false, true); });
    script_.Until([&] { return Diagram().Tables().front().rect == before; }, "the box is back");
    Cancel();
    EXPECT_FALSE(Run(L"SELECT Clientes.Nombre FROM Clientes"));
}

TEST_F(UndoKeys, OpeningAndLookingIsNoStep) {
    script_.Until([this] { return Diagram().Tables().front().placed; }, "the table has its place");
    script_.Do([this] { MouseClick(CellOf(GridRow::Visible, 2)); });
    script_.Until([this] { return Grid().FocusedColumn() == 2; }, "the focus has moved");
    script_.Do([this] { EXPECT_FALSE(window_.Presenter().CanUndo()); });
    Cancel();
    EXPECT_FALSE(Run(L"SELECT Clientes.Nombre FROM Clientes"));
}

}  // namespace tessel::testing
