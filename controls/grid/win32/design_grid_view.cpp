#include "controls/grid/win32/design_grid_view.h"

#include <algorithm>
#include <string>

#include "common/text.h"
#include "common/win32/dpi.h"
#include "common/win32/gdi.h"
#include "common/win32/scroll_info.h"
#include "controls/grid/grid_accessible_texts.h"

namespace tessel::controls {

namespace {

using model::GridRow;

int TextWidth(HDC dc, std::wstring_view text) {
    return static_cast<int>(win32::TextSize(dc, text).cx);
}

bool TakesOnlyWords(GridRow row) {
    return row == GridRow::Agrupacion || row == GridRow::Visible || row == GridRow::Orden;
}

}  // namespace

DesignGridView::~DesignGridView() {
    Bind(nullptr, nullptr);
    Destroy();
}

bool DesignGridView::Create(HWND parent, int id) {
    const win32::WindowClass window_class{L"TesselDesignGrid", CS_DBLCLKS, nullptr, IDC_ARROW};
    const DWORD style = WS_CHILD | WS_VISIBLE | WS_TABSTOP | WS_CLIPCHILDREN | WS_HSCROLL;
    if (!CreateWindowOf(window_class, GridName().c_str(), style, 0, parent, id)) return false;
    RefreshMetrics();
    return true;
}

void DesignGridView::Bind(model::DesignGrid* grid, GridEvents* events) {
    CancelEdit();
    if (grid_) grid_->RemoveListener(this);
    grid_ = grid;
    tree_.Bind(grid);
    events_ = events;
    if (grid_) grid_->AddListener(this);
    OnChanged();
}

int DesignGridView::Scaled(int dips) const {
    return win32::Scale(dips, dpi_);
}

void DesignGridView::RefreshMetrics() {
    dpi_ = win32::DpiOf(Handle());
    font_ = win32::MessageFont(dpi_);
    bold_font_ = win32::MessageFont(dpi_, true);
    header_theme_.reset(OpenThemeData(Handle(), L"HEADER"));
    header_items_.clear();
    combo_theme_.reset(OpenThemeData(Handle(), L"COMBOBOX"));

    GridMetrics metrics;
    if (const win32::MeasuringDc dc(bold_font_.get()); dc.Get()) {
        int widest = 0;
        for (const GridRow row : model::kGridRows)
            widest = std::max(widest, TextWidth(dc.Get(), model::RowCaption(row)));
        TEXTMETRICW text{};
        GetTextMetricsW(dc.Get(), &text);
        metrics.captions_width = widest + Scaled(kCellPadding + 10);
        metrics.row_height = static_cast<int>(text.tmHeight) + Scaled(8);
        metrics.header_height = static_cast<int>(text.tmHeight) + Scaled(10);
    }
    metrics.divider_reach = Scaled(4);
    metrics.arrow_width = Scaled(17);
    metrics.minimum_width = Scaled(24);
    metrics.maximum_width = Scaled(600);
    state_.Layout().SetMetrics(metrics);
    if (grid_) state_.TakeColumns(*grid_, dpi_);
    RefreshClient();
}

void DesignGridView::RefreshClient() {
    if (!IsCreated()) return;
    RECT client;
    GetClientRect(Handle(), &client);
    state_.Layout().SetClient(client.right, client.bottom);
    UpdateScrollBars();
    PlaceEditor();
    InvalidateRect(Handle(), nullptr, FALSE);
}

void DesignGridView::UpdateScrollBars() {
    const GridLayout& layout = state_.Layout();
    SCROLLINFO info{};
    info.cbSize = sizeof info;
    info.fMask = SIF_RANGE | SIF_PAGE | SIF_POS | SIF_DISABLENOSCROLL;
    info.nMax = std::max(0, layout.ContentWidth() - 1);
    info.nPage = static_cast<UINT>(std::max(0, layout.ViewWidth()));
    info.nPos = layout.ScrollX();
    win32::UpdateScrollInfo(Handle(), SB_HORZ, info);
    info.fMask = SIF_RANGE | SIF_PAGE | SIF_POS;
    info.nMax = layout.ContentHeight() - 1;
    info.nPage = static_cast<UINT>(std::max(0, layout.ViewHeight()));
    info.nPos = layout.ScrollY();
    win32::UpdateScrollInfo(Handle(), SB_VERT, info);
}

void DesignGridView::ScrollTo(int x, int y) {
    if (!CommitEdit()) return;
    if (!state_.Layout().ScrollTo(x, y)) return;
    UpdateScrollBars();
    InvalidateRect(Handle(), nullptr, FALSE);
    UpdateWindow(Handle());
}

void DesignGridView::OnChanged() {
    if (!IsCreated()) return;
    bool relaid = false;
    if (grid_) {
        relaid = state_.TakeColumns(*grid_, dpi_);
        if (state_.SetFocus(grid_->FocusedRow(), grid_->FocusedColumn()))
            relaid = state_.Layout().EnsureVisible(state_.FocusedRow(), state_.FocusedColumn()) || relaid;
        // The model is in the middle of a change; the focus is moved on when that is over.
        if (!state_.IsFocusShown()) PostMessageW(Handle(), kFocusHiddenMessage, 0, 0);
    } else {
        state_.Layout().SetColumns({});
        relaid = true;
    }
    if (relaid) {
        UpdateScrollBars();
        PlaceEditor();
    }
    Announce();
    InvalidateRect(Handle(), nullptr, FALSE);
}

void DesignGridView::OnFocusHidden() {
    if (!grid_ || state_.IsFocusShown()) return;
    const int column = state_.NearestShown(state_.FocusedColumn());
    if (column >= 0) GoTo(state_.FocusedRow(), column);
}

RECT DesignGridView::CellRect(GridRow row, int column) const {
    const GridRect rect = Intersection(state_.Layout().CellRect(row, column), state_.Layout().CellsArea());
    return {rect.left, rect.top, rect.right, rect.bottom};
}

const std::wstring& DesignGridView::FocusedText() const {
    return grid_->Cell(state_.FocusedRow(), state_.FocusedColumn());
}

bool DesignGridView::IsArrowShown() const {
    return grid_ && state_.IsFocusShown() && !grid_->PickList(state_.FocusedColumn()).empty();
}

// Moving the focus.

void DesignGridView::Go(GridMove move) {
    if (state_.Move(move))
        ReportFocus();
    else
        CollapseSelection();
}

void DesignGridView::GoTo(GridRow row, int column) {
    const bool moved = state_.SetFocus(row, column);
    state_.CollapseSelection();
    state_.Layout().EnsureVisible(row, column);
    if (moved) return ReportFocus();
    RefreshClient();
    Announce();
}

void DesignGridView::CollapseSelection() {
    if (!state_.HasBlock()) return;
    state_.CollapseSelection();
    Announce();
    InvalidateRect(Handle(), nullptr, FALSE);
}

void DesignGridView::ReportFocus() {
    RefreshClient();
    Announce();
    if (events_) events_->OnGridFocusMoved(state_.FocusedRow(), state_.FocusedColumn());
}

void DesignGridView::LeaveByTab(bool backwards) {
    const HWND root = GetAncestor(Handle(), GA_ROOT);
    const HWND next = GetNextDlgTabItem(root, Handle(), backwards);
    if (next) SetFocus(next);
}

// Editing.

void DesignGridView::BeginEdit(GridRow row, int column) {
    if (!grid_ || state_.Layout().IndexOf(column) < 0 || !CommitEdit()) return;
    GoTo(row, column);
    OpenEditor();
}

bool DesignGridView::OpenEditor(const wchar_t* text) {
    if (!grid_ || !state_.IsFocusShown() || editor_.IsOpen()) return false;
    edited_row_ = state_.FocusedRow();
    edited_column_ = state_.FocusedColumn();
    if (state_.Layout().EnsureVisible(edited_row_, edited_column_)) RefreshClient();
    CellEditor::Contents contents{text ? std::wstring(text) : FocusedText(), grid_->PickList(edited_column_),
                                  TakesOnlyWords(edited_row_), CellName(*grid_, edited_row_, edited_column_)};
    if (!editor_.Open(Handle(), font_.get(), dpi_, CellRect(edited_row_, edited_column_),
                      std::move(contents)))
        return false;
    PlaceEditor();
    return true;
}

void DesignGridView::PlaceEditor() {
    if (!editor_.IsOpen()) return;
    RECT place = CellRect(edited_row_, edited_column_);
    if (IsRectEmpty(&place)) {
        // Its column was hidden by whoever changed the model.
        if (state_.Layout().IndexOf(edited_column_) < 0) CancelEdit();
        return;
    }
    // A text longer than the cell may use the room to the right while it is edited.
    const int right = state_.Layout().CellsArea().right;
    place.right =
        std::clamp<int>(place.left + editor_.WantedWidth(), place.right, std::max<int>(right, place.right));
    editor_.Place(place);
}

bool DesignGridView::CommitEdit() {
    if (!editor_.IsOpen()) return true;
    if (committing_) return false;
    const std::wstring text = editor_.Text();
    if (!grid_ || text == grid_->Cell(edited_row_, edited_column_)) {
        CancelEdit();
        return true;
    }
    if (Utf16Length(text) > model::kMaxCellLength) {
        committing_ = true;
        if (events_) events_->OnGridCellCommitted(edited_row_, edited_column_, text);
        committing_ = false;
        if (editor_.IsOpen() && IsWindowVisible(editor_.Combo())) editor_.Focus();
        return false;
    }
    CancelEdit();
    if (events_) events_->OnGridCellCommitted(edited_row_, edited_column_, text);
    return true;
}

void DesignGridView::CancelEdit() {
    if (!editor_.IsOpen()) return;
    editor_.Close();
    InvalidateRect(Handle(), nullptr, FALSE);
}

void DesignGridView::OnEditorFocusLost() {
    if (committing_) return;
    // The focus cannot be taken back while it is being moved, so a text too long is reported a little later.
    if (Utf16Length(editor_.Text()) > model::kMaxCellLength)
        PostMessageW(Handle(), kRefusedMessage, 0, 0);
    else
        CommitEdit();
}

void DesignGridView::OnEditorTextChanged() {
    PlaceEditor();
}

void DesignGridView::OnEditorKey(EditorKey key) {
    if (key == EditorKey::Escape) {
        CancelEdit();
        return;
    }
    if (!CommitEdit()) return;
    switch (key) {
        case EditorKey::Enter:
        case EditorKey::Down:
            Go(GridMove::Down);
            break;
        case EditorKey::Up:
            Go(GridMove::Up);
            break;
        case EditorKey::PageUp:
            Go(GridMove::PageUp);
            break;
        case EditorKey::PageDown:
            Go(GridMove::PageDown);
            break;
        case EditorKey::Next:
            if (state_.CanMove(GridMove::Next))
                Go(GridMove::Next);
            else
                LeaveByTab(false);
            break;
        case EditorKey::Previous:
            if (state_.CanMove(GridMove::Previous))
                Go(GridMove::Previous);
            else
                LeaveByTab(true);
            break;
        case EditorKey::Escape:
            break;
    }
}

}  // namespace tessel::controls
