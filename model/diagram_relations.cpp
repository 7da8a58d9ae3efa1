// The relations of a diagram: taken as a statement has them, or fitted in as the user and the schema's keys
// want them.
#include <algorithm>
#include <utility>

#include "common/identifiers.h"
#include "common/text.h"
#include "model/diagram.h"
#include "model/relation_order.h"

namespace tessel::model {

namespace {

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

std::optional<RelInfo> Diagram::AsShown(const RelInfo& relation) const {
    const DiagramTable* left = FindTable(relation.LeftTable);
    const DiagramTable* right = FindTable(relation.RightTable);
    if (!left || !right || left == right) return std::nullopt;
    const std::wstring_view right_field = FieldOfRelation(relation.RightField);
    RelInfo shown;
    shown.LeftTable = left->name;
    shown.LeftField = ShownFieldName(*left, relation.LeftField);
    shown.RightTable = right->name;
    shown.RightField = ShownFieldName(*right, right_field);
    shown.RightField.append(relation.RightField, right_field.size());
    shown.JType = relation.JType;
    return shown;
}

int Diagram::KeyOfSameFields(const RelInfo& relation) const {
    const auto found = std::ranges::find_if(
        relations_, [&](const DiagramRelation& existing) { return JoinSameFields(existing.info, relation); });
    return found == relations_.end() ? 0 : found->key;
}

int Diagram::AddRelation(const RelInfo& relation) {
    std::optional<RelInfo> shown = AsShown(relation);
    if (!shown) return 0;
    if (const int key = KeyOfSameFields(*shown)) return key;
    const int key = next_key_++;
    relations_.push_back({key, std::move(*shown)});
    NotifyChanged();
    return key;
}

RelationResult Diagram::Relate(const RelInfo& relation) {
    const std::optional<RelInfo> shown = AsShown(relation);
    if (!shown) return {RelationOutcome::NoTables, 0};
    if (const int key = KeyOfSameFields(*shown)) return {RelationOutcome::AlreadyThere, key};
    if (AreConnected(relations_, shown->LeftTable, shown->RightTable))
        return {RelationOutcome::ClosesRing, 0};
    auto joined = WithRelation(relations_, {next_key_, *shown});
    if (!joined) return {RelationOutcome::LosesRows, 0};
    const int key = next_key_++;
    relations_ = std::move(*joined);
    NotifyChanged();
    return {RelationOutcome::Done, key};
}

RelationOutcome Diagram::SetRelationKind(int key, JoinKind kind) {
    const DiagramRelation* relation = FindRelation(key);
    if (!relation) return RelationOutcome::NoTables;
    if (relation->info.JType == kind) return RelationOutcome::Done;
    auto changed = WithKind(relations_, key, kind);
    if (!changed) return RelationOutcome::LosesRows;
    relations_ = std::move(*changed);
    NotifyChanged();
    return RelationOutcome::Done;
}

void Diagram::AddSchemaRelations(const std::wstring& name) {
    if (!schema_) return;
    for (const schema::ForeignKey* key : schema_->ForeignKeysOf(name)) {
        if (key->fields.size() != 1 || key->referenced_fields.size() != 1) continue;
        RelInfo relation;
        relation.LeftTable = key->referenced_table;
        relation.LeftField = key->referenced_fields.front();
        relation.RightTable = key->table;
        relation.RightField = key->fields.front();
        if (Relate(relation).outcome != RelationOutcome::LosesRows) continue;
        const bool is_related = std::ranges::any_of(relations_, [&](const DiagramRelation& existing) {
            return SameIdentifier(existing.info.LeftTable, name) ||
                   SameIdentifier(existing.info.RightTable, name);
        });
        if (is_related) continue;
        // The rows that are there stay, whatever the new table holds.
        relation.JType = SameIdentifier(key->table, name) ? kLeftJoin : kRightJoin;
        Relate(relation);
    }
}

}  // namespace tessel::model
