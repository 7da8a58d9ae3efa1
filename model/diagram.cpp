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

bool Touches(const RelInfo& relation, std::wstring_view table) {
    return SameIdentifier(relation.LeftTable, table) || SameIdentifier(relation.RightTable, table);
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

bool Diagram::AddTableLike(const Diagram& other, std::wstring_view name) {
    const DiagramTable* shown = other.FindTable(name);
    if (!shown) return AddTable(name, true);
    if (FindTable(name)) return false;
    DiagramTable& table = tables_.emplace_back(*shown);
    table.all_checked = false;
    for (DiagramField& field : table.fields) field.checked = false;
    NotifyChanged();
    return true;
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
            return TrimView(entry.field) == kAllFields && SameIdentifier(entry.table, table.name);
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
    WelcomeContents();
}

void Diagram::TakeContents(Diagram& other) {
    tables_.swap(other.tables_);
    relations_.swap(other.relations_);
    WelcomeContents();
}

/// After the contents were replaced as a whole.
void Diagram::WelcomeContents() {
    for (const DiagramRelation& relation : relations_) next_key_ = std::max(next_key_, relation.key + 1);
    DropLostSelection();
    NotifyChanged();
}

void Diagram::StartAgain(const schema::Schema* schema) {
    schema_ = schema;
    tables_.clear();
    relations_.clear();
    next_key_ = 1;
    selected_ = DiagramElement::None;
    selected_table_.clear();
    selected_relation_ = 0;
}

}  // namespace tessel::model
