// A statement in a form that leaves out everything by which two statements may differ and still give the same
// rows, and the comparison of two such forms: the judge of whether a design shows a statement faithfully.
//
// What the form leaves out: the order of inner joins and of the conditions that hold together (also whether a
// condition on inner-joined tables stands in ON or in WHERE), the nesting of outer joins as far as it adds
// the same rows (table_groups.h), the names of table aliases, DISTINCT or DISTINCTROW, whether a condition on
// the keys of GROUP BY stands in HAVING or in WHERE (group_conditions.h), ordinals and aliases in ORDER BY,
// repeated sort keys and constants among them, and what canonical.h levels out inside expressions.
//
// What the comparison forgives besides is named by the functions in normal_form.cpp: output names that the
// design adds or that repeat the field's name, and grouping by a condition that WHERE demands.
#pragma once

#include <optional>
#include <set>
#include <string>
#include <vector>

#include "analyse/canonical.h"

namespace tessel::analyse {

struct NormalForm {
    struct SelectItem {
        std::wstring expression;
        std::wstring alias;    ///< key; empty when none is written
        std::wstring implied;  ///< key of the name the column has without alias; empty for expressions
    };
    struct SortKey {
        std::wstring expression;
        bool descending = false;
        friend bool operator==(const SortKey&, const SortKey&) = default;
    };

    bool distinct = false;
    std::vector<SelectItem> select;
    std::wstring from;
    std::set<std::wstring> join_conditions;  ///< of inner joins, as far as they could stand in WHERE
    std::set<std::wstring> where;
    bool grouped = false;
    std::set<std::wstring> group;
    std::set<std::wstring> having;
    std::set<std::wstring> group_conditions;  ///< of HAVING, as far as they could stand in WHERE
    std::vector<SortKey> order;
    std::set<std::wstring> unqualified;  ///< keys of the unqualified names that occur
};

/// The form of the statement, which must hold nothing that a design has no place for.
[[nodiscard]] NormalForm Normalise(const StatementScope& scope, const Canonical& canonical);

enum class Clause { Select, Distinct, From, Where, GroupBy, Having, OrderBy };

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
