// The whole analysis, faithfulness check included, beside the plain parse of the same statements.
#include <benchmark/benchmark.h>

#include "analyse/analyse_sql.h"
#include "benchmarks/bench_data.h"
#include "compose/compose.h"
#include "sqlparser/sql_parser.h"

namespace tessel::bench {
namespace {

// Into a window's design, which holds the statement before.
void AnalyseShownStatements(benchmark::State& state) {
    model::Design design;
    design.grid.LoadColumns();
    const auto analyse = [&] {
        for (const std::wstring& statement : ShownStatements()) {
            if (!analyse::AnalyseSQL(statement, design).accepted)
                state.SkipWithError("a statement is refused");
            benchmark::DoNotOptimize(design);
        }
    };
    for (auto _ : state) analyse();
    ReportMemory(state, analyse);
}
BENCHMARK(AnalyseShownStatements);

// The same statements as composition writes them, which is what goes to and fro between the tabs.
void AnalyseComposedStatements(benchmark::State& state) {
    model::Design design;
    design.grid.LoadColumns();
    std::vector<std::wstring> composed;
    for (const std::wstring& statement : ShownStatements()) {
        if (!analyse::AnalyseSQL(statement, design).accepted) state.SkipWithError("a statement is refused");
        composed.push_back(compose::BuildSQL(design));
    }
    for (auto _ : state) {
        for (const std::wstring& statement : composed) {
            if (!analyse::AnalyseSQL(statement, design).accepted)
                state.SkipWithError("a composed statement is refused");
            benchmark::DoNotOptimize(design);
        }
    }
}
BENCHMARK(AnalyseComposedStatements);

void ParseShownStatements(benchmark::State& state) {
    sql::SqlParser parser;
    for (auto _ : state) {
        for (const std::wstring& statement : ShownStatements()) {
            if (parser.Parse(statement)) state.SkipWithError("a statement does not parse");
            benchmark::DoNotOptimize(parser.GetStatement());
        }
    }
}
BENCHMARK(ParseShownStatements);

}  // namespace
}  // namespace tessel::bench
