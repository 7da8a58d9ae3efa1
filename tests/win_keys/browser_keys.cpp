// The keys of the schema browser and of the properties below it.
#include <windows.h>

#include <commctrl.h>

#include "common/win32/clipboard.h"
#include "tests/win_keys/designer_keys.h"

namespace tessel::testing {

namespace {

HTREEITEM Next(HWND tree, WPARAM which, HTREEITEM item = nullptr) {
    return reinterpret_cast<HTREEITEM>(
        SendMessageW(tree, TVM_GETNEXTITEM, which, reinterpret_cast<LPARAM>(item)));
}

bool IsExpanded(HWND tree, HTREEITEM item) {
    return (SendMessageW(tree, TVM_GETITEMSTATE, reinterpret_cast<WPARAM>(item), TVIS_EXPANDED) &
            TVIS_EXPANDED) != 0;
}

std::wstring SelectedText(HWND tree) {
    wchar_t text[100] = L"";
    TVITEMW item{};
    item.mask = TVIF_HANDLE | TVIF_TEXT;
    item.hItem = Next(tree, TVGN_CARET);
    item.pszText = text;
    item.cchTextMax = 100;
    SendMessageW(tree, TVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&item));
    return text;
}

/// The keyboard on a table of the tree, by typing the beginning of its name.
void GoTo(DesignerKeys& keys, const wchar_t* table) {
    keys.FocusOnTree();
    keys.Press(VK_HOME);
    keys.Press(VK_DOWN);
    keys.Type(table);
    keys.Until([&keys, table] { return SelectedText(keys.Tree()) == table; }, "the table is selected");
}

void FindsAndGoesToTheTree(DesignerKeys& keys) {
    keys.FocusOn([&keys] { return keys.SearchBox(); });
    keys.Type(L"prod");
    keys.Press();
    keys.Until([&keys] { return keys.HasFocus(keys.Tree()) && SelectedText(keys.Tree()) == L"Productos"; },
               "the first hit is selected");
}

void OpensTheMenu(DesignerKeys& keys) {
    GoTo(keys, L"Productos");
    keys.Press();
    keys.Until([&keys] { return keys.OpenMenu() != nullptr; }, "the menu is open");
    keys.Do([&keys] { EXPECT_EQ(keys.MenuLines().front(), L"Agregar tabla a diagrama"); });
}

const KeyCheck<DesignerKeys> kChecks[] = {
    {L"Entrar", L"",
     [](DesignerKeys& keys) {
         GoTo(keys, L"Productos");
         keys.Press();
         keys.Until([&keys] { return keys.Diagram().FindTable(L"Productos") != nullptr; },
                    "the table is on the diagram");
     }},
    {L"Flecha arriba", L"",
     [](DesignerKeys& keys) {
         GoTo(keys, L"Pedidos");
         keys.Press();
         keys.Until([&keys] { return SelectedText(keys.Tree()) == L"Clientes"; }, "the line above");
     }},
    {L"Flecha abajo", L"",
     [](DesignerKeys& keys) {
         GoTo(keys, L"Clientes");
         keys.Press();
         keys.Until([&keys] { return SelectedText(keys.Tree()) == L"Pedidos"; }, "the line below");
     }},
    {L"una letra", L"", [](DesignerKeys& keys) { GoTo(keys, L"Productos"); }},
    {L"Flecha derecha", L"",
     [](DesignerKeys& keys) {
         GoTo(keys, L"Productos");
         keys.Press();
         keys.Until([&keys] { return IsExpanded(keys.Tree(), Next(keys.Tree(), TVGN_CARET)); },
                    "the table shows its fields");
     }},
    {L"Flecha izquierda", L"",
     [](DesignerKeys& keys) {
         GoTo(keys, L"Productos");
         keys.Press(VK_RIGHT);
         keys.Until([&keys] { return IsExpanded(keys.Tree(), Next(keys.Tree(), TVGN_CARET)); }, "open");
         keys.Press();
         keys.Until([&keys] { return !IsExpanded(keys.Tree(), Next(keys.Tree(), TVGN_CARET)); }, "closed");
     }},
    {L"Mayús+F10 | Menú", L"", OpensTheMenu},
    {L"Entrar | Flecha abajo", L"en el cuadro de búsqueda", FindsAndGoesToTheTree},
    {L"Esc", L"en el cuadro de búsqueda",
     [](DesignerKeys& keys) {
         keys.FocusOn([&keys] { return keys.SearchBox(); });
         keys.Type(L"prod");
         keys.Until([&keys] { return TextOf(keys.SearchBox()) == L"prod"; }, "typed");
         keys.Press();
         keys.Until([&keys] { return TextOf(keys.SearchBox()).empty(); }, "the box is empty");
         keys.Do([&keys] { EXPECT_TRUE(IsWindowVisible(keys.Window().Handle())); });
     }},
    {L"Ctrl+C", L"en las propiedades",
     [](DesignerKeys& keys) {
         GoTo(keys, L"Productos");
         keys.Do([&keys] { win32::CopyToClipboard(keys.Window().Handle(), L"otra cosa"); });
         keys.FocusOn([&keys] { return keys.Properties(); });
         keys.Press(VK_HOME);
         keys.Press(VK_SPACE);
         keys.Press();
         keys.Until([&keys] { return keys.ClipboardText() == L"Productos"; }, "the value is copied");
     }},
};
const KeyPane<DesignerKeys> kPane("KeysOfTheBrowser", L"En el explorador", kChecks);

}  // namespace

}  // namespace tessel::testing
