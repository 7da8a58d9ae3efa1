// The design grid's selected block: extending it, and the clipboard.
#include <algorithm>
#include <optional>
#include <string>

#include "common/win32/clipboard.h"
#include "controls/grid/win32/design_grid_view.h"

namespace tessel::controls {

namespace {

using model::GridRow;

bool IsDown(int key) {
    return GetKeyState(key) < 0;
}

}  // namespace

void DesignGridView::Extend(GridMove move) {
    if (state_.Extend(move)) ReportFocus();
}

void DesignGridView::ExtendTo(GridRow row, int column) {
    if (state_.ExtendTo(row, column)) ReportFocus();
}

void DesignGridView::SelectColumns(int column, bool extend) {
    if (!grid_ || !CommitEdit()) return;
    const bool moved = column != state_.FocusedColumn();
    state_.SelectColumns(column, extend);
    state_.Layout().EnsureVisible(state_.FocusedRow(), column);
    if (moved) return ReportFocus();
    RefreshClient();
    Announce();
}

void DesignGridView::SelectAll() {
    state_.SelectAll();
    ReportFocus();
}

void DesignGridView::DragSelection(int x, int y) {
    const GridLayout& layout = state_.Layout();
    const GridRect cells = layout.CellsArea();
    if (cells.IsEmpty()) return;
    // Beyond an edge the pointer still means the cell at that edge, which then comes into view whole.
    const int inside_x = std::clamp(x, cells.left, cells.right - 1);
    const int inside_y = std::clamp(y, cells.top, cells.bottom - 1);
    const GridHit hit = layout.HitTest(inside_x, inside_y);
    if (hit.part == GridPart::Cell) ExtendTo(hit.row, hit.column);
}

bool DesignGridView::CanCopy() const {
    return grid_ && state_.IsFocusShown();
}

bool DesignGridView::CanPaste() const {
    return CanCopy() && IsClipboardFormatAvailable(CF_UNICODETEXT);
}

void DesignGridView::Copy() const {
    if (!CanCopy()) return;
    const std::wstring text = model::FormatBlock(model::CopyCells(*grid_, state_.Selection()));
    // Copying nothing must not take away what the clipboard holds.
    if (!text.empty()) win32::CopyToClipboard(Handle(), text);
}

void DesignGridView::Cut() {
    if (!CanCopy()) return;
    Copy();
    EmptySelection();
}

void DesignGridView::EmptySelection() {
    if (!CanCopy() || !events_) return;
    if (state_.HasBlock())
        events_->OnGridCellsEmptied(state_.Selection());
    else if (!FocusedText().empty())
        events_->OnGridCellCommitted(state_.FocusedRow(), state_.FocusedColumn(), {});
}

void DesignGridView::Paste() {
    if (!CanPaste() || !events_) return;
    if (const std::optional<std::wstring> text = win32::TextFromClipboard(Handle()))
        events_->OnGridCellsPasted(state_.Selection(), model::ParseBlock(*text));
}

bool DesignGridView::OnClipboardKey(WPARAM key) {
    const bool control = IsDown(VK_CONTROL);
    const bool shift = IsDown(VK_SHIFT);
    // With Alt as well it is AltGr, which types.
    if (IsDown(VK_MENU)) return false;
    switch (key) {
        case 'A':
            if (control) SelectAll();
            return control;
        case 'C':
            if (control) Copy();
            return control;
        case 'X':
            if (control) Cut();
            return control;
        case 'V':
            if (control) Paste();
            return control;
        case VK_SPACE:
            if (control) SelectColumns(state_.FocusedColumn(), state_.HasBlock());
            return control;
        case VK_INSERT:
            if (control) Copy();
            if (shift) Paste();
            return control || shift;
        case VK_DELETE:
            shift ? Cut() : EmptySelection();
            return true;
        default:
            return false;
    }
}

}  // namespace tessel::controls
