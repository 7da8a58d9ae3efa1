// Self-registration of the ADODB program identifiers, in a Wine prefix only: on Windows they belong to the
// system's own ADO, and registering refuses to touch them.
#pragma once

#include <windows.h>

namespace tessel::ado {

/// True under Wine, whose ntdll tells its version.
bool IsWine();

/// Writes the machine's keys, over those of Wine's own ADO. Outside Wine nothing is written and
/// SELFREG_E_CLASS is answered, with the reason on the thread and on the standard error stream.
HRESULT Register();

/// Removes what Register wrote. Identifiers that point at another server stay.
HRESULT Unregister();

}  // namespace tessel::ado
