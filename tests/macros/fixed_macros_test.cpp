#include <gtest/gtest.h>

#include "common/text.h"
#include "macros/macros.h"

namespace tessel::macros {
namespace {

/// Answers everything, and counts what it is asked as a parameter.
class Everything final : public MacroSource {
public:
    std::optional<std::wstring> ParameterLiteral(std::wstring_view) override {
        ++asked;
        return L"0";
    }
    std::optional<std::wstring> ParameterText(std::wstring_view) override {
        ++asked;
        return L"0";
    }
    std::optional<std::wstring> UserName() override { return L"maria"; }
    std::optional<std::wstring> ComputerName() override { return L"pc"; }

    int asked = 0;
};

TEST(FixedMacros, AreNeverTheHostsParameters) {
    for (std::wstring_view name : kFixedMacros) {
        Everything source;
        (void)ReplaceMacros(L"SELECT @" + std::wstring(name), source);
        EXPECT_EQ(source.asked, 0) << ToUtf8(name);
    }
    Everything source;
    (void)ReplaceMacros(L"SELECT @otra", source);
    EXPECT_EQ(source.asked, 1);
}

}  // namespace
}  // namespace tessel::macros
