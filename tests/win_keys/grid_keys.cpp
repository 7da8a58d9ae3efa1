// The keys of the design grid.
#include <windows.h>

#include "common/win32/clipboard.h"
#include "tests/win_keys/designer_keys.h"

namespace tessel::testing {

namespace {

using model::GridRow;

/// The key goes from one cell to another.
void Moves(DesignerKeys& keys, GridRow from_row, int from, GridRow to_row, int to) {
    keys.Open(kThreeColumns);
    keys.FocusOnCell(from_row, from);
    keys.Press();
    keys.Until([=, &keys] { return keys.IsAt(to_row, to) && !keys.GridView().IsEditing(); },
               "the keyboard is in the other cell");
}

/// The key makes the selection reach from the cell (Tabla, 2) to another.
void Extends(DesignerKeys& keys, GridRow row, int column) {
    keys.Open(kThreeColumns);
    keys.FocusOnCell(GridRow::Tabla, 2);
    keys.Press();
    keys.Until(
        [=, &keys] {
            const controls::GridState& state = keys.GridView().State();
            return keys.IsAt(row, column) && state.HasBlock() && state.IsSelected(GridRow::Tabla, 2) &&
                   state.IsSelected(row, column);
        },
        "the block is selected");
}

void OpensTheList(DesignerKeys& keys) {
    keys.FocusOnCell(GridRow::Orden, 0);
    keys.Press();
    keys.Until([&keys] { return keys.GridView().IsEditing() && keys.GridView().Editor().IsListShown(); },
               "the list is open");
    keys.Press(VK_ESCAPE);
    keys.Press(VK_ESCAPE);
    keys.Until([&keys] { return !keys.GridView().IsEditing(); }, "the cell is closed");
}

/// What is typed into (Condicion, 0) is kept, and the keyboard goes on to another cell.
void KeepsWhatWasTyped(DesignerKeys& keys, GridRow row, int column) {
    keys.FocusOnCell(GridRow::Condicion, 0);
    keys.Type(L"> 'B'");
    keys.Until([&keys] { return keys.GridView().IsEditing(); }, "the cell is edited");
    keys.Press();
    keys.Until([=, &keys] { return !keys.GridView().IsEditing() && keys.IsAt(row, column); },
               "the keyboard went on");
    keys.Do([&keys] { EXPECT_EQ(keys.Cell(GridRow::Condicion, 0), L"> 'B'"); });
}

void Copies(DesignerKeys& keys) {
    keys.Open(kThreeColumns);
    keys.Do([&keys] { win32::CopyToClipboard(keys.Window().Handle(), L"otra cosa"); });
    keys.FocusOnCell(GridRow::Campo, 1);
    keys.Press();
    keys.Until([&keys] { return keys.ClipboardText() == L"Clientes.Nombre"; }, "the cell is copied");
    keys.Do([&keys] { EXPECT_EQ(keys.Cell(GridRow::Campo, 1), L"Clientes.Nombre"); });
}

void Cuts(DesignerKeys& keys) {
    keys.Open(kThreeColumns);
    keys.FocusOnCell(GridRow::Condicion, 2);
    keys.Press();
    keys.Until([&keys] { return keys.ClipboardText() == L"= 'Perú'"; }, "the cell is copied");
    keys.Until([&keys] { return keys.Cell(GridRow::Condicion, 2).empty(); }, "the cell is emptied");
}

void Pastes(DesignerKeys& keys) {
    keys.Do([&keys] { win32::CopyToClipboard(keys.Window().Handle(), L"= 'Perú'"); });
    keys.FocusOnCell(GridRow::Condicion, 0);
    keys.Press();
    keys.Until([&keys] { return keys.Cell(GridRow::Condicion, 0) == L"= 'Perú'"; }, "the cell is written");
}

void MovesTheColumn(DesignerKeys& keys, int to) {
    keys.Open(kThreeColumns);
    keys.FocusOnCell(GridRow::Campo, 1);
    keys.Press();
    keys.Until([=, &keys] { return keys.Cell(GridRow::Campo, to) == L"Clientes.Nombre"; },
               "the column moved");
}

void Stretches(DesignerKeys& keys, bool wider) {
    static int before = 0;
    keys.FocusOnCell(GridRow::Titulo, 1);
    keys.Do([&keys] { before = keys.Grid().ColumnWidth(1); });
    keys.Press();
    keys.Until([=, &keys] { return keys.Grid().ColumnWidth(1) == before + (wider ? 8 : -8); },
               "the column has another width");
    keys.Do([&keys] { EXPECT_TRUE(keys.IsAt(GridRow::Titulo, 1)); });
}

void OpensTheMenu(DesignerKeys& keys) {
    keys.FocusOnCell(GridRow::Campo, 0);
    keys.Press();
    keys.Until([&keys] { return keys.OpenMenu() != nullptr; }, "the menu is open");
    keys.Do([&keys] { EXPECT_EQ(keys.MenuLines().front(), L"&Deshacer\tCtrl+Z"); });
}

constexpr int kLastColumn = model::kGridColumnCount - 1;

const KeyCheck<DesignerKeys> kChecks[] = {
    {L"Flecha izquierda", L"", [](DesignerKeys& keys) { Moves(keys, GridRow::Tabla, 2, GridRow::Tabla, 1); }},
    {L"Flecha derecha", L"", [](DesignerKeys& keys) { Moves(keys, GridRow::Tabla, 2, GridRow::Tabla, 3); }},
    {L"Flecha arriba", L"", [](DesignerKeys& keys) { Moves(keys, GridRow::Tabla, 2, GridRow::Titulo, 2); }},
    {L"Flecha abajo", L"",
     [](DesignerKeys& keys) { Moves(keys, GridRow::Tabla, 2, GridRow::Agrupacion, 2); }},
    {L"Inicio", L"", [](DesignerKeys& keys) { Moves(keys, GridRow::Tabla, 2, GridRow::Tabla, 0); }},
    {L"Fin", L"", [](DesignerKeys& keys) { Moves(keys, GridRow::Tabla, 2, GridRow::Tabla, kLastColumn); }},
    {L"Ctrl+Inicio", L"", [](DesignerKeys& keys) { Moves(keys, GridRow::Tabla, 2, GridRow::Campo, 0); }},
    {L"Ctrl+Fin", L"", [](DesignerKeys& keys) { Moves(keys, GridRow::Tabla, 2, GridRow::Or, kLastColumn); }},
    {L"Entrar", L"", [](DesignerKeys& keys) { Moves(keys, GridRow::Tabla, 2, GridRow::Agrupacion, 2); }},
    {L"Re Pág", L"", [](DesignerKeys& keys) { Moves(keys, GridRow::Or, 2, GridRow::Campo, 2); }},
    {L"Av Pág", L"", [](DesignerKeys& keys) { Moves(keys, GridRow::Campo, 2, GridRow::Or, 2); }},
    {L"Tab", L"",
     [](DesignerKeys& keys) { Moves(keys, GridRow::Tabla, kLastColumn, GridRow::Agrupacion, 0); }},
    {L"Mayús+Tab", L"",
     [](DesignerKeys& keys) { Moves(keys, GridRow::Agrupacion, 0, GridRow::Tabla, kLastColumn); }},
    {L"una letra", L"",
     [](DesignerKeys& keys) {
         keys.FocusOnCell(GridRow::Condicion, 0);
         keys.Type(L"ñ");
         keys.Until(
             [&keys] { return keys.GridView().IsEditing() && keys.GridView().Editor().Text() == L"ñ"; },
             "the letter is in the cell");
         keys.Press(VK_ESCAPE);
     }},
    {L"F2", L"",
     [](DesignerKeys& keys) {
         keys.FocusOnCell(GridRow::Campo, 0);
         keys.Press();
         keys.Until(
             [&keys] {
                 return keys.GridView().IsEditing() && keys.GridView().Editor().Text() == L"Clientes.Nombre";
             },
             "the cell is edited");
         keys.Press(VK_ESCAPE);
     }},
    {L"Retroceso", L"",
     [](DesignerKeys& keys) {
         keys.FocusOnCell(GridRow::Campo, 0);
         keys.Press();
         keys.Until(
             [&keys] { return keys.GridView().IsEditing() && keys.GridView().Editor().Text().empty(); },
             "the cell is edited, empty");
         keys.Press(VK_ESCAPE);
     }},
    {L"Alt+Flecha abajo | F4", L"", OpensTheList},
    {L"Entrar | Flecha abajo", L"al editar",
     [](DesignerKeys& keys) { KeepsWhatWasTyped(keys, GridRow::Or, 0); }},
    {L"Tab", L"al editar", [](DesignerKeys& keys) { KeepsWhatWasTyped(keys, GridRow::Condicion, 1); }},
    {L"Flecha arriba", L"al editar", [](DesignerKeys& keys) { KeepsWhatWasTyped(keys, GridRow::Orden, 0); }},
    {L"Esc", L"al editar",
     [](DesignerKeys& keys) {
         keys.FocusOnCell(GridRow::Campo, 0);
         keys.Type(L"otra");
         keys.Until([&keys] { return keys.GridView().IsEditing(); }, "the cell is edited");
         keys.Press();
         keys.Until([&keys] { return !keys.GridView().IsEditing(); }, "the cell is closed");
         keys.Do([&keys] { EXPECT_EQ(keys.Cell(GridRow::Campo, 0), L"Clientes.Nombre"); });
     }},
    {L"Mayús+Flecha izquierda", L"", [](DesignerKeys& keys) { Extends(keys, GridRow::Tabla, 1); }},
    {L"Mayús+Flecha derecha", L"", [](DesignerKeys& keys) { Extends(keys, GridRow::Tabla, 3); }},
    {L"Mayús+Flecha arriba", L"", [](DesignerKeys& keys) { Extends(keys, GridRow::Titulo, 2); }},
    {L"Mayús+Flecha abajo", L"", [](DesignerKeys& keys) { Extends(keys, GridRow::Agrupacion, 2); }},
    {L"Mayús+Inicio", L"", [](DesignerKeys& keys) { Extends(keys, GridRow::Tabla, 0); }},
    {L"Mayús+Fin", L"", [](DesignerKeys& keys) { Extends(keys, GridRow::Tabla, kLastColumn); }},
    {L"Ctrl+Espacio", L"",
     [](DesignerKeys& keys) {
         keys.FocusOnCell(GridRow::Tabla, 0);
         keys.Press();
         keys.Until(
             [&keys] {
                 const controls::GridState& state = keys.GridView().State();
                 return state.HasWholeColumns() && state.IsSelected(GridRow::Or, 0) &&
                        !state.IsSelected(GridRow::Or, 1);
             },
             "the column is selected");
     }},
    {L"Ctrl+A", L"",
     [](DesignerKeys& keys) {
         keys.FocusOnCell(GridRow::Tabla, 0);
         keys.Press();
         keys.Until([&keys] { return keys.GridView().State().IsSelected(GridRow::Or, kLastColumn); },
                    "everything is selected");
     }},
    {L"Ctrl+C | Ctrl+Insert", L"", Copies},
    {L"Ctrl+X | Mayús+Supr", L"", Cuts},
    {L"Ctrl+V | Mayús+Insert", L"", Pastes},
    {L"Supr", L"",
     [](DesignerKeys& keys) {
         keys.Open(kThreeColumns);
         keys.FocusOnCell(GridRow::Condicion, 2);
         keys.Press();
         keys.Until([&keys] { return keys.Cell(GridRow::Condicion, 2).empty(); }, "the cell is emptied");
     }},
    {L"Ctrl+Mayús+Flecha izquierda", L"", [](DesignerKeys& keys) { MovesTheColumn(keys, 0); }},
    {L"Ctrl+Mayús+Flecha derecha", L"", [](DesignerKeys& keys) { MovesTheColumn(keys, 2); }},
    {L"Alt+Flecha izquierda", L"", [](DesignerKeys& keys) { Stretches(keys, false); }},
    {L"Alt+Flecha derecha", L"", [](DesignerKeys& keys) { Stretches(keys, true); }},
    {L"Ctrl+9", L"",
     [](DesignerKeys& keys) {
         keys.Do([&keys] { keys.Window().Presenter().Design().grid.SetColumnWidth(0, 30); });
         keys.FocusOnCell(GridRow::Titulo, 0);
         keys.Press();
         keys.Until([&keys] { return keys.Grid().ColumnWidth(0) > 80; }, "the column shows its texts whole");
     }},
    {L"Mayús+F10 | Menú", L"", OpensTheMenu},
};
const KeyPane<DesignerKeys> kPane("KeysOfTheGrid", L"En la cuadrícula", kChecks);

}  // namespace

}  // namespace tessel::testing
