// The screen's mouse pointer and message queue around long work.
#pragma once

#include <windows.h>

namespace tessel::component {

/// Shows the hourglass until Restore or the end of the scope.
class HourglassPointer {
public:
    HourglassPointer() : before_(SetCursor(LoadCursorW(nullptr, IDC_WAIT))) {}
    ~HourglassPointer() { Restore(); }
    HourglassPointer(const HourglassPointer&) = delete;
    HourglassPointer& operator=(const HourglassPointer&) = delete;

    void Restore() {
        if (restored_) return;
        restored_ = true;
        SetCursor(before_ ? before_ : LoadCursorW(nullptr, IDC_ARROW));
    }

private:
    HCURSOR before_;
    bool restored_ = false;
};

/// Lets the thread's pending messages be processed once. A request to quit stays for the host's own loop.
void ProcessPendingMessages();

}  // namespace tessel::component
