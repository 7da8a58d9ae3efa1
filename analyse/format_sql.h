// "Dar formato": a statement in the layout of sqlparser/formatter.h, given out only when it is certain that
// nothing but white space changed.
//
// Three judges must agree: the tokens are the same, comments included; the syntax trees are the same; and the
// normal forms, by which a design is judged, show no difference. A text that the parser does not understand
// has no layout: where its clauses begin is not known.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "common/diagnostic.h"

namespace tessel::analyse {

struct Formatted {
    std::wstring text;                ///< the text given when it was refused
    std::optional<Diagnostic> error;  ///< the first syntax error, because of which there is no layout
    bool is_faithful = true;          ///< false: the layout would have said something else, and is not given
};

[[nodiscard]] Formatted FormatSQL(std::wstring_view text);

}  // namespace tessel::analyse
