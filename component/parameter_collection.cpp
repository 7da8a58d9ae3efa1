#include "component/parameter_collection.h"

#include <algorithm>
#include <cstdint>

#include "component/errors.h"

namespace tessel::component {

using win32::CallResult;
using win32::Dispatch;
using win32::ElementVisitor;
using win32::UniqueVariant;

namespace {

CallResult Done() {
    return CallResult(UniqueVariant());
}

CallResult Mismatch() {
    return CallResult(DISP_E_TYPEMISMATCH, {}, ConversionMessage(DISP_E_TYPEMISMATCH));
}

/// The elements of an automation array of one dimension. Each is copied before it is visited: the visitor may
/// let the host run, and nothing may stay locked meanwhile.
CallResult WalkArray(const UniqueVariant& value, const ElementVisitor& visitor) {
    SAFEARRAY* const array = value.Get().parray;
    LONG first = 0, last = -1;
    VARTYPE type = VT_EMPTY;
    if (!array || SafeArrayGetDim(array) != 1 || FAILED(SafeArrayGetLBound(array, 1, &first)) ||
        FAILED(SafeArrayGetUBound(array, 1, &last)) || FAILED(SafeArrayGetVartype(array, &type)))
        return Mismatch();
    if (type != VT_VARIANT && type != VT_DISPATCH) return first > last ? Done() : Mismatch();
    const std::int64_t end = std::min<std::int64_t>(last, std::int64_t{first} + win32::kMostElements - 1);
    for (std::int64_t place = first; place <= end; ++place) {
        LONG i = static_cast<LONG>(place);
        UniqueVariant element;
        void* target = element.Address();
        if (type == VT_DISPATCH) {
            element.Address()->vt = VT_DISPATCH;
            target = &element.Address()->pdispVal;
        }
        if (const HRESULT got = SafeArrayGetElement(array, &i, target); FAILED(got))
            return CallResult(got, {}, win32::SystemMessage(got));
        if (!visitor(element)) break;
    }
    return Done();
}

/// Whether a member exists but is to be called with arguments.
bool WantsArguments(const CallResult& result) {
    return result.Code() == DISP_E_BADPARAMCOUNT || result.Code() == DISP_E_PARAMNOTOPTIONAL;
}

/// The items of a dictionary, which come as an array, or as a collection from dictionaries of other makes.
CallResult WalkDictionary(CallResult items, const ElementVisitor& visitor) {
    if (!items) return items;
    if (items.Value().Type() & VT_ARRAY) return WalkArray(items.Value(), visitor);
    const Dispatch collection = items.Object();
    return collection ? win32::WalkCollection(collection, visitor) : Mismatch();
}

CallResult WalkScriptArray(const Dispatch& array, LONG length, const ElementVisitor& visitor) {
    for (LONG i = 0; i < std::min(length, win32::kMostElements); ++i) {
        CallResult element = array.Property(std::to_wstring(i).c_str());
        if (!element) return element;
        if (!visitor(element.Value())) break;
    }
    return Done();
}

CallResult Walk(const Dispatch& collection, const ElementVisitor& visitor) {
    if (collection.Has(L"Keys") && collection.Has(L"Items")) {
        CallResult items = collection.Get(L"Items");
        if (!WantsArguments(items)) return WalkDictionary(std::move(items), visitor);
    }
    if (!collection.Has(L"Count") && !collection.Has(L"Item")) {
        if (const auto length = collection.Property(L"length").Number())
            return WalkScriptArray(collection, *length, visitor);
    }
    return win32::WalkCollection(collection, [&](const UniqueVariant& element) {
        if (element.Type() != VT_BSTR) return visitor(element);
        // A key of that collection, so that asking for it does not add it.
        const CallResult item = collection.Get(L"Item", win32::TextOf(element.Get().bstrVal));
        return visitor(item ? item.Value() : element);
    });
}

}  // namespace

CallResult WalkParameters(const Dispatch& collection, const ElementVisitor& visitor) noexcept {
    try {
        return Walk(collection, visitor);
    } catch (...) {
        return CallResult(E_OUTOFMEMORY, {}, {});
    }
}

CallResult ParameterName(const UniqueVariant& element) noexcept {
    try {
        const Dispatch parameter(element.Object());
        if (!parameter) return Mismatch();
        CallResult name = parameter.Get(L"Name");
        return name && !name.Text() ? Mismatch() : std::move(name);
    } catch (...) {
        return CallResult(E_OUTOFMEMORY, {}, {});
    }
}

}  // namespace tessel::component
