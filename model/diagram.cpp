#include "model/diagram.h"

#include <algorithm>
#include <utility>

#include "common/identifiers.h"
#include "common/mdl_global.h"
#include "common/text.h"

namespace tessel::model {

namespace {

constexpr std::wstring_view kAllFields = L"*";

std::wstring TypeText(const schema::Field& field) {
    if (field.ado_type == 0) return {};
    std::wstring text(ADOTypeName(field.ado_type));
    if (text.empty()) return text;
    if (field.precision > 0) {
        text += L'(' + std::to_wstring(field.precision);
        if (field.scale > 0) text += L", " + std::to_wstring(field.scale);
        text += L')';
    } else if (field.size > 0) {
        text += L'(' + std::to_wstring(field.size) + L')';
    }
    return text;
}

const DiagramField* FindField(const DiagramTable& table, std::wstring_view name) {
    const auto found = std::ranges::find_if(
        table.fields, [&](const DiagramField& field) { return SameIdentifier(field.name, name); });
    return found == table.fields.end() ? nullptr : &*found;
}

/// The field's name as the table shows it, or as it was given when the table does not know it.
std::wstring ShownFieldName(const DiagramTable& table, std::wstring_view name) {
    const DiagramField* field = FindField(table, name);
    return field ? field->name : Trim(name);
}

bool Touches(const RelInfo& relation, std::wstring_view table) {
    return SameIdentifier(relation.LeftTable, table) || SameIdentifier(relation.RightTable, table);
}

bool ShareATable(const RelInfo& a, const RelInfo& b) {
    return Touches(a, b.LeftTable) || Touches(a, b.RightTable);
}

bool JoinSameFields(const RelInfo& a, const RelInfo& b) {
    const auto same = [](std::wstring_view table_a, std::wstring_view field_a, std::wstring_view table_b,
                         std::wstring_view field_b) {
        return SameIdentifier(table_a, table_b) &&
               SameIdentifier(FieldOfRelation(field_a), FieldOfRelation(field_b));
    };
    return (same(a.LeftTable, a.LeftField, b.LeftTable, b.LeftField) &&
            same(a.RightTable, a.RightField, b.RightTable, b.RightField)) ||
           (same(a.LeftTable, a.LeftField, b.RightTable, b.RightField) &&
            same(a.RightTable, a.RightField, b.LeftTable, b.LeftField));
}

}  // namespace

std::wstring_view FieldOfRelation(std::wstring_view relation_field) {
    // A name that holds the word has brackets.
    const std::size_t closing = relation_field.starts_with(L'[') ? relation_field.find(L']') : 0;
    return relation_field.substr(0, relation_field.find(L" AND ", closing));
}

void Diagram::Bind(const schema::Schema* schema) {
    schema_ = schema;
    if (tables_.empty()) return;
    for (DiagramTable& table : tables_) {
        const std::vector<DiagramField> before = std::exchange(table.fields, {});
        ReadFields(table);
        for (DiagramField& field : table.fields) {
            field.checked = std::ranges::any_of(before, [&](const DiagramField& old) {
                return old.checked && SameIdentifier(old.name, field.name);
            });
        }
    }
    NotifyChanged();
}

void Diagram::Reset() {
    relations_.clear();
    for (DiagramTable& table : tables_) {
        table.all_checked = false;
        for (DiagramField& field : table.fields) field.checked = false;
    }
    DropLostSelection();
    NotifyChanged();
}

void Diagram::Clear() {
    relations_.clear();
    tables_.clear();
    DropLostSelection();
    NotifyChanged();
}

void Diagram::ReadFields(DiagramTable& table) const {
    const schema::Object* object = schema_ ? schema_->Find(table.name) : nullptr;
    table.known = object != nullptr;
    table.kind = object ? object->kind : schema::ObjectKind::Table;
    if (!object) return;
    table.name = object->name;
    for (const schema::Field& field : schema_->Fields(object->name)) {
        table.fields.push_back({field.name, false, field.primary_key, field.foreign_key, TypeText(field)});
    }
}

bool Diagram::AddTable(std::wstring_view name, bool from_analysis) {
    if (TrimView(name).empty() || FindTable(name)) return false;
    DiagramTable table;
    table.name = Trim(name);
    ReadFields(table);
    const std::wstring shown = table.name;
    tables_.push_back(std::move(table));
    if (!from_analysis) AddSchemaRelations(shown);
    NotifyChanged();
    return true;
}

void Diagram::AddSchemaRelations(const std::wstring& name) {
    if (!schema_) return;
    for (const schema::ForeignKey* key : schema_->ForeignKeysOf(name)) {
        if (key->fields.size() != 1 || key->referenced_fields.size() != 1) continue;
        if (!FindTable(key->table) || !FindTable(key->referenced_table)) continue;
        if (AreConnected(key->table, key->referenced_table)) continue;
        RelInfo relation;
        relation.LeftTable = key->referenced_table;
        relation.LeftField = key->referenced_fields.front();
        relation.RightTable = key->table;
        relation.RightField = key->fields.front();
        Append(relation);
    }
    ArrangeRelations();
}

bool Diagram::RemoveTable(std::wstring_view name) {
    if (!FindTable(name)) return false;
    std::erase_if(relations_, [&](const DiagramRelation& r) { return Touches(r.info, name); });
    std::erase_if(tables_, [&](const DiagramTable& t) { return SameIdentifier(t.name, name); });
    DropLostSelection();
    NotifyChanged();
    return true;
}

const DiagramTable* Diagram::FindTable(std::wstring_view name) const {
    const auto found =
        std::ranges::find_if(tables_, [&](const DiagramTable& t) { return SameIdentifier(t.name, name); });
    return found == tables_.end() ? nullptr : &*found;
}

DiagramTable* Diagram::Find(std::wstring_view name) {
    return const_cast<DiagramTable*>(FindTable(name));
}

int Diagram::AddRelation(const RelInfo& relation) {
    const int key = Append(relation);
    if (key != 0) NotifyChanged();
    return key;
}

int Diagram::Append(const RelInfo& relation) {
    const DiagramTable* left = FindTable(relation.LeftTable);
    const DiagramTable* right = FindTable(relation.RightTable);
    if (!left || !right || left == right) return 0;
    RelInfo shown = relation;
    shown.LeftTable = left->name;
    shown.LeftField = ShownFieldName(*left, relation.LeftField);
    shown.RightTable = right->name;
    shown.RightField = ShownFieldName(*right, relation.RightField);
    shown.Used = false;
    for (const DiagramRelation& existing : relations_) {
        if (JoinSameFields(existing.info, shown)) return existing.key;
    }
    relations_.push_back({next_key_, std::move(shown)});
    return next_key_++;
}

bool Diagram::AreConnected(std::wstring_view a, std::wstring_view b) const {
    std::vector<std::wstring> reached = {IdentifierKey(a)};
    const auto is_reached = [&](std::wstring_view table) {
        return std::ranges::find(reached, IdentifierKey(table)) != reached.end();
    };
    for (bool grown = true; grown && !is_reached(b);) {
        grown = false;
        for (const DiagramRelation& relation : relations_) {
            const bool left = is_reached(relation.info.LeftTable);
            if (left == is_reached(relation.info.RightTable)) continue;
            reached.push_back(IdentifierKey(left ? relation.info.RightTable : relation.info.LeftTable));
            grown = true;
        }
    }
    return is_reached(b);
}

void Diagram::ArrangeRelations() {
    std::vector<DiagramRelation> waiting = std::exchange(relations_, {});
    while (!waiting.empty()) {
        const std::size_t group = relations_.size();
        auto next = waiting.begin();
        // The first of a group is whichever comes first; after it, the first waiting one that touches the
        // group.
        while (next != waiting.end()) {
            relations_.push_back(std::move(*next));
            waiting.erase(next);
            next = std::ranges::find_if(waiting, [&](const DiagramRelation& candidate) {
                return std::any_of(
                    relations_.begin() + static_cast<std::ptrdiff_t>(group), relations_.end(),
                    [&](const DiagramRelation& placed) { return ShareATable(placed.info, candidate.info); });
            });
        }
    }
}

bool Diagram::RemoveRelation(int key) {
    if (std::erase_if(relations_, [&](const DiagramRelation& r) { return r.key == key; }) == 0) return false;
    DropLostSelection();
    NotifyChanged();
    return true;
}

const DiagramRelation* Diagram::FindRelation(int key) const {
    const auto found = std::ranges::find(relations_, key, &DiagramRelation::key);
    return found == relations_.end() ? nullptr : &*found;
}

bool Diagram::SetRelationKind(int key, JoinKind kind) {
    const auto found = std::ranges::find(relations_, key, &DiagramRelation::key);
    if (found == relations_.end()) return false;
    if (found->info.JType == kind) return true;
    found->info.JType = kind;
    NotifyChanged();
    return true;
}

bool Diagram::SetChecked(std::wstring_view table, std::wstring_view field, bool checked) {
    DiagramTable* shown = Find(table);
    if (!shown) return false;
    if (TrimView(field) == kAllFields) {
        if (shown->all_checked == checked) return true;
        shown->all_checked = checked;
        NotifyChanged();
        return true;
    }
    const auto found = std::ranges::find_if(
        shown->fields, [&](const DiagramField& f) { return SameIdentifier(f.name, field); });
    if (found == shown->fields.end()) return false;
    if (found->checked == checked) return true;
    found->checked = checked;
    NotifyChanged();
    return true;
}

void Diagram::SetChecks(const std::vector<CheckedField>& checked) {
    bool changed = false;
    for (DiagramTable& table : tables_) {
        const bool all = std::ranges::any_of(checked, [&](const CheckedField& entry) {
            return SameIdentifier(entry.table, table.name) && TrimView(entry.field) == kAllFields;
        });
        changed = changed || all != table.all_checked;
        table.all_checked = all;
        for (DiagramField& field : table.fields) {
            const bool now = std::ranges::any_of(checked, [&](const CheckedField& entry) {
                return SameIdentifier(entry.table, table.name) && SameIdentifier(entry.field, field.name);
            });
            changed = changed || now != field.checked;
            field.checked = now;
        }
    }
    if (changed) NotifyChanged();
}

void Diagram::ClearChecks() {
    SetChecks({});
}

void Diagram::SetTableRect(std::wstring_view name, const DiagramRect& rect) {
    DiagramTable* table = Find(name);
    if (!table || (table->placed && table->rect == rect)) return;
    table->rect = rect;
    table->placed = true;
    NotifyChanged();
}

void Diagram::SelectTable(std::wstring_view name) {
    const DiagramTable* table = FindTable(name);
    if (!table) return SelectNothing();
    selected_ = DiagramElement::Table;
    selected_table_ = table->name;
    selected_relation_ = 0;
    NotifyChanged();
}

void Diagram::SelectRelation(int key) {
    if (!FindRelation(key)) return SelectNothing();
    selected_ = DiagramElement::Relation;
    selected_table_.clear();
    selected_relation_ = key;
    NotifyChanged();
}

void Diagram::SelectNothing() {
    selected_ = DiagramElement::None;
    selected_table_.clear();
    selected_relation_ = 0;
    NotifyChanged();
}

void Diagram::DropLostSelection() {
    const bool lost = (selected_ == DiagramElement::Table && !FindTable(selected_table_)) ||
                      (selected_ == DiagramElement::Relation && !FindRelation(selected_relation_));
    if (!lost) return;
    selected_ = DiagramElement::None;
    selected_table_.clear();
    selected_relation_ = 0;
}

void Diagram::Restore(Contents contents) {
    tables_ = std::move(contents.tables);
    relations_ = std::move(contents.relations);
    for (const DiagramRelation& relation : relations_) next_key_ = std::max(next_key_, relation.key + 1);
    DropLostSelection();
    NotifyChanged();
}

}  // namespace tessel::model
