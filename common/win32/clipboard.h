// Text for the clipboard.
#pragma once

#include <windows.h>

#include <string_view>

namespace tessel::win32 {

/// Replaces the clipboard's contents with the text. False when another program holds the clipboard or memory
/// is short; what the clipboard held before may be gone then.
bool CopyToClipboard(HWND owner, std::wstring_view text);

}  // namespace tessel::win32
