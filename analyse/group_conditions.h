// Conditions in HAVING that hold for a whole group or for none of its rows, and so may as well stand in
// WHERE.
//
// A condition that is computed from the keys of GROUP BY and from constants alone has the same value for
// every row of a group, because the rows of a group agree in all keys. Where it holds, WHERE keeps all rows
// of the group, and the group with its aggregates stays what it was; where it does not hold, WHERE keeps no
// row, and the group is gone just as HAVING would have it. This needs GROUP BY (without it an empty result
// still has its one row), a condition without aggregates and nested selects, and functions that give the same
// answer for the same arguments.
#pragma once

#include "analyse/canonical.h"

namespace tessel::analyse {

class GroupConditions {
public:
    /// Nothing is owned.
    GroupConditions(const StatementScope& scope, const Canonical& canonical);

    /// True when the condition, one that HAVING demands, may stand in WHERE as well.
    [[nodiscard]] bool MayStandInWhere(sql::NodeId condition) const;

private:
    bool IsKey(sql::NodeId id) const;
    bool DependsOnKeys(sql::NodeId id) const;
    bool IsCallOfKeys(sql::NodeId id) const;
    bool NamesAnAlias(sql::NodeId id) const;

    const StatementScope& scope_;
    const Canonical& canonical_;
    const sql::Statement& statement_;
    FormSet keys_;  ///< canonical forms of GROUP BY, when they are many
};

}  // namespace tessel::analyse
