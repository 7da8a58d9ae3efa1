// Puts a colouring definition on the editing component: fonts and colours of the styles, the margin, and the
// styles of a stretch of text. No state of its own beyond what the component keeps with its lines.
#pragma once

#include <windows.h>

#include <string>

#include "controls/editor/sql_ini.h"
#include "controls/editor/win32/scintilla_calls.h"

namespace tessel::controls {

/// The definition in the file, or the built-in one when it cannot be read.
ColouringDefinition LoadColouring(const std::wstring& ini_path);

/// Sets fonts and colours. `scale_percent` enlarges the fonts beyond what the component does for its window's
/// dpi.
void ApplyLooks(const ScintillaCalls& editor, const ColouringDefinition& definition, int scale_percent);

/// Makes the number margin as wide as the last line's number, at least two digits.
void FitNumberMargin(const ScintillaCalls& editor, int dpi);

/// Colours from the start of the line that holds the first uncoloured byte up to the line that holds `end`.
void ColourUpTo(const ScintillaCalls& editor, const SqlWords& words, sptr_t end);

}  // namespace tessel::controls
