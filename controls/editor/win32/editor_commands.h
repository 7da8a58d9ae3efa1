// The editor's own commands beyond those of a text box: their keys, and those that work on lines.
#pragma once

#include <optional>

#include "controls/editor/win32/scintilla_calls.h"

namespace tessel::controls {

/// Smaller than any message of the component, with which they share the context menu.
enum class EditorCommand : unsigned {
    Complete = 100,   ///< Ctrl+Espacio
    ToggleComment,    ///< Ctrl+K
    Format,           ///< Ctrl+Mayús+F
    GoToPartner,      ///< Ctrl+E
    SelectToPartner,  ///< Ctrl+Mayús+E
};

/// The command of a key with what is held beside it.
[[nodiscard]] std::optional<EditorCommand> CommandOfKey(WPARAM key, bool control, bool shift, bool alt);

/// Comments the lines of the selection out or in, as one undoable step.
void ToggleCommentOfLines(const ScintillaCalls& editor);

}  // namespace tessel::controls
