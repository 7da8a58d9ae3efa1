// Shows which parenthesis belongs to the one beside the caret, or that it has none, and goes there. Names in
// brackets count on one line only.
#pragma once

#include "controls/editor/sql_colouring.h"
#include "controls/editor/win32/scintilla_calls.h"

namespace tessel::controls {

/// Marks the pair beside the caret, or takes the marks away.
void ShowBraces(const ScintillaCalls& editor, const SqlWords& words);

/// Moves the caret to the other parenthesis of the pair beside it, or selects the pair with what is between.
void GoToPartner(const ScintillaCalls& editor, const SqlWords& words, bool select);

}  // namespace tessel::controls
