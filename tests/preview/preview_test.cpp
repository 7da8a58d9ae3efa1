// The preview's commands: which messages appear, and what reaches the database.
#include "ui/preview.h"

#include <gtest/gtest.h>

#include "tests/preview/literal_rows.h"

namespace tessel::ui {
namespace {

using test::LiteralRows;
using Texts = std::vector<std::wstring>;

class FakeDatabase final : public PreviewDatabase {
public:
    Result<std::unique_ptr<PreviewRows>> OpenRecordset(std::wstring_view statement) override {
        statements.emplace_back(statement);
        if (failure) return Error{*failure};
        if (opens_nothing) return std::unique_ptr<PreviewRows>();
        return std::unique_ptr<PreviewRows>(
            std::make_unique<LiteralRows>(Texts{L"n"}, std::vector<Texts>{{L"1"}}, &alive));
    }
    std::vector<ProviderError> ProviderErrors() override {
        ++errors_asked;
        return errors;
    }

    Texts statements;
    std::optional<std::wstring> failure;
    bool opens_nothing = false;
    std::vector<ProviderError> errors;
    int errors_asked = 0;
    int alive = 0;  ///< recordsets that were not released
};

class FakeView final : public PreviewView {
public:
    Pointer SetPointer(Pointer value) override { return std::exchange(pointer, value); }
    void ShowMessage(std::wstring_view text) override {
        messages.emplace_back(text);
        EXPECT_EQ(pointer, Pointer::Default);
    }
    std::optional<Error> ShowRows(PreviewRows& rows) override {
        ++shown;
        EXPECT_EQ(rows.RowCount(), 1);
        EXPECT_EQ(pointer, Pointer::Default);
        return failure;
    }

    Texts messages;
    int shown = 0;
    std::optional<Error> failure;
    Pointer pointer = Pointer::Default;
};

class FakeOwner final : public DesignerOwner {
public:
    std::vector<std::wstring> ParameterNames() override { return {L"cliente"}; }
    std::optional<std::wstring> ParameterLiteral(std::wstring_view name) override {
        if (name == L"cliente") return L"'O'";
        return std::nullopt;
    }
    std::optional<std::wstring> ParameterText(std::wstring_view name) override {
        if (name == L"{tabla}") return L"Pedidos";
        return std::nullopt;
    }
    std::optional<std::wstring> UserName() override { return L"maria"; }
    std::optional<std::wstring> ComputerName() override { return L"CAJA-3"; }
};

class PreviewCommands : public ::testing::Test {
protected:
    void Run(std::wstring_view text) { RunStatement(text, macros_, database_, view_); }

    FakeOwner owner_;
    OwnerMacros macros_{&owner_};
    FakeDatabase database_;
    FakeView view_;
};

TEST_F(PreviewCommands, AStatementOfBlanksGivesTheMessageAndTouchesNoConnection) {
    for (const wchar_t* text : {L"", L"   ", L" \r\n\t "}) {
        view_.messages.clear();
        Run(text);
        EXPECT_EQ(view_.messages,
                  Texts({L"No hay ninguna consulta que ejecutar o existe un error en la definición"}));
    }
    EXPECT_TRUE(database_.statements.empty());
    EXPECT_EQ(database_.errors_asked, 0);
    EXPECT_EQ(view_.shown, 0);
}

TEST_F(PreviewCommands, AStatementRunsAsItStandsAndItsRowsAreShownAndReleased) {
    Run(L" SELECT 1;\r\n");
    EXPECT_EQ(database_.statements, Texts({L" SELECT 1;\r\n"}));
    EXPECT_EQ(view_.shown, 1);
    EXPECT_TRUE(view_.messages.empty());
    EXPECT_EQ(database_.alive, 0);
    EXPECT_EQ(database_.errors_asked, 0);
}

TEST_F(PreviewCommands, MacrosAreExpandedInWhatRuns) {
    const std::pair<const wchar_t*, const wchar_t*> cases[] = {
        {L"SELECT * FROM T WHERE F = @fecha", L"SELECT * FROM T WHERE F = DATE()"},
        {L"SELECT @winuser, @nombrepcwin", L"SELECT 'maria', 'CAJA-3'"},
        {L"SELECT * FROM C WHERE N = @cliente AND @otro", L"SELECT * FROM C WHERE N = 'O' AND @otro"},
        {L"SELECT * FROM @{tabla} WHERE p = @pagenumber", L"SELECT * FROM Pedidos WHERE p = @pagenumber"},
    };
    for (const auto& [text, expected] : cases) {
        database_.statements.clear();
        Run(text);
        EXPECT_EQ(database_.statements, Texts({expected}));
    }
}

TEST_F(PreviewCommands, WithoutAnOwnerOnlyTheFixedMacrosAreExpanded) {
    OwnerMacros none(nullptr);
    RunStatement(L"SELECT @hora, @cliente, @{tabla}, @winuser, @winpcname", none, database_, view_);
    EXPECT_EQ(database_.statements, Texts({L"SELECT TIME(), @cliente, @{tabla}, @winuser, @winpcname"}));
}

TEST_F(PreviewCommands, ATableIsShownByItsNameAsItStandsWithoutMacros) {
    for (const wchar_t* table : {L"Clientes", L"[Detalle de pedidos]", L"@cliente", L""}) {
        database_.statements.clear();
        ShowTable(table, database_, view_);
        EXPECT_EQ(database_.statements, Texts({L"Select * from " + std::wstring(table)}));
    }
    EXPECT_EQ(view_.shown, 4);
}

TEST_F(PreviewCommands, AFailureIsReportedWithOneLineForEachProviderError) {
    database_.failure = L"Error de sintaxis";
    database_.errors = {{L"Proveedor", L"Falta FROM", L"-2147217900", L"102"},
                        {L"Motor", L"No hay tabla: x", L"-2147217865", L"208"}};
    Run(L"SELECT");
    EXPECT_EQ(view_.messages, Texts({L"Error de sintaxis\r\n\r\n"
                                     L"Proveedor -> Falta FROM (-2147217900) (102)\r\n"
                                     L"Motor -> No hay tabla: x (-2147217865) (208)\r\n"}));
    EXPECT_EQ(view_.shown, 0);
}

TEST_F(PreviewCommands, WithoutProviderErrorsTheReportIsTheFirstLine) {
    database_.failure = L"La conexión está cerrada";
    ShowTable(L"t", database_, view_);
    EXPECT_EQ(view_.messages, Texts({L"La conexión está cerrada\r\n\r\n"}));
}

TEST_F(PreviewCommands, ARecordsetThatIsNothingGivesItsMessage) {
    database_.opens_nothing = true;
    Run(L"SELECT 1");
    ShowTable(L"t", database_, view_);
    const std::wstring message = L"No hay una conexión válida u ocurrió un error desconocido.";
    EXPECT_EQ(view_.messages, Texts({message, message}));
    EXPECT_EQ(view_.shown, 0);
}

TEST_F(PreviewCommands, AFailureToShowTheRowsIsReportedToo) {
    view_.failure = Error{L"Sin memoria"};
    Run(L"SELECT 1");
    EXPECT_EQ(view_.messages, Texts({L"Sin memoria\r\n\r\n"}));
    EXPECT_EQ(database_.alive, 0);
}

}  // namespace
}  // namespace tessel::ui
