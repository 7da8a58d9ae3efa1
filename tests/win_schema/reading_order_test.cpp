// The order of names is the system's, whatever letters the names have and whatever the language is.
#include "schema/win32/reading_order.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <tuple>

#include "common/text.h"
#include "tests/support/seed.h"

namespace tessel::schema {
namespace {

constexpr LCID kSpanish = 0x0C0A, kTraditionalSpanish = 0x040A, kEnglish = 0x0409, kCzech = 0x0405,
               kHungarian = 0x040E, kDanish = 0x0406, kTurkish = 0x041F;
constexpr LCID kLanguages[] = {kSpanish, kTraditionalSpanish, kEnglish, kCzech, kHungarian, kDanish,
                               kTurkish};

/// The order by the system's keys alone.
std::vector<std::uint32_t> OrderByKeys(const std::vector<NameToOrder>& names, LCID language) {
    std::vector<std::tuple<unsigned, std::string, std::string, std::uint32_t>> keyed;
    for (std::uint32_t i = 0; i < names.size(); ++i)
        keyed.emplace_back(names[i].group, ReadingOrderKey(names[i].name, language),
                           ReadingOrderKey(names[i].schema, language), i);
    std::sort(keyed.begin(), keyed.end());
    std::vector<std::uint32_t> order;
    for (const auto& entry : keyed) order.push_back(std::get<3>(entry));
    return order;
}

std::vector<std::wstring> InOrder(const std::vector<std::wstring>& names, LCID language = kSpanish) {
    std::vector<NameToOrder> entries;
    for (const std::wstring& name : names) entries.push_back({0, name, {}});
    std::vector<std::wstring> sorted;
    for (const std::uint32_t number : ReadingOrder(entries, language)) sorted.push_back(names[number]);
    return sorted;
}

TEST(ReadingOrder, LetterCaseAsideAndAccentsAfterTheLetters) {
    EXPECT_EQ(InOrder({L"Pedidos", L"artículo2", L"Articulo1", L"ARTÍCULO", L"articulo", L"pedido", L"Zona"}),
              (std::vector<std::wstring>{L"articulo", L"ARTÍCULO", L"Articulo1", L"artículo2", L"pedido",
                                         L"Pedidos", L"Zona"}));
}

TEST(ReadingOrder, GroupsComeFirstAndSchemasDecideBetweenEqualNames) {
    const std::vector<NameToOrder> names = {{2, L"a", L""},  {1, L"b", L"z"}, {1, L"b", L"c"},
                                            {1, L"B", L"c"}, {1, L"c", L""},  {1, L"", L""}};
    EXPECT_EQ(ReadingOrder(names, kSpanish), (std::vector<std::uint32_t>{5, 2, 3, 1, 4, 0}));
}

TEST(ReadingOrder, NoNamesHaveAnOrderToo) {
    EXPECT_TRUE(ReadingOrder({}).empty());
}

TEST(ReadingOrder, IsThatOfTheSystemsKeysInEveryLanguage) {
    // Among them letters that some languages sort as one, hyphens and apostrophes, which the system passes
    // over, expansions, and letters of other scripts.
    const std::wstring_view kPieces[] = {
        L"a",  L"A", L"á", L"e",  L"É", L"c",  L"h",   L"ch",     L"Ch",        L"l", L"ll",
        L"n",  L"ñ", L"Ñ", L"s",  L"z", L"cs", L"dzs", L"aa",     L"å",         L"ö", L"ı",
        L"I",  L"İ", L"ß", L"ss", L"æ", L"_",  L"-",   L"'",      L" ",         L"1", L"2",
        L"10", L"[", L".", L"x",  L"Ω", L"я",  L"表",  L"\u0301", L"\U0001F600"};
    std::mt19937 random(tests::Seed());
    const auto below = [&](std::size_t count) { return random() % count; };
    std::vector<std::wstring> texts;
    for (int i = 0; i < 600; ++i) {
        std::wstring& text = texts.emplace_back(below(3) == 0 ? L"Almacén_" : L"");
        for (std::size_t pieces = below(7); pieces > 0; --pieces) text += kPieces[below(std::size(kPieces))];
    }
    std::vector<NameToOrder> names;
    for (const std::wstring& text : texts)
        names.push_back({static_cast<unsigned>(below(2)), text, texts[below(texts.size())]});
    for (const LCID language : kLanguages) {
        const auto order = ReadingOrder(names, language), wanted = OrderByKeys(names, language);
        for (std::size_t i = 0; i < order.size(); ++i)
            ASSERT_EQ(order[i], wanted[i])
                << "language " << language << ", place " << i << ": " << ToUtf8(names[order[i]].name)
                << " instead of " << ToUtf8(names[wanted[i]].name);
    }
}

}  // namespace
}  // namespace tessel::schema
