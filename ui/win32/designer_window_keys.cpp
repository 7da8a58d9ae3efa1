// The keyboard of the designer window: the keys that mean the same in every pane, and the way between panes.
#include <windows.h>

#include <commctrl.h>

#include "ui/help_contexts.h"
#include "ui/win32/designer_window.h"
#include "ui/win32/show_help.h"

namespace tessel::ui {

bool DesignerWindow::OnKey(const MSG& message) {
    if (drag_.IsDragging() && message.message == WM_KEYDOWN) {
        // While something is dragged, keys mean nothing else.
        if (message.wParam == VK_ESCAPE) drag_.Cancel();
        return true;
    }
    if (OnHistoryKey(message) || OnErrorKey(message)) return true;
    if (message.message != WM_KEYDOWN) return false;
    if (message.hwnd != Handle() && !IsChild(Handle(), message.hwnd)) return false;
    const bool shift = GetKeyState(VK_SHIFT) < 0;
    if (message.wParam == VK_TAB && GetKeyState(VK_CONTROL) < 0) {
        if (!grid_.CommitEdit()) return true;
        const LRESULT other = SendMessageW(tabs_, TCM_GETCURSEL, 0, 0) == 0 ? 1 : 0;
        SendMessageW(tabs_, TCM_SETCURSEL, static_cast<WPARAM>(other), 0);
        OnTabSelected(false);
        return true;
    }
    if (message.wParam == VK_RETURN && GetKeyState(VK_CONTROL) < 0) {
        OnCommand(kIdAccept, BN_CLICKED);
        return true;
    }
    if (message.wParam == VK_F1) {
        ShowHelp(nullptr, HelpTopic());
        return true;
    }
    if (message.wParam == VK_F5) {
        if (IsWindowEnabled(run_query_)) RunQuery();
        return true;
    }
    if (message.wParam == VK_F6) {
        MoveToNextPane(shift);
        return true;
    }
    return false;
}

void DesignerWindow::MoveToNextPane(bool backwards) {
    std::vector<HWND> panes = {browser_.Tree(), props_.List()};
    if (presenter_.CurrentTab() == Tab::Sql) {
        panes.push_back(editor_.Handle());
    } else if (grid_visible_) {
        panes.push_back(diagram_.Handle());
        panes.push_back(grid_.Handle());
    } else {
        // What stands in place of the design may hold something to press.
        const HWND inside = GetNextDlgTabItem(design_pane_.Handle(), nullptr, FALSE);
        panes.push_back(inside && IsWindowVisible(inside) ? inside : tabs_);
    }
    panes.push_back(accept_);
    const HWND focus = GetFocus();
    std::size_t current = panes.size() - 1;
    for (std::size_t i = 0; i < panes.size(); ++i)
        if (focus == panes[i] || IsChild(panes[i], focus)) current = i;
    const std::size_t step = backwards ? panes.size() - 1 : 1;
    SetFocus(panes[(current + step) % panes.size()]);
}

long DesignerWindow::HelpTopic() const {
    const HWND focus = GetFocus();
    const auto is_in = [focus](HWND pane) { return pane && (focus == pane || IsChild(pane, focus)); };
    if (is_in(browser_splitter_.Handle())) return help::kBrowser;
    if (is_in(diagram_.Handle())) return help::kDiagram;
    if (is_in(sql_page_.Handle())) return help::kSqlTab;
    // The grid's rows are numbered from 1 in the help, as their ID is.
    if (is_in(grid_.Handle()))
        return help::OfGridRow(static_cast<int>(presenter_.Design().grid.FocusedRow()));
    return help::kWindow;
}

void DesignerWindow::FocusPage() {
    if (presenter_.CurrentTab() == Tab::Sql)
        SetFocus(editor_.Handle());
    else if (grid_visible_)
        SetFocus(grid_.Handle());
    else
        SetFocus(tabs_);
}

}  // namespace tessel::ui
