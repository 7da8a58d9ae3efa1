// Tricks that a late-bound object may play: answers of every automation type, well-formed and not, and doing
// something else before it answers. They are data; what must hold all the same is said by the tests.
#pragma once

#include <vector>

#include "tests/support/win32/faulty_dispatch.h"

namespace tessel::tests {

/// Answers and failures, for any call.
std::vector<Trick> AnswerTricks();

}  // namespace tessel::tests
