#include "hostkit/ado/column.h"

#include "common/text.h"

namespace tessel::ado {

namespace {

AdoType TypeOf(SQLSMALLINT odbc_type) {
    switch (odbc_type) {
        case SQL_CHAR:
            return AdoType::Char;
        case SQL_VARCHAR:
            return AdoType::VarChar;
        case SQL_LONGVARCHAR:
            return AdoType::LongVarChar;
        case SQL_WCHAR:
            return AdoType::WChar;
        case SQL_WLONGVARCHAR:
            return AdoType::LongVarWChar;
        case SQL_DECIMAL:
        case SQL_NUMERIC:
            return AdoType::Numeric;
        case SQL_SMALLINT:
            return AdoType::SmallInt;
        case SQL_INTEGER:
            return AdoType::Integer;
        case SQL_REAL:
            return AdoType::Single;
        case SQL_FLOAT:
        case SQL_DOUBLE:
            return AdoType::Double;
        case SQL_BIT:
            return AdoType::Boolean;
        case SQL_TINYINT:
            return AdoType::UnsignedTinyInt;
        case SQL_BIGINT:
            return AdoType::BigInt;
        case SQL_BINARY:
            return AdoType::Binary;
        case SQL_VARBINARY:
            return AdoType::VarBinary;
        case SQL_LONGVARBINARY:
            return AdoType::LongVarBinary;
        case SQL_DATE:
        case SQL_TYPE_DATE:
            return AdoType::DBDate;
        case SQL_TIME:
        case SQL_TYPE_TIME:
            return AdoType::DBTime;
        case SQL_TIMESTAMP:
        case SQL_TYPE_TIMESTAMP:
            return AdoType::DBTimeStamp;
        case SQL_GUID:
            return AdoType::Guid;
        default:
            return AdoType::VarWChar;
    }
}

struct FixedType {
    AdoType type;
    long bytes;
    int precision;
};

constexpr FixedType kFixedTypes[] = {
    {AdoType::SmallInt, 2, 5},
    {AdoType::Integer, 4, 10},
    {AdoType::Single, 4, 7},
    {AdoType::Double, 8, 15},
    {AdoType::Boolean, 2, kNoPrecision},
    {AdoType::UnsignedTinyInt, 1, 3},
    {AdoType::BigInt, 8, 19},
    {AdoType::Guid, 16, kNoPrecision},
    {AdoType::Numeric, 19, 28},
    {AdoType::DBDate, 6, 10},
    {AdoType::DBTime, 6, 8},
    {AdoType::DBTimeStamp, 16, 19},
};

/// The largest size that ADO reports; drivers answer 0 or a huge number for texts without a limit.
constexpr long kUnlimited = 0x7FFFFFFF;

/// "DECIMAL(10,2)" gives 10 and 2. A name without numbers leaves the precision as it is and the scale
/// unknown.
void ReadPrecision(std::wstring_view type_name, Column* column) {
    int numbers[2] = {0, 0};
    int count = 0;
    const std::size_t open = type_name.find(L'(');
    if (open == std::wstring_view::npos) return;
    for (const wchar_t ch : type_name.substr(open + 1)) {
        if (ch >= L'0' && ch <= L'9' && numbers[count] < 1000)
            numbers[count] = numbers[count] * 10 + (ch - L'0');
        if (ch == L',' && count == 0) count = 1;
        if (ch == L')') break;
    }
    column->precision = numbers[0];
    column->scale = numbers[1];
}

struct DeclaredType {
    const wchar_t* name;
    AdoType type;
};

constexpr DeclaredType kDeclaredTypes[] = {
    {L"decimal", AdoType::Numeric},      {L"numeric", AdoType::Numeric},
    {L"longtext", AdoType::LongVarChar}, {L"mediumtext", AdoType::LongVarChar},
    {L"blob", AdoType::LongVarBinary},
};

/// The driver of an engine without column types (SQLite's) describes some declared types only roughly:
/// decimals as texts or doubles, long texts and bytes as short ones. The declared name tells more.
AdoType TypeOfDeclared(const OdbcColumn& source) {
    const bool is_rough = source.type == SQL_VARCHAR || source.type == SQL_WVARCHAR ||
                          source.type == SQL_DOUBLE || source.type == SQL_BINARY;
    const std::wstring name = is_rough ? Lower(source.type_name) : std::wstring();
    for (const DeclaredType& declared : kDeclaredTypes)
        if (name.starts_with(declared.name)) return declared.type;
    return TypeOf(source.type);
}

}  // namespace

bool IsText(AdoType type) {
    switch (type) {
        case AdoType::Char:
        case AdoType::WChar:
        case AdoType::VarChar:
        case AdoType::VarWChar:
        case AdoType::LongVarChar:
        case AdoType::LongVarWChar:
            return true;
        default:
            return false;
    }
}

bool IsBinary(AdoType type) {
    return type == AdoType::Binary || type == AdoType::VarBinary || type == AdoType::LongVarBinary;
}

long SchemaTypeOf(AdoType type) {
    switch (type) {
        case AdoType::VarChar:
        case AdoType::LongVarChar:
            return static_cast<long>(AdoType::Char);
        case AdoType::VarWChar:
        case AdoType::LongVarWChar:
            return static_cast<long>(AdoType::WChar);
        case AdoType::VarBinary:
        case AdoType::LongVarBinary:
            return static_cast<long>(AdoType::Binary);
        default:
            return static_cast<long>(type);
    }
}

Column ColumnFrom(const OdbcColumn& source) {
    Column column;
    column.name = source.name;
    column.type = TypeOfDeclared(source);
    const bool is_declared = column.type != TypeOf(source.type);
    const bool is_long = column.type == AdoType::LongVarChar || column.type == AdoType::LongVarWChar ||
                         column.type == AdoType::LongVarBinary;
    const bool is_unlimited = source.size == 0 || source.size > static_cast<SQLULEN>(kUnlimited);
    column.defined_size =
        is_unlimited || (is_long && is_declared) ? kUnlimited : static_cast<long>(source.size);
    for (const FixedType& fixed : kFixedTypes) {
        if (fixed.type != column.type) continue;
        column.defined_size = fixed.bytes;
        column.precision = fixed.precision;
        column.attributes |= kFixedLength;
    }
    if (column.type == AdoType::Numeric) {
        if (source.size > 0) column.precision = static_cast<int>(source.size);
        if (!is_declared) column.scale = source.digits;
        if (is_declared) ReadPrecision(source.type_name, &column);
    }
    const bool is_fixed_text =
        column.type == AdoType::Char || column.type == AdoType::WChar || column.type == AdoType::Binary;
    if (is_fixed_text) column.attributes |= kFixedLength;
    if (is_long) column.attributes |= kLongData;
    if (source.nullable) column.attributes |= kIsNullable | kMayBeNull;
    return column;
}

Status DescribeColumns(Statement& statement, int count, SharedColumns* target) {
    auto columns = std::make_shared<ColumnList>();
    for (int i = 1; i <= count; ++i) {
        OdbcColumn source;
        SQLWCHAR name[512] = {};
        SQLSMALLINT length = 0, nullable = SQL_NULLABLE_UNKNOWN;
        const auto number = static_cast<SQLUSMALLINT>(i);
        Status described =
            statement.Check(SQLDescribeColW(statement.Handle(), number, name, 512, &length, &source.type,
                                            &source.size, &source.digits, &nullable));
        if (!described) return described;
        source.name = name;
        source.nullable = nullable != SQL_NO_NULLS;
        SQLWCHAR type_name[128] = {};
        SQLSMALLINT bytes = 0;
        SQLLEN unused = 0;
        if (SQL_SUCCEEDED(SQLColAttributeW(statement.Handle(), number, SQL_DESC_TYPE_NAME, type_name,
                                           sizeof type_name, &bytes, &unused)))
            source.type_name = type_name;
        columns->push_back(ColumnFrom(source));
    }
    *target = std::move(columns);
    return {};
}

}  // namespace tessel::ado
