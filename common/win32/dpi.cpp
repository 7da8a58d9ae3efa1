#include "common/win32/dpi.h"

#include <cwchar>

namespace tessel::win32 {

namespace {

template <class Function>
Function UserFunction(const char* name) {
    return reinterpret_cast<Function>(
        reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"user32.dll"), name)));
}

}  // namespace

int DpiOf(HWND hwnd) {
    using GetDpiForWindowFn = UINT(WINAPI*)(HWND);
    static const auto get_dpi_for_window = UserFunction<GetDpiForWindowFn>("GetDpiForWindow");
    if (get_dpi_for_window && hwnd)
        if (const UINT dpi = get_dpi_for_window(hwnd)) return static_cast<int>(dpi);
    const HDC dc = GetDC(nullptr);
    const int dpi = dc ? GetDeviceCaps(dc, LOGPIXELSX) : 96;
    if (dc) ReleaseDC(nullptr, dc);
    return dpi > 0 ? dpi : 96;
}

UniqueFont MessageFont(int dpi, bool bold) {
    using SystemParametersInfoForDpiFn = BOOL(WINAPI*)(UINT, UINT, PVOID, UINT, UINT);
    static const auto info_for_dpi = UserFunction<SystemParametersInfoForDpiFn>("SystemParametersInfoForDpi");
    NONCLIENTMETRICSW metrics{};
    metrics.cbSize = sizeof metrics;
    if (!info_for_dpi ||
        !info_for_dpi(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0, static_cast<UINT>(dpi))) {
        if (!SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0)) return UniqueFont();
        metrics.lfMessageFont.lfHeight = MulDiv(metrics.lfMessageFont.lfHeight, dpi, DpiOf(nullptr));
    }
    if (bold) metrics.lfMessageFont.lfWeight = FW_BOLD;
    return UniqueFont(CreateFontIndirectW(&metrics.lfMessageFont));
}

UniqueFont FixedFont(int dpi, int points) {
    LOGFONTW font{};
    font.lfHeight = -MulDiv(points, dpi, 72);
    font.lfCharSet = DEFAULT_CHARSET;
    font.lfQuality = CLEARTYPE_QUALITY;
    font.lfPitchAndFamily = FIXED_PITCH | FF_MODERN;
    std::wcsncpy(font.lfFaceName, L"Consolas", LF_FACESIZE - 1);
    return UniqueFont(CreateFontIndirectW(&font));
}

}  // namespace tessel::win32
