#include "controls/browser/win32/schema_browser.h"

#include <uxtheme.h>
#include <windowsx.h>

#include <algorithm>

#include "common/identifiers.h"
#include "common/win32/accessible_name.h"
#include "common/win32/dpi.h"
#include "common/win32/gdi.h"
#include "common/win32/module.h"
#include "controls/browser/win32/browser_item_data.h"

namespace tessel::controls {

namespace {

// Apart from IDOK and IDCANCEL, which a dialog around us uses for its own buttons.
constexpr int kIdSearch = 11;
constexpr int kIdTree = 12;
constexpr int kMargin = 4;         // at 96 dpi
constexpr int kSearchPadding = 8;  // around the text of the search box, at 96 dpi
constexpr int kItemPadding = 4;    // above and below the icon together, at 96 dpi
constexpr int kIndent = 19;        // at 96 dpi

constexpr const wchar_t* kSearchCue = L"Buscar…";
constexpr const wchar_t* kSearchName = L"Buscar tablas y vistas";
constexpr const wchar_t* kTreeName = L"Esquema";

int LineHeight(HFONT font) {
    return static_cast<int>(win32::TextSize(win32::MeasuringDc(font).Get(), L"Áy").cy);
}

}  // namespace

SchemaBrowser::~SchemaBrowser() {
    filling_ = true;
    Destroy();
    if (icons_) ImageList_Destroy(icons_);
}

bool SchemaBrowser::Create(HWND parent, int id, BrowserEvents* events) {
    events_ = events;
    const win32::WindowClass window_class{L"TesselSchemaBrowser", 0, GetSysColorBrush(COLOR_WINDOW),
                                          IDC_ARROW};
    if (!CreateWindowOf(window_class, L"", WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN, WS_EX_CONTROLPARENT,
                        parent, id))
        return false;
    if (!OnCreate()) {
        Destroy();
        return false;
    }
    return true;
}

bool SchemaBrowser::OnCreate() {
    const HINSTANCE module = win32::ThisModule();
    search_ =
        CreateWindowExW(WS_EX_CLIENTEDGE, WC_EDITW, L"", WS_CHILD | WS_VISIBLE | WS_TABSTOP | ES_AUTOHSCROLL,
                        0, 0, 0, 0, Handle(), reinterpret_cast<HMENU>(INT_PTR{kIdSearch}), module, nullptr);
    constexpr DWORD kTreeStyle =
        WS_CHILD | WS_VISIBLE | WS_TABSTOP | TVS_HASBUTTONS | TVS_LINESATROOT | TVS_SHOWSELALWAYS;
    tree_ = CreateWindowExW(0, WC_TREEVIEWW, L"", kTreeStyle, 0, 0, 0, 0, Handle(),
                            reinterpret_cast<HMENU>(INT_PTR{kIdTree}), module, nullptr);
    if (!search_ || !tree_) return false;
    for (HWND child : {search_, tree_})
        if (!win32::Subclass(child, ChildProcedure, this)) return false;
    SendMessageW(search_, EM_SETCUEBANNER, TRUE, reinterpret_cast<LPARAM>(kSearchCue));
    win32::SetAccessibleName(search_, kSearchName);
    win32::SetAccessibleName(tree_, kTreeName);
    SetWindowTheme(tree_, L"Explorer", nullptr);
    TreeView_SetExtendedStyle(tree_, TVS_EX_DOUBLEBUFFER, TVS_EX_DOUBLEBUFFER);
    OnDpiChanged(win32::DpiOf(Handle()));
    FillTree();
    return true;
}

void SchemaBrowser::Load(const schema::Schema* schema, std::wstring_view caption) {
    // The items of the old schema go before it does: they would be asked what they are.
    object_items_.clear();
    filling_ = true;
    if (tree_) TreeView_DeleteAllItems(tree_);
    model_.Load(schema, caption);
    if (tree_) FillTree();
    filling_ = false;
}

void SchemaBrowser::OnDpiChanged(int dpi) {
    if (!IsCreated() || dpi <= 0) return;
    dpi_ = dpi;
    win32::UniqueFont font = win32::MessageFont(dpi);
    const BOOL redraw = IsWindowVisible(Handle());
    SetWindowFont(search_, font.get(), redraw);
    SetWindowFont(tree_, font.get(), redraw);
    font_ = std::move(font);
    const HIMAGELIST old = icons_;
    icons_ = MakeBrowserIcons(dpi);
    TreeView_SetImageList(tree_, icons_, TVSIL_NORMAL);
    if (old) ImageList_Destroy(old);
    TreeView_SetIndent(tree_, win32::Scale(kIndent, dpi));

    const int content = std::max(LineHeight(font_.get()), BrowserIconSize(dpi));
    TreeView_SetItemHeight(tree_, content + win32::Scale(kItemPadding, dpi));
    Layout();
}

void SchemaBrowser::Layout() {
    if (!search_ || !tree_) return;
    RECT client{};
    GetClientRect(Handle(), &client);
    const int margin = win32::Scale(kMargin, dpi_);
    const int search_height = LineHeight(font_.get()) + win32::Scale(kSearchPadding, dpi_);
    const int width = client.right > 2 * margin ? client.right - 2 * margin : 0;
    const int top = search_height + 2 * margin;
    MoveWindow(search_, margin, margin, width, search_height, TRUE);
    MoveWindow(tree_, 0, top, client.right, client.bottom > top ? client.bottom - top : 0, TRUE);
    if (!IsWindowVisible(tree_)) SettleScrollBars();
}

LPARAM SchemaBrowser::DataOf(HTREEITEM item) const {
    TVITEMW query{};
    query.hItem = item;
    query.mask = TVIF_PARAM;
    return TreeView_GetItem(tree_, &query) ? query.lParam : 0;
}

BrowserItem SchemaBrowser::Describe(HTREEITEM item) const {
    const LPARAM data = DataOf(item);
    switch (KindOf(data)) {
        case BrowserItem::Kind::Table:
        case BrowserItem::Kind::View:
            return model_.ItemOfObject(IndexOf(data));
        case BrowserItem::Kind::Field:
            return model_.ItemOfField(IndexOf(DataOf(TreeView_GetParent(tree_, item))), IndexOf(data));
        case BrowserItem::Kind::Relations:
            return {BrowserItem::Kind::Relations, model_.RelationsCaption(IndexOf(data)),
                    model_.ObjectAt(IndexOf(data)).name};
        case BrowserItem::Kind::Relation:
            return model_.ItemOfRelation(IndexOf(DataOf(TreeView_GetParent(tree_, item))), IndexOf(data));
        case BrowserItem::Kind::Group:
            return {BrowserItem::Kind::Group,
                    model_.GroupCaption(static_cast<schema::ObjectKind>(IndexOf(data))), L""};
        default:
            return {BrowserItem::Kind::Root, model_.Caption(), L""};
    }
}

bool SchemaBrowser::SelectedItem(BrowserItem& item) const {
    const HTREEITEM selected = IsCreated() ? TreeView_GetSelection(tree_) : nullptr;
    if (!selected || object_items_.size() != model_.ObjectCount()) return false;
    item = Describe(selected);
    return true;
}

bool SchemaBrowser::SelectItem(std::wstring_view object, std::wstring_view field) {
    if (!IsCreated()) return false;
    const std::size_t index = model_.FindObject(object);
    HTREEITEM item = ItemOf(index);
    if (!item) return false;
    if (!field.empty()) {
        const std::size_t wanted = model_.FindField(index, field);
        if (wanted == BrowserModel::kNone) return false;
        FillFields(item);
        item = TreeView_GetChild(tree_, item);
        for (std::size_t i = 0; i < wanted && item; ++i) item = TreeView_GetNextSibling(tree_, item);
        if (!item) return false;
    }
    TreeView_SelectItem(tree_, item);
    TreeView_EnsureVisible(tree_, item);
    return true;
}

}  // namespace tessel::controls
