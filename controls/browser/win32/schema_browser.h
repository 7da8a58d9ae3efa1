// schemaView: the window of the schema browser, a search box above a tree of tables, views and fields. Owns
// the two child windows, their layout, the icons and the lazy opening of objects. What the tree holds is
// browser_model.h's business; what a gesture means is decided by whoever listens.
//
// The parent has nothing to forward: the children report to this window.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "common/win32/handles.h"
#include "common/win32/subclass.h"
#include "common/win32/window.h"
#include "controls/browser/browser_model.h"
#include "controls/browser/win32/browser_icons.h"

namespace tessel::controls {

class BrowserEvents {
public:
    virtual ~BrowserEvents() = default;
    /// Double click or Enter on a table, view, field or relation.
    virtual void OnBrowserActivated(const BrowserItem& item) = 0;
    /// Another item is selected, or nullptr when none is.
    virtual void OnBrowserSelected(const BrowserItem* item) { (void)item; }
    /// The left button began to drag a table, a view or a field. `caption` is what the tree shows of it.
    virtual void OnBrowserDragBegun(const BrowserItem& item, std::wstring_view caption) {
        (void)item;
        (void)caption;
    }
    /// Right click, Shift+F10 or the menu key on an item, which is selected by then. `screen` is where a menu
    /// belongs.
    virtual void OnBrowserContextMenu(const BrowserItem& item, POINT screen) {
        (void)item;
        (void)screen;
    }
};

class SchemaBrowser final : public win32::Window {
public:
    ~SchemaBrowser() override;

    /// Creates the browser without size. `events` may be nullptr and must outlive it.
    bool Create(HWND parent, int id, BrowserEvents* events);
    /// Shows a schema under a root of that caption; nullptr shows the root alone. Not owned, must outlive the
    /// window or be replaced by another Load.
    void Load(const schema::Schema* schema, std::wstring_view caption);

    HWND Tree() const { return tree_; }
    HWND SearchBox() const { return search_; }

    /// Fills `item` with what is selected; false when nothing is.
    bool SelectedItem(BrowserItem& item) const;
    /// Selects an object, or one of its fields, and scrolls to it. False when it is not there or filtered
    /// away.
    bool SelectItem(std::wstring_view object, std::wstring_view field = L"");

    void OnDpiChanged(int dpi);

private:
    LRESULT OnMessage(UINT message, WPARAM wparam, LPARAM lparam) override;
    bool OnCreate();
    void Layout();
    LRESULT OnNotify(NMHDR* header);
    bool Activate(HTREEITEM item);
    void OnDragBegun(HTREEITEM item);
    void OnContextMenu(POINT screen);
    void OnSearchChanged();
    bool OnSearchKey(WPARAM key);
    LRESULT OnTreeMessage(UINT message, WPARAM wparam, LPARAM lparam, const win32::SubclassChain& next);
    LRESULT OnSearchMessage(UINT message, WPARAM wparam, LPARAM lparam, const win32::SubclassChain& next);

    // schema_browser_fill.cpp
    struct Group {
        HTREEITEM item = nullptr;  ///< nullptr for a group without objects
        HTREEITEM last = nullptr;  ///< its last object
        std::size_t added = 0;     ///< how many of its objects are in the tree
    };
    void FillTree();
    void SettleScrollBars() const;
    Group AddGroup(schema::ObjectKind kind, HTREEITEM after) const;
    const std::vector<std::size_t>& ObjectsOf(const Group& group) const;
    bool IsFilled() const;
    void AddObjects(std::size_t count);
    void FillSlice();
    void FinishFilling();
    void FillWhile(const std::function<bool()>& more);
    HTREEITEM ItemOf(std::size_t object);
    /// Adds fields and relations below an object that has none yet; other items stay as they are.
    void FillFields(HTREEITEM object_item);
    HTREEITEM FillRelations(HTREEITEM object_item, HTREEITEM after);
    HTREEITEM AddItem(HTREEITEM parent, HTREEITEM after, const std::wstring& text, BrowserIcon icon,
                      LPARAM data, bool has_children) const;
    BrowserItem Describe(HTREEITEM item) const;
    LPARAM DataOf(HTREEITEM item) const;
    HTREEITEM ItemUnderPointer() const;
    std::vector<std::size_t> ExpandedObjects() const;

    static LRESULT ChildProcedure(HWND hwnd, UINT message, WPARAM wparam, LPARAM lparam, void* data,
                                  const win32::SubclassChain& next);

    BrowserModel model_;
    BrowserEvents* events_ = nullptr;
    HWND search_ = nullptr;
    HWND tree_ = nullptr;
    HIMAGELIST icons_ = nullptr;
    win32::UniqueFont font_;
    int dpi_ = 96;
    bool filling_ = false;                 ///< the tree is being filled, its notices mean nothing
    std::vector<HTREEITEM> object_items_;  ///< by index of the object; nullptr when hidden or not there yet
    std::vector<std::size_t> opened_;      ///< objects whose fields are in the tree
    Group tables_;
    Group views_;
};

}  // namespace tessel::controls
