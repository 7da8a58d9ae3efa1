// Owners for COM references, BSTR and VARIANT, and the guard of every COM method.
//
// Nothing here throws except std::bad_alloc where a text cannot be allocated; a method that calls such code
// runs inside Guarded, so that the host only ever sees an HRESULT. Late-bound calls are in dispatch.h, the
// classes of an in-process server in com_object.h.
//
//   STDMETHODIMP Thing::get_Name(BSTR* value) {
//       return Guarded([&] { return ReturnText(name_, value); });
//   }
#pragma once

#include <windows.h>
#include <oleauto.h>

#include <new>
#include <string>
#include <string_view>
#include <utility>

namespace tessel::win32 {

/// One counted reference to a COM object.
template <class T>
class ComPtr {
public:
    ComPtr() = default;
    ComPtr(std::nullptr_t) {}
    /// Shares the object: adds a reference.
    explicit ComPtr(T* object) : object_(object) {
        if (object_) object_->AddRef();
    }
    ComPtr(const ComPtr& other) : ComPtr(other.object_) {}
    ComPtr(ComPtr&& other) noexcept : object_(other.Detach()) {}
    ~ComPtr() { Reset(); }
    ComPtr& operator=(const ComPtr& other) {
        ComPtr(other).Swap(*this);
        return *this;
    }
    ComPtr& operator=(ComPtr&& other) noexcept {
        ComPtr(std::move(other)).Swap(*this);
        return *this;
    }

    /// Takes over a reference that the caller owns.
    static ComPtr Adopt(T* object) {
        ComPtr pointer;
        pointer.object_ = object;
        return pointer;
    }

    T* Get() const { return object_; }
    T* operator->() const { return object_; }
    explicit operator bool() const { return object_ != nullptr; }
    T* Detach() { return std::exchange(object_, nullptr); }
    void Swap(ComPtr& other) noexcept { std::swap(object_, other.object_); }
    void Reset() {
        if (T* old = Detach()) old->Release();
    }

    /// Where a function stores a reference that we are to own. Releases what was held.
    T** Put() {
        Reset();
        return &object_;
    }
    void** PutVoid() { return reinterpret_cast<void**>(Put()); }

    /// Copies the reference into an [out] parameter, which may be null.
    HRESULT CopyTo(T** target) const {
        if (!target) return E_POINTER;
        if (object_) object_->AddRef();
        *target = object_;
        return S_OK;
    }

    /// The object's other interface, or an empty pointer.
    template <class Other>
    ComPtr<Other> As() const {
        ComPtr<Other> other;
        if (object_) object_->QueryInterface(__uuidof(Other), other.PutVoid());
        return other;
    }

private:
    T* object_ = nullptr;
};

/// An owned BSTR. A null BSTR and an empty one are the same text.
class Bstr {
public:
    Bstr() = default;
    explicit Bstr(std::wstring_view text)
        : text_(SysAllocStringLen(text.data(), static_cast<UINT>(text.size()))) {
        if (!text_) throw std::bad_alloc();
    }
    ~Bstr() { SysFreeString(text_); }
    Bstr(const Bstr&) = delete;
    Bstr& operator=(const Bstr&) = delete;
    Bstr(Bstr&& other) noexcept : text_(other.Detach()) {}
    Bstr& operator=(Bstr&& other) noexcept {
        std::swap(text_, other.text_);
        return *this;
    }

    BSTR Get() const { return text_; }
    BSTR Detach() { return std::exchange(text_, nullptr); }
    /// Where a function stores a BSTR that we are to own. Frees what was held.
    BSTR* Put() {
        SysFreeString(Detach());
        return &text_;
    }
    std::wstring_view View() const;

private:
    BSTR text_ = nullptr;
};

/// The text of a BSTR, null counting as empty, embedded zero characters kept.
inline std::wstring_view TextOf(BSTR text) {
    return text ? std::wstring_view(text, SysStringLen(text)) : std::wstring_view();
}
inline std::wstring_view Bstr::View() const {
    return TextOf(text_);
}

/// Stores a text into an [out] parameter.
HRESULT ReturnText(std::wstring_view text, BSTR* target);
/// Replaces the text of an [in, out] parameter. The old text stays when there is no memory for the new one.
HRESULT ReplaceText(std::wstring_view text, BSTR* target);

/// An owned VARIANT. Converts to VARIANT* where a function reads or fills it.
class UniqueVariant {
public:
    UniqueVariant() { VariantInit(&value_); }
    explicit UniqueVariant(std::wstring_view text) : UniqueVariant() {
        value_.bstrVal = Bstr(text).Detach();
        value_.vt = VT_BSTR;
    }
    explicit UniqueVariant(const wchar_t* text) : UniqueVariant(std::wstring_view(text)) {}
    explicit UniqueVariant(bool value) : UniqueVariant() {
        value_.vt = VT_BOOL;
        value_.boolVal = value ? VARIANT_TRUE : VARIANT_FALSE;
    }
    explicit UniqueVariant(LONG value) : UniqueVariant() {
        value_.vt = VT_I4;
        value_.lVal = value;
    }
    explicit UniqueVariant(int value) : UniqueVariant(static_cast<LONG>(value)) {}
    explicit UniqueVariant(double value) : UniqueVariant() {
        value_.vt = VT_R8;
        value_.dblVal = value;
    }
    /// Shares the object; nullptr gives "Nothing".
    explicit UniqueVariant(IDispatch* object) : UniqueVariant() {
        value_.vt = VT_DISPATCH;
        value_.pdispVal = object;
        if (object) object->AddRef();
    }
    ~UniqueVariant() { VariantClear(&value_); }
    UniqueVariant(const UniqueVariant&) = delete;
    UniqueVariant& operator=(const UniqueVariant&) = delete;
    UniqueVariant(UniqueVariant&& other) noexcept : value_(other.Detach()) {}
    UniqueVariant& operator=(UniqueVariant&& other) noexcept {
        std::swap(value_, other.value_);
        return *this;
    }

    /// The argument that stands for one left out.
    static UniqueVariant Missing();
    static UniqueVariant Null();
    static UniqueVariant Date(DATE date);
    /// A deep copy with references followed; Empty when it cannot be made, as of a reference to nowhere.
    static UniqueVariant CopyOf(const VARIANT& value);
    /// An argument that refers to the caller's variable, as host languages pass their own.
    static UniqueVariant ReferenceTo(VARIANT* variable);
    static UniqueVariant ReferenceTo(BSTR* text);
    static UniqueVariant ReferenceTo(IDispatch** object);

    VARTYPE Type() const { return value_.vt; }
    bool IsNothing() const { return value_.vt == VT_EMPTY || value_.vt == VT_NULL; }
    const VARIANT& Get() const { return value_; }
    VARIANT* Address() { return &value_; }
    /// Where a function stores a VARIANT that we are to own. Clears what was held.
    VARIANT* Put() {
        VariantClear(&value_);
        return &value_;
    }
    VARIANT Detach() {
        VARIANT value = value_;
        VariantInit(&value_);
        return value;
    }

    /// The value converted with the user's locale, or the HRESULT of the conversion. Values out of their
    /// type's range are refused, as the system's own conversion may not come back from them; so are objects,
    /// see ChangePlain in dispatch.h.
    HRESULT ChangedTo(VARTYPE type, UniqueVariant* target, USHORT flags = 0) const;

    /// The object inside, or an empty pointer when the value is none.
    ComPtr<IDispatch> Object() const;

private:
    VARIANT value_;
};

/// Runs the body of a COM method or callback: whatever it throws becomes an HRESULT.
template <class Body>
HRESULT Guarded(Body&& body) noexcept {
    try {
        return std::forward<Body>(body)();
    } catch (const std::bad_alloc&) {
        return E_OUTOFMEMORY;
    } catch (...) {
        return E_UNEXPECTED;
    }
}

/// Leaves a description on the thread for the caller who receives the HRESULT, and returns that HRESULT.
/// `iid` is the interface that failed, `source` the class's ProgID.
HRESULT RaiseError(HRESULT result, REFIID iid, std::wstring_view source, std::wstring_view description);

/// The system's text for an HRESULT without a trailing line break; a Spanish text with the number when there
/// is none.
std::wstring SystemMessage(HRESULT result);

}  // namespace tessel::win32
