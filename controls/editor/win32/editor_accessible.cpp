#include "controls/editor/win32/editor_accessible.h"

#include <algorithm>

#include "controls/editor/editor_text.h"
#include "controls/editor/win32/scintilla_calls.h"

namespace tessel::controls {

namespace {

constexpr std::size_t kMostBytes = 64 * 1024;

/// Where a character begins, at or before that byte.
std::size_t CharacterStart(std::string_view bytes, std::size_t at) {
    while (at > 0 && (static_cast<unsigned char>(bytes[at]) & 0xC0) == 0x80) --at;
    return at;
}

}  // namespace

EditorAccessible::~EditorAccessible() {
    if (editor_) win32::Unsubclass(editor_, Procedure);
}

bool EditorAccessible::Attach(HWND editor, std::wstring name) {
    if (!win32::Subclass(editor, Procedure, this)) return false;
    editor_ = editor;
    name_ = std::move(name);
    return true;
}

AccessibleElement EditorAccessible::Describe(AccessibleId) const {
    AccessibleElement element;
    element.name = name_;
    element.role = AccessibleRole::Text;
    element.states = accessible_state::kFocusable;
    if (editor_ && ScintillaCalls(editor_).Send(SCI_GETREADONLY))
        element.states |= accessible_state::kReadOnly;
    return element;
}

std::wstring EditorAccessible::ValueOf(AccessibleId) const {
    if (!editor_) return {};
    const ScintillaCalls editor(editor_);
    std::string_view bytes = editor.Bytes();
    if (bytes.size() > kMostBytes) bytes = bytes.substr(0, CharacterStart(bytes, kMostBytes));
    return FromEditorBytes(bytes);
}

LRESULT EditorAccessible::Procedure(HWND hwnd, UINT message, WPARAM wparam, LPARAM lparam, void* data,
                                    const win32::SubclassChain& next) {
    auto* self = static_cast<EditorAccessible*>(data);
    try {
        if (LRESULT result = 0; self->accessible_.OnMessage(hwnd, message, wparam, lparam, result))
            return result;
    } catch (...) {
        // Exhausted memory: the program that asks gets the system's own description.
    }
    if (message == WM_NCDESTROY) self->editor_ = nullptr;
    const LRESULT result = next(hwnd, message, wparam, lparam);
    if (message == WM_SETFOCUS) self->accessible_.ReportFocus();
    return result;
}

}  // namespace tessel::controls
