// Assistive programs live in processes of their own: accessible_tree, started beside the designer, prints
// what it finds there.
#include <fstream>
#include <sstream>

#include "common/text.h"
#include "common/win32/com_object.h"
#include "common/win32/module.h"
#include "tests/win_access/access_fixture.h"

namespace tessel::testing {

namespace {

class OtherProcessTest : public AccessTest {
protected:
    /// Starts the program with its output in a file. `what` is a window class, or nothing for all of the
    /// window.
    void Start(const std::wstring& what) {
        SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
        wchar_t folder[MAX_PATH] = L"";
        GetTempPathW(MAX_PATH, folder);
        wchar_t file[MAX_PATH] = L"";
        GetTempFileNameW(folder, L"acc", 0, file);
        file_ = file;
        const HANDLE output = CreateFileW(file, GENERIC_WRITE, FILE_SHARE_READ, &inherited, CREATE_ALWAYS,
                                          FILE_ATTRIBUTE_NORMAL, nullptr);
        STARTUPINFOW startup{};
        startup.cb = sizeof startup;
        startup.dwFlags = STARTF_USESTDHANDLES;
        startup.hStdOutput = startup.hStdError = output;
        PROCESS_INFORMATION process{};
        std::wstring command = L'"' + win32::ModuleFolder() + L"accessible_tree.exe\" \"" +
                               TextOf(window_.Handle()) + L"\" " + what;
        EXPECT_TRUE(CreateProcessW(nullptr, command.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr,
                                   &startup, &process));
        CloseHandle(output);
        CloseHandle(process.hThread);
        process_ = process.hProcess;
    }
    std::string Output() {
        DWORD code = 99;
        GetExitCodeProcess(process_, &code);
        EXPECT_EQ(code, 0u);
        CloseHandle(process_);
        std::ifstream in(file_.c_str(), std::ios::binary);
        std::stringstream text;
        text << in.rdbuf();
        in.close();
        DeleteFileW(file_.c_str());
        return text.str();
    }

    HANDLE process_ = nullptr;
    std::wstring file_;
};

}  // namespace

TEST_F(OtherProcessTest, FindsTablesFieldsAndRelations) {
    std::string printed;
    script_.Do([this] { Start(L"TesselDiagram"); });
    script_.Until([this] { return WaitForSingleObject(process_, 0) == WAIT_OBJECT_0; },
                  "the program has ended");
    script_.Do([&] { printed = Output(); });
    CloseAfterwards();
    Run(kCustomersAndOrders);
    for (const wchar_t* line : {
             L"diagram \"Diagrama de tablas\"",
             L"list \"Pedidos\" (tabla, 4 campos, 1 marcado)",
             L"check button \"Importe\" (adNumeric) checked",
             L"graphic \"Relación: Clientes.IdCliente = Pedidos.IdCliente, combinación izquierda\"",
         })
        EXPECT_NE(printed.find(ToUtf8(line)), std::string::npos) << ToUtf8(line) << "\n" << printed;
}

TEST_F(OtherProcessTest, MayGoOnAskingWhileTheDesignerCloses) {
    script_.Do([this] { Start(L""); });
    // Objects are held by the other program by now, and it goes on asking for more.
    script_.Until([this] { return win32::ServerCount::Value() > 20; }, "the program is reading");
    CloseAfterwards();
    Run(kCustomersAndOrders);
    window_.Destroy();
    const ULONGLONG started = GetTickCount64();
    constexpr ULONGLONG kPatience_ms = 60000;
    while (WaitForSingleObject(process_, 0) != WAIT_OBJECT_0 && GetTickCount64() - started < kPatience_ms) {
        MsgWaitForMultipleObjects(1, &process_, FALSE, 100, QS_ALLINPUT);
        MSG message{};
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageW(&message);
    }
    Output();
}

}  // namespace tessel::testing
