#include "tools/schema_json.h"

#include <map>
#include <utility>

#include "common/identifiers.h"
#include "common/mdl_global.h"
#include "common/text.h"

namespace tessel::tools {

namespace {

class JsonSource final : public schema::SchemaSource {
public:
    Result<std::vector<schema::Object>> LoadObjects() override { return objects; }
    Result<std::vector<schema::Field>> LoadFields(const schema::Object& object) override {
        const auto found = fields.find(IdentifierKey(object.raw_name));
        return found == fields.end() ? std::vector<schema::Field>() : found->second;
    }
    Result<std::vector<schema::ForeignKey>> LoadForeignKeys() override { return foreign_keys; }

    std::vector<schema::Object> objects;
    std::map<std::wstring, std::vector<schema::Field>> fields;
    std::vector<schema::ForeignKey> foreign_keys;
};

std::wstring TextOr(const Json& object, const char* name) {
    const auto found = object.find(name);
    return found != object.end() && found->is_string() ? FromUtf8(found->get_ref<const std::string&>())
                                                       : std::wstring();
}

int TypeCode(const Json& type) {
    if (type.is_number_integer()) return type.get<int>();
    if (!type.is_string()) return 0;
    const std::wstring name = FromUtf8(type.get_ref<const std::string&>());
    for (const ADOTypeInfo& info : ADOTypeTable())
        if (SameName(info.name, name)) return info.code;
    return 0;
}

std::optional<schema::Field> ReadField(const Json& json) {
    schema::Field field;
    if (json.is_string()) {
        field.raw_name = FromUtf8(json.get_ref<const std::string&>());
    } else if (json.is_object()) {
        field.raw_name = TextOr(json, "name");
        if (const auto type = json.find("type"); type != json.end()) field.ado_type = TypeCode(*type);
        if (const auto size = json.find("size"); size != json.end() && size->is_number_integer())
            field.size = size->get<std::int64_t>();
        if (const auto key = json.find("key"); key != json.end() && key->is_boolean())
            field.primary_key = key->get<bool>();
        if (const auto nullable = json.find("nullable"); nullable != json.end() && nullable->is_boolean())
            field.nullable = nullable->get<bool>();
    }
    if (field.raw_name.empty()) return std::nullopt;
    field.raw_name = Unbracketed(field.raw_name);
    field.name = WrittenName(field.raw_name);
    return field;
}

std::wstring Written(const std::wstring& name) {
    return BracketIfNeeded(Unbracketed(name));
}

/// A table's list of fields: under "fields" or "columns", or none.
Json FieldList(const Json& table) {
    for (const char* name : {"fields", "columns"}) {
        if (const auto list = table.find(name); list != table.end()) return *list;
    }
    return Json::array();
}

std::optional<Error> AddTable(JsonSource& source, const std::wstring& name, int kind, const Json& fields) {
    if (name.empty()) return Error{L"una tabla del esquema no tiene nombre"};
    if (!fields.is_array()) return Error{L"los campos de " + name + L" no son una lista"};
    schema::Object object;
    object.raw_name = Unbracketed(name);
    object.name = WrittenName(object.raw_name);
    object.kind = kind == static_cast<int>(schema::ObjectKind::View) ? schema::ObjectKind::View
                                                                     : schema::ObjectKind::Table;
    std::vector<schema::Field>& list = source.fields[IdentifierKey(object.raw_name)];
    for (const Json& item : fields) {
        auto field = ReadField(item);
        if (!field) return Error{L"un campo de " + name + L" no tiene nombre"};
        list.push_back(std::move(*field));
    }
    source.objects.push_back(std::move(object));
    return std::nullopt;
}

std::optional<Error> ReadTables(const Json& json, JsonSource& source) {
    if (json.is_array()) {
        for (const Json& table : json) {
            if (table.is_string()) {
                if (auto error =
                        AddTable(source, FromUtf8(table.get_ref<const std::string&>()), 1, Json::array()))
                    return error;
                continue;
            }
            if (!table.is_object()) return Error{L"una tabla del esquema no es un objeto"};
            const auto kind = table.find("kind");
            if (auto error = AddTable(source, TextOr(table, "name"),
                                      kind != table.end() && kind->is_number_integer() ? kind->get<int>() : 1,
                                      FieldList(table)))
                return error;
        }
        return std::nullopt;
    }
    for (const auto& [name, table] : json.items()) {
        if (auto error = AddTable(source, FromUtf8(name), 1, table.is_object() ? FieldList(table) : table)) {
            return error;
        }
    }
    return std::nullopt;
}

}  // namespace

Result<std::shared_ptr<schema::Schema>> ReadSchema(const Json& json) {
    if (!json.is_object()) return Error{L"el esquema no es un objeto JSON"};
    auto source = std::make_unique<JsonSource>();
    const auto tables = json.find("tables");
    const bool wrapped = tables != json.end() && (tables->is_array() || tables->is_object());
    if (auto error = ReadTables(wrapped ? *tables : json, *source)) return *error;
    if (const auto relations = json.find("relations");
        wrapped && relations != json.end() && relations->is_array()) {
        for (const Json& item : *relations) {
            if (!item.is_object()) return Error{L"una relación del esquema no es un objeto"};
            // The left side is the one that is referred to.
            source->foreign_keys.push_back({L"",
                                            Written(TextOr(item, "RightTable")),
                                            {Written(TextOr(item, "RightField"))},
                                            Written(TextOr(item, "LeftTable")),
                                            {Written(TextOr(item, "LeftField"))}});
        }
    }
    return std::make_shared<schema::Schema>(std::move(source));
}

}  // namespace tessel::tools
