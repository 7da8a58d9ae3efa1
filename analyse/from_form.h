// FROM in normal form: a set of units joined by inner joins, where a unit is a table or an outer join of two
// such sets, and the conditions of those inner joins.
#pragma once

#include <set>
#include <string>

#include "analyse/canonical.h"

namespace tessel::analyse {

struct FromForm {
    std::wstring units;                 ///< one text for the whole set
    std::set<std::wstring> conditions;  ///< of inner joins, as far as no outer join stands in their way
};

[[nodiscard]] FromForm NormaliseFrom(const StatementScope& scope, const Canonical& canonical);

}  // namespace tessel::analyse
