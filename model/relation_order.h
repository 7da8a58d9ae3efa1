// The order of a group's relations, and which of their tables stands left, so that the chain of joins that
// composition writes gives the rows that the diagram shows.
//
// Composition adds one table with each relation, in their order, and copies the relation's kind. LEFT keeps
// the rows joined so far, RIGHT those of the table that is added. Two things follow. An outer join that is
// reached from its right table must be turned round, its sides and its kind exchanged. And where there are
// outer joins the order matters: the diagram's arrows say which rows are kept, and an inner join, or a second
// outer join, on a table whose rows may be missing by then takes kept rows away again. Such an order is not
// faithful.
//
// Groups that were analysed from a statement have the statement's order and keep it, faithful in this sense
// or not: it is what the user wrote. Relations with further comparisons after their equality stay where they
// are, since those may speak of any table before them.
#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "model/diagram.h"

namespace tessel::model {

using Relations = std::vector<DiagramRelation>;

/// True when a path of relations leads from one table to the other.
[[nodiscard]] bool AreConnected(const Relations& relations, std::wstring_view a, std::wstring_view b);

/// True when every relation but the first adds one table to an earlier one, reached from its left table if it
/// is an outer join, and no step takes away rows that an outer join keeps.
[[nodiscard]] bool IsFaithfulOrder(const Relations& group);

/// The relations with one more between two tables that are not connected yet. Nothing when no order of them
/// gives the rows that the diagram would show.
[[nodiscard]] std::optional<Relations> WithRelation(const Relations& relations, const DiagramRelation& added);

/// The relations with another kind for one of them. Nothing when no order gives the rows.
[[nodiscard]] std::optional<Relations> WithKind(const Relations& relations, int key, JoinKind kind);

}  // namespace tessel::model
