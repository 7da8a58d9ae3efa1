#include "controls/diagram/diagram_placement.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <random>

namespace tessel::controls::diagram {
namespace {

PlacementBox Unplaced(int width, int height) {
    return {{0, 0, width, height}, false};
}

void ExpectNoOverlap(const std::vector<PlacementBox>& boxes) {
    for (std::size_t a = 0; a < boxes.size(); ++a)
        for (std::size_t b = a + 1; b < boxes.size(); ++b)
            EXPECT_FALSE(Overlaps(boxes[a].rect, boxes[b].rect)) << "boxes " << a << " and " << b;
}

TEST(DiagramPlacement, RelatedTablesStandFromLeftToRight) {
    std::vector<PlacementBox> boxes{Unplaced(160, 120), Unplaced(150, 200), Unplaced(170, 90)};
    PlaceBoxes(boxes, {{0, 1}, {1, 2}});
    EXPECT_GT(boxes[1].rect.left, Right(boxes[0].rect));
    EXPECT_GT(boxes[2].rect.left, Right(boxes[1].rect));
    EXPECT_EQ(boxes[0].rect.top, boxes[1].rect.top);
    EXPECT_EQ(boxes[1].rect.top, boxes[2].rect.top);
}

TEST(DiagramPlacement, ARightTablePlacedFirstStillStandsAtTheRight) {
    std::vector<PlacementBox> boxes{Unplaced(160, 120), Unplaced(150, 200)};
    PlaceBoxes(boxes, {{1, 0}});
    EXPECT_GT(boxes[0].rect.left, Right(boxes[1].rect));
}

TEST(DiagramPlacement, RelatedTablesStandInNeighbouringColumns) {
    std::vector<PlacementBox> boxes(6, Unplaced(140, 160));
    const std::vector<PlacementLink> links{{0, 1}, {1, 2}, {3, 2}, {4, 3}, {5, 3}};
    PlaceBoxes(boxes, links);
    const PlacementStyle style;
    for (const PlacementLink& link : links) {
        const int gap = boxes[link.right].rect.left - Right(boxes[link.left].rect);
        EXPECT_EQ(gap, style.across) << link.left << " to " << link.right;
    }
    ExpectNoOverlap(boxes);
}

TEST(DiagramPlacement, PlacedTablesKeepTheirPlaceAndNewOnesComeBesideThem) {
    std::vector<PlacementBox> boxes{{{400, 300, 150, 150}, true}, Unplaced(140, 100), Unplaced(140, 100)};
    PlaceBoxes(boxes, {{0, 1}, {2, 0}});
    EXPECT_EQ(boxes[0].rect, (Rect{400, 300, 150, 150}));
    EXPECT_GE(boxes[1].rect.left, Right(boxes[0].rect));
    EXPECT_EQ(boxes[1].rect.top, 300);
    EXPECT_LE(Right(boxes[2].rect), 400);
    EXPECT_EQ(boxes[2].rect.top, 300);
}

TEST(DiagramPlacement, ANewTableAvoidsTheTablesInItsWay) {
    std::vector<PlacementBox> boxes{
        {{16, 16, 150, 150}, true}, {{238, 16, 150, 150}, true}, Unplaced(140, 100)};
    PlaceBoxes(boxes, {{0, 2}});
    ExpectNoOverlap(boxes);
    EXPECT_LT(std::abs(boxes[2].rect.left - 238) + std::abs(boxes[2].rect.top - 16), 400);
}

TEST(DiagramPlacement, LinksToNothingAndToItselfAreIgnored) {
    std::vector<PlacementBox> boxes{Unplaced(100, 100), Unplaced(100, 100)};
    PlaceBoxes(boxes, {{0, 0}, {1, 7}});
    ExpectNoOverlap(boxes);
    PlaceBoxes(boxes, {});
    ExpectNoOverlap(boxes);
    std::vector<PlacementBox> none;
    PlaceBoxes(none, {});
    EXPECT_TRUE(none.empty());
}

class RandomPlacement : public testing::TestWithParam<unsigned> {};

TEST_P(RandomPlacement, NeverOverlapsAndNeverDepends) {
    const unsigned seed = GetParam();
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::mt19937 random(seed);
    const auto below = [&](int limit) { return static_cast<int>(random() % static_cast<unsigned>(limit)); };
    std::vector<PlacementBox> boxes;
    int next_fixed = 0;
    const int count = 1 + below(40);
    for (int i = 0; i < count; ++i) {
        PlacementBox box = Unplaced(80 + below(220), 60 + below(300));
        if (below(4) == 0 && seed % 2) {
            // Placed tables in a row of their own, so that they do not overlap from the start.
            box.rect.left = next_fixed;
            box.rect.top = below(500);
            box.fixed = true;
            next_fixed = Right(box.rect) + below(100);
        }
        boxes.push_back(box);
    }
    std::vector<PlacementLink> links;
    for (int i = 0; i < below(2 * count); ++i)
        links.push_back({static_cast<std::size_t>(below(count)), static_cast<std::size_t>(below(count))});
    std::vector<PlacementBox> again = boxes;
    const std::vector<PlacementBox> before = boxes;
    PlaceBoxes(boxes, links);
    PlaceBoxes(again, links);
    ExpectNoOverlap(boxes);
    for (std::size_t i = 0; i < boxes.size(); ++i) {
        EXPECT_EQ(boxes[i].rect, again[i].rect);
        EXPECT_GE(boxes[i].rect.left, 0);
        EXPECT_GE(boxes[i].rect.top, 0);
        if (before[i].fixed) {
            EXPECT_EQ(boxes[i].rect, before[i].rect);
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, RandomPlacement, testing::Range(1u, 201u));

// Over many random trees, tables stand clearly nearer to their relatives than to the others.
TEST(DiagramPlacement, RelatedTablesStandNearEachOther) {
    double shares = 0;
    constexpr unsigned kRounds = 200;
    for (unsigned seed = 1; seed <= kRounds; ++seed) {
        SCOPED_TRACE("seed " + std::to_string(seed));
        std::mt19937 random(seed);
        const auto below = [&](int limit) {
            return static_cast<int>(random() % static_cast<unsigned>(limit));
        };
        const int count = 8 + below(20);
        std::vector<PlacementBox> boxes;
        for (int i = 0; i < count; ++i) boxes.push_back(Unplaced(100 + below(150), 80 + below(150)));
        std::vector<PlacementLink> links;
        for (int i = 1; i < count; ++i)
            links.push_back({static_cast<std::size_t>(below(i)), static_cast<std::size_t>(i)});
        PlaceBoxes(boxes, links);
        ExpectNoOverlap(boxes);
        const auto distance = [&](std::size_t a, std::size_t b) {
            const Point from = Center(boxes[a].rect);
            const Point to = Center(boxes[b].rect);
            return static_cast<double>(std::abs(from.x - to.x) + std::abs(from.y - to.y));
        };
        double all = 0;
        int pairs = 0;
        for (std::size_t a = 0; a < boxes.size(); ++a)
            for (std::size_t b = a + 1; b < boxes.size(); ++b, ++pairs) all += distance(a, b);
        double related = 0;
        for (const PlacementLink& link : links) related += distance(link.left, link.right);
        const double share = related / static_cast<double>(links.size()) / (all / pairs);
        EXPECT_LT(share, 1.2);
        shares += share;
    }
    EXPECT_LT(shares / kRounds, 0.75);
}

TEST(NearestFreePlace, StaysWhereThereIsRoomAndElseTouchesTheRoomOfAnother) {
    const std::vector<Rect> others{{100, 100, 100, 100}};
    EXPECT_EQ(NearestFree({300, 100, 50, 50}, others, 16), (Rect{300, 100, 50, 50}));
    EXPECT_EQ(NearestFree({190, 120, 50, 50}, others, 16), (Rect{216, 120, 50, 50}));
    EXPECT_EQ(NearestFree({110, 60, 50, 50}, others, 16), (Rect{110, 34, 50, 50}));
    EXPECT_EQ(NearestFree({-20, -5, 50, 50}, {}, 16), (Rect{0, 0, 50, 50}));
}

TEST_P(RandomPlacement, ANearestFreePlaceIsFree) {
    const unsigned seed = GetParam();
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::mt19937 random(seed);
    const auto below = [&](int limit) { return static_cast<int>(random() % static_cast<unsigned>(limit)); };
    std::vector<Rect> others;
    for (int i = 0; i < 30; ++i) others.push_back({below(900), below(700), 80 + below(150), 60 + below(200)});
    const Rect place = NearestFree({below(900), below(700), 150, 180}, others, 16);
    for (const Rect& other : others) EXPECT_FALSE(Overlaps(Inflated(place, 16), other));
    EXPECT_GE(place.left, 0);
    EXPECT_GE(place.top, 0);
}

TEST(DiagramPlacement, HundredsOfTablesArePlacedAtOnce) {
    std::vector<PlacementBox> boxes(300, Unplaced(150, 180));
    std::vector<PlacementLink> links;
    for (std::size_t i = 1; i < 200; ++i) links.push_back({i / 3, i});
    PlaceBoxes(boxes, links);
    ExpectNoOverlap(boxes);
}

}  // namespace
}  // namespace tessel::controls::diagram
