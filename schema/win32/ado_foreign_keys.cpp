// The foreign keys of a connection: rows of one column pair each, gathered into keys.
#include <algorithm>

#include "common/identifiers.h"
#include "common/text.h"
#include "schema/win32/ado_schema_source.h"

namespace tessel::schema {

/// One pair of columns of a foreign key.
struct AdoSchemaSource::KeyRow {
    std::wstring name;
    std::wstring schema;
    std::wstring table;
    std::wstring column;
    std::wstring referenced_schema;
    std::wstring referenced_table;
    std::wstring referenced_column;
    long ordinal = 0;

    bool IsSameKey(const KeyRow& other) const {
        return name == other.name && schema == other.schema && table == other.table &&
               referenced_schema == other.referenced_schema && referenced_table == other.referenced_table;
    }
    bool operator==(const KeyRow& other) const = default;
};

namespace {

/// Asking table by table costs a round trip each; a schema of more tables goes without relations then. A
/// provider that serves the whole rowset may ask table by table itself, so that of such a schema the
/// catalogue is asked first.
constexpr std::size_t kMostTablesAskedSingly = 1000;

constexpr const wchar_t* kColumns[] = {L"FK_NAME",        L"FK_TABLE_SCHEMA", L"FK_TABLE_NAME",
                                       L"FK_COLUMN_NAME", L"PK_TABLE_SCHEMA", L"PK_TABLE_NAME",
                                       L"PK_COLUMN_NAME", L"ORDINAL"};
enum KeyColumn : std::size_t {
    kName,
    kSchema,
    kTable,
    kField,
    kReferencedSchema,
    kReferencedTable,
    kReferencedField,
    kOrdinal
};

std::optional<long> NumberOf(std::wstring_view text) {
    return win32::CallResult(win32::UniqueVariant(text)).Number();
}

}  // namespace

std::vector<AdoSchemaSource::KeyRow> AdoSchemaSource::ReadForeignKeyRows() {
    std::vector<KeyRow> rows;
    TextRows read;
    const auto add_rows = [&] {
        for (std::size_t i = 0; i < read.RowCount(); ++i) {
            const auto text = [&](KeyColumn column) { return std::wstring(read.At(i, column)); };
            KeyRow key{text(kName),           text(kSchema),           text(kTable),
                       text(kField),          text(kReferencedSchema), text(kReferencedTable),
                       text(kReferencedField)};
            key.ordinal = NumberOf(read.At(i, kOrdinal)).value_or(1);
            // A cursor that does not move gives the same row again.
            const bool is_new = rows.empty() || !(rows.back() == key);
            if (is_new && !key.table.empty() && !key.column.empty() && !key.referenced_table.empty())
                rows.push_back(std::move(key));
        }
    };
    const bool is_large = objects_.objects.size() > kMostTablesAskedSingly;
    if (!is_large && catalogue_.ReadRowset(Rowset::ForeignKeys, {}, kColumns, &read)) {
        add_rows();
        return rows;
    }
    add_rows();
    catalogue_.ReadQuery(
        {L"SELECT CONSTRAINT_NAME AS FK_NAME, TABLE_NAME AS FK_TABLE_NAME, COLUMN_NAME AS FK_COLUMN_NAME,"
         L" REFERENCED_TABLE_NAME AS PK_TABLE_NAME, REFERENCED_COLUMN_NAME AS PK_COLUMN_NAME,"
         L" ORDINAL_POSITION AS ORDINAL FROM information_schema.key_column_usage"
         L" WHERE REFERENCED_TABLE_NAME IS NOT NULL AND TABLE_SCHEMA = DATABASE()"
         L" ORDER BY TABLE_NAME, CONSTRAINT_NAME, ORDINAL_POSITION",
         L"SELECT k.CONSTRAINT_NAME AS FK_NAME, k.TABLE_SCHEMA AS FK_TABLE_SCHEMA, k.TABLE_NAME AS "
         L"FK_TABLE_NAME,"
         L" k.COLUMN_NAME AS FK_COLUMN_NAME, p.TABLE_SCHEMA AS PK_TABLE_SCHEMA, p.TABLE_NAME AS "
         L"PK_TABLE_NAME,"
         L" p.COLUMN_NAME AS PK_COLUMN_NAME, k.ORDINAL_POSITION AS ORDINAL"
         L" FROM (information_schema.referential_constraints r INNER JOIN "
         L"information_schema.key_column_usage k"
         L" ON k.CONSTRAINT_NAME = r.CONSTRAINT_NAME AND k.CONSTRAINT_SCHEMA = r.CONSTRAINT_SCHEMA)"
         L" INNER JOIN information_schema.key_column_usage p"
         L" ON p.CONSTRAINT_NAME = r.UNIQUE_CONSTRAINT_NAME AND p.CONSTRAINT_SCHEMA = "
         L"r.UNIQUE_CONSTRAINT_SCHEMA"
         L" AND p.ORDINAL_POSITION = k.ORDINAL_POSITION"
         L" ORDER BY k.TABLE_SCHEMA, k.TABLE_NAME, k.CONSTRAINT_NAME, k.ORDINAL_POSITION",
         L"SELECT m.name || '_' || f.id AS FK_NAME, m.name AS FK_TABLE_NAME, f.\"from\" AS FK_COLUMN_NAME,"
         L" f.\"table\" AS PK_TABLE_NAME, f.\"to\" AS PK_COLUMN_NAME, f.seq + 1 AS ORDINAL"
         L" FROM sqlite_master m INNER JOIN pragma_foreign_key_list(m.name) f"
         L" WHERE m.type = 'table' ORDER BY m.name, f.id, f.seq"},
        kColumns, &read);
    add_rows();
    if (!rows.empty()) return rows;
    if (is_large) {
        catalogue_.ReadRowset(Rowset::ForeignKeys, {}, kColumns, &read);
        add_rows();
        return rows;
    }
    for (const CatalogueObject& object : objects_.objects) {
        if (object.kind != ObjectKind::Table) continue;
        // A provider that refuses one table refuses all.
        const Restrictions of_table = {{},
                                       {},
                                       {},
                                       std::wstring(object.catalogue),
                                       std::wstring(object.schema),
                                       std::wstring(object.name)};
        const bool answered = catalogue_.ReadRowset(Rowset::ForeignKeys, of_table, kColumns, &read);
        add_rows();
        if (!answered) break;
    }
    return rows;
}

std::wstring AdoSchemaSource::NameOf(const std::wstring& schema, const std::wstring& name) const {
    const std::wstring qualified = WrittenName(schema) + L'.' + WrittenName(name);
    if (!schema.empty() && Find(qualified)) return qualified;
    return WrittenName(name);
}

void AdoSchemaSource::CompleteReferences(std::vector<ForeignKey>& keys) {
    for (ForeignKey& key : keys) {
        const auto is_empty = [](const std::wstring& field) { return field.empty(); };
        if (std::none_of(key.referenced_fields.begin(), key.referenced_fields.end(), is_empty)) continue;
        // A reference that names no column means the primary key.
        const CatalogueObject* object = Find(key.referenced_table);
        if (!object) continue;
        const std::vector<std::wstring> primary = ReadPrimaryKey(*object);
        if (primary.size() != key.fields.size()) continue;
        for (std::size_t i = 0; i < primary.size(); ++i) key.referenced_fields[i] = WrittenName(primary[i]);
    }
    std::erase_if(keys, [](const ForeignKey& key) {
        return std::any_of(key.referenced_fields.begin(), key.referenced_fields.end(),
                           [](const std::wstring& field) { return field.empty(); });
    });
}

Result<std::vector<ForeignKey>> AdoSchemaSource::LoadForeignKeys() {
    const std::vector<KeyRow> rows = ReadForeignKeyRows();
    std::vector<ForeignKey> keys;
    const KeyRow* last = nullptr;
    for (const KeyRow& row : rows) {
        // Keys without a name are told apart by their column numbers, which start again.
        if (!last || !row.IsSameKey(*last) || row.ordinal <= last->ordinal) {
            ForeignKey& key = keys.emplace_back();
            key.name = row.name;
            key.table = NameOf(row.schema, row.table);
            key.referenced_table = NameOf(row.referenced_schema, row.referenced_table);
        }
        keys.back().fields.push_back(WrittenName(row.column));
        keys.back().referenced_fields.push_back(
            row.referenced_column.empty() ? std::wstring() : WrittenName(row.referenced_column));
        last = &row;
    }
    CompleteReferences(keys);
    return keys;
}

}  // namespace tessel::schema
