#include "hostkit/ado/cell.h"

#include <cmath>
#include <cwchar>

#include "hostkit/ado/decimal.h"

namespace tessel::ado {

using win32::UniqueVariant;

namespace {

constexpr std::size_t kPieceBytes = 8192;
constexpr double kSecondsPerDay = 86400.0;
constexpr double kNanosecondsPerSecond = 1e9;

/// Reads a value of any length in pieces. `terminator` bytes end each piece and are not part of it.
Status ReadPieces(Statement& statement, int number, SQLSMALLINT c_type, std::size_t terminator,
                  std::string* bytes, bool* is_null) {
    *is_null = false;
    // Most values fit into one piece, which is neither cleared nor taken from the heap: there are millions of
    // them.
    alignas(SQLWCHAR) char piece[kPieceBytes];
    const std::size_t room = kPieceBytes - terminator;
    for (;;) {
        SQLLEN length = 0;
        const SQLRETURN result = SQLGetData(statement.Handle(), static_cast<SQLUSMALLINT>(number), c_type,
                                            piece, static_cast<SQLLEN>(kPieceBytes), &length);
        if (result == SQL_NO_DATA) return {};
        if (!SQL_SUCCEEDED(result)) return statement.Check(result);
        if (length == SQL_NULL_DATA) {
            *is_null = true;
            return {};
        }
        const bool is_full = length == SQL_NO_TOTAL || static_cast<std::size_t>(length) > room;
        bytes->append(piece, is_full ? room : static_cast<std::size_t>(length));
        if (!is_full || result == SQL_SUCCESS) return {};
    }
}

Status ReadText(Statement& statement, int number, std::wstring* text, bool* is_null) {
    std::string bytes;
    Status read = ReadPieces(statement, number, SQL_C_WCHAR, sizeof(SQLWCHAR), &bytes, is_null);
    text->assign(reinterpret_cast<const wchar_t*>(bytes.data()), bytes.size() / sizeof(wchar_t));
    return read;
}

template <class Value>
Status ReadFixed(Statement& statement, int number, SQLSMALLINT c_type, Value* value, bool* is_null) {
    SQLLEN length = 0;
    const SQLRETURN result = SQLGetData(statement.Handle(), static_cast<SQLUSMALLINT>(number), c_type, value,
                                        sizeof *value, &length);
    *is_null = length == SQL_NULL_DATA;
    return statement.Check(result);
}

/// The automation date, whose fraction counts away from zero also before the year 1900.
bool DateFrom(const SQL_TIMESTAMP_STRUCT& stamp, DATE* date) {
    SYSTEMTIME day{};
    day.wYear = static_cast<WORD>(stamp.year);
    day.wMonth = stamp.month;
    day.wDay = stamp.day;
    DATE whole = 0;
    if (stamp.year < 0 || !SystemTimeToVariantTime(&day, &whole)) return false;
    const double seconds =
        stamp.hour * 3600.0 + stamp.minute * 60.0 + stamp.second + stamp.fraction / kNanosecondsPerSecond;
    *date = whole < 0 ? whole - seconds / kSecondsPerDay : whole + seconds / kSecondsPerDay;
    return true;
}

Status ReadDecimal(Statement& statement, int number, UniqueVariant* target) {
    std::wstring text;
    bool is_null = false;
    Status read = ReadText(statement, number, &text, &is_null);
    if (read && !is_null) *target = DecimalValue(text);
    return read;
}

Status ReadDate(Statement& statement, int number, AdoType type, UniqueVariant* target) {
    SQL_TIMESTAMP_STRUCT stamp{};
    bool is_null = false;
    if (type == AdoType::DBTime) {
        SQL_TIME_STRUCT time{};
        Status read = ReadFixed(statement, number, SQL_C_TYPE_TIME, &time, &is_null);
        if (!read || is_null) return read;
        *target =
            UniqueVariant::Date((time.hour * 3600.0 + time.minute * 60.0 + time.second) / kSecondsPerDay);
        return {};
    }
    Status read = ReadFixed(statement, number, SQL_C_TYPE_TIMESTAMP, &stamp, &is_null);
    if (read && !is_null) *target = DateValue(stamp);
    return read;
}

Status ReadBytes(Statement& statement, int number, UniqueVariant* target) {
    std::string bytes;
    bool is_null = false;
    Status read = ReadPieces(statement, number, SQL_C_BINARY, 0, &bytes, &is_null);
    if (!read || is_null) return read;
    SAFEARRAY* array = SafeArrayCreateVector(VT_UI1, 0, static_cast<ULONG>(bytes.size()));
    if (!array) throw std::bad_alloc();
    memcpy(array->pvData, bytes.data(), bytes.size());
    target->Address()->parray = array;
    target->Address()->vt = VT_ARRAY | VT_UI1;
    return {};
}

template <class Value, class Member>
Status ReadNumber(Statement& statement, int number, SQLSMALLINT c_type, VARTYPE type, Member member,
                  UniqueVariant* target) {
    Value value{};
    bool is_null = false;
    Status read = ReadFixed(statement, number, c_type, &value, &is_null);
    if (!read || is_null) return read;
    target->Address()->vt = type;
    target->Address()->*member = value;
    return {};
}

/// An engine without column types (SQLite) calls every whole number an INTEGER, also one that 32 bits do not
/// hold; it keeps its value in a wider type.
Status ReadInteger(Statement& statement, int number, UniqueVariant* target) {
    Status read = ReadNumber<LONGLONG>(statement, number, SQL_C_SBIGINT, VT_I8, &VARIANT::llVal, target);
    if (!read || target->Type() != VT_I8) return read;
    const LONGLONG value = target->Get().llVal;
    if (value == static_cast<LONG>(value)) *target = UniqueVariant(static_cast<LONG>(value));
    return read;
}

}  // namespace

// A number with an exponent goes through a double, and stays one when a decimal cannot hold it; what is no
// number at all keeps its text.
UniqueVariant DecimalValue(std::wstring_view text) {
    DECIMAL decimal{};
    if (!DecimalFromText(text, &decimal)) {
        const std::wstring terminated(text);
        wchar_t* end = nullptr;
        const double value = std::wcstod(terminated.c_str(), &end);
        if (end == terminated.c_str() || *end != 0 || !std::isfinite(value)) return UniqueVariant(text);
        if (FAILED(VarDecFromR8(value, &decimal))) return UniqueVariant(value);
    }
    UniqueVariant result;
    result.Address()->decVal = decimal;
    result.Address()->vt = VT_DECIMAL;
    return result;
}

// A date outside the range of automation (the year 0) has no value there.
UniqueVariant DateValue(const SQL_TIMESTAMP_STRUCT& stamp) {
    DATE date = 0;
    return DateFrom(stamp, &date) ? UniqueVariant::Date(date) : UniqueVariant::Null();
}

Status ReadCell(Statement& statement, int number, const Column& column, UniqueVariant* target) {
    *target = UniqueVariant::Null();
    switch (column.type) {
        case AdoType::SmallInt:
            return ReadNumber<SHORT>(statement, number, SQL_C_SSHORT, VT_I2, &VARIANT::iVal, target);
        case AdoType::UnsignedTinyInt:
            return ReadNumber<BYTE>(statement, number, SQL_C_UTINYINT, VT_UI1, &VARIANT::bVal, target);
        case AdoType::Integer:
            return ReadInteger(statement, number, target);
        case AdoType::BigInt:
            return ReadNumber<LONGLONG>(statement, number, SQL_C_SBIGINT, VT_I8, &VARIANT::llVal, target);
        case AdoType::Single:
            return ReadNumber<FLOAT>(statement, number, SQL_C_FLOAT, VT_R4, &VARIANT::fltVal, target);
        case AdoType::Double:
            return ReadNumber<DOUBLE>(statement, number, SQL_C_DOUBLE, VT_R8, &VARIANT::dblVal, target);
        case AdoType::Boolean: {
            BYTE bit = 0;
            bool is_null = false;
            Status read = ReadFixed(statement, number, SQL_C_BIT, &bit, &is_null);
            if (read && !is_null) *target = UniqueVariant(bit != 0);
            return read;
        }
        case AdoType::Numeric:
            return ReadDecimal(statement, number, target);
        case AdoType::DBDate:
        case AdoType::DBTime:
        case AdoType::DBTimeStamp:
            return ReadDate(statement, number, column.type, target);
        default:
            break;
    }
    if (IsBinary(column.type)) return ReadBytes(statement, number, target);
    std::wstring text;
    bool is_null = false;
    Status read = ReadText(statement, number, &text, &is_null);
    if (read && !is_null) *target = UniqueVariant(std::wstring_view(text));
    return read;
}

}  // namespace tessel::ado
