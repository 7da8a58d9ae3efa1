// Listing and expansion of macros in any text, with parameters whose values hold macros themselves.
#include "macros/macros.h"
#include "tests/fuzz/fuzz_input.h"

using namespace tessel;
using fuzz::Check;

namespace {

class Host : public macros::MacroSource {
public:
    std::optional<std::wstring> ParameterLiteral(std::wstring_view name) override {
        if (Folded(name) == L"desde") return L"#2024-01-31#";
        if (Folded(name) == L"eco") return L"'@hora'";
        return std::nullopt;
    }
    std::optional<std::wstring> ParameterText(std::wstring_view name) override {
        if (Folded(name) == L"{desde}") return L"@fecha";
        if (Folded(name) == L"{}") return L"";
        return std::nullopt;
    }
    std::optional<std::wstring> UserName() override { return L"O'Higgins"; }
    std::optional<std::wstring> ComputerName() override { return std::nullopt; }
};

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::wstring text = fuzz::InputText(data, size);
    const std::vector<std::wstring> names = macros::GetMacros(text);
    Check(names.size() <= text.size(), "no more macros than characters", text);
    for (const std::wstring& name : names) {
        Check(!Trim(name).empty(), "a listed macro has a name", text);
        if (name.find(L' ') == std::wstring::npos)
            Check(text.find(L"@" + name) != std::wstring::npos, "a listed macro stands in the text", text,
                  name);
    }
    Host host;
    const std::wstring expanded = macros::ReplaceMacros(text, host);
    if (names.empty()) Check(expanded == text, "a text without macros stays", text, expanded);
    return 0;
}
