#include "controls/browser/field_types.h"

#include "common/mdl_global.h"

namespace tessel::controls {

namespace {

std::wstring Sized(std::wstring_view word, std::int64_t size) {
    return std::wstring(word) + L" (" + std::to_wstring(size) + L")";
}

// Values of the ADO data types.
enum AdoType : int {
    adSmallInt = 2,
    adInteger = 3,
    adSingle = 4,
    adDouble = 5,
    adCurrency = 6,
    adDate = 7,
    adBSTR = 8,
    adBoolean = 11,
    adVariant = 12,
    adDecimal = 14,
    adTinyInt = 16,
    adUnsignedTinyInt = 17,
    adUnsignedSmallInt = 18,
    adUnsignedInt = 19,
    adBigInt = 20,
    adUnsignedBigInt = 21,
    adFileTime = 64,
    adGUID = 72,
    adBinary = 128,
    adChar = 129,
    adWChar = 130,
    adNumeric = 131,
    adDBDate = 133,
    adDBTime = 134,
    adDBTimeStamp = 135,
    adVarNumeric = 139,
    adVarChar = 200,
    adLongVarChar = 201,
    adVarWChar = 202,
    adLongVarWChar = 203,
    adVarBinary = 204,
    adLongVarBinary = 205,
};

// Databases report texts without a limit with sizes in the thousands of millions.
constexpr std::int64_t kLargestSizeShown = 65535;

}  // namespace

std::wstring FieldTypeText(const schema::Field& field) {
    switch (field.ado_type) {
        case adSmallInt:
        case adUnsignedSmallInt:
            return L"Entero";
        case adInteger:
        case adUnsignedInt:
            return L"Entero largo";
        case adBigInt:
        case adUnsignedBigInt:
            return L"Entero grande";
        case adTinyInt:
        case adUnsignedTinyInt:
            return L"Byte";
        case adSingle:
            return L"Simple";
        case adDouble:
            return L"Doble";
        case adCurrency:
            return L"Moneda";
        case adDecimal:
        case adNumeric:
        case adVarNumeric:
            if (field.precision <= 0) return L"Decimal";
            return L"Decimal (" + std::to_wstring(field.precision) + L"," + std::to_wstring(field.scale) +
                   L")";
        case adBoolean:
            return L"Sí/No";
        case adDate:
        case adDBTimeStamp:
        case adFileTime:
            return L"Fecha y hora";
        case adDBDate:
            return L"Fecha";
        case adDBTime:
            return L"Hora";
        case adGUID:
            return L"Identificador único";
        case adBSTR:
        case adChar:
        case adWChar:
        case adVarChar:
        case adVarWChar:
            if (field.size <= 0 || field.size > kLargestSizeShown) return L"Texto";
            return Sized(L"Texto", field.size);
        case adLongVarChar:
        case adLongVarWChar:
            return L"Texto largo";
        case adBinary:
        case adVarBinary:
            if (field.size <= 0 || field.size > kLargestSizeShown) return L"Binario";
            return Sized(L"Binario", field.size);
        case adLongVarBinary:
            return L"Binario largo";
        case adVariant:
            return L"Variante";
        default:
            return std::wstring(ADOTypeName(field.ado_type));
    }
}

FieldSort SortOf(const schema::Field& field) {
    switch (field.ado_type) {
        case adSmallInt:
        case adInteger:
        case adSingle:
        case adDouble:
        case adCurrency:
        case adDecimal:
        case adTinyInt:
        case adUnsignedTinyInt:
        case adUnsignedSmallInt:
        case adUnsignedInt:
        case adBigInt:
        case adUnsignedBigInt:
        case adNumeric:
        case adVarNumeric:
            return FieldSort::Number;
        case adBSTR:
        case adChar:
        case adWChar:
        case adVarChar:
        case adLongVarChar:
        case adVarWChar:
        case adLongVarWChar:
            return FieldSort::Text;
        case adDate:
        case adFileTime:
        case adDBDate:
        case adDBTime:
        case adDBTimeStamp:
            return FieldSort::Date;
        case adBoolean:
            return FieldSort::Boolean;
        case adBinary:
        case adVarBinary:
        case adLongVarBinary:
            return FieldSort::Binary;
        default:
            return FieldSort::Other;
    }
}

}  // namespace tessel::controls
