#include "common/diagnostic.h"

#include <gtest/gtest.h>

namespace tessel {
namespace {

struct Place {
    std::size_t offset, line, column;
};

TEST(MakeDiagnostic, CountsLinesEndedByEitherKindOfBreak) {
    const std::wstring text = L"ab\r\ncd\nef\rgh";
    const Place places[] = {{0, 1, 1}, {1, 1, 2}, {2, 1, 3},  {3, 1, 4}, {4, 2, 1},
                            {7, 3, 1}, {9, 3, 3}, {10, 4, 1}, {12, 4, 3}};
    for (const Place& place : places) {
        const Diagnostic diagnostic = MakeDiagnostic(text, {place.offset, 1}, L"mensaje");
        EXPECT_EQ(diagnostic.line, place.line) << place.offset;
        EXPECT_EQ(diagnostic.column, place.column) << place.offset;
        EXPECT_EQ(diagnostic.range, (TextRange{place.offset, 1}));
        EXPECT_EQ(diagnostic.message, L"mensaje");
    }
}

TEST(MakeDiagnostic, APlaceBehindTheTextIsItsEnd) {
    const Diagnostic diagnostic = MakeDiagnostic(L"a\nbc", {99, 0}, L"");
    EXPECT_EQ(diagnostic.line, 2u);
    EXPECT_EQ(diagnostic.column, 3u);
}

}  // namespace
}  // namespace tessel
