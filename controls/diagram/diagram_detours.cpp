#include "controls/diagram/diagram_detours.h"

#include <cstdlib>
#include <limits>
#include <queue>

namespace tessel::controls::diagram {

namespace {

constexpr long kNever = std::numeric_limits<long>::max();

/// The grid of all heights and sides worth running along, and where an obstacle bars the way between
/// neighbours.
class DetourGrid {
public:
    DetourGrid(Point from, Point to, const std::vector<Rect>& obstacles, int clearance) {
        xs_ = {from.x, to.x};
        ys_ = {from.y, to.y};
        for (const Rect& obstacle : obstacles) {
            xs_.insert(xs_.end(), {obstacle.left - clearance, Right(obstacle) + clearance});
            ys_.insert(ys_.end(), {obstacle.top - clearance, Bottom(obstacle) + clearance});
        }
        for (std::vector<int>* values : {&xs_, &ys_}) {
            std::ranges::sort(*values);
            values->erase(std::unique(values->begin(), values->end()), values->end());
        }
        barred_right_.resize(xs_.size() * ys_.size());
        barred_down_.resize(xs_.size() * ys_.size());
        for (const Rect& obstacle : obstacles) Bar(obstacle);
    }

    std::size_t Width() const { return xs_.size(); }
    std::size_t Size() const { return xs_.size() * ys_.size(); }
    Point At(std::size_t node) const { return {xs_[node % Width()], ys_[node / Width()]}; }
    std::size_t NodeAt(Point point) const {
        const auto index = [](const std::vector<int>& values, int value) {
            return static_cast<std::size_t>(std::ranges::lower_bound(values, value) - values.begin());
        };
        return index(ys_, point.y) * Width() + index(xs_, point.x);
    }

    /// The neighbour in one of four directions (right, left, down, up), or the node itself when there is no
    /// way.
    std::size_t Next(std::size_t node, int direction) const {
        const std::size_t x = node % Width();
        switch (direction) {
            case 0:
                return x + 1 < Width() && !barred_right_[node] ? node + 1 : node;
            case 1:
                return x > 0 && !barred_right_[node - 1] ? node - 1 : node;
            case 2:
                return node + Width() < Size() && !barred_down_[node] ? node + Width() : node;
            default:
                return node >= Width() && !barred_down_[node - Width()] ? node - Width() : node;
        }
    }

private:
    void Bar(const Rect& obstacle) {
        for (std::size_t y = 0; y < ys_.size(); ++y)
            for (std::size_t x = 0; x < xs_.size(); ++x) {
                const std::size_t node = y * Width() + x;
                const bool in_rows = ys_[y] >= obstacle.top && ys_[y] < Bottom(obstacle);
                const bool in_columns = xs_[x] >= obstacle.left && xs_[x] < Right(obstacle);
                if (in_rows && x + 1 < xs_.size() && xs_[x] < Right(obstacle) && xs_[x + 1] >= obstacle.left)
                    barred_right_[node] = true;
                if (in_columns && y + 1 < ys_.size() && ys_[y] < Bottom(obstacle) &&
                    ys_[y + 1] >= obstacle.top)
                    barred_down_[node] = true;
            }
    }

    std::vector<int> xs_;
    std::vector<int> ys_;
    std::vector<bool> barred_right_;  ///< between a node and the one at its right
    std::vector<bool> barred_down_;
};

}  // namespace

// A state is a node and the axis on which it was reached (0 sideways, 1 up and down): a bend costs where the
// axis changes.
std::vector<Point> FindDetour(Point from, Point to, const std::vector<Rect>& obstacles, int clearance,
                              int bend_cost) {
    const DetourGrid grid(from, to, obstacles, clearance);
    struct Step {
        long cost;
        std::size_t state;
        bool operator>(const Step& other) const { return cost > other.cost; }
    };
    std::vector<long> costs(grid.Size() * 2, kNever);
    std::vector<std::size_t> came_from(grid.Size() * 2);
    std::priority_queue<Step, std::vector<Step>, std::greater<>> waiting;
    const std::size_t start = grid.NodeAt(from) * 2;
    const std::size_t goal = grid.NodeAt(to) * 2;
    costs[start] = 0;
    waiting.push({0, start});
    while (!waiting.empty()) {
        const Step step = waiting.top();
        waiting.pop();
        if (step.cost > costs[step.state]) continue;
        if (step.state == goal) break;
        const std::size_t node = step.state / 2;
        for (int direction = 0; direction < 4; ++direction) {
            const std::size_t next = grid.Next(node, direction);
            if (next == node) continue;
            const std::size_t axis = direction < 2 ? 0 : 1;
            const Point a = grid.At(node);
            const Point b = grid.At(next);
            const long cost = step.cost + std::abs(a.x - b.x) + std::abs(a.y - b.y) +
                              (axis == step.state % 2 ? 0 : bend_cost);
            const std::size_t state = next * 2 + axis;
            if (cost >= costs[state]) continue;
            costs[state] = cost;
            came_from[state] = step.state;
            waiting.push({cost, state});
        }
        // A way that arrives up or down turns sideways at the end.
        if (node * 2 == goal && step.cost + bend_cost < costs[goal]) {
            costs[goal] = step.cost + bend_cost;
            came_from[goal] = step.state;
            waiting.push({costs[goal], goal});
        }
    }
    if (costs[goal] == kNever) return {};
    std::vector<Point> path;
    for (std::size_t state = goal;; state = came_from[state]) {
        path.push_back(grid.At(state / 2));
        if (state == start) break;
    }
    std::ranges::reverse(path);
    return path;
}

}  // namespace tessel::controls::diagram
