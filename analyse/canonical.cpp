#include "analyse/canonical.h"

#include <algorithm>

#include "analyse/nodes.h"
#include "common/identifiers.h"
#include "common/text.h"
#include "sqlparser/lexer.h"

namespace tessel::analyse {

namespace {

using sql::CompareOp;
using sql::LogicalOp;
using sql::Node;
using sql::NodeId;
using sql::NodeKind;

/// The head of a node of which only kind, operator, flags and children count.
std::wstring Head(const Node& node, std::uint8_t flags) {
    // Small numbers, one character each.
    const auto digit = [](int number) { return static_cast<wchar_t>(L'0' + number); };
    return {L'k', digit(static_cast<int>(node.kind)), digit(node.op), digit(flags)};
}

/// The tests of one argument that answer True or False.
bool IsTruthFunction(const sql::Statement& statement, const Node& call) {
    constexpr std::wstring_view kTests[] = {L"isnull", L"isnumeric", L"isdate", L"isempty", L"iserror"};
    const Node& callee = statement.At(call.first_child);
    const bool one_argument = callee.next != sql::kNoNode && statement.At(callee.next).next == sql::kNoNode;
    const std::wstring name = IdentifierKey(statement.Slice(callee.Range()));
    return one_argument && std::ranges::find(kTests, name) != std::end(kTests);
}

void AppendIdentifier(const std::wstring& key, wchar_t open, wchar_t close, std::wstring& out) {
    out += open;
    for (const wchar_t ch : key) {
        out += ch;
        if (ch == close) out += ch;
    }
    out += close;
}

}  // namespace

Canonical::Canonical(const StatementScope& scope) : scope_(scope), statement_(scope.Source()) {
    for (int table = 0; table < scope.TableCount(); ++table) {
        std::wstring mark;
        AppendIdentifier(scope.TableKey(table), L'{', L'}', mark);
        const sql::TableRef& reference = statement_.Tables[static_cast<std::size_t>(table)];
        if (scope.IsTableRepeated(table)) {
            AppendIdentifier(IdentifierKey(statement_.Slice(reference.alias)), L'{', L'}', mark);
        }
        table_marks_.push_back(std::move(mark));
    }
    if (statement_.source.find(L'?') == std::wstring_view::npos) return;
    sql::Lexer lexer(statement_.source);
    for (sql::Token token = lexer.NextSignificant(); token.kind != sql::TokenKind::End;
         token = lexer.NextSignificant()) {
        if (token.kind == sql::TokenKind::Parameter && statement_.source[token.begin] == L'?') {
            places_.push_back(token.begin);
        }
    }
}

std::wstring Canonical::Expression(NodeId id) const {
    std::wstring out;
    Append(id, out);
    return out;
}

std::wstring Canonical::AllFields(int table) const {
    return Table(table) + L"[*]";
}

std::wstring Canonical::Condition(NodeId id) const {
    const NodeId inner = WithoutParens(statement_, id);
    if (IsTruthValue(inner)) return Expression(inner);
    return L"true(" + Expression(inner) + L")";
}

std::vector<NodeId> Canonical::ConjunctNodes(NodeId id) const {
    std::vector<NodeId> operands = OperandsOf(statement_, id, LogicalOp::And);
    const auto others =
        std::ranges::count_if(operands, [&](NodeId operand) { return !IsTruthValue(operand); });
    if (operands.size() > 1 && others > 1) operands = {WithoutParens(statement_, id)};
    return operands;
}

std::set<std::wstring> Canonical::Conjuncts(NodeId id) const {
    std::set<std::wstring> conjuncts;
    if (id == sql::kNoNode) return conjuncts;
    for (const NodeId operand : ConjunctNodes(id)) conjuncts.insert(Condition(operand));
    return conjuncts;
}

bool Canonical::IsTruthValue(NodeId id) const {
    const NodeId inner = WithoutParens(statement_, id);
    const Node& node = statement_.At(inner);
    if (node.kind == NodeKind::Not || node.kind == NodeKind::Logical) {
        return std::ranges::all_of(ChildrenOf(statement_, inner),
                                   [&](NodeId child) { return IsTruthValue(child); });
    }
    if (IsPredicate(node)) return true;
    if (node.kind == NodeKind::Call) return IsTruthFunction(statement_, node);
    if (node.kind != NodeKind::Name) return false;
    const int table = scope_.TableOfName(inner);
    const std::vector<std::wstring> keys = NameKeys(statement_, inner);
    return table != kNoTable && !keys.empty() && scope_.IsBooleanField(table, keys.back());
}

void Canonical::Append(NodeId id, std::wstring& out) const {
    const Node& node = statement_.At(id);
    switch (node.kind) {
        case NodeKind::Paren:
        case NodeKind::Escape:
            Append(node.first_child, out);
            return;
        case NodeKind::Name:
        case NodeKind::Star:
            AppendName(id, out);
            return;
        case NodeKind::Compare:
            AppendCompare(id, false, out);
            return;
        case NodeKind::Logical:
            AppendLogical(id, out);
            return;
        case NodeKind::Not:
            AppendNot(id, out);
            return;
        case NodeKind::Like:
        case NodeKind::Between:
        case NodeKind::InList:
        case NodeKind::InSelect:
        case NodeKind::IsNull:
            AppendTested(id, false, out);
            return;
        case NodeKind::Unary:
        case NodeKind::Exists:
        case NodeKind::Quantified:
        case NodeKind::Subquery:
        case NodeKind::Tuple:
            AppendChildren(id, Head(node, node.flags), out);
            return;
        case NodeKind::Binary:
            if (node.op == static_cast<std::uint8_t>(sql::BinaryOp::Other)) break;
            AppendChildren(id, Head(node, node.flags), out);
            return;
        case NodeKind::Call: {
            const NodeId callee = node.first_child;
            std::wstring head = Head(node, node.flags);
            AppendTokens(statement_.At(callee).Range(), head);
            out += head;
            out += L'(';
            for (NodeId child = statement_.At(callee).next; child != sql::kNoNode;
                 child = statement_.At(child).next) {
                Append(child, out);
                out += L',';
            }
            out += L')';
            return;
        }
        default:
            break;
    }
    // Literals, and everything that no rule levels out, by its tokens.
    AppendTokens(node.Range(), out);
}

void Canonical::AppendChildren(NodeId id, std::wstring_view head, std::wstring& out) const {
    out += head;
    out += L'(';
    for (const NodeId child : ChildrenOf(statement_, id)) {
        Append(child, out);
        out += L',';
    }
    out += L')';
}

void Canonical::AppendName(NodeId id, std::wstring& out) const {
    const Node& node = statement_.At(id);
    const auto key = [&](NodeId part) {
        return IdentifierKey(statement_.Slice(statement_.At(part).Range()));
    };
    const bool star = node.kind == NodeKind::Star;
    NodeId part = node.first_child;
    const bool one_part = part != sql::kNoNode && statement_.At(part).next == sql::kNoNode;
    int table = kNoTable;
    if (star) {
        if (one_part) table = scope_.TableCalled(key(part));
    } else {
        table = scope_.TableOfName(id);
    }
    if (table != kNoTable) {
        out += Table(table);
        if (star || !one_part) part = statement_.At(part).next;
    } else if (part != sql::kNoNode && (star || !one_part)) {
        // "a!b" and "a.b" are the same field of a table; of anything else the sign counts.
        AppendTokens(node.Range(), out);
        return;
    }
    for (; part != sql::kNoNode; part = statement_.At(part).next)
        AppendIdentifier(key(part), L'[', L']', out);
    if (star) out += L"[*]";
}

// A truth value equal to True, or not to False, is the value itself, and otherwise its negation. Of any other
// value, only whether it differs from False is its truth.
bool Canonical::IsTruthTest(NodeId id, NodeId& tested, bool& negated) const {
    const Node& node = statement_.At(id);
    const auto op = static_cast<CompareOp>(node.op);
    if (op != CompareOp::Equal && op != CompareOp::NotEqual) return false;
    const NodeId left = WithoutParens(statement_, node.first_child);
    const NodeId right = WithoutParens(statement_, statement_.At(node.first_child).next);
    const auto is_tested = [&](NodeId value, NodeId literal) {
        const NodeKind kind = statement_.At(literal).kind;
        if (kind != NodeKind::False && (kind != NodeKind::True || !IsTruthValue(value))) return false;
        tested = value;
        negated = (op == CompareOp::Equal) == (kind == NodeKind::False);
        return true;
    };
    return is_tested(left, right) || is_tested(right, left);
}

void Canonical::AppendCompare(NodeId id, bool negated, std::wstring& out) const {
    NodeId tested = sql::kNoNode;
    bool tests_negation = false;
    if (IsTruthTest(id, tested, tests_negation)) {
        AppendTruth(tested, negated != tests_negation, out);
        return;
    }
    const Node& node = statement_.At(id);
    CompareOp op = static_cast<CompareOp>(node.op);
    if (negated) op = Opposite(op);
    std::wstring left = Expression(node.first_child);
    std::wstring right = Expression(statement_.At(node.first_child).next);
    const bool symmetric = op == CompareOp::Equal || op == CompareOp::NotEqual;
    const bool greater = op == CompareOp::Greater || op == CompareOp::GreaterEqual;
    if (greater) op = op == CompareOp::Greater ? CompareOp::Less : CompareOp::LessEqual;
    if (greater || (symmetric && right < left)) std::swap(left, right);
    out += L"cmp";
    out += static_cast<wchar_t>(L'0' + static_cast<int>(op));
    out += L'(';
    out += left;
    out += L',';
    out += right;
    out += L')';
}

void Canonical::AppendLogical(NodeId id, std::wstring& out) const {
    const Node& node = statement_.At(id);
    const auto op = static_cast<LogicalOp>(node.op);
    std::vector<std::wstring> operands;
    const bool any_order = op == LogicalOp::Or || (op == LogicalOp::And && ConjunctNodes(id).size() > 1);
    if (any_order) {
        for (const NodeId operand : OperandsOf(statement_, id, op)) operands.push_back(Condition(operand));
        std::ranges::sort(operands);
        operands.erase(std::unique(operands.begin(), operands.end()), operands.end());
    } else {
        for (const NodeId operand : ChildrenOf(statement_, id)) operands.push_back(Expression(operand));
    }
    out += Head(node, 0);
    out += L'(';
    for (const std::wstring& operand : operands) out += operand + L',';
    out += L')';
}

void Canonical::AppendNot(NodeId id, std::wstring& out) const {
    if (IsTruthValue(id)) {
        AppendTruth(id, false, out);
        return;
    }
    // Jet's NOT works on the bits of a number.
    out += L"not(";
    Append(statement_.At(id).first_child, out);
    out += L')';
}

/// Whether the value holds, or, when negated, whether it does not.
void Canonical::AppendTruth(NodeId id, bool negated, std::wstring& out) const {
    NodeId inner = WithoutParens(statement_, id);
    while (statement_.At(inner).kind == NodeKind::Not && IsTruthValue(inner)) {
        negated = !negated;
        inner = WithoutParens(statement_, statement_.At(inner).first_child);
    }
    const Node& node = statement_.At(inner);
    switch (node.kind) {
        case NodeKind::Compare: {
            // ANY and ALL change places under NOT; they keep it.
            const NodeId right = statement_.At(node.first_child).next;
            if (statement_.At(WithoutParens(statement_, right)).kind == NodeKind::Quantified) break;
            AppendCompare(inner, negated, out);
            return;
        }
        case NodeKind::Like:
        case NodeKind::Between:
        case NodeKind::InList:
        case NodeKind::InSelect:
        case NodeKind::IsNull:
            AppendTested(inner, negated, out);
            return;
        default:
            break;
    }
    const std::wstring truth = Condition(inner);
    out += negated ? L"not(" + truth + L")" : truth;
}

void Canonical::AppendTested(NodeId id, bool negated, std::wstring& out) const {
    const Node& node = statement_.At(id);
    std::uint8_t flags = node.flags;
    if (negated) flags ^= sql::kNegated;
    AppendChildren(id, Head(node, flags), out);
}

void Canonical::AppendTokens(TextRange range, std::wstring& out) const {
    const std::wstring text = scope_.TextWithTables(range, table_marks_);
    const auto first_place = std::ranges::lower_bound(places_, range.offset);
    auto place = static_cast<std::size_t>(first_place - places_.begin());
    sql::Lexer lexer(text);
    for (sql::Token token = lexer.NextSignificant(); token.kind != sql::TokenKind::End;
         token = lexer.NextSignificant()) {
        const std::wstring_view slice = std::wstring_view(text).substr(token.begin, token.length);
        const bool is_name = token.kind == sql::TokenKind::Word ||
                             token.kind == sql::TokenKind::BracketName ||
                             token.kind == sql::TokenKind::BackQuoteName;
        out += is_name ? IdentifierKey(slice) : std::wstring(slice);
        if (slice == L"?") out += std::to_wstring(place++);
        out += L' ';
    }
}

}  // namespace tessel::analyse
