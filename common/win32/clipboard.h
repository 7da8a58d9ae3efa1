// Text and pictures for the clipboard.
#pragma once

#include <windows.h>

#include <optional>
#include <string>
#include <string_view>

namespace tessel::win32 {

/// Replaces the clipboard's contents with the text. False when another program holds the clipboard or memory
/// is short; what the clipboard held before may be gone then.
bool CopyToClipboard(HWND owner, std::wstring_view text);

/// Replaces the clipboard's contents with a picture in two forms: a bitmap as CF_DIB wants it, and a
/// metafile. Takes over both, whatever the answer; either may be nullptr. False when nothing could be put
/// there.
bool CopyToClipboard(HWND owner, HGLOBAL dib, HENHMETAFILE metafile);

/// The clipboard's text; nothing when it holds none or another program holds the clipboard.
[[nodiscard]] std::optional<std::wstring> TextFromClipboard(HWND owner);

}  // namespace tessel::win32
