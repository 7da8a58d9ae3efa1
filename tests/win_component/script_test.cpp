// The component from script hosts: regsvr32, then VBScript and JScript through cscript. A script says what
// was wrong and ends with 42 when nothing was; an uncaught error would end with 0 and say nothing.
#include <gtest/gtest.h>

#include "tests/win_component/component_library.h"

namespace tessel {
namespace {

constexpr DWORD kScriptPassed = 42;

constexpr DWORD kNotStarted = static_cast<DWORD>(-1);

DWORD RunOnce(std::wstring command_line) {
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION process{};
    if (!CreateProcessW(nullptr, command_line.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &startup,
                        &process))
        return kNotStarted;
    WaitForSingleObject(process.hProcess, INFINITE);
    DWORD code = 0;
    GetExitCodeProcess(process.hProcess, &code);
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    return code;
}

/// The program's exit code. A start that fails is tried again: under Wine one was seen to fail while other
/// tests ran.
DWORD RunProgram(const std::wstring& command_line) {
    constexpr int kTries = 5;
    constexpr DWORD kPause_ms = 300;
    DWORD code = RunOnce(command_line);
    for (int tries = 1; tries < kTries && code == kNotStarted; ++tries) {
        Sleep(kPause_ms);
        code = RunOnce(command_line);
    }
    return code;
}

bool IsRegistered() {
    HKEY key = nullptr;
    if (RegOpenKeyExW(HKEY_LOCAL_MACHINE, L"Software\\Classes\\Tessel.Quillon", 0, KEY_READ, &key) !=
        ERROR_SUCCESS)
        return false;
    RegCloseKey(key);
    return true;
}

class Scripts : public testing::Test {
protected:
    void SetUp() override {
        was_registered_ = IsRegistered();
        ASSERT_EQ(RunProgram(L"regsvr32 /s \"" + tests::ComponentPath() + L"\""), 0u);
        ASSERT_TRUE(IsRegistered());
    }
    void TearDown() override {
        if (was_registered_) return;
        EXPECT_EQ(RunProgram(L"regsvr32 /s /u \"" + tests::ComponentPath() + L"\""), 0u);
        EXPECT_FALSE(IsRegistered());
    }

    static DWORD RunScript(const wchar_t* name) {
        const std::wstring folder =
            tests::EnvironmentPath("TESSEL_SOURCE_DIR") + L"\\tests\\win_component\\scripts\\";
        return RunProgram(L"cscript //nologo \"" + folder + name + L"\"");
    }

private:
    bool was_registered_ = false;
};

TEST_F(Scripts, VBScriptPassesArgumentsInEveryForm) {
    EXPECT_EQ(RunScript(L"late_binding.vbs"), kScriptPassed);
}

TEST_F(Scripts, VBScriptWorksWithParameters) {
    EXPECT_EQ(RunScript(L"parameters.vbs"), kScriptPassed);
}

TEST_F(Scripts, JScriptWorksWithBothClasses) {
    EXPECT_EQ(RunScript(L"late_binding.js"), kScriptPassed);
}

TEST_F(Scripts, VBScriptBringsCollectionsInEveryShape) {
    EXPECT_EQ(RunScript(L"collections.vbs"), kScriptPassed);
}

TEST_F(Scripts, JScriptBringsCollectionsInEveryShape) {
    EXPECT_EQ(RunScript(L"collections.js"), kScriptPassed);
}

TEST_F(Scripts, Regsvr32RegistersForTheUserAlone) {
    EXPECT_EQ(RunProgram(L"regsvr32 /s /n /i:user \"" + tests::ComponentPath() + L"\""), 0u);
    HKEY key = nullptr;
    EXPECT_EQ(RegOpenKeyExW(HKEY_CURRENT_USER, L"Software\\Classes\\Tessel.Quillon", 0, KEY_READ, &key),
              ERROR_SUCCESS);
    RegCloseKey(key);
    EXPECT_EQ(RunProgram(L"regsvr32 /s /u /n /i:user \"" + tests::ComponentPath() + L"\""), 0u);
    EXPECT_NE(RegOpenKeyExW(HKEY_CURRENT_USER, L"Software\\Classes\\Tessel.Quillon", 0, KEY_READ, &key),
              ERROR_SUCCESS);
}

}  // namespace
}  // namespace tessel
