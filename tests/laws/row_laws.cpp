#include "tests/laws/row_laws.h"

#include <gtest/gtest.h>

#include <iostream>

#include "common/text.h"
#include "tests/laws/random_statements.h"
#include "tests/laws/same_rows.h"

namespace tessel::laws {

namespace {

constexpr int kStatementsPerDatabase = 50;
constexpr int kMostFailures = 10;

std::string Print(const std::vector<std::wstring>& script) {
    std::wstring text;
    for (const std::wstring& line : script) text += line + L";\n";
    return ToUtf8(text);
}

}  // namespace

void CheckRows(Engine& engine, int rounds) {
    const std::uint64_t seed = Seed();
    Tally tally;
    int failures = 0;
    for (int done = 0, number = 0; done < rounds && failures < kMostFailures; ++number) {
        // Each database has a seed of its own, with which its statements alone can be run again.
        const std::uint64_t database_seed = seed + static_cast<std::uint64_t>(number);
        Random random(database_seed);
        const Database database = RandomDatabase(random);
        const schema::Schema schema = database.MakeSchema();
        ASSERT_NO_FATAL_FAILURE(engine.Load(database.Script()));
        RandomStatements statements(random, database);
        for (int index = 0; index < kStatementsPerDatabase && done < rounds; ++index, ++done) {
            const schema::Schema* known = random.Chance(70) ? &schema : nullptr;
            const StatementParts statement = statements.Next(known != nullptr);
            const Judgement judgement = Judge(statement, known, engine);
            tally.Add(statement, judgement);
            if (judgement.verdict != Verdict::Different) continue;
            ++failures;
            const StatementParts shrunk = Shrunk(statement, known, engine);
            const Judgement again = Judge(shrunk, known, engine);
            ADD_FAILURE() << "TESSEL_SEED=" << database_seed << " TESSEL_ROUNDS=" << index + 1
                          << (known ? "" : " (without schema)") << "\noriginal: " << ToUtf8(TextOf(statement))
                          << "\ncomposed: " << ToUtf8(judgement.composed) << '\n'
                          << judgement.difference << "shrunk:   " << ToUtf8(TextOf(shrunk))
                          << "\ncomposed: " << ToUtf8(again.composed) << '\n'
                          << again.difference << Print(database.Script());
        }
    }
    std::cout << tally.Report();
}

}  // namespace tessel::laws
