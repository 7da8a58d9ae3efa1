// cParameter through its early-bound interface: properties, literals, conversion errors.
#include <gtest/gtest.h>

#include "tests/support/win32/fake_dispatch.h"
#include "tests/win_component/component_library.h"

namespace tessel {
namespace {

using tests::ComponentLibrary;
using tests::FakeCall;
using win32::Bstr;
using win32::ComPtr;
using win32::UniqueVariant;

/// The user's locale for numbers and dates, restored at the end of the scope.
class DecimalComma {
public:
    DecimalComma() {
        GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SDECIMAL, before_, 8);
        SetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SDECIMAL, L",");
    }
    ~DecimalComma() { SetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SDECIMAL, before_); }

private:
    wchar_t before_[8]{};
};

DATE DateOf(WORD year, WORD month, WORD day, WORD hour = 0, WORD minute = 0, WORD second = 0) {
    SYSTEMTIME time{year, month, 0, day, hour, minute, second, 0};
    DATE date = 0;
    SystemTimeToVariantTime(&time, &date);
    return date;
}

ComPtr<_cParameter> Parameter(const wchar_t* type, UniqueVariant value) {
    ComPtr<_cParameter> parameter = ComponentLibrary::Instance().CreateParameter();
    parameter->put_eType(Bstr(type).Get());
    parameter->put_Value(value.Get());
    return parameter;
}

/// Both literals with a bar between, or the HRESULTs.
std::wstring Literals(const ComPtr<_cParameter>& parameter) {
    std::wstring text;
    for (const bool sql : {true, false}) {
        Bstr literal;
        const HRESULT result =
            sql ? parameter->SQLExpresion(literal.Put()) : parameter->VBExpresion(literal.Put());
        if (!sql) text += L" | ";
        if (SUCCEEDED(result)) {
            text += literal.View();
        } else {
            wchar_t number[16];
            swprintf(number, 16, L"%08lX", static_cast<unsigned long>(result));
            text += number;
        }
    }
    return text;
}

std::wstring Literals(const wchar_t* type, UniqueVariant value) {
    return Literals(Parameter(type, std::move(value)));
}

constexpr wchar_t kMismatch[] = L"80020005 | 80020005";

TEST(ParameterProperties, StartEmptyAndKeepWhatTheyAreGiven) {
    const ComPtr<_cParameter> parameter = ComponentLibrary::Instance().CreateParameter();
    Bstr text;
    UniqueVariant value;
    EXPECT_EQ(parameter->get_Name(text.Put()), S_OK);
    EXPECT_EQ(text.View(), L"");
    EXPECT_EQ(parameter->get_Value(value.Put()), S_OK);
    EXPECT_EQ(value.Type(), VT_EMPTY);
    parameter->put_Name(Bstr(L" \u00d1and\u00fa ").Get());
    parameter->put_Predef(Bstr(L"hoy").Get());
    parameter->put_eType(Bstr(L"adDate").Get());
    EXPECT_EQ(parameter->get_Name(text.Put()), S_OK);
    EXPECT_EQ(text.View(), L" \u00d1and\u00fa ");
    EXPECT_EQ(parameter->get_Predef(text.Put()), S_OK);
    EXPECT_EQ(text.View(), L"hoy");
    EXPECT_EQ(parameter->get_eType(text.Put()), S_OK);
    EXPECT_EQ(text.View(), L"adDate");
    EXPECT_EQ(parameter->put_Name(nullptr), S_OK) << "a null text is an empty one";
    EXPECT_EQ(parameter->get_Name(text.Put()), S_OK);
    EXPECT_EQ(text.View(), L"");
    EXPECT_EQ(parameter->get_Name(nullptr), E_POINTER);
}

TEST(ParameterLiterals, FollowTheClassOfTheType) {
    const DATE moment = DateOf(2024, 3, 5, 14, 7, 9);
    struct Case {
        const wchar_t* type;
        UniqueVariant value;
        const wchar_t* literals;
    };
    Case cases[] = {
        {L"adInteger", UniqueVariant(42), L"42 | 42"},
        {L"ADVARCHAR ", UniqueVariant(L"O'Brien"), L"'O'Brien' | \"O'Brien\""},
        {L"adVarChar", UniqueVariant(L"una \"cita\""), L"'una \"cita\"' | \"una \"cita\"\""},
        {L"adBoolean", UniqueVariant(true), L"-1 | TRUE"},
        {L"adBoolean", UniqueVariant(false), L"0 | FALSE"},
        {L"adBoolean", UniqueVariant(7), L"-1 | TRUE"},
        {L"adBoolean", UniqueVariant(L"True"), L"-1 | TRUE"},
        {L"adBoolean", UniqueVariant(), L"0 | FALSE"},
        {L"adDBTimeStamp", UniqueVariant::Date(moment), L"'2024-03-05 14:07:09' | \"2024-03-05 14:07:09\""},
        {L"adDate", UniqueVariant::Date(moment), L"'2024-03-05 14:07:09' | \"2024-03-05 14:07:09\""},
        {L"adDBTime", UniqueVariant::Date(moment), L"'14:07:09' | \"14:07:09\""},
        {L"adDBDate", UniqueVariant::Date(moment), L"'2024-03-05' | \"2024-03-05\""},
        {L"adBSTR", UniqueVariant::Date(moment), L"'2024-03-05' | \"2024-03-05\""},
        {L"ADDBTIME", UniqueVariant::Date(DateOf(2024, 3, 5, 0, 0, 1)), L"'00:00:01' | \"00:00:01\""},
        {L"adDBDate", UniqueVariant::Date(DateOf(999, 1, 2)), L"'0999-01-02' | \"0999-01-02\""},
        {L"adDate", UniqueVariant(L"2024-03-05 14:07:09"),
         L"'2024-03-05 14:07:09' | \"2024-03-05 14:07:09\""},
        {L"adDate", UniqueVariant(2.5), L"'1900-01-01 12:00:00' | \"1900-01-01 12:00:00\""},
        {L"adBinary", UniqueVariant(L"x"), L" | "},
        {L"adError", UniqueVariant(L"x"), L" | "},
        {L"adEmpty", UniqueVariant(1), L" | "},
        {L"nonsense", UniqueVariant(L"x"), L"'x' | \"x\""},
        {L"", UniqueVariant(3), L"'3' | \"3\""},
        {L"adGUID", UniqueVariant(L"{0a706872}"), L"{0a706872} | {0a706872}"},
        {L"adVarNumeric", UniqueVariant(L"12"), L"12 | 12"},
        {L"adInteger", UniqueVariant(), L" | "},
    };
    for (Case& c : cases) EXPECT_EQ(Literals(c.type, std::move(c.value)), c.literals) << c.type;
}

TEST(ParameterLiterals, ABlankAroundADateTypeKeepsTheClassButNotTheFormat) {
    const DATE moment = DateOf(2024, 3, 5, 14, 7, 9);
    EXPECT_EQ(Literals(L"adDBTime ", UniqueVariant::Date(moment)), L"'2024-03-05' | \"2024-03-05\"");
}

TEST(ParameterLiterals, NumbersHaveTheUsersDecimalSeparator) {
    const DecimalComma comma;
    EXPECT_EQ(Literals(L"adDouble", UniqueVariant(1234.5)), L"1234,5 | 1234,5");
    EXPECT_EQ(Literals(L"adVarChar", UniqueVariant(0.25)), L"'0,25' | \"0,25\"");
}

TEST(ParameterLiterals, WhatCannotBeConvertedRaisesTheConversionError) {
    EXPECT_EQ(Literals(L"adDate", UniqueVariant(L"no es fecha")), kMismatch);
    EXPECT_EQ(Literals(L"adBSTR", UniqueVariant(L"texto")), kMismatch);
    EXPECT_EQ(Literals(L"adBoolean", UniqueVariant(L"quiz\u00e1")), kMismatch);
    EXPECT_EQ(Literals(L"adInteger", UniqueVariant::Null()), kMismatch);
    EXPECT_EQ(Literals(L"adVarChar", UniqueVariant::Null()), kMismatch);
    EXPECT_EQ(Literals(L"adDate", UniqueVariant::Null()), kMismatch);
    EXPECT_EQ(Literals(L"adBinary", UniqueVariant::Null()), L" | ") << "no conversion, no error";
}

TEST(ParameterLiterals, AnErrorLeavesItsTextAndAnEmptyResult) {
    const ComPtr<_cParameter> parameter = Parameter(L"adDate", UniqueVariant(L"no es fecha"));
    BSTR literal = reinterpret_cast<BSTR>(1);
    ASSERT_EQ(parameter->SQLExpresion(&literal), DISP_E_TYPEMISMATCH);
    EXPECT_EQ(literal, nullptr);
    ComPtr<IErrorInfo> info;
    ASSERT_EQ(GetErrorInfo(0, info.Put()), S_OK);
    Bstr description, source;
    info->GetDescription(description.Put());
    info->GetSource(source.Put());
    EXPECT_EQ(description.View(), L"No coinciden los tipos");
    EXPECT_EQ(source.View(), L"Tessel.cParameter");
}

TEST(ParameterValue, SetByReferenceKeepsTheObjectAndReadsItWhenAsked) {
    LONG current = 7;
    const tests::FakePtr field = tests::MakeFake();
    field->On(L"_Default", [&](const FakeCall&) { return tests::Value(current); });
    const ComPtr<_cParameter> parameter = ComponentLibrary::Instance().CreateParameter();
    parameter->put_eType(Bstr(L"adInteger").Get());
    ASSERT_EQ(parameter->putref_Value(tests::ObjectValue(field).Get()), S_OK);
    EXPECT_EQ(Literals(parameter), L"7 | 7");
    current = 8;
    EXPECT_EQ(Literals(parameter), L"8 | 8");
    UniqueVariant value;
    ASSERT_EQ(parameter->get_Value(value.Put()), S_OK);
    EXPECT_EQ(value.Object().Get(), field.Get());
}

TEST(ParameterValue, LetTakesTheObjectsValueOfNow) {
    LONG current = 7;
    const tests::FakePtr field = tests::MakeFake();
    field->On(L"_Default", [&](const FakeCall&) { return tests::Value(current); });
    const ComPtr<_cParameter> parameter = Parameter(L"adInteger", tests::ObjectValue(field));
    current = 8;
    EXPECT_EQ(Literals(parameter), L"7 | 7");
}

TEST(ParameterValue, AnObjectWithoutAValueFailsWhenALiteralIsAskedFor) {
    const tests::FakePtr plain = tests::MakeFake();
    const ComPtr<_cParameter> parameter = Parameter(L"adInteger", tests::ObjectValue(plain));
    EXPECT_EQ(Literals(parameter), L"80020003 | 80020003");
    EXPECT_EQ(parameter->putref_Value(UniqueVariant(static_cast<IDispatch*>(nullptr)).Get()), S_OK);
    EXPECT_EQ(Literals(parameter), kMismatch) << "Nothing has no value";
    EXPECT_EQ(parameter->putref_Value(UniqueVariant(3).Get()), DISP_E_TYPEMISMATCH);
}

TEST(ParameterValue, AnObjectThatIsItsOwnValueEnds) {
    const tests::FakePtr loop = tests::MakeFake();
    loop->On(L"_Default",
             [raw = loop.Get()](const FakeCall&) { return tests::Value(static_cast<IDispatch*>(raw)); });
    const ComPtr<_cParameter> parameter = ComponentLibrary::Instance().CreateParameter();
    ASSERT_EQ(parameter->putref_Value(tests::ObjectValue(loop).Get()), S_OK);
    EXPECT_EQ(Literals(parameter), kMismatch);
}

TEST(ParameterValue, TheObjectsOwnErrorReachesTheCaller) {
    const tests::FakePtr field = tests::MakeFake();
    field->On(L"_Default", [](const FakeCall&) {
        return tests::Raise(static_cast<HRESULT>(0x800A0BCD), L"No hay registro activo");
    });
    const ComPtr<_cParameter> parameter = ComponentLibrary::Instance().CreateParameter();
    parameter->putref_Value(tests::ObjectValue(field).Get());
    EXPECT_EQ(Literals(parameter), L"800A0BCD | 800A0BCD");
}

}  // namespace
}  // namespace tessel
