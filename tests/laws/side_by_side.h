// The two ways in which the analysis finds out that a composed text is the statement: reading it side by side
// with the statement's tree, and parsing and comparing it. Whatever the first takes, the second must take.
#pragma once

#include <string>
#include <vector>

#include "schema/schema.h"
#include "tests/laws/random_source.h"

namespace tessel::laws {

/// Whether the text is taken without parsing it. False where the original does not parse.
[[nodiscard]] bool IsTakenUnparsed(const std::wstring& original, const std::wstring& text,
                                   const schema::Schema* schema);

/// What is wrong when the text is taken unparsed although the comparison finds a difference, or nothing.
[[nodiscard]] std::string UnfoundedReading(const std::wstring& original, const std::wstring& text,
                                           const schema::Schema* schema);

/// The statement with one thing changed: a token left out, written twice, exchanged with another or written
/// for another, or a keyword or sign for one of its kin.
[[nodiscard]] std::wstring Spoilt(const std::wstring& statement, Random& random);

}  // namespace tessel::laws
