#include "controls/editor/text_search.h"

#include <gtest/gtest.h>

namespace tessel::controls {
namespace {

constexpr std::wstring_view kText = L"SELECT País, pais, PAÍS_2 FROM países -- pais";

std::optional<std::size_t> At(const std::optional<FoundText>& found) {
    return found ? std::optional(found->range.offset) : std::nullopt;
}

TEST(FindForward, IgnoresCaseAndKeepsAccents) {
    EXPECT_EQ(At(FindForward(kText, {L"país"}, 0)), 7u);
    EXPECT_EQ(At(FindForward(kText, {L"PAÍS"}, 8)), 19u);
    EXPECT_EQ(At(FindForward(kText, {L"pais"}, 0)), 13u);
    EXPECT_EQ(At(FindForward(kText, {L"pais"}, 14)), 41u);
}

TEST(FindForward, CountsCaseWhenAsked) {
    EXPECT_EQ(At(FindForward(kText, {L"PAÍS", true}, 0)), 19u);
    EXPECT_EQ(At(FindForward(kText, {L"paÍs", true}, 0)), std::nullopt);
}

TEST(FindForward, FindsOnlyWholeWordsWhenAsked) {
    EXPECT_EQ(At(FindForward(kText, {L"país", false, true}, 8)), 7u);
    EXPECT_EQ(At(FindForward(kText, {L"paíse", false, true}, 0)), std::nullopt);
    EXPECT_EQ(At(FindForward(L"[a] (b) c-d", {L"(b)", false, true}, 0)), 4u);
    EXPECT_EQ(At(FindForward(L"x(b)y", {L"(b)", false, true}, 0)), 1u);
    EXPECT_EQ(At(FindForward(L"año años", {L"año", false, true}, 1)), 0u);
}

TEST(FindForward, GoesRoundAndSaysSo) {
    const auto found = FindForward(kText, {L"país"}, 40);
    ASSERT_TRUE(found);
    EXPECT_EQ(found->range, (TextRange{7, 4}));
    EXPECT_TRUE(found->wrapped);
    EXPECT_FALSE(FindForward(kText, {L"país"}, 0)->wrapped);
}

TEST(FindForward, NothingIsNeverFound) {
    EXPECT_EQ(At(FindForward(kText, {L""}, 0)), std::nullopt);
    EXPECT_EQ(At(FindForward(L"", {L"a"}, 0)), std::nullopt);
    EXPECT_EQ(At(FindForward(L"ab", {L"abc"}, 0)), std::nullopt);
    EXPECT_EQ(At(FindForward(L"ab", {L"b"}, 99)), 1u);
}

TEST(FindBackward, FindsTheLastMatchThatEndsBefore) {
    EXPECT_EQ(At(FindBackward(L"aXaXa", {L"a"}, 5)), 4u);
    EXPECT_EQ(At(FindBackward(L"aXaXa", {L"a"}, 4)), 2u);
    EXPECT_EQ(At(FindBackward(L"aXaXa", {L"a"}, 2)), 0u);
    const auto round = FindBackward(L"aXaXa", {L"a"}, 0);
    ASSERT_TRUE(round);
    EXPECT_EQ(round->range.offset, 4u);
    EXPECT_TRUE(round->wrapped);
    EXPECT_EQ(At(FindBackward(L"ab", {L"abc"}, 2)), std::nullopt);
    EXPECT_EQ(At(FindBackward(L"ab", {L""}, 2)), std::nullopt);
}

TEST(Matches, WantsTheExactStretch) {
    EXPECT_TRUE(Matches(kText, {7, 4}, {L"país"}));
    EXPECT_FALSE(Matches(kText, {7, 5}, {L"país"}));
    EXPECT_FALSE(Matches(kText, {8, 4}, {L"país"}));
    EXPECT_FALSE(Matches(kText, {7, 0}, {L""}));
    EXPECT_FALSE(Matches(kText, {1000, 4}, {L"país"}));
}

TEST(ReplaceAll, IsOneChangeOfOneStretch) {
    const Replacement replacement = ReplaceAll(kText, {L"pais"}, L"Nación");
    EXPECT_EQ(replacement.count, 2u);
    EXPECT_EQ(replacement.range, (TextRange{13, 32}));
    EXPECT_EQ(replacement.text, L"Nación, PAÍS_2 FROM países -- Nación");
}

TEST(ReplaceAll, TakesMatchesFromTheBeginningAndNoneInsideAnother) {
    EXPECT_EQ(ReplaceAll(L"aaaaa", {L"aa"}, L"b").text, L"bb");
    EXPECT_EQ(ReplaceAll(L"aaaaa", {L"aa"}, L"b").count, 2u);
}

TEST(ReplaceAll, DoesNotSearchWhatItPutIn) {
    const Replacement replacement = ReplaceAll(L"t t", {L"t"}, L"t.t");
    EXPECT_EQ(replacement.text, L"t.t t.t");
    EXPECT_EQ(replacement.count, 2u);
}

TEST(ReplaceAll, WithoutAMatchNothingChanges) {
    EXPECT_EQ(ReplaceAll(kText, {L"ciudad"}, L"x").count, 0u);
    EXPECT_EQ(ReplaceAll(kText, {L""}, L"x").count, 0u);
}

}  // namespace
}  // namespace tessel::controls
