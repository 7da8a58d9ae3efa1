#include "schema/name_table.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace tessel::schema {
namespace {

class Names {
public:
    explicit Names(std::size_t most) : table_(most) {}

    bool Add(const std::wstring& name) {
        names_.push_back(name);
        const auto number = static_cast<std::uint32_t>(names_.size() - 1);
        return table_.Add(NameHash(name), number, [&](std::uint32_t other) { return IsSame(other, name); });
    }
    std::optional<std::uint32_t> Find(const std::wstring& name) const {
        return table_.Find(NameHash(name), [&](std::uint32_t other) { return IsSame(other, name); });
    }

private:
    bool IsSame(std::uint32_t number, const std::wstring& name) const {
        return SameIgnoringCase(names_[number], name);
    }

    NameTable table_;
    std::vector<std::wstring> names_;
};

TEST(NameTable, FindsNamesWhateverTheirLetterCase) {
    Names names(3);
    EXPECT_TRUE(names.Add(L"Clientes"));
    EXPECT_TRUE(names.Add(L"Envíos"));
    EXPECT_TRUE(names.Add(L""));
    EXPECT_EQ(names.Find(L"CLIENTES"), 0u);
    EXPECT_EQ(names.Find(L"ENVÍOS"), 1u);
    EXPECT_EQ(names.Find(L""), 2u);
    EXPECT_EQ(names.Find(L"Pedidos"), std::nullopt);
}

TEST(NameTable, TheFirstOfTwoEqualNamesStays) {
    Names names(2);
    EXPECT_TRUE(names.Add(L"Clientes"));
    EXPECT_FALSE(names.Add(L"clientes"));
    EXPECT_EQ(names.Find(L"Clientes"), 0u);
}

TEST(NameTable, HoldsAsManyNamesAsItHasRoomFor) {
    for (const std::size_t count : {std::size_t{0}, std::size_t{1}, std::size_t{1000}}) {
        Names names(count);
        for (std::size_t i = 0; i < count; ++i) EXPECT_TRUE(names.Add(L"t" + std::to_wstring(i)));
        for (std::size_t i = 0; i < count; ++i) EXPECT_EQ(names.Find(L"T" + std::to_wstring(i)), i);
        EXPECT_EQ(names.Find(L"t" + std::to_wstring(count)), std::nullopt);
    }
}

TEST(NameTable, NamesOfTheSameHashAreToldApart) {
    NameTable table(2);
    EXPECT_TRUE(table.Add(7, 0, [](std::uint32_t) { return false; }));
    EXPECT_TRUE(table.Add(7, 1, [](std::uint32_t) { return false; }));
    EXPECT_EQ(table.Find(7, [](std::uint32_t number) { return number == 1; }), 1u);
}

}  // namespace
}  // namespace tessel::schema
