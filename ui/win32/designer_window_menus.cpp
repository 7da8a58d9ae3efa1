// The context menus of the designer window, and the diagram's commands that have a key of their own.
#include "common/win32/handles.h"
#include "ui/win32/designer_window.h"
#include "ui/win32/dlg_relation.h"

namespace tessel::ui {

void DesignerWindow::ShowMenu(const Menu& menu, POINT screen) {
    if (menu.entries.empty()) return;
    const win32::UniqueMenu popup(CreatePopupMenu());
    for (const MenuEntry& entry : menu.entries) {
        if (entry.command == MenuCommand::None)
            AppendMenuW(popup.get(), MF_SEPARATOR, 0, nullptr);
        else
            AppendMenuW(popup.get(), MF_STRING | (entry.enabled ? MF_ENABLED : MF_GRAYED),
                        static_cast<UINT_PTR>(entry.command), entry.caption.c_str());
    }
    const BOOL chosen = TrackPopupMenu(popup.get(), TPM_RETURNCMD | TPM_RIGHTBUTTON | TPM_NONOTIFY, screen.x,
                                       screen.y, 0, Handle(), nullptr);
    presenter_.MenuChosen(static_cast<MenuCommand>(chosen));
}

void DesignerWindow::OnDiagramContextMenu(model::DiagramElement, POINT screen) {
    ShowMenu(presenter_.DiagramMenu(), screen);
}

void DesignerWindow::OnBrowserContextMenu(const controls::BrowserItem& item, POINT screen) {
    using Kind = controls::BrowserItem::Kind;
    if (item.kind != Kind::Table && item.kind != Kind::View) return;
    ShowMenu(presenter_.BrowserMenu(item.name), screen);
}

void DesignerWindow::OnDiagramDelete(model::DiagramElement) {
    presenter_.DeleteSelected();
}

void DesignerWindow::OnDiagramRelationActivated(int key) {
    presenter_.RelationActivated(key);
}

void DesignerWindow::RevealTable(std::wstring_view table) {
    diagram_.Reveal(table, L"");
}

void DesignerWindow::BeginRelation(std::wstring_view table) {
    diagram_.BeginRelation(table);
}

std::optional<model::JoinKind> DesignerWindow::AskRelationKind(const model::RelInfo& relation) {
    dlgRelation dialog;
    return dialog.Ask(Handle(), relation);
}

}  // namespace tessel::ui
