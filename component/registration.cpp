#include "component/registration.h"

#include <oaidl.h>
#include <olectl.h>

#include <string>
#include <vector>

#include "common/win32/com.h"
#include "component/errors.h"
#include "component/type_library.h"
#include "component/user_type_library.h"
#include "tessel_h.h"

namespace tessel::component {

using win32::ComPtr;
using win32::Guarded;

namespace {

struct ClassEntry {
    const GUID& clsid;
    const wchar_t* prog_id;
    const wchar_t* description;
};

const ClassEntry kClasses[] = {
    {__uuidof(::Quillon), kQuillonProgId, L"Tessel: dise\u00f1ador de consultas SQL"},
    {__uuidof(::cParameter), kParameterProgId, L"Tessel: par\u00e1metro de consulta"},
};

constexpr wchar_t kClassesRoot[] = L"Software\\Classes\\";

HKEY RootOf(RegistrationScope scope) {
    return scope == RegistrationScope::User ? HKEY_CURRENT_USER : HKEY_LOCAL_MACHINE;
}

struct Row {
    std::wstring key;
    const wchar_t* name;  ///< nullptr: the key's default value
    std::wstring value;
};

std::vector<Row> RowsOf(const ClassEntry& entry, const std::wstring& path) {
    const std::wstring clsid = GuidText(entry.clsid);
    const std::wstring key = L"CLSID\\" + clsid;
    const std::wstring prog_id = entry.prog_id;
    const std::wstring versioned = prog_id + L".1";
    return {
        {key, nullptr, entry.description},
        {key + L"\\InprocServer32", nullptr, path},
        {key + L"\\InprocServer32", L"ThreadingModel", L"Apartment"},
        {key + L"\\ProgID", nullptr, versioned},
        {key + L"\\VersionIndependentProgID", nullptr, prog_id},
        {key + L"\\TypeLib", nullptr, GuidText(kLibraryId)},
        {key + L"\\Version", nullptr, L"1.1"},
        {key + L"\\Programmable", nullptr, L""},
        {versioned, nullptr, entry.description},
        {versioned + L"\\CLSID", nullptr, clsid},
        {prog_id, nullptr, entry.description},
        {prog_id + L"\\CLSID", nullptr, clsid},
        {prog_id + L"\\CurVer", nullptr, versioned},
    };
}

HRESULT WriteRow(HKEY root, const Row& row) {
    const std::wstring key = kClassesRoot + row.key;
    const DWORD bytes = static_cast<DWORD>((row.value.size() + 1) * sizeof(wchar_t));
    return HRESULT_FROM_WIN32(RegSetKeyValueW(root, key.c_str(), row.name, REG_SZ, row.value.c_str(), bytes));
}

HRESULT DeleteTree(HKEY root, const std::wstring& key) {
    const LSTATUS deleted = RegDeleteTreeW(root, (kClassesRoot + key).c_str());
    return deleted == ERROR_FILE_NOT_FOUND ? S_OK : HRESULT_FROM_WIN32(deleted);
}

/// Whether the component of the other architecture is registered in the same scope. Asked after this one's
/// own keys are gone, because a system of 32 bits has one view of the registry, in which both questions read
/// the same key.
bool IsOtherArchitectureRegistered(HKEY root, const ClassEntry& entry) {
    const REGSAM other_view = sizeof(void*) == 8 ? KEY_WOW64_32KEY : KEY_WOW64_64KEY;
    const std::wstring key = kClassesRoot + (L"CLSID\\" + GuidText(entry.clsid)) + L"\\InprocServer32";
    HKEY opened = nullptr;
    if (RegOpenKeyExW(root, key.c_str(), 0, KEY_READ | other_view, &opened) != ERROR_SUCCESS) return false;
    RegCloseKey(opened);
    return true;
}

/// Class identifiers are kept for each architecture apart; program identifiers are one set for both and go
/// with the last of them.
HRESULT DeleteClass(HKEY root, const ClassEntry& entry) {
    HRESULT result = DeleteTree(root, L"CLSID\\" + GuidText(entry.clsid));
    if (IsOtherArchitectureRegistered(root, entry)) return result;
    const std::wstring prog_id = entry.prog_id;
    for (const std::wstring& key : {prog_id, prog_id + L".1"})
        if (const HRESULT deleted = DeleteTree(root, key); FAILED(deleted)) result = deleted;
    return result;
}

HRESULT RegisterLibrary(RegistrationScope scope, const std::wstring& path) {
    if (scope == RegistrationScope::User) return RegisterLibraryForUser(path);
    ComPtr<ITypeLib> library;
    const HRESULT loaded = LoadOwnTypeLibrary(&library);
    if (FAILED(loaded)) return loaded;
    return RegisterTypeLib(library.Get(), const_cast<LPOLESTR>(path.c_str()), nullptr);
}

HRESULT UnregisterLibrary(RegistrationScope scope) {
    if (scope == RegistrationScope::User) return UnregisterLibraryForUser();
    if (!IsLibraryRegistered(HKEY_LOCAL_MACHINE)) return S_OK;
    const SYSKIND kind = sizeof(void*) == 8 ? SYS_WIN64 : SYS_WIN32;
    return UnRegisterTypeLib(kLibraryId, kLibraryMajor, kLibraryMinor, kLibraryLocale, kind);
}

HRESULT WriteAll(RegistrationScope scope) {
    const std::wstring path = ModulePath();
    if (path.empty()) return HRESULT_FROM_WIN32(GetLastError());
    for (const ClassEntry& entry : kClasses)
        for (const Row& row : RowsOf(entry, path))
            if (const HRESULT written = WriteRow(RootOf(scope), row); FAILED(written)) return written;
    return RegisterLibrary(scope, path);
}

}  // namespace

HRESULT Register(RegistrationScope scope) {
    return Guarded([&] {
        const HRESULT written = WriteAll(scope);
        if (FAILED(written)) Unregister(scope);
        return FAILED(written) ? SELFREG_E_CLASS : S_OK;
    });
}

HRESULT Unregister(RegistrationScope scope) {
    return Guarded([&] {
        HRESULT result = UnregisterLibrary(scope);
        for (const ClassEntry& entry : kClasses)
            if (const HRESULT deleted = DeleteClass(RootOf(scope), entry); FAILED(deleted)) result = deleted;
        return FAILED(result) ? SELFREG_E_CLASS : S_OK;
    });
}

}  // namespace tessel::component
