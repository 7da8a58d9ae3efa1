// The design grid's menu, moved columns and the clipboard in the real window.
#include <windows.h>

#include <cstdlib>
#include <cstring>
#include <iterator>

#include "common/win32/clipboard.h"
#include "tests/win_dlg_dsn/dlg_dsn_fixture.h"

namespace tessel::testing {

using model::GridRow;

class GridInTheWindow : public DlgDsnTest {
protected:
    POINT CellOf(GridRow row, int column) {
        return ScreenPoint(window_.GridControl().Handle(), window_.GridControl().CellRect(row, column));
    }
    POINT HeaderOf(int column) {
        const controls::GridRect rect = window_.GridControl().State().Layout().HeaderRect(column);
        return ScreenPoint(window_.GridControl().Handle(), {rect.left, rect.top, rect.right, rect.bottom});
    }
    static HWND OpenMenu() { return FindWindowW(L"#32768", nullptr); }
    static std::wstring Entry(HWND menu, UINT place) {
        const auto handle = reinterpret_cast<HMENU>(SendMessageW(menu, MN_GETHMENU, 0, 0));
        wchar_t text[100] = L"";
        GetMenuStringW(handle, place, text, 100, MF_BYPOSITION);
        const bool grey = (GetMenuState(handle, place, MF_BYPOSITION) & MF_GRAYED) != 0;
        return std::wstring(text) + (grey ? L" (-)" : L"");
    }
    static void RightClick(POINT screen) {
        MouseMove(screen);
        INPUT input[2]{};
        input[0].type = input[1].type = INPUT_MOUSE;
        input[0].mi.dwFlags = MOUSEEVENTF_RIGHTDOWN;
        input[1].mi.dwFlags = MOUSEEVENTF_RIGHTUP;
        SendInput(2, input, sizeof(INPUT));
    }
    void Picture(const wchar_t* name) {
        const char* folder = std::getenv("TESSEL_PICTURES");
        if (!folder) return;
        const std::wstring path(folder, folder + std::strlen(folder));
        EXPECT_TRUE(SavePicture(window_.Handle(), path + L"\\" + name + L".bmp"));
        const HWND menu = OpenMenu();
        if (!menu) return;
        EXPECT_TRUE(SavePicture(menu, path + L"\\" + name + L"_menu.bmp"));
    }
    /// Chooses the entry of an open menu by its letter.
    void Choose(WORD letter) {
        script_.Until([] { return OpenMenu() && IsWindowVisible(OpenMenu()); }, "the menu is open");
        script_.Do([letter] { PressKey(letter); });
    }
    void Cancel() {
        script_.Do([this] { Press(ui::kIdCancel); });
    }
};

TEST_F(GridInTheWindow, TheMenuOfAColumnOffersWhatCanBeDone) {
    script_.Do([this] { RightClick(HeaderOf(0)); });
    script_.Until([] { return OpenMenu() && IsWindowVisible(OpenMenu()); }, "the menu is open");
    script_.Do([this] {
        const HWND menu = OpenMenu();
        const wchar_t* const expected[] = {L"&Deshacer\tCtrl+Z (-)",
                                           L"&Rehacer\tCtrl+Y (-)",
                                           L" (-)",
                                           L"Cor&tar\tCtrl+X",
                                           L"&Copiar\tCtrl+C",
                                           nullptr,
                                           L"&Vaciar\tSupr",
                                           L" (-)",
                                           L"&Insertar columna",
                                           L"&Quitar columna",
                                           L"Mover a la i&zquierda\tCtrl+Mayús+Flecha izquierda (-)",
                                           L"Mover a la d&erecha\tCtrl+Mayús+Flecha derecha"};
        for (UINT place = 0; place < std::size(expected); ++place) {
            if (!expected[place]) continue;
            std::wstring entry = Entry(menu, place);
            if (entry.empty()) entry = L" (-)";  // a separator
            EXPECT_EQ(entry, expected[place]) << place;
        }
        Picture(L"grid_menu");
        PressKey(VK_ESCAPE);
    });
    script_.Until([] { return !OpenMenu(); }, "the menu is closed");
    Cancel();
    EXPECT_FALSE(Run(L"SELECT Clientes.Nombre, Clientes.Pais FROM Clientes"));
}

TEST_F(GridInTheWindow, AnInsertedColumnIsUndoneFromTheMenu) {
    script_.Do([this] { RightClick(CellOf(GridRow::Campo, 0)); });
    Choose('I');
    script_.Until([this] { return Cell(GridRow::Campo, 1) == L"Clientes.Nombre"; }, "the column moved on");
    script_.Do([this] { RightClick(CellOf(GridRow::Campo, 0)); });
    Choose('D');
    script_.Until([this] { return Cell(GridRow::Campo, 0) == L"Clientes.Nombre"; }, "it is back");
    Cancel();
    EXPECT_FALSE(Run(L"SELECT Clientes.Nombre FROM Clientes"));
}

TEST_F(GridInTheWindow, ADraggedHeaderChangesTheOrderOfTheStatement) {
    script_.Do([this] { MouseDrag(HeaderOf(1), {HeaderOf(0).x - 20, HeaderOf(0).y}); });
    script_.Until([this] { return Cell(GridRow::Campo, 0) == L"Clientes.Pais"; }, "the column has moved");
    script_.Do([this] { Press(ui::kIdAccept); });
    EXPECT_TRUE(
        Run(L"SELECT Clientes.Nombre, Clientes.Pais FROM Clientes ORDER BY Clientes.Nombre, Clientes.Pais"));
    EXPECT_EQ(window_.Presenter().ResultSQL(),
              L"SELECT Clientes.Pais AS Pais, Clientes.Nombre AS Nombre \r\nFROM Clientes \r\n"
              L"ORDER BY Clientes.Pais, Clientes.Nombre;");
}

TEST_F(GridInTheWindow, ACopiedColumnIsPastedWithItsTickAndTheButtonsFollow) {
    script_.Do([this] { MouseClick(HeaderOf(0)); });
    script_.Do([] { PressKey('X', false, true); });
    script_.Until([this] { return Cell(GridRow::Campo, 0).empty(); }, "the column is cut");
    script_.Do([this] {
        EXPECT_FALSE(Diagram().Tables().front().fields[1].checked);
        EXPECT_FALSE(IsWindowEnabled(Control(ui::kIdRemoveColumn)));
        EXPECT_FALSE(IsWindowEnabled(Control(ui::kIdClearAll)));
        MouseClick(CellOf(GridRow::Orden, 2));
    });
    script_.Do([] { PressKey('V', false, true); });
    script_.Until([this] { return Cell(GridRow::Campo, 2) == L"Clientes.Nombre"; }, "the column is pasted");
    script_.Do([this] {
        EXPECT_TRUE(Diagram().Tables().front().fields[1].checked);
        EXPECT_EQ(Grid().Caption(2), L"Nombre");
        EXPECT_TRUE(IsWindowEnabled(Control(ui::kIdRemoveColumn)));
        EXPECT_TRUE(IsWindowEnabled(Control(ui::kIdClearAll)));
        PressKey('Z', false, true);
    });
    script_.Until([this] { return Cell(GridRow::Campo, 2).empty(); }, "the paste is undone");
    script_.Do([this] {
        EXPECT_FALSE(IsWindowEnabled(Control(ui::kIdClearAll)));
        Press(ui::kIdCancel);
    });
    EXPECT_FALSE(Run(L"SELECT Clientes.Nombre FROM Clientes"));
}

TEST_F(GridInTheWindow, TextFromASpreadsheetTooWideIsRefusedWithAMessage) {
    script_.Do([this] {
        std::wstring row = L"a";
        for (int i = 0; i < 60; ++i) row += L"\ta";
        ASSERT_TRUE(win32::CopyToClipboard(window_.Handle(), row + L"\r\n"));
        MouseClick(CellOf(GridRow::Campo, 0));
    });
    script_.Do([] { PressKey('V', false, true); });
    script_.Until([] { return OpenMessageBox() != nullptr; }, "the message is shown");
    script_.Do([] {
        EXPECT_EQ(
            MessageBoxText(OpenMessageBox()),
            L"No hay tantas columnas a partir de esta: una consulta puede tener 60 columnas como máximo. "
            L"No se ha pegado nada.");
        PressKey(VK_RETURN);
    });
    script_.Until([] { return OpenMessageBox() == nullptr; }, "the message is gone");
    script_.Do([this] {
        EXPECT_EQ(Cell(GridRow::Campo, 0), L"Clientes.Nombre");
        Press(ui::kIdCancel);
    });
    EXPECT_FALSE(Run(L"SELECT Clientes.Nombre FROM Clientes"));
}

}  // namespace tessel::testing
