// The designer window as a user meets it: opened on a statement, read, changed, accepted, cancelled, closed.
#include "tests/win_dlg_dsn/dlg_dsn_fixture.h"

#include <commctrl.h>

#include <map>

#include "common/text.h"
#include "ui/dlg_dsn_texts.h"

namespace tessel::testing {

using model::GridRow;
using ui::Tab;

TEST_F(DlgDsnTest, HasTheCaptionsOfItsButtonsTabsAndTitle) {
    const std::map<int, std::wstring> expected = {
        {ui::kIdSyntaxTree, L"Ver árbol de sintaxis"},
        {ui::kIdAddTable, L"Agregar tabla al diagrama"},
        {ui::kIdRunQuery, L"Ejecutar consulta (vista previa de resultados)"},
        {ui::kIdRemoveColumn, L"Quitar columna"},
        {ui::kIdClearAll, L"Limpiar todo"},
        {ui::kIdAccept, L"&Aceptar"},
        {ui::kIdCancel, L"&Cancelar"},
        {ui::kIdHelp, L"Ay&uda"},
        {ui::kIdDistinct, L"DISTINCT"},
    };
    for (const auto& [id, caption] : expected) EXPECT_EQ(TextOf(Control(id)), caption);
    EXPECT_EQ(TextOf(window_.Handle()), L"Diseñador de consultas SQL");
    EXPECT_EQ(
        TextOf(Control(ui::kIdReason)),
        L"No se puede mostrar más información visual de la consulta porque es demasiado compleja, usa una "
        L"sintaxis no conocida o contiene un error.\r\n\r\nRealice los cambios manualmente en el código SQL "
        L"o "
        L"bórrelo para habilitar el modo de diseño.");
}

TEST_F(DlgDsnTest, BlankStatementOpensAnEmptyDesignOnTabZero) {
    script_.Do([this] {
        EXPECT_EQ(window_.Presenter().CurrentTab(), Tab::Design);
        EXPECT_EQ(EditorText(), L"");
        EXPECT_TRUE(Diagram().Tables().empty());
        Press(ui::kIdCancel);
    });
    EXPECT_FALSE(Run(L"   "));
}

TEST_F(DlgDsnTest, GridHasSixtyColumns) {
    EXPECT_EQ(Grid().ColumnCount(), 60);
    EXPECT_EQ(model::DesignGrid::FieldName(10), L"C11");
    EXPECT_EQ(model::DesignGrid::FieldName(59), L"C60");
    EXPECT_EQ(Grid().ColumnWidth(59), 80);
}

TEST_F(DlgDsnTest, ShowsAStatementAsADesign) {
    script_.Do([this] {
        EXPECT_EQ(Diagram().Tables().size(), 2u);
        EXPECT_EQ(Diagram().Relations().size(), 1u);
        EXPECT_EQ(Cell(GridRow::Campo, 0), L"Clientes.Nombre");
        EXPECT_EQ(Cell(GridRow::Agrupacion, 0), L"Agrupado por");
        EXPECT_EQ(Cell(GridRow::Campo, 1), L"Sum(Pedidos.Importe)");
        EXPECT_EQ(Cell(GridRow::Titulo, 1), L"Total");
        EXPECT_EQ(Cell(GridRow::Orden, 1), L"Descendente");
        EXPECT_EQ(Cell(GridRow::Campo, 2), L"");
        EXPECT_TRUE(GridIsVisible());
        Press(ui::kIdAccept);
    });
    EXPECT_TRUE(Run(kTotalsByCustomer));
    EXPECT_EQ(window_.Presenter().ResultSQL(),
              L"SELECT Clientes.Nombre AS Nombre, Sum(Pedidos.Importe) AS Total \r\n"
              L"FROM (Clientes INNER JOIN Pedidos ON Clientes.IdCliente = Pedidos.IdCliente)  \r\n"
              L"GROUP BY Clientes.Nombre \r\n"
              L"ORDER BY Sum(Pedidos.Importe) DESC;");
}

TEST_F(DlgDsnTest, ClickOnTheSqlTabComposesAndClickBackAnalyses) {
    const std::wstring composed = L"SELECT Clientes.Nombre AS Nombre \r\nFROM Clientes;";
    script_.Do([this] { ClickTab(Tab::Sql); });
    script_.Until([&] { return EditorText() == composed; }, "the text is composed");
    script_.Until([this] { return GetFocus() == Control(ui::kIdEditor); }, "the editor has the focus");
    script_.Do([this] {
        EXPECT_FALSE(GridIsVisible());
        ClickTab(Tab::Design);
    });
    script_.Until([this] { return GridIsVisible(); }, "the grid is visible");
    script_.Do([this] {
        EXPECT_EQ(Cell(GridRow::Campo, 0), L"Clientes.Nombre");
        Press(ui::kIdCancel);
    });
    EXPECT_FALSE(Run(L"SELECT Clientes.Nombre FROM Clientes"));
}

TEST_F(DlgDsnTest, StatementThatIsNoDesignOpensOnTheSqlTabUntouched) {
    const std::wstring statement = L"SELECT a FROM t UNION SELECT b FROM u  ";
    script_.Do([&] {
        EXPECT_EQ(window_.Presenter().CurrentTab(), Tab::Sql);
        EXPECT_EQ(EditorText(), statement);
        Press(ui::kIdAccept);
    });
    EXPECT_TRUE(Run(statement));
    EXPECT_EQ(window_.Presenter().ResultSQL(), statement);
}

TEST_F(DlgDsnTest, TabZeroShowsOnlyTheReasonForATextThatIsNoDesign) {
    const std::wstring statement = L"SELECT a FROM t UNION SELECT b FROM u";
    script_.Do([this] { ClickTab(Tab::Design); });
    script_.Until([this] { return window_.Presenter().CurrentTab() == Tab::Design && !GridIsVisible(); },
                  "tab 0");
    script_.Until([this] { return IsWindowVisible(Control(ui::kIdReason)) != FALSE; }, "lblNo");
    script_.Do([&] {
        EXPECT_FALSE(GridIsVisible());
        EXPECT_FALSE(IsWindowVisible(Control(ui::kIdDiagram)));
        EXPECT_FALSE(IsWindowVisible(Control(ui::kIdRemoveColumn)));
        EXPECT_TRUE(IsWindowVisible(Control(ui::kIdReason)));
        EXPECT_EQ(EditorText(), statement);
        Press(ui::kIdAccept);
    });
    EXPECT_TRUE(Run(statement));
    EXPECT_EQ(window_.Presenter().ResultSQL(), statement);
}

TEST_F(DlgDsnTest, EditedTextIsAcceptedAsTypedOnTheSqlTab) {
    script_.Do([this] { ClickTab(Tab::Sql); });
    script_.Until([this] { return GetFocus() == Control(ui::kIdEditor); }, "the editor has the focus");
    script_.Do([] { PressKey('A', false, true); });
    script_.Do([] { TypeText(L"SELECT  ñandú, '€' FROM Clientes"); });
    script_.Until([this] { return EditorText() == L"SELECT  ñandú, '€' FROM Clientes"; },
                  "the text is typed");
    script_.Do([this] { Press(ui::kIdAccept); });
    EXPECT_TRUE(Run(L"SELECT Clientes.Nombre FROM Clientes"));
    EXPECT_EQ(window_.Presenter().ResultSQL(), L"SELECT  ñandú, '€' FROM Clientes");
}

TEST_F(DlgDsnTest, EscapeCancels) {
    script_.Do([] { PressKey(VK_ESCAPE); });
    EXPECT_FALSE(Run(L"SELECT Clientes.Nombre FROM Clientes"));
    EXPECT_FALSE(window_.Presenter().Accepted());
}

TEST_F(DlgDsnTest, EscapeCancelsFromTheEditorToo) {
    script_.Do([this] { ClickTab(Tab::Sql); });
    script_.Until([this] { return GetFocus() == Control(ui::kIdEditor); }, "the editor has the focus");
    script_.Do([] { PressKey(VK_ESCAPE); });
    EXPECT_FALSE(Run(L"SELECT Clientes.Nombre FROM Clientes"));
}

TEST_F(DlgDsnTest, ClosingByTheTitleBarCancels) {
    script_.Do([this] { PostMessageW(window_.Handle(), WM_SYSCOMMAND, SC_CLOSE, 0); });
    EXPECT_FALSE(Run(L"SELECT Clientes.Nombre FROM Clientes"));
}

TEST_F(DlgDsnTest, WindowDestroyedFromOutsideCancels) {
    script_.Do([this] { DestroyWindow(window_.Handle()); });
    EXPECT_FALSE(Run(L"SELECT Clientes.Nombre FROM Clientes"));
    EXPECT_FALSE(window_.Presenter().Accepted());
}

TEST_F(DlgDsnTest, QuitMessageEndsTheLoopAndReachesTheHost) {
    script_.Do([] { PostQuitMessage(7); });
    EXPECT_FALSE(Run(L"SELECT Clientes.Nombre FROM Clientes"));
    MSG message{};
    bool quit = false;
    while (!quit && PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) quit = message.message == WM_QUIT;
    EXPECT_TRUE(quit);
    EXPECT_EQ(message.wParam, 7u);
}

TEST_F(DlgDsnTest, HostWindowsAreDisabledMeanwhileAndEnabledAfterwards) {
    const HWND host = CreateWindowExW(0, L"STATIC", L"host", WS_OVERLAPPED | WS_VISIBLE, 0, 0, 50, 50,
                                      nullptr, nullptr, nullptr, nullptr);
    const HWND disabled = CreateWindowExW(0, L"STATIC", L"host", WS_OVERLAPPED | WS_VISIBLE | WS_DISABLED, 0,
                                          0, 50, 50, nullptr, nullptr, nullptr, nullptr);
    script_.Do([&] {
        EXPECT_FALSE(IsWindowEnabled(host));
        Press(ui::kIdCancel);
    });
    Run(L"");
    EXPECT_TRUE(IsWindowEnabled(host));
    EXPECT_FALSE(IsWindowEnabled(disabled));
    DestroyWindow(host);
    DestroyWindow(disabled);
}

TEST_F(DlgDsnTest, ClearAllAsksAndNoKeepsEverything) {
    script_.Do([this] { Press(ui::kIdClearAll); });
    script_.Until([] { return OpenMessageBox() != nullptr; }, "the question is shown");
    script_.Do([] {
        EXPECT_EQ(MessageBoxText(OpenMessageBox()), L"¿Seguro desea eliminar todas las columnas definidas?");
        // Enter takes the default, which is No.
        PressKey(VK_RETURN);
    });
    script_.Until([] { return OpenMessageBox() == nullptr; }, "the question is gone");
    script_.Do([this] {
        EXPECT_EQ(Cell(GridRow::Campo, 0), L"Clientes.Nombre");
        Press(ui::kIdClearAll);
    });
    script_.Until([] { return OpenMessageBox() != nullptr; }, "the question is shown again");
    script_.Do([] { PostMessageW(OpenMessageBox(), WM_COMMAND, IDYES, 0); });
    script_.Until([this] { return Cell(GridRow::Campo, 0).empty(); }, "the columns are gone");
    script_.Do([this] { Press(ui::kIdCancel); });
    EXPECT_FALSE(Run(L"SELECT Clientes.Nombre FROM Clientes"));
}

TEST_F(DlgDsnTest, RemoveColumnRemovesTheFocusedColumn) {
    script_.Do([this] {
        EXPECT_TRUE(IsWindowEnabled(Control(ui::kIdRemoveColumn)));
        Press(ui::kIdRemoveColumn);
    });
    script_.Until([this] { return Cell(GridRow::Campo, 0).empty(); }, "the column is gone");
    script_.Do([this] {
        EXPECT_EQ(Cell(GridRow::Campo, 1), L"Clientes.Pais");
        Press(ui::kIdCancel);
    });
    EXPECT_FALSE(Run(L"SELECT Clientes.Nombre, Clientes.Pais FROM Clientes"));
}

TEST_F(DlgDsnTest, TooComplexWhereIsSaidInAMessageBox) {
    script_.Do([this] { ClickTab(Tab::Sql); });
    script_.Until([this] { return GetFocus() == Control(ui::kIdEditor); }, "the editor has the focus");
    script_.Do([] { PressKey('A', false, true); });
    script_.Do([] {
        TypeText(
            L"SELECT Clientes.Nombre FROM Clientes WHERE (Clientes.Pais = 'a' OR Clientes.Nombre = 'b') AND "
            L"Clientes.IdCliente = 3");
    });
    script_.Until([this] { return EditorText().ends_with(L"= 3"); }, "the text is typed");
    script_.Do([this] { ClickTab(Tab::Design); });
    script_.Until([] { return OpenMessageBox() != nullptr; }, "the message is shown");
    script_.Do([] {
        EXPECT_EQ(MessageBoxText(OpenMessageBox()),
                  L"La cláusula Where es demasiado compleja para poder ser representada");
        PostMessageW(OpenMessageBox(), WM_COMMAND, IDOK, 0);
    });
    script_.Until([this] { return GridIsVisible() && OpenMessageBox() == nullptr; }, "the design is shown");
    script_.Do([this] {
        EXPECT_EQ(Cell(GridRow::Condicion, 0), L"");
        Press(ui::kIdCancel);
    });
    EXPECT_FALSE(Run(L"SELECT Clientes.Nombre FROM Clientes"));
}

TEST_F(DlgDsnTest, EmptyingTheTextClearsTheDesignWithoutAsking) {
    script_.Do([this] { ClickTab(Tab::Sql); });
    script_.Until([this] { return GetFocus() == Control(ui::kIdEditor); }, "the editor has the focus");
    script_.Do([] { PressKey('A', false, true); });
    script_.Do([] { PressKey(VK_DELETE); });
    script_.Until([this] { return EditorText().empty(); }, "the text is gone");
    script_.Do([this] { ClickTab(Tab::Design); });
    // The switch lets messages be handled before it is done.
    script_.Until([this] { return GridIsVisible() && Diagram().Tables().empty(); }, "the design is empty");
    script_.Do([this] {
        EXPECT_EQ(OpenMessageBox(), nullptr);
        EXPECT_EQ(Cell(GridRow::Campo, 0), L"");
        Press(ui::kIdAccept);
    });
    EXPECT_TRUE(Run(L"SELECT Clientes.Nombre FROM Clientes"));
    EXPECT_EQ(window_.Presenter().ResultSQL(), L"");
}

TEST_F(DlgDsnTest, DistinctCheckBoxFollowsTheStatementAndChangesIt) {
    script_.Do([this] {
        EXPECT_EQ(SendMessageW(Control(ui::kIdDistinct), BM_GETCHECK, 0, 0), BST_CHECKED);
        Press(ui::kIdDistinct);
    });
    script_.Until(
        [this] { return SendMessageW(Control(ui::kIdDistinct), BM_GETCHECK, 0, 0) == BST_UNCHECKED; },
        "the box is unchecked");
    script_.Do([this] { Press(ui::kIdAccept); });
    EXPECT_TRUE(Run(L"SELECT DISTINCT Clientes.Pais FROM Clientes"));
    EXPECT_EQ(window_.Presenter().ResultSQL(), L"SELECT Clientes.Pais AS Pais \r\nFROM Clientes;");
}

TEST_F(DlgDsnTest, ControlTabSwitchesTheTabs) {
    script_.Do([] { PressKey(VK_TAB, false, true); });
    script_.Until([this] { return GetFocus() == Control(ui::kIdEditor); }, "the switch is over");
    script_.Do([] { PressKey(VK_TAB, false, true); });
    script_.Until([this] { return GetFocus() == Control(ui::kIdGrid); }, "the switch back is over");
    script_.Do([this] { Press(ui::kIdCancel); });
    EXPECT_FALSE(Run(L"SELECT Clientes.Nombre FROM Clientes"));
}

TEST_F(DlgDsnTest, ArrowKeysOnTheTabStripSwitchTheTabsAndStayThere) {
    script_.Do([this] { SetFocus(Control(ui::kIdTabs)); });
    script_.Do([] { PressKey(VK_RIGHT); });
    script_.Until([this] { return window_.Presenter().CurrentTab() == Tab::Sql; }, "tab 1");
    script_.Until([this] { return GetFocus() == Control(ui::kIdTabs); }, "the switch is over");
    script_.Do([] { PressKey(VK_LEFT); });
    script_.Until([this] { return window_.Presenter().CurrentTab() == Tab::Design; }, "tab 0");
    script_.Until([this] { return GetFocus() == Control(ui::kIdTabs); }, "the switch is over");
    script_.Do([this] { Press(ui::kIdCancel); });
    EXPECT_FALSE(Run(L"SELECT Clientes.Nombre FROM Clientes"));
}

TEST_F(DlgDsnTest, ArrowKeyLeavesTheSqlTabThatAStatementOpenedOn) {
    script_.Do([this] { SetFocus(Control(ui::kIdTabs)); });
    script_.Do([] { PressKey(VK_LEFT); });
    script_.Until([this] { return window_.Presenter().CurrentTab() == Tab::Design && !GridIsVisible(); },
                  "tab 0");
    script_.Until([this] { return IsWindowVisible(Control(ui::kIdReason)) != FALSE; }, "lblNo");
    script_.Do([this] {
        EXPECT_EQ(EditorText(), L"SELECT a FROM t UNION SELECT b FROM u");
        Press(ui::kIdCancel);
    });
    EXPECT_FALSE(Run(L"SELECT a FROM t UNION SELECT b FROM u"));
}

TEST_F(DlgDsnTest, SyntaxTreeIsShownExpandedAndEscClosesOnlyIt) {
    const auto dialog = [] { return FindWindowW(L"TesselDialog", L"Árbol de sintaxis"); };
    script_.Do([this] { Press(ui::kIdSyntaxTree); });
    script_.Until([&] { return dialog() && IsWindowVisible(dialog()); }, "the tree is shown");
    script_.Do([&] {
        const HWND tree = FindWindowExW(dialog(), nullptr, WC_TREEVIEWW, nullptr);
        EXPECT_EQ(TextOf(FindWindowExW(dialog(), nullptr, L"Button", nullptr)), L"&Cerrar");
        std::vector<std::wstring> shown;
        auto item = reinterpret_cast<HTREEITEM>(SendMessageW(tree, TVM_GETNEXTITEM, TVGN_ROOT, 0));
        // Walking the visible items reaches everything only when everything is expanded.
        while (item) {
            wchar_t text[200] = L"";
            TVITEMW info{};
            info.mask = TVIF_HANDLE | TVIF_TEXT;
            info.hItem = item;
            info.pszText = text;
            info.cchTextMax = 200;
            SendMessageW(tree, TVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&info));
            shown.push_back(text);
            item = reinterpret_cast<HTREEITEM>(
                SendMessageW(tree, TVM_GETNEXTITEM, TVGN_NEXTVISIBLE, reinterpret_cast<LPARAM>(item)));
        }
        EXPECT_EQ(shown, (std::vector<std::wstring>{L"SELECT", L"Columnas", L"Clientes.Nombre Alias: Nombre",
                                                    L"FROM", L"Tablas", L"Clientes", L"WHERE",
                                                    L"(Clientes.Pais = 'Perú')"}));
        PressKey(VK_ESCAPE);
    });
    script_.Until([&] { return dialog() == nullptr; }, "the tree is closed");
    script_.Do([this] {
        EXPECT_TRUE(IsWindowVisible(window_.Handle()));
        EXPECT_TRUE(IsWindowEnabled(window_.Handle()));
        Press(ui::kIdCancel);
    });
    EXPECT_FALSE(Run(L"SELECT Clientes.Nombre FROM Clientes WHERE Clientes.Pais = 'Perú'"));
}

TEST_F(DlgDsnTest, SyntaxTreeOfNothingIsSaid) {
    script_.Do([this] { Press(ui::kIdSyntaxTree); });
    script_.Until([] { return OpenMessageBox() != nullptr; }, "the message is shown");
    script_.Do([] {
        EXPECT_EQ(MessageBoxText(OpenMessageBox()),
                  L"No hay ninguna instrucción que analizar, existe un error o es demasiado compleja.");
        PressKey(VK_RETURN);
    });
    script_.Until([] { return OpenMessageBox() == nullptr; }, "the message is gone");
    script_.Do([this] { Press(ui::kIdCancel); });
    EXPECT_FALSE(Run(L""));
}

TEST_F(DlgDsnTest, SmallestSizeLeavesEveryButtonInside) {
    script_.Do([this] { MoveWindow(window_.Handle(), 0, 0, 10, 10, TRUE); });
    script_.Do([this] {
        RECT inner{};
        GetClientRect(window_.Handle(), &inner);
        for (int id : {ui::kIdSyntaxTree, ui::kIdAddTable, ui::kIdRunQuery, ui::kIdAccept, ui::kIdCancel,
                       ui::kIdHelp, ui::kIdRemoveColumn, ui::kIdClearAll, ui::kIdDistinct}) {
            RECT button{};
            GetWindowRect(Control(id), &button);
            MapWindowPoints(nullptr, window_.Handle(), reinterpret_cast<POINT*>(&button), 2);
            EXPECT_GE(button.left, 0) << id;
            EXPECT_LE(button.right, inner.right) << id;
            EXPECT_LE(button.bottom, inner.bottom) << id;
        }
        Press(ui::kIdCancel);
    });
    Run(L"");
}

}  // namespace tessel::testing
