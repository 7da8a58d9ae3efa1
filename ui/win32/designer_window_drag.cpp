// Tables and fields that are dragged from the schema browser or the diagram: where they may be dropped, the
// marks that say so, and the drop.
#include <windows.h>

#include "common/identifiers.h"
#include "ui/win32/designer_window.h"

namespace tessel::ui {

namespace {

constexpr std::wstring_view kAllFields = L"*";

bool IsOver(HWND hwnd, POINT screen) {
    RECT place{};
    if (!IsWindowVisible(hwnd) || !GetClientRect(hwnd, &place)) return false;
    ScreenToClient(hwnd, &screen);
    return PtInRect(&place, screen) != FALSE;
}

std::wstring CaptionOf(std::wstring_view table, std::wstring_view field) {
    return Unbracketed(table) + (field.empty() ? L"" : L"." + Unbracketed(field));
}

}  // namespace

DesignerWindow::DropPlace DesignerWindow::DropPlaceAt(POINT screen) const {
    if (IsOver(editor_.Handle(), screen)) return DropPlace::Editor;
    if (!grid_visible_) return DropPlace::None;
    if (IsOver(grid_.Handle(), screen)) return DropPlace::Grid;
    if (IsOver(diagram_.Handle(), screen)) return DropPlace::Diagram;
    return DropPlace::None;
}

bool DesignerWindow::ShowDropMark(POINT screen) {
    const DropPlace place = DropPlaceAt(screen);
    if (place != DropPlace::Grid) {
        grid_.ShowDropMark(-1);
        return place != DropPlace::None;
    }
    grid_.ScrollUnderDrag(screen);
    const int column = grid_.DropColumnAt(screen);
    grid_.ShowDropMark(column);
    return column >= 0;
}

void DesignerWindow::Drop(POINT screen) {
    const Dragged dragged = dragged_;
    const std::wstring field = dragged.field.empty() ? std::wstring(kAllFields) : dragged.field;
    switch (DropPlaceAt(screen)) {
        case DropPlace::Diagram:
            diagram_.WishPlace(dragged.table, screen);
            presenter_.TableDropped(dragged.table);
            diagram_.Reveal(dragged.table, dragged.field);
            SetFocus(diagram_.Handle());
            return;
        case DropPlace::Grid:
            // Asked before anything moves.
            if (const int column = grid_.DropColumnAt(screen); column >= 0 && grid_.CommitEdit()) {
                SetFocus(grid_.Handle());
                presenter_.FieldDropped(dragged.table, field, column);
            }
            return;
        case DropPlace::Editor:
            editor_.InsertText(dragged.field.empty() ? dragged.table : dragged.table + L"." + dragged.field);
            SetFocus(editor_.Handle());
            return;
        case DropPlace::None:
            return;
    }
}

void DesignerWindow::OnBrowserDragBegun(const controls::BrowserItem& item, std::wstring_view caption) {
    const bool is_field = item.kind == controls::BrowserItem::Kind::Field;
    dragged_ = is_field ? Dragged{item.table, item.name} : Dragged{item.name, L""};
    drag_.Begin(Handle(), caption, *this);
}

bool DesignerWindow::OnDragMoved(POINT screen) {
    return ShowDropMark(screen);
}

void DesignerWindow::OnDragDropped(POINT screen) {
    grid_.ShowDropMark(-1);
    Drop(screen);
}

void DesignerWindow::OnDragCancelled() {
    grid_.ShowDropMark(-1);
}

bool DesignerWindow::OnDiagramCarriedOutside(std::wstring_view table, std::wstring_view field, POINT screen) {
    dragged_ = {std::wstring(table), std::wstring(field)};
    const bool taken = DropPlaceAt(screen) == DropPlace::Grid && ShowDropMark(screen);
    if (!taken) {
        grid_.ShowDropMark(-1);
        drag_.Hide();
        return false;
    }
    drag_.Follow(Handle(), CaptionOf(table, field), screen);
    return true;
}

void DesignerWindow::OnDiagramCarriedBack() {
    grid_.ShowDropMark(-1);
    drag_.Hide();
}

void DesignerWindow::OnDiagramDroppedOutside(std::wstring_view table, std::wstring_view field, POINT screen) {
    dragged_ = {std::wstring(table), std::wstring(field)};
    Drop(screen);
}

}  // namespace tessel::ui
