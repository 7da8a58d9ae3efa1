// Self-registration: class and program identifiers, and the type library, for the machine or for the current
// user alone, which needs no administrator. Unregistering removes everything that registering wrote and
// nothing else.
#pragma once

#include <windows.h>

namespace tessel::component {

enum class RegistrationScope { Machine, User };

/// Writes all keys. On failure what was written is taken back.
HRESULT Register(RegistrationScope scope);

/// Removes all keys. Keys that are not there are no failure.
HRESULT Unregister(RegistrationScope scope);

}  // namespace tessel::component
