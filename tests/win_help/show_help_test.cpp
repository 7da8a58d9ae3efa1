// Where ShowHelp looks for the help file, what it says when there is none, and what it asks of HTML Help.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "common/win32/module.h"
#include "hostkit/drive/input.h"
#include "hostkit/drive/script.h"
#include "ui/help_contexts.h"
#include "ui/win32/show_help.h"

namespace tessel::testing {

namespace {

struct Call {
    HWND owner;
    std::string file;
    UINT command;
    DWORD_PTR data;
};

/// A system whose files are a list, and which notes what it is asked for.
class FakeHelp : public ::testing::Test {
protected:
    FakeHelp() {
        platform_.component_folder = L"C:\\Componente\\";
        platform_.shared_folder = L"C:\\Comunes\\Tessel\\";
        platform_.file_exists = [this](const std::wstring& path) {
            looked_for_.push_back(path);
            return std::find(files_.begin(), files_.end(), path) != files_.end();
        };
        platform_.html_help = [this](HWND owner, const char* file, UINT command, DWORD_PTR data) {
            calls_.push_back({owner, file, command, data});
        };
        platform_.show_error = [this](HWND, const wchar_t* text) { errors_.push_back(text); };
    }

    void Show(long context_id, HWND owner = nullptr) { ui::ShowHelp(owner, context_id, platform_); }

    ui::HelpPlatform platform_;
    std::vector<std::wstring> files_;
    std::vector<std::wstring> looked_for_;
    std::vector<Call> calls_;
    std::vector<std::wstring> errors_;
};

using ShowHelp = FakeHelp;

constexpr wchar_t kInComponent[] = L"C:\\Componente\\tesseldsn.chm";
constexpr wchar_t kInShared[] = L"C:\\Comunes\\Tessel\\tesseldsn.chm";

}  // namespace

TEST_F(ShowHelp, FileInTheComponentsFolderIsUsedAndTheOtherFolderIsNotLookedAt) {
    files_ = {kInComponent, kInShared};
    Show(0);
    ASSERT_EQ(calls_.size(), 1u);
    EXPECT_EQ(calls_[0].file, "C:\\Componente\\tesseldsn.chm");
    EXPECT_EQ(looked_for_, std::vector<std::wstring>{kInComponent});
    EXPECT_TRUE(errors_.empty());
}

TEST_F(ShowHelp, FileOnlyInTheSecondFolderOpensFromThereWithoutAnyMessage) {
    files_ = {kInShared};
    Show(0);
    ASSERT_EQ(calls_.size(), 1u);
    EXPECT_EQ(calls_[0].file, "C:\\Comunes\\Tessel\\tesseldsn.chm");
    EXPECT_EQ(looked_for_, (std::vector<std::wstring>{kInComponent, kInShared}));
    EXPECT_TRUE(errors_.empty());
}

TEST_F(ShowHelp, FileInNeitherFolderIsSaidAndNothingElseHappens) {
    Show(300);
    EXPECT_EQ(errors_, std::vector<std::wstring>{L"No se encontró el archivo de ayuda"});
    EXPECT_TRUE(calls_.empty());
}

TEST_F(ShowHelp, SeparatorIsAddedToAFolderWithoutOne) {
    platform_.component_folder = L"C:\\Componente";
    platform_.shared_folder = L"C:\\Comunes\\Tessel";
    files_ = {kInShared};
    Show(0);
    EXPECT_EQ(looked_for_, (std::vector<std::wstring>{kInComponent, kInShared}));
    EXPECT_EQ(calls_.size(), 1u);
}

TEST_F(ShowHelp, UnknownFolderIsPassedOver) {
    platform_.component_folder.clear();
    files_ = {L"tesseldsn.chm", L"\\tesseldsn.chm", kInShared};
    Show(0);
    EXPECT_EQ(looked_for_, std::vector<std::wstring>{kInShared});
}

TEST_F(ShowHelp, ContextBelowOneOpensTheIndexNeverATopic) {
    files_ = {kInComponent};
    for (const long context : {0L, -1L, -300L}) Show(context);
    ASSERT_EQ(calls_.size(), 3u);
    for (const Call& call : calls_) {
        EXPECT_EQ(call.command, 2u);
        EXPECT_EQ(call.data, 0u);
    }
}

TEST_F(ShowHelp, ContextFromOneOnOpensThatTopic) {
    files_ = {kInComponent};
    for (const long context : {1L, ui::help::kRowOr, 2147483647L}) Show(context);
    ASSERT_EQ(calls_.size(), 3u);
    for (const Call& call : calls_) EXPECT_EQ(call.command, 15u);
    EXPECT_EQ(calls_[0].data, 1u);
    EXPECT_EQ(calls_[1].data, 208u);
    EXPECT_EQ(calls_[2].data, 2147483647u);
}

TEST_F(ShowHelp, OwnerIsHandedOn) {
    files_ = {kInComponent};
    const HWND owner = GetDesktopWindow();
    Show(0, owner);
    Show(0);
    ASSERT_EQ(calls_.size(), 2u);
    EXPECT_EQ(calls_[0].owner, owner);
    EXPECT_EQ(calls_[1].owner, nullptr);
}

TEST_F(ShowHelp, FileNameIsConvertedToTheAnsiCodePage) {
    platform_.component_folder = L"C:\\Añadidos\\";
    files_ = {L"C:\\Añadidos\\tesseldsn.chm"};
    Show(0);
    ASSERT_EQ(calls_.size(), 1u);
    wchar_t back[MAX_PATH] = L"";
    MultiByteToWideChar(CP_ACP, 0, calls_[0].file.c_str(), -1, back, MAX_PATH);
    EXPECT_STREQ(back, L"C:\\Añadidos\\tesseldsn.chm");
}

TEST(HelpPlatform, LooksInTheModulesFolderAndInTheCommonProgramFiles) {
    const ui::HelpPlatform platform = ui::WindowsHelp();
    EXPECT_EQ(platform.component_folder, win32::ModuleFolder());
    wchar_t common[MAX_PATH] = L"";
    ASSERT_NE(GetEnvironmentVariableW(L"CommonProgramFiles", common, MAX_PATH), 0u);
    EXPECT_EQ(platform.shared_folder, std::wstring(common) + L"\\Tessel\\");
}

TEST(HelpPlatform, FileExistsIsTrueForAFileOnly) {
    const ui::HelpPlatform platform = ui::WindowsHelp();
    wchar_t program[MAX_PATH] = L"";
    ASSERT_NE(GetModuleFileNameW(nullptr, program, MAX_PATH), 0u);
    EXPECT_TRUE(platform.file_exists(program));
    EXPECT_FALSE(platform.file_exists(win32::ModuleFolder()));
    EXPECT_FALSE(platform.file_exists(std::wstring(program) + L".no"));
}

TEST(HelpPlatform, ViewerThatCannotOpenTheFileIsIgnored) {
    const ui::HelpPlatform platform = ui::WindowsHelp();
    platform.html_help(nullptr, "C:\\no\\hay\\ayuda.chm", ui::kHelpContext, 15);
    SUCCEED();
}

TEST(HelpPlatform, MissingFileIsSaidWithTheCriticalStopIconAndOneButton) {
    Script script;
    std::wstring text;
    LONG_PTR icon_style = 0;
    bool has_ok = false;
    bool has_second_button = false;
    script.Until([] { return OpenMessageBox() != nullptr; }, "message box");
    script.Do([&] {
        const HWND box = OpenMessageBox();
        text = MessageBoxText(box);
        has_ok = GetDlgItem(box, IDOK) != nullptr;
        has_second_button = GetDlgItem(box, IDCANCEL) != nullptr &&
                            GetDlgItem(box, IDOK) != GetDlgItem(box, IDCANCEL) &&
                            IsWindowVisible(GetDlgItem(box, IDCANCEL));
        for (HWND child = GetWindow(box, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT))
            if (reinterpret_cast<HICON>(SendMessageW(child, STM_GETICON, 0, 0)) ==
                LoadIconW(nullptr, IDI_ERROR))
                icon_style = GetWindowLongPtrW(child, GWL_STYLE);
        PostMessageW(box, WM_COMMAND, IDOK, 0);
    });
    script.Start();
    ui::WindowsHelp().show_error(nullptr, ui::kNoHelpFile);
    ASSERT_TRUE(script.Finished()) << script.Trouble();
    EXPECT_EQ(text, L"No se encontró el archivo de ayuda");
    EXPECT_TRUE(has_ok);
    EXPECT_FALSE(has_second_button);
    EXPECT_TRUE(icon_style & SS_ICON);
}

}  // namespace tessel::testing
