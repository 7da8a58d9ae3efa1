#include "hostkit/ado/row_reader.h"

#include <cstring>

#include "hostkit/ado/cell.h"

namespace tessel::ado {

using win32::UniqueVariant;

namespace {

/// Units of a text that get room of their own; longer ones are rare, or of a type for long texts.
constexpr std::size_t kBoundUnits = 255;

struct CType {
    SQLSMALLINT c_type;
    std::size_t bytes;
};

/// How a column's values are fetched when they are bound; {0, 0} for those that never are.
CType CTypeOf(const Column& column) {
    switch (column.type) {
        case AdoType::SmallInt:
            return {SQL_C_SSHORT, sizeof(SHORT)};
        case AdoType::UnsignedTinyInt:
            return {SQL_C_UTINYINT, sizeof(BYTE)};
        case AdoType::Integer:
        case AdoType::BigInt:
            return {SQL_C_SBIGINT, sizeof(LONGLONG)};
        case AdoType::Single:
            return {SQL_C_FLOAT, sizeof(FLOAT)};
        case AdoType::Double:
            return {SQL_C_DOUBLE, sizeof(DOUBLE)};
        case AdoType::Boolean:
            return {SQL_C_BIT, sizeof(BYTE)};
        case AdoType::DBDate:
        case AdoType::DBTimeStamp:
            return {SQL_C_TYPE_TIMESTAMP, sizeof(SQL_TIMESTAMP_STRUCT)};
        case AdoType::Numeric:
            return {SQL_C_WCHAR, (kBoundUnits + 1) * sizeof(SQLWCHAR)};
        default:
            break;
    }
    const bool is_long = (column.attributes & kLongData) != 0;
    if (!IsText(column.type) || is_long) return {0, 0};
    return {SQL_C_WCHAR, (kBoundUnits + 1) * sizeof(SQLWCHAR)};
}

}  // namespace

RowReader::RowReader(Statement& statement, const ColumnList& columns)
    : statement_(statement), columns_(columns), cells_(columns.size()) {
    if (!statement_.MixesBoundColumns()) return;
    for (std::size_t i = 0; i < columns.size(); ++i) {
        BoundCell& cell = cells_[i];
        const CType type = CTypeOf(columns[i]);
        if (type.c_type == 0) continue;
        cell.value.resize(type.bytes);
        const SQLRETURN bound = SQLBindCol(statement.Handle(), static_cast<SQLUSMALLINT>(i + 1), type.c_type,
                                           cell.value.data(), static_cast<SQLLEN>(type.bytes), &cell.length);
        if (SQL_SUCCEEDED(bound)) cell.c_type = type.c_type;
    }
}

RowReader::~RowReader() {
    if (statement_.IsOpen()) SQLFreeStmt(statement_.Handle(), SQL_UNBIND);
}

template <class Value>
Value RowReader::ValueOf(std::size_t column) const {
    Value value;
    memcpy(&value, cells_[column].value.data(), sizeof value);
    return value;
}

Status RowReader::Store(RowStorage* rows) {
    for (std::size_t i = 0; i < columns_.size(); ++i)
        if (Status stored = StoreCell(i, rows); !stored) return stored;
    rows->EndRow();
    return {};
}

Status RowReader::StoreCell(std::size_t column, RowStorage* rows) {
    const BoundCell& cell = cells_[column];
    if (cell.c_type == SQL_C_WCHAR) return StoreText(column, rows);
    if (cell.c_type != 0 && cell.length == SQL_NULL_DATA) {
        rows->AppendNull();
        return {};
    }
    switch (cell.c_type) {
        case SQL_C_SSHORT:
            rows->AppendNumber(VT_I2, ValueOf<SHORT>(column));
            return {};
        case SQL_C_UTINYINT:
            rows->AppendNumber(VT_UI1, ValueOf<BYTE>(column));
            return {};
        case SQL_C_SBIGINT: {
            const auto value = ValueOf<LONGLONG>(column);
            if (columns_[column].type == AdoType::Integer && value == static_cast<LONG>(value))
                rows->AppendNumber(VT_I4, static_cast<LONG>(value));
            else
                rows->AppendNumber(VT_I8, value);
            return {};
        }
        case SQL_C_FLOAT:
            rows->AppendNumber(VT_R4, ValueOf<FLOAT>(column));
            return {};
        case SQL_C_DOUBLE:
            rows->AppendNumber(VT_R8, ValueOf<DOUBLE>(column));
            return {};
        case SQL_C_BIT: {
            const VARIANT_BOOL truth = ValueOf<BYTE>(column) ? VARIANT_TRUE : VARIANT_FALSE;
            rows->AppendNumber(VT_BOOL, truth);
            return {};
        }
        case SQL_C_TYPE_TIMESTAMP:
            rows->Append(DateValue(ValueOf<SQL_TIMESTAMP_STRUCT>(column)).Get());
            return {};
        default: {
            UniqueVariant value;
            Status read = ReadCell(statement_, static_cast<int>(column + 1), columns_[column], &value);
            if (read) rows->Append(value.Get());
            return read;
        }
    }
}

std::optional<std::wstring_view> RowReader::BoundText(std::size_t column) const {
    const BoundCell& cell = cells_[column];
    constexpr auto kRoom = static_cast<SQLLEN>(kBoundUnits * sizeof(SQLWCHAR));
    if (cell.c_type != SQL_C_WCHAR || cell.length < 0 || cell.length > kRoom) return std::nullopt;
    return std::wstring_view(reinterpret_cast<const wchar_t*>(cell.value.data()),
                             static_cast<std::size_t>(cell.length) / sizeof(wchar_t));
}

Status RowReader::StoreText(std::size_t column, RowStorage* rows) {
    if (cells_[column].length == SQL_NULL_DATA) {
        rows->AppendNull();
        return {};
    }
    const auto text = BoundText(column);
    if (!text) {
        UniqueVariant value;
        Status read = ReadCell(statement_, static_cast<int>(column + 1), columns_[column], &value);
        if (read) rows->Append(value.Get());
        return read;
    }
    if (columns_[column].type == AdoType::Numeric)
        rows->Append(DecimalValue(*text).Get());
    else
        rows->AppendText(*text);
    return {};
}

Status RowReader::ReadText(std::size_t column, std::optional<std::wstring>* text) {
    if (cells_[column].c_type != 0 && cells_[column].length == SQL_NULL_DATA) {
        text->reset();
        return {};
    }
    if (const auto bound = BoundText(column)) {
        *text = *bound;
        return {};
    }
    UniqueVariant value;
    Status read = ReadCell(statement_, static_cast<int>(column + 1), columns_[column], &value);
    text->reset();
    if (value.Type() == VT_BSTR) *text = win32::TextOf(value.Get().bstrVal);
    return read;
}

}  // namespace tessel::ado
