// Base of the designer's own dialogs: a resizable window over the designer, with the user's font, closed by
// Esc, by its close button and by its title bar; F1 opens its help topic. Derived classes create controls,
// lay them out and answer notifications.
#pragma once

#include <windows.h>

#include <string_view>

#include "common/win32/handles.h"
#include "common/win32/window.h"
#include "ui/window_place.h"

namespace tessel::ui {

class ModalDialog : public win32::Window {
public:
    /// Shows the dialog over `owner` and returns when it is closed. Sizes are outer sizes in dips. False when
    /// the window could not be created.
    bool Run(HWND owner, const wchar_t* title, SIZE size, SIZE minimum);

protected:
    ModalDialog() = default;

    /// Creates the controls. False gives up.
    virtual bool OnCreateControls() = 0;
    /// The client area has this size, in pixels.
    virtual void OnLayout(SIZE client) = 0;
    /// A control with that identifier reports `notification`; Esc arrives as IDCANCEL, Enter as
    /// DefaultButton().
    virtual void OnCommand(int id, int notification) = 0;
    virtual LRESULT OnNotify(NMHDR* header);
    /// Sees every message before the dialog's keyboard handling; true swallows it.
    virtual bool OnPreTranslate(const MSG&) { return false; }
    /// The control that gets the focus first.
    virtual HWND FirstFocus() const = 0;
    virtual int DefaultButton() const { return IDCANCEL; }
    /// The dialog and its font have another scale than `before`, in dots per inch; what is measured once must
    /// be measured anew. A layout follows.
    virtual void OnScaled(int before) { static_cast<void>(before); }
    /// The help topic that F1 opens.
    virtual long HelpTopic() const = 0;

    void Close();
    /// Lays the controls out anew, after one appeared or went.
    void Layout();
    int Px(int dips) const;
    int Dpi() const { return dpi_; }
    HFONT Font() const { return font_.get(); }
    /// A push button with the dialog's font.
    HWND AddButton(const wchar_t* caption, int id, bool is_default);
    /// The usual size of a button in pixels, wide enough for the caption.
    SIZE ButtonSize(HWND button) const;

    LRESULT OnMessage(UINT message, WPARAM wparam, LPARAM lparam) override;

private:
    bool IsHelpKey(const MSG& message);
    LRESULT OnStateMessage(UINT message, WPARAM wparam, LPARAM lparam);
    void OnActivated(bool active);
    void ApplyScale();
    void Place(HWND owner, SIZE size);
    void MoveTo(const Area& place);

    win32::UniqueFont font_;
    SIZE minimum_{};
    HWND focus_to_restore_ = nullptr;
    int dpi_ = 96;
    bool created_ = false;
    bool closed_ = false;
};

}  // namespace tessel::ui
