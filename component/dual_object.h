// Base of the public classes: IDispatch over the type library for a dual interface, ISupportErrorInfo and
// IProvideClassInfo. `Interface` is the default interface, `Coclass` the class in the type library.
#pragma once

#include <windows.h>
#include <oaidl.h>
#include <ocidl.h>

#include "common/win32/com_object.h"
#include "component/default_member.h"
#include "component/invoke_arguments.h"
#include "component/type_library.h"

namespace tessel::component {

template <class Interface, class Coclass>
class DualObject : public win32::ComObject<Interface, ISupportErrorInfo, IProvideClassInfo> {
public:
    STDMETHODIMP GetTypeInfoCount(UINT* count) override {
        if (!count) return E_POINTER;
        *count = 1;
        return S_OK;
    }

    STDMETHODIMP GetTypeInfo(UINT index, LCID, ITypeInfo** type) override {
        if (!type) return E_POINTER;
        *type = nullptr;
        if (index != 0) return DISP_E_BADINDEX;
        const HRESULT loaded = LoadType();
        return FAILED(loaded) ? loaded : type_.CopyTo(type);
    }

    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) override {
        const HRESULT loaded = LoadType();
        return FAILED(loaded) ? loaded : type_->GetIDsOfNames(names, count, ids);
    }

    STDMETHODIMP Invoke(DISPID member, REFIID iid, LCID locale, WORD flags, DISPPARAMS* call, VARIANT* result,
                        EXCEPINFO* exception, UINT* bad_argument) override {
        if (iid != IID{}) return DISP_E_UNKNOWNINTERFACE;
        if (!call) return E_POINTER;
        return win32::Guarded([&]() -> HRESULT {
            // A method may let the host run, and the host may drop its last reference meanwhile.
            const win32::ComPtr<IUnknown> alive(static_cast<Interface*>(this));
            if (const HRESULT loaded = LoadType(); FAILED(loaded)) return loaded;
            if (IsForDefaultMember(type_.Get(), member, flags, *call))
                return InvokeDefaultMember(type_.Get(), static_cast<Interface*>(this), member, flags, locale,
                                           call, result, exception, bad_argument);
            InvokeArguments arguments;
            const HRESULT prepared = arguments.Prepare(type_.Get(), member, flags, *call, bad_argument);
            if (FAILED(prepared)) return prepared;
            SetErrorInfo(0, nullptr);
            const HRESULT invoked = type_->Invoke(static_cast<Interface*>(this), member, arguments.Flags(),
                                                  arguments.Parameters(), result, exception, bad_argument);
            if (SUCCEEDED(invoked)) arguments.WriteBack();
            return invoked;
        });
    }

    STDMETHODIMP InterfaceSupportsErrorInfo(REFIID iid) override {
        return iid == __uuidof(Interface) ? S_OK : S_FALSE;
    }

    STDMETHODIMP GetClassInfo(ITypeInfo** type) override {
        if (!type) return E_POINTER;
        *type = nullptr;
        return win32::Guarded([&] {
            win32::ComPtr<ITypeInfo> class_type;
            const HRESULT loaded = LoadTypeInfo(__uuidof(Coclass), &class_type);
            return FAILED(loaded) ? loaded : class_type.CopyTo(type);
        });
    }

private:
    HRESULT LoadType() {
        if (type_) return S_OK;
        return win32::Guarded([&] { return LoadTypeInfo(__uuidof(Interface), &type_); });
    }

    win32::ComPtr<ITypeInfo> type_;
};

}  // namespace tessel::component
