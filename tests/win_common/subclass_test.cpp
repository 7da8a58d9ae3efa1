// Procedures put before that of a window: their order, taking them away while a message is under way, and the
// end of the window.
#include "common/win32/subclass.h"

#include <gtest/gtest.h>

#include <string>

namespace tessel::win32 {

namespace {

constexpr UINT kAsked = WM_USER + 17;

/// What the procedures of a test did, in order.
struct Record {
    std::wstring calls;
    bool takes_first_away = false;
};

LRESULT First(HWND hwnd, UINT message, WPARAM wparam, LPARAM lparam, void* data, const SubclassChain& next);

LRESULT Second(HWND hwnd, UINT message, WPARAM wparam, LPARAM lparam, void* data, const SubclassChain& next) {
    auto* record = static_cast<Record*>(data);
    if (message == kAsked) {
        record->calls += L"second ";
        if (record->takes_first_away) Unsubclass(hwnd, First);
    }
    if (message == WM_NCDESTROY) record->calls += L"second ends ";
    return next(hwnd, message, wparam, lparam);
}

LRESULT First(HWND hwnd, UINT message, WPARAM wparam, LPARAM lparam, void* data, const SubclassChain& next) {
    auto* record = static_cast<Record*>(data);
    if (message == kAsked) record->calls += L"first ";
    if (message == WM_NCDESTROY) record->calls += L"first ends ";
    return next(hwnd, message, wparam, lparam);
}

class Subclassing : public ::testing::Test {
protected:
    void SetUp() override {
        hwnd_ = CreateWindowExW(0, L"STATIC", L"text", WS_POPUP, 0, 0, 10, 10, nullptr, nullptr, nullptr,
                                nullptr);
        ASSERT_TRUE(hwnd_);
    }
    void TearDown() override {
        if (IsWindow(hwnd_)) DestroyWindow(hwnd_);
    }

    HWND hwnd_ = nullptr;
    Record record_;
};

}  // namespace

TEST_F(Subclassing, TheLastProcedureIsAskedFirstAndTheWindowsOwnAtLast) {
    ASSERT_TRUE(Subclass(hwnd_, First, &record_));
    ASSERT_TRUE(Subclass(hwnd_, Second, &record_));
    SendMessageW(hwnd_, kAsked, 0, 0);
    EXPECT_EQ(record_.calls, L"second first ");
    wchar_t text[10] = L"";
    GetWindowTextW(hwnd_, text, 10);
    EXPECT_STREQ(text, L"text");
}

TEST_F(Subclassing, AProcedureThatIsThereGetsOtherData) {
    Record other;
    ASSERT_TRUE(Subclass(hwnd_, First, &record_));
    ASSERT_TRUE(Subclass(hwnd_, First, &other));
    SendMessageW(hwnd_, kAsked, 0, 0);
    EXPECT_EQ(record_.calls, L"");
    EXPECT_EQ(other.calls, L"first ");
    // It goes before what it points to.
    Unsubclass(hwnd_, First);
}

TEST_F(Subclassing, AProcedureThatWasTakenAwayIsNotCalledAnyMore) {
    ASSERT_TRUE(Subclass(hwnd_, First, &record_));
    ASSERT_TRUE(Subclass(hwnd_, Second, &record_));
    Unsubclass(hwnd_, Second);
    SendMessageW(hwnd_, kAsked, 0, 0);
    EXPECT_EQ(record_.calls, L"first ");
}

TEST_F(Subclassing, OneMayBeTakenAwayWhileAMessageIsOnItsWayToIt) {
    record_.takes_first_away = true;
    ASSERT_TRUE(Subclass(hwnd_, First, &record_));
    ASSERT_TRUE(Subclass(hwnd_, Second, &record_));
    SendMessageW(hwnd_, kAsked, 0, 0);
    EXPECT_EQ(record_.calls, L"second ");
}

TEST_F(Subclassing, EveryProcedureSeesTheEndOfTheWindow) {
    ASSERT_TRUE(Subclass(hwnd_, First, &record_));
    ASSERT_TRUE(Subclass(hwnd_, Second, &record_));
    DestroyWindow(hwnd_);
    EXPECT_EQ(record_.calls, L"second ends first ends ");
}

TEST_F(Subclassing, AWindowThatIsGoneIsRefused) {
    DestroyWindow(hwnd_);
    EXPECT_FALSE(Subclass(hwnd_, First, &record_));
    Unsubclass(hwnd_, First);
}

}  // namespace tessel::win32
