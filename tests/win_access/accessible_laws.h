// What holds for every accessible tree, whatever the window.
#pragma once

#include "tests/win_access/accessible_walk.h"

namespace tessel::testing {

/// Checks a walked tree: everything that can have the keyboard has a name, children know their parent, lie
/// inside it and are found at their place, and no two children of one parent are called the same.
void ExpectLawfulTree(const AccessibleItem& root);

}  // namespace tessel::testing
