// Looks at an open window as someone would who asks whether everything can be read and reached: no text cut,
// no control over another, none outside its parent, none without room.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace tessel::testing {

/// What is wrong with the window's visible controls, a line each; empty when nothing is. Texts are measured
/// with the control's own font. `dpi` is the scale that the window is laid out for.
std::vector<std::string> LayoutFaults(HWND window, int dpi);

}  // namespace tessel::testing
