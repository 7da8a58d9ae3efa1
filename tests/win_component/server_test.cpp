// The in-process server: factories, identity, counts, and the truth about unloading.
#include <gtest/gtest.h>
#include <ocidl.h>

#include "tests/win_component/component_library.h"

namespace tessel {
namespace {

using tests::ComponentLibrary;
using win32::ComPtr;

ComponentLibrary& Library() {
    return ComponentLibrary::Instance();
}

class Server : public testing::Test {
protected:
    void SetUp() override {
        ASSERT_TRUE(Library().IsLoaded());
        ASSERT_EQ(Library().CanUnloadNow(), S_OK);
    }
    void TearDown() override { EXPECT_EQ(Library().CanUnloadNow(), S_OK) << "something was left behind"; }
};

TEST_F(Server, ObjectsKeepTheLibraryLoaded) {
    ComPtr<_Quillon> quillon = Library().CreateQuillon();
    ASSERT_TRUE(quillon);
    EXPECT_EQ(Library().CanUnloadNow(), S_FALSE);
    quillon.Reset();
    EXPECT_EQ(Library().CanUnloadNow(), S_OK);
    ComPtr<_cParameter> parameter = Library().CreateParameter();
    EXPECT_EQ(Library().CanUnloadNow(), S_FALSE);
}

TEST_F(Server, FactoriesKeepTheLibraryLoaded) {
    ComPtr<IClassFactory> factory;
    ASSERT_EQ(Library().GetClassObject(__uuidof(Quillon), IID_IClassFactory, factory.PutVoid()), S_OK);
    EXPECT_EQ(Library().CanUnloadNow(), S_FALSE);
}

TEST_F(Server, LocksKeepTheLibraryLoaded) {
    ComPtr<IClassFactory> factory;
    ASSERT_EQ(Library().GetClassObject(__uuidof(cParameter), IID_IClassFactory, factory.PutVoid()), S_OK);
    EXPECT_EQ(factory->LockServer(TRUE), S_OK);
    factory.Reset();
    EXPECT_EQ(Library().CanUnloadNow(), S_FALSE);
    ASSERT_EQ(Library().GetClassObject(__uuidof(cParameter), IID_IClassFactory, factory.PutVoid()), S_OK);
    EXPECT_EQ(factory->LockServer(FALSE), S_OK);
}

TEST_F(Server, AnUnknownClassIsRefused) {
    void* object = &object;
    EXPECT_EQ(Library().GetClassObject(IID_IUnknown, IID_IClassFactory, &object), CLASS_E_CLASSNOTAVAILABLE);
    EXPECT_EQ(object, nullptr);
}

TEST_F(Server, AnUnknownInterfaceIsRefusedAndLeavesNothing) {
    void* object = &object;
    EXPECT_EQ(Library().GetClassObject(__uuidof(Quillon), IID_IStream, &object), E_NOINTERFACE);
    EXPECT_EQ(object, nullptr);
    ComPtr<IClassFactory> factory;
    ASSERT_EQ(Library().GetClassObject(__uuidof(Quillon), IID_IClassFactory, factory.PutVoid()), S_OK);
    object = &object;
    EXPECT_EQ(factory->CreateInstance(nullptr, __uuidof(_cParameter), &object), E_NOINTERFACE);
    EXPECT_EQ(object, nullptr);
}

TEST_F(Server, AggregationIsRefused) {
    ComPtr<IClassFactory> factory;
    ASSERT_EQ(Library().GetClassObject(__uuidof(Quillon), IID_IClassFactory, factory.PutVoid()), S_OK);
    void* object = &object;
    EXPECT_EQ(factory->CreateInstance(factory.Get(), IID_IUnknown, &object), CLASS_E_NOAGGREGATION);
    EXPECT_EQ(object, nullptr);
}

template <class Interface>
void CheckIdentity(const ComPtr<Interface>& object) {
    ASSERT_TRUE(object);
    const ComPtr<IUnknown> identity = object.template As<IUnknown>();
    const ComPtr<IUnknown> again = object.template As<IUnknown>();
    EXPECT_EQ(identity.Get(), again.Get());
    const ComPtr<IDispatch> dispatch = object.template As<IDispatch>();
    const ComPtr<ISupportErrorInfo> errors = object.template As<ISupportErrorInfo>();
    const ComPtr<IProvideClassInfo> class_info = object.template As<IProvideClassInfo>();
    ASSERT_TRUE(dispatch && errors && class_info);
    EXPECT_EQ(dispatch.template As<IUnknown>().Get(), identity.Get());
    EXPECT_EQ(errors.template As<IUnknown>().Get(), identity.Get());
    EXPECT_EQ(class_info.template As<IUnknown>().Get(), identity.Get());
    EXPECT_EQ(errors.template As<Interface>().Get(), object.Get());
    EXPECT_EQ(class_info.template As<IDispatch>().Get(), dispatch.Get());
    EXPECT_EQ(errors->InterfaceSupportsErrorInfo(__uuidof(Interface)), S_OK);
    EXPECT_EQ(errors->InterfaceSupportsErrorInfo(IID_IStream), S_FALSE);
    void* none = &none;
    EXPECT_EQ(object->QueryInterface(IID_IStream, &none), E_NOINTERFACE);
    EXPECT_EQ(none, nullptr);
    EXPECT_EQ(object->QueryInterface(IID_IUnknown, nullptr), E_POINTER);
}

TEST_F(Server, EveryInterfaceLeadsToTheSameObject) {
    CheckIdentity(Library().CreateQuillon());
    CheckIdentity(Library().CreateParameter());
}

TEST_F(Server, ReferenceCountsGoBackToZero) {
    ComPtr<_Quillon> quillon = Library().CreateQuillon();
    _Quillon* raw = quillon.Detach();
    EXPECT_EQ(raw->AddRef(), 2u);
    EXPECT_EQ(raw->Release(), 1u);
    EXPECT_EQ(raw->Release(), 0u);
}

TEST_F(Server, ClassInformationNamesTheCoclass) {
    const auto class_info = Library().CreateQuillon().As<IProvideClassInfo>();
    ComPtr<ITypeInfo> type;
    ASSERT_EQ(class_info->GetClassInfo(type.Put()), S_OK);
    TYPEATTR* attributes = nullptr;
    ASSERT_EQ(type->GetTypeAttr(&attributes), S_OK);
    EXPECT_EQ(attributes->typekind, TKIND_COCLASS);
    EXPECT_TRUE(attributes->guid == __uuidof(Quillon));
    type->ReleaseTypeAttr(attributes);
}

DWORD WINAPI MakeObjects(void*) {
    OleInitialize(nullptr);
    DWORD made = 0;
    for (int i = 0; i < 200; ++i)
        if (Library().CreateParameter()) ++made;
    OleUninitialize();
    return made;
}

TEST_F(Server, EveryThreadMayMakeItsOwnObjects) {
    HANDLE threads[3];
    for (HANDLE& thread : threads) thread = CreateThread(nullptr, 0, MakeObjects, nullptr, 0, nullptr);
    WaitForMultipleObjects(3, threads, TRUE, INFINITE);
    for (const HANDLE thread : threads) {
        DWORD made = 0;
        GetExitCodeThread(thread, &made);
        EXPECT_EQ(made, 200u);
        CloseHandle(thread);
    }
}

}  // namespace
}  // namespace tessel
