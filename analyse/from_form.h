// FROM in normal form: one text for its groups of tables (table_groups.h), and the conditions of the inner
// joins whose rows no outer join adds, which could as well stand in WHERE.
#pragma once

#include "analyse/canonical.h"

namespace tessel::analyse {

struct FromForm {
    Form groups = kNoForm;
    FormSet conditions;
};

[[nodiscard]] FromForm NormaliseFrom(const StatementScope& scope, const Canonical& canonical);

}  // namespace tessel::analyse
