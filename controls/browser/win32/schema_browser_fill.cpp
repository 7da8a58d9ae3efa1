// Filling the browser's tree. The tree control takes tens of microseconds for an item, so that of a large
// schema only the first objects are there when the window opens; the others follow in slices between the
// user's messages, or at once where somebody asks for one of them.
#include <windows.h>

#include <windowsx.h>

#include <algorithm>
#include <optional>
#include <utility>

#include "common/identifiers.h"
#include "common/win32/handles.h"
#include "controls/browser/win32/browser_item_data.h"
#include "controls/browser/win32/schema_browser.h"

namespace tessel::controls {

namespace {

constexpr UINT_PTR kFillTimer = 1;
/// What is there at once: as much as a high window shows.
constexpr std::size_t kFirstObjects = 64;
/// Between two looks at the clock.
constexpr std::size_t kObjectsAtOnce = 50;
constexpr ULONGLONG kSlice_ms = 10;

std::wstring FieldText(const BrowserField& field) {
    const std::wstring name = Unbracketed(field.name);
    return field.type_text.empty() ? name : name + L" – " + field.type_text;
}

BrowserIcon FieldIcon(const BrowserField& field) {
    if (field.primary_key) return BrowserIcon::PrimaryKey;
    if (field.foreign_key) return BrowserIcon::ForeignKey;
    switch (field.sort) {
        case FieldSort::Text:
            return BrowserIcon::TextField;
        case FieldSort::Number:
            return BrowserIcon::NumberField;
        case FieldSort::Date:
            return BrowserIcon::DateField;
        case FieldSort::Boolean:
            return BrowserIcon::BooleanField;
        case FieldSort::Binary:
            return BrowserIcon::BinaryField;
        case FieldSort::Other:
            break;
    }
    return BrowserIcon::Field;
}

/// Takes a window out of sight for a scope: a tree draws its scroll bars at once with every change of what it
/// holds, even while nothing else of it is drawn.
class OutOfSight {
public:
    explicit OutOfSight(HWND hwnd) : hwnd_(IsWindowVisible(hwnd) ? hwnd : nullptr) {
        if (hwnd_) SetWindowPos(hwnd_, nullptr, 0, 0, 0, 0, kInPlace | SWP_HIDEWINDOW);
    }
    ~OutOfSight() {
        if (!hwnd_) return;
        SetWindowPos(hwnd_, nullptr, 0, 0, 0, 0, kInPlace | SWP_SHOWWINDOW);
        RedrawWindow(hwnd_, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_FRAME);
    }
    OutOfSight(const OutOfSight&) = delete;
    OutOfSight& operator=(const OutOfSight&) = delete;

private:
    static constexpr UINT kInPlace = SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_NOREDRAW;
    HWND hwnd_;
};

}  // namespace

HTREEITEM SchemaBrowser::AddItem(HTREEITEM parent, HTREEITEM after, const std::wstring& text,
                                 BrowserIcon icon, LPARAM data, bool has_children) const {
    std::wstring buffer = text;
    TVINSERTSTRUCTW insert{};
    insert.hParent = parent;
    insert.hInsertAfter = after ? after : TVI_FIRST;
    insert.item.mask = TVIF_TEXT | TVIF_IMAGE | TVIF_SELECTEDIMAGE | TVIF_PARAM | TVIF_CHILDREN;
    insert.item.pszText = buffer.data();
    insert.item.iImage = static_cast<int>(icon);
    insert.item.iSelectedImage = static_cast<int>(icon);
    insert.item.lParam = data;
    insert.item.cChildren = has_children ? 1 : 0;
    return TreeView_InsertItem(tree_, &insert);
}

void SchemaBrowser::FillTree() {
    BrowserItem selected;
    const bool had_selection = SelectedItem(selected);
    const std::vector<std::size_t> expanded = ExpandedObjects();
    filling_ = true;
    std::optional<OutOfSight> unseen(tree_);
    SetWindowRedraw(tree_, FALSE);
    TreeView_DeleteAllItems(tree_);
    object_items_.assign(model_.ObjectCount(), nullptr);
    opened_.clear();
    const bool any = !model_.Tables().empty() || !model_.Views().empty();
    const HTREEITEM root = AddItem(TVI_ROOT, nullptr, model_.Caption(), BrowserIcon::Database,
                                   ItemData(BrowserItem::Kind::Root, 0), any);
    tables_ = AddGroup(schema::ObjectKind::Table, nullptr);
    views_ = AddGroup(schema::ObjectKind::View, tables_.item);
    AddObjects(kFirstObjects);
    TreeView_Expand(tree_, root, TVE_EXPAND);
    for (const Group* group : {&tables_, &views_})
        if (group->item) TreeView_Expand(tree_, group->item, TVE_EXPAND);
    for (const std::size_t object : expanded)
        if (const HTREEITEM item = ItemOf(object)) TreeView_Expand(tree_, item, TVE_EXPAND);
    bool found = false;
    if (had_selection && IsObject(selected.kind)) found = SelectItem(selected.name);
    if (had_selection && selected.kind == BrowserItem::Kind::Field)
        found = SelectItem(selected.table, selected.name);
    if (had_selection && selected.kind == BrowserItem::Kind::Relation) found = SelectItem(selected.table);
    if (!found) {
        TreeView_SelectItem(tree_, root);
        TreeView_EnsureVisible(tree_, root);
    }
    SetWindowRedraw(tree_, TRUE);
    SettleScrollBars();
    InvalidateRect(tree_, nullptr, TRUE);
    unseen.reset();
    filling_ = false;
    if (IsFilled())
        KillTimer(Handle(), kFillTimer);
    else
        SetTimer(Handle(), kFillTimer, USER_TIMER_MINIMUM, nullptr);
    if (had_selection && !found && events_) {
        const BrowserItem now = Describe(root);
        events_->OnBrowserSelected(&now);
    }
}

/// Drawing begun anew makes the tree find its scroll bars anew. Once is not always enough, since a bar for
/// the width takes room from the height; what the tree has not found before it is painted it finds while it
/// is painted, and is drawn several times.
void SchemaBrowser::SettleScrollBars() const {
    SetWindowRedraw(tree_, FALSE);
    SetWindowRedraw(tree_, TRUE);
}

const std::vector<std::size_t>& SchemaBrowser::ObjectsOf(const Group& group) const {
    return &group == &views_ ? model_.Views() : model_.Tables();
}

/// Adds a group behind a sibling; one without objects is left out.
SchemaBrowser::Group SchemaBrowser::AddGroup(schema::ObjectKind kind, HTREEITEM after) const {
    const bool views = kind == schema::ObjectKind::View;
    if ((views ? model_.Views() : model_.Tables()).empty()) return {};
    Group group;
    group.item = AddItem(TreeView_GetRoot(tree_), after, model_.GroupCaption(kind), BrowserIcon::Group,
                         ItemData(BrowserItem::Kind::Group, static_cast<std::size_t>(kind)), true);
    return group;
}

bool SchemaBrowser::IsFilled() const {
    return tables_.added == model_.Tables().size() && views_.added == model_.Views().size();
}

/// Adds that many of the objects that are still missing, tables first.
void SchemaBrowser::AddObjects(std::size_t count) {
    for (Group* group : {&tables_, &views_}) {
        const std::vector<std::size_t>& objects = ObjectsOf(*group);
        const BrowserIcon icon = group == &views_ ? BrowserIcon::View : BrowserIcon::Table;
        for (; count > 0 && group->added < objects.size(); --count, ++group->added) {
            const std::size_t object = objects[group->added];
            const BrowserItem item = model_.ItemOfObject(object);
            // Without the brackets that a statement needs, so that typing the beginning of a name finds it.
            group->last = AddItem(group->item, group->last, Unbracketed(item.name), icon,
                                  ItemData(item.kind, object), true);
            object_items_[object] = group->last;
        }
    }
}

void SchemaBrowser::FillSlice() {
    const ULONGLONG begun = GetTickCount64();
    FillWhile([begun] { return GetTickCount64() - begun < kSlice_ms; });
    if (IsFilled()) KillTimer(Handle(), kFillTimer);
}

void SchemaBrowser::FinishFilling() {
    FillWhile([] { return true; });
}

void SchemaBrowser::FillWhile(const std::function<bool()>& more) {
    if (!tree_ || IsFilled()) return;
    const bool was_filling = std::exchange(filling_, true);
    if (!was_filling) SetWindowRedraw(tree_, FALSE);
    do AddObjects(kObjectsAtOnce);
    while (!IsFilled() && more());
    if (!was_filling) {
        SetWindowRedraw(tree_, TRUE);
        InvalidateRect(tree_, nullptr, FALSE);
    }
    filling_ = was_filling;
}

/// The item of an object, which is added with those before it when it is still missing; nullptr when the
/// filter hides it.
HTREEITEM SchemaBrowser::ItemOf(std::size_t object) {
    if (object >= object_items_.size()) return nullptr;
    const auto shows = [object](const std::vector<std::size_t>& objects) {
        return std::ranges::binary_search(objects, object);
    };
    if (!object_items_[object] && (shows(model_.Tables()) || shows(model_.Views())))
        FillWhile([&] { return !object_items_[object]; });
    return object_items_[object];
}

void SchemaBrowser::FillFields(HTREEITEM object_item) {
    const LPARAM data = DataOf(object_item);
    if (!IsObject(KindOf(data)) || TreeView_GetChild(tree_, object_item)) return;
    const std::size_t object = IndexOf(data);
    const std::vector<BrowserField> fields = model_.FieldsOf(object);
    static_cast<void>(model_.RelationsOf(object));
    // Reading may let messages through, after which the tree may be another, or filled.
    if (object >= object_items_.size() || object_items_[object] != object_item ||
        TreeView_GetChild(tree_, object_item))
        return;
    opened_.push_back(object);
    HTREEITEM last = nullptr;
    for (std::size_t i = 0; i < fields.size(); ++i)
        last = AddItem(object_item, last, FieldText(fields[i]), FieldIcon(fields[i]),
                       ItemData(BrowserItem::Kind::Field, i), false);
    const HTREEITEM relations = FillRelations(object_item, last);
    if (last || relations) return;
    // Nothing to open: the button goes away.
    TVITEMW item{};
    item.hItem = object_item;
    item.mask = TVIF_CHILDREN;
    TreeView_SetItem(tree_, &item);
}

/// Adds the group of an object's relations behind its last field; an object without relations has none.
HTREEITEM SchemaBrowser::FillRelations(HTREEITEM object_item, HTREEITEM after) {
    const std::size_t object = IndexOf(DataOf(object_item));
    const std::vector<std::wstring> lines = model_.RelationsOf(object);
    if (lines.empty()) return nullptr;
    const HTREEITEM group = AddItem(object_item, after, model_.RelationsCaption(object), BrowserIcon::Group,
                                    ItemData(BrowserItem::Kind::Relations, object), true);
    HTREEITEM last = nullptr;
    for (std::size_t i = 0; i < lines.size(); ++i)
        last = AddItem(group, last, lines[i], BrowserIcon::Relation, ItemData(BrowserItem::Kind::Relation, i),
                       false);
    return group;
}

std::vector<std::size_t> SchemaBrowser::ExpandedObjects() const {
    std::vector<std::size_t> expanded;
    for (const std::size_t object : opened_)
        if (object < object_items_.size() && object_items_[object] &&
            (TreeView_GetItemState(tree_, object_items_[object], TVIS_EXPANDED) & TVIS_EXPANDED))
            expanded.push_back(object);
    return expanded;
}

}  // namespace tessel::controls
