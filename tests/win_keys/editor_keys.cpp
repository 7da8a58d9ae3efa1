// The keys of the SQL editor.
#include <windows.h>

#include "common/win32/clipboard.h"
#include "tests/win_keys/designer_keys.h"

namespace tessel::testing {

namespace {

/// The editor with a text of its own, all of it selected.
void WriteText(DesignerKeys& keys, const wchar_t* text) {
    keys.OpenSqlTab();
    keys.Press('A', false, true);
    keys.Type(text);
    keys.Until([&keys, text] { return keys.EditorText() == text; }, "typed");
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
    {L"Tab", L"",
     [](DesignerKeys& keys) {
         WriteText(keys, L"SELECT");
         keys.Press();
         keys.Until([&keys] { return keys.EditorText() == L"SELECT\t"; }, "a tab is written");
         keys.Do([&keys] { EXPECT_EQ(GetFocus(), keys.Control(ui::kIdEditor)); });
     }},
};
const KeyPane<DesignerKeys> kPane("KeysOfTheEditor", L"En el editor de SQL", kChecks);

}  // namespace

}  // namespace tessel::testing
