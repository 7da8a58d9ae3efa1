#include "ui/win32/dlg_add_table.h"

#include <commctrl.h>

#include <algorithm>

#include "common/win32/accessible_name.h"
#include "common/win32/gdi.h"
#include "common/win32/module.h"
#include "ui/add_table_list.h"

namespace tessel::ui {

namespace {

constexpr wchar_t kTitle[] = L"Agregar tabla al diagrama";
constexpr wchar_t kAdd[] = L"&Agregar";
constexpr wchar_t kClose[] = L"&Cerrar";
constexpr wchar_t kFilterCue[] = L"Buscar…";
constexpr wchar_t kKeepOpen[] = L"&Mantener abierta";
constexpr wchar_t kComboName[] = L"Tablas relacionadas con";
constexpr wchar_t kFilterName[] = L"Buscar";
constexpr wchar_t kListName[] = L"Tablas y vistas";
constexpr wchar_t kNothingSelected[] = L"Seleccione una tabla de la lista";
constexpr wchar_t kMessageTitle[] = L"Tessel";

constexpr int kIdCombo = 301;
constexpr int kIdFilter = 302;
constexpr int kIdList = 303;
constexpr int kIdAdd = 304;
constexpr int kIdKeepOpen = 305;
constexpr int kMargin = 10;           // dips
constexpr int kControlHeight = 24;    // dips
constexpr int kDropDownHeight = 280;  // dips
constexpr int kCheckMark = 22;        // dips: the box with its distance from the text
constexpr int kColumnGap = 24;        // dips between a table's name and the joined fields

}  // namespace

void dlgAddTable::Init(const schema::Schema& schema, std::wstring_view tableName,
                       std::function<void(std::wstring_view)> on_chosen) {
    schema_ = &schema;
    on_chosen_ = std::move(on_chosen);
    entries_ = AddTableEntries(schema);
    entry_ = EntryOf(entries_, tableName);
}

void dlgAddTable::Show(HWND owner) {
    Run(owner, kTitle, {460, 480}, {360, 260});
}

int dlgAddTable::DefaultButton() const {
    return kIdAdd;
}

HWND dlgAddTable::AddControl(const wchar_t* window_class, const wchar_t* text, DWORD style, DWORD ex_style,
                             int id) {
    const HWND control = CreateWindowExW(
        ex_style, window_class, text, WS_CHILD | WS_VISIBLE | WS_TABSTOP | style, 0, 0, 0, 0, Handle(),
        reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), win32::ThisModule(), nullptr);
    SendMessageW(control, WM_SETFONT, reinterpret_cast<WPARAM>(Font()), FALSE);
    return control;
}

bool dlgAddTable::OnCreateControls() {
    combo_ = AddControl(L"COMBOBOX", L"", CBS_DROPDOWNLIST | WS_VSCROLL, 0, kIdCombo);
    filter_ = AddControl(L"EDIT", L"", ES_AUTOHSCROLL, WS_EX_CLIENTEDGE, kIdFilter);
    list_ = AddControl(L"LISTBOX", L"",
                       LBS_NOTIFY | LBS_USETABSTOPS | LBS_NOINTEGRALHEIGHT | WS_VSCROLL | WS_HSCROLL,
                       WS_EX_CLIENTEDGE, kIdList);
    keep_open_ = AddControl(L"BUTTON", kKeepOpen, BS_AUTOCHECKBOX, 0, kIdKeepOpen);
    add_ = AddButton(kAdd, kIdAdd, true);
    close_ = AddButton(kClose, IDCANCEL, false);
    if (!combo_ || !filter_ || !list_ || !add_ || !close_ || !keep_open_) return false;
    win32::SetAccessibleName(combo_, kComboName);
    win32::SetAccessibleName(filter_, kFilterName);
    win32::SetAccessibleName(list_, kListName);
    SendMessageW(filter_, EM_SETCUEBANNER, TRUE, reinterpret_cast<LPARAM>(kFilterCue));
    for (const std::wstring& entry : entries_)
        SendMessageW(combo_, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(entry.c_str()));
    SendMessageW(combo_, CB_SETCURSEL, entry_, 0);
    FillList();
    return true;
}

void dlgAddTable::OnLayout(SIZE client) {
    const int margin = Px(kMargin);
    const int height = Px(kControlHeight);
    const int width = static_cast<int>(client.cx) - 2 * margin;
    const SIZE add = ButtonSize(add_);
    const SIZE close = ButtonSize(close_);
    const int buttons_top = static_cast<int>(client.cy) - static_cast<int>(add.cy) - margin;
    MoveWindow(combo_, margin, margin, width, Px(kDropDownHeight), TRUE);
    const int filter_top = 2 * margin + height;
    MoveWindow(filter_, margin, filter_top, width, height, TRUE);
    const int list_top = filter_top + height + margin;
    MoveWindow(list_, margin, list_top, width, buttons_top - margin - list_top, TRUE);
    const SIZE keep = ButtonSize(keep_open_);
    MoveWindow(keep_open_, margin, buttons_top,
               std::min<int>(keep.cx + Px(kCheckMark), width - close.cx - add.cx - 2 * margin), keep.cy,
               TRUE);
    MoveWindow(close_, client.cx - margin - close.cx, buttons_top, close.cx, close.cy, TRUE);
    MoveWindow(add_, client.cx - 2 * margin - close.cx - add.cx, buttons_top, add.cx, add.cy, TRUE);
}

void dlgAddTable::OnCommand(int id, int notification) {
    if (id == IDCANCEL) Close();
    if (id == kIdAdd || (id == kIdList && notification == LBN_DBLCLK)) AddChosen();
    if (id == kIdFilter && notification == EN_CHANGE) ShowLines();
    if (id == kIdCombo && notification == CBN_SELCHANGE) {
        entry_ = static_cast<std::size_t>(SendMessageW(combo_, CB_GETCURSEL, 0, 0));
        FillList();
    }
}

// The arrow keys go through the list while the user types in the filter.
bool dlgAddTable::OnPreTranslate(const MSG& message) {
    if (message.message != WM_KEYDOWN || message.hwnd != filter_) return false;
    const WPARAM key = message.wParam;
    if (key != VK_DOWN && key != VK_UP && key != VK_NEXT && key != VK_PRIOR) return false;
    SendMessageW(list_, WM_KEYDOWN, key, message.lParam);
    return true;
}

void dlgAddTable::FillList() {
    lines_ = AddTableLines(*schema_, entries_[entry_]);
    AlignColumns();
    ShowLines();
}

/// The joined fields begin behind the longest name, and the list scrolls as far as the longest line.
void dlgAddTable::AlignColumns() {
    int names = 0;
    int fields = 0;
    const win32::MeasuringDc dc(Font());
    TEXTMETRICW metrics{};
    GetTextMetricsW(dc.Get(), &metrics);
    for (const std::wstring& line : lines_) {
        const std::wstring name = TableOfLine(line);
        names = std::max<int>(names, win32::TextSize(dc.Get(), name).cx);
        const std::wstring rest = line.substr(std::min(name.size() + 1, line.size()));
        fields = std::max<int>(fields, win32::TextSize(dc.Get(), rest).cx);
    }
    const int column = names + Px(kColumnGap);
    // Tab stops are counted in quarters of the font's average width.
    const int tab_stop = MulDiv(column, 4, std::max<int>(metrics.tmAveCharWidth, 1));
    SendMessageW(list_, LB_SETTABSTOPS, 1, reinterpret_cast<LPARAM>(&tab_stop));
    SendMessageW(list_, LB_SETHORIZONTALEXTENT,
                 static_cast<WPARAM>(fields ? column + fields + Px(kMargin) : names), 0);
}

void dlgAddTable::ShowLines() {
    wchar_t filter[256] = L"";
    GetWindowTextW(filter_, filter, 256);
    const std::vector<std::wstring> shown = LinesHolding(lines_, filter);
    SendMessageW(list_, WM_SETREDRAW, FALSE, 0);
    SendMessageW(list_, LB_RESETCONTENT, 0, 0);
    for (const std::wstring& line : shown)
        SendMessageW(list_, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(line.c_str()));
    // One table left by what was typed is the one that is meant.
    if (filter[0] && shown.size() == 1) SendMessageW(list_, LB_SETCURSEL, 0, 0);
    SendMessageW(list_, WM_SETREDRAW, TRUE, 0);
    InvalidateRect(list_, nullptr, TRUE);
}

void dlgAddTable::AddChosen() {
    const LRESULT selected = SendMessageW(list_, LB_GETCURSEL, 0, 0);
    if (selected == LB_ERR) {
        MessageBoxW(Handle(), kNothingSelected, kMessageTitle, MB_OK);
        return;
    }
    std::wstring line(
        static_cast<std::size_t>(SendMessageW(list_, LB_GETTEXTLEN, static_cast<WPARAM>(selected), 0)),
        L'\0');
    SendMessageW(list_, LB_GETTEXT, static_cast<WPARAM>(selected), reinterpret_cast<LPARAM>(line.data()));
    if (on_chosen_) on_chosen_(TableOfLine(line));
    if (SendMessageW(keep_open_, BM_GETCHECK, 0, 0) != BST_CHECKED) return Close();
    PrepareForNext(static_cast<int>(selected));
}

// Whoever typed types the next name; whoever went through the list goes on below.
void dlgAddTable::PrepareForNext(int selected) {
    if (GetWindowTextLengthW(filter_) > 0) {
        SendMessageW(filter_, EM_SETSEL, 0, -1);
        SetFocus(filter_);
        return;
    }
    const int lines = static_cast<int>(SendMessageW(list_, LB_GETCOUNT, 0, 0));
    SendMessageW(list_, LB_SETCURSEL, static_cast<WPARAM>(std::min(selected + 1, lines - 1)), 0);
}

}  // namespace tessel::ui
