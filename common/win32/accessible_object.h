// One element of an AccessibleTree as a COM object: IAccessible with its IDispatch, IEnumVARIANT over its
// children, and IOleWindow. Made by AccessibleWindow for the control itself and by the objects for each
// other; an element has one object at a time, for as long as somebody holds it.
//
// Visible child windows of the control follow its elements among its children, as the system's own objects.
#pragma once

#include <windows.h>

#include <oleacc.h>

#include <map>
#include <memory>
#include <vector>

#include "common/accessible_tree.h"
#include "common/win32/com_object.h"

namespace tessel::win32 {

class AccessibleObject;

/// What the objects of a window share. `tree` is nullptr once the window is gone.
struct AccessibleConnection {
    HWND hwnd = nullptr;
    AccessibleTree* tree = nullptr;
    std::map<AccessibleId, AccessibleObject*> objects;  ///< those alive, none of them owned
};

/// The element's object; an empty pointer when there is no memory.
ComPtr<AccessibleObject> AccessibleObjectOf(const std::shared_ptr<AccessibleConnection>& connection,
                                            AccessibleId id);

/// The system's object of a window; an empty pointer when it has none.
ComPtr<IDispatch> SystemObject(HWND hwnd, DWORD object_id);

class AccessibleObject final : public ComObject<IAccessible, IEnumVARIANT, IOleWindow> {
public:
    AccessibleObject(std::shared_ptr<AccessibleConnection> connection, AccessibleId id)
        : connection_(std::move(connection)), id_(id) {}

    // IDispatch
    STDMETHODIMP GetTypeInfoCount(UINT* count) override;
    STDMETHODIMP GetTypeInfo(UINT index, LCID, ITypeInfo** info) override;
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) override;
    STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                        EXCEPINFO* exception, UINT* bad_argument) override;

    // IAccessible
    STDMETHODIMP get_accParent(IDispatch** parent) override;
    STDMETHODIMP get_accChildCount(LONG* count) override;
    STDMETHODIMP get_accChild(VARIANT child, IDispatch** object) override;
    STDMETHODIMP get_accName(VARIANT child, BSTR* name) override;
    STDMETHODIMP get_accValue(VARIANT child, BSTR* value) override;
    STDMETHODIMP get_accDescription(VARIANT child, BSTR* description) override;
    STDMETHODIMP get_accRole(VARIANT child, VARIANT* role) override;
    STDMETHODIMP get_accState(VARIANT child, VARIANT* state) override;
    STDMETHODIMP get_accHelp(VARIANT child, BSTR* help) override;
    STDMETHODIMP get_accHelpTopic(BSTR* file, VARIANT child, LONG* topic) override;
    STDMETHODIMP get_accKeyboardShortcut(VARIANT child, BSTR* shortcut) override;
    STDMETHODIMP get_accFocus(VARIANT* child) override;
    STDMETHODIMP get_accSelection(VARIANT* children) override;
    STDMETHODIMP get_accDefaultAction(VARIANT child, BSTR* action) override;
    STDMETHODIMP accSelect(LONG flags, VARIANT child) override;
    STDMETHODIMP accLocation(LONG* left, LONG* top, LONG* width, LONG* height, VARIANT child) override;
    STDMETHODIMP accNavigate(LONG direction, VARIANT start, VARIANT* end) override;
    STDMETHODIMP accHitTest(LONG left, LONG top, VARIANT* child) override;
    STDMETHODIMP accDoDefaultAction(VARIANT child) override;
    STDMETHODIMP put_accName(VARIANT, BSTR) override { return DISP_E_MEMBERNOTFOUND; }
    STDMETHODIMP put_accValue(VARIANT, BSTR) override { return DISP_E_MEMBERNOTFOUND; }

    // IEnumVARIANT
    STDMETHODIMP Next(ULONG count, VARIANT* children, ULONG* fetched) override;
    STDMETHODIMP Skip(ULONG count) override;
    STDMETHODIMP Reset() override;
    STDMETHODIMP Clone(IEnumVARIANT** copy) override;

    // IOleWindow
    STDMETHODIMP GetWindow(HWND* hwnd) override;
    STDMETHODIMP ContextSensitiveHelp(BOOL) override { return E_NOTIMPL; }

private:
    ~AccessibleObject() override;

    HRESULT Alive() const;
    /// The element that `child` means: this one, a child by its place from 1, or any by its number.
    HRESULT Resolve(const VARIANT& child, AccessibleId* id) const;
    HRESULT TextOfElement(const VARIANT& child, BSTR* text,
                          std::wstring (*read)(AccessibleTree&, AccessibleId)) const;
    HRESULT TypeInfo(ComPtr<ITypeInfo>* info) const;
    std::vector<HWND> ChildWindows() const;
    std::size_t ChildTotal() const;
    ComPtr<IDispatch> ChildAt(std::size_t index) const;
    bool Holds(AccessibleId inner) const;
    HRESULT ReturnElement(AccessibleId id, VARIANT* target) const;

    std::shared_ptr<AccessibleConnection> connection_;
    AccessibleId id_;
    std::size_t next_ = 0;  ///< of IEnumVARIANT
};

}  // namespace tessel::win32
