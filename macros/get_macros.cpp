#include "common/text.h"
#include "macros/macros.h"

namespace tessel::macros {

namespace {

constexpr std::wstring_view kTerminators = L" {}[]+-*/<>=!(),:?'&\"";

}  // namespace

std::vector<std::wstring> GetMacros(std::wstring_view sql) {
    std::vector<std::wstring> macros;
    std::size_t start = 0;
    for (;;) {
        const std::size_t at = sql.find(L'@', start);
        if (at == std::wstring_view::npos || at + 1 == sql.size()) return macros;
        std::wstring name;
        std::size_t i = at + 1;
        const bool brace = sql[i] == L'{';
        if (brace) {
            for (++i; i < sql.size() && sql[i] != L'}'; ++i) name += sql[i] == L'\t' ? L' ' : sql[i];
            if (i == sql.size()) return macros;
        } else {
            const std::size_t end = sql.find_first_of(kTerminators, i);
            name = sql.substr(i, end == std::wstring_view::npos ? end : end - i);
            i += name.size();
        }
        if (!TrimView(name).empty()) macros.push_back(brace ? L"{" + name + L"}" : name);
        // The terminator itself is skipped, so that it cannot begin the next macro.
        start = i + 1;
        if (start >= sql.size()) return macros;
    }
}

}  // namespace tessel::macros
