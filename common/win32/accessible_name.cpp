#include "common/win32/accessible_name.h"

#include <objbase.h>
#include <oleacc.h>

#include "common/win32/subclass.h"

namespace tessel::win32 {

namespace {

// The identifiers are written out so that no program has to link the accessibility library for four
// constants.
constexpr GUID kServices = {0xB5F8350B, 0x0548, 0x48B1, {0xA6, 0xEE, 0x88, 0xBD, 0x00, 0xB4, 0xA5, 0xE7}};
constexpr GUID kServicesInterface = {
    0x6E26E776, 0x04F0, 0x495D, {0x80, 0xE4, 0x33, 0x30, 0x35, 0x2E, 0x31, 0x69}};
constexpr GUID kNameProperty = {0x608D3DF8, 0x8128, 0x4AA7, {0xA4, 0x28, 0xF5, 0x5E, 0x49, 0x26, 0x72, 0x91}};

/// Held while somebody names many windows; the user-interface thread's alone.
IAccPropServices* g_services = nullptr;

template <class Action>
void WithServices(Action action) {
    if (g_services) {
        action(g_services);
        return;
    }
    void* object = nullptr;
    if (FAILED(CoCreateInstance(kServices, nullptr, CLSCTX_INPROC_SERVER, kServicesInterface, &object)) ||
        !object)
        return;
    auto* services = static_cast<IAccPropServices*>(object);
    action(services);
    services->Release();
}

// The system keeps the name by the window's handle, which another window may get.
LRESULT ForgetWithWindow(HWND hwnd, UINT message, WPARAM wparam, LPARAM lparam, void*,
                         const SubclassChain& next) {
    if (message == WM_NCDESTROY) {
        WithServices([&](IAccPropServices* services) {
            services->ClearHwndProps(hwnd, static_cast<DWORD>(OBJID_CLIENT), CHILDID_SELF, &kNameProperty, 1);
        });
    }
    return next(hwnd, message, wparam, lparam);
}

}  // namespace

AccessibleNaming::AccessibleNaming() {
    if (g_services) return;
    WithServices([](IAccPropServices* services) {
        services->AddRef();
        g_services = services;
    });
    holds_ = g_services != nullptr;
}

AccessibleNaming::~AccessibleNaming() {
    if (!holds_) return;
    g_services->Release();
    g_services = nullptr;
}

void SetAccessibleName(HWND hwnd, const wchar_t* name) {
    if (!Subclass(hwnd, ForgetWithWindow, nullptr)) return;
    WithServices([&](IAccPropServices* services) {
        services->SetHwndPropStr(hwnd, static_cast<DWORD>(OBJID_CLIENT), CHILDID_SELF, kNameProperty, name);
    });
}

}  // namespace tessel::win32
