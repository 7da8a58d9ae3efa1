// The macros of a statement, expanded for the preview through a whole DesingQry: what reaches the database,
// and what the host gets back.
#include <gtest/gtest.h>
#include <lmcons.h>

#include "tests/win_fault/designer_session.h"
#include "ui/win32/designer_ids.h"

namespace tessel::tests {
namespace {

using Texts = std::vector<std::wstring>;

std::wstring UserName() {
    wchar_t name[UNLEN + 1] = L"";
    DWORD size = UNLEN + 1;
    return GetUserNameW(name, &size) ? name : L"";
}

std::wstring ComputerName() {
    wchar_t name[MAX_COMPUTERNAME_LENGTH + 1] = L"";
    DWORD size = MAX_COMPUTERNAME_LENGTH + 1;
    return GetComputerNameW(name, &size) ? name : L"";
}

class PreviewSession : public ::testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(ComponentLibrary::Instance().IsLoaded()); }

    /// Runs the statement once and accepts.
    SessionAnswer Preview(const std::wstring& sql) {
        host_.Focus();
        return RunSession(quillon_.Get(), connection_.object.Get(), sql,
                          {PressButton(ui::kIdRunQuery), PressButton(ui::kIdAccept)});
    }
    void Offer(std::vector<FakePtr> parameters) {
        quillon_->putref_ParamCol(MakeCollection(std::move(parameters)).Get());
    }

    Texts statements_;
    std::function<FakePtr()> make_recordset_ = [this] { return SessionRecordset(&statements_); };
    RecordsetClass recordsets_{[this] { return win32::ComPtr<IDispatch>(make_recordset_().Get()); }};
    HostWindow host_;
    FakeConnection connection_ = SessionConnection();
    win32::ComPtr<_Quillon> quillon_ = ComponentLibrary::Instance().CreateQuillon();
};

TEST_F(PreviewSession, TheNamesOfTheUserAndTheComputerAreQuotedInWhatRuns) {
    ASSERT_FALSE(UserName().empty());
    const std::wstring sql = L"SELECT @winuser, @nombrepcwin UNION SELECT @{winuser}, @fecha";
    const SessionAnswer answer = Preview(sql);
    EXPECT_EQ(statements_, Texts({L"SELECT '" + UserName() + L"', '" + ComputerName() +
                                  L"' UNION SELECT @{winuser}, DATE()"}));
    EXPECT_EQ(answer.log.previews, 1);
    EXPECT_EQ(answer.sql, sql) << "the statement keeps its macros";
    EXPECT_EQ(host_.Disturbance(), "");
}

TEST_F(PreviewSession, TheHostsParametersBecomeTheirLiteralsAndInBracesTheirValues) {
    Offer({ForeignParameter(L" Cliente ", L"adVarChar", L"O'Brien"),
           ForeignParameter(L"total", L"adInteger", L"42"),
           ForeignParameter(L"{tabla}", L"adVarChar", L"Pedidos"),
           ForeignParameter(L"CLIENTE", L"adVarChar", L"no")});
    const std::wstring sql =
        L"SELECT * FROM @{tabla} WHERE a = @cliente AND b > @Total AND c = @nadie UNION SELECT 1";
    EXPECT_EQ(Preview(sql).sql, sql);
    EXPECT_EQ(statements_,
              Texts({L"SELECT * FROM Pedidos WHERE a = 'O'Brien' AND b > 42 AND c = @nadie UNION SELECT 1"}));
}

TEST_F(PreviewSession, AParameterOfTheComponentsOwnClassIsRenderedByItself) {
    const win32::ComPtr<_cParameter> paid = ComponentLibrary::Instance().CreateParameter();
    paid->put_Name(win32::Bstr(L"pagado").Get());
    paid->put_eType(win32::Bstr(L"adBoolean").Get());
    paid->put_Value(win32::UniqueVariant(true).Get());
    const FakePtr collection = MakeFake();
    collection->Set(L"Count", 1);
    collection->On(L"Item", [paid](const FakeCall&) { return Value(static_cast<IDispatch*>(paid.Get())); });
    quillon_->putref_ParamCol(collection.Get());
    Preview(L"SELECT @pagado UNION SELECT 1");
    EXPECT_EQ(statements_, Texts({L"SELECT -1 UNION SELECT 1"}));
}

TEST_F(PreviewSession, AParameterWhoseValueIsNoLiteralStaysInTheTextAndTheOthersAreReplaced) {
    Offer({ForeignParameter(L"alta", L"adDate", L"no es fecha"),
           ForeignParameter(L"total", L"adInteger", L"42")});
    Preview(L"SELECT @alta, @total UNION SELECT 1");
    EXPECT_EQ(statements_, Texts({L"SELECT @alta, 42 UNION SELECT 1"}));
}

TEST_F(PreviewSession, ParametersInADesignRunExpandedAndComeBackAsTheyWere) {
    Offer({ForeignParameter(L"cliente", L"adVarChar", L"Ana")});
    const SessionAnswer answer =
        Preview(L"SELECT Clientes.Nombre FROM Clientes WHERE Clientes.Nombre = @cliente");
    ASSERT_EQ(statements_.size(), 1u);
    EXPECT_NE(statements_[0].find(L"Clientes.Nombre = 'Ana'"), std::wstring::npos);
    EXPECT_NE(answer.sql.find(L"Clientes.Nombre = @cliente"), std::wstring::npos);
    EXPECT_EQ(answer.sql.find(L"'Ana'"), std::wstring::npos);
}

TEST_F(PreviewSession, AFailingStatementReportsBothProviderErrorsAndTheHostGoesOn) {
    make_recordset_ = [] {
        const FakePtr recordset = MakeFake();
        recordset->On(L"CursorLocation", [](const FakeCall&) { return Value(win32::UniqueVariant()); });
        recordset->On(L"Open", [](const FakeCall&) { return Raise(E_FAIL, L"Error de sintaxis"); });
        return recordset;
    };
    const SessionAnswer answer = Preview(L"SELECT 1 UNION SELECT 2");
    EXPECT_EQ(answer.log.messages,
              Texts({L"Error de sintaxis\r\n\r\nMotor -> Falta FROM (-2147217900) (102)\r\n"
                     L"Motor -> Línea cortada (-2147217900) (102)\r\n"}));
    EXPECT_EQ(answer.log.previews, 0);
    EXPECT_EQ(host_.Disturbance(), "");
}

}  // namespace
}  // namespace tessel::tests
