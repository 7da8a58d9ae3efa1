// The small round and slanted shapes of the diagram, as coverage of pixels: arrow heads, dots, keys, ticks,
// rounded corners.
//
// Straight lines and areas are sharp by themselves and are filled; only these shapes need smoothing. Each is
// defined once, for any size, so that it is sharp at every zoom and resolution.
#pragma once

#include <compare>
#include <cstdint>

namespace tessel::controls::diagram {

enum class MarkShape : int {
    Disc,         ///< an ellipse that fills its rectangle
    QuarterDisc,  ///< the rounded left top corner of a filled area
    QuarterRing,  ///< the rounded left top corner of a frame, `stroke` pixels thick
    Arrow,        ///< a filled head pointing right
    Key,          ///< a key, bow to the left
    Pill,         ///< a rectangle with half-round short ends
    Tick,         ///< what a ticked check box holds
};

struct Mark {
    MarkShape shape = MarkShape::Disc;
    int width = 0;
    int height = 0;
    int stroke = 1;
    bool flip_x = false;
    bool flip_y = false;
    friend auto operator<=>(const Mark&, const Mark&) = default;
};

/// How much of the pixel the mark covers, 0 to 255. Pixels outside the mark's rectangle are not covered.
[[nodiscard]] std::uint8_t Coverage(const Mark& mark, int x, int y);

}  // namespace tessel::controls::diagram
