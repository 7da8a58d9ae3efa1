#include "controls/grid/type_ahead.h"

#include <algorithm>
#include <cstddef>

#include "common/text.h"

namespace tessel::controls {

namespace {

std::wstring Plain(std::wstring_view text) {
    constexpr std::wstring_view kAccented = L"áéíóúü";
    constexpr std::wstring_view kLetters = L"aeiouu";
    std::wstring plain = Lower(text);
    std::erase_if(plain, [](wchar_t ch) { return ch == L'[' || ch == L']'; });
    for (wchar_t& ch : plain) {
        const std::size_t at = kAccented.find(ch);
        if (at != kAccented.npos) ch = kLetters[at];
    }
    return plain;
}

}  // namespace

int FindTyped(const std::vector<std::wstring>& items, std::wstring_view typed) {
    const std::wstring wanted = Plain(typed);
    if (wanted.empty()) return -1;
    int begins = -1;
    int field_begins = -1;
    for (std::size_t i = 0; i < items.size(); ++i) {
        const std::wstring item = Plain(items[i]);
        if (item == wanted) return static_cast<int>(i);
        const std::size_t point = item.find(L'.');
        if (begins < 0 && item.starts_with(wanted)) begins = static_cast<int>(i);
        if (field_begins < 0 && point != item.npos &&
            std::wstring_view(item).substr(point + 1).starts_with(wanted))
            field_begins = static_cast<int>(i);
    }
    return begins >= 0 ? begins : field_begins;
}

}  // namespace tessel::controls
