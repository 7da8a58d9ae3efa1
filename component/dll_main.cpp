// The entry points of the in-process server.
#include <windows.h>
#include <olectl.h>

#include "common/win32/com_object.h"
#include "component/c_parameter.h"
#include "component/quillon.h"
#include "component/registration.h"
#include "component/runtime_threads.h"

using namespace tessel;
using component::RegistrationScope;

STDAPI DllGetClassObject(REFCLSID clsid, REFIID iid, LPVOID* object) {
    if (!object) return E_POINTER;
    *object = nullptr;
    if (clsid == __uuidof(::Quillon)) return win32::GetFactoryOf<component::Quillon>(iid, object);
    if (clsid == __uuidof(::cParameter)) return win32::GetFactoryOf<component::cParameter>(iid, object);
    return CLASS_E_CLASSNOTAVAILABLE;
}

STDAPI DllCanUnloadNow() {
    return win32::ServerCount::IsIdle() ? S_OK : S_FALSE;
}

STDAPI DllRegisterServer() {
    return component::Register(RegistrationScope::Machine);
}

STDAPI DllUnregisterServer() {
    return component::Unregister(RegistrationScope::Machine);
}

/// regsvr32 /n /i:user tesseldsn.dll registers for the current user alone; /i without a text for the machine.
STDAPI DllInstall(BOOL install, LPCWSTR command_line) {
    RegistrationScope scope = RegistrationScope::Machine;
    if (command_line && *command_line) {
        if (lstrcmpiW(command_line, L"user") != 0) return E_INVALIDARG;
        scope = RegistrationScope::User;
    }
    return install ? component::Register(scope) : component::Unregister(scope);
}

/// `at_process_end` is set when the whole process ends, which needs no tidying: other threads are gone,
/// whatever they held.
extern "C" BOOL WINAPI DllMain(HINSTANCE, DWORD reason, LPVOID at_process_end) {
    if (reason == DLL_PROCESS_DETACH && !at_process_end) component::ReleaseRuntimeData();
    return TRUE;
}
