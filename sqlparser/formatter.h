// The layout of a statement: the same tokens on lines that show how it is built. Only white space changes;
// words, names, literals, comments and macros stay as they were written, letter case included.
//
//   - every clause of a select begins a line; so does a UNION;
//   - a list that is longer than a line has one entry a line, four blanks further in;
//   - AND and OR of WHERE, HAVING and ON each begin a line when the condition is no single comparison, those
//     in parentheses when the parentheses do not fit on a line;
//   - joins begin a line when FROM does not fit on one;
//   - a select in parentheses that does not fit on the line is laid out like the outermost one, further in.
//
// Lines end with CR LF. A blank stands between a macro and what follows, because a macro's name would go on
// beyond a line break or a ";". Whether the result still means the same is judged in analyse/format_sql.h.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tessel::sql {

/// Columns that a line has before a list is broken.
inline constexpr std::size_t kFormatWidth = 80;

/// The text laid out. It must be one that the parser accepts: its depth is then limited.
[[nodiscard]] std::wstring Format(std::wstring_view text);

}  // namespace tessel::sql
