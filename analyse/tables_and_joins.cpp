#include "analyse/tables_and_joins.h"

#include <algorithm>

#include "analyse/join_planner.h"

namespace tessel::analyse {

namespace {

using sql::Statement;
using sql::TableRef;

constexpr std::size_t kMostTables = 256;

bool StartsWithDigit(std::wstring_view text) {
    return text.front() >= L'0' && text.front() <= L'9';
}

/// Not between brackets or quotes.
bool HoldsHash(std::wstring_view alias) {
    constexpr std::wstring_view kQuotes = L"[\"`'";
    return kQuotes.find(alias.front()) == std::wstring_view::npos &&
           alias.find(L'#') != std::wstring_view::npos;
}

/// The design names the table itself, which would make a statement valid for engines that do not know such an
/// alias.
Outcome CheckAlias(const Statement& statement, TextRange alias) {
    if (alias.length == 0) return std::nullopt;
    const std::wstring_view text = statement.Slice(alias);
    if (StartsWithDigit(text)) return Refusal{alias, std::wstring(messages::kTableAliasDigit)};
    if (HoldsHash(text)) return Refusal{alias, std::wstring(messages::kTableAliasHash)};
    return std::nullopt;
}

}  // namespace

Outcome CheckTables(const StatementScope& scope) {
    const Statement& statement = scope.Source();
    if (statement.Tables.empty()) {
        const TextRange place = statement.Columns.empty() ? TextRange() : statement.Columns.front().range;
        return Refusal{place, std::wstring(messages::kNoTables)};
    }
    if (statement.Tables.size() > kMostTables) {
        return Refusal{statement.Tables[kMostTables].range, std::wstring(messages::kTooManyTables)};
    }
    std::vector<Form> repeated;
    for (std::size_t index = 0; index < statement.Tables.size(); ++index) {
        const TableRef& table = statement.Tables[index];
        if (table.database.length > 0 || table.owner.length > 0) {
            return Refusal{table.range, std::wstring(messages::kQualifiedTable)};
        }
        if (Outcome refused = CheckAlias(statement, table.alias)) return refused;
        if (!scope.IsTableRepeated(static_cast<int>(index))) continue;
        const Form key = scope.TableKey(static_cast<int>(index));
        if (std::ranges::find(repeated, key) != repeated.end()) {
            return Refusal{table.range, std::wstring(messages::kTableTwice)};
        }
        repeated.push_back(key);
    }
    return std::nullopt;
}

// The tables of FROM alone and in its order, whatever was on the diagram before: "*" takes its columns from
// it.
std::vector<std::wstring> PlaceTables(const StatementScope& scope, const model::Diagram& before,
                                      model::Diagram& diagram) {
    const Statement& statement = scope.Source();
    std::vector<std::wstring> names;
    names.reserve(statement.Tables.size());
    for (const TableRef& table : statement.Tables) {
        if (diagram.AddTableLike(before, statement.Slice(table.name)))
            names.push_back(diagram.Tables().back().name);
    }
    return names;
}

namespace {

// Engines do not agree whether "a, b RIGHT JOIN c" joins b or both a and b to c. For the other kinds it makes
// no difference.
bool HasRightJoinAfterComma(const Statement& statement, const sql::JoinGroup& group) {
    for (int index = group.root; index >= 0;) {
        const sql::FromNode& node = statement.From[static_cast<std::size_t>(index)];
        if (!node.is_join || node.parenthesised) return false;
        if (node.kind == sql::JoinKind::Right) return true;
        index = node.left;
    }
    return false;
}

}  // namespace

Outcome PlanJoins(StatementScope& scope, const Canonical& canonical,
                  const std::vector<std::wstring>& table_names, JoinPlan& plan) {
    JoinPlanner planner(scope, canonical, table_names);
    const Statement& statement = scope.Source();
    for (const sql::JoinGroup& group : statement.JoinGroups) {
        if (group.root < 0) continue;
        if (&group != &statement.JoinGroups.front() && HasRightJoinAfterComma(statement, group)) {
            const TextRange place = statement.From[static_cast<std::size_t>(group.root)].range;
            return Refusal{place, std::wstring(messages::kJoinNesting)};
        }
        if (Outcome refusal = planner.Plan(group.root, plan)) return refusal;
    }
    return std::nullopt;
}

}  // namespace tessel::analyse
