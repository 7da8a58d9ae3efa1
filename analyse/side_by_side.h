// The short way of the faithfulness check: the composed text read side by side with the statement's own tree,
// without parsing it.
//
// Composition writes the parts of a statement as they stood in its text, so most of the composed text is made
// of slices of the original: whole expressions with nothing but commas, parentheses and keywords between
// them. Such a slice is not parsed again, because what it says is known:
//
//   The grammar reads an expression from its first token on, and one token behind it tells that it has ended.
//   So the same characters, begun where an expression begins and followed by a token that continues none
//   (a comma, ")", ";", AS, DESC or the word of a clause), are read as the same tree. And where both
//   statements have the same tables, and no name of either means another column than in the other one, the
//   same tree has the same form (canonical.h).
//
// What stands between the slices is read here, word for word: every keyword, every table and join, the kind
// of each, every alias, the sign of a comparison, the order of sort keys. Of the differences that do not
// count (normal_form.h) only those are known that composition makes of nearly every statement: the title of a
// field, parentheses, a condition equal to True, conditions and keys in another order, grouping by a
// condition of WHERE, inner joins in another order. Anything else is no reason to refuse: the caller parses
// the text and compares normal forms. Whatever is taken here, that comparison takes too
// (SideBySide.TakesNothingThatTheComparisonRefuses, and the fuzz target "analyse").
#pragma once

#include <string_view>

#include "analyse/canonical.h"

namespace tessel::analyse {

/// True when the text is plainly the statement. False says nothing.
[[nodiscard]] bool ReadsAlike(const StatementScope& scope, const Canonical& canonical,
                              std::wstring_view composed);

}  // namespace tessel::analyse
