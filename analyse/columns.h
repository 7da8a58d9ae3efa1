// Select list, GROUP BY and ORDER BY into the grid, and the look-up of columns by what they show.
//
// Composition groups by every column that is neither aggregated nor "Expresión", and sorts in the order of
// the columns. So in a totals query every column that GROUP BY does not name is marked "Expresión", and a
// sort key whose column stands before that of the key before it gets a hidden column of its own at the end.
#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "analyse/canonical.h"
#include "analyse/refusal.h"
#include "model/design.h"
#include "model/grid_editing.h"
#include "model/records.h"

namespace tessel::analyse {

inline constexpr int kNoColumn = -1;

class ColumnBuilder {
public:
    /// Nothing is owned. `table_names` are the diagram's names by index in Statement::Tables.
    ColumnBuilder(const StatementScope& scope, const Canonical& canonical,
                  const std::vector<std::wstring>& table_names, model::Design& design);

    [[nodiscard]] Outcome AddSelectList();
    [[nodiscard]] Outcome AddGrouping();
    [[nodiscard]] Outcome AddOrdering();
    /// A query that groups without any aggregate: a hidden count makes composition write GROUP BY.
    [[nodiscard]] Outcome KeepGroupBy();

    /// What a column shows: an expression, its truth, or all fields of a table.
    struct Shown {
        sql::NodeId node = sql::kNoNode;
        bool is_condition = false;
        int table = kNoTable;
    };

    /// The first column that shows the same, or kNoColumn.
    int FindColumn(Shown shown) const;
    /// Adds a hidden column from the record; the position is where to point when it cannot be done.
    [[nodiscard]] Outcome SetColumn(model::ColInfo record, Shown shown, TextRange place, int& column);

    /// Keeps composition from seeing the aggregates. A filter in a totals query without GROUP BY is composed
    /// into WHERE and GROUP BY, which would turn the one row of an empty result into none; without visible
    /// aggregates neither the grid nor composition takes the query for one of totals. Call it first.
    void HideAggregates();

    /// The statement computes totals: it has GROUP BY, or aggregates outside WHERE that composition sees.
    bool IsTotals() const { return is_totals_; }
    bool HasGroupBy() const { return !statement_.GroupItems.empty(); }
    bool IsGrouped(int column) const;

    /// The text of a node for a cell, table aliases replaced.
    std::wstring CellText(sql::NodeId node) const { return CellText(statement_.At(node).Range()); }
    std::wstring CellText(TextRange range) const;
    /// The text, written shorter if it would not fit a cell.
    static std::wstring FittedText(std::wstring text);
    /// The text of a node for "Campo:", not recognised as an aggregate when it is none.
    std::wstring FieldText(sql::NodeId node) const;
    [[nodiscard]] Outcome Write(model::GridRow row, int column, std::wstring_view text, TextRange place);
    const std::wstring& Cell(model::GridRow row, int column) const { return design_.grid.Cell(row, column); }

private:
    struct Column {
        Shown shown;
        int column = kNoColumn;
        std::uint32_t text_hash = 0;
    };
    /// A text for "Campo:".
    struct HashedText {
        explicit HashedText(std::wstring contents);
        std::wstring text;
        std::uint32_t hash;  ///< the same for texts that differ in letter case or in blanks around
    };

    bool AreSame(const Shown& one, const Shown& other) const;
    Form FormOf(const Shown& shown) const;
    bool HasText(const HashedText& text) const;
    /// Puts the text in as many parentheses as tell it from those of the other columns, for the grid holds no
    /// text twice.
    void MakeFree(HashedText& text) const;
    bool ComputesTotals() const;
    bool MayBeOrdinal(sql::NodeId node) const;
    bool StarKeepsItsOrder() const;
    Outcome AddSelectItem(const sql::Item& item);
    Outcome AddSelectColumn(std::wstring field, std::wstring_view alias, Shown shown, TextRange place);
    int AddColumn(const HashedText& text, std::wstring_view title, model::FieldVisibility visibility,
                  Shown shown);
    Outcome AddSortKey(const sql::Item& item, int& last_column);

    const StatementScope& scope_;
    const Canonical& canonical_;
    const sql::Statement& statement_;
    model::Design& design_;
    const std::vector<std::wstring>& table_names_;
    std::vector<std::wstring> alias_replacements_;  ///< table names for the tables that have an alias
    bool has_aliases_ = false;
    std::vector<Column> columns_;
    std::vector<sql::NodeId> sorted_;  ///< the sort keys so far
    std::vector<int> select_columns_;  ///< of the select list
    bool is_totals_ = false;
    bool hides_aggregates_ = false;
};

}  // namespace tessel::analyse
