// The verbs "macros" and "expand", and values as literals.
#include <gtest/gtest.h>

#include <sstream>

#include "tools/commands.h"
#include "tools/parameter_literal.h"

namespace tessel::tools {
namespace {

struct Outcome {
    int status = 0;
    std::string out;
    std::string err;
};

Outcome Answered(const std::vector<std::string>& arguments, const std::string& input = {}) {
    std::istringstream in(input);
    std::ostringstream out, err;
    Outcome outcome;
    outcome.status = RunCommand(arguments, in, out, err);
    outcome.out = out.str();
    outcome.err = err.str();
    return outcome;
}

TEST(MacrosVerb, ListsOneMacroALine) {
    EXPECT_EQ(Answered({"macros", "a = @desde AND b = @{Fecha de alta}"}).out, "desde\n{Fecha de alta}\n");
    EXPECT_EQ(Answered({"macros"}, "@uno\n@dos x").out, "uno\n@dos\n");
    EXPECT_EQ(Answered({"macros", "nada"}).out, "");
}

TEST(ExpandVerb, ReplacesDatesParametersAndNames) {
    const Outcome outcome = Answered(
        {"expand", "--param", "Cliente=adVarChar=O'Brien", "--param", "total=adInteger=42", "--user", "maria",
         "--pc", "PC-01",
         "x = @cliente AND n = @total AND f = @fecha AND u = @winuser AND p = @nombrepcwin AND @pages"});
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.out,
              "x = 'O'Brien' AND n = 42 AND f = DATE() AND u = 'maria' AND p = 'PC-01' AND @pages");
}

TEST(ExpandVerb, BraceFormGivesTheRawValue) {
    EXPECT_EQ(Answered({"expand", "--param", "{c}=adVarChar=a=b", "x @{c}"}).out, "x a=b");
}

TEST(ExpandVerb, TextComesFromTheInputUnchangedOtherwise) {
    EXPECT_EQ(Answered({"expand"}, "SELECT 'ñ'\r\nFROM t\n").out, "SELECT 'ñ'\r\nFROM t\n");
}

TEST(ExpandVerb, FirstOfTwoParametersOfOneNameWins) {
    EXPECT_EQ(Answered({"expand", "--param", "a=adInteger=1", "--param", " A =adInteger=2", "@a"}).out, "1");
}

TEST(ExpandVerb, RefusesUnusableArgumentsInOneLine) {
    for (const std::vector<std::string>& arguments :
         {std::vector<std::string>{"expand", "--param", "a", "@a"},
          {"expand", "--param", "a=adBoolean=quizás", "@a"},
          {"expand", "--param", "a=adDate=2024-02-30", "@a"},
          {"expand", "--nada", "@a"},
          {"expand", "--user"},
          {"expand", "uno", "dos"}}) {
        const Outcome outcome = Answered(arguments);
        EXPECT_EQ(outcome.status, 2);
        EXPECT_EQ(outcome.out, "");
        EXPECT_EQ(outcome.err.find('\n'), outcome.err.size() - 1) << outcome.err;
    }
}

TEST(ParameterLiteral, FollowsTheTypesClass) {
    struct Case {
        const wchar_t* type;
        const wchar_t* value;
        const wchar_t* literal;
    };
    const Case cases[] = {
        {L"adInteger", L"42", L"42"},
        {L"ADVARCHAR ", L"O'Brien", L"'O'Brien'"},
        {L"nonsense", L"x", L"'x'"},
        {L"adGUID", L"{1}", L"{1}"},
        {L"adBoolean", L"true", L"-1"},
        {L"adBoolean", L"Falso", L"0"},
        {L"adDBTimeStamp", L"2024-03-05 14:07:09", L"'2024-03-05 14:07:09'"},
        {L"adDate", L"2024-03-05T14:07:09", L"'2024-03-05 14:07:09'"},
        {L"adDate", L"2024-03-05", L"'2024-03-05 00:00:00'"},
        {L"adDBTime", L"2024-03-05 14:07:09", L"'14:07:09'"},
        {L"adDBTime", L"14:07:09", L"'14:07:09'"},
        {L"adDBDate", L"2024-02-29 14:07:09", L"'2024-02-29'"},
        {L"adBSTR", L"2024-03-05", L"'2024-03-05'"},
        {L"adBinary", L"x", L""},
        {L"adEmpty", L"x", L""},
    };
    for (const Case& c : cases) {
        const Result<std::wstring> literal = ParameterLiteral(c.type, c.value);
        ASSERT_TRUE(literal);
        EXPECT_EQ(*literal, c.literal);
    }
}

TEST(ParameterLiteral, RefusesWhatIsNoDate) {
    for (const wchar_t* value :
         {L"", L"2023-02-29", L"2024-13-01", L"2024-00-01", L"24:00:00", L"2024-01-01 1:2:3"})
        EXPECT_FALSE(ParameterLiteral(L"adDate", value));
}

}  // namespace
}  // namespace tessel::tools
