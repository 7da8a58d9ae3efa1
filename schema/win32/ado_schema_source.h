// The schema of a live connection, read through late-bound ADO: tables and views at once, the fields of an
// object and the foreign keys when somebody asks.
//
// Each question is put to OpenSchema first, then to the database's catalogue by SQL, and fields at last to an
// empty SELECT; only when no way works does it fail, and one failing question never spoils the others. A
// connection that dies in the middle of an answer gives what it gave until then. Rows are always filtered
// here as well, since providers ignore criteria or take them as patterns.
#pragma once

#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "schema/name_table.h"
#include "schema/schema.h"
#include "schema/win32/ado_catalogue.h"
#include "schema/win32/ado_objects.h"

namespace tessel::schema {

class AdoSchemaSource final : public SchemaSource {
public:
    /// Keeps a reference to the connection. `row_limit` bounds every rowset.
    explicit AdoSchemaSource(IDispatch* connection, std::size_t row_limit = AdoRows::kDefaultLimit);
    ~AdoSchemaSource() override;

    Result<std::vector<Object>> LoadObjects() override;
    Result<std::vector<Field>> LoadFields(const Object& object) override;
    Result<std::vector<ForeignKey>> LoadForeignKeys() override;

private:
    /// A column of a table's key or of any table, with its place.
    struct Column {
        Field field;
        long ordinal = 0;
    };
    using ColumnsByTable = std::unordered_map<std::wstring, std::vector<Column>>;
    struct KeyRow;

    /// The object of that name as statements write it, or nullptr.
    const CatalogueObject* Find(std::wstring_view written_name) const;
    /// What the catalogue says of an object; its names alone when it is not one of the catalogue's.
    CatalogueObject EntryOf(const Object& object) const;
    std::wstring NameOf(const std::wstring& schema, const std::wstring& name) const;

    std::vector<Column> ReadColumns(const CatalogueObject& entry);
    std::vector<Column> ReadColumnsOfSelect(const CatalogueObject& entry, const std::wstring& written_name);
    std::vector<std::wstring> ReadPrimaryKey(const CatalogueObject& entry);
    std::vector<KeyRow> ReadForeignKeyRows();
    void CompleteReferences(std::vector<ForeignKey>& keys);

    AdoCatalogue catalogue_;
    CatalogueObjects objects_;
    mutable std::optional<NameTable> names_;     ///< of the objects, made when one is first looked for
    std::optional<ColumnsByTable> all_columns_;  ///< for providers that refuse criteria
    std::optional<ColumnsByTable> all_keys_;
};

}  // namespace tessel::schema
