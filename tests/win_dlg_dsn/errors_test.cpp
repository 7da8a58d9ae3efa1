// Errors of the SQL text as the user meets them: marks, the line under the editor, F8, and lblNo's reason.
#include <windows.h>

#include <Scintilla.h>

#include "tests/win_dlg_dsn/dlg_dsn_fixture.h"
#include "ui/dlg_dsn_texts.h"

namespace tessel::testing {

using ui::Tab;

namespace {

constexpr WPARAM kErrors = 20;
constexpr WPARAM kNotes = 21;

class DlgDsnErrorsTest : public DlgDsnTest {
protected:
    LRESULT Editor(UINT message, WPARAM wparam = 0, LPARAM lparam = 0) {
        return SendMessageW(Control(ui::kIdEditor), message, wparam, lparam);
    }
    bool IsMarked(WPARAM indicator, LPARAM at) { return Editor(SCI_INDICATORVALUEAT, indicator, at) > 0; }
    std::wstring Line() { return TextOf(Control(ui::kIdErrorLine)); }
    void UntilLine(const std::wstring& text) {
        script_.Until([this, text] { return Line() == text; }, "the line under the editor");
    }
    void UntilEditorHasFocus() {
        script_.Until([this] { return GetFocus() == Control(ui::kIdEditor); }, "the editor has the focus");
    }
    std::wstring Selected() {
        const auto begin = static_cast<std::size_t>(Editor(SCI_GETSELECTIONSTART));
        const auto end = static_cast<std::size_t>(Editor(SCI_GETSELECTIONEND));
        return EditorText().substr(begin, end - begin);
    }
};

const std::wstring kUnion = L"SELECT a FROM t\r\nUNION SELECT b FROM u";
const std::wstring kUnionLine =
    L"No se puede mostrar en diseño (línea 2, columna 1): El diseño no puede mostrar consultas unidas con "
    L"UNION.";

}  // namespace

TEST_F(DlgDsnErrorsTest, StatementThatIsNoDesignSaysAtOnceWhy) {
    UntilLine(kUnionLine);
    script_.Do([this] {
        EXPECT_TRUE(IsMarked(kNotes, 17));
        EXPECT_FALSE(IsMarked(kErrors, 17)) << "a UNION is no error";
        EXPECT_TRUE(IsWindowVisible(Control(ui::kIdErrorLine)));
        EXPECT_EQ(Editor(SCI_CANUNDO), 0) << "marks are no step";
        EXPECT_EQ(Editor(SCI_GETCURRENTPOS), 0);
        Press(ui::kIdCancel);
    });
    EXPECT_FALSE(Run(kUnion));
}

TEST_F(DlgDsnErrorsTest, TypingAnErrorMarksItAndMendingItTakesTheMarkAway) {
    script_.Do([this] { ClickTab(Tab::Sql); });
    UntilEditorHasFocus();
    script_.Do([] {
        PressKey('A', false, true);
        TypeText(L"SELECT a FROM t WHERE a IS");
    });
    UntilLine(L"Línea 1, columna 27: Se esperaba NULL o NOT NULL después de IS.");
    script_.Do([this] {
        EXPECT_TRUE(IsMarked(kErrors, 24));
        EXPECT_EQ(Editor(SCI_GETCURRENTPOS), 26) << "the caret stays";
        TypeText(L" NULL");
    });
    UntilLine(L"");
    script_.Do([this] {
        EXPECT_FALSE(IsMarked(kErrors, 24));
        EXPECT_FALSE(IsWindowVisible(Control(ui::kIdErrorLine)) &&
                     (GetWindowLongW(Control(ui::kIdErrorLine), GWL_STYLE) & WS_TABSTOP))
            << "nothing to press";
        Press(ui::kIdCancel);
    });
    EXPECT_FALSE(Run(L"SELECT Clientes.Nombre FROM Clientes"));
}

TEST_F(DlgDsnErrorsTest, AMarkMovesWithTheTextBeforeIt) {
    const std::wstring text = L"SELECT a FROM t WHERE a NOT 5";
    script_.Until([this] { return IsMarked(kErrors, 28); }, "the place is marked");
    UntilEditorHasFocus();
    script_.Do([this] {
        Editor(SCI_INSERTTEXT, 0, reinterpret_cast<LPARAM>("   "));
        EXPECT_FALSE(IsMarked(kErrors, 28));
        EXPECT_TRUE(IsMarked(kErrors, 31));
        Press(ui::kIdCancel);
    });
    EXPECT_FALSE(Run(text));
}

TEST_F(DlgDsnErrorsTest, ThePointerRestingOnAMarkShowsItsTip) {
    script_.Until([this] { return IsMarked(kErrors, 28); }, "the place is marked");
    UntilEditorHasFocus();
    script_.Do([this] {
        EXPECT_EQ(Editor(SCI_CALLTIPACTIVE), 0);
        POINT point{static_cast<LONG>(Editor(SCI_POINTXFROMPOSITION, 0, 28)) + 3,
                    static_cast<LONG>(Editor(SCI_POINTYFROMPOSITION, 0, 28)) + 5};
        ClientToScreen(Control(ui::kIdEditor), &point);
        MouseMove(point);
    });
    script_.Until([this] { return Editor(SCI_CALLTIPACTIVE) != 0; }, "the tip");
    script_.Do([this] { MouseMove(MiddleOf(Control(ui::kIdErrorLine))); });
    script_.Until([this] { return Editor(SCI_CALLTIPACTIVE) == 0; }, "the tip goes");
    script_.Do([this] { Press(ui::kIdCancel); });
    EXPECT_FALSE(Run(L"SELECT a FROM t WHERE a NOT 5"));
}

TEST_F(DlgDsnErrorsTest, F8GoesThroughTheErrorsAndRound) {
    const std::wstring text = L"SELECT a,\r\nFROM t\r\nWHERE a NOT 5 AND b IS 7";
    std::vector<std::wstring> lines;
    script_.Until([this] { return !Line().empty(); }, "the line speaks");
    UntilEditorHasFocus();
    for (int i = 0; i < 3; ++i) {
        script_.Do([] { PressKey(VK_F8); });
        script_.Until([this, i] { return i == 2 || Selected().size() == (i == 0 ? 4u : 1u); }, "selected");
        script_.Do([&] { lines.push_back(Line()); });
    }
    script_.Do([this] { Press(ui::kIdCancel); });
    EXPECT_FALSE(Run(text));
    ASSERT_EQ(lines.size(), 3u);
    EXPECT_EQ(lines[0].substr(0, 20), L"Línea 2, columna 1: ");
}

TEST_F(DlgDsnErrorsTest, PressingTheLineGoesToThePlaceByMouseAndByEnter) {
    UntilLine(kUnionLine);
    UntilEditorHasFocus();
    script_.Do([this] { MouseClick(MiddleOf(Control(ui::kIdErrorLine))); });
    script_.Until([this] { return Selected() == L"UNION"; }, "the UNION is selected");
    script_.Do([this] {
        EXPECT_EQ(GetFocus(), Control(ui::kIdEditor));
        Editor(SCI_SETEMPTYSELECTION, 0);
        SetFocus(Control(ui::kIdErrorLine));
        PressKey(VK_RETURN);
    });
    script_.Until([this] { return Selected() == L"UNION"; }, "selected again");
    script_.Do([this] { Press(ui::kIdCancel); });
    EXPECT_FALSE(Run(kUnion)) << "Enter on the line does not accept";
}

TEST_F(DlgDsnErrorsTest, ReasonIsToldUnderTheFixedTextWithALinkToItsPlace) {
    script_.Do([this] { ClickTab(Tab::Design); });
    script_.Until([this] { return IsWindowVisible(Control(ui::kIdReasonLink)) != FALSE; }, "the link");
    script_.Do([this] {
        EXPECT_EQ(TextOf(Control(ui::kIdReason)), ui::texts::kReason);
        EXPECT_EQ(
            TextOf(Control(ui::kIdReasonText)),
            L"No se puede mostrar en diseño lo que hay en la línea 2, columna 1: El diseño no puede mostrar "
            L"consultas unidas con UNION.\r\nEn el texto: «UNION»");
        EXPECT_EQ(TextOf(Control(ui::kIdReasonLink)), L"Ir a ese lugar del texto SQL");
        MouseClick(MiddleOf(Control(ui::kIdReasonLink)));
    });
    UntilEditorHasFocus();
    script_.Until([this] { return Selected() == L"UNION"; }, "the whole construct is selected");
    script_.Do([this] {
        EXPECT_EQ(window_.Presenter().CurrentTab(), Tab::Sql);
        EXPECT_EQ(EditorText(), kUnion);
        Press(ui::kIdAccept);
    });
    EXPECT_TRUE(Run(kUnion));
    EXPECT_EQ(window_.Presenter().ResultSQL(), kUnion);
}

TEST_F(DlgDsnErrorsTest, TheLinkIsReachedByTabAndPressedByTheSpaceBar) {
    script_.Do([this] { ClickTab(Tab::Design); });
    script_.Until([this] { return IsWindowVisible(Control(ui::kIdReasonLink)) != FALSE; }, "the link");
    script_.Until(
        [this] {
            if (GetFocus() == Control(ui::kIdReasonLink)) return true;
            PressKey(VK_TAB);
            return false;
        },
        "Tab reaches the link");
    script_.Do([] { PressKey(VK_SPACE); });
    UntilEditorHasFocus();
    script_.Until([this] { return Selected() == L"UNION"; }, "the construct is selected");
    script_.Do([this] { Press(ui::kIdCancel); });
    EXPECT_FALSE(Run(kUnion));
}

TEST_F(DlgDsnErrorsTest, TheLineIsLeftWhenTheTabIs) {
    UntilLine(kUnionLine);
    UntilEditorHasFocus();
    script_.Do([this] {
        SetFocus(Control(ui::kIdErrorLine));
        PressKey(VK_TAB, false, true);
    });
    script_.Until([this] { return IsWindowVisible(Control(ui::kIdReasonLink)) != FALSE; }, "the design tab");
    script_.Until([this] { return GetFocus() == Control(ui::kIdTabs); }, "the focus is on the tabs");
    script_.Do([this] { Press(ui::kIdCancel); });
    EXPECT_FALSE(Run(kUnion));
}

TEST_F(DlgDsnErrorsTest, ADesignInForceHasNeitherReasonNorLink) {
    script_.Do([this] {
        EXPECT_FALSE(IsWindowVisible(Control(ui::kIdReasonText)));
        EXPECT_FALSE(IsWindowVisible(Control(ui::kIdReasonLink)));
        Press(ui::kIdCancel);
    });
    EXPECT_FALSE(Run(L"SELECT Clientes.Nombre FROM Clientes"));
}

}  // namespace tessel::testing
