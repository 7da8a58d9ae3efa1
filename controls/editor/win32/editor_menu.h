// The editor's context menu: the standard commands of a text box, in Spanish.
#pragma once

#include <windows.h>

#include "controls/editor/win32/scintilla_calls.h"

namespace tessel::controls {

/// Shows the menu and carries out what was chosen. `screen` {-1, -1} means "asked for by the keyboard": the
/// menu then opens at the caret.
void ShowEditorMenu(HWND hwnd, const ScintillaCalls& editor, POINT screen);

}  // namespace tessel::controls
