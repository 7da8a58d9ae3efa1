// The way around everything, for a line that no simple path keeps clear of boxes: the shortest right-angled
// path over the grid that the obstacles' sides make.
//
// Costs more than the simple paths of diagram_routes.h, which are tried first.
#pragma once

#include <vector>

#include "controls/diagram/diagram_geometry.h"

namespace tessel::controls::diagram {

/// The cheapest path between two points that enters no obstacle, where each bend costs as much as that many
/// units of length; empty when there is none. It runs `clearance` beside the obstacles that it passes, where
/// there is room, and begins and ends sideways.
[[nodiscard]] std::vector<Point> FindDetour(Point from, Point to, const std::vector<Rect>& obstacles,
                                            int clearance, int bend_cost);

}  // namespace tessel::controls::diagram
