// Loads tesselado.dll from the test program's own folder and makes its objects through the class factory, so
// that nothing needs to be registered.
#pragma once

#include <gtest/gtest.h>

#include <windows.h>

#include <cstdlib>
#include <string>

#include "common/text.h"
#include "common/win32/dispatch.h"
#include "hostkit/ado/class_ids.h"

namespace tessel::tests {

using win32::CallResult;
using win32::Dispatch;
using win32::UniqueVariant;

/// ADO's error numbers as the HRESULTs that hosts see.
inline constexpr HRESULT kNoCurrentRecord = static_cast<HRESULT>(0x800A0BCD);
inline constexpr HRESULT kItemNotFound = static_cast<HRESULT>(0x800A0CC1);
inline constexpr HRESULT kObjectClosed = static_cast<HRESULT>(0x800A0E78);
inline constexpr HRESULT kObjectOpen = static_cast<HRESULT>(0x800A0E79);
inline constexpr HRESULT kNotAllowedHere = static_cast<HRESULT>(0x800A0C93);
inline constexpr HRESULT kNoConnection = static_cast<HRESULT>(0x800A0E7D);
inline constexpr HRESULT kBadArgument = static_cast<HRESULT>(0x800A0BB9);

inline HMODULE Library() {
    static const HMODULE library = LoadLibraryW(L"tesselado.dll");
    return library;
}

inline bool CanUnload() {
    using Function = HRESULT(WINAPI*)();
    const auto function =
        reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(Library(), "DllCanUnloadNow")));
    return function && function() == S_OK;
}

inline Dispatch Create(const CLSID& clsid) {
    using Function = HRESULT(WINAPI*)(REFCLSID, REFIID, void**);
    const auto function =
        reinterpret_cast<Function>(reinterpret_cast<void*>(GetProcAddress(Library(), "DllGetClassObject")));
    win32::ComPtr<IClassFactory> factory;
    if (!function || FAILED(function(clsid, __uuidof(IClassFactory), factory.PutVoid()))) return {};
    win32::ComPtr<IDispatch> object;
    if (FAILED(factory->CreateInstance(nullptr, __uuidof(IDispatch), object.PutVoid()))) return {};
    return Dispatch(object);
}

inline Dispatch NewConnection() {
    return Create(ado::kConnectionClass);
}
inline Dispatch NewRecordset() {
    return Create(ado::kRecordsetClass);
}

inline std::wstring VentasString() {
    const char* folder = std::getenv("TESSEL_BINARY_DIR");
    return L"Driver=SQLite3;Database=" + FromUtf8(folder ? folder : ".") + L"/ventas.db";
}
inline constexpr wchar_t kMemoryString[] = L"Driver=SQLite3;Database=:memory:";

inline Dispatch Open(const std::wstring& text) {
    Dispatch connection = NewConnection();
    const CallResult opened = connection.Call(L"Open", text);
    EXPECT_TRUE(opened) << ToUtf8(opened.Message());
    return connection;
}
inline Dispatch OpenVentas() {
    return Open(VentasString());
}

/// Runs a statement whose result is not looked at.
inline void Do(const Dispatch& connection, const std::wstring& sql) {
    const CallResult done = connection.Call(L"Execute", sql);
    EXPECT_TRUE(done) << ToUtf8(done.Message());
}

/// Opens a recordset with a client cursor (3) or a server one (2).
inline Dispatch Query(const Dispatch& connection, const std::wstring& sql, int cursor_location = 3) {
    Dispatch rows = NewRecordset();
    EXPECT_TRUE(rows.Put(L"CursorLocation", cursor_location));
    const CallResult opened = rows.Call(L"Open", sql, connection.Get());
    EXPECT_TRUE(opened) << ToUtf8(opened.Message());
    return rows;
}

inline Dispatch FieldOf(const Dispatch& rows, const std::wstring& name) {
    return rows.Get(L"Fields", name).Object();
}
inline CallResult ValueOf(const Dispatch& rows, const std::wstring& name) {
    return FieldOf(rows, name).Get(L"Value");
}
inline std::wstring TextOf(const CallResult& result) {
    return result.Text().value_or(L"<sin texto>");
}
inline LONG NumberOf(const CallResult& result) {
    return result.Number().value_or(-987654);
}
inline bool IsTrue(const CallResult& result) {
    return result.Boolean().value_or(false);
}

/// Failure messages print texts as UTF-8; comparisons go through this.
inline std::string U8(const CallResult& result) {
    return ToUtf8(TextOf(result));
}

}  // namespace tessel::tests
