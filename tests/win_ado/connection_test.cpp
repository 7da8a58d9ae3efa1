// ADODB.Connection: opening and closing, settings, errors, statements, transactions.
#include "tests/win_ado/ado_fixture.h"

namespace tessel::tests {
namespace {

TEST(AdoConnection, OpensAndClosesAndTellsItsState) {
    const Dispatch connection = NewConnection();
    EXPECT_EQ(NumberOf(connection.Get(L"State")), 0);
    ASSERT_TRUE(connection.Call(L"Open", VentasString()));
    EXPECT_EQ(NumberOf(connection.Get(L"State")), 1);
    EXPECT_EQ(TextOf(connection.Get(L"ConnectionString")), VentasString());
    ASSERT_TRUE(connection.Call(L"Close"));
    EXPECT_EQ(NumberOf(connection.Get(L"State")), 0);
}

TEST(AdoConnection, TakesItsStringFromThePropertyAndOmittedArguments) {
    const Dispatch connection = NewConnection();
    ASSERT_TRUE(connection.Put(L"ConnectionString", VentasString()));
    ASSERT_TRUE(connection.Call(L"Open", UniqueVariant::Missing(), UniqueVariant::Missing(),
                                UniqueVariant::Missing()));
    EXPECT_EQ(NumberOf(connection.Get(L"State")), 1);
    EXPECT_EQ(connection.Put(L"ConnectionString", L"x").Code(), kObjectOpen);
}

TEST(AdoConnection, TakesUserAndPasswordBesideTheString) {
    const Dispatch connection = NewConnection();
    EXPECT_TRUE(connection.Call(L"Open", VentasString(), L"ana", L"secreta"));
}

TEST(AdoConnection, OpenTwiceAndUseWhileClosedRaiseAdosErrors) {
    const Dispatch connection = NewConnection();
    EXPECT_EQ(connection.Call(L"Close").Code(), kObjectClosed);
    EXPECT_EQ(connection.Call(L"Execute", L"SELECT 1").Code(), kObjectClosed);
    EXPECT_EQ(connection.Call(L"OpenSchema", 20).Code(), kObjectClosed);
    EXPECT_EQ(connection.Get(L"DefaultDatabase").Code(), kObjectClosed);
    EXPECT_EQ(connection.Call(L"BeginTrans").Code(), kObjectClosed);
    ASSERT_TRUE(connection.Call(L"Open", VentasString()));
    const CallResult again = connection.Call(L"Open", VentasString());
    EXPECT_EQ(again.Code(), kObjectOpen);
    EXPECT_EQ(again.Source(), L"ADODB.Connection");
    EXPECT_EQ(ToUtf8(again.Message()), "La operación no está permitida si el objeto está abierto.");
}

TEST(AdoConnection, DefaultDatabaseOfAFileIsItsNameWithoutFolderAndExtension) {
    EXPECT_EQ(TextOf(OpenVentas().Get(L"defaultdatabase")), L"ventas");
}

TEST(AdoConnection, SettingsHaveAdosDefaultsAndKeepWhatIsPut) {
    const Dispatch connection = NewConnection();
    EXPECT_EQ(NumberOf(connection.Get(L"ConnectionTimeout")), 15);
    EXPECT_EQ(NumberOf(connection.Get(L"CommandTimeout")), 30);
    EXPECT_EQ(NumberOf(connection.Get(L"CursorLocation")), 2);
    EXPECT_EQ(TextOf(connection.Get(L"Provider")), L"MSDASQL");
    EXPECT_EQ(TextOf(connection.Get(L"Version")), L"2.8");
    for (const wchar_t* name : {L"ConnectionTimeout", L"CommandTimeout", L"CursorLocation"}) {
        ASSERT_TRUE(connection.Put(name, 3));
        EXPECT_EQ(NumberOf(connection.Get(name)), 3);
    }
    EXPECT_EQ(connection.Put(L"CommandTimeout", L"mucho").Code(), kBadArgument);
}

TEST(AdoConnection, WrongConnectionStringRaisesTheDriversTextAndFillsErrors) {
    const Dispatch connection = NewConnection();
    const CallResult opened = connection.Call(L"Open", L"Driver=NoHayTal;Database=/x");
    EXPECT_EQ(opened.Code(), E_FAIL);
    EXPECT_NE(opened.Message().find(L"NoHayTal"), std::wstring::npos) << ToUtf8(opened.Message());
    EXPECT_EQ(NumberOf(connection.Get(L"State")), 0);
    const Dispatch errors = connection.Get(L"Errors").Object();
    ASSERT_GE(NumberOf(errors.Get(L"Count")), 1);
    const Dispatch error = connection.Get(L"Errors", 0).Object();
    EXPECT_EQ(TextOf(error.Get(L"Description")), opened.Message());
    EXPECT_EQ(TextOf(error.DefaultValue()), opened.Message());
    EXPECT_EQ(TextOf(error.Get(L"Source")), L"Tessel ADO para ODBC");
    EXPECT_EQ(NumberOf(error.Get(L"Number")), E_FAIL);
    EXPECT_EQ(TextOf(error.Get(L"SQLState")).size(), 5u);
}

TEST(AdoConnection, FailingStatementGivesNativeErrorUnderAnyCaseOfItsName) {
    const Dispatch connection = OpenVentas();
    const CallResult executed = connection.Call(L"Execute", L"SELECT * FROM NoHay");
    EXPECT_EQ(executed.Code(), E_FAIL);
    EXPECT_EQ(executed.Source(), L"Tessel ADO para ODBC");
    EXPECT_NE(executed.Message().find(L"no such table: NoHay"), std::wstring::npos);
    const Dispatch error = connection.Get(L"errors", 0).Object();
    EXPECT_EQ(NumberOf(error.Get(L"nativeerror")), 1);
    EXPECT_EQ(NumberOf(error.Get(L"NATIVEERROR")), 1);
    EXPECT_EQ(connection.Get(L"Errors", 7).Code(), kItemNotFound);
    int walked = 0;
    EXPECT_TRUE(win32::WalkCollection(connection.Get(L"Errors").Object(), [&](const UniqueVariant& item) {
        ++walked;
        return static_cast<bool>(Dispatch(item.Object()).Get(L"Description"));
    }));
    EXPECT_EQ(walked, 1);
    ASSERT_TRUE(connection.Get(L"Errors").Object().Call(L"Clear"));
    EXPECT_EQ(NumberOf(connection.Get(L"Errors").Object().Get(L"Count")), 0);
}

TEST(AdoConnection, ExecuteWritesRecordsAffectedBackInEveryForm) {
    const Dispatch connection = Open(kMemoryString);
    Do(connection, L"CREATE TABLE t (a INTEGER)");
    Do(connection, L"INSERT INTO t VALUES (1), (2), (3)");
    UniqueVariant variable;
    ASSERT_TRUE(connection.Call(L"Execute", L"UPDATE t SET a = a + 1",
                                UniqueVariant::ReferenceTo(variable.Address())));
    EXPECT_EQ(variable.Type(), VT_I4);
    EXPECT_EQ(variable.Get().lVal, 3);
    LONG number = 0;
    UniqueVariant reference;
    reference.Address()->vt = VT_BYREF | VT_I4;
    reference.Address()->plVal = &number;
    ASSERT_TRUE(connection.Call(L"Execute", L"DELETE FROM t WHERE a > 2", std::move(reference)));
    EXPECT_EQ(number, 2);
    const Dispatch none = connection.Call(L"Execute", L"DELETE FROM t").Object();
    EXPECT_EQ(NumberOf(none.Get(L"State")), 0);
}

TEST(AdoConnection, ExecuteOfATableReadsItsRows) {
    const Dispatch rows =
        OpenVentas().Call(L"Execute", L"Transportistas", UniqueVariant::Missing(), 2).Object();
    EXPECT_EQ(U8(ValueOf(rows, L"Nombre")), "Rápido del Sur");
    EXPECT_EQ(NumberOf(rows.Get(L"RecordCount")), -1);
}

TEST(AdoConnection, RolledBackChangesAreGoneAndCommittedOnesStay) {
    const Dispatch connection = Open(kMemoryString);
    Do(connection, L"CREATE TABLE t (a INTEGER)");
    EXPECT_EQ(NumberOf(connection.Call(L"BeginTrans")), 1);
    Do(connection, L"INSERT INTO t VALUES (1)");
    ASSERT_TRUE(connection.Call(L"RollbackTrans"));
    ASSERT_TRUE(connection.Call(L"BeginTrans"));
    Do(connection, L"INSERT INTO t VALUES (2)");
    ASSERT_TRUE(connection.Call(L"CommitTrans"));
    EXPECT_EQ(connection.Call(L"CommitTrans").Code(), kNotAllowedHere);
    const Dispatch rows = Query(connection, L"SELECT a FROM t");
    EXPECT_EQ(NumberOf(rows.Get(L"RecordCount")), 1);
    EXPECT_EQ(NumberOf(ValueOf(rows, L"a")), 2);
}

TEST(AdoConnection, ArgumentsComeByValueByReferenceAndByReferenceToVariant) {
    const std::wstring text = VentasString();
    UniqueVariant variable(text);
    const Dispatch first = NewConnection();
    ASSERT_TRUE(first.Call(L"Open", UniqueVariant::ReferenceTo(variable.Address())));
    EXPECT_EQ(NumberOf(first.Get(L"State")), 1);
    win32::Bstr bstr(text);
    BSTR raw = bstr.Get();
    const Dispatch second = NewConnection();
    ASSERT_TRUE(second.Call(L"Open", UniqueVariant::ReferenceTo(&raw)));
    EXPECT_EQ(NumberOf(second.Get(L"State")), 1);
}

TEST(AdoConnection, UnknownMembersAndNamedArgumentsAreRefused) {
    const Dispatch connection = NewConnection();
    EXPECT_EQ(connection.Get(L"NoHay").Code(), DISP_E_UNKNOWNNAME);
    LPOLESTR names[] = {const_cast<LPOLESTR>(L"Open"), const_cast<LPOLESTR>(L"UserID")};
    DISPID ids[2] = {};
    EXPECT_EQ(connection.Get()->GetIDsOfNames(GUID{}, names, 2, 0, ids), DISP_E_UNKNOWNNAME);
    EXPECT_NE(ids[0], DISPID_UNKNOWN);
    EXPECT_EQ(ids[1], DISPID_UNKNOWN);
}

TEST(AdoConnection, EverythingIsReleasedWhenTheHostLetsGo) {
    {
        const Dispatch connection = OpenVentas();
        const Dispatch rows = Query(connection, L"SELECT * FROM Clientes", 2);
        const Dispatch field = FieldOf(rows, L"Nombre");
        EXPECT_FALSE(CanUnload());
    }
    EXPECT_TRUE(CanUnload());
}

}  // namespace
}  // namespace tessel::tests
