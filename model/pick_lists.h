// The pick lists of the design grid, which depend on the focused row.
#pragma once

#include <string>
#include <vector>

#include "model/design.h"

namespace tessel::model {

/// Refills every column's list for the row. Rows 7 and 8 offer "@" and each parameter's name; without
/// parameters their lists are not touched, so they keep offering the list of the row that had the focus
/// before.
void RefillPickLists(Design& design, GridRow row, const std::vector<std::wstring>& parameter_names);

/// The focus moved: records it and refills the lists when the row changed.
void FocusMoved(Design& design, GridRow row, int column, const std::vector<std::wstring>& parameter_names);

}  // namespace tessel::model
