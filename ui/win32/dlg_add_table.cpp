#include "ui/win32/dlg_add_table.h"

#include <commctrl.h>

#include "common/win32/module.h"
#include "ui/add_table_list.h"

namespace tessel::ui {

namespace {

constexpr wchar_t kTitle[] = L"Agregar tabla al diagrama";
constexpr wchar_t kAdd[] = L"&Agregar";
constexpr wchar_t kClose[] = L"&Cerrar";
constexpr wchar_t kFilterCue[] = L"Buscar…";
constexpr wchar_t kNothingSelected[] = L"Seleccione una tabla de la lista";
constexpr wchar_t kMessageTitle[] = L"Tessel";

constexpr int kIdCombo = 301;
constexpr int kIdFilter = 302;
constexpr int kIdList = 303;
constexpr int kIdAdd = 304;
constexpr int kMargin = 10;        // dips
constexpr int kControlHeight = 24;  // dips
constexpr int kDropDownHeight = 280;  // dips
constexpr int kTabStop = 110;      // dialog units: where the joined fields begin

}  // namespace

void dlgAddTable::Init(const schema::Schema& schema, std::wstring_view tableName,
                       std::function<void(std::wstring_view)> on_chosen) {
    schema_ = &schema;
    on_chosen_ = std::move(on_chosen);
    entries_ = AddTableEntries(schema);
    entry_ = EntryOf(entries_, tableName);
}

void dlgAddTable::Show(HWND owner) { Run(owner, kTitle, {460, 480}, {300, 260}); }

int dlgAddTable::DefaultButton() const { return kIdAdd; }

HWND dlgAddTable::AddControl(const wchar_t* window_class, const wchar_t* text, DWORD style, DWORD ex_style, int id) {
    const HWND control =
        CreateWindowExW(ex_style, window_class, text, WS_CHILD | WS_VISIBLE | WS_TABSTOP | style, 0, 0, 0, 0, Handle(),
                        reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), win32::ThisModule(), nullptr);
    SendMessageW(control, WM_SETFONT, reinterpret_cast<WPARAM>(Font()), FALSE);
    return control;
}

bool dlgAddTable::OnCreateControls() {
    combo_ = AddControl(L"COMBOBOX", L"", CBS_DROPDOWNLIST | WS_VSCROLL, 0, kIdCombo);
    filter_ = AddControl(L"EDIT", L"", ES_AUTOHSCROLL, WS_EX_CLIENTEDGE, kIdFilter);
    list_ = AddControl(L"LISTBOX", L"", LBS_NOTIFY | LBS_USETABSTOPS | LBS_NOINTEGRALHEIGHT | WS_VSCROLL | WS_HSCROLL,
                       WS_EX_CLIENTEDGE, kIdList);
    add_ = AddButton(kAdd, kIdAdd, true);
    close_ = AddButton(kClose, IDCANCEL, false);
    if (!combo_ || !filter_ || !list_ || !add_ || !close_) return false;
    SendMessageW(filter_, EM_SETCUEBANNER, TRUE, reinterpret_cast<LPARAM>(kFilterCue));
    const int tab_stop = kTabStop;
    SendMessageW(list_, LB_SETTABSTOPS, 1, reinterpret_cast<LPARAM>(&tab_stop));
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

void dlgAddTable::FillList() {
    lines_ = AddTableLines(*schema_, entries_[entry_]);
    ShowLines();
}

void dlgAddTable::ShowLines() {
    wchar_t filter[256] = L"";
    GetWindowTextW(filter_, filter, 256);
    SendMessageW(list_, WM_SETREDRAW, FALSE, 0);
    SendMessageW(list_, LB_RESETCONTENT, 0, 0);
    const std::vector<std::wstring> shown = LinesHolding(lines_, filter);
    for (const std::wstring& line : shown) SendMessageW(list_, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(line.c_str()));
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
    std::wstring line(static_cast<std::size_t>(SendMessageW(list_, LB_GETTEXTLEN, static_cast<WPARAM>(selected), 0)),
                      L'\0');
    SendMessageW(list_, LB_GETTEXT, static_cast<WPARAM>(selected), reinterpret_cast<LPARAM>(line.data()));
    if (on_chosen_) on_chosen_(TableOfLine(line));
    Close();
}

}  // namespace tessel::ui
