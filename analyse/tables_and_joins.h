// FROM into the diagram: its tables, and its joins as relations in an order from which composition writes an
// equivalent chain.
//
// Composition writes one chain of joins, each step adding one table to what stands so far, and never
// exchanges LEFT and RIGHT. So a group nested on the right comes first and the join to it is stored mirrored,
// and the joins of a cluster of inner joins are listed as they become reachable. An inner join on more than
// one condition keeps one equality as its relation; the others become criteria, if no outer join makes that a
// different thing.
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

/// Keeps the tables that the statement still names, adds the others, and puts them into the statement's
/// order. The answer holds each table's name as the diagram shows it, by its index in Statement::Tables.
std::vector<std::wstring> PlaceTables(const StatementScope& scope, model::Diagram& diagram);

/// Which relations show the joins. Settles in `scope` the tables of unqualified sides of ON conditions.
[[nodiscard]] Outcome PlanJoins(StatementScope& scope, const Canonical& canonical,
                                const std::vector<std::wstring>& table_names, JoinPlan& plan);

}  // namespace tessel::analyse
