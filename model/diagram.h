// dgmTables as a model: the tables on the diagram, the check marks of their fields, the relations drawn
// between them, positions and selection. Knows no window; announces its changes. The control in controls/
// shows it.
//
// Tables and relations keep the order in which they were placed, because composition follows that order.
// Names are compared without regard to case, blanks around and brackets; they are shown as the schema reports
// them, or as they were given when the schema does not know them.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "common/change_source.h"
#include "model/records.h"
#include "schema/schema.h"

namespace tessel::model {

/// Device-independent pixels (1/96 inch) of the diagram's own plane, at zoom 100 %.
struct DiagramRect {
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;
    friend bool operator==(const DiagramRect&, const DiagramRect&) = default;
};

struct DiagramField {
    std::wstring name;
    bool checked = false;
    bool primary_key = false;
    bool foreign_key = false;
    std::wstring type_text;  ///< for the tooltip, e.g. "adVarWChar(40)"
    friend bool operator==(const DiagramField&, const DiagramField&) = default;
};

struct DiagramTable {
    std::wstring name;
    schema::ObjectKind kind = schema::ObjectKind::Table;
    bool known = false;  ///< the schema has an object of this name
    std::vector<DiagramField> fields;
    bool all_checked = false;  ///< the mark of "*", all fields, which every table offers
    DiagramRect rect;
    bool placed = false;  ///< rect was set by the user or by a layout
    friend bool operator==(const DiagramTable&, const DiagramTable&) = default;
};

/// The field that a relation's RightField begins with. An analysed join on more than one comparison has the
/// further ones after it, as composition writes them: "Id AND A.Linea = B.Linea".
[[nodiscard]] std::wstring_view FieldOfRelation(std::wstring_view relation_field);

struct DiagramRelation {
    int key = 0;  ///< unique while the diagram lives
    RelInfo info;
    friend bool operator==(const DiagramRelation&, const DiagramRelation&) = default;
};

/// What became of a relation that the user wants.
enum class RelationOutcome {
    Done,
    NoTables,      ///< a table is missing, or both are the same
    AlreadyThere,  ///< the same two fields are related
    ClosesRing,    ///< the tables are connected: a composed chain would name one of them twice
    LosesRows,     ///< no chain gives the rows that the arrows show (relation_order.h)
};

struct RelationResult {
    RelationOutcome outcome = RelationOutcome::NoTables;
    int key = 0;  ///< of the relation that is there now
};

/// Kinds of element under the pointer or selected; 2 is a relation.
enum class DiagramElement : int { None = 0, Table = 1, Relation = 2 };

class Diagram : public ChangeSource {
public:
    /// The schema that gives tables their fields. Not owned; may be nullptr; must outlive the binding. Tables
    /// that are there already take their fields from it, keeping their marks.
    void Bind(const schema::Schema* schema);
    const schema::Schema* BoundSchema() const { return schema_; }

    const std::vector<DiagramTable>& Tables() const { return tables_; }
    const std::vector<DiagramRelation>& Relations() const { return relations_; }

    /// The diagram's reset: removes every relation and every field mark; the tables stay.
    void Reset();
    /// Removes everything.
    void Clear();

    /// Adds a table by name; a table that is there already is left alone. With `from_analysis` no relation is
    /// taken from the schema's foreign keys; otherwise the table is related to the tables already there by
    /// the single-column foreign keys between two different tables, with the referenced table on the left. As
    /// an inner join, unless that would take rows away that an outer join keeps; then the rows that are there
    /// stay. A key that would close a ring of relations is left out: a composed chain has no place for it.
    /// True when the table is new; false for a blank name.
    bool AddTable(std::wstring_view name, bool from_analysis);
    /// As AddTable with `from_analysis`, but a table that another diagram shows is taken as it is there,
    /// without its marks.
    bool AddTableLike(const Diagram& other, std::wstring_view name);
    /// Removes a table with its relations. False when there is none of that name.
    bool RemoveTable(std::wstring_view name);
    const DiagramTable* FindTable(std::wstring_view name) const;

    /// Adds a relation between fields of two tables of the diagram and returns its key; the same pair of
    /// fields in either direction is not added twice (the existing key is returned). 0 when a table is
    /// missing or both are the same table. Names are kept as the diagram shows them.
    int AddRelation(const RelInfo& relation);
    /// Adds a relation as the user wants it, and brings its group into an order that composes to what is
    /// shown.
    RelationResult Relate(const RelInfo& relation);
    /// Changes the kind likewise. NoTables when there is no relation of that key.
    RelationOutcome SetRelationKind(int key, JoinKind kind);
    bool RemoveRelation(int key);
    const DiagramRelation* FindRelation(int key) const;

    /// Sets a field's mark. False when the table or the field is not there.
    bool SetChecked(std::wstring_view table, std::wstring_view field, bool checked);
    /// Marks exactly these fields; the others lose their mark. One change notice for all.
    struct CheckedField {
        std::wstring_view table;
        std::wstring_view field;
    };
    void SetChecks(const std::vector<CheckedField>& checked);
    void ClearChecks();

    void SetTableRect(std::wstring_view name, const DiagramRect& rect);

    DiagramElement SelectedElement() const { return selected_; }
    const std::wstring& SelectedTable() const { return selected_table_; }
    int SelectedRelation() const { return selected_relation_; }
    void SelectTable(std::wstring_view name);
    void SelectRelation(int key);
    void SelectNothing();

    /// The whole contents, for copies and undo.
    struct Contents {
        std::vector<DiagramTable> tables;
        std::vector<DiagramRelation> relations;
        friend bool operator==(const Contents&, const Contents&) = default;
    };
    Contents Save() const { return {tables_, relations_}; }
    /// Takes the contents of another diagram; what this one held goes to that one, which tells nobody.
    void TakeContents(Diagram& other);
    /// Makes a new diagram of it, bound to that schema, in the memory that it has. Tells nobody: for a
    /// diagram at which nobody looks.
    void StartAgain(const schema::Schema* schema);
    /// Takes the contents as they are: no name is looked up, no relation dropped.
    void Restore(Contents contents);

private:
    DiagramTable* Find(std::wstring_view name);
    void ReadFields(DiagramTable& table) const;
    void AddSchemaRelations(const std::wstring& name);
    std::optional<RelInfo> AsShown(const RelInfo& relation) const;
    int KeyOfSameFields(const RelInfo& relation) const;
    void DropLostSelection();
    void WelcomeContents();

    const schema::Schema* schema_ = nullptr;
    std::vector<DiagramTable> tables_;
    std::vector<DiagramRelation> relations_;
    int next_key_ = 1;
    DiagramElement selected_ = DiagramElement::None;
    std::wstring selected_table_;
    int selected_relation_ = 0;
};

}  // namespace tessel::model
