// The verbs "macros" and "expand" of tesselsql.
#pragma once

#include <iosfwd>
#include <optional>
#include <string>
#include <vector>

#include "common/result.h"

namespace tessel::tools {

/// True for the verbs of this module.
[[nodiscard]] bool IsMacroVerb(const std::string& verb);

/// Runs one of them: "macros [TEXT]" prints the macros of a text, one a line; "expand [--param
/// Name=adType=value]…
/// [--user NAME] [--pc NAME] [TEXT]" prints the text with its macros expanded and nothing added. Answers why
/// the arguments cannot be used, or nothing.
[[nodiscard]] std::optional<Error> RunMacroVerb(const std::string& verb,
                                                const std::vector<std::string>& arguments, std::istream& in,
                                                std::ostream& out);

}  // namespace tessel::tools
