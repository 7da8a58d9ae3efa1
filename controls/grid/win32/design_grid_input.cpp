// The design grid's window procedure: mouse, keyboard and scrolling decoded into the gestures of
// design_grid_view.cpp.
#include <windowsx.h>

#include "common/win32/screen.h"
#include "controls/grid/win32/design_grid_view.h"

namespace tessel::controls {

namespace {

using model::GridRow;

bool IsDown(int key) {
    return GetKeyState(key) < 0;
}

}  // namespace

LRESULT DesignGridView::OnMessage(UINT message, WPARAM wparam, LPARAM lparam) {
    LRESULT result = 0;
    if (accessible_.OnMessage(Handle(), message, wparam, lparam, result)) return result;
    if (OnKeyMessage(message, wparam, lparam, result) || OnMouseMessage(message, wparam, lparam, result))
        return result;
    switch (message) {
        case WM_SIZE:
            RefreshClient();
            return 0;
        case WM_THEMECHANGED:
        case WM_SYSCOLORCHANGE:
        case WM_SETTINGCHANGE:
        case win32::kDpiChangedAfterParent:
            RefreshMetrics();
            return 0;
        case WM_HSCROLL:
            OnScroll(SB_HORZ, LOWORD(wparam));
            return 0;
        case WM_VSCROLL:
            OnScroll(SB_VERT, LOWORD(wparam));
            return 0;
        case WM_COMMAND:
            if (lparam && reinterpret_cast<HWND>(lparam) == editor_.Combo())
                editor_.OnCommand(HIWORD(wparam));
            return 0;
        case CellEditor::kChoiceMessage:
            editor_.OnChoicePosted();
            return 0;
        case kRefusedMessage:
            if (!editor_.HasFocus()) CommitEdit();
            return 0;
        case WM_TIMER:
            OnScrollTimer();
            return 0;
        case kFocusHiddenMessage:
            OnFocusHidden();
            return 0;
        case WM_SETFOCUS:
            if (editor_.IsOpen()) editor_.Focus();
            accessible_.ReportFocus();
            InvalidateRect(Handle(), nullptr, FALSE);
            return 0;
        case WM_KILLFOCUS:
        case WM_ENABLE:
            InvalidateRect(Handle(), nullptr, FALSE);
            return 0;
        case WM_ERASEBKGND:
            return 1;
        case WM_PAINT:
            OnPaint();
            return 0;
        default:
            return Window::OnMessage(message, wparam, lparam);
    }
}

// Keyboard.

bool DesignGridView::OnKeyMessage(UINT message, WPARAM wparam, LPARAM lparam, LRESULT& result) {
    switch (message) {
        case WM_GETDLGCODE:
            result = OnDialogCode(reinterpret_cast<const MSG*>(lparam));
            return true;
        case WM_KEYDOWN:
            return OnKeyDown(wparam);
        case WM_SYSKEYDOWN:
            return OnSystemKeyDown(wparam);
        case WM_CHAR:
            OnChar(static_cast<wchar_t>(wparam));
            return true;
        default:
            return false;
    }
}

LRESULT DesignGridView::OnDialogCode(const MSG* message) const {
    const LRESULT own = DLGC_WANTARROWS | DLGC_WANTCHARS;
    if (!message || (message->message != WM_KEYDOWN && message->message != WM_CHAR)) return own;
    if (message->wParam == VK_TAB && !IsDown(VK_CONTROL) &&
        state_.CanMove(IsDown(VK_SHIFT) ? GridMove::Previous : GridMove::Next))
        return own | DLGC_WANTTAB;
    if (message->wParam == VK_RETURN && state_.IsFocusShown()) return own | DLGC_WANTMESSAGE;
    if (message->wParam == VK_ESCAPE && (state_.IsResizing() || state_.IsMoving() || selecting_))
        return own | DLGC_WANTMESSAGE;
    return own;
}

bool DesignGridView::OnKeyDown(WPARAM key) {
    if (!grid_) return false;
    if (OnMoveKey(key) || OnClipboardKey(key)) return true;
    switch (key) {
        case VK_RETURN:
            Go(GridMove::Down);
            return true;
        case VK_TAB: {
            const GridMove move = IsDown(VK_SHIFT) ? GridMove::Previous : GridMove::Next;
            if (state_.CanMove(move))
                Go(move);
            else
                LeaveByTab(move == GridMove::Previous);
            return true;
        }
        case VK_F2:
            OpenEditor();
            return true;
        case VK_F4:
            if (OpenEditor()) editor_.ShowList();
            return true;
        case VK_BACK:
            OpenEditor(L"");
            return true;
        case VK_ESCAPE:
            if (selecting_) ReleaseCapture();
            if (!state_.IsResizing() && !state_.IsHeaderPressed()) return false;
            EndResize(false);
            EndMove(false);
            return true;
        case '9':
        case VK_NUMPAD9:
            if (!IsDown(VK_CONTROL) || !state_.IsFocusShown()) return false;
            FitColumn(state_.FocusedColumn());
            return true;
        default:
            return false;
    }
}

bool DesignGridView::OnSystemKeyDown(WPARAM key) {
    switch (key) {
        case VK_LEFT:
        case VK_RIGHT:
            StretchColumn(key == VK_RIGHT);
            return true;
        case VK_UP:
        case VK_DOWN:
            if (!OpenEditor()) return false;
            editor_.ShowList();
            return true;
        default:
            return false;
    }
}

bool DesignGridView::OnMoveKey(WPARAM key) {
    const bool control = IsDown(VK_CONTROL);
    const bool shift = IsDown(VK_SHIFT);
    if (control && shift && (key == VK_LEFT || key == VK_RIGHT)) {
        MoveColumn(key == VK_RIGHT);
        return true;
    }
    const auto go = [&](GridMove move) {
        shift ? Extend(move) : Go(move);
        return true;
    };
    switch (key) {
        case VK_LEFT:
            return go(GridMove::Left);
        case VK_RIGHT:
            return go(GridMove::Right);
        case VK_UP:
            return go(GridMove::Up);
        case VK_DOWN:
            return go(GridMove::Down);
        case VK_HOME:
            return go(control ? GridMove::First : GridMove::RowStart);
        case VK_END:
            return go(control ? GridMove::Last : GridMove::RowEnd);
        case VK_PRIOR:
            return go(GridMove::PageUp);
        case VK_NEXT:
            return go(GridMove::PageDown);
        default:
            return false;
    }
}

void DesignGridView::OnChar(wchar_t ch) {
    constexpr wchar_t kDeleteWord = 0x7F;  // Ctrl+Backspace arrives as this character
    // Ctrl+Space selects; its character arrives all the same.
    if (ch < L' ' || ch == kDeleteWord || (ch == L' ' && IsDown(VK_CONTROL))) return;
    if (OpenEditor(L"")) editor_.Type(ch);
}

// Mouse.

bool DesignGridView::OnMouseMessage(UINT message, WPARAM wparam, LPARAM lparam, LRESULT& result) {
    const int x = GET_X_LPARAM(lparam);
    const int y = GET_Y_LPARAM(lparam);
    switch (message) {
        case WM_LBUTTONDOWN:
            OnButtonDown(x, y, (wparam & MK_SHIFT) != 0);
            return true;
        case WM_RBUTTONDOWN:
            // It goes on, to become the context menu.
            OnRightButtonDown(x, y);
            return false;
        case WM_LBUTTONDBLCLK:
            OnDoubleClick(x, y);
            return true;
        case WM_MOUSEMOVE:
            OnMouseMove(x, y);
            return true;
        case WM_LBUTTONUP:
            OnButtonUp();
            return true;
        case WM_CAPTURECHANGED:
            selecting_ = false;
            EndResize(true);
            EndMove(false);
            return true;
        case WM_SETCURSOR:
            result = TRUE;
            return LOWORD(lparam) == HTCLIENT && OnSetCursor();
        case WM_MOUSEWHEEL:
            return OnWheel(GET_WHEEL_DELTA_WPARAM(wparam), (GET_KEYSTATE_WPARAM(wparam) & MK_SHIFT) != 0);
        case WM_MOUSEHWHEEL:
            return OnWheel(-GET_WHEEL_DELTA_WPARAM(wparam), true);
        case WM_CONTEXTMENU:
            OnContextMenu({x, y});
            return true;
        default:
            return false;
    }
}

void DesignGridView::OnButtonDown(int x, int y, bool extend) {
    // Taking the focus commits an edit in progress. One that is too long keeps it.
    if (!CommitEdit()) return;
    SetFocus(Handle());
    const GridHit hit = state_.Layout().HitTest(x, y);
    switch (hit.part) {
        case GridPart::Divider:
            state_.BeginResize(hit.column, x);
            SetCapture(Handle());
            break;
        case GridPart::Header:
            SelectColumns(hit.column, extend);
            if (!extend) BeginMove(hit.column, x);
            break;
        case GridPart::Caption:
            if (state_.IsFocusShown()) GoTo(hit.row, state_.FocusedColumn());
            break;
        case GridPart::Cell:
            OnCellPressed(hit, x, y, extend);
            break;
        case GridPart::None:
        case GridPart::Corner:
            break;
    }
}

void DesignGridView::OnCellPressed(const GridHit& hit, int x, int y, bool extend) {
    if (extend) return ExtendTo(hit.row, hit.column);
    const bool on_arrow = IsArrowShown() && hit.row == state_.FocusedRow() &&
                          hit.column == state_.FocusedColumn() &&
                          state_.Layout().ArrowRect(hit.row, hit.column).Contains(x, y);
    GoTo(hit.row, hit.column);
    if (on_arrow) {
        if (OpenEditor()) editor_.ShowList();
        return;
    }
    selecting_ = true;
    SetCapture(Handle());
}

// The menu is about what is under the pointer, or about the block that is there.
void DesignGridView::OnRightButtonDown(int x, int y) {
    if (state_.IsHeaderPressed() || state_.IsResizing() || !CommitEdit()) return;
    SetFocus(Handle());
    const GridHit hit = state_.Layout().HitTest(x, y);
    const bool in_header = hit.part == GridPart::Header || hit.part == GridPart::Divider;
    if (in_header && !(state_.HasWholeColumns() && state_.IsSelected(GridRow::Campo, hit.column)))
        SelectColumns(hit.column, false);
    if (hit.part == GridPart::Cell && !(state_.HasBlock() && state_.IsSelected(hit.row, hit.column)))
        GoTo(hit.row, hit.column);
}

void DesignGridView::OnButtonUp() {
    EndResize(true);
    EndMove(true);
    if (!selecting_) return;
    selecting_ = false;
    if (GetCapture() == Handle()) ReleaseCapture();
}

void DesignGridView::OnDoubleClick(int x, int y) {
    const GridHit hit = state_.Layout().HitTest(x, y);
    if (hit.part == GridPart::Divider)
        FitColumn(hit.column);
    else if (hit.part == GridPart::Cell)
        BeginEdit(hit.row, hit.column);
}

void DesignGridView::OnMouseMove(int x, int y) {
    if (selecting_) return DragSelection(x, y);
    if (state_.IsHeaderPressed()) return DragColumn(x);
    if (!state_.IsResizing() || !grid_) return;
    const int width = ColumnDips(state_.WidthAt(x), dpi_);
    if (width == grid_->ColumnWidth(state_.ResizedColumn())) return;
    grid_->SetColumnWidth(state_.ResizedColumn(), width);
    UpdateWindow(Handle());
}

bool DesignGridView::OnSetCursor() {
    if (state_.IsMoving()) {
        SetCursor(LoadCursorW(nullptr, IDC_SIZEALL));
        return true;
    }
    POINT point;
    GetCursorPos(&point);
    ScreenToClient(Handle(), &point);
    if (!state_.IsResizing() && state_.Layout().HitTest(point.x, point.y).part != GridPart::Divider)
        return false;
    SetCursor(LoadCursorW(nullptr, IDC_SIZEWE));
    return true;
}

void DesignGridView::OnContextMenu(POINT screen) {
    if (!grid_ || !events_) return;
    int column = state_.FocusedColumn();
    if (screen.x == -1 && screen.y == -1) {
        // The menu key: under the focused cell.
        if (!state_.IsFocusShown()) return;
        const RECT cell = CellRect(state_.FocusedRow(), column);
        screen = {cell.left, cell.bottom};
        ClientToScreen(Handle(), &screen);
    } else {
        POINT point = screen;
        ScreenToClient(Handle(), &point);
        column = state_.Layout().HitTest(point.x, point.y).column;
    }
    if (column >= 0) events_->OnGridContextMenu(column, screen);
}

// Scrolling.

void DesignGridView::OnScroll(int bar, int code) {
    const GridLayout& layout = state_.Layout();
    const bool sideways = bar == SB_HORZ;
    int x = layout.ScrollX();
    int y = layout.ScrollY();
    int& position = sideways ? x : y;
    const int row = layout.Metrics().row_height;
    switch (code) {
        case SB_LINELEFT:
            position = sideways ? layout.ColumnStepX(false) : y - row;
            break;
        case SB_LINERIGHT:
            position = sideways ? layout.ColumnStepX(true) : y + row;
            break;
        case SB_PAGELEFT:
            position = sideways ? layout.PageStepX(false) : y - layout.ViewHeight();
            break;
        case SB_PAGERIGHT:
            position = sideways ? layout.PageStepX(true) : y + layout.ViewHeight();
            break;
        case SB_LEFT:
            position = 0;
            break;
        case SB_RIGHT:
            position = sideways ? layout.MaximumScrollX() : layout.MaximumScrollY();
            break;
        case SB_THUMBTRACK:
        case SB_THUMBPOSITION: {
            SCROLLINFO info{};
            info.cbSize = sizeof info;
            info.fMask = SIF_TRACKPOS;
            GetScrollInfo(Handle(), bar, &info);
            position = info.nTrackPos;
            break;
        }
        default:
            return;
    }
    ScrollTo(x, y);
}

bool DesignGridView::OnWheel(int delta, bool sideways) {
    const GridLayout& layout = state_.Layout();
    // A grid that shows all its rows leaves the wheel to its parent.
    if (!sideways && layout.MaximumScrollY() == 0) return false;
    const int step = sideways ? Scaled(model::kColumnWidth) : layout.Metrics().row_height;
    wheel_rest_ += delta * step;
    const int distance = wheel_rest_ / WHEEL_DELTA;
    wheel_rest_ %= WHEEL_DELTA;
    ScrollTo(layout.ScrollX() - (sideways ? distance : 0), layout.ScrollY() - (sideways ? 0 : distance));
    return true;
}

}  // namespace tessel::controls
