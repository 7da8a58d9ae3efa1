// FROM into the diagram: its tables, and its joins as relations in an order from which composition writes an
// equivalent chain.
//
// Composition writes chains of joins, each step adding one table to what stands so far, and never exchanges
// LEFT and RIGHT. So what the joins mean (table_groups.h) is put into steps again, in the order of the text
// as far as what they need is there. Rows of more than one table that an outer join adds come first, and the
// join to them is stored mirrored: of those a chain can hold one. A step needs an equality between fields of
// two tables. What else inner joins demand becomes criteria, or, where an outer join adds their rows, further
// comparisons after the relation's equality, where those of outer joins stand, too. Tables that no equality
// of inner joins reaches are chains of their own.
#pragma once

#include <string>
#include <vector>

#include "analyse/canonical.h"
#include "analyse/refusal.h"
#include "analyse/statement_scope.h"
#include "model/design.h"
#include "model/records.h"

namespace tessel::analyse {

struct JoinPlan {
    std::vector<model::RelInfo> relations;
    std::vector<sql::NodeId> criteria;  ///< conditions of inner joins that go to the grid
};

/// Refuses tables that a design cannot hold.
[[nodiscard]] Outcome CheckTables(const StatementScope& scope);

/// Fills an empty diagram with the statement's tables in their order, those that `before` shows as it shows
/// them. The answer holds each table's name as the diagram shows it, by its index in Statement::Tables.
std::vector<std::wstring> PlaceTables(const StatementScope& scope, const model::Diagram& before,
                                      model::Diagram& diagram);

/// Which relations show the joins. Settles in `scope` the tables of unqualified sides of ON conditions.
[[nodiscard]] Outcome PlanJoins(StatementScope& scope, const Canonical& canonical,
                                const std::vector<std::wstring>& table_names, JoinPlan& plan);

}  // namespace tessel::analyse
