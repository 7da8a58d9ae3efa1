// Takes a picture of every window, for a person's eyes: win_layout_pictures FOLDER [WIDTH HEIGHT]
// [contraste]. With a size, on a screen of that size; with "contraste", in white on black.
#include <windows.h>

#include <uxtheme.h>

#include <cstdio>
#include <cstring>
#include <optional>
#include <vector>

#include "common/win32/dpi.h"
#include "common/win32/screen.h"
#include "hostkit/drive/input.h"
#include "tests/win_layout/every_window.h"

namespace {

using namespace tessel;
using namespace tessel::testing;

/// Gives this machine the colours of a black scheme of high contrast for a scope.
class BlackColours {
public:
    BlackColours() {
        SetThemeAppProperties(0);
        for (const int element : kElements) before_.push_back(GetSysColor(element));
        SetSysColors(kCount, kElements, kColours);
    }
    ~BlackColours() { SetSysColors(kCount, kElements, before_.data()); }
    BlackColours(const BlackColours&) = delete;
    BlackColours& operator=(const BlackColours&) = delete;

private:
    static constexpr int kElements[] = {
        COLOR_WINDOW,       COLOR_WINDOWTEXT,    COLOR_BTNFACE,     COLOR_BTNTEXT,
        COLOR_HIGHLIGHT,    COLOR_GRAYTEXT,      COLOR_HOTLIGHT,    COLOR_HIGHLIGHTTEXT,
        COLOR_WINDOWFRAME,  COLOR_BTNSHADOW,     COLOR_MENU,        COLOR_MENUTEXT,
        COLOR_BTNHIGHLIGHT, COLOR_ACTIVECAPTION, COLOR_CAPTIONTEXT, COLOR_3DDKSHADOW};
    static constexpr COLORREF kBlack = RGB(0, 0, 0);
    static constexpr COLORREF kWhite = RGB(255, 255, 255);
    static constexpr COLORREF kCyan = RGB(26, 235, 255);
    static constexpr COLORREF kGreen = RGB(63, 242, 63);
    static constexpr COLORREF kYellow = RGB(255, 255, 0);
    static constexpr COLORREF kColours[] = {kBlack, kWhite, kBlack, kWhite, kCyan,  kGreen, kYellow, kBlack,
                                            kWhite, kWhite, kBlack, kWhite, kWhite, kBlack, kWhite,  kWhite};
    static constexpr int kCount = static_cast<int>(std::size(kElements));
    std::vector<COLORREF> before_;
};

void Take(Shown shown, const std::wstring& folder, const std::optional<RECT>& work) {
    const std::wstring file =
        folder + L"\\" + std::wstring(NameOf(shown), NameOf(shown) + std::strlen(NameOf(shown))) + L".bmp";
    const std::string trouble = Open(shown, [&](HWND window) {
        if (work)
            MoveWindow(window, work->left, work->top, work->right - work->left, work->bottom - work->top,
                       TRUE);
        // A control library keeps the colours that it has seen.
        SendMessageW(window, WM_SYSCOLORCHANGE, 0, 0);
        Settle();
        RedrawWindow(window, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW | RDW_ALLCHILDREN);
        std::printf("%ls %s\n", file.c_str(), SavePicture(window, file) ? "saved" : "NOT saved");
    });
    if (!trouble.empty()) std::printf("%s: %s\n", NameOf(shown), trouble.c_str());
}

}  // namespace

int wmain(int count, wchar_t** arguments) {
    if (count < 2) return 1;
    const bool black = std::wstring_view(arguments[count - 1]) == L"contraste";
    std::optional<RECT> work;
    if (count >= 4) work = RECT{0, 0, _wtoi(arguments[2]), _wtoi(arguments[3])};
    std::optional<BlackColours> colours;
    if (black) colours.emplace();
    const int dpi = win32::SystemDpiOf(nullptr);
    std::optional<win32::SimulatedScreen> screen;
    if (black || work) screen.emplace(dpi, work.value_or(win32::WorkAreaOf(nullptr)), black);
    for (const Shown shown : kEveryWindow) Take(shown, arguments[1], work);
    return 0;
}
