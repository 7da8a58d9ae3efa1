// The pointer shapes of the system. They are the same for as long as the program runs, and asking for one may
// mean to ask another process, so that each is asked for once.
#pragma once

#include <windows.h>

namespace tessel::win32 {

/// One of IDC_…; the system owns it.
HCURSOR SystemCursor(LPCWSTR id);

}  // namespace tessel::win32
