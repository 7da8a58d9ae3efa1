// The verbs of tesselsql, over streams, so that they can be tested without a process.
#pragma once

#include <iosfwd>
#include <string>
#include <vector>

namespace tessel::tools {

enum ExitStatus : int {
    kDone = 0,
    kNoAnswer = 1,  ///< it ran, and the rule itself has no answer; the reason is on the error stream
    kUnusable = 2,  ///< arguments or input that cannot be used; a one-line reason is on the error stream
};

/// Runs one call. `arguments` are without the program's name, in UTF-8; streams carry UTF-8 bytes.
int RunCommand(const std::vector<std::string>& arguments, std::istream& in, std::ostream& out,
               std::ostream& err);

}  // namespace tessel::tools
