// A copy of the component whose memory runs out when a test wants it to; see starving_memory.cpp.
#pragma once

#include "tests/win_component/component_library.h"

namespace tessel::tests {

class StarvingComponent {
public:
    /// The library, loaded once a process.
    static StarvingComponent& Instance() {
        static StarvingComponent component;
        return component;
    }

    bool IsLoaded() const { return module_ != nullptr; }
    void Starve(long at, bool for_good) const { Entry<void (*)(long, BOOL)>("Starve")(at, for_good); }
    long AllocationsMade() const { return Entry<long (*)()>("AllocationsMade")(); }
    long AllocationsHeld() const { return Entry<long (*)()>("AllocationsHeld")(); }
    HRESULT CanUnloadNow() const { return Entry<HRESULT(WINAPI*)()>("DllCanUnloadNow")(); }
    HRESULT GetClassObject(REFCLSID clsid, REFIID iid, void** object) const {
        return Entry<HRESULT(WINAPI*)(REFCLSID, REFIID, void**)>("DllGetClassObject")(clsid, iid, object);
    }

    template <class Interface>
    win32::ComPtr<Interface> Create(REFCLSID clsid) const {
        win32::ComPtr<IClassFactory> factory;
        win32::ComPtr<Interface> object;
        if (SUCCEEDED(GetClassObject(clsid, IID_IClassFactory, factory.PutVoid())))
            factory->CreateInstance(nullptr, __uuidof(Interface), object.PutVoid());
        return object;
    }

private:
    StarvingComponent()
        : module_(LoadLibraryW(
              (EnvironmentPath("TESSEL_BINARY_DIR") + L"\\bin\\starving_component.dll").c_str())) {}

    template <class Function>
    Function Entry(const char* name) const {
        return reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(module_, name)));
    }

    HMODULE module_;
};

}  // namespace tessel::tests
