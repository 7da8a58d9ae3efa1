// An open recordset of any number of rows that exist only when they are asked for, and that counts what is
// asked.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "tests/support/win32/fake_dispatch.h"

namespace tessel::tests {

struct GeneratedColumn {
    std::wstring name;
    LONG type = 202;  ///< adVarWChar
    std::function<win32::UniqueVariant(LONG row)> value;
};

struct RecordsetLog {
    LONG rows_given = 0;
    LONG largest_request = 0;
    bool broken = false;  ///< every reading fails from now on
    bool alive = true;    ///< until the last reference to the recordset goes
};

/// Columns by rows, as ADO's GetRows answers.
inline win32::UniqueVariant RowsAsArray(const std::vector<GeneratedColumn>& columns, LONG first, LONG count) {
    SAFEARRAYBOUND bounds[2] = {{static_cast<ULONG>(columns.size()), 0}, {static_cast<ULONG>(count), 0}};
    win32::UniqueVariant result;
    SAFEARRAY* array = SafeArrayCreate(VT_VARIANT, 2, bounds);
    for (LONG row = 0; row < count; ++row)
        for (LONG column = 0; column < static_cast<LONG>(columns.size()); ++column) {
            LONG place[2] = {column, row};
            win32::UniqueVariant value = columns[static_cast<std::size_t>(column)].value(first + row);
            SafeArrayPutElement(array, place, value.Address());
        }
    result.Address()->vt = VT_ARRAY | VT_VARIANT;
    result.Address()->parray = array;
    return result;
}

inline FakePtr MakeGeneratedRecordset(std::vector<GeneratedColumn> columns, LONG row_count,
                                      std::shared_ptr<RecordsetLog> log = std::make_shared<RecordsetLog>()) {
    std::vector<FakePtr> fields;
    for (const GeneratedColumn& column : columns) {
        fields.push_back(MakeFake());
        fields.back()->Set(L"Name", column.name.c_str());
        fields.back()->Set(L"Type", column.type);
    }
    const auto shared = std::make_shared<std::vector<GeneratedColumn>>(std::move(columns));
    const auto position = std::make_shared<LONG>(1);
    const std::shared_ptr<void> farewell(nullptr, [log](void*) { log->alive = false; });
    FakePtr recordset = MakeFake();
    recordset->Set(L"State", 1);
    recordset->On(L"Fields", [collection = MakeCollection(fields, 0), farewell](const FakeCall&) {
        return Value(ObjectValue(collection));
    });
    recordset->Set(L"RecordCount", row_count);
    recordset->On(L"AbsolutePosition", [=](const FakeCall& call) {
        if (log->broken) return Raise(E_FAIL, L"Se perdi\u00f3 la conexi\u00f3n");
        *position = call.Number(0);
        return Value(win32::UniqueVariant());
    });
    recordset->On(L"GetRows", [=](const FakeCall& call) {
        if (log->broken) return Raise(E_FAIL, L"Se perdi\u00f3 la conexi\u00f3n");
        const LONG count = (std::min)(call.Number(0), row_count - *position + 1);
        if (count <= 0) return Raise(static_cast<HRESULT>(0x800A0BCD), L"BOF o EOF es True");
        log->largest_request = (std::max)(log->largest_request, count);
        log->rows_given += count;
        const LONG first = *position;
        *position += count;
        return Value(RowsAsArray(*shared, first, count));
    });
    return recordset;
}

/// "Fila N", and N as a number; every seventh row is Null in the third column.
inline std::vector<GeneratedColumn> NumberedColumns() {
    return {{L"Nombre", 202, [](LONG row) { return win32::UniqueVariant(L"Fila " + std::to_wstring(row)); }},
            {L"Importe", 3, [](LONG row) { return win32::UniqueVariant(row); }},
            {L"Nota", 202, [](LONG row) {
                 if (row % 7 == 0) return win32::UniqueVariant::Null();
                 return win32::UniqueVariant(L"nota larga de la fila " + std::to_wstring(row) +
                                             L", que no cabe en una columna de ciento cincuenta");
             }}};
}

}  // namespace tessel::tests
