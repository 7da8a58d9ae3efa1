// The tables of a statement by the names under which its text refers to them, and the places where it does.
//
// A design writes tables by their own names, so the text of an expression is given out with every table alias
// replaced by its table's name; references from nested selects count too, unless a nested FROM uses the same
// name for a table of its own.
#pragma once

#include <string>
#include <vector>

#include "analyse/forms.h"
#include "schema/schema.h"
#include "sqlparser/statement.h"

namespace tessel::analyse {

inline constexpr int kNoTable = -1;

class StatementScope {
public:
    /// Nothing is owned; `schema` may be nullptr. Keys of names are forms of `forms`.
    StatementScope(const sql::Statement& statement, const schema::Schema* schema, Forms& forms);

    const sql::Statement& Source() const { return statement_; }
    Forms& Numbers() const { return forms_; }

    /// The table that the text calls by that key (alias, or name when there is no alias), or kNoTable. Tables
    /// are told by their index in Statement::Tables.
    int TableCalled(Form key) const { return key < tables_called_.size() ? tables_called_[key] : kNoTable; }
    /// Key of the table's own name.
    Form TableKey(int table) const { return tables_[static_cast<std::size_t>(table)].key; }
    /// True when FROM holds the same table once more.
    bool IsTableRepeated(int table) const { return tables_[static_cast<std::size_t>(table)].repeated; }
    int TableCount() const { return static_cast<int>(tables_.size()); }

    /// The table of an unqualified field: the only table, or the only one of which the schema says so; else
    /// kNoTable.
    int TableOfField(Form field_key) const;
    /// True when the schema knows the table, and then whether it has the field.
    bool IsTableKnown(int table) const;
    bool HasField(int table, Form field_key) const { return FindField(table, field_key) != nullptr; }
    /// True when the schema gives the field to more than one table of FROM.
    bool IsAmbiguousField(Form field_key) const;
    bool IsBooleanField(int table, Form field_key) const;
    /// False when the schema gives the field a type that is no number and no truth value.
    bool MayBeNumberField(int table, Form field_key) const;

    /// Fixes the table of an unqualified Name for which TableOfField has no answer.
    void Settle(sql::NodeId name, int table);
    /// Changes whenever TableOfName may answer something else than before.
    int Settled() const { return settled_; }
    /// The table of a Name of this statement, qualified or not, or kNoTable.
    int TableOfName(sql::NodeId name) const;

    /// The identifiers of a Name or of the qualifier of a Star.
    struct NameParts {
        std::size_t count = 0;
        Form first = kNoForm;
        Form last = kNoForm;
    };
    NameParts PartsOf(sql::NodeId name) const;
    /// The key of a NamePart of this statement.
    Form KeyOf(sql::NodeId part) const;
    /// The key of a select item's alias; that of an empty text when it has none.
    Form AliasKey(std::size_t item) const;

    /// The text of the range with every reference to table i replaced by `names[i]`; an empty name leaves the
    /// reference as it was written.
    std::wstring TextWithTables(TextRange range, const std::vector<std::wstring>& names) const;

    /// Keys of all unqualified names of the statement, sorted and without repetitions, nested selects not
    /// included.
    std::vector<Form> UnqualifiedNames() const;

private:
    using Keys = std::vector<Form>;
    struct Table {
        Form key = kNoForm;
        bool repeated = false;
        /// What the schema says of it, asked for when needed.
        mutable const std::vector<schema::Field>* fields = nullptr;
    };
    struct Reference {
        TextRange range;
        int table = kNoTable;
    };

    void MarkRepeatedTables();
    Form CallingKey(const sql::Statement& statement, const sql::TableRef& table) const;
    int FindTableOfName(sql::NodeId name) const;
    const schema::Field* FindField(int table, Form field_key) const;
    const std::vector<Reference>& References() const;
    void CollectReferences(const sql::Statement& statement, std::vector<const Keys*>& hidden) const;
    void CollectNested(const sql::Statement& statement, std::vector<const Keys*>& hidden) const;
    void CollectOperand(const sql::Statement& statement, std::vector<const Keys*>& hidden) const;

    const sql::Statement& statement_;
    const schema::Schema* schema_;
    Forms& forms_;
    std::vector<Table> tables_;
    std::vector<int> tables_called_;  ///< by calling key
    /// What TableOfName, KeyOf and AliasKey answer, kUnasked and kNoForm before they were asked.
    mutable std::vector<int> tables_of_names_;
    mutable std::vector<Form> keys_;
    mutable std::vector<Form> alias_keys_;
    /// Collected when they are first asked for; many statements name no alias whose name would matter.
    mutable std::vector<Reference> references_;
    mutable bool has_references_ = false;
    int settled_ = 0;
};

}  // namespace tessel::analyse
