// What the presenter does with the editor's text: laying it out, and composing it as one step.
#include <gtest/gtest.h>

#include "tests/ui/fakes.h"
#include "ui/designer_presenter.h"
#include "ui/format_texts.h"

namespace tessel::test {
namespace {

/// Tells the steps of its history by what each left, a replacement being one step or none.
class HistoryEditor final : public ui::EditorView {
public:
    std::wstring Text() const override { return text; }
    void SetText(std::wstring_view value) override {
        if (text == value) return;
        if (!replacing) steps.push_back(text);
        text = value;
    }
    void SetLayout(std::wstring_view value) override {
        ++layouts;
        SetText(value);
    }
    void BeginReplacement() override {
        replacing = true;
        before = text;
    }
    void EndReplacement() override {
        replacing = false;
        if (text != before) steps.push_back(before);
    }
    void Refresh() override {}

    std::wstring text;
    std::wstring before;
    std::vector<std::wstring> steps;
    bool replacing = false;
    int layouts = 0;
};

class EditorText : public testing::Test {
protected:
    EditorText() : window_(calls_), presenter_(window_, editor_, nullptr) { presenter_.Load(); }

    Calls calls_;
    FakeWindow window_;
    HistoryEditor editor_;
    ui::DesignerPresenter presenter_;
};

TEST_F(EditorText, IsLaidOut) {
    editor_.text = L"select a from t";
    presenter_.FormatText();
    EXPECT_EQ(editor_.text, L"select a\r\nfrom t");
    EXPECT_EQ(editor_.layouts, 1);
    presenter_.FormatText();
    EXPECT_EQ(editor_.layouts, 1) << "nothing is left to do";
    EXPECT_TRUE(window_.messages.empty());
}

TEST_F(EditorText, WithAnErrorItStaysAndTheErrorIsTold) {
    editor_.text = L"SELECT a\r\nFROM t WHERE";
    presenter_.FormatText();
    EXPECT_EQ(editor_.text, L"SELECT a\r\nFROM t WHERE");
    ASSERT_EQ(window_.messages.size(), 1u);
    EXPECT_EQ(window_.messages[0],
              std::wstring(ui::texts::kFormatHasError) +
                  L"\r\n\r\nLínea 2, columna 13: Se esperaba una expresión después de WHERE.");
}

TEST_F(EditorText, OfWhiteSpaceIsNoMatter) {
    editor_.text = L" \r\n";
    presenter_.FormatText();
    EXPECT_EQ(editor_.text, L" \r\n");
    EXPECT_TRUE(window_.messages.empty());
}

TEST_F(EditorText, ComposedAnewIsOneStepAndTheSameIsNone) {
    presenter_.TabClicked(ui::Tab::Sql);
    editor_.text = L"SELECT t.a  FROM t";
    presenter_.TabClicked(ui::Tab::Design);
    editor_.steps.clear();
    presenter_.TabClicked(ui::Tab::Sql);
    EXPECT_EQ(editor_.steps, (std::vector<std::wstring>{L"SELECT t.a  FROM t"}));
    presenter_.TabClicked(ui::Tab::Design);
    presenter_.TabClicked(ui::Tab::Sql);
    EXPECT_EQ(editor_.steps.size(), 1u);
    EXPECT_FALSE(editor_.replacing);
}

}  // namespace
}  // namespace tessel::test
