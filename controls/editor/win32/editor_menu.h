// The editor's context menu: the standard commands of a text box and the editor's own, in Spanish.
#pragma once

#include <windows.h>

#include <optional>

#include "controls/editor/win32/editor_commands.h"
#include "controls/editor/win32/scintilla_calls.h"

namespace tessel::controls {

/// Shows the menu and carries out what was chosen; a command of the editor's own is returned for its owner to
/// carry out. `screen` {-1, -1} means "asked for by the keyboard": the menu then opens at the caret.
std::optional<EditorCommand> ShowEditorMenu(HWND hwnd, const ScintillaCalls& editor, POINT screen);

}  // namespace tessel::controls
