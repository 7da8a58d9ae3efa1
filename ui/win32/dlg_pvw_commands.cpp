// Keys, menu, copying and finding in the preview's window.
#include <algorithm>
#include <new>

#include "common/win32/clipboard.h"
#include "common/win32/handles.h"
#include "common/win32/tips.h"
#include "ui/preview_texts.h"
#include "ui/win32/dlg_pvw.h"

namespace tessel::ui {

namespace {

constexpr UINT_PTR kSearchTimer = 1;
constexpr ULONGLONG kSliceMilliseconds = 40;
constexpr std::int64_t kSliceRows = 64;

enum MenuCommand : int { kMenuCopyRows = 401, kMenuCopyCell, kMenuSelectAll, kMenuFind };

bool IsDown(int key) {
    return GetKeyState(key) < 0;
}

/// The hourglass for a scope.
class WaitCursor {
public:
    WaitCursor() : before_(SetCursor(LoadCursorW(nullptr, IDC_WAIT))) {}
    ~WaitCursor() { SetCursor(before_); }
    WaitCursor(const WaitCursor&) = delete;
    WaitCursor& operator=(const WaitCursor&) = delete;

private:
    HCURSOR before_;
};

}  // namespace

void dlgPVW::OnCommand(int id, int notification) {
    if (id == IDCANCEL) return Close();
    if (notification != BN_CLICKED) return;
    if (id == FindBar::kIdNext) FindAgain(false);
    if (id == FindBar::kIdPrevious) FindAgain(true);
}

bool dlgPVW::OnPreTranslate(const MSG& message) {
    if (message.message == WM_MOUSEMOVE && message.hwnd == list_)
        OnMouseMove({static_cast<short>(LOWORD(message.lParam)), static_cast<short>(HIWORD(message.lParam))});
    // After that, which says what the tip tells.
    if (message.hwnd == list_) win32::RelayMouse(tips_, message);
    if (message.message != WM_KEYDOWN || (message.hwnd != Handle() && !IsChild(Handle(), message.hwnd)))
        return false;
    return OnKey(message.wParam);
}

bool dlgPVW::OnKey(WPARAM key) {
    const bool control = IsDown(VK_CONTROL);
    const bool shift = IsDown(VK_SHIFT);
    if (key == VK_F3) {
        FindAgain(shift);
        return true;
    }
    if (key == 'F' && control) {
        ShowFindBar();
        return true;
    }
    if (key == VK_ESCAPE && (search_ || find_bar_.IsShown())) {
        search_ ? StopSearch() : HideFindBar();
        return true;
    }
    return GetFocus() == list_ && OnListKey(key, control, shift);
}

bool dlgPVW::OnListKey(WPARAM key, bool control, bool shift) {
    if (control && key == 'C') {
        shift ? CopyCell() : CopyRows();
        return true;
    }
    if (control && (key == 'A' || key == 'E')) {
        SelectAll();
        return true;
    }
    if (!control && (key == VK_LEFT || key == VK_RIGHT)) {
        const int last = static_cast<int>(rows_.Columns().size()) - 1;
        MoveToColumn(std::clamp(current_column_ + (key == VK_RIGHT ? 1 : -1), 0, last));
        return true;
    }
    return !control && !shift && MoveByKey(key);
}

// Wine's list walks over all its rows when a key changes the selection, which takes most of a second for a
// million rows; moving the selection from here touches two rows.
bool dlgPVW::MoveByKey(WPARAM key) {
    const std::int64_t last = ListView_GetItemCount(list_) - 1;
    if (last < 0 || current_row_ < 0) return false;
    const std::int64_t page = std::max(ListView_GetCountPerPage(list_) - 1, 1);
    std::int64_t row = current_row_;
    switch (key) {
        case VK_UP:
            row -= 1;
            break;
        case VK_DOWN:
            row += 1;
            break;
        case VK_PRIOR:
            row -= page;
            break;
        case VK_NEXT:
            row += page;
            break;
        case VK_HOME:
            row = 0;
            break;
        case VK_END:
            row = last;
            break;
        default:
            return false;
    }
    MoveToCell({std::clamp<std::int64_t>(row, 0, last), current_column_});
    return true;
}

void dlgPVW::MoveToColumn(int column) {
    current_column_ = column;
    const int row = static_cast<int>(CurrentCell().row);
    if (row < 0) return;
    ScrollToColumn(column);
    ListView_RedrawItems(list_, row, row);
}

void dlgPVW::MoveToCell(CellPlace place) {
    const int row = static_cast<int>(place.row);
    const int before = static_cast<int>(current_row_);
    const bool alone =
        ListView_GetSelectedCount(list_) == 1 && ListView_GetItemState(list_, before, LVIS_SELECTED) != 0;
    ListView_SetItemState(list_, alone ? before : -1, 0, LVIS_SELECTED);
    ListView_SetItemState(list_, row, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
    ListView_EnsureVisible(list_, row, FALSE);
    ListView_SetSelectionMark(list_, row);
    MoveToColumn(place.column);
}

void dlgPVW::ScrollToColumn(int column) {
    const RECT cell = CellBounds({CurrentCell().row, column});
    RECT client{};
    GetClientRect(list_, &client);
    int by = 0;
    if (cell.right > client.right) by = static_cast<int>(cell.right - client.right);
    if (cell.left - by < 0) by = static_cast<int>(cell.left);
    if (by != 0) ListView_Scroll(list_, by, 0);
}

void dlgPVW::ShowMenu(POINT screen) {
    if (screen.x == -1 && screen.y == -1) {
        const RECT cell = CellBounds(CurrentCell());
        screen = {cell.left, cell.bottom};
        ClientToScreen(list_, &screen);
    }
    const win32::UniqueMenu menu(CreatePopupMenu());
    const UINT for_rows = ListView_GetSelectedCount(list_) > 0 ? MF_STRING : MF_STRING | MF_GRAYED;
    const UINT for_cell = CurrentCell().row >= 0 ? MF_STRING : MF_STRING | MF_GRAYED;
    AppendMenuW(menu.get(), for_rows, kMenuCopyRows, preview_texts::kMenuCopyRows);
    AppendMenuW(menu.get(), for_cell, kMenuCopyCell, preview_texts::kMenuCopyCell);
    AppendMenuW(menu.get(), MF_SEPARATOR, 0, nullptr);
    AppendMenuW(menu.get(), for_cell, kMenuSelectAll, preview_texts::kMenuSelectAll);
    AppendMenuW(menu.get(), for_cell, kMenuFind, preview_texts::kMenuFind);
    switch (TrackPopupMenu(menu.get(), TPM_RETURNCMD | TPM_RIGHTBUTTON, screen.x, screen.y, 0, Handle(),
                           nullptr)) {
        case kMenuCopyRows:
            return CopyRows();
        case kMenuCopyCell:
            return CopyCell();
        case kMenuSelectAll:
            return SelectAll();
        case kMenuFind:
            return ShowFindBar();
        default:
            return;
    }
}

void dlgPVW::SelectAll() {
    ListView_SetItemState(list_, -1, LVIS_SELECTED, LVIS_SELECTED);
}

// Rows beyond what memory holds are no reason to fall over: nothing is copied then, and the user is told.
void dlgPVW::CopyRows() {
    if (ListView_GetSelectedCount(list_) == 0) return;
    const WaitCursor wait;
    try {
        std::wstring text = HeadersAsText(rows_) + L"\r\n";
        for (int row = -1; (row = ListView_GetNextItem(list_, row, LVNI_SELECTED)) >= 0;)
            text += RowAsText(rows_, row) + L"\r\n";
        Copy(text);
    } catch (const std::bad_alloc&) {
        ShowStatus(preview_texts::kNotCopied);
    }
}

void dlgPVW::CopyCell() {
    const CellPlace place = CurrentCell();
    if (place.row >= 0) Copy(rows_.Cell(place.row, place.column).text);
}

void dlgPVW::Copy(const std::wstring& text) {
    if (!win32::CopyToClipboard(Handle(), text)) ShowStatus(preview_texts::kNotCopied);
}

void dlgPVW::ShowFindBar() {
    if (!find_bar_.IsShown()) {
        find_bar_.Show(true);
        Layout();
    }
    find_bar_.Focus();
}

void dlgPVW::HideFindBar() {
    find_bar_.Show(false);
    Layout();
    SetFocus(list_);
    UpdateStatus();
}

void dlgPVW::FindAgain(bool backwards) {
    const std::wstring text = find_bar_.Text();
    text.empty() ? ShowFindBar() : Find(text, backwards);
}

void dlgPVW::Find(std::wstring_view text, bool backwards) {
    CellPlace from = CurrentCell();
    from.row = std::max<std::int64_t>(from.row, 0);
    search_.emplace(text, from, backwards);
    ++searches_;
    SearchSlice();
    if (search_) SetTimer(Handle(), kSearchTimer, USER_TIMER_MINIMUM, nullptr);
}

void dlgPVW::SearchSlice() {
    if (!search_) return StopSearch();
    // Reading rows may let messages through, the timer's too.
    if (in_slice_) return;
    in_slice_ = true;
    const int searching = searches_;
    RowSearch search = *search_;
    const ULONGLONG started = GetTickCount64();
    RowSearch::State state = RowSearch::State::Searching;
    while (state == RowSearch::State::Searching && GetTickCount64() - started < kSliceMilliseconds)
        state = search.Advance(rows_, kSliceRows);
    in_slice_ = false;
    RepaintUnread();
    if (searching != searches_) return;
    search_ = search;
    const CellPlace place = search.Place();
    if (state == RowSearch::State::Searching)
        return ShowStatus(preview_texts::kSearching + Grouped(place.row + 1, group_separator_) + L"…");
    StopSearch();
    if (state == RowSearch::State::Found)
        MoveToCell(place);
    else
        ShowStatus(preview_texts::kNotFound);
}

void dlgPVW::RepaintUnread() {
    if (rows_.TakeUnread()) InvalidateRect(list_, nullptr, FALSE);
}

void dlgPVW::StopSearch() {
    KillTimer(Handle(), kSearchTimer);
    search_.reset();
    ++searches_;
    UpdateStatus();
}

}  // namespace tessel::ui
