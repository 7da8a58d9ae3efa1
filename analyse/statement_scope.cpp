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
// Unknown, the integers, the floating and decimal numbers, Boolean, Variant.
constexpr int kAdoNumbers[] = {0, 2, 3, 4, 5, 6, 11, 12, 14, 16, 17, 18, 19, 20, 21, 131, 139};
constexpr int kUnasked = -2;

/// The first identifier of a name that has more than one, or of the qualifier of a star; kNoNode otherwise.
NodeId QualifierOf(const Statement& statement, const Node& node) {
    if (node.kind != NodeKind::Name && node.kind != NodeKind::Star) return sql::kNoNode;
    const NodeId first = node.first_child;
    if (first == sql::kNoNode || statement.At(first).kind != NodeKind::NamePart) return sql::kNoNode;
    const bool alone = statement.At(first).next == sql::kNoNode;
    return node.kind == NodeKind::Name && alone ? sql::kNoNode : first;
}

}  // namespace

StatementScope::StatementScope(const Statement& statement, const schema::Schema* schema, Forms& forms)
    : statement_(statement),
      schema_(schema),
      forms_(forms),
      tables_of_names_(statement.nodes.size(), kUnasked),
      keys_(statement.nodes.size(), kNoForm),
      alias_keys_(statement.Columns.size(), kNoForm) {
    tables_.reserve(statement.Tables.size());
    for (const TableRef& reference : statement.Tables) {
        const Form key = forms.Identifier(statement.Slice(reference.name));
        const Form called =
            reference.alias.length > 0 ? forms.Identifier(statement.Slice(reference.alias)) : key;
        if (called >= tables_called_.size()) tables_called_.resize(called + 1, kNoTable);
        int& table_called = tables_called_[called];
        if (table_called == kNoTable) table_called = TableCount();
        tables_.push_back({key, false, nullptr});
    }
    MarkRepeatedTables();
}

std::vector<Form> StatementScope::UnqualifiedNames() const {
    Keys keys;
    for (const Node& node : statement_.nodes) {
        const bool unqualified = node.kind == NodeKind::Name && node.first_child != sql::kNoNode &&
                                 QualifierOf(statement_, node) == sql::kNoNode;
        if (unqualified) keys.push_back(KeyOf(node.first_child));
    }
    std::ranges::sort(keys);
    keys.erase(std::unique(keys.begin(), keys.end()), keys.end());
    return keys;
}

const std::vector<StatementScope::Reference>& StatementScope::References() const {
    if (has_references_) return references_;
    std::vector<const Keys*> hidden;
    CollectReferences(statement_, hidden);
    std::ranges::sort(references_, {}, [](const Reference& reference) { return reference.range.offset; });
    has_references_ = true;
    return references_;
}

void StatementScope::MarkRepeatedTables() {
    if (tables_.size() < 2) return;
    std::vector<Form> keys;
    keys.reserve(tables_.size());
    for (const Table& table : tables_) keys.push_back(table.key);
    std::ranges::sort(keys);
    for (Table& table : tables_) {
        const auto [first, last] = std::equal_range(keys.begin(), keys.end(), table.key);
        table.repeated = last - first > 1;
    }
}

Form StatementScope::CallingKey(const Statement& statement, const TableRef& table) const {
    return forms_.Identifier(statement.Slice(table.alias.length > 0 ? table.alias : table.name));
}

void StatementScope::CollectReferences(const Statement& statement, std::vector<const Keys*>& hidden) const {
    const bool outermost = &statement == &statement_;
    for (NodeId id = 0; id < statement.nodes.size(); ++id) {
        const Node& node = statement.At(id);
        if (node.kind != NodeKind::Name && node.kind != NodeKind::Star) continue;
        const NodeId qualifier = QualifierOf(statement, node);
        if (qualifier == sql::kNoNode) continue;
        const TextRange range = statement.At(qualifier).Range();
        const Form key = outermost ? KeyOf(qualifier) : forms_.Identifier(statement.Slice(range));
        const bool inner = std::ranges::any_of(
            hidden, [&](const Keys* keys) { return std::ranges::find(*keys, key) != keys->end(); });
        if (inner) continue;
        const int table = TableCalled(key);
        if (table != kNoTable) references_.push_back({range, table});
    }
    CollectNested(statement, hidden);
}

void StatementScope::CollectNested(const Statement& statement, std::vector<const Keys*>& hidden) const {
    for (const auto& nested : statement.nested) {
        CollectOperand(*nested, hidden);
        for (const auto& operand : nested->union_operands) CollectOperand(*operand, hidden);
        if (nested->tail) CollectOperand(*nested->tail, hidden);
    }
}

void StatementScope::CollectOperand(const Statement& statement, std::vector<const Keys*>& hidden) const {
    Keys own;
    for (const TableRef& table : statement.Tables) own.push_back(CallingKey(statement, table));
    hidden.push_back(&own);
    CollectReferences(statement, hidden);
    hidden.pop_back();
}

bool StatementScope::IsTableKnown(int table) const {
    return schema_ && schema_->Find(forms_.TextOf(TableKey(table)));
}

const schema::Field* StatementScope::FindField(int table, Form field_key) const {
    if (!schema_) return nullptr;
    const Table& asked = tables_[static_cast<std::size_t>(table)];
    if (!asked.fields) asked.fields = &schema_->Fields(forms_.TextOf(asked.key));
    const std::wstring_view key = forms_.TextOf(field_key);
    const auto found = std::ranges::find_if(
        *asked.fields, [&](const schema::Field& field) { return SameIdentifier(field.name, key); });
    return found == asked.fields->end() ? nullptr : &*found;
}

bool StatementScope::IsBooleanField(int table, Form field_key) const {
    const schema::Field* field = FindField(table, field_key);
    return field && field->ado_type == kAdoBoolean;
}

bool StatementScope::MayBeNumberField(int table, Form field_key) const {
    const schema::Field* field = FindField(table, field_key);
    if (!field) return true;
    return std::ranges::find(kAdoNumbers, field->ado_type) != std::end(kAdoNumbers);
}

int StatementScope::TableOfField(Form field_key) const {
    if (TableCount() == 1) return 0;
    int found = kNoTable;
    for (int table = 0; table < TableCount(); ++table) {
        if (!HasField(table, field_key)) continue;
        if (found != kNoTable) return kNoTable;
        found = table;
    }
    return found;
}

bool StatementScope::IsAmbiguousField(Form field_key) const {
    int owners = 0;
    for (int table = 0; table < TableCount(); ++table) owners += HasField(table, field_key) ? 1 : 0;
    return owners > 1;
}

void StatementScope::Settle(NodeId name, int table) {
    tables_of_names_[name] = table;
    ++settled_;
}

int StatementScope::TableOfName(NodeId name) const {
    int& table = tables_of_names_[name];
    if (table == kUnasked) table = FindTableOfName(name);
    return table;
}

int StatementScope::FindTableOfName(NodeId name) const {
    const NodeId qualifier = QualifierOf(statement_, statement_.At(name));
    if (qualifier != sql::kNoNode) return TableCalled(KeyOf(qualifier));
    const NameParts parts = PartsOf(name);
    return parts.count == 0 ? kNoTable : TableOfField(parts.first);
}

StatementScope::NameParts StatementScope::PartsOf(NodeId name) const {
    NameParts parts;
    for (NodeId part = statement_.At(name).first_child; part != sql::kNoNode;
         part = statement_.At(part).next) {
        if (statement_.At(part).kind != NodeKind::NamePart) continue;
        parts.last = KeyOf(part);
        if (parts.count++ == 0) parts.first = parts.last;
    }
    return parts;
}

Form StatementScope::KeyOf(NodeId part) const {
    Form& key = keys_[part];
    if (key == kNoForm) key = forms_.Identifier(statement_.Slice(statement_.At(part).Range()));
    return key;
}

Form StatementScope::AliasKey(std::size_t item) const {
    Form& key = alias_keys_[item];
    if (key == kNoForm) key = forms_.Identifier(statement_.Slice(statement_.Columns[item].alias));
    return key;
}

std::wstring StatementScope::TextWithTables(TextRange range, const std::vector<std::wstring>& names) const {
    std::wstring text;
    text.reserve(range.length);
    std::size_t at = range.offset;
    const std::vector<Reference>& references = References();
    const auto first = std::ranges::lower_bound(
        references, range.offset, {}, [](const Reference& reference) { return reference.range.offset; });
    for (auto reference = first; reference != references.end(); ++reference) {
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
