// Searching rows, and rows as text.
#include "ui/preview_rows.h"

#include <gtest/gtest.h>

#include <optional>

#include "tests/preview/literal_rows.h"

namespace tessel::ui {
namespace {

using test::LiteralRows;

LiteralRows Cities() {
    return LiteralRows(
        {L"Nombre", L"Ciudad"},
        {{L"Ana", L"Madrid"}, {L"Óscar", L"(null)"}, {L"Madrid y Cía", L"Mérida"}, {L"Luz", L"MADRIDEJOS"}});
}

std::optional<CellPlace> Find(PreviewRows& rows, std::wstring_view text, CellPlace from,
                              bool backwards = false) {
    RowSearch search(text, from, backwards);
    RowSearch::State state = RowSearch::State::Searching;
    int slices = 0;
    while (state == RowSearch::State::Searching && ++slices < 100) state = search.Advance(rows, 1);
    EXPECT_LT(slices, 100);
    if (state == RowSearch::State::Found) return search.Place();
    return std::nullopt;
}

TEST(RowSearch, GoesOnAfterTheCellWhereItBeginsAndWrapsRound) {
    LiteralRows rows = Cities();
    CellPlace place{0, 0};
    const CellPlace expected[] = {{0, 1}, {2, 0}, {3, 1}, {0, 1}};
    for (const CellPlace& next : expected) {
        const auto found = Find(rows, L"madrid", place);
        ASSERT_TRUE(found);
        EXPECT_EQ(*found, next);
        place = *found;
    }
}

TEST(RowSearch, GoesBackwardsToo) {
    LiteralRows rows = Cities();
    CellPlace place{0, 0};
    const CellPlace expected[] = {{3, 1}, {2, 0}, {0, 1}, {3, 1}};
    for (const CellPlace& next : expected) {
        const auto found = Find(rows, L"madrid", place, true);
        ASSERT_TRUE(found);
        EXPECT_EQ(*found, next);
        place = *found;
    }
}

TEST(RowSearch, IgnoresLetterCaseInSpanishToo) {
    LiteralRows rows = Cities();
    EXPECT_EQ(Find(rows, L"ÓSCAR", {0, 0}), (CellPlace{1, 0}));
    EXPECT_EQ(Find(rows, L"cÍA", {0, 0}), (CellPlace{2, 0}));
}

TEST(RowSearch, TheOnlyPlaceIsFoundAgain) {
    LiteralRows rows = Cities();
    EXPECT_EQ(Find(rows, L"Luz", {3, 0}), (CellPlace{3, 0}));
    EXPECT_EQ(Find(rows, L"Luz", {3, 0}, true), (CellPlace{3, 0}));
}

TEST(RowSearch, FindsNothingWhereNothingIs) {
    LiteralRows rows = Cities();
    EXPECT_FALSE(Find(rows, L"París", {1, 1}));
    EXPECT_FALSE(Find(rows, L"", {0, 0}));
    EXPECT_FALSE(Find(rows, L"null", {0, 0}));
    LiteralRows none({L"a"}, {});
    EXPECT_FALSE(Find(none, L"a", {0, 0}));
}

TEST(RowSearch, ASliceReadsItsRowsAndNoMore) {
    LiteralRows rows = Cities();
    RowSearch search(L"París", {0, 0}, false);
    EXPECT_EQ(search.Advance(rows, 2), RowSearch::State::Searching);
    EXPECT_EQ(rows.cells_read, 3);
    EXPECT_EQ(search.Place().row, 2);
    EXPECT_EQ(search.Advance(rows, 100), RowSearch::State::NotFound);
    EXPECT_EQ(rows.cells_read, 8);
}

TEST(RowsAsText, CellsStandBetweenTabsAndNullIsEmpty) {
    LiteralRows rows = Cities();
    EXPECT_EQ(HeadersAsText(rows), L"Nombre\tCiudad");
    EXPECT_EQ(RowAsText(rows, 0), L"Ana\tMadrid");
    EXPECT_EQ(RowAsText(rows, 1), L"Óscar\t");
}

TEST(RowsAsText, WhatWouldBreakTheTableIsQuoted) {
    LiteralRows rows({L"a\tb", L"", L"c"}, {{L"uno\r\ndos", L"él dijo \"sí\"", L"'simple'"}});
    EXPECT_EQ(HeadersAsText(rows), L"\"a\tb\"\t\tc");
    EXPECT_EQ(RowAsText(rows, 0), L"\"uno\r\ndos\"\t\"él dijo \"\"sí\"\"\"\t'simple'");
}

TEST(OneLine, BreaksBecomeBlanksAndLongTextsEndInAnEllipsis) {
    EXPECT_EQ(OneLine(L"uno\r\ndos\ttres", 50), L"uno dos tres");
    EXPECT_EQ(OneLine(L"12345", 5), L"12345");
    EXPECT_EQ(OneLine(L"123456", 5), L"1234…");
    EXPECT_EQ(OneLine(L"", 5), L"");
}

TEST(GroupedNumbers, HaveASeparatorEveryThreeDigits) {
    EXPECT_EQ(Grouped(0, L"."), L"0");
    EXPECT_EQ(Grouped(999, L"."), L"999");
    EXPECT_EQ(Grouped(1000, L"."), L"1.000");
    EXPECT_EQ(Grouped(1000000, L" "), L"1 000 000");
    EXPECT_EQ(Grouped(-123456, L"."), L"-123.456");
    EXPECT_EQ(Grouped(-1234567, L""), L"-1234567");
}

}  // namespace
}  // namespace tessel::ui
