// A statement in a form that leaves out everything by which two statements may differ and still give the same
// rows, and the comparison of two such forms: the judge of whether a design shows a statement faithfully.
//
// Differences that do not count, each with a test of its name in tests/analyse/differences_test.cpp:
//
// - anywhere: white space, comments, letter case of words and names, brackets, a trailing ";", parentheses
// that
//   group nothing, a qualifier that could be left out, "!" for "." after a table, a table's alias for its
//   name;
// - select list: an alias that repeats the field's name, a title that the design adds, "*" for the tables'
// "t.*"
//   in their order; DISTINCT for DISTINCTROW;
// - FROM (table_groups.h): the order of inner joins, commas for inner joins, RIGHT for LEFT with exchanged
//   operands, an outer join before or after an inner one that it does not need, the nesting of outer joins
//   whose conditions fail without the rows that the inner one adds; ON or WHERE for the conditions of inner
//   joins;
// - conditions (canonical.h): the order of AND and of OR, exchanged sides of a comparison, NOT before a
// predicate,
//   a predicate compared with True, b and b <> False, the same condition twice;
// - GROUP BY and HAVING: the order of the keys, grouping also by a condition that WHERE demands, WHERE for a
//   condition of HAVING on the keys (group_conditions.h);
// - ORDER BY: a column's number or alias for its expression, a key once more, a constant column.
//
// Everything else counts. Among what a careless design would lose, with a test each: OR across columns and
// under AND, a third alternative, composite and other conditions of outer joins, their kind and nesting,
// filters on the rows they add, filter columns that would split groups, the one row of totals over nothing,
// expressions that stand twice, aliases, self joins, DISTINCT inside an aggregate, NOT over a group and
// before ANY and ALL, comparisons with Null, numbers taken for truth values, AND between numbers, letters of
// literals, the order of unnamed parameters, of columns, of sort keys and of "*", and whatever a design has
// no place for: UNION and its ALL, selects in FROM, TOP, LIMIT, INTO and the like.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "analyse/canonical.h"

namespace tessel::analyse {

/// Two of them can be compared when their forms have the same Forms.
struct NormalForm {
    struct SelectItem {
        Form expression = kNoForm;
        Form alias = kNoForm;    ///< key; that of an empty text when none is written
        Form implied = kNoForm;  ///< key of the name the column has without alias; kNoForm for expressions
        bool has_alias = false;
    };
    struct SortKey {
        Form expression = kNoForm;
        bool descending = false;
        friend bool operator==(const SortKey&, const SortKey&) = default;
    };

    /// The whole text of a statement that holds what a design has no place for: it is like no other.
    std::wstring beyond;
    bool distinct = false;
    std::vector<SelectItem> select;
    Form from = kNoForm;
    FormSet join_conditions;  ///< of inner joins, as far as they could stand in WHERE
    FormSet where;
    bool grouped = false;
    FormSet group;
    FormSet having;
    FormSet group_conditions;  ///< of HAVING, as far as they could stand in WHERE
    std::vector<SortKey> order;
    FormSet unqualified;  ///< keys of the unqualified names that occur, where an item without alias is
};

/// The form of the statement.
[[nodiscard]] NormalForm Normalise(const StatementScope& scope, const Canonical& canonical);

enum class Clause { Whole, Select, Distinct, From, Where, GroupBy, Having, OrderBy };

/// Clauses that the user was told are not shown, and which therefore do not count.
struct LeftOut {
    bool where = false;
    bool having = false;
};

/// The first clause in which the design's statement does not mean what the original means, if there is one.
[[nodiscard]] std::optional<Clause> FirstDifference(const NormalForm& original, const NormalForm& composed,
                                                    LeftOut left_out);

/// The select item that an ORDER BY entry stands for by its number or by its alias: its index, or -1 when the
/// entry is an expression of its own, or -2 when it could be read both ways.
[[nodiscard]] int SelectItemOfSortKey(const StatementScope& scope, const Canonical& canonical,
                                      sql::NodeId key);
inline constexpr int kOwnExpression = -1;
inline constexpr int kAmbiguous = -2;

}  // namespace tessel::analyse
