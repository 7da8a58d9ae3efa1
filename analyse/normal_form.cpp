#include "analyse/normal_form.h"

#include <algorithm>
#include <set>

#include "analyse/from_form.h"
#include "analyse/group_conditions.h"
#include "analyse/nodes.h"
#include "common/identifiers.h"
#include "sqlparser/token_text.h"

namespace tessel::analyse {

namespace {

using sql::Item;
using sql::NodeId;
using sql::NodeKind;
using sql::Statement;

constexpr std::uint32_t kAmbiguousHead = 32u << 24;

NormalForm::SelectItem NormaliseItem(const StatementScope& scope, const Canonical& canonical,
                                     std::size_t index) {
    const Statement& statement = scope.Source();
    const Item& item = statement.Columns[index];
    NormalForm::SelectItem result;
    result.expression = canonical.Expression(item.node);
    result.alias = scope.AliasKey(index);
    result.has_alias = !scope.Numbers().TextOf(result.alias).empty();
    const NodeId inner = WithoutParens(statement, item.node);
    if (statement.At(inner).kind == NodeKind::Name) result.implied = scope.PartsOf(inner).last;
    return result;
}

/// The number that an integer literal in ORDER BY stands for, or 0.
std::size_t Ordinal(const Statement& statement, NodeId key) {
    const sql::Node& node = statement.At(key);
    if (node.kind != NodeKind::Number || node.length > 4) return 0;
    std::size_t value = 0;
    for (const wchar_t digit : statement.Slice(node.Range())) {
        if (digit < L'0' || digit > L'9') return 0;
        value = value * 10 + static_cast<std::size_t>(digit - L'0');
    }
    return value;
}

bool AnyTableMayHave(const StatementScope& scope, Form field) {
    for (int table = 0; table < scope.TableCount(); ++table) {
        if (scope.HasField(table, field)) return true;
    }
    return false;
}

/// True when a "*" may bring a column of that name.
bool StarMayBring(const StatementScope& scope, Form field) {
    const Statement& statement = scope.Source();
    const bool star = std::ranges::any_of(
        statement.Columns, [&](const Item& item) { return statement.At(item.node).kind == NodeKind::Star; });
    for (int table = 0; star && table < scope.TableCount(); ++table) {
        if (!scope.IsTableKnown(table) || scope.HasField(table, field)) return true;
    }
    return false;
}

// An output name that repeats the field's own name changes nothing, and one that the design adds because
// every column has a caption changes no row. A name that the user gave must stay.
bool SameOutputName(const NormalForm::SelectItem& original, const NormalForm::SelectItem& composed) {
    if (original.alias == composed.alias || !original.has_alias) return true;
    return !composed.has_alias && original.alias == original.implied;
}

// An added name must not catch an unqualified name of the statement, which means a field.
bool CatchesAName(const NormalForm::SelectItem& original, const NormalForm::SelectItem& composed,
                  const NormalForm& form) {
    if (original.has_alias || !composed.has_alias || composed.alias == original.implied) return false;
    return Holds(form.unqualified, composed.alias);
}

bool SameSelect(const NormalForm& original, const NormalForm& composed) {
    if (original.select.size() != composed.select.size()) return false;
    for (std::size_t index = 0; index < original.select.size(); ++index) {
        const NormalForm::SelectItem& before = original.select[index];
        const NormalForm::SelectItem& after = composed.select[index];
        if (before.expression != after.expression || !SameOutputName(before, after)) return false;
        if (CatchesAName(before, after, original)) return false;
    }
    return true;
}

/// Every condition a row must pass, without those of the clauses that are left out.
FormSet RowConditions(const NormalForm& form, LeftOut left_out) {
    FormSet conditions = form.join_conditions;
    const auto add = [&](const FormSet& more) {
        conditions.insert(conditions.end(), more.begin(), more.end());
    };
    if (!left_out.where) add(form.where);
    if (!left_out.having) add(form.group_conditions);
    MakeSet(conditions);
    return conditions;
}

// Grouping also by a condition that every row passes leaves the groups what they were, as long as there are
// groups at all: without GROUP BY an empty result still has one row.
bool SameGroups(const NormalForm& original, const NormalForm& composed) {
    if (original.grouped != composed.grouped) return false;
    if (!std::ranges::includes(composed.group, original.group)) return false;
    const FormSet conditions = RowConditions(composed, {});
    return std::ranges::all_of(
        composed.group, [&](Form key) { return Holds(original.group, key) || Holds(conditions, key); });
}

}  // namespace

int SelectItemOfSortKey(const StatementScope& scope, const Canonical& canonical, NodeId key) {
    const Statement& statement = scope.Source();
    const NodeId inner = WithoutParens(statement, key);
    if (const std::size_t ordinal = Ordinal(statement, inner); ordinal > 0) {
        if (ordinal > statement.Columns.size()) return kAmbiguous;
        for (std::size_t index = 0; index < ordinal; ++index) {
            if (statement.At(statement.Columns[index].node).kind == NodeKind::Star) return kAmbiguous;
        }
        return static_cast<int>(ordinal) - 1;
    }
    if (statement.At(inner).kind != NodeKind::Name) return kOwnExpression;
    const StatementScope::NameParts name = scope.PartsOf(inner);
    if (name.count != 1) return kOwnExpression;

    bool is_field = AnyTableMayHave(scope, name.first);
    bool is_other_column = StarMayBring(scope, name.first);
    bool is_field_itself = false;
    int by_alias = kOwnExpression;
    int by_field = kOwnExpression;
    for (std::size_t index = 0; index < statement.Columns.size(); ++index) {
        const Item& item = statement.Columns[index];
        const bool same_expression = canonical.HaveSameForm(item.node, inner);
        is_field = is_field || same_expression;
        const NodeId aliased = WithoutParens(statement, item.node);
        const bool is_name = statement.At(aliased).kind == NodeKind::Name;
        const StatementScope::NameParts parts =
            is_name ? scope.PartsOf(aliased) : StatementScope::NameParts();
        const bool names_field = parts.count == 2 && parts.last == name.first;
        const Form alias = scope.AliasKey(index);
        if (names_field && scope.Numbers().TextOf(alias).empty()) {
            by_field = is_other_column ? kAmbiguous : static_cast<int>(index);
            is_other_column = true;
        }
        if (alias != name.first || same_expression) continue;
        if (by_alias != kOwnExpression) return kAmbiguous;
        by_alias = static_cast<int>(index);
        is_field_itself = names_field;
    }
    // A bare name is the column of the only field of that name in the select list: where another table has
    // such a field too, engines take the column or refuse the name.
    if (by_alias == kOwnExpression) return by_field == kAmbiguous ? kOwnExpression : by_field;
    // The alias of the field of that very name is the field.
    return is_other_column || (is_field && !is_field_itself) ? kAmbiguous : by_alias;
}

NormalForm Normalise(const StatementScope& scope, const Canonical& canonical) {
    const Statement& statement = scope.Source();
    NormalForm form;
    if (!statement.beyond.empty() || statement.top_range.length > 0) {
        form.beyond = sql::CanonicalTokens(statement.source, {0, statement.source.size()});
    }
    form.distinct = statement.Distinct;
    form.select.reserve(statement.Columns.size());
    for (std::size_t index = 0; index < statement.Columns.size(); ++index) {
        if (!IsBareStar(statement.At(statement.Columns[index].node))) {
            form.select.push_back(NormaliseItem(scope, canonical, index));
            continue;
        }
        // "*" is all fields of each table, in the order in which FROM names the tables.
        const Form no_alias = scope.Numbers().Text({});
        for (int table = 0; table < scope.TableCount(); ++table)
            form.select.push_back({canonical.AllFields(table), no_alias, kNoForm, false});
    }
    // They matter where an alias might be added.
    if (!std::ranges::all_of(form.select, &NormalForm::SelectItem::has_alias)) {
        form.unqualified = scope.UnqualifiedNames();
    }
    FromForm from = NormaliseFrom(scope, canonical);
    form.from = from.groups;
    form.join_conditions = std::move(from.conditions);
    form.where = canonical.Conjuncts(statement.where);
    if (statement.having != sql::kNoNode) {
        const GroupConditions groups(scope, canonical);
        for (const NodeId condition : canonical.ConjunctNodes(statement.having)) {
            FormSet& conditions = groups.MayStandInWhere(condition) ? form.group_conditions : form.having;
            conditions.push_back(canonical.Condition(condition));
        }
        MakeSet(form.group_conditions);
        MakeSet(form.having);
    }
    form.grouped = !statement.GroupItems.empty();
    for (const Item& item : statement.GroupItems) form.group.push_back(canonical.Expression(item.node));
    MakeSet(form.group);
    std::set<Form> sorted_by;
    for (const Item& item : statement.OrderItems) {
        const int column = SelectItemOfSortKey(scope, canonical, item.node);
        const NodeId node = column < 0 ? item.node : statement.Columns[static_cast<std::size_t>(column)].node;
        if (column >= 0 && IsSameForEveryRow(statement, node)) continue;
        Form expression = canonical.Expression(node);
        // A key that other readers may take for another column is like no other key.
        if (column == kAmbiguous) expression = scope.Numbers().Node(kAmbiguousHead, {&expression, 1});
        if (!sorted_by.insert(expression).second) continue;
        form.order.push_back({expression, item.descending});
    }
    return form;
}

std::optional<Clause> FirstDifference(const NormalForm& original, const NormalForm& composed,
                                      LeftOut left_out) {
    if (original.beyond != composed.beyond) return Clause::Whole;
    if (original.distinct != composed.distinct) return Clause::Distinct;
    if (original.from != composed.from) return Clause::From;
    if (RowConditions(original, left_out) != RowConditions(composed, {})) return Clause::Where;
    if (!SameGroups(original, composed)) return Clause::GroupBy;
    if (!left_out.having && original.having != composed.having) return Clause::Having;
    if (left_out.having && !composed.having.empty()) return Clause::Having;
    if (original.order != composed.order) return Clause::OrderBy;
    if (!SameSelect(original, composed)) return Clause::Select;
    return std::nullopt;
}

}  // namespace tessel::analyse
