// Printer: a statement back to text from its tree, in one canonical layout: words of the language in
// capitals, one blank where a blank belongs, AS before every alias, each clause of the outermost select on a
// line of its own. Names, literals and macros stay as written; comments are lost, parentheses are kept.
//
// Law: parsing what was printed gives the same tree.
#pragma once

#include <string>

#include "sqlparser/statement.h"

namespace tessel::sql {

/// The whole statement, without a closing ";".
[[nodiscard]] std::wstring Print(const Statement& statement);

/// One expression of the statement.
[[nodiscard]] std::wstring PrintExpression(const Statement& statement, NodeId node);

}  // namespace tessel::sql
