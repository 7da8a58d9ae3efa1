// "Ay&uda" and F1 in the designer window: the button opens the help itself, the key the topic of the pane in
// use.
#include <vector>

#include "common/win32/module.h"
#include "tests/win_dlg_dsn/dlg_dsn_fixture.h"
#include "tests/win_dlg_dsn/recorded_help.h"
#include "ui/help_contexts.h"
#include "ui/win32/show_help.h"

namespace tessel::testing {

namespace {

class DesignerHelp : public DlgDsnTest {
protected:
    using Call = RecordedHelp::Call;

    void F1In(HWND pane) {
        script_.Do([pane] { SetFocus(pane); });
        script_.Do([] { PostMessageW(GetFocus(), WM_KEYDOWN, VK_F1, 1); });
        const std::size_t expected = ++presses_;
        script_.Until([this, expected] { return help_.Calls().size() == expected; }, "F1");
    }

    RecordedHelp help_;
    std::size_t presses_ = 0;
};

}  // namespace

TEST_F(DesignerHelp, ButtonIsEnabledAndOpensTheHelpWithoutOwnerAndContext) {
    script_.Do([this] {
        EXPECT_TRUE(IsWindowEnabled(Control(ui::kIdHelp)));
        Press(ui::kIdHelp);
    });
    script_.Until([this] { return !help_.Calls().empty(); }, "help");
    script_.Do([this] { Press(ui::kIdCancel); });
    EXPECT_FALSE(Run(kTotalsByCustomer));
    EXPECT_EQ(help_.Calls(), (std::vector<Call>{{nullptr, 0}}));
}

TEST_F(DesignerHelp, F1OpensTheTopicOfThePaneThatHasTheFocus) {
    F1In(Control(ui::kIdBrowser));
    F1In(Control(ui::kIdDiagram));
    F1In(Control(ui::kIdAccept));
    script_.Do([this] { ClickTab(ui::Tab::Sql); });
    // The composed text is the last thing that the switch writes.
    script_.Until([this] { return !EditorText().empty() && EditorText() != kTotalsByCustomer; },
                  "composed text");
    F1In(Control(ui::kIdEditor));
    script_.Do([this] { Press(ui::kIdCancel); });
    EXPECT_FALSE(Run(kTotalsByCustomer));
    EXPECT_EQ(help_.Calls(), (std::vector<Call>{{nullptr, ui::help::kBrowser},
                                                {nullptr, ui::help::kDiagram},
                                                {nullptr, ui::help::kWindow},
                                                {nullptr, ui::help::kSqlTab}}));
}

TEST_F(DesignerHelp, F1InTheGridOpensTheTopicOfTheFocusedRow) {
    for (const model::GridRow row : model::kGridRows) {
        script_.Do([this, row] { window_.Presenter().Design().grid.SetFocus(row, 0); });
        F1In(Control(ui::kIdGrid));
    }
    script_.Do([this] { Press(ui::kIdCancel); });
    EXPECT_FALSE(Run(kTotalsByCustomer));
    std::vector<Call> expected;
    for (long row = 1; row <= 8; ++row) expected.push_back({nullptr, 200 + row});
    EXPECT_EQ(help_.Calls(), expected);
}

namespace {

/// The help viewer's window, or nullptr.
HWND HelpWindow() {
    return FindWindowW(L"HH Parent", nullptr);
}

}  // namespace

// The real viewer, where the help file was built beside this program and the system has a viewer.
TEST_F(DlgDsnTest, HelpWindowOpensBesideTheDesignerWhichGoesOn) {
    const ui::HelpPlatform platform = ui::WindowsHelp();
    if (!platform.file_exists(platform.component_folder + ui::kHelpFileName)) GTEST_SKIP() << "no help file";
    if (!win32::LoadSystemLibrary(L"hhctrl.ocx")) GTEST_SKIP() << "no help viewer";
    script_.Do([this] { Press(ui::kIdHelp); });
    script_.Until([] { return HelpWindow() != nullptr; }, "help window");
    script_.Do([this] {
        EXPECT_TRUE(IsWindowEnabled(HelpWindow()));
        EXPECT_TRUE(IsWindowEnabled(window_.Handle()));
        SetFocus(Control(ui::kIdGrid));
        PostMessageW(Control(ui::kIdGrid), WM_KEYDOWN, VK_F1, 1);
    });
    script_.Do([this] { Press(ui::kIdCancel); });
    EXPECT_FALSE(Run(kTotalsByCustomer));
    EXPECT_TRUE(IsWindow(HelpWindow()));
    DestroyWindow(HelpWindow());
}

}  // namespace tessel::testing
