// What follows the pointer while a table or a field is dragged: a small caption beside it. It can also hold
// the mouse for a drag of its own, when the control where the drag began does not.
//
// Knows nothing of what is dragged nor where it may go: it reports where the pointer is, and its owner
// decides.
#pragma once

#include <windows.h>

#include <string>
#include <string_view>

#include "common/win32/handles.h"
#include "common/win32/window.h"

namespace tessel::ui {

class DragEvents {
public:
    virtual ~DragEvents() = default;
    /// The pointer is there; also comes while it rests, so that what is there may scroll. True when the
    /// dragged thing may be dropped.
    virtual bool OnDragMoved(POINT screen) = 0;
    virtual void OnDragDropped(POINT screen) = 0;
    /// Given up: Esc, the right button, or the mouse was taken away.
    virtual void OnDragCancelled() = 0;
};

class DragWindow final : public win32::Window {
public:
    ~DragWindow() override;

    /// Shows the caption beside the pointer, which somebody else follows.
    void Follow(HWND owner, std::wstring_view caption, POINT screen);
    /// Shows the caption and follows the pointer itself until the button goes up. False when the mouse cannot
    /// be held; nothing is shown then.
    bool Begin(HWND owner, std::wstring_view caption, DragEvents& events);
    /// Gives up a drag of its own; harmless without one.
    void Cancel();
    void Hide();
    bool IsDragging() const { return events_ != nullptr; }

private:
    LRESULT OnMessage(UINT message, WPARAM wparam, LPARAM lparam) override;
    bool CreateFor(HWND owner);
    void Move(POINT screen);
    void Report(POINT screen);
    void Finish(bool dropped);
    void OnPaint();

    DragEvents* events_ = nullptr;
    std::wstring caption_;
    win32::UniqueFont font_;
    int dpi_ = 0;
};

}  // namespace tessel::ui
