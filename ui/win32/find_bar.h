// A strip with a label, an edit and buttons for the next and the previous place. It searches nothing itself:
// its buttons report to the window it was created for, as commands.
#pragma once

#include <windows.h>

#include <functional>
#include <string>

namespace tessel::ui {

class FindBar {
public:
    enum ControlId : int { kIdLabel = 310, kIdText = 311, kIdNext = 312, kIdPrevious = 313 };

    struct Captions {
        const wchar_t* label;
        const wchar_t* next;
        const wchar_t* previous;
    };

    /// Creates the controls hidden, as children of `parent`. The captions must outlive the bar. False when
    /// Windows refused.
    bool Create(HWND parent, HFONT font, const Captions& captions);
    void Show(bool shown);
    bool IsShown() const { return shown_; }
    /// True while the keyboard is in one of its controls.
    bool HasFocus() const;
    /// Puts the keyboard into the edit and selects its text.
    void Focus();
    std::wstring Text() const;
    void SetText(const std::wstring& text);

    using ButtonWidth = std::function<SIZE(HWND button)>;
    /// Lays the controls out from the left edge of `bounds`, the edit narrower than `edit_width` where room
    /// is short; `button_size` tells how big a button is.
    void Layout(const RECT& bounds, int gap, int edit_width, const ButtonWidth& button_size);

private:
    Captions captions_{};
    HWND label_ = nullptr;
    HWND text_ = nullptr;
    HWND next_ = nullptr;
    HWND previous_ = nullptr;
    bool shown_ = false;
};

}  // namespace tessel::ui
