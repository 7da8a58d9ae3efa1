// "Ejecutar consulta" and F5 in the designer, on the sample database through ADO.
#include <gtest/gtest.h>

#include <cstdlib>

#include "common/win32/dispatch.h"
#include "common/win32/module.h"
#include "tests/support/win32/fake_dispatch.h"
#include "tests/win_dlg_dsn/dlg_dsn_fixture.h"
#include "ui/win32/dlg_pvw.h"

namespace tessel::testing {

using win32::ComPtr;
using win32::Dispatch;

/// Where ADO is the test objects' own, they are registered first; the system's stays as it is.
void RegisterAdo() {
    const HMODULE library = LoadLibraryW((win32::ModuleFolder() + L"tesselado.dll").c_str());
    if (!library) return;
    using Registration = HRESULT(WINAPI*)();
    if (const auto registration = reinterpret_cast<Registration>(
            reinterpret_cast<void*>(GetProcAddress(library, "DllRegisterServer"))))
        static_cast<void>(registration());
}

std::wstring SampleDatabase() {
    const wchar_t* folder = _wgetenv(L"TESSEL_BINARY_DIR");
    return (folder ? std::wstring(folder) : L".") + L"/ventas.db";
}

class Owner final : public ui::DesignerOwner {
public:
    std::vector<std::wstring> ParameterNames() override { return {L"pais"}; }
    std::optional<std::wstring> ParameterLiteral(std::wstring_view name) override {
        if (name == L"minimo") return L"3";
        return std::nullopt;
    }
};

class RunQuery : public ::testing::Test {
protected:
    static void SetUpTestSuite() {
        CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
        RegisterAdo();
    }

    RunQuery() : schema_(SmallSchema()) {
        CLSID clsid{};
        ComPtr<IDispatch> object;
        EXPECT_HRESULT_SUCCEEDED(CLSIDFromProgID(L"ADODB.Connection", &clsid));
        EXPECT_HRESULT_SUCCEEDED(
            CoCreateInstance(clsid, nullptr, CLSCTX_ALL, __uuidof(IDispatch), object.PutVoid()));
        connection_ = Dispatch(object);
        const win32::CallResult opened =
            connection_.Call(L"Open", L"Driver=SQLite3;Database=" + SampleDatabase());
        EXPECT_TRUE(opened) << "the sample database opens";
        EXPECT_TRUE(window_.Create());
        window_.LoadSchema(&schema_, L"ventas");
        window_.SetConnection(connection_.Get());
        script_.OnTrouble([this] {
            for (HWND window : {OpenMessageBox(), Preview(), window_.Handle()})
                if (window) PostMessageW(window, WM_CLOSE, 0, 0);
        });
        script_.Until([this] { return IsWindowVisible(window_.Handle()) != FALSE; },
                      "the designer is visible");
    }

    /// The open preview window, or nullptr.
    static HWND Preview() {
        const HWND found = FindWindowW(nullptr, L"Vista previa de datos");
        return found && IsWindowVisible(found) ? found : nullptr;
    }
    static std::wstring Status() { return TextOf(Descendant(Preview(), ui::dlgPVW::kIdStatus)); }
    static std::wstring Cell(int row, int column) {
        wchar_t text[300] = L"";
        LVITEMW item{};
        item.iSubItem = column;
        item.pszText = text;
        item.cchTextMax = 300;
        SendMessageW(Descendant(Preview(), ui::dlgPVW::kIdRows), LVM_GETITEMTEXTW, static_cast<WPARAM>(row),
                     reinterpret_cast<LPARAM>(&item));
        return text;
    }
    void PressRun() { PostMessageW(Descendant(window_.Handle(), ui::kIdRunQuery), BM_CLICK, 0, 0); }
    void ClosePreview() {
        script_.Do([] { PressKey(VK_ESCAPE); });
        script_.Until([] { return Preview() == nullptr; }, "the preview is closed");
    }
    void CloseBox() {
        script_.Do([] { PostMessageW(OpenMessageBox(), WM_CLOSE, 0, 0); });
        script_.Until([] { return OpenMessageBox() == nullptr; }, "the message is closed");
    }
    /// Opens the designer on the statement, runs the script and cancels.
    void Run(std::wstring_view statement) {
        window_.Presenter().SetDsn(statement);
        script_.Do([this] { PostMessageW(window_.Handle(), WM_CLOSE, 0, 0); });
        script_.Start();
        window_.ShowModal();
        EXPECT_TRUE(script_.Finished()) << script_.Trouble();
    }

    win32::ActivationContext context_;
    schema::Schema schema_;
    Dispatch connection_;
    Owner owner_;
    Script script_;
    ui::DesignerWindow window_{&owner_};
};

TEST_F(RunQuery, F5ShowsTheRowsOfTheDesign) {
    script_.Do([] { PressKey(VK_F5); });
    script_.Until([] { return Preview() != nullptr; }, "the preview is open");
    script_.Do([this] {
        EXPECT_FALSE(IsWindowEnabled(window_.Handle()));
        EXPECT_NE(Cell(0, 0), L"");
        EXPECT_EQ(Status().rfind(L"Fila 1 de ", 0), 0u);
    });
    ClosePreview();
    script_.Do([this] { EXPECT_TRUE(IsWindowEnabled(window_.Handle())); });
    Run(L"SELECT Clientes.Nombre FROM Clientes ORDER BY Clientes.Nombre");
}

TEST_F(RunQuery, MacrosRunExpandedAndTheEditorKeepsThem) {
    const std::wstring statement =
        L"SELECT IdCliente, @fecha AS Hoy FROM Clientes WHERE IdCliente < @minimo UNION SELECT -1, "
        L"'@pagenumber'";
    script_.Do([this] { PressRun(); });
    script_.Until([] { return Preview() != nullptr; }, "the preview is open");
    script_.Do([&] {
        EXPECT_EQ(Status(), L"Fila 1 de 3");
        EXPECT_EQ(Cell(0, 1), L"@pagenumber");
        EXPECT_EQ(Cell(1, 0), L"1");
        EXPECT_EQ(window_.EditorText(), statement);
    });
    ClosePreview();
    script_.Do([&] { EXPECT_EQ(window_.EditorText(), statement); });
    Run(statement);
}

TEST_F(RunQuery, AFailingStatementShowsTheProvidersErrorsExactly) {
    const std::wstring statement = L"SELECT a FROM NoHayTal UNION SELECT 1";
    std::wstring message;
    script_.Do([this] { PressRun(); });
    script_.Until([] { return OpenMessageBox() != nullptr; }, "the message is open");
    script_.Do([&] { message = MessageBoxText(OpenMessageBox()); });
    CloseBox();
    script_.Do([&] {
        EXPECT_EQ(Preview(), nullptr);
        EXPECT_EQ(window_.EditorText(), statement);
    });
    Run(statement);

    // What the connection holds now, put together independently.
    const Dispatch errors = connection_.Get(L"Errors").Object();
    const LONG count = errors.Get(L"Count").Number().value_or(0);
    ASSERT_GT(count, 0);
    std::wstring lines;
    for (LONG i = 0; i < count; ++i) {
        const Dispatch error = errors.Get(L"Item", i).Object();
        lines += *error.Get(L"Source").Text() + L" -> " + *error.Get(L"Description").Text() + L" (" +
                 *error.Get(L"Number").Text() + L") (" + *error.Get(L"NativeError").Text() + L")\r\n";
    }
    const std::size_t gap = message.find(L"\r\n\r\n");
    ASSERT_NE(gap, std::wstring::npos);
    EXPECT_NE(message.substr(0, gap).find(L"NoHayTal"), std::wstring::npos);
    EXPECT_EQ(message.substr(gap + 4), lines);
    std::printf("%ls\n", message.c_str());
}

TEST_F(RunQuery, ABlankStatementGivesTheMessage) {
    std::wstring message;
    script_.Do([] { PressKey(VK_F5); });
    script_.Until([] { return OpenMessageBox() != nullptr; }, "the message is open");
    script_.Do([&] { message = MessageBoxText(OpenMessageBox()); });
    CloseBox();
    Run(L"");
    EXPECT_EQ(message, L"No hay ninguna consulta que ejecutar o existe un error en la definición");
}

TEST_F(RunQuery, AStatementWithoutRowsIsSaidToHaveNone) {
    std::wstring message;
    script_.Do([this] { PressRun(); });
    script_.Until([] { return OpenMessageBox() != nullptr; }, "the message is open");
    script_.Do([&] { message = MessageBoxText(OpenMessageBox()); });
    CloseBox();
    Run(L"UPDATE Clientes SET Nombre = Nombre WHERE 1 = 0");
    EXPECT_EQ(message.rfind(L"La instrucción se ejecutó, pero no devuelve filas que mostrar.\r\n\r\n", 0),
              0u);
}

TEST_F(RunQuery, ATableIsShownWhole) {
    script_.Do([this] { window_.PreviewTable(L"[Detalle de pedidos]"); });
    script_.Until([] { return Preview() != nullptr; }, "the preview is open");
    script_.Do([] { EXPECT_EQ(Status().rfind(L"Fila 1 de ", 0), 0u); });
    ClosePreview();
    Run(L"");
}

TEST_F(RunQuery, AClosedConnectionIsReported) {
    static_cast<void>(connection_.Call(L"Close"));
    std::wstring message;
    script_.Do([this] { window_.PreviewTable(L"Clientes"); });
    script_.Until([] { return OpenMessageBox() != nullptr; }, "the message is open");
    script_.Do([&] { message = MessageBoxText(OpenMessageBox()); });
    CloseBox();
    Run(L"");
    const std::size_t gap = message.find(L"\r\n\r\n");
    EXPECT_NE(gap, std::wstring::npos);
    EXPECT_GT(gap, 0u);
}

TEST_F(RunQuery, WithoutAConnectionTheButtonIsOffAndATableGivesTheMessage) {
    window_.SetConnection(nullptr);
    std::wstring message;
    script_.Do([this] {
        EXPECT_FALSE(IsWindowEnabled(Descendant(window_.Handle(), ui::kIdRunQuery)));
        PressKey(VK_F5);
    });
    script_.Do([this] { window_.PreviewTable(L"Clientes"); });
    script_.Until([] { return OpenMessageBox() != nullptr; }, "the message is open");
    script_.Do([&] { message = MessageBoxText(OpenMessageBox()); });
    CloseBox();
    Run(L"SELECT 1");
    EXPECT_EQ(message, L"No hay una conexión válida u ocurrió un error desconocido.");
}

}  // namespace tessel::testing
