// Small questions about the nodes of a syntax tree, asked by every part of the analysis. None of them looks
// into nested selects.
#pragma once

#include <string_view>
#include <vector>

#include "sqlparser/statement.h"

namespace tessel::analyse {

template <class Test>
[[nodiscard]] bool AllChildren(const sql::Statement& statement, sql::NodeId id, Test test) {
    for (sql::NodeId child = statement.At(id).first_child; child != sql::kNoNode;
         child = statement.At(child).next) {
        if (!test(child)) return false;
    }
    return true;
}

template <class Test>
[[nodiscard]] bool AnyChild(const sql::Statement& statement, sql::NodeId id, Test test) {
    return !AllChildren(statement, id, [&](sql::NodeId child) { return !test(child); });
}

/// The node inside any number of enclosing parentheses. BAND, BOR and BXOR keep theirs, for nothing says how
/// tightly they bind.
[[nodiscard]] sql::NodeId WithoutParens(const sql::Statement& statement, sql::NodeId id);

/// The operands of a run of the same logical operator, parentheses around operands of that operator opened:
/// a AND (b AND c) gives three. Any other node gives itself, without its parentheses.
[[nodiscard]] std::vector<sql::NodeId> OperandsOf(const sql::Statement& statement, sql::NodeId id,
                                                  sql::LogicalOp op);

[[nodiscard]] bool IsLogical(const sql::Node& node, sql::LogicalOp op);

/// The comparison that holds where the given one does not: what NOT before it makes of it.
[[nodiscard]] sql::CompareOp Opposite(sql::CompareOp op);

/// The comparison of the same two values with their sides exchanged.
[[nodiscard]] sql::CompareOp Mirrored(sql::CompareOp op);

[[nodiscard]] std::wstring_view Sign(sql::CompareOp op);

/// True for nodes whose value is a truth value whatever the data: comparisons, Like, Between, In, Is Null,
/// Exists, logical connectives, True and False.
[[nodiscard]] bool IsPredicate(const sql::Node& node);

/// True for "*" without a table.
[[nodiscard]] bool IsBareStar(const sql::Node& node);

/// True when the expression names no field and calls nothing: literals, parameters, macros and what is
/// computed from them.
[[nodiscard]] bool IsConstant(const sql::Statement& statement, sql::NodeId id);
/// True for a constant of which every row has the same value: one without macros, which may stand for
/// anything.
[[nodiscard]] bool IsSameForEveryRow(const sql::Statement& statement, sql::NodeId id);

/// The first call of an aggregate function inside the expression, or kNoNode.
[[nodiscard]] sql::NodeId FirstAggregate(const sql::Statement& statement, sql::NodeId id);

}  // namespace tessel::analyse
