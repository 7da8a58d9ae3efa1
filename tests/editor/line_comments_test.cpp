#include "controls/editor/line_comments.h"

#include <gtest/gtest.h>

#include "common/text.h"
#include "controls/editor/text_layout.h"

namespace tessel::controls {
namespace {

TEST(LineComments, GoBeforeEveryLineAtTheOutermostIndentation) {
    const struct {
        const wchar_t* lines;
        const wchar_t* commented;
    } kCases[] = {
        {L"SELECT a", L"-- SELECT a"},
        {L"SELECT a\r\nFROM t\r\n", L"-- SELECT a\r\n-- FROM t\r\n"},
        {L"    a,\r\n        b", L"    -- a,\r\n    --     b"},
        {L"a\r\n\r\n  \r\nb", L"-- a\r\n\r\n  \r\n-- b"},
        {L"\ta\n\tb", L"\t-- a\n\t-- b"},
        {L"-- a\r\nb", L"-- -- a\r\n-- b"},
    };
    for (const auto& test : kCases) {
        EXPECT_EQ(ToggleLineComments(test.lines), test.commented) << ToUtf8(test.lines);
        EXPECT_EQ(ToggleLineComments(test.commented), test.lines) << ToUtf8(test.commented);
    }
}

TEST(LineComments, AreTakenAwayWithOrWithoutTheirBlank) {
    EXPECT_EQ(ToggleLineComments(L"--a\r\n  --  b"), L"a\r\n   b");
    EXPECT_EQ(ToggleLineComments(L"--"), L"");
}

TEST(LineComments, LeaveNothingButBlanksAlone) {
    EXPECT_EQ(ToggleLineComments(L""), L"");
    EXPECT_EQ(ToggleLineComments(L"  \r\n\r\n"), L"  \r\n\r\n");
}

TEST(TextLayout, ThePlaceIsBehindTheSameCharacter) {
    EXPECT_EQ(SamePlace("SELECT a FROM t", 8, "SELECT a\r\nFROM t"), 8u);
    EXPECT_EQ(SamePlace("SELECT a FROM t", 11, "SELECT\r\n    a\r\nFROM t"), 17u);
    EXPECT_EQ(SamePlace("  a", 0, "a"), 0u);
    EXPECT_EQ(SamePlace("a b", 99, "a\r\nb"), 4u);
}

}  // namespace
}  // namespace tessel::controls
