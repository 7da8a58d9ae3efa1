#include "common/win32/dispatch.h"

#include <dispex.h>

#include <algorithm>

#include "common/win32/foreign_call.h"

namespace tessel::win32 {

namespace {

const IID kNullIid{};

/// How often a default property may lead to another object before we call it no value.
constexpr int kDefaultPropertyLimit = 8;

bool IsObject(const UniqueVariant& value) {
    return value.Type() == VT_DISPATCH || value.Type() == VT_UNKNOWN;
}

/// Frees the texts of an EXCEPINFO.
struct ExceptionInfo : EXCEPINFO {
    ExceptionInfo() : EXCEPINFO{} {}
    ~ExceptionInfo() {
        SysFreeString(bstrSource);
        SysFreeString(bstrDescription);
        SysFreeString(bstrHelpFile);
    }
    ExceptionInfo(const ExceptionInfo&) = delete;
    ExceptionInfo& operator=(const ExceptionInfo&) = delete;
};

/// The HRESULT of an exception: its scode, or the HRESULT that host languages make of a 16-bit error number.
HRESULT CodeOf(const EXCEPINFO& info) {
    if (FAILED(info.scode)) return info.scode;
    if (info.wCode) return MAKE_HRESULT(SEVERITY_ERROR, FACILITY_CONTROL, info.wCode);
    return DISP_E_EXCEPTION;
}

CallResult Failure(HRESULT code, std::wstring_view source, std::wstring_view message) {
    std::wstring text(message);
    if (text.empty()) text = SystemMessage(code);
    return CallResult(code, std::wstring(source), std::move(text));
}

/// What was thrown, by us for want of memory, or by an object that should not throw at all.
CallResult Failure() noexcept {
    HRESULT code = E_OUTOFMEMORY;
    try {
        throw;
    } catch (const std::bad_alloc&) {
    } catch (...) {
        code = E_UNEXPECTED;
    }
    try {
        return Failure(code, {}, {});
    } catch (...) {
        return CallResult(code, {}, {});
    }
}

CallResult FailureOf(HRESULT code, ExceptionInfo& info) {
    if (code == DISP_E_EXCEPTION) {
        // An object may postpone the texts until somebody asks for them.
        if (info.pfnDeferredFillIn) info.pfnDeferredFillIn(&info);
        return Failure(CodeOf(info), TextOf(info.bstrSource), TextOf(info.bstrDescription));
    }
    ComPtr<IErrorInfo> error;
    if (GetErrorInfo(0, error.Put()) != S_OK) return Failure(code, {}, {});
    Bstr source, description;
    error->GetSource(source.Put());
    error->GetDescription(description.Put());
    return Failure(code, source.View(), description.View());
}

/// S_FALSE at the end.
HRESULT NextElement(IEnumVARIANT* enumerator, UniqueVariant* element) {
    ULONG fetched = 0;
    SetErrorInfo(0, nullptr);
    const ForeignCall running;
    const HRESULT result = enumerator->Next(1, element->Put(), &fetched);
    return SUCCEEDED(result) && fetched == 0 ? S_FALSE : result;
}

/// Elements through IEnumVARIANT. False in `walked` when the collection has no enumerator.
CallResult WalkEnumerator(const Dispatch& collection, const ElementVisitor& visitor, bool* walked) {
    *walked = false;
    CallResult made = collection.InvokeId(DISPID_NEWENUM, DISPATCH_PROPERTYGET | DISPATCH_METHOD, {});
    if (!made) return made;
    ComPtr<IUnknown> unknown;
    const VARIANT& value = made.Value().Get();
    if (value.vt == VT_UNKNOWN || value.vt == VT_DISPATCH) unknown = ComPtr<IUnknown>(value.punkVal);
    const ComPtr<IEnumVARIANT> enumerator = unknown.As<IEnumVARIANT>();
    if (!enumerator) return Failure(E_NOINTERFACE, {}, {});
    *walked = true;
    for (LONG walked_elements = 0; walked_elements < kMostElements; ++walked_elements) {
        UniqueVariant element;
        const HRESULT result = NextElement(enumerator.Get(), &element);
        if (FAILED(result)) {
            ExceptionInfo none;
            return FailureOf(result, none);
        }
        if (result != S_OK) return CallResult(UniqueVariant());
        if (!visitor(element)) return CallResult(UniqueVariant());
    }
    return CallResult(UniqueVariant());
}

/// One element by its number.
CallResult ItemOf(const Dispatch& collection, LONG number) {
    CallResult item = collection.Get(L"Item", number);
    if (item.Code() != DISP_E_UNKNOWNNAME) return item;
    VARIANTARG argument{};
    argument.vt = VT_I4;
    argument.lVal = number;
    CallResult by_default =
        collection.InvokeId(DISPID_VALUE, DISPATCH_PROPERTYGET | DISPATCH_METHOD, {argument});
    return by_default ? std::move(by_default) : std::move(item);
}

/// Whether a collection answered a number with an element. Some answer Empty or Nothing to a number that they
/// do not have, instead of an error.
bool IsElement(const CallResult& item) {
    if (!item || item.Value().IsNothing()) return false;
    const VARIANT& value = item.Value().Get();
    return (value.vt != VT_DISPATCH && value.vt != VT_UNKNOWN) || value.punkVal != nullptr;
}

/// Elements through Count and Item. The last element answers to Count where numbers start at 1; only where it
/// does not is 0 tried, since asking some collections for an absent key adds it.
CallResult WalkItems(const Dispatch& collection, const ElementVisitor& visitor) {
    CallResult counted = collection.Get(L"Count");
    if (!counted) return counted;
    const LONG count = std::min(counted.Number().value_or(0), kMostElements);
    if (count <= 0) return CallResult(UniqueVariant());
    LONG first = 1;
    if (!IsElement(ItemOf(collection, count)) && IsElement(ItemOf(collection, 0))) first = 0;
    for (LONG i = 0; i < count; ++i) {
        CallResult element = ItemOf(collection, first + i);
        if (!element) return element;
        if (!visitor(element.Value())) break;
    }
    return CallResult(UniqueVariant());
}

/// The number of a member. Objects of script engines may answer by name only through IDispatchEx (Wine's do).
HRESULT FindMember(IDispatch* object, const wchar_t* name, DISPID* id) {
    LPOLESTR names = const_cast<LPOLESTR>(name);
    const ForeignCall running;
    const HRESULT found = object->GetIDsOfNames(kNullIid, &names, 1, LOCALE_USER_DEFAULT, id);
    if (found != E_NOTIMPL) return found;
    const ComPtr<IDispatchEx> extended = ComPtr<IDispatch>(object).As<IDispatchEx>();
    return extended ? extended->GetDispID(Bstr(name).Get(), fdexNameCaseInsensitive, id) : found;
}

}  // namespace

HRESULT PlainValue(const VARIANT& value, UniqueVariant* plain) noexcept {
    *plain = UniqueVariant::CopyOf(value);
    for (int depth = 0; IsObject(*plain); ++depth) {
        const Dispatch object(plain->Object());
        if (!object || depth == kDefaultPropertyLimit) return DISP_E_TYPEMISMATCH;
        const CallResult read = object.DefaultValue();
        if (!read) return read.Code();
        *plain = UniqueVariant::CopyOf(read.Value().Get());
    }
    return S_OK;
}

HRESULT ChangePlain(const UniqueVariant& value, VARTYPE type, UniqueVariant* target) noexcept {
    const bool wants_object = type == VT_DISPATCH || type == VT_UNKNOWN;
    if (wants_object || !IsObject(value)) return value.ChangedTo(type, target);
    UniqueVariant plain;
    const HRESULT read = PlainValue(value.Get(), &plain);
    return FAILED(read) ? read : plain.ChangedTo(type, target);
}

std::optional<std::wstring> CallResult::Text() const noexcept {
    UniqueVariant text;
    if (FAILED(code_)) return std::nullopt;
    try {
        if (value_.Type() == VT_BSTR) return std::wstring(TextOf(value_.Get().bstrVal));
        if (FAILED(ChangePlain(value_, VT_BSTR, &text))) return std::nullopt;
        return std::wstring(TextOf(text.Get().bstrVal));
    } catch (...) {
        return std::nullopt;
    }
}

std::optional<LONG> CallResult::Number() const noexcept {
    UniqueVariant number;
    if (FAILED(code_) || value_.IsNothing() || FAILED(ChangePlain(value_, VT_I4, &number)))
        return std::nullopt;
    return number.Get().lVal;
}

std::optional<bool> CallResult::Boolean() const noexcept {
    UniqueVariant truth;
    if (FAILED(code_) || value_.IsNothing() || FAILED(ChangePlain(value_, VT_BOOL, &truth)))
        return std::nullopt;
    return truth.Get().boolVal != VARIANT_FALSE;
}

Dispatch CallResult::Object() const noexcept {
    return Dispatch(value_.Object());
}

std::optional<DISPID> Dispatch::IdOf(const wchar_t* name) const noexcept {
    if (!object_) return std::nullopt;
    try {
        DISPID id = DISPID_UNKNOWN;
        return SUCCEEDED(FindMember(object_.Get(), name, &id)) ? std::optional(id) : std::nullopt;
    } catch (...) {
        return std::nullopt;
    }
}

CallResult Dispatch::InvokeName(const wchar_t* name, WORD flags, const UniqueVariant* arguments,
                                std::size_t count) const noexcept {
    if (!object_) return CallResult(E_POINTER, {}, {});
    try {
        DISPID id = DISPID_UNKNOWN;
        const HRESULT found = FindMember(object_.Get(), name, &id);
        if (FAILED(found)) return Failure(found, {}, {});
        std::vector<VARIANTARG> reversed;
        reversed.reserve(count);
        for (std::size_t i = count; i > 0; --i) reversed.push_back(arguments[i - 1].Get());
        CallResult result = InvokeId(id, flags, std::move(reversed));
        // Wine's JScript answers E_FAIL to "method or property" for a plain property; asked as a property it
        // answers.
        const bool either = flags == (DISPATCH_METHOD | DISPATCH_PROPERTYGET);
        if (either && count == 0 && result.Code() == E_FAIL) return InvokeId(id, DISPATCH_PROPERTYGET, {});
        return result;
    } catch (...) {
        return Failure();
    }
}

CallResult Dispatch::InvokeId(DISPID id, WORD flags, std::vector<VARIANTARG> reversed) const noexcept {
    if (!object_) return CallResult(E_POINTER, {}, {});
    try {
        const ComPtr<IDispatch> alive = object_;
        const bool sets = (flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0;
        DISPID put = DISPID_PROPERTYPUT;
        DISPPARAMS parameters{reversed.data(), sets ? &put : nullptr, static_cast<UINT>(reversed.size()),
                              sets ? 1u : 0u};
        UniqueVariant value;
        ExceptionInfo info;
        UINT bad_argument = 0;
        SetErrorInfo(0, nullptr);
        const ForeignCall running;
        const HRESULT result = alive->Invoke(id, kNullIid, LOCALE_USER_DEFAULT, flags, &parameters,
                                             sets ? nullptr : value.Put(), &info, &bad_argument);
        if (FAILED(result)) return FailureOf(result, info);
        // What a reference refers to may be gone after the next call.
        if (value.Type() & VT_BYREF) value = UniqueVariant::CopyOf(value.Get());
        return CallResult(std::move(value));
    } catch (...) {
        return Failure();
    }
}

CallResult WalkCollection(const Dispatch& collection, const ElementVisitor& visitor) noexcept {
    try {
        bool walked = false;
        CallResult by_enumerator = WalkEnumerator(collection, visitor, &walked);
        if (walked) return by_enumerator;
        CallResult by_number = WalkItems(collection, visitor);
        // What has neither an enumerator nor numbered items failed as a collection: the first reason is the
        // better.
        if (!by_number && by_number.Code() == DISP_E_UNKNOWNNAME) return by_enumerator;
        return by_number;
    } catch (...) {
        return Failure();
    }
}

}  // namespace tessel::win32
