// Random choices that can be repeated: every run prints its seed, and TESSEL_SEED gives it back
// (support/seed.h). TESSEL_ROUNDS sets how many statements or designs a law looks at.
#pragma once

#include <cstddef>
#include <cstdint>
#include <random>
#include <string>
#include <vector>

namespace tessel::laws {

/// The seed of this run; printed and recorded with the running test.
[[nodiscard]] std::uint64_t Seed();
/// TESSEL_ROUNDS, or the given number (fewer in builds with sanitizers).
[[nodiscard]] int Rounds(int usual);

class Random {
public:
    explicit Random(std::uint64_t seed) : engine_(seed) {}

    int Pick(int low, int high) { return std::uniform_int_distribution<int>(low, high)(engine_); }
    bool Chance(int percent) { return Pick(1, 100) <= percent; }
    template <typename Item>
    const Item& Of(const std::vector<Item>& items) {
        return items[static_cast<std::size_t>(Pick(0, static_cast<int>(items.size()) - 1))];
    }
    template <typename Item>
    void Shuffle(std::vector<Item>& items) {
        for (std::size_t index = items.size(); index > 1; --index) {
            std::swap(items[index - 1],
                      items[static_cast<std::size_t>(Pick(0, static_cast<int>(index) - 1))]);
        }
    }

private:
    std::mt19937_64 engine_;
};

}  // namespace tessel::laws
