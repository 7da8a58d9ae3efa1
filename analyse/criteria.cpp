#include "analyse/criteria.h"

#include <algorithm>

#include "analyse/nodes.h"
#include "common/mdl_global.h"
#include "common/text.h"

namespace tessel::analyse {

namespace {

using model::GridRow;
using sql::CompareOp;
using sql::LogicalOp;
using sql::Node;
using sql::NodeId;
using sql::NodeKind;

constexpr std::wstring_view kIsTrue = L"=True";
constexpr std::wstring_view kIsNotFalse = L"<> False";
/// Criteria of one column.
constexpr std::size_t kMostCells = 2;
/// That are compared each with each.
constexpr std::size_t kFewExpressions = 12;

/// True when an OR stands among the connectives of the condition, parentheses and NOT passed through.
bool HasAlternatives(const sql::Statement& statement, NodeId id) {
    const NodeId inner = WithoutParens(statement, id);
    const Node& node = statement.At(inner);
    if (IsLogical(node, LogicalOp::Or)) return true;
    if (node.kind != NodeKind::Logical && node.kind != NodeKind::Not) return false;
    return AnyChild(statement, inner, [&](NodeId child) { return HasAlternatives(statement, child); });
}

/// The node under any number of NOT and parentheses; `negated` tells whether their number is odd.
NodeId WithoutNot(const sql::Statement& statement, NodeId id, bool& negated) {
    NodeId inner = WithoutParens(statement, id);
    negated = false;
    while (statement.At(inner).kind == NodeKind::Not) {
        negated = !negated;
        inner = WithoutParens(statement, statement.At(inner).first_child);
    }
    return inner;
}

/// True when the text of the expression can stand before a comparison sign without parentheses. The negation
/// at the end of "a * NOT b" would take the sign for its own.
bool BindsTighterThanComparison(const sql::Statement& statement, NodeId id) {
    const Node* node = &statement.At(id);
    if (IsPredicate(*node)) return node->kind == NodeKind::True || node->kind == NodeKind::False;
    while (node->kind == NodeKind::Binary || node->kind == NodeKind::Unary) {
        NodeId last = node->first_child;
        while (statement.At(last).next != sql::kNoNode) last = statement.At(last).next;
        node = &statement.At(last);
    }
    return node->kind != NodeKind::Not;
}

}  // namespace

bool CriteriaBuilder::CriteriaFit(NodeId root) const {
    const NodeId inner = WithoutParens(statement_, root);
    const Node& node = statement_.At(inner);
    if (IsLogical(node, LogicalOp::Or)) return AlternativesFit(inner);
    if (node.kind == NodeKind::Logical && !IsLogical(node, LogicalOp::And)) return false;
    return GroupFits(inner);
}

// No expression may stand in two of the comparisons that must hold together.
bool CriteriaBuilder::GroupFits(NodeId id) const {
    if (HasAlternatives(statement_, id)) return false;
    std::vector<NodeId> compared;
    for (const NodeId operand : OperandsOf(statement_, id, LogicalOp::And)) {
        if (const auto comparison = ReadComparison(operand)) {
            compared.push_back(comparison->expression.node);
            continue;
        }
        bool negated = false;
        const NodeId group = WithoutNot(statement_, operand, negated);
        if (IsLogical(statement_.At(group), LogicalOp::And) && !GroupFits(group)) return false;
    }
    return AllDiffer(compared);
}

bool CriteriaBuilder::AllDiffer(const std::vector<NodeId>& expressions) const {
    if (expressions.size() > kFewExpressions) {
        std::vector<Form> forms;
        for (const NodeId id : expressions) forms.push_back(canonical_.Expression(id));
        std::ranges::sort(forms);
        return std::ranges::adjacent_find(forms) == forms.end();
    }
    for (auto one = expressions.begin(); one != expressions.end(); ++one) {
        const auto is_same = [&](NodeId other) { return canonical_.HaveSameForm(*one, other); };
        if (std::any_of(one + 1, expressions.end(), is_same)) return false;
    }
    return true;
}

// Alternatives that are not the two cells of one column are shown whole.
bool CriteriaBuilder::AlternativesFit(NodeId id) const {
    const std::vector<NodeId> alternatives = OperandsOf(statement_, id, LogicalOp::Or);
    return std::ranges::all_of(alternatives, [&](NodeId alternative) { return GroupFits(alternative); });
}

bool CriteriaBuilder::AreCellsOfOneColumn(const std::vector<NodeId>& alternatives) const {
    if (alternatives.size() != 2) return false;
    const auto first = ReadComparison(alternatives[0]);
    const auto second = ReadComparison(alternatives[1]);
    return first && second && canonical_.HaveSameForm(first->expression.node, second->expression.node);
}

bool CriteriaBuilder::ColumnStandsRight(NodeId left, NodeId right) const {
    if (statement_.At(WithoutParens(statement_, right)).kind == NodeKind::Quantified) return false;
    if (clause_ == Clause::Having) {
        const bool left_aggregate = FirstAggregate(statement_, left) != sql::kNoNode;
        return !left_aggregate && FirstAggregate(statement_, right) != sql::kNoNode;
    }
    return IsConstant(statement_, left) && !IsConstant(statement_, right);
}

std::optional<CriteriaBuilder::Comparison> CriteriaBuilder::ReadComparison(NodeId id) const {
    bool negated = false;
    const NodeId inner = WithoutNot(statement_, id, negated);
    const Node& node = statement_.At(inner);
    if (node.kind != NodeKind::Compare || TestedPredicate(inner) != sql::kNoNode) return std::nullopt;
    NodeId left = node.first_child;
    NodeId right = statement_.At(left).next;
    const bool quantified = statement_.At(WithoutParens(statement_, right)).kind == NodeKind::Quantified;
    if (negated && quantified) return std::nullopt;

    CompareOp op = static_cast<CompareOp>(node.op);
    if (ColumnStandsRight(left, right)) {
        std::swap(left, right);
        op = Mirrored(op);
    }
    if (negated) op = Opposite(op);
    Comparison comparison;
    comparison.expression = {WithoutParens(statement_, left)};
    comparison.sign = Sign(op);
    comparison.value = right;
    return comparison;
}

// "(predicate) = True", which is how composition writes a predicate that is shown whole; kNoNode for anything
// else.
NodeId CriteriaBuilder::TestedPredicate(NodeId id) const {
    const Node& node = statement_.At(id);
    if (node.kind != NodeKind::Compare || static_cast<CompareOp>(node.op) != CompareOp::Equal)
        return sql::kNoNode;
    const NodeId left = WithoutParens(statement_, node.first_child);
    const NodeId right = WithoutParens(statement_, statement_.At(node.first_child).next);
    if (statement_.At(right).kind != NodeKind::True) return sql::kNoNode;
    return IsPredicate(statement_.At(left)) && canonical_.IsTruthValue(left) ? left : sql::kNoNode;
}

Outcome CriteriaBuilder::FillJoinCondition(NodeId id) {
    return IsLogical(statement_.At(id), LogicalOp::Or) ? FillWhole(id) : FillPredicate(id);
}

Outcome CriteriaBuilder::FillCriteria(NodeId root, bool alone) {
    const NodeId inner = WithoutParens(statement_, root);
    if (IsLogical(statement_.At(inner), LogicalOp::Or)) {
        return alone ? FillAlternatives(inner) : FillWhole(inner);
    }
    for (const NodeId operand : canonical_.ConjunctNodes(inner)) {
        if (Outcome refusal = FillPredicate(operand)) return refusal;
    }
    return std::nullopt;
}

Outcome CriteriaBuilder::FillAlternatives(NodeId id) {
    const std::vector<NodeId> alternatives = OperandsOf(statement_, id, LogicalOp::Or);
    if (!AreCellsOfOneColumn(alternatives)) {
        if (FitsWhole(id, alternatives.front())) return FillWhole(id);
        return FillInParts(alternatives, PlaceOf(id));
    }
    const auto first = ReadComparison(alternatives[0]);
    const auto second = ReadComparison(alternatives[1]);
    if (!first || !second) return FillWhole(id);
    const int column = columns_.FindColumn(first->expression);
    if (!MayFilter(column)) return FillWhole(id);
    return AddCells(first->expression, column, CellTextOf(*first), CellTextOf(*second), PlaceOf(id));
}

// What was composed from parts stays in parts, although it may be shorter than the text they came from.
bool CriteriaBuilder::FitsWhole(NodeId id, NodeId first) const {
    const bool takes_parts = clause_ == Clause::Where && !columns_.IsTotals();
    const bool is_part = TestedPredicate(first) != sql::kNoNode;
    if (takes_parts && is_part && columns_.FindColumn({first, true}) == kNoColumn) return false;
    return Utf16Length(WholeText(id)) <= model::kMaxCellLength;
}

// Alternatives that are too long for one cell: the first is a column, and the others follow its criteria. In
// a totals query the first alone would be grouped.
Outcome CriteriaBuilder::FillInParts(const std::vector<NodeId>& alternatives, TextRange place) {
    const Refusal too_long{place, std::wstring(messages::kCellTooLong)};
    if (clause_ == Clause::Having || columns_.IsTotals()) return too_long;
    // Composed from two cells, the text repeats the first alternative.
    const Shown first{alternatives.front(), true};
    std::wstring expression;
    std::vector<std::wstring> cells;
    for (const NodeId alternative : alternatives) {
        const NodeId tested = TestedPredicate(alternative);
        const NodeId shown = tested == sql::kNoNode ? alternative : tested;
        if (expression.empty()) {
            expression = WholeText(shown);
            continue;
        }
        if (tested != sql::kNoNode && canonical_.HaveSameTruth(tested, first.node)) continue;
        const std::wstring text = columns_.CellText(shown);
        const std::wstring longer =
            cells.empty() ? text : cells.back().substr(0, cells.back().size() - 1) + L" OR " + text + L")";
        if (!cells.empty() && Utf16Length(longer) <= model::kMaxCellLength) {
            cells.back() = longer;
        } else if (cells.size() < kMostCells) {
            cells.push_back(std::wstring(kIsTrue) + L" OR (" + text + L")");
        } else {
            return too_long;
        }
    }
    if (cells.empty() || columns_.FindColumn(first) != kNoColumn) return too_long;
    int column = kNoColumn;
    if (Outcome refusal = AddColumn(std::move(expression), first, place, column)) return refusal;
    if (Outcome refusal = columns_.Write(GridRow::Condicion, column, cells[0], place)) return refusal;
    return cells.size() > 1 ? columns_.Write(GridRow::Or, column, cells[1], place) : std::nullopt;
}

Outcome CriteriaBuilder::FillPredicate(NodeId id) {
    if (const auto comparison = ReadComparison(id)) {
        const int column = columns_.FindColumn(comparison->expression);
        if (!MayFilter(column)) return FillWhole(id);
        return AddCells(comparison->expression, column, CellTextOf(*comparison), {}, PlaceOf(id));
    }
    bool negated = false;
    const NodeId compared = WithoutNot(statement_, id, negated);
    const bool is_comparison = statement_.At(compared).kind == NodeKind::Compare && !negated;
    const NodeId tested = is_comparison ? TestedPredicate(compared) : sql::kNoNode;
    if (tested != sql::kNoNode) return FillWhole(tested);
    return IsPredicate(statement_.At(id)) ? FillWhole(id) : FillBareCondition(id);
}

// A condition that is only a value. A number that is not zero holds too, although it does not equal True.
Outcome CriteriaBuilder::FillBareCondition(NodeId id) {
    const Shown value{id};
    const int column = columns_.FindColumn(value);
    if (!MayFilter(column)) return FillWhole(id);
    return AddCells(value, column, canonical_.IsTruthValue(id) ? kIsTrue : kIsNotFalse, {}, PlaceOf(id));
}

Outcome CriteriaBuilder::FillWhole(NodeId id) {
    const Shown condition{id, true};
    // The same condition again changes nothing.
    const auto is_same = [&](NodeId other) { return canonical_.HaveSameTruth(other, id); };
    if (std::ranges::any_of(shown_whole_, is_same)) return std::nullopt;
    shown_whole_.push_back(id);
    int column = UsableColumn(columns_.FindColumn(condition));
    if (column == kNoColumn) {
        if (Outcome refusal = AddColumn(WholeText(id), condition, PlaceOf(id), column)) return refusal;
    }
    return columns_.Write(GridRow::Condicion, column, kIsTrue, PlaceOf(id));
}

/// The condition as an expression that equals True when it holds.
std::wstring CriteriaBuilder::WholeText(NodeId id) const {
    const NodeId inner = WithoutParens(statement_, id);
    std::wstring text = ExpressionText(inner, L"(");
    if (!canonical_.IsTruthValue(inner)) {
        text = BindsTighterThanComparison(statement_, inner) ? text + L" " : L"(" + text + L") ";
        text += kIsNotFalse;
    }
    text.reserve(text.size() + 2);
    text.insert(text.begin(), L'(');
    text += L')';
    return ColumnBuilder::FittedText(std::move(text));
}

/// `column` is the one that shows the expression, if there is one.
Outcome CriteriaBuilder::AddCells(Shown shown, int column, std::wstring_view first, std::wstring_view second,
                                  TextRange place) {
    column = UsableColumn(column);
    if (column == kNoColumn) {
        const bool bare = BindsTighterThanComparison(statement_, shown.node);
        std::wstring text = ExpressionText(shown.node, bare ? L"" : L"(");
        if (!bare) text = L"(" + text + L")";
        if (Outcome refusal = AddColumn(std::move(text), shown, place, column)) return refusal;
    }
    if (Outcome refusal = columns_.Write(GridRow::Condicion, column, first, place)) return refusal;
    return second.empty() ? std::nullopt : columns_.Write(GridRow::Or, column, second, place);
}

// Whether criteria may stand in a column of that expression: composition groups by it in a totals query, so
// it must be grouped anyway; and criteria of another condition, which are alternatives there, must not be in
// it.
bool CriteriaBuilder::MayFilter(int column) const {
    if (column != kNoColumn && !TrimView(columns_.Cell(GridRow::Condicion, column)).empty()) return false;
    if (clause_ == Clause::Having || !columns_.IsTotals()) return true;
    return column != kNoColumn && columns_.IsGrouped(column);
}

/// The column if composition writes criteria of this clause from it, or kNoColumn.
int CriteriaBuilder::UsableColumn(int column) const {
    if (column == kNoColumn) return kNoColumn;
    if (clause_ == Clause::Having)
        return IsAggregate(columns_.Cell(GridRow::Campo, column)) ? column : kNoColumn;
    return !columns_.IsTotals() || columns_.IsGrouped(column) ? column : kNoColumn;
}

Outcome CriteriaBuilder::AddColumn(std::wstring text, Shown shown, TextRange place, int& column) {
    if (clause_ == Clause::Having && !IsAggregate(text)) {
        return Refusal{place, std::wstring(messages::kHavingWithoutAggregate)};
    }
    model::ColInfo record;
    record.Expresion = std::move(text);
    return columns_.SetColumn(std::move(record), shown, place, column);
}

// The aggregate test of the composition knows an aggregate's name by the sign before it, which may be a blank
// but not a parenthesis. Where it would overlook the name, a blank in front makes it visible.
std::wstring CriteriaBuilder::ExpressionText(NodeId id, std::wstring_view before) const {
    const TextRange range = PlaceOf(id);
    std::wstring text = columns_.FieldText(id);
    if (clause_ != Clause::Having || IsAggregate(std::wstring(before) + text)) return text;
    const NodeId aggregate = FirstAggregate(statement_, id);
    if (aggregate == sql::kNoNode) return text;
    const std::size_t at = PlaceOf(aggregate).offset;
    return columns_.CellText({range.offset, at - range.offset}) + L" " +
           columns_.CellText({at, range.End() - at});
}

std::wstring CriteriaBuilder::CellTextOf(const Comparison& comparison) const {
    std::wstring text = columns_.CellText(comparison.value);
    text.reserve(text.size() + comparison.sign.size() + 1);
    text.insert(text.begin(), L' ');
    text.insert(0, comparison.sign);
    return ColumnBuilder::FittedText(std::move(text));
}

}  // namespace tessel::analyse
