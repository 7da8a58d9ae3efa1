// Memory that runs out at a chosen allocation of this program.
#pragma once

#include <functional>

namespace tessel::testing {

/// Runs `body` with its allocation number `at`, counted from 0, failing once. True when it threw bad_alloc
/// for it; false when it came to its end, with or without that allocation. `*reached` says whether there was
/// such an allocation.
bool RunsOutOfMemoryAt(long at, const std::function<void()>& body, bool* reached);

}  // namespace tessel::testing
