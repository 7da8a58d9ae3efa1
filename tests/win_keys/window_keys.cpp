// The keys that mean the same everywhere in the designer window.
#include <windows.h>

#include <commctrl.h>

#include <string_view>

#include "tests/support/win32/fake_dispatch.h"
#include "tests/win_keys/designer_keys.h"
#include "ui/help_contexts.h"

namespace tessel::testing {

namespace {

using model::GridRow;

void WriteACell(DesignerKeys& keys) {
    keys.FocusOnCell(GridRow::Condicion, 0);
    keys.Type(L"> 'B'");
    keys.Press(VK_RETURN);
    keys.Until([&keys] { return keys.Cell(GridRow::Condicion, 0) == L"> 'B'"; }, "the cell is written");
}

void Undoes(DesignerKeys& keys) {
    WriteACell(keys);
    keys.Press();
    keys.Until([&keys] { return keys.Cell(GridRow::Condicion, 0).empty(); }, "the cell is as before");
}

void Redoes(DesignerKeys& keys) {
    WriteACell(keys);
    keys.Press('Z', false, true);
    keys.Until([&keys] { return keys.Cell(GridRow::Condicion, 0).empty(); }, "undone");
    keys.Press();
    keys.Until([&keys] { return keys.Cell(GridRow::Condicion, 0) == L"> 'B'"; }, "the cell is written again");
}

void SwitchesTheTab(DesignerKeys& keys) {
    keys.FocusOn(ui::kIdGrid);
    keys.Press();
    keys.Until([&keys] { return keys.HasFocus(keys.Control(ui::kIdEditor)); }, "the SQL tab");
    keys.Until([&keys] { return keys.EditorText().find(L';') != std::wstring::npos; },
               "the text is composed");
    keys.Press();
    keys.Until([&keys] { return keys.HasFocus(keys.Control(ui::kIdGrid)); }, "the design tab");
}

/// The bar of a splitter, a window of its own that takes the keyboard.
HWND BarOf(HWND container) {
    for (HWND child = GetWindow(container, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT)) {
        wchar_t name[40] = L"";
        GetClassNameW(child, name, 40);
        if (std::wstring_view(name).starts_with(L"TesselSplitterGrip")) return child;
    }
    return nullptr;
}

/// From each pane to the next, all around.
void WalksThroughPanes(DesignerKeys& keys, bool backwards) {
    const auto panes = [&keys] {
        return std::vector<HWND>{keys.Tree(), keys.Properties(), keys.Control(ui::kIdDiagram),
                                 keys.Control(ui::kIdGrid), keys.Control(ui::kIdAccept)};
    };
    keys.FocusOnTree();
    for (std::size_t step = 1; step <= 5; ++step) {
        const std::size_t next = (backwards ? 5 * 5 - step : step) % 5;
        keys.Press();
        keys.Until([&keys, panes, next] { return keys.HasFocus(panes()[next]); }, "the next pane");
    }
}

const KeyCheck<DesignerKeys> kChecks[] = {
    {L"F1", L"",
     [](DesignerKeys& keys) {
         keys.FocusOn(ui::kIdDiagram);
         keys.Press();
         keys.Until([&keys] { return keys.Help().LastTopic() == ui::help::kDiagram; }, "the pane's topic");
     }},
    {L"F5", L"",
     [](DesignerKeys& keys) {
         keys.Open(L"");
         keys.Do([&keys] { keys.Window().SetConnection(tests::MakeFake().Get()); });
         keys.FocusOn(ui::kIdGrid);
         keys.Press();
         keys.Until(
             [] {
                 const HWND box = OpenMessageBox();
                 return box && MessageBoxText(box) ==
                                   L"No hay ninguna consulta que ejecutar o existe un error en la definición";
             },
             "the query is run");
     }},
    {L"F6", L"", [](DesignerKeys& keys) { WalksThroughPanes(keys, false); }},
    {L"Mayús+F6", L"", [](DesignerKeys& keys) { WalksThroughPanes(keys, true); }},
    {L"Tab", L"",
     [](DesignerKeys& keys) {
         keys.FocusOn(ui::kIdAddTable);
         keys.Press();
         keys.Until([&keys] { return keys.HasFocus(keys.Control(ui::kIdSyntaxTree)); }, "the next control");
     }},
    {L"Mayús+Tab", L"",
     [](DesignerKeys& keys) {
         keys.FocusOn(ui::kIdSyntaxTree);
         keys.Press();
         keys.Until([&keys] { return keys.HasFocus(keys.Control(ui::kIdAddTable)); }, "the control before");
     }},
    {L"Ctrl+Tab", L"", SwitchesTheTab},
    {L"Entrar | Ctrl+Entrar", L"",
     [](DesignerKeys& keys) {
         keys.FocusOn(ui::kIdDistinct);
         keys.Press();
         keys.EndsWindow(true);
     }},
    {L"Flecha izquierda", L"en las pestañas",
     [](DesignerKeys& keys) {
         keys.OpenSqlTab();
         keys.FocusOn(ui::kIdTabs);
         keys.Press();
         keys.Until([&keys] { return IsWindowVisible(keys.Control(ui::kIdGrid)) != FALSE; },
                    "the design tab");
         keys.Do([&keys] { EXPECT_TRUE(keys.HasFocus(keys.Control(ui::kIdTabs))); });
     }},
    {L"Flecha derecha", L"en las pestañas",
     [](DesignerKeys& keys) {
         keys.FocusOn(ui::kIdTabs);
         keys.Press();
         keys.Until([&keys] { return IsWindowVisible(keys.Control(ui::kIdEditor)) != FALSE; }, "the SQL tab");
         keys.Until([&keys] { return keys.HasFocus(keys.Control(ui::kIdTabs)); }, "the keyboard stays there");
     }},
    {L"Espacio", L"en un botón",
     [](DesignerKeys& keys) {
         keys.FocusOn(ui::kIdHelp);
         keys.Press();
         keys.Until([&keys] { return keys.Help().LastTopic() == ui::help::kIndex; }, "the button is pressed");
     }},
    {L"Alt+A", L"",
     [](DesignerKeys& keys) {
         keys.Press();
         keys.EndsWindow(true);
     }},
    {L"Esc | Alt+C", L"",
     [](DesignerKeys& keys) {
         keys.FocusOn(ui::kIdGrid);
         keys.Press();
         keys.EndsWindow(false);
     }},
    {L"Alt+U", L"",
     [](DesignerKeys& keys) {
         keys.Press();
         keys.Until([&keys] { return keys.Help().LastTopic() == ui::help::kIndex; }, "the help");
     }},
    {L"Ctrl+Z | Alt+Retroceso", L"en «Vista de Diseño»", Undoes},
    {L"Ctrl+Y | Ctrl+Mayús+Z | Alt+Mayús+Retroceso", L"en «Vista de Diseño»", Redoes},
};
// The bars between the panes.

/// The width or height of the first pane of a splitter, in pixels.
int FirstPane(DesignerKeys& keys, int splitter) {
    const HWND container = keys.Control(splitter);
    RECT bar{};
    GetWindowRect(BarOf(container), &bar);
    MapWindowPoints(nullptr, container, reinterpret_cast<POINT*>(&bar), 2);
    return splitter == ui::kIdMainSplitter ? bar.left : bar.top;
}

/// The key changes the first pane of a splitter.
void Divides(DesignerKeys& keys, int splitter, bool larger) {
    static int before = 0;
    keys.FocusOn([=, &keys] { return BarOf(keys.Control(splitter)); });
    keys.Do([=, &keys] { before = FirstPane(keys, splitter); });
    keys.Press();
    keys.Until(
        [=, &keys] {
            const int now = FirstPane(keys, splitter);
            return larger ? now > before : now < before;
        },
        "the bar moved");
}

const KeyCheck<DesignerKeys> kSplitterChecks[] = {
    {L"Flecha izquierda", L"", [](DesignerKeys& keys) { Divides(keys, ui::kIdMainSplitter, false); }},
    {L"Flecha derecha", L"", [](DesignerKeys& keys) { Divides(keys, ui::kIdMainSplitter, true); }},
    {L"Flecha arriba", L"", [](DesignerKeys& keys) { Divides(keys, ui::kIdPageSplitter, false); }},
    {L"Flecha abajo", L"", [](DesignerKeys& keys) { Divides(keys, ui::kIdPageSplitter, true); }},
    {L"Inicio", L"", [](DesignerKeys& keys) { Divides(keys, ui::kIdBrowserSplitter, false); }},
    {L"Fin", L"", [](DesignerKeys& keys) { Divides(keys, ui::kIdMainSplitter, true); }},
    {L"Espacio", L"",
     [](DesignerKeys& keys) {
         static int before = 0;
         keys.Do([&keys] { before = FirstPane(keys, ui::kIdMainSplitter); });
         keys.FocusOn([&keys] { return BarOf(keys.Control(ui::kIdMainSplitter)); });
         keys.Press(VK_RIGHT);
         keys.Until([&keys] { return FirstPane(keys, ui::kIdMainSplitter) > before; }, "the bar moved");
         keys.Press();
         keys.Until([&keys] { return FirstPane(keys, ui::kIdMainSplitter) == before; }, "and back");
     }},
};
const KeyPane<DesignerKeys> kSplitterPane("KeysOfTheSplitters", L"En los divisores", kSplitterChecks);

const KeyPane<DesignerKeys> kPane("KeysOfTheWindow", L"En toda la ventana", kChecks);

}  // namespace

}  // namespace tessel::testing
