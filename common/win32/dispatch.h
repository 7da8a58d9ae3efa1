// Late-bound calls by name over IDispatch, for everything that a host hands us: connections, recordsets,
// parameter collections. Nothing here throws, and no failure is lost: each call answers with a CallResult
// that holds either the value or the HRESULT with the text that the object gave for it.
//
//   const Dispatch connection(host_object);
//   const CallResult state = connection.Get(L"State");
//   if (!state || state.Number().value_or(0) == 0) return Closed();
//   const CallResult rows = connection.Call(L"OpenSchema", 20);
//
// An object that is absent answers every call with E_POINTER, so chains need one test at their end.
#pragma once

#include <windows.h>
#include <oaidl.h>

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "common/win32/com.h"

namespace tessel::win32 {

class Dispatch;

/// What a late-bound call gave.
class [[nodiscard]] CallResult {
public:
    explicit CallResult(UniqueVariant value) noexcept : value_(std::move(value)) {}
    CallResult(HRESULT code, std::wstring source, std::wstring message) noexcept
        : code_(code), source_(std::move(source)), message_(std::move(message)) {}

    explicit operator bool() const { return SUCCEEDED(code_); }
    /// The failure; for an exception that the object raised, its own code.
    HRESULT Code() const { return code_; }
    /// Who raised the failure and what it said; a system text when the object gave none.
    const std::wstring& Source() const { return source_; }
    const std::wstring& Message() const { return message_; }

    const UniqueVariant& Value() const { return value_; }
    /// The value as text, with the user's locale; nothing for a failed call, Null or what has no text.
    std::optional<std::wstring> Text() const noexcept;
    std::optional<LONG> Number() const noexcept;
    std::optional<bool> Boolean() const noexcept;
    /// The object in the value, or an empty wrapper.
    Dispatch Object() const noexcept;

private:
    HRESULT code_ = S_OK;
    UniqueVariant value_;
    std::wstring source_;
    std::wstring message_;
};

class Dispatch {
public:
    Dispatch() = default;
    explicit Dispatch(IDispatch* object) : object_(object) {}
    explicit Dispatch(ComPtr<IDispatch> object) : object_(std::move(object)) {}

    explicit operator bool() const { return static_cast<bool>(object_); }
    IDispatch* Get() const { return object_.Get(); }

    /// Whether the object has a member of that name.
    bool Has(const wchar_t* name) const noexcept { return IdOf(name).has_value(); }
    /// The number of a member, for InvokeId; nothing when the object has none of that name.
    std::optional<DISPID> IdOf(const wchar_t* name) const noexcept;
    /// Reads a property, or calls a method for its value. Arguments are whatever UniqueVariant is made from.
    template <class... Arguments>
    CallResult Get(const wchar_t* name, Arguments&&... arguments) const noexcept {
        return Invoke(name, DISPATCH_PROPERTYGET | DISPATCH_METHOD, std::forward<Arguments>(arguments)...);
    }
    /// Reads a property that is no method. Arrays of script engines answer to nothing else.
    CallResult Property(const wchar_t* name) const noexcept { return Invoke(name, DISPATCH_PROPERTYGET); }
    /// Calls a method.
    template <class... Arguments>
    CallResult Call(const wchar_t* name, Arguments&&... arguments) const noexcept {
        return Invoke(name, DISPATCH_METHOD, std::forward<Arguments>(arguments)...);
    }
    /// Sets a property; the last argument is the value, those before it are indexes.
    template <class... Arguments>
    CallResult Put(const wchar_t* name, Arguments&&... arguments) const noexcept {
        return Invoke(name, DISPATCH_PROPERTYPUT, std::forward<Arguments>(arguments)...);
    }
    /// Sets a property to an object itself rather than to its value.
    template <class... Arguments>
    CallResult PutRef(const wchar_t* name, Arguments&&... arguments) const noexcept {
        return Invoke(name, DISPATCH_PROPERTYPUTREF, std::forward<Arguments>(arguments)...);
    }
    /// The object's default property.
    CallResult DefaultValue() const noexcept {
        return InvokeId(DISPID_VALUE, DISPATCH_PROPERTYGET | DISPATCH_METHOD, {});
    }

    /// Invokes a member by its number. `reversed` holds the arguments, last one first.
    CallResult InvokeId(DISPID id, WORD flags, std::vector<VARIANTARG> reversed) const noexcept;

private:
    template <class... Arguments>
    CallResult Invoke(const wchar_t* name, WORD flags, Arguments&&... arguments) const noexcept {
        try {
            UniqueVariant owned[sizeof...(arguments) + 1] = {
                UniqueVariant(std::forward<Arguments>(arguments))...};
            return InvokeName(name, flags, owned, sizeof...(arguments));
        } catch (...) {
            return CallResult(E_OUTOFMEMORY, {}, {});
        }
    }
    CallResult InvokeName(const wchar_t* name, WORD flags, const UniqueVariant* arguments,
                          std::size_t count) const noexcept;

    ComPtr<IDispatch> object_;
};

/// The value without references, and instead of an object the value of its default property.
HRESULT PlainValue(const VARIANT& value, UniqueVariant* plain) noexcept;
/// The value converted, after the default properties of objects unless an object is wanted. The system would
/// follow those as well, but without end where an object is its own default.
HRESULT ChangePlain(const UniqueVariant& value, VARTYPE type, UniqueVariant* target) noexcept;

/// More elements than any collection of a host or a provider has; one that never ends is left here.
inline constexpr LONG kMostElements = 100'000;

/// Visits one element of a collection; false stops the walk.
using ElementVisitor = std::function<bool(const UniqueVariant& element)>;

/// Walks a collection in its own order: through its enumerator, or else through Count and Item, whose numbers
/// start at 1, as in the host languages' own collections, or at 0. An Item that has another name is reached
/// as the default member. The first failure ends the walk and is its result.
CallResult WalkCollection(const Dispatch& collection, const ElementVisitor& visitor) noexcept;

}  // namespace tessel::win32
