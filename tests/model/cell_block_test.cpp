#include "model/cell_block.h"

#include <gtest/gtest.h>

#include <random>

#include "tests/support/seed.h"

namespace tessel::model {
namespace {

TEST(CellBlocks, CellsAreApartByTabsAndRowsEndedByLineEnds) {
    EXPECT_EQ(FormatBlock({{L"a", L"b"}, {L"", L"c"}}), L"a\tb\r\n\tc\r\n");
    EXPECT_EQ(ParseBlock(L"a\tb\r\n\tc\r\n"), (CellBlock{{L"a", L"b"}, {L"", L"c"}}));
}

TEST(CellBlocks, ASingleCellGoesAsItIs) {
    EXPECT_EQ(FormatBlock({{L"=\"Madrid\""}}), L"=\"Madrid\"");
    EXPECT_EQ(FormatBlock({{L"\"Madrid\""}}), L"\"Madrid\"");
    EXPECT_EQ(ParseBlock(L"\"Madrid\""), (CellBlock{{L"\"Madrid\""}}));
    EXPECT_EQ(ParseBlock(L"\"\"\"x\"\"\""), (CellBlock{{L"\"\"\"x\"\"\""}}));
}

TEST(CellBlocks, AnEmptyTextIsOneEmptyCell) {
    EXPECT_EQ(FormatBlock({{L""}}), L"");
    EXPECT_EQ(ParseBlock(L""), (CellBlock{{L""}}));
}

TEST(CellBlocks, WhatWouldBeMistakenIsQuoted) {
    EXPECT_EQ(FormatBlock({{L"a\tb", L"\"c\""}}), L"\"a\tb\"\t\"\"\"c\"\"\"\r\n");
    EXPECT_EQ(FormatBlock({{L"a\r\nb"}}), L"\"a\r\nb\"\r\n");
    EXPECT_EQ(FormatBlock({{L"5\" x", L"b"}}), L"5\" x\tb\r\n");
}

struct Reading {
    std::wstring text;
    CellBlock block;
};

TEST(CellBlocks, TextsOfOtherProgramsAreRead) {
    const Reading readings[] = {
        {L"a\r\n", {{L"a"}}},
        {L"a\n", {{L"a"}}},
        {L"a\r", {{L"a"}}},
        {L"a\nb", {{L"a"}, {L"b"}}},
        {L"a\rb\r", {{L"a"}, {L"b"}}},
        {L"a\tb\nc", {{L"a", L"b"}, {L"c", L""}}},
        {L"a\n\nb\n", {{L"a"}, {L""}, {L"b"}}},
        {L"\t\t", {{L"", L"", L""}}},
        // A program that quotes nothing.
        {L"\"x\"\ty\r\n", {{L"\"x\"", L"y"}}},
        {L"\"x\ty\r\n", {{L"\"x", L"y"}}},
        {L"\"x\"y\tz\r\n", {{L"\"x\"y", L"z"}}},
        // One that quotes what it must.
        {L"\"a\nb\"\tc\n", {{L"a\nb", L"c"}}},
        {L"\"a\"\"\tb\"\tc", {{L"a\"\tb", L"c"}}},
    };
    for (const Reading& reading : readings)
        EXPECT_EQ(ParseBlock(reading.text), reading.block) << reading.text.size();
}

TEST(CellBlocks, EveryBlockComesBackAsItWas) {
    std::mt19937_64 random(tests::Seed());
    const auto below = [&](std::size_t count) { return static_cast<std::size_t>(random() % count); };
    constexpr std::wstring_view kLetters = L"ab\"\"\t\r\n ñ";
    for (int i = 0; i < 20000; ++i) {
        CellBlock block(1 + below(3), std::vector<std::wstring>(1 + below(3)));
        for (auto& row : block) {
            for (auto& cell : row) {
                for (std::size_t length = below(6); length > 0; --length)
                    cell += kLetters[below(kLetters.size())];
            }
        }
        ASSERT_EQ(ParseBlock(FormatBlock(block)), block) << "block " << i;
    }
}

}  // namespace
}  // namespace tessel::model
