// Automation objects between the component and the fakes that misbehave at one chosen call. Every object that
// a wrapped one answers with is wrapped too, so that the calls of a whole session are counted in one row, and
// the Nth of them fails in one of the ways a provider can.
#pragma once

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "tests/support/win32/fake_dispatch.h"

namespace tessel::tests {

enum class Fault {
    Fails,       ///< a plain error code
    Raises,      ///< an exception with a text
    Nothing,     ///< success without a value
    NullObject,  ///< success with an object that is none
    WrongType,   ///< a text where an object or a number was due, an object where a text was
    Unknown,     ///< the member does not exist
    Huge,        ///< the largest number where a number was due, else nothing
    Negative,    ///< the smallest one
};
inline constexpr Fault kFaults[] = {Fault::Fails,     Fault::Raises,  Fault::Nothing, Fault::NullObject,
                                    Fault::WrongType, Fault::Unknown, Fault::Huge,    Fault::Negative};

/// What an object does at one call besides the ways above: something of its own before it answers, or another
/// answer.
struct Trick {
    const char* name = "";
    std::function<void()> before{};
    /// Changes the answer, or fails.
    std::function<HRESULT(win32::UniqueVariant& answer, EXCEPINFO* exception)> after{};
};

/// Which call misbehaves, and how; shared by all objects of a session.
struct FaultPlan {
    Fault fault = Fault::Fails;
    long at = -1;               ///< counted from 0; negative for none
    bool from_then_on = false;  ///< every later call too
    long calls = 0;
    std::wstring last_name{};            ///< the member that was looked up last
    std::wstring struck{};               ///< the first member that misbehaved
    std::map<long, Trick> tricks{};      ///< by the number of the call
    std::optional<Trick> later_trick{};  ///< at every call from `tricks_from` on
    long tricks_from = 0;

    long lookups = 0;              ///< of members by their names
    long lookup_at = -1;           ///< the one that misbehaves; negative for none
    HRESULT lookup_result = S_OK;  ///< what it answers, with a number that no member has

    /// The trick of the call that is about to be counted.
    std::optional<Trick> TrickNow() const {
        if (later_trick && calls >= tricks_from) return later_trick;
        const auto found = tricks.find(calls);
        return found == tricks.end() ? std::nullopt : std::optional(found->second);
    }
    bool Strikes() {
        const long call = calls++;
        const bool strikes = at >= 0 && (call == at || (from_then_on && call > at));
        if (strikes && struck.empty()) struck = last_name;
        return strikes;
    }
};
using SharedPlan = std::shared_ptr<FaultPlan>;

/// An enumerator whose every step counts as a call, and whose elements are wrapped.
class FaultyEnumerator final : public win32::ComObject<IEnumVARIANT> {
public:
    FaultyEnumerator(win32::ComPtr<IEnumVARIANT> inner, SharedPlan plan)
        : inner_(std::move(inner)), plan_(std::move(plan)) {}

    STDMETHODIMP Next(ULONG count, VARIANT* elements, ULONG* fetched) override;
    STDMETHODIMP Skip(ULONG count) override { return inner_->Skip(count); }
    STDMETHODIMP Reset() override { return inner_->Reset(); }
    STDMETHODIMP Clone(IEnumVARIANT**) override { return E_NOTIMPL; }

private:
    win32::ComPtr<IEnumVARIANT> inner_;
    SharedPlan plan_;
};

class FaultyDispatch final : public win32::ComObject<IDispatch> {
public:
    FaultyDispatch(win32::ComPtr<IDispatch> inner, SharedPlan plan)
        : inner_(std::move(inner)), plan_(std::move(plan)) {}

    STDMETHODIMP GetTypeInfoCount(UINT* count) override { return inner_->GetTypeInfoCount(count); }
    STDMETHODIMP GetTypeInfo(UINT index, LCID locale, ITypeInfo** info) override {
        return inner_->GetTypeInfo(index, locale, info);
    }
    STDMETHODIMP GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID locale, DISPID* ids) override {
        plan_->last_name = names[0];
        if (plan_->lookups++ == plan_->lookup_at) {
            plan_->struck = names[0];
            *ids = DISPID_UNKNOWN;
            return plan_->lookup_result;
        }
        return inner_->GetIDsOfNames(iid, names, count, locale, ids);
    }
    STDMETHODIMP Invoke(DISPID id, REFIID iid, LCID locale, WORD flags, DISPPARAMS* parameters,
                        VARIANT* result, EXCEPINFO* exception, UINT* bad_argument) override {
        return Misbehave(plan_, exception, result, [&](VARIANT* answer) {
            return inner_->Invoke(id, iid, locale, flags, parameters, answer, exception, bad_argument);
        });
    }

    /// The answer of one call, as the plan wants it.
    template <class Call>
    static HRESULT Misbehave(SharedPlan plan, EXCEPINFO* exception, VARIANT* result, Call&& call) {
        // A trick may let go of the object and change the plan: copies, and the plan by value.
        const std::optional<Trick> trick = plan->TrickNow();
        if (trick && plan->struck.empty()) plan->struck = plan->last_name;
        const bool strikes = plan->Strikes();
        if (trick && trick->before) trick->before();
        if (strikes && plan->fault == Fault::Fails) return E_FAIL;
        if (strikes && plan->fault == Fault::Unknown) return DISP_E_MEMBERNOTFOUND;
        if (strikes && plan->fault == Fault::Raises) return RaiseInto(exception);
        win32::UniqueVariant answer;
        const HRESULT done = call(answer.Put());
        if (FAILED(done)) return done;
        answer = strikes ? Instead(answer, plan->fault) : Wrapped(std::move(answer), plan);
        const HRESULT tricked = trick && trick->after ? trick->after(answer, exception) : done;
        if (result) *result = answer.Detach();
        return tricked;
    }

private:
    static HRESULT RaiseInto(EXCEPINFO* exception) {
        if (!exception) return DISP_E_EXCEPTION;
        *exception = {};
        exception->scode = static_cast<HRESULT>(0x80040E14);
        exception->bstrSource = win32::Bstr(L"Proveedor").Detach();
        exception->bstrDescription = win32::Bstr(L"Fallo preparado").Detach();
        return DISP_E_EXCEPTION;
    }
    static win32::UniqueVariant Wrapped(win32::UniqueVariant answer, const SharedPlan& plan) {
        win32::UniqueVariant wrapped;
        if (answer.Type() == VT_DISPATCH && answer.Object()) {
            wrapped.Address()->vt = VT_DISPATCH;
            wrapped.Address()->pdispVal = win32::MakeObject<FaultyDispatch>(answer.Object(), plan).Detach();
            return wrapped;
        }
        if (answer.Type() != VT_UNKNOWN) return answer;
        auto inner = win32::ComPtr<IUnknown>(answer.Get().punkVal).As<IEnumVARIANT>();
        if (!inner) return answer;
        wrapped.Address()->vt = VT_UNKNOWN;
        wrapped.Address()->punkVal = win32::MakeObject<FaultyEnumerator>(std::move(inner), plan).Detach();
        return wrapped;
    }
    static win32::UniqueVariant Instead(const win32::UniqueVariant& answer, Fault fault) {
        const bool number = answer.Type() == VT_I4;
        if (fault == Fault::Huge && number) return win32::UniqueVariant(LONG_MAX);
        if (fault == Fault::Negative && number) return win32::UniqueVariant(LONG_MIN);
        if (fault != Fault::NullObject && fault != Fault::WrongType) return {};
        if (fault == Fault::NullObject) return win32::UniqueVariant(static_cast<IDispatch*>(nullptr));
        if (answer.Type() == VT_BSTR) return ObjectValue(MakeFake());
        return win32::UniqueVariant(L"ni n\u00famero ni objeto");
    }

    win32::ComPtr<IDispatch> inner_;
    SharedPlan plan_;
};

inline STDMETHODIMP FaultyEnumerator::Next(ULONG, VARIANT* elements, ULONG* fetched) {
    if (fetched) *fetched = 0;
    const HRESULT done = FaultyDispatch::Misbehave(
        plan_, nullptr, elements, [&](VARIANT* answer) { return inner_->Next(1, answer, nullptr); });
    if (done == S_OK && fetched) *fetched = 1;
    return done;
}

inline win32::ComPtr<IDispatch> MakeFaulty(IDispatch* inner, const SharedPlan& plan) {
    const auto faulty = win32::MakeObject<FaultyDispatch>(win32::ComPtr<IDispatch>(inner), plan);
    return win32::ComPtr<IDispatch>(faulty.Get());
}

}  // namespace tessel::tests
