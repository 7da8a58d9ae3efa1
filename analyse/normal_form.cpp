#include "analyse/normal_form.h"

#include <algorithm>

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
using Set = std::set<std::wstring>;

NormalForm::SelectItem NormaliseItem(const Statement& statement, const Canonical& canonical,
                                     const Item& item) {
    NormalForm::SelectItem result;
    result.expression = canonical.Expression(item.node);
    result.alias = IdentifierKey(statement.Slice(item.alias));
    const NodeId inner = WithoutParens(statement, item.node);
    if (statement.At(inner).kind == NodeKind::Name) {
        const std::vector<std::wstring> keys = NameKeys(statement, inner);
        if (!keys.empty()) result.implied = keys.back();
    }
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

bool AnyTableMayHave(const StatementScope& scope, const std::wstring& field) {
    for (int table = 0; table < scope.TableCount(); ++table) {
        if (scope.HasField(table, field)) return true;
    }
    return false;
}

/// True when a "*" may bring a column of that name.
bool StarMayBring(const StatementScope& scope, const std::wstring& field) {
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
    if (original.alias == composed.alias || original.alias.empty()) return true;
    return composed.alias.empty() && original.alias == original.implied;
}

// An added name must not catch an unqualified name of the statement, which means a field.
bool CatchesAName(const NormalForm::SelectItem& original, const NormalForm::SelectItem& composed,
                  const NormalForm& form) {
    if (!original.alias.empty() || composed.alias.empty() || composed.alias == original.implied) return false;
    return form.unqualified.contains(composed.alias);
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
Set RowConditions(const NormalForm& form, LeftOut left_out) {
    Set conditions = form.join_conditions;
    if (!left_out.where) conditions.insert(form.where.begin(), form.where.end());
    if (!left_out.having) conditions.insert(form.group_conditions.begin(), form.group_conditions.end());
    return conditions;
}

// Grouping also by a condition that every row passes leaves the groups what they were, as long as there are
// groups at all: without GROUP BY an empty result still has one row.
bool SameGroups(const NormalForm& original, const NormalForm& composed) {
    if (original.grouped != composed.grouped) return false;
    if (!std::ranges::includes(composed.group, original.group)) return false;
    const Set conditions = RowConditions(composed, {});
    return std::ranges::all_of(composed.group, [&](const std::wstring& key) {
        return original.group.contains(key) || conditions.contains(key);
    });
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
    const std::vector<std::wstring> keys = NameKeys(statement, inner);
    if (keys.size() != 1) return kOwnExpression;

    const std::wstring as_field = canonical.Expression(inner);
    bool is_field = AnyTableMayHave(scope, keys[0]);
    bool is_other_column = StarMayBring(scope, keys[0]);
    bool is_field_itself = false;
    int by_alias = kOwnExpression;
    int by_field = kOwnExpression;
    for (std::size_t index = 0; index < statement.Columns.size(); ++index) {
        const Item& item = statement.Columns[index];
        const bool same_expression = canonical.Expression(item.node) == as_field;
        is_field = is_field || same_expression;
        const NodeId aliased = WithoutParens(statement, item.node);
        const bool is_name = statement.At(aliased).kind == NodeKind::Name;
        const std::vector<std::wstring> aliased_keys =
            is_name ? NameKeys(statement, aliased) : std::vector<std::wstring>();
        const bool names_field = aliased_keys.size() == 2 && aliased_keys.back() == keys[0];
        const std::wstring alias = IdentifierKey(statement.Slice(item.alias));
        if (names_field && alias.empty()) {
            by_field = is_other_column ? kAmbiguous : static_cast<int>(index);
            is_other_column = true;
        }
        if (alias != keys[0] || same_expression) continue;
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
    form.unqualified = scope.UnqualifiedNames();
    for (const Item& item : statement.Columns) {
        if (!IsBareStar(statement.At(item.node))) {
            form.select.push_back(NormaliseItem(statement, canonical, item));
            continue;
        }
        // "*" is all fields of each table, in the order in which FROM names the tables.
        for (int table = 0; table < scope.TableCount(); ++table) {
            form.select.push_back({canonical.AllFields(table), L"", L""});
        }
    }
    FromForm from = NormaliseFrom(scope, canonical);
    form.from = std::move(from.groups);
    form.join_conditions = std::move(from.conditions);
    form.where = canonical.Conjuncts(statement.where);
    const GroupConditions groups(scope, canonical);
    if (statement.having != sql::kNoNode) {
        for (const NodeId condition : canonical.ConjunctNodes(statement.having)) {
            Set& conditions = groups.MayStandInWhere(condition) ? form.group_conditions : form.having;
            conditions.insert(canonical.Condition(condition));
        }
    }
    form.grouped = !statement.GroupItems.empty();
    for (const Item& item : statement.GroupItems) form.group.insert(canonical.Expression(item.node));
    std::set<std::wstring> sorted_by;
    for (const Item& item : statement.OrderItems) {
        const int column = SelectItemOfSortKey(scope, canonical, item.node);
        const NodeId node = column < 0 ? item.node : statement.Columns[static_cast<std::size_t>(column)].node;
        if (column >= 0 && IsSameForEveryRow(statement, node)) continue;
        std::wstring expression = canonical.Expression(node);
        // A key that other readers may take for another column is like no other key.
        if (column == kAmbiguous) expression += L" or another column";
        if (!sorted_by.insert(expression).second) continue;
        form.order.push_back({std::move(expression), item.descending});
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
