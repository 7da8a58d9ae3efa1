#include "tools/commands.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>
#include <sstream>

#include "tools/design_json.h"

namespace tessel::tools {
namespace {

struct Answer {
    int status = 0;
    std::string out;
    std::string err;
    friend bool operator==(const Answer&, const Answer&) = default;
};

void PrintTo(const Answer& answer, std::ostream* os) {
    *os << answer.status << " [" << answer.out << "] [" << answer.err << "]";
}

Answer Call(const std::vector<std::string>& arguments, const std::string& input = {}) {
    std::istringstream in(input);
    std::ostringstream out;
    std::ostringstream err;
    Answer answer;
    answer.status = RunCommand(arguments, in, out, err);
    answer.out = out.str();
    answer.err = err.str();
    return answer;
}

Answer Printed(const std::string& text) {
    return {0, text, ""};
}

/// A file of the current folder that goes when the test ends.
class ScratchFile {
public:
    ScratchFile(std::string name, const std::string& bytes) : name_(std::move(name)) {
        std::ofstream(name_, std::ios::binary) << bytes;
    }
    ~ScratchFile() { std::remove(name_.c_str()); }
    ScratchFile(const ScratchFile&) = delete;
    ScratchFile& operator=(const ScratchFile&) = delete;
    const std::string& Name() const { return name_; }

private:
    std::string name_;
};

bool IsOneLine(const std::string& text) {
    return !text.empty() && text.find('\n') == text.size() - 1 && text.find('\r') == std::string::npos;
}

std::vector<std::string> Lines(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream in(text);
    for (std::string line; std::getline(in, line);) lines.push_back(line);
    return lines;
}

constexpr const char* kWorkedDesign =
    R"({"distinct":false,"tables":["Clientes","Pedidos"],)"
    R"("relations":[{"LeftTable":"Clientes","LeftField":"IdCliente","RightTable":"Pedidos",)"
    R"("RightField":"IdCliente","JType":0}],)"
    R"("columns":[{"Campo":"Clientes.Nombre","Agrupacion":"Agrupado por","Visible":"Si","Orden":"Ascendente"},)"
    R"({"Campo":"Pedidos.Importe","Titulo":"Total","Agrupacion":"Suma","Visible":"Si","Orden":"Descendente",)"
    R"("Condicion":">1000"},)"
    R"({"Campo":"Clientes.Pais","Agrupacion":"Agrupado por","Visible":"No","Condicion":"'Chile'","OR":"'Peru'"}]})";

constexpr const char* kWorkedStatement =
    "SELECT Clientes.Nombre, Sum(Pedidos.Importe) AS Total \r\n"
    "FROM (Clientes INNER JOIN Pedidos ON Clientes.IdCliente = Pedidos.IdCliente)  \r\n"
    "WHERE (Clientes.Pais = 'Chile' OR Clientes.Pais = 'Peru') \r\n"
    "GROUP BY Clientes.Nombre, Clientes.Pais \r\n"
    "HAVING (Sum(Pedidos.Importe) >1000) \r\n"
    "ORDER BY Clientes.Nombre, Sum(Pedidos.Importe) DESC;";

TEST(Compose, PrintsTheStatementExactly) {
    EXPECT_EQ(Call({"compose"}, kWorkedDesign), Printed(kWorkedStatement));
}

TEST(Compose, TakesADesignInsideAnAnswerAndFromAFile) {
    const ScratchFile file("compose_design.json",
                           std::string("\xEF\xBB\xBF{\"parsed\":true,\"design\":") + kWorkedDesign + "}");
    EXPECT_EQ(Call({"compose", file.Name()}), Printed(kWorkedStatement));
}

TEST(Compose, AnEmptyDesignGivesAnEmptyText) {
    EXPECT_EQ(Call({"compose", "-"}, "{}"), Printed(""));
}

TEST(Compose, DistinctIsWrittenAsDistinctrow) {
    EXPECT_EQ(Call({"compose"}, R"({"distinct":true,"tables":["t"],"columns":[{"Campo":"t.ñ"}]})"),
              Printed("SELECT DISTINCTROW t.ñ \r\nFROM t;"));
}

TEST(Compose, UnusableInputEndsWithTwoAndOneLine) {
    const std::string inputs[] = {"",
                                  "{",
                                  "[1]",
                                  "\xFF",
                                  R"({"columns":[{"Campo":1}]})",
                                  R"({"columns":[{"Campo":")" + std::string(300, 'a') + R"("}]})"};
    for (const std::string& input : inputs) {
        const Answer answer = Call({"compose"}, input);
        EXPECT_EQ(answer.status, 2) << input;
        EXPECT_EQ(answer.out, "") << input;
        EXPECT_TRUE(IsOneLine(answer.err)) << answer.err;
    }
}

TEST(Roundtrip, GivesDesignAndTextInOneLine) {
    const Answer answer = Call({"roundtrip"}, "SELECT t.a AS x FROM t;\n");
    EXPECT_EQ(answer,
              Printed(R"({"parsed":true,"accepted":true,"messages":[],"design":{"distinct":false,)"
                      R"("tables":["t"],"relations":[],"columns":[{"Campo":"t.a","Titulo":"x","Tabla":"t",)"
                      R"("Agrupacion":"","Visible":"Si","Orden":"","Condicion":"","OR":""}]},)"
                      R"("sql":"SELECT t.a AS x \r\nFROM t;"})"
                      "\n"));
}

TEST(Design, HasNoText) {
    const Json answer = Json::parse(Call({"design"}, "SELECT t.a FROM t").out);
    EXPECT_TRUE(answer["accepted"].get<bool>());
    EXPECT_FALSE(answer.contains("sql"));
    EXPECT_FALSE(answer.contains("error"));
}

TEST(Design, ASyntaxErrorKeepsTheShapeAndTellsThePlace) {
    const Answer answer = Call({"design"}, "SELECT \r\nFROM t");
    EXPECT_EQ(answer.status, 0);
    const Json json = Json::parse(answer.out);
    EXPECT_FALSE(json["parsed"].get<bool>());
    EXPECT_FALSE(json["accepted"].get<bool>());
    EXPECT_EQ(json["messages"], Json::array());
    EXPECT_EQ(json["design"].dump(), R"({"distinct":false,"tables":[],"relations":[],"columns":[]})");
    EXPECT_GE(json["error"]["line"].get<int>(), 1);
    EXPECT_GE(json["error"]["column"].get<int>(), 1);
    EXPECT_TRUE(json["error"]["length"].is_number_integer());
    EXPECT_NE(json["error"]["message"].get<std::string>(), "");
}

TEST(Design, AStatementBeyondTheDesignIsParsedAndNotAccepted) {
    const Json json = Json::parse(Call({"roundtrip"}, "SELECT a FROM t UNION SELECT b FROM u").out);
    EXPECT_TRUE(json["parsed"].get<bool>());
    EXPECT_FALSE(json["accepted"].get<bool>());
    EXPECT_EQ(json["sql"], "");
    EXPECT_NE(json["error"]["message"].get<std::string>(), "");
}

TEST(Design, ATopCountLeavesTablesAndColumnsAndIsNotAccepted) {
    const Json json =
        Json::parse(Call({"design"}, "SELECT TOP 10 t.a FROM t WHERE t.a > 1 ORDER BY t.a").out);
    EXPECT_TRUE(json["parsed"].get<bool>());
    EXPECT_FALSE(json["accepted"].get<bool>());
    EXPECT_TRUE(json.contains("error"));
    EXPECT_EQ(json["design"]["tables"].dump(), R"(["t"])");
    ASSERT_EQ(json["design"]["columns"].size(), 1u);
    EXPECT_EQ(json["design"]["columns"][0]["Orden"], "");
    EXPECT_EQ(json["design"]["columns"][0]["Condicion"], "");
}

TEST(Design, WhatItPrintsCanBeComposed) {
    const Answer designed = Call({"design"}, kWorkedStatement);
    EXPECT_EQ(designed.status, 0);
    const Answer composed = Call({"compose"}, designed.out);
    const Json again = Json::parse(Call({"design"}, composed.out).out);
    EXPECT_EQ(again["design"], Json::parse(designed.out)["design"]);
}

TEST(Batch, PrintsOneObjectALine) {
    for (const char* input : {"SELECT a FROM t\n---\nSELECT b\nFROM u;\n---\nSELECT",
                              "SELECT a FROM t\r\n---\r\nSELECT b\r\nFROM u;\r\n---\r\nSELECT\r\n",
                              "SELECT a FROM t\n---\nSELECT b\nFROM u;\n---\nSELECT\n---\n\n"}) {
        const Answer answer = Call({"roundtrip", "--batch"}, input);
        EXPECT_EQ(answer.status, 0);
        const std::vector<std::string> lines = Lines(answer.out);
        ASSERT_EQ(lines.size(), 3u) << answer.out;
        EXPECT_EQ(Json::parse(lines[0])["design"]["tables"].dump(), R"(["t"])");
        EXPECT_EQ(Json::parse(lines[1])["design"]["tables"].dump(), R"(["u"])");
        EXPECT_FALSE(Json::parse(lines[2])["parsed"].get<bool>());
    }
}

TEST(Batch, ASeparatorStandsAloneOnItsLine) {
    const Answer answer = Call({"design", "--batch"}, "SELECT a --- x\nFROM t\n ---\n");
    EXPECT_EQ(Lines(answer.out).size(), 1u);
}

TEST(Batch, AnEmptyStatementBetweenSeparatorsHasItsLine) {
    EXPECT_EQ(Lines(Call({"design", "--batch"}, "SELECT a FROM t\n---\n---\nSELECT b FROM t\n").out).size(),
              3u);
}

TEST(Schema, GivesTheNamesOfTablesInTheirSpelling) {
    const ScratchFile file("schema.json", R"({"Clientes":["IdCliente","Nombre"]})");
    for (const std::vector<std::string>& arguments :
         {std::vector<std::string>{"design", "--schema", file.Name()},
          {"--schema", file.Name(), "design", "-"}}) {
        const Json json = Json::parse(Call(arguments, "SELECT clientes.nombre FROM CLIENTES").out);
        EXPECT_EQ(json["design"]["tables"].dump(), R"(["Clientes"])");
        EXPECT_EQ(json["design"]["columns"][0]["Tabla"], "Clientes");
    }
}

TEST(Tree, PrintsOneNodeALineIndentedByTwoBlanksALevel) {
    EXPECT_EQ(Call({"tree"}, "SELECT DISTINCT a, b AS c FROM t\n"), Printed("@SELECT\tSELECT\n"
                                                                            "  @DISTINCTROW\tDistinct\n"
                                                                            "  @Columns\tColumnas\n"
                                                                            "    K1\ta\n"
                                                                            "    K2\tb Alias: c\n"
                                                                            "@FROM\tFROM\n"
                                                                            "  @Tables\tTablas\n"
                                                                            "    K_3\tt\n"));
}

TEST(Tree, AStatementThatCannotBeParsedHasNone) {
    const Answer answer = Call({"tree"}, "SELECT FROM");
    EXPECT_EQ(answer.status, 1);
    EXPECT_EQ(answer.out, "");
    EXPECT_TRUE(IsOneLine(answer.err));
}

TEST(Helpers, TakeOneTextAndPrintOneAnswer) {
    EXPECT_EQ(Call({"aggregate", "SUM(Total)"}), Printed("1\n"));
    EXPECT_EQ(Call({"aggregate"}, "Summe\r\n"), Printed("0\n"));
    EXPECT_EQ(Call({"strip-parens", " ( x = ')' ) "}), Printed("x = ')'\n"));
    EXPECT_EQ(Call({"strip-parens"}, "((año))\n"), Printed("año\n"));
    EXPECT_EQ(Call({"strip-parens", "(a"}), Printed("\n"));
    EXPECT_EQ(Call({"ado-class", " ADVARCHAR "}), Printed("2\n"));
    EXPECT_EQ(Call({"ado-class", ""}), Printed("2\n"));
    EXPECT_EQ(Call({"ado-class", "adBSTR"}), Printed("4\n"));
    EXPECT_EQ(Call({"descending", "x DESC"}), Printed("1\tx\n"));
    EXPECT_EQ(Call({"descending", " Sum(x)desc"}), Printed("1\tSum(x\n"));
    EXPECT_EQ(Call({"descending"}, "xDESC"), Printed("0\txDESC\n"));
}

TEST(Helpers, TakeAnyTextAlsoOneThatLooksLikeAnOption) {
    EXPECT_EQ(Call({"strip-parens", "--a"}), Printed("--a\n"));
    EXPECT_EQ(Call({"strip-parens", "--", "--batch"}), Printed("--batch\n"));
    EXPECT_EQ(Call({"strip-parens", "--"}), Printed("--\n"));
}

TEST(Helpers, ARuleWithoutAnAnswerEndsWithOneAndItsText) {
    EXPECT_EQ(Call({"strip-parens", "("}),
              (Answer{1, "", "Argumento o llamada a procedimiento no válidos.\n"}));
}

TEST(Arguments, UnusableOnesEndWithTwoAndOneLine) {
    const std::vector<std::string> cases[] = {{},
                                              {"nada"},
                                              {"dos\nlíneas"},
                                              {"design", "--nada"},
                                              {"compose", "--batch"},
                                              {"design", "a.sql", "b.sql"},
                                              {"aggregate", "a", "b"},
                                              {"design", "--schema"},
                                              {"design", "--schema", "no-existe.json"},
                                              {"design", "no-existe.sql"},
                                              {"tree", "."}};
    for (const std::vector<std::string>& arguments : cases) {
        const Answer answer = Call(arguments);
        EXPECT_EQ(answer.status, 2);
        EXPECT_EQ(answer.out, "");
        EXPECT_TRUE(IsOneLine(answer.err)) << answer.err;
    }
}

TEST(Arguments, ASchemaThatIsNoSchemaIsUnusable) {
    const ScratchFile file("bad_schema.json", "[1]");
    EXPECT_EQ(Call({"design", "--schema", file.Name()}, "SELECT a FROM t").status, 2);
}

TEST(Help, GoesToTheOutput) {
    const Answer answer = Call({"--help"});
    EXPECT_EQ(answer.status, 0);
    EXPECT_NE(answer.out.find("roundtrip"), std::string::npos);
    EXPECT_EQ(answer.err, "");
}

}  // namespace
}  // namespace tessel::tools
