#include "tests/laws/random_source.h"

#include "tests/support/seed.h"

#include <cstdlib>

namespace tessel::laws {

std::uint64_t Seed() {
    return tests::Seed();
}

int Rounds(int usual) {
    if (const char* given = std::getenv("TESSEL_ROUNDS")) return std::atoi(given);
    return usual / TESSEL_LAWS_DIVISOR;
}

}  // namespace tessel::laws
