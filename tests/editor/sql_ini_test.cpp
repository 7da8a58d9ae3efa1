#include "controls/editor/sql_ini.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <sstream>

namespace tessel::controls {
namespace {

TEST(SqlIni, NothingGivesTheBuiltInDefinition) {
    EXPECT_EQ(ReadSqlIni(""), BuiltInColouring());
}

TEST(SqlIni, TheShippedFileIsTheBuiltInDefinition) {
    const char* folder = std::getenv("TESSEL_SOURCE_DIR");
    ASSERT_NE(folder, nullptr);
    std::ifstream file(std::string(folder) + "/packaging/SQL.ini", std::ios::binary);
    ASSERT_TRUE(file.is_open());
    std::stringstream bytes;
    bytes << file.rdbuf();
    ASSERT_GT(bytes.str().size(), 1000u);
    EXPECT_EQ(ReadSqlIni(bytes.str()), BuiltInColouring());

    // It is equal because it says everything, not because it says nothing.
    for (const char* key :
         {"palabras", "funciones", "tipos", "letra", "tamaño", "estilo.texto", "estilo.palabra",
          "estilo.función", "estilo.tipo", "estilo.nombre", "estilo.cadena", "estilo.número", "estilo.fecha",
          "estilo.comentario", "estilo.operador", "estilo.macro", "estilo.parámetro", "estilo.error",
          "estilo.margen"})
        EXPECT_NE(bytes.str().find(std::string("\n") + key), std::string::npos) << key;
}

TEST(SqlIni, AStyleHasColoursAndLooks) {
    const auto definition = ReadSqlIni("[SQL]\nestilo.palabra = #102030 #A0b0C0 negrita cursiva subrayado\n");
    StyleLook wanted;
    wanted.colour = 0x102030;
    wanted.background = 0xA0B0C0;
    wanted.bold = wanted.italic = wanted.underline = true;
    EXPECT_EQ(definition.Look(SqlStyle::Keyword), wanted);
    EXPECT_EQ(definition.Look(SqlStyle::String), BuiltInColouring().Look(SqlStyle::String));
}

TEST(SqlIni, AutoIsTheSystemsColour) {
    const auto definition = ReadSqlIni("[SQL]\nestilo.cadena = auto #FFFF00\n");
    EXPECT_EQ(definition.Look(SqlStyle::String).colour, std::nullopt);
    EXPECT_EQ(definition.Look(SqlStyle::String).background, 0xFFFF00u);
}

TEST(SqlIni, EveryStyleHasAName) {
    const struct {
        const char* name;
        SqlStyle style;
    } kNames[] = {
        {"texto", SqlStyle::Text},        {"palabra", SqlStyle::Keyword}, {"función", SqlStyle::Function},
        {"tipo", SqlStyle::Type},         {"nombre", SqlStyle::Name},     {"cadena", SqlStyle::String},
        {"número", SqlStyle::Number},     {"fecha", SqlStyle::Date},      {"comentario", SqlStyle::Comment},
        {"operador", SqlStyle::Operator}, {"macro", SqlStyle::Macro},     {"parámetro", SqlStyle::Parameter},
        {"error", SqlStyle::Error},
    };
    static_assert(std::size(kNames) == kSqlStyleCount);
    for (const auto& entry : kNames) {
        const auto definition = ReadSqlIni(std::string("[SQL]\nestilo.") + entry.name + " = #123456\n");
        EXPECT_EQ(definition.Look(entry.style).colour, 0x123456u) << entry.name;
    }
    EXPECT_EQ(ReadSqlIni("[SQL]\nestilo.margen = #123456\n").margin.colour, 0x123456u);
}

TEST(SqlIni, TheFirstLineOfAListReplacesAndTheNextAdds) {
    const auto definition = ReadSqlIni("[SQL]\npalabras = Uno dos,tres\nPALABRAS=cuatro\n");
    EXPECT_EQ(definition.words.keywords, WordList(L"uno dos tres cuatro"));
    EXPECT_EQ(definition.words.functions, BuiltInColouring().words.functions);
    EXPECT_EQ(ReadSqlIni("[SQL]\nfunciones=\n").words.functions.Size(), 0u);
    EXPECT_EQ(ReadSqlIni("[SQL]\ntipos=DINERO\n").words.types, WordList(L"dinero"));
}

TEST(SqlIni, OnlyTheSectionCounts) {
    const auto definition =
        ReadSqlIni("tamaño=20\n[OTRA]\ntamaño=30\n[ sql ]\ntamaño=12\n[OTRA]\ntamaño=40\n");
    EXPECT_EQ(definition.points, 12);
    EXPECT_EQ(ReadSqlIni("[OTRA]\ntamaño=30\n", L"OTRA").points, 30);
}

TEST(SqlIni, FontAndSize) {
    const auto definition = ReadSqlIni("[SQL]\r\nletra = Cascadia Mono\r\ntamaño = 11\r\n");
    EXPECT_EQ(definition.font, L"Cascadia Mono");
    EXPECT_EQ(definition.points, 11);
}

TEST(SqlIni, AByteOrderMarkAndAnyLineEndAreRead) {
    EXPECT_EQ(ReadSqlIni("\xEF\xBB\xBF[SQL]\rtamaño=13").points, 13);
    EXPECT_EQ(ReadSqlIni("[SQL]\ntamaño=13\n").points, 13);
}

TEST(SqlIni, CommentsBeginTheLineOrFollowABlank) {
    const auto definition =
        ReadSqlIni("; [OTRA]\n[SQL] ; sección\n;tamaño=20\ntamaño=13 ; puntos\nletra=A;B\n");
    EXPECT_EQ(definition.points, 13);
    EXPECT_EQ(definition.font, L"A;B");
}

class BadLine : public testing::TestWithParam<const char*> {};

TEST_P(BadLine, IsSkippedAndTheRestIsRead) {
    auto definition = ReadSqlIni("[SQL]\n" + std::string(GetParam()) + "\nletra=Courier New\n");
    EXPECT_EQ(definition.font, L"Courier New");
    definition.font = BuiltInColouring().font;
    EXPECT_EQ(definition, BuiltInColouring());
}

INSTANTIATE_TEST_SUITE_P(All, BadLine,
                         testing::Values("sin signo igual", "clave desconocida = 1", "=", "= 5",
                                         "tamaño =", "tamaño = 5", "tamaño = 73",
                                         "tamaño = 99999999999999999999", "tamaño = diez", "tamaño = -12",
                                         "estilo.palabra = #12345", "estilo.palabra = #1234567",
                                         "estilo.palabra = #GG0000", "estilo.palabra = rojo",
                                         "estilo.palabra = #111111 #222222 #333333", "estilo.nada = #123456",
                                         "estilo. = #123456", "letra =", "\xFF\xFE basura \x80"));

}  // namespace
}  // namespace tessel::controls
