// Which parenthesis belongs to which. Parentheses inside strings, comments and names do not count: the caller
// knows which bytes are code, from their colours, so that nothing is read twice.
#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string_view>

#include "common/diagnostic.h"
#include "sqlparser/lexer.h"

namespace tessel::controls {

enum class PartnerSearch { Found, Missing, TooFar };

struct Partner {
    PartnerSearch result = PartnerSearch::Missing;
    std::size_t at = 0;

    friend bool operator==(const Partner&, const Partner&) = default;
};

/// True for ( ) { and }.
[[nodiscard]] bool IsParenthesis(char ch);

/// The partner of the parenthesis at `at`, looked for in `bytes` as far as `limit` bytes away. `is_code` is
/// asked for parentheses only.
[[nodiscard]] Partner FindPartner(std::string_view bytes, std::size_t at, std::size_t limit,
                                  const std::function<bool(std::size_t)>& is_code);

/// The name in brackets that begins or ends with the unit at `at` of a line, if there is one: its range, and
/// whether it is closed. `state` is the lexer's at the start of the line.
struct BracketName {
    TextRange range;
    bool is_closed = true;

    friend bool operator==(const BracketName&, const BracketName&) = default;
};
[[nodiscard]] std::optional<BracketName> BracketNameAt(std::wstring_view line, sql::LexerState state,
                                                       std::size_t at);

}  // namespace tessel::controls
