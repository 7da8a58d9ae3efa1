#include "controls/diagram/diagram_placement.h"

#include <cstdlib>
#include <limits>
#include <numeric>

namespace tessel::controls::diagram {

namespace {

using Index = std::size_t;
using Group = std::vector<Index>;

class Placer {
public:
    Placer(std::vector<PlacementBox>& boxes, const std::vector<PlacementLink>& links,
           const PlacementStyle& style)
        : boxes_(boxes), style_(style), neighbours_(boxes.size()), placed_(boxes.size()) {
        for (const PlacementLink& link : links) {
            if (link.left == link.right || link.left >= boxes.size() || link.right >= boxes.size()) continue;
            neighbours_[link.left].push_back({link.right, +1});
            neighbours_[link.right].push_back({link.left, -1});
        }
        for (Index i = 0; i < boxes.size(); ++i) placed_[i] = boxes[i].fixed;
    }

    void Run() {
        AttachToPlaced();
        std::vector<Group> groups = Groups();
        if (groups.empty()) return;
        bool anything_placed = false;
        for (const PlacementBox& box : boxes_) anything_placed |= box.fixed;
        for (Group& group : groups) LayOut(group);
        if (anything_placed)
            for (const Group& group : groups) MoveToFreePlace(group);
        else
            Shelve(groups);
    }

private:
    struct Neighbour {
        Index box;
        int direction;  ///< +1: the neighbour is at the relation's right end
    };

    // Tables that relate to a placed one come beside it, one after the other, so that what the user arranged
    // stays.
    void AttachToPlaced() {
        std::vector<Index> wave;
        for (Index i = 0; i < boxes_.size(); ++i)
            if (placed_[i]) wave.push_back(i);
        for (Index next = 0; next < wave.size(); ++next) {
            const Index anchor = wave[next];
            for (const Neighbour& neighbour : neighbours_[anchor]) {
                if (placed_[neighbour.box]) continue;
                PlaceBeside(neighbour.box, anchor, neighbour.direction);
                wave.push_back(neighbour.box);
            }
        }
    }

    void PlaceBeside(Index index, Index anchor, int direction) {
        const Rect& beside = boxes_[anchor].rect;
        Rect& rect = boxes_[index].rect;
        const int to_right = Right(beside) + style_.across;
        const int to_left = beside.left - style_.across - rect.width;
        const int wished = direction > 0 || to_left < style_.margin ? to_right : to_left;
        std::vector<int> lefts{wished, to_right, std::max(style_.margin, to_left), beside.left};
        std::vector<int> tops{beside.top, style_.margin};
        for (Index i = 0; i < boxes_.size(); ++i)
            if (placed_[i]) tops.push_back(Bottom(boxes_[i].rect) + style_.down);
        Choose(rect, lefts, tops, {wished, beside.top});
        placed_[index] = true;
    }

    // The free candidate nearest to the wished place; sideways distance counts less than distance downwards,
    // which soon leaves the window. The last of `tops` is below everything, so there always is one.
    void Choose(Rect& rect, const std::vector<int>& lefts, const std::vector<int>& tops, Point wished) {
        long best = std::numeric_limits<long>::max();
        Point place = wished;
        for (const int left : lefts)
            for (const int top : tops) {
                const long cost = std::labs(left - wished.x) + 2L * std::labs(top - wished.y);
                if (cost >= best || !IsFree({left, top, rect.width, rect.height})) continue;
                best = cost;
                place = {left, top};
            }
        rect.left = place.x;
        rect.top = place.y;
    }

    bool IsFree(const Rect& rect) const {
        const Rect with_room = Inflated(rect, style_.down - 1);
        for (Index i = 0; i < boxes_.size(); ++i)
            if (placed_[i] && Overlaps(with_room, boxes_[i].rect)) return false;
        return true;
    }

    // Boxes not yet placed, by connection, in the order of their first box.
    std::vector<Group> Groups() const {
        std::vector<Group> groups;
        std::vector<bool> seen = placed_;
        for (Index first = 0; first < boxes_.size(); ++first) {
            if (seen[first]) continue;
            Group group{first};
            seen[first] = true;
            for (Index next = 0; next < group.size(); ++next)
                for (const Neighbour& neighbour : neighbours_[group[next]])
                    if (!seen[neighbour.box]) {
                        seen[neighbour.box] = true;
                        group.push_back(neighbour.box);
                    }
            groups.push_back(std::move(group));
        }
        return groups;
    }

    // One connected group in columns, from its first box on: a relation's right table one column further
    // right.
    void LayOut(const Group& group) {
        std::vector<int> column(boxes_.size(), 0);
        std::vector<bool> known(boxes_.size(), false);
        known[group.front()] = true;
        int first_column = 0;
        int last_column = 0;
        for (const Index box : group)
            for (const Neighbour& neighbour : neighbours_[box]) {
                if (known[neighbour.box]) continue;
                known[neighbour.box] = true;
                column[neighbour.box] = column[box] + neighbour.direction;
                first_column = std::min(first_column, column[neighbour.box]);
                last_column = std::max(last_column, column[neighbour.box]);
            }
        int left = style_.margin;
        Group before;
        for (int c = first_column; c <= last_column; ++c) {
            Group members;
            for (const Index box : group)
                if (column[box] == c) members.push_back(box);
            SortByNeighbours(members, before);
            left = StackColumn(members, left) + style_.across;
            before.insert(before.end(), members.begin(), members.end());
        }
    }

    // Lines cross least when a column's boxes stand in the order of their neighbours to the left.
    void SortByNeighbours(Group& members, const Group& before) const {
        std::vector<bool> is_before(boxes_.size(), false);
        for (const Index box : before) is_before[box] = true;
        std::vector<long> middle(boxes_.size(), 0);
        for (const Index box : members) {
            long sum = 0;
            long count = 0;
            for (const Neighbour& neighbour : neighbours_[box])
                if (is_before[neighbour.box]) {
                    sum += Center(boxes_[neighbour.box].rect).y;
                    ++count;
                }
            middle[box] = count ? sum / count : std::numeric_limits<long>::max();
        }
        std::stable_sort(members.begin(), members.end(),
                         [&](Index a, Index b) { return middle[a] < middle[b]; });
    }

    // Returns the right side of what it stacked. A column that grows too tall goes on in another one beside
    // it.
    int StackColumn(const Group& members, int left) {
        int top = style_.margin;
        int width = 0;
        for (const Index box : members) {
            Rect& rect = boxes_[box].rect;
            if (top > style_.margin && top + rect.height > style_.column) {
                left += width + style_.across;
                top = style_.margin;
                width = 0;
            }
            rect.left = left;
            rect.top = top;
            top = Bottom(rect) + style_.down;
            width = std::max(width, rect.width);
        }
        return left + width;
    }

    Rect Bounds(const Group& group) const {
        Rect bounds;
        for (const Index box : group) bounds = Union(bounds, boxes_[box].rect);
        return bounds;
    }

    void MoveGroup(const Group& group, Point corner) {
        const Rect bounds = Bounds(group);
        for (const Index box : group) {
            boxes_[box].rect.left += corner.x - bounds.left;
            boxes_[box].rect.top += corner.y - bounds.top;
            placed_[box] = true;
        }
    }

    // Groups beside each other in rows, like words on a page.
    void Shelve(const std::vector<Group>& groups) {
        Point corner{style_.margin, style_.margin};
        int row_bottom = style_.margin;
        for (const Group& group : groups) {
            const Rect bounds = Bounds(group);
            if (corner.x > style_.margin && corner.x + bounds.width > style_.row_width)
                corner = {style_.margin, row_bottom + style_.down};
            MoveGroup(group, corner);
            corner.x += bounds.width + style_.across;
            row_bottom = std::max(row_bottom, corner.y + bounds.height);
        }
    }

    // A group without relation to anything placed goes where it is nearest to the left top corner of the
    // plane.
    void MoveToFreePlace(const Group& group) {
        std::vector<int> lefts{style_.margin};
        std::vector<int> tops{style_.margin};
        for (Index i = 0; i < boxes_.size(); ++i) {
            if (!placed_[i]) continue;
            const int beside = Right(boxes_[i].rect) + style_.across;
            const Rect bounds = Bounds(group);
            if (beside + bounds.width <= style_.row_width) lefts.push_back(beside);
            tops.push_back(boxes_[i].rect.top);
            tops.push_back(Bottom(boxes_[i].rect) + style_.down);
        }
        for (std::vector<int>* values : {&lefts, &tops}) {
            std::sort(values->begin(), values->end());
            values->erase(std::unique(values->begin(), values->end()), values->end());
        }
        Rect bounds = Bounds(group);
        Choose(bounds, lefts, tops, {style_.margin, style_.margin});
        MoveGroup(group, {bounds.left, bounds.top});
    }

    std::vector<PlacementBox>& boxes_;
    const PlacementStyle& style_;
    std::vector<std::vector<Neighbour>> neighbours_;
    std::vector<bool> placed_;
};

}  // namespace

void PlaceBoxes(std::vector<PlacementBox>& boxes, const std::vector<PlacementLink>& links,
                const PlacementStyle& style) {
    Placer(boxes, links, style).Run();
}

// One of the best places lies at the wished height or touches some box's room from above or below, and
// likewise sideways: only these are looked at.
Rect NearestFree(const Rect& wished, const std::vector<Rect>& others, int room) {
    std::vector<int> lefts{std::max(0, wished.left)};
    std::vector<int> tops{std::max(0, wished.top)};
    for (const Rect& other : others) {
        lefts.push_back(Right(other) + room);
        tops.push_back(Bottom(other) + room);
        if (const int left = other.left - room - wished.width; left >= 0) lefts.push_back(left);
        if (const int top = other.top - room - wished.height; top >= 0) tops.push_back(top);
    }
    long best = std::numeric_limits<long>::max();
    Rect place = wished;
    for (const int left : lefts)
        for (const int top : tops) {
            const long distance = std::labs(left - wished.left) + std::labs(top - wished.top);
            if (distance >= best) continue;
            const Rect candidate{left, top, wished.width, wished.height};
            const Rect with_room = Inflated(candidate, room);
            if (std::ranges::any_of(others, [&](const Rect& other) { return Overlaps(other, with_room); }))
                continue;
            best = distance;
            place = candidate;
        }
    return place;
}

}  // namespace tessel::controls::diagram
