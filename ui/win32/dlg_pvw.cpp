// Creation, layout, cells and painting of the preview's window; its commands are in dlg_pvw_commands.cpp.
#include "ui/win32/dlg_pvw.h"

#include <algorithm>

#include "common/win32/accessible_name.h"
#include "common/win32/gdi.h"
#include "common/win32/module.h"
#include "ui/preview_texts.h"

namespace tessel::ui {

namespace {

constexpr int kMargin = 10;           // dips
constexpr int kGap = 6;               // dips
constexpr int kEditWidth = 220;       // dips
constexpr int kCellPadding = 14;      // dips left and right of a text together
constexpr int kTextInset = 5;         // dips from the edge of a cell to its text
constexpr int kTipWidth = 480;        // dips
constexpr int kNarrowestColumn = 32;  // dips
constexpr std::int64_t kRowsMeasured = 50;

// A list control asks for texts of at most 259 characters, and shows no more.
constexpr std::size_t kCellLimit = 259;

/// More rows than a list control can count are shown up to here.
constexpr std::int64_t kMostRows = 100'000'000;

int HeaderFormat(Alignment alignment) {
    if (alignment == Alignment::Right) return LVCFMT_RIGHT;
    return alignment == Alignment::Centre ? LVCFMT_CENTER : LVCFMT_LEFT;
}

UINT TextFormat(Alignment alignment) {
    if (alignment == Alignment::Right) return DT_RIGHT;
    return alignment == Alignment::Centre ? DT_CENTER : DT_LEFT;
}

std::wstring UserGroupSeparator() {
    wchar_t separator[8] = L"";
    return GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_STHOUSAND, separator, 8) > 0 ? separator : L"";
}

}  // namespace

std::optional<Error> dlgPVW::Show(HWND owner) {
    if (Run(owner, preview_texts::kTitle, {760, 520}, {420, 260})) return std::nullopt;
    return Error{preview_texts::kNoWindow};
}

bool dlgPVW::OnCreateControls() {
    group_separator_ = UserGroupSeparator();
    if (!CreateList() || !find_bar_.Create(Handle(), Font(),
                                           {preview_texts::kFindLabel, preview_texts::kFindNext,
                                            preview_texts::kFindPrevious}))
        return false;
    status_ = CreateWindowExW(
        0, L"STATIC", L"", WS_CHILD | WS_VISIBLE | SS_CENTERIMAGE | SS_NOPREFIX | SS_ENDELLIPSIS, 0, 0, 0, 0,
        Handle(), reinterpret_cast<HMENU>(static_cast<INT_PTR>(kIdStatus)), win32::ThisModule(), nullptr);
    close_ = AddButton(preview_texts::kClose, IDCANCEL, true);
    tips_ = CreateWindowExW(WS_EX_TOPMOST, TOOLTIPS_CLASSW, nullptr, WS_POPUP | TTS_ALWAYSTIP | TTS_NOPREFIX,
                            CW_USEDEFAULT, 0, 0, 0, Handle(), nullptr, win32::ThisModule(), nullptr);
    if (!status_ || !close_ || !tips_) return false;
    SendMessageW(status_, WM_SETFONT, reinterpret_cast<WPARAM>(Font()), FALSE);
    SendMessageW(tips_, TTM_SETMAXTIPWIDTH, 0, Px(kTipWidth));
    TTTOOLINFOW tool{};
    tool.cbSize = sizeof tool;
    tool.uFlags = TTF_TRANSPARENT;
    tool.hwnd = list_;
    tool.lpszText = const_cast<wchar_t*>(L"");
    SendMessageW(tips_, TTM_ADDTOOLW, 0, reinterpret_cast<LPARAM>(&tool));
    UpdateStatus();
    return true;
}

bool dlgPVW::CreateList() {
    constexpr DWORD kStyle = WS_CHILD | WS_VISIBLE | WS_TABSTOP | LVS_REPORT | LVS_OWNERDATA |
                             LVS_SHOWSELALWAYS | LVS_NOSORTHEADER;
    list_ =
        CreateWindowExW(WS_EX_CLIENTEDGE, WC_LISTVIEWW, L"", kStyle, 0, 0, 0, 0, Handle(),
                        reinterpret_cast<HMENU>(static_cast<INT_PTR>(kIdRows)), win32::ThisModule(), nullptr);
    if (!list_) return false;
    win32::SetAccessibleName(list_, preview_texts::kRows);
    SendMessageW(list_, WM_SETFONT, reinterpret_cast<WPARAM>(Font()), FALSE);
    constexpr DWORD kExtended =
        LVS_EX_FULLROWSELECT | LVS_EX_GRIDLINES | LVS_EX_DOUBLEBUFFER | LVS_EX_HEADERDRAGDROP;
    SendMessageW(list_, LVM_SETEXTENDEDLISTVIEWSTYLE, kExtended, kExtended);
    AddColumns();
    const std::int64_t count = std::min(rows_.RowCount(), kMostRows);
    SendMessageW(list_, LVM_SETITEMCOUNT, static_cast<WPARAM>(count), LVSICF_NOSCROLL);
    if (count > 0)
        ListView_SetItemState(list_, 0, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
    return true;
}

// The leftmost column is always left-aligned when it is inserted; one that gets there because its left
// neighbour was deleted keeps its alignment.
void dlgPVW::AddColumns() {
    LVCOLUMNW column{};
    column.mask = LVCF_FMT | LVCF_WIDTH | LVCF_TEXT;
    column.pszText = const_cast<wchar_t*>(L"");
    SendMessageW(list_, LVM_INSERTCOLUMNW, 0, reinterpret_cast<LPARAM>(&column));
    const auto& columns = rows_.Columns();
    for (std::size_t i = 0; i < columns.size(); ++i) {
        column.fmt = HeaderFormat(columns[i].alignment);
        column.cx = FittingWidth(static_cast<int>(i));
        column.pszText = const_cast<wchar_t*>(columns[i].name.c_str());
        SendMessageW(list_, LVM_INSERTCOLUMNW, i + 1, reinterpret_cast<LPARAM>(&column));
    }
    SendMessageW(list_, LVM_DELETECOLUMN, 0, 0);
}

/// Wide enough for the header and the first rows, within the limits of a column.
int dlgPVW::FittingWidth(int column) {
    int width = TextWidth(rows_.Columns()[static_cast<std::size_t>(column)].name);
    const std::int64_t measured = std::min(rows_.RowCount(), kRowsMeasured);
    const int widest = Px(kWidestColumn);
    for (std::int64_t row = 0; row < measured && width < widest; ++row) {
        const PreviewCell cell = rows_.Cell(row, column);
        width =
            std::max(width, TextWidth(cell.is_null ? preview_texts::kNull : OneLine(cell.text, kCellLimit)));
    }
    return std::clamp(width + Px(kCellPadding), Px(kNarrowestColumn), widest);
}

int dlgPVW::TextWidth(const std::wstring& text) const {
    return static_cast<int>(
        SendMessageW(list_, LVM_GETSTRINGWIDTHW, 0, reinterpret_cast<LPARAM>(text.c_str())));
}

// The columns keep their proportions, also those that the user made.
void dlgPVW::OnScaled(int before) {
    SendMessageW(tips_, TTM_SETMAXTIPWIDTH, 0, Px(kTipWidth));
    for (int i = 0; i < static_cast<int>(rows_.Columns().size()); ++i)
        ListView_SetColumnWidth(list_, i, MulDiv(ListView_GetColumnWidth(list_, i), Dpi(), before));
}

void dlgPVW::OnLayout(SIZE client) {
    const int margin = Px(kMargin);
    const SIZE button = ButtonSize(close_);
    const int bottom = static_cast<int>(client.cy - button.cy) - margin;
    const int find_top = bottom - static_cast<int>(button.cy) - Px(kGap);
    const int list_bottom = (find_bar_.IsShown() ? find_top : bottom) - Px(kGap);
    MoveWindow(list_, margin, margin, client.cx - 2 * margin, list_bottom - margin, TRUE);
    find_bar_.Layout({margin, find_top, client.cx - margin, find_top + button.cy}, Px(kGap), Px(kEditWidth),
                     [this](HWND control) { return ButtonSize(control); });
    MoveWindow(close_, client.cx - button.cx - margin, bottom, button.cx, button.cy, TRUE);
    MoveWindow(status_, margin, bottom, client.cx - button.cx - 3 * margin, button.cy, TRUE);
}

LRESULT dlgPVW::OnMessage(UINT message, WPARAM wparam, LPARAM lparam) {
    switch (message) {
        case WM_TIMER:
            SearchSlice();
            return 0;
        case WM_CONTEXTMENU:
            if (reinterpret_cast<HWND>(wparam) != list_) break;
            ShowMenu({static_cast<short>(LOWORD(lparam)), static_cast<short>(HIWORD(lparam))});
            return 0;
        default:
            break;
    }
    return ModalDialog::OnMessage(message, wparam, lparam);
}

LRESULT dlgPVW::OnNotify(NMHDR* header) {
    if (header->hwndFrom != list_) return 0;
    switch (header->code) {
        case LVN_GETDISPINFOW:
            FillCell(*reinterpret_cast<NMLVDISPINFOW*>(header));
            return 0;
        case LVN_ITEMCHANGED:
            OnItemChanged(*reinterpret_cast<NMLISTVIEW*>(header));
            return 0;
        case LVN_ODSTATECHANGED:
            UpdateStatus();
            return 0;
        case NM_CLICK:
        case NM_RCLICK:
            if (const int column = reinterpret_cast<NMITEMACTIVATE*>(header)->iSubItem; column >= 0)
                MoveToColumn(column);
            return 0;
        case NM_CUSTOMDRAW:
            return DrawCell(*reinterpret_cast<NMLVCUSTOMDRAW*>(header));
        default:
            return 0;
    }
}

void dlgPVW::FillCell(NMLVDISPINFOW& info) {
    if ((info.item.mask & LVIF_TEXT) == 0 || !info.item.pszText || info.item.cchTextMax <= 0) return;
    const PreviewCell cell = rows_.Cell(info.item.iItem, info.item.iSubItem);
    const std::size_t limit = std::min(kCellLimit, static_cast<std::size_t>(info.item.cchTextMax) - 1);
    const std::wstring text = cell.is_null ? preview_texts::kNull : OneLine(cell.text, limit);
    lstrcpynW(info.item.pszText, text.c_str(), info.item.cchTextMax);
    RepaintUnread();
}

// Null is grey. Two kinds of cells are drawn here: the current one, which has a frame, and numbers and dates
// in the leftmost column, which some systems always draw left-aligned.
LRESULT dlgPVW::DrawCell(NMLVCUSTOMDRAW& draw) {
    switch (draw.nmcd.dwDrawStage) {
        case CDDS_PREPAINT:
            return CDRF_NOTIFYITEMDRAW;
        case CDDS_ITEMPREPAINT:
            return CDRF_NOTIFYSUBITEMDRAW;
        case CDDS_ITEMPREPAINT | CDDS_SUBITEM:
            break;
        default:
            return CDRF_DODEFAULT;
    }
    const CellPlace place{static_cast<std::int64_t>(draw.nmcd.dwItemSpec), draw.iSubItem};
    if (place == CurrentCell() ||
        (place.column == 0 && rows_.Columns().front().alignment != Alignment::Left)) {
        DrawWholeCell(draw.nmcd.hdc, place);
        return CDRF_SKIPDEFAULT;
    }
    if (ListView_GetItemState(list_, draw.nmcd.dwItemSpec, LVIS_SELECTED) == 0)
        draw.clrText =
            GetSysColor(rows_.Cell(place.row, place.column).is_null ? COLOR_GRAYTEXT : COLOR_WINDOWTEXT);
    return CDRF_NEWFONT;
}

void dlgPVW::DrawWholeCell(HDC dc, CellPlace place) {
    RECT bounds = CellBounds(place);
    bounds.bottom -= 1;  // the grid line
    const PreviewCell cell = rows_.Cell(place.row, place.column);
    const bool selected = ListView_GetItemState(list_, static_cast<int>(place.row), LVIS_SELECTED) != 0;
    const bool focused = GetFocus() == list_;
    int back = COLOR_WINDOW;
    int front = cell.is_null ? COLOR_GRAYTEXT : COLOR_WINDOWTEXT;
    if (selected) back = focused ? COLOR_HIGHLIGHT : COLOR_BTNFACE;
    if (selected && focused) front = COLOR_HIGHLIGHTTEXT;
    if (selected && !focused && !cell.is_null) front = COLOR_BTNTEXT;
    win32::FillSolid(dc, bounds, GetSysColor(back));
    // While the user types what to find, the place found needs a mark too.
    if (place == CurrentCell()) FrameRect(dc, &bounds, GetSysColorBrush(focused ? front : COLOR_HIGHLIGHT));
    const Alignment alignment = rows_.Columns()[static_cast<std::size_t>(place.column)].alignment;
    InflateRect(&bounds, -Px(kTextInset), 0);
    const std::wstring text = cell.is_null ? preview_texts::kNull : OneLine(cell.text, kCellLimit);
    win32::DrawTextLine(dc, bounds, text, GetSysColor(front), TextFormat(alignment));
}

/// The cell's rectangle in the list. The rectangle of column 0 would be the whole row's if asked for its
/// bounds.
RECT dlgPVW::CellBounds(CellPlace place) const {
    RECT bounds{};
    ListView_GetSubItemRect(list_, static_cast<int>(place.row), place.column,
                            place.column == 0 ? LVIR_LABEL : LVIR_BOUNDS, &bounds);
    return bounds;
}

void dlgPVW::OnItemChanged(const NMLISTVIEW& change) {
    const bool focused = (change.uNewState & LVIS_FOCUSED) != 0;
    if (focused && change.iItem >= 0) current_row_ = change.iItem;
    UpdateStatus();
}

void dlgPVW::UpdateStatus() {
    if (!status_ || search_) return;
    if (const std::wstring trouble = rows_.Trouble(); !trouble.empty()) return ShowStatus(trouble);
    const std::int64_t count = rows_.RowCount();
    const std::int64_t current = CurrentCell().row;
    if (count == 0) return ShowStatus(preview_texts::kNoRow);
    std::wstring text = preview_texts::kRow + Grouped(current + 1, group_separator_) + preview_texts::kOf +
                        Grouped(count, group_separator_);
    const int selected = ListView_GetSelectedCount(list_);
    if (selected > 1)
        text += L" (" + Grouped(selected, group_separator_) + preview_texts::kSelectedRows + L")";
    ShowStatus(text);
}

// The line is written only when it changes, so that it does not flicker while the list reports every row.
void dlgPVW::ShowStatus(const std::wstring& text) {
    wchar_t shown[512] = L"";
    GetWindowTextW(status_, shown, 512);
    if (text != shown) SetWindowTextW(status_, text.c_str());
}

// The tool's place and text follow the mouse from cell to cell; without a text no tip appears.
void dlgPVW::OnMouseMove(POINT point) {
    LVHITTESTINFO hit{};
    hit.pt = point;
    const int row =
        static_cast<int>(SendMessageW(list_, LVM_SUBITEMHITTEST, 0, reinterpret_cast<LPARAM>(&hit)));
    std::optional<CellPlace> cell;
    if (row >= 0) cell = CellPlace{row, hit.iSubItem};
    if (cell == tip_cell_) return;
    tip_cell_ = cell;
    tip_text_.clear();
    TTTOOLINFOW tool{};
    tool.cbSize = sizeof tool;
    tool.hwnd = list_;
    if (cell) {
        tool.rect = CellBounds(*cell);
        const std::wstring text = rows_.Cell(cell->row, cell->column).text;
        const bool lines = text.find(L'\n') != std::wstring::npos;
        if (lines ||
            TextWidth(OneLine(text, kCellLimit)) + Px(kCellPadding) > tool.rect.right - tool.rect.left)
            tip_text_ = text;
    }
    tool.lpszText = tip_text_.data();
    SendMessageW(tips_, TTM_POP, 0, 0);
    SendMessageW(tips_, TTM_NEWTOOLRECTW, 0, reinterpret_cast<LPARAM>(&tool));
    SendMessageW(tips_, TTM_UPDATETIPTEXTW, 0, reinterpret_cast<LPARAM>(&tool));
}

}  // namespace tessel::ui
