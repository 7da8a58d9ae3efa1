// What a design composes is read back as that design.
#include <gtest/gtest.h>

#include <iostream>

#include "common/text.h"
#include "compose/compose.h"
#include "tests/laws/random_designs.h"
#include "tests/laws/reading.h"
#include "tests/laws/respelling.h"

namespace tessel::laws {
namespace {

constexpr int kMostFailures = 10;

struct Counts {
    int made = 0;
    int read_back = 0;  ///< accepted without a message
};

/// Calls `check(design, reading, schema)` for each design whose text the analysis reads without a message; it
/// answers what is wrong, or nothing.
template <typename Fill, typename Check>
Counts ForRandomDesigns(int rounds, Fill fill, Check check) {
    const std::uint64_t seed = Seed();
    Counts counts;
    int failures = 0;
    for (int round = 0; round < rounds && failures < kMostFailures; ++round) {
        const std::uint64_t design_seed = seed + static_cast<std::uint64_t>(round);
        Random random(design_seed);
        const Database database = RandomDatabase(random);
        const schema::Schema schema = database.MakeSchema();
        const schema::Schema* known = random.Chance(50) ? &schema : nullptr;
        model::Design design;
        design.diagram.Bind(known);
        fill(random, database, design);
        ++counts.made;
        const std::wstring text = compose::BuildSQL(design);
        const Reading reading = Read(text, known);
        if (!reading.analysis.accepted || !reading.analysis.messages.empty()) continue;
        ++counts.read_back;
        const std::string wrong = check(design, reading, known);
        if (wrong.empty()) continue;
        ++failures;
        ADD_FAILURE() << "TESSEL_SEED=" << design_seed << " TESSEL_ROUNDS=1"
                      << (known ? "" : " (without schema)") << '\n'
                      << Print(DesignLines(design)) << "composes\n"
                      << ToUtf8(text) << "\nwhich " << wrong;
    }
    std::cout << "  designs: " << counts.made << ", read back: " << counts.read_back << '\n';
    return counts;
}

TEST(DesignLaws, TidyDesignIsReadBackAsItIs) {
    const auto check = [](const model::Design& design, const Reading& reading, const schema::Schema*) {
        if (reading.lines == DesignLines(design)) return std::string();
        return "is read back as\n" + Print(reading.lines);
    };
    const Counts counts = ForRandomDesigns(Rounds(2000), FillTidyDesign, check);
    // The law says little if most texts are refused.
    if (counts.made >= 100) {
        EXPECT_GT(counts.read_back * 10, counts.made * 6);
    }
}

TEST(DesignLaws, AnyDesignSettlesAfterItsFirstComposition) {
    const auto check = [](const model::Design&, const Reading& reading, const schema::Schema* schema) {
        return Instability(reading, schema);
    };
    const Counts counts = ForRandomDesigns(Rounds(2000), FillAnyDesign, check);
    if (counts.made >= 100) {
        EXPECT_GT(counts.read_back, 0);
    }
}

}  // namespace
}  // namespace tessel::laws
