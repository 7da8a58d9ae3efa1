// The keys of the dialogs over the designer window: the syntax tree, "Agregar tabla", a relation's
// properties, the messages.
#include <windows.h>

#include <commctrl.h>

#include "common/win32/clipboard.h"
#include "tests/win_keys/designer_keys.h"

namespace tessel::testing {

namespace {

constexpr wchar_t kTreeTitle[] = L"Árbol de sintaxis";
constexpr wchar_t kAddTableTitle[] = L"Agregar tabla al diagrama";
constexpr wchar_t kRelationTitle[] = L"Propiedades de la relación";

// The syntax tree.

HWND TreeIn() {
    return FindWindowExW(DesignerKeys::Dialog(kTreeTitle), nullptr, WC_TREEVIEWW, nullptr);
}

HTREEITEM Selected() {
    return reinterpret_cast<HTREEITEM>(SendMessageW(TreeIn(), TVM_GETNEXTITEM, TVGN_CARET, 0));
}

bool IsExpanded(HTREEITEM item) {
    return (SendMessageW(TreeIn(), TVM_GETITEMSTATE, reinterpret_cast<WPARAM>(item), TVIS_EXPANDED) &
            TVIS_EXPANDED) != 0;
}

std::wstring SelectedText() {
    wchar_t text[100] = L"";
    TVITEMW item{};
    item.mask = TVIF_HANDLE | TVIF_TEXT;
    item.hItem = Selected();
    item.pszText = text;
    item.cchTextMax = 100;
    SendMessageW(TreeIn(), TVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&item));
    return text;
}

void OpenTree(DesignerKeys& keys) {
    keys.FocusOn(ui::kIdSyntaxTree);
    keys.Press(VK_SPACE);
    keys.Until([&keys] { return keys.HasFocus(TreeIn()); }, "the tree is open");
    keys.Do([&keys] { win32::CopyToClipboard(keys.Window().Handle(), L"otra cosa"); });
}

void OpenTreeOn(DesignerKeys& keys, int lines_down, const wchar_t* line) {
    OpenTree(keys);
    for (int i = 0; i < lines_down; ++i) keys.Press(VK_DOWN);
    keys.Until([line] { return SelectedText() == line; }, "the line is selected");
}

const KeyCheck<DesignerKeys> kTreeChecks[] = {
    {L"Flecha abajo", L"",
     [](DesignerKeys& keys) {
         OpenTreeOn(keys, 0, L"SELECT");
         keys.Press();
         keys.Until([] { return SelectedText() == L"Columnas"; }, "the line below");
     }},
    {L"Flecha arriba", L"",
     [](DesignerKeys& keys) {
         OpenTreeOn(keys, 1, L"Columnas");
         keys.Press();
         keys.Until([] { return SelectedText() == L"SELECT"; }, "the line above");
     }},
    {L"Flecha izquierda | -", L"",
     [](DesignerKeys& keys) {
         OpenTreeOn(keys, 0, L"SELECT");
         keys.Press();
         keys.Until([] { return !IsExpanded(Selected()); }, "the node is closed");
     }},
    {L"Flecha derecha | +", L"",
     [](DesignerKeys& keys) {
         OpenTreeOn(keys, 0, L"SELECT");
         keys.Press(VK_LEFT);
         keys.Until([] { return !IsExpanded(Selected()); }, "the node is closed");
         keys.Press();
         keys.Until([] { return IsExpanded(Selected()); }, "the node is open");
     }},
    {L"*", L"",
     [](DesignerKeys& keys) {
         OpenTreeOn(keys, 1, L"Columnas");
         keys.Press(VK_LEFT);
         keys.Press(VK_LEFT);
         keys.Press(VK_LEFT);
         keys.Until([] { return SelectedText() == L"SELECT" && !IsExpanded(Selected()); }, "all closed");
         keys.Press();
         keys.Until([] { return IsExpanded(Selected()); }, "the node is open");
         keys.Press(VK_DOWN);
         keys.Until([] { return SelectedText() == L"Columnas" && IsExpanded(Selected()); },
                    "and what is below it");
     }},
    {L"Ctrl+C", L"",
     [](DesignerKeys& keys) {
         OpenTreeOn(keys, 1, L"Columnas");
         keys.Press();
         keys.Until([&keys] { return keys.ClipboardText().starts_with(L"SELECT\r\n  Columnas\r\n"); },
                    "the tree is copied");
     }},
    {L"Ctrl+Mayús+C", L"",
     [](DesignerKeys& keys) {
         OpenTreeOn(keys, 1, L"Columnas");
         keys.Press();
         keys.Until([&keys] { return keys.ClipboardText() == L"Columnas"; }, "the line is copied");
     }},
    {L"Mayús+F10 | Menú", L"",
     [](DesignerKeys& keys) {
         OpenTree(keys);
         keys.Press();
         keys.Until([&keys] { return keys.OpenMenu() != nullptr; }, "the menu is open");
         keys.Do([&keys] { EXPECT_EQ(keys.MenuLines().size(), 2u); });
     }},
    {L"Esc", L"",
     [](DesignerKeys& keys) {
         OpenTree(keys);
         keys.Press();
         keys.Until([&keys] { return !keys.Dialog(kTreeTitle); }, "the tree is closed");
         keys.Do([&keys] { EXPECT_TRUE(IsWindowVisible(keys.Window().Handle())); });
     }},
};
const KeyPane<DesignerKeys> kTreePane("KeysOfTheSyntaxTree", L"En el árbol de sintaxis", kTreeChecks);

// "Agregar tabla al diagrama".

HWND AddTablePart(const wchar_t* window_class) {
    return FindWindowExW(DesignerKeys::Dialog(kAddTableTitle), nullptr, window_class, nullptr);
}

void OpenAddTable(DesignerKeys& keys) {
    keys.FocusOn(ui::kIdAddTable);
    keys.Press(VK_SPACE);
    keys.Until([&keys] { return keys.HasFocus(AddTablePart(L"Edit")); }, "the dialog is open");
}

/// The line of the list that is chosen; -1 for none.
LRESULT ChosenLine() {
    return SendMessageW(AddTablePart(L"ListBox"), LB_GETCURSEL, 0, 0);
}

void AddsATable(DesignerKeys& keys) {
    OpenAddTable(keys);
    keys.Type(L"prod");
    keys.Press();
    keys.Until([&keys] { return keys.Diagram().FindTable(L"Productos") != nullptr; }, "the table is added");
    keys.Until([&keys] { return !keys.Dialog(kAddTableTitle); }, "and the dialog closed");
}

void ClosesTheDialog(DesignerKeys& keys) {
    OpenAddTable(keys);
    keys.Press();
    keys.Until([&keys] { return !keys.Dialog(kAddTableTitle); }, "the dialog is closed");
    keys.Do([&keys] { EXPECT_EQ(keys.Diagram().Tables().size(), 1u); });
}

void WalksTheList(DesignerKeys& keys, LRESULT from, LRESULT to) {
    OpenAddTable(keys);
    keys.Do([from] { SendMessageW(AddTablePart(L"ListBox"), LB_SETCURSEL, static_cast<WPARAM>(from), 0); });
    keys.Press();
    keys.Until([to] { return ChosenLine() == to; }, "another line");
    keys.Do([&keys] { EXPECT_TRUE(keys.HasFocus(AddTablePart(L"Edit"))); });
}

const KeyCheck<DesignerKeys> kAddTableChecks[] = {
    {L"una letra", L"",
     [](DesignerKeys& keys) {
         OpenAddTable(keys);
         keys.Type(L"v");
         keys.Until([] { return SendMessageW(AddTablePart(L"ListBox"), LB_GETCOUNT, 0, 0) == 1; },
                    "the list is narrowed");
     }},
    {L"Flecha arriba", L"", [](DesignerKeys& keys) { WalksTheList(keys, 2, 1); }},
    {L"Flecha abajo", L"", [](DesignerKeys& keys) { WalksTheList(keys, 2, 3); }},
    {L"Re Pág", L"", [](DesignerKeys& keys) { WalksTheList(keys, 2, 0); }},
    {L"Av Pág", L"", [](DesignerKeys& keys) { WalksTheList(keys, 2, 4); }},
    {L"Entrar | Alt+A", L"", AddsATable},
    {L"Alt+M", L"",
     [](DesignerKeys& keys) {
         OpenAddTable(keys);
         keys.Press();
         keys.Type(L"");
         keys.Until(
             [&keys] {
                 const HWND box =
                     FindWindowExW(keys.Dialog(kAddTableTitle), nullptr, nullptr, L"&Mantener abierta");
                 return SendMessageW(box, BM_GETCHECK, 0, 0) == BST_CHECKED;
             },
             "the dialog is to stay open");
     }},
    {L"Esc | Alt+C", L"", ClosesTheDialog},
};
const KeyPane<DesignerKeys> kAddTablePane("KeysOfAddTable", L"En «Agregar tabla al diagrama»",
                                          kAddTableChecks);

// A relation's properties.

void OpenRelation(DesignerKeys& keys) {
    keys.Open(kJoined);
    keys.FocusOnTable(L"Clientes");
    keys.Press(VK_PRIOR, false, true);
    keys.Press(VK_RETURN);
    keys.Until([&keys] { return keys.Dialog(kRelationTitle) != nullptr; }, "the dialog is open");
}

bool IsKindChosen(int number) {
    return SendMessageW(GetDlgItem(DesignerKeys::Dialog(kRelationTitle), 312 + number), BM_GETCHECK, 0, 0) ==
           BST_CHECKED;
}

void ChoosesKind(DesignerKeys& keys, int number) {
    OpenRelation(keys);
    keys.Press();
    keys.Until([number] { return IsKindChosen(number); }, "the kind is chosen");
}

const KeyCheck<DesignerKeys> kRelationChecks[] = {
    {L"Flecha abajo", L"",
     [](DesignerKeys& keys) {
         OpenRelation(keys);
         keys.Press();
         keys.Until([] { return IsKindChosen(1); }, "the next kind");
     }},
    {L"Flecha arriba", L"",
     [](DesignerKeys& keys) {
         OpenRelation(keys);
         keys.Press(VK_DOWN);
         keys.Until([] { return IsKindChosen(1); }, "the next kind");
         keys.Press();
         keys.Until([] { return IsKindChosen(0); }, "the kind before");
     }},
    {L"Alt+I", L"",
     [](DesignerKeys& keys) {
         OpenRelation(keys);
         keys.Press(VK_DOWN);
         keys.Until([] { return IsKindChosen(1); }, "the next kind");
         keys.Press();
         keys.Until([] { return IsKindChosen(0); }, "the inner join");
     }},
    {L"Alt+Z", L"", [](DesignerKeys& keys) { ChoosesKind(keys, 1); }},
    {L"Alt+D", L"", [](DesignerKeys& keys) { ChoosesKind(keys, 2); }},
    {L"Entrar", L"",
     [](DesignerKeys& keys) {
         OpenRelation(keys);
         keys.Press(VK_DOWN);
         keys.Until([] { return IsKindChosen(1); }, "the next kind");
         keys.Press();
         keys.Until([&keys] { return keys.Diagram().Relations()[0].info.JType == model::kLeftJoin; },
                    "the relation has that kind");
     }},
    {L"Esc", L"",
     [](DesignerKeys& keys) {
         OpenRelation(keys);
         keys.Press(VK_DOWN);
         keys.Until([] { return IsKindChosen(1); }, "the next kind");
         keys.Press();
         keys.Until([&keys] { return !keys.Dialog(kRelationTitle); }, "the dialog is closed");
         keys.Do([&keys] { EXPECT_EQ(keys.Diagram().Relations()[0].info.JType, model::kInnerJoin); });
     }},
};
const KeyPane<DesignerKeys> kRelationPane("KeysOfTheRelation", L"En «Propiedades de la relación»",
                                          kRelationChecks);

// Messages: the question of "Limpiar todo", which has two buttons.

void AskWhetherToClear(DesignerKeys& keys) {
    keys.FocusOn(ui::kIdClearAll);
    keys.Press(VK_SPACE);
    keys.Until([] { return OpenMessageBox() != nullptr; }, "the question is asked");
}

const KeyCheck<DesignerKeys> kMessageChecks[] = {
    {L"Tab | Flecha izquierda | Flecha derecha", L"",
     [](DesignerKeys& keys) {
         AskWhetherToClear(keys);
         keys.Do([] { EXPECT_EQ(GetDlgCtrlID(GetFocus()), IDNO); });
         keys.Press();
         keys.Until([] { return GetDlgCtrlID(GetFocus()) == IDYES; }, "the other button");
     }},
    {L"Entrar", L"",
     [](DesignerKeys& keys) {
         AskWhetherToClear(keys);
         keys.Press(VK_LEFT);
         keys.Until([] { return GetDlgCtrlID(GetFocus()) == IDYES; }, "the other button");
         keys.Press();
         keys.Until([&keys] { return keys.Cell(model::GridRow::Campo, 0).empty(); }, "the design is cleared");
     }},
};
const KeyPane<DesignerKeys> kMessagePane("KeysOfMessages", L"En los mensajes", kMessageChecks);

}  // namespace

}  // namespace tessel::testing
