#include "controls/diagram/diagram_routes.h"

#include <gtest/gtest.h>

#include <random>

#include "controls/diagram/diagram_detours.h"
#include "controls/diagram/diagram_placement.h"

namespace tessel::controls::diagram {
namespace {

bool IsRightAngled(const std::vector<Point>& path) {
    for (std::size_t i = 1; i < path.size(); ++i)
        if ((path[i - 1].x == path[i].x) == (path[i - 1].y == path[i].y)) return false;
    return path.size() >= 2;
}

bool Crosses(const std::vector<Point>& path, const Rect& box) {
    for (std::size_t i = 1; i < path.size(); ++i) {
        const Rect segment{std::min(path[i - 1].x, path[i].x), std::min(path[i - 1].y, path[i].y),
                           std::abs(path[i - 1].x - path[i].x) + 1, std::abs(path[i - 1].y - path[i].y) + 1};
        if (Overlaps(segment, box)) return true;
    }
    return false;
}

TEST(DiagramRoutes, LinesLeaveAtTheSidesThatFaceEachOther) {
    const Rect a{0, 0, 100, 100};
    const Rect b{300, 50, 100, 100};
    Router router({a, b});
    const std::vector<Point> path = router.Route(0, 40, 1, 90);
    EXPECT_EQ(path.front(), (Point{100, 40}));
    EXPECT_EQ(path.back(), (Point{299, 90}));
    const std::vector<Point> back = router.Route(1, 90, 0, 40);
    EXPECT_EQ(back.front(), (Point{299, 90}));
    EXPECT_EQ(back.back(), (Point{100, 40}));
}

TEST(DiagramRoutes, FieldsAtTheSameHeightAreJoinedStraight) {
    Router router({{0, 0, 100, 100}, {300, 0, 100, 100}});
    EXPECT_EQ(router.Route(0, 40, 1, 40), (std::vector<Point>{{100, 40}, {299, 40}}));
}

TEST(DiagramRoutes, EveryLineBeginsAndEndsWithAShortStraightRun) {
    Router router({{0, 0, 100, 100}, {300, 200, 100, 100}, {0, 400, 100, 100}});
    for (const auto& path : {router.Route(0, 40, 1, 250), router.Route(0, 40, 2, 450)}) {
        ASSERT_GE(path.size(), 3u);
        EXPECT_EQ(path[0].y, path[1].y);
        EXPECT_GE(std::abs(path[0].x - path[1].x), RouteStyle().stub);
        EXPECT_EQ(path[path.size() - 1].y, path[path.size() - 2].y);
        EXPECT_GE(std::abs(path[path.size() - 1].x - path[path.size() - 2].x), RouteStyle().stub);
    }
}

TEST(DiagramRoutes, BoxesOneAboveTheOtherAreJoinedRoundTheSide) {
    const Rect above{50, 0, 100, 100};
    const Rect below{50, 200, 100, 100};
    Router router({above, below});
    const std::vector<Point> path = router.Route(0, 40, 1, 250);
    EXPECT_TRUE(IsRightAngled(path));
    EXPECT_FALSE(Crosses(path, above));
    EXPECT_FALSE(Crosses(path, below));
}

TEST(DiagramRoutes, ABoxInTheWayIsPassed) {
    const Rect obstacle{250, -40, 100, 300};
    Router router({{0, 0, 100, 100}, {500, 100, 100, 100}, obstacle});
    const std::vector<Point> path = router.Route(0, 50, 1, 150);
    EXPECT_TRUE(IsRightAngled(path));
    EXPECT_FALSE(Crosses(path, obstacle));
}

TEST(DiagramRoutes, LinesThatRunDownTogetherKeepApart) {
    Router router({{0, 0, 100, 300}, {300, 0, 100, 300}});
    const std::vector<Point> first = router.Route(0, 20, 1, 200);
    const std::vector<Point> second = router.Route(0, 40, 1, 220);
    ASSERT_EQ(first.size(), 4u);
    ASSERT_EQ(second.size(), 4u);
    EXPECT_NE(first[1].x, second[1].x);
}

TEST(DiagramRoutes, AnyTwoBoxesGetARightAngledLineFromSideToSide) {
    const unsigned seed = 20240607;
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::mt19937 random(seed);
    const auto below = [&](int limit) { return static_cast<int>(random() % static_cast<unsigned>(limit)); };
    for (int round = 0; round < 200; ++round) {
        std::vector<Rect> boxes;
        for (int i = 0; i < 12; ++i)
            boxes.push_back({below(900), below(700), 80 + below(150), 60 + below(200)});
        Router router(boxes);
        for (std::size_t to = 1; to < boxes.size(); ++to) {
            const int from_y = boxes[0].top + boxes[0].height / 2;
            const int to_y = boxes[to].top + boxes[to].height / 2;
            const std::vector<Point> path = router.Route(0, from_y, to, to_y);
            ASSERT_TRUE(IsRightAngled(path)) << "round " << round << " box " << to;
            const auto on_side = [](Point point, const Rect& box) {
                return point.x == Right(box) || point.x == box.left - 1;
            };
            EXPECT_TRUE(on_side(path.front(), boxes[0]));
            EXPECT_TRUE(on_side(path.back(), boxes[to]));
            EXPECT_EQ(path.front().y, from_y);
            EXPECT_EQ(path.back().y, to_y);
        }
    }
}

TEST(DiagramRoutes, ALineFindsItsWayThroughAMaze) {
    // The table in the middle is walled in but for an opening at the far side.
    const std::vector<Rect> boxes{{0, 200, 100, 100},  {500, 200, 100, 100}, {400, 80, 300, 60},
                                  {400, 360, 300, 60}, {320, 80, 60, 340},   {740, 80, 60, 130},
                                  {740, 300, 60, 120}};
    Router router(boxes);
    const std::vector<Point> path = router.Route(0, 250, 1, 250);
    EXPECT_TRUE(IsRightAngled(path));
    for (std::size_t i = 2; i < boxes.size(); ++i) EXPECT_FALSE(Crosses(path, boxes[i])) << "box " << i;
    EXPECT_EQ(path.front().y, 250);
    EXPECT_EQ(path.back().y, 250);
}

// Automatic placement and routing together: in any tree of tables every line is clear of every other box.
TEST(DiagramRoutes, LinesOfTablesPlacedAutomaticallyKeepClearOfBoxes) {
    for (unsigned seed = 1; seed <= 200; ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        std::mt19937 random(seed);
        const auto below = [&](int limit) {
            return static_cast<int>(random() % static_cast<unsigned>(limit));
        };
        const int count = 3 + below(20);
        std::vector<PlacementBox> boxes;
        for (int i = 0; i < count; ++i) boxes.push_back({{0, 0, 130 + below(100), 80 + below(200)}, false});
        std::vector<PlacementLink> links;
        for (int i = 1; i < count; ++i)
            links.push_back({static_cast<std::size_t>(below(i)), static_cast<std::size_t>(i)});
        PlaceBoxes(boxes, links);
        std::vector<Rect> rects;
        for (const PlacementBox& box : boxes) rects.push_back(box.rect);
        Router router(rects);
        for (const PlacementLink& link : links) {
            const auto height = [&](const Rect& rect) { return rect.top + 30 + below(rect.height - 40); };
            const std::vector<Point> path =
                router.Route(link.left, height(rects[link.left]), link.right, height(rects[link.right]));
            for (std::size_t i = 0; i < rects.size(); ++i)
                EXPECT_FALSE(Crosses(path, rects[i])) << link.left << " to " << link.right << " over " << i;
        }
    }
}

TEST(DiagramDetours, AWalledInPointHasNoWay) {
    const std::vector<Rect> walls{
        {100, 0, 20, 220}, {300, 0, 20, 220}, {100, 0, 220, 20}, {100, 200, 220, 20}};
    EXPECT_TRUE(FindDetour({0, 100}, {200, 100}, walls, 4, 24).empty());
    EXPECT_FALSE(FindDetour({0, 100}, {400, 100}, walls, 4, 24).empty());
}

TEST(DiagramDetours, AStraightWayIsTakenAsItIs) {
    const std::vector<Point> path = FindDetour({0, 50}, {400, 50}, {{100, 80, 50, 50}}, 4, 24);
    for (const Point point : path) EXPECT_EQ(point.y, 50);
    EXPECT_EQ(path.front(), (Point{0, 50}));
    EXPECT_EQ(path.back(), (Point{400, 50}));
}

TEST(DiagramRoutes, DistanceAndMiddleFollowTheLine) {
    const std::vector<Point> path{{0, 0}, {100, 0}, {100, 50}};
    EXPECT_EQ(DistanceTo(path, {50, 0}), 0);
    EXPECT_EQ(DistanceTo(path, {50, 7}), 7);
    EXPECT_EQ(DistanceTo(path, {103, 54}), 5);
    EXPECT_EQ(Halfway(path), (Point{75, 0}));
    EXPECT_EQ(BoundsOf(path), (Rect{0, 0, 101, 51}));
}

}  // namespace
}  // namespace tessel::controls::diagram
