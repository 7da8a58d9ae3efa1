// The built tesseldsn.dll as a host sees it: loaded from the build's folder, objects from its class
// factories.
#pragma once

#include <windows.h>
#include <oaidl.h>

#include <cstdlib>
#include <string>

#include "common/text.h"
#include "common/win32/com.h"
#include "tessel_h.h"

namespace tessel::tests {

/// A path of the build's machine as Windows programs under Wine see it; Windows paths stay.
inline std::wstring WindowsPath(const std::string& path) {
    std::wstring result = FromUtf8(path);
    if (!result.empty() && result[0] == L'/') result = L"Z:" + result;
    for (wchar_t& ch : result)
        if (ch == L'/') ch = L'\\';
    return result;
}

inline std::wstring EnvironmentPath(const char* variable) {
    const char* value = std::getenv(variable);
    return WindowsPath(value ? value : ".");
}

inline std::wstring ComponentPath() {
    return EnvironmentPath("TESSEL_BINARY_DIR") + L"\\bin\\tesseldsn.dll";
}

class ComponentLibrary {
public:
    /// The library, loaded once a process.
    static ComponentLibrary& Instance() {
        static ComponentLibrary library;
        return library;
    }

    bool IsLoaded() const { return module_ != nullptr; }
    HRESULT CanUnloadNow() const { return Entry<HRESULT(WINAPI*)()>("DllCanUnloadNow")(); }
    HRESULT RegisterServer() const { return Entry<HRESULT(WINAPI*)()>("DllRegisterServer")(); }
    HRESULT UnregisterServer() const { return Entry<HRESULT(WINAPI*)()>("DllUnregisterServer")(); }
    HRESULT Install(bool install, const wchar_t* command_line) const {
        return Entry<HRESULT(WINAPI*)(BOOL, LPCWSTR)>("DllInstall")(install, command_line);
    }
    HRESULT GetClassObject(REFCLSID clsid, REFIID iid, void** object) const {
        return Entry<HRESULT(WINAPI*)(REFCLSID, REFIID, void**)>("DllGetClassObject")(clsid, iid, object);
    }

    /// A new object by its class factory; an empty pointer on failure.
    template <class Interface>
    win32::ComPtr<Interface> Create(REFCLSID clsid) const {
        win32::ComPtr<IClassFactory> factory;
        win32::ComPtr<Interface> object;
        if (FAILED(GetClassObject(clsid, IID_IClassFactory, factory.PutVoid()))) return object;
        factory->CreateInstance(nullptr, __uuidof(Interface), object.PutVoid());
        return object;
    }
    win32::ComPtr<::_Quillon> CreateQuillon() const { return Create<::_Quillon>(__uuidof(::Quillon)); }
    win32::ComPtr<::_cParameter> CreateParameter() const {
        return Create<::_cParameter>(__uuidof(::cParameter));
    }

private:
    ComponentLibrary() : module_(LoadLibraryW(ComponentPath().c_str())) {}

    template <class Function>
    Function Entry(const char* name) const {
        return reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(module_, name)));
    }

    HMODULE module_;
};

}  // namespace tessel::tests
