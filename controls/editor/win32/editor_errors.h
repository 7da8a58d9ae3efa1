// Marks under places of the text: a wave under errors, dots under what is right but has something to be said
// about. The component keeps them with the characters, so they move with every edit and go with what is
// deleted; neither text, caret, selection nor undo know of them. The pointer resting on one shows its tip.
// Which places there are is decided elsewhere.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "common/diagnostic.h"
#include "controls/editor/win32/scintilla_calls.h"

namespace tessel::controls {

struct EditorMark {
    TextRange range;
    bool is_error = true;
    std::wstring tip;  ///< lines separated by LF
};

class EditorErrors {
public:
    /// Puts the looks of marks and tips on the component; again after a change of styles, colours or dpi.
    /// `scale_percent` enlarges the tip's font beyond what the component does for its window's dpi.
    void ApplyLooks(const ScintillaCalls& editor, int dpi, int scale_percent);
    /// Replaces all marks.
    void Show(const ScintillaCalls& editor, std::vector<EditorMark> marks);
    /// Takes a notification of the component. True when it was about a tip.
    bool HandleNotify(const ScintillaCalls& editor, const SCNotification& notification);

private:
    std::vector<EditorMark> marks_;
};

}  // namespace tessel::controls
