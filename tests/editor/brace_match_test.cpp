#include "controls/editor/brace_match.h"

#include <gtest/gtest.h>

#include <string>

#include "controls/editor/sql_colouring.h"

namespace tessel::controls {
namespace {

constexpr std::size_t kFar = 1000;

Partner At(const std::string& text, std::size_t at, std::size_t limit = kFar) {
    const std::wstring wide(text.begin(), text.end());
    const std::vector<SqlStyle> styles = ColourText(wide, {});
    return FindPartner(text, at, limit,
                       [&](std::size_t place) { return styles[place] == SqlStyle::Operator; });
}

Partner Found(std::size_t at) {
    return {PartnerSearch::Found, at};
}

TEST(BraceMatch, PairsAreFoundFromBothEnds) {
    const std::string text = "f(a, (b), {c})";
    for (const auto& [open, close] : {std::pair<std::size_t, std::size_t>{1, 13}, {5, 7}, {10, 12}}) {
        EXPECT_EQ(At(text, open), Found(close));
        EXPECT_EQ(At(text, close), Found(open));
    }
}

TEST(BraceMatch, StringsCommentsAndNamesDoNotCount) {
    EXPECT_EQ(At("(')' [)] /* ) */ \")\")", 0), Found(20));
    EXPECT_EQ(At("( -- )\n)", 0), Found(7));
    EXPECT_EQ(At("(@{)})", 0), Found(5));
}

TEST(BraceMatch, OneWithoutPartnerIsMissing) {
    EXPECT_EQ(At("((a)", 0).result, PartnerSearch::Missing);
    EXPECT_EQ(At("a))", 1).result, PartnerSearch::Missing);
    EXPECT_EQ(At("abc", 1).result, PartnerSearch::Missing);
    EXPECT_EQ(At("(", 5).result, PartnerSearch::Missing);
}

TEST(BraceMatch, BeyondTheLimitNothingIsSaid) {
    EXPECT_EQ(At("(    )", 0, 4).result, PartnerSearch::TooFar);
    EXPECT_EQ(At("(    )", 5, 4).result, PartnerSearch::TooFar);
    EXPECT_EQ(At("(    )", 0, 5), Found(5));
    EXPECT_EQ(At("(     ", 0, 5).result, PartnerSearch::Missing);
}

TEST(BraceMatch, BracketsBelongToTheirName) {
    const std::wstring line = L"a, [b]]c], [d";
    EXPECT_EQ(BracketNameAt(line, {}, 3), (BracketName{{3, 6}, true}));
    EXPECT_EQ(BracketNameAt(line, {}, 8), (BracketName{{3, 6}, true}));
    EXPECT_EQ(BracketNameAt(line, {}, 5), std::nullopt);
    EXPECT_EQ(BracketNameAt(line, {}, 11), (BracketName{{11, 2}, false}));
    EXPECT_EQ(BracketNameAt(L"'[a]'", {}, 1), std::nullopt);
    sql::LexerState inside;
    inside.inside = sql::LexerState::Inside::BracketName;
    EXPECT_EQ(BracketNameAt(L"b] [c]", inside, 1), std::nullopt);
    EXPECT_EQ(BracketNameAt(L"b] [c]", inside, 3), (BracketName{{3, 3}, true}));
}

}  // namespace
}  // namespace tessel::controls
