#include "controls/browser/schema_properties.h"

#include <algorithm>
#include <string_view>

#include "common/identifiers.h"
#include "common/mdl_global.h"

namespace tessel::controls {

namespace {

using Properties = std::vector<SchemaProperty>;

std::wstring YesOrNo(bool value) {
    return value ? L"Sí" : L"No";
}

std::wstring Joined(const std::vector<std::wstring>& names) {
    std::wstring text;
    for (const std::wstring& name : names) text += (text.empty() ? L"" : L", ") + Unbracketed(name);
    return text;
}

void AddUnlessEmpty(Properties& properties, std::wstring_view name, std::wstring value) {
    if (!value.empty()) properties.push_back({std::wstring(name), std::move(value)});
}

std::wstring KindText(schema::ObjectKind kind) {
    return kind == schema::ObjectKind::View ? L"Vista" : L"Tabla";
}

Properties OfRoot(const schema::Schema& schema, const BrowserItem& item) {
    const auto views = std::ranges::count(schema.Objects(), schema::ObjectKind::View, &schema::Object::kind);
    const auto tables = static_cast<std::ptrdiff_t>(schema.Objects().size()) - views;
    return {
        {L"Nombre", item.name}, {L"Tablas", std::to_wstring(tables)}, {L"Vistas", std::to_wstring(views)}};
}

Properties OfObject(const schema::Schema& schema, const BrowserItem& item) {
    const schema::Object* object = schema.Find(item.name);
    if (!object) return {};
    const std::vector<schema::Field>& fields = schema.Fields(object->name);
    std::vector<std::wstring> key;
    for (const schema::Field& field : fields)
        if (field.primary_key) key.push_back(field.name);
    Properties properties{{L"Nombre", Unbracketed(object->name)},
                          {L"Tipo", KindText(object->kind)},
                          {L"Campos", std::to_wstring(fields.size())}};
    AddUnlessEmpty(properties, L"Clave principal", Joined(key));
    const std::vector<const schema::ForeignKey*> relations = schema.ForeignKeysOf(object->name);
    if (object->kind == schema::ObjectKind::Table)
        properties.push_back({L"Relaciones", std::to_wstring(relations.size())});
    for (const schema::ForeignKey* relation : relations)
        properties.push_back({L"Relación", RelationText(*relation, object->name)});
    return properties;
}

/// The foreign key that has the field among its own, or nullptr, with the field it refers to.
const schema::ForeignKey* KeyOfField(const schema::Schema& schema, const std::wstring& table,
                                     const std::wstring& field, std::wstring& referenced_field) {
    for (const schema::ForeignKey* key : schema.ForeignKeysOf(table)) {
        if (!SameIdentifier(key->table, table)) continue;
        for (std::size_t i = 0; i < key->fields.size(); ++i) {
            if (!SameIdentifier(key->fields[i], field)) continue;
            referenced_field = i < key->referenced_fields.size() ? key->referenced_fields[i] : std::wstring();
            return key;
        }
    }
    return nullptr;
}

Properties OfField(const schema::Schema& schema, const BrowserItem& item) {
    const schema::Field* field = schema.FindField(item.table, item.name);
    if (!field) return {};
    Properties properties{{L"Nombre", Unbracketed(field->name)}, {L"Tabla", Unbracketed(item.table)}};
    const std::wstring type = FieldTypeText(*field);
    const std::wstring ado_name(ADOTypeName(field->ado_type));
    AddUnlessEmpty(properties, L"Tipo",
                   type == ado_name || ado_name.empty() ? type : type + L" – " + ado_name);
    if (field->size > 0) properties.push_back({L"Tamaño", std::to_wstring(field->size)});
    if (field->precision > 0) {
        properties.push_back({L"Precisión", std::to_wstring(field->precision)});
        properties.push_back({L"Decimales", std::to_wstring(field->scale)});
    }
    properties.push_back({L"Admite nulos", YesOrNo(field->nullable)});
    properties.push_back({L"Clave principal", YesOrNo(field->primary_key)});
    properties.push_back({L"Clave externa", YesOrNo(field->foreign_key)});
    if (!field->foreign_key) return properties;
    std::wstring referenced_field;
    const schema::ForeignKey* key = KeyOfField(schema, item.table, field->name, referenced_field);
    AddUnlessEmpty(properties, L"Tabla referenciada",
                   Unbracketed(key ? key->referenced_table : field->referenced_table));
    AddUnlessEmpty(properties, L"Campo referenciado", Unbracketed(referenced_field));
    return properties;
}

Properties OfRelation(const schema::Schema& schema, const BrowserItem& item) {
    const std::vector<const schema::ForeignKey*> keys = schema.ForeignKeysOf(item.table);
    if (item.relation < 0 || item.relation >= static_cast<int>(keys.size())) return {};
    const schema::ForeignKey& key = *keys[static_cast<std::size_t>(item.relation)];
    Properties properties;
    AddUnlessEmpty(properties, L"Nombre", key.name);
    properties.push_back({L"Tipo", L"Relación"});
    properties.push_back({L"Tabla", Unbracketed(key.table)});
    properties.push_back({key.fields.size() == 1 ? L"Campo" : L"Campos", Joined(key.fields)});
    properties.push_back({L"Tabla referenciada", Unbracketed(key.referenced_table)});
    properties.push_back({key.fields.size() == 1 ? L"Campo referenciado" : L"Campos referenciados",
                          Joined(key.referenced_fields)});
    return properties;
}

}  // namespace

std::vector<SchemaProperty> PropertiesOf(const schema::Schema& schema, const BrowserItem& item) {
    switch (item.kind) {
        case BrowserItem::Kind::Root:
            return OfRoot(schema, item);
        case BrowserItem::Kind::Table:
        case BrowserItem::Kind::View:
            return OfObject(schema, item);
        case BrowserItem::Kind::Field:
            return OfField(schema, item);
        case BrowserItem::Kind::Relation:
            return OfRelation(schema, item);
        case BrowserItem::Kind::Group:
        case BrowserItem::Kind::Relations:
            return {{L"Nombre", item.name}};
    }
    return {};
}

}  // namespace tessel::controls
