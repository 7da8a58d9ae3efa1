// Statements as people write them for the Jet engine, in files by theme, against what tesselsql answers to
// them. What differs from the golden file is written beside it as NAME.new, for scripts/promote_corpus.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>
#include <map>
#include <set>
#include <sstream>

#include "common/identifiers.h"
#include "common/text.h"
#include "sqlparser/sql_parser.h"
#include "tools/commands.h"
#include "tools/design_json.h"

namespace tessel::tools {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kFewestStatements = 300;
/// Of the plain statements, how many of a hundred open in the design without a message; the corpus seeks the
/// odd shapes.
constexpr std::size_t kFewestPlainOpen = 85;

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

/// The statements of a file, by the lines of "---" between them.
std::vector<std::string> Statements(const fs::path& path) {
    std::istringstream lines(Contents(path));
    std::vector<std::string> statements(1);
    for (std::string line; std::getline(lines, line);) {
        if (line == "---") {
            statements.emplace_back();
        } else {
            statements.back() += line + '\n';
        }
    }
    return statements;
}

/// A single SELECT of the Jet dialect from tables that are named once each, without TOP and without a SELECT
/// in FROM: the kind of statement that a design is made for.
bool IsPlainSelect(const std::string& text) {
    sql::SqlParser parser;
    if (parser.Parse(FromUtf8(text)) || !parser.GetStatement()) return false;
    const sql::Statement& statement = *parser.GetStatement();
    if (statement.top_range.length > 0 || !statement.union_operands.empty()) return false;
    if (statement.Columns.empty()) return false;
    // These belong to SELECT in the Jet dialect; all others to other dialects or other statements.
    const bool beyond = std::ranges::any_of(statement.beyond, [](const sql::BeyondItem& item) {
        using enum sql::Beyond;
        return item.what != Parameters && item.what != InDatabase && item.what != WithOwnerAccess;
    });
    std::set<std::wstring> names;
    for (const sql::TableRef& table : statement.Tables)
        names.insert(IdentifierKey(statement.Slice(table.name)));
    return !beyond && names.size() == statement.Tables.size();
}

std::string Answers(const fs::path& statements) {
    std::istringstream in(Contents(statements));
    std::ostringstream out;
    std::ostringstream err;
    EXPECT_EQ(RunCommand({"roundtrip", "--batch"}, in, out, err), kDone) << err.str();
    return out.str();
}

fs::path Beside(fs::path path, const char* extension) {
    return path.replace_extension(extension);
}

TEST(Corpus, StatementsAreAnsweredAsReviewed) {
    for (const fs::path& file : Files()) {
        const std::string answers = Answers(file);
        const bool same = answers == Contents(Beside(file, ".golden"));
        EXPECT_TRUE(same) << file.filename().string() << " is answered otherwise than reviewed; see "
                          << Beside(file, ".new").string();
        if (!same) std::ofstream(Beside(file, ".new"), std::ios::binary) << answers;
    }
}

/// How many statements open, open with a message, or are refused, and why.
struct Tally {
    std::size_t opened = 0;
    std::size_t with_message = 0;
    std::map<std::string, int> reasons;
    std::size_t refused = 0;

    std::size_t All() const { return opened + with_message + refused; }

    void Add(const Json& answer) {
        if (answer["accepted"]) {
            ++(answer["messages"].empty() ? opened : with_message);
            return;
        }
        ++refused;
        ++reasons[answer["error"]["message"].get<std::string>()];
    }

    void Print(const char* title) const {
        std::cout << title << ": " << All() << " statements, " << opened << " open ("
                  << (All() == 0 ? 0 : opened * 1000 / All()) / 10.0 << " %), " << with_message
                  << " open with a message, " << refused << " are refused:\n";
        for (const auto& [reason, count] : reasons) std::cout << "  " << count << "  " << reason << '\n';
    }
};

TEST(Corpus, EveryStatementOpensOrSaysWhyNot) {
    Tally all;
    Tally plain;
    for (const fs::path& file : Files()) {
        const std::vector<std::string> statements = Statements(file);
        std::istringstream lines(Answers(file));
        std::size_t index = 0;
        for (std::string line; std::getline(lines, line); ++index) {
            const Json answer = Json::parse(line);
            if (answer["accepted"]) {
                EXPECT_FALSE(answer["sql"].get<std::string>().empty()) << line;
            } else {
                ASSERT_TRUE(answer.contains("error")) << line;
                EXPECT_GT(answer["error"]["line"].get<int>(), 0) << line;
            }
            all.Add(answer);
            ASSERT_LT(index, statements.size());
            if (IsPlainSelect(statements[index])) plain.Add(answer);
        }
        EXPECT_EQ(index, statements.size());
    }
    all.Print("all");
    plain.Print("single Jet SELECTs without TOP, UNION, self joins and sub-selects in FROM");
    EXPECT_GE(all.All(), kFewestStatements);
    EXPECT_GE(plain.opened * 100, plain.All() * kFewestPlainOpen);
}

}  // namespace
}  // namespace tessel::tools
