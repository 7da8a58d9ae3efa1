// Random expression trees, written with no more parentheses than the precedence table asks for, must come
// back as the same trees. The table here is the test's own.
#include <gtest/gtest.h>

#include <random>

#include "common/text.h"
#include "sqlparser/dump.h"
#include "sqlparser/printer.h"
#include "sqlparser/sql_parser.h"

namespace tessel::sql {
namespace {

struct OperatorCase {
    const wchar_t* text;
    const wchar_t* dump;
    int level;
    bool flat;
};

constexpr OperatorCase kOperators[] = {
    {L"Imp", L"imp", 1, true},  {L"EQV", L"eqv", 2, true}, {L"Xor", L"xor", 3, true},
    {L"or", L"or", 4, true},    {L"AND", L"and", 5, true}, {L"=", L"=", 7, false},
    {L"<>", L"<>", 7, false},   {L"<=", L"<=", 7, false},  {L">", L">", 7, false},
    {L"&", L"&", 8, true},      {L"+", L"+", 9, true},     {L"-", L"-", 9, true},
    {L"Mod", L"mod", 10, true}, {L"\\", L"\\", 11, true},  {L"*", L"*", 12, true},
    {L"/", L"/", 12, true},     {L"^", L"^", 14, true},
};
constexpr int kNotLevel = 6;
constexpr int kCompareLevel = 7;
constexpr int kSignLevel = 13;
constexpr int kPrimaryLevel = 15;

struct Written {
    std::wstring text;
    std::wstring dump;
    int level = kPrimaryLevel;
    std::wstring run;  ///< the operator of a flat run
};

class Generator {
public:
    explicit Generator(unsigned seed) : random_(seed) {}

    Written Expression(int depth) {
        if (depth == 0) return Leaf();
        switch (Pick(8)) {
            case 0:
                return Prefix(L"Not", L"not", kNotLevel, depth);
            case 1:
                return Prefix(L"-", L"neg", kSignLevel, depth);
            case 2:
                return Predicate(depth);
            case 3:
                return Call(depth);
            default:
                return Binary(depth);
        }
    }

private:
    unsigned Pick(unsigned count) { return random_() % count; }

    std::wstring Gap() {
        constexpr const wchar_t* gaps[] = {L" ", L" ", L"  ", L"\r\n", L"\t", L" /* y */ ", L" -- x\n"};
        return gaps[Pick(7)];
    }

    Written Leaf() {
        constexpr const wchar_t* leaves[] = {L"a",   L"t.b", L"[c d]", L"1",         L".5",
                                             L"'x'", L"@m",  L"?",     L"#1/2/2020#"};
        const std::wstring leaf = leaves[Pick(9)];
        return {leaf, leaf, kPrimaryLevel, {}};
    }

    // In parentheses when it binds more loosely than its place asks for.
    Written Fitted(int depth, int level) {
        Written operand = Expression(depth - 1);
        if (operand.level >= level) return operand;
        return {L"(" + operand.text + L")", L"(paren " + operand.dump + L")", kPrimaryLevel, {}};
    }

    Written Binary(int depth) {
        const OperatorCase& op = kOperators[Pick(std::size(kOperators))];
        const Written left = Fitted(depth, op.level);
        const Written right = Fitted(depth, op.level + 1);
        Written all;
        all.text = left.text + Gap() + op.text + Gap() + right.text;
        all.level = op.level;
        all.run = op.flat ? op.dump : L"";
        const bool grows = op.flat && left.run == op.dump;
        all.dump = grows ? left.dump.substr(0, left.dump.size() - 1) + L" " + right.dump + L")"
                         : L"(" + std::wstring(op.dump) + L" " + left.dump + L" " + right.dump + L")";
        return all;
    }

    Written Prefix(const wchar_t* text, const wchar_t* dump, int level, int depth) {
        const Written operand = Fitted(depth, level);
        return {
            text + Gap() + operand.text, L"(" + std::wstring(dump) + L" " + operand.dump + L")", level, {}};
    }

    Written Predicate(int depth) {
        const Written value = Fitted(depth, kCompareLevel);
        const Written first = Fitted(depth, kCompareLevel + 1);
        const Written second = Fitted(depth, kCompareLevel + 1);
        const bool negated = Pick(2) == 0;
        const std::wstring no = negated ? L" NOT" + Gap() : L" ";
        const std::wstring name = negated ? L"(not-" : L"(";
        const std::wstring start = value.text + no;
        switch (Pick(4)) {
            case 0:
                return {start + L"LIKE " + first.text,
                        name + L"like " + value.dump + L" " + first.dump + L")",
                        kCompareLevel,
                        {}};
            case 1:
                return {start + L"BETWEEN " + first.text + L" And " + second.text,
                        name + L"between " + value.dump + L" " + first.dump + L" " + second.dump + L")",
                        kCompareLevel,
                        {}};
            case 2:
                return {start + L"IN (" + first.text + L"," + second.text + L")",
                        name + L"in " + value.dump + L" " + first.dump + L" " + second.dump + L")",
                        kCompareLevel,
                        {}};
            default:
                return {value.text + L" IS" + no + L" NULL",
                        (negated ? L"(is-not-null " : L"(is-null ") + value.dump + L")",
                        kCompareLevel,
                        {}};
        }
    }

    Written Call(int depth) {
        const Written first = Expression(depth - 1);
        const Written second = Expression(depth - 1);
        return {L"f(" + first.text + L"," + second.text + L")",
                L"(call f " + first.dump + L" " + second.dump + L")",
                kPrimaryLevel,
                {}};
    }

    std::mt19937 random_;
};

TEST(Precedence, RandomTreesComeBackAsTheyWereWritten) {
    const unsigned seed = 20260105;
    SCOPED_TRACE("seed " + std::to_string(seed));
    Generator generator(seed);
    for (int round = 0; round < 5000; ++round) {
        const Written written = generator.Expression(1 + round % 5);
        SqlParser parser;
        ASSERT_FALSE(parser.Parse(L"SELECT " + written.text)) << ToUtf8(written.text) << "\n"
                                                              << ToUtf8(parser.Errors()[0].message);
        const Statement& statement = *parser.GetStatement();
        ASSERT_EQ(statement.Columns.size(), 1u) << ToUtf8(written.text);
        ASSERT_EQ(ToUtf8(DumpExpression(statement, statement.Columns[0].node)), ToUtf8(written.dump))
            << ToUtf8(written.text);
        ASSERT_EQ(statement.Text(statement.Columns[0].expression), written.text);
        SqlParser again;
        ASSERT_FALSE(again.Parse(Print(statement)));
        ASSERT_EQ(Dump(*again.GetStatement()), Dump(statement));
    }
}

}  // namespace
}  // namespace tessel::sql
