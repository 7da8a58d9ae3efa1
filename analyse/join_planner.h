// One join tree of FROM as a chain of relations; see tables_and_joins.h for the rules.
#pragma once

#include <optional>
#include <set>
#include <string>
#include <vector>

#include "analyse/canonical.h"
#include "analyse/refusal.h"
#include "analyse/statement_scope.h"
#include "model/records.h"

namespace tessel::analyse {

struct JoinPlan;

class JoinPlanner {
public:
    /// Nothing is owned. `table_names` are the diagram's names by index in Statement::Tables.
    JoinPlanner(StatementScope& scope, const Canonical& canonical,
                const std::vector<std::wstring>& table_names);

    /// Adds the chain of the tree with that root (an index in Statement::From) to the plan.
    [[nodiscard]] Outcome Plan(int root, JoinPlan& plan);

private:
    using Tables = std::set<int>;

    struct Field {
        int table = kNoTable;
        TextRange text;
    };

    /// A condition that is one equality between a field of either operand.
    struct Equality {
        sql::NodeId node = sql::kNoNode;
        Field left;   ///< of the join's left operand
        Field right;  ///< of the join's right operand
    };

    struct Condition {
        sql::NodeId node = sql::kNoNode;
        std::optional<Equality> equality;
        bool taken = false;
        /// It names a field without its table, and WHERE has more tables to look for it than the join.
        bool bound_to_join = false;
    };

    /// Inner joins next to each other in the tree: their operands and all their conditions.
    struct Cluster {
        std::vector<int> units;
        std::vector<Condition> conditions;
    };

    // Each appends to plan_ and adds the tables that its chain holds to `chain`.
    Outcome Chain(int index, bool filters_may_follow, Tables& chain);
    Outcome InnerChain(int index, bool filters_may_follow, Tables& chain);
    Outcome OuterChain(int index, bool filters_may_follow, Tables& chain);
    Outcome AppendAddedRows(int index, const Equality& equality, bool added_on_left, Tables& chain);

    void Gather(int index, Cluster& cluster);
    /// True when the condition holds a field of which nothing tells the table.
    bool HasBareName(sql::NodeId id) const;
    bool TakeStep(Cluster& cluster, const Tables& free, Tables& chain);
    std::optional<Equality> LeftName(sql::NodeId node, const Tables& left, const Tables& right);
    std::optional<Equality> OuterEquality(int index);
    Field ReadSide(sql::NodeId node) const;
    void AddRelation(const Field& left, const Field& right, std::int32_t kind);
    const Tables& TablesOf(int index);
    const sql::FromNode& Join(int index) const { return statement_.From[static_cast<std::size_t>(index)]; }
    bool IsTable(int index) const { return !Join(index).is_join; }
    Refusal Refuse(int index, std::wstring_view message) const;

    StatementScope& scope_;
    const Canonical& canonical_;
    const sql::Statement& statement_;
    const std::vector<std::wstring>& table_names_;
    std::vector<Tables> tables_;  ///< under each node of From, filled when asked for
    JoinPlan* plan_ = nullptr;
};

}  // namespace tessel::analyse
