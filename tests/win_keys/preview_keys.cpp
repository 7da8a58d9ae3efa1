// The keys of the preview of rows.
#include <windows.h>

#include <commctrl.h>

#include "common/win32/activation_context.h"
#include "common/win32/clipboard.h"
#include "hostkit/drive/input.h"
#include "hostkit/drive/script.h"
#include "tests/preview/literal_rows.h"
#include "tests/win_keys/key_checks.h"
#include "ui/win32/dlg_pvw.h"

namespace tessel::testing {

namespace {

using ui::CellPlace;
using ui::FindBar;

/// The preview on six rows, the keyboard on the cell (1, 1).
class PreviewKeys : public ::testing::Test {
public:
    using Check = void (*)(PreviewKeys&);
    PreviewKeys(const std::wstring& key, Check check) : check_(check) {
        EXPECT_TRUE(ParseStroke(key, stroke_));
    }

    void Press() {
        script_.Do([this] { PressStroke(stroke_); });
    }
    void Press(WORD virtual_key, bool shift = false, bool control = false) {
        script_.Do([=] { PressKey(virtual_key, shift, control); });
    }
    void Do(std::function<void()> action) { script_.Do(std::move(action)); }
    void Until(std::function<bool()> condition, const char* what) {
        script_.Until(std::move(condition), what);
    }
    void Type(const wchar_t* text) {
        script_.Do([text] { TypeText(text); });
    }
    /// The key goes to a cell.
    void GoesTo(CellPlace place) {
        Press();
        Until([this, place] { return window_.CurrentCell() == place && Selected() == 1; }, "the other cell");
    }
    void Find(const wchar_t* text) {
        Press('F', false, true);
        Until([this] { return GetFocus() == FindText(); }, "the find bar");
        Type(text);
        Press(VK_RETURN);
    }
    HWND FindText() { return Descendant(window_.Handle(), FindBar::kIdText); }
    int Selected() { return static_cast<int>(SendMessageW(window_.List(), LVM_GETSELECTEDCOUNT, 0, 0)); }
    ui::dlgPVW& Window() { return window_; }
    /// The key itself closes the window.
    void EndsWindow() { ends_ = true; }

private:
    void TestBody() override {
        script_.OnTrouble([this] { PostMessageW(window_.Handle(), WM_CLOSE, 0, 0); });
        Until([this] { return window_.Handle() && IsWindowVisible(window_.Handle()); }, "visible");
        Press(VK_DOWN);
        Press(VK_RIGHT);
        Until([this] { return window_.CurrentCell() == CellPlace{1, 1}; }, "the cell");
        check_(*this);
        if (!ends_) {
            Until([] { return !FindWindowW(L"#32768", nullptr) || (EndMenu(), false); }, "no menu");
            Do([this] { PostMessageW(window_.Handle(), WM_CLOSE, 0, 0); });
        }
        script_.Start();
        EXPECT_FALSE(window_.Show(nullptr));
        EXPECT_TRUE(script_.Finished()) << script_.Trouble();
    }

    Stroke stroke_;
    Check check_;
    bool ends_ = false;
    test::LiteralRows rows_{{L"Nombre", L"Ciudad", L"País"},
                            {{L"Ana", L"Madrid", L"España"},
                             {L"Óscar", L"Lima", L"Perú"},
                             {L"Eva", L"Mérida", L"México"},
                             {L"Luz", L"Madridejos", L"España"},
                             {L"Teo", L"Quito", L"Ecuador"},
                             {L"Zoe", L"Cali", L"Colombia"}}};
    win32::ActivationContext context_;
    Script script_;
    ui::dlgPVW window_{rows_};
};

void SelectsAll(PreviewKeys& keys) {
    keys.Press();
    keys.Until([&keys] { return keys.Selected() == 6; }, "all rows are selected");
}

void OpensTheMenu(PreviewKeys& keys) {
    keys.Press();
    keys.Until([] { return FindWindowW(L"#32768", nullptr) != nullptr; }, "the menu is open");
}

void CopiesInstead(PreviewKeys& keys, const wchar_t* expected) {
    keys.Do([&keys] { win32::CopyToClipboard(keys.Window().Handle(), L"otra cosa"); });
    keys.Press();
    keys.Until([=] { return win32::TextFromClipboard(nullptr).value_or(L"") == expected; }, "copied");
}

const KeyCheck<PreviewKeys> kChecks[] = {
    {L"Flecha izquierda", L"",
     [](PreviewKeys& keys) {
         keys.GoesTo({1, 0});
     }},
    {L"Flecha derecha", L"",
     [](PreviewKeys& keys) {
         keys.GoesTo({1, 2});
     }},
    {L"Flecha arriba", L"",
     [](PreviewKeys& keys) {
         keys.GoesTo({0, 1});
     }},
    {L"Flecha abajo", L"",
     [](PreviewKeys& keys) {
         keys.GoesTo({2, 1});
     }},
    {L"Inicio | Re Pág", L"",
     [](PreviewKeys& keys) {
         keys.GoesTo({0, 1});
     }},
    {L"Fin | Av Pág", L"",
     [](PreviewKeys& keys) {
         keys.GoesTo({5, 1});
     }},
    {L"Mayús+Flecha arriba | Mayús+Flecha abajo", L"",
     [](PreviewKeys& keys) {
         keys.Press();
         keys.Until([&keys] { return keys.Selected() == 2; }, "two rows are selected");
     }},
    {L"Ctrl+E | Ctrl+A", L"", SelectsAll},
    {L"Ctrl+C", L"",
     [](PreviewKeys& keys) { CopiesInstead(keys, L"Nombre\tCiudad\tPaís\r\nÓscar\tLima\tPerú\r\n"); }},
    {L"Ctrl+Mayús+C", L"", [](PreviewKeys& keys) { CopiesInstead(keys, L"Lima"); }},
    {L"Ctrl+F", L"",
     [](PreviewKeys& keys) {
         keys.Press();
         keys.Until([&keys] { return GetFocus() == keys.FindText(); }, "the find bar");
     }},
    {L"F3", L"",
     [](PreviewKeys& keys) {
         keys.Find(L"madrid");
         keys.Until([&keys] { return keys.Window().CurrentCell() == CellPlace{3, 1}; }, "the first place");
         keys.Press();
         keys.Until([&keys] { return keys.Window().CurrentCell() == CellPlace{0, 1}; }, "the next place");
     }},
    {L"Mayús+F3", L"",
     [](PreviewKeys& keys) {
         keys.Find(L"madrid");
         keys.Until([&keys] { return keys.Window().CurrentCell() == CellPlace{3, 1}; }, "the first place");
         keys.Press();
         keys.Until([&keys] { return keys.Window().CurrentCell() == CellPlace{0, 1}; }, "the place before");
     }},
    {L"Mayús+F10 | Menú", L"", OpensTheMenu},
    {L"Esc", L"al buscar",
     [](PreviewKeys& keys) {
         keys.Find(L"lima");
         keys.Press();
         keys.Until([&keys] { return GetFocus() == keys.Window().List(); }, "the keyboard is on the rows");
         keys.Do([&keys] { EXPECT_FALSE(IsWindowVisible(keys.FindText())); });
     }},
    {L"Esc", L"",
     [](PreviewKeys& keys) {
         keys.Press();
         keys.EndsWindow();
     }},
};
const KeyPane<PreviewKeys> kPane("KeysOfThePreview", L"En la vista previa de datos", kChecks);

}  // namespace

}  // namespace tessel::testing
