// "Ejecutar consulta" and F5 in the designer, on the sample database through ADO.
#include <gtest/gtest.h>

#include "tests/support/win32/process_use.h"
#include "tests/win_preview/query_test.h"

namespace tessel::testing {

using tests::MemoryInUse;

class RunQuery : public QueryTest {
protected:
    RunQuery() : QueryTest(SampleDatabase()) {}
};

TEST_F(RunQuery, F5ShowsTheRowsOfTheDesign) {
    script_.Do([] { PressKey(VK_F5); });
    UntilPreview();
    script_.Do([this] {
        EXPECT_FALSE(IsWindowEnabled(window_.Handle()));
        EXPECT_NE(Cell(0, 0), L"");
        EXPECT_EQ(Status().rfind(L"Fila 1 de ", 0), 0u);
    });
    ClosePreview();
    script_.Do([this] { EXPECT_TRUE(IsWindowEnabled(window_.Handle())); });
    Run(L"SELECT Clientes.Nombre FROM Clientes ORDER BY Clientes.Nombre");
}

TEST_F(RunQuery, MacrosRunExpandedAndTheEditorKeepsThem) {
    const std::wstring statement =
        L"SELECT IdCliente, @fecha AS Hoy FROM Clientes WHERE IdCliente < @minimo UNION SELECT -1, "
        L"'@pagenumber'";
    script_.Do([this] { PressRun(); });
    UntilPreview();
    script_.Do([&] {
        EXPECT_EQ(Status(), L"Fila 1 de 3");
        EXPECT_EQ(Cell(0, 1), L"@pagenumber");
        EXPECT_EQ(Cell(1, 0), L"1");
        EXPECT_EQ(window_.EditorText(), statement);
    });
    ClosePreview();
    script_.Do([&] { EXPECT_EQ(window_.EditorText(), statement); });
    Run(statement);
}

TEST_F(RunQuery, AFailingStatementShowsTheProvidersErrorsExactly) {
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
    ASSERT_FALSE(lines.empty());
    const std::size_t gap = message.find(L"\r\n\r\n");
    ASSERT_NE(gap, std::wstring::npos);
    EXPECT_NE(message.substr(0, gap).find(L"NoHayTal"), std::wstring::npos);
    EXPECT_EQ(message.substr(gap + 4), lines);
}

TEST_F(RunQuery, ABlankStatementGivesTheMessage) {
    std::wstring message;
    script_.Do([] { PressKey(VK_F5); });
    TakeMessage(message);
    Run(L"");
    EXPECT_EQ(message, L"No hay ninguna consulta que ejecutar o existe un error en la definición");
}

TEST_F(RunQuery, AStatementWithoutRowsIsSaidToHaveNone) {
    std::wstring message;
    script_.Do([this] { PressRun(); });
    TakeMessage(message);
    Run(L"UPDATE Clientes SET Nombre = Nombre WHERE 1 = 0");
    EXPECT_EQ(message.rfind(L"La instrucción se ejecutó, pero no devuelve filas que mostrar.\r\n\r\n", 0),
              0u);
}

TEST_F(RunQuery, ATableIsShownWhole) {
    script_.Do([this] { window_.PreviewTable(L"[Detalle de pedidos]"); });
    UntilPreview();
    script_.Do([] { EXPECT_EQ(Status().rfind(L"Fila 1 de ", 0), 0u); });
    ClosePreview();
    Run(L"");
}

TEST_F(RunQuery, AClosedConnectionIsReported) {
    static_cast<void>(connection_.Call(L"Close"));
    std::wstring message;
    script_.Do([this] { window_.PreviewTable(L"Clientes"); });
    TakeMessage(message);
    Run(L"");
    const std::size_t gap = message.find(L"\r\n\r\n");
    EXPECT_NE(gap, std::wstring::npos);
    EXPECT_GT(gap, 0u);
}

TEST_F(RunQuery, WithoutAConnectionTheButtonIsOffAndATableGivesTheMessage) {
    window_.SetConnection(nullptr);
    std::wstring message;
    script_.Do([this] {
        EXPECT_FALSE(IsWindowEnabled(Descendant(window_.Handle(), ui::kIdRunQuery)));
        PressKey(VK_F5);
    });
    script_.Do([this] { window_.PreviewTable(L"Clientes"); });
    TakeMessage(message);
    Run(L"SELECT 1");
    EXPECT_EQ(message, L"No hay una conexión válida u ocurrió un error desconocido.");
}

// The client cursor holds every row, as ADO's does; what the window adds must not grow with them.
TEST_F(RunQuery, AMillionRowsOfTheDatabaseAreScrolledToTheEndAndGivenBack) {
    long long open = 0, at_end = 0;
    const long long before = MemoryInUse();
    script_.Do([] { PressKey(VK_F5); });
    UntilPreview();
    script_.Do([&] {
        open = MemoryInUse();
        EXPECT_EQ(Cell(0, 1), L"Cliente 1");
        PressKey(VK_END);
    });
    script_.Until([] { return Status().rfind(L"Fila 1 de", 0) != 0; }, "the last row");
    script_.Do([&] {
        EXPECT_EQ(Cell(999999, 0), L"1000000");
        EXPECT_EQ(Cell(999999, 1), L"Cliente 1000000");
        at_end = MemoryInUse();
    });
    ClosePreview();
    Run(L"WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 1000000) "
        L"SELECT i AS IdCliente, 'Cliente ' || i AS Nombre FROM n");
    const long long closed = MemoryInUse();
    EXPECT_LT(at_end - open, 8 * 1024);
    EXPECT_LT(closed - before, 24 * 1024);
    std::printf(
        "memory for 1000000 rows of a database: %lld KB open, %lld KB at the end, %lld KB after closing\n",
        open - before, at_end - before, closed - before);
}

}  // namespace tessel::testing
