// The errors collection of the host's connection, in every shape that a provider gives it, and what becomes
// of it in the message.
#include "ui/win32/preview_database.h"

#include <gtest/gtest.h>

#include "tests/support/win32/fake_dispatch.h"

namespace tessel::ui {
namespace {

using tests::FakeCall;
using tests::FakePtr;
using tests::MakeFake;

FakePtr ProviderErrorOf(const wchar_t* source, const wchar_t* description, LONG number, LONG native) {
    FakePtr error = MakeFake();
    error->Set(L"Source", source);
    error->Set(L"Description", description);
    error->Set(L"Number", number);
    error->Set(L"NativeError", native);
    return error;
}

FakePtr ConnectionWith(FakePtr errors) {
    FakePtr connection = MakeFake();
    connection->On(L"Errors", [errors](const FakeCall&) { return tests::Value(tests::ObjectValue(errors)); });
    return connection;
}

std::vector<FakePtr> TwoErrors() {
    return {ProviderErrorOf(L"Motor", L"Falta FROM", -2147217900, 102),
            ProviderErrorOf(L"Red", L"L\u00ednea cortada", -2147467259, -17)};
}

std::wstring ReportOf(const FakePtr& connection) {
    ConnectionDatabase database(connection.Get());
    return ErrorReport(L"Error", database.ProviderErrors());
}

constexpr wchar_t kBothLines[] =
    L"Error\r\n\r\nMotor -> Falta FROM (-2147217900) (102)\r\nRed -> L\u00ednea cortada (-2147467259) "
    L"(-17)\r\n";

TEST(ProviderErrors, TwoErrorsGiveTwoLinesInCollectionOrder) {
    EXPECT_EQ(ReportOf(ConnectionWith(tests::MakeCollection(TwoErrors(), 0))), kBothLines);
    EXPECT_EQ(ReportOf(ConnectionWith(tests::MakeEnumerable(TwoErrors()))), kBothLines);
}

TEST(ProviderErrors, ACollectionThatBreaksOffGivesWhatItHad) {
    EXPECT_EQ(ReportOf(ConnectionWith(tests::MakeEnumerable(TwoErrors(), 1))),
              L"Error\r\n\r\nMotor -> Falta FROM (-2147217900) (102)\r\n");
}

TEST(ProviderErrors, AnUnreadablePropertyIsLeftOutAndTheRestStays) {
    FakePtr error = MakeFake();
    error->Set(L"Source", L"Motor");
    error->On(L"Description", [](const FakeCall&) { return tests::Raise(E_FAIL, L"no"); });
    error->Set(L"Number", 5);
    EXPECT_EQ(ReportOf(ConnectionWith(tests::MakeCollection({error}, 0))),
              L"Error\r\n\r\nMotor ->  (5) ()\r\n");
}

TEST(ProviderErrors, AnUnreadableOrEmptyCollectionLeavesTheFirstLine) {
    const FakePtr refusing = MakeFake();
    refusing->On(L"Errors", [](const FakeCall&) { return tests::Raise(E_FAIL, L"cerrada"); });
    const FakePtr wrong = MakeFake();
    wrong->Set(L"Errors", 7);
    for (const FakePtr& connection :
         {MakeFake(), refusing, wrong, ConnectionWith(tests::MakeCollection({}, 0))})
        EXPECT_EQ(ReportOf(connection), L"Error\r\n\r\n");
    ConnectionDatabase nothing(nullptr);
    EXPECT_TRUE(nothing.ProviderErrors().empty());
}

}  // namespace
}  // namespace tessel::ui
