// What holds, and what only has a value: the part of the comparison that knows about True and False.
#include <algorithm>
#include <span>

#include "analyse/canonical.h"
#include "analyse/nodes.h"
#include "common/identifiers.h"

namespace tessel::analyse {

using sql::CompareOp;
using sql::Node;
using sql::NodeId;
using sql::NodeKind;

namespace {

using Words = std::span<const std::wstring_view>;

/// Functions whose result is a number in every engine that has them.
constexpr std::wstring_view kNumberFunctions[] = {
    L"abs",      L"asc",       L"ascii",  L"avg",    L"cbool",   L"cbyte",  L"ccur",
    L"cdbl",     L"charindex", L"cint",   L"clng",   L"count",   L"csng",   L"datediff",
    L"datepart", L"day",       L"dcount", L"exp",    L"fix",     L"hour",   L"instr",
    L"int",      L"len",       L"length", L"locate", L"log",     L"minute", L"month",
    L"position", L"rnd",       L"round",  L"second", L"sgn",     L"sign",   L"sqr",
    L"strcomp",  L"strcmp",    L"sum",    L"val",    L"weekday", L"year"};
/// Functions whose result is one of their arguments; the first of IIf is none.
constexpr std::wstring_view kChoices[] = {L"iif", L"nz", L"coalesce", L"ifnull", L"isnull"};

bool IsOneOf(std::wstring_view name, Words words) {
    return std::ranges::find(words, name) != words.end();
}

}  // namespace

bool Canonical::IsTruthValue(NodeId id) const {
    const NodeId inner = WithoutParens(statement_, id);
    const Node& node = statement_.At(inner);
    if (node.kind == NodeKind::Not || node.kind == NodeKind::Logical) {
        return AllChildren(statement_, inner, [&](NodeId child) { return IsTruthValue(child); });
    }
    if (IsPredicate(node)) return true;
    if (node.kind == NodeKind::Call) return IsTruthFunction(node);
    if (node.kind != NodeKind::Name) return false;
    const int table = scope_.TableOfName(inner);
    if (table == kNoTable) return false;
    const StatementScope::NameParts parts = scope_.PartsOf(inner);
    return parts.count > 0 && scope_.IsBooleanField(table, parts.last);
}

/// The tests of one argument that answer True or False.
bool Canonical::IsTruthFunction(const Node& call) const {
    constexpr std::wstring_view kTests[] = {L"isnull", L"isnumeric", L"isdate", L"isempty", L"iserror"};
    const Node& callee = statement_.At(call.first_child);
    const bool one_argument = callee.next != sql::kNoNode && statement_.At(callee.next).next == sql::kNoNode;
    if (!one_argument) return false;
    const std::wstring name = IdentifierKey(statement_.Slice(callee.Range()));
    return std::ranges::find(kTests, name) != std::end(kTests);
}

// A truth value equal to True, or not to False, is the value itself, and otherwise its negation. Of any other
// value that is a number, only whether it differs from False is its truth; a text that differs from False may
// be false itself, for engines that read a number from it.
bool Canonical::IsTruthTest(NodeId id, NodeId& tested, bool& negated) const {
    const Node& node = statement_.At(id);
    const auto op = static_cast<CompareOp>(node.op);
    if (op != CompareOp::Equal && op != CompareOp::NotEqual) return false;
    const NodeId left = WithoutParens(statement_, node.first_child);
    const NodeId right = WithoutParens(statement_, statement_.At(node.first_child).next);
    const auto is_tested = [&](NodeId value, NodeId literal) {
        const NodeKind kind = statement_.At(literal).kind;
        if (kind != NodeKind::False && kind != NodeKind::True) return false;
        if (!IsTruthValue(value) && (kind == NodeKind::True || MayBeText(value))) return false;
        tested = value;
        negated = (op == CompareOp::Equal) == (kind == NodeKind::False);
        return true;
    };
    return is_tested(left, right) || is_tested(right, left);
}

/// Whether an engine may find a text in the value and not a number. A field of which the schema says nothing
/// is taken for a number: nobody filters by a text alone.
bool Canonical::MayBeText(NodeId id) const {
    const NodeId inner = WithoutParens(statement_, id);
    const Node& node = statement_.At(inner);
    switch (node.kind) {
        case NodeKind::Number:
        case NodeKind::Null:
        case NodeKind::True:
        case NodeKind::False:
            return false;
        case NodeKind::Unary:
            return node.op == static_cast<std::uint8_t>(sql::UnaryOp::Plus) && MayBeText(node.first_child);
        case NodeKind::Binary:
            return node.op == static_cast<std::uint8_t>(sql::BinaryOp::Concat);
        case NodeKind::Escape:
            return MayBeText(node.first_child);
        case NodeKind::Call:
            return CallMayBeText(node);
        case NodeKind::Name: {
            const int table = scope_.TableOfName(inner);
            const StatementScope::NameParts parts = scope_.PartsOf(inner);
            return table != kNoTable && parts.count > 0 && !scope_.MayBeNumberField(table, parts.last);
        }
        default:
            return !IsPredicate(node);
    }
}

bool Canonical::CallMayBeText(const Node& call) const {
    const Node& callee = statement_.At(call.first_child);
    const std::wstring name = IdentifierKey(statement_.Slice(callee.Range()));
    if (IsOneOf(name, kNumberFunctions)) return false;
    if (!IsOneOf(name, kChoices)) return true;
    NodeId argument = callee.next;
    if (name == L"iif" && argument != sql::kNoNode) argument = statement_.At(argument).next;
    for (; argument != sql::kNoNode; argument = statement_.At(argument).next) {
        if (MayBeText(argument)) return true;
    }
    return false;
}

}  // namespace tessel::analyse
