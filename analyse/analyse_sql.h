// Statement analysis: text in, design out, or the reason why the design cannot show it.
//
// The first law of this program is that a statement never changes its meaning behind the user's back. So the
// design is rebuilt in a copy, and the copy replaces the caller's design only when the analysis answers true,
// or when the statement has a TOP count (whose partial design is kept although the answer is false).
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "common/diagnostic.h"
#include "model/design.h"

namespace tessel::analyse {

struct Analysis {
    bool parsed = false;                 ///< the parser understood the text
    bool accepted = false;               ///< the answer of AnalyseSQL
    std::vector<std::wstring> messages;  ///< message boxes to show, in order
    /// Why `accepted` is false: the first syntax error, or the construct that no design can show.
    std::optional<Diagnostic> error;
};

/// Rebuilds `design` from the text. The design's diagram must be bound to the connection's schema, if there
/// is one.
[[nodiscard]] Analysis AnalyseSQL(std::wstring_view text, model::Design& design);

inline constexpr std::wstring_view kWhereTooComplex =
    L"La cláusula Where es demasiado compleja para poder ser representada";
inline constexpr std::wstring_view kHavingTooComplex =
    L"La cláusula Having es demasiado compleja para poder ser representada";

}  // namespace tessel::analyse
