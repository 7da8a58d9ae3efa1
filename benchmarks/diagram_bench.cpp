// Placing and routing a large diagram, without painting: 200 tables and 400 relations.
#include <benchmark/benchmark.h>

#include "benchmarks/bench_data.h"
#include "controls/diagram/diagram_layout.h"
#include "controls/diagram/diagram_placement.h"

namespace tessel::bench {
namespace {

using namespace controls::diagram;

constexpr int kTables = 200;

std::wstring TableName(int number) {
    return L"Tabla" + std::to_wstring(number);
}

struct LargeDiagram {
    model::Diagram diagram;
    std::vector<PlacementBox> boxes{kTables, {{0, 0, 150, 140}, false}};
    std::vector<PlacementLink> links;

    LargeDiagram() {
        for (int number = 0; number < kTables; ++number) diagram.AddTable(TableName(number), true);
        for (int number = 1; number < kTables; ++number) {
            Relate(number / 3, number, L"Id");
            Relate(number / 2, number, L"Nombre");
        }
        Relate(0, kTables - 1, L"Otro");
        Relate(1, kTables - 1, L"Otro");
    }

    void Relate(int left, int right, const wchar_t* field) {
        if (left == right) return;
        diagram.AddRelation(
            {TableName(left), field, TableName(right), std::wstring(L"Id") + field, 0, false});
        links.push_back({static_cast<std::size_t>(left), static_cast<std::size_t>(right)});
    }

    void TakePlaces(const std::vector<PlacementBox>& placed) {
        for (int number = 0; number < kTables; ++number)
            diagram.SetTableRect(TableName(number), placed[static_cast<std::size_t>(number)].rect);
    }
};

void PlaceLargeDiagram(benchmark::State& state) {
    const LargeDiagram large;
    const auto place = [&] {
        std::vector<PlacementBox> boxes = large.boxes;
        PlaceBoxes(boxes, large.links);
        benchmark::DoNotOptimize(boxes);
    };
    for (auto _ : state) place();
    ReportMemory(state, place);
    state.counters["relations"] = static_cast<double>(large.links.size());
}
BENCHMARK(PlaceLargeDiagram)->Unit(benchmark::kMillisecond);

void RouteLargeDiagram(benchmark::State& state) {
    LargeDiagram large;
    std::vector<PlacementBox> boxes = large.boxes;
    PlaceBoxes(boxes, large.links);
    large.TakePlaces(boxes);
    Layout layout;
    layout.Build(large.diagram, BoxMetrics());
    for (auto _ : state) layout.Reroute();
    ReportMemory(state, [&] { layout.Reroute(); });
}
BENCHMARK(RouteLargeDiagram)->Unit(benchmark::kMillisecond);

void RouteMovedTable(benchmark::State& state) {
    LargeDiagram large;
    std::vector<PlacementBox> boxes = large.boxes;
    PlaceBoxes(boxes, large.links);
    large.TakePlaces(boxes);
    Layout layout;
    layout.Build(large.diagram, BoxMetrics());
    for (auto _ : state) layout.RerouteTable(1);
    ReportMemory(state, [&] { layout.RerouteTable(1); });
}
BENCHMARK(RouteMovedTable)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace tessel::bench
