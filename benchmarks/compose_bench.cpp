// Composition of a full grid: 60 columns with criteria, grouping and ordering over 11 tables joined by 10
// relations.
#include <benchmark/benchmark.h>

#include "benchmarks/bench_data.h"
#include "compose/compose.h"

namespace tessel::bench {
namespace {

constexpr int kTables = 11;

std::wstring TableName(int number) {
    return L"Tabla" + std::to_wstring(number);
}

void Fill(model::Design& design) {
    using model::GridRow;
    design.grid.LoadColumns();
    for (int number = 0; number < kTables; ++number) design.diagram.AddTable(TableName(number), true);
    for (int number = 1; number < kTables; ++number) {
        design.diagram.AddRelation(
            {TableName(number - 1), L"Id", TableName(number), L"IdAnterior", number % 3, false});
    }
    for (int column = 0; column < model::kGridColumnCount; ++column) {
        const std::wstring table = TableName(column % kTables);
        const auto put = [&](GridRow row, const std::wstring& text) {
            if (!design.grid.SetCell(row, column, text)) throw std::length_error("cell");
        };
        put(GridRow::Campo, table + L".Campo" + std::to_wstring(column));
        put(GridRow::Titulo, L"Columna" + std::to_wstring(column));
        put(GridRow::Tabla, table);
        put(GridRow::Agrupacion, column % 5 == 0 ? L"Suma" : L"Agrupado por");
        put(GridRow::Visible, L"Si");
        if (column % 4 == 0) put(GridRow::Orden, L"Descendente");
        put(GridRow::Condicion, L">" + std::to_wstring(column * 10));
        if (column % 2 == 0) put(GridRow::Or, L"= " + std::to_wstring(column));
    }
}

void ComposeSixtyColumns(benchmark::State& state) {
    model::Design design;
    Fill(design);
    for (auto _ : state) benchmark::DoNotOptimize(compose::BuildSQL(design));
    ReportMemory(state, [&] { benchmark::DoNotOptimize(compose::BuildSQL(design)); });
    state.counters["characters"] = static_cast<double>(compose::BuildSQL(design).size());
}
BENCHMARK(ComposeSixtyColumns)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace tessel::bench
