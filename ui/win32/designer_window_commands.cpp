// The commands that open a dialog over the designer window, and when the buttons are enabled.
#include <windows.h>

#include <commctrl.h>

#include "ui/win32/designer_window.h"
#include "ui/win32/dlg_add_table.h"
#include "ui/win32/dlg_pvw.h"
#include "ui/win32/preview_database.h"

namespace tessel::ui {

void DesignerWindow::UpdateCommands() {
    // While the window is being filled the answers change with each step, and nobody sees them.
    if (!is_shown_) return;
    EnableWindow(remove_column_, presenter_.CanRemoveFocusedColumn());
    EnableWindow(clear_all_, presenter_.CanClearDesign());
    // A table can only be added to a diagram that is in force and in sight.
    const bool design_shown = SendMessageW(tabs_, TCM_GETCURSEL, 0, 0) == static_cast<LRESULT>(Tab::Design);
    EnableWindow(add_table_, schema_ && design_shown && grid_visible_);
    EnableWindow(run_query_, static_cast<bool>(connection_));
}

void DesignerWindow::RunQuery() {
    if (!grid_.CommitEdit()) return;
    ConnectionDatabase database(connection_.Get());
    RunStatement(presenter_.GetSQLText(), macros_, database, *this);
}

void DesignerWindow::PreviewTable(std::wstring_view table) {
    ConnectionDatabase database(connection_.Get());
    ui::ShowTable(table, database, *this);
}

std::optional<Error> DesignerWindow::ShowRows(PreviewRows& rows) {
    dlgPVW dialog(rows);
    return dialog.Show(Handle());
}

void DesignerWindow::AddTable(std::wstring_view related_to) {
    if (!schema_) return;
    dlgAddTable dialog;
    dialog.Init(*schema_, related_to, [this](std::wstring_view name) { presenter_.TableChosen(name); });
    dialog.Show(Handle());
}

}  // namespace tessel::ui
