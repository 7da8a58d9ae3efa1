#include "hostkit/ado/dispatch_object.h"

#include "common/text.h"

namespace tessel::ado {

namespace {

const VARIANT& Followed(const VARIANT& value) {
    return value.vt == (VT_BYREF | VT_VARIANT) && value.pvarVal ? *value.pvarVal : value;
}

class VariantEnumerator final : public win32::ComObject<IEnumVARIANT> {
public:
    explicit VariantEnumerator(std::shared_ptr<const std::vector<UniqueVariant>> values, std::size_t at = 0)
        : values_(std::move(values)), at_(at) {}

    STDMETHODIMP Next(ULONG wanted, VARIANT* target, ULONG* fetched) override {
        ULONG done = 0;
        for (; done < wanted && at_ < values_->size(); ++done, ++at_) {
            VariantInit(&target[done]);
            if (FAILED(VariantCopy(&target[done], const_cast<VARIANT*>(&(*values_)[at_].Get())))) break;
        }
        if (fetched) *fetched = done;
        return done == wanted ? S_OK : S_FALSE;
    }
    STDMETHODIMP Skip(ULONG count) override {
        const std::size_t left = values_->size() - at_;
        at_ += count < left ? count : left;
        return count <= left ? S_OK : S_FALSE;
    }
    STDMETHODIMP Reset() override {
        at_ = 0;
        return S_OK;
    }
    STDMETHODIMP Clone(IEnumVARIANT** target) override {
        if (!target) return E_POINTER;
        *target = win32::MakeObject<VariantEnumerator>(values_, at_).Detach();
        return *target ? S_OK : E_OUTOFMEMORY;
    }

private:
    std::shared_ptr<const std::vector<UniqueVariant>> values_;
    std::size_t at_ = 0;
};

HRESULT Report(const Status& status, const wchar_t* name, EXCEPINFO* exception) {
    const HRESULT code = status.Code();
    // Failures of the call itself are answered as such; those of the object as an exception with text.
    if (HRESULT_FACILITY(code) == FACILITY_DISPATCH && status.Message().empty()) return code;
    if (!exception) return code;
    *exception = EXCEPINFO{};
    exception->scode = code;
    exception->bstrSource = win32::Bstr(status.Source().empty() ? name : status.Source().c_str()).Detach();
    const std::wstring text = status.Message().empty() ? win32::SystemMessage(code) : status.Message();
    exception->bstrDescription = win32::Bstr(text).Detach();
    return DISP_E_EXCEPTION;
}

}  // namespace

Invocation::Invocation(WORD flags, const DISPPARAMS& parameters) {
    UINT first = 0;
    if ((flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0 && parameters.cArgs > 0) {
        put_value_ = &Followed(parameters.rgvarg[0]);
        first = 1;
    }
    for (UINT i = parameters.cArgs; i > first; --i) arguments_.push_back(&parameters.rgvarg[i - 1]);
}

Status Invocation::PutText(std::wstring* target) const {
    return ToText(PutValue(), target);
}

Status Invocation::PutNumber(long* target) const {
    return ToNumber(PutValue(), target);
}

bool Invocation::Has(std::size_t index) const {
    if (index >= arguments_.size()) return false;
    const VARIANT& value = At(index);
    return !(value.vt == VT_ERROR && value.scode == DISP_E_PARAMNOTFOUND) && value.vt != VT_EMPTY;
}

const VARIANT& Invocation::At(std::size_t index) const {
    static const VARIANT kEmpty{};
    return index < arguments_.size() ? Followed(*arguments_[index]) : kEmpty;
}

Status Invocation::Text(std::size_t index, std::wstring* target) const {
    return Has(index) ? ToText(At(index), target) : Status();
}

Status Invocation::Number(std::size_t index, long* target) const {
    return Has(index) ? ToNumber(At(index), target) : Status();
}

void Invocation::WriteBack(std::size_t index, long value) const {
    if (index >= arguments_.size()) return;
    VARIANTARG& argument = *arguments_[index];
    if (argument.vt == (VT_BYREF | VT_VARIANT) && argument.pvarVal) {
        VariantClear(argument.pvarVal);
        argument.pvarVal->vt = VT_I4;
        argument.pvarVal->lVal = value;
    } else if (argument.vt == (VT_BYREF | VT_I4) || argument.vt == (VT_BYREF | VT_INT)) {
        *argument.plVal = value;
    } else if (argument.vt == (VT_BYREF | VT_I2)) {
        *argument.piVal = static_cast<SHORT>(value);
    }
}

STDMETHODIMP DispatchObject::GetTypeInfoCount(UINT* count) {
    if (!count) return E_POINTER;
    *count = 0;
    return S_OK;
}

STDMETHODIMP DispatchObject::GetTypeInfo(UINT, LCID, ITypeInfo** info) {
    if (!info) return E_POINTER;
    *info = nullptr;
    return DISP_E_BADINDEX;
}

STDMETHODIMP DispatchObject::GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) {
    if (!names || !ids || count == 0) return E_INVALIDARG;
    for (UINT i = 0; i < count; ++i) ids[i] = DISPID_UNKNOWN;
    // Not the system's comparison, which goes through the user's language and takes a microsecond a member.
    for (const Member& member : Members())
        if (SameIgnoringCase(member.name, names[0])) ids[0] = member.id;
    // Only members have names here; arguments go by their place.
    return count == 1 && ids[0] != DISPID_UNKNOWN ? S_OK : DISP_E_UNKNOWNNAME;
}

STDMETHODIMP DispatchObject::Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* parameters,
                                    VARIANT* result, EXCEPINFO* exception, UINT*) {
    if (result) VariantInit(result);
    if (!parameters) return E_POINTER;
    const UINT named_allowed = (flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0 ? 1 : 0;
    if (parameters->cNamedArgs > named_allowed) return DISP_E_NONAMEDARGS;
    return win32::Guarded([&] {
        // The call may release the last outside reference to this object.
        const ComPtr<DispatchObject> alive(this);
        UniqueVariant value;
        const Status status = InvokeMember(id, Invocation(flags, *parameters), &value);
        if (!status) return Report(status, Name(), exception);
        if (result) *result = value.Detach();
        return S_OK;
    });
}

Status ToText(const VARIANT& value, std::wstring* target) {
    if (value.vt == VT_BSTR) {
        *target = win32::TextOf(value.bstrVal);
        return {};
    }
    UniqueVariant text;
    if (FAILED(VariantChangeType(text.Address(), const_cast<VARIANT*>(&value), 0, VT_BSTR)))
        return AdoError::BadArgument;
    *target = win32::TextOf(text.Get().bstrVal);
    return {};
}

Status ToNumber(const VARIANT& value, long* target) {
    UniqueVariant number;
    if (FAILED(VariantChangeType(number.Address(), const_cast<VARIANT*>(&value), 0, VT_I4)))
        return AdoError::BadArgument;
    *target = number.Get().lVal;
    return {};
}

IDispatch* ObjectIn(const VARIANT& value) {
    const VARIANT& followed = Followed(value);
    if (followed.vt == VT_DISPATCH) return followed.pdispVal;
    if (followed.vt == (VT_BYREF | VT_DISPATCH) && followed.ppdispVal) return *followed.ppdispVal;
    return nullptr;
}

UniqueVariant EnumeratorOver(std::vector<UniqueVariant> values) {
    const auto enumerator = win32::MakeObject<VariantEnumerator>(
        std::make_shared<const std::vector<UniqueVariant>>(std::move(values)));
    UniqueVariant value;
    value.Address()->punkVal = enumerator ? ComPtr<VariantEnumerator>(enumerator).Detach() : nullptr;
    value.Address()->vt = VT_UNKNOWN;
    return value;
}

}  // namespace tessel::ado
