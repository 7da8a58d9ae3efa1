#include "common/win32/dpi.h"

#include <cwchar>

#include "common/win32/screen.h"

namespace tessel::win32 {

namespace {

template <class Function>
Function UserFunction(const char* name) {
    return reinterpret_cast<Function>(
        reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"user32.dll"), name)));
}

}  // namespace

UniqueFont MessageFont(int dpi, bool bold) {
    using SystemParametersInfoForDpiFn = BOOL(WINAPI*)(UINT, UINT, PVOID, UINT, UINT);
    static const auto info_for_dpi = UserFunction<SystemParametersInfoForDpiFn>("SystemParametersInfoForDpi");
    NONCLIENTMETRICSW metrics{};
    metrics.cbSize = sizeof metrics;
    if (!info_for_dpi ||
        !info_for_dpi(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0, static_cast<UINT>(dpi))) {
        if (!SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0)) return UniqueFont();
        metrics.lfMessageFont.lfHeight = MulDiv(metrics.lfMessageFont.lfHeight, dpi, SystemDpiOf(nullptr));
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
