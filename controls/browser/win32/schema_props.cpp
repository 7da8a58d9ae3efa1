#include "controls/browser/win32/schema_props.h"

#include <commctrl.h>
#include <uxtheme.h>
#include <windowsx.h>

#include <algorithm>

#include "common/win32/accessible_name.h"
#include "common/win32/clipboard.h"
#include "common/win32/dpi.h"
#include "common/win32/gdi.h"
#include "common/win32/module.h"
#include "common/win32/screen.h"

namespace tessel::controls {

namespace {

constexpr int kIdList = 21;
constexpr int kCellPadding = 14;  // of a column beside its widest text, at 96 dpi
constexpr int kNarrowValue = 60;  // what the values keep in a narrow window, at 96 dpi

constexpr const wchar_t* kListName = L"Propiedades";
constexpr const wchar_t* kColumns[] = {L"Propiedad", L"Valor"};

}  // namespace

SchemaProps::~SchemaProps() {
    Destroy();
}

bool SchemaProps::Create(HWND parent, int id) {
    const win32::WindowClass window_class{L"TesselSchemaProps", 0, GetSysColorBrush(COLOR_WINDOW), IDC_ARROW};
    if (!CreateWindowOf(window_class, L"", WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN, WS_EX_CONTROLPARENT,
                        parent, id))
        return false;
    constexpr DWORD kStyle = WS_CHILD | WS_VISIBLE | WS_TABSTOP | LVS_REPORT | LVS_SINGLESEL |
                             LVS_SHOWSELALWAYS | LVS_NOSORTHEADER;
    list_ = CreateWindowExW(0, WC_LISTVIEWW, L"", kStyle, 0, 0, 0, 0, Handle(),
                            reinterpret_cast<HMENU>(INT_PTR{kIdList}), win32::ThisModule(), nullptr);
    if (!list_) {
        Destroy();
        return false;
    }
    SetWindowTheme(list_, L"Explorer", nullptr);
    constexpr DWORD kExtended = LVS_EX_FULLROWSELECT | LVS_EX_LABELTIP | LVS_EX_DOUBLEBUFFER;
    ListView_SetExtendedListViewStyleEx(list_, kExtended, kExtended);
    win32::SetAccessibleName(list_, kListName);
    for (int i = 0; i < 2; ++i) {
        LVCOLUMNW column{};
        column.mask = LVCF_TEXT | LVCF_SUBITEM;
        column.pszText = const_cast<wchar_t*>(kColumns[i]);
        column.iSubItem = i;
        ListView_InsertColumn(list_, i, &column);
    }
    OnDpiChanged(win32::DpiOf(Handle()));
    return true;
}

void SchemaProps::OnDpiChanged(int dpi) {
    if (!list_) return;
    dpi_ = dpi;
    font_ = win32::MessageFont(dpi);
    SendMessageW(list_, WM_SETFONT, reinterpret_cast<WPARAM>(font_.get()), IsWindowVisible(list_));
    FitColumns();
}

void SchemaProps::Show(const schema::Schema* schema, const BrowserItem* item) {
    std::vector<SchemaProperty> properties;
    if (schema && item) properties = PropertiesOf(*schema, *item);
    if (properties == shown_) return;
    shown_ = std::move(properties);
    if (list_) FillList();
}

void SchemaProps::FillList() {
    SetWindowRedraw(list_, FALSE);
    ListView_DeleteAllItems(list_);
    int row = 0;
    for (SchemaProperty& property : shown_) {
        LVITEMW item{};
        item.mask = LVIF_TEXT;
        item.iItem = row;
        item.pszText = property.name.data();
        ListView_InsertItem(list_, &item);
        ListView_SetItemText(list_, row, 1, property.value.data());
        ++row;
    }
    // The keyboard has a place to be seen at.
    if (row > 0) ListView_SetItemState(list_, 0, LVIS_FOCUSED, LVIS_FOCUSED);
    SetWindowRedraw(list_, TRUE);
    FitColumns();
}

// The names are shown whole, the values get the rest; a long value has a tip.
void SchemaProps::FitColumns() {
    RECT shown{};
    GetClientRect(list_, &shown);
    if (shown.right > 0) FitColumnsInto(shown.right);
}

void SchemaProps::FitColumnsInto(int width) {
    const win32::MeasuringDc dc(font_.get());
    int names = static_cast<int>(win32::TextSize(dc.Get(), kColumns[0]).cx);
    for (const SchemaProperty& property : shown_)
        names = std::max(names, static_cast<int>(win32::TextSize(dc.Get(), property.name).cx));
    names += win32::Scale(kCellPadding, dpi_);
    const auto set_width = [this](int column, int wanted) {
        if (ListView_GetColumnWidth(list_, column) != wanted) ListView_SetColumnWidth(list_, column, wanted);
    };
    set_width(0, names);
    // The first width may bring or take away a scroll bar, after which there is another width to fill.
    for (int round = 0; round < 2; ++round) {
        set_width(1, std::max(width - names, win32::Scale(kNarrowValue, dpi_)));
        RECT client{};
        GetClientRect(list_, &client);
        if (client.right <= 0) return;
        width = client.right;
    }
}

/// Copies the value of the selected line.
void SchemaProps::CopySelected() const {
    const int row = ListView_GetNextItem(list_, -1, LVNI_SELECTED);
    if (row >= 0 && row < static_cast<int>(shown_.size()))
        win32::CopyToClipboard(Handle(), shown_[static_cast<std::size_t>(row)].value);
}

LRESULT SchemaProps::OnNotify(NMHDR* header) {
    if (header->hwndFrom != list_ || header->code != LVN_KEYDOWN) return 0;
    if (reinterpret_cast<const NMLVKEYDOWN*>(header)->wVKey == 'C' && GetKeyState(VK_CONTROL) < 0)
        CopySelected();
    return 0;
}

LRESULT SchemaProps::OnMessage(UINT message, WPARAM wparam, LPARAM lparam) {
    switch (message) {
        case WM_SIZE:
            if (!list_) return 0;
            // Before the list has a place its columns are changed more cheaply.
            if (!IsWindowVisible(list_)) FitColumnsInto(LOWORD(lparam));
            MoveWindow(list_, 0, 0, LOWORD(lparam), HIWORD(lparam), TRUE);
            FitColumns();
            return 0;
        case WM_SETFOCUS:
            SetFocus(list_);
            return 0;
        case WM_NOTIFY:
            return OnNotify(reinterpret_cast<NMHDR*>(lparam));
        case WM_DESTROY:
            list_ = nullptr;
            return 0;
        case win32::kDpiChangedAfterParent:
            OnDpiChanged(win32::DpiOf(Handle()));
            return 0;
        default:
            return Window::OnMessage(message, wparam, lparam);
    }
}

}  // namespace tessel::controls
