#include "tests/win_keys/key_checks.h"

#include <cwctype>

namespace tessel::testing {

namespace {

constexpr std::wstring_view kBar = L" | ";

void AppendName(std::wstring_view text, std::string& name) {
    bool begins = true;
    for (const wchar_t ch : text) {
        if (ch == L'+' || ch == L'-' || ch == L'*') {
            name += ch == L'+' ? "Plus" : ch == L'-' ? "Minus" : "Star";
            begins = true;
        } else if (ch < 128 && std::iswalnum(static_cast<wint_t>(ch))) {
            name += static_cast<char>(begins ? std::towupper(static_cast<wint_t>(ch)) : ch);
            begins = false;
        } else if (ch >= 128) {
            name += '_';
        } else {
            begins = true;
        }
    }
}

}  // namespace

std::vector<TableKey>& CheckedKeys() {
    static std::vector<TableKey> keys;
    return keys;
}

std::vector<std::wstring> KeysOf(std::wstring_view list) {
    std::vector<std::wstring> keys;
    for (std::size_t at = 0; at <= list.size();) {
        const std::size_t bar = std::min(list.find(kBar, at), list.size());
        keys.emplace_back(list.substr(at, bar - at));
        at = bar + kBar.size();
    }
    return keys;
}

std::string TestName(std::wstring_view key, std::wstring_view where) {
    std::string name;
    AppendName(key, name);
    AppendName(where, name);
    return name;
}

}  // namespace tessel::testing
