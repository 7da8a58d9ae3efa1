// A stretch of a statement written again token by token: one blank between tokens, none where none belongs,
// comments left out. For the parts of a statement whose inner shape the tree does not keep (types, windows,
// LIMIT…).
#pragma once

#include <string>
#include <string_view>

#include "common/diagnostic.h"
#include "sqlparser/lexer.h"

namespace tessel::sql {

[[nodiscard]] std::wstring CanonicalTokens(std::wstring_view source, TextRange range);

/// The first token between two offsets.
[[nodiscard]] Token FirstToken(std::wstring_view source, std::size_t from, std::size_t to);

}  // namespace tessel::sql
