// The seed of tests with random inputs. A fixed one, so that a check tells of the change it looks at;
// TESSEL_SEED=number repeats a run and TESSEL_SEED=fresh looks further. It is printed and recorded with the
// test.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <random>
#include <string>

namespace tessel::tests {

[[nodiscard]] inline std::uint64_t Seed() {
    constexpr std::uint64_t kUsualSeed = 20240305;
    const char* const given = std::getenv("TESSEL_SEED");
    std::uint64_t seed = kUsualSeed;
    if (given)
        seed = std::string(given) == "fresh" ? std::random_device()() : std::strtoull(given, nullptr, 10);
    std::cout << "TESSEL_SEED=" << seed << std::endl;
    ::testing::Test::RecordProperty("seed", std::to_string(seed));
    return seed;
}

}  // namespace tessel::tests
