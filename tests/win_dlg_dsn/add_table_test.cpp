// "Agregar tabla al diagrama", and the macros of the window.
#include <gtest/gtest.h>

#include "tests/win_dlg_dsn/dlg_dsn_fixture.h"
#include "tests/win_dlg_dsn/recorded_help.h"
#include "ui/help_contexts.h"
#include "ui/win32/dlg_dsn.h"

namespace tessel::testing {

class AddTable : public DlgDsnTest {
protected:
    static HWND Dialog() { return FindWindowW(L"TesselDialog", L"Agregar tabla al diagrama"); }
    static HWND Part(const wchar_t* window_class) {
        return FindWindowExW(Dialog(), nullptr, window_class, nullptr);
    }
    static std::vector<std::wstring> Lines() {
        std::vector<std::wstring> lines;
        const HWND list = Part(L"ListBox");
        for (LRESULT i = 0; i < SendMessageW(list, LB_GETCOUNT, 0, 0); ++i) {
            wchar_t text[200] = L"";
            SendMessageW(list, LB_GETTEXT, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(text));
            lines.push_back(text);
        }
        return lines;
    }
    void Open() {
        script_.Do([this] { Press(ui::kIdAddTable); });
        script_.Until([] { return Dialog() && IsWindowVisible(Dialog()); }, "the dialog is open");
    }
    void Cancel() {
        script_.Until([] { return Dialog() == nullptr; }, "the dialog is closed");
        script_.Do([this] { Press(ui::kIdCancel); });
        EXPECT_FALSE(Run(L"SELECT Clientes.Nombre FROM Clientes"));
    }
};

TEST_F(AddTable, OpensOnEveryTableAndView) {
    Open();
    script_.Do([] {
        const HWND combo = Part(L"ComboBox");
        EXPECT_EQ(TextOf(combo), L"< Mostrar todas las tablas y vistas>");
        EXPECT_EQ(SendMessageW(combo, CB_GETCOUNT, 0, 0), 5);
        EXPECT_EQ(Lines(), (std::vector<std::wstring>{L"Clientes\t", L"Pedidos\t", L"[Detalle de pedidos]\t",
                                                      L"Productos\t", L"[Ventas por país]\t"}));
        PressKey(VK_ESCAPE);
    });
    Cancel();
}

TEST_F(AddTable, TypingNarrowsTheListAndEnterAddsTheTable) {
    Open();
    script_.Do([] { TypeText(L"prod"); });
    script_.Until([] { return Lines() == std::vector<std::wstring>{L"Productos\t"}; },
                  "the list is narrowed");
    script_.Do([] { PressKey(VK_RETURN); });
    script_.Until([this] { return Diagram().Tables().size() == 2; }, "the table is on the diagram");
    script_.Do([this] { EXPECT_EQ(Diagram().Tables()[1].name, L"Productos"); });
    Cancel();
}

TEST_F(AddTable, NothingSelectedIsSaidAndTheDialogStays) {
    Open();
    script_.Do([] { PressKey(VK_RETURN); });
    script_.Until([] { return OpenMessageBox() != nullptr; }, "the message is shown");
    script_.Do([] {
        EXPECT_EQ(MessageBoxText(OpenMessageBox()), L"Seleccione una tabla de la lista");
        PressKey(VK_RETURN);
    });
    script_.Until([] { return OpenMessageBox() == nullptr; }, "the message is gone");
    script_.Do([this] {
        EXPECT_TRUE(IsWindowVisible(Dialog()));
        EXPECT_EQ(Diagram().Tables().size(), 1u);
        PostMessageW(Dialog(), WM_CLOSE, 0, 0);
    });
    Cancel();
}

TEST_F(AddTable, AChosenTableListsItsRelations) {
    Open();
    script_.Do([] {
        const HWND combo = Part(L"ComboBox");
        SendMessageW(combo, CB_SETCURSEL, 2, 0);
        SendMessageW(Dialog(), WM_COMMAND, MAKEWPARAM(GetDlgCtrlID(combo), CBN_SELCHANGE),
                     reinterpret_cast<LPARAM>(combo));
        EXPECT_EQ(Lines(), (std::vector<std::wstring>{
                               L"Clientes\t(Clientes.IdCliente<--Pedidos.IdCliente)",
                               L"[Detalle de pedidos]\t(Pedidos.IdPedido<--[Detalle de pedidos].IdPedido)"}));
        PressKey(VK_ESCAPE);
    });
    Cancel();
}

TEST_F(AddTable, OpenedOnATableOfTheDiagramItListsTheRelatedOnes) {
    script_.Do([this] {
        window_.Presenter().Design().diagram.SelectTable(L"Clientes");
        window_.Presenter().MenuChosen(ui::MenuCommand::mnuAddRelTable);
    });
    script_.Until([] { return Dialog() && IsWindowVisible(Dialog()); }, "the dialog is open");
    script_.Do([] {
        EXPECT_EQ(TextOf(Part(L"ComboBox")), L"Clientes");
        EXPECT_EQ(Lines(), (std::vector<std::wstring>{L"Pedidos\t(Clientes.IdCliente<--Pedidos.IdCliente)"}));
        SendMessageW(Part(L"ListBox"), LB_SETCURSEL, 0, 0);
        PressKey(VK_RETURN);
    });
    script_.Until([this] { return Diagram().Relations().size() == 1; },
                  "the table is added with its relation");
    Cancel();
}

TEST_F(AddTable, F1OpensItsHelpTopic) {
    RecordedHelp help;
    Open();
    script_.Do([] { PressKey(VK_F1); });
    script_.Until([&help] { return !help.Calls().empty(); }, "the help is asked for");
    script_.Do([] { PressKey(VK_ESCAPE); });
    Cancel();
    EXPECT_EQ(help.LastTopic(), ui::help::kAddTable);
}

TEST_F(AddTable, ADoubleClickOnALineAddsItsTable) {
    Open();
    script_.Do([] {
        const HWND list = Part(L"ListBox");
        RECT line{};
        SendMessageW(list, LB_GETITEMRECT, 1, reinterpret_cast<LPARAM>(&line));
        MouseClick(ScreenPoint(list, line), 2);
    });
    script_.Until([this] { return Diagram().FindTable(L"Pedidos") != nullptr; }, "the table is added");
    Cancel();
}

TEST_F(AddTable, KeptOpenItAddsSeveralTablesInSequence) {
    Open();
    script_.Do([] {
        SendMessageW(FindWindowExW(Dialog(), nullptr, L"Button", L"&Mantener abierta"), BM_CLICK, 0, 0);
        SetFocus(Part(L"Edit"));
        TypeText(L"pedi");
    });
    script_.Until([] { return Lines().size() == 2; }, "two tables are left");
    script_.Do([] {
        PressKey(VK_DOWN);
        PressKey(VK_RETURN);
    });
    script_.Until([this] { return Diagram().Tables().size() == 2; }, "the first table is added");
    script_.Do([] {
        EXPECT_TRUE(IsWindowVisible(Dialog()));
        TypeText(L"prod");
    });
    script_.Until([] { return Lines().size() == 1; }, "what is typed replaces the filter");
    script_.Do([] { PressKey(VK_RETURN); });
    script_.Until([this] { return Diagram().FindTable(L"Productos") != nullptr; },
                  "the second table is added");
    script_.Do([] { PressKey(VK_ESCAPE); });
    Cancel();
}

TEST_F(AddTable, ButtonIsEnabledOnlyWhereADiagramIsShown) {
    script_.Do([this] {
        EXPECT_TRUE(IsWindowEnabled(Control(ui::kIdAddTable)));
        ClickTab(ui::Tab::Sql);
    });
    script_.Until([this] { return GetFocus() == Control(ui::kIdEditor); }, "the SQL tab");
    script_.Do([this] { EXPECT_FALSE(IsWindowEnabled(Control(ui::kIdAddTable))); });
    Cancel();
}

TEST(DesignerMacros, ArePublicOnTheWindow) {
    ui::dlgDsn window(nullptr);
    EXPECT_EQ(window.GetMacros(L"@uno @{dos}"), (std::vector<std::wstring>{L"uno", L"{dos}"}));
    EXPECT_EQ(window.ReplaceMacros(L"F = @fecha AND x = @nadie"), L"F = DATE() AND x = @nadie");
}

}  // namespace tessel::testing
