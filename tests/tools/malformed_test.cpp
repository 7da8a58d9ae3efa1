// The messages about texts that are no statement, as the command line gives them: the tree on the error
// output with line and column, the round trip as JSON.
#include <gtest/gtest.h>

#include <span>
#include <sstream>

#include "common/text.h"
#include "tests/sqlparser/malformed_texts.h"
#include "tools/commands.h"
#include "tools/design_json.h"

namespace tessel::tools {
namespace {

using sql::test::MalformedText;

constexpr std::size_t kFewestTexts = 100;

std::vector<MalformedText> AllTexts() {
    std::vector<MalformedText> all;
    const auto add = [&all](std::span<const MalformedText> texts) {
        all.insert(all.end(), texts.begin(), texts.end());
    };
    add(sql::test::kNoSelects);
    add(sql::test::kSelectLists);
    add(sql::test::kCrosstabsAndEscapes);
    add(sql::test::kNotClosed);
    add(sql::test::kFromAndJoins);
    add(sql::test::kConditionsAndClauses);
    return all;
}

TEST(Malformed, TheTreeRefusesEachWithPlaceAndReason) {
    const std::vector<MalformedText> texts = AllTexts();
    EXPECT_GE(texts.size(), kFewestTexts);
    for (const MalformedText& text : texts) {
        // The line break that ends the input is the file's and not the text's.
        std::istringstream in(ToUtf8(text.text) + "\n");
        std::ostringstream out;
        std::ostringstream err;
        EXPECT_EQ(RunCommand({"tree"}, in, out, err), kNoAnswer) << ToUtf8(text.text);
        EXPECT_EQ(out.str(), "") << ToUtf8(text.text);
        EXPECT_EQ(err.str(), "tesselsql: línea " + std::to_string(text.line) + ", columna " +
                                 std::to_string(text.column) + ": " + ToUtf8(text.message) + "\n")
            << ToUtf8(text.text);
    }
}

TEST(Malformed, TheBatchGoesOnAndGivesEachItsPlaceAndReason) {
    const std::vector<MalformedText> texts = AllTexts();
    std::string input;
    for (const MalformedText& text : texts) input += ToUtf8(text.text) + "\n---\n";
    std::istringstream in(input);
    std::ostringstream out;
    std::ostringstream err;
    ASSERT_EQ(RunCommand({"roundtrip", "--batch"}, in, out, err), kDone);
    std::istringstream lines(out.str());
    std::size_t answered = 0;
    for (std::string line; std::getline(lines, line); ++answered) {
        ASSERT_LT(answered, texts.size());
        const MalformedText& text = texts[answered];
        const Json answer = Json::parse(line);
        EXPECT_FALSE(answer["parsed"].get<bool>()) << line;
        EXPECT_FALSE(answer["accepted"].get<bool>()) << line;
        const Json& error = answer["error"];
        EXPECT_EQ(error["line"].get<std::size_t>(), text.line) << ToUtf8(text.text);
        EXPECT_EQ(error["column"].get<std::size_t>(), text.column) << ToUtf8(text.text);
        EXPECT_EQ(error["length"].get<std::size_t>(), text.length) << ToUtf8(text.text);
        EXPECT_EQ(error["message"].get<std::string>(), ToUtf8(text.message)) << ToUtf8(text.text);
    }
    EXPECT_EQ(answered, texts.size());
}

}  // namespace
}  // namespace tessel::tools
