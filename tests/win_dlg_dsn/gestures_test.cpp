// What the user does with the mouse and the keyboard on the design page, and what becomes of it in the
// design.
#include <windows.h>

#include <commctrl.h>

#include <cstring>

#include "tests/win_dlg_dsn/dlg_dsn_fixture.h"

namespace tessel::testing {

using model::GridRow;

class Gestures : public DlgDsnTest {
protected:
    POINT CheckOf(const wchar_t* table, const wchar_t* field) {
        return ScreenPoint(window_.DiagramControl().Handle(),
                           window_.DiagramControl().CheckRect(table, field));
    }
    POINT FieldOf(const wchar_t* table, const wchar_t* field) {
        return ScreenPoint(window_.DiagramControl().Handle(),
                           window_.DiagramControl().FieldRect(table, field));
    }
    POINT CellOf(GridRow row, int column) {
        return ScreenPoint(window_.GridControl().Handle(), window_.GridControl().CellRect(row, column));
    }
    void Cancel() {
        script_.Do([this] { Press(ui::kIdCancel); });
    }
};

TEST_F(Gestures, TickingAFieldFillsTheGridAndUntickingEmptiesIt) {
    script_.Do([this] { MouseClick(CheckOf(L"Clientes", L"Pais")); });
    script_.Until([this] { return Cell(GridRow::Campo, 1) == L"Clientes.Pais"; }, "the field is in the grid");
    script_.Do([this] {
        EXPECT_EQ(Cell(GridRow::Titulo, 1), L"Pais");
        EXPECT_EQ(Cell(GridRow::Tabla, 1), L"Clientes");
        EXPECT_EQ(Cell(GridRow::Visible, 1), L"Si");
        EXPECT_EQ(Grid().Caption(1), L"Pais");
        MouseClick(CheckOf(L"Clientes", L"Pais"));
    });
    script_.Until([this] { return Cell(GridRow::Campo, 1).empty(); }, "the field is gone");
    Cancel();
    EXPECT_FALSE(Run(L"SELECT Clientes.Nombre FROM Clientes"));
}

TEST_F(Gestures, DraggingAFieldOntoAFieldOfAnotherTableMakesARelation) {
    script_.Do([this] {
        ASSERT_TRUE(Diagram().Relations().empty());
        MouseDrag(FieldOf(L"Clientes", L"IdCliente"), FieldOf(L"Pedidos", L"IdCliente"));
    });
    script_.Until([this] { return Diagram().Relations().size() == 1; }, "the relation is there");
    script_.Do([this] { Press(ui::kIdAccept); });
    EXPECT_TRUE(Run(L"SELECT Clientes.Nombre FROM Clientes, Pedidos"));
    EXPECT_EQ(window_.Presenter().ResultSQL(),
              L"SELECT Clientes.Nombre AS Nombre \r\n"
              L"FROM (Clientes INNER JOIN Pedidos ON Clientes.IdCliente = Pedidos.IdCliente) ;");
}

TEST_F(Gestures, DoubleClickInTheSchemaBrowserAddsATableWithItsRelation) {
    script_.Do([this] {
        const HWND tree = FindWindowExW(Control(ui::kIdBrowser), nullptr, WC_TREEVIEWW, nullptr);
        // The items from the root: ventas, Tablas, Clientes, Pedidos, Detalle de pedidos.
        auto item = reinterpret_cast<HTREEITEM>(SendMessageW(tree, TVM_GETNEXTITEM, TVGN_ROOT, 0));
        for (int i = 0; i < 4; ++i)
            item = reinterpret_cast<HTREEITEM>(
                SendMessageW(tree, TVM_GETNEXTITEM, TVGN_NEXTVISIBLE, reinterpret_cast<LPARAM>(item)));
        RECT place{};
        std::memcpy(&place, &item, sizeof item);  // the message wants the item in the rectangle's place
        SendMessageW(tree, TVM_GETITEMRECT, TRUE, reinterpret_cast<LPARAM>(&place));
        MouseClick(ScreenPoint(tree, place), 2);
    });
    script_.Until([this] { return Diagram().Tables().size() == 2; }, "the table is on the diagram");
    script_.Do([this] {
        EXPECT_EQ(Diagram().Tables()[1].name, L"[Detalle de pedidos]");
        ASSERT_EQ(Diagram().Relations().size(), 1u);
        EXPECT_EQ(Diagram().Relations()[0].info.JType, 0);
        Press(ui::kIdCancel);
    });
    EXPECT_FALSE(Run(L"SELECT Pedidos.Fecha FROM Pedidos"));
}

TEST_F(Gestures, TypingIntoACellAndEnterCommitsIt) {
    script_.Do([this] { MouseClick(CellOf(GridRow::Condicion, 0)); });
    script_.Until([this] { return Grid().FocusedRow() == GridRow::Condicion; }, "the cell has the focus");
    script_.Do([] { TypeText(L"> 'Ñ'"); });
    script_.Do([] { PressKey(VK_RETURN); });
    script_.Until([this] { return Cell(GridRow::Condicion, 0) == L"> 'Ñ'"; }, "the text is committed");
    script_.Do([this] { Press(ui::kIdAccept); });
    EXPECT_TRUE(Run(L"SELECT Clientes.Nombre FROM Clientes"));
    EXPECT_EQ(window_.Presenter().ResultSQL(),
              L"SELECT Clientes.Nombre AS Nombre \r\nFROM Clientes \r\nWHERE (Clientes.Nombre > 'Ñ');");
}

TEST_F(Gestures, TextInAnOpenCellIsCommittedByTheAcceptButton) {
    script_.Do([this] { MouseClick(CellOf(GridRow::Condicion, 0)); });
    script_.Until([this] { return Grid().FocusedRow() == GridRow::Condicion; }, "the cell has the focus");
    script_.Do([] { TypeText(L"= 3"); });
    script_.Until([this] { return window_.GridControl().IsEditing(); }, "the editor is open");
    script_.Do([this] { Press(ui::kIdAccept); });
    EXPECT_TRUE(Run(L"SELECT Clientes.IdCliente FROM Clientes"));
    EXPECT_EQ(
        window_.Presenter().ResultSQL(),
        L"SELECT Clientes.IdCliente AS IdCliente \r\nFROM Clientes \r\nWHERE (Clientes.IdCliente = 3);");
}

TEST_F(Gestures, EscInACellClosesTheCellOnly) {
    script_.Do([this] { MouseClick(CellOf(GridRow::Condicion, 0)); });
    script_.Until([this] { return Grid().FocusedRow() == GridRow::Condicion; }, "the cell has the focus");
    script_.Do([] { TypeText(L"x"); });
    script_.Until([this] { return window_.GridControl().IsEditing(); }, "the editor is open");
    script_.Do([] { PressKey(VK_ESCAPE); });
    script_.Until([this] { return !window_.GridControl().IsEditing(); }, "the editor is closed");
    script_.Do([this] {
        EXPECT_TRUE(IsWindowVisible(window_.Handle()));
        EXPECT_EQ(Cell(GridRow::Condicion, 0), L"");
        Press(ui::kIdCancel);
    });
    EXPECT_FALSE(Run(L"SELECT Clientes.Nombre FROM Clientes"));
}

TEST_F(Gestures, TooLongATextIsRefusedWithAMessageAndNothingIsLost) {
    const std::wstring text(300, L'9');
    script_.Do([this] { MouseClick(CellOf(GridRow::Condicion, 0)); });
    script_.Until([this] { return Grid().FocusedRow() == GridRow::Condicion; }, "the cell has the focus");
    script_.Do([&] { TypeText(text.c_str()); });
    script_.Do([] { PressKey(VK_RETURN); });
    script_.Until([] { return OpenMessageBox() != nullptr; }, "the message is shown");
    script_.Do([this] {
        EXPECT_EQ(MessageBoxText(OpenMessageBox()),
                  L"El texto de una celda no puede tener más de 255 caracteres.");
        EXPECT_EQ(Cell(GridRow::Condicion, 0), L"");
        PressKey(VK_RETURN);
    });
    script_.Until([] { return OpenMessageBox() == nullptr; }, "the message is gone");
    script_.Until([this] { return window_.GridControl().IsEditing(); }, "the editor still holds the text");
    script_.Do([] { PressKey(VK_ESCAPE); });
    script_.Until([this] { return !window_.GridControl().IsEditing(); }, "the editor is closed");
    Cancel();
    EXPECT_FALSE(Run(L"SELECT Clientes.Nombre FROM Clientes"));
}

TEST_F(Gestures, ChangingTheTableDropsTheField) {
    script_.Do([this] { MouseClick(CellOf(GridRow::Tabla, 0)); });
    script_.Until([this] { return Grid().FocusedRow() == GridRow::Tabla; }, "the cell has the focus");
    script_.Do([] { TypeText(L"Pedidos"); });
    script_.Do([] { PressKey(VK_RETURN); });
    script_.Until([this] { return Cell(GridRow::Campo, 0).empty(); }, "the field is dropped");
    script_.Do([this] {
        EXPECT_EQ(Cell(GridRow::Titulo, 0), L"");
        EXPECT_EQ(Cell(GridRow::Tabla, 0), L"Pedidos");
        Press(ui::kIdCancel);
    });
    EXPECT_FALSE(Run(L"SELECT Clientes.Nombre FROM Clientes, Pedidos"));
}

}  // namespace tessel::testing
