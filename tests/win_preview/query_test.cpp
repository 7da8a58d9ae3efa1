#include "tests/win_preview/query_test.h"

#include <cstdlib>

#include "common/win32/module.h"

namespace tessel::testing {

using win32::ComPtr;
using win32::Dispatch;

namespace {

/// Where ADO is the test objects' own, they are registered first; the system's stays as it is.
void RegisterAdo() {
    const HMODULE library = LoadLibraryW((win32::ModuleFolder() + L"tesselado.dll").c_str());
    if (!library) return;
    using Registration = HRESULT(WINAPI*)();
    if (const auto registration = reinterpret_cast<Registration>(
            reinterpret_cast<void*>(GetProcAddress(library, "DllRegisterServer"))))
        static_cast<void>(registration());
}

}  // namespace

Dispatch OpenConnection(const std::wstring& connection_string) {
    CLSID clsid{};
    ComPtr<IDispatch> object;
    if (FAILED(CLSIDFromProgID(L"ADODB.Connection", &clsid)) ||
        FAILED(CoCreateInstance(clsid, nullptr, CLSCTX_ALL, __uuidof(IDispatch), object.PutVoid())))
        return {};
    const Dispatch connection(object);
    return connection.Call(L"Open", connection_string) ? connection : Dispatch();
}

std::wstring SampleDatabase() {
    const wchar_t* folder = _wgetenv(L"TESSEL_BINARY_DIR");
    return L"Driver=SQLite3;Database=" + (folder ? std::wstring(folder) : L".") + L"/ventas.db";
}

std::wstring ErrorLines(const Dispatch& connection) {
    const Dispatch errors = connection.Get(L"Errors").Object();
    const LONG count = errors.Get(L"Count").Number().value_or(0);
    std::wstring lines;
    for (LONG i = 0; i < count; ++i) {
        const Dispatch error = errors.Get(L"Item", i).Object();
        lines += *error.Get(L"Source").Text() + L" -> " + *error.Get(L"Description").Text() + L" (" +
                 *error.Get(L"Number").Text() + L") (" + *error.Get(L"NativeError").Text() + L")\r\n";
    }
    return lines;
}

void QueryTest::SetUpTestSuite() {
    CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    RegisterAdo();
}

QueryTest::QueryTest(const std::wstring& connection_string)
    : schema_(SmallSchema()), connection_(OpenConnection(connection_string)) {
    EXPECT_TRUE(connection_) << "the sample database opens";
    EXPECT_TRUE(window_.Create());
    window_.LoadSchema(&schema_, L"ventas");
    window_.SetConnection(connection_.Get());
    script_.OnTrouble([this] {
        for (HWND window : {OpenMessageBox(), Preview(), window_.Handle()})
            if (window) PostMessageW(window, WM_CLOSE, 0, 0);
    });
    script_.Until([this] { return IsWindowVisible(window_.Handle()) != FALSE; }, "the designer is visible");
}

HWND QueryTest::Preview() {
    const HWND found = FindWindowW(nullptr, L"Vista previa de datos");
    return found && IsWindowVisible(found) ? found : nullptr;
}

std::wstring QueryTest::Cell(int row, int column) {
    wchar_t text[300] = L"";
    LVITEMW item{};
    item.iSubItem = column;
    item.pszText = text;
    item.cchTextMax = 300;
    SendMessageW(Descendant(Preview(), ui::dlgPVW::kIdRows), LVM_GETITEMTEXTW, static_cast<WPARAM>(row),
                 reinterpret_cast<LPARAM>(&item));
    return text;
}

std::wstring QueryTest::Header(int column) {
    wchar_t text[100] = L"";
    LVCOLUMNW header{};
    header.mask = LVCF_TEXT;
    header.pszText = text;
    header.cchTextMax = 100;
    SendMessageW(Descendant(Preview(), ui::dlgPVW::kIdRows), LVM_GETCOLUMNW, static_cast<WPARAM>(column),
                 reinterpret_cast<LPARAM>(&header));
    return text;
}

void QueryTest::UntilPreview() {
    script_.Until([] { return Preview() != nullptr; }, "the preview is open");
}

void QueryTest::ClosePreview() {
    script_.Do([] { PressKey(VK_ESCAPE); });
    script_.Until([] { return Preview() == nullptr; }, "the preview is closed");
}

void QueryTest::TakeMessage(std::wstring& message) {
    script_.Until([] { return OpenMessageBox() != nullptr; }, "the message is open");
    script_.Do([&message] { message = MessageBoxText(OpenMessageBox()); });
    script_.Do([] { PostMessageW(OpenMessageBox(), WM_CLOSE, 0, 0); });
    script_.Until([] { return OpenMessageBox() == nullptr; }, "the message is closed");
}

void QueryTest::Run(std::wstring_view statement) {
    window_.Presenter().SetDsn(statement);
    script_.Do([this] { PostMessageW(window_.Handle(), WM_CLOSE, 0, 0); });
    script_.Start();
    window_.ShowModal();
    EXPECT_TRUE(script_.Finished()) << script_.Trouble();
}

}  // namespace tessel::testing
