// The short ways of the analysis tell what the long ones would, on random statements: what is taken for the
// statement without being parsed is the statement, spoilt texts included, and a look at two expressions tells
// what their forms tell.
#include <gtest/gtest.h>

#include "tests/laws/expression_pairs.h"
#include "tests/laws/random_statements.h"
#include "tests/laws/reading.h"
#include "tests/laws/side_by_side.h"

namespace tessel::laws {
namespace {

constexpr int kStatementsPerDatabase = 50;
constexpr int kSpoiltPerStatement = 12;

TEST(SideBySideLaws, TakesNothingThatTheComparisonRefuses) {
    const std::uint64_t seed = Seed();
    const int rounds = Rounds(4000);
    int shown = 0;
    int taken = 0;
    int taken_spoilt = 0;
    for (int done = 0, number = 0; done < rounds && !HasFailure(); ++number) {
        Random random(seed + static_cast<std::uint64_t>(number));
        const Database database = RandomDatabase(random);
        const schema::Schema schema = database.MakeSchema();
        RandomStatements statements(random, database);
        for (int index = 0; index < kStatementsPerDatabase && done < rounds; ++index, ++done) {
            const schema::Schema* known = random.Chance(50) ? &schema : nullptr;
            const std::wstring text = TextOf(statements.Next(true));
            EXPECT_EQ(MisjudgedPair(text, known), "");
            const Reading reading = Read(text, known);
            if (!reading.analysis.accepted || !reading.analysis.messages.empty()) continue;
            ++shown;
            EXPECT_EQ(UnfoundedReading(text, reading.composed, known), "");
            if (IsTakenUnparsed(text, reading.composed, known)) ++taken;
            for (int spoilt = 0; spoilt < kSpoiltPerStatement; ++spoilt) {
                const std::wstring other = Spoilt(reading.composed, random);
                EXPECT_EQ(UnfoundedReading(text, other, known), "");
                const std::wstring another = Spoilt(text, random);
                EXPECT_EQ(UnfoundedReading(another, reading.composed, known), "");
                if (IsTakenUnparsed(another, reading.composed, known)) ++taken_spoilt;
            }
        }
    }
    std::cout << shown << " statements shown, " << taken << " taken unparsed; of spoilt ones " << taken_spoilt
              << std::endl;
    EXPECT_GT(taken, shown / 10);
    EXPECT_GT(taken_spoilt, 0);
}

}  // namespace
}  // namespace tessel::laws
