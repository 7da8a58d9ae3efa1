// WHERE and HAVING into the criteria cells.
//
// Composition joins the criteria of one column with OR and the columns with AND, and puts " = " before every
// cell that does not begin with an operator sign. So a comparison is a cell of its expression's column (">
// 1000"), and a predicate without a comparison sign is shown whole: as the expression of a hidden column with
// the criterion
// "=True". The same is done in a totals query with a filter on an expression that is not grouped, because a
// column of that expression would be grouped, while the truth of the predicate is the same for all rows that
// pass.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "analyse/columns.h"

namespace tessel::analyse {

class CriteriaBuilder {
public:
    enum class Clause { Where, Having };

    /// Nothing is owned.
    CriteriaBuilder(const StatementScope& scope, const Canonical& canonical, ColumnBuilder& columns,
                    Clause clause)
        : canonical_(canonical), statement_(scope.Source()), columns_(columns), clause_(clause) {}

    /// Whether the condition can be laid out in criteria cells. What does not fit is shown by a message and
    /// left out: alternatives inside a group, two comparisons of one column that must both hold, and
    /// connectives other than AND and OR at the top.
    bool CriteriaFit(sql::NodeId root) const;

    /// Lays out a condition of a join, whatever its shape.
    [[nodiscard]] Outcome FillJoinCondition(sql::NodeId id);

    /// Lays out a condition that fits. `alone` tells that no other criteria of the clause stand in the grid;
    /// beside others two alternatives are shown whole, because as cells they would be composed into a group
    /// that does not fit. A refusal means that the condition fits by its shape and still cannot be shown.
    [[nodiscard]] Outcome FillCriteria(sql::NodeId root, bool alone);

private:
    using Shown = ColumnBuilder::Shown;

    /// A comparison as a cell shows it.
    struct Comparison {
        Shown expression;
        std::wstring_view sign;
        sql::NodeId value = sql::kNoNode;
    };

    bool GroupFits(sql::NodeId id) const;
    bool AlternativesFit(sql::NodeId id) const;
    bool AllDiffer(const std::vector<sql::NodeId>& expressions) const;
    bool AreCellsOfOneColumn(const std::vector<sql::NodeId>& alternatives) const;
    std::optional<Comparison> ReadComparison(sql::NodeId id) const;
    bool ColumnStandsRight(sql::NodeId left, sql::NodeId right) const;
    sql::NodeId TestedPredicate(sql::NodeId id) const;

    Outcome FillAlternatives(sql::NodeId id);
    [[nodiscard]] bool FitsWhole(sql::NodeId id, sql::NodeId first) const;
    Outcome FillInParts(const std::vector<sql::NodeId>& alternatives, TextRange place);
    Outcome FillPredicate(sql::NodeId id);
    Outcome FillBareCondition(sql::NodeId id);
    Outcome FillWhole(sql::NodeId id);
    std::wstring WholeText(sql::NodeId id) const;
    Outcome AddCells(Shown shown, int column, std::wstring_view first, std::wstring_view second,
                     TextRange place);
    bool MayFilter(int column) const;
    int UsableColumn(int column) const;
    Outcome AddColumn(std::wstring text, Shown shown, TextRange place, int& column);
    std::wstring ExpressionText(sql::NodeId id, std::wstring_view before) const;
    std::wstring CellTextOf(const Comparison& comparison) const;
    TextRange PlaceOf(sql::NodeId id) const { return statement_.At(id).Range(); }

    const Canonical& canonical_;
    const sql::Statement& statement_;
    ColumnBuilder& columns_;
    Clause clause_;
    std::vector<sql::NodeId> shown_whole_;  ///< the conditions that have a column of their own
};

}  // namespace tessel::analyse
