#include "tests/laws/random_source.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <iostream>

namespace tessel::laws {

std::uint64_t Seed() {
    const char* given = std::getenv("TESSEL_SEED");
    const std::uint64_t seed = given ? std::strtoull(given, nullptr, 10) : std::random_device()();
    std::cout << "TESSEL_SEED=" << seed << std::endl;
    testing::Test::RecordProperty("seed", std::to_string(seed));
    return seed;
}

int Rounds(int usual) {
    if (const char* given = std::getenv("TESSEL_ROUNDS")) return std::atoi(given);
    return usual / TESSEL_LAWS_DIVISOR;
}

}  // namespace tessel::laws
