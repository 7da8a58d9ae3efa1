// The lines of relations: right-angled paths from a box's side to another box's side.
//
// A line leaves from its field's height at the side that faces the other box, runs a short way straight out,
// and bends where that keeps it clear of other boxes and of the bends of lines routed before it. Where no
// simple path is clear a way around everything is looked for (diagram_detours.h), and where there is none the
// line that crosses least is taken: a line is always drawn.
#pragma once

#include <cstddef>
#include <vector>

#include "controls/diagram/diagram_geometry.h"

namespace tessel::controls::diagram {

struct RouteStyle {
    int stub = 18;      ///< straight run at both ends
    int clearance = 8;  ///< kept from boxes
    int lane = 7;       ///< between lines that run down side by side
};

/// Routes the lines of one diagram, in order; keeps what it needs to keep lines apart.
class Router {
public:
    explicit Router(std::vector<Rect> boxes, const RouteStyle& style = {});

    /// The path between two different boxes (by index) at the given heights: first and last point lie on the
    /// boxes' sides, every segment is horizontal or vertical.
    std::vector<Point> Route(std::size_t from, int from_y, std::size_t to, int to_y);

    /// Takes a line that stays as it is into account.
    void Keep(const std::vector<Point>& path);

private:
    using Path = std::vector<Point>;
    struct Search;

    std::vector<Rect> Corridor(std::size_t from, std::size_t to) const;
    void TrySides(Search& search, bool from_right, bool to_right) const;
    void TryAround(Search& search, bool from_right, bool to_right) const;
    void TryDetour(Search& search, std::size_t from, std::size_t to, bool from_right, bool to_right) const;
    void Try(Search& search, Path path) const;
    long Cost(const Search& search, const Path& path) const;
    int OverlapsOfRuns(const Path& path) const;

    std::vector<Rect> boxes_;
    RouteStyle style_;
    std::vector<Rect> runs_;  ///< vertical segments of the lines routed so far
};

/// Distance in units from a point to a path.
[[nodiscard]] int DistanceTo(const std::vector<Point>& path, Point point);
/// The point half-way along a path.
[[nodiscard]] Point Halfway(const std::vector<Point>& path);
/// The smallest rectangle around a path, at least one unit wide and high.
[[nodiscard]] Rect BoundsOf(const std::vector<Point>& path);

}  // namespace tessel::controls::diagram
