// The last step of every analysis: does the design that was built say what the statement says? It is
// composed, the text is parsed, and both statements are compared in their normal form (normal_form.h). Only a
// text that is the very same is not parsed, and one that is plainly the statement when it is read beside its
// tree (side_by_side.h).
#pragma once

#include "analyse/normal_form.h"
#include "analyse/refusal.h"
#include "model/design.h"
#include "sqlparser/sql_parser.h"

namespace tessel::analyse {

/// The statement of a design, composed and parsed.
struct Composed {
    std::wstring text;
    sql::SqlParser parser;
};

/// Refuses a design whose statement differs, pointing at the clause of the original in which it does.
/// `composed` is where that is found out.
[[nodiscard]] Outcome CheckFaithful(const StatementScope& scope, const Canonical& canonical,
                                    const model::Design& design, LeftOut left_out, Composed& composed);

}  // namespace tessel::analyse
