// The keys of the SQL editor.
#include <windows.h>

#include <Scintilla.h>

#include "common/win32/clipboard.h"
#include "tests/win_keys/designer_keys.h"
#include "ui/win32/find_replace_bar.h"

namespace tessel::testing {

namespace {

/// The editor with a text of its own, all of it selected.
void WriteText(DesignerKeys& keys, const wchar_t* text) {
    keys.OpenSqlTab();
    keys.Press('A', false, true);
    keys.Type(text);
    keys.Until([&keys, text] { return keys.EditorText() == text; }, "typed");
}

using Bar = ui::FindReplaceBar;

TextRange SelectionOf(DesignerKeys& keys) {
    const HWND editor = keys.Control(ui::kIdEditor);
    const auto begin = static_cast<std::size_t>(SendMessageW(editor, SCI_GETSELECTIONSTART, 0, 0));
    const auto end = static_cast<std::size_t>(SendMessageW(editor, SCI_GETSELECTIONEND, 0, 0));
    return {begin, end - begin};
}

/// Two errors with the caret before them; the key goes to the one that is expected.
void GoThroughErrors(DesignerKeys& keys, TextRange expected) {
    keys.Open(L"SELECT a, FROM t WHERE a NOT 5");
    keys.Until([&keys] { return !TextOf(keys.Control(ui::kIdErrorLine)).empty(); }, "the line speaks");
    keys.FocusOn(ui::kIdEditor);
    keys.Press();
    keys.Until([&keys, expected] { return SelectionOf(keys) == expected; }, "the error is selected");
}

/// Three times "x", the second one selected and looked for; the key finds another one.
void FindFromTheMiddle(DesignerKeys& keys, int focus, std::size_t expected) {
    WriteText(keys, L"x y x y x");
    keys.Do([&keys] { SendMessageW(keys.Control(ui::kIdEditor), SCI_SETSEL, 4, 5); });
    keys.Press('F', false, true);
    keys.FocusOn(ui::FindBar::kIdText);
    keys.FocusOn(focus);
    keys.Press();
    keys.Until([&keys, expected] { return SelectionOf(keys) == TextRange{expected, 1}; }, "found");
}

bool ListIsOpen(DesignerKeys& keys) {
    return SendMessageW(keys.Control(ui::kIdEditor), SCI_AUTOCACTIVE, 0, 0) != 0;
}

const KeyCheck<DesignerKeys> kChecks[] = {
    {L"Ctrl+Z", L"",
     [](DesignerKeys& keys) {
         WriteText(keys, L"SELECT 1");
         keys.Press();
         keys.Until([&keys] { return keys.EditorText() != L"SELECT 1"; }, "the typing is undone");
     }},
    {L"Ctrl+Y", L"",
     [](DesignerKeys& keys) {
         WriteText(keys, L"SELECT 1");
         keys.Press('Z', false, true);
         keys.Until([&keys] { return keys.EditorText() != L"SELECT 1"; }, "the typing is undone");
         keys.Press();
         keys.Until([&keys] { return keys.EditorText() == L"SELECT 1"; }, "and done again");
     }},
    {L"Ctrl+X", L"",
     [](DesignerKeys& keys) {
         WriteText(keys, L"SELECT 1");
         keys.Press('A', false, true);
         keys.Press();
         keys.Until([&keys] { return keys.EditorText().empty() && keys.ClipboardText() == L"SELECT 1"; },
                    "the text is on the clipboard alone");
     }},
    {L"Ctrl+C", L"",
     [](DesignerKeys& keys) {
         WriteText(keys, L"SELECT 2");
         keys.Press('A', false, true);
         keys.Press();
         keys.Until([&keys] { return keys.ClipboardText() == L"SELECT 2"; }, "the text is on the clipboard");
         keys.Do([&keys] { EXPECT_EQ(keys.EditorText(), L"SELECT 2"); });
     }},
    {L"Ctrl+V", L"",
     [](DesignerKeys& keys) {
         keys.Do([&keys] { win32::CopyToClipboard(keys.Window().Handle(), L"SELECT 3"); });
         keys.OpenSqlTab();
         keys.Press('A', false, true);
         keys.Press();
         keys.Until([&keys] { return keys.EditorText() == L"SELECT 3"; }, "the text is pasted");
     }},
    {L"Ctrl+A", L"",
     [](DesignerKeys& keys) {
         keys.OpenSqlTab();
         keys.Press();
         keys.Type(L"x");
         keys.Until([&keys] { return keys.EditorText() == L"x"; }, "everything was selected");
     }},
    {L"F8", L"",
     [](DesignerKeys& keys) {
         GoThroughErrors(keys, {10, 4});
     }},
    {L"Mayús+F8", L"",
     [](DesignerKeys& keys) {
         GoThroughErrors(keys, {29, 1});
     }},
    {L"Ctrl+F", L"",
     [](DesignerKeys& keys) {
         keys.OpenSqlTab();
         keys.Press();
         keys.Until([&keys] { return keys.HasFocus(keys.Control(ui::FindBar::kIdText)); }, "the bar");
         keys.Do([&keys] { EXPECT_FALSE(IsWindowVisible(keys.Control(Bar::kIdReplaceText))); });
     }},
    {L"Ctrl+H", L"",
     [](DesignerKeys& keys) {
         keys.OpenSqlTab();
         keys.Press();
         keys.Until([&keys] { return keys.HasFocus(keys.Control(ui::FindBar::kIdText)); }, "the bar");
         keys.Do([&keys] { EXPECT_TRUE(IsWindowVisible(keys.Control(Bar::kIdReplaceText))); });
     }},
    {L"F3", L"", [](DesignerKeys& keys) { FindFromTheMiddle(keys, ui::kIdEditor, 8); }},
    {L"Mayús+F3", L"", [](DesignerKeys& keys) { FindFromTheMiddle(keys, ui::kIdEditor, 0); }},
    {L"Entrar", L"en la barra", [](DesignerKeys& keys) { FindFromTheMiddle(keys, ui::FindBar::kIdText, 8); }},
    {L"Mayús+Entrar", L"en la barra",
     [](DesignerKeys& keys) { FindFromTheMiddle(keys, ui::FindBar::kIdText, 0); }},
    {L"Esc", L"en la barra",
     [](DesignerKeys& keys) {
         keys.OpenSqlTab();
         keys.Press('F', false, true);
         keys.FocusOn(ui::FindBar::kIdText);
         keys.Press();
         keys.Until([&keys] { return keys.HasFocus(keys.Control(ui::kIdEditor)); }, "back in the editor");
         keys.Do([&keys] { EXPECT_FALSE(IsWindowVisible(keys.Control(ui::kIdFindBar))); });
     }},
    {L"Entrar | Espacio", L"en la línea de errores",
     [](DesignerKeys& keys) {
         keys.Open(L"SELECT a FROM t UNION SELECT b FROM u");
         keys.Until([&keys] { return !TextOf(keys.Control(ui::kIdErrorLine)).empty(); }, "the line speaks");
         keys.FocusOn(ui::kIdErrorLine);
         keys.Press();
         keys.Until([&keys] { return SelectionOf(keys) == TextRange{16, 5}; }, "the UNION is selected");
         keys.Do([&keys] { EXPECT_EQ(GetFocus(), keys.Control(ui::kIdEditor)); });
     }},
    {L"Tab", L"",
     [](DesignerKeys& keys) {
         WriteText(keys, L"SELECT");
         keys.Press();
         keys.Until([&keys] { return keys.EditorText() == L"SELECT\t"; }, "a tab is written");
         keys.Do([&keys] { EXPECT_EQ(GetFocus(), keys.Control(ui::kIdEditor)); });
     }},
    {L"Ctrl+Espacio", L"",
     [](DesignerKeys& keys) {
         WriteText(keys, L"SELECT * FROM Clie");
         keys.Press();
         keys.Until([&keys] { return keys.EditorText() == L"SELECT * FROM Clientes"; }, "completed");
     }},
    {L"Entrar", L"en la lista de nombres",
     [](DesignerKeys& keys) {
         WriteText(keys, L"SELECT * FROM ");
         keys.Press(VK_SPACE, false, true);
         keys.Until([&keys] { return ListIsOpen(keys); }, "the list is open");
         keys.Press();
         keys.Until([&keys] { return keys.EditorText() == L"SELECT * FROM Clientes"; }, "the first one");
     }},
    {L"Esc", L"en la lista de nombres",
     [](DesignerKeys& keys) {
         WriteText(keys, L"SELECT * FROM ");
         keys.Press(VK_SPACE, false, true);
         keys.Until([&keys] { return ListIsOpen(keys); }, "the list is open");
         keys.Press();
         keys.Until([&keys] { return !ListIsOpen(keys); }, "the list is closed");
         keys.Do([&keys] { EXPECT_TRUE(IsWindowVisible(keys.Window().Handle())); });
     }},
    {L"Ctrl+E", L"",
     [](DesignerKeys& keys) {
         WriteText(keys, L"SELECT (a)");
         keys.Press();
         keys.Type(L"x");
         keys.Until([&keys] { return keys.EditorText() == L"SELECT x(a)"; }, "the caret is before it");
     }},
    {L"Ctrl+Mayús+E", L"",
     [](DesignerKeys& keys) {
         WriteText(keys, L"SELECT (a)");
         keys.Press();
         keys.Type(L"x");
         keys.Until([&keys] { return keys.EditorText() == L"SELECT x"; }, "the pair was selected");
     }},
    {L"Ctrl+K", L"",
     [](DesignerKeys& keys) {
         WriteText(keys, L"SELECT 1");
         keys.Press();
         keys.Until([&keys] { return keys.EditorText() == L"-- SELECT 1"; }, "a comment");
         keys.Press();
         keys.Until([&keys] { return keys.EditorText() == L"SELECT 1"; }, "and none");
     }},
    {L"Ctrl+Mayús+F", L"",
     [](DesignerKeys& keys) {
         WriteText(keys, L"SELECT a,b FROM t");
         keys.Press();
         keys.Until([&keys] { return keys.EditorText() == L"SELECT a, b\r\nFROM t"; }, "laid out");
     }},
};
const KeyPane<DesignerKeys> kPane("KeysOfTheEditor", L"En el editor de SQL", kChecks);

}  // namespace

}  // namespace tessel::testing
