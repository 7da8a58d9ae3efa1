// The type library's registry entries under the current user.
//
// The platform has a function for this, but not on every system that we run on: Wine 8's writes the machine's
// keys. The keys are few and documented, so they are written here. The library's entry is shared by the
// 32-bit and the 64-bit component; each removes its own part, and the last one the rest.
#pragma once

#include <windows.h>
#include <oaidl.h>

#include <string>

namespace tessel::component {

/// Identity of the library, as in the interface definition.
extern const GUID kLibraryId;
inline constexpr WORD kLibraryMajor = 1;
inline constexpr WORD kLibraryMinor = 1;
inline constexpr LCID kLibraryLocale = 0x409;

/// "{XXXXXXXX-…}".
std::wstring GuidText(REFGUID guid);

/// This architecture's library is registered under HKEY_LOCAL_MACHINE or HKEY_CURRENT_USER.
bool IsLibraryRegistered(HKEY root);

HRESULT RegisterLibraryForUser(const std::wstring& module_path);
HRESULT UnregisterLibraryForUser();

}  // namespace tessel::component
