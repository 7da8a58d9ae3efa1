#include "common/win32/tips.h"

#include <commctrl.h>

namespace tessel::win32 {

void RelayMouse(HWND tips, const MSG& message) {
    if (!tips || message.message < WM_MOUSEFIRST || message.message > WM_MOUSELAST) return;
    MSG relayed = message;
    SendMessageW(tips, TTM_RELAYEVENT, 0, reinterpret_cast<LPARAM>(&relayed));
}

}  // namespace tessel::win32
