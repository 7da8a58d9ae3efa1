// The accessible objects as COM objects: their interfaces, their counts, and what they answer when their
// window is gone.
#include "common/text.h"
#include "common/win32/accessible_window.h"
#include "common/win32/com_object.h"
#include "common/win32/window.h"
#include "tests/win_access/access_fixture.h"

namespace tessel::testing {

namespace {

using win32::Bstr;
using win32::ComPtr;
using win32::ServerCount;
using win32::UniqueVariant;

/// Two shelves of three books, one of which is chosen.
class Shelves final : public AccessibleTree {
public:
    bool Has(AccessibleId id) const override { return id == 0 || (id >= -23 && id <= -1 && -id % 10 <= 3); }
    AccessibleElement Describe(AccessibleId id) const override {
        AccessibleElement element;
        element.name = id == 0 ? L"estante" : std::to_wstring(-id);
        element.role = id == 0 ? AccessibleRole::Table : AccessibleRole::Cell;
        element.action = id == -11 ? L"Abrir" : L"";
        element.place = {-id, 0, -id + 5, 10};
        return element;
    }
    std::wstring ValueOf(AccessibleId id) const override { return id == -12 ? L"valor" : L""; }
    AccessibleId ParentOf(AccessibleId id) const override {
        return id <= -10 && -id % 10 ? -(-id / 10 * 10) : 0;
    }
    std::vector<AccessibleId> ChildrenOf(AccessibleId id) const override {
        if (id == 0) return {-10, -20};
        if (-id % 10 == 0) return {id - 1, id - 2, id - 3};
        return {};
    }
    std::vector<AccessibleId> Selected() const override { return selected; }
    AccessibleId Focused() const override { return focused; }
    AccessibleId ElementAt(int x, int) const override { return x < 100 ? -11 : 0; }
    bool Select(AccessibleId id, bool) override {
        selected = {id};
        return id != -13;
    }
    void Act(AccessibleId id) override { acted = id; }

    std::vector<AccessibleId> selected;
    AccessibleId focused = -12;
    AccessibleId acted = 0;
};

class ShelfWindow final : public win32::Window {
public:
    bool Create() {
        return CreateWindowOf({L"TesselTestShelf"}, L"", WS_POPUP | WS_VISIBLE, 0, nullptr, 0,
                              {50, 60, 350, 260});
    }
    Shelves tree;

private:
    LRESULT OnMessage(UINT message, WPARAM wparam, LPARAM lparam) override {
        if (LRESULT result = 0; accessible_.OnMessage(Handle(), message, wparam, lparam, result))
            return result;
        return Window::OnMessage(message, wparam, lparam);
    }
    win32::AccessibleWindow accessible_{tree};
};

VARIANT Child(LONG number) {
    VARIANT child{};
    child.vt = VT_I4;
    child.lVal = number;
    return child;
}

class ObjectTest : public ::testing::Test, protected WithCom {
protected:
    ObjectTest() {
        EXPECT_TRUE(window_.Create());
        root_ = AccessibleOf(window_.Handle());
    }
    ~ObjectTest() override {
        root_.Reset();
        window_.Destroy();
        EXPECT_EQ(ServerCount::Value(), before_);
    }
    std::wstring NameOf(LONG child) {
        Bstr name;
        return root_->get_accName(Child(child), name.Put()) == S_OK ? std::wstring(name.View()) : L"";
    }
    ComPtr<IAccessible> ChildOf(const ComPtr<IAccessible>& parent, LONG child) {
        ComPtr<IDispatch> object;
        return parent->get_accChild(Child(child), object.Put()) == S_OK ? object.As<IAccessible>()
                                                                        : ComPtr<IAccessible>();
    }

    const long before_ = ServerCount::Value();
    ShelfWindow window_;
    ComPtr<IAccessible> root_;
};

}  // namespace

TEST_F(ObjectTest, ChildrenAreFoundByPlaceAndByNumber) {
    EXPECT_EQ(NameOf(CHILDID_SELF), L"estante");
    EXPECT_EQ(NameOf(1), L"10");
    EXPECT_EQ(NameOf(2), L"20");
    EXPECT_EQ(NameOf(-12), L"12");
    const ComPtr<IAccessible> shelf = ChildOf(root_, 2);
    ASSERT_TRUE(shelf);
    const ComPtr<IAccessible> book = ChildOf(shelf, 3);
    ASSERT_TRUE(book);
    Bstr name;
    EXPECT_EQ(book->get_accName(ChildSelf(), name.Put()), S_OK);
    EXPECT_EQ(name.View(), L"23");
    EXPECT_EQ(ChildOf(root_, -23).As<IUnknown>().Get(), book.As<IUnknown>().Get());
    for (const LONG wrong : {3L, 99L, -4L, -99L, static_cast<LONG>(0x80000000)})
        EXPECT_FALSE(ChildOf(root_, wrong)) << wrong;
}

TEST_F(ObjectTest, InterfacesAreOneObject) {
    const ComPtr<IUnknown> identity = root_.As<IUnknown>();
    EXPECT_EQ(root_.As<IDispatch>().As<IUnknown>().Get(), identity.Get());
    EXPECT_EQ(root_.As<IEnumVARIANT>().As<IUnknown>().Get(), identity.Get());
    EXPECT_EQ(root_.As<IOleWindow>().As<IUnknown>().Get(), identity.Get());
    ComPtr<IStream> none;
    EXPECT_EQ(root_->QueryInterface(__uuidof(IStream), none.PutVoid()), E_NOINTERFACE);
    EXPECT_EQ(root_->QueryInterface(__uuidof(IStream), nullptr), E_POINTER);
}

TEST_F(ObjectTest, AnswersByNameAsADispatchObject) {
    OLECHAR text[] = L"accName";
    LPOLESTR names[] = {text};
    DISPID id = 0;
    ASSERT_EQ(root_->GetIDsOfNames(IID_NULL, names, 1, LOCALE_NEUTRAL, &id), S_OK);
    EXPECT_EQ(id, DISPID_ACC_NAME);
    VARIANTARG argument = Child(-21);
    DISPPARAMS parameters{&argument, nullptr, 1, 0};
    UniqueVariant result;
    ASSERT_EQ(root_->Invoke(id, IID_NULL, LOCALE_NEUTRAL, DISPATCH_PROPERTYGET, &parameters, result.Put(),
                            nullptr, nullptr),
              S_OK);
    EXPECT_EQ(win32::TextOf(result.Get().bstrVal), L"21");
    UINT count = 0;
    EXPECT_EQ(root_->GetTypeInfoCount(&count), S_OK);
    EXPECT_EQ(count, 1u);
    ComPtr<ITypeInfo> info;
    EXPECT_EQ(root_->GetTypeInfo(0, LOCALE_NEUTRAL, info.Put()), S_OK);
    EXPECT_EQ(root_->GetTypeInfo(1, LOCALE_NEUTRAL, info.Put()), DISP_E_BADINDEX);
}

TEST_F(ObjectTest, ChildrenAreEnumerated) {
    const ComPtr<IEnumVARIANT> children = root_.As<IEnumVARIANT>();
    VARIANT found[3]{};
    ULONG count = 9;
    EXPECT_EQ(children->Reset(), S_OK);
    EXPECT_EQ(children->Next(3, found, &count), S_FALSE);
    EXPECT_EQ(count, 2u);
    for (ULONG i = 0; i < count; ++i) VariantClear(&found[i]);
    EXPECT_EQ(children->Next(1, found, &count), S_FALSE);
    EXPECT_EQ(count, 0u);
    children->Reset();
    EXPECT_EQ(children->Skip(1), S_OK);
    ComPtr<IEnumVARIANT> copy;
    ASSERT_EQ(children->Clone(copy.Put()), S_OK);
    EXPECT_EQ(children->Skip(2), S_FALSE);
    ASSERT_EQ(copy->Next(1, found, nullptr), S_OK);
    const auto second = ComPtr<IDispatch>::Adopt(found[0].pdispVal).As<IAccessible>();
    EXPECT_EQ(second.As<IUnknown>().Get(), ChildOf(root_, 2).As<IUnknown>().Get());
    EXPECT_EQ(children->Next(1, nullptr, nullptr), E_POINTER);
}

TEST_F(ObjectTest, NavigatesAmongSiblingsAndChildren) {
    const auto go = [&](LONG direction, LONG start) {
        UniqueVariant end;
        if (root_->accNavigate(direction, Child(start), end.Put()) != S_OK) return std::wstring(L"-");
        const auto object = end.Object().As<IAccessible>();
        Bstr name;
        return object && object->get_accName(ChildSelf(), name.Put()) == S_OK ? std::wstring(name.View())
                                                                              : std::wstring(L"?");
    };
    EXPECT_EQ(go(NAVDIR_FIRSTCHILD, 0), L"10");
    EXPECT_EQ(go(NAVDIR_LASTCHILD, 0), L"20");
    EXPECT_EQ(go(NAVDIR_NEXT, -10), L"20");
    EXPECT_EQ(go(NAVDIR_NEXT, -20), L"-");
    EXPECT_EQ(go(NAVDIR_PREVIOUS, -13), L"12");
    EXPECT_EQ(go(NAVDIR_PREVIOUS, -11), L"-");
    EXPECT_EQ(go(NAVDIR_LASTCHILD, -20), L"23");
    EXPECT_EQ(go(NAVDIR_FIRSTCHILD, -23), L"-");
    EXPECT_EQ(go(NAVDIR_NEXT, 0), L"-");
    UniqueVariant end;
    EXPECT_EQ(root_->accNavigate(77, Child(-10), end.Put()), E_INVALIDARG);
}

TEST_F(ObjectTest, SelectionIsNothingOneOrAList) {
    UniqueVariant selection;
    EXPECT_EQ(root_->get_accSelection(selection.Put()), S_FALSE);
    EXPECT_EQ(selection.Type(), VT_EMPTY);
    window_.tree.selected = {-22};
    EXPECT_EQ(root_->get_accSelection(selection.Put()), S_OK);
    EXPECT_EQ(selection.Type(), VT_DISPATCH);
    window_.tree.selected = {-11, -22, -23};
    EXPECT_EQ(root_->get_accSelection(selection.Put()), S_OK);
    ASSERT_EQ(selection.Type(), VT_UNKNOWN);
    const auto list = ComPtr<IUnknown>(selection.Get().punkVal).As<IEnumVARIANT>();
    ASSERT_TRUE(list);
    VARIANT items[4]{};
    ULONG count = 0;
    EXPECT_EQ(list->Next(4, items, &count), S_FALSE);
    EXPECT_EQ(count, 3u);
    for (ULONG i = 0; i < count; ++i) VariantClear(&items[i]);
    // Of a shelf only what stands on it.
    EXPECT_EQ(ChildOf(root_, 1)->get_accSelection(selection.Put()), S_OK);
    EXPECT_EQ(selection.Type(), VT_DISPATCH);
}

TEST_F(ObjectTest, ActionsAreDoneWhenTheProgramHasItsAnswer) {
    EXPECT_EQ(root_->accDoDefaultAction(Child(-12)), DISP_E_MEMBERNOTFOUND);
    EXPECT_EQ(root_->accDoDefaultAction(Child(-11)), S_OK);
    EXPECT_EQ(window_.tree.acted, 0);
    MSG message{};
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageW(&message);
    EXPECT_EQ(window_.tree.acted, -11);
}

TEST_F(ObjectTest, SelectingTakesTheFocusWhenAskedTo) {
    EXPECT_EQ(root_->accSelect(SELFLAG_TAKESELECTION, Child(-21)), S_OK);
    EXPECT_EQ(window_.tree.selected, (std::vector<AccessibleId>{-21}));
    EXPECT_EQ(root_->accSelect(SELFLAG_TAKESELECTION, Child(-13)), DISP_E_MEMBERNOTFOUND);
    EXPECT_EQ(root_->accSelect(0, Child(-21)), E_INVALIDARG);
    EXPECT_EQ(root_->accSelect(SELFLAG_REMOVESELECTION, Child(-21)), E_INVALIDARG);
    SetActiveWindow(window_.Handle());
    EXPECT_EQ(root_->accSelect(SELFLAG_TAKEFOCUS | SELFLAG_TAKESELECTION, Child(-22)), S_OK);
    EXPECT_EQ(GetFocus(), window_.Handle());
}

TEST_F(ObjectTest, StatesTellFocusAndWindow) {
    const auto state = [&](LONG child) {
        VARIANT value{};
        EXPECT_EQ(root_->get_accState(Child(child), &value), S_OK);
        return value.lVal;
    };
    SetActiveWindow(window_.Handle());
    SetFocus(window_.Handle());
    EXPECT_EQ(state(-12), STATE_SYSTEM_FOCUSED);
    EXPECT_EQ(state(-11), 0);
    UniqueVariant focus;
    EXPECT_EQ(root_->get_accFocus(focus.Put()), S_OK);
    EXPECT_EQ(focus.Type(), VT_DISPATCH);
    EXPECT_EQ(ChildOf(root_, -12)->get_accFocus(focus.Put()), S_OK);
    EXPECT_EQ(focus.Type(), VT_I4);
    EXPECT_EQ(ChildOf(root_, -20)->get_accFocus(focus.Put()), S_FALSE);
    EnableWindow(window_.Handle(), FALSE);
    ShowWindow(window_.Handle(), SW_HIDE);
    EXPECT_EQ(state(-11), STATE_SYSTEM_UNAVAILABLE | STATE_SYSTEM_INVISIBLE);
}

TEST_F(ObjectTest, PlacesAreOnTheScreen) {
    LONG left = 0, top = 0, width = 0, height = 0;
    EXPECT_EQ(root_->accLocation(&left, &top, &width, &height, ChildSelf()), S_OK);
    EXPECT_EQ((std::vector<LONG>{left, top, width, height}), (std::vector<LONG>{50, 60, 300, 200}));
    EXPECT_EQ(root_->accLocation(&left, &top, &width, &height, Child(-21)), S_OK);
    EXPECT_EQ((std::vector<LONG>{left, top, width, height}), (std::vector<LONG>{71, 60, 5, 10}));
    UniqueVariant hit;
    EXPECT_EQ(root_->accHitTest(60, 70, hit.Put()), S_OK);
    EXPECT_EQ(hit.Type(), VT_DISPATCH);
    EXPECT_EQ(root_->accHitTest(300, 70, hit.Put()), S_OK);
    EXPECT_EQ(hit.Type(), VT_I4);
    EXPECT_EQ(root_->accHitTest(10, 10, hit.Put()), S_FALSE);
}

TEST_F(ObjectTest, OutParametersAreSetOnFailure) {
    Bstr text(L"antes");
    EXPECT_EQ(root_->get_accName(Child(77), text.Put()), E_INVALIDARG);
    EXPECT_EQ(text.Get(), nullptr);
    VARIANT wrong{};
    wrong.vt = VT_BSTR;
    EXPECT_EQ(root_->get_accName(wrong, text.Put()), E_INVALIDARG);
    EXPECT_EQ(root_->get_accName(Child(0), nullptr), E_POINTER);
    EXPECT_EQ(root_->get_accChildCount(nullptr), E_POINTER);
    EXPECT_EQ(root_->get_accParent(nullptr), E_POINTER);
    EXPECT_EQ(root_->get_accChild(Child(1), nullptr), E_POINTER);
    EXPECT_EQ(root_->get_accRole(Child(1), nullptr), E_POINTER);
    EXPECT_EQ(root_->get_accState(Child(1), nullptr), E_POINTER);
    EXPECT_EQ(root_->get_accFocus(nullptr), E_POINTER);
    EXPECT_EQ(root_->get_accSelection(nullptr), E_POINTER);
    EXPECT_EQ(root_->accHitTest(0, 0, nullptr), E_POINTER);
    EXPECT_EQ(root_->accNavigate(NAVDIR_NEXT, Child(1), nullptr), E_POINTER);
    EXPECT_EQ(root_->accLocation(nullptr, nullptr, nullptr, nullptr, Child(0)), E_POINTER);
    EXPECT_EQ(root_->get_accValue(Child(1), text.Put()), S_FALSE);
    EXPECT_EQ(root_->get_accHelp(Child(1), text.Put()), S_FALSE);
    EXPECT_EQ(root_->get_accKeyboardShortcut(Child(1), text.Put()), S_FALSE);
}

TEST_F(ObjectTest, ObjectsKeptAnswerThatTheirWindowIsGone) {
    const ComPtr<IAccessible> shelf = ChildOf(root_, 1);
    const ComPtr<IAccessible> book = ChildOf(shelf, 1);
    window_.Destroy();
    for (const ComPtr<IAccessible>& object : {root_, shelf, book}) {
        Bstr text;
        UniqueVariant value;
        ComPtr<IDispatch> other;
        LONG number = 7;
        LONG more[3]{};
        HWND hwnd = nullptr;
        EXPECT_EQ(object->get_accName(ChildSelf(), text.Put()), CO_E_OBJNOTCONNECTED);
        EXPECT_EQ(object->get_accValue(ChildSelf(), text.Put()), CO_E_OBJNOTCONNECTED);
        EXPECT_EQ(object->get_accRole(ChildSelf(), value.Put()), CO_E_OBJNOTCONNECTED);
        EXPECT_EQ(object->get_accState(ChildSelf(), value.Put()), CO_E_OBJNOTCONNECTED);
        EXPECT_EQ(object->get_accParent(other.Put()), CO_E_OBJNOTCONNECTED);
        EXPECT_EQ(object->get_accChild(Child(1), other.Put()), CO_E_OBJNOTCONNECTED);
        EXPECT_EQ(object->get_accChildCount(&number), CO_E_OBJNOTCONNECTED);
        EXPECT_EQ(number, 0);
        EXPECT_EQ(object->get_accFocus(value.Put()), CO_E_OBJNOTCONNECTED);
        EXPECT_EQ(object->get_accSelection(value.Put()), CO_E_OBJNOTCONNECTED);
        EXPECT_EQ(object->accSelect(SELFLAG_TAKEFOCUS, ChildSelf()), CO_E_OBJNOTCONNECTED);
        EXPECT_EQ(object->accHitTest(60, 70, value.Put()), CO_E_OBJNOTCONNECTED);
        EXPECT_EQ(object->accNavigate(NAVDIR_FIRSTCHILD, ChildSelf(), value.Put()), CO_E_OBJNOTCONNECTED);
        EXPECT_EQ(object->accLocation(&number, &more[0], &more[1], &more[2], ChildSelf()),
                  CO_E_OBJNOTCONNECTED);
        EXPECT_EQ(object->accDoDefaultAction(ChildSelf()), CO_E_OBJNOTCONNECTED);
        EXPECT_EQ(object.As<IEnumVARIANT>()->Next(1, value.Put(), nullptr), CO_E_OBJNOTCONNECTED);
        EXPECT_EQ(object.As<IOleWindow>()->GetWindow(&hwnd), CO_E_OBJNOTCONNECTED);
        EXPECT_EQ(hwnd, nullptr);
    }
}

TEST_F(ObjectTest, ObjectsLetGoAreGone) {
    const long with_root = ServerCount::Value();
    for (int round = 0; round < 3; ++round) {
        const ComPtr<IAccessible> shelf = ChildOf(root_, 1);
        const ComPtr<IAccessible> book = ChildOf(shelf, 2);
        EXPECT_EQ(ServerCount::Value(), with_root + 2);
    }
    EXPECT_EQ(ServerCount::Value(), with_root);
}

class DesignerLifetimeTest : public AccessTest {};

TEST_F(DesignerLifetimeTest, ObjectsOfAClosedDesignerAnswerAndNothingIsKept) {
    const long before = ServerCount::Value();
    AccessibleItem tree;
    script_.Do([&] { tree = WalkAccessible(window_.Handle()); });
    CloseAfterwards();
    Run(kCustomersAndOrders);
    EXPECT_GT(ServerCount::Value(), before);
    window_.Destroy();
    EXPECT_EQ(RecordedNames::Count(), 0u);
    ForEachAccessible(tree, [](const AccessibleItem& item) {
        Bstr name;
        if (!item.own) return;
        EXPECT_EQ(item.object->get_accName(ChildSelf(), name.Put()), CO_E_OBJNOTCONNECTED);
    });
    tree = {};
    EXPECT_EQ(ServerCount::Value(), before);
}

}  // namespace tessel::testing
