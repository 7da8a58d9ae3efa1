// Values on their way from the database: types, Unicode, Null, dates, decimals, long texts and bytes.
#include <vector>

#include "tests/win_ado/ado_fixture.h"

namespace tessel::tests {
namespace {

class AdoValues : public testing::TestWithParam<int> {
protected:
    AdoValues() : connection_(Open(kMemoryString)) {}
    Dispatch Rows(const std::wstring& sql) { return Query(connection_, sql, GetParam()); }

    Dispatch connection_;
};

struct TypeCase {
    const wchar_t* declared;
    const wchar_t* literal;
    int ado_type;
    VARTYPE variant_type;
    const wchar_t* text;  ///< nullptr: not compared, the text depends on the locale
    int precision;
    int scale;  ///< 255: none, or not known (the driver tells a result's decimals no scale)
};

TEST_P(AdoValues, DeclaredTypesArriveAsAdosTypes) {
    const TypeCase cases[] = {
        {L"INTEGER", L"-2147483648", 3, VT_I4, L"-2147483648", 10, 255},
        {L"SMALLINT", L"-32768", 2, VT_I2, L"-32768", 5, 255},
        {L"BIGINT", L"9007199254740993", 20, VT_I8, L"9007199254740993", 19, 255},
        {L"DOUBLE", L"0.5", 5, VT_R8, nullptr, 15, 255},
        {L"BIT", L"1", 11, VT_BOOL, nullptr, 255, 255},
        {L"DECIMAL(10,2)", L"12345678.25", 131, VT_DECIMAL, nullptr, 10, 255},
        {L"NUMERIC(18,4)", L"'-0.0001'", 131, VT_DECIMAL, nullptr, 18, 255},
        {L"NVARCHAR(40)", L"'ñ'", 200, VT_BSTR, L"ñ", 255, 255},
        {L"LONGTEXT", L"'largo'", 201, VT_BSTR, L"largo", 255, 255},
        {L"DATETIME", L"'2024-02-29 13:14:15'", 135, VT_DATE, nullptr, 19, 255},
        {L"DATE", L"'2024-02-29'", 133, VT_DATE, nullptr, 10, 255},
    };
    for (const TypeCase& entry : cases) {
        SCOPED_TRACE(ToUtf8(entry.declared));
        Do(connection_, L"CREATE TABLE t (v " + std::wstring(entry.declared) + L")");
        Do(connection_, L"INSERT INTO t VALUES (" + std::wstring(entry.literal) + L"), (NULL)");
        const Dispatch rows = Rows(L"SELECT v FROM t ORDER BY v IS NULL");
        const Dispatch field = FieldOf(rows, L"v");
        EXPECT_EQ(NumberOf(field.Get(L"Type")), entry.ado_type);
        EXPECT_EQ(NumberOf(field.Get(L"Precision")), entry.precision);
        EXPECT_EQ(NumberOf(field.Get(L"NumericScale")), entry.scale);
        const CallResult value = field.Get(L"Value");
        EXPECT_EQ(value.Value().Type(), entry.variant_type);
        if (entry.text) {
            EXPECT_EQ(U8(value), ToUtf8(entry.text));
        }
        EXPECT_TRUE(rows.Call(L"MoveNext"));
        EXPECT_EQ(field.Get(L"Value").Value().Type(), VT_NULL);
        EXPECT_EQ(NumberOf(field.Get(L"ActualSize")), 0);
        EXPECT_TRUE(rows.Call(L"Close"));
        Do(connection_, L"DROP TABLE t");
    }
}

TEST_P(AdoValues, DecimalsWithAnExponentAreDecimalsToo) {
    Do(connection_, L"CREATE TABLE d (v DECIMAL(28,10))");
    Do(connection_, L"INSERT INTO d VALUES (0.00000025)");
    const CallResult value = ValueOf(Rows(L"SELECT v FROM d"), L"v");
    ASSERT_EQ(value.Value().Type(), VT_DECIMAL);
    EXPECT_EQ(value.Value().Get().decVal.Lo64, 25u);
    EXPECT_EQ(value.Value().Get().decVal.scale, 8);
}

TEST_P(AdoValues, NumbersBeyondThirtyTwoBitsKeepTheirValue) {
    const Dispatch rows = Rows(L"SELECT 3000000000 AS n, -5 AS m");
    EXPECT_EQ(TextOf(ValueOf(rows, L"n")), L"3000000000");
    EXPECT_EQ(ValueOf(rows, L"m").Value().Type(), VT_I4);
}

TEST_P(AdoValues, UnicodeNamesAndTextsSurvive) {
    const std::wstring text = L"Ñandú, «ß» € Ω Жук 漢字";
    Do(connection_, L"CREATE TABLE [Años y días] ([Señal «ñ»] NVARCHAR(60))");
    Do(connection_, L"INSERT INTO [Años y días] VALUES ('" + text + L"')");
    const Dispatch rows = Rows(L"SELECT * FROM [Años y días]");
    EXPECT_EQ(U8(rows.Get(L"Fields", 0).Object().Get(L"Name")), ToUtf8(L"Señal «ñ»"));
    EXPECT_EQ(U8(ValueOf(rows, L"señal «Ñ»")), ToUtf8(text));
}

TEST_P(AdoValues, CharactersBeyondTheBasicPlaneAreRead) {
    EXPECT_EQ(U8(ValueOf(Rows(L"SELECT char(128512) AS c"), L"c")), ToUtf8(L"\U0001F600"));
}

TEST_P(AdoValues, EmptyTextIsNotNull) {
    const Dispatch rows = Rows(L"SELECT '' AS vacio, NULL AS nada");
    EXPECT_EQ(ValueOf(rows, L"vacio").Value().Type(), VT_BSTR);
    EXPECT_EQ(TextOf(ValueOf(rows, L"vacio")), L"");
    EXPECT_EQ(ValueOf(rows, L"nada").Value().Type(), VT_NULL);
}

TEST_P(AdoValues, LongTextsArriveWhole) {
    // Lengths around the size of one piece, and far beyond 64 KB.
    for (const std::size_t length : {16382u, 16383u, 16384u, 32766u, 32767u, 70000u, 300001u}) {
        SCOPED_TRACE(length);
        std::wstring text(length, L'ñ');
        for (std::size_t i = 0; i < length; i += 7) text[i] = static_cast<wchar_t>(L'a' + i % 23);
        Do(connection_, L"CREATE TABLE l (v LONGTEXT, w INTEGER)");
        Do(connection_, L"INSERT INTO l VALUES ('" + text + L"', 42)");
        const Dispatch rows = Rows(L"SELECT v, w FROM l");
        const CallResult value = ValueOf(rows, L"v");
        const auto read = value.Text();
        EXPECT_TRUE(read && *read == text) << "length read: " << (read ? read->size() : 0);
        EXPECT_EQ(NumberOf(ValueOf(rows, L"w")), 42);
        EXPECT_TRUE(rows.Call(L"Close"));
        Do(connection_, L"DROP TABLE l");
    }
}

TEST_P(AdoValues, DatesKeepTimeBeforeAndAfter1900) {
    struct {
        const wchar_t* literal;
        DATE date;
    } const cases[] = {
        {L"'1899-12-30 00:00:00'", 0.0},       {L"'1900-01-01 12:00:00'", 2.5},
        {L"'1899-12-29 06:00:00'", -1.25},     {L"'2024-02-29 18:00:00'", 45351.75},
        {L"'9999-12-31 00:00:00'", 2958465.0},
    };
    Do(connection_, L"CREATE TABLE f (v DATETIME)");
    for (const auto& entry : cases) {
        SCOPED_TRACE(ToUtf8(entry.literal));
        Do(connection_, L"DELETE FROM f");
        Do(connection_, L"INSERT INTO f VALUES (" + std::wstring(entry.literal) + L")");
        const Dispatch rows = Rows(L"SELECT v FROM f");
        const CallResult value = ValueOf(rows, L"v");
        ASSERT_EQ(value.Value().Type(), VT_DATE);
        EXPECT_NEAR(value.Value().Get().date, entry.date, 1e-9);
        EXPECT_TRUE(rows.Call(L"Close"));
    }
}

TEST_P(AdoValues, BytesArriveAsAnArray) {
    Do(connection_, L"CREATE TABLE b (v BLOB)");
    Do(connection_, L"INSERT INTO b VALUES (x'00FF10'), (zeroblob(100000))");
    const Dispatch rows = Rows(L"SELECT v FROM b ORDER BY length(v)");
    const CallResult value = ValueOf(rows, L"v");
    ASSERT_EQ(value.Value().Type(), VT_ARRAY | VT_UI1);
    ASSERT_EQ(value.Value().Get().parray->rgsabound[0].cElements, 3u);
    EXPECT_EQ(static_cast<BYTE*>(value.Value().Get().parray->pvData)[1], 0xFF);
    EXPECT_EQ(NumberOf(FieldOf(rows, L"v").Get(L"ActualSize")), 3);
    ASSERT_TRUE(rows.Call(L"MoveNext"));
    EXPECT_EQ(NumberOf(FieldOf(rows, L"v").Get(L"ActualSize")), 100000);
}

TEST_P(AdoValues, FieldsDescribeTheirColumns) {
    Do(connection_, L"CREATE TABLE c (n INTEGER NOT NULL, t NVARCHAR(40), l LONGTEXT)");
    Do(connection_, L"INSERT INTO c VALUES (1, 'Ana', 'x')");
    const Dispatch rows = Rows(L"SELECT * FROM c");
    EXPECT_EQ(NumberOf(FieldOf(rows, L"n").Get(L"DefinedSize")), 4);
    EXPECT_EQ(NumberOf(FieldOf(rows, L"t").Get(L"DefinedSize")), 40);
    EXPECT_EQ(NumberOf(FieldOf(rows, L"t").Get(L"ActualSize")), 3);
    EXPECT_EQ(NumberOf(FieldOf(rows, L"l").Get(L"Attributes")) & 0x80, 0x80);
    EXPECT_EQ(NumberOf(FieldOf(rows, L"n").Get(L"Attributes")) & 0x90, 0x10);
}

INSTANTIATE_TEST_SUITE_P(Cursors, AdoValues, testing::Values(2, 3),
                         [](const auto& param) { return param.param == 2 ? "Server" : "Client"; });

}  // namespace
}  // namespace tessel::tests
