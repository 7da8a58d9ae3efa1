// The bar over the SQL editor that finds and replaces: FindBar with two options, a second row for replacing
// and a note that tells how it went. How texts are compared is text_search.h's business.
//
// Its keys are looked at by the window before the dialog's (OnKey), and only while the keyboard is in the
// editor or in the bar, so that other panes keep theirs.
#pragma once

#include <windows.h>

#include <functional>
#include <string>

#include "common/win32/window.h"
#include "controls/editor/text_search.h"
#include "controls/editor/win32/sql_editor.h"
#include "ui/win32/find_bar.h"

namespace tessel::ui {

class FindReplaceBar final : public win32::Window {
public:
    enum ControlId : int {
        kIdMatchCase = 314,
        kIdWholeWord = 315,
        kIdNote = 316,
        kIdClose = 317,
        kIdReplaceLabel = 318,
        kIdReplaceText = 319,
        kIdReplaceOne = 320,
        kIdReplaceAll = 321,
    };

    /// Created hidden and empty; its controls come when it is first opened. `on_shape` runs when it is shown,
    /// hidden or of another height; the editor must outlive the bar.
    bool Create(HWND parent, int id, HFONT font, controls::SqlEditor& editor, std::function<void()> on_shape);
    /// The font is not owned.
    void SetFont(HFONT font);
    bool IsShown() const { return shown_; }
    int Height() const;

    /// Ctrl+F, Ctrl+H, F3, Mayús+F3, and in the bar Enter and Esc. True when the message is done with.
    bool OnKey(const MSG& message);
    /// Shows the bar, with the row for replacing if asked for; text selected in the editor is looked for.
    void Open(bool with_replace);
    /// Hides it and gives the keyboard back to the editor.
    void Close();

private:
    LRESULT OnMessage(UINT message, WPARAM wparam, LPARAM lparam) override;
    bool OnEnter(HWND focus, bool shift);
    void OnCommand(int id, int notification);
    void Find(bool forward);
    void ReplaceOne();
    void ReplaceAll();
    void Reveal();
    void Note(const std::wstring& note);
    void CreateControls();
    void Layout();
    void TakeSelection();
    controls::SearchFor Sought() const;
    HWND Item(int id) const { return GetDlgItem(Handle(), id); }
    SIZE SizeOf(HWND control) const;
    int RowHeight() const;
    int Px(int dips) const;

    controls::SqlEditor* editor_ = nullptr;
    std::function<void()> on_shape_;
    FindBar find_;
    HFONT font_ = nullptr;
    bool has_controls_ = false;
    bool shown_ = false;
    bool with_replace_ = false;
};

}  // namespace tessel::ui
