// A host that has the component in its own folder and registers nothing.
// usage: registration_free_host [FOLDER]
// Without an argument the classes come from the manifest that the system found beside the program; with one,
// from the manifest host.manifest in the folder. Ends with 0 when both classes worked, else with the number
// of the step.
#include <windows.h>
#include <oaidl.h>

#include <cstdio>
#include <string>

#include "common/win32/com.h"
#include "tessel_h.h"

namespace {

using tessel::win32::Bstr;
using tessel::win32::ComPtr;

enum Step { kDone = 0, kContext, kProgId, kQuillon, kParameter, kLateBound, kLiteral };

HANDLE ContextOf(const std::wstring& folder) {
    const std::wstring manifest = folder + L"\\host.manifest";
    ACTCTXW wanted{};
    wanted.cbSize = sizeof wanted;
    wanted.dwFlags = ACTCTX_FLAG_ASSEMBLY_DIRECTORY_VALID;
    wanted.lpSource = manifest.c_str();
    wanted.lpAssemblyDirectory = folder.c_str();
    return CreateActCtxW(&wanted);
}

/// An object by its program identifier, as script hosts create it.
ComPtr<IDispatch> Create(const wchar_t* prog_id) {
    ComPtr<IDispatch> object;
    CLSID clsid;
    if (SUCCEEDED(CLSIDFromProgID(prog_id, &clsid)))
        CoCreateInstance(clsid, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch, object.PutVoid());
    return object;
}

Step UseClasses() {
    // The system answers a program identifier of a manifest with an alias of the class identifier.
    CLSID alias;
    if (FAILED(CLSIDFromProgID(L"Tessel.Quillon", &alias))) return kProgId;
    if (!Create(L"Tessel.Quillon") || !Create(L"Tessel.cParameter")) return kQuillon;

    ComPtr<_cParameter> parameter;
    const HRESULT created = CoCreateInstance(__uuidof(cParameter), nullptr, CLSCTX_INPROC_SERVER,
                                             __uuidof(_cParameter), parameter.PutVoid());
    if (FAILED(created)) return kParameter;
    const Bstr type(L"adInteger");
    parameter->put_eType(type.Get());
    VARIANT value{};
    value.vt = VT_I4;
    value.lVal = 42;
    parameter->put_Value(value);

    // Late binding reads the component's type library.
    const Bstr name(L"SQLExpresion");
    OLECHAR* names[] = {name.Get()};
    DISPID member = 0;
    if (FAILED(parameter->GetIDsOfNames(IID_NULL, names, 1, 0, &member))) return kLateBound;
    DISPPARAMS none{};
    VARIANT answer{};
    if (FAILED(parameter->Invoke(member, IID_NULL, 0, DISPATCH_METHOD, &none, &answer, nullptr, nullptr)))
        return kLateBound;
    const bool right = answer.vt == VT_BSTR && std::wstring(answer.bstrVal) == L"42";
    VariantClear(&answer);
    return right ? kDone : kLiteral;
}

}  // namespace

int wmain(int argc, wchar_t** argv) {
    CoInitialize(nullptr);
    ULONG_PTR cookie = 0;
    HANDLE context = INVALID_HANDLE_VALUE;
    if (argc > 1) {
        context = ContextOf(argv[1]);
        if (context == INVALID_HANDLE_VALUE || !ActivateActCtx(context, &cookie)) {
            std::printf("no context: error %lu\n", GetLastError());
            return kContext;
        }
    }
    const Step failed = UseClasses();
    if (context != INVALID_HANDLE_VALUE) {
        DeactivateActCtx(0, cookie);
        ReleaseActCtx(context);
    }
    CoUninitialize();
    std::printf(failed == kDone ? "both classes work\n" : "failed at step %d\n", failed);
    return failed;
}
