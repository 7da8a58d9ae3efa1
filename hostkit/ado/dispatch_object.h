// The base of the automation objects: IDispatch over a hand-written table of names, without a type library.
//
// A class lists its members, names and numbers, and answers InvokeMember. Names ignore letter case. Arguments
// arrive in the order in which the caller wrote them, whatever their form: by value, by reference, by
// reference to a Variant, left out. A failure becomes an automation error with source and text.
#pragma once

#include <windows.h>

#include <oaidl.h>

#include <optional>
#include <span>
#include <string>
#include <vector>

#include "common/win32/com_object.h"
#include "hostkit/ado/status.h"

namespace tessel::ado {

using win32::ComPtr;
using win32::UniqueVariant;

struct Member {
    const wchar_t* name;
    DISPID id;
};

/// One call of a member.
class Invocation {
public:
    Invocation(WORD flags, const DISPPARAMS& parameters);

    /// True when a property is being set; PutValue() is then its new value.
    bool IsPut() const { return put_value_ != nullptr; }
    const VARIANT& PutValue() const { return *put_value_; }
    Status PutText(std::wstring* target) const;
    Status PutNumber(long* target) const;

    std::size_t Count() const { return arguments_.size(); }
    /// True when the argument was given: neither absent nor marked as left out.
    bool Has(std::size_t index) const;
    /// The argument with references to Variants followed; Empty when it was not given.
    const VARIANT& At(std::size_t index) const;
    /// The argument's text or number; the default when it was not given.
    Status Text(std::size_t index, std::wstring* target) const;
    Status Number(std::size_t index, long* target) const;
    /// Writes into the caller's variable when the argument came by reference.
    void WriteBack(std::size_t index, long value) const;

private:
    std::vector<VARIANTARG*> arguments_;
    const VARIANT* put_value_ = nullptr;
};

class DispatchObject : public win32::ComObject<IDispatch, ISupportErrorInfo> {
public:
    STDMETHODIMP GetTypeInfoCount(UINT* count) override;
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo** info) override;
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) override;
    STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                        EXCEPINFO* exception, UINT* bad_argument) override;
    STDMETHODIMP InterfaceSupportsErrorInfo(REFIID) override { return S_FALSE; }

protected:
    virtual std::span<const Member> Members() const = 0;
    /// The error source of this class, its ProgID.
    virtual const wchar_t* Name() const = 0;
    /// Performs a member. A number that the class does not know answers UnknownMember().
    virtual Status InvokeMember(DISPID id, const Invocation& call, UniqueVariant* result) = 0;

    static Status UnknownMember() { return Status(DISP_E_MEMBERNOTFOUND); }
};

/// The value converted with the user's locale.
Status ToText(const VARIANT& value, std::wstring* target);
Status ToNumber(const VARIANT& value, long* target);

/// The object in a value, or nullptr. References are followed; nothing is added to its count.
IDispatch* ObjectIn(const VARIANT& value);

/// A Variant holding the object.
template <class Object>
UniqueVariant VariantOf(const ComPtr<Object>& object) {
    return UniqueVariant(static_cast<IDispatch*>(object.Get()));
}

/// What For Each walks: an enumerator over values taken now.
UniqueVariant EnumeratorOver(std::vector<UniqueVariant> values);

/// The position that a name or a zero-based number selects among `count` items named by `name_of`.
template <class NameOf>
Status FindItem(const VARIANT& key, std::size_t count, NameOf name_of, std::size_t* index) {
    if (key.vt == VT_BSTR) {
        const std::wstring_view wanted = win32::TextOf(key.bstrVal);
        for (*index = 0; *index < count; ++*index)
            if (CompareStringOrdinal(wanted.data(), static_cast<int>(wanted.size()), name_of(*index).data(),
                                     static_cast<int>(name_of(*index).size()), TRUE) == CSTR_EQUAL)
                return {};
        return AdoError::ItemNotFound;
    }
    long number = -1;
    // Empty converts to 0 and would select the first item.
    if (key.vt == VT_EMPTY || !ToNumber(key, &number) || number < 0 ||
        static_cast<std::size_t>(number) >= count)
        return AdoError::ItemNotFound;
    *index = static_cast<std::size_t>(number);
    return {};
}

}  // namespace tessel::ado
