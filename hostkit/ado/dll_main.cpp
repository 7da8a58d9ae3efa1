// The entry points of the in-process server tesselado.dll.
#include <windows.h>

#include <olectl.h>

#include "hostkit/ado/class_ids.h"
#include "hostkit/ado/recordset.h"
#include "hostkit/ado/registration.h"

using namespace tessel;

STDAPI DllGetClassObject(REFCLSID clsid, REFIID iid, LPVOID* object) {
    if (!object) return E_POINTER;
    *object = nullptr;
    if (clsid == ado::kConnectionClass) return win32::GetFactoryOf<ado::Connection>(iid, object);
    if (clsid == ado::kRecordsetClass) return win32::GetFactoryOf<ado::Recordset>(iid, object);
    return CLASS_E_CLASSNOTAVAILABLE;
}

STDAPI DllCanUnloadNow() {
    return win32::ServerCount::IsIdle() ? S_OK : S_FALSE;
}

STDAPI DllRegisterServer() {
    return ado::Register();
}

STDAPI DllUnregisterServer() {
    return ado::Unregister();
}

extern "C" BOOL WINAPI DllMain(HINSTANCE module, DWORD reason, LPVOID) {
    if (reason == DLL_PROCESS_ATTACH) DisableThreadLibraryCalls(module);
    return TRUE;
}
