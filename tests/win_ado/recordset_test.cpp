// ADODB.Recordset: cursors, moves, counts, fields, GetRows, and what happens when the connection goes away.
#include "tests/win_ado/ado_fixture.h"

namespace tessel::tests {
namespace {

constexpr wchar_t kRegions[] = L"SELECT IdRegion, Region FROM Regiones ORDER BY IdRegion";

TEST(AdoRecordset, ClientCursorCountsItsRowsAndMovesFreely) {
    const Dispatch rows = Query(OpenVentas(), kRegions);
    EXPECT_EQ(NumberOf(rows.Get(L"State")), 1);
    EXPECT_EQ(NumberOf(rows.Get(L"RecordCount")), 5);
    EXPECT_EQ(NumberOf(rows.Get(L"CursorType")), 3);
    EXPECT_EQ(NumberOf(rows.Get(L"AbsolutePosition")), 1);
    ASSERT_TRUE(rows.Call(L"MoveLast"));
    EXPECT_EQ(NumberOf(ValueOf(rows, L"IdRegion")), 5);
    EXPECT_FALSE(IsTrue(rows.Get(L"EOF")));
    ASSERT_TRUE(rows.Call(L"MoveNext"));
    EXPECT_TRUE(IsTrue(rows.Get(L"EOF")));
    EXPECT_EQ(NumberOf(rows.Get(L"AbsolutePosition")), -3);
    EXPECT_EQ(rows.Call(L"MoveNext").Code(), kNoCurrentRecord);
    ASSERT_TRUE(rows.Call(L"MovePrevious"));
    EXPECT_EQ(NumberOf(rows.Get(L"AbsolutePosition")), 5);
    ASSERT_TRUE(rows.Call(L"MoveFirst"));
    ASSERT_TRUE(rows.Call(L"MovePrevious"));
    EXPECT_TRUE(IsTrue(rows.Get(L"BOF")));
    EXPECT_EQ(NumberOf(rows.Get(L"AbsolutePosition")), -2);
    EXPECT_EQ(rows.Call(L"MovePrevious").Code(), kNoCurrentRecord);
}

TEST(AdoRecordset, MoveAndAbsolutePositionGoToARow) {
    const Dispatch rows = Query(OpenVentas(), kRegions);
    ASSERT_TRUE(rows.Call(L"Move", 2));
    EXPECT_EQ(NumberOf(rows.Get(L"AbsolutePosition")), 3);
    ASSERT_TRUE(rows.Call(L"Move", -1));
    EXPECT_EQ(NumberOf(rows.Get(L"AbsolutePosition")), 2);
    ASSERT_TRUE(rows.Call(L"Move", 1, 1));
    EXPECT_EQ(NumberOf(rows.Get(L"AbsolutePosition")), 2);
    ASSERT_TRUE(rows.Put(L"AbsolutePosition", 4));
    EXPECT_EQ(NumberOf(ValueOf(rows, L"IdRegion")), 4);
    EXPECT_EQ(rows.Put(L"AbsolutePosition", 6).Code(), kBadArgument);
    ASSERT_TRUE(rows.Call(L"Move", 100));
    EXPECT_TRUE(IsTrue(rows.Get(L"EOF")));
}

TEST(AdoRecordset, ServerCursorStreamsForwardWithoutCounting) {
    const Dispatch rows = Query(OpenVentas(), kRegions, 2);
    EXPECT_EQ(NumberOf(rows.Get(L"RecordCount")), -1);
    EXPECT_EQ(NumberOf(rows.Get(L"AbsolutePosition")), -1);
    EXPECT_EQ(rows.Call(L"MovePrevious").Code(), kNotAllowedHere);
    EXPECT_EQ(rows.Call(L"MoveLast").Code(), kNotAllowedHere);
    int count = 0;
    for (; !IsTrue(rows.Get(L"EOF")); ++count) ASSERT_TRUE(rows.Call(L"MoveNext"));
    EXPECT_EQ(count, 5);
    EXPECT_EQ(rows.Call(L"MoveNext").Code(), kNoCurrentRecord);
    ASSERT_TRUE(rows.Call(L"MoveFirst"));
    EXPECT_EQ(NumberOf(ValueOf(rows, L"IdRegion")), 1);
}

TEST(AdoRecordset, ServerCursorOfStaticTypeCounts) {
    const Dispatch rows = NewRecordset();
    ASSERT_TRUE(rows.Call(L"Open", kRegions, OpenVentas().Get(), 3, 1));
    EXPECT_EQ(NumberOf(rows.Get(L"RecordCount")), 5);
}

TEST(AdoRecordset, EmptyResultIsAtBothEnds) {
    for (const int location : {2, 3}) {
        const Dispatch rows = Query(OpenVentas(), L"SELECT * FROM Regiones WHERE IdRegion = 99", location);
        EXPECT_TRUE(IsTrue(rows.Get(L"BOF")));
        EXPECT_TRUE(IsTrue(rows.Get(L"EOF")));
        EXPECT_EQ(rows.Call(L"MoveFirst").Code(), kNoCurrentRecord);
        EXPECT_EQ(ValueOf(rows, L"Region").Code(), kNoCurrentRecord);
        EXPECT_EQ(rows.Call(L"GetRows").Code(), kNoCurrentRecord);
        EXPECT_EQ(NumberOf(rows.Get(L"RecordCount")), location == 3 ? 0 : -1);
    }
}

TEST(AdoRecordset, FieldsAreFoundByNameByNumberAndByDefaultMembers) {
    const Dispatch rows = Query(OpenVentas(), kRegions);
    const Dispatch fields = rows.Get(L"Fields").Object();
    EXPECT_EQ(NumberOf(fields.Get(L"Count")), 2);
    EXPECT_EQ(TextOf(rows.Get(L"Fields", 1).Object().Get(L"Name")), L"Region");
    EXPECT_EQ(U8(fields.Get(L"Item", L"REGION").Object().Get(L"Value")), "Península Ibérica");
    const CallResult by_default =
        rows.InvokeId(DISPID_VALUE, DISPATCH_PROPERTYGET, {UniqueVariant(L"region").Detach()});
    EXPECT_EQ(U8(by_default.Object().DefaultValue()), "Península Ibérica");
    EXPECT_EQ(rows.Get(L"Fields", L"NoHay").Code(), kItemNotFound);
    EXPECT_EQ(rows.Get(L"Fields", 2).Code(), kItemNotFound);
    EXPECT_EQ(rows.Get(L"Fields", -1).Code(), kItemNotFound);
    EXPECT_EQ(fields.Get(L"Item").Code(), kItemNotFound);
    std::wstring names;
    EXPECT_TRUE(win32::WalkCollection(fields, [&](const UniqueVariant& item) {
        names += TextOf(Dispatch(item.Object()).Get(L"Name")) + L";";
        return true;
    }));
    EXPECT_EQ(names, L"IdRegion;Region;");
}

TEST(AdoRecordset, AFieldFollowsTheCurrentRow) {
    const Dispatch rows = Query(OpenVentas(), kRegions);
    const Dispatch field = FieldOf(rows, L"IdRegion");
    EXPECT_EQ(NumberOf(field.Get(L"Value")), 1);
    ASSERT_TRUE(rows.Call(L"MoveNext"));
    EXPECT_EQ(NumberOf(field.Get(L"Value")), 2);
    EXPECT_FALSE(field.Put(L"Value", 3));
}

/// A cell of the array that GetRows gives.
UniqueVariant Cell(const CallResult& array, LONG field, LONG row) {
    UniqueVariant cell;
    LONG index[] = {field, row};
    EXPECT_EQ(SafeArrayGetElement(array.Value().Get().parray, index, cell.Put()), S_OK);
    return cell;
}

LONG UpperBound(const CallResult& array, UINT dimension) {
    LONG bound = -2;
    EXPECT_EQ(SafeArrayGetUBound(array.Value().Get().parray, dimension, &bound), S_OK);
    return bound;
}

TEST(AdoRecordset, GetRowsGivesFieldsByRowsAndMovesOn) {
    for (const int location : {2, 3}) {
        const Dispatch rows = Query(OpenVentas(), kRegions, location);
        const CallResult two = rows.Call(L"GetRows", 2);
        ASSERT_TRUE(two);
        ASSERT_EQ(two.Value().Type(), VT_ARRAY | VT_VARIANT);
        EXPECT_EQ(UpperBound(two, 1), 1);
        EXPECT_EQ(UpperBound(two, 2), 1);
        EXPECT_EQ(Cell(two, 0, 1).Get().lVal, 2);
        EXPECT_EQ(ToUtf8(win32::TextOf(Cell(two, 1, 0).Get().bstrVal)), "Península Ibérica");
        const CallResult rest =
            rows.Call(L"GetRows", UniqueVariant::Missing(), UniqueVariant::Missing(), L"IdRegion");
        ASSERT_TRUE(rest);
        EXPECT_EQ(UpperBound(rest, 1), 0);
        EXPECT_EQ(UpperBound(rest, 2), 2);
        EXPECT_EQ(Cell(rest, 0, 2).Get().lVal, 5);
        EXPECT_TRUE(IsTrue(rows.Get(L"EOF")));
        EXPECT_EQ(rows.Call(L"GetRows").Code(), kNoCurrentRecord);
    }
}

std::string Utf8Of(const CallResult& result) {
    return ToUtf8(result.Text().value_or(L"failed"));
}

TEST(AdoRecordset, GetStringGivesRowsAsTextAndMovesOn) {
    for (const int location : {2, 3}) {
        const Dispatch rows = Query(OpenVentas(), kRegions, location);
        EXPECT_EQ(Utf8Of(rows.Call(L"GetString", 2, 2, L", ", L"; ")), "1, Península Ibérica; 2, Europa; ");
        EXPECT_EQ(Utf8Of(rows.Call(L"GetString", 2, 1)), "3\tAmérica del Norte\r");
        ASSERT_TRUE(rows.Call(L"GetString"));
        EXPECT_TRUE(IsTrue(rows.Get(L"EOF")));
        EXPECT_EQ(rows.Call(L"GetString").Code(), kNoCurrentRecord);
    }
}

TEST(AdoRecordset, GetStringWritesTheGivenTextForNullAndKnowsOneFormat) {
    for (const int location : {2, 3}) {
        const Dispatch rows = Query(OpenVentas(), L"SELECT 'a' AS Uno, NULL AS Dos, 1.5 AS Tres", location);
        EXPECT_FALSE(rows.Call(L"GetString", 1));
        EXPECT_EQ(Utf8Of(rows.Call(L"GetString", 2, -1, L"|", L"", L"nada")).substr(0, 8), "a|nada|1");
    }
}

TEST(AdoRecordset, ClosedRecordsetRefusesEverythingButOpening) {
    const Dispatch rows = NewRecordset();
    for (const wchar_t* name : {L"MoveNext", L"MoveFirst", L"Close", L"GetRows", L"GetString"})
        EXPECT_EQ(rows.Call(name).Code(), kObjectClosed) << ToUtf8(name);
    for (const wchar_t* name : {L"EOF", L"BOF", L"RecordCount", L"AbsolutePosition"})
        EXPECT_EQ(rows.Get(name).Code(), kObjectClosed) << ToUtf8(name);
    EXPECT_EQ(NumberOf(rows.Get(L"Fields").Object().Get(L"Count")), 0);
    EXPECT_EQ(rows.Call(L"Open", kRegions).Code(), kNoConnection);
    EXPECT_EQ(rows.Call(L"Open", kRegions, NewConnection().Get()).Code(), kNoConnection);
}

TEST(AdoRecordset, OpensFromItsPropertiesAndAgainAfterClosing) {
    const Dispatch connection = OpenVentas();
    const Dispatch rows = NewRecordset();
    ASSERT_TRUE(rows.Put(L"Source", kRegions));
    ASSERT_TRUE(rows.PutRef(L"ActiveConnection", connection.Get()));
    ASSERT_TRUE(rows.Call(L"Open"));
    EXPECT_EQ(rows.Call(L"Open").Code(), kObjectOpen);
    EXPECT_EQ(rows.Put(L"CursorLocation", 3).Code(), kObjectOpen);
    EXPECT_TRUE(rows.Get(L"ActiveConnection").Object());
    ASSERT_TRUE(rows.Call(L"Close"));
    EXPECT_EQ(NumberOf(rows.Get(L"State")), 0);
    ASSERT_TRUE(rows.Call(L"Open", L"SELECT 7 AS siete"));
    EXPECT_EQ(NumberOf(ValueOf(rows, L"siete")), 7);
}

TEST(AdoRecordset, OpensAConnectionOfItsOwnFromAString) {
    const Dispatch rows = NewRecordset();
    ASSERT_TRUE(rows.Call(L"Open", kRegions, VentasString()));
    EXPECT_EQ(NumberOf(ValueOf(rows, L"IdRegion")), 1);
}

TEST(AdoRecordset, ClosingTheConnectionClosesItsRecordsets) {
    for (const int location : {2, 3}) {
        const Dispatch connection = OpenVentas();
        const Dispatch rows = Query(connection, kRegions, location);
        const Dispatch field = FieldOf(rows, L"Region");
        ASSERT_TRUE(connection.Call(L"Close"));
        EXPECT_EQ(NumberOf(rows.Get(L"State")), 0);
        EXPECT_EQ(rows.Call(L"MoveNext").Code(), kObjectClosed);
        EXPECT_EQ(field.Get(L"Value").Code(), kObjectClosed);
    }
}

TEST(AdoRecordset, LivesOnWhenTheHostLetsTheConnectionGo) {
    Dispatch rows;
    {
        const Dispatch connection = OpenVentas();
        rows = Query(connection, kRegions, 2);
    }
    ASSERT_TRUE(rows.Call(L"MoveNext"));
    EXPECT_EQ(NumberOf(ValueOf(rows, L"IdRegion")), 2);
}

TEST(AdoRecordset, TwoRecordsetsReadSideBySide) {
    const Dispatch connection = OpenVentas();
    const Dispatch a = Query(connection, kRegions, 2);
    const Dispatch b = Query(connection, L"SELECT IdRegion FROM Regiones ORDER BY IdRegion DESC", 2);
    ASSERT_TRUE(a.Call(L"MoveNext"));
    ASSERT_TRUE(b.Call(L"MoveNext"));
    EXPECT_EQ(NumberOf(ValueOf(a, L"IdRegion")), 2);
    EXPECT_EQ(NumberOf(ValueOf(b, L"IdRegion")), 4);
}

TEST(AdoRecordset, DistinctRowReachesTheEngineAsDistinct) {
    const Dispatch connection = OpenVentas();
    const Dispatch rows = Query(connection, L"SELECT DISTINCTROW IdRegion, 'DISTINCTROW' AS t FROM Paises");
    EXPECT_EQ(NumberOf(rows.Get(L"RecordCount")), 5);
    EXPECT_EQ(TextOf(ValueOf(rows, L"t")), L"DISTINCTROW");
    EXPECT_EQ(TextOf(rows.Get(L"Source")), L"SELECT DISTINCTROW IdRegion, 'DISTINCTROW' AS t FROM Paises");
}

TEST(AdoRecordset, AllRowsOfALargeTableArrive) {
    const Dispatch connection = OpenVentas();
    const Dispatch counted =
        Query(connection, L"SELECT count(*) AS n, sum(Cantidad) AS s FROM [Detalle de pedidos]");
    const Dispatch rows = Query(connection, L"SELECT * FROM [Detalle de pedidos]");
    EXPECT_EQ(NumberOf(rows.Get(L"RecordCount")), NumberOf(ValueOf(counted, L"n")));
    EXPECT_GT(NumberOf(rows.Get(L"RecordCount")), 30000);
    const CallResult all =
        rows.Call(L"GetRows", UniqueVariant::Missing(), UniqueVariant::Missing(), L"Cantidad");
    ASSERT_TRUE(all);
    LONG sum = 0;
    for (LONG i = 0; i <= UpperBound(all, 2); ++i) sum += Cell(all, 0, i).Get().iVal;
    EXPECT_EQ(sum, NumberOf(ValueOf(counted, L"s")));
}

TEST(AdoRecordset, TotalsQueryOfTwoJoinedTablesRuns) {
    const Dispatch rows =
        Query(OpenVentas(),
              L"SELECT Clientes.Nombre, Sum(Pedidos.Importe) AS Total FROM (Clientes INNER JOIN "
              L"Pedidos ON Clientes.IdCliente = Pedidos.IdCliente) GROUP BY Clientes.Nombre "
              L"ORDER BY Sum(Pedidos.Importe) DESC");
    EXPECT_GT(NumberOf(rows.Get(L"RecordCount")), 100);
    EXPECT_EQ(ValueOf(rows, L"Total").Value().Type(), VT_R8);
}

}  // namespace
}  // namespace tessel::tests
