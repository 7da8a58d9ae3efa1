// The order in which the user's language puts names, letter case aside. Exactly the system's own, which its
// sort keys tell; but a key of each name costs the system about a microsecond for every twenty letters, and a
// database has tens of thousands of names. So the weights of the letters are asked of it once each, and the
// names compared by them; the system's keys are made for names with letters that do not have one plain
// weight, and for names that the weights do not tell apart.
#pragma once

#include <windows.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tessel::schema {

struct NameToOrder {
    unsigned group = 0;  ///< names of a lower group come first
    std::wstring_view name;
    std::wstring_view schema;  ///< decides between equal names
};

/// The numbers of the names, in that order. Names that are equal in everything keep theirs.
[[nodiscard]] std::vector<std::uint32_t> ReadingOrder(const std::vector<NameToOrder>& names,
                                                      LCID language = LOCALE_USER_DEFAULT);

/// A key whose bytes stand in that order, made by the system.
[[nodiscard]] std::string ReadingOrderKey(std::wstring_view name, LCID language = LOCALE_USER_DEFAULT);

}  // namespace tessel::schema
