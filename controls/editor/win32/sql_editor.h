// edtSQL: the window of the SQL editor, a wrapper of the Scintilla component. Owns the component's window,
// its options, the line-number margin, the Spanish context menu and the traffic between UTF-16 texts and the
// component's bytes. What is coloured how is decided in sql_colouring.h with the definition that sql_ini.h
// reads; this file only applies it.
//
// The window reports to its parent by WM_NOTIFY, as the component does. Whoever is the parent forwards these
// messages:
//
//   case WM_NOTIFY: if (editor_.HandleNotify(reinterpret_cast<NMHDR*>(lparam))) return 0;
//
// Text comes back exactly as it was set: mixed line ends, NUL characters and lone surrogates included. Tab
// writes a tab; Ctrl+Tab moves the focus on; Esc is the dialog's.
#pragma once

#include <windows.h>

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "common/diagnostic.h"
#include "controls/editor/win32/editor_completion.h"
#include "controls/editor/win32/editor_errors.h"

namespace tessel::controls {

class SqlEditorEvents {
public:
    virtual ~SqlEditorEvents() = default;
    /// The user changed the text (typing, pasting, undo). SetText does not report.
    virtual void OnEditorTextChanged() {}
    /// SetText gave it another text.
    virtual void OnEditorTextSet() {}
    /// "Dar formato" was asked for.
    virtual void OnEditorFormat() {}
};

class SqlEditor {
public:
    SqlEditor();
    ~SqlEditor();
    SqlEditor(const SqlEditor&) = delete;
    SqlEditor& operator=(const SqlEditor&) = delete;

    /// Creates the window without size and reads the colouring definition; a missing file means the built-in
    /// one. `events` may be nullptr and must outlive the editor.
    bool Create(HWND parent, int id, const std::wstring& ini_path, SqlEditorEvents* events);
    HWND Handle() const;

    std::wstring Text() const;
    /// Replaces the whole text as one undoable step, with the caret at the start. The same text again changes
    /// nothing.
    void SetText(std::wstring_view text);
    /// SetText for the text to begin with: in an editor that never held one, undoing ends at it.
    void LoadText(std::wstring_view text);
    /// Texts set between the two are one undoable step together, and none when the text ends as it began.
    /// Meanwhile the user can change nothing.
    void BeginReplacement();
    void EndReplacement();
    /// Writes a text at the caret, over what is selected, as one undoable step that is reported like typing.
    void InsertText(std::wstring_view text);
    /// Replaces the whole text by one that differs in white space only, as one undoable step that is reported
    /// like typing. The caret stays where it was between the same two characters.
    void ReplaceLayout(std::wstring_view text);
    /// Who knows the names of the completion list. Not owned; nullptr for no list.
    void SetCompletionSource(CompletionSource* source);
    /// Colours and paints everything again.
    void Refresh();

    /// Ranges count the units of Text(). A range beyond the text is cut to it.
    void SelectRange(TextRange range);
    TextRange Selection() const;
    /// Selects a range with the caret at its beginning, and shows as much of it as there is room for.
    void ShowPlace(TextRange range);
    /// Puts a text in the place of a range, as one undoable step that is reported like typing.
    void ReplaceRange(TextRange range, std::wstring_view text);

    /// Marks places of the text (editor_errors.h) instead of those marked before.
    void ShowMarks(std::vector<EditorMark> marks);
    /// A list of words is open, which Esc is to close.
    bool IsListOpen() const;

    void SetReadOnly(bool read_only);
    bool CanUndo() const;
    bool CanRedo() const;
    void Undo();
    void Redo();

    /// Fonts and margins for another dpi.
    void OnDpiChanged(int dpi);

    /// Takes a WM_NOTIFY of the parent. True when it was the editor's.
    bool HandleNotify(NMHDR* header);

private:
    class Impl;
    std::unique_ptr<Impl> impl_;
};

/// Registers the component's window classes; SqlEditor::Create does it on first use. False when Windows
/// refuses.
bool RegisterEditorClasses();
/// Unregisters them, with what the component holds. Call before the library may be unloaded, with no editor
/// left.
void ReleaseEditorClasses();

}  // namespace tessel::controls
