#include "controls/editor/editor_text.h"

#include <gtest/gtest.h>

#include <random>

namespace tessel::controls {
namespace {

const wchar_t kHigh = static_cast<wchar_t>(0xD83D);
const wchar_t kLow = static_cast<wchar_t>(0xDE00);

std::wstring Units(std::initializer_list<wchar_t> units) {
    return std::wstring(units);
}

TEST(EditorText, PlainUtf8ForWellFormedText) {
    EXPECT_EQ(ToEditorBytes(L"Año €"), "A\xC3\xB1o \xE2\x82\xAC");
    EXPECT_EQ(ToEditorBytes(L"\U0001F600"), "\xF0\x9F\x98\x80");
    EXPECT_EQ(FromEditorBytes("\xF0\x9F\x98\x80"), L"\U0001F600");
}

TEST(EditorText, EveryTextComesBack) {
    const std::wstring kTexts[] = {
        L"",
        L"a\r\nb\rc\nd",
        Units({L'a', L'\0', L'b'}),
        Units({kHigh}),
        Units({kLow}),
        Units({kLow, kHigh}),
        Units({kHigh, L'x', kLow}),
        Units({kHigh, kHigh, L'\r', kLow}),
        L"\uFFFD\uFFFE\uFFFF",
        L"\U0010FFFF",
    };
    for (const std::wstring& text : kTexts) EXPECT_EQ(FromEditorBytes(ToEditorBytes(text)), text);
}

TEST(EditorText, RandomUnitsComeBack) {
    constexpr unsigned kSeed = 99;
    std::mt19937 random(kSeed);
    SCOPED_TRACE("seed " + std::to_string(kSeed));
    // Surrogates one after the other are a pair where units are 16 bits wide and two characters where they
    // are not, and come back either way.
    const wchar_t kSome[] = {
        L'a', L'\0', L'\r', L'\n', L'ñ', L'€', kHigh, kLow, static_cast<wchar_t>(0xDFFF)};
    std::uniform_int_distribution<std::size_t> pick(0, std::size(kSome) - 1);
    for (int round = 0; round < 500; ++round) {
        std::wstring text;
        for (int i = 0; i < 20; ++i) text.push_back(kSome[pick(random)]);
        const std::string bytes = ToEditorBytes(text);
        ASSERT_EQ(FromEditorBytes(bytes), text);
        ASSERT_EQ(UnitsInBytes(bytes), text.size());
    }
}

TEST(EditorText, OffsetsMatchTheUnits) {
    const std::wstring text = L"Año € \U0001F600 fin";
    const std::string bytes = ToEditorBytes(text);
    for (std::size_t units = 0; units <= text.size(); ++units) {
        const bool inside_pair = units > 0 && units < text.size() &&
                                 static_cast<std::uint32_t>(text[units]) >= 0xDC00 &&
                                 static_cast<std::uint32_t>(text[units]) <= 0xDFFF;
        const std::size_t counted = inside_pair ? units + 1 : units;
        EXPECT_EQ(BytesOfUnits(bytes, units), ToEditorBytes(text.substr(0, counted)).size()) << units;
    }
    EXPECT_EQ(BytesOfUnits(bytes, text.size() + 100), bytes.size());
}

TEST(EditorText, BytesThatAreNoCharacterBecomeOneReplacementEach) {
    EXPECT_EQ(FromEditorBytes("a\xFF"
                              "b"),
              L"a\uFFFDb");
    EXPECT_EQ(FromEditorBytes("\xC3"), L"\uFFFD");
    EXPECT_EQ(FromEditorBytes("\xC0\x80"), L"\uFFFD\uFFFD");
    EXPECT_EQ(FromEditorBytes("\xF4\x90\x80\x80"), L"\uFFFD\uFFFD\uFFFD\uFFFD");
}

}  // namespace
}  // namespace tessel::controls
