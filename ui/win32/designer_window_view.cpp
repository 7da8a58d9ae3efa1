// The designer window as its presenter sees it: what is shown, asked and told.
#include <windows.h>

#include <commctrl.h>

#include "common/win32/modal_loop.h"
#include "common/win32/system_cursor.h"
#include "ui/dlg_dsn_texts.h"
#include "ui/win32/designer_window.h"
#include "ui/win32/dlg_arbol.h"
#include "ui/win32/page_shown.h"

namespace tessel::ui {

Pointer DesignerWindow::SetPointer(Pointer pointer) {
    const Pointer before = pointer_;
    pointer_ = pointer;
    SetCursor(win32::SystemCursor(pointer == Pointer::Hourglass ? IDC_WAIT : IDC_ARROW));
    return before;
}

void DesignerWindow::ProcessEvents() {
    win32::ProcessPendingMessages();
}

void DesignerWindow::FocusNeutral() {
    if (IsWindowVisible(Handle())) SetFocus(focus_);
}

void DesignerWindow::ShowTab(Tab tab) {
    SendMessageW(tabs_, TCM_SETCURSEL, static_cast<WPARAM>(tab), 0);
    if (!is_switching_) ShowPages();
}

void DesignerWindow::ShowGrid(bool shown) {
    grid_visible_ = shown;
    if (!shown) grid_.CancelEdit();
    for (const HWND window : {grid_.Handle(), grid_buttons_.Handle()})
        if (IsShown(window) != shown) ShowWindow(window, shown ? SW_SHOWNA : SW_HIDE);
    // A diagram that is not the statement's would mislead, so lblNo stands alone.
    page_splitter_.SetFirstPaneShown(shown);
    TellReason();
    UpdateCommands();
}

void DesignerWindow::ShowReason(bool shown) {
    ShowWindow(reason_.Handle(), shown ? SW_SHOWNA : SW_HIDE);
}

void DesignerWindow::ShowDistinct(bool checked) {
    SendMessageW(distinct_, BM_SETCHECK, checked ? BST_CHECKED : BST_UNCHECKED, 0);
}

void DesignerWindow::RedrawDiagram() {
    diagram_.Redraw();
}

void DesignerWindow::ShowMessage(std::wstring_view text) {
    const Pointer before = SetPointer(Pointer::Default);
    MessageBoxW(Handle(), std::wstring(text).c_str(), texts::kMessageTitle, MB_OK);
    SetPointer(before);
}

bool DesignerWindow::AskYesNo(std::wstring_view text) {
    const Pointer before = SetPointer(Pointer::Default);
    const int answer = MessageBoxW(Handle(), std::wstring(text).c_str(), texts::kMessageTitle,
                                   MB_YESNO | MB_ICONQUESTION | MB_DEFBUTTON2);
    SetPointer(before);
    return answer == IDYES;
}

void DesignerWindow::ShowSyntaxTree(const std::vector<analyse::TreeNode>& roots) {
    // A node's text is selected behind the dialog, when the editor is what the window shows.
    const bool shows_text = presenter_.CurrentTab() == Tab::Sql;
    dlgArbol dialog(roots, [&](TextRange range) {
        if (shows_text) editor_.SelectRange(range);
    });
    dialog.ShowTree(Handle());
}

void DesignerWindow::Hide() {
    done_ = true;
    // The host's windows must be enabled before ours goes, or Windows would activate another program.
    if (peers_) peers_->Enable();
    ShowWindow(Handle(), SW_HIDE);
    PostMessageW(Handle(), WM_NULL, 0, 0);
}

std::wstring DesignerWindow::Text() const {
    return editor_.Text();
}
void DesignerWindow::SetText(std::wstring_view text) {
    editor_.SetText(text);
}
void DesignerWindow::LoadText(std::wstring_view text) {
    editor_.LoadText(text);
}
void DesignerWindow::SetLayout(std::wstring_view text) {
    editor_.ReplaceLayout(text);
}
void DesignerWindow::BeginReplacement() {
    editor_.BeginReplacement();
}
void DesignerWindow::EndReplacement() {
    editor_.EndReplacement();
}
void DesignerWindow::Refresh() {
    editor_.Refresh();
}

}  // namespace tessel::ui
