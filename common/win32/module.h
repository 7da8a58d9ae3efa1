// The module this code is linked into (the DLL or a test program), without a global set by DllMain.
#pragma once

#include <windows.h>

#include <string>

namespace tessel::win32 {

HINSTANCE ThisModule();

/// The module's folder with a trailing separator; empty on failure.
std::wstring ModuleFolder();

/// Loads a library of the system directory only, never from the current directory or PATH. nullptr on
/// failure.
HMODULE LoadSystemLibrary(const wchar_t* file_name);

}  // namespace tessel::win32
