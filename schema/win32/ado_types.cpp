#include "schema/win32/ado_types.h"

#include <string>

#include "common/text.h"

namespace tessel::schema {

namespace {

// ADO's own numbers.
constexpr int adSmallInt = 2, adInteger = 3, adSingle = 4, adDouble = 5, adCurrency = 6, adBoolean = 11;
constexpr int adTinyInt = 16, adBigInt = 20, adGUID = 72, adBinary = 128, adChar = 129, adWChar = 130;
constexpr int adNumeric = 131, adDBDate = 133, adDBTime = 134, adDBTimeStamp = 135, adVarChar = 200;
constexpr int adLongVarChar = 201, adVarWChar = 202, adLongVarWChar = 203, adVarBinary = 204,
              adLongVarBinary = 205;

constexpr long kFixedLength = 0x10;
constexpr long kLong = 0x80;

struct TypeName {
    const wchar_t* name;
    int type;
};

// In the order of comparison: a name stands before those that it begins with.
constexpr TypeName kTypeNames[] = {
    {L"smallint", adSmallInt},
    {L"tinyint", adTinyInt},
    {L"mediumint", adInteger},
    {L"bigint", adBigInt},
    {L"integer", adInteger},
    {L"int2", adSmallInt},
    {L"int8", adBigInt},
    {L"interval", adVarWChar},
    {L"int", adInteger},
    {L"bigserial", adBigInt},
    {L"serial", adInteger},
    {L"double", adDouble},
    {L"float", adDouble},
    {L"real", adSingle},
    {L"decimal", adNumeric},
    {L"numeric", adNumeric},
    {L"number", adNumeric},
    {L"smallmoney", adCurrency},
    {L"money", adCurrency},
    {L"currency", adCurrency},
    {L"boolean", adBoolean},
    {L"bool", adBoolean},
    {L"bit", adBoolean},
    {L"timestamp", adDBTimeStamp},
    {L"smalldatetime", adDBTimeStamp},
    {L"datetime", adDBTimeStamp},
    {L"date", adDBDate},
    {L"time", adDBTime},
    {L"year", adSmallInt},
    {L"uniqueidentifier", adGUID},
    {L"uuid", adGUID},
    {L"national character varying", adVarWChar},
    {L"character varying", adVarWChar},
    {L"nvarchar", adVarWChar},
    {L"varchar", adVarWChar},
    {L"character", adWChar},
    {L"nchar", adWChar},
    {L"char", adWChar},
    {L"enum", adVarWChar},
    {L"set", adVarWChar},
    {L"tinytext", adLongVarWChar},
    {L"mediumtext", adLongVarWChar},
    {L"longtext", adLongVarWChar},
    {L"ntext", adLongVarWChar},
    {L"text", adLongVarWChar},
    {L"clob", adLongVarWChar},
    {L"json", adLongVarWChar},
    {L"xml", adLongVarWChar},
    {L"varbinary", adVarBinary},
    {L"binary", adBinary},
    {L"bytea", adLongVarBinary},
    {L"tinyblob", adLongVarBinary},
    {L"mediumblob", adLongVarBinary},
    {L"longblob", adLongVarBinary},
    {L"blob", adLongVarBinary},
    {L"image", adLongVarBinary},
};

int OfBase(long flags, int fixed_type, int variable_type, int long_type) {
    if (flags & kLong) return long_type;
    return flags & kFixedLength ? fixed_type : variable_type;
}

}  // namespace

int AdoTypeOfColumn(int data_type, std::optional<long> column_flags) {
    if (!column_flags) return data_type;
    if (data_type == adWChar) return OfBase(*column_flags, adWChar, adVarWChar, adLongVarWChar);
    if (data_type == adChar) return OfBase(*column_flags, adChar, adVarChar, adLongVarChar);
    if (data_type == adBinary) return OfBase(*column_flags, adBinary, adVarBinary, adLongVarBinary);
    return data_type;
}

int AdoTypeOfName(std::wstring_view type_name) {
    const std::wstring name = Folded(type_name);
    for (const TypeName& row : kTypeNames)
        if (name.starts_with(row.name)) return row.type;
    return 0;
}

long SizeOfTypeName(std::wstring_view type_name) {
    const std::size_t open = type_name.find(L'(');
    if (open == std::wstring_view::npos) return 0;
    long size = 0;
    for (std::size_t i = open + 1; i < type_name.size() && type_name[i] >= L'0' && type_name[i] <= L'9';
         ++i) {
        if (size > 100'000'000) return 0;
        size = size * 10 + (type_name[i] - L'0');
    }
    return size;
}

}  // namespace tessel::schema
