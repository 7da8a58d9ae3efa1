// FROM as groups of tables: what its joins mean, whatever order and nesting they were written in.
//
// A group is the inner join of its tables under its conditions; to its rows are added those of other groups,
// each under conditions of its own, as LEFT JOIN does. This holds every tree of inner and outer joins:
//
// - RIGHT is LEFT with its operands exchanged.
// - Joining rows to a few tables of an inner join, or to all of them, is the same, because the others neither
//   add nor lose rows by it; so a condition of inner joins on the side whose rows are kept belongs to the
//   group, and (a INNER JOIN b) LEFT JOIN c is (a LEFT JOIN c) INNER JOIN b where the outer join names only
//   a.
// - Rows added under a condition that fails without rows added before are added to those:
//   (a LEFT JOIN b) LEFT JOIN c is a LEFT JOIN (b LEFT JOIN c) where the second condition compares b with c.
//   Where it does not fail, or names other tables too, it stays where it was written.
//
// The order of what is added to one group does not matter: a condition that needs rows added by another one
// names them.
#pragma once

#include <vector>

#include "analyse/canonical.h"
#include "analyse/table_set.h"

namespace tessel::analyse {

/// A condition that ON demands, one of several that must all hold.
struct JoinCondition {
    sql::NodeId node = sql::kNoNode;
    int join = -1;               ///< its join, an index in Statement::From
    TableSet tables;             ///< the tables whose fields it names
    TableSet fails_for;          ///< those without whose rows it cannot hold: their fields are compared
    bool has_bare_name = false;  ///< it holds a name or a select of which nothing tells the tables
};

struct AddedRows;

struct TableGroup {
    std::vector<int> tables;
    std::vector<JoinCondition> conditions;
    std::vector<AddedRows> added;

    bool Has(int table) const;
};

struct AddedRows {
    TableGroup group;
    std::vector<JoinCondition> on;
    int join = -1;    ///< an index in Statement::From
    TableSet tables;  ///< all that it adds
};

/// The group of the tree with that root, an index in Statement::From.
[[nodiscard]] TableGroup GroupOf(const StatementScope& scope, const Canonical& canonical, int root);

/// The tables below a node of FROM.
[[nodiscard]] TableSet TablesBelow(const sql::FromNode& node);

}  // namespace tessel::analyse
