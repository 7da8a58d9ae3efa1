#include "analyse/nodes.h"

#include <algorithm>
#include <array>

#include "common/identifiers.h"

namespace tessel::analyse {

namespace {

using sql::Node;
using sql::NodeId;
using sql::NodeKind;
using sql::Statement;

// What Jet calls an aggregate, and the names under which other engines know the same.
constexpr std::array<std::wstring_view, 18> kAggregateNames = {
    L"sum",      L"count",        L"avg",        L"min",   L"max",       L"first",
    L"last",     L"stdev",        L"stdevp",     L"var",   L"varp",      L"stddev",
    L"variance", L"group_concat", L"string_agg", L"total", L"array_agg", L"compute"};

constexpr std::size_t kUsualOperands = 8;

bool IsOfBits(const Node& node) {
    const auto op = static_cast<sql::BinaryOp>(node.op);
    return node.kind == NodeKind::Binary &&
           (op == sql::BinaryOp::BitAnd || op == sql::BinaryOp::BitOr || op == sql::BinaryOp::BitXor);
}

void AppendOperands(const Statement& statement, NodeId id, sql::LogicalOp op, std::vector<NodeId>& operands) {
    const NodeId inner = WithoutParens(statement, id);
    if (!IsLogical(statement.At(inner), op)) {
        operands.push_back(inner);
        return;
    }
    for (NodeId child = statement.At(inner).first_child; child != sql::kNoNode;
         child = statement.At(child).next) {
        AppendOperands(statement, child, op, operands);
    }
}

bool IsAggregateCall(const Statement& statement, const Node& node) {
    if (node.kind != NodeKind::Call || node.first_child == sql::kNoNode) return false;
    const std::wstring_view name = statement.Slice(statement.At(node.first_child).Range());
    const bool bare = IsIdentifierStart(name.front());
    return std::ranges::any_of(kAggregateNames, [&](std::wstring_view aggregate) {
        return (!bare || name.size() == aggregate.size()) && SameIdentifier(name, aggregate);
    });
}

}  // namespace

NodeId WithoutParens(const Statement& statement, NodeId id) {
    while (statement.At(id).kind == NodeKind::Paren) {
        const NodeId inner = statement.At(id).first_child;
        if (IsOfBits(statement.At(inner))) break;
        id = inner;
    }
    return id;
}

std::vector<NodeId> OperandsOf(const Statement& statement, NodeId id, sql::LogicalOp op) {
    std::vector<NodeId> operands;
    operands.reserve(kUsualOperands);
    AppendOperands(statement, id, op, operands);
    return operands;
}

bool IsLogical(const Node& node, sql::LogicalOp op) {
    return node.kind == NodeKind::Logical && node.op == static_cast<std::uint8_t>(op);
}

std::wstring_view Sign(sql::CompareOp op) {
    switch (op) {
        case sql::CompareOp::Equal:
            return L"=";
        case sql::CompareOp::NotEqual:
            return L"<>";
        case sql::CompareOp::Less:
            return L"<";
        case sql::CompareOp::LessEqual:
            return L"<=";
        case sql::CompareOp::Greater:
            return L">";
        case sql::CompareOp::GreaterEqual:
            return L">=";
    }
    return L"=";
}

sql::CompareOp Mirrored(sql::CompareOp op) {
    switch (op) {
        case sql::CompareOp::Less:
            return sql::CompareOp::Greater;
        case sql::CompareOp::LessEqual:
            return sql::CompareOp::GreaterEqual;
        case sql::CompareOp::Greater:
            return sql::CompareOp::Less;
        case sql::CompareOp::GreaterEqual:
            return sql::CompareOp::LessEqual;
        default:
            return op;
    }
}

bool IsBareStar(const Node& node) {
    return node.kind == NodeKind::Star && node.first_child == sql::kNoNode;
}

bool IsPredicate(const Node& node) {
    switch (node.kind) {
        case NodeKind::Compare:
        case NodeKind::Logical:
        case NodeKind::Not:
        case NodeKind::Like:
        case NodeKind::Between:
        case NodeKind::InList:
        case NodeKind::InSelect:
        case NodeKind::IsNull:
        case NodeKind::Exists:
        case NodeKind::True:
        case NodeKind::False:
            return true;
        default:
            return false;
    }
}

bool IsConstant(const Statement& statement, NodeId id) {
    const Node& node = statement.At(id);
    switch (node.kind) {
        case NodeKind::Number:
        case NodeKind::String:
        case NodeKind::Date:
        case NodeKind::Null:
        case NodeKind::True:
        case NodeKind::False:
        case NodeKind::Parameter:
        case NodeKind::Macro:
            return true;
        case NodeKind::Paren:
        case NodeKind::Unary:
        case NodeKind::Binary:
            break;
        default:
            return false;
    }
    return AllChildren(statement, id, [&](NodeId child) { return IsConstant(statement, child); });
}

bool IsSameForEveryRow(const Statement& statement, NodeId id) {
    return IsConstant(statement, id) && statement.At(id).kind != NodeKind::Macro &&
           AllChildren(statement, id, [&](NodeId child) { return IsSameForEveryRow(statement, child); });
}

NodeId FirstAggregate(const Statement& statement, NodeId id) {
    const Node& node = statement.At(id);
    if (IsAggregateCall(statement, node)) return id;
    if (node.kind == NodeKind::Select) return sql::kNoNode;
    for (NodeId child = node.first_child; child != sql::kNoNode; child = statement.At(child).next) {
        const NodeId found = FirstAggregate(statement, child);
        if (found != sql::kNoNode) return found;
    }
    return sql::kNoNode;
}

sql::CompareOp Opposite(sql::CompareOp op) {
    switch (op) {
        case sql::CompareOp::Equal:
            return sql::CompareOp::NotEqual;
        case sql::CompareOp::NotEqual:
            return sql::CompareOp::Equal;
        case sql::CompareOp::Less:
            return sql::CompareOp::GreaterEqual;
        case sql::CompareOp::LessEqual:
            return sql::CompareOp::Greater;
        case sql::CompareOp::Greater:
            return sql::CompareOp::LessEqual;
        case sql::CompareOp::GreaterEqual:
            return sql::CompareOp::Less;
    }
    return op;
}

}  // namespace tessel::analyse
