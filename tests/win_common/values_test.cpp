// Conversions of values that come from foreign objects: what is no value is refused, and nothing hangs.
#include <windows.h>
#include <gtest/gtest.h>

#include <cstring>
#include <limits>

#include "common/win32/dispatch.h"
#include "tests/support/win32/fake_dispatch.h"

namespace tessel::tests {
namespace {

using win32::UniqueVariant;

constexpr VARTYPE kTargets[] = {VT_BSTR, VT_I4, VT_BOOL, VT_DATE};

/// A value of that type all of whose bytes are the same.
UniqueVariant Filled(VARTYPE type, int byte) {
    UniqueVariant value;
    std::memset(value.Address(), byte, sizeof(VARIANT));
    value.Address()->vt = type;
    return value;
}

TEST(ForeignValues, EveryPlainTypeOfAnyBytesIsConvertedOrRefused) {
    constexpr VARTYPE kTypes[] = {VT_EMPTY, VT_NULL, VT_I1,      VT_I2,   VT_I4,   VT_I8,   VT_UI1,
                                  VT_UI2,   VT_UI4,  VT_UI8,     VT_INT,  VT_R4,   VT_UINT, VT_R8,
                                  VT_CY,    VT_DATE, VT_DECIMAL, VT_BOOL, VT_ERROR};
    for (const VARTYPE type : kTypes)
        for (const int byte : {0x00, 0x01, 0x7F, 0x80, 0xFF})
            for (const VARTYPE target : kTargets) {
                const UniqueVariant value = Filled(type, byte);
                UniqueVariant changed;
                const HRESULT result = value.ChangedTo(target, &changed);
                EXPECT_TRUE(FAILED(result) || changed.Type() == target) << type << " of " << byte;
            }
}

TEST(ForeignValues, DatesOutOfTheCalendarAreRefused) {
    constexpr double kInfinity = std::numeric_limits<double>::infinity();
    for (const double date : {std::numeric_limits<double>::quiet_NaN(), kInfinity, -kInfinity, 1e300, -1e300,
                              2958466.0, -657435.0})
        for (const VARTYPE target : {VT_BSTR, VT_DATE}) {
            UniqueVariant changed;
            EXPECT_EQ(UniqueVariant::Date(date).ChangedTo(target, &changed), DISP_E_OVERFLOW) << date;
        }
    for (const double date : {2958465.99, -657434.0, -0.5, 0.0}) {
        UniqueVariant changed;
        EXPECT_EQ(UniqueVariant::Date(date).ChangedTo(VT_BSTR, &changed), S_OK) << date;
    }
}

TEST(ForeignValues, WhatIsNoNumberIsNoIntegerAndNoDate) {
    for (const double number :
         {std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity()})
        for (const VARTYPE target : {VT_I4, VT_BOOL, VT_DATE}) {
            UniqueVariant changed;
            EXPECT_EQ(UniqueVariant(number).ChangedTo(target, &changed), DISP_E_OVERFLOW) << number;
        }
}

TEST(ForeignValues, DecimalsOfMoreThan28DigitsBehindThePointAreRefused) {
    UniqueVariant value, changed;
    DECIMAL& decimal = value.Address()->decVal;
    decimal.Lo64 = 12345;
    decimal.scale = 2;
    value.Address()->vt = VT_DECIMAL;
    ASSERT_EQ(value.ChangedTo(VT_BSTR, &changed), S_OK);
    EXPECT_EQ(std::wstring(changed.Get().bstrVal).substr(0, 3), L"123");
    decimal.scale = 29;
    EXPECT_EQ(value.ChangedTo(VT_BSTR, &changed), DISP_E_OVERFLOW);
}

TEST(ForeignValues, AReferenceToNowhereIsNoValue) {
    for (const VARTYPE type : {VT_VARIANT, VT_I4, VT_BSTR, VT_DISPATCH}) {
        VARIANT value{};
        value.vt = static_cast<VARTYPE>(VT_BYREF | type);
        EXPECT_EQ(UniqueVariant::CopyOf(value).Type(), VT_EMPTY) << type;
        VARIANT outer{};
        outer.vt = VT_BYREF | VT_VARIANT;
        outer.pvarVal = &value;
        EXPECT_EQ(UniqueVariant::CopyOf(outer).Type(), VT_EMPTY) << type;
    }
}

TEST(ForeignValues, AnObjectIsItsDefaultValueThroughSomeObjects) {
    FakePtr object = MakeFake();
    object->Set(L"_Default", 42);
    for (int depth = 0; depth < 3; ++depth) {
        FakePtr outer = MakeFake();
        outer->On(L"_Default", [object](const FakeCall&) { return Value(ObjectValue(object)); });
        object = outer;
    }
    const win32::CallResult result(ObjectValue(object));
    EXPECT_EQ(result.Number(), 42);
    EXPECT_EQ(result.Text(), L"42");
    EXPECT_EQ(result.Boolean(), true);
}

TEST(ForeignValues, AnObjectThatIsItsOwnDefaultIsNoValue) {
    const FakePtr object = MakeFake();
    FakeDispatch* const itself = object.Get();
    object->On(L"_Default",
               [itself](const FakeCall&) { return Value(UniqueVariant(static_cast<IDispatch*>(itself))); });
    const win32::CallResult result(ObjectValue(object));
    EXPECT_EQ(result.Number(), std::nullopt);
    EXPECT_EQ(result.Text(), std::nullopt);
    EXPECT_EQ(result.Boolean(), std::nullopt);
    EXPECT_EQ(result.Object().Get(), itself);
}

TEST(ForeignValues, AnAnswerByReferenceIsCopiedBeforeWhatItRefersToGoes) {
    auto text = win32::Bstr(L"uno");
    const FakePtr object = MakeFake();
    object->On(L"Name", [&](const FakeCall&) {
        UniqueVariant answer;
        answer.Address()->vt = VT_BYREF | VT_BSTR;
        static BSTR shared = nullptr;
        shared = text.Get();
        answer.Address()->pbstrVal = &shared;
        return Value(std::move(answer));
    });
    const win32::CallResult result = win32::Dispatch(object.Get()).Get(L"Name");
    text = win32::Bstr(L"dos");
    EXPECT_EQ(result.Text(), L"uno");
}

TEST(ForeignValues, ACollectionWithoutEndIsLeft) {
    const FakePtr item = MakeFake();
    const FakePtr collection = MakeFake();
    collection->Set(L"Count", LONG_MAX);
    collection->On(L"Item", [item](const FakeCall&) { return Value(ObjectValue(item)); });
    LONG seen = 0;
    const auto walked = win32::WalkCollection(win32::Dispatch(collection.Get()), [&](const UniqueVariant&) {
        ++seen;
        return true;
    });
    EXPECT_TRUE(walked);
    EXPECT_EQ(seen, win32::kMostElements);
}

}  // namespace
}  // namespace tessel::tests
