#include "controls/editor/sql_colouring.h"

#include <gtest/gtest.h>

#include <random>

#include "common/text.h"
#include "controls/editor/sql_ini.h"

namespace tessel::controls {
namespace {

/// One letter a character: the style of each, blanks and plain names as ".".
std::string Picture(std::wstring_view text) {
    constexpr std::string_view kLetters = ".kftnsd#coMpE";
    std::string picture;
    for (SqlStyle style : ColourText(text, BuiltInColouring().words))
        picture.push_back(kLetters[static_cast<std::size_t>(style)]);
    return picture;
}

struct Case {
    const char* name;
    const wchar_t* text;
    const char* picture;
};

class ColouringOf : public testing::TestWithParam<Case> {};

TEST_P(ColouringOf, GivesThePicture) {
    ASSERT_EQ(std::wstring_view(GetParam().text).size(), std::string_view(GetParam().picture).size());
    EXPECT_EQ(Picture(GetParam().text), GetParam().picture);
}

const Case kCases[] = {
    {"KeywordsInAnyCase", L"Select a FROM b", "kkkkkk...kkkk.."},
    {"BracketedName", L"[Detalle de pedidos].x", "nnnnnnnnnnnnnnnnnnnno."},
    {"BracketWithDoubledClose", L"[a]]b] c", "nnnnnn.."},
    {"BackQuotedName", L"`año`", "nnnnn"},
    {"StringWithDoubledQuote", L"'it''s' x", "sssssss.."},
    {"QuotedText", L"\"a b\"", "sssss"},
    {"Numbers", L"1+2.5e3+&HFF", "dodddddodddd"},
    {"Date", L"x=#31/12/2024#", ".o############"},
    {"DateWithoutPartner", L"x=#31/12", ".oEEEEEE"},
    {"LineComment", L"a -- b\r\nc", "..cccc..."},
    {"BlockCommentOverLines", L"a /* b\r\nSELECT */ c", "..ccccccccccccccc.."},
    {"Macro", L"=@fecha,@{mi macro}", "oMMMMMMoMMMMMMMMMMM"},
    {"Parameters", L":desde ?", "pppppp.p"},
    {"FunctionBeforeItsParenthesis", L"Sum (a)", "fff.o.o"},
    {"FunctionWordAlone", L"Count, Sum", ".....o...."},
    {"LeftIsFunctionOrJoin", L"Left(a,1) LEFT JOIN b", "ffffo.odo.kkkk.kkkk.."},
    {"WordAfterPointIsAName", L"Pedidos.Order", ".......o....."},
    {"WordAfterBangIsAName", L"Pedidos!Select", ".......o......"},
    {"WordBeforePointIsAName", L"Order.Total", ".....o....."},
    {"TypeInCast", L"CAST(a AS INTEGER)", "ffffo..kk.ttttttto"},
    {"AccentedNameIsOneWord", L"SELECT Título", "kkkkkk......."},
    {"WordWithDigitFirst", L"90DaysAvg", "........."},
    {"UnreadableCharacter", L"a \u2019 b", "..E.."},
    {"UnclosedStringReachesToTheEnd", L"'a\r\nSELECT", "ssssssssss"},
    {"LoneCarriageReturnEndsALine", L"-- a\rSELECT", "cccc.kkkkkk"},
    {"Empty", L"", ""},
};

INSTANTIATE_TEST_SUITE_P(All, ColouringOf, testing::ValuesIn(kCases),
                         [](const auto& test) { return std::string(test.param.name); });

std::wstring RandomText(std::mt19937& random) {
    static const std::wstring kPieces[] = {
        L"SELECT ", L"Sum", L"(",    L")",    L"'",        L"\"",     L"[",
        L"]",       L"`",   L"#",    L"@{",   L"}",        L"@x",     L"--",
        L"/*",      L"*/",  L"\r\n", L"\n",   L"\r",       L" ",      L"\t",
        L"a",       L"ñ",   L".",    L"1",    L"&H",       L"&",      L":p",
        L"::",      L"<",   L"=",    L"LEFT", L"31/12/24", L"\u2028", std::wstring(1, L'\0'),
        L"1e5",
    };
    std::uniform_int_distribution<std::size_t> piece(0, std::size(kPieces) - 1);
    std::uniform_int_distribution<int> count(0, 40);
    std::wstring text;
    for (int i = count(random); i > 0; --i) text += kPieces[piece(random)];
    return text;
}

std::vector<std::wstring> Lines(std::wstring_view text) {
    std::vector<std::wstring> lines;
    while (!text.empty()) {
        const std::size_t length = LineLength(text);
        lines.emplace_back(text.substr(0, length));
        text.remove_prefix(length);
    }
    return lines;
}

// The colours of each line with the state that an editor keeps for it, as a number.
struct KeptLine {
    std::vector<StyleRun> runs;
    int state_after = 0;
    friend bool operator==(const KeptLine&, const KeptLine&) = default;
};

KeptLine ColourKept(const std::wstring& line, int state_before) {
    sql::LexerState state = UnpackState(state_before);
    KeptLine kept;
    kept.runs = ColourLine(line, BuiltInColouring().words, state);
    kept.state_after = PackState(state);
    return kept;
}

TEST(ColouringLaws, ColouringOneLineAgainEqualsColouringAllAgain) {
    constexpr unsigned kSeed = 20240917;
    std::mt19937 random(kSeed);
    SCOPED_TRACE("seed " + std::to_string(kSeed));
    const SqlWords words = BuiltInColouring().words;
    for (int round = 0; round < 400; ++round) {
        const std::wstring text = RandomText(random);
        const std::vector<std::wstring> lines = Lines(text);
        std::vector<int> before{0};
        std::vector<SqlStyle> joined;
        for (const std::wstring& line : lines) {
            sql::LexerState state = UnpackState(before.back());
            std::size_t length = 0;
            for (const StyleRun& run : ColourLine(line, words, state)) {
                joined.insert(joined.end(), run.length, run.style);
                length += run.length;
            }
            ASSERT_EQ(length, line.size()) << ToUtf8(text);
            before.push_back(PackState(state));
        }
        ASSERT_EQ(joined, ColourText(text, words)) << ToUtf8(text);
        for (std::size_t i = 0; i < lines.size(); ++i)
            ASSERT_EQ(ColourKept(lines[i], before[i]).state_after, before[i + 1]) << ToUtf8(text);
    }
}

TEST(ColouringLaws, AfterAnEditLinesBelowChangeOnlyWhileTheStateDiffers) {
    constexpr unsigned kSeed = 77;
    std::mt19937 random(kSeed);
    SCOPED_TRACE("seed " + std::to_string(kSeed));
    for (int round = 0; round < 400; ++round) {
        std::vector<std::wstring> lines = Lines(RandomText(random) + L"\r\n" + RandomText(random));
        std::vector<KeptLine> kept;
        for (const std::wstring& line : lines)
            kept.push_back(ColourKept(line, kept.empty() ? 0 : kept.back().state_after));

        const std::size_t edited = std::uniform_int_distribution<std::size_t>(0, lines.size() - 1)(random);
        lines[edited].insert(0, Lines(RandomText(random) + L"x").front().substr(0, 3));
        for (std::size_t i = edited; i < lines.size(); ++i) {
            const KeptLine again = ColourKept(lines[i], i == 0 ? 0 : kept[i - 1].state_after);
            const bool same_state = again.state_after == kept[i].state_after;
            kept[i] = again;
            if (same_state) break;
        }
        int state = 0;
        for (std::size_t i = 0; i < lines.size(); ++i) {
            ASSERT_EQ(kept[i], ColourKept(lines[i], state)) << i << " of " << lines.size();
            state = kept[i].state_after;
        }
    }
}

TEST(ColouringLaws, LineByLineReadsTheTokensOfTheWholeText) {
    constexpr unsigned kSeed = 4711;
    std::mt19937 random(kSeed);
    SCOPED_TRACE("seed " + std::to_string(kSeed));
    for (int round = 0; round < 400; ++round) {
        const std::wstring text = RandomText(random);
        const std::vector<SqlStyle> styles = ColourText(text, SqlWords{});
        sql::Lexer lexer(text);
        for (sql::Token token = lexer.Next(); token.kind != sql::TokenKind::End; token = lexer.Next()) {
            for (std::size_t i = token.begin; i < token.End(); ++i) {
                const bool comment = styles[i] == SqlStyle::Comment;
                const bool string = styles[i] == SqlStyle::String;
                const bool name = styles[i] == SqlStyle::Name;
                ASSERT_EQ(comment, token.kind == sql::TokenKind::Comment) << ToUtf8(text) << " at " << i;
                ASSERT_EQ(string,
                          token.kind == sql::TokenKind::String || token.kind == sql::TokenKind::QuotedText)
                    << ToUtf8(text) << " at " << i;
                ASSERT_EQ(name, token.kind == sql::TokenKind::BracketName ||
                                    token.kind == sql::TokenKind::BackQuoteName)
                    << ToUtf8(text) << " at " << i;
            }
        }
    }
}

TEST(LexerStates, EveryStateComesBackFromItsNumber) {
    using Inside = sql::LexerState::Inside;
    EXPECT_EQ(PackState({}), 0);
    for (int inside = 0; inside <= static_cast<int>(Inside::BraceMacro); ++inside) {
        for (bool after : {false, true}) {
            const sql::LexerState state{static_cast<Inside>(inside), after};
            EXPECT_EQ(UnpackState(PackState(state)), state);
        }
    }
    EXPECT_EQ(UnpackState(-1), sql::LexerState{});
    EXPECT_EQ(UnpackState(1000), sql::LexerState{});
}

}  // namespace
}  // namespace tessel::controls
