#include "controls/diagram/diagram_routes.h"

#include <cmath>
#include <cstdlib>
#include <limits>

#include "controls/diagram/diagram_detours.h"

namespace tessel::controls::diagram {

namespace {

constexpr long kCrossingCost = 20000;  // a line through a box is the worst that can happen
constexpr long kOverlapCost = 260;     // a line over another line is worth a detour of some boxes' gap
constexpr int kBendCost = 24;
constexpr int kCorridorRoom = 160;
constexpr std::size_t kMostCandidates = 18;
constexpr std::size_t kMostDetourObstacles = 60;

Rect Segment(Point a, Point b) {
    return {std::min(a.x, b.x), std::min(a.y, b.y), std::abs(a.x - b.x) + 1, std::abs(a.y - b.y) + 1};
}

// True when `b` lies on the way from `a` to `c`. Overlapping boxes may make a line turn back on itself, and
// that point must stay.
bool IsOnTheWay(Point a, Point b, Point c) {
    if (a.x == b.x && b.x == c.x) return (b.y >= a.y) == (c.y >= b.y);
    return a.y == b.y && b.y == c.y && (b.x >= a.x) == (c.x >= b.x);
}

// Neither points that repeat nor bends that do not bend.
std::vector<Point> Simplified(const std::vector<Point>& path) {
    std::vector<Point> simple;
    for (const Point point : path) {
        if (!simple.empty() && simple.back() == point) continue;
        if (simple.size() >= 2 && IsOnTheWay(simple[simple.size() - 2], simple.back(), point))
            simple.pop_back();
        simple.push_back(point);
    }
    return simple;
}

// The candidates nearest to `wished`, within the range.
std::vector<int> Nearest(std::vector<int> values, int wished, int low, int high) {
    std::erase_if(values, [&](int value) { return value < low || value > high; });
    std::stable_sort(values.begin(), values.end(),
                     [&](int a, int b) { return std::abs(a - wished) < std::abs(b - wished); });
    values.erase(std::unique(values.begin(), values.end()), values.end());
    if (values.size() > kMostCandidates) values.resize(kMostCandidates);
    return values;
}

}  // namespace

struct Router::Search {
    Rect from;
    Rect to;
    int from_y = 0;
    int to_y = 0;
    std::vector<Rect> obstacles;  ///< the other boxes between and around, with their clearance
    Path best;
    long cost = std::numeric_limits<long>::max();

    int FromX(bool right) const { return right ? Right(from) : from.left - 1; }
    int ToX(bool right) const { return right ? Right(to) : to.left - 1; }
};

Router::Router(std::vector<Rect> boxes, const RouteStyle& style) : boxes_(std::move(boxes)), style_(style) {}

std::vector<Rect> Router::Corridor(std::size_t from, std::size_t to) const {
    const Rect corridor = Inflated(Union(boxes_[from], boxes_[to]), kCorridorRoom);
    std::vector<Rect> obstacles;
    for (std::size_t i = 0; i < boxes_.size(); ++i)
        if (i != from && i != to && Overlaps(boxes_[i], corridor))
            obstacles.push_back(Inflated(boxes_[i], style_.clearance / 2));
    return obstacles;
}

std::vector<Point> Router::Route(std::size_t from, int from_y, std::size_t to, int to_y) {
    Search search{boxes_[from], boxes_[to], from_y, to_y, Corridor(from, to), {}};
    if (Right(search.from) + 2 * style_.stub <= search.to.left) {
        TrySides(search, true, false);
        if (search.cost >= kCrossingCost) TryAround(search, true, false);
        if (search.cost >= kCrossingCost) TryDetour(search, from, to, true, false);
    } else if (Right(search.to) + 2 * style_.stub <= search.from.left) {
        TrySides(search, false, true);
        if (search.cost >= kCrossingCost) TryAround(search, false, true);
        if (search.cost >= kCrossingCost) TryDetour(search, from, to, false, true);
    } else {
        // One above the other: the line goes round on one side.
        TrySides(search, true, true);
        TrySides(search, false, false);
        if (search.cost >= kCrossingCost) {
            TryAround(search, true, true);
            TryAround(search, false, false);
        }
        if (search.cost >= kCrossingCost) {
            TryDetour(search, from, to, true, true);
            TryDetour(search, from, to, false, false);
        }
    }
    Keep(search.best);
    return search.best;
}

void Router::Keep(const std::vector<Point>& path) {
    for (std::size_t i = 1; i < path.size(); ++i)
        if (path[i - 1].x == path[i].x) runs_.push_back(Segment(path[i - 1], path[i]));
}

// One run down between the two ends.
void Router::TrySides(Search& search, bool from_right, bool to_right) const {
    const int x1 = search.FromX(from_right);
    const int x2 = search.ToX(to_right);
    int low = 0;
    int high = 0;
    int wished = 0;
    if (from_right != to_right) {
        low = std::min(x1, x2) + style_.stub;
        high = std::max(x1, x2) - style_.stub;
        wished = (x1 + x2) / 2;
    } else if (from_right) {
        low = wished = std::max(x1, x2) + style_.stub;
        high = low + 2 * kCorridorRoom;
    } else {
        high = wished = std::min(x1, x2) - style_.stub;
        low = high - 2 * kCorridorRoom;
    }
    std::vector<int> runs{wished, low, high};
    for (int lane = 1; lane <= 3; ++lane) {
        runs.push_back(wished - lane * style_.lane);
        runs.push_back(wished + lane * style_.lane);
    }
    for (const Rect& obstacle : search.obstacles) {
        runs.push_back(obstacle.left - style_.clearance);
        runs.push_back(Right(obstacle) + style_.clearance);
    }
    for (const int x : Nearest(std::move(runs), wished, low, high))
        Try(search, {{x1, search.from_y}, {x, search.from_y}, {x, search.to_y}, {x2, search.to_y}});
}

// A run sideways over or under what is in the way, with a run down near each box.
void Router::TryAround(Search& search, bool from_right, bool to_right) const {
    const int x1 = search.FromX(from_right);
    const int x2 = search.ToX(to_right);
    const int out1 = x1 + (from_right ? style_.stub : -style_.stub);
    const int out2 = x2 + (to_right ? style_.stub : -style_.stub);
    std::vector<int> heights;
    for (const Rect& obstacle : search.obstacles) {
        heights.push_back(obstacle.top - style_.clearance);
        heights.push_back(Bottom(obstacle) + style_.clearance);
    }
    for (const Rect& own : {search.from, search.to}) {
        heights.push_back(own.top - 2 * style_.clearance);
        heights.push_back(Bottom(own) + 2 * style_.clearance);
    }
    const int wished = (search.from_y + search.to_y) / 2;
    constexpr int kAnywhere = std::numeric_limits<int>::max() / 2;
    for (const int y : Nearest(std::move(heights), wished, -kAnywhere, kAnywhere))
        for (int lane = 0; lane < 2; ++lane) {
            const int shift1 = out1 + (from_right ? lane : -lane) * style_.lane;
            const int shift2 = out2 + (to_right ? lane : -lane) * style_.lane;
            Try(search, {{x1, search.from_y},
                         {shift1, search.from_y},
                         {shift1, y},
                         {shift2, y},
                         {shift2, search.to_y},
                         {x2, search.to_y}});
        }
}

// A way around everything. With very many boxes around it would take too long while a box is dragged.
void Router::TryDetour(Search& search, std::size_t from, std::size_t to, bool from_right,
                       bool to_right) const {
    const Rect neighbourhood = Inflated(Union(search.from, search.to), 3 * kCorridorRoom);
    std::vector<Rect> obstacles;
    for (std::size_t i = 0; i < boxes_.size(); ++i)
        if (i == from || i == to || Overlaps(boxes_[i], neighbourhood))
            obstacles.push_back(Inflated(boxes_[i], style_.clearance / 2));
    if (obstacles.size() > kMostDetourObstacles) return;
    const int x1 = search.FromX(from_right);
    const int x2 = search.ToX(to_right);
    const Point begin{x1 + (from_right ? style_.stub : -style_.stub), search.from_y};
    const Point end{x2 + (to_right ? style_.stub : -style_.stub), search.to_y};
    const Path detour = FindDetour(begin, end, obstacles, style_.clearance / 2, kBendCost);
    if (detour.empty()) return;
    Path path{{x1, search.from_y}};
    path.insert(path.end(), detour.begin(), detour.end());
    path.push_back({x2, search.to_y});
    Try(search, std::move(path));
}

void Router::Try(Search& search, Path path) const {
    path = Simplified(path);
    const long cost = Cost(search, path);
    if (cost >= search.cost) return;
    search.cost = cost;
    search.best = std::move(path);
}

// Length and bends are counted first: most candidates are dearer than the best one by these alone.
long Router::Cost(const Search& search, const Path& path) const {
    long cost = 0;
    for (std::size_t i = 1; i < path.size(); ++i)
        cost += std::abs(path[i].x - path[i - 1].x) + std::abs(path[i].y - path[i - 1].y) + kBendCost;
    for (std::size_t i = 1; i < path.size() && cost < search.cost; ++i) {
        const Rect segment = Segment(path[i - 1], path[i]);
        for (const Rect& obstacle : search.obstacles)
            if (Overlaps(segment, obstacle)) cost += kCrossingCost;
        if (i > 1 && Overlaps(segment, search.from)) cost += kCrossingCost;
        if (i + 1 < path.size() && Overlaps(segment, search.to)) cost += kCrossingCost;
    }
    return cost < search.cost ? cost + kOverlapCost * OverlapsOfRuns(path) : cost;
}

int Router::OverlapsOfRuns(const Path& path) const {
    int overlaps = 0;
    for (std::size_t i = 1; i < path.size(); ++i) {
        if (path[i - 1].x != path[i].x) continue;
        Rect run = Segment(path[i - 1], path[i]);
        run.left -= style_.lane - 2;
        run.width += 2 * (style_.lane - 2);
        for (const Rect& other : runs_)
            if (Overlaps(run, other)) ++overlaps;
    }
    return overlaps;
}

int DistanceTo(const std::vector<Point>& path, Point point) {
    int best = std::numeric_limits<int>::max();
    for (std::size_t i = 1; i < path.size(); ++i) {
        const Rect segment = Segment(path[i - 1], path[i]);
        const int dx = std::max({segment.left - point.x, 0, point.x - (Right(segment) - 1)});
        const int dy = std::max({segment.top - point.y, 0, point.y - (Bottom(segment) - 1)});
        best = std::min(best, static_cast<int>(std::lround(std::hypot(dx, dy))));
    }
    return best;
}

Point Halfway(const std::vector<Point>& path) {
    if (path.empty()) return {};
    int length = 0;
    for (std::size_t i = 1; i < path.size(); ++i)
        length += std::abs(path[i].x - path[i - 1].x) + std::abs(path[i].y - path[i - 1].y);
    int left = length / 2;
    for (std::size_t i = 1; i < path.size(); ++i) {
        const int dx = path[i].x - path[i - 1].x;
        const int dy = path[i].y - path[i - 1].y;
        const int step = std::abs(dx) + std::abs(dy);
        if (left <= step && step > 0)
            return {path[i - 1].x + dx * left / step, path[i - 1].y + dy * left / step};
        left -= step;
    }
    return path.back();
}

Rect BoundsOf(const std::vector<Point>& path) {
    Rect bounds;
    for (std::size_t i = 1; i < path.size(); ++i) bounds = Union(bounds, Segment(path[i - 1], path[i]));
    return bounds;
}

}  // namespace tessel::controls::diagram
