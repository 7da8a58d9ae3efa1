// A modal loop that leaves the host as it found it.
//
// While it runs, the thread's other top-level windows are disabled. On every way out they get their enabled
// state back, in reverse order, and the window and focus that were active before are active again. A WM_QUIT
// that arrives meanwhile belongs to the host: the loop ends and posts it again.
#pragma once

#include <windows.h>

#include <functional>
#include <vector>

namespace tessel::win32 {

/// Disables the thread's other enabled top-level windows for a scope.
class DisabledPeers {
public:
    explicit DisabledPeers(HWND except);
    ~DisabledPeers();
    DisabledPeers(const DisabledPeers&) = delete;
    DisabledPeers& operator=(const DisabledPeers&) = delete;

    /// Enables them before the modal window goes, so that Windows does not activate another program's window.
    void Enable();

private:
    std::vector<HWND> windows_;
    HWND active_ = nullptr;
    HWND focus_ = nullptr;
};

/// Pumps messages for `hwnd` with dialog keyboard handling until `is_done()` answers true, the window is gone
/// or WM_QUIT comes. `pre_translate` sees every message first and answers true to swallow it; may be empty.
void RunModalLoop(HWND hwnd, const std::function<bool()>& is_done,
                  const std::function<bool(const MSG&)>& pre_translate);

/// Underlines and focus rectangles show from the beginning, not only after the first key.
void ShowKeyboardCues(HWND hwnd);

/// Dispatches the messages that are waiting now, once: sent and posted messages and timers. Keyboard and
/// mouse input stays in the queue, so that no gesture of the user starts a second command inside the first.
/// What has to be painted waits too: it would show a step that nobody is meant to see, and be painted again
/// after it. A WM_QUIT is posted again.
void ProcessPendingMessages();

}  // namespace tessel::win32
