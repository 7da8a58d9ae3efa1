// How a statement is written does not change its design; and what a design composes is read back as that
// design.
#include <gtest/gtest.h>

#include "common/text.h"
#include "tests/laws/random_statements.h"
#include "tests/laws/reading.h"
#include "tests/laws/respelling.h"

namespace tessel::laws {
namespace {

constexpr int kStatementsPerDatabase = 50;
constexpr int kMostFailures = 10;

/// A cell keeps the parentheses that its expression is written with.
std::wstring WordsOf(const std::wstring& line) {
    std::wstring words = WithoutSpelling(line);
    std::erase_if(words, [](wchar_t ch) { return ch == L'(' || ch == L')' || ch == L' '; });
    return words;
}

/// What depends on the spelling for a reason: the same expression twice is found by its text, and a cell's
/// length is limited.
bool DependsOnSpelling(const Reading& reading) {
    if (!reading.analysis.error) return false;
    const std::wstring& message = reading.analysis.error->message;
    return message.find(L"dos veces la misma expresión") != std::wstring::npos ||
           message.find(L"255 caracteres") != std::wstring::npos;
}

bool SameDesign(const Reading& a, const Reading& b) {
    if (a.analysis.accepted != b.analysis.accepted || a.analysis.messages != b.analysis.messages)
        return false;
    if (a.lines.size() != b.lines.size()) return false;
    for (std::size_t index = 0; index < a.lines.size(); ++index) {
        if (WordsOf(a.lines[index]) != WordsOf(b.lines[index])) return false;
    }
    return true;
}

/// Calls `check(statement, schema, random)` for random statements; it answers what is wrong, or nothing.
template <typename Check>
void ForRandomStatements(int rounds, Check check) {
    const std::uint64_t seed = Seed();
    int failures = 0;
    for (int done = 0, number = 0; done < rounds && failures < kMostFailures; ++number) {
        const std::uint64_t database_seed = seed + static_cast<std::uint64_t>(number);
        Random random(database_seed);
        const Database database = RandomDatabase(random);
        const schema::Schema schema = database.MakeSchema();
        RandomStatements statements(random, database);
        for (int index = 0; index < kStatementsPerDatabase && done < rounds; ++index, ++done) {
            const schema::Schema* known = random.Chance(50) ? &schema : nullptr;
            StatementParts statement = statements.Next(true);
            // The same choices for each simpler candidate, so that what is left still fails for the same
            // reason.
            const Random choices = random;
            const std::string wrong = check(statement, known, random);
            if (wrong.empty()) continue;
            ++failures;
            const auto fails = [&](const StatementParts& candidate) {
                Random again = choices;
                return !check(candidate, known, again).empty();
            };
            for (bool shrunk = fails(statement); shrunk;) {
                shrunk = false;
                for (const StatementParts& candidate : Simpler(statement)) {
                    if (!fails(candidate)) continue;
                    statement = candidate;
                    shrunk = true;
                    break;
                }
            }
            Random again = choices;
            ADD_FAILURE() << "TESSEL_SEED=" << database_seed << " TESSEL_ROUNDS=" << index + 1
                          << (known ? "" : " (without schema)") << '\n'
                          << wrong << "\nshrunk:\n"
                          << check(statement, known, again);
        }
    }
}

TEST(SpellingLaws, DesignOfAStatementIsReadBackAsItself) {
    ForRandomStatements(
        Rounds(2000), [](const StatementParts& statement, const schema::Schema* schema, Random&) {
            const std::wstring text = TextOf(statement);
            const Reading first = Read(text, schema);
            if (!first.analysis.accepted) return std::string();
            const std::string wrong = Instability(first, schema);
            if (wrong.empty()) return std::string();
            return ToUtf8(text) + "\ngives\n" + Print(first) + ToUtf8(first.composed) + "\nwhich " + wrong;
        });
}

std::string CheckSpelling(const StatementParts& statement, const std::wstring& spelled,
                          const schema::Schema* schema) {
    // A condition may be shown whole as long as its text fits a cell.
    if (spelled.size() > model::kMaxCellLength) return {};
    const Reading plain = Read(TextOf(statement), schema);
    const Reading other = Read(spelled, schema);
    if (DependsOnSpelling(plain) || DependsOnSpelling(other) || SameDesign(plain, other)) return {};
    return ToUtf8(TextOf(statement)) + "\nis " + Print(plain) + ToUtf8(spelled) + "\nis " + Print(other);
}

TEST(SpellingLaws, RedundantParenthesesChangeNothing) {
    ForRandomStatements(Rounds(2000),
                        [](const StatementParts& statement, const schema::Schema* schema, Random& random) {
                            return CheckSpelling(statement, TextOf(statement, &random), schema);
                        });
}

TEST(SpellingLaws, WhiteSpaceCommentsCaseAndSemicolonChangeNothing) {
    ForRandomStatements(Rounds(2000),
                        [](const StatementParts& statement, const schema::Schema* schema, Random& random) {
                            return CheckSpelling(statement, Respelled(TextOf(statement), random), schema);
                        });
}

}  // namespace
}  // namespace tessel::laws
