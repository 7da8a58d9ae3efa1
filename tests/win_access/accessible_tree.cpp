// Prints the accessible tree of a window on the screen, as an assistive program of another process finds it,
// for a person's eyes:
//
//   accessible_tree [TITLE [CLASS]]   the window of that title, else the designer's; with a class, what is in
//   it
//                                     of that window class
//   accessible_tree --events [TITLE]  what the window tells, until it is closed
//
// Names that only the system's service of names keeps are not there under Wine.
#include <windows.h>

#include <cstdio>
#include <string>

#include "common/text.h"
#include "tests/win_access/accessible_walk.h"
#include "tests/win_access/event_log.h"

namespace {

void PrintLine(const std::wstring& line) {
    std::puts(tessel::ToUtf8(line).c_str());
    std::fflush(stdout);
}

struct Search {
    std::wstring window_class;
    HWND found;
};

BOOL CALLBACK IsOfClass(HWND hwnd, LPARAM lparam) {
    auto* search = reinterpret_cast<Search*>(lparam);
    wchar_t name[64] = L"";
    GetClassNameW(hwnd, name, 64);
    if (search->window_class != name) return TRUE;
    search->found = hwnd;
    return FALSE;
}

/// Prints events as they come, until the window is gone.
void PrintEvents(HWND window) {
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    tessel::testing::EventLog log(process);
    while (IsWindow(window)) {
        constexpr DWORD kPause_ms = 50;
        MsgWaitForMultipleObjects(0, nullptr, FALSE, kPause_ms, QS_ALLINPUT);
        MSG message{};
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageW(&message);
        for (const std::wstring& line : log.Lines()) PrintLine(line);
        log.Clear();
    }
}

}  // namespace

int wmain(int argc, wchar_t** argv) {
    const bool events = argc > 1 && std::wstring(argv[1]) == L"--events";
    const int title_at = events ? 2 : 1;
    const std::wstring title = argc > title_at ? argv[title_at] : L"Diseñador de consultas SQL";
    HWND window = FindWindowW(nullptr, title.c_str());
    if (!window) {
        std::fprintf(stderr, "there is no window called %s\n", tessel::ToUtf8(title).c_str());
        return 1;
    }
    if (argc > title_at + 1) {
        Search search{argv[title_at + 1], nullptr};
        EnumChildWindows(window, IsOfClass, reinterpret_cast<LPARAM>(&search));
        window = search.found;
    }
    CoInitialize(nullptr);
    if (events)
        PrintEvents(window);
    else
        PrintLine(tessel::testing::PrintAccessible(tessel::testing::WalkAccessible(window)));
    CoUninitialize();
    return 0;
}
