// Quillon.GetParameter over the collections that hosts bring.
#include <gtest/gtest.h>

#include "common/win32/dispatch.h"
#include "tests/support/win32/fake_dispatch.h"
#include "tests/win_component/component_library.h"

namespace tessel {
namespace {

using tests::ComponentLibrary;
using tests::FakeCall;
using tests::FakePtr;
using win32::Bstr;
using win32::ComPtr;
using win32::UniqueVariant;

ComPtr<_cParameter> Named(const wchar_t* name) {
    const ComPtr<_cParameter> parameter = ComponentLibrary::Instance().CreateParameter();
    parameter->put_Name(Bstr(name).Get());
    return parameter;
}

/// A collection of real parameters with Count and Item numbered from `first`.
FakePtr CollectionOf(std::vector<ComPtr<_cParameter>> parameters, LONG first = 1) {
    FakePtr collection = tests::MakeFake();
    collection->Set(L"Count", static_cast<LONG>(parameters.size()));
    collection->On(L"Item", [parameters, first](const FakeCall& call) {
        const LONG index = call.Number(0) - first;
        if (index < 0 || static_cast<std::size_t>(index) >= parameters.size())
            return tests::Raise(static_cast<HRESULT>(0x800A0009), L"Sub\u00edndice fuera del intervalo");
        return tests::Value(static_cast<IDispatch*>(parameters[static_cast<std::size_t>(index)].Get()));
    });
    return collection;
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
    EXPECT_EQ(win32::TextOf(text), name) << "the name stays";
    SysFreeString(text);
    return found;
}

TEST(GetParameter, BeforeAnyCollectionThereIsNothing) {
    const Found found = Find(nullptr, L"fecha");
    EXPECT_EQ(found.result, S_OK);
    EXPECT_FALSE(found.parameter);
}

TEST(GetParameter, IgnoresCaseAndBlanksAround) {
    const ComPtr<_cParameter> first = Named(L"desde");
    const ComPtr<_cParameter> date = Named(L"fecha");
    const FakePtr collection = CollectionOf({first, date});
    EXPECT_EQ(Find(collection.Get(), L" FECHA ").parameter.Get(), date.Get());
    EXPECT_FALSE(Find(collection.Get(), L"fech").parameter);
    EXPECT_EQ(Find(CollectionOf({Named(L"x"), Named(L" A\u00d1O ")}).Get(), L"a\u00f1o").result, S_OK);
}

TEST(GetParameter, TheFirstOfEqualNamesWins) {
    const ComPtr<_cParameter> first = Named(L"Fecha ");
    const ComPtr<_cParameter> second = Named(L"fecha");
    EXPECT_EQ(Find(CollectionOf({first, second}).Get(), L"fecha").parameter.Get(), first.Get());
    EXPECT_EQ(Find(CollectionOf({second, first}).Get(), L"fecha").parameter.Get(), second.Get());
}

TEST(GetParameter, CollectionsMayCountFromZero) {
    const ComPtr<_cParameter> first = Named(L"uno");
    const ComPtr<_cParameter> second = Named(L"dos");
    const FakePtr collection = CollectionOf({first, second}, 0);
    EXPECT_EQ(Find(collection.Get(), L"uno").parameter.Get(), first.Get());
    EXPECT_EQ(Find(collection.Get(), L"dos").parameter.Get(), second.Get());
}

TEST(GetParameter, AnEmptyCollectionHoldsNothing) {
    const Found found = Find(CollectionOf({}).Get(), L"fecha");
    EXPECT_EQ(found.result, S_OK);
    EXPECT_FALSE(found.parameter);
}

TEST(GetParameter, TheWalkStopsAtTheFirstMatch) {
    const ComPtr<_cParameter> first = Named(L"uno");
    int asked = 0;
    FakePtr collection = tests::MakeFake();
    collection->Set(L"Count", 3);
    collection->On(L"Item", [&](const FakeCall& call) {
        ++asked;
        if (call.Number(0) == 1) return tests::Value(static_cast<IDispatch*>(first.Get()));
        return tests::Raise(E_FAIL, L"roto");
    });
    EXPECT_EQ(Find(collection.Get(), L"uno").parameter.Get(), first.Get());
}

std::wstring LastErrorText() {
    ComPtr<IErrorInfo> info;
    if (GetErrorInfo(0, info.Put()) != S_OK) return L"(ninguno)";
    Bstr description;
    info->GetDescription(description.Put());
    return std::wstring(description.View());
}

TEST(GetParameter, AnErrorInsideTheWalkReachesTheCaller) {
    FakePtr broken = tests::MakeFake();
    broken->On(L"Name",
               [](const FakeCall&) { return tests::Raise(static_cast<HRESULT>(0x800A005B), L"Sin nombre"); });
    EXPECT_EQ(Find(tests::MakeCollection({broken}).Get(), L"fecha").result, static_cast<HRESULT>(0x800A005B));
    EXPECT_EQ(LastErrorText(), L"Sin nombre");

    FakePtr no_name = tests::MakeFake();
    EXPECT_EQ(Find(tests::MakeCollection({no_name}).Get(), L"fecha").result, DISP_E_UNKNOWNNAME);

    FakePtr counts_only = tests::MakeFake();
    counts_only->On(L"Count", [](const FakeCall&) { return tests::Raise(E_ACCESSDENIED, L"Prohibido"); });
    EXPECT_EQ(Find(counts_only.Get(), L"fecha").result, E_ACCESSDENIED);
    EXPECT_EQ(LastErrorText(), L"Prohibido");

    FakePtr texts = tests::MakeFake();
    texts->Set(L"Count", 1);
    texts->Set(L"Item", L"no es objeto");
    EXPECT_EQ(Find(texts.Get(), L"fecha").result, DISP_E_TYPEMISMATCH);
}

TEST(GetParameter, ErrorTextsThatTheObjectPostponesAreFetched) {
    FakePtr broken = tests::MakeFake();
    broken->DeferExceptions();
    broken->On(L"Name", [](const FakeCall&) { return tests::Raise(E_FAIL, L"M\u00e1s tarde"); });
    EXPECT_EQ(Find(tests::MakeCollection({broken}).Get(), L"fecha").result, E_FAIL);
    EXPECT_EQ(LastErrorText(), L"M\u00e1s tarde");
}

TEST(GetParameter, AnEnumeratorIsWalkedWhereThereIsOne) {
    const ComPtr<_cParameter> parameter = Named(L"fecha");
    FakePtr other = tests::MakeFake();
    other->Set(L"Name", L"otro");
    EXPECT_EQ(Find(tests::MakeEnumerable({other}).Get(), L"fecha").result, S_OK);
    EXPECT_EQ(Find(tests::MakeEnumerable({other, other}, 1).Get(), L"fecha").result, E_FAIL);
    EXPECT_EQ(LastErrorText(), L"Enumerador roto");
}

TEST(GetParameter, LateBoundItAnswersTheObjectOrNothing) {
    const ComPtr<_cParameter> date = Named(L"fecha");
    const win32::Dispatch quillon(ComponentLibrary::Instance().CreateQuillon().As<IDispatch>());
    EXPECT_EQ(quillon.Call(L"GetParameter", L"fecha").Value().Type(), VT_DISPATCH);
    EXPECT_FALSE(quillon.Call(L"GetParameter", L"fecha").Object());
    EXPECT_TRUE(quillon.PutRef(L"ParamCol", tests::ObjectValue(CollectionOf({date}))));
    UniqueVariant name(L" Fecha");
    EXPECT_EQ(quillon.Call(L"GetParameter", UniqueVariant::ReferenceTo(name.Address())).Object().Get(),
              static_cast<IDispatch*>(date.Get()));
    FakePtr broken = tests::MakeFake();
    broken->On(L"Name", [](const FakeCall&) { return tests::Raise(E_FAIL, L"Sin nombre"); });
    EXPECT_TRUE(quillon.PutRef(L"ParamCol", tests::ObjectValue(tests::MakeCollection({broken}))));
    const win32::CallResult failed = quillon.Call(L"GetParameter", L"fecha");
    EXPECT_EQ(failed.Code(), E_FAIL);
    EXPECT_EQ(failed.Message(), L"Sin nombre");
}

}  // namespace
}  // namespace tessel
