// The mouse for tooltip windows. One that looks at its controls' messages by itself (TTF_SUBCLASS) looks up
// window properties at every message that such a control gets, which makes lists and buttons slow where that
// means to ask another process. Whoever runs the message loop hands it the mouse's messages instead.
#pragma once

#include <windows.h>

namespace tessel::win32 {

/// To be called with every message of the loop; what is not of the mouse is passed over. `tips` may be
/// nullptr.
void RelayMouse(HWND tips, const MSG& message);

}  // namespace tessel::win32
