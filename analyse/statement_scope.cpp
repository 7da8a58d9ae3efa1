#include "analyse/statement_scope.h"

#include <algorithm>

#include "analyse/nodes.h"
#include "common/identifiers.h"

namespace tessel::analyse {

namespace {

using sql::Node;
using sql::NodeId;
using sql::NodeKind;
using sql::Statement;
using sql::TableRef;

constexpr int kAdoBoolean = 11;
constexpr int kUnasked = -2;

std::wstring CallingKey(const Statement& statement, const TableRef& table) {
    return IdentifierKey(statement.Slice(table.alias.length > 0 ? table.alias : table.name));
}

/// The first identifier of a name that has more than one, or of the qualifier of a star; kNoNode otherwise.
NodeId QualifierOf(const Statement& statement, const Node& node) {
    if (node.kind != NodeKind::Name && node.kind != NodeKind::Star) return sql::kNoNode;
    const NodeId first = node.first_child;
    if (first == sql::kNoNode || statement.At(first).kind != NodeKind::NamePart) return sql::kNoNode;
    const bool alone = statement.At(first).next == sql::kNoNode;
    return node.kind == NodeKind::Name && alone ? sql::kNoNode : first;
}

}  // namespace

StatementScope::StatementScope(const Statement& statement, const schema::Schema* schema)
    : statement_(statement), schema_(schema), tables_of_names_(statement.nodes.size(), kUnasked) {
    Keys names;
    for (const TableRef& table : statement.Tables) {
        called_.emplace(CallingKey(statement, table), static_cast<int>(table_keys_.size()));
        table_keys_.push_back(IdentifierKey(statement.Slice(table.name)));
        if (!names.insert(table_keys_.back()).second) repeated_.insert(table_keys_.back());
    }
    std::vector<const Keys*> hidden;
    CollectReferences(statement, hidden);
    std::ranges::sort(references_, {}, [](const Reference& reference) { return reference.range.offset; });
}

void StatementScope::CollectReferences(const Statement& statement, std::vector<const Keys*>& hidden) {
    for (NodeId id = 0; id < statement.nodes.size(); ++id) {
        const Node& node = statement.At(id);
        const NodeId qualifier = QualifierOf(statement, node);
        if (qualifier == sql::kNoNode) {
            if (node.kind == NodeKind::Name && &statement == &statement_) {
                unqualified_.insert(IdentifierKey(statement.Slice(node.Range())));
            }
            continue;
        }
        const TextRange range = statement.At(qualifier).Range();
        const std::wstring key = IdentifierKey(statement.Slice(range));
        const bool inner = std::ranges::any_of(hidden, [&](const Keys* keys) { return keys->contains(key); });
        if (inner) continue;
        const int table = TableCalled(key);
        if (table != kNoTable) references_.push_back({range, table});
        if (&statement == &statement_ && node.kind == NodeKind::Name) tables_of_names_[id] = table;
    }
    CollectNested(statement, hidden);
}

void StatementScope::CollectNested(const Statement& statement, std::vector<const Keys*>& hidden) {
    for (const auto& nested : statement.nested) {
        CollectOperand(*nested, hidden);
        for (const auto& operand : nested->union_operands) CollectOperand(*operand, hidden);
        if (nested->tail) CollectOperand(*nested->tail, hidden);
    }
}

void StatementScope::CollectOperand(const Statement& statement, std::vector<const Keys*>& hidden) {
    Keys own;
    for (const TableRef& table : statement.Tables) own.insert(CallingKey(statement, table));
    hidden.push_back(&own);
    CollectReferences(statement, hidden);
    hidden.pop_back();
}

int StatementScope::TableCalled(const std::wstring& key) const {
    const auto found = called_.find(key);
    return found == called_.end() ? kNoTable : found->second;
}

bool StatementScope::IsTableKnown(int table) const {
    return schema_ && schema_->Find(TableKey(table));
}

bool StatementScope::HasField(int table, const std::wstring& field_key) const {
    return schema_ && schema_->FindField(TableKey(table), field_key);
}

bool StatementScope::IsBooleanField(int table, const std::wstring& field_key) const {
    const schema::Field* field = schema_ ? schema_->FindField(TableKey(table), field_key) : nullptr;
    return field && field->ado_type == kAdoBoolean;
}

int StatementScope::TableOfField(const std::wstring& field_key) const {
    if (TableCount() == 1) return 0;
    int found = kNoTable;
    for (int table = 0; table < TableCount(); ++table) {
        if (!HasField(table, field_key)) continue;
        if (found != kNoTable) return kNoTable;
        found = table;
    }
    return found;
}

bool StatementScope::IsAmbiguousField(const std::wstring& field_key) const {
    int owners = 0;
    for (int table = 0; table < TableCount(); ++table) owners += HasField(table, field_key) ? 1 : 0;
    return owners > 1;
}

int StatementScope::TableOfName(NodeId name) const {
    int& table = tables_of_names_[name];
    if (table == kUnasked) table = FindTableOfName(name);
    return table;
}

int StatementScope::FindTableOfName(NodeId name) const {
    const std::vector<std::wstring> keys = NameKeys(statement_, name);
    if (keys.empty()) return kNoTable;
    return keys.size() == 1 ? TableOfField(keys[0]) : TableCalled(keys[0]);
}

std::wstring StatementScope::TextWithTables(TextRange range, const std::vector<std::wstring>& names) const {
    std::wstring text;
    std::size_t at = range.offset;
    const auto first = std::ranges::lower_bound(
        references_, range.offset, {}, [](const Reference& reference) { return reference.range.offset; });
    for (auto reference = first; reference != references_.end(); ++reference) {
        if (reference->range.End() > range.End()) break;
        const std::wstring& name = names[static_cast<std::size_t>(reference->table)];
        if (name.empty()) continue;
        text += statement_.Slice({at, reference->range.offset - at});
        text += name;
        at = reference->range.End();
    }
    text += statement_.Slice({at, range.End() - at});
    return text;
}

}  // namespace tessel::analyse
