// Errors of the SQL text in the designer window, and the way from the reason that lblNo tells to its place.
#include <windows.h>

#include <commctrl.h>

#include "ui/win32/designer_window.h"

namespace tessel::ui {

bool DesignerWindow::OnErrorKey(const MSG& message) {
    if (presenter_.CurrentTab() != Tab::Sql) return false;
    if (find_bar_.OnKey(message)) return true;
    if (message.message != WM_KEYDOWN || message.wParam != VK_F8) return false;
    if (message.hwnd != Handle() && !IsChild(Handle(), message.hwnd)) return false;
    error_line_.GoToNext(GetKeyState(VK_SHIFT) < 0);
    return true;
}

void DesignerWindow::OnEditorTextChanged() {
    error_line_.TextTyped();
}

void DesignerWindow::OnEditorTextSet() {
    error_line_.TextSet();
}

// Under the grid there is nothing to tell, and no link for the keyboard to get lost in.
void DesignerWindow::TellReason() {
    const std::optional<Diagnostic>& reason = presenter_.Reason();
    const bool told = !grid_visible_ && reason;
    reason_.SetReason(told ? ReasonText(editor_.Text(), *reason, presenter_.ReasonIsError())
                           : std::wstring());
}

void DesignerWindow::GoToReason() {
    const std::optional<Diagnostic> reason = presenter_.Reason();
    SendMessageW(tabs_, TCM_SETCURSEL, static_cast<WPARAM>(Tab::Sql), 0);
    OnTabSelected(false);
    if (reason && presenter_.CurrentTab() == Tab::Sql) editor_.ShowPlace(reason->range);
}

}  // namespace tessel::ui
