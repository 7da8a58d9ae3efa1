// Ten thousand statements through one batch: every kind of outcome in a known number, one answer a statement
// and in the order of the input.
#include <gtest/gtest.h>

#include <iterator>
#include <map>
#include <sstream>

#include "tools/commands.h"
#include "tools/design_json.h"

namespace tessel::tools {
namespace {

constexpr int kStatements = 10000;

enum class Outcome { Open, WithMessage, Refused, Malformed };

struct Template {
    const char* before;
    const char* after;  ///< the statement's number stands between the two
    Outcome outcome;
};

constexpr Template kTemplates[] = {
    {"SELECT Pedidos.Id, Pedidos.Fecha FROM Pedidos WHERE (((Pedidos.Id)=", "));", Outcome::Open},
    {"SELECT Clientes.Nombre, Sum(Lineas.Precio*Lineas.Cantidad) AS Total FROM (Clientes INNER JOIN Pedidos "
     "ON "
     "Clientes.Id = Pedidos.IdCliente) LEFT JOIN Lineas ON Pedidos.Id = Lineas.IdPedido GROUP BY "
     "Clientes.Nombre HAVING (((Sum(Lineas.Precio*Lineas.Cantidad))>",
     ")) ORDER BY Clientes.Nombre DESC;", Outcome::Open},
    {"SELECT DISTINCTROW [Nº], IIf([Baja] Is Null, \"activo\", \"baja ",
     "\") AS Estado FROM [Socios del club] ORDER BY [Nº];", Outcome::Open},
    {"SELECT Zonas.* FROM Zonas WHERE Zonas.Nombre Like \"*", "*\" AND Zonas.Id In (1,2,3);", Outcome::Open},
    {"SELECT a FROM t WHERE (b = ", " OR c = 2) AND d = 3;", Outcome::WithMessage},
    {"SELECT a FROM t WHERE b >= 1 AND b <= ", ";", Outcome::WithMessage},
    {"SELECT a FROM t UNION SELECT b FROM u WHERE u.c = ", ";", Outcome::Refused},
    {"SELECT TOP 10 a FROM t WHERE b = ", ";", Outcome::Refused},
    {"SELECT a FROM t WHERE b = = ", ";", Outcome::Malformed},
    {"DELETE * FROM t WHERE Id = ", ";", Outcome::Malformed},
};

Outcome OutcomeOf(const Json& answer) {
    if (!answer["parsed"].get<bool>()) return Outcome::Malformed;
    if (!answer["accepted"].get<bool>()) return Outcome::Refused;
    return answer["messages"].empty() ? Outcome::Open : Outcome::WithMessage;
}

TEST(Batch, TenThousandStatementsAreAnsweredInOrder) {
    std::string input;
    for (int i = 0; i < kStatements; ++i) {
        const Template& one = kTemplates[static_cast<std::size_t>(i) % std::size(kTemplates)];
        input += one.before + std::to_string(i) + one.after + "\n---\n";
    }
    std::istringstream in(input);
    std::ostringstream out;
    std::ostringstream err;
    ASSERT_EQ(RunCommand({"roundtrip", "--batch"}, in, out, err), kDone);
    std::istringstream lines(out.str());
    std::map<Outcome, int> counts;
    int number = 0;
    for (std::string line; std::getline(lines, line); ++number) {
        const Template& one = kTemplates[static_cast<std::size_t>(number) % std::size(kTemplates)];
        const Json answer = Json::parse(line);
        const Outcome outcome = OutcomeOf(answer);
        ++counts[outcome];
        ASSERT_EQ(outcome, one.outcome) << line;
        if (outcome == Outcome::Open) {
            EXPECT_NE(answer["sql"].get<std::string>().find(std::to_string(number)), std::string::npos)
                << line;
        }
    }
    EXPECT_EQ(number, kStatements);
    EXPECT_EQ(counts[Outcome::Open], 4000);
    EXPECT_EQ(counts[Outcome::WithMessage], 2000);
    EXPECT_EQ(counts[Outcome::Refused], 2000);
    EXPECT_EQ(counts[Outcome::Malformed], 2000);
}

}  // namespace
}  // namespace tessel::tools
