// Automation objects between the component and the fakes that misbehave at one chosen call. Every object that
// a wrapped one answers with is wrapped too, so that the calls of a whole session are counted in one row, and
// the Nth of them fails in one of the ways a provider can.
#pragma once

#include <memory>
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

/// Which call misbehaves, and how; shared by all objects of a session.
struct FaultPlan {
    Fault fault = Fault::Fails;
    long at = -1;               ///< counted from 0; negative for none
    bool from_then_on = false;  ///< every later call too
    long calls = 0;
    std::wstring last_name{};  ///< the member that was looked up last
    std::wstring struck{};     ///< the first member that misbehaved

    bool Strikes() {
        const long call = calls++;
        const bool strikes = at >= 0 && (call == at || (from_then_on && call > at));
        if (strikes && struck.empty()) struck = last_name;
        return strikes;
    }
};
using SharedPlan = std::shared_ptr<FaultPlan>;

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
        return inner_->GetIDsOfNames(iid, names, count, locale, ids);
    }
    STDMETHODIMP Invoke(DISPID id, REFIID iid, LCID locale, WORD flags, DISPPARAMS* parameters,
                        VARIANT* result, EXCEPINFO* exception, UINT* bad_argument) override {
        const bool strikes = plan_->Strikes();
        if (strikes && plan_->fault == Fault::Fails) return E_FAIL;
        if (strikes && plan_->fault == Fault::Unknown) return DISP_E_MEMBERNOTFOUND;
        if (strikes && plan_->fault == Fault::Raises) return RaiseInto(exception);
        win32::UniqueVariant answer;
        const HRESULT done =
            inner_->Invoke(id, iid, locale, flags, parameters, answer.Put(), exception, bad_argument);
        if (FAILED(done)) return done;
        if (strikes)
            answer = Instead(answer);
        else if (answer.Type() == VT_DISPATCH && answer.Object())
            answer = Wrapped(answer.Object());
        if (result) *result = answer.Detach();
        return done;
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
    win32::UniqueVariant Wrapped(win32::ComPtr<IDispatch> object) const {
        const auto wrapped = win32::MakeObject<FaultyDispatch>(std::move(object), plan_);
        return win32::UniqueVariant(static_cast<IDispatch*>(wrapped.Get()));
    }
    win32::UniqueVariant Instead(const win32::UniqueVariant& answer) const {
        const bool number = answer.Type() == VT_I4;
        if (plan_->fault == Fault::Huge && number) return win32::UniqueVariant(LONG_MAX);
        if (plan_->fault == Fault::Negative && number) return win32::UniqueVariant(LONG_MIN);
        if (plan_->fault != Fault::NullObject && plan_->fault != Fault::WrongType) return {};
        if (plan_->fault == Fault::NullObject) return win32::UniqueVariant(static_cast<IDispatch*>(nullptr));
        if (answer.Type() == VT_BSTR) return ObjectValue(MakeFake());
        return win32::UniqueVariant(L"ni n\u00famero ni objeto");
    }

    win32::ComPtr<IDispatch> inner_;
    SharedPlan plan_;
};

inline win32::ComPtr<IDispatch> MakeFaulty(IDispatch* inner, const SharedPlan& plan) {
    const auto faulty = win32::MakeObject<FaultyDispatch>(win32::ComPtr<IDispatch>(inner), plan);
    return win32::ComPtr<IDispatch>(faulty.Get());
}

}  // namespace tessel::tests
