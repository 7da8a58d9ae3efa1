#include "ui/text_check.h"

#include <gtest/gtest.h>

#include "tests/ui/fakes.h"
#include "ui/designer_presenter.h"

namespace tessel::ui {
namespace {

using Kind = TextCheck::Kind;

TextCheck Check(std::wstring_view text) {
    return CheckText(text, nullptr);
}

TextCheck Places(std::initializer_list<TextRange> ranges) {
    TextCheck check{Kind::Errors, {}};
    for (const TextRange& range : ranges)
        check.places.push_back({range, 1, range.offset + 1, L"Falta algo."});
    return check;
}

TEST(TextCheck, EmptyAndBlankTextsHaveNothingToSay) {
    for (const std::wstring_view text : {L"", L"   ", L" \t\r\n "}) {
        EXPECT_EQ(Check(text).kind, Kind::Nothing);
        EXPECT_EQ(CheckLine(Check(text), 0), L"");
    }
}

TEST(TextCheck, AStatementThatTheDesignShowsHasNothingToSay) {
    EXPECT_EQ(Check(L"SELECT Clientes.Nombre FROM Clientes WHERE Clientes.Pais = 'España';").kind,
              Kind::Nothing);
}

TEST(TextCheck, EveryErrorOfTheParserIsAPlaceInTheOrderOfTheText) {
    const TextCheck check = Check(L"SELECT a,\r\nFROM t\r\nWHERE a NOT 5 AND b IS 7");
    ASSERT_EQ(check.kind, Kind::Errors);
    ASSERT_GE(check.places.size(), 2u);
    for (std::size_t i = 1; i < check.places.size(); ++i)
        EXPECT_LE(check.places[i - 1].range.offset, check.places[i].range.offset);
    EXPECT_EQ(check.places[0].message, L"Se esperaba una expresión después de la coma.");
    EXPECT_EQ(check.places[0].line, 2u);
}

TEST(TextCheck, AUnionIsNoErrorButIsNotShown) {
    const std::wstring text = L"SELECT a FROM t\r\nUNION SELECT b FROM u";
    const TextCheck check = Check(text);
    ASSERT_EQ(check.kind, Kind::NotShown);
    ASSERT_EQ(check.places.size(), 1u);
    EXPECT_EQ(
        CheckLine(check, 0),
        L"No se puede mostrar en diseño (línea 2, columna 1): El diseño no puede mostrar consultas unidas "
        L"con UNION.");
    EXPECT_EQ(
        PlaceTip(check, 0),
        L"No se puede mostrar en diseño (línea 2, columna 1): El diseño no\npuede mostrar consultas unidas "
        L"con UNION.");
}

TEST(TextCheck, TopAndTablesOfOtherDatabasesAreNotShownEither) {
    EXPECT_EQ(Check(L"SELECT TOP 10 a FROM t").kind, Kind::NotShown);
    EXPECT_EQ(Check(L"SELECT a FROM db.dbo.t").kind, Kind::NotShown);
}

TEST(TextCheck, AClauseThatDoesNotFitIsToldWithItsPlace) {
    const std::wstring text = L"SELECT a FROM t WHERE (a = 1 OR b = 2) AND c = 3";
    const TextCheck check = Check(text);
    ASSERT_EQ(check.kind, Kind::NotShownWhole);
    EXPECT_EQ(CheckLine(check, 0),
              L"No se puede mostrar entera en diseño (línea 1, columna 23): La cláusula Where es demasiado "
              L"compleja para poder ser representada.");
    EXPECT_EQ(text.substr(check.places[0].range.offset, check.places[0].range.length),
              L"(a = 1 OR b = 2) AND c = 3");
}

TEST(TextCheck, ALongTextIsOnlyParsedAndAVeryLongOneNotEven) {
    const std::wstring blanks(kMostAnalysedWhileTyping, L' ');
    const std::wstring union_of_two = L"SELECT a FROM t UNION SELECT b FROM u";
    EXPECT_EQ(Check(union_of_two + blanks).kind, Kind::Nothing);
    EXPECT_EQ(Check(L"SELECT a FROM" + blanks).kind, Kind::Errors);
    const std::wstring long_text = L"SELECT a FROM" + std::wstring(kMostParsedWhileTyping, L' ');
    EXPECT_EQ(Check(long_text).kind, Kind::TooLong);
    EXPECT_EQ(CheckLine(Check(long_text), 0),
              L"El texto es demasiado largo para revisarlo mientras se escribe.");
}

TEST(CheckLine, TellsLineColumnAndMessageOfAnError) {
    const TextCheck check = Check(L"SELECT Nombre,\r\n  Pais\r\nFROM Clientes WHERE Pais IS 5");
    ASSERT_EQ(check.kind, Kind::Errors);
    EXPECT_EQ(CheckLine(check, 0), L"Línea 3, columna 29: Se esperaba NULL o NOT NULL después de IS.");
}

TEST(CheckLine, CountsTheOtherErrors) {
    EXPECT_EQ(CheckLine(Places({{0, 1}}), 0), L"Línea 1, columna 1: Falta algo.");
    EXPECT_EQ(CheckLine(Places({{0, 1}, {5, 1}}), 1),
              L"Línea 1, columna 6: Falta algo. Hay 1 error más (F8).");
    EXPECT_EQ(CheckLine(Places({{0, 1}, {5, 1}, {9, 1}}), 0),
              L"Línea 1, columna 1: Falta algo. Hay 2 errores más (F8).");
    EXPECT_EQ(CheckLine(Places({{0, 1}}), 7), L"");
}

TEST(MarkedRange, IsTheRangeItselfOrAWordBesideIt) {
    struct Case {
        std::wstring_view text;
        TextRange range;
        TextRange marked;
    };
    const Case cases[] = {
        {L"SELECT a FROM t", {7, 1}, {7, 1}},
        {L"SELECT a FROM", {13, 0}, {9, 4}},
        {L"SELECT a FROM  \r\n", {13, 4}, {9, 4}},
        {L"SELECT a FROM  \r\n", {17, 0}, {9, 4}},
        {L"  \r\n", {2, 0}, {4, 0}},
        {L"  x", {0, 0}, {2, 1}},
        {L"abc", {50, 9}, {0, 3}},
        {L"abc", {1, 99}, {1, 2}},
        {L"", {0, 0}, {0, 0}},
    };
    for (const Case& one : cases) {
        const TextRange marked = MarkedRange(one.text, one.range);
        EXPECT_EQ(marked.offset, one.marked.offset) << one.range.offset << " of " << one.text.size();
        EXPECT_EQ(marked.length, one.marked.length) << one.range.offset << " of " << one.text.size();
    }
}

TEST(NextPlace, GoesRoundInBothDirections) {
    const TextCheck check = Places({{5, 2}, {9, 0}, {20, 4}});
    EXPECT_EQ(NextPlace(check, {0, 0}, false), 0u);
    EXPECT_EQ(NextPlace(check, {5, 2}, false), 1u);
    EXPECT_EQ(NextPlace(check, {9, 0}, false), 2u);
    EXPECT_EQ(NextPlace(check, {20, 4}, false), 0u);
    EXPECT_EQ(NextPlace(check, {99, 0}, false), 0u);
    EXPECT_EQ(NextPlace(check, {0, 0}, true), 2u);
    EXPECT_EQ(NextPlace(check, {5, 2}, true), 2u);
    EXPECT_EQ(NextPlace(check, {20, 4}, true), 1u);
    EXPECT_EQ(NextPlace(check, {12, 0}, true), 1u);
    EXPECT_EQ(NextPlace(Places({}), {0, 0}, false), std::nullopt);
}

TEST(NextPlace, AtTheBeginningOfTheTextTheFirstErrorComesFirst) {
    EXPECT_EQ(NextPlace(Places({{0, 3}, {9, 1}}), {0, 0}, false), 0u);
}

TEST(NextPlace, ErrorsAtOnePlaceDoNotHoldItUp) {
    const TextCheck check = Places({{5, 2}, {5, 2}, {9, 0}, {9, 0}});
    EXPECT_EQ(NextPlace(check, {5, 2}, false), 2u);
    EXPECT_EQ(NextPlace(check, {9, 0}, false), 0u);
    EXPECT_EQ(NextPlace(check, {9, 0}, true), 1u);
    EXPECT_EQ(NextPlace(check, {5, 2}, true), 3u);
}

TEST(PlaceAt, IsTheOneUnderTheCaretOrTheFirst) {
    const TextCheck check = Places({{5, 2}, {9, 0}, {20, 4}});
    EXPECT_EQ(PlaceAt(check, 21), 2u);
    EXPECT_EQ(PlaceAt(check, 24), 2u);
    EXPECT_EQ(PlaceAt(check, 9), 1u);
    EXPECT_EQ(PlaceAt(check, 0), 0u);
}

TEST(ReasonText, NamesKindPlaceAndConstruct) {
    const std::wstring text = L"SELECT a FROM t\r\nUNION  SELECT b FROM u";
    EXPECT_EQ(
        ReasonText(text, {{17, 6}, 2, 1, L"No va."}, false),
        L"No se puede mostrar en diseño lo que hay en la línea 2, columna 1: No va.\r\nEn el texto: «UNION»");
    EXPECT_EQ(
        ReasonText(text, {{17, 22}, 2, 1, L"No va."}, true),
        L"El texto contiene un error en la línea 2, columna 1: No va.\r\nEn el texto: «UNION SELECT b FROM "
        L"u»");
}

TEST(ReasonText, CutsALongConstruct) {
    const std::wstring text(200, L'x');
    EXPECT_EQ(ReasonText(text, {{0, 200}, 1, 1, L"No va."}, false),
              L"No se puede mostrar en diseño lo que hay en la línea 1, columna 1: No va.\r\nEn el texto: «" +
                  std::wstring(60, L'x') + L"…»");
}

TEST(PresenterReason, TellsAnErrorFromWhatTheDesignCannotShow) {
    test::Calls calls;
    test::FakeEditor editor(calls);
    test::FakeWindow window(calls);
    DesignerPresenter presenter(window, editor, nullptr);
    presenter.Load();
    presenter.SetDsn(L"SELECT a FROM t UNION SELECT b FROM u");
    ASSERT_TRUE(presenter.Reason());
    EXPECT_FALSE(presenter.ReasonIsError());
    editor.text = L"SELECT a FROM";
    presenter.TabClicked(Tab::Design);
    ASSERT_TRUE(presenter.Reason());
    EXPECT_TRUE(presenter.ReasonIsError());
    presenter.TabClicked(Tab::Sql);
    editor.text = L"SELECT t.a FROM t";
    presenter.TabClicked(Tab::Design);
    EXPECT_FALSE(presenter.Reason());
    EXPECT_FALSE(presenter.ReasonIsError());
}

}  // namespace
}  // namespace tessel::ui
