#include "macros/macros.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>
#include <random>

#include "common/text.h"
#include "tests/support/seed.h"

namespace {

using namespace tessel;
using macros::GetMacros;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

struct Parameter {
    std::wstring literal;
    std::wstring text;
};

class FakeSource final : public macros::MacroSource {
public:
    std::map<std::wstring, Parameter> parameters;  // by folded name
    bool fails = false;

    std::optional<std::wstring> ParameterLiteral(std::wstring_view name) override {
        const Parameter* found = Find(name);
        return found ? std::optional(found->literal) : std::nullopt;
    }
    std::optional<std::wstring> ParameterText(std::wstring_view name) override {
        const Parameter* found = Find(name);
        return found ? std::optional(found->text) : std::nullopt;
    }
    std::optional<std::wstring> UserName() override {
        return fails ? std::nullopt : std::optional<std::wstring>(L"maria");
    }
    std::optional<std::wstring> ComputerName() override { return L"PC-01"; }

private:
    const Parameter* Find(std::wstring_view name) {
        const auto found = parameters.find(Folded(name));
        return fails || found == parameters.end() ? nullptr : &found->second;
    }
};

std::wstring Replaced(std::wstring_view sql, FakeSource source = {}) {
    return macros::ReplaceMacros(sql, source);
}

TEST(GetMacros, ListsPlainNamesWithoutAt) {
    EXPECT_THAT(GetMacros(L"a = @desde AND b = @hasta"), ElementsAre(L"desde", L"hasta"));
}

TEST(GetMacros, KeepsOrderAndDuplicates) {
    EXPECT_THAT(GetMacros(L"@b @a @b"), ElementsAre(L"b", L"a", L"b"));
}

TEST(GetMacros, EveryTerminatorEndsAName) {
    const std::wstring terminators = L" {}[]+-*/<>=!(),:?'&\"";
    ASSERT_EQ(terminators.size(), 20u + 1u);  // and the double quote
    for (wchar_t ch : terminators)
        EXPECT_THAT(GetMacros(std::wstring(L"@uno") + ch + L"dos"), ElementsAre(L"uno"))
            << static_cast<int>(ch);
}

TEST(GetMacros, AtPointDigitUnderscoreAndTabDoNotEndAName) {
    EXPECT_THAT(GetMacros(L"@a.b"), ElementsAre(L"a.b"));
    EXPECT_THAT(GetMacros(L"@a@b c"), ElementsAre(L"a@b"));
    EXPECT_THAT(GetMacros(L"@a_1\tb c"), ElementsAre(L"a_1\tb"));
}

TEST(GetMacros, BraceFormKeepsItsBracesAndTerminators) {
    EXPECT_THAT(GetMacros(L"@{Fecha de alta (1)}"), ElementsAre(L"{Fecha de alta (1)}"));
}

TEST(GetMacros, TabInBracesBecomesABlank) {
    EXPECT_THAT(GetMacros(L"@{a\tb}"), ElementsAre(L"{a b}"));
}

TEST(GetMacros, BlankBraceNameIsDropped) {
    EXPECT_THAT(GetMacros(L"@{  } @x"), ElementsAre(L"x"));
}

TEST(GetMacros, UnterminatedBraceEndsTheList) {
    EXPECT_THAT(GetMacros(L"@{fecha"), IsEmpty());
    EXPECT_THAT(GetMacros(L"@uno @{fecha @dos"), ElementsAre(L"uno"));
}

TEST(GetMacros, SpaceAfterAtYieldsNothing) {
    EXPECT_THAT(GetMacros(L"@ nombre"), IsEmpty());
}

TEST(GetMacros, AtAsLastCharacterAddsNothing) {
    EXPECT_THAT(GetMacros(L"@"), IsEmpty());
    EXPECT_THAT(GetMacros(L"@uno @"), ElementsAre(L"uno"));
}

TEST(GetMacros, TextWithoutAtYieldsNothing) {
    EXPECT_THAT(GetMacros(L"SELECT 1"), IsEmpty());
    EXPECT_THAT(GetMacros(L""), IsEmpty());
}

TEST(GetMacros, TheTerminatorCannotBeginTheNextMacro) {
    // The brace that ends "uno" is skipped, so "{x}" is ordinary text and "dos" a plain name.
    EXPECT_THAT(GetMacros(L"@uno{x}@dos}"), ElementsAre(L"uno", L"dos"));
}

TEST(GetMacros, AMegabyteOfAtIsOneName) {
    const std::wstring text(1 << 20, L'@');
    const auto list = GetMacros(text);
    ASSERT_EQ(list.size(), 1u);
    EXPECT_EQ(list[0].size(), text.size() - 1);
}

TEST(ReplaceMacros, DateBecomesACall) {
    EXPECT_EQ(Replaced(L"SELECT * FROM T WHERE F = @fecha"), L"SELECT * FROM T WHERE F = DATE()");
}

TEST(ReplaceMacros, FixedNamesInEitherLanguageAndAnyCase) {
    const std::pair<const wchar_t*, const wchar_t*> cases[] = {
        {L"@fecha", L"DATE()"},       {L"@date", L"DATE()"},        {L"@FECHA", L"DATE()"},
        {L"@Date", L"DATE()"},        {L"@hora", L"TIME()"},        {L"@time", L"TIME()"},
        {L"@winuser", L"'maria'"},    {L"@usuariowin", L"'maria'"}, {L"@winpcname", L"'PC-01'"},
        {L"@nombrepcwin", L"'PC-01'"}};
    for (const auto& [text, expected] : cases) EXPECT_EQ(Replaced(text), expected);
}

TEST(ReplaceMacros, ReportMacrosStay) {
    for (const wchar_t* text :
         {L"@pagenumber", L"@numpagina", L"@pages", L"@paginas", L"@datetime", L"@fechahora"}) {
        FakeSource source;
        source.parameters[Folded(text + 1)] = {L"1", L"1"};
        EXPECT_EQ(Replaced(text, source), text);
    }
}

TEST(ReplaceMacros, ReplacesByPlainSubstring) {
    EXPECT_EQ(Replaced(L"@hora, @horario"), L"TIME(), TIME()rio");
}

TEST(ReplaceMacros, LongerNameFirstLeavesTheShorterToItself) {
    FakeSource source;
    source.parameters[L"horario"] = {L"9", L"9"};
    EXPECT_EQ(Replaced(L"@horario, @hora", source), L"9, TIME()");
}

TEST(ReplaceMacros, BraceFormOfAFixedNameIsAParameter) {
    EXPECT_EQ(Replaced(L"@{winuser} @{fecha}"), L"@{winuser} @{fecha}");
    FakeSource source;
    source.parameters[L"{winuser}"] = {L"'x'", L"x"};
    EXPECT_EQ(Replaced(L"@{winuser}", source), L"x");
}

TEST(ReplaceMacros, ParameterBecomesItsLiteralAndInBracesItsValue) {
    FakeSource source;
    source.parameters[L"cliente"] = {L"'Ana'", L"Ana"};
    source.parameters[L"{cliente}"] = {L"'Eva'", L"Eva"};
    EXPECT_EQ(Replaced(L"n = @Cliente OR n = @{cliente}", source), L"n = 'Ana' OR n = Eva");
}

TEST(ReplaceMacros, NamesWithAPointStay) {
    FakeSource source;
    source.parameters[L"t.campo"] = {L"1", L"1"};
    EXPECT_EQ(Replaced(L"@T.Campo", source), L"@T.Campo");
}

TEST(GetMacros, AQualifiedNameIsListedWhole) {
    EXPECT_THAT(GetMacros(L"x = @T.Campo"), ElementsAre(L"T.Campo"));
}

TEST(ReplaceMacros, ATextWithoutAtIsReturnedUnchanged) {
    for (const wchar_t* text : {L"", L"SELECT 1", L"  SELECT\r\n'ñ' "}) EXPECT_EQ(Replaced(text), text);
}

TEST(ReplaceMacros, UnknownParameterStays) {
    EXPECT_EQ(Replaced(L"x = @nadie"), L"x = @nadie");
}

TEST(ReplaceMacros, FailingLookUpLeavesTheTextAndGoesOn) {
    FakeSource source;
    source.fails = true;
    EXPECT_EQ(Replaced(L"@winuser @cliente @fecha", source), L"@winuser @cliente DATE()");
}

TEST(ReplaceMacros, MacrosBehindAnUnterminatedBraceStay) {
    EXPECT_EQ(Replaced(L"@fecha @{x @hora"), L"DATE() @{x @hora");
}

TEST(ReplaceMacros, ReplacementWithAnAtIsInputOfTheNextEntry) {
    FakeSource source;
    source.parameters[L"a"] = {L"@b", L"@b"};
    source.parameters[L"b"] = {L"2", L"2"};
    EXPECT_EQ(Replaced(L"@a @b", source), L"2 2");
    // The entry stands twice in the list, so it is replaced inside its own replacement once more.
    source.parameters[L"a"] = {L"'@a'", L"@a"};
    EXPECT_EQ(Replaced(L"@a @a", source), L"''@a'' ''@a''");
}

// The rule as it is stated, one whole-text replacement after the other.
std::wstring ReplacedStepByStep(std::wstring text, FakeSource& source) {
    for (const std::wstring& entry : GetMacros(text)) {
        const std::wstring key = Trim(entry);
        std::optional<std::wstring> with;
        if (key.find(L'.') != std::wstring::npos) continue;
        if (Lower(key) == L"hora")
            with = L"TIME()";
        else if (key.find(L'{') != std::wstring::npos)
            with = source.ParameterText(key);
        else
            with = source.ParameterLiteral(key);
        if (!with) continue;
        const std::wstring what = L"@" + entry;
        for (std::size_t at = 0; (at = text.find(what, at)) != std::wstring::npos; at += with->size())
            text.replace(at, what.size(), *with);
    }
    return text;
}

TEST(ReplaceMacros, EqualsTheRuleStepByStepOnRandomTexts) {
    const auto seed = static_cast<unsigned>(tests::Seed());
    SCOPED_TRACE("seed " + std::to_string(seed));
    std::mt19937 random(seed);
    FakeSource source;
    source.parameters[L"a"] = {L"1", L"uno"};
    source.parameters[L"ab"] = {L"@b", L"dos"};
    source.parameters[L"{a}"] = {L"", L"@a"};
    source.parameters[L"b@"] = {L"x", L"x"};
    const std::wstring alphabet = L"@@@ab{}. \thor";
    for (int round = 0; round < 5000; ++round) {
        std::wstring text;
        for (unsigned i = random() % 24; i > 0; --i) text += alphabet[random() % alphabet.size()];
        if (random() % 4 == 0) text += L"@hora@horario";
        EXPECT_EQ(macros::ReplaceMacros(text, source), ReplacedStepByStep(text, source)) << ToUtf8(text);
    }
}

TEST(ReplaceMacros, TenThousandMacrosInAMegabyte) {
    FakeSource source;
    std::wstring text, expected;
    for (int i = 0; i < 10000; ++i) {
        const std::wstring name = L"p" + std::to_wstring(100000 + i);
        source.parameters[name] = {std::to_wstring(i), L""};
        const std::wstring filler(92, L'x');
        text += L"@" + name + L" " + filler;
        expected += std::to_wstring(i) + L" " + filler;
    }
    EXPECT_EQ(Replaced(text, source), expected);
}

TEST(ReplaceMacros, AMegabyteOfAtIsReadOnce) {
    const std::wstring text(1 << 20, L'@');
    EXPECT_EQ(Replaced(text), text);
    std::wstring spaced;
    for (int i = 0; i < (1 << 19); ++i) spaced += L"@ ";
    EXPECT_EQ(Replaced(spaced), spaced);
}

TEST(ReplaceMacros, AValueWithAnAtIsPutIntoAMegabyteToo) {
    FakeSource source;
    source.parameters[L"correo"] = {L"'ana@casa.es'", L""};
    std::wstring text, expected;
    for (int i = 0; i < 100000; ++i) {
        text += L"@correo, ";
        expected += L"'ana@casa.es', ";
    }
    EXPECT_EQ(Replaced(text, source), expected);
}

TEST(ReplaceMacros, AValueThatNamesItselfStopsGrowing) {
    FakeSource source;
    source.parameters[L"a"] = {L"@a @a", L""};
    std::wstring text;
    for (int i = 0; i < 100; ++i) text += L"@a ";
    const std::wstring expanded = Replaced(text, source);
    EXPECT_GT(expanded.size(), text.size() * 1000);
    EXPECT_LE(expanded.size(), macros::kLongestExpansion);
}

TEST(ReplaceMacros, AValueThatWouldMakeTheTextTooLongIsNotPutIn) {
    FakeSource source;
    source.parameters[L"largo"] = {std::wstring(1 << 20, L'x'), L""};
    std::wstring text;
    for (int i = 0; i < 1000; ++i) text += L"@largo ";
    EXPECT_EQ(Replaced(text + L"@hora", source), text + L"TIME()");
}

TEST(ReplaceMacros, ValuesThatStandForEachOtherEnd) {
    FakeSource source;
    source.parameters[L"{a}"] = {L"", L"@{b}"};
    source.parameters[L"{b}"] = {L"", L"@{a}"};
    std::wstring text;
    for (int i = 0; i < 100000; ++i) text += L"@{a}@{b}";
    EXPECT_EQ(Replaced(text, source).size(), text.size());
}

}  // namespace
