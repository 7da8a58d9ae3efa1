// A query from an empty window to the accepted statement, with the keyboard alone.
#include <windows.h>

#include "tests/support/win32/fake_dispatch.h"
#include "tests/win_dlg_dsn/dlg_dsn_fixture.h"

namespace tessel::testing {

namespace {

using model::GridRow;

class KeyboardAlone : public DlgDsnTest {
protected:
    void Key(WORD key, int times = 1, bool shift = false, bool control = false) {
        for (int i = 0; i < times; ++i) script_.Do([=] { PressKey(key, shift, control); });
    }
    void Type(const wchar_t* text) {
        script_.Do([text] { TypeText(text); });
    }
    void Until(std::function<bool()> condition, const char* what) {
        script_.Until(std::move(condition), what);
    }
    void UntilFocusOn(int id) {
        script_.Until([this, id] { return GetFocus() == Control(id); }, "the keyboard is there");
    }
    /// Types into the focused cell and goes down with Enter.
    void Enter(const wchar_t* text, GridRow row, int column) {
        Until([=, this] { return Grid().FocusedRow() == row && Grid().FocusedColumn() == column; },
              "the cell");
        Type(text);
        Key(VK_RETURN);
        Until([=, this] { return Cell(row, column) == text; }, "the cell is written");
    }
};

}  // namespace

TEST_F(KeyboardAlone, MakesAWholeQuery) {
    window_.SetConnection(tests::MakeFake().Get());
    // From the grid past the buttons to the browser: two tables, which their key relates.
    UntilFocusOn(ui::kIdGrid);
    Key(VK_F6, 2);
    Type(L"Clientes");
    Key(VK_RETURN);
    Until([this] { return Diagram().FindTable(L"Clientes") != nullptr; }, "the first table");
    Key(VK_DOWN);
    Key(VK_RETURN);
    Until([this] { return Diagram().Relations().size() == 1; }, "the second table, with its relation");

    // On the diagram: that relation goes, and one is made field by field.
    Key(VK_F6, 2);
    UntilFocusOn(ui::kIdDiagram);
    script_.Do([this] { window_.Presenter().Design().diagram.SelectNothing(); });
    Key(VK_PRIOR, 1, false, true);
    Key(VK_DELETE);
    Until([this] { return Diagram().Relations().empty(); }, "the relation is removed");
    Key(VK_NEXT, 1, false, true);
    Until([this] { return Diagram().SelectedTable() == L"Clientes"; }, "the first table is selected");
    Key(VK_DOWN, 2);
    Key(VK_INSERT);
    Until([this] { return !window_.DiagramControl().RelatingHint().empty(); }, "the hint tells what to do");
    Key(VK_TAB);
    Key(VK_DOWN, 3);
    Key(VK_RETURN);
    Until([this] { return Diagram().Relations().size() == 1; }, "the relation is made");

    // Two fields are ticked: the last of Pedidos, and one of Clientes by its letter.
    Key(VK_PRIOR, 2, false, true);
    Until([this] { return Diagram().SelectedTable() == L"Clientes"; }, "back on the first table");
    Type(L"n");
    Key(VK_SPACE);
    Until([this] { return Cell(GridRow::Campo, 0) == L"Clientes.Nombre"; }, "the first column");
    Key(VK_NEXT, 1, false, true);
    Key(VK_END);
    Key(VK_SPACE);
    Until([this] { return Cell(GridRow::Campo, 1) == L"Pedidos.Importe"; }, "the second column");

    // In the grid: total, order and criterion of the second column.
    Key(VK_F6);
    UntilFocusOn(ui::kIdGrid);
    Key(VK_HOME, 1, false, true);
    Key(VK_DOWN, 3);
    Key(VK_F4);
    Until([this] { return window_.GridControl().Editor().IsListShown(); }, "the list of the groupings");
    Key(VK_DOWN);
    Key(VK_RETURN);
    Until([this] { return Cell(GridRow::Agrupacion, 0) == L"Agrupado por"; }, "chosen from the list");
    Key(VK_UP);
    Key(VK_RIGHT);
    Enter(L"Suma", GridRow::Agrupacion, 1);
    Key(VK_DOWN);
    Enter(L"Descendente", GridRow::Orden, 1);
    Enter(L"> 100", GridRow::Condicion, 1);

    // Without a database the query ends in a message, which Enter closes.
    Key(VK_F5);
    Until([] { return OpenMessageBox() != nullptr; }, "the query was tried");
    Key(VK_RETURN);
    Until([] { return OpenMessageBox() == nullptr; }, "the message is closed");

    // The text is composed; its order is turned round by hand, and the design follows.
    Key(VK_TAB, 1, false, true);
    UntilFocusOn(ui::kIdEditor);
    Until([this] { return EditorText().ends_with(L"DESC;"); }, "the statement is composed");
    Key(VK_END, 1, false, true);
    Key(VK_BACK, 5);
    Type(L"ASC;");
    Until([this] { return EditorText().ends_with(L"ASC;"); }, "the text is changed");
    Key(VK_TAB, 1, false, true);
    Until([this] { return Cell(GridRow::Orden, 1) == L"Ascendente"; }, "the design follows the text");
    UntilFocusOn(ui::kIdGrid);

    // A cell is emptied by mistake, and the mistake undone.
    Key(VK_HOME, 1, false, true);
    Key(VK_DOWN, 5);
    Key(VK_RIGHT);
    Key(VK_DELETE);
    Until([this] { return Cell(GridRow::Orden, 1).empty(); }, "the order is gone");
    Key('Z', 1, false, true);
    Until([this] { return Cell(GridRow::Orden, 1) == L"Ascendente"; }, "undone");
    Key(VK_RETURN, 1, false, true);
    EXPECT_TRUE(Run(L""));
    EXPECT_EQ(window_.Presenter().ResultSQL(),
              L"SELECT Clientes.Nombre AS Nombre, Sum(Pedidos.Importe) AS Importe \r\n"
              L"FROM (Clientes INNER JOIN Pedidos ON Clientes.IdCliente = Pedidos.IdCliente)  \r\n"
              L"GROUP BY Clientes.Nombre \r\n"
              L"HAVING (Sum(Pedidos.Importe) > 100) \r\n"
              L"ORDER BY Sum(Pedidos.Importe);");
}

}  // namespace tessel::testing
