// The editor's own commands by their keys: the list of names, comments, parentheses, layout.
#include <Scintilla.h>
#include <gtest/gtest.h>

#include <memory>
#include <utility>

#include "hostkit/drive/input.h"
#include "tests/win_editor/editor_window.h"

namespace tessel::controls {
namespace {

using namespace tessel::testing;

class LiteralSource final : public schema::SchemaSource {
public:
    Result<std::vector<schema::Object>> LoadObjects() override {
        return std::vector<schema::Object>{{L"Clientes", L"Clientes", schema::ObjectKind::Table},
                                           {L"Pedidos", L"Pedidos", schema::ObjectKind::Table}};
    }
    Result<std::vector<schema::Field>> LoadFields(const schema::Object&) override {
        std::vector<schema::Field> fields(3);
        fields[0].name = fields[0].raw_name = L"IdCliente";
        fields[1].name = fields[1].raw_name = L"Nombre";
        fields[2].name = L"[Año de alta]";
        fields[2].raw_name = L"Año de alta";
        return fields;
    }
    Result<std::vector<schema::ForeignKey>> LoadForeignKeys() override {
        return std::vector<schema::ForeignKey>{};
    }
};

class LiteralNames final : public CompletionSource {
public:
    CompletionNames Names() override { return {&schema_, {L"fecha"}, {L"Cliente"}, nullptr}; }

private:
    schema::Schema schema_{std::make_unique<LiteralSource>()};
};

class EditorCommands : public ::testing::Test {
protected:
    EditorCommands() { window_.Editor().SetCompletionSource(&names_); }

    /// Sets a text with the caret at its "|".
    void Set(std::wstring text) {
        const std::size_t caret = text.find(L'|');
        text.erase(caret, 1);
        window_.Editor().SetText(text);
        window_.Editor().SelectRange({caret, 0});
    }
    bool IsOpen() { return window_.Send(SCI_AUTOCACTIVE) != 0; }
    std::string Selected() {
        char text[200] = "";
        if (IsOpen()) window_.Send(SCI_AUTOCGETCURRENTTEXT, 0, reinterpret_cast<LPARAM>(text));
        return text;
    }
    void Press(WORD key, bool shift = false, bool control = false) {
        PressKey(key, shift, control);
        PressKey(VK_F24);
        EXPECT_TRUE(window_.Until([] { return !GetQueueStatus(QS_KEY); }));
        Drain();
    }
    void Type(const wchar_t* text) {
        TypeText(text);
        Drain();
    }
    void Drain() {
        bool seen = false;
        EXPECT_TRUE(window_.Until([&] { return std::exchange(seen, true) && !GetQueueStatus(QS_ALLINPUT); }));
    }
    std::wstring Text() { return window_.Editor().Text(); }
    std::size_t Caret() { return window_.Editor().Selection().offset; }

    LiteralNames names_;
    EditorWindow window_;
};

TEST_F(EditorCommands, APointOpensTheListAndTabTakesTheEntry) {
    Set(L"SELECT c| FROM Clientes c");
    Type(L".");
    EXPECT_TRUE(IsOpen());
    EXPECT_EQ(Selected(), "IdCliente");
    Type(L"n");
    EXPECT_EQ(Selected(), "Nombre");
    Press(VK_TAB);
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(Text(), L"SELECT c.Nombre FROM Clientes c");
    EXPECT_EQ(Caret(), 15u);
    window_.Editor().Undo();
    EXPECT_EQ(Text(), L"SELECT c.n FROM Clientes c");
}

TEST_F(EditorCommands, TypingAndDeletingNarrowAndWidenTheList) {
    Set(L"SELECT c| FROM Clientes c");
    Type(L".ano");
    EXPECT_EQ(Selected(), "[A\xC3\xB1o de alta]");
    Press(VK_BACK);
    Press(VK_BACK);
    Press(VK_BACK);
    EXPECT_EQ(Selected(), "IdCliente");
    Press(VK_DOWN);
    Press(VK_DOWN);
    Press(VK_RETURN);
    EXPECT_EQ(Text(), L"SELECT c.[Año de alta] FROM Clientes c");
}

TEST_F(EditorCommands, WhatNoNameHasClosesTheList) {
    Set(L"SELECT c| FROM Clientes c");
    Type(L".Nom ");
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(Text(), L"SELECT c.Nom  FROM Clientes c");
    Set(L"SELECT c| FROM Clientes c");
    Type(L".zz");
    EXPECT_FALSE(IsOpen());
}

TEST_F(EditorCommands, EnterBreaksTheLineBehindANameThatIsWhole) {
    Set(L"SELECT * FROM Clientes c ORDER BY c|");
    Type(L".Nombre");
    EXPECT_TRUE(IsOpen());
    Press(VK_RETURN);
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(Text(), L"SELECT * FROM Clientes c ORDER BY c.Nombre\r\n");
}

TEST_F(EditorCommands, ControlSpaceOpensTheListAndTakesASingleMatch) {
    Set(L"SELECT * FROM |");
    Press(VK_SPACE, false, true);
    EXPECT_EQ(Selected(), "Clientes");
    EXPECT_EQ(Text(), L"SELECT * FROM ");
    Set(L"SELECT * FROM pe|");
    Press(VK_SPACE, false, true);
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(Text(), L"SELECT * FROM Pedidos");
    Set(L"SELECT * FROM Clientes WHERE a = @f|");
    Press(VK_SPACE, false, true);
    EXPECT_EQ(Text(), L"SELECT * FROM Clientes WHERE a = @fecha");
}

TEST_F(EditorCommands, TheWholeNameUnderTheCaretIsReplaced) {
    Set(L"SELECT * FROM Cli|enta WHERE a = 1");
    Press(VK_SPACE, false, true);
    EXPECT_EQ(Text(), L"SELECT * FROM Clientes WHERE a = 1");
}

TEST_F(EditorCommands, EscapeClosesTheListOnly) {
    Set(L"SELECT * FROM |");
    Press(VK_SPACE, false, true);
    MSG escape{};
    escape.message = WM_KEYDOWN;
    escape.wParam = VK_ESCAPE;
    const auto asked = reinterpret_cast<LPARAM>(&escape);
    EXPECT_TRUE(window_.Send(WM_GETDLGCODE, VK_ESCAPE, asked) & DLGC_WANTALLKEYS);
    Press(VK_ESCAPE);
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(Text(), L"SELECT * FROM ");
    EXPECT_FALSE(window_.Send(WM_GETDLGCODE, VK_ESCAPE, asked) & DLGC_WANTALLKEYS);
}

TEST_F(EditorCommands, NoListOpensInCommentsStringsAndReadOnlyTexts) {
    Set(L"SELECT a -- c|");
    Type(L".");
    EXPECT_FALSE(IsOpen());
    Set(L"SELECT 'c|");
    Press(VK_SPACE, false, true);
    EXPECT_FALSE(IsOpen());
    Set(L"SELECT * FROM |");
    window_.Editor().SetReadOnly(true);
    Press(VK_SPACE, false, true);
    EXPECT_FALSE(IsOpen());
}

TEST_F(EditorCommands, WithoutASourceNothingOpens) {
    window_.Editor().SetCompletionSource(nullptr);
    Set(L"SELECT * FROM |");
    Press(VK_SPACE, false, true);
    EXPECT_FALSE(IsOpen());
    EXPECT_EQ(Text(), L"SELECT * FROM ");
}

TEST_F(EditorCommands, NamesOfManyBytesAreReplacedWhole) {
    Set(L"SELECT 'ñ\U0001F600', [año| FROM Clientes");
    Press(VK_SPACE, false, true);
    EXPECT_EQ(Text(), L"SELECT 'ñ\U0001F600', [Año de alta] FROM Clientes");
}

TEST_F(EditorCommands, ControlKCommentsTheLinesOutAndInAsOneStep) {
    const std::wstring text = L"SELECT a\r\n  FROM t\r\nWHERE x";
    window_.Editor().SetText(text);
    window_.Editor().SelectRange({3, 12});
    Press('K', false, true);
    EXPECT_EQ(Text(), L"-- SELECT a\r\n--   FROM t\r\nWHERE x");
    Press('K', false, true);
    EXPECT_EQ(Text(), text);
    window_.Editor().Undo();
    window_.Editor().Undo();
    EXPECT_EQ(Text(), text);
    window_.Editor().Undo();
    EXPECT_EQ(Text(), L"");
}

TEST_F(EditorCommands, ACommentedLineKeepsItsCaret) {
    Set(L"SELECT a\r\nFROM| t");
    Press('K', false, true);
    EXPECT_EQ(Text(), L"SELECT a\r\n-- FROM t");
    EXPECT_EQ(Caret(), 17u);
    // A selection of whole lines does not reach into the next one.
    window_.Editor().SetText(L"a\r\nb");
    window_.Editor().SelectRange({0, 3});
    Press('K', false, true);
    EXPECT_EQ(Text(), L"-- a\r\nb");
}

TEST_F(EditorCommands, ControlEGoesToTheOtherParenthesisAndBack) {
    Set(L"SELECT f(a, ')', [b c]|)");
    Press('E', false, true);
    EXPECT_EQ(Caret(), 17u) << "the bracket before the caret counts first";
    Set(L"SELECT f(a, ')', b)|");
    Press('E', false, true);
    EXPECT_EQ(Caret(), 8u);
    Press('E', false, true);
    EXPECT_EQ(Caret(), 19u);
    Press('E', true, true);
    EXPECT_EQ(window_.Editor().Selection(), (TextRange{8, 11}));
}

TEST_F(EditorCommands, WithoutPartnerTheCaretStays) {
    Set(L"SELECT f(a|");
    Press('E', false, true);
    EXPECT_EQ(Caret(), 10u);
    Set(L"SELECT f(|a");
    Press('E', false, true);
    EXPECT_EQ(Caret(), 9u);
}

TEST_F(EditorCommands, AKeyInALongTextColoursNoMoreThanItMust) {
    std::wstring text;
    while (text.size() < std::size_t{1} << 20)
        text += L"SELECT Clientes.Nombre, (a) FROM Clientes WHERE b = 'x'\r\n";
    window_.Editor().SetText(text);
    const auto coloured = [this] {
        UpdateWindow(window_.Editor().Handle());
        return window_.Send(SCI_GETENDSTYLED);
    };
    EXPECT_LT(coloured(), 20'000) << "only what is in sight";
    Type(L"x");
    EXPECT_LT(coloured(), 20'000);
    // A parenthesis is looked for farther down, but not to the end.
    Type(L"(");
    EXPECT_LT(coloured(), 60'000);
    Press(VK_SPACE, false, true);
    EXPECT_TRUE(IsOpen());
    EXPECT_LT(coloured(), 60'000);
}

TEST_F(EditorCommands, TheLayoutIsAskedForByItsKey) {
    Set(L"SELECT a|");
    Press('F', true, true);
    EXPECT_EQ(window_.Formats(), 1);
    window_.Editor().SetReadOnly(true);
    Press('F', true, true);
    EXPECT_EQ(window_.Formats(), 1);
}

TEST_F(EditorCommands, AnotherLayoutIsOneStepAndKeepsThePlace) {
    Set(L"SELECT a FR|OM t");
    const int changes = window_.Changes();
    window_.Editor().ReplaceLayout(L"SELECT\r\n    a\r\nFROM t");
    EXPECT_EQ(Caret(), 17u);
    EXPECT_GT(window_.Changes(), changes);
    window_.Editor().Undo();
    EXPECT_EQ(Text(), L"SELECT a FROM t");
}

}  // namespace
}  // namespace tessel::controls
