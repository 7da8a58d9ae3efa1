#include "schema/win32/ado_schema_source.h"

#include <algorithm>
#include <unordered_set>

#include "common/identifiers.h"
#include "common/text.h"
#include "schema/win32/ado_types.h"

namespace tessel::schema {

using win32::Dispatch;

namespace {

constexpr long kStateClosed = 0;
/// Bits of a recordset field's Attributes: the value may be Null.
constexpr long kFieldIsNullable = 0x20, kFieldMayBeNull = 0x40;

/// A row belongs to an object when it names that table, or names none because the question did.
bool IsRowOf(const AdoRows& row, const CatalogueObject& entry) {
    if (const auto table = row.Text(L"TABLE_NAME"); table && !SameName(*table, entry.name)) return false;
    const auto schema = row.Text(L"TABLE_SCHEMA");
    return !schema || schema->empty() || entry.schema.empty() || SameName(*schema, entry.schema);
}

Restrictions RestrictionsOf(const CatalogueObject& entry) {
    return {std::wstring(entry.catalogue), std::wstring(entry.schema), std::wstring(entry.name)};
}

std::wstring TableKey(std::wstring_view schema, std::wstring_view name) {
    return Folded(schema) + L'\n' + Folded(name);
}

Field FieldOfRow(const AdoRows& row) {
    Field field;
    field.raw_name = row.Text(L"COLUMN_NAME").value_or(L"");
    field.name = WrittenName(field.raw_name);
    const auto type_name = row.Text(L"TYPE_NAME");
    if (const auto type = row.Number(L"DATA_TYPE"))
        field.ado_type = AdoTypeOfColumn(*type, row.Number(L"COLUMN_FLAGS"));
    else if (type_name)
        field.ado_type = AdoTypeOfName(*type_name);
    field.size = row.Number(L"CHARACTER_MAXIMUM_LENGTH").value_or(0);
    if (field.size == 0 && type_name) field.size = SizeOfTypeName(*type_name);
    field.precision = row.Number(L"NUMERIC_PRECISION").value_or(0);
    field.scale = row.Number(L"NUMERIC_SCALE").value_or(0);
    field.nullable = row.Boolean(L"IS_NULLABLE").value_or(true);
    return field;
}

}  // namespace

AdoSchemaSource::AdoSchemaSource(IDispatch* connection, std::size_t row_limit)
    : catalogue_(connection, row_limit) {}
AdoSchemaSource::~AdoSchemaSource() = default;

Result<std::vector<Object>> AdoSchemaSource::LoadObjects() {
    if (!catalogue_.Connection()) return Error{L"No hay conexi\u00f3n con la base de datos."};
    const auto state = catalogue_.Connection().Get(L"State").Number();
    if (state && *state == kStateClosed) return Error{L"La conexi\u00f3n est\u00e1 cerrada."};
    auto read = ReadObjects(catalogue_);
    if (!read) return Error{L"No se pudo leer el esquema de la base de datos. " + catalogue_.LastError()};

    objects_ = std::move(*read);
    names_.reset();
    std::vector<Object> objects;
    objects.reserve(objects_.objects.size());
    for (const CatalogueObject& object : objects_.objects) {
        std::wstring written = object.WrittenName();
        std::wstring raw = written == object.name ? std::wstring() : std::wstring(object.name);
        objects.push_back({std::move(written), std::move(raw), object.kind});
    }
    return objects;
}

const CatalogueObject* AdoSchemaSource::Find(std::wstring_view written_name) const {
    const std::vector<CatalogueObject>& objects = objects_.objects;
    const auto key_of = [&](std::uint32_t number) { return IdentifierKey(objects[number].WrittenName()); };
    if (!names_) {
        names_.emplace(objects.size());
        for (std::uint32_t i = 0; i < objects.size(); ++i) {
            const std::wstring key = key_of(i);
            names_->Add(NameHash(key), i, [&](std::uint32_t other) { return key_of(other) == key; });
        }
    }
    const std::wstring key = IdentifierKey(written_name);
    const auto found = names_->Find(NameHash(key), [&](std::uint32_t other) { return key_of(other) == key; });
    return found ? &objects[*found] : nullptr;
}

CatalogueObject AdoSchemaSource::EntryOf(const Object& object) const {
    if (const CatalogueObject* known = Find(object.name)) return *known;
    CatalogueObject entry;
    entry.name = object.RawName();
    entry.kind = object.kind;
    return entry;
}

std::vector<AdoSchemaSource::Column> AdoSchemaSource::ReadColumns(const CatalogueObject& entry) {
    std::vector<Column> columns;
    const auto reader = [&](const AdoRows& row) {
        Column column{FieldOfRow(row), row.Number(L"ORDINAL_POSITION").value_or(0)};
        if (IsRowOf(row, entry) && !column.field.raw_name.empty()) columns.push_back(std::move(column));
    };
    if (!all_columns_) {
        catalogue_.ReadRowset(Rowset::Columns, RestrictionsOf(entry), reader);
        if (!columns.empty()) return columns;
        // Criteria were refused, or misunderstood: read everything once and choose here.
        ColumnsByTable all;
        catalogue_.ReadRowset(Rowset::Columns, {}, [&](const AdoRows& row) {
            Column column{FieldOfRow(row), row.Number(L"ORDINAL_POSITION").value_or(0)};
            const std::wstring schema = entry.schema.empty() ? L"" : row.Text(L"TABLE_SCHEMA").value_or(L"");
            all[TableKey(schema, row.Text(L"TABLE_NAME").value_or(L""))].push_back(std::move(column));
        });
        if (!all.empty()) all_columns_ = std::move(all);
    }
    if (all_columns_) {
        const auto found = all_columns_->find(TableKey(entry.schema, entry.name));
        if (found != all_columns_->end()) return found->second;
    }
    catalogue_.ReadQuery(
        {L"SELECT TABLE_SCHEMA, TABLE_NAME, COLUMN_NAME, ORDINAL_POSITION, IS_NULLABLE, DATA_TYPE AS "
         L"TYPE_NAME,"
         L" CHARACTER_MAXIMUM_LENGTH, NUMERIC_PRECISION, NUMERIC_SCALE FROM information_schema.columns"
         L" WHERE TABLE_NAME = '{0}' ORDER BY ORDINAL_POSITION",
         L"SELECT name AS COLUMN_NAME, cid + 1 AS ORDINAL_POSITION, type AS TYPE_NAME,"
         L" CASE WHEN \"notnull\" <> 0 THEN 'NO' ELSE 'YES' END AS IS_NULLABLE FROM "
         L"pragma_table_info('{0}')"},
        entry.name, reader);
    return columns;
}

std::vector<AdoSchemaSource::Column> AdoSchemaSource::ReadColumnsOfSelect(const CatalogueObject& entry,
                                                                          const std::wstring& written_name) {
    std::wstring quoted = L"\"" + std::wstring(entry.name) + L"\"";
    if (!entry.schema.empty()) quoted = L"\"" + std::wstring(entry.schema) + L"\"." + quoted;
    for (const std::wstring& name : {written_name, quoted}) {
        const AdoRows rows(catalogue_.Execute(L"SELECT * FROM " + name + L" WHERE 1 = 0"));
        if (!rows.IsOpen()) continue;
        std::vector<Column> columns;
        const auto walked = win32::WalkCollection(rows.Fields(), [&](const win32::UniqueVariant& element) {
            const Dispatch item(element.Object());
            Column column;
            column.field.raw_name = item.Get(L"Name").Text().value_or(L"");
            column.field.name = WrittenName(column.field.raw_name);
            column.field.ado_type = item.Get(L"Type").Number().value_or(0);
            column.field.size = item.Get(L"DefinedSize").Number().value_or(0);
            column.field.precision = item.Get(L"Precision").Number().value_or(0);
            column.field.scale = item.Get(L"NumericScale").Number().value_or(0);
            const auto attributes = item.Get(L"Attributes").Number();
            column.field.nullable = !attributes || (*attributes & (kFieldIsNullable | kFieldMayBeNull)) != 0;
            if (!column.field.raw_name.empty()) columns.push_back(std::move(column));
            return true;
        });
        if (walked && !columns.empty()) return columns;
    }
    return {};
}

std::vector<std::wstring> AdoSchemaSource::ReadPrimaryKey(const CatalogueObject& entry) {
    std::vector<Column> columns;
    const auto reader = [&](const AdoRows& row) {
        Column column;
        column.field.raw_name = row.Text(L"COLUMN_NAME").value_or(L"");
        column.ordinal = row.Number(L"ORDINAL").value_or(0);
        if (IsRowOf(row, entry) && !column.field.raw_name.empty()) columns.push_back(std::move(column));
    };
    bool known = false;
    if (!all_keys_) {
        known = catalogue_.ReadRowset(Rowset::PrimaryKeys, RestrictionsOf(entry), reader);
        if (!known) {
            ColumnsByTable all;
            const auto keep = [&](const AdoRows& row) {
                Column column;
                column.field.raw_name = row.Text(L"COLUMN_NAME").value_or(L"");
                column.ordinal = row.Number(L"ORDINAL").value_or(0);
                all[TableKey({}, row.Text(L"TABLE_NAME").value_or(L""))].push_back(std::move(column));
            };
            if (catalogue_.ReadRowset(Rowset::PrimaryKeys, {}, keep)) all_keys_ = std::move(all);
        }
    }
    if (all_keys_) {
        known = true;
        if (const auto found = all_keys_->find(TableKey({}, entry.name)); found != all_keys_->end())
            columns = found->second;
    }
    if (!known) {
        catalogue_.ReadQuery(
            {L"SELECT k.TABLE_SCHEMA, k.TABLE_NAME, k.COLUMN_NAME, k.ORDINAL_POSITION AS ORDINAL"
             L" FROM information_schema.table_constraints c INNER JOIN information_schema.key_column_usage k"
             L" ON k.CONSTRAINT_NAME = c.CONSTRAINT_NAME AND k.TABLE_SCHEMA = c.TABLE_SCHEMA"
             L" AND k.TABLE_NAME = c.TABLE_NAME"
             L" WHERE c.CONSTRAINT_TYPE = 'PRIMARY KEY' AND c.TABLE_NAME = '{0}'",
             L"SELECT name AS COLUMN_NAME, pk AS ORDINAL FROM pragma_table_info('{0}') WHERE pk > 0"},
            entry.name, reader);
    }
    std::stable_sort(columns.begin(), columns.end(),
                     [](const Column& a, const Column& b) { return a.ordinal < b.ordinal; });
    std::vector<std::wstring> names;
    for (const Column& column : columns) names.push_back(column.field.raw_name);
    return names;
}

Result<std::vector<Field>> AdoSchemaSource::LoadFields(const Object& object) {
    const CatalogueObject entry = EntryOf(object);
    std::vector<Column> columns = ReadColumns(entry);
    if (columns.empty()) columns = ReadColumnsOfSelect(entry, object.name);
    if (columns.empty()) return Error{L"No se pudieron leer los campos de " + object.name + L"."};
    std::stable_sort(columns.begin(), columns.end(),
                     [](const Column& a, const Column& b) { return a.ordinal < b.ordinal; });
    const std::vector<std::wstring> key =
        object.kind == ObjectKind::Table ? ReadPrimaryKey(entry) : std::vector<std::wstring>();
    std::vector<Field> fields;
    std::unordered_set<std::wstring> seen;
    for (Column& column : columns) {
        // A cursor that did not move gave the same column many times.
        if (!seen.insert(column.field.raw_name).second) continue;
        column.field.primary_key = std::any_of(key.begin(), key.end(), [&](const std::wstring& name) {
            return SameName(name, column.field.raw_name);
        });
        fields.push_back(std::move(column.field));
    }
    return fields;
}

}  // namespace tessel::schema
