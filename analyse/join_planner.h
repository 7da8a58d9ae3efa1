// One join tree of FROM as chains of relations; see tables_and_joins.h for the rules.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "analyse/refusal.h"
#include "analyse/table_groups.h"
#include "model/records.h"

namespace tessel::analyse {

struct JoinPlan;

class JoinPlanner {
public:
    /// Nothing is owned. `table_names` are the diagram's names by index in Statement::Tables.
    JoinPlanner(StatementScope& scope, const Canonical& canonical,
                const std::vector<std::wstring>& table_names);

    /// Adds the chains of the tree with that root (an index in Statement::From) to the plan.
    [[nodiscard]] Outcome Plan(int root, JoinPlan& plan);

private:
    struct Field {
        int table = kNoTable;
        TextRange text;
    };

    /// A condition that compares fields of two tables.
    struct Comparison {
        sql::CompareOp op = sql::CompareOp::Equal;
        Field left;
        Field right;
    };

    /// What joins rows to add to those that are kept.
    struct Link {
        std::vector<Comparison> comparisons;  ///< an equality first; the kept rows' fields on the left
        TableSet kept;                        ///< the tables of the kept rows that are named
        TableSet added;                       ///< those of the rows to add
    };

    struct AddedStep {
        const AddedRows* rows = nullptr;
        Link link;
    };

    /// A condition of a group, by which an inner join may add a table to a chain.
    struct InnerStep {
        const JoinCondition* condition = nullptr;
        std::optional<Comparison> comparison;
        bool taken = false;
    };

    /// What is left to do for a group.
    struct Work {
        const TableGroup& group;
        bool is_outermost = false;  ///< its conditions may stand in WHERE
        int stop = 0;               ///< joins from here on are for those around the group
        std::vector<InnerStep> inner;
        std::vector<AddedStep> added;         ///< that can follow by a LEFT JOIN
        std::vector<const AddedRows*> first;  ///< with which a chain has to begin
        TableSet placed;                      ///< in one of the chains
    };

    void SettleFields(int index);
    void SettleSide(int join, Field& side, sql::NodeId name, const Field& other);

    /// Appends the chains of the work's group to the plan. Only the outermost group may have more than one.
    Outcome AddChains(Work& work);
    Outcome Begin(Work& work, TableSet& chain);
    Outcome BeginWithAdded(Work& work, const AddedRows& rows, TableSet& chain);
    bool TakeStep(Work& work, TableSet& chain);
    void TakeInner(Work& work, std::size_t index, TableSet& chain);
    void TakeAdded(Work& work, std::size_t index, TableSet& chain);
    Outcome Finish(const Work& work);

    Work WorkOf(const TableGroup& group) const;
    /// The first step, in the order of the text, with which a chain can begin; its place in the list, or the
    /// length of the list.
    std::size_t FirstInner(const Work& work) const;
    std::size_t FirstAdded(const Work& work) const;
    bool IsWrittenFirst(const AddedRows& rows) const;
    bool CanBeAdded(const Work& work, int table) const;
    bool MayFollow(const AddedRows& rows) const;
    std::optional<Link> LinkOf(const AddedRows& rows) const;
    std::vector<Comparison> FurtherComparisons(Work& work, int table, const TableSet& chain) const;

    std::optional<Comparison> Compare(const JoinCondition& condition) const;
    Field ReadSide(sql::NodeId node) const;
    static Comparison Exchanged(const Comparison& comparison);
    std::wstring TextOf(const Field& field) const;
    void AddRelation(const std::vector<Comparison>& comparisons, model::JoinKind kind);
    const sql::FromNode& Join(int index) const { return statement_.From[static_cast<std::size_t>(index)]; }
    Refusal Refuse(int index, std::wstring_view message) const;

    StatementScope& scope_;
    const Canonical& canonical_;
    const sql::Statement& statement_;
    const std::vector<std::wstring>& table_names_;
    JoinPlan* plan_ = nullptr;
};

}  // namespace tessel::analyse
