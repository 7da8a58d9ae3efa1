// Finds names among many without a copy of any: a table of hashes and numbers. What a number's name is, and
// when two are equal, the caller says. A database has tens of thousands of names, and a map that keeps a copy
// of each costs more than reading them.
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "common/text.h"

namespace tessel::schema {

/// A hash of the text that does not regard letter case.
[[nodiscard]] inline std::uint32_t NameHash(std::wstring_view text) {
    constexpr std::uint64_t kPrime = 0x9E3779B97F4A7C15;
    constexpr std::size_t kAtOnce = 4;
    std::uint64_t hash = text.size();
    for (std::size_t i = 0; i < text.size(); i += kAtOnce) {
        std::uint64_t letters = 0;
        for (const wchar_t ch : text.substr(i, kAtOnce))
            letters = (letters << 16) ^ static_cast<std::uint32_t>(LowerChar(ch));
        hash = (hash ^ letters) * kPrime;
        hash ^= hash >> 32;
    }
    return static_cast<std::uint32_t>(hash);
}

class NameTable {
public:
    /// Makes room for that many names; more are not to be added.
    explicit NameTable(std::size_t most_names) : slots_(std::bit_ceil(2 * most_names + 1)) {}

    /// The number of the name of that hash for which `is_same(number)` holds.
    template <class IsSame>
    [[nodiscard]] std::optional<std::uint32_t> Find(std::uint32_t hash, const IsSame& is_same) const {
        const Slot& slot = slots_[Place(hash, is_same)];
        return slot.number_and_one == 0 ? std::nullopt : std::optional(slot.number_and_one - 1);
    }
    /// Adds a number unless one of the same name is there. True when it was added.
    template <class IsSame>
    bool Add(std::uint32_t hash, std::uint32_t number, const IsSame& is_same) {
        Slot& slot = slots_[Place(hash, is_same)];
        if (slot.number_and_one != 0) return false;
        slot = {hash, number + 1};
        return true;
    }

private:
    struct Slot {
        std::uint32_t hash = 0;
        std::uint32_t number_and_one = 0;  ///< 0 in a free slot
    };

    /// Where the name is, or where it would be added.
    template <class IsSame>
    std::size_t Place(std::uint32_t hash, const IsSame& is_same) const {
        const std::size_t mask = slots_.size() - 1;
        std::size_t at = hash & mask;
        for (; slots_[at].number_and_one != 0; at = (at + 1) & mask)
            if (slots_[at].hash == hash && is_same(slots_[at].number_and_one - 1)) break;
        return at;
    }

    std::vector<Slot> slots_;
};

}  // namespace tessel::schema
