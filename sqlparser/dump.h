// A statement as an s-expression, so that tests and traces read well. Names and literals appear as written,
// words of the language by what they mean: two statements with the same dump mean the same.
//
//     SELECT a FROM t WHERE x=1 AND y  ->  (select (columns a) (from t) (where (and (= x 1) y)))
#pragma once

#include <string>

#include "sqlparser/statement.h"

namespace tessel::sql {

[[nodiscard]] std::wstring DumpExpression(const Statement& statement, NodeId node);
[[nodiscard]] std::wstring DumpFrom(const Statement& statement, int from);
[[nodiscard]] std::wstring Dump(const Statement& statement);

/// "Union With Limit": the kinds in `beyond`, in the order of the text.
[[nodiscard]] std::wstring DumpBeyond(const Statement& statement);

}  // namespace tessel::sql
