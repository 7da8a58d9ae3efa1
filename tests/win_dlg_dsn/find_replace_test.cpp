// Finding and replacing in the SQL text as the user does it.
#include <windows.h>

#include <Scintilla.h>

#include "tests/win_dlg_dsn/dlg_dsn_fixture.h"
#include "ui/win32/find_replace_bar.h"

namespace tessel::testing {

using ui::FindBar;
using ui::FindReplaceBar;
using ui::Tab;

namespace {

// Composes to itself, so that the SQL tab shows exactly this.
const std::wstring kStatement = L"SELECT país, Pais FROM t UNION SELECT pais FROM país";

class FindReplaceTest : public DlgDsnTest {
protected:
    FindReplaceTest() {
        script_.Until([this] { return GetFocus() == Control(ui::kIdEditor); }, "the editor has the focus");
    }

    LRESULT Editor(UINT message, WPARAM wparam = 0, LPARAM lparam = 0) {
        return SendMessageW(Control(ui::kIdEditor), message, wparam, lparam);
    }
    bool BarIsShown() { return IsWindowVisible(Control(ui::kIdFindBar)) != FALSE; }
    bool FindHasFocus() { return GetFocus() == Control(FindBar::kIdText); }
    std::wstring Note() { return TextOf(Control(FindReplaceBar::kIdNote)); }
    /// The selection in characters of the statement, which holds each "í" in two bytes.
    TextRange Selection() {
        const auto begin = static_cast<WPARAM>(Editor(SCI_GETSELECTIONSTART));
        const auto end = Editor(SCI_GETSELECTIONEND);
        return {static_cast<std::size_t>(Editor(SCI_COUNTCHARACTERS, 0, static_cast<LPARAM>(begin))),
                static_cast<std::size_t>(Editor(SCI_COUNTCHARACTERS, begin, end))};
    }
    void Open(bool with_replace) {
        script_.Do([with_replace] { PressKey(with_replace ? 'H' : 'F', false, true); });
        script_.Until([this] { return BarIsShown() && FindHasFocus(); }, "the bar has the focus");
    }
    void Find(const std::wstring& text) {
        Open(false);
        script_.Do([text] { TypeText(text.c_str()); });
        script_.Until([this, text] { return TextOf(Control(FindBar::kIdText)) == text; }, "typed");
    }
    void UntilSelected(TextRange range) {
        script_.Until([this, range] { return Selection() == range; }, "found");
    }
    void Close() {
        script_.Do([this] { PostMessageW(window_.Handle(), WM_CLOSE, 0, 0); });
        Run(kStatement);
    }
};

}  // namespace

TEST_F(FindReplaceTest, EnterAndF3FindTheNextAndGoRoundWithANote) {
    Find(L"país");
    script_.Do([] { PressKey(VK_RETURN); });
    UntilSelected({7, 4});
    script_.Do([this] {
        EXPECT_TRUE(FindHasFocus());
        EXPECT_EQ(Note(), L"");
        PressKey(VK_F3);
    });
    UntilSelected({48, 4});
    script_.Do([] { PressKey(VK_F3); });
    UntilSelected({7, 4});
    script_.Do([this] {
        EXPECT_EQ(Note(), L"Se llegó al final y se siguió desde el principio.");
        PressKey(VK_F3, true);
    });
    UntilSelected({48, 4});
    script_.Do([this] { EXPECT_EQ(Note(), L"Se llegó al principio y se siguió desde el final."); });
    Close();
}

TEST_F(FindReplaceTest, WhatIsNotThereIsSaid) {
    Find(L"ciudad");
    script_.Do([] { PressKey(VK_RETURN); });
    script_.Until([this] { return Note() == L"No se encontró el texto."; }, "the note");
    script_.Do([] { TypeText(L"x"); });
    script_.Until([this] { return Note().empty(); }, "another text, no note");
    Close();
}

TEST_F(FindReplaceTest, CaseAndWholeWordsCountWhenAsked) {
    Find(L"pais");
    script_.Do([] { PressKey(VK_RETURN); });
    UntilSelected({13, 4});
    script_.Do([this] {
        Press(FindReplaceBar::kIdMatchCase);
        Press(FindReplaceBar::kIdWholeWord);
    });
    script_.Until(
        [this] {
            return SendMessageW(Control(FindReplaceBar::kIdWholeWord), BM_GETCHECK, 0, 0) == BST_CHECKED;
        },
        "checked");
    script_.Do([this] {
        SetFocus(Control(FindBar::kIdText));
        PressKey(VK_F3);
    });
    UntilSelected({38, 4});
    script_.Do([] { PressKey(VK_F3); });
    script_.Until([this] { return !Note().empty(); }, "round to the same");
    script_.Do([this] { EXPECT_EQ(Selection(), (TextRange{38, 4})); });
    Close();
}

TEST_F(FindReplaceTest, SelectedTextIsLookedFor) {
    script_.Do([this] { Editor(SCI_SETSEL, 14, 18); });
    Open(false);
    script_.Do([this] {
        EXPECT_EQ(TextOf(Control(FindBar::kIdText)), L"Pais");
        PressKey(VK_RETURN);
    });
    UntilSelected({38, 4});
    Close();
}

TEST_F(FindReplaceTest, EscClosesOnlyTheBarAndTheEditorHasTheKeyboard) {
    Open(true);
    script_.Do([this] {
        EXPECT_TRUE(IsWindowVisible(Control(FindReplaceBar::kIdReplaceText)));
        PressKey(VK_ESCAPE);
    });
    script_.Until([this] { return !BarIsShown() && GetFocus() == Control(ui::kIdEditor); }, "closed");
    Open(false);
    script_.Do([this] {
        EXPECT_FALSE(IsWindowVisible(Control(FindReplaceBar::kIdReplaceText)));
        EXPECT_TRUE(IsWindowVisible(window_.Handle()));
    });
    Close();
}

TEST_F(FindReplaceTest, ReplaceOneReplacesWhatIsFoundAndGoesOn) {
    Open(true);
    script_.Do([this] {
        SetWindowTextW(Control(FindBar::kIdText), L"pais");
        SetWindowTextW(Control(FindReplaceBar::kIdReplaceText), L"Nación");
        SetFocus(Control(FindReplaceBar::kIdReplaceText));
        PressKey(VK_RETURN);
    });
    UntilSelected({13, 4});
    script_.Do([] { PressKey(VK_RETURN); });
    UntilSelected({40, 4});
    script_.Do(
        [this] { EXPECT_EQ(EditorText(), L"SELECT país, Nación FROM t UNION SELECT pais FROM país"); });
    Close();
}

TEST_F(FindReplaceTest, ReplaceAllIsOneStepAndCounts) {
    Open(true);
    script_.Do([this] {
        SetWindowTextW(Control(FindBar::kIdText), L"PAIS");
        SetWindowTextW(Control(FindReplaceBar::kIdReplaceText), L"Nación");
        Press(FindReplaceBar::kIdReplaceAll);
    });
    script_.Until([this] { return Note() == L"Se hicieron 2 reemplazos."; }, "counted");
    script_.Do([this] {
        EXPECT_EQ(EditorText(), L"SELECT país, Nación FROM t UNION SELECT Nación FROM país");
        Editor(SCI_UNDO);
        EXPECT_EQ(EditorText(), kStatement) << "one step undoes them all";
        EXPECT_EQ(Editor(SCI_CANUNDO), 0);
    });
    Close();
}

TEST_F(FindReplaceTest, MnemonicsOfTheBarAndOfTheWindowDoNotMeet) {
    Open(true);
    script_.Do([this] {
        std::wstring mnemonics;
        for (const int id :
             {static_cast<int>(FindBar::kIdLabel), static_cast<int>(FindBar::kIdNext),
              static_cast<int>(FindBar::kIdPrevious), static_cast<int>(FindReplaceBar::kIdMatchCase),
              static_cast<int>(FindReplaceBar::kIdWholeWord),
              static_cast<int>(FindReplaceBar::kIdReplaceLabel),
              static_cast<int>(FindReplaceBar::kIdReplaceOne),
              static_cast<int>(FindReplaceBar::kIdReplaceAll), static_cast<int>(ui::kIdAccept),
              static_cast<int>(ui::kIdCancel), static_cast<int>(ui::kIdHelp)}) {
            const std::wstring caption = TextOf(Control(id));
            const std::size_t at = caption.find(L'&');
            ASSERT_NE(at, std::wstring::npos) << id;
            const auto letter = static_cast<wchar_t>(towlower(static_cast<wint_t>(caption[at + 1])));
            EXPECT_EQ(mnemonics.find(letter), std::wstring::npos) << id;
            mnemonics += letter;
        }
    });
    Close();
}

TEST_F(FindReplaceTest, OtherPanesKeepTheirKeys) {
    script_.Do([this] {
        SetFocus(Control(ui::kIdAccept));
        PressKey('F', false, true);
        PressKey(VK_F3);
        PressKey('H', false, true);
    });
    script_.Do([this] { PressKey(VK_TAB); });
    script_.Until([this] { return GetFocus() == Control(ui::kIdCancel); }, "the keys have arrived");
    script_.Do([this] { EXPECT_FALSE(BarIsShown()); });
    Close();
}

}  // namespace tessel::testing
