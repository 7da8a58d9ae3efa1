// The activation context of our own manifest (resource 2), which gives our windows version 6 of the common
// controls inside any host. Activate it for the scope in which windows are created or messages are pumped.
#pragma once

#include <windows.h>

namespace tessel::win32 {

class ActivationContext {
public:
    ActivationContext();
    ~ActivationContext();
    ActivationContext(const ActivationContext&) = delete;
    ActivationContext& operator=(const ActivationContext&) = delete;

    /// False when the module has no manifest or Windows refused; the controls are then the host's.
    bool IsActive() const { return active_; }

    /// Releases the context itself; call before the library may be unloaded, with no scope open.
    static void ReleaseShared();

private:
    ULONG_PTR cookie_ = 0;
    bool active_ = false;
};

}  // namespace tessel::win32
