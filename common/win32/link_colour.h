// The colour of links: the user's, where it can be read on the background.
#pragma once

#include <windows.h>

namespace tessel::win32 {

/// The system's colour of links; a plain blue where that one hardly differs from the background, as in some
/// themes, and the text's own colour where not even that can be read. In high contrast always the system's.
[[nodiscard]] COLORREF LinkColour(COLORREF background, COLORREF text);

}  // namespace tessel::win32
