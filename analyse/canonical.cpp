#include "analyse/canonical.h"

#include <algorithm>
#include <array>

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

// Heads of forms that are not those of a node's kind.
constexpr std::uint32_t kCompareHead = 1u << 24;
constexpr std::uint32_t kTruthHead = 2u << 24;
constexpr std::uint32_t kNotHead = 3u << 24;
constexpr std::uint32_t kNameHead = 4u << 24;
constexpr std::uint32_t kTableHead = 5u << 24;

/// The head of a node of which only kind, operator, flags and children count.
std::uint32_t Head(const Node& node, std::uint8_t flags) {
    return static_cast<std::uint32_t>(node.kind) | static_cast<std::uint32_t>(node.op) << 8 |
           static_cast<std::uint32_t>(flags) << 16;
}

/// Parts of a form under construction: mostly a few.
class Parts {
public:
    void Add(Form form) {
        if (many_.empty() && count_ < few_.size()) {
            few_[count_++] = form;
            return;
        }
        if (many_.empty()) many_.assign(few_.begin(), few_.end());
        many_.push_back(form);
    }
    /// Brings them into an order of their own, without repetitions.
    void MakeSet() {
        const std::span<Form> all = All();
        std::ranges::sort(all);
        const auto count = static_cast<std::size_t>(std::unique(all.begin(), all.end()) - all.begin());
        if (many_.empty()) {
            count_ = count;
        } else {
            many_.resize(count);
        }
    }
    std::span<Form> All() {
        return many_.empty() ? std::span<Form>(few_.data(), count_) : std::span<Form>(many_);
    }

private:
    std::array<Form, 8> few_{};
    std::size_t count_ = 0;
    std::vector<Form> many_;
};

void AppendIdentifier(std::wstring_view key, wchar_t open, wchar_t close, std::wstring& out) {
    out += open;
    for (const wchar_t ch : key) {
        out += ch;
        if (ch == close) out += ch;
    }
    out += close;
}

/// True for a literal that is one token, so that its text says it all.
bool IsOneToken(const Node& node, wchar_t first) {
    switch (node.kind) {
        case NodeKind::Number:
        case NodeKind::Null:
        case NodeKind::True:
        case NodeKind::False:
            return true;
        case NodeKind::String:
            return first == L'\'' || first == L'"';
        case NodeKind::Date:
            return first == L'#';
        default:
            return false;
    }
}

}  // namespace

void MakeSet(FormSet& forms) {
    std::ranges::sort(forms);
    forms.erase(std::unique(forms.begin(), forms.end()), forms.end());
}

bool Holds(const FormSet& set, Form form) {
    return std::ranges::binary_search(set, form);
}

Canonical::Canonical(const StatementScope& scope)
    : scope_(scope), statement_(scope.Source()), forms_(scope.Numbers()), settled_(scope.Settled()) {
    tables_.reserve(statement_.Tables.size());
    for (int table = 0; table < scope.TableCount(); ++table) {
        Parts parts;
        parts.Add(scope.TableKey(table));
        const sql::TableRef& reference = statement_.Tables[static_cast<std::size_t>(table)];
        if (scope.IsTableRepeated(table)) parts.Add(forms_.Identifier(statement_.Slice(reference.alias)));
        tables_.push_back(forms_.Node(kTableHead, parts.All()));
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

Form Canonical::Expression(NodeId id) const {
    if (expressions_.empty() || settled_ != scope_.Settled()) {
        expressions_.assign(statement_.nodes.size(), kNoForm);
        settled_ = scope_.Settled();
    }
    if (expressions_[id] == kNoForm) {
        const Form form = Make(id);
        expressions_[id] = form;
    }
    return expressions_[id];
}

Form Canonical::AllFields(int table) const {
    const Form parts[] = {Table(table), forms_.Text(L"*")};
    return forms_.Node(kNameHead, parts);
}

Form Canonical::Condition(NodeId id) const {
    const NodeId inner = WithoutParens(statement_, id);
    const Form form = Expression(inner);
    return IsTruthValue(inner) ? form : forms_.Node(kTruthHead, {&form, 1});
}

std::vector<NodeId> Canonical::ConjunctNodes(NodeId id) const {
    const NodeId inner = WithoutParens(statement_, id);
    if (!IsLogical(statement_.At(inner), LogicalOp::And)) return {inner};
    std::vector<NodeId> operands = OperandsOf(statement_, inner, LogicalOp::And);
    const auto others =
        std::ranges::count_if(operands, [&](NodeId operand) { return !IsTruthValue(operand); });
    if (others > 1) operands = {inner};
    return operands;
}

FormSet Canonical::Conjuncts(NodeId id) const {
    FormSet conjuncts;
    if (id == sql::kNoNode) return conjuncts;
    for (const NodeId operand : ConjunctNodes(id)) conjuncts.push_back(Condition(operand));
    MakeSet(conjuncts);
    return conjuncts;
}

Form Canonical::Make(NodeId id) const {
    const Node& node = statement_.At(id);
    switch (node.kind) {
        case NodeKind::Paren:
        case NodeKind::Escape:
            return Expression(node.first_child);
        case NodeKind::Name:
        case NodeKind::Star:
            return MakeName(id);
        case NodeKind::Compare:
            return MakeCompare(id, false);
        case NodeKind::Logical:
            return MakeLogical(id);
        case NodeKind::Not:
            return MakeNot(id);
        case NodeKind::Like:
        case NodeKind::Between:
        case NodeKind::InList:
        case NodeKind::InSelect:
        case NodeKind::IsNull:
            return MakeTested(id, false);
        case NodeKind::Unary:
        case NodeKind::Exists:
        case NodeKind::Quantified:
        case NodeKind::Subquery:
        case NodeKind::Tuple:
            return MakeChildren(id, Head(node, node.flags));
        case NodeKind::Binary:
            if (node.op == static_cast<std::uint8_t>(sql::BinaryOp::Other)) break;
            return MakeChildren(id, Head(node, node.flags));
        case NodeKind::Call:
            return MakeCall(id);
        default:
            break;
    }
    // Literals, and everything that no rule levels out, by its tokens.
    return IsOneToken(node, statement_.source[node.begin]) ? MakeLiteral(node) : MakeTokens(node.Range());
}

/// As MakeTokens, for what is one token.
Form Canonical::MakeLiteral(const Node& node) const {
    const std::wstring_view text = statement_.Slice(node.Range());
    const bool is_word =
        node.kind == NodeKind::Null || node.kind == NodeKind::True || node.kind == NodeKind::False;
    scratch_.clear();
    if (is_word) {
        AppendIdentifierKey(text, scratch_);
    } else {
        scratch_ += text;
    }
    scratch_ += L' ';
    return forms_.Text(scratch_);
}

Form Canonical::MakeChildren(NodeId id, std::uint32_t head) const {
    Parts parts;
    for (NodeId child = statement_.At(id).first_child; child != sql::kNoNode;
         child = statement_.At(child).next)
        parts.Add(Expression(child));
    return forms_.Node(head, parts.All());
}

Form Canonical::MakeCall(NodeId id) const {
    const Node& node = statement_.At(id);
    const Node& callee = statement_.At(node.first_child);
    Parts parts;
    const bool one_word = statement_.At(callee.first_child).next == sql::kNoNode &&
                          IsIdentifierStart(statement_.source[callee.begin]);
    parts.Add(one_word ? scope_.KeyOf(callee.first_child) : MakeTokens(callee.Range()));
    for (NodeId child = callee.next; child != sql::kNoNode; child = statement_.At(child).next)
        parts.Add(Expression(child));
    return forms_.Node(Head(node, node.flags), parts.All());
}

Form Canonical::MakeName(NodeId id) const {
    const Node& node = statement_.At(id);
    const bool star = node.kind == NodeKind::Star;
    NodeId part = node.first_child;
    const bool one_part = part != sql::kNoNode && statement_.At(part).next == sql::kNoNode;
    int table = kNoTable;
    if (star) {
        if (one_part) table = scope_.TableCalled(scope_.KeyOf(part));
    } else {
        table = scope_.TableOfName(id);
    }
    Parts parts;
    if (table != kNoTable) {
        parts.Add(Table(table));
        if (star || !one_part) part = statement_.At(part).next;
    } else if (part != sql::kNoNode && (star || !one_part)) {
        // "a!b" and "a.b" are the same field of a table; of anything else the sign counts.
        return MakeTokens(node.Range());
    }
    for (; part != sql::kNoNode; part = statement_.At(part).next) parts.Add(scope_.KeyOf(part));
    if (star) parts.Add(forms_.Text(L"*"));
    return forms_.Node(kNameHead, parts.All());
}

Form Canonical::MakeCompare(NodeId id, bool negated) const {
    NodeId tested = sql::kNoNode;
    bool tests_negation = false;
    if (IsTruthTest(id, tested, tests_negation)) return MakeTruth(tested, negated != tests_negation);
    const Node& node = statement_.At(id);
    CompareOp op = static_cast<CompareOp>(node.op);
    if (negated) op = Opposite(op);
    Form sides[] = {Expression(node.first_child), Expression(statement_.At(node.first_child).next)};
    const bool symmetric = op == CompareOp::Equal || op == CompareOp::NotEqual;
    const bool greater = op == CompareOp::Greater || op == CompareOp::GreaterEqual;
    if (greater) op = op == CompareOp::Greater ? CompareOp::Less : CompareOp::LessEqual;
    if (greater || (symmetric && sides[1] < sides[0])) std::swap(sides[0], sides[1]);
    return forms_.Node(kCompareHead | static_cast<std::uint32_t>(op), sides);
}

Form Canonical::MakeLogical(NodeId id) const {
    const Node& node = statement_.At(id);
    const auto op = static_cast<LogicalOp>(node.op);
    const bool any_order = op == LogicalOp::Or || (op == LogicalOp::And && ConjunctNodes(id).size() > 1);
    if (!any_order) return MakeChildren(id, Head(node, 0));
    Parts parts;
    for (const NodeId operand : OperandsOf(statement_, id, op)) parts.Add(Condition(operand));
    parts.MakeSet();
    return forms_.Node(Head(node, 0), parts.All());
}

Form Canonical::MakeNot(NodeId id) const {
    if (IsTruthValue(id)) return MakeTruth(id, false);
    // Jet's NOT works on the bits of a number.
    const Form inner = Expression(statement_.At(id).first_child);
    return forms_.Node(kNotHead, {&inner, 1});
}

/// Whether the value holds, or, when negated, whether it does not.
Form Canonical::MakeTruth(NodeId id, bool negated) const {
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
            return MakeCompare(inner, negated);
        }
        case NodeKind::Like:
        case NodeKind::Between:
        case NodeKind::InList:
        case NodeKind::InSelect:
        case NodeKind::IsNull:
            return MakeTested(inner, negated);
        default:
            break;
    }
    const Form truth = Condition(inner);
    return negated ? forms_.Node(kNotHead, {&truth, 1}) : truth;
}

Form Canonical::MakeTested(NodeId id, bool negated) const {
    const Node& node = statement_.At(id);
    std::uint8_t flags = node.flags;
    if (negated) flags ^= sql::kNegated;
    return MakeChildren(id, Head(node, flags));
}

/// The marks of the tables in the text of tokens: no token looks like one.
const std::vector<std::wstring>& Canonical::TableMarks() const {
    for (int table = static_cast<int>(table_marks_.size()); table < scope_.TableCount(); ++table) {
        std::wstring mark;
        AppendIdentifier(forms_.TextOf(scope_.TableKey(table)), L'{', L'}', mark);
        const sql::TableRef& reference = statement_.Tables[static_cast<std::size_t>(table)];
        if (scope_.IsTableRepeated(table)) {
            AppendIdentifier(IdentifierKey(statement_.Slice(reference.alias)), L'{', L'}', mark);
        }
        table_marks_.push_back(std::move(mark));
    }
    return table_marks_;
}

Form Canonical::MakeTokens(TextRange range) const {
    const std::wstring text = scope_.TextWithTables(range, TableMarks());
    const auto first_place = std::ranges::lower_bound(places_, range.offset);
    auto place = static_cast<std::size_t>(first_place - places_.begin());
    scratch_.clear();
    sql::Lexer lexer(text);
    for (sql::Token token = lexer.NextSignificant(); token.kind != sql::TokenKind::End;
         token = lexer.NextSignificant()) {
        const std::wstring_view slice = std::wstring_view(text).substr(token.begin, token.length);
        const bool is_name = token.kind == sql::TokenKind::Word ||
                             token.kind == sql::TokenKind::BracketName ||
                             token.kind == sql::TokenKind::BackQuoteName;
        if (is_name) {
            AppendIdentifierKey(slice, scratch_);
        } else {
            scratch_ += slice;
        }
        if (slice == L"?") scratch_ += std::to_wstring(place++);
        scratch_ += L' ';
    }
    return forms_.Text(scratch_);
}

}  // namespace tessel::analyse
