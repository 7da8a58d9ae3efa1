#include "component/user_type_library.h"

#include "tessel_h.h"

namespace tessel::component {

const GUID kLibraryId = LIBID_Tessel;

namespace {

constexpr const wchar_t* kPlatform = sizeof(void*) == 8 ? L"win64" : L"win32";
constexpr wchar_t kVersion[] = L"1.1";
constexpr wchar_t kLocale[] = L"409";
constexpr wchar_t kLibraryName[] = L"Tessel 1.1";
/// The system's marshaller for automation interfaces, which works from the type library.
constexpr wchar_t kAutomationMarshaller[] = L"{00020424-0000-0000-C000-000000000046}";

struct InterfaceEntry {
    const GUID& iid;
    const wchar_t* name;
};

const InterfaceEntry kInterfaces[] = {
    {__uuidof(::_Quillon), L"_Quillon"},
    {__uuidof(::_cParameter), L"_cParameter"},
};

std::wstring LibraryKey() {
    return L"Software\\Classes\\TypeLib\\" + GuidText(kLibraryId);
}
std::wstring LocaleKey() {
    return LibraryKey() + L"\\" + kVersion + L"\\" + kLocale;
}
std::wstring InterfaceKey(REFGUID iid) {
    return L"Software\\Classes\\Interface\\" + GuidText(iid);
}

HRESULT Write(const std::wstring& key, const wchar_t* name, const std::wstring& value) {
    const DWORD bytes = static_cast<DWORD>((value.size() + 1) * sizeof(wchar_t));
    return HRESULT_FROM_WIN32(
        RegSetKeyValueW(HKEY_CURRENT_USER, key.c_str(), name, REG_SZ, value.c_str(), bytes));
}

bool Exists(HKEY root, const std::wstring& key) {
    HKEY opened = nullptr;
    if (RegOpenKeyExW(root, key.c_str(), 0, KEY_READ, &opened) != ERROR_SUCCESS) return false;
    RegCloseKey(opened);
    return true;
}

HRESULT Delete(HKEY root, const std::wstring& key) {
    const LSTATUS deleted = RegDeleteTreeW(root, key.c_str());
    return deleted == ERROR_FILE_NOT_FOUND ? S_OK : HRESULT_FROM_WIN32(deleted);
}

/// Interfaces are kept for each architecture apart. The last component to go takes them out of both views,
/// since the first one left its own behind.
HRESULT DeleteInterfaces() {
    HRESULT result = S_OK;
    for (const REGSAM view : {KEY_WOW64_32KEY, KEY_WOW64_64KEY}) {
        HKEY classes = nullptr;
        if (RegOpenKeyExW(HKEY_CURRENT_USER, L"Software\\Classes", 0, KEY_ALL_ACCESS | view, &classes) !=
            ERROR_SUCCESS)
            continue;
        for (const InterfaceEntry& entry : kInterfaces)
            if (const HRESULT deleted = Delete(classes, L"Interface\\" + GuidText(entry.iid));
                FAILED(deleted))
                result = deleted;
        RegCloseKey(classes);
    }
    return result;
}

}  // namespace

std::wstring GuidText(REFGUID guid) {
    wchar_t text[40];
    const int length = StringFromGUID2(guid, text, 40);
    return length > 0 ? std::wstring(text, static_cast<std::size_t>(length) - 1) : std::wstring();
}

bool IsLibraryRegistered(HKEY root) {
    return Exists(root, LocaleKey() + L"\\" + kPlatform);
}

HRESULT RegisterLibraryForUser(const std::wstring& module_path) {
    const std::wstring version = LibraryKey() + L"\\" + kVersion;
    const std::wstring folder = module_path.substr(0, module_path.find_last_of(L"\\/") + 1);
    HRESULT result = Write(version, nullptr, kLibraryName);
    if (SUCCEEDED(result)) result = Write(version + L"\\FLAGS", nullptr, L"0");
    if (SUCCEEDED(result)) result = Write(version + L"\\HELPDIR", nullptr, folder);
    if (SUCCEEDED(result)) result = Write(LocaleKey() + L"\\" + kPlatform, nullptr, module_path);
    for (const InterfaceEntry& entry : kInterfaces) {
        const std::wstring key = InterfaceKey(entry.iid);
        if (SUCCEEDED(result)) result = Write(key, nullptr, entry.name);
        if (SUCCEEDED(result)) result = Write(key + L"\\ProxyStubClsid32", nullptr, kAutomationMarshaller);
        if (SUCCEEDED(result)) result = Write(key + L"\\TypeLib", nullptr, GuidText(kLibraryId));
        if (SUCCEEDED(result)) result = Write(key + L"\\TypeLib", L"Version", kVersion);
    }
    return result;
}

HRESULT UnregisterLibraryForUser() {
    HRESULT result = Delete(HKEY_CURRENT_USER, LocaleKey() + L"\\" + kPlatform);
    for (const wchar_t* platform : {L"\\win32", L"\\win64"})
        if (Exists(HKEY_CURRENT_USER, LocaleKey() + platform)) return result;
    if (const HRESULT deleted = DeleteInterfaces(); FAILED(deleted)) result = deleted;
    if (const HRESULT deleted = Delete(HKEY_CURRENT_USER, LibraryKey()); FAILED(deleted)) result = deleted;
    return result;
}

}  // namespace tessel::component
