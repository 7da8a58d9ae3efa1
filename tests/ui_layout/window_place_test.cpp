#include "ui/window_place.h"

#include <gtest/gtest.h>

using namespace tessel::ui;

namespace {

constexpr Area kWork{0, 0, 1024, 728};
constexpr Area kSecondMonitor{1024, -200, 2944, 840};

}  // namespace

TEST(WindowPlace, WindowInsideTheWorkAreaStays) {
    EXPECT_EQ(KeptInside({100, 50, 800, 600}, kWork), (Area{100, 50, 800, 600}));
}

TEST(WindowPlace, WindowBeyondAnyEdgeIsMovedBack) {
    struct Case {
        Area window;
        Area expected;
    };
    const Case cases[] = {{{-50, 10, 350, 310}, {0, 10, 400, 310}},
                          {{900, 10, 1300, 310}, {624, 10, 1024, 310}},
                          {{10, -30, 410, 270}, {10, 0, 410, 300}},
                          {{10, 700, 410, 1000}, {10, 428, 410, 728}},
                          {{5000, 5000, 5400, 5300}, {624, 428, 1024, 728}}};
    for (const Case& c : cases) EXPECT_EQ(KeptInside(c.window, kWork), c.expected) << c.window.left;
}

TEST(WindowPlace, WindowLargerThanTheWorkAreaFillsIt) {
    EXPECT_EQ(KeptInside({-100, -100, 3000, 2000}, kWork), kWork);
}

TEST(WindowPlace, MonitorsMayLieAnywhere) {
    EXPECT_EQ(KeptInside({0, 0, 400, 300}, kSecondMonitor), (Area{1024, 0, 1424, 300}));
}

TEST(WindowPlace, CentredOverAnotherWindow) {
    EXPECT_EQ(Centred(200, 100, {100, 100, 500, 500}, kWork), (Area{200, 250, 400, 350}));
}

TEST(WindowPlace, CentredOverAWindowAtTheEdgeStaysInside) {
    EXPECT_EQ(Centred(400, 300, {900, 600, 1100, 800}, kWork), (Area{624, 428, 1024, 728}));
}

TEST(ButtonFlow, WhatFitsIsOneRow) {
    EXPECT_EQ(Flow({100, 50, 30}, 192, 6), (std::vector<FlowPlace>{{0, 0}, {0, 106}, {0, 162}}));
}

TEST(ButtonFlow, WhatPassesTheEdgeBeginsARow) {
    EXPECT_EQ(Flow({100, 50, 30}, 191, 6), (std::vector<FlowPlace>{{0, 0}, {0, 106}, {1, 0}}));
}

TEST(ButtonFlow, WhatIsWiderThanTheRowHasOneToItself) {
    EXPECT_EQ(Flow({300, 300}, 100, 6), (std::vector<FlowPlace>{{0, 0}, {1, 0}}));
}

TEST(ButtonFlow, NothingNeedsNoPlace) {
    EXPECT_TRUE(Flow({}, 100, 6).empty());
}
