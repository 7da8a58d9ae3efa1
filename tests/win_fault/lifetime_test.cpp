// Opening and closing the designer again and again, and loading and unloading the library: nothing may pile
// up.
//
// TESSEL_CYCLES sets the number of cycles, 60 if it is not set.
#include <gtest/gtest.h>

#include <cstdlib>

#include "tests/support/win32/process_use.h"
#include "tests/win_fault/designer_session.h"
#include "ui/win32/designer_ids.h"

namespace tessel::tests {
namespace {

constexpr wchar_t kStatement[] =
    L"SELECT Clientes.Nombre, Pedidos.IdPedido FROM (Clientes INNER JOIN Pedidos ON Clientes.IdCliente = "
    L"Pedidos.IdCliente) WHERE Clientes.Nombre = 'Ana'";
constexpr int kWarmUp = 15;

int Cycles() {
    const char* asked = std::getenv("TESSEL_CYCLES");
    const int cycles = asked ? std::atoi(asked) : 0;
    return cycles > 0 ? cycles : 60;
}

class Lifetime : public ::testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(ComponentLibrary::Instance().IsLoaded()); }

    SessionAnswer Call(const std::vector<SessionStep>& steps) {
        const win32::ComPtr<_Quillon> quillon = ComponentLibrary::Instance().CreateQuillon();
        host_.Focus();
        // The fake remembers what it is asked, which would look like a leak.
        connection_.log->clear();
        return RunSession(quillon.Get(), connection_.object.Get(), kStatement, steps);
    }

    /// Runs the cycle until it is warm, and then as often as asked; what it holds must not grow.
    void ExpectConstant(const char* name, const std::function<void()>& cycle) {
        for (int i = 0; i < kWarmUp; ++i) cycle();
        const ProcessUse before;
        const long counted = win32::ServerCount::Value();
        const int cycles = Cycles();
        for (int i = 0; i < cycles && !HasFailure(); ++i) cycle();
        const ProcessUse after;
        std::printf(
            "%d times %s: GDI %ld -> %ld, USER %ld -> %ld, handles %ld -> %ld, heaps %lld -> %lld KB, "
            "memory %lld -> %lld KB\n",
            cycles, name, before.gdi, after.gdi, before.user, after.user, before.handles, after.handles,
            before.heaps_kb, after.heaps_kb, before.memory_kb, after.memory_kb);
        EXPECT_LE(after.gdi, before.gdi);
        EXPECT_LE(after.user, before.user);
        EXPECT_LE(after.handles, before.handles);
        // Room for the few bytes that the system itself keeps of a window.
        EXPECT_LT(after.heaps_kb - before.heaps_kb, 4 + cycles / 8);
        // Room for what the heaps keep for later, whatever the number of cycles.
        EXPECT_LT(after.memory_kb - before.memory_kb, 8192);
        EXPECT_EQ(win32::ServerCount::Value(), counted);
        EXPECT_EQ(ComponentLibrary::Instance().CanUnloadNow(), S_OK);
        EXPECT_EQ(host_.Disturbance(), "");
    }

    std::vector<std::wstring> statements_;
    RecordsetClass recordsets_{
        [this] { return win32::ComPtr<IDispatch>(SessionRecordset(&statements_).Get()); }};
    HostWindow host_;
    FakeConnection connection_ = SessionConnection();
};

TEST_F(Lifetime, OpeningEditingAndAcceptingHoldsNothing) {
    ExpectConstant("open, edit, accept", [this] {
        const SessionAnswer answer =
            Call({DrawEverything(), PressButton(ui::kIdDistinct), PressButton(ui::kIdAccept)});
        EXPECT_NE(answer.sql.find(L"DISTINCTROW"), std::wstring::npos);
    });
}

TEST_F(Lifetime, OpeningAndCancellingHoldsNothing) {
    ExpectConstant("open, cancel", [this] {
        const SessionAnswer answer =
            Call({DrawEverything(), PressButton(ui::kIdDistinct), PressButton(ui::kIdCancel)});
        EXPECT_EQ(answer.sql, kStatement);
    });
}

TEST_F(Lifetime, PreviewsAndTreesHoldNothing) {
    ExpectConstant("open, preview, tree, cancel", [this] {
        statements_.clear();
        const SessionAnswer answer = Call({DrawEverything(), PressButton(ui::kIdRunQuery),
                                           PressButton(ui::kIdSyntaxTree), PressButton(ui::kIdCancel)});
        EXPECT_EQ(answer.log.previews, 1);
        EXPECT_EQ(answer.log.trees, 1);
        EXPECT_EQ(statements_.size(), 1u);
    });
}

TEST_F(Lifetime, AfterTheLastReleaseTheLibraryMayGo) {
    win32::ComPtr<_Quillon> quillon = ComponentLibrary::Instance().CreateQuillon();
    EXPECT_EQ(ComponentLibrary::Instance().CanUnloadNow(), S_FALSE);
    quillon.Reset();
    EXPECT_EQ(ComponentLibrary::Instance().CanUnloadNow(), S_OK);
}

/// The class object of a library that was loaded by hand.
HRESULT ClassObject(HMODULE library, void** factory) {
    using Entry = HRESULT(WINAPI*)(REFCLSID, REFIID, void**);
    const auto entry =
        reinterpret_cast<Entry>(reinterpret_cast<void*>(GetProcAddress(library, "DllGetClassObject")));
    return entry ? entry(__uuidof(Quillon), IID_IClassFactory, factory) : E_FAIL;
}

// A copy of the file, so that it really goes: the test's own reference keeps the library itself loaded.
class LoadedAgainAndAgain : public ::testing::Test {
protected:
    void SetUp() override {
        wchar_t folder[MAX_PATH] = L"";
        ASSERT_GT(GetTempPathW(MAX_PATH, folder), 0u);
        copy_ = std::wstring(folder) + L"tessel_lifetime_" + std::to_wstring(GetCurrentProcessId()) + L".dll";
        ASSERT_TRUE(CopyFileW(ComponentPath().c_str(), copy_.c_str(), FALSE));
    }
    void TearDown() override { DeleteFileW(copy_.c_str()); }

    /// Loads the library, opens the designer once when asked to, and unloads it.
    void Cycle(bool opens) {
        const HMODULE library = LoadLibraryW(copy_.c_str());
        ASSERT_NE(library, nullptr);
        {
            win32::ComPtr<IClassFactory> factory;
            ASSERT_EQ(ClassObject(library, factory.PutVoid()), S_OK);
            win32::ComPtr<_Quillon> quillon;
            ASSERT_EQ(factory->CreateInstance(nullptr, __uuidof(_Quillon), quillon.PutVoid()), S_OK);
            if (opens) {
                host_.Focus();
                const SessionAnswer answer = RunSession(quillon.Get(), connection_.object.Get(), kStatement,
                                                        {PressButton(ui::kIdAccept)});
                EXPECT_TRUE(answer.log.designer_shown);
            }
        }
        EXPECT_TRUE(FreeLibrary(library));
        EXPECT_EQ(GetModuleHandleW(copy_.c_str()), nullptr) << "the library is still loaded";
    }

    std::wstring copy_;
    HostWindow host_;
    FakeConnection connection_ = SessionConnection();
};

TEST_F(LoadedAgainAndAgain, AHundredLoadsHoldNothing) {
    for (int i = 0; i < 10; ++i) Cycle(false);
    const ProcessUse before;
    for (int i = 0; i < 100; ++i) Cycle(false);
    const ProcessUse after;
    std::printf("100 loads: GDI %ld -> %ld, USER %ld -> %ld, handles %ld -> %ld, memory %lld -> %lld KB\n",
                before.gdi, after.gdi, before.user, after.user, before.handles, after.handles,
                before.memory_kb, after.memory_kb);
    EXPECT_LE(after.gdi, before.gdi);
    EXPECT_LE(after.user, before.user);
    EXPECT_LE(after.handles, before.handles);
    // Four kilobytes a load would be the first page of what the runtime sets aside for exceptions.
    EXPECT_LT(after.memory_kb - before.memory_kb, 384);
}

TEST_F(LoadedAgainAndAgain, ALibraryThatOpenedTheDesignerUnloadsToo) {
    for (int i = 0; i < 5; ++i) Cycle(true);
    const ProcessUse before;
    constexpr int kCycles = 10;
    for (int i = 0; i < kCycles; ++i) Cycle(true);
    const ProcessUse after;
    EXPECT_LE(after.gdi, before.gdi + 1);
    EXPECT_LE(after.user, before.user);
    EXPECT_LE(after.handles, before.handles);
    EXPECT_EQ(host_.Disturbance(), "");
}

class NoDropTarget final : public win32::ComObject<IDropTarget> {
public:
    STDMETHODIMP DragEnter(IDataObject*, DWORD, POINTL, DWORD*) override { return E_NOTIMPL; }
    STDMETHODIMP DragOver(DWORD, POINTL, DWORD*) override { return E_NOTIMPL; }
    STDMETHODIMP DragLeave() override { return E_NOTIMPL; }
    STDMETHODIMP Drop(IDataObject*, DWORD, POINTL, DWORD*) override { return E_NOTIMPL; }
};

/// A thread's body, in an apartment of its own.
void TakeDrops() {
    const HostWindow host;
    const HWND window = GetActiveWindow();
    RegisterDragDrop(window, win32::MakeObject<NoDropTarget>().Get());
    RevokeDragDrop(window);
}

void OpenDesigner() {
    const HostWindow host;
    host.Focus();
    const FakeConnection connection = SessionConnection();
    const win32::ComPtr<_Quillon> quillon = ComponentLibrary::Instance().CreateQuillon();
    const SessionAnswer answer =
        RunSession(quillon.Get(), connection.object.Get(), kStatement, {PressButton(ui::kIdAccept)});
    EXPECT_TRUE(answer.log.designer_shown);
    EXPECT_NE(answer.sql, kStatement) << "the accepted text has line ends";
}

DWORD WINAPI RunInApartment(void* body) {
    if (FAILED(OleInitialize(nullptr))) return 1;
    reinterpret_cast<void (*)()>(body)();
    OleUninitialize();
    return 0;
}

/// Runs the body in threads, one after the other, while this thread's windows stay alive. Answers what the
/// process holds more at the end, without the first threads.
ProcessUse GrowthOver(int threads, void (*body)()) {
    constexpr int kWarm = 3;
    ProcessUse before;
    for (int i = -kWarm; i < threads; ++i) {
        if (i == 0) before = ProcessUse();
        const HANDLE thread =
            CreateThread(nullptr, 0, RunInApartment, reinterpret_cast<void*>(body), 0, nullptr);
        while (MsgWaitForMultipleObjects(1, &thread, FALSE, INFINITE, QS_ALLINPUT) != WAIT_OBJECT_0) {
            MSG message{};
            while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageW(&message);
        }
        CloseHandle(thread);
    }
    ProcessUse growth;
    growth.gdi -= before.gdi;
    growth.user -= before.user;
    growth.handles -= before.handles;
    return growth;
}

// Wine keeps an event and a pipe of every apartment that took drops, also of one that never saw the designer.
TEST(LifetimeOfThreads, AThreadThatOpenedTheDesignerTakesEverythingWithIt) {
    constexpr int kThreads = 8;
    const ProcessUse of_the_system = GrowthOver(kThreads, TakeDrops);
    const ProcessUse growth = GrowthOver(kThreads, OpenDesigner);
    EXPECT_LE(growth.gdi, 0);
    EXPECT_LE(growth.user, 0);
    EXPECT_LE(growth.handles, of_the_system.handles);
    EXPECT_EQ(ComponentLibrary::Instance().CanUnloadNow(), S_OK);
}

}  // namespace
}  // namespace tessel::tests
