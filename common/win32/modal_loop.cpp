#include "common/win32/modal_loop.h"

#include <new>

namespace tessel::win32 {

namespace {

struct PeerSearch {
    HWND except;
    std::vector<HWND>* found;
    bool failed = false;
};

// A plain function, because a lambda has no stdcall form for 32-bit Windows in every compiler.
BOOL CALLBACK AddPeer(HWND hwnd, LPARAM lparam) {
    auto* search = reinterpret_cast<PeerSearch*>(lparam);
    if (hwnd == search->except || !IsWindowVisible(hwnd) || !IsWindowEnabled(hwnd)) return TRUE;
    try {
        search->found->push_back(hwnd);
    } catch (...) {
        search->failed = true;  // no exception may pass through the system that calls us
    }
    return !search->failed;
}

/// Whether the key or click was the window's business. For want of memory it is lost, and the window stays.
bool IsTranslated(const std::function<bool(const MSG&)>& pre_translate, const MSG& message) {
    try {
        return pre_translate && pre_translate(message);
    } catch (...) {
        return true;
    }
}

}  // namespace

DisabledPeers::DisabledPeers(HWND except) : active_(GetActiveWindow()), focus_(GetFocus()) {
    PeerSearch search{except, &windows_};
    EnumThreadWindows(GetCurrentThreadId(), AddPeer, reinterpret_cast<LPARAM>(&search));
    if (search.failed) throw std::bad_alloc();
    for (HWND hwnd : windows_) EnableWindow(hwnd, FALSE);
}

void DisabledPeers::Enable() {
    for (auto it = windows_.rbegin(); it != windows_.rend(); ++it)
        if (IsWindow(*it)) EnableWindow(*it, TRUE);
    windows_.clear();
}

DisabledPeers::~DisabledPeers() {
    Enable();
    if (active_ && IsWindow(active_)) SetActiveWindow(active_);
    if (focus_ && IsWindow(focus_)) SetFocus(focus_);
}

void RunModalLoop(HWND hwnd, const std::function<bool()>& is_done,
                  const std::function<bool(const MSG&)>& pre_translate) {
    MSG message{};
    while (!is_done() && IsWindow(hwnd)) {
        const BOOL got = GetMessageW(&message, nullptr, 0, 0);
        if (got == 0) {
            PostQuitMessage(static_cast<int>(message.wParam));
            return;
        }
        if (got < 0) return;
        if (IsTranslated(pre_translate, message)) continue;
        if (IsDialogMessageW(hwnd, &message)) continue;
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

void ShowKeyboardCues(HWND hwnd) {
    SendMessageW(hwnd, WM_CHANGEUISTATE, MAKEWPARAM(UIS_CLEAR, UISF_HIDEFOCUS | UISF_HIDEACCEL), 0);
}

void ProcessPendingMessages() {
    // A bound keeps a window that posts to itself from holding us for ever.
    constexpr int kMost = 1000;
    constexpr UINT kNoInput = PM_REMOVE | PM_QS_POSTMESSAGE | PM_QS_SENDMESSAGE;
    MSG message{};
    for (int i = 0; i < kMost && PeekMessageW(&message, nullptr, 0, 0, kNoInput); ++i) {
        if (message.message == WM_QUIT) {
            PostQuitMessage(static_cast<int>(message.wParam));
            return;
        }
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

}  // namespace tessel::win32
