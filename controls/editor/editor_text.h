// The traffic between a text in wchar_t units and the bytes that the editing component keeps. The bytes are
// UTF-8 with one extension: a surrogate without its partner is written like any other character of its size,
// in three bytes, so that every text comes back exactly as it went in. (ToUtf8 of common/text.h replaces such
// a surrogate, which is right for a file and wrong for an editor.) NUL is an ordinary character.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tessel::controls {

[[nodiscard]] std::string ToEditorBytes(std::wstring_view text);

/// The inverse of ToEditorBytes. A byte that belongs to no character becomes one U+FFFD.
[[nodiscard]] std::wstring FromEditorBytes(std::string_view bytes);

/// Units that FromEditorBytes would give.
[[nodiscard]] std::size_t UnitsInBytes(std::string_view bytes);

/// The byte offset after the first `units` units, at most the number of bytes. Inside a pair of units that is
/// one character, the end of that character.
[[nodiscard]] std::size_t BytesOfUnits(std::string_view bytes, std::size_t units);

}  // namespace tessel::controls
