#include "common/win32/com.h"

#include <cmath>
#include <cwchar>

namespace tessel::win32 {

HRESULT ReturnText(std::wstring_view text, BSTR* target) {
    if (!target) return E_POINTER;
    *target = SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
    return *target ? S_OK : E_OUTOFMEMORY;
}

HRESULT ReplaceText(std::wstring_view text, BSTR* target) {
    if (!target) return E_POINTER;
    const BSTR fresh = SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
    if (!fresh) return E_OUTOFMEMORY;
    SysFreeString(std::exchange(*target, fresh));
    return S_OK;
}

namespace {

/// The system follows a reference without a look at it.
bool RefersToNowhere(const VARIANT& value) {
    if (!(value.vt & VT_BYREF)) return false;
    if (!value.byref) return true;
    return value.vt == (VT_BYREF | VT_VARIANT) && (value.pvarVal->vt & VT_BYREF) && !value.pvarVal->byref;
}

/// Whether a number that is none, or that is infinite, can be said in a type.
bool SaysAnyNumber(VARTYPE type) {
    return type == VT_R4 || type == VT_R8 || type == VT_BSTR;
}

/// Whether the system may be asked to convert the value. It does not come back from some values that are
/// none.
HRESULT CheckConvertible(const VARIANT& value, VARTYPE type) {
    constexpr DATE kFirstDate = -657434;  // 1 January 100
    constexpr DATE kAfterLastDate = 2958466;
    constexpr BYTE kMostDecimals = 28;
    switch (value.vt) {
        case VT_DATE:
            return value.date > kFirstDate - 1 && value.date < kAfterLastDate ? S_OK : DISP_E_OVERFLOW;
        case VT_R4:
            return std::isfinite(value.fltVal) || SaysAnyNumber(type) ? S_OK : DISP_E_OVERFLOW;
        case VT_R8:
            return std::isfinite(value.dblVal) || SaysAnyNumber(type) ? S_OK : DISP_E_OVERFLOW;
        case VT_DECIMAL:
            return value.decVal.scale <= kMostDecimals && (value.decVal.sign & ~DECIMAL_NEG) == 0
                       ? S_OK
                       : DISP_E_OVERFLOW;
        case VT_EMPTY:
        case VT_NULL:
        case VT_I1:
        case VT_I2:
        case VT_I4:
        case VT_I8:
        case VT_UI1:
        case VT_UI2:
        case VT_UI4:
        case VT_UI8:
        case VT_INT:
        case VT_UINT:
        case VT_CY:
        case VT_BSTR:
        case VT_BOOL:
            return S_OK;
        case VT_DISPATCH:
        case VT_UNKNOWN:
            return type == VT_DISPATCH || type == VT_UNKNOWN ? S_OK : DISP_E_TYPEMISMATCH;
        default:
            return value.vt == type ? S_OK : DISP_E_TYPEMISMATCH;
    }
}

}  // namespace

UniqueVariant UniqueVariant::Missing() {
    UniqueVariant variant;
    variant.value_.vt = VT_ERROR;
    variant.value_.scode = DISP_E_PARAMNOTFOUND;
    return variant;
}

UniqueVariant UniqueVariant::Null() {
    UniqueVariant variant;
    variant.value_.vt = VT_NULL;
    return variant;
}

UniqueVariant UniqueVariant::Date(DATE date) {
    UniqueVariant variant;
    variant.value_.vt = VT_DATE;
    variant.value_.date = date;
    return variant;
}

UniqueVariant UniqueVariant::CopyOf(const VARIANT& value) {
    UniqueVariant copy;
    if (!RefersToNowhere(value)) VariantCopyInd(&copy.value_, const_cast<VARIANT*>(&value));
    return copy;
}

UniqueVariant UniqueVariant::ReferenceTo(VARIANT* variable) {
    UniqueVariant argument;
    argument.value_.vt = VT_BYREF | VT_VARIANT;
    argument.value_.pvarVal = variable;
    return argument;
}

UniqueVariant UniqueVariant::ReferenceTo(BSTR* text) {
    UniqueVariant argument;
    argument.value_.vt = VT_BYREF | VT_BSTR;
    argument.value_.pbstrVal = text;
    return argument;
}

UniqueVariant UniqueVariant::ReferenceTo(IDispatch** object) {
    UniqueVariant argument;
    argument.value_.vt = VT_BYREF | VT_DISPATCH;
    argument.value_.ppdispVal = object;
    return argument;
}

HRESULT UniqueVariant::ChangedTo(VARTYPE type, UniqueVariant* target, USHORT flags) const {
    if (value_.vt & VT_BYREF) return CopyOf(value_).ChangedTo(type, target, flags);
    if (const HRESULT checked = CheckConvertible(value_, type); FAILED(checked)) return checked;
    return VariantChangeTypeEx(target->Put(), const_cast<VARIANT*>(&value_), LOCALE_USER_DEFAULT, flags,
                               type);
}

ComPtr<IDispatch> UniqueVariant::Object() const {
    if (value_.vt == VT_DISPATCH) return ComPtr<IDispatch>(value_.pdispVal);
    if (value_.vt == VT_UNKNOWN) return ComPtr<IUnknown>(value_.punkVal).As<IDispatch>();
    if (value_.vt & VT_BYREF) {
        const UniqueVariant copy = CopyOf(value_);
        if (!(copy.Type() & VT_BYREF)) return copy.Object();
    }
    return {};
}

HRESULT RaiseError(HRESULT result, REFIID iid, std::wstring_view source, std::wstring_view description) {
    ComPtr<ICreateErrorInfo> info;
    if (FAILED(CreateErrorInfo(info.Put()))) return result;
    info->SetGUID(iid);
    info->SetSource(const_cast<LPOLESTR>(std::wstring(source).c_str()));
    info->SetDescription(const_cast<LPOLESTR>(std::wstring(description).c_str()));
    if (const ComPtr<IErrorInfo> error = info.As<IErrorInfo>()) SetErrorInfo(0, error.Get());
    return result;
}

std::wstring SystemMessage(HRESULT result) {
    wchar_t* buffer = nullptr;
    const DWORD flags =
        FORMAT_MESSAGE_ALLOCATE_BUFFER | FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS;
    const DWORD length = FormatMessageW(flags, nullptr, static_cast<DWORD>(result), 0,
                                        reinterpret_cast<LPWSTR>(&buffer), 0, nullptr);
    std::wstring text;
    try {
        if (buffer) text.assign(buffer, length);
    } catch (...) {
        LocalFree(buffer);
        throw;
    }
    LocalFree(buffer);
    while (!text.empty() && (text.back() == L'\r' || text.back() == L'\n' || text.back() == L' '))
        text.pop_back();
    if (!text.empty()) return text;
    wchar_t number[40];
    std::swprintf(number, 40, L"Error de automatizaci\u00f3n 0x%08lX", static_cast<unsigned long>(result));
    return number;
}

}  // namespace tessel::win32
