// The screen that a window is on: its work area, its scale, high contrast; and the calling thread's place
// among programs that know of scales.
//
// Everything of ours that asks about the screen asks here (or DpiOf, which stands on this), so that a
// SimulatedScreen can stand for one that the machine does not have.
#pragma once

#include <windows.h>

namespace tessel::win32 {

/// Sent by Windows to the children of a window that came to another scale, after WM_DPICHANGED; newer headers
/// name it WM_DPICHANGED_AFTERPARENT.
inline constexpr UINT kDpiChangedAfterParent = 0x02E3;

/// What Windows says is the scale of a window, which windows of its own making and foreign controls follow.
/// DpiOf is less where the screen is small.
int SystemDpiOf(HWND hwnd);

/// The part of a monitor that the task bar leaves: of the monitor that the window is on, or the nearest one.
/// The primary monitor's without a window.
RECT WorkAreaOf(HWND hwnd);

/// The scale for a work area: `dpi`, or less where the area would hold fewer than the units of a usable
/// window; never below 96.
int FittingDpi(int dpi, int work_width, int work_height);

/// GetSystemMetrics for a scale, where Windows has it.
int SystemMetric(int index, int dpi);

/// The user wants few, strong colours: only the system's own pairs may be used, unmixed.
bool IsHighContrast();

/// Hands kDpiChangedAfterParent to those of a window's descendants that are of this module's classes.
/// Idempotent: a system that sends it itself does no harm.
void TellDpiToChildren(HWND parent);

/// While one lives, windows created by the thread are told the scale of the monitor they are on, whatever the
/// host program declares about itself. The host's own windows, and the thread afterwards, stay what they
/// were. Nothing where Windows does not know of threads with scales.
class PerMonitorScope {
public:
    PerMonitorScope();
    ~PerMonitorScope();
    PerMonitorScope(const PerMonitorScope&) = delete;
    PerMonitorScope& operator=(const PerMonitorScope&) = delete;

private:
    HANDLE before_ = nullptr;
};

/// Answers for a screen that the machine does not have, while one lives: for whoever looks at windows at many
/// scales on one screen. Fonts and lengths follow it; parts that Windows draws do not.
class SimulatedScreen {
public:
    SimulatedScreen(int dpi, const RECT& work_area, bool high_contrast = false);
    ~SimulatedScreen();
    SimulatedScreen(const SimulatedScreen&) = delete;
    SimulatedScreen& operator=(const SimulatedScreen&) = delete;
};

}  // namespace tessel::win32
