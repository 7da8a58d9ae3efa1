#include "common/win32/screen.h"

#include <algorithm>
#include <optional>

#include "common/win32/dpi.h"
#include "common/win32/module.h"

namespace tessel::win32 {

namespace {

// The designer can be used from this size on, in units of 1/96 inch.
constexpr int kUsableWidth = 480;
constexpr int kUsableHeight = 360;
constexpr int kUnscaledDpi = 96;

struct Simulation {
    int dpi;
    RECT work_area;
    bool high_contrast;
};

std::optional<Simulation> g_simulation;

template <class Function>
Function UserFunction(const char* name) {
    return reinterpret_cast<Function>(
        reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"user32.dll"), name)));
}

// DPI_AWARENESS_CONTEXT values; older headers have neither the type nor the names.
const HANDLE kPerMonitorV2 = reinterpret_cast<HANDLE>(static_cast<LONG_PTR>(-4));
const HANDLE kPerMonitor = reinterpret_cast<HANDLE>(static_cast<LONG_PTR>(-3));

using SetContextFn = HANDLE(WINAPI*)(HANDLE);

SetContextFn SetContextFunction() {
    static const auto function = UserFunction<SetContextFn>("SetThreadDpiAwarenessContext");
    return function;
}

BOOL CALLBACK TellDpi(HWND child, LPARAM) {
    if (reinterpret_cast<HMODULE>(GetClassLongPtrW(child, GCLP_HMODULE)) == ThisModule())
        SendMessageW(child, kDpiChangedAfterParent, 0, 0);
    return TRUE;
}

}  // namespace

int SystemDpiOf(HWND hwnd) {
    using GetDpiForWindowFn = UINT(WINAPI*)(HWND);
    static const auto get_dpi_for_window = UserFunction<GetDpiForWindowFn>("GetDpiForWindow");
    if (get_dpi_for_window && hwnd)
        if (const UINT dpi = get_dpi_for_window(hwnd)) return static_cast<int>(dpi);
    const HDC dc = GetDC(nullptr);
    const int dpi = dc ? GetDeviceCaps(dc, LOGPIXELSX) : kUnscaledDpi;
    if (dc) ReleaseDC(nullptr, dc);
    return dpi > 0 ? dpi : kUnscaledDpi;
}

int DpiOf(HWND hwnd) {
    const int dpi = g_simulation ? g_simulation->dpi : SystemDpiOf(hwnd);
    // Nothing is made smaller than that, so the work area, which is asked of another process, has no say.
    if (dpi <= kUnscaledDpi) return dpi;
    const RECT work = WorkAreaOf(hwnd);
    return FittingDpi(dpi, work.right - work.left, work.bottom - work.top);
}

RECT WorkAreaOf(HWND hwnd) {
    if (g_simulation) return g_simulation->work_area;
    MONITORINFO monitor{};
    monitor.cbSize = sizeof monitor;
    const HMONITOR nearest =
        MonitorFromWindow(hwnd, hwnd ? MONITOR_DEFAULTTONEAREST : MONITOR_DEFAULTTOPRIMARY);
    if (GetMonitorInfoW(nearest, &monitor)) return monitor.rcWork;
    return {0, 0, GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)};
}

int FittingDpi(int dpi, int work_width, int work_height) {
    const int most = std::min(MulDiv(work_width, kUnscaledDpi, kUsableWidth),
                              MulDiv(work_height, kUnscaledDpi, kUsableHeight));
    return std::min(dpi, std::max(most, kUnscaledDpi));
}

int SystemMetric(int index, int dpi) {
    using GetSystemMetricsForDpiFn = int(WINAPI*)(int, UINT);
    static const auto for_dpi = UserFunction<GetSystemMetricsForDpiFn>("GetSystemMetricsForDpi");
    return for_dpi ? for_dpi(index, static_cast<UINT>(dpi)) : GetSystemMetrics(index);
}

bool IsHighContrast() {
    if (g_simulation) return g_simulation->high_contrast;
    HIGHCONTRASTW contrast{};
    contrast.cbSize = sizeof contrast;
    return SystemParametersInfoW(SPI_GETHIGHCONTRAST, sizeof contrast, &contrast, 0) &&
           (contrast.dwFlags & HCF_HIGHCONTRASTON);
}

void TellDpiToChildren(HWND parent) {
    EnumChildWindows(parent, TellDpi, 0);
}

PerMonitorScope::PerMonitorScope() {
    const SetContextFn set_context = SetContextFunction();
    if (!set_context) return;
    before_ = set_context(kPerMonitorV2);
    if (!before_) before_ = set_context(kPerMonitor);
}

PerMonitorScope::~PerMonitorScope() {
    if (before_) SetContextFunction()(before_);
}

SimulatedScreen::SimulatedScreen(int dpi, const RECT& work_area, bool high_contrast) {
    g_simulation = Simulation{dpi, work_area, high_contrast};
}

SimulatedScreen::~SimulatedScreen() {
    g_simulation.reset();
}

}  // namespace tessel::win32
