// Every text gets an answer: a design, a message, or an error with its place. The sizes are such that time
// that grew faster than the text, or a level of the stack for each repetition, would not end.
#include <gtest/gtest.h>

#include <string>

#include "analyse/analyse_sql.h"
#include "analyse/syntax_tree.h"
#include "common/text.h"
#include "compose/compose.h"
#include "controls/editor/completion.h"
#include "controls/editor/sql_colouring.h"
#include "macros/macros.h"
#include "sqlparser/printer.h"
#include "sqlparser/sql_parser.h"

namespace tessel {
namespace {

#if defined(__SANITIZE_ADDRESS__)
constexpr int kMany = 20'000;
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
constexpr int kMany = 20'000;
#else
constexpr int kMany = 200'000;
#endif
#else
constexpr int kMany = 200'000;
#endif
constexpr int kMillion = 5 * kMany;

std::wstring Times(std::wstring_view piece, int count) {
    std::wstring text;
    text.reserve(piece.size() * static_cast<std::size_t>(count));
    for (int index = 0; index < count; ++index) text += piece;
    return text;
}

constexpr std::wstring_view kTooDeep = L"La instrucción tiene demasiados niveles de anidamiento.";
constexpr std::wstring_view kNoCell =
    L"El texto no cabe en una celda del diseño, que admite hasta 255 caracteres.";
constexpr std::wstring_view kOpens = L"";

struct LongText {
    const char* name;
    std::wstring text;
    std::wstring_view error;  ///< of the analysis; kOpens when the design shows it
};

void PrintTo(const LongText& text, std::ostream* out) {
    *out << text.name;
}

class LongTexts : public testing::TestWithParam<LongText> {};

TEST_P(LongTexts, GetsAnAnswer) {
    const LongText& given = GetParam();
    model::Design design;
    design.grid.LoadColumns();
    const analyse::Analysis analysis = analyse::AnalyseSQL(given.text, design);
    ASSERT_EQ(analysis.accepted, given.error == kOpens)
        << (analysis.error ? ToUtf8(analysis.error->message) : "");
    if (analysis.accepted) {
        EXPECT_FALSE(compose::BuildSQL(design).empty());
    } else {
        ASSERT_TRUE(analysis.error);
        EXPECT_EQ(ToUtf8(analysis.error->message), ToUtf8(given.error));
        EXPECT_LE(analysis.error->range.End(), given.text.size());
    }
}

TEST_P(LongTexts, HasATreeAndAPrintedFormWhenItParses) {
    const std::wstring& text = GetParam().text;
    sql::SqlParser parser;
    if (parser.Parse(text)) {
        EXPECT_FALSE(parser.Errors().empty());
        return;
    }
    EXPECT_FALSE(analyse::ShowTree(*parser.GetStatement()).empty());
    sql::SqlParser again;
    EXPECT_FALSE(again.Parse(sql::Print(*parser.GetStatement())));
}

TEST_P(LongTexts, ListsItsMacrosInOnePass) {
    EXPECT_LE(macros::GetMacros(GetParam().text).size(), GetParam().text.size());
}

TEST_P(LongTexts, IsColouredInAsManyStylesAsItHasCharacters) {
    const std::wstring& text = GetParam().text;
    EXPECT_EQ(controls::ColourText(text, {}).size(), text.size());
}

TEST_P(LongTexts, IsCompletedAtItsEndAndInItsMiddle) {
    const std::wstring& text = GetParam().text;
    for (const std::size_t caret : {text.size(), text.size() / 2}) {
        const controls::Completion completion = controls::Complete(text, caret, {});
        EXPECT_LE(completion.replaced.End(), text.size());
    }
}

const std::wstring kWhere = L"SELECT t.a FROM t WHERE ";

INSTANTIATE_TEST_SUITE_P(
    Robustness, LongTexts,
    testing::Values(
        LongText{"OpenParentheses", L"SELECT " + Times(L"(", kMany), kTooDeep},
        LongText{"ClosedParentheses", kWhere + Times(L"(", kMany) + L"1" + Times(L")", kMany), kTooDeep},
        LongText{"ParenthesesAtEachComparison", kWhere + Times(L"((t.a)=1) AND ", kMany) + L"t.a=1", kOpens},
        LongText{"HundredThousandParentheses", kWhere + Times(L"(", 100'000) + L"1" + Times(L")", 100'000),
                 kTooDeep},
        LongText{"AMillionAlternatives", kWhere + Times(L"t.a=1 OR ", kMillion) + L"t.a=1", kNoCell},
        LongText{"AMillionConditions", kWhere + Times(L"t.a=1 AND ", kMillion) + L"t.a=1", kOpens},
        LongText{"AMillionWords", Times(L"palabra ", kMillion), L"Se esperaba una instrucción SELECT."},
        LongText{"Alternatives", kWhere + Times(L"t.a=1 OR ", kMany) + L"t.a=1", kNoCell},
        LongText{"Nots", kWhere + Times(L"NOT ", kMany) + L"t.a=1", kTooDeep},
        LongText{"NotsOverGroups", kWhere + Times(L"NOT (", kMany) + L"t.a=1" + Times(L")", kMany), kTooDeep},
        LongText{"Sum", L"SELECT t.a" + Times(L"+1", kMany) + L" FROM t", kNoCell},
        LongText{"Columns", L"SELECT " + Times(L"t.a, ", kMany) + L"t.b FROM t",
                 L"El diseño no puede mostrar más de 60 columnas."},
        LongText{"Tables", L"SELECT a.a FROM " + Times(L"a, ", kMany) + L"b",
                 L"El diseño no puede mostrar más de 256 tablas."},
        LongText{"Joins", L"SELECT a.a FROM a" + Times(L" INNER JOIN b ON a.a=b.a", kMany), kTooDeep},
        LongText{"Unions", L"SELECT t.a FROM t" + Times(L" UNION SELECT t.a FROM t", kMany),
                 L"El diseño no puede mostrar consultas unidas con UNION."},
        LongText{"Cases", L"SELECT " + Times(L"CASE WHEN a THEN ", kMany), kTooDeep},
        LongText{"Calls", L"SELECT " + Times(L"IIf(a,", kMany), kTooDeep},
        LongText{"SubSelects", L"SELECT * FROM " + Times(L"(SELECT * FROM ", kMany), kTooDeep},
        LongText{"SubConditions", kWhere + Times(L"EXISTS (SELECT 1 FROM t WHERE ", kMany), kTooDeep},
        LongText{"List", kWhere + L"t.a IN (" + Times(L"1,", kMany) + L"1)", kNoCell},
        LongText{"Betweens", kWhere + Times(L"t.a BETWEEN ", kMany), L"Falta AND en la condición BETWEEN."},
        LongText{"SortKeys", L"SELECT t.a FROM t ORDER BY " + Times(L"t.a, ", kMany) + L"t.a", kOpens},
        LongText{"Points", L"SELECT " + Times(L"a.", kMany) + L"b FROM t", kNoCell},
        LongText{"Bangs", L"SELECT " + Times(L"a!", kMany) + L"b FROM t", kNoCell},
        LongText{"OpenString", L"SELECT '" + Times(L"''", kMany),
                 L"El texto entre comillas no está cerrado."},
        LongText{"OpenBracket", L"SELECT [" + Times(L"a", kMany), L"Falta el corchete de cierre."},
        LongText{"OpenComment", L"SELECT /*" + Times(L"*", kMany), L"El comentario no está cerrado."},
        LongText{"OpenMacro", L"SELECT " + Times(L"@{", kMany), L"Falta la llave de cierre de la macro."},
        LongText{"OpenQuotedName", L"SELECT \"" + Times(L"a\"\"", kMany),
                 L"El texto entre comillas no está cerrado."},
        LongText{"OpenBackQuote", L"SELECT `" + Times(L"a``", kMany),
                 L"Falta la comilla invertida de cierre."},
        LongText{"OpenDate", L"SELECT #" + Times(L"1/", kMany),
                 L"La fecha no es válida o le falta el signo # de cierre."},
        LongText{"OpenEscapes", L"SELECT " + Times(L"{fn ", kMany), kTooDeep},
        LongText{"OpenOuterJoins", L"SELECT a FROM " + Times(L"{oj ", kMany), kTooDeep},
        LongText{"OpenBrackets", L"SELECT " + Times(L"[", kMany), L"Falta el corchete de cierre."},
        LongText{"AllQuotesOpen", Times(L"'\"`[#{/*", kMany), L"Se esperaba una instrucción SELECT."},
        LongText{"ClosingParentheses", L"SELECT t.a FROM t" + Times(L")", kMany),
                 L"Sobra un paréntesis de cierre."},
        LongText{"Commas", L"SELECT " + Times(L",", kMany), L"Se esperaba una expresión después de SELECT."},
        LongText{"Operators", kWhere + Times(L"+-", kMany) + L"t.a=1", kTooDeep},
        LongText{"LongWord", L"SELECT t." + Times(L"a", kMany) + L" FROM t", kNoCell},
        LongText{"LongNumber", kWhere + L"t.a=" + Times(L"9", kMany), kNoCell},
        LongText{"ManyLoneSurrogates", L"SELECT t." + std::wstring(kMany, wchar_t(0xD800)) + L" FROM t",
                 kNoCell},
        LongText{"ControlCharacters", L"SELECT " + Times(L"\x01\x02\x1f\x7f", kMany),
                 L"El carácter no es válido en este lugar."},
        LongText{"ManyMixedLineEnds", L"SELECT t.a" + Times(L"\r\n\r\n\n\r", kMany) + L"FROM t", kOpens},
        LongText{"AtSigns", L"SELECT " + Times(L"@", kMany),
                 L"El diseño necesita al menos una tabla en FROM."},
        LongText{"Blanks", Times(L" ", kMany), L"No hay ninguna instrucción SQL."},
        LongText{"Lines", Times(L"\n\r\n\r", kMany) + L"x", L"Se esperaba una instrucción SELECT."},
        LongText{"MixedLineEnds", L"SELECT\rt.a\r\n\nFROM\n\r t\r", kOpens},
        LongText{"Zero", std::wstring(L"SELECT a") + L'\0' + L"b FROM t",
                 L"El carácter no es válido en este lugar."},
        LongText{"LoneSurrogates", std::wstring(L"SELECT t.") + wchar_t(0xD800) + L" FROM t", kOpens},
        LongText{"SurrogatesWrongWayRound",
                 std::wstring(L"SELECT t.") + wchar_t(0xDC00) + wchar_t(0xD800) + L" FROM t", kOpens}),
    [](const testing::TestParamInfo<LongText>& text) { return text.param.name; });

}  // namespace
}  // namespace tessel
