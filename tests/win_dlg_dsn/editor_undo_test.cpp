// The text's own history across changes of tab: what stood there before the designer wrote is one Ctrl+Z
// away.
#include <windows.h>

#include "tests/win_dlg_dsn/dlg_dsn_fixture.h"

namespace tessel::testing {
namespace {

using model::GridRow;
using ui::Tab;

constexpr wchar_t kWritten[] = L"SELECT Clientes.Nombre  FROM Clientes -- a mano";

class EditorHistory : public DlgDsnTest {
protected:
    void GoTo(Tab tab) {
        script_.Do([this, tab] { ClickTab(tab); });
        // The focus moves last, when the presenter is done with the tab.
        const int pane = tab == Tab::Sql ? ui::kIdEditor : ui::kIdGrid;
        script_.Until([this, pane] { return GetFocus() == Control(pane); }, "the other tab");
    }
    void Type(const wchar_t* text) {
        script_.Do([text] {
            PressKey('A', false, true);
            TypeText(text);
        });
        script_.Until([this, text] { return EditorText() == text; }, "the text is typed");
    }
    bool IsComposed() { return EditorText() != kWritten && EditorText() == window_.Presenter().BuildSQL(); }
    void Press(WORD key, std::wstring wanted, std::string what) {
        script_.Do([key] { PressKey(key, false, true); });
        script_.Until([this, wanted = std::move(wanted)] { return EditorText() == wanted; }, std::move(what));
    }
    void Close() {
        script_.Do([this] { PostMessageW(window_.Handle(), WM_CLOSE, 0, 0); });
    }
};

TEST_F(EditorHistory, TheTypedTextIsOneStepBehindTheComposedOne) {
    GoTo(Tab::Sql);
    Type(kWritten);
    GoTo(Tab::Design);
    GoTo(Tab::Sql);
    script_.Until([this] { return IsComposed(); }, "composed");
    Press('Z', kWritten, "undone");
    script_.Do([] { PressKey('Y', false, true); });
    script_.Until([this] { return IsComposed(); }, "redone");
    Press('Z', kWritten, "undone again");
    Close();
    Run(L"");
}

TEST_F(EditorHistory, ComposingTheSameTextAgainAddsNoStepAndKeepsThePlace) {
    GoTo(Tab::Sql);
    Type(kWritten);
    for (int round = 0; round < 3; ++round) {
        GoTo(Tab::Design);
        GoTo(Tab::Sql);
    }
    script_.Until([this] { return IsComposed(); }, "composed");
    Press('Z', kWritten, "one step only");
    Close();
    Run(L"");
}

TEST_F(EditorHistory, EveryComposedTextIsAStepOfItsOwn) {
    std::wstring first;
    std::wstring second;
    GoTo(Tab::Sql);
    script_.Do([&] { first = EditorText(); });
    GoTo(Tab::Design);
    script_.Do([this] { window_.Presenter().GridCellCommitted(GridRow::Orden, 0, L"Ascendente"); });
    GoTo(Tab::Sql);
    script_.Do([&] {
        second = EditorText();
        EXPECT_NE(first, second);
        PressKey('Z', false, true);
    });
    script_.Until([&] { return EditorText() == first; }, "the first composed text");
    script_.Do([] { PressKey('Z', false, true); });
    script_.Until([&] { return EditorText() == kWritten; }, "the text it was opened with");
    script_.Do([] { PressKey('Y', false, true); });
    script_.Do([] { PressKey('Y', false, true); });
    script_.Until([&] { return EditorText() == second; }, "redone to the end");
    Close();
    Run(kWritten);
}

TEST_F(EditorHistory, EndsAtTheTextThatTheWindowWasOpenedWith) {
    GoTo(Tab::Sql);
    script_.Until([this] { return IsComposed(); }, "composed");
    Press('Z', kWritten, "as it was opened");
    script_.Do([] {
        PressKey('Z', false, true);
        PressKey('Z', false, true);
        PressKey(VK_END, false, true);
        TypeText(L"x");
    });
    script_.Until([this] { return EditorText() == std::wstring(kWritten) + L"x"; }, "nothing before it");
    Close();
    Run(kWritten);
}

TEST_F(EditorHistory, AnEmptiedDesignIsOneStepToo) {
    GoTo(Tab::Sql);
    Type(kWritten);
    GoTo(Tab::Design);
    script_.Do([this] { window_.Presenter().ClearDesign(false); });
    GoTo(Tab::Sql);
    script_.Until([this] { return EditorText() != kWritten; }, "composed");
    Press('Z', kWritten, "the text before it");
    Close();
    Run(L"");
}

TEST_F(EditorHistory, ATextThatIsNoDesignIsLeftAloneByTheTabs) {
    constexpr wchar_t kUnion[] = L"SELECT 1 UNION SELECT 2";
    GoTo(Tab::Sql);
    Type(kUnion);
    script_.Do([this] { ClickTab(Tab::Design); });
    script_.Until([this] { return !GridIsVisible() && GetFocus() == Control(ui::kIdTabs); }, "refused");
    GoTo(Tab::Sql);
    script_.Do([this, kUnion] {
        EXPECT_EQ(EditorText(), kUnion);
        PressKey('Z', false, true);
    });
    script_.Until([this, kUnion] { return EditorText() != kUnion; }, "the typing is undone");
    Close();
    Run(L"");
}

}  // namespace
}  // namespace tessel::testing
