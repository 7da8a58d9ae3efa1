// What every fuzz target shares: the input as text, and checks that stop the run.
#pragma once

#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <string>
#include <string_view>

#include "common/text.h"
#include "controls/editor/editor_text.h"

namespace tessel::fuzz {

/// The bytes as text: UTF-8 that may hold lone surrogates.
inline std::wstring InputText(const std::uint8_t* data, std::size_t size) {
    return controls::FromEditorBytes(std::string_view(reinterpret_cast<const char*>(data), size));
}

/// Stops the run when `holds` is false; libFuzzer then keeps the input.
inline void Check(bool holds, const char* what, std::wstring_view text = {}, std::wstring_view other = {}) {
    if (holds) return;
    std::cerr << "Does not hold: " << what << '\n';
    if (!text.empty()) std::cerr << "  " << ToUtf8(text) << '\n';
    if (!other.empty()) std::cerr << "  " << ToUtf8(other) << '\n';
    std::abort();
}

}  // namespace tessel::fuzz
