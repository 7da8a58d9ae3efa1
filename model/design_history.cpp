#include "model/design_history.h"

#include <algorithm>
#include <utility>

namespace tessel::model {

namespace {

/// The same value, taken from the state before when it is there already.
template <typename T>
std::shared_ptr<const T> Shared(T value, const std::vector<std::shared_ptr<const T>>* before,
                                std::size_t index) {
    if (before && index < before->size() && *(*before)[index] == value) return (*before)[index];
    return std::make_shared<const T>(std::move(value));
}

/// A place that a layout gave since does not count; any other difference does.
bool IsSameTable(const DiagramTable& before, const DiagramTable& after) {
    if (before == after) return true;
    if (before.placed) return false;
    DiagramTable placed = before;
    placed.rect = after.rect;
    placed.placed = after.placed;
    return placed == after;
}

template <typename T, typename Same>
bool AllSame(const std::vector<std::shared_ptr<const T>>& a, const std::vector<std::shared_ptr<const T>>& b,
             Same same) {
    return std::ranges::equal(a, b, [&](const auto& x, const auto& y) { return x == y || same(*x, *y); });
}

}  // namespace

DesignHistory::State DesignHistory::Take(const Design& design, const State* before) {
    State state;
    const std::vector<DesignGrid::Column>& columns = design.grid.Columns();
    for (std::size_t i = 0; i < columns.size(); ++i) {
        Column column{columns[i].key, columns[i].cells, columns[i].caption, columns[i].shown};
        state.columns.push_back(Shared(std::move(column), before ? &before->columns : nullptr, i));
    }
    const std::vector<DiagramTable>& tables = design.diagram.Tables();
    for (std::size_t i = 0; i < tables.size(); ++i) {
        state.tables.push_back(Shared(tables[i], before ? &before->tables : nullptr, i));
    }
    state.relations = design.diagram.Relations();
    state.distinct = design.distinct;
    return state;
}

bool DesignHistory::IsSameStep(const State& before, const State& after) {
    return before.distinct == after.distinct && AllSame(before.columns, after.columns, HoldsTheSame) &&
           AllSame(before.tables, after.tables, IsSameTable) &&
           std::ranges::equal(before.relations, after.relations, {}, &DiagramRelation::info,
                              &DiagramRelation::info);
}

void DesignHistory::Start(const Design& design) {
    std::vector<State> states;
    states.push_back(Take(design, nullptr));
    states_ = std::move(states);
    now_ = 0;
}

bool DesignHistory::Record(const Design& design) {
    if (states_.empty()) {
        Start(design);
        return false;
    }
    State state = Take(design, &states_[now_]);
    if (IsSameStep(states_[now_], state)) {
        states_[now_] = std::move(state);
        return false;
    }
    states_.resize(now_ + 1);
    states_.push_back(std::move(state));
    if (states_.size() > kMaxSteps + 1) states_.erase(states_.begin());
    now_ = states_.size() - 1;
    return true;
}

void DesignHistory::RecordReadBack(const Design& design) {
    if (states_.empty()) return Start(design);
    State state = Take(design, &states_[now_]);
    if (HasLess(states_[now_], state)) {
        Record(design);
    } else {
        states_[now_] = std::move(state);
    }
}

bool DesignHistory::HoldsTheSame(const Column& before, const Column& after) {
    return before.cells == after.cells && before.caption == after.caption && before.shown == after.shown;
}

bool DesignHistory::HasLess(const State& than, const State& state) {
    const auto filled_cells = [](const State& counted) {
        std::ptrdiff_t count = 0;
        for (const auto& column : counted.columns) {
            count +=
                std::ranges::count_if(column->cells, [](const std::wstring& cell) { return !cell.empty(); });
        }
        return count;
    };
    return state.tables.size() < than.tables.size() || state.relations.size() < than.relations.size() ||
           filled_cells(state) < filled_cells(than);
}

DesignHistory::Outcome DesignHistory::Undo(Design& design) {
    Record(design);
    if (!CanUndo()) return {};
    return GoTo(now_ - 1, design);
}

DesignHistory::Outcome DesignHistory::Redo(Design& design) {
    Record(design);
    if (!CanRedo()) return {};
    return GoTo(now_ + 1, design);
}

DesignHistory::Outcome DesignHistory::GoTo(std::size_t state, Design& design) {
    const std::optional<GridPlace> cell = FirstDifference(states_[now_], states_[state]);
    Restore(states_[state], design);
    now_ = state;
    return {true, cell};
}

std::optional<GridPlace> DesignHistory::FirstDifference(const State& a, const State& b) {
    const std::size_t count = std::min(a.columns.size(), b.columns.size());
    for (std::size_t i = 0; i < count; ++i) {
        if (a.columns[i] == b.columns[i]) continue;
        for (const GridRow row : kGridRows) {
            const std::size_t cell = static_cast<std::size_t>(row) - 1;
            if (a.columns[i]->cells[cell] != b.columns[i]->cells[cell])
                return GridPlace{row, static_cast<int>(i)};
        }
    }
    return std::nullopt;
}

void DesignHistory::Restore(const State& state, Design& design) {
    const std::vector<DesignGrid::Column>& current = design.grid.Columns();
    std::vector<DesignGrid::Column> columns;
    for (std::size_t i = 0; i < state.columns.size(); ++i) {
        const Column& saved = *state.columns[i];
        DesignGrid::Column column;
        column.key = saved.key;
        column.cells = saved.cells;
        column.caption = saved.caption;
        column.shown = saved.shown;
        if (i < current.size()) column.pick_list = current[i].pick_list;
        const auto same = std::ranges::find(current, saved.key, &DesignGrid::Column::key);
        if (same != current.end()) column.width = same->width;
        columns.push_back(std::move(column));
    }
    Diagram::Contents contents;
    for (const auto& table : state.tables) contents.tables.push_back(*table);
    contents.relations = state.relations;

    design.distinct = state.distinct;
    design.grid.SetColumns(std::move(columns));
    design.diagram.Restore(std::move(contents));
}

}  // namespace tessel::model
