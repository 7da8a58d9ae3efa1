#include "common/text.h"

#include <gtest/gtest.h>

namespace tessel {
namespace {

std::wstring Pile() {
    return FromUtf8("\xF0\x9F\x92\xA9");
}

TEST(Trim, RemovesBlanksAtBothEndsOnly) {
    EXPECT_EQ(Trim(L"  a b "), L"a b");
    EXPECT_EQ(Trim(L"\ta "), L"\ta");
    EXPECT_EQ(Trim(L"   "), L"");
    EXPECT_EQ(Trim(L""), L"");
}

TEST(Lower, KnowsTheLettersOfSeveralScriptsWhateverTheLocale) {
    EXPECT_EQ(Lower(L"ABCXYZ019_[]@"), L"abcxyz019_[]@");
    EXPECT_EQ(Lower(L"\u00C1\u00C9\u00CD\u00D3\u00DA\u00DC\u00D1\u00C7\u00C0\u00D8\u00DE"),
              L"\u00E1\u00E9\u00ED\u00F3\u00FA\u00FC\u00F1\u00E7\u00E0\u00F8\u00FE");
    EXPECT_EQ(Lower(L"\u0100\u0141\u0152\u0160\u0178\u017D"), L"\u0101\u0142\u0153\u0161\u00FF\u017E");
    EXPECT_EQ(Lower(L"\u0391\u03A9\u0386\u038F"), L"\u03B1\u03C9\u03AC\u03CE");
    EXPECT_EQ(Lower(L"\u0410\u042F\u0401"), L"\u0430\u044F\u0451");
}

TEST(Lower, LeavesCharactersWithoutACapitalAlone) {
    const std::wstring signs = L"\u00D7\u00F7\u00DF\u00FF\u0131\u0138\u0149\u03A2\u00AA";
    EXPECT_EQ(Lower(signs), signs);
    const std::wstring small = L"a\u00E1\u0101\u03B1\u0430";
    EXPECT_EQ(Lower(small), small);
}

TEST(Lower, IsIdempotentForEveryCharacterOfTheFirstPlane) {
    for (unsigned code = 1; code < 0x10000; ++code) {
        const wchar_t once = LowerChar(static_cast<wchar_t>(code));
        ASSERT_EQ(LowerChar(once), once) << std::hex << code;
    }
}

TEST(SameName, IgnoresCaseAndSurroundingBlanks) {
    EXPECT_TRUE(SameName(L" A\u00D1O ", L"a\u00F1o"));
    EXPECT_FALSE(SameName(L"ano", L"a\u00F1o"));
    EXPECT_FALSE(SameIgnoringCase(L" a", L"a"));
    EXPECT_EQ(Folded(L"  Descendente "), L"descendente");
}

TEST(WhiteSpace, CountsEveryKindWhereBlankIsOnlyCharacter32) {
    EXPECT_TRUE(IsAllWhiteSpace(L""));
    EXPECT_TRUE(IsAllWhiteSpace(L" \t\r\n\u00A0\u2003\u3000"));
    EXPECT_FALSE(IsAllWhiteSpace(L" \t;"));
    EXPECT_EQ(Trim(L"\u00A0"), L"\u00A0");
}

TEST(Utf16, LengthCountsTwoUnitsForACharacterBeyondTheFirstPlane) {
    EXPECT_EQ(Utf16Length(L"a\u00F1o"), 3u);
    EXPECT_EQ(Utf16Length(L"a" + Pile()), 3u);
}

TEST(Utf16, CutNeverDividesAPair) {
    EXPECT_EQ(CutToUtf16(L"abc", 2), L"ab");
    EXPECT_EQ(CutToUtf16(L"abc", 9), L"abc");
    EXPECT_EQ(CutToUtf16(L"a" + Pile() + L"b", 2), L"a");
    EXPECT_EQ(CutToUtf16(L"a" + Pile() + L"b", 3), L"a" + Pile());
}

TEST(Utf8, RoundTripsTextOfEveryWidth) {
    const std::string bytes = "a\xC3\xB1o \xE2\x82\xAC \xF0\x9F\x92\xA9";
    EXPECT_EQ(ToUtf8(FromUtf8(bytes)), bytes);
    EXPECT_EQ(FromUtf8("A\xC3\xB1o"), L"A\u00F1o");
}

TEST(Utf8, GivesOneReplacementForEachIllFormedByte) {
    EXPECT_EQ(FromUtf8("a\xFFz"), L"a\uFFFDz");
    EXPECT_EQ(FromUtf8("\xC3"), L"\uFFFD");
    EXPECT_EQ(FromUtf8("\xC0\xAF"), L"\uFFFD\uFFFD");
    EXPECT_EQ(FromUtf8("\xED\xA0\x80"), L"\uFFFD\uFFFD\uFFFD");
    EXPECT_EQ(FromUtf8("\xF4\x90\x80\x80"), L"\uFFFD\uFFFD\uFFFD\uFFFD");
    EXPECT_EQ(FromUtf8("\xE2\x82"), L"\uFFFD\uFFFD");
}

TEST(Utf8, WritesAReplacementForALoneSurrogate) {
    const std::wstring lone = {L'a', static_cast<wchar_t>(0xD800), L'b'};
    EXPECT_EQ(ToUtf8(lone),
              "a\xEF\xBF\xBD"
              "b");
    EXPECT_EQ(ToUtf8(std::wstring(1, static_cast<wchar_t>(0xDC00))), "\xEF\xBF\xBD");
}

TEST(Split, KeepsEmptyPieces) {
    EXPECT_EQ(Split(L"a,,b", L','), (std::vector<std::wstring>{L"a", L"", L"b"}));
    EXPECT_EQ(Split(L"", L','), std::vector<std::wstring>{L""});
    EXPECT_EQ(Split(L",", L','), (std::vector<std::wstring>{L"", L""}));
}

}  // namespace
}  // namespace tessel
