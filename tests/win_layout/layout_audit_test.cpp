// The audit finds what it is there to find.
#include "tests/win_layout/layout_audit.h"

#include <gtest/gtest.h>

#include "common/win32/dpi.h"

namespace tessel::testing {

namespace {

/// A bare window of 400 by 200 with the controls that a test puts into it.
class LayoutAudit : public ::testing::Test {
protected:
    LayoutAudit()
        : window_(CreateWindowExW(0, L"STATIC", L"", WS_POPUP | WS_VISIBLE, 0, 0, 400, 200, nullptr, nullptr,
                                  nullptr, nullptr)),
          font_(win32::MessageFont(96)) {}
    ~LayoutAudit() override { DestroyWindow(window_); }

    void Add(const wchar_t* window_class, const wchar_t* text, DWORD style, const RECT& place) {
        const HWND control = CreateWindowExW(0, window_class, text, WS_CHILD | WS_VISIBLE | style, place.left,
                                             place.top, place.right - place.left, place.bottom - place.top,
                                             window_, nullptr, nullptr, nullptr);
        SendMessageW(control, WM_SETFONT, reinterpret_cast<WPARAM>(font_.get()), FALSE);
    }

    HWND window_;
    win32::UniqueFont font_;
};

bool Says(const std::vector<std::string>& faults, const std::string& what) {
    return faults.size() == 1 && faults.front().find(what) != std::string::npos;
}

}  // namespace

TEST_F(LayoutAudit, NothingIsWrongWithAWindowThatHasRoom) {
    Add(L"BUTTON", L"&Aceptar", BS_PUSHBUTTON, {10, 10, 110, 40});
    Add(L"STATIC", L"Un texto", SS_LEFT, {10, 50, 390, 80});
    EXPECT_TRUE(LayoutFaults(window_, 96).empty());
}

TEST_F(LayoutAudit, FindsACutCaption) {
    Add(L"BUTTON", L"Ejecutar consulta (vista previa de resultados)", BS_PUSHBUTTON, {10, 10, 110, 40});
    EXPECT_TRUE(Says(LayoutFaults(window_, 96), "needs"));
}

TEST_F(LayoutAudit, FindsATextThatNeedsMoreLinesThanThereAre) {
    Add(L"STATIC", L"Una frase que en tan poca anchura ocupa bastantes más líneas", SS_LEFT,
        {10, 10, 90, 40});
    EXPECT_TRUE(Says(LayoutFaults(window_, 96), "needs"));
}

TEST_F(LayoutAudit, FindsControlsOverOneAnother) {
    Add(L"BUTTON", L"Uno", BS_PUSHBUTTON, {10, 10, 110, 40});
    Add(L"BUTTON", L"Otro", BS_PUSHBUTTON, {109, 10, 209, 40});
    EXPECT_TRUE(Says(LayoutFaults(window_, 96), "lies over"));
}

TEST_F(LayoutAudit, FindsAControlOutsideItsParent) {
    Add(L"BUTTON", L"Uno", BS_PUSHBUTTON, {301, 10, 401, 40});
    EXPECT_TRUE(Says(LayoutFaults(window_, 96), "reaches out"));
}

TEST_F(LayoutAudit, FindsAControlWithoutRoom) {
    Add(L"BUTTON", L"", BS_PUSHBUTTON, {10, 10, 10, 40});
    EXPECT_TRUE(Says(LayoutFaults(window_, 96), "has no room"));
}

}  // namespace tessel::testing
