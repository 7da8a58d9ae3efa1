// What the controls of the designer window report, handed to the presenter.
#include "ui/win32/designer_window.h"

namespace tessel::ui {

void DesignerWindow::OnGridFocusMoved(model::GridRow row, int column) {
    presenter_.GridFocusMoved(row, column);
    UpdateCommands();
}

void DesignerWindow::OnGridCellCommitted(model::GridRow row, int column, std::wstring_view text) {
    presenter_.GridCellCommitted(row, column, text);
}

void DesignerWindow::OnDiagramFieldChecked(std::wstring_view table, std::wstring_view field, bool checked) {
    presenter_.DiagramFieldChecked(table, field, checked);
}

void DesignerWindow::OnDiagramRelationDrawn(std::wstring_view left_table, std::wstring_view left_field,
                                            std::wstring_view right_table, std::wstring_view right_field) {
    presenter_.RelationDrawn(left_table, left_field, right_table, right_field);
}

void DesignerWindow::OnBrowserActivated(const controls::BrowserItem& item) {
    using Kind = controls::BrowserItem::Kind;
    // A relation brings the table at its other end.
    if (item.kind == Kind::Table || item.kind == Kind::View || item.kind == Kind::Relation)
        presenter_.TableChosen(item.name);
}

void DesignerWindow::OnBrowserSelected(const controls::BrowserItem* item) {
    props_.Show(schema_, item);
}

void DesignerWindow::OnSplitterResized(int id) {
    if (id == kIdPageSplitter) LayoutDesignPane();
    if (id == kIdMainSplitter) LayoutStrip();
}

void DesignerWindow::OnChanged() {
    UpdateCommands();
    AwaitStep();
}

}  // namespace tessel::ui
