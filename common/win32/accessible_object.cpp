#include "common/win32/accessible_object.h"

#include <algorithm>
#include <string>

namespace tessel::win32 {

namespace {

RECT OnScreen(HWND hwnd, const AccessiblePlace& place) {
    POINT corners[] = {{place.left, place.top}, {place.right, place.bottom}};
    MapWindowPoints(hwnd, nullptr, corners, 2);
    // In a mirrored window left and right change places.
    return {std::min(corners[0].x, corners[1].x), corners[0].y, std::max(corners[0].x, corners[1].x),
            corners[1].y};
}

}  // namespace

ComPtr<IDispatch> SystemObject(HWND hwnd, DWORD object_id) {
    ComPtr<IDispatch> object;
    if (hwnd) AccessibleObjectFromWindow(hwnd, object_id, __uuidof(IDispatch), object.PutVoid());
    return object;
}

ComPtr<AccessibleObject> AccessibleObjectOf(const std::shared_ptr<AccessibleConnection>& connection,
                                            AccessibleId id) {
    if (const auto found = connection->objects.find(id); found != connection->objects.end())
        return ComPtr<AccessibleObject>(found->second);
    ComPtr<AccessibleObject> object = MakeObject<AccessibleObject>(connection, id);
    if (object) connection->objects[id] = object.Get();
    return object;
}

AccessibleObject::~AccessibleObject() {
    const auto own = connection_->objects.find(id_);
    if (own != connection_->objects.end() && own->second == this) connection_->objects.erase(own);
}

HRESULT AccessibleObject::Alive() const {
    return connection_->tree && connection_->tree->Has(id_) ? S_OK : CO_E_OBJNOTCONNECTED;
}

HRESULT AccessibleObject::Resolve(const VARIANT& child, AccessibleId* id) const {
    if (const HRESULT alive = Alive(); FAILED(alive)) return alive;
    if (child.vt != VT_I4) return E_INVALIDARG;
    if (child.lVal == CHILDID_SELF) {
        *id = id_;
        return S_OK;
    }
    if (child.lVal < 0) {
        *id = child.lVal;
        return connection_->tree->Has(*id) ? S_OK : E_INVALIDARG;
    }
    const std::vector<AccessibleId> children = connection_->tree->ChildrenOf(id_);
    if (static_cast<std::size_t>(child.lVal) > children.size()) return E_INVALIDARG;
    *id = children[static_cast<std::size_t>(child.lVal) - 1];
    return S_OK;
}

// IDispatch, by the description of the interface that the system has registered.

HRESULT AccessibleObject::TypeInfo(ComPtr<ITypeInfo>* info) const {
    ComPtr<ITypeLib> library;
    HRESULT result = LoadRegTypeLib(LIBID_Accessibility, 1, 1, LOCALE_NEUTRAL, library.Put());
    if (FAILED(result)) result = LoadTypeLibEx(L"oleacc.dll", REGKIND_NONE, library.Put());
    return FAILED(result) ? result : library->GetTypeInfoOfGuid(__uuidof(IAccessible), info->Put());
}

STDMETHODIMP AccessibleObject::GetTypeInfoCount(UINT* count) {
    if (!count) return E_POINTER;
    *count = 1;
    return S_OK;
}

STDMETHODIMP AccessibleObject::GetTypeInfo(UINT index, LCID, ITypeInfo** info) {
    if (!info) return E_POINTER;
    *info = nullptr;
    if (index != 0) return DISP_E_BADINDEX;
    return Guarded([&] {
        ComPtr<ITypeInfo> description;
        const HRESULT result = TypeInfo(&description);
        return FAILED(result) ? result : description.CopyTo(info);
    });
}

STDMETHODIMP AccessibleObject::GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) {
    return Guarded([&] {
        ComPtr<ITypeInfo> description;
        const HRESULT result = TypeInfo(&description);
        return FAILED(result) ? result : DispGetIDsOfNames(description.Get(), names, count, ids);
    });
}

STDMETHODIMP AccessibleObject::Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* parameters,
                                      VARIANT* result, EXCEPINFO* exception, UINT* bad_argument) {
    return Guarded([&] {
        ComPtr<ITypeInfo> description;
        const HRESULT found = TypeInfo(&description);
        if (FAILED(found)) return found;
        return DispInvoke(static_cast<IAccessible*>(this), description.Get(), id, flags, parameters, result,
                          exception, bad_argument);
    });
}

// IAccessible: the tree.

std::vector<HWND> AccessibleObject::ChildWindows() const {
    std::vector<HWND> windows;
    if (id_ != kAccessibleSelf) return windows;
    for (HWND child = ::GetWindow(connection_->hwnd, GW_CHILD); child;
         child = ::GetWindow(child, GW_HWNDNEXT))
        if (IsWindowVisible(child)) windows.push_back(child);
    return windows;
}

std::size_t AccessibleObject::ChildTotal() const {
    return connection_->tree->ChildrenOf(id_).size() + ChildWindows().size();
}

ComPtr<IDispatch> AccessibleObject::ChildAt(std::size_t index) const {
    const std::vector<AccessibleId> children = connection_->tree->ChildrenOf(id_);
    if (index < children.size()) return AccessibleObjectOf(connection_, children[index]).As<IDispatch>();
    const std::vector<HWND> windows = ChildWindows();
    index -= children.size();
    return index < windows.size() ? SystemObject(windows[index], static_cast<DWORD>(OBJID_WINDOW))
                                  : ComPtr<IDispatch>();
}

bool AccessibleObject::Holds(AccessibleId inner) const {
    for (AccessibleId id = inner; id != id_; id = connection_->tree->ParentOf(id))
        if (id == kAccessibleSelf) return false;
    return true;
}

HRESULT AccessibleObject::ReturnElement(AccessibleId id, VARIANT* target) const {
    if (id == id_) {
        target->vt = VT_I4;
        target->lVal = CHILDID_SELF;
        return S_OK;
    }
    const ComPtr<IDispatch> object = AccessibleObjectOf(connection_, id).As<IDispatch>();
    if (!object) return E_OUTOFMEMORY;
    target->vt = VT_DISPATCH;
    return object.CopyTo(&target->pdispVal);
}

STDMETHODIMP AccessibleObject::get_accParent(IDispatch** parent) {
    if (!parent) return E_POINTER;
    *parent = nullptr;
    return Guarded([&] {
        if (const HRESULT alive = Alive(); FAILED(alive)) return alive;
        const ComPtr<IDispatch> object =
            id_ == kAccessibleSelf
                ? SystemObject(connection_->hwnd, static_cast<DWORD>(OBJID_WINDOW))
                : AccessibleObjectOf(connection_, connection_->tree->ParentOf(id_)).As<IDispatch>();
        return object ? object.CopyTo(parent) : S_FALSE;
    });
}

STDMETHODIMP AccessibleObject::get_accChildCount(LONG* count) {
    if (!count) return E_POINTER;
    *count = 0;
    return Guarded([&] {
        const HRESULT alive = Alive();
        if (SUCCEEDED(alive)) *count = static_cast<LONG>(ChildTotal());
        return alive;
    });
}

STDMETHODIMP AccessibleObject::get_accChild(VARIANT child, IDispatch** object) {
    if (!object) return E_POINTER;
    *object = nullptr;
    return Guarded([&] {
        if (const HRESULT alive = Alive(); FAILED(alive)) return alive;
        if (child.vt != VT_I4) return E_INVALIDARG;
        ComPtr<IDispatch> found;
        if (child.lVal > 0)
            found = ChildAt(static_cast<std::size_t>(child.lVal) - 1);
        else if (AccessibleId id = id_; SUCCEEDED(Resolve(child, &id)))
            found = AccessibleObjectOf(connection_, id).As<IDispatch>();
        return found ? found.CopyTo(object) : E_INVALIDARG;
    });
}

STDMETHODIMP AccessibleObject::accNavigate(LONG direction, VARIANT start, VARIANT* end) {
    if (!end) return E_POINTER;
    VariantInit(end);
    return Guarded([&] {
        AccessibleId from = kAccessibleSelf;
        if (const HRESULT found = Resolve(start, &from); FAILED(found)) return found;
        const AccessibleTree& tree = *connection_->tree;
        AccessibleId to = from;
        if (direction == NAVDIR_FIRSTCHILD || direction == NAVDIR_LASTCHILD) {
            const std::vector<AccessibleId> children = tree.ChildrenOf(from);
            if (!children.empty()) to = direction == NAVDIR_FIRSTCHILD ? children.front() : children.back();
        } else if (from == kAccessibleSelf) {
            // What lies beside the control is not its business.
            return S_FALSE;
        } else if (direction == NAVDIR_NEXT || direction == NAVDIR_PREVIOUS) {
            const std::vector<AccessibleId> siblings = tree.ChildrenOf(tree.ParentOf(from));
            const auto own = std::find(siblings.begin(), siblings.end(), from);
            if (direction == NAVDIR_NEXT && own != siblings.end() && own + 1 != siblings.end()) to = own[1];
            if (direction == NAVDIR_PREVIOUS && own != siblings.end() && own != siblings.begin())
                to = own[-1];
        } else {
            switch (direction) {
                case NAVDIR_UP:
                    to = tree.Beside(from, AccessibleDirection::Up);
                    break;
                case NAVDIR_DOWN:
                    to = tree.Beside(from, AccessibleDirection::Down);
                    break;
                case NAVDIR_LEFT:
                    to = tree.Beside(from, AccessibleDirection::Left);
                    break;
                case NAVDIR_RIGHT:
                    to = tree.Beside(from, AccessibleDirection::Right);
                    break;
                default:
                    return E_INVALIDARG;
            }
        }
        return to == from ? S_FALSE : ReturnElement(to, end);
    });
}

STDMETHODIMP AccessibleObject::accHitTest(LONG left, LONG top, VARIANT* child) {
    if (!child) return E_POINTER;
    VariantInit(child);
    return Guarded([&] {
        if (const HRESULT alive = Alive(); FAILED(alive)) return alive;
        POINT point{left, top};
        ScreenToClient(connection_->hwnd, &point);
        RECT client{};
        GetClientRect(connection_->hwnd, &client);
        if (!PtInRect(&client, point)) return S_FALSE;
        if (id_ == kAccessibleSelf) {
            const HWND inner = ChildWindowFromPointEx(connection_->hwnd, point, CWP_SKIPINVISIBLE);
            if (inner && inner != connection_->hwnd) {
                const ComPtr<IDispatch> object = SystemObject(inner, static_cast<DWORD>(OBJID_WINDOW));
                if (!object) return S_FALSE;
                child->vt = VT_DISPATCH;
                return object.CopyTo(&child->pdispVal);
            }
        }
        const AccessibleId hit = connection_->tree->ElementAt(point.x, point.y);
        return Holds(hit) ? ReturnElement(hit, child) : S_FALSE;
    });
}

STDMETHODIMP AccessibleObject::accLocation(LONG* left, LONG* top, LONG* width, LONG* height, VARIANT child) {
    if (!left || !top || !width || !height) return E_POINTER;
    *left = *top = *width = *height = 0;
    return Guarded([&] {
        AccessibleId id = kAccessibleSelf;
        if (const HRESULT found = Resolve(child, &id); FAILED(found)) return found;
        AccessiblePlace place;
        if (id == kAccessibleSelf) {
            RECT client{};
            GetClientRect(connection_->hwnd, &client);
            place = {0, 0, static_cast<int>(client.right), static_cast<int>(client.bottom)};
        } else {
            place = connection_->tree->Describe(id).place;
        }
        const RECT screen = OnScreen(connection_->hwnd, place);
        *left = screen.left;
        *top = screen.top;
        *width = screen.right - screen.left;
        *height = screen.bottom - screen.top;
        return S_OK;
    });
}

// IEnumVARIANT.

STDMETHODIMP AccessibleObject::Next(ULONG count, VARIANT* children, ULONG* fetched) {
    if (fetched) *fetched = 0;
    if (!children) return E_POINTER;
    return Guarded([&] {
        if (const HRESULT alive = Alive(); FAILED(alive)) return alive;
        ULONG given = 0;
        for (; given < count; ++given, ++next_) {
            const ComPtr<IDispatch> child = ChildAt(next_);
            if (!child) break;
            children[given].vt = VT_DISPATCH;
            child.CopyTo(&children[given].pdispVal);
        }
        if (fetched) *fetched = given;
        return given == count ? S_OK : S_FALSE;
    });
}

STDMETHODIMP AccessibleObject::Skip(ULONG count) {
    return Guarded([&] {
        if (const HRESULT alive = Alive(); FAILED(alive)) return alive;
        const std::size_t total = ChildTotal();
        const std::size_t left = total - std::min(next_, total);
        next_ += std::min<std::size_t>(count, left);
        return count <= left ? S_OK : S_FALSE;
    });
}

STDMETHODIMP AccessibleObject::Reset() {
    next_ = 0;
    return S_OK;
}

STDMETHODIMP AccessibleObject::Clone(IEnumVARIANT** copy) {
    if (!copy) return E_POINTER;
    *copy = nullptr;
    return Guarded([&] {
        // An object beside the element's one: it has a place of its own among the children.
        const ComPtr<AccessibleObject> object = MakeObject<AccessibleObject>(connection_, id_);
        if (!object) return E_OUTOFMEMORY;
        object->next_ = next_;
        return object->QueryInterface(__uuidof(IEnumVARIANT), reinterpret_cast<void**>(copy));
    });
}

STDMETHODIMP AccessibleObject::GetWindow(HWND* hwnd) {
    if (!hwnd) return E_POINTER;
    *hwnd = connection_->hwnd;
    return *hwnd ? S_OK : CO_E_OBJNOTCONNECTED;
}

}  // namespace tessel::win32
