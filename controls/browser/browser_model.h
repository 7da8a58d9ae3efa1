// The schema browser's tree as data: a root with the schema's caption, the groups "Tablas" and "Vistas", the
// objects, and under each object its fields, which are asked of the schema when the object is opened. Knows
// the filter and the texts; knows no window.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "schema/schema.h"

namespace tessel::controls {

/// One item as the outside sees it. Table and View carry the kind codes of the diagram and the dialogs.
struct BrowserItem {
    enum class Kind : int { Root = 0, Table = 1, View = 2, Field = 3, Group = 4 };

    Kind kind = Kind::Root;
    std::wstring name;   ///< as statements write it; the caption for root and groups
    std::wstring table;  ///< the object that a field belongs to, else empty

    friend bool operator==(const BrowserItem&, const BrowserItem&) = default;
};

/// What is shown of a field: its name and a description of its type.
struct BrowserField {
    std::wstring name;
    std::wstring type_text;  ///< such as "Texto (40)"; empty when the type is not known
    bool primary_key = false;
    bool foreign_key = false;
};

class BrowserModel {
public:
    /// Takes over a schema; nullptr empties the tree. Not owned. The filter stays.
    void Load(const schema::Schema* schema, std::wstring_view caption);

    const std::wstring& Caption() const { return caption_; }
    const std::wstring& Filter() const { return filter_; }
    bool IsFiltered() const { return !needle_.empty(); }
    /// Narrows the objects to those whose name holds the text, letter case and accents aside. True when the
    /// shown objects changed.
    bool SetFilter(std::wstring_view filter);

    /// Indices into Objects() of what passes the filter, tables and views apart, in the schema's order.
    const std::vector<std::size_t>& Tables() const { return tables_; }
    const std::vector<std::size_t>& Views() const { return views_; }
    const schema::Object& ObjectAt(std::size_t index) const { return schema_->Objects()[index]; }
    std::size_t ObjectCount() const { return schema_ ? schema_->Objects().size() : 0; }

    /// Caption of a group with the number of its shown objects, such as "Tablas (12)".
    std::wstring GroupCaption(schema::ObjectKind kind) const;

    /// The fields of an object, read from the schema on first use.
    std::vector<BrowserField> FieldsOf(std::size_t object) const;
    /// The item of an object's field; the object's own when it has no such field.
    BrowserItem ItemOfField(std::size_t object, std::size_t field) const;

    /// The index of the object of that name, if the filter lets it pass. Letter case, blanks and brackets do
    /// not count.
    static constexpr std::size_t kNone = static_cast<std::size_t>(-1);
    std::size_t FindObject(std::wstring_view name) const;
    /// The position of a field in its object, or kNone.
    std::size_t FindField(std::size_t object, std::wstring_view name) const;

    BrowserItem ItemOfObject(std::size_t object) const;

private:
    void ApplyFilter();

    const schema::Schema* schema_ = nullptr;
    std::wstring caption_;
    std::wstring filter_;
    std::wstring needle_;
    std::vector<std::wstring> search_texts_;
    std::vector<std::size_t> tables_;
    std::vector<std::size_t> views_;
};

/// A short Spanish description of a field's type: "Texto (40)", "Decimal (10,2)", "Entero largo".
std::wstring FieldTypeText(const schema::Field& field);

}  // namespace tessel::controls
