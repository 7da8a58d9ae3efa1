#include "component/pointer.h"

namespace tessel::component {

void ProcessPendingMessages() {
    // A window that posts to itself for ever must not keep us here for ever.
    constexpr int kAtMost = 1000;
    MSG message;
    for (int i = 0; i < kAtMost && PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE); ++i) {
        if (message.message == WM_QUIT) {
            PostQuitMessage(static_cast<int>(message.wParam));
            return;
        }
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

}  // namespace tessel::component
