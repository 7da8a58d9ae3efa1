#include "analyse/join_planner.h"

#include <algorithm>

#include "analyse/nodes.h"
#include "analyse/tables_and_joins.h"
#include "common/identifiers.h"

namespace tessel::analyse {

namespace {

using sql::FromNode;
using sql::NodeId;
using sql::NodeKind;

bool IsOuter(const FromNode& node) {
    return node.is_join && (node.kind == sql::JoinKind::Left || node.kind == sql::JoinKind::Right);
}

}  // namespace

JoinPlanner::JoinPlanner(StatementScope& scope, const Canonical& canonical,
                         const std::vector<std::wstring>& table_names)
    : scope_(scope),
      canonical_(canonical),
      statement_(scope.Source()),
      table_names_(table_names),
      tables_(statement_.From.size()) {}

Outcome JoinPlanner::Plan(int root, JoinPlan& plan) {
    plan_ = &plan;
    Tables chain;
    return Chain(root, true, chain);
}

Outcome JoinPlanner::Chain(int index, bool filters_may_follow, Tables& chain) {
    if (IsTable(index)) {
        chain.insert(Join(index).table);
        return std::nullopt;
    }
    return IsOuter(Join(index)) ? OuterChain(index, filters_may_follow, chain)
                                : InnerChain(index, filters_may_follow, chain);
}

// One operand may be a chain of its own, with which the chain then begins; all others are tables that are
// added as soon as an equality reaches them.
Outcome JoinPlanner::InnerChain(int index, bool filters_may_follow, Tables& chain) {
    Cluster cluster;
    Gather(index, cluster);
    Tables free;
    int composite = -1;
    for (const int unit : cluster.units) {
        if (IsTable(unit)) {
            free.insert(Join(unit).table);
        } else if (composite >= 0) {
            return Refuse(unit, messages::kJoinNesting);
        } else {
            composite = unit;
        }
    }
    if (composite >= 0) {
        if (Outcome refusal = Chain(composite, filters_may_follow, chain)) return refusal;
    }
    while (TakeStep(cluster, free, chain)) {
    }
    if (!std::ranges::includes(chain, free)) return Refuse(index, messages::kJoinCondition);
    for (const Condition& condition : cluster.conditions) {
        if (condition.taken) continue;
        if (!filters_may_follow) {
            return Refusal{statement_.At(condition.node).Range(), std::wstring(messages::kJoinCriteria)};
        }
        if (condition.bound_to_join) {
            return Refusal{statement_.At(condition.node).Range(), std::wstring(messages::kJoinBareName)};
        }
        plan_->criteria.push_back(condition.node);
    }
    return std::nullopt;
}

// A filter on rows that an outer join added is not the same as a condition of the joins inside, so conditions
// may become criteria only on the side whose rows are kept.
Outcome JoinPlanner::OuterChain(int index, bool filters_may_follow, Tables& chain) {
    const FromNode& node = Join(index);
    const std::optional<Equality> equality = OuterEquality(index);
    if (!equality) return Refuse(index, messages::kJoinCondition);
    const bool left_kept = node.kind == sql::JoinKind::Left;
    const int kept = left_kept ? node.left : node.right;
    const int added = left_kept ? node.right : node.left;

    // "a RIGHT JOIN b" and "(…) RIGHT JOIN b" stay as they were written.
    if (IsTable(kept) && !left_kept) {
        if (Outcome refusal = Chain(added, false, chain)) return refusal;
        AddRelation(equality->left, equality->right, model::kRightJoin);
        chain.insert(Join(kept).table);
        return std::nullopt;
    }
    const std::size_t relations = plan_->relations.size();
    const std::size_t criteria = plan_->criteria.size();
    const Outcome refusal = [&]() -> Outcome {
        if (Outcome inside = Chain(kept, filters_may_follow, chain)) return inside;
        return AppendAddedRows(added, *equality, !left_kept, chain);
    }();
    if (!refusal || !IsTable(kept)) return refusal;

    // The rows to add are no chain of their own that could follow: it comes first, and the join to it is
    // mirrored.
    plan_->relations.resize(relations);
    plan_->criteria.resize(criteria);
    chain.clear();
    if (Outcome inside = Chain(added, false, chain)) return inside;
    AddRelation(equality->right, equality->left, model::kRightJoin);
    chain.insert(Join(kept).table);
    return std::nullopt;
}

// a LEFT JOIN (b LEFT JOIN c) is (a LEFT JOIN b) LEFT JOIN c when the first condition does not name c.
Outcome JoinPlanner::AppendAddedRows(int index, const Equality& equality, bool added_on_left, Tables& chain) {
    const Field& from = added_on_left ? equality.right : equality.left;
    const Field& to = added_on_left ? equality.left : equality.right;
    if (IsTable(index)) {
        AddRelation(from, to, model::kLeftJoin);
        chain.insert(Join(index).table);
        return std::nullopt;
    }
    const FromNode& node = Join(index);
    if (!IsOuter(node)) return Refuse(index, messages::kJoinNesting);
    const bool left_kept = node.kind == sql::JoinKind::Left;
    const int kept = left_kept ? node.left : node.right;
    const int added = left_kept ? node.right : node.left;
    if (!TablesOf(kept).contains(to.table)) return Refuse(index, messages::kJoinNesting);
    const std::optional<Equality> inner = OuterEquality(index);
    if (!inner) return Refuse(index, messages::kJoinCondition);
    if (Outcome refusal = AppendAddedRows(kept, equality, added_on_left, chain)) return refusal;
    return AppendAddedRows(added, *inner, !left_kept, chain);
}

void JoinPlanner::Gather(int index, Cluster& cluster) {
    const FromNode& node = Join(index);
    if (!node.is_join || IsOuter(node)) {
        cluster.units.push_back(index);
        return;
    }
    Gather(node.left, cluster);
    Gather(node.right, cluster);
    if (node.on_node == sql::kNoNode) return;
    for (const NodeId condition : canonical_.ConjunctNodes(node.on_node)) {
        const auto equality = LeftName(condition, TablesOf(node.left), TablesOf(node.right));
        const bool narrower = static_cast<int>(TablesOf(index).size()) < scope_.TableCount();
        cluster.conditions.push_back({condition, equality, false, narrower && HasBareName(condition)});
    }
}

bool JoinPlanner::HasBareName(NodeId id) const {
    if (statement_.At(id).kind == NodeKind::Name) {
        return ChildrenOf(statement_, id).size() == 1 && scope_.TableOfName(id) == kNoTable;
    }
    return std::ranges::any_of(ChildrenOf(statement_, id), [&](NodeId child) { return HasBareName(child); });
}

bool JoinPlanner::TakeStep(Cluster& cluster, const Tables& free, Tables& chain) {
    for (Condition& condition : cluster.conditions) {
        const std::optional<Equality>& equality = condition.equality;
        if (condition.taken || !equality) continue;
        const bool left_there = chain.contains(equality->left.table);
        const bool right_there = chain.contains(equality->right.table);
        if (left_there && right_there) continue;
        if (!left_there && !right_there && !chain.empty()) continue;
        if (!left_there && !free.contains(equality->left.table)) continue;
        if (!right_there && !free.contains(equality->right.table)) continue;
        AddRelation(equality->left, equality->right, model::kInnerJoin);
        chain.insert(equality->left.table);
        chain.insert(equality->right.table);
        condition.taken = true;
        return true;
    }
    return false;
}

std::optional<JoinPlanner::Equality> JoinPlanner::OuterEquality(int index) {
    const FromNode& node = Join(index);
    if (node.on_node == sql::kNoNode) return std::nullopt;
    return LeftName(WithoutParens(statement_, node.on_node), TablesOf(node.left), TablesOf(node.right));
}

// A side without a table takes the only table of the operand that the other side leaves to it, unless it is
// known to be ambiguous.
std::optional<JoinPlanner::Equality> JoinPlanner::LeftName(NodeId node, const Tables& left,
                                                           const Tables& right) {
    const sql::Node& comparison = statement_.At(node);
    const bool is_equality = comparison.kind == NodeKind::Compare &&
                             comparison.op == static_cast<std::uint8_t>(sql::CompareOp::Equal);
    if (!is_equality) return std::nullopt;
    const NodeId first_node = WithoutParens(statement_, comparison.first_child);
    const NodeId second_node = WithoutParens(statement_, statement_.At(comparison.first_child).next);
    Field first = ReadSide(first_node);
    Field second = ReadSide(second_node);
    if (first.text.length == 0 || second.text.length == 0) return std::nullopt;

    const auto settle = [&](Field& side, NodeId name, const Field& other) {
        if (side.table != kNoTable || other.table == kNoTable) return;
        const Tables& operand = left.contains(other.table) ? right : left;
        if (operand.size() != 1) return;
        const std::wstring key = IdentifierKey(statement_.Slice(side.text));
        if (scope_.IsTableKnown(*operand.begin()) && !scope_.HasField(*operand.begin(), key)) return;
        if (scope_.IsAmbiguousField(key)) return;
        side.table = *operand.begin();
        scope_.Settle(name, side.table);
    };
    settle(first, first_node, second);
    settle(second, second_node, first);
    if (left.contains(first.table) && right.contains(second.table)) return Equality{node, first, second};
    if (left.contains(second.table) && right.contains(first.table)) return Equality{node, second, first};
    return std::nullopt;
}

JoinPlanner::Field JoinPlanner::ReadSide(NodeId node) const {
    if (statement_.At(node).kind != NodeKind::Name) return {};
    const std::vector<NodeId> parts = ChildrenOf(statement_, node);
    if (parts.empty() || parts.size() > 2) return {};
    Field field;
    field.table = scope_.TableOfName(node);
    field.text = statement_.At(parts.back()).Range();
    if (parts.size() == 2 && field.table == kNoTable) return {};
    return field;
}

void JoinPlanner::AddRelation(const Field& left, const Field& right, std::int32_t kind) {
    model::RelInfo relation;
    relation.LeftTable = table_names_[static_cast<std::size_t>(left.table)];
    relation.LeftField = statement_.Text(left.text);
    relation.RightTable = table_names_[static_cast<std::size_t>(right.table)];
    relation.RightField = statement_.Text(right.text);
    relation.JType = kind;
    plan_->relations.push_back(std::move(relation));
}

const JoinPlanner::Tables& JoinPlanner::TablesOf(int index) {
    Tables& tables = tables_[static_cast<std::size_t>(index)];
    if (!tables.empty()) return tables;
    const FromNode& node = Join(index);
    if (!node.is_join) {
        tables.insert(node.table);
        return tables;
    }
    tables = TablesOf(node.left);
    const Tables& right = TablesOf(node.right);
    tables.insert(right.begin(), right.end());
    return tables;
}

Refusal JoinPlanner::Refuse(int index, std::wstring_view message) const {
    return {Join(index).range, std::wstring(message)};
}

}  // namespace tessel::analyse
