#include "controls/editor/editor_text.h"

#include <cstdint>

namespace tessel::controls {

namespace {

constexpr char32_t kReplacement = 0xFFFD;
constexpr bool kUnitsAreUtf16 = sizeof(wchar_t) == 2;

constexpr bool IsHigh(char32_t c) {
    return c >= 0xD800 && c <= 0xDBFF;
}
constexpr bool IsLow(char32_t c) {
    return c >= 0xDC00 && c <= 0xDFFF;
}

/// The pair of surrogates at `at` as one character, or 0.
char32_t PairAt(std::wstring_view text, std::size_t at) {
    if (!kUnitsAreUtf16 || at + 1 >= text.size()) return 0;
    const char32_t high = static_cast<char32_t>(text[at]) & 0xFFFF;
    const char32_t low = static_cast<char32_t>(text[at + 1]) & 0xFFFF;
    return IsHigh(high) && IsLow(low) ? 0x10000 + ((high - 0xD800) << 10) + (low - 0xDC00) : 0;
}

void AppendBytes(std::string& bytes, char32_t c) {
    const auto put = [&bytes](char32_t byte) { bytes.push_back(static_cast<char>(byte)); };
    if (c < 0x80) {
        put(c);
    } else if (c < 0x800) {
        put(0xC0 | (c >> 6));
        put(0x80 | (c & 0x3F));
    } else if (c < 0x10000) {
        put(0xE0 | (c >> 12));
        put(0x80 | ((c >> 6) & 0x3F));
        put(0x80 | (c & 0x3F));
    } else {
        put(0xF0 | (c >> 18));
        put(0x80 | ((c >> 12) & 0x3F));
        put(0x80 | ((c >> 6) & 0x3F));
        put(0x80 | (c & 0x3F));
    }
}

struct Character {
    char32_t code = kReplacement;
    std::size_t bytes = 1;

    std::size_t Units() const { return kUnitsAreUtf16 && code > 0xFFFF ? 2 : 1; }
};

Character CharacterAt(std::string_view bytes, std::size_t at) {
    const auto byte = [&](std::size_t index) { return static_cast<std::uint8_t>(bytes[index]); };
    const std::uint8_t lead = byte(at);
    if (lead < 0x80) return {lead, 1};
    std::size_t length = 0;
    char32_t least = 0;
    char32_t code = 0;
    if (lead >= 0xC2 && lead <= 0xDF) {
        length = 2, least = 0x80, code = lead & 0x1F;
    } else if (lead >= 0xE0 && lead <= 0xEF) {
        length = 3, least = 0x800, code = lead & 0x0F;
    } else if (lead >= 0xF0 && lead <= 0xF4) {
        length = 4, least = 0x10000, code = lead & 0x07;
    } else {
        return {};
    }
    if (bytes.size() - at < length) return {};
    for (std::size_t i = 1; i < length; ++i) {
        if ((byte(at + i) & 0xC0) != 0x80) return {};
        code = (code << 6) | (byte(at + i) & 0x3F);
    }
    if (code < least || code > 0x10FFFF) return {};
    return {code, length};
}

}  // namespace

std::string ToEditorBytes(std::wstring_view text) {
    std::string bytes;
    bytes.reserve(text.size() + text.size() / 8);
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (const char32_t pair = PairAt(text, i)) {
            AppendBytes(bytes, pair);
            ++i;
            continue;
        }
        char32_t c = static_cast<char32_t>(text[i]);
        if constexpr (kUnitsAreUtf16) c &= 0xFFFF;
        AppendBytes(bytes, c > 0x10FFFF ? kReplacement : c);
    }
    return bytes;
}

std::wstring FromEditorBytes(std::string_view bytes) {
    std::wstring text;
    text.reserve(bytes.size());
    for (std::size_t at = 0; at < bytes.size();) {
        const Character character = CharacterAt(bytes, at);
        at += character.bytes;
        if (character.Units() == 2) {
            const char32_t rest = character.code - 0x10000;
            text.push_back(static_cast<wchar_t>(0xD800 + (rest >> 10)));
            text.push_back(static_cast<wchar_t>(0xDC00 + (rest & 0x3FF)));
        } else {
            text.push_back(static_cast<wchar_t>(character.code));
        }
    }
    return text;
}

std::size_t UnitsInBytes(std::string_view bytes) {
    std::size_t units = 0;
    for (std::size_t at = 0; at < bytes.size();) {
        const Character character = CharacterAt(bytes, at);
        at += character.bytes;
        units += character.Units();
    }
    return units;
}

std::size_t BytesOfUnits(std::string_view bytes, std::size_t units) {
    std::size_t at = 0;
    for (std::size_t passed = 0; at < bytes.size() && passed < units;) {
        const Character character = CharacterAt(bytes, at);
        at += character.bytes;
        passed += character.Units();
    }
    return at;
}

}  // namespace tessel::controls
