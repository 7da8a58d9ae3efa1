// The tables of a statement by the names under which its text refers to them, and the places where it does.
//
// A design writes tables by their own names, so the text of an expression is given out with every table alias
// replaced by its table's name; references from nested selects count too, unless a nested FROM uses the same
// name for a table of its own.
#pragma once

#include <set>
#include <string>
#include <unordered_map>
#include <vector>

#include "schema/schema.h"
#include "sqlparser/statement.h"

namespace tessel::analyse {

inline constexpr int kNoTable = -1;

class StatementScope {
public:
    /// Neither argument is owned; `schema` may be nullptr.
    StatementScope(const sql::Statement& statement, const schema::Schema* schema);

    const sql::Statement& Source() const { return statement_; }

    /// The table that the text calls by that key (alias, or name when there is no alias), or kNoTable. Tables
    /// are told by their index in Statement::Tables.
    int TableCalled(const std::wstring& key) const;
    /// Key of the table's own name.
    const std::wstring& TableKey(int table) const { return table_keys_[static_cast<std::size_t>(table)]; }
    /// True when FROM holds the same table once more.
    bool IsTableRepeated(int table) const { return repeated_.contains(TableKey(table)); }
    int TableCount() const { return static_cast<int>(table_keys_.size()); }

    /// The table of an unqualified field: the only table, or the only one of which the schema says so; else
    /// kNoTable.
    int TableOfField(const std::wstring& field_key) const;
    /// True when the schema knows the table, and then whether it has the field.
    bool IsTableKnown(int table) const;
    bool HasField(int table, const std::wstring& field_key) const;
    /// True when the schema gives the field to more than one table of FROM.
    bool IsAmbiguousField(const std::wstring& field_key) const;
    bool IsBooleanField(int table, const std::wstring& field_key) const;

    /// Fixes the table of an unqualified Name for which TableOfField has no answer.
    void Settle(sql::NodeId name, int table) { tables_of_names_[name] = table; }
    /// The table of a Name of this statement, qualified or not, or kNoTable.
    int TableOfName(sql::NodeId name) const;

    /// The text of the range with every reference to table i replaced by `names[i]`; an empty name leaves the
    /// reference as it was written.
    std::wstring TextWithTables(TextRange range, const std::vector<std::wstring>& names) const;

    /// Keys of all unqualified names of the statement, nested selects not included.
    const std::set<std::wstring>& UnqualifiedNames() const { return unqualified_; }

private:
    using Keys = std::set<std::wstring>;
    struct Reference {
        TextRange range;
        int table = kNoTable;
    };

    int FindTableOfName(sql::NodeId name) const;
    void CollectReferences(const sql::Statement& statement, std::vector<const Keys*>& hidden);
    void CollectNested(const sql::Statement& statement, std::vector<const Keys*>& hidden);
    void CollectOperand(const sql::Statement& statement, std::vector<const Keys*>& hidden);

    const sql::Statement& statement_;
    const schema::Schema* schema_;
    std::vector<std::wstring> table_keys_;
    Keys repeated_;
    std::unordered_map<std::wstring, int> called_;
    /// What TableOfName answers for a node, kUnasked before it was asked.
    mutable std::vector<int> tables_of_names_;
    std::vector<Reference> references_;
    Keys unqualified_;
};

}  // namespace tessel::analyse
