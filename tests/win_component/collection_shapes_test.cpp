// ParamCol in every shape in which hosts have collections, and elements that are not ours.
#include <gtest/gtest.h>

#include "common/win32/dispatch.h"
#include "tests/support/win32/fake_dispatch.h"
#include "tests/win_component/component_library.h"

namespace tessel {
namespace {

using tests::ComponentLibrary;
using tests::FakeAnswer;
using tests::FakeCall;
using tests::FakePtr;
using win32::Bstr;
using win32::ComPtr;
using win32::UniqueVariant;

constexpr HRESULT kOutOfRange = static_cast<HRESULT>(0x800A0009);

ComPtr<_cParameter> Named(const wchar_t* name) {
    const ComPtr<_cParameter> parameter = ComponentLibrary::Instance().CreateParameter();
    parameter->put_Name(Bstr(name).Get());
    return parameter;
}

UniqueVariant ObjectOf(const ComPtr<_cParameter>& parameter) {
    return UniqueVariant(static_cast<IDispatch*>(parameter.Get()));
}

/// A parameter of the host's own making.
FakePtr Foreign(const wchar_t* name) {
    FakePtr parameter = tests::MakeFake();
    parameter->Set(L"Name", name);
    return parameter;
}

/// An array of Variants, as a dictionary's Items answers.
UniqueVariant ArrayOf(const std::vector<ComPtr<_cParameter>>& parameters, VARTYPE type = VT_VARIANT) {
    UniqueVariant value;
    SAFEARRAY* const array = SafeArrayCreateVector(type, 0, static_cast<ULONG>(parameters.size()));
    for (LONG i = 0; i < static_cast<LONG>(parameters.size()); ++i) {
        const UniqueVariant element = ObjectOf(parameters[static_cast<std::size_t>(i)]);
        void* const source = type == VT_DISPATCH ? static_cast<void*>(element.Get().pdispVal)
                                                 : const_cast<VARIANT*>(&element.Get());
        SafeArrayPutElement(array, &i, source);
    }
    value.Address()->vt = static_cast<VARTYPE>(VT_ARRAY | type);
    value.Address()->parray = array;
    return value;
}

struct Found {
    HRESULT result;
    ComPtr<_cParameter> parameter;
};

Found Find(IDispatch* collection, const wchar_t* name) {
    const ComPtr<_Quillon> quillon = ComponentLibrary::Instance().CreateQuillon();
    quillon->putref_ParamCol(collection);
    Found found{};
    BSTR text = Bstr(name).Detach();
    found.result = quillon->GetParameter(&text, found.parameter.Put());
    SysFreeString(text);
    return found;
}

std::wstring LastErrorText() {
    ComPtr<IErrorInfo> info;
    if (GetErrorInfo(0, info.Put()) != S_OK) return L"(ninguno)";
    Bstr description;
    info->GetDescription(description.Put());
    return std::wstring(description.View());
}

TEST(CollectionShapes, ADictionaryGivesItsItemsNotItsKeys) {
    const ComPtr<_cParameter> from = Named(L"desde");
    const ComPtr<_cParameter> to = Named(L"hasta");
    for (const VARTYPE type : {VARTYPE(VT_VARIANT), VARTYPE(VT_DISPATCH)}) {
        FakePtr dictionary = tests::MakeFake();
        dictionary->Set(L"Count", 2);
        dictionary->On(L"Keys", [](const FakeCall&) { return tests::Value(UniqueVariant(L"clave")); });
        dictionary->On(L"Items", [&, type](const FakeCall&) {
            return tests::Value(ArrayOf({from, to}, type));
        });
        dictionary->On(L"Item", [](const FakeCall&) {
            ADD_FAILURE() << "asking a dictionary for an absent key adds it";
            return tests::Fail(E_FAIL);
        });
        EXPECT_EQ(Find(dictionary.Get(), L"hasta").parameter.Get(), to.Get());
        EXPECT_FALSE(Find(dictionary.Get(), L"clave").parameter);
    }
}

TEST(CollectionShapes, ADictionaryMayGiveItsItemsAsACollection) {
    const ComPtr<_cParameter> date = Named(L"fecha");
    FakePtr items = tests::MakeFake();
    items->Set(L"Count", 1);
    items->On(L"Item", [&](const FakeCall& call) {
        return call.Number(0) == 0 ? tests::Value(ObjectOf(date)) : tests::Raise(kOutOfRange, L"fuera");
    });
    FakePtr dictionary = tests::MakeFake();
    dictionary->Set(L"Keys", 0);
    dictionary->On(L"Items", [&](const FakeCall&) { return tests::Value(tests::ObjectValue(items)); });
    EXPECT_EQ(Find(dictionary.Get(), L"fecha").parameter.Get(), date.Get());
}

TEST(CollectionShapes, ItemsThatAreNoCollectionAreATypeMismatch) {
    for (const wchar_t* items : {L"texto", L""}) {
        FakePtr dictionary = tests::MakeFake();
        dictionary->Set(L"Keys", 0);
        dictionary->Set(L"Items", items);
        EXPECT_EQ(Find(dictionary.Get(), L"fecha").result, DISP_E_TYPEMISMATCH);
    }
    FakePtr numbers = tests::MakeFake();
    numbers->Set(L"Keys", 0);
    numbers->On(L"Items", [](const FakeCall&) {
        UniqueVariant value;
        value.Address()->vt = VT_ARRAY | VT_I4;
        value.Address()->parray = SafeArrayCreateVector(VT_I4, 0, 3);
        return tests::Value(std::move(value));
    });
    EXPECT_EQ(Find(numbers.Get(), L"fecha").result, DISP_E_TYPEMISMATCH);
    FakePtr broken = tests::MakeFake();
    broken->Set(L"Keys", 0);
    broken->On(L"Items", [](const FakeCall&) { return tests::Raise(E_ACCESSDENIED, L"Cerrado"); });
    EXPECT_EQ(Find(broken.Get(), L"fecha").result, E_ACCESSDENIED);
    EXPECT_EQ(LastErrorText(), L"Cerrado");
}

TEST(CollectionShapes, ItemsThatWantAnIndexMakeNoDictionary) {
    const ComPtr<_cParameter> date = Named(L"fecha");
    for (const HRESULT refusal : {DISP_E_BADPARAMCOUNT, DISP_E_PARAMNOTOPTIONAL}) {
        FakePtr collection = tests::MakeFake();
        collection->Set(L"Keys", 0);
        collection->Set(L"Count", 1);
        const auto item = [&, refusal](const FakeCall& call) {
            if (call.arguments.empty()) return tests::Fail(refusal);
            return call.Number(0) == 1 ? tests::Value(ObjectOf(date)) : tests::Raise(kOutOfRange, L"fuera");
        };
        collection->On(L"Items", item);
        collection->On(L"Item", item);
        EXPECT_EQ(Find(collection.Get(), L"fecha").parameter.Get(), date.Get());
    }
}

TEST(CollectionShapes, AnEmptyDictionaryHoldsNothing) {
    FakePtr dictionary = tests::MakeFake();
    dictionary->Set(L"Keys", 0);
    dictionary->On(L"Items", [](const FakeCall&) { return tests::Value(ArrayOf({})); });
    const Found found = Find(dictionary.Get(), L"fecha");
    EXPECT_EQ(found.result, S_OK);
    EXPECT_FALSE(found.parameter);
}

/// A zero-based collection that answers a number it does not have with Empty or Nothing, not with an error.
TEST(CollectionShapes, NumbersFromZeroAreSeenBehindSilence) {
    const ComPtr<_cParameter> first = Named(L"uno");
    const ComPtr<_cParameter> second = Named(L"dos");
    for (const bool nothing : {false, true}) {
        FakePtr collection = tests::MakeFake();
        collection->Set(L"Count", 2);
        collection->On(L"Item", [&, nothing](const FakeCall& call) {
            if (call.Number(0) == 0) return tests::Value(ObjectOf(first));
            if (call.Number(0) == 1) return tests::Value(ObjectOf(second));
            return nothing ? tests::Value(UniqueVariant(static_cast<IDispatch*>(nullptr)))
                           : tests::Value(UniqueVariant());
        });
        EXPECT_EQ(Find(collection.Get(), L"uno").parameter.Get(), first.Get());
        EXPECT_EQ(Find(collection.Get(), L"dos").parameter.Get(), second.Get());
        EXPECT_EQ(Find(collection.Get(), L"tres").result, S_OK);
    }
}

TEST(CollectionShapes, AnItemOfAnotherNameIsTheDefaultMember) {
    const ComPtr<_cParameter> date = Named(L"fecha");
    FakePtr collection = tests::MakeFake();
    collection->Set(L"Count", 1);
    collection->On(L"_Default", [&](const FakeCall& call) {
        return call.Number(0) == 1 ? tests::Value(ObjectOf(date)) : tests::Raise(kOutOfRange, L"fuera");
    });
    EXPECT_EQ(Find(collection.Get(), L"fecha").parameter.Get(), date.Get());
}

TEST(CollectionShapes, AScriptArrayIsWalkedByItsLength) {
    const ComPtr<_cParameter> from = Named(L"desde");
    const ComPtr<_cParameter> to = Named(L"hasta");
    FakePtr array = tests::MakeFake();
    array->Set(L"length", 2);
    array->On(L"0", [&](const FakeCall&) { return tests::Value(ObjectOf(from)); });
    array->On(L"1", [&](const FakeCall&) { return tests::Value(ObjectOf(to)); });
    EXPECT_EQ(Find(array.Get(), L"desde").parameter.Get(), from.Get());
    EXPECT_EQ(Find(array.Get(), L"hasta").parameter.Get(), to.Get());
    EXPECT_FALSE(Find(array.Get(), L"otro").parameter);
}

TEST(CollectionShapes, WhatIsNoCollectionIsAnError) {
    EXPECT_TRUE(FAILED(Find(tests::MakeFake().Get(), L"fecha").result));
    EXPECT_TRUE(FAILED(Find(Foreign(L"fecha").Get(), L"fecha").result)) << "a parameter is no collection";
}

TEST(ForeignParameters, EveryPropertyIsReadAndWrittenInTheObject) {
    FakePtr foreign = Foreign(L"fecha");
    std::wstring written;
    foreign->On(L"Predef", [&](const FakeCall& call) {
        if (call.flags & DISPATCH_PROPERTYPUT) written = L"Predef=" + call.Text(0);
        return tests::Value(UniqueVariant(L"hoy"));
    });
    foreign->On(L"eType", [&](const FakeCall& call) {
        if (call.flags & DISPATCH_PROPERTYPUT) written = L"eType=" + call.Text(0);
        return tests::Value(UniqueVariant(L"adInteger"));
    });
    foreign->On(L"Value", [&](const FakeCall& call) {
        if (call.flags & DISPATCH_PROPERTYPUT) written = L"Value=" + call.Text(0);
        return tests::Value(42);
    });
    const Found found = Find(tests::MakeCollection({foreign}).Get(), L" FECHA ");
    ASSERT_EQ(found.result, S_OK);
    ASSERT_TRUE(found.parameter);
    Bstr name, predef, type, sql, vb;
    UniqueVariant value;
    EXPECT_EQ(found.parameter->get_Name(name.Put()), S_OK);
    EXPECT_EQ(name.View(), L"fecha");
    EXPECT_EQ(found.parameter->get_Predef(predef.Put()), S_OK);
    EXPECT_EQ(predef.View(), L"hoy");
    EXPECT_EQ(found.parameter->get_eType(type.Put()), S_OK);
    EXPECT_EQ(type.View(), L"adInteger");
    EXPECT_EQ(found.parameter->get_Value(value.Put()), S_OK);
    EXPECT_EQ(value.Get().lVal, 42);
    EXPECT_EQ(found.parameter->SQLExpresion(sql.Put()), S_OK);
    EXPECT_EQ(sql.View(), L"42");
    EXPECT_EQ(found.parameter->VBExpresion(vb.Put()), S_OK);
    EXPECT_EQ(vb.View(), L"42");

    EXPECT_EQ(found.parameter->put_Predef(Bstr(L"ayer").Get()), S_OK);
    EXPECT_EQ(written, L"Predef=ayer");
    EXPECT_EQ(found.parameter->put_eType(Bstr(L"adDate").Get()), S_OK);
    EXPECT_EQ(written, L"eType=adDate");
    EXPECT_EQ(found.parameter->put_Value(UniqueVariant(7).Get()), S_OK);
    EXPECT_EQ(written, L"Value=7");
}

TEST(ForeignParameters, WithoutATypeTheValueIsText) {
    FakePtr foreign = Foreign(L"x");
    foreign->Set(L"Value", L"O'Brien");
    const Found found = Find(tests::MakeCollection({foreign}).Get(), L"x");
    ASSERT_TRUE(found.parameter);
    Bstr sql, vb, predef;
    EXPECT_EQ(found.parameter->SQLExpresion(sql.Put()), S_OK);
    EXPECT_EQ(sql.View(), L"'O'Brien'");
    EXPECT_EQ(found.parameter->VBExpresion(vb.Put()), S_OK);
    EXPECT_EQ(vb.View(), L"\"O'Brien\"");
    EXPECT_EQ(found.parameter->get_Predef(predef.Put()), S_OK);
    EXPECT_EQ(predef.View(), L"");
}

TEST(ForeignParameters, ALiteralOfItsOwnIsUsed) {
    FakePtr foreign = Foreign(L"x");
    foreign->Set(L"Value", L"no se lee");
    foreign->Set(L"SQLExpresion", L"#2024-03-05#");
    const Found found = Find(tests::MakeCollection({foreign}).Get(), L"x");
    ASSERT_TRUE(found.parameter);
    Bstr sql, vb;
    EXPECT_EQ(found.parameter->SQLExpresion(sql.Put()), S_OK);
    EXPECT_EQ(sql.View(), L"#2024-03-05#");
    EXPECT_EQ(found.parameter->VBExpresion(vb.Put()), S_OK);
    EXPECT_EQ(vb.View(), L"\"no se lee\"");
}

TEST(ForeignParameters, FailuresKeepTheObjectsOwnWords) {
    FakePtr foreign = Foreign(L"x");
    foreign->On(L"Value", [](const FakeCall&) { return tests::Raise(E_ACCESSDENIED, L"Valor secreto"); });
    const Found found = Find(tests::MakeCollection({foreign}).Get(), L"x");
    ASSERT_TRUE(found.parameter);
    BSTR sql = reinterpret_cast<BSTR>(1);
    EXPECT_EQ(found.parameter->SQLExpresion(&sql), E_ACCESSDENIED);
    EXPECT_EQ(sql, nullptr);
    EXPECT_EQ(LastErrorText(), L"Valor secreto");
    UniqueVariant value;
    EXPECT_EQ(found.parameter->get_Value(value.Put()), E_ACCESSDENIED);
    EXPECT_EQ(found.parameter->put_Predef(Bstr(L"x").Get()), DISP_E_UNKNOWNNAME);

    FakePtr without_value = Foreign(L"x");
    const Found bare = Find(tests::MakeCollection({without_value}).Get(), L"x");
    ASSERT_TRUE(bare.parameter);
    EXPECT_EQ(bare.parameter->SQLExpresion(&sql), DISP_E_UNKNOWNNAME);

    FakePtr no_date = Foreign(L"x");
    no_date->Set(L"Value", L"nunca");
    no_date->Set(L"eType", L"adDate");
    const Found dated = Find(tests::MakeCollection({no_date}).Get(), L"x");
    ASSERT_TRUE(dated.parameter);
    EXPECT_EQ(dated.parameter->VBExpresion(&sql), DISP_E_TYPEMISMATCH);
    EXPECT_EQ(LastErrorText(), L"No coinciden los tipos");
    EXPECT_EQ(dated.parameter->VBExpresion(nullptr), E_POINTER);
}

TEST(ForeignParameters, TheHostsObjectIsReleasedWithTheAnswer) {
    FakePtr foreign = Foreign(L"x");
    FakePtr collection = tests::MakeCollection({foreign});
    {
        const Found found = Find(collection.Get(), L"x");
        ASSERT_TRUE(found.parameter);
    }
    collection.Reset();
    foreign->AddRef();
    EXPECT_EQ(foreign->Release(), 1u);
}

TEST(ForeignParameters, LateBoundTheAnswerIsAParameterLikeOurs) {
    FakePtr foreign = Foreign(L"x");
    foreign->Set(L"Value", true);
    foreign->Set(L"eType", L"adBoolean");
    const win32::Dispatch quillon(ComponentLibrary::Instance().CreateQuillon().As<IDispatch>());
    EXPECT_TRUE(quillon.PutRef(L"ParamCol", tests::ObjectValue(tests::MakeEnumerable({foreign}))));
    const win32::Dispatch parameter = quillon.Call(L"GetParameter", L"X").Object();
    EXPECT_EQ(parameter.Get(L"name").Text(), L"x");
    EXPECT_EQ(parameter.Call(L"SQLExpresion").Text(), L"-1");
    EXPECT_EQ(parameter.Call(L"VBExpresion").Text(), L"TRUE");
}

TEST(DefaultMembers, ArgumentsOfAPropertyGoToTheObjectInIt) {
    const ComPtr<_cParameter> date = Named(L"fecha");
    FakePtr collection = tests::MakeFake();
    std::vector<std::wstring> asked;
    collection->On(L"_Default", [&](const FakeCall& call) {
        std::wstring text = call.flags & DISPATCH_PROPERTYPUT ? L"put" : L"get";
        for (std::size_t i = 0; i < call.arguments.size(); ++i) text += L" " + call.Text(i);
        asked.push_back(text);
        if (call.Text(0) == L"roto") return tests::Raise(kOutOfRange, L"No hay tal elemento");
        return tests::Value(ObjectOf(date));
    });
    const win32::Dispatch quillon(ComponentLibrary::Instance().CreateQuillon().As<IDispatch>());
    EXPECT_EQ(quillon.Get(L"ParamCol", 1).Code(), DISP_E_BADPARAMCOUNT) << "there is no object yet";
    EXPECT_TRUE(quillon.PutRef(L"ParamCol", tests::ObjectValue(collection)));
    EXPECT_EQ(quillon.Get(L"ParamCol", 1).Object().Get(), static_cast<IDispatch*>(date.Get()));
    EXPECT_EQ(quillon.Get(L"ParamCol", L"fecha", 2).Object().Get(), static_cast<IDispatch*>(date.Get()));
    EXPECT_TRUE(quillon.Put(L"ParamCol", L"fecha", 5));
    const win32::CallResult failed = quillon.Get(L"ParamCol", L"roto");
    EXPECT_EQ(failed.Code(), kOutOfRange);
    EXPECT_EQ(failed.Message(), L"No hay tal elemento");
    EXPECT_EQ(asked, (std::vector<std::wstring>{L"get 1", L"get fecha 2", L"put fecha 5", L"get roto"}));
    EXPECT_EQ(quillon.Get(L"ParamCol").Object().Get(), collection.Get()) << "the property itself";
    EXPECT_EQ(quillon.Call(L"GetParameter", L"a", L"b").Code(), DISP_E_BADPARAMCOUNT) << "a method";
}

}  // namespace
}  // namespace tessel
