// The schema of a connection as data: tables, views, their fields, keys and relations. Portable; how it is
// filled is the business of a SchemaSource (the ADO reader in schema/win32, a JSON file in tools/, literals
// in tests).
//
// Objects come first; the fields of an object are fetched from the source when somebody asks for them, so
// that a database of thousands of tables opens at once. Names are kept twice: `name` as the designer writes
// it (in brackets where SQL needs them) and `raw_name` as the database reports it. Every look-up ignores
// letter case and brackets.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "common/result.h"
#include "schema/name_table.h"

namespace tessel::schema {

/// The kind codes of the objects that the diagram, the pick lists and the dialogs offer.
enum class ObjectKind : int { Table = 1, View = 2 };

struct Field {
    std::wstring name;      ///< as written in statements, in brackets where needed
    std::wstring raw_name;  ///< as the database reports it
    int ado_type = 0;       ///< ADO data-type value; 0 when unknown
    std::int64_t size = 0;  ///< characters or bytes of a sized type; 0 when it has none
    int precision = 0;
    int scale = 0;
    bool nullable = true;
    bool primary_key = false;
    bool foreign_key = false;
    std::wstring referenced_table;  ///< name of the table a foreign-key field points at
};

/// A foreign key: field i of `table` refers to field i of `referenced_table`. All names as written in
/// statements.
struct ForeignKey {
    std::wstring name;
    std::wstring table;
    std::vector<std::wstring> fields;
    std::wstring referenced_table;
    std::vector<std::wstring> referenced_fields;
};

struct Object {
    std::wstring name;
    std::wstring raw_name;  ///< may be empty where both are the same: most of ten thousand are
    ObjectKind kind = ObjectKind::Table;

    [[nodiscard]] const std::wstring& RawName() const { return raw_name.empty() ? name : raw_name; }
};

/// Where a schema's contents come from. Every call may reach the database; a failure is an answer, never an
/// exception, and one failing call never spoils the others.
class SchemaSource {
public:
    virtual ~SchemaSource() = default;
    /// All tables and views in the order in which they are to be shown.
    virtual Result<std::vector<Object>> LoadObjects() = 0;
    /// The fields of one of those; both of its names are given.
    virtual Result<std::vector<Field>> LoadFields(const Object& object) = 0;
    /// Every foreign key of the database; may be empty.
    virtual Result<std::vector<ForeignKey>> LoadForeignKeys() = 0;
};

class Schema {
public:
    Schema();
    /// Reads the objects at once; fields and foreign keys later. `Failed()` tells whether the objects could
    /// be read.
    explicit Schema(std::unique_ptr<SchemaSource> source);
    ~Schema();
    Schema(Schema&&) noexcept;
    Schema& operator=(Schema&&) noexcept;

    bool Failed() const { return failed_; }
    const std::vector<Object>& Objects() const { return objects_; }

    /// The object of that name, or nullptr. Ignores case, blanks around and brackets.
    const Object* Find(std::wstring_view name) const;

    /// The fields of an object in their order, read on first use and kept. Empty when unknown or unreadable.
    const std::vector<Field>& Fields(std::wstring_view object_name) const;

    /// The field of that object, or nullptr.
    const Field* FindField(std::wstring_view object_name, std::wstring_view field_name) const;

    /// All foreign keys, read on first use.
    const std::vector<ForeignKey>& ForeignKeys() const;

    /// The foreign keys that have the object at either end.
    std::vector<const ForeignKey*> ForeignKeysOf(std::wstring_view object_name) const;

private:
    void MarkKeys(const Object& object, std::vector<Field>& fields) const;

    std::unique_ptr<SchemaSource> source_;
    std::vector<Object> objects_;
    mutable std::optional<NameTable> names_;  ///< of the objects, made when one is first looked for
    mutable std::unordered_map<std::wstring, std::vector<Field>> fields_;
    mutable std::optional<std::vector<ForeignKey>> foreign_keys_;
    bool failed_ = false;
};

}  // namespace tessel::schema
