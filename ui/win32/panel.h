// A plain pane: paints a background and hands its children's notifications to the form.
#pragma once

#include <windows.h>

#include <functional>

#include "common/win32/window.h"

namespace tessel::ui {

class Panel final : public win32::Window {
public:
    /// `form` receives WM_COMMAND and WM_NOTIFY of the panel's children; `on_size` runs after every resize.
    bool Create(HWND parent, HWND form, int id, bool visible = true);
    void OnSize(std::function<void()> on_size) { on_size_ = std::move(on_size); }
    /// The system colour index of the background.
    void SetBackground(int system_colour) { background_ = system_colour; }

private:
    LRESULT OnMessage(UINT message, WPARAM wparam, LPARAM lparam) override;

    HWND form_ = nullptr;
    int background_ = COLOR_BTNFACE;
    std::function<void()> on_size_;
};

}  // namespace tessel::ui
