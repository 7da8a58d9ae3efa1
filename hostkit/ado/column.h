// What is known of a column of rows: its name and its ADO description, mapped from the ODBC type the way ADO
// maps it.
#pragma once

#include <windows.h>

#include <sql.h>
#include <sqlext.h>

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "hostkit/ado/odbc.h"

namespace tessel::ado {

/// ADO's data types, as far as ODBC types lead to them.
enum class AdoType : int {
    SmallInt = 2,
    Integer = 3,
    Single = 4,
    Double = 5,
    Boolean = 11,
    UnsignedTinyInt = 17,
    BigInt = 20,
    Guid = 72,
    Binary = 128,
    Char = 129,
    WChar = 130,
    Numeric = 131,
    DBDate = 133,
    DBTime = 134,
    DBTimeStamp = 135,
    VarChar = 200,
    LongVarChar = 201,
    VarWChar = 202,
    LongVarWChar = 203,
    VarBinary = 204,
    LongVarBinary = 205,
};

/// Flags of a column, the same in Field.Attributes and in the COLUMN_FLAGS of a schema rowset.
inline constexpr long kFixedLength = 0x10;
inline constexpr long kIsNullable = 0x20;
inline constexpr long kMayBeNull = 0x40;
inline constexpr long kLongData = 0x80;

/// The precision and scale of a type that has none.
inline constexpr int kNoPrecision = 255;

struct Column {
    std::wstring name;
    AdoType type = AdoType::VarWChar;
    long defined_size = 0;  ///< characters of texts, bytes of everything else
    int precision = kNoPrecision;
    int scale = kNoPrecision;
    long attributes = 0;
};

using ColumnList = std::vector<Column>;
using SharedColumns = std::shared_ptr<const ColumnList>;

/// What a driver says of a column, in a result or in its catalogue.
struct OdbcColumn {
    std::wstring name;
    SQLSMALLINT type = SQL_VARCHAR;
    std::wstring type_name;
    SQLULEN size = 0;
    SQLSMALLINT digits = 0;
    bool nullable = true;
};

Column ColumnFrom(const OdbcColumn& source);

/// Describes the columns of an executed statement.
Status DescribeColumns(Statement& statement, int count, SharedColumns* target);

bool IsText(AdoType type);
bool IsBinary(AdoType type);
/// The type that a schema rowset names for a column: texts and bytes by their base type.
long SchemaTypeOf(AdoType type);

}  // namespace tessel::ado
