#include "common/text.h"

#include <algorithm>
#include <cstdint>
#include <iterator>

namespace tessel {

namespace {

constexpr std::uint32_t kReplacement = 0xFFFD;
constexpr std::uint32_t kLastCodePoint = 0x10FFFF;

/// A stretch of capital letters. `step` 1: every code of the stretch is a capital; 2: every other one, from
/// `first` on. The small letter stands `offset` codes further on.
struct CapitalRange {
    std::uint16_t first;
    std::uint16_t last;
    std::uint16_t step;
    std::int32_t offset;
};

// Sorted by `first`; looked up by binary search. Towlower would depend on the locale of the host's process,
// and on some C libraries knows only the letters of that locale.
constexpr CapitalRange kCapitals[] = {
    {0x0041, 0x005A, 1, 32},   {0x00C0, 0x00D6, 1, 32},    {0x00D8, 0x00DE, 1, 32}, {0x0100, 0x012E, 2, 1},
    {0x0130, 0x0130, 1, -199}, {0x0132, 0x0136, 2, 1},     {0x0139, 0x0147, 2, 1},  {0x014A, 0x0176, 2, 1},
    {0x0178, 0x0178, 1, -121}, {0x0179, 0x017D, 2, 1},     {0x01CD, 0x01DB, 2, 1},  {0x01DE, 0x01EE, 2, 1},
    {0x01F8, 0x021E, 2, 1},    {0x0222, 0x0232, 2, 1},     {0x0386, 0x0386, 1, 38}, {0x0388, 0x038A, 1, 37},
    {0x038C, 0x038C, 1, 64},   {0x038E, 0x038F, 1, 63},    {0x0391, 0x03A1, 1, 32}, {0x03A3, 0x03AB, 1, 32},
    {0x03D8, 0x03EE, 2, 1},    {0x0400, 0x040F, 1, 80},    {0x0410, 0x042F, 1, 32}, {0x0460, 0x0480, 2, 1},
    {0x048A, 0x04BE, 2, 1},    {0x04C0, 0x04C0, 1, 15},    {0x04C1, 0x04CD, 2, 1},  {0x04D0, 0x052E, 2, 1},
    {0x1E00, 0x1E94, 2, 1},    {0x1E9E, 0x1E9E, 1, -7615}, {0x1EA0, 0x1EFE, 2, 1},  {0xFF21, 0xFF3A, 1, 32},
};

constexpr std::uint32_t Code(wchar_t ch) {
    if constexpr (sizeof(wchar_t) == 2) {
        return static_cast<std::uint16_t>(ch);
    } else {
        return static_cast<std::uint32_t>(ch);
    }
}

constexpr bool IsHighSurrogate(std::uint32_t code) {
    return code >= 0xD800 && code <= 0xDBFF;
}
constexpr bool IsLowSurrogate(std::uint32_t code) {
    return code >= 0xDC00 && code <= 0xDFFF;
}

void AppendWide(std::wstring& out, std::uint32_t code) {
    if (sizeof(wchar_t) == 2 && code > 0xFFFF) {
        out += static_cast<wchar_t>(0xD800 + ((code - 0x10000) >> 10));
        out += static_cast<wchar_t>(0xDC00 + ((code - 0x10000) & 0x3FF));
        return;
    }
    out += static_cast<wchar_t>(code);
}

void AppendUtf8(std::string& out, std::uint32_t code) {
    if (code < 0x80) {
        out += static_cast<char>(code);
    } else if (code < 0x800) {
        out += static_cast<char>(0xC0 | (code >> 6));
        out += static_cast<char>(0x80 | (code & 0x3F));
    } else if (code < 0x10000) {
        out += static_cast<char>(0xE0 | (code >> 12));
        out += static_cast<char>(0x80 | ((code >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (code & 0x3F));
    } else {
        out += static_cast<char>(0xF0 | (code >> 18));
        out += static_cast<char>(0x80 | ((code >> 12) & 0x3F));
        out += static_cast<char>(0x80 | ((code >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (code & 0x3F));
    }
}

struct Decoded {
    std::uint32_t code = kReplacement;
    std::size_t length = 1;
};

/// The character at `at`. Anything but a whole, shortest-form sequence of a real character is one bad byte.
Decoded DecodeUtf8(std::string_view bytes, std::size_t at) {
    const auto byte = [&](std::size_t i) { return static_cast<std::uint8_t>(bytes[i]); };
    const std::uint8_t lead = byte(at);
    if (lead < 0x80) return {lead, 1};
    std::size_t length = 0;
    std::uint32_t code = 0;
    std::uint32_t smallest = 0;
    if (lead >= 0xC2 && lead <= 0xDF) {
        length = 2, code = lead & 0x1Fu, smallest = 0x80;
    } else if (lead >= 0xE0 && lead <= 0xEF) {
        length = 3, code = lead & 0x0Fu, smallest = 0x800;
    } else if (lead >= 0xF0 && lead <= 0xF4) {
        length = 4, code = lead & 0x07u, smallest = 0x10000;
    } else {
        return {};
    }
    if (bytes.size() - at < length) return {};
    for (std::size_t i = 1; i < length; ++i) {
        if ((byte(at + i) & 0xC0) != 0x80) return {};
        code = (code << 6) | (byte(at + i) & 0x3Fu);
    }
    if (code < smallest || code > kLastCodePoint || (code >= 0xD800 && code <= 0xDFFF)) return {};
    return {code, length};
}

}  // namespace

std::wstring_view TrimView(std::wstring_view text) {
    const std::size_t first = text.find_first_not_of(L' ');
    if (first == std::wstring_view::npos) return {};
    return text.substr(first, text.find_last_not_of(L' ') - first + 1);
}

std::wstring Trim(std::wstring_view text) {
    return std::wstring(TrimView(text));
}

wchar_t LowerWideChar(wchar_t ch) {
    const std::uint32_t code = Code(ch);
    const auto* after = std::upper_bound(std::begin(kCapitals), std::end(kCapitals), code,
                                         [](std::uint32_t c, const CapitalRange& r) { return c < r.first; });
    if (after == std::begin(kCapitals)) return ch;
    const CapitalRange& range = *std::prev(after);
    if (code > range.last || (code - range.first) % range.step != 0) return ch;
    return static_cast<wchar_t>(static_cast<std::int32_t>(code) + range.offset);
}

std::wstring Lower(std::wstring_view text) {
    std::wstring lowered(text);
    for (wchar_t& ch : lowered) ch = LowerChar(ch);
    return lowered;
}

std::wstring Folded(std::wstring_view text) {
    return Lower(TrimView(text));
}

bool SameName(std::wstring_view a, std::wstring_view b) {
    return SameIgnoringCase(TrimView(a), TrimView(b));
}

bool SameIgnoringCase(std::wstring_view a, std::wstring_view b) {
    return a.size() == b.size() && std::ranges::equal(a, b, [](wchar_t x, wchar_t y) {
               return x == y || LowerChar(x) == LowerChar(y);
           });
}

bool IsWhiteSpace(wchar_t ch) {
    const std::uint32_t code = Code(ch);
    return (code >= 0x09 && code <= 0x0D) || code == 0x20 || code == 0x85 || code == 0xA0 || code == 0x1680 ||
           (code >= 0x2000 && code <= 0x200A) || code == 0x2028 || code == 0x2029 || code == 0x202F ||
           code == 0x205F || code == 0x3000;
}

bool IsAllWhiteSpace(std::wstring_view text) {
    return std::ranges::all_of(text, IsWhiteSpace);
}

std::size_t Utf16Length(std::wstring_view text) {
    if constexpr (sizeof(wchar_t) == 2) return text.size();
    const auto wide = std::ranges::count_if(text, [](wchar_t ch) { return Code(ch) > 0xFFFF; });
    return text.size() + static_cast<std::size_t>(wide);
}

std::wstring CutToUtf16(std::wstring_view text, std::size_t units) {
    std::size_t used = 0;
    std::size_t end = 0;
    while (end < text.size()) {
        const std::uint32_t code = Code(text[end]);
        const bool pair =
            IsHighSurrogate(code) && end + 1 < text.size() && IsLowSurrogate(Code(text[end + 1]));
        const std::size_t width = pair || code > 0xFFFF ? 2 : 1;
        if (used + width > units) break;
        used += width;
        end += pair ? 2 : 1;
    }
    return std::wstring(text.substr(0, end));
}

std::wstring FromUtf8(std::string_view bytes) {
    std::wstring text;
    text.reserve(bytes.size());
    for (std::size_t at = 0; at < bytes.size();) {
        const Decoded decoded = DecodeUtf8(bytes, at);
        AppendWide(text, decoded.code);
        at += decoded.length;
    }
    return text;
}

std::string ToUtf8(std::wstring_view text) {
    std::string bytes;
    bytes.reserve(text.size());
    for (std::size_t at = 0; at < text.size(); ++at) {
        std::uint32_t code = Code(text[at]);
        if (IsHighSurrogate(code) && at + 1 < text.size() && IsLowSurrogate(Code(text[at + 1]))) {
            code = 0x10000 + ((code - 0xD800) << 10) + (Code(text[at + 1]) - 0xDC00);
            ++at;
        } else if (IsHighSurrogate(code) || IsLowSurrogate(code) || code > kLastCodePoint) {
            code = kReplacement;
        }
        AppendUtf8(bytes, code);
    }
    return bytes;
}

std::vector<std::wstring> Split(std::wstring_view text, wchar_t separator) {
    std::vector<std::wstring> pieces;
    std::size_t start = 0;
    for (;;) {
        const std::size_t end = text.find(separator, start);
        pieces.emplace_back(text.substr(start, end - start));
        if (end == std::wstring_view::npos) return pieces;
        start = end + 1;
    }
}

}  // namespace tessel
