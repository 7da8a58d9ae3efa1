// What an element is and what can be done with it; how elements lie in one another is in
// accessible_object.cpp.
#include <algorithm>
#include <string>

#include "common/win32/accessible_object.h"
#include "common/win32/accessible_window.h"

namespace tessel::win32 {

namespace {

/// Children that are handed over together, such as several selected ones.
class ObjectList final : public ComObject<IEnumVARIANT> {
public:
    explicit ObjectList(std::vector<ComPtr<IDispatch>> objects) : objects_(std::move(objects)) {}

    STDMETHODIMP Next(ULONG count, VARIANT* items, ULONG* fetched) override {
        if (!items) return E_POINTER;
        ULONG given = 0;
        for (; given < count && next_ < objects_.size(); ++given, ++next_) {
            items[given].vt = VT_DISPATCH;
            objects_[next_].CopyTo(&items[given].pdispVal);
        }
        if (fetched) *fetched = given;
        return given == count ? S_OK : S_FALSE;
    }
    STDMETHODIMP Skip(ULONG count) override {
        const std::size_t skipped = std::min<std::size_t>(count, objects_.size() - next_);
        next_ += skipped;
        return skipped == count ? S_OK : S_FALSE;
    }
    STDMETHODIMP Reset() override {
        next_ = 0;
        return S_OK;
    }
    STDMETHODIMP Clone(IEnumVARIANT** copy) override {
        if (!copy) return E_POINTER;
        *copy = nullptr;
        return Guarded([&] {
            const ComPtr<ObjectList> list = MakeObject<ObjectList>(objects_);
            if (!list) return E_OUTOFMEMORY;
            list->next_ = next_;
            return list->QueryInterface(__uuidof(IEnumVARIANT), reinterpret_cast<void**>(copy));
        });
    }

private:
    std::vector<ComPtr<IDispatch>> objects_;
    std::size_t next_ = 0;
};

/// An empty text is none at all.
HRESULT ReturnOrFalse(const std::wstring& text, BSTR* target) {
    return text.empty() ? S_FALSE : ReturnText(text, target);
}

}  // namespace

HRESULT AccessibleObject::TextOfElement(const VARIANT& child, BSTR* text,
                                        std::wstring (*read)(AccessibleTree&, AccessibleId)) const {
    if (!text) return E_POINTER;
    *text = nullptr;
    return Guarded([&] {
        AccessibleId id = kAccessibleSelf;
        if (const HRESULT found = Resolve(child, &id); FAILED(found)) return found;
        return ReturnOrFalse(read(*connection_->tree, id), text);
    });
}

STDMETHODIMP AccessibleObject::get_accName(VARIANT child, BSTR* name) {
    return TextOfElement(child, name,
                         [](AccessibleTree& tree, AccessibleId id) { return tree.Describe(id).name; });
}

STDMETHODIMP AccessibleObject::get_accValue(VARIANT child, BSTR* value) {
    return TextOfElement(child, value,
                         [](AccessibleTree& tree, AccessibleId id) { return tree.ValueOf(id); });
}

STDMETHODIMP AccessibleObject::get_accDescription(VARIANT child, BSTR* description) {
    return TextOfElement(child, description,
                         [](AccessibleTree& tree, AccessibleId id) { return tree.Describe(id).description; });
}

STDMETHODIMP AccessibleObject::get_accDefaultAction(VARIANT child, BSTR* action) {
    return TextOfElement(child, action,
                         [](AccessibleTree& tree, AccessibleId id) { return tree.Describe(id).action; });
}

// The elements have no keys of their own, and the help is the window's.
STDMETHODIMP AccessibleObject::get_accKeyboardShortcut(VARIANT child, BSTR* shortcut) {
    return TextOfElement(child, shortcut, [](AccessibleTree&, AccessibleId) { return std::wstring(); });
}

STDMETHODIMP AccessibleObject::get_accHelp(VARIANT child, BSTR* help) {
    return TextOfElement(child, help, [](AccessibleTree&, AccessibleId) { return std::wstring(); });
}

STDMETHODIMP AccessibleObject::get_accHelpTopic(BSTR* file, VARIANT, LONG* topic) {
    if (!file || !topic) return E_POINTER;
    *file = nullptr;
    *topic = 0;
    return S_FALSE;
}

STDMETHODIMP AccessibleObject::get_accRole(VARIANT child, VARIANT* role) {
    if (!role) return E_POINTER;
    VariantInit(role);
    return Guarded([&] {
        AccessibleId id = kAccessibleSelf;
        if (const HRESULT found = Resolve(child, &id); FAILED(found)) return found;
        role->lVal = static_cast<LONG>(connection_->tree->Describe(id).role);
        role->vt = VT_I4;
        return S_OK;
    });
}

STDMETHODIMP AccessibleObject::get_accState(VARIANT child, VARIANT* state) {
    if (!state) return E_POINTER;
    VariantInit(state);
    return Guarded([&] {
        AccessibleId id = kAccessibleSelf;
        if (const HRESULT found = Resolve(child, &id); FAILED(found)) return found;
        const HWND hwnd = connection_->hwnd;
        unsigned states = connection_->tree->Describe(id).states;
        if (!IsWindowVisible(hwnd)) states |= STATE_SYSTEM_INVISIBLE;
        if (!IsWindowEnabled(hwnd)) states |= STATE_SYSTEM_UNAVAILABLE;
        if (GetFocus() == hwnd && connection_->tree->Focused() == id) states |= STATE_SYSTEM_FOCUSED;
        state->lVal = static_cast<LONG>(states);
        state->vt = VT_I4;
        return S_OK;
    });
}

STDMETHODIMP AccessibleObject::get_accFocus(VARIANT* child) {
    if (!child) return E_POINTER;
    VariantInit(child);
    return Guarded([&] {
        if (const HRESULT alive = Alive(); FAILED(alive)) return alive;
        const HWND focus = GetFocus();
        if (focus == connection_->hwnd) {
            const AccessibleId focused = connection_->tree->Focused();
            return Holds(focused) ? ReturnElement(focused, child) : S_FALSE;
        }
        if (id_ != kAccessibleSelf || !IsChild(connection_->hwnd, focus)) return S_FALSE;
        const ComPtr<IDispatch> object = SystemObject(focus, static_cast<DWORD>(OBJID_CLIENT));
        if (!object) return S_FALSE;
        child->vt = VT_DISPATCH;
        return object.CopyTo(&child->pdispVal);
    });
}

STDMETHODIMP AccessibleObject::get_accSelection(VARIANT* children) {
    if (!children) return E_POINTER;
    VariantInit(children);
    return Guarded([&] {
        if (const HRESULT alive = Alive(); FAILED(alive)) return alive;
        std::vector<AccessibleId> selected = connection_->tree->Selected();
        std::erase_if(selected, [&](AccessibleId id) { return id == id_ || !Holds(id); });
        if (selected.empty()) return S_FALSE;
        if (selected.size() == 1) return ReturnElement(selected.front(), children);
        std::vector<ComPtr<IDispatch>> objects;
        for (const AccessibleId id : selected)
            objects.push_back(AccessibleObjectOf(connection_, id).As<IDispatch>());
        const ComPtr<ObjectList> list = MakeObject<ObjectList>(std::move(objects));
        if (!list) return E_OUTOFMEMORY;
        children->vt = VT_UNKNOWN;
        return list->QueryInterface(__uuidof(IUnknown), reinterpret_cast<void**>(&children->punkVal));
    });
}

STDMETHODIMP AccessibleObject::accSelect(LONG flags, VARIANT child) {
    return Guarded([&] {
        AccessibleId id = kAccessibleSelf;
        if (const HRESULT found = Resolve(child, &id); FAILED(found)) return found;
        constexpr LONG kKnown = SELFLAG_TAKEFOCUS | SELFLAG_TAKESELECTION | SELFLAG_EXTENDSELECTION;
        if (flags == 0 || (flags & ~kKnown) != 0) return E_INVALIDARG;
        const bool extend = (flags & SELFLAG_EXTENDSELECTION) != 0;
        if (id != kAccessibleSelf && !connection_->tree->Select(id, extend)) return DISP_E_MEMBERNOTFOUND;
        // The control may be gone by what selecting made its owner do.
        if ((flags & SELFLAG_TAKEFOCUS) && connection_->hwnd && IsWindowEnabled(connection_->hwnd))
            SetFocus(connection_->hwnd);
        return S_OK;
    });
}

STDMETHODIMP AccessibleObject::accDoDefaultAction(VARIANT child) {
    return Guarded([&] {
        AccessibleId id = kAccessibleSelf;
        if (const HRESULT found = Resolve(child, &id); FAILED(found)) return found;
        if (connection_->tree->Describe(id).action.empty()) return DISP_E_MEMBERNOTFOUND;
        if (!IsWindowEnabled(connection_->hwnd)) return E_FAIL;
        return PostMessageW(connection_->hwnd, AccessibleWindow::kActMessage, static_cast<WPARAM>(id), 0)
                   ? S_OK
                   : E_FAIL;
    });
}

}  // namespace tessel::win32
