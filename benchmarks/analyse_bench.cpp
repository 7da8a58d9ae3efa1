// The whole analysis, faithfulness check included, beside the plain parse of the same statements.
#include <benchmark/benchmark.h>

#include "analyse/analyse_sql.h"
#include "benchmarks/bench_data.h"
#include "sqlparser/sql_parser.h"

namespace tessel::bench {
namespace {

void AnalyseShownStatements(benchmark::State& state) {
    for (auto _ : state) {
        for (const std::wstring& statement : ShownStatements()) {
            model::Design design;
            if (!analyse::AnalyseSQL(statement, design).accepted)
                state.SkipWithError("a statement is refused");
            benchmark::DoNotOptimize(design);
        }
    }
}
BENCHMARK(AnalyseShownStatements);

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
