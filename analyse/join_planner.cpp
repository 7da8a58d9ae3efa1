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

bool IsBelow(const FromNode& node, int table) {
    return table >= node.first_table && table < node.stop_table;
}

}  // namespace

JoinPlanner::JoinPlanner(StatementScope& scope, const Canonical& canonical,
                         const std::vector<std::wstring>& table_names)
    : scope_(scope), canonical_(canonical), statement_(scope.Source()), table_names_(table_names) {}

Outcome JoinPlanner::Plan(int root, JoinPlan& plan) {
    plan_ = &plan;
    plan.relations.reserve(statement_.Tables.size());
    SettleFields(root);
    const TableGroup group = GroupOf(scope_, canonical_, root);
    Work work = WorkOf(group);
    work.is_outermost = true;
    work.stop = static_cast<int>(statement_.From.size());
    return AddChains(work);
}

// A side without a table takes the only table of the operand that the other side leaves to it, unless it is
// known to be ambiguous.
void JoinPlanner::SettleFields(int index) {
    const FromNode& node = Join(index);
    if (!node.is_join) return;
    SettleFields(node.left);
    SettleFields(node.right);
    if (node.on_node == sql::kNoNode) return;
    for (const NodeId id : canonical_.ConjunctNodes(node.on_node)) {
        const sql::Node& comparison = statement_.At(id);
        const bool is_equality = comparison.kind == NodeKind::Compare &&
                                 comparison.op == static_cast<std::uint8_t>(sql::CompareOp::Equal);
        if (!is_equality) continue;
        const NodeId first_node = WithoutParens(statement_, comparison.first_child);
        const NodeId second_node = WithoutParens(statement_, statement_.At(comparison.first_child).next);
        Field first = ReadSide(first_node);
        Field second = ReadSide(second_node);
        if (first.text.length == 0 || second.text.length == 0) continue;
        SettleSide(index, first, first_node, second);
        SettleSide(index, second, second_node, first);
    }
}

void JoinPlanner::SettleSide(int join, Field& side, NodeId name, const Field& other) {
    if (side.table != kNoTable || other.table == kNoTable) return;
    const FromNode& left = Join(Join(join).left);
    const FromNode& operand = IsBelow(left, other.table) ? Join(Join(join).right) : left;
    if (operand.stop_table - operand.first_table != 1) return;
    const Form key = scope_.Numbers().Identifier(statement_.Slice(side.text));
    if (scope_.IsTableKnown(operand.first_table) && !scope_.HasField(operand.first_table, key)) return;
    if (scope_.IsAmbiguousField(key)) return;
    side.table = operand.first_table;
    scope_.Settle(name, side.table);
}

// Steps are taken in the order of the text, as far as what they need is there.
Outcome JoinPlanner::AddChains(Work& work) {
    if (!work.is_outermost && work.first.size() > 1) {
        return Refuse(work.first.back()->join, messages::kJoinNesting);
    }
    const auto is_placed = [&](int table) { return work.placed.Has(table); };
    while (!std::ranges::all_of(work.group.tables, is_placed)) {
        if (!work.is_outermost && !work.placed.IsEmpty()) {
            const int join = work.inner.empty() ? work.stop : work.inner.front().condition->join;
            return Refuse(join, messages::kJoinCondition);
        }
        TableSet chain;
        if (Outcome refusal = Begin(work, chain)) return refusal;
        while (TakeStep(work, chain)) {
        }
        work.placed.Insert(chain);
    }
    return Finish(work);
}

JoinPlanner::Work JoinPlanner::WorkOf(const TableGroup& group) const {
    Work work{group, false, 0, {}, {}, {}, {}};
    for (const JoinCondition& condition : group.conditions) {
        work.inner.push_back({&condition, Compare(condition), false});
    }
    for (const AddedRows& rows : group.added) {
        if (MayFollow(rows)) {
            work.added.push_back({&rows, *LinkOf(rows)});
        } else {
            work.first.push_back(&rows);
        }
    }
    return work;
}

/// Whether the rows are those of one table, to which others are added in the same way.
bool JoinPlanner::MayFollow(const AddedRows& rows) const {
    const TableGroup& group = rows.group;
    if (group.tables.size() != 1 || !group.conditions.empty()) return false;
    const std::optional<Link> link = LinkOf(rows);
    if (!link || link->added.Size() != 1 || !link->added.Has(group.tables.front())) return false;
    return std::ranges::all_of(group.added, [&](const AddedRows& next) { return MayFollow(next); });
}

/// "(…) RIGHT JOIN table" stays as it was written.
bool JoinPlanner::IsWrittenFirst(const AddedRows& rows) const {
    const FromNode& join = Join(rows.join);
    return join.kind == sql::JoinKind::Right && !Join(join.right).is_join;
}

std::size_t JoinPlanner::FirstInner(const Work& work) const {
    const auto first = std::ranges::find_if(work.inner, [&](const InnerStep& step) {
        return !step.taken && step.comparison && step.comparison->op == sql::CompareOp::Equal &&
               CanBeAdded(work, step.comparison->left.table) &&
               CanBeAdded(work, step.comparison->right.table);
    });
    return static_cast<std::size_t>(first - work.inner.begin());
}

std::size_t JoinPlanner::FirstAdded(const Work& work) const {
    std::size_t first = work.added.size();
    for (std::size_t index = 0; index < work.added.size(); ++index) {
        const AddedStep& step = work.added[index];
        if (step.rows->join >= work.stop || step.link.kept.Size() != 1) continue;
        if (!CanBeAdded(work, step.link.kept.First())) continue;
        if (first == work.added.size() || step.rows->join < work.added[first].rows->join) first = index;
    }
    return first;
}

/// Whether the table is one of the group's that stands in no chain so far and with which none has to begin.
bool JoinPlanner::CanBeAdded(const Work& work, int table) const {
    if (!work.group.Has(table) || work.placed.Has(table)) return false;
    return std::ranges::none_of(work.first, [&](const AddedRows* rows) {
        const std::optional<Link> link = LinkOf(*rows);
        return link && link->kept.Has(table);
    });
}

Outcome JoinPlanner::Begin(Work& work, TableSet& chain) {
    if (!work.first.empty()) {
        const AddedRows& rows = *work.first.front();
        work.first.erase(work.first.begin());
        return BeginWithAdded(work, rows, chain);
    }
    const std::size_t inner = FirstInner(work);
    const std::size_t added = FirstAdded(work);
    const bool has_inner = inner < work.inner.size();
    if (added < work.added.size()) {
        const AddedRows& rows = *work.added[added].rows;
        if (!has_inner || rows.join < work.inner[inner].condition->join) {
            if (IsWrittenFirst(rows)) {
                work.added.erase(work.added.begin() + static_cast<std::ptrdiff_t>(added));
                return BeginWithAdded(work, rows, chain);
            }
            chain.Insert(work.added[added].link.kept.First());
            return std::nullopt;
        }
    }
    if (has_inner) {
        chain.Insert(work.inner[inner].comparison->left.table);
        return std::nullopt;
    }
    const auto lone =
        std::ranges::find_if(work.group.tables, [&](int table) { return !work.placed.Has(table); });
    chain.Insert(*lone);
    return std::nullopt;
}

// The rows to add are no chain of their own that could follow: it comes first, and the join to it is
// mirrored.
Outcome JoinPlanner::BeginWithAdded(Work& work, const AddedRows& rows, TableSet& chain) {
    const std::optional<Link> link = LinkOf(rows);
    if (!link) return Refuse(rows.join, messages::kJoinCondition);
    if (link->kept.Size() != 1 || !CanBeAdded(work, link->kept.First())) {
        return Refuse(rows.join, messages::kJoinNesting);
    }
    Work inside = WorkOf(rows.group);
    inside.stop = rows.join;
    if (Outcome refusal = AddChains(inside)) return refusal;
    work.added.insert(work.added.end(), inside.added.begin(), inside.added.end());
    chain = std::move(inside.placed);
    std::vector<Comparison> comparisons;
    for (const Comparison& comparison : link->comparisons) comparisons.push_back(Exchanged(comparison));
    AddRelation(comparisons, model::kRightJoin);
    chain.Insert(link->kept.First());
    return std::nullopt;
}

bool JoinPlanner::TakeStep(Work& work, TableSet& chain) {
    std::size_t inner = 0;
    for (; inner < work.inner.size(); ++inner) {
        const InnerStep& step = work.inner[inner];
        if (step.taken || !step.comparison || step.comparison->op != sql::CompareOp::Equal) continue;
        const int left = step.comparison->left.table;
        const int right = step.comparison->right.table;
        if (chain.Has(left) == chain.Has(right)) continue;
        if (CanBeAdded(work, chain.Has(left) ? right : left)) break;
    }
    std::size_t added = work.added.size();
    for (std::size_t index = 0; index < work.added.size(); ++index) {
        const AddedStep& step = work.added[index];
        if (step.rows->join >= work.stop || !chain.HasAll(step.link.kept)) continue;
        if (added == work.added.size() || step.rows->join < work.added[added].rows->join) added = index;
    }
    const bool has_inner = inner < work.inner.size();
    const bool has_added = added < work.added.size();
    if (!has_inner && !has_added) return false;
    if (has_inner && (!has_added || work.inner[inner].condition->join < work.added[added].rows->join)) {
        TakeInner(work, inner, chain);
    } else {
        TakeAdded(work, added, chain);
    }
    return true;
}

void JoinPlanner::TakeInner(Work& work, std::size_t index, TableSet& chain) {
    work.inner[index].taken = true;
    const Comparison equality = *work.inner[index].comparison;
    const int table = chain.Has(equality.left.table) ? equality.right.table : equality.left.table;
    std::vector<Comparison> comparisons = {equality};
    for (const Comparison& further : FurtherComparisons(work, table, chain)) comparisons.push_back(further);
    AddRelation(comparisons, model::kInnerJoin);
    chain.Insert(table);
}

void JoinPlanner::TakeAdded(Work& work, std::size_t index, TableSet& chain) {
    const AddedStep step = work.added[index];
    work.added.erase(work.added.begin() + static_cast<std::ptrdiff_t>(index));
    AddRelation(step.link.comparisons, model::kLeftJoin);
    chain.Insert(step.link.added.First());
    for (const AddedRows& next : step.rows->group.added) work.added.push_back({&next, *LinkOf(next)});
}

/// The other conditions between a table and those of a chain, where they cannot stand in WHERE.
std::vector<JoinPlanner::Comparison> JoinPlanner::FurtherComparisons(Work& work, int table,
                                                                     const TableSet& chain) const {
    std::vector<Comparison> further;
    if (work.is_outermost) return further;
    for (InnerStep& step : work.inner) {
        if (step.taken || !step.comparison) continue;
        Comparison comparison = *step.comparison;
        if (comparison.left.table == table) comparison = Exchanged(comparison);
        if (comparison.right.table != table || !chain.Has(comparison.left.table)) continue;
        step.taken = true;
        further.push_back(comparison);
    }
    return further;
}

// A filter on rows that an outer join adds is not the same as a condition of the joins inside, so only
// conditions of the outermost group may become criteria.
Outcome JoinPlanner::Finish(const Work& work) {
    if (!work.first.empty()) return Refuse(work.first.front()->join, messages::kJoinNesting);
    for (const AddedStep& step : work.added) {
        if (step.rows->join < work.stop) return Refuse(step.rows->join, messages::kJoinNesting);
    }
    for (const InnerStep& step : work.inner) {
        if (step.taken) continue;
        const JoinCondition& condition = *step.condition;
        const TextRange place = statement_.At(condition.node).Range();
        if (!work.is_outermost) return Refusal{place, std::wstring(messages::kJoinCriteria)};
        const FromNode& join = Join(condition.join);
        const bool narrower = join.stop_table - join.first_table < scope_.TableCount();
        if (condition.has_bare_name && narrower) return Refusal{place, std::wstring(messages::kJoinBareName)};
        plan_->criteria.push_back(condition.node);
    }
    return std::nullopt;
}

/// Nothing when a condition is not between a field of the rows to add and one of those kept, or when none of
/// them is an equality.
std::optional<JoinPlanner::Link> JoinPlanner::LinkOf(const AddedRows& rows) const {
    Link link;
    for (const JoinCondition& condition : rows.on) {
        std::optional<Comparison> comparison = Compare(condition);
        if (!comparison) return std::nullopt;
        if (rows.tables.Has(comparison->left.table)) comparison = Exchanged(*comparison);
        if (!rows.tables.Has(comparison->right.table)) return std::nullopt;
        if (rows.tables.Has(comparison->left.table)) return std::nullopt;
        link.kept.Insert(comparison->left.table);
        link.added.Insert(comparison->right.table);
        link.comparisons.push_back(*comparison);
    }
    const auto equality = std::ranges::find(link.comparisons, sql::CompareOp::Equal, &Comparison::op);
    if (equality == link.comparisons.end()) return std::nullopt;
    std::rotate(link.comparisons.begin(), equality, equality + 1);
    return link;
}

std::optional<JoinPlanner::Comparison> JoinPlanner::Compare(const JoinCondition& condition) const {
    const sql::Node& node = statement_.At(condition.node);
    if (node.kind != NodeKind::Compare) return std::nullopt;
    Comparison comparison;
    comparison.op = static_cast<sql::CompareOp>(node.op);
    comparison.left = ReadSide(WithoutParens(statement_, node.first_child));
    comparison.right = ReadSide(WithoutParens(statement_, statement_.At(node.first_child).next));
    if (comparison.left.table == kNoTable || comparison.right.table == kNoTable) return std::nullopt;
    if (comparison.left.table == comparison.right.table) return std::nullopt;
    if (IsBelow(Join(Join(condition.join).left), comparison.left.table)) return comparison;
    return Exchanged(comparison);
}

JoinPlanner::Comparison JoinPlanner::Exchanged(const Comparison& comparison) {
    return {Mirrored(comparison.op), comparison.right, comparison.left};
}

JoinPlanner::Field JoinPlanner::ReadSide(NodeId node) const {
    if (statement_.At(node).kind != NodeKind::Name) return {};
    const NodeId first = statement_.At(node).first_child;
    if (first == sql::kNoNode) return {};
    const NodeId second = statement_.At(first).next;
    const bool qualified = second != sql::kNoNode;
    if (qualified && statement_.At(second).next != sql::kNoNode) return {};
    Field field;
    field.table = scope_.TableOfName(node);
    field.text = statement_.At(qualified ? second : first).Range();
    if (qualified && field.table == kNoTable) return {};
    return field;
}

std::wstring JoinPlanner::TextOf(const Field& field) const {
    return table_names_[static_cast<std::size_t>(field.table)] + L'.' + statement_.Text(field.text);
}

// A relation has one field on either side. Composition writes what follows the right one after the equality,
// and there the other comparisons find their place.
void JoinPlanner::AddRelation(const std::vector<Comparison>& comparisons, model::JoinKind kind) {
    const auto name = [&](const Field& field) -> const std::wstring& {
        return table_names_[static_cast<std::size_t>(field.table)];
    };
    const Comparison& equality = comparisons.front();
    model::RelInfo& relation = plan_->relations.emplace_back();
    relation.LeftTable = name(equality.left);
    relation.LeftField = statement_.Slice(equality.left.text);
    relation.RightTable = name(equality.right);
    relation.RightField = statement_.Slice(equality.right.text);
    for (std::size_t index = 1; index < comparisons.size(); ++index) {
        const Comparison& further = comparisons[index];
        relation.RightField += L" AND " + TextOf(further.left) + L' ';
        relation.RightField += Sign(further.op);
        relation.RightField += L' ' + TextOf(further.right);
    }
    relation.JType = kind;
}

Refusal JoinPlanner::Refuse(int index, std::wstring_view message) const {
    return {Join(index).range, std::wstring(message)};
}

}  // namespace tessel::analyse
