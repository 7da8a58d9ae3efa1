#include "tools/parameter_literal.h"

#include <array>
#include <optional>

#include "common/mdl_global.h"
#include "common/text.h"

namespace tessel::tools {

namespace {

struct DateTime {
    std::wstring date = L"1899-12-30";  // the day that a time alone belongs to
    std::wstring time = L"00:00:00";
};

/// The value matches a pattern in which "9" stands for a digit.
bool Matches(std::wstring_view value, std::wstring_view pattern) {
    if (value.size() != pattern.size()) return false;
    for (std::size_t i = 0; i < value.size(); ++i) {
        const bool digit = value[i] >= L'0' && value[i] <= L'9';
        if (pattern[i] == L'9' ? !digit : value[i] != pattern[i]) return false;
    }
    return true;
}

int Number(std::wstring_view digits) {
    int number = 0;
    for (wchar_t digit : digits) number = number * 10 + (digit - L'0');
    return number;
}

bool IsDate(std::wstring_view text) {
    if (!Matches(text, L"9999-99-99")) return false;
    static constexpr std::array kDays = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    const int year = Number(text.substr(0, 4));
    const int month = Number(text.substr(5, 2));
    const int day = Number(text.substr(8, 2));
    if (month < 1 || month > 12 || day < 1) return false;
    const bool leap = (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
    return day <= kDays[static_cast<std::size_t>(month) - 1] + (leap && month == 2 ? 1 : 0);
}

bool IsTime(std::wstring_view text) {
    return Matches(text, L"99:99:99") && Number(text.substr(0, 2)) < 24 && Number(text.substr(3, 2)) < 60 &&
           Number(text.substr(6, 2)) < 60;
}

std::optional<DateTime> ReadDateTime(std::wstring_view text) {
    DateTime value;
    if (IsTime(text)) {
        value.time = text;
        return value;
    }
    if (!IsDate(text.substr(0, 10))) return std::nullopt;
    value.date = text.substr(0, 10);
    if (text.size() == 10) return value;
    if ((text[10] != L' ' && text[10] != L'T') || !IsTime(text.substr(11))) return std::nullopt;
    value.time = text.substr(11);
    return value;
}

std::wstring Formatted(const DateTime& value, std::wstring_view ado_type) {
    const std::wstring type = Lower(ado_type);
    if (type == L"addate" || type == L"addbtimestamp") return value.date + L' ' + value.time;
    return type == L"addbtime" ? value.time : value.date;
}

}  // namespace

Result<std::wstring> ParameterLiteral(std::wstring_view ado_type, std::wstring_view value) {
    const auto quoted = [](const std::wstring& text) { return L"'" + text + L"'"; };
    switch (ADOTypeClass(ado_type)) {
        case ValueClass::Number:
            return std::wstring(value);
        case ValueClass::Text:
            return quoted(std::wstring(value));
        case ValueClass::Boolean: {
            const std::wstring word = Folded(value);
            if (word == L"true" || word == L"verdadero" || word == L"-1" || word == L"1")
                return std::wstring(L"-1");
            if (word == L"false" || word == L"falso" || word == L"0") return std::wstring(L"0");
            return Error{L"no es un valor lógico: " + std::wstring(value)};
        }
        case ValueClass::DateTime: {
            const std::optional<DateTime> date = ReadDateTime(TrimView(value));
            if (!date) return Error{L"no es una fecha ni una hora: " + std::wstring(value)};
            return quoted(Formatted(*date, ado_type));
        }
        default:
            return std::wstring();
    }
}

}  // namespace tessel::tools
