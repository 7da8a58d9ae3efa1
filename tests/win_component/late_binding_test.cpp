// Late binding in every argument form that hosts use. The calls that need a window are in
// designer_call_test.cpp; here DesingQry has no connection and answers its statement.
#include <gtest/gtest.h>

#include "common/win32/dispatch.h"
#include "tests/support/win32/fake_dispatch.h"
#include "tests/win_component/component_library.h"

namespace tessel {
namespace {

using tests::ComponentLibrary;
using win32::Bstr;
using win32::CallResult;
using win32::ComPtr;
using win32::Dispatch;
using win32::UniqueVariant;

Dispatch LateQuillon() {
    return Dispatch(ComponentLibrary::Instance().CreateQuillon().As<IDispatch>());
}
Dispatch LateParameter() {
    return Dispatch(ComponentLibrary::Instance().CreateParameter().As<IDispatch>());
}

IDispatch* const kNothing = nullptr;

TEST(LateBinding, ArgumentsByValue) {
    const Dispatch quillon = LateQuillon();
    EXPECT_EQ(quillon.Call(L"DesingQry", kNothing, L"SELECT 1", L"").Text(), L"SELECT 1");
    EXPECT_EQ(quillon.Call(L"desingqry", kNothing, L" \u00d1 \r\n").Text(), L" \u00d1 \r\n");
    EXPECT_EQ(quillon.Call(L"DesingQry", UniqueVariant(), 12).Text(), L"12")
        << "Empty for a connection, a number";
    EXPECT_EQ(quillon.Call(L"DesingQry", L"no es objeto", L"x").Text(), L"x");
    EXPECT_EQ(quillon.Call(L"DesingQry", kNothing, UniqueVariant()).Text(), L"");
}

TEST(LateBinding, ArgumentsByReference) {
    const Dispatch quillon = LateQuillon();
    IDispatch* connection = nullptr;
    BSTR sql = Bstr(L"SELECT 2").Detach();
    BSTR caption = nullptr;
    EXPECT_EQ(quillon
                  .Call(L"DesingQry", UniqueVariant::ReferenceTo(&connection),
                        UniqueVariant::ReferenceTo(&sql), UniqueVariant::ReferenceTo(&caption))
                  .Text(),
              L"SELECT 2");
    EXPECT_EQ(win32::TextOf(sql), L"SELECT 2");
    SysFreeString(sql);
    SysFreeString(caption);
}

TEST(LateBinding, ArgumentsByReferenceToAVariantKeepTheirTypes) {
    const Dispatch quillon = LateQuillon();
    UniqueVariant connection, sql(12), caption;
    EXPECT_EQ(
        quillon
            .Call(L"DesingQry", UniqueVariant::ReferenceTo(connection.Address()),
                  UniqueVariant::ReferenceTo(sql.Address()), UniqueVariant::ReferenceTo(caption.Address()))
            .Text(),
        L"12");
    EXPECT_EQ(connection.Type(), VT_EMPTY);
    EXPECT_EQ(sql.Type(), VT_I4) << "what the method did not change stays as the host had it";
    EXPECT_EQ(caption.Type(), VT_EMPTY);
}

TEST(LateBinding, AConnectionByReferenceKeepsItsCount) {
    const Dispatch quillon = LateQuillon();
    const tests::FakePtr other = tests::MakeFake();
    IDispatch* raw = other.Get();
    UniqueVariant variable = tests::ObjectValue(other);
    EXPECT_TRUE(quillon.Call(L"DesingQry", UniqueVariant::ReferenceTo(&raw), L"x"));
    EXPECT_TRUE(quillon.Call(L"DesingQry", UniqueVariant::ReferenceTo(variable.Address()), L"x"));
    EXPECT_TRUE(quillon.Call(L"DesingQry", tests::ObjectValue(other), L"x"));
    EXPECT_EQ(raw, other.Get());
    EXPECT_EQ(variable.Object().Get(), other.Get());
    variable = UniqueVariant();
    other->AddRef();
    EXPECT_EQ(other->Release(), 1u);
}

TEST(LateBinding, ArgumentsByName) {
    const Dispatch quillon = LateQuillon();
    LPOLESTR names[] = {const_cast<LPOLESTR>(L"DesingQry"), const_cast<LPOLESTR>(L"sSql"),
                        const_cast<LPOLESTR>(L"ADOCnn")};
    DISPID ids[3];
    ASSERT_EQ(quillon.Get()->GetIDsOfNames(IID{}, names, 3, LOCALE_USER_DEFAULT, ids), S_OK);
    UniqueVariant sql(L"por nombre"), connection(kNothing), result;
    VARIANTARG arguments[] = {connection.Get(), sql.Get()};
    DISPID named[] = {ids[2], ids[1]};
    DISPPARAMS call{arguments, named, 2, 2};
    EXPECT_EQ(quillon.Get()->Invoke(ids[0], IID{}, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &call, result.Put(),
                                    nullptr, nullptr),
              S_OK);
    EXPECT_EQ(win32::TextOf(result.Get().bstrVal), L"por nombre");
}

TEST(LateBinding, TheLastArgumentMayBeLeftOut) {
    const Dispatch quillon = LateQuillon();
    EXPECT_EQ(quillon.Call(L"DesingQry", kNothing, L"x", UniqueVariant::Missing()).Text(), L"x");
    EXPECT_EQ(quillon.Call(L"DesingQry", kNothing).Code(), DISP_E_PARAMNOTOPTIONAL);
    EXPECT_EQ(quillon.Call(L"DesingQry", kNothing, L"", L"", L"").Code(), DISP_E_BADPARAMCOUNT);
}

TEST(LateBinding, AWrongArgumentIsNamed) {
    const Dispatch quillon = LateQuillon();
    UniqueVariant array, result;
    array.Address()->vt = VT_ARRAY | VT_I4;
    array.Address()->parray = SafeArrayCreateVector(VT_I4, 0, 1);
    const UniqueVariant connection(kNothing);
    VARIANTARG arguments[] = {array.Get(), connection.Get()};
    DISPPARAMS call{arguments, nullptr, 2, 0};
    UINT bad = 99;
    EXPECT_EQ(quillon.Get()->Invoke(2, IID{}, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &call, result.Put(),
                                    nullptr, &bad),
              DISP_E_TYPEMISMATCH);
    EXPECT_EQ(bad, 0u);
}

TEST(LateBinding, PropertiesInEveryForm) {
    const Dispatch parameter = LateParameter();
    EXPECT_TRUE(parameter.Put(L"Name", L"desde"));
    EXPECT_EQ(parameter.Get(L"name").Text(), L"desde");
    EXPECT_TRUE(parameter.Put(L"Name", 15)) << "a number becomes text";
    EXPECT_EQ(parameter.Get(L"Name").Text(), L"15");
    UniqueVariant variable(L"hasta");
    EXPECT_TRUE(parameter.Put(L"Name", UniqueVariant::ReferenceTo(variable.Address())));
    EXPECT_EQ(parameter.Get(L"Name").Text(), L"hasta");
    UniqueVariant number(5);
    EXPECT_TRUE(parameter.Put(L"Value", UniqueVariant::ReferenceTo(number.Address())));
    EXPECT_EQ(parameter.Get(L"Value").Value().Type(), VT_I4);
    EXPECT_TRUE(parameter.Put(L"Value", UniqueVariant::Null()));
    EXPECT_EQ(parameter.Get(L"Value").Value().Type(), VT_NULL);
    EXPECT_EQ(parameter.Put(L"SQLExpresion", 1).Code(), DISP_E_MEMBERNOTFOUND);
    EXPECT_EQ(parameter.Get(L"NoExiste").Code(), DISP_E_UNKNOWNNAME);
}

TEST(LateBinding, ObjectsAreSetByReferenceAndByLanguagesWithoutSet) {
    const Dispatch quillon = LateQuillon();
    const tests::FakePtr collection = tests::MakeCollection({});
    EXPECT_EQ(quillon.Get(L"ParamCol").Value().Type(), VT_DISPATCH);
    EXPECT_FALSE(quillon.Get(L"ParamCol").Object());
    EXPECT_TRUE(quillon.PutRef(L"ParamCol", tests::ObjectValue(collection)));
    EXPECT_EQ(quillon.Get(L"ParamCol").Object().Get(), collection.Get());
    EXPECT_TRUE(quillon.PutRef(L"ParamCol", kNothing));
    EXPECT_FALSE(quillon.Get(L"ParamCol").Object());
    EXPECT_TRUE(quillon.Put(L"ParamCol", tests::ObjectValue(collection)));
    EXPECT_EQ(quillon.Get(L"ParamCol").Object().Get(), collection.Get());
    EXPECT_TRUE(quillon.Put(L"ParamCol", UniqueVariant::Null()));
    EXPECT_FALSE(quillon.Get(L"ParamCol").Object());
    EXPECT_FALSE(quillon.Put(L"ParamCol", 5));
}

TEST(LateBinding, AConversionErrorIsAnExceptionWithItsText) {
    const Dispatch parameter = LateParameter();
    EXPECT_TRUE(parameter.Put(L"eType", L"adDate"));
    EXPECT_TRUE(parameter.Put(L"Value", L"nunca"));
    const CallResult literal = parameter.Call(L"SQLExpresion");
    EXPECT_EQ(literal.Code(), DISP_E_TYPEMISMATCH);
    EXPECT_EQ(literal.Message(), L"No coinciden los tipos");
    EXPECT_EQ(literal.Source(), L"Tessel.cParameter");
    EXPECT_TRUE(parameter.Put(L"Value", 0));
    EXPECT_EQ(parameter.Get(L"VBExpresion").Text(), L"\"1899-12-30 00:00:00\"");
}

TEST(LateBinding, OnlyTheNullInterfaceIsAccepted) {
    const Dispatch quillon = LateQuillon();
    DISPPARAMS none{};
    EXPECT_EQ(
        quillon.Get()->Invoke(1, IID_IUnknown, 0, DISPATCH_PROPERTYGET, &none, nullptr, nullptr, nullptr),
        DISP_E_UNKNOWNINTERFACE);
    EXPECT_EQ(quillon.Get()->Invoke(99, IID{}, 0, DISPATCH_PROPERTYGET, &none, nullptr, nullptr, nullptr),
              DISP_E_MEMBERNOTFOUND);
}

TEST(CurrentSchema, IsWhateverTheHostPutUntilTheNextDesign) {
    const Dispatch quillon = LateQuillon();
    EXPECT_FALSE(quillon.Get(L"CurrentSchema").Object());
    const tests::FakePtr own = tests::MakeFake();
    EXPECT_TRUE(quillon.PutRef(L"CurrentSchema", tests::ObjectValue(own)));
    EXPECT_EQ(quillon.Get(L"CurrentSchema").Object().Get(), own.Get());
    EXPECT_TRUE(quillon.Call(L"DesingQry", kNothing, L"x"));
    const Dispatch reader = quillon.Get(L"CurrentSchema").Object();
    EXPECT_NE(reader.Get(), own.Get());
    EXPECT_EQ(reader.Get(L"Count").Number(), 0);
    EXPECT_EQ(reader.Get(L"Name", 1).Code(), DISP_E_BADINDEX);
    EXPECT_EQ(reader.Call(L"LoadSchema", kNothing).Boolean(), false);
    EXPECT_EQ(reader.Call(L"LoadSchema").Code(), DISP_E_BADPARAMCOUNT);
    EXPECT_EQ(reader.Get(L"Kind", L"dos").Code(), DISP_E_TYPEMISMATCH);
    EXPECT_EQ(reader.Put(L"Count", 3).Code(), DISP_E_MEMBERNOTFOUND);
    EXPECT_EQ(reader.Get(L"Fields").Code(), DISP_E_UNKNOWNNAME);
}

TEST(EarlyBinding, NullPointersAreNoCrash) {
    const ComPtr<_Quillon> quillon = ComponentLibrary::Instance().CreateQuillon();
    Bstr result;
    EXPECT_EQ(quillon->DesingQry(nullptr, nullptr, nullptr, result.Put()), S_OK);
    EXPECT_EQ(result.View(), L"");
    EXPECT_EQ(quillon->DesingQry(nullptr, nullptr, nullptr, nullptr), E_POINTER);
    EXPECT_EQ(quillon->get_ParamCol(nullptr), E_POINTER);
    EXPECT_EQ(quillon->GetParameter(nullptr, nullptr), E_POINTER);
    _cParameter* parameter = reinterpret_cast<_cParameter*>(1);
    EXPECT_EQ(quillon->GetParameter(nullptr, &parameter), S_OK);
    EXPECT_EQ(parameter, nullptr);
}

TEST(EarlyBinding, WithoutAConnectionTheStatementComesBackByteForByte) {
    const ComPtr<_Quillon> quillon = ComponentLibrary::Instance().CreateQuillon();
    IDispatch* connection = nullptr;
    const Bstr sql(std::wstring_view(L"  SELECT\t'\0'\r\n  ", 16));
    BSTR text = sql.Get();
    Bstr caption, result;
    EXPECT_EQ(quillon->DesingQry(&connection, &text, caption.Put(), result.Put()), S_OK);
    EXPECT_EQ(result.View(), sql.View());
    EXPECT_EQ(caption.View(), L"") << "the caption is filled in only over a schema";
}

}  // namespace
}  // namespace tessel
