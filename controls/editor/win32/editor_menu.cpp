#include "controls/editor/win32/editor_menu.h"

#include "common/win32/handles.h"

namespace tessel::controls {

namespace {

bool IsAlways(const ScintillaCalls&) {
    return true;
}
bool IsWritable(const ScintillaCalls& editor) {
    return !editor.Send(SCI_GETREADONLY);
}
bool HasSelection(const ScintillaCalls& editor) {
    return !editor.Send(SCI_GETSELECTIONEMPTY);
}
bool CanChangeSelection(const ScintillaCalls& editor) {
    return IsWritable(editor) && HasSelection(editor);
}
bool CanUndo(const ScintillaCalls& editor) {
    return IsWritable(editor) && editor.Send(SCI_CANUNDO);
}
bool CanRedo(const ScintillaCalls& editor) {
    return IsWritable(editor) && editor.Send(SCI_CANREDO);
}
bool HasWritableText(const ScintillaCalls& editor) {
    return IsWritable(editor) && editor.Send(SCI_GETLENGTH) > 0;
}
bool CanPaste(const ScintillaCalls& editor) {
    return editor.Send(SCI_CANPASTE) != 0;
}

struct Command {
    const wchar_t* caption;  ///< nullptr is a separator
    unsigned message;
    bool (*is_enabled)(const ScintillaCalls&);
};

constexpr unsigned IdOf(EditorCommand command) {
    return static_cast<unsigned>(command);
}

constexpr Command kCommands[] = {
    {L"&Deshacer\tCtrl+Z", SCI_UNDO, CanUndo},
    {L"&Rehacer\tCtrl+Y", SCI_REDO, CanRedo},
    {nullptr, 0, IsAlways},
    {L"Cor&tar\tCtrl+X", SCI_CUT, CanChangeSelection},
    {L"&Copiar\tCtrl+C", SCI_COPY, HasSelection},
    {L"&Pegar\tCtrl+V", SCI_PASTE, CanPaste},
    {L"&Eliminar\tSupr", SCI_CLEAR, CanChangeSelection},
    {nullptr, 0, IsAlways},
    {L"&Seleccionar todo\tCtrl+A", SCI_SELECTALL, IsAlways},
    {nullptr, 0, IsAlways},
    {L"Co&mpletar\tCtrl+Espacio", IdOf(EditorCommand::Complete), IsWritable},
    {L"C&omentar o quitar el comentario\tCtrl+K", IdOf(EditorCommand::ToggleComment), HasWritableText},
    {L"Dar &formato\tCtrl+Mayús+F", IdOf(EditorCommand::Format), HasWritableText},
    {L"&Ir al otro paréntesis\tCtrl+E", IdOf(EditorCommand::GoToPartner), IsAlways},
};

POINT CaretOnScreen(HWND hwnd, const ScintillaCalls& editor) {
    const auto position = editor.Send(SCI_GETCURRENTPOS);
    const auto line = static_cast<uptr_t>(editor.Send(SCI_LINEFROMPOSITION, static_cast<uptr_t>(position)));
    RECT client{};
    GetClientRect(hwnd, &client);
    const sptr_t below = editor.Send(SCI_POINTYFROMPOSITION, 0, position) + editor.Send(SCI_TEXTHEIGHT, line);
    POINT point{static_cast<LONG>(editor.Send(SCI_POINTXFROMPOSITION, 0, position)),
                static_cast<LONG>(below)};
    if (!PtInRect(&client, point)) point = {0, 0};
    ClientToScreen(hwnd, &point);
    return point;
}

}  // namespace

std::optional<EditorCommand> ShowEditorMenu(HWND hwnd, const ScintillaCalls& editor, POINT screen) {
    const win32::UniqueMenu menu(CreatePopupMenu());
    if (!menu) return std::nullopt;
    for (const Command& command : kCommands) {
        UINT flags = command.caption ? MF_STRING : MF_SEPARATOR;
        if (!command.is_enabled(editor)) flags |= MF_GRAYED;
        AppendMenuW(menu.get(), flags, command.message, command.caption);
    }
    if (screen.x == -1 && screen.y == -1) screen = CaretOnScreen(hwnd, editor);
    const BOOL chosen = TrackPopupMenu(menu.get(), TPM_RETURNCMD | TPM_NONOTIFY | TPM_RIGHTBUTTON, screen.x,
                                       screen.y, 0, hwnd, nullptr);
    if (!chosen || !IsWindow(hwnd)) return std::nullopt;
    const auto id = static_cast<unsigned>(chosen);
    if (id < SCI_START) return static_cast<EditorCommand>(id);
    editor.Send(id);
    return std::nullopt;
}

}  // namespace tessel::controls
