// The look at two expressions that spares making forms of both: most pairs differ in what meets the eye, and
// most that do not are the same to the letter.
#include "analyse/canonical.h"
#include "analyse/nodes.h"
#include "common/identifiers.h"

namespace tessel::analyse {

using sql::Node;
using sql::NodeId;
using sql::NodeKind;

namespace {

/// The node whose form an expression has.
NodeId Inside(const sql::Statement& statement, NodeId id) {
    while (statement.At(id).kind == NodeKind::Paren || statement.At(id).kind == NodeKind::Escape)
        id = statement.At(id).first_child;
    return id;
}

bool IsLiteralTruth(const sql::Statement& statement, NodeId id) {
    const NodeKind kind = statement.At(Inside(statement, id)).kind;
    return kind == NodeKind::True || kind == NodeKind::False;
}

NodeId LastChild(const sql::Statement& statement, const Node& node) {
    NodeId last = node.first_child;
    while (last != sql::kNoNode && statement.At(last).next != sql::kNoNode) last = statement.At(last).next;
    return last;
}

}  // namespace

bool Canonical::HaveSameForm(NodeId one, NodeId other) const {
    one = Inside(statement_, one);
    other = Inside(statement_, other);
    if (HaveSameText(one, other)) return true;
    return !AreUnlike(one, other) && Expression(one) == Expression(other);
}

bool Canonical::HaveSameTruth(NodeId one, NodeId other) const {
    if (HaveSameText(WithoutParens(statement_, one), WithoutParens(statement_, other))) return true;
    return !AreUnlike(one, other) && Condition(one) == Condition(other);
}

/// The same text is the same tree, and in one statement the same names mean the same: all but those whose
/// table was settled by the place where they stand, and parameters, which are told by their places.
bool Canonical::HaveSameText(NodeId one, NodeId other) const {
    const Node& a = statement_.At(one);
    const Node& b = statement_.At(other);
    if (a.kind != b.kind || a.length != b.length || scope_.Settled() > 0 || !places_.empty()) return false;
    return statement_.Slice(a.Range()) == statement_.Slice(b.Range());
}

bool Canonical::AreUnlike(NodeId one, NodeId other) const {
    one = Inside(statement_, one);
    other = Inside(statement_, other);
    const Node& a = statement_.At(one);
    const Node& b = statement_.At(other);
    if (one == other || !KeepsItsKind(a) || !KeepsItsKind(b)) return false;
    if (a.kind != b.kind) return true;
    switch (a.kind) {
        case NodeKind::Name:
            return HaveUnlikeLastParts(a, b);
        case NodeKind::Number:
            return statement_.Slice(a.Range()) != statement_.Slice(b.Range());
        case NodeKind::Call: {
            const bool names_differ =
                HaveUnlikeLastParts(statement_.At(a.first_child), statement_.At(b.first_child));
            return names_differ || a.flags != b.flags || HaveUnlikeParts(one, other);
        }
        case NodeKind::Unary:
        case NodeKind::Binary:
        case NodeKind::Like:
        case NodeKind::Between:
        case NodeKind::InList:
            return a.op != b.op || a.flags != b.flags || HaveUnlikeParts(one, other);
        default:
            return false;
    }
}

/// Whether forms of that kind are all the kind's own. The forms of NOT, of a value compared with True and of
/// what is told by its tokens may be those of any expression.
bool Canonical::KeepsItsKind(const Node& node) const {
    switch (node.kind) {
        case NodeKind::Name:
        case NodeKind::Number:
        case NodeKind::Call:
        case NodeKind::Unary:
        case NodeKind::Like:
        case NodeKind::Between:
        case NodeKind::InList:
        case NodeKind::InSelect:
        case NodeKind::IsNull:
        case NodeKind::Exists:
            return true;
        case NodeKind::Binary:
            return node.op != static_cast<std::uint8_t>(sql::BinaryOp::Other);
        case NodeKind::Compare:
            return !IsLiteralTruth(statement_, node.first_child) &&
                   !IsLiteralTruth(statement_, statement_.At(node.first_child).next);
        default:
            return false;
    }
}

/// Of two names: a field's own name is part of its form, whatever stands before it.
bool Canonical::HaveUnlikeLastParts(const Node& one, const Node& other) const {
    const NodeId a = LastChild(statement_, one);
    const NodeId b = LastChild(statement_, other);
    if (a == sql::kNoNode || b == sql::kNoNode) return false;
    return !SameIdentifier(statement_.Slice(statement_.At(a).Range()),
                           statement_.Slice(statement_.At(b).Range()));
}

bool Canonical::HaveUnlikeParts(NodeId one, NodeId other) const {
    NodeId a = statement_.At(one).first_child;
    NodeId b = statement_.At(other).first_child;
    // The callee has been looked at, and is no expression.
    if (statement_.At(one).kind == NodeKind::Call) {
        a = statement_.At(a).next;
        b = statement_.At(b).next;
    }
    while (a != sql::kNoNode && b != sql::kNoNode) {
        if (AreUnlike(a, b)) return true;
        a = statement_.At(a).next;
        b = statement_.At(b).next;
    }
    return a != b;
}

}  // namespace tessel::analyse
