// Visits an open designer window of another program as a person would, with real mouse and keyboard input.
// One stage a run, so that a script can take a picture between two stages.
//
//   visit wait                  waits until the designer is shown and prints "left top width height"
//   visit click ID              clicks the control with that identifier
//   visit keys NAME...          presses keys: TAB ENTER ESC DOWN UP LEFT RIGHT SPACE F2 F6 DEL HOME CTRL+TAB
//   CTRL+END visit type TEXT             types a text visit finish STAGE...       does a click or keys stage
//   that closes the designer, and waits until it is closed
//
// Ends with status 0, or 1 and a line on the error output when the designer did not do what was waited for.
#include <windows.h>

#include <cstdio>
#include <cwchar>
#include <functional>
#include <map>
#include <string>

#include "hostkit/drive/input.h"

namespace {

using namespace tessel::testing;

constexpr DWORD kPatienceMilliseconds = 240000;
constexpr DWORD kPauseMilliseconds = 20;
constexpr wchar_t kDesignerClass[] = L"TesselDlgDsn";

bool WaitFor(const std::function<bool()>& condition) {
    for (DWORD waited = 0; waited < kPatienceMilliseconds; waited += kPauseMilliseconds) {
        if (condition()) return true;
        Sleep(kPauseMilliseconds);
    }
    return false;
}

HWND Designer() {
    const HWND window = FindWindowW(kDesignerClass, nullptr);
    return window && IsWindowVisible(window) ? window : nullptr;
}

/// Waits until the designer has handled what was sent to it so far.
void LetItWork() {
    Sleep(kPauseMilliseconds);
    if (const HWND window = Designer()) {
        DWORD_PTR result = 0;
        SendMessageTimeoutW(window, WM_NULL, 0, 0, SMTO_NORMAL, kPatienceMilliseconds, &result);
    }
    Sleep(10 * kPauseMilliseconds);
}

int Fail(const char* what) {
    std::fprintf(stderr, "visit: %s\n", what);
    return 1;
}

bool Press(const std::wstring& name) {
    static const std::map<std::wstring, WORD> kKeys = {
        {L"TAB", VK_TAB},    {L"ENTER", VK_RETURN}, {L"ESC", VK_ESCAPE},  {L"DOWN", VK_DOWN}, {L"UP", VK_UP},
        {L"LEFT", VK_LEFT},  {L"RIGHT", VK_RIGHT},  {L"SPACE", VK_SPACE}, {L"F2", VK_F2},     {L"F6", VK_F6},
        {L"DEL", VK_DELETE}, {L"HOME", VK_HOME},    {L"END", VK_END}};
    std::wstring key = name;
    bool control = false;
    if (key.rfind(L"CTRL+", 0) == 0) {
        control = true;
        key.erase(0, 5);
    }
    const auto found = kKeys.find(key);
    if (found == kKeys.end()) return false;
    PressKey(found->second, false, control);
    LetItWork();
    return true;
}

int Carry(HWND window, int count, wchar_t** arguments) {
    const std::wstring stage = count > 1 ? arguments[1] : L"";
    if (stage == L"finish") {
        const int status = Carry(window, count - 1, arguments + 1);
        if (status != 0) return status;
        // The host may open the next one at once, so it is this very window that must go.
        return WaitFor([=] { return !IsWindow(window); }) ? 0 : Fail("the designer is still open");
    }
    if (stage == L"wait") {
        LetItWork();
        RECT frame{};
        GetWindowRect(window, &frame);
        std::printf("%ld %ld %ld %ld\n", frame.left, frame.top, frame.right - frame.left,
                    frame.bottom - frame.top);
        return 0;
    }
    if (stage == L"click" && count == 3) {
        const HWND control = Descendant(window, static_cast<int>(std::wcstol(arguments[2], nullptr, 10)));
        if (!control) return Fail("no control has that identifier");
        MouseClick(MiddleOf(control));
        LetItWork();
        return 0;
    }
    if (stage == L"keys") {
        for (int i = 2; i < count; ++i)
            if (!Press(arguments[i])) return Fail("unknown key");
        return 0;
    }
    if (stage == L"type" && count == 3) {
        TypeText(arguments[2]);
        LetItWork();
        return 0;
    }
    return Fail("unknown stage");
}

}  // namespace

int wmain(int count, wchar_t** arguments) {
    if (count < 2) return Fail("a stage is missing: wait, click, keys, type, finish");
    if (!WaitFor([] { return Designer() != nullptr; })) return Fail("no designer was opened");
    return Carry(Designer(), count, arguments);
}
