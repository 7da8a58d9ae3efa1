// The schema browser's tree as data: a root with the schema's caption, the groups "Tablas" and "Vistas", the
// objects, and under each object its fields and its relations, which are asked of the schema when the object
// is opened. Knows the filter and the texts; knows no window.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "controls/browser/field_types.h"
#include "schema/schema.h"

namespace tessel::controls {

/// One item as the outside sees it. Table and View carry the kind codes of the diagram and the dialogs.
struct BrowserItem {
    enum class Kind : int {
        Root = 0,
        Table = 1,
        View = 2,
        Field = 3,
        Group = 4,
        Relations = 5,
        Relation = 6
    };

    Kind kind = Kind::Root;
    std::wstring
        name;  ///< as statements write it; a relation's other object; the caption for root and groups
    std::wstring table;  ///< the object that a field or a relation belongs to, else empty
    int relation = -1;   ///< a relation's place in Schema::ForeignKeysOf(table)

    friend bool operator==(const BrowserItem&, const BrowserItem&) = default;
};

/// What is shown of a field: its name and a description of its type.
struct BrowserField {
    std::wstring name;
    std::wstring type_text;  ///< such as "Texto (40)"; empty when the type is not known
    bool primary_key = false;
    bool foreign_key = false;
    FieldSort sort = FieldSort::Other;
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

    /// The relations of an object, each as a line such as "IdCliente » Clientes.IdCliente"; the marks point
    /// at what is referred to. (Real arrows are missing in some of the users' fonts.)
    std::vector<std::wstring> RelationsOf(std::size_t object) const;
    /// Caption of the group of an object's relations, such as "Relaciones (3)".
    std::wstring RelationsCaption(std::size_t object) const;
    /// The item of an object's relation; the object's own when it has no such relation.
    BrowserItem ItemOfRelation(std::size_t object, std::size_t relation) const;

    /// The index of the object of that name, if the filter lets it pass. Letter case, blanks and brackets do
    /// not count.
    static constexpr std::size_t kNone = static_cast<std::size_t>(-1);
    std::size_t FindObject(std::wstring_view name) const;
    /// The position of a field in its object, or kNone.
    std::size_t FindField(std::size_t object, std::wstring_view name) const;

    BrowserItem ItemOfObject(std::size_t object) const;

private:
    void ApplyFilter();
    bool Passes(std::size_t object) const;

    const schema::Schema* schema_ = nullptr;
    std::wstring caption_;
    std::wstring filter_;
    std::wstring needle_;
    std::wstring search_texts_;  ///< of all objects, one behind the other, from the first search on
    std::vector<std::size_t> search_ends_;  ///< where each ends, by index of the object
    std::vector<std::size_t> tables_;
    std::vector<std::size_t> views_;
};

/// A foreign key as one of its two objects sees it, as BrowserModel::RelationsOf writes it.
std::wstring RelationText(const schema::ForeignKey& key, std::wstring_view object);

}  // namespace tessel::controls
