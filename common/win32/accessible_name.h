// The name under which assistive programs announce a window of a standard class that has no caption of its
// own.
#pragma once

#include <windows.h>

namespace tessel::win32 {

/// Gives the window that name; replaces an earlier one. The name goes with the window. Does nothing where the
/// system has no such service.
void SetAccessibleName(HWND hwnd, const wchar_t* name);

/// While one lives, naming many windows does not look for the system's service each time.
class AccessibleNaming {
public:
    AccessibleNaming();
    ~AccessibleNaming();
    AccessibleNaming(const AccessibleNaming&) = delete;
    AccessibleNaming& operator=(const AccessibleNaming&) = delete;

private:
    bool holds_ = false;
};

}  // namespace tessel::win32
