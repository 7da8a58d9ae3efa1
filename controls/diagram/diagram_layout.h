// Where everything of a diagram is: its boxes, their order in depth, and the paths of its relations.
//
// A snapshot of the model: boxes and lines carry indices into the model's tables, valid until the model
// changes. Places of boxes come from the caller, who may show one elsewhere than the model has it while the
// user drags it.
#pragma once

#include <string_view>
#include <unordered_map>
#include <vector>

#include "controls/diagram/diagram_box.h"
#include "controls/diagram/diagram_routes.h"

namespace tessel::controls::diagram {

/// What the plane leaves free to the right of everything and below.
inline constexpr int kRoomAround = 24;

enum class HitKind { None, Title, Row, Check, ScrollBar, Edge, Relation };

/// Sides of a box, for resizing; corners are two sides.
enum Edges : int { kNoEdge = 0, kLeftEdge = 1, kTopEdge = 2, kRightEdge = 4, kBottomEdge = 8 };

struct Hit {
    HitKind kind = HitKind::None;
    int table = -1;
    int row = -1;
    int edges = kNoEdge;
    int relation = 0;  ///< key
    friend bool operator==(const Hit&, const Hit&) = default;
};

struct Line {
    int key = 0;
    int kind = model::kInnerJoin;
    int left_table = -1;
    int right_table = -1;
    int left_row = -1;
    int right_row = -1;
    std::vector<Point> path;  ///< from the left table's side to the right table's
    Rect bounds;
    /// Which end has the arrow: the table whose rows may be missing.
    bool ArrowAtRight() const { return kind == model::kLeftJoin; }
    bool ArrowAtLeft() const { return kind == model::kRightJoin; }
};

class Layout {
public:
    /// Reads the model's tables and relations. Boxes have their model's rectangle and no scroll afterwards.
    void Build(const model::Diagram& diagram, const BoxMetrics& metrics);
    void Clear();

    /// Moves or resizes a box or scrolls in it. Lines follow when Reroute is called.
    void SetRect(int table, const Rect& rect);
    void SetScroll(int table, int scroll);
    /// Boxes from the hindmost to the foremost.
    void SetOrder(std::vector<int> order) { order_ = std::move(order); }
    void Reroute();
    /// Routes the lines of one table only, while it is being dragged: the others keep still and it costs
    /// little.
    void RerouteTable(int table);

    const std::vector<Box>& Boxes() const { return boxes_; }
    const Box& BoxOf(int table) const { return boxes_[static_cast<std::size_t>(table)]; }
    const std::vector<int>& Order() const { return order_; }
    const std::vector<Line>& Lines() const { return lines_; }
    const Line* FindLine(int key) const;
    /// The index of a table, or -1.
    int TableIndex(std::wstring_view name) const;

    /// What is at a point of the plane; `tolerance` is how far beside an edge or a line still counts.
    Hit HitTest(Point plane, int tolerance) const;
    /// The plane's used part with some room around, always with its origin.
    Rect Extent() const;
    /// The box nearest to `table` in a direction (dx, dy one of -1, 0, 1), or -1.
    int Neighbour(int table, int dx, int dy) const;

private:
    int AnchorY(int table, int row) const;
    Router MakeRouter() const;
    void RouteLine(Router& router, Line& line) const;

    BoxMetrics metrics_;
    std::vector<Box> boxes_;
    std::vector<int> order_;
    std::vector<Line> lines_;
    std::unordered_map<std::wstring, int> index_;
};

}  // namespace tessel::controls::diagram
