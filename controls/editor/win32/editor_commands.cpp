#include "controls/editor/win32/editor_commands.h"

#include <algorithm>
#include <string>

#include "controls/editor/editor_text.h"
#include "controls/editor/line_comments.h"

namespace tessel::controls {

std::optional<EditorCommand> CommandOfKey(WPARAM key, bool control, bool shift, bool alt) {
    // With Alt as well it is AltGr, which types.
    if (!control || alt) return std::nullopt;
    switch (key) {
        case VK_SPACE:
            return shift ? std::nullopt : std::optional(EditorCommand::Complete);
        case 'K':
            return shift ? std::nullopt : std::optional(EditorCommand::ToggleComment);
        case 'F':
            return shift ? std::optional(EditorCommand::Format) : std::nullopt;
        case 'E':
            return shift ? EditorCommand::SelectToPartner : EditorCommand::GoToPartner;
        default:
            return std::nullopt;
    }
}

void ToggleCommentOfLines(const ScintillaCalls& editor) {
    if (editor.Send(SCI_GETREADONLY)) return;
    const auto line_of = [&editor](sptr_t position) {
        return editor.Send(SCI_LINEFROMPOSITION, static_cast<uptr_t>(position));
    };
    const auto start_of = [&editor](sptr_t line) {
        return editor.Send(SCI_POSITIONFROMLINE, static_cast<uptr_t>(line));
    };
    const sptr_t selection_begin = editor.Send(SCI_GETSELECTIONSTART);
    const sptr_t selection_end = editor.Send(SCI_GETSELECTIONEND);
    const bool has_selection = selection_begin != selection_end;
    const sptr_t first = line_of(selection_begin);
    sptr_t last = line_of(selection_end);
    // A selection of whole lines ends at the start of the next one, which is not meant.
    if (last > first && selection_end == start_of(last)) --last;
    const sptr_t begin = start_of(first);
    const sptr_t end = editor.Send(SCI_GETLINEENDPOSITION, static_cast<uptr_t>(last));
    const std::string before(editor.Bytes(begin, end));
    const std::string after = ToEditorBytes(ToggleLineComments(FromEditorBytes(before)));
    if (after == before) return;
    editor.Send(SCI_BEGINUNDOACTION);
    editor.Send(SCI_SETTARGETRANGE, static_cast<uptr_t>(begin), end);
    editor.Send(SCI_REPLACETARGET, after.size(), after.data());
    const sptr_t new_end = begin + static_cast<sptr_t>(after.size());
    if (has_selection) {
        editor.Send(SCI_SETSEL, static_cast<uptr_t>(begin), new_end);
    } else {
        const sptr_t caret = std::max(begin, new_end - (end - selection_begin));
        editor.Send(SCI_SETEMPTYSELECTION, static_cast<uptr_t>(caret));
    }
    editor.Send(SCI_ENDUNDOACTION);
    editor.Send(SCI_CHOOSECARETX);
}

}  // namespace tessel::controls
