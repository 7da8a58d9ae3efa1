// Automatic placement of tables that have no place yet.
//
// Tables related to each other come to stand side by side, from left to right in the direction of their
// relations, and no two boxes overlap. Tables that have a place keep it. The result depends on nothing but
// the arguments, so the same design always looks the same.
#pragma once

#include <cstddef>
#include <vector>

#include "controls/diagram/diagram_geometry.h"

namespace tessel::controls::diagram {

struct PlacementBox {
    Rect rect;  ///< in: width and height, and left and top when fixed; out: the whole rectangle
    bool fixed = false;
};

/// A relation between two boxes, by their index.
struct PlacementLink {
    std::size_t left = 0;
    std::size_t right = 0;
};

struct PlacementStyle {
    int margin = 16;       ///< from the plane's left and top
    int across = 72;       ///< between boxes side by side, where lines run
    int down = 28;         ///< between boxes one under the other
    int column = 760;      ///< a column of boxes taller than this is continued in another one
    int row_width = 1100;  ///< unrelated groups beside each other before the next row of groups begins
};

/// Gives every box that is not fixed its left and top.
void PlaceBoxes(std::vector<PlacementBox>& boxes, const std::vector<PlacementLink>& links,
                const PlacementStyle& style = {});

/// The place nearest to the rectangle's own where it keeps `room` from all of the others.
[[nodiscard]] Rect NearestFree(const Rect& wished, const std::vector<Rect>& others, int room);

}  // namespace tessel::controls::diagram
