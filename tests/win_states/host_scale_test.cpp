// The scale that the host declares for itself, and ours beside it.
#include <gtest/gtest.h>

#include "common/win32/screen.h"
#include "ui/win32/dlg_dsn.h"

namespace tessel::testing {

namespace {

using SetContext = HANDLE(WINAPI*)(HANDLE);
using GetContext = HANDLE(WINAPI*)();
using WindowContext = HANDLE(WINAPI*)(HWND);
using AreEqual = BOOL(WINAPI*)(HANDLE, HANDLE);

template <class Function>
Function UserFunction(const char* name) {
    return reinterpret_cast<Function>(
        reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"user32.dll"), name)));
}

HANDLE Context(int number) {
    return reinterpret_cast<HANDLE>(static_cast<LONG_PTR>(number));
}

constexpr int kUnaware = -1;
constexpr int kSystemAware = -2;
constexpr int kPerMonitor = -3;
constexpr int kPerMonitorV2 = -4;

/// A host of each kind; the thread is put back afterwards.
class HostScale : public ::testing::TestWithParam<int> {
protected:
    void SetUp() override {
        if (!set_context_ || !get_context_ || !window_context_ || !are_equal_)
            GTEST_SKIP() << "this system does not know of threads with scales";
        before_ = set_context_(Context(GetParam()));
    }
    void TearDown() override {
        if (before_) set_context_(before_);
    }

    SetContext set_context_ = UserFunction<SetContext>("SetThreadDpiAwarenessContext");
    GetContext get_context_ = UserFunction<GetContext>("GetThreadDpiAwarenessContext");
    WindowContext window_context_ = UserFunction<WindowContext>("GetWindowDpiAwarenessContext");
    AreEqual are_equal_ = UserFunction<AreEqual>("AreDpiAwarenessContextsEqual");
    HANDLE before_ = nullptr;
};

}  // namespace

TEST_P(HostScale, OurWindowFollowsItsMonitorAndTheHostStaysWhatItIs) {
    const HWND host = CreateWindowExW(0, L"STATIC", L"host", WS_OVERLAPPED, 0, 0, 50, 50, nullptr, nullptr,
                                      nullptr, nullptr);
    const HANDLE context_of_host = window_context_(host);
    const HANDLE context_of_thread = get_context_();
    {
        const ui::dlgDsn window(nullptr);
        ASSERT_TRUE(window.IsCreated());
        const HANDLE ours = window_context_(window.Handle());
        EXPECT_TRUE(are_equal_(ours, Context(kPerMonitorV2)) || are_equal_(ours, Context(kPerMonitor)));
        EXPECT_TRUE(are_equal_(window_context_(host), context_of_host));
    }
    EXPECT_TRUE(are_equal_(get_context_(), context_of_thread));
    DestroyWindow(host);
    ui::UnregisterWindowClasses();
}

INSTANTIATE_TEST_SUITE_P(EveryHost, HostScale,
                         ::testing::Values(kUnaware, kSystemAware, kPerMonitor, kPerMonitorV2));

}  // namespace tessel::testing
