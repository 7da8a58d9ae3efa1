// Undo and redo of a design. The history holds the design as it was after each step of the user's, from the
// state it started with; undoing and redoing put one of these states back.
//
// A state is a value: the cells, captions and shown state of every query column, the tables with their marks
// and places, the relations and the distinct box. Columns and tables that a step left alone are shared with
// the state before it, so a step costs what it changed. With kMaxSteps steps, and each of them at its worst
// (every cell of sixty columns full and rewritten), the grid's part stays below 50 MB; in use it is some
// hundred kilobytes. A table costs about a hundred bytes a field each time its marks or its place change.
//
// Not part of it: focus, selection, pick lists and column widths, which mean nothing to a query. A width
// follows its column when the column is moved, there and back.
//
// The history watches nothing: whoever changes the design says when a step is done (Record).
#pragma once

#include <array>
#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "model/design.h"

namespace tessel::model {

/// A cell of the grid.
struct GridPlace {
    GridRow row = GridRow::Campo;
    int column = 0;
    friend bool operator==(const GridPlace&, const GridPlace&) = default;
};

class DesignHistory {
public:
    /// The oldest step is forgotten when there are more.
    static constexpr std::size_t kMaxSteps = 200;

    /// Forgets everything; the design as it is now is what undoing leads back to.
    void Start(const Design& design);

    /// What changed since the last state is one step, after which nothing can be redone. False when nothing
    /// changed. A layout that gives a place to a table that had none is no step: it belongs to the one that
    /// brought the table. Neither are the keys of relations, which a new analysis gives anew, nor empty
    /// columns that change places.
    bool Record(const Design& design);

    /// The design was read back from its own statement: the same query, perhaps in other words or with a gap
    /// less. That takes the place of the last state, unless cells, tables or relations got fewer; then it is
    /// a step, so that undoing brings them back.
    void RecordReadBack(const Design& design);

    bool CanUndo() const { return now_ > 0; }
    bool CanRedo() const { return now_ + 1 < states_.size(); }

    struct Outcome {
        bool done = false;
        /// The first cell, column by column, that is another now; none when the grid stayed as it was.
        std::optional<GridPlace> cell;
    };
    /// Puts the state before or after back into the design. What was not recorded yet is recorded first.
    Outcome Undo(Design& design);
    Outcome Redo(Design& design);

private:
    struct Column {
        int key = 0;
        std::array<std::wstring, kGridRowCount> cells;
        std::wstring caption;
        bool shown = true;
        friend bool operator==(const Column&, const Column&) = default;
    };
    struct State {
        std::vector<std::shared_ptr<const Column>> columns;
        std::vector<std::shared_ptr<const DiagramTable>> tables;
        std::vector<DiagramRelation> relations;
        bool distinct = false;
    };

    static State Take(const Design& design, const State* before);
    static bool HoldsTheSame(const Column& before, const Column& after);
    static bool HasLess(const State& than, const State& state);
    static bool IsSameStep(const State& before, const State& after);
    static std::optional<GridPlace> FirstDifference(const State& a, const State& b);
    static void Restore(const State& state, Design& design);
    Outcome GoTo(std::size_t state, Design& design);

    std::vector<State> states_;
    std::size_t now_ = 0;  ///< the state that the design is in; 0 also while there is none
};

}  // namespace tessel::model
