#include "analyse/table_groups.h"

#include <algorithm>
#include <iterator>

#include "analyse/nodes.h"

namespace tessel::analyse {

namespace {

using sql::FromNode;
using sql::NodeId;
using sql::NodeKind;

template <typename T>
void Append(std::vector<T>& to, std::vector<T>&& from) {
    to.insert(to.end(), std::make_move_iterator(from.begin()), std::make_move_iterator(from.end()));
}

class GroupBuilder {
public:
    GroupBuilder(const StatementScope& scope, const Canonical& canonical)
        : scope_(scope), canonical_(canonical), statement_(scope.Source()) {}

    TableGroup Build(int index) const {
        const FromNode& node = Node(index);
        TableGroup left;
        if (!node.is_join) {
            left.tables.push_back(node.table);
            return left;
        }
        left = Build(node.left);
        TableGroup right = Build(node.right);
        std::vector<JoinCondition> on = Conditions(index);
        switch (node.kind) {
            case sql::JoinKind::Left:
                Add(left, {std::move(right), std::move(on), index, TablesBelow(Node(node.right))});
                return left;
            case sql::JoinKind::Right:
                Add(right, {std::move(left), std::move(on), index, TablesBelow(Node(node.left))});
                return right;
            default:
                break;
        }
        Append(left.tables, std::move(right.tables));
        Append(left.conditions, std::move(right.conditions));
        Append(left.conditions, std::move(on));
        Append(left.added, std::move(right.added));
        return left;
    }

private:
    const FromNode& Node(int index) const { return statement_.From[static_cast<std::size_t>(index)]; }

    std::vector<JoinCondition> Conditions(int index) const {
        const FromNode& node = Node(index);
        std::vector<JoinCondition> conditions;
        if (node.on_node == sql::kNoNode) return conditions;
        for (const NodeId id : canonical_.ConjunctNodes(node.on_node)) {
            JoinCondition condition;
            condition.node = id;
            condition.join = index;
            CollectNames(id, condition);
            CollectCompared(id, condition);
            conditions.push_back(std::move(condition));
        }
        return conditions;
    }

    void CollectNames(NodeId id, JoinCondition& condition) const {
        const NodeKind kind = statement_.At(id).kind;
        if (kind == NodeKind::Select) {
            condition.has_bare_name = true;
        } else if (kind == NodeKind::Name) {
            const int table = scope_.TableOfName(id);
            if (table != kNoTable) condition.tables.Insert(table);
            if (table == kNoTable && scope_.PartsOf(id).count == 1) condition.has_bare_name = true;
        } else {
            NodeId child = statement_.At(id).first_child;
            // The name of a function is no field.
            if (kind == NodeKind::Call) child = statement_.At(child).next;
            for (; child != sql::kNoNode; child = statement_.At(child).next) CollectNames(child, condition);
        }
    }

    void CollectCompared(NodeId id, JoinCondition& condition) const {
        if (statement_.At(id).kind != NodeKind::Compare) return;
        TableSet compared;
        for (NodeId side = statement_.At(id).first_child; side != sql::kNoNode;
             side = statement_.At(side).next) {
            const NodeId name = WithoutParens(statement_, side);
            const NodeKind kind = statement_.At(name).kind;
            if (kind == NodeKind::Quantified) return;
            if (kind != NodeKind::Name) continue;
            if (const int table = scope_.TableOfName(name); table != kNoTable) compared.Insert(table);
        }
        condition.fails_for = std::move(compared);
    }

    static void Add(TableGroup& group, AddedRows rows) {
        TableSet named;
        bool has_bare_name = false;
        for (const JoinCondition& condition : rows.on) {
            named.Insert(condition.tables);
            has_bare_name = has_bare_name || condition.has_bare_name;
        }
        named.Erase(rows.tables);
        TableGroup* target = &group;
        while (!has_bare_name) {
            AddedRows* next = AddedHolding(*target, named, rows.on);
            if (!next) break;
            next->tables.Insert(rows.tables);
            target = &next->group;
        }
        target->added.push_back(std::move(rows));
    }

    /// The added rows which hold all the tables named and without which the conditions fail.
    static AddedRows* AddedHolding(TableGroup& group, const TableSet& named,
                                   const std::vector<JoinCondition>& on) {
        if (named.IsEmpty()) return nullptr;
        for (AddedRows& added : group.added) {
            if (!added.tables.HasAll(named)) continue;
            const bool fail = std::ranges::any_of(
                on, [&](const JoinCondition& condition) { return added.tables.HasAny(condition.fails_for); });
            return fail ? &added : nullptr;
        }
        return nullptr;
    }

    const StatementScope& scope_;
    const Canonical& canonical_;
    const sql::Statement& statement_;
};

}  // namespace

bool TableGroup::Has(int table) const {
    return std::ranges::find(tables, table) != tables.end();
}

TableGroup GroupOf(const StatementScope& scope, const Canonical& canonical, int root) {
    return GroupBuilder(scope, canonical).Build(root);
}

TableSet TablesBelow(const FromNode& node) {
    return {node.first_table, node.stop_table};
}

}  // namespace tessel::analyse
