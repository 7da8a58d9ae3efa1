// Expansion of a megabyte that holds 10,000 macros, most of them parameters of the host.
#include <benchmark/benchmark.h>

#include "benchmarks/bench_data.h"
#include "macros/macros.h"

namespace tessel::bench {
namespace {

constexpr std::size_t kCharacters = 1'000'000;
constexpr std::size_t kMacros = 10'000;
constexpr std::size_t kParameters = 100;

class Host : public macros::MacroSource {
public:
    std::optional<std::wstring> ParameterLiteral(std::wstring_view name) override {
        if (name.starts_with(L"p")) return L"'valor'";
        return std::nullopt;
    }
    std::optional<std::wstring> ParameterText(std::wstring_view) override { return std::nullopt; }
    std::optional<std::wstring> UserName() override { return L"maria"; }
    std::optional<std::wstring> ComputerName() override { return L"pc"; }
};

void ExpandMegabyteWithMacros(benchmark::State& state) {
    std::wstring text;
    const std::wstring filler(kCharacters / kMacros - 12, L'x');
    for (std::size_t index = 0; index < kMacros; ++index) {
        text += filler;
        text += index % 10 == 0 ? L" @fecha " : L" @p" + std::to_wstring(index % kParameters) + L" ";
    }
    text.resize(kCharacters, L' ');
    Host host;
    for (auto _ : state) benchmark::DoNotOptimize(macros::ReplaceMacros(text, host));
    ReportMemory(state, [&] { benchmark::DoNotOptimize(macros::ReplaceMacros(text, host)); });
}
BENCHMARK(ExpandMegabyteWithMacros)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace tessel::bench
