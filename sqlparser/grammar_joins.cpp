// Which tables a join's condition joins, and by which fields.
#include <algorithm>
#include <utility>

#include "common/text.h"
#include "sqlparser/grammar.h"

namespace tessel::sql {
namespace {

// Names of one condition that are looked up; a condition that has more does not get clearer.
constexpr int kMostNames = 1000;

// The name between brackets or quotes, as it stands.
std::wstring_view Bare(std::wstring_view name) {
    if (name.size() < 2) return name;
    const wchar_t open = name.front();
    const bool quoted = open == L'[' || open == L'"' || open == L'`';
    return quoted ? TrimView(name.substr(1, name.size() - 2)) : name;
}

bool SameBareName(std::wstring_view a, std::wstring_view b) {
    a = Bare(a);
    b = Bare(b);
    if (a.size() != b.size()) return false;
    for (std::size_t i = 0; i < a.size(); ++i) {
        if (a[i] != b[i] && LowerChar(a[i]) != LowerChar(b[i])) return false;
    }
    return true;
}

}  // namespace

Join Grammar::ResolveJoin(const FromNode& node) const {
    const FromNode& left = statement_->From[static_cast<std::size_t>(node.left)];
    const FromNode& right = statement_->From[static_cast<std::size_t>(node.right)];
    const TableSpan left_span{left.first_table, left.stop_table};
    const TableSpan right_span{right.first_table, right.stop_table};
    Join join;
    join.kind = node.kind;
    join.on = node.on;
    join.on_node = node.on_node;
    if (const NodeId equality = SingleEquality(node.on_node); equality != kNoNode) {
        const NodeId first = statement_->nodes[equality].first_child;
        const NodeId second = statement_->nodes[first].next;
        FieldRef a = FieldOf(first);
        FieldRef b = FieldOf(second);
        Sides a_sides = SidesOf(first, left_span, right_span);
        Sides b_sides = SidesOf(second, left_span, right_span);
        const bool straight = a_sides.left >= 0 || b_sides.right >= 0;
        const bool mirrored = b_sides.left >= 0 || a_sides.right >= 0;
        if (mirrored && !straight) {
            std::swap(a, b);
            std::swap(a_sides, b_sides);
        }
        // Two fields of the same side join nothing.
        const bool same_side =
            (a_sides.OnlyLeft() && b_sides.OnlyLeft()) || (a_sides.OnlyRight() && b_sides.OnlyRight());
        if (!same_side) {
            join.left_field = a;
            join.right_field = b;
            join.left_table = a_sides.left;
            join.right_table = b_sides.right;
        }
    }
    if (node.on_node != kNoNode && (join.left_table < 0 || join.right_table < 0)) {
        FindTables(node.on_node, left_span, right_span, join);
    }
    if (join.left_table < 0) join.left_table = left_span.stop - 1;
    if (join.right_table < 0) join.right_table = right_span.first;
    return join;
}

// The Compare node of "a = b" between two column names, in parentheses or not; kNoNode for anything else.
NodeId Grammar::SingleEquality(NodeId on) const {
    const std::vector<Node>& nodes = statement_->nodes;
    while (on != kNoNode && nodes[on].kind == NodeKind::Paren) on = nodes[on].first_child;
    if (on == kNoNode || nodes[on].kind != NodeKind::Compare) return kNoNode;
    if (nodes[on].op != static_cast<std::uint8_t>(CompareOp::Equal)) return kNoNode;
    for (NodeId side = nodes[on].first_child; side != kNoNode; side = nodes[side].next) {
        NodeId name = side;
        while (nodes[name].kind == NodeKind::Paren) name = nodes[name].first_child;
        if (nodes[name].kind != NodeKind::Name) return kNoNode;
    }
    return on;
}

FieldRef Grammar::FieldOf(NodeId name) const {
    const std::vector<Node>& nodes = statement_->nodes;
    while (nodes[name].kind == NodeKind::Paren) name = nodes[name].first_child;
    FieldRef field;
    NodeId part = nodes[name].first_child;
    for (; nodes[part].next != kNoNode; part = nodes[part].next) {
        field.table = {nodes[name].begin, nodes[part].begin + nodes[part].length - nodes[name].begin};
    }
    field.field = nodes[part].Range();
    return field;
}

// The tables of either side that the qualifier names. Of a qualifier of several parts the last one counts.
// The name of a table that has an alias counts only when nothing else is called so: in X INNER JOIN X AS X_1,
// X is the first.
Grammar::Sides Grammar::SidesOf(NodeId name, TableSpan left, TableSpan right) const {
    const std::vector<Node>& nodes = statement_->nodes;
    while (nodes[name].kind == NodeKind::Paren) name = nodes[name].first_child;
    NodeId qualifier = kNoNode;
    for (NodeId part = nodes[name].first_child; nodes[part].next != kNoNode; part = nodes[part].next)
        qualifier = part;
    Sides sides;
    if (qualifier == kNoNode) return sides;
    const std::wstring_view wanted = TextOf(nodes[qualifier].Range());
    for (const bool hidden : {false, true}) {
        sides = {TableNamed(wanted, left, hidden), TableNamed(wanted, right, hidden)};
        if (sides.left >= 0 || sides.right >= 0) break;
    }
    return sides;
}

int Grammar::TableNamed(std::wstring_view wanted, TableSpan span, bool hidden) const {
    for (int i = span.first; i < span.stop; ++i) {
        const TableRef& table = statement_->Tables[static_cast<std::size_t>(i)];
        const bool has_alias = table.alias.length != 0;
        if (hidden && !has_alias) continue;
        const TextRange own = has_alias && !hidden ? table.alias : table.name;
        if (SameBareName(TextOf(own), wanted)) return i;
    }
    return -1;
}

// For conditions of any shape: the first table of each side that a name in the condition mentions.
void Grammar::FindTables(NodeId on, TableSpan left, TableSpan right, Join& join) const {
    const std::vector<Node>& nodes = statement_->nodes;
    std::vector<NodeId> open{on};
    int names = 0;
    while (!open.empty() && names < kMostNames && (join.left_table < 0 || join.right_table < 0)) {
        const NodeId id = open.back();
        open.pop_back();
        if (nodes[id].kind == NodeKind::Name) {
            ++names;
            const Sides sides = SidesOf(id, left, right);
            if (join.left_table < 0) join.left_table = sides.left;
            if (join.right_table < 0) join.right_table = sides.right;
            continue;
        }
        const auto from = static_cast<std::ptrdiff_t>(open.size());
        for (NodeId child = nodes[id].first_child; child != kNoNode; child = nodes[child].next)
            open.push_back(child);
        std::reverse(open.begin() + from, open.end());
    }
}

}  // namespace tessel::sql
