// Statements as people write them for the Jet engine, in files by theme, against what tesselsql answers to them.
// What differs from the golden file is written beside it as NAME.new, for scripts/promote_corpus.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <map>
#include <sstream>

#include "tools/commands.h"
#include "tools/design_json.h"

namespace tessel::tools {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kFewestStatements = 300;

fs::path Folder() {
    const char* folder = std::getenv("TESSEL_CORPUS_DIR");
    return folder ? fs::path(folder) : fs::path("tests/corpus");
}

std::vector<fs::path> Files() {
    std::vector<fs::path> files;
    for (const auto& entry : fs::directory_iterator(Folder())) {
        if (entry.path().extension() == ".sql") files.push_back(entry.path());
    }
    std::sort(files.begin(), files.end());
    return files;
}

/// The contents with plain line breaks, whatever the checkout made of them.
std::string Contents(const fs::path& path) {
    std::ifstream in(path, std::ios::binary);
    std::string text(std::istreambuf_iterator<char>(in), {});
    std::erase(text, '\r');
    return text;
}

std::string Answers(const fs::path& statements) {
    std::istringstream in(Contents(statements));
    std::ostringstream out;
    std::ostringstream err;
    EXPECT_EQ(RunCommand({"roundtrip", "--batch"}, in, out, err), kDone) << err.str();
    return out.str();
}

fs::path Beside(fs::path path, const char* extension) { return path.replace_extension(extension); }

TEST(Corpus, StatementsAreAnsweredAsReviewed) {
    for (const fs::path& file : Files()) {
        const std::string answers = Answers(file);
        const bool same = answers == Contents(Beside(file, ".golden"));
        EXPECT_TRUE(same) << file.filename().string() << " is answered otherwise than reviewed; see "
                          << Beside(file, ".new").string();
        if (!same) std::ofstream(Beside(file, ".new"), std::ios::binary) << answers;
    }
}

// How many statements open in the design, open with a message, or are refused, and why.
TEST(Corpus, EveryStatementOpensOrSaysWhyNot) {
    std::map<std::string, int> reasons;
    std::size_t opened = 0;
    std::size_t with_message = 0;
    std::size_t refused = 0;
    for (const fs::path& file : Files()) {
        std::istringstream lines(Answers(file));
        for (std::string line; std::getline(lines, line);) {
            const Json answer = Json::parse(line);
            if (answer["accepted"]) {
                ++(answer["messages"].empty() ? opened : with_message);
                EXPECT_FALSE(answer["sql"].get<std::string>().empty()) << line;
                continue;
            }
            ++refused;
            ASSERT_TRUE(answer.contains("error")) << line;
            EXPECT_GT(answer["error"]["line"].get<int>(), 0) << line;
            ++reasons[answer["error"]["message"].get<std::string>()];
        }
    }
    std::cout << opened << " open, " << with_message << " open with a message, " << refused << " are refused:\n";
    for (const auto& [reason, count] : reasons) std::cout << "  " << count << "  " << reason << '\n';
    EXPECT_GE(opened + with_message + refused, kFewestStatements);
}

}  // namespace
}  // namespace tessel::tools
