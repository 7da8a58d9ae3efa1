// lblNo: the text that tab 0 shows in place of a design that cannot be shown.
#pragma once

#include <windows.h>

#include "common/win32/handles.h"
#include "common/win32/window.h"

namespace tessel::ui {

class ReasonLabel final : public win32::Window {
public:
    bool Create(HWND parent, int id, const wchar_t* text);
    /// The font is not owned.
    void SetFont(HFONT font);

private:
    LRESULT OnMessage(UINT message, WPARAM wparam, LPARAM lparam) override;
    void Paint();

    HFONT font_ = nullptr;
};

}  // namespace tessel::ui
