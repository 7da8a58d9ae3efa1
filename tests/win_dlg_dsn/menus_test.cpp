// The context menus by mouse and keyboard, the relation dialog, and a relation begun from the menu.
#include <windows.h>

#include <commctrl.h>

#include "tests/win_dlg_dsn/dlg_dsn_fixture.h"

namespace tessel::testing {

namespace {

constexpr UINT kGetMenu = 0x01E1;  // MN_GETHMENU

HWND OpenMenu() {
    const HWND menu = FindWindowW(L"#32768", nullptr);
    return menu && IsWindowVisible(menu) ? menu : nullptr;
}

std::vector<std::wstring> MenuLines() {
    std::vector<std::wstring> lines;
    const auto menu = reinterpret_cast<HMENU>(SendMessageW(OpenMenu(), kGetMenu, 0, 0));
    for (int i = 0; i < GetMenuItemCount(menu); ++i) {
        wchar_t text[100] = L"";
        GetMenuStringW(menu, static_cast<UINT>(i), text, 100, MF_BYPOSITION);
        const UINT state = GetMenuState(menu, static_cast<UINT>(i), MF_BYPOSITION);
        lines.push_back(state & MF_SEPARATOR ? L"-" : (state & MF_GRAYED ? L"(" : L"") + std::wstring(text));
    }
    return lines;
}

constexpr wchar_t kJoined[] =
    L"SELECT Clientes.Nombre FROM (Clientes INNER JOIN Pedidos ON Clientes.IdCliente = Pedidos.IdCliente)";

}  // namespace

class Menus : public DlgDsnTest {
protected:
    using Lines = std::vector<std::wstring>;

    static HWND RelationDialog() {
        const HWND dialog = FindWindowW(L"TesselDialog", L"Propiedades de la relación");
        return dialog && IsWindowVisible(dialog) ? dialog : nullptr;
    }
    HWND DiagramWindow() { return window_.DiagramControl().Handle(); }
    POINT LinePoint() {
        POINT point = window_.DiagramControl().RelationPoint(Diagram().Relations()[0].key);
        ClientToScreen(DiagramWindow(), &point);
        return point;
    }
    POINT TitlePoint(const wchar_t* table) {
        RECT box = window_.DiagramControl().TableRect(table);
        box.bottom = box.top + 16;
        return ScreenPoint(DiagramWindow(), box);
    }
    POINT FieldPoint(const wchar_t* table, const wchar_t* field) {
        return ScreenPoint(DiagramWindow(), window_.DiagramControl().FieldRect(table, field));
    }
    void Until(std::function<bool()> condition, const char* what) {
        script_.Until(std::move(condition), what);
    }
    void UntilMenu() {
        Until([] { return OpenMenu() != nullptr; }, "the menu is open");
    }
    void UntilNoMenu() {
        Until([] { return OpenMenu() == nullptr; }, "the menu is closed");
    }
    void Cancel() {
        script_.Do([this] { Press(ui::kIdCancel); });
    }
};

TEST_F(Menus, ARightClickOnARelationOffersItsTwoCommands) {
    script_.Do([this] { RightClick(LinePoint()); });
    UntilMenu();
    script_.Do([this] {
        EXPECT_EQ(MenuLines(), Lines({L"Quitar relación", L"-", L"Propiedades de la relación"}));
        EXPECT_EQ(Diagram().SelectedElement(), model::DiagramElement::Relation);
        PressKey(VK_ESCAPE);
    });
    UntilNoMenu();
    Cancel();
    EXPECT_FALSE(Run(kJoined));
}

TEST_F(Menus, ARightClickOnATableSelectsItAndOffersItsCommands) {
    script_.Do([this] { RightClick(TitlePoint(L"Pedidos")); });
    UntilMenu();
    script_.Do([this] {
        EXPECT_EQ(MenuLines(),
                  Lines({L"Quitar tabla del diagrama", L"-", L"Agregar relación", L"-",
                         L"Agregar tabla relacionada al diagrama", L"-", L"(Ver datos de la tabla"}));
        EXPECT_EQ(Diagram().SelectedTable(), L"Pedidos");
        PressKey(VK_DOWN);
        PressKey(VK_RETURN);
    });
    Until([this] { return Diagram().Tables().size() == 1; }, "the table is removed");
    Cancel();
    EXPECT_FALSE(Run(kJoined));
}

TEST_F(Menus, ShiftF10OpensTheMenuOfTheSelectedTable) {
    script_.Do([this] {
        SetFocus(DiagramWindow());
        const_cast<model::Diagram&>(Diagram()).SelectTable(L"Clientes");
        PressKey(VK_F10, true);
    });
    UntilMenu();
    script_.Do([this] {
        EXPECT_EQ(MenuLines().front(), L"Quitar tabla del diagrama");
        RECT menu{};
        GetWindowRect(OpenMenu(), &menu);
        RECT table = window_.DiagramControl().TableRect(L"Clientes");
        MapWindowPoints(DiagramWindow(), nullptr, reinterpret_cast<POINT*>(&table), 2);
        EXPECT_TRUE(PtInRect(&table, {menu.left, menu.top}));
        PressKey(VK_ESCAPE);
    });
    UntilNoMenu();
    Cancel();
    EXPECT_FALSE(Run(kJoined));
}

TEST_F(Menus, TheMenuKeyOpensTheMenuOfTheBrowsersTable) {
    script_.Do([this] {
        SetFocus(FindWindowExW(Control(ui::kIdBrowser), nullptr, WC_TREEVIEWW, nullptr));
        // The root, the group of tables, the first table.
        PressKey(VK_DOWN);
        PressKey(VK_DOWN);
        PressKey(VK_APPS);
    });
    UntilMenu();
    script_.Do([this] {
        EXPECT_EQ(MenuLines(), Lines({L"Agregar tabla a diagrama", L"-", L"(Ver los datos de la tabla"}));
        EXPECT_EQ(window_.Presenter().CurrentTable(), L"Clientes");
        PressKey(VK_DOWN);
        PressKey(VK_RETURN);
    });
    Until([this] { return Diagram().FindTable(L"Clientes") != nullptr; }, "the table is on the diagram");
    Cancel();
    EXPECT_FALSE(Run(L"SELECT Pedidos.Fecha FROM Pedidos"));
}

TEST_F(Menus, DelRemovesTheSelectedRelationAndThenTheSelectedTable) {
    script_.Do([this] { MouseClick(LinePoint()); });
    Until([this] { return Diagram().SelectedElement() == model::DiagramElement::Relation; },
          "the line is selected");
    script_.Do([] { PressKey(VK_DELETE); });
    Until([this] { return Diagram().Relations().empty(); }, "the relation is removed");
    script_.Do([this] { MouseClick(TitlePoint(L"Pedidos")); });
    script_.Do([] { PressKey(VK_DELETE); });
    Until([this] { return Diagram().Tables().size() == 1; }, "the table is removed");
    Cancel();
    EXPECT_FALSE(Run(kJoined));
}

TEST_F(Menus, ADoubleClickOnARelationChangesItsKindFromTheKeyboard) {
    script_.Do([this] { MouseClick(LinePoint(), 2); });
    Until([] { return RelationDialog() != nullptr; }, "the dialog is open");
    script_.Do([] {
        EXPECT_EQ(TextOf(GetDlgItem(RelationDialog(), 311)), L"Clientes.IdCliente = Pedidos.IdCliente");
        EXPECT_EQ(SendMessageW(GetDlgItem(RelationDialog(), 312), BM_GETCHECK, 0, 0), BST_CHECKED);
        EXPECT_EQ(GetFocus(), GetDlgItem(RelationDialog(), 312));
        PressKey(VK_DOWN);
    });
    Until([] { return SendMessageW(GetDlgItem(RelationDialog(), 313), BM_GETCHECK, 0, 0) == BST_CHECKED; },
          "the next kind is chosen");
    script_.Do([] { PressKey(VK_RETURN); });
    Until([] { return RelationDialog() == nullptr; }, "the dialog is closed");
    script_.Do([this] { Press(ui::kIdAccept); });
    EXPECT_TRUE(Run(kJoined));
    EXPECT_EQ(window_.Presenter().ResultSQL(),
              L"SELECT Clientes.Nombre AS Nombre \r\n"
              L"FROM (Clientes LEFT JOIN Pedidos ON Clientes.IdCliente = Pedidos.IdCliente) ;");
}

TEST_F(Menus, EnterOnARelationOpensItsPropertiesAndEscChangesNothing) {
    script_.Do([this] { MouseClick(LinePoint()); });
    script_.Do([] { PressKey(VK_RETURN); });
    Until([] { return RelationDialog() != nullptr; }, "the dialog is open");
    script_.Do([] {
        SendMessageW(GetDlgItem(RelationDialog(), 314), BM_CLICK, 0, 0);
        PressKey(VK_ESCAPE);
    });
    Until([] { return RelationDialog() == nullptr; }, "the dialog is closed");
    script_.Do([this] { EXPECT_EQ(Diagram().Relations()[0].info.JType, model::kInnerJoin); });
    Cancel();
    EXPECT_FALSE(Run(kJoined));
}

TEST_F(Menus, ARelationBegunFromTheMenuIsCompletedWithTwoClicks) {
    script_.Do([this] { RightClick(TitlePoint(L"Clientes")); });
    UntilMenu();
    script_.Do([] {
        PressKey(VK_DOWN);
        PressKey(VK_DOWN);
        PressKey(VK_RETURN);
    });
    Until([this] { return !window_.DiagramControl().RelatingHint().empty(); }, "the relation is begun");
    script_.Do([this] { MouseClick(FieldPoint(L"Clientes", L"Nombre")); });
    script_.Do([this] {
        EXPECT_TRUE(Diagram().Relations().empty());
        MouseClick(FieldPoint(L"Productos", L"[Descripción]"));
    });
    Until([this] { return Diagram().Relations().size() == 1; }, "the relation is there");
    script_.Do([this] {
        EXPECT_EQ(Diagram().Relations()[0].info.LeftTable, L"Clientes");
        EXPECT_EQ(Diagram().Relations()[0].info.LeftField, L"Nombre");
        EXPECT_EQ(Diagram().Relations()[0].info.RightTable, L"Productos");
        EXPECT_EQ(window_.DiagramControl().RelatingHint(), L"");
    });
    Cancel();
    EXPECT_FALSE(Run(L"SELECT Clientes.Nombre FROM Clientes, Productos"));
}

TEST_F(Menus, EscAbandonsARelationAndLeavesTheWindowOpen) {
    script_.Do([this] { RightClick(TitlePoint(L"Clientes")); });
    UntilMenu();
    script_.Do([] {
        PressKey(VK_DOWN);
        PressKey(VK_DOWN);
        PressKey(VK_RETURN);
    });
    Until([this] { return !window_.DiagramControl().RelatingHint().empty(); }, "the relation is begun");
    script_.Do([] { PressKey(VK_ESCAPE); });
    Until([this] { return window_.DiagramControl().RelatingHint().empty(); }, "the relation is abandoned");
    script_.Do([this] {
        EXPECT_TRUE(IsWindowVisible(window_.Handle()));
        EXPECT_TRUE(Diagram().Relations().empty());
    });
    Cancel();
    EXPECT_FALSE(Run(L"SELECT Clientes.Nombre FROM Clientes, Productos"));
}

}  // namespace tessel::testing
