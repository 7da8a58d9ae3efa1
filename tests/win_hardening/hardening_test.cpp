// A program compiled as the product is ends at once, with the system's own status, where it overruns an
// array.
#include <windows.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <string>

namespace {

constexpr DWORD kStackBufferOverrun = 0xC0000409;
constexpr DWORD kCameThrough = 3;

std::wstring ProgramPath() {
    const char* folder = std::getenv("TESSEL_BINARY_DIR");
    const std::string path = std::string(folder ? folder : ".") + "/bin/overrun.exe";
    std::wstring wide(path.begin(), path.end());
    return wide[0] == L'/' ? L"Z:" + wide : wide;
}

DWORD StatusOf(const wchar_t* argument) {
    std::wstring line = L"\"" + ProgramPath() + L"\" " + argument;
    STARTUPINFOW start{};
    start.cb = sizeof start;
    PROCESS_INFORMATION process{};
    if (!CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start, &process))
        return 0;
    WaitForSingleObject(process.hProcess, INFINITE);
    DWORD status = 0;
    GetExitCodeProcess(process.hProcess, &status);
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    return status;
}

TEST(Hardening, AProgramThatBehavesComesThrough) {
    EXPECT_EQ(StatusOf(L""), kCameThrough);
}

TEST(Hardening, AnOverrunStackEndsTheProgram) {
    EXPECT_EQ(StatusOf(L"stack"), kStackBufferOverrun);
}

TEST(Hardening, ACopyBeyondAnArrayEndsTheProgram) {
    EXPECT_EQ(StatusOf(L"copy"), kStackBufferOverrun);
}

}  // namespace
