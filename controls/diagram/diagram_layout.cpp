#include "controls/diagram/diagram_layout.h"

#include <cstdlib>
#include <limits>
#include <numeric>

#include "common/identifiers.h"

namespace tessel::controls::diagram {

namespace {

// A box lends its sides to the pointer: the corners reach further along, so that they are easy to hit.
int EdgesAt(const Rect& rect, Point point, int tolerance) {
    if (!Contains(Inflated(rect, tolerance), point)) return kNoEdge;
    const int inside = std::max(1, tolerance / 2);
    const int corner = 3 * tolerance;
    const bool left = point.x < rect.left + inside;
    const bool right = point.x >= Right(rect) - inside;
    const bool top = point.y < rect.top + inside;
    const bool bottom = point.y >= Bottom(rect) - inside;
    if (!left && !right && !top && !bottom) return kNoEdge;
    int edges = kNoEdge;
    if (left || (point.x < rect.left + corner && (top || bottom))) edges |= kLeftEdge;
    if (right || (point.x >= Right(rect) - corner && (top || bottom))) edges |= kRightEdge;
    if (top || (point.y < rect.top + corner && (left || right))) edges |= kTopEdge;
    if (bottom || (point.y >= Bottom(rect) - corner && (left || right))) edges |= kBottomEdge;
    return edges;
}

Hit HitInBox(const Box& box, int table, Point point) {
    if (Contains(box.Title(), point)) return {HitKind::Title, table, -1, kNoEdge, 0};
    if (Contains(box.ScrollTrack(), point)) return {HitKind::ScrollBar, table, -1, kNoEdge, 0};
    const int row = box.RowAt(point);
    if (row < 0) return {HitKind::Title, table, -1, kNoEdge, 0};
    // The whole strip left of the text belongs to the check box: small boxes are hard to hit.
    const bool check = point.x < Right(box.Check(row)) + 2;
    return {check ? HitKind::Check : HitKind::Row, table, row, kNoEdge, 0};
}

}  // namespace

void Layout::Clear() {
    boxes_.clear();
    order_.clear();
    lines_.clear();
    index_.clear();
}

void Layout::Build(const model::Diagram& diagram, const BoxMetrics& metrics) {
    Clear();
    metrics_ = metrics;
    const std::vector<model::DiagramTable>& tables = diagram.Tables();
    for (const model::DiagramTable& table : tables) {
        index_.emplace(IdentifierKey(table.name), static_cast<int>(boxes_.size()));
        boxes_.emplace_back(table.rect, RowCount(table), 0, metrics);
    }
    order_.resize(boxes_.size());
    std::iota(order_.begin(), order_.end(), 0);
    for (const model::DiagramRelation& relation : diagram.Relations()) {
        Line line;
        line.key = relation.key;
        line.kind = relation.info.JType;
        line.left_table = TableIndex(relation.info.LeftTable);
        line.right_table = TableIndex(relation.info.RightTable);
        if (line.left_table < 0 || line.right_table < 0 || line.left_table == line.right_table) continue;
        line.left_row = RowOf(tables[static_cast<std::size_t>(line.left_table)], relation.info.LeftField);
        line.right_row = RowOf(tables[static_cast<std::size_t>(line.right_table)],
                               model::FieldOfRelation(relation.info.RightField));
        lines_.push_back(std::move(line));
    }
}

void Layout::SetRect(int table, const Rect& rect) {
    Box& box = boxes_[static_cast<std::size_t>(table)];
    box = Box(rect, box.Rows(), box.Scroll(), metrics_);
}

void Layout::SetScroll(int table, int scroll) {
    Box& box = boxes_[static_cast<std::size_t>(table)];
    box = Box(box.Frame(), box.Rows(), scroll, metrics_);
}

// A field that the table does not show is joined at the title: a line to some other row would lie.
int Layout::AnchorY(int table, int row) const {
    const Box& box = BoxOf(table);
    return row < 0 ? Center(box.Title()).y : box.AnchorY(row);
}

Router Layout::MakeRouter() const {
    std::vector<Rect> rects;
    rects.reserve(boxes_.size());
    for (const Box& box : boxes_) rects.push_back(box.Frame());
    return Router(std::move(rects));
}

void Layout::RouteLine(Router& router, Line& line) const {
    line.path =
        router.Route(static_cast<std::size_t>(line.left_table), AnchorY(line.left_table, line.left_row),
                     static_cast<std::size_t>(line.right_table), AnchorY(line.right_table, line.right_row));
    line.bounds = BoundsOf(line.path);
}

void Layout::Reroute() {
    Router router = MakeRouter();
    for (Line& line : lines_) RouteLine(router, line);
}

void Layout::RerouteTable(int table) {
    Router router = MakeRouter();
    const auto touches = [table](const Line& line) {
        return line.left_table == table || line.right_table == table;
    };
    for (const Line& line : lines_)
        if (!touches(line)) router.Keep(line.path);
    for (Line& line : lines_)
        if (touches(line)) RouteLine(router, line);
}

const Line* Layout::FindLine(int key) const {
    for (const Line& line : lines_)
        if (line.key == key) return &line;
    return nullptr;
}

int Layout::TableIndex(std::wstring_view name) const {
    const auto found = index_.find(IdentifierKey(name));
    return found == index_.end() ? -1 : found->second;
}

Hit Layout::HitTest(Point plane, int tolerance) const {
    for (auto it = order_.rbegin(); it != order_.rend(); ++it) {
        const Box& box = BoxOf(*it);
        if (const int edges = EdgesAt(box.Frame(), plane, tolerance))
            return {HitKind::Edge, *it, -1, edges, 0};
        if (Contains(box.Frame(), plane)) return HitInBox(box, *it, plane);
    }
    int nearest = tolerance + 1;
    Hit hit;
    for (const Line& line : lines_) {
        if (!Contains(Inflated(line.bounds, tolerance), plane)) continue;
        const int distance = DistanceTo(line.path, plane);
        if (distance >= nearest) continue;
        nearest = distance;
        hit = {HitKind::Relation, -1, -1, kNoEdge, line.key};
    }
    return hit;
}

Rect Layout::Extent() const {
    Rect extent{0, 0, 1, 1};
    for (const Box& box : boxes_) {
        Rect room = box.Frame();
        room.width += kRoomAround;
        room.height += kRoomAround;
        extent = Union(extent, room);
    }
    for (const Line& line : lines_) extent = Union(extent, line.bounds);
    return extent;
}

int Layout::Neighbour(int table, int dx, int dy) const {
    const Point from = Center(BoxOf(table).Frame());
    int best = -1;
    long best_cost = std::numeric_limits<long>::max();
    for (int other = 0; other < static_cast<int>(boxes_.size()); ++other) {
        if (other == table) continue;
        const Point to = Center(BoxOf(other).Frame());
        const long ahead = static_cast<long>(to.x - from.x) * dx + static_cast<long>(to.y - from.y) * dy;
        if (ahead <= 0) continue;
        const long aside = std::labs(dx ? to.y - from.y : to.x - from.x);
        const long cost = ahead + 2 * aside;
        if (cost >= best_cost) continue;
        best_cost = cost;
        best = other;
    }
    return best;
}

}  // namespace tessel::controls::diagram
