#include "component/literal.h"

#include <cwchar>

#include "common/mdl_global.h"
#include "common/text.h"
#include "common/win32/dispatch.h"

namespace tessel::component {

using win32::PlainValue;
using win32::UniqueVariant;

namespace {

enum class DateFormat { Date, Time, DateAndTime };

/// The format of a date-and-time type. The name is compared in lower case but not trimmed: one with blanks
/// around it is classified like its bare name and yet formatted as a date. Hosts see this, so it stays.
DateFormat DateFormatOf(std::wstring_view type_name) {
    const std::wstring name = Lower(type_name);
    if (name == L"addate" || name == L"addbtimestamp") return DateFormat::DateAndTime;
    return name == L"addbtime" ? DateFormat::Time : DateFormat::Date;
}

/// The ordinary text of a value. Truth values read as the user's language writes them.
HRESULT TextOfValue(const UniqueVariant& value, std::wstring* text) {
    UniqueVariant converted;
    const HRESULT changed = value.ChangedTo(VT_BSTR, &converted, VARIANT_LOCALBOOL);
    if (SUCCEEDED(changed)) *text = win32::TextOf(converted.Get().bstrVal);
    return changed;
}

HRESULT TruthOfValue(const UniqueVariant& value, bool* truth) {
    UniqueVariant converted;
    const HRESULT changed = value.ChangedTo(VT_BOOL, &converted, VARIANT_LOCALBOOL);
    if (SUCCEEDED(changed)) *truth = converted.Get().boolVal != VARIANT_FALSE;
    return changed;
}

HRESULT FormatDate(const UniqueVariant& value, DateFormat format, std::wstring* text) {
    UniqueVariant date;
    if (const HRESULT changed = value.ChangedTo(VT_DATE, &date); FAILED(changed)) return changed;
    UDATE parts{};
    if (const HRESULT split = VarUdateFromDate(date.Get().date, 0, &parts); FAILED(split)) return split;
    const SYSTEMTIME& st = parts.st;
    wchar_t day[32], time[32];
    std::swprintf(day, 32, L"%04u-%02u-%02u", st.wYear, st.wMonth, st.wDay);
    std::swprintf(time, 32, L"%02u:%02u:%02u", st.wHour, st.wMinute, st.wSecond);
    if (format == DateFormat::Date) *text = day;
    if (format == DateFormat::Time) *text = time;
    if (format == DateFormat::DateAndTime) *text = std::wstring(day) + L' ' + time;
    return S_OK;
}

}  // namespace

HRESULT RenderLiteral(const VARIANT& value, std::wstring_view type_name, LiteralSyntax syntax,
                      std::wstring* literal) {
    const ValueClass value_class = ADOTypeClass(type_name);
    if (value_class == ValueClass::None || value_class == ValueClass::Other) {
        literal->clear();
        return S_OK;
    }
    UniqueVariant plain;
    if (const HRESULT read = PlainValue(value, &plain); FAILED(read)) return read;

    const bool sql = syntax == LiteralSyntax::Sql;
    if (value_class == ValueClass::Number) return TextOfValue(plain, literal);
    if (value_class == ValueClass::Boolean) {
        bool truth = false;
        const HRESULT converted = TruthOfValue(plain, &truth);
        if (FAILED(converted)) return converted;
        *literal = sql ? (truth ? L"-1" : L"0") : (truth ? L"TRUE" : L"FALSE");
        return S_OK;
    }
    std::wstring text;
    const HRESULT converted = value_class == ValueClass::Text
                                  ? TextOfValue(plain, &text)
                                  : FormatDate(plain, DateFormatOf(type_name), &text);
    if (FAILED(converted)) return converted;
    // Quotes inside the value are not doubled: hosts that need it have done it themselves.
    const wchar_t quote = sql ? L'\'' : L'"';
    *literal = quote + text + quote;
    return S_OK;
}

HRESULT RenderText(const VARIANT& value, std::wstring* text) {
    UniqueVariant plain;
    const HRESULT read = PlainValue(value, &plain);
    return FAILED(read) ? read : TextOfValue(plain, text);
}

}  // namespace tessel::component
