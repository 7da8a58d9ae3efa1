// The preview on the sample database in MariaDB. Its connection string comes from the script with_mariadb.
#include <cstdlib>

#include "tests/win_preview/query_test.h"

namespace tessel::testing {

std::wstring MariaDbDatabase() {
    const wchar_t* text = _wgetenv(L"TESSEL_MARIADB");
    return text ? text : L"";
}

class MariaDbPreview : public QueryTest {
protected:
    MariaDbPreview() : QueryTest(MariaDbDatabase()) {}
};

TEST_F(MariaDbPreview, F5ShowsTheRowsOfTheDesign) {
    script_.Do([] { PressKey(VK_F5); });
    UntilPreview();
    script_.Do([] {
        EXPECT_EQ(Header(0), L"Pais");
        EXPECT_EQ(Header(1), L"Total");
        EXPECT_EQ(Cell(0, 0), L"Alemania");
        EXPECT_EQ(Cell(0, 1), L"1418");
        EXPECT_EQ(Status().rfind(L"Fila 1 de ", 0), 0u);
    });
    ClosePreview();
    Run(L"SELECT Clientes.Pais, count(Pedidos.IdPedido) AS Total FROM (Clientes INNER JOIN Pedidos ON "
        L"Clientes.IdCliente = Pedidos.IdCliente) GROUP BY Clientes.Pais ORDER BY Clientes.Pais");
}

TEST_F(MariaDbPreview, ParametersRunExpandedAndTheEditorKeepsThem) {
    const std::wstring statement =
        L"SELECT IdCliente FROM Clientes WHERE IdCliente < @minimo UNION SELECT -1";
    script_.Do([this] { PressRun(); });
    UntilPreview();
    script_.Do([&] {
        EXPECT_EQ(Status(), L"Fila 1 de 3");
        EXPECT_EQ(window_.EditorText(), statement);
    });
    ClosePreview();
    Run(statement);
}

TEST_F(MariaDbPreview, ATableIsShownToItsLastRow) {
    script_.Do([this] { window_.PreviewTable(L"Pedidos"); });
    UntilPreview();
    script_.Do([] { PressKey(VK_END); });
    script_.Until([] { return Status().rfind(L"Fila 1 de", 0) != 0; }, "the last row");
    script_.Do([] {
        EXPECT_EQ(Cell(0, 0), L"1");
        EXPECT_EQ(Cell(15999, 0), L"16000");
        EXPECT_EQ(Cell(1, 5), L"(nulo)");
    });
    ClosePreview();
    Run(L"");
}

TEST_F(MariaDbPreview, AFailingStatementShowsTheProvidersErrorsExactly) {
    const std::wstring statement = L"SELECT a FROM NoHayTal UNION SELECT 1";
    std::wstring message;
    script_.Do([this] { PressRun(); });
    TakeMessage(message);
    script_.Do([&] {
        EXPECT_EQ(Preview(), nullptr);
        EXPECT_EQ(window_.EditorText(), statement);
    });
    Run(statement);
    const std::wstring lines = ErrorLines(connection_);
    const std::size_t gap = message.find(L"\r\n\r\n");
    ASSERT_NE(gap, std::wstring::npos);
    EXPECT_NE(message.substr(0, gap).find(L"Table 'ventas.NoHayTal' doesn't exist"), std::wstring::npos);
    EXPECT_EQ(message.substr(gap + 4), lines);
    // One line, which ends in the number and MariaDB's own number of a missing table.
    EXPECT_EQ(lines.find(L"\r\n"), lines.size() - 2);
    EXPECT_NE(lines.find(L" -> "), std::wstring::npos);
    EXPECT_NE(lines.find(L") (1146)\r\n"), std::wstring::npos) << std::string(lines.begin(), lines.end());
}

TEST_F(MariaDbPreview, ASyntaxErrorIsTheServersOwn) {
    std::wstring message;
    script_.Do([this] { PressRun(); });
    TakeMessage(message);
    Run(L"SELECT Pedidos.IdPedido, FROM Pedidos");
    EXPECT_NE(message.find(L"You have an error in your SQL syntax"), std::wstring::npos);
    EXPECT_EQ(message.substr(message.find(L"\r\n\r\n") + 4), ErrorLines(connection_));
    EXPECT_NE(message.find(L") (1064)\r\n"), std::wstring::npos);
}

TEST_F(MariaDbPreview, AServerThatWentAwayIsReported) {
    std::wstring message;
    // The session ends itself; the next statement finds a dead line.
    static_cast<void>(connection_.Call(L"Execute", L"KILL CONNECTION_ID()"));
    script_.Do([this] { window_.PreviewTable(L"Clientes"); });
    TakeMessage(message);
    Run(L"");
    const std::size_t gap = message.find(L"\r\n\r\n");
    ASSERT_NE(gap, std::wstring::npos);
    EXPECT_GT(gap, 0u);
}

}  // namespace tessel::testing
