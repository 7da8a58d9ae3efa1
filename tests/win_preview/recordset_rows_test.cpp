// Rows of a recordset read in pages, and values as the user reads them.
#include "ui/win32/recordset_rows.h"

#include <gtest/gtest.h>

#include "tests/win_preview/generated_recordset.h"

namespace tessel::ui {
namespace {

using tests::FakeCall;
using tests::FakePtr;
using tests::MakeGeneratedRecordset;
using tests::NumberedColumns;
using tests::RecordsetLog;
using win32::Dispatch;
using win32::UniqueVariant;

std::unique_ptr<PreviewRows> RowsOf(const FakePtr& recordset) {
    auto rows = RecordsetRows::Over(Dispatch(recordset.Get()));
    EXPECT_TRUE(rows) << "the recordset is readable";
    return rows ? std::move(rows).Value() : nullptr;
}

TEST(RecordsetRows, NumbersAreAlignedRightAndTextsAreNot) {
    const auto rows = RowsOf(MakeGeneratedRecordset(NumberedColumns(), 3));
    ASSERT_TRUE(rows);
    ASSERT_EQ(rows->Columns().size(), 3u);
    EXPECT_EQ(rows->Columns()[0].name, L"Nombre");
    EXPECT_EQ(rows->Columns()[0].alignment, Alignment::Left);
    EXPECT_EQ(rows->Columns()[1].alignment, Alignment::Right);
    EXPECT_EQ(rows->RowCount(), 3);
}

TEST(RecordsetRows, AlignmentFollowsTheAdoType) {
    constexpr auto kLeft = Alignment::Left, kRight = Alignment::Right, kCentre = Alignment::Centre;
    const std::pair<LONG, Alignment> cases[] = {
        {2, kRight},  {3, kRight},    {5, kRight},    {6, kRight},   {131, kRight}, {20, kRight},
        {202, kLeft}, {11, kLeft},    {72, kLeft},    {204, kLeft},  {999, kLeft},  {8, kLeft},
        {7, kCentre}, {133, kCentre}, {134, kCentre}, {135, kCentre}};
    for (const auto& [type, alignment] : cases) {
        const auto rows =
            RowsOf(MakeGeneratedRecordset({{L"c", type, [](LONG) { return UniqueVariant(1); }}}, 1));
        ASSERT_TRUE(rows);
        EXPECT_EQ(rows->Columns()[0].alignment, alignment) << type;
    }
}

TEST(RecordsetRows, CellsAreReadInAnyOrder) {
    const auto rows = RowsOf(MakeGeneratedRecordset(NumberedColumns(), 1000000));
    ASSERT_TRUE(rows);
    for (const std::int64_t row : {999999LL, 0LL, 255LL, 256LL, 500000LL, 1LL}) {
        EXPECT_EQ(rows->Cell(row, 0).text, L"Fila " + std::to_wstring(row + 1));
        EXPECT_EQ(rows->Cell(row, 1).text, std::to_wstring(row + 1));
        EXPECT_EQ(rows->Cell(row, 2).is_null, (row + 1) % 7 == 0);
    }
    EXPECT_EQ(rows->Trouble(), L"");
}

TEST(RecordsetRows, OnlyPagesAroundTheAskedCellsAreRead) {
    const auto log = std::make_shared<RecordsetLog>();
    const auto rows = RowsOf(MakeGeneratedRecordset(NumberedColumns(), 1000000, log));
    ASSERT_TRUE(rows);
    EXPECT_EQ(log->rows_given, 0);
    for (int row = 600000; row < 600040; ++row) EXPECT_NE(rows->Cell(row, 0).text, L"");
    EXPECT_LE(log->rows_given, 512);
    EXPECT_LE(log->largest_request, 256);
}

TEST(RecordsetRows, PlacesOutsideAreEmpty) {
    const auto rows = RowsOf(MakeGeneratedRecordset(NumberedColumns(), 10));
    ASSERT_TRUE(rows);
    const CellPlace outside[] = {{-1, 0}, {10, 0}, {0, -1}, {0, 3}};
    for (const CellPlace& place : outside) EXPECT_EQ(rows->Cell(place.row, place.column).text, L"");
    EXPECT_EQ(rows->Trouble(), L"");
}

TEST(RecordsetRows, AReadingThatFailsIsToldAndLeavesTheOtherPages) {
    const auto log = std::make_shared<RecordsetLog>();
    const auto rows = RowsOf(MakeGeneratedRecordset(NumberedColumns(), 1000, log));
    ASSERT_TRUE(rows);
    EXPECT_EQ(rows->Cell(0, 0).text, L"Fila 1");
    log->broken = true;
    EXPECT_EQ(rows->Cell(500, 0).text, L"");
    EXPECT_EQ(rows->Cell(501, 0).text, L"");
    EXPECT_EQ(rows->Cell(1, 0).text, L"Fila 2");
    EXPECT_EQ(rows->Trouble(), L"Se perdi\u00f3 la conexi\u00f3n");
}

TEST(RecordsetRows, AClosedRecordsetIsAFailure) {
    const FakePtr closed = tests::MakeFake();
    closed->Set(L"State", 0);
    const auto rows = RecordsetRows::Over(Dispatch(closed.Get()));
    ASSERT_FALSE(rows);
    EXPECT_EQ(rows.Reason().message,
              L"La instrucci\u00f3n se ejecut\u00f3, pero no devuelve filas que mostrar.");
}

TEST(RecordsetRows, ARecordsetThatRefusesIsAFailureWithItsText) {
    const FakePtr refusing = tests::MakeFake();
    refusing->Set(L"State", 1);
    refusing->On(L"Fields", [](const FakeCall&) { return tests::Raise(E_FAIL, L"No hay campos"); });
    EXPECT_FALSE(RecordsetRows::Over(Dispatch(refusing.Get())));
    const FakePtr uncounted = MakeGeneratedRecordset(NumberedColumns(), -1);
    EXPECT_EQ(RecordsetRows::Over(Dispatch(uncounted.Get())).Reason().message,
              L"El proveedor no informa del n\u00famero de filas.");
}

TEST(RecordsetRows, TheRecordsetIsReleasedWithItsRows) {
    const auto log = std::make_shared<RecordsetLog>();
    auto rows = RowsOf(MakeGeneratedRecordset(NumberedColumns(), 10, log));
    ASSERT_TRUE(rows);
    rows->Cell(0, 0);
    EXPECT_TRUE(log->alive);
    rows.reset();
    EXPECT_FALSE(log->alive);
}

std::wstring TextOfValue(UniqueVariant value) {
    return CellOfValue(value.Get()).text;
}

TEST(CellValues, NullAndEmptyAreNull) {
    EXPECT_TRUE(CellOfValue(UniqueVariant::Null().Get()).is_null);
    EXPECT_TRUE(CellOfValue(UniqueVariant().Get()).is_null);
    EXPECT_FALSE(CellOfValue(UniqueVariant(L"").Get()).is_null);
}

TEST(CellValues, TextsNumbersAndTruthValues) {
    EXPECT_EQ(TextOfValue(UniqueVariant(L"\u00d1u\u00f1oa\r\nfin")), L"\u00d1u\u00f1oa\r\nfin");
    EXPECT_EQ(TextOfValue(UniqueVariant(-42)), L"-42");
    EXPECT_EQ(TextOfValue(UniqueVariant(true)), L"S\u00ed");
    EXPECT_EQ(TextOfValue(UniqueVariant(false)), L"No");
}

TEST(CellValues, ADecimalSeparatorIsTheUsers) {
    wchar_t separator[8] = L"";
    GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SDECIMAL, separator, 8);
    EXPECT_EQ(TextOfValue(UniqueVariant(1234.5)), std::wstring(L"1234") + separator + L"5");
}

TEST(CellValues, ADateIsWrittenAsTheUserWritesDates) {
    SYSTEMTIME day{};
    day.wYear = 2024;
    day.wMonth = 3;
    day.wDay = 5;
    UniqueVariant date;
    date.Address()->vt = VT_DATE;
    SystemTimeToVariantTime(&day, &date.Address()->date);
    wchar_t expected[64] = L"";
    GetDateFormatW(LOCALE_USER_DEFAULT, DATE_SHORTDATE, &day, nullptr, expected, 64);
    EXPECT_EQ(CellOfValue(date.Get()).text, expected);
    date.Address()->date += 0.5;
    EXPECT_EQ(CellOfValue(date.Get()).text.rfind(std::wstring(expected) + L" 12:00:00", 0), 0u);
}

TEST(CellValues, BytesAreHexadecimalAndCutWhenMany) {
    const auto bytes = [](ULONG count) {
        UniqueVariant value;
        value.Address()->vt = VT_ARRAY | VT_UI1;
        value.Address()->parray = SafeArrayCreateVector(VT_UI1, 0, count);
        void* data = nullptr;
        SafeArrayAccessData(value.Get().parray, &data);
        for (ULONG i = 0; i < count; ++i)
            static_cast<unsigned char*>(data)[i] = static_cast<unsigned char>(0xA0 + i);
        SafeArrayUnaccessData(value.Get().parray);
        return value;
    };
    EXPECT_EQ(TextOfValue(bytes(3)), L"0xA0A1A2");
    EXPECT_EQ(TextOfValue(bytes(0)), L"0x");
    EXPECT_EQ(TextOfValue(bytes(100)).size(), 2u + 128u + 1u);
}

}  // namespace
}  // namespace tessel::ui
