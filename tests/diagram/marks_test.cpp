#include "controls/diagram/diagram_marks.h"

#include <gtest/gtest.h>

#include <utility>

using namespace tessel::controls::diagram;

namespace {

constexpr int kOpaque = 255;

int At(MarkShape shape, int size, double x, double y) {
    return Coverage({shape, size, size, 1, false, false}, static_cast<int>(x * size),
                    static_cast<int>(y * size));
}

}  // namespace

TEST(Marks, TickGoesDownToItsFootAndUpToTheRight) {
    for (const int size : {26, 52, 78}) {
        EXPECT_EQ(At(MarkShape::Tick, size, 0.42, 0.72), kOpaque) << size;
        EXPECT_EQ(At(MarkShape::Tick, size, 0.62, 0.5), kOpaque) << size;
        EXPECT_EQ(At(MarkShape::Tick, size, 0.2, 0.2), 0) << size;
        EXPECT_EQ(At(MarkShape::Tick, size, 0.8, 0.8), 0) << size;
    }
}

TEST(Marks, TickLeavesRoomForTheFrameOfItsBox) {
    for (const int size : {8, 10, 13, 16, 20, 26, 39})
        for (int i = 0; i < size; ++i)
            for (const auto& [x, y] : {std::pair{i, 0}, {i, size - 1}, {0, i}, {size - 1, i}})
                EXPECT_EQ(Coverage({MarkShape::Tick, size, size, 1, false, false}, x, y), 0) << size;
}

TEST(Marks, NothingIsCoveredOutside) {
    EXPECT_EQ(Coverage({MarkShape::Disc, 10, 10, 1, false, false}, 10, 5), 0);
    EXPECT_EQ(Coverage({MarkShape::Disc, 10, 10, 1, false, false}, 5, -1), 0);
}
