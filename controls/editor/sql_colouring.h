// What each character of a statement looks like, decided by the tokens of the product's own lexer, so that
// brackets, dates, macros and parameters are coloured as the parser will read them.
//
// Colouring goes line by line. A line's colours follow from its own characters and from the state in which
// the line before ended (inside a comment, a string, a bracketed name…), and from nothing else: colouring one
// line again gives the same as colouring everything again. No colours are known here; sql_ini.h has the
// looks.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "controls/editor/word_list.h"
#include "sqlparser/lexer.h"

namespace tessel::controls {

enum class SqlStyle : std::uint8_t {
    Text,  ///< names without brackets, blanks
    Keyword,
    Function,  ///< a listed function before its "("
    Type,
    Name,    ///< [name] and `name`
    String,  ///< 'text' and "text"
    Number,
    Date,  ///< #…#
    Comment,
    Operator,   ///< operators and punctuation
    Macro,      ///< @name and @{…}
    Parameter,  ///< :name and ?
    Error,      ///< what the lexer cannot read
};
inline constexpr std::size_t kSqlStyleCount = static_cast<std::size_t>(SqlStyle::Error) + 1;

/// The words that are coloured.
struct SqlWords {
    WordList keywords;
    WordList functions;
    WordList types;

    friend bool operator==(const SqlWords&, const SqlWords&) = default;
};

/// A stretch of characters of one style.
struct StyleRun {
    SqlStyle style = SqlStyle::Text;
    std::size_t length = 0;  ///< wchar_t units

    friend bool operator==(const StyleRun&, const StyleRun&) = default;
};

/// The runs of one line, line end included; neighbours differ in style. `state` is the state at the line's
/// start and becomes the one at its end.
[[nodiscard]] std::vector<StyleRun> ColourLine(std::wstring_view line, const SqlWords& words,
                                               sql::LexerState& state);

/// One style a unit of a text of any number of lines.
[[nodiscard]] std::vector<SqlStyle> ColourText(std::wstring_view text, const SqlWords& words,
                                               sql::LexerState state = {});

/// The length of the first line with its end: CR LF, LF or a lone CR.
[[nodiscard]] std::size_t LineLength(std::wstring_view text);

/// A lexer state as a number that the editing component keeps with each line, and back. 0 is the initial
/// state.
[[nodiscard]] int PackState(sql::LexerState state);
[[nodiscard]] sql::LexerState UnpackState(int packed);

}  // namespace tessel::controls
