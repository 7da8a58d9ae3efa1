// The design grid in the designer window: its gestures on blocks and columns, and its context menu.
#include <windows.h>

#include "common/win32/handles.h"
#include "ui/grid_menu_texts.h"
#include "ui/win32/designer_window.h"

namespace tessel::ui {

namespace {

enum class GridCommand : UINT {
    None = 0,
    Undo,
    Redo,
    Cut,
    Copy,
    Paste,
    Empty,
    InsertColumn,
    RemoveColumn,
    MoveLeft,
    MoveRight,
};

void Append(HMENU menu, GridCommand command, const wchar_t* caption, bool enabled) {
    AppendMenuW(menu, MF_STRING | (enabled ? MF_ENABLED : MF_GRAYED), static_cast<UINT_PTR>(command),
                caption);
}

void AppendSeparator(HMENU menu) {
    AppendMenuW(menu, MF_SEPARATOR, 0, nullptr);
}

}  // namespace

void DesignerWindow::OnGridColumnMoved(int from, int to) {
    presenter_.GridColumnMoved(from, to);
}

void DesignerWindow::OnGridCellsEmptied(const model::CellRange& range) {
    presenter_.GridCellsEmptied(range);
}

void DesignerWindow::OnGridCellsPasted(const model::CellRange& range, const model::CellBlock& block) {
    presenter_.GridCellsPasted(range, block);
}

void DesignerWindow::OnGridContextMenu(int, POINT screen) {
    const win32::UniqueMenu menu(CreatePopupMenu());
    Append(menu.get(), GridCommand::Undo, texts::kUndo, presenter_.CanUndo());
    Append(menu.get(), GridCommand::Redo, texts::kRedo, presenter_.CanRedo());
    AppendSeparator(menu.get());
    Append(menu.get(), GridCommand::Cut, texts::kCut, grid_.CanCopy());
    Append(menu.get(), GridCommand::Copy, texts::kCopy, grid_.CanCopy());
    Append(menu.get(), GridCommand::Paste, texts::kPaste, grid_.CanPaste());
    Append(menu.get(), GridCommand::Empty, texts::kEmpty, grid_.CanCopy());
    AppendSeparator(menu.get());
    Append(menu.get(), GridCommand::InsertColumn, texts::kInsertColumn, true);
    Append(menu.get(), GridCommand::RemoveColumn, texts::kRemoveThisColumn,
           presenter_.CanRemoveFocusedColumn());
    Append(menu.get(), GridCommand::MoveLeft, texts::kMoveLeft, grid_.CanMoveColumn(false));
    Append(menu.get(), GridCommand::MoveRight, texts::kMoveRight, grid_.CanMoveColumn(true));
    const BOOL chosen = TrackPopupMenu(menu.get(), TPM_RETURNCMD | TPM_RIGHTBUTTON | TPM_NONOTIFY, screen.x,
                                       screen.y, 0, Handle(), nullptr);
    switch (static_cast<GridCommand>(chosen)) {
        case GridCommand::None:
            return;
        case GridCommand::Undo:
            return Undo();
        case GridCommand::Redo:
            return Redo();
        case GridCommand::Cut:
            return grid_.Cut();
        case GridCommand::Copy:
            return grid_.Copy();
        case GridCommand::Paste:
            return grid_.Paste();
        case GridCommand::Empty:
            return grid_.EmptySelection();
        case GridCommand::InsertColumn:
            return presenter_.InsertColumn();
        case GridCommand::RemoveColumn:
            return presenter_.RemoveFocusedColumn();
        case GridCommand::MoveLeft:
            return grid_.MoveColumn(false);
        case GridCommand::MoveRight:
            return grid_.MoveColumn(true);
    }
}

}  // namespace tessel::ui
