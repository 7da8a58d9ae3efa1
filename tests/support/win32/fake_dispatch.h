// A scriptable automation object for tests: members are lambdas, called by name. A member that nobody
// scripted is unknown, as with a real object.
//
//   auto connection = MakeFake();
//   connection->On(L"State", [](const FakeCall&) { return Value(1); });
//   connection->On(L"OpenSchema", [&](const FakeCall& call) { return call.Number(0) == 20 ? … :
//   Raise(E_NOTIMPL); });
#pragma once

#include <windows.h>
#include <oaidl.h>

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "common/text.h"
#include "common/win32/com_object.h"

namespace tessel::tests {

/// One call of a member, with its arguments in the order in which they were written.
struct FakeCall {
    WORD flags = 0;
    std::vector<const VARIANTARG*> arguments;

    LONG Number(std::size_t index) const {
        win32::UniqueVariant number;
        if (index >= arguments.size()) return -1;
        const win32::UniqueVariant copy = win32::UniqueVariant::CopyOf(*arguments[index]);
        return SUCCEEDED(copy.ChangedTo(VT_I4, &number)) ? number.Get().lVal : -1;
    }
    std::wstring Text(std::size_t index) const {
        win32::UniqueVariant text;
        if (index >= arguments.size()) return {};
        const win32::UniqueVariant copy = win32::UniqueVariant::CopyOf(*arguments[index]);
        return SUCCEEDED(copy.ChangedTo(VT_BSTR, &text)) ? std::wstring(win32::TextOf(text.Get().bstrVal))
                                                         : std::wstring();
    }
};

/// What a member answers.
struct FakeAnswer {
    HRESULT result = S_OK;
    win32::UniqueVariant value;
    std::wstring exception;  ///< text of an exception raised with `result` as its code
};

inline FakeAnswer Value(win32::UniqueVariant value) {
    return {S_OK, std::move(value), {}};
}
template <class T>
FakeAnswer Value(T value) {
    return {S_OK, win32::UniqueVariant(value), {}};
}
inline FakeAnswer Fail(HRESULT result) {
    return {result, {}, {}};
}
inline FakeAnswer Raise(HRESULT code, std::wstring text) {
    return {code, {}, std::move(text)};
}

class FakeDispatch final : public win32::ComObject<IDispatch> {
public:
    using Member = std::function<FakeAnswer(const FakeCall& call)>;

    /// Scripts a member. The name "_Default" is the default property, "_NewEnum" the enumerator.
    void On(std::wstring name, Member member) { members_.emplace_back(std::move(name), std::move(member)); }
    /// A member that always answers with the same value.
    template <class T>
    void Set(std::wstring name, T value) {
        On(std::move(name), [value](const FakeCall&) { return Value(value); });
    }
    /// The exception texts are filled in only when the caller asks for them.
    void DeferExceptions() { deferred_ = true; }

    STDMETHODIMP GetTypeInfoCount(UINT* count) override {
        *count = 0;
        return S_OK;
    }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID, DISPID* ids) override {
        for (std::size_t i = 0; i < members_.size(); ++i) {
            if (!SameIgnoringCase(members_[i].first, names[0])) continue;
            ids[0] = static_cast<DISPID>(i + 1);
            return S_OK;
        }
        ids[0] = DISPID_UNKNOWN;
        return DISP_E_UNKNOWNNAME;
    }
    STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                        EXCEPINFO* exception, UINT*) override {
        const Member* member = Find(id);
        if (!member) return DISP_E_MEMBERNOTFOUND;
        FakeCall call;
        call.flags = flags;
        for (UINT i = parameters->cArgs; i > 0; --i) call.arguments.push_back(&parameters->rgvarg[i - 1]);
        FakeAnswer answer = (*member)(call);
        if (FAILED(answer.result) && !answer.exception.empty()) {
            if (!exception) return answer.result;
            exception->scode = answer.result;
            last_exception_ = answer.exception;
            exception->pvReserved = this;
            if (deferred_) {
                exception->pfnDeferredFillIn = FillIn;
            } else {
                FillIn(exception);
            }
            return DISP_E_EXCEPTION;
        }
        if (result) *result = answer.value.Detach();
        return answer.result;
    }

private:
    const Member* Find(DISPID id) const {
        for (const auto& [name, member] : members_) {
            if (id == DISPID_VALUE && name == L"_Default") return &member;
            if (id == DISPID_NEWENUM && name == L"_NewEnum") return &member;
        }
        if (id < 1 || static_cast<std::size_t>(id) > members_.size()) return nullptr;
        return &members_[static_cast<std::size_t>(id) - 1].second;
    }
    static HRESULT WINAPI FillIn(EXCEPINFO* info) {
        const auto* self = static_cast<FakeDispatch*>(info->pvReserved);
        info->bstrSource = win32::Bstr(L"Fake").Detach();
        info->bstrDescription = win32::Bstr(self->last_exception_).Detach();
        return S_OK;
    }

    std::vector<std::pair<std::wstring, Member>> members_;
    std::wstring last_exception_;
    bool deferred_ = false;
};

using FakePtr = win32::ComPtr<FakeDispatch>;
inline FakePtr MakeFake() {
    return win32::MakeObject<FakeDispatch>();
}

/// The fake as an argument or an answer.
inline win32::UniqueVariant ObjectValue(const FakePtr& fake) {
    return win32::UniqueVariant(static_cast<IDispatch*>(fake.Get()));
}

/// A collection with Count and Item numbered from `first`, without an enumerator.
inline FakePtr MakeCollection(std::vector<FakePtr> items, LONG first = 1) {
    FakePtr collection = MakeFake();
    collection->Set(L"Count", static_cast<LONG>(items.size()));
    collection->On(L"Item", [items, first](const FakeCall& call) {
        const LONG index = call.Number(0) - first;
        if (index < 0 || static_cast<std::size_t>(index) >= items.size())
            return Raise(DISP_E_BADINDEX, L"No hay tal elemento");
        return Value(ObjectValue(items[static_cast<std::size_t>(index)]));
    });
    return collection;
}

/// An enumerator over Variants that fails after `fails_after` elements when that is not negative.
class FakeEnumerator final : public win32::ComObject<IEnumVARIANT> {
public:
    explicit FakeEnumerator(std::vector<FakePtr> items, LONG fails_after = -1)
        : items_(std::move(items)), fails_after_(fails_after) {}

    STDMETHODIMP Next(ULONG count, VARIANT* elements, ULONG* fetched) override {
        if (fetched) *fetched = 0;
        if (fails_after_ >= 0 && next_ >= static_cast<std::size_t>(fails_after_))
            return win32::RaiseError(E_FAIL, __uuidof(IEnumVARIANT), L"Fake", L"Enumerador roto");
        if (count == 0 || next_ >= items_.size()) return S_FALSE;
        elements[0] = ObjectValue(items_[next_++]).Detach();
        if (fetched) *fetched = 1;
        return S_OK;
    }
    STDMETHODIMP Skip(ULONG) override { return E_NOTIMPL; }
    STDMETHODIMP Reset() override { return E_NOTIMPL; }
    STDMETHODIMP Clone(IEnumVARIANT**) override { return E_NOTIMPL; }

private:
    std::vector<FakePtr> items_;
    LONG fails_after_;
    std::size_t next_ = 0;
};

/// A collection that only has an enumerator.
inline FakePtr MakeEnumerable(std::vector<FakePtr> items, LONG fails_after = -1) {
    FakePtr collection = MakeFake();
    collection->On(L"_NewEnum", [items, fails_after](const FakeCall&) {
        win32::UniqueVariant value;
        value.Address()->vt = VT_UNKNOWN;
        value.Address()->punkVal = win32::MakeObject<FakeEnumerator>(items, fails_after).Detach();
        return Value(std::move(value));
    });
    return collection;
}

}  // namespace tessel::tests
