// Runs the built program and compares the bytes that come out of it.
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include "common/text.h"

#ifndef _WIN32
#include <sys/wait.h>
#endif

namespace tessel::tools {
namespace {

namespace fs = std::filesystem;

/// The program stands beside this test.
fs::path Program() {
#ifdef _WIN32
    return fs::path(_wpgmptr).parent_path() / L"tesselsql.exe";
#else
    return fs::read_symlink("/proc/self/exe").parent_path() / "tesselsql";
#endif
}

int RunShell(const std::string& command) {
#ifdef _WIN32
    // The shell takes off the outer quotes of a line that begins with one.
    return _wsystem((L"\"" + FromUtf8(command) + L"\"").c_str());
#else
    const int status = std::system(command.c_str());
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
#endif
}

std::string ReadBytes(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(file), {});
}

class ProgramTest : public testing::Test {
protected:
    ProgramTest() : folder_("program_test_files") { fs::create_directories(folder_); }
    ~ProgramTest() override {
        std::error_code ignored;
        fs::remove_all(folder_, ignored);
    }

    int Start(const std::string& arguments, const std::string& input) {
        std::ofstream(folder_ / "in", std::ios::binary) << input;
        const std::string folder = folder_.string();
        const int status = RunShell("\"" + ToUtf8(Program().wstring()) + "\" " + arguments + " < " + folder +
                                    "/in > " + folder + "/out 2> " + folder + "/err");
        out = ReadBytes(folder_ / "out");
        err = ReadBytes(folder_ / "err");
        return status;
    }

    fs::path folder_;
    std::string out;
    std::string err;
};

TEST_F(ProgramTest, ComposesWithLineBreaksAndBlanksAsTheyAre) {
    EXPECT_EQ(
        Start(
            "compose",
            R"({"tables":["Clientes","Pedidos"],"relations":[{"LeftTable":"Clientes","LeftField":"IdCliente",)"
            R"("RightTable":"Pedidos","RightField":"IdCliente","JType":0}],"columns":[)"
            R"({"Campo":"Clientes.Nombre","Agrupacion":"Agrupado por","Visible":"Si","Orden":"Ascendente"},)"
            R"({"Campo":"Pedidos.Importe","Titulo":"Total","Agrupacion":"Suma","Visible":"Si",)"
            R"("Orden":"Descendente","Condicion":">1000"},{"Campo":"Clientes.Pais","Agrupacion":"Agrupado por",)"
            R"("Visible":"No","Condicion":"'Chile'","OR":"'Peru'"}]})"),
        0);
    EXPECT_EQ(out,
              "SELECT Clientes.Nombre, Sum(Pedidos.Importe) AS Total \r\n"
              "FROM (Clientes INNER JOIN Pedidos ON Clientes.IdCliente = Pedidos.IdCliente)  \r\n"
              "WHERE (Clientes.Pais = 'Chile' OR Clientes.Pais = 'Peru') \r\n"
              "GROUP BY Clientes.Nombre, Clientes.Pais \r\n"
              "HAVING (Sum(Pedidos.Importe) >1000) \r\n"
              "ORDER BY Clientes.Nombre, Sum(Pedidos.Importe) DESC;");
    EXPECT_EQ(err, "");
}

TEST_F(ProgramTest, ReadsAndWritesUtf8) {
    EXPECT_EQ(Start("roundtrip", "SELECT [Año fiscal].[Categoría ñ€] FROM [Año fiscal]\n"), 0);
    EXPECT_EQ(
        out,
        R"({"parsed":true,"accepted":true,"messages":[],"design":{"distinct":false,"tables":["[Año fiscal]"],)"
        R"("relations":[],"columns":[{"Campo":"[Año fiscal].[Categoría ñ€]","Titulo":"[Categoría ñ€]",)"
        R"("Tabla":"[Año fiscal]","Agrupacion":"","Visible":"Si","Orden":"","Condicion":"","OR":""}]},)"
        R"("sql":"SELECT [Año fiscal].[Categoría ñ€] AS [Categoría ñ€] \r\nFROM [Año fiscal];"})"
        "\n");
}

TEST_F(ProgramTest, TakesArgumentsInUtf8) {
    EXPECT_EQ(Start("strip-parens \"((año))\"", ""), 0);
    EXPECT_EQ(out, "año\n");
    std::ofstream(folder_ / fs::path(u8"diseño.json"), std::ios::binary)
        << R"({"tables":["t"],"columns":[{"Campo":"t.a"}]})";
    EXPECT_EQ(Start("compose " + folder_.string() + "/diseño.json", ""), 0) << err;
    EXPECT_EQ(out, "SELECT t.a \r\nFROM t;");
}

TEST_F(ProgramTest, ExitStatusTellsAnAnswerARuleWithoutOneAndUnusableArguments) {
    EXPECT_EQ(Start("aggregate", "Sum(x)"), 0);
    EXPECT_EQ(out, "1\n");
    EXPECT_EQ(Start("strip-parens", "("), 1);
    EXPECT_EQ(err, "Argumento o llamada a procedimiento no válidos.\n");
    EXPECT_EQ(Start("nada", ""), 2);
    EXPECT_EQ(out, "");
    EXPECT_EQ(err, "tesselsql: verbo desconocido: nada; vea tesselsql --help\n");
}

TEST_F(ProgramTest, TakesAStatementOfAMegabyte) {
    std::string statement = "SELECT t.a FROM t WHERE t.a = '" + std::string(1 << 20, 'x') + "'";
    EXPECT_EQ(Start("design", statement), 0);
    EXPECT_TRUE(out.starts_with("{\"parsed\":true,\"accepted\":false,")) << out.substr(0, 200);
}

}  // namespace
}  // namespace tessel::tools
