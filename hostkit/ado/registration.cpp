#include "hostkit/ado/registration.h"

#include <olectl.h>

#include <cstdio>
#include <string>

#include "common/win32/com.h"
#include "common/win32/module.h"
#include "hostkit/ado/class_ids.h"

namespace tessel::ado {

namespace {

struct ClassEntry {
    const CLSID& clsid;
    const wchar_t* prog_id;
};

const ClassEntry kClasses[] = {{kConnectionClass, L"ADODB.Connection"},
                               {kRecordsetClass, L"ADODB.Recordset"}};
constexpr wchar_t kClassesRoot[] = L"Software\\Classes\\";
constexpr wchar_t kDescription[] = L"Tessel: objetos ADO sobre ODBC";

std::wstring GuidText(const GUID& guid) {
    wchar_t text[40] = {};
    StringFromGUID2(guid, text, 40);
    return text;
}

std::wstring ModulePath() {
    std::wstring path(32768, L'\0');
    path.resize(GetModuleFileNameW(win32::ThisModule(), path.data(), static_cast<DWORD>(path.size())));
    return path;
}

HRESULT WriteKey(const std::wstring& key, const wchar_t* name, const std::wstring& value) {
    const DWORD bytes = static_cast<DWORD>((value.size() + 1) * sizeof(wchar_t));
    return HRESULT_FROM_WIN32(RegSetKeyValueW(HKEY_LOCAL_MACHINE, (kClassesRoot + key).c_str(), name, REG_SZ,
                                              value.c_str(), bytes));
}

HRESULT DeleteKey(const std::wstring& key) {
    const LSTATUS deleted = RegDeleteTreeW(HKEY_LOCAL_MACHINE, (kClassesRoot + key).c_str());
    return deleted == ERROR_FILE_NOT_FOUND ? S_OK : HRESULT_FROM_WIN32(deleted);
}

std::wstring ReadKey(const std::wstring& key) {
    wchar_t text[64] = {};
    DWORD bytes = sizeof text;
    const LSTATUS read = RegGetValueW(HKEY_LOCAL_MACHINE, (kClassesRoot + key).c_str(), nullptr,
                                      RRF_RT_REG_SZ, nullptr, text, &bytes);
    return read == ERROR_SUCCESS ? text : L"";
}

HRESULT RegisterClass(const ClassEntry& entry, const std::wstring& path) {
    const std::wstring clsid = GuidText(entry.clsid);
    const std::wstring server = L"CLSID\\" + clsid + L"\\InprocServer32";
    const struct {
        std::wstring key;
        const wchar_t* name;
        std::wstring value;
    } rows[] = {
        {L"CLSID\\" + clsid, nullptr, kDescription},
        {server, nullptr, path},
        {server, L"ThreadingModel", L"Apartment"},
        {L"CLSID\\" + clsid + L"\\ProgID", nullptr, entry.prog_id},
        {entry.prog_id, nullptr, kDescription},
        {std::wstring(entry.prog_id) + L"\\CLSID", nullptr, clsid},
    };
    for (const auto& row : rows)
        if (const HRESULT written = WriteKey(row.key, row.name, row.value); FAILED(written)) return written;
    return S_OK;
}

}  // namespace

bool IsWine() {
    const HMODULE ntdll = GetModuleHandleW(L"ntdll.dll");
    return ntdll && GetProcAddress(ntdll, "wine_get_version");
}

HRESULT Register() {
    if (!IsWine()) {
        std::fputs("tesselado.dll: only for Wine; this system has an ADO of its own, which stays as it is.\n",
                   stderr);
        return win32::RaiseError(SELFREG_E_CLASS, GUID_NULL, L"tesselado",
                                 L"Estos objetos ADO son solo para Wine: este sistema tiene los suyos.");
    }
    return win32::Guarded([] {
        const std::wstring path = ModulePath();
        for (const ClassEntry& entry : kClasses)
            if (FAILED(RegisterClass(entry, path))) return SELFREG_E_CLASS;
        return S_OK;
    });
}

HRESULT Unregister() {
    return win32::Guarded([] {
        HRESULT result = S_OK;
        for (const ClassEntry& entry : kClasses) {
            const std::wstring clsid = GuidText(entry.clsid);
            const std::wstring prog_id = entry.prog_id;
            if (FAILED(DeleteKey(L"CLSID\\" + clsid))) result = SELFREG_E_CLASS;
            if (ReadKey(prog_id + L"\\CLSID") == clsid && FAILED(DeleteKey(prog_id)))
                result = SELFREG_E_CLASS;
        }
        return result;
    });
}

}  // namespace tessel::ado
