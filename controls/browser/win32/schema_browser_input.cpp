// What the user does in the schema browser: messages of the browser and of its two children.
#include <windowsx.h>

#include "common/identifiers.h"
#include "common/win32/dpi.h"
#include "common/win32/screen.h"
#include "controls/browser/win32/schema_browser.h"

namespace tessel::controls {

namespace {

bool IsKey(const MSG* message, WPARAM key) {
    return message && (message->message == WM_KEYDOWN || message->message == WM_CHAR) &&
           message->wParam == key;
}

/// Neither the root nor a group, which only hold others together.
bool IsPartOfSchema(const BrowserItem& item) {
    using Kind = BrowserItem::Kind;
    return item.kind != Kind::Root && item.kind != Kind::Group && item.kind != Kind::Relations;
}

}  // namespace

LRESULT SchemaBrowser::OnMessage(UINT message, WPARAM wparam, LPARAM lparam) {
    switch (message) {
        case WM_SIZE:
            Layout();
            return 0;
        case WM_SETFOCUS:
            SetFocus(tree_);
            return 0;
        case WM_NOTIFY:
            return OnNotify(reinterpret_cast<NMHDR*>(lparam));
        case WM_COMMAND:
            if (reinterpret_cast<HWND>(lparam) == search_ && HIWORD(wparam) == EN_CHANGE) OnSearchChanged();
            return 0;
        case WM_CONTEXTMENU:
            if (reinterpret_cast<HWND>(wparam) != tree_) break;
            OnContextMenu({GET_X_LPARAM(lparam), GET_Y_LPARAM(lparam)});
            return 0;
        case WM_TIMER:
            FillSlice();
            return 0;
        case win32::kDpiChangedAfterParent:
            OnDpiChanged(win32::DpiOf(Handle()));
            return 0;
        default:
            break;
    }
    return Window::OnMessage(message, wparam, lparam);
}

LRESULT SchemaBrowser::OnNotify(NMHDR* header) {
    if (header->hwndFrom != tree_) return 0;
    switch (header->code) {
        case TVN_ITEMEXPANDINGW: {
            const auto& notify = *reinterpret_cast<const NMTREEVIEWW*>(header);
            if (notify.action == TVE_EXPAND) FillFields(notify.itemNew.hItem);
            return 0;
        }
        case TVN_SELCHANGEDW: {
            if (filling_ || !events_) return 0;
            const HTREEITEM item = reinterpret_cast<const NMTREEVIEWW*>(header)->itemNew.hItem;
            if (!item) {
                events_->OnBrowserSelected(nullptr);
                return 0;
            }
            const BrowserItem described = Describe(item);
            events_->OnBrowserSelected(&described);
            return 0;
        }
        case TVN_BEGINDRAGW:
            OnDragBegun(reinterpret_cast<const NMTREEVIEWW*>(header)->itemNew.hItem);
            return 0;
        // An answer other than 0 keeps the tree from opening or closing the item as well.
        case NM_DBLCLK: {
            const HTREEITEM item = ItemUnderPointer();
            return item && Activate(item);
        }
        case NM_RETURN: {
            const HTREEITEM item = TreeView_GetSelection(tree_);
            if (item && !Activate(item)) TreeView_Expand(tree_, item, TVE_TOGGLE);
            return 1;
        }
        case NM_RCLICK:
            if (const HTREEITEM item = ItemUnderPointer()) TreeView_SelectItem(tree_, item);
            return 0;
        default:
            return 0;
    }
}

/// Reports the activation of a table, a view, a field or a relation; anything else answers false.
bool SchemaBrowser::Activate(HTREEITEM item) {
    const BrowserItem described = Describe(item);
    if (!IsPartOfSchema(described)) return false;
    if (events_) events_->OnBrowserActivated(described);
    return true;
}

void SchemaBrowser::OnDragBegun(HTREEITEM item) {
    if (!item || !events_) return;
    const BrowserItem described = Describe(item);
    using Kind = BrowserItem::Kind;
    if (described.kind != Kind::Table && described.kind != Kind::View && described.kind != Kind::Field)
        return;
    // The pointer carries what the tree shows as selected.
    TreeView_SelectItem(tree_, item);
    const std::wstring caption = described.kind == Kind::Field
                                     ? Unbracketed(described.table) + L"." + Unbracketed(described.name)
                                     : Unbracketed(described.name);
    events_->OnBrowserDragBegun(described, caption);
}

HTREEITEM SchemaBrowser::ItemUnderPointer() const {
    const DWORD position = GetMessagePos();
    TVHITTESTINFO hit{};
    hit.pt = {GET_X_LPARAM(position), GET_Y_LPARAM(position)};
    ScreenToClient(tree_, &hit.pt);
    const HTREEITEM item = TreeView_HitTest(tree_, &hit);
    return (hit.flags & (TVHT_ONITEM | TVHT_ONITEMRIGHT)) ? item : nullptr;
}

void SchemaBrowser::OnContextMenu(POINT screen) {
    HTREEITEM item = TreeView_GetSelection(tree_);
    if (screen.x == -1 && screen.y == -1) {
        RECT rect{};
        if (!item || !TreeView_GetItemRect(tree_, item, &rect, TRUE)) return;
        screen = {rect.left, rect.bottom};
        ClientToScreen(tree_, &screen);
    } else {
        TVHITTESTINFO hit{};
        hit.pt = screen;
        ScreenToClient(tree_, &hit.pt);
        item = TreeView_HitTest(tree_, &hit);
        if (!item || !(hit.flags & (TVHT_ONITEM | TVHT_ONITEMRIGHT))) return;
        TreeView_SelectItem(tree_, item);
    }
    if (events_) events_->OnBrowserContextMenu(Describe(item), screen);
}

void SchemaBrowser::OnSearchChanged() {
    std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(search_)) + 1, L'\0');
    text.resize(
        static_cast<std::size_t>(GetWindowTextW(search_, text.data(), static_cast<int>(text.size()))));
    // What is selected and open is read off the tree while the model still has the objects that it shows.
    if (model_.SetFilter(text)) FillTree();
}

/// Enter and Down go to the first hit, Esc empties the box. True when the key meant something.
bool SchemaBrowser::OnSearchKey(WPARAM key) {
    if (key == VK_ESCAPE) {
        if (GetWindowTextLengthW(search_) == 0) return false;
        SetWindowTextW(search_, L"");
        return true;
    }
    if (key != VK_RETURN && key != VK_DOWN) return false;
    BrowserItem selected;
    const bool stays = SelectedItem(selected) && IsPartOfSchema(selected);
    if (!stays && model_.IsFiltered()) {
        const auto& hits = model_.Tables().empty() ? model_.Views() : model_.Tables();
        if (!hits.empty()) TreeView_SelectItem(tree_, ItemOf(hits.front()));
    }
    SetFocus(tree_);
    return true;
}

LRESULT SchemaBrowser::ChildProcedure(HWND hwnd, UINT message, WPARAM wparam, LPARAM lparam, void* data,
                                      const win32::SubclassChain& next) {
    auto* self = static_cast<SchemaBrowser*>(data);
    if (message == WM_NCDESTROY) {
        (hwnd == self->tree_ ? self->tree_ : self->search_) = nullptr;
        return next(hwnd, message, wparam, lparam);
    }
    try {
        return hwnd == self->tree_ ? self->OnTreeMessage(message, wparam, lparam, next)
                                   : self->OnSearchMessage(message, wparam, lparam, next);
    } catch (...) {
        return 0;
    }
}

LRESULT SchemaBrowser::OnTreeMessage(UINT message, WPARAM wparam, LPARAM lparam,
                                     const win32::SubclassChain& next) {
    switch (message) {
        case WM_GETDLGCODE:
            // Enter opens or adds what is selected; it is not the dialog's default button here.
            if (IsKey(reinterpret_cast<const MSG*>(lparam), VK_RETURN))
                return next(tree_, message, wparam, lparam) | DLGC_WANTMESSAGE;
            break;
        case WM_SYSKEYDOWN:
            // Not every tree control asks for a menu by itself.
            if (wparam != VK_F10 || GetKeyState(VK_SHIFT) >= 0) break;
            OnContextMenu({-1, -1});
            return 0;
        case WM_CHAR:
            // The tree would look for an item that begins with the character of Enter, and beep.
            if (wparam == VK_RETURN) return 0;
            FinishFilling();
            break;
        // What goes to a far end, or looks for a name, needs every item.
        case WM_KEYDOWN:
            if (wparam == VK_END) FinishFilling();
            break;
        case WM_VSCROLL:
            if (LOWORD(wparam) == SB_BOTTOM || LOWORD(wparam) == SB_THUMBTRACK) FinishFilling();
            break;
        default:
            break;
    }
    return next(tree_, message, wparam, lparam);
}

LRESULT SchemaBrowser::OnSearchMessage(UINT message, WPARAM wparam, LPARAM lparam,
                                       const win32::SubclassChain& next) {
    switch (message) {
        case WM_GETDLGCODE: {
            const LRESULT code = next(search_, message, wparam, lparam);
            const auto* key = reinterpret_cast<const MSG*>(lparam);
            const bool clears = IsKey(key, VK_ESCAPE) && GetWindowTextLengthW(search_) > 0;
            return clears || IsKey(key, VK_RETURN) ? code | DLGC_WANTMESSAGE : code;
        }
        case WM_KEYDOWN:
            if (OnSearchKey(wparam)) return 0;
            break;
        case WM_CHAR:
            if (wparam == VK_RETURN || wparam == VK_ESCAPE) return 0;
            break;
        default:
            break;
    }
    return next(search_, message, wparam, lparam);
}

}  // namespace tessel::controls
