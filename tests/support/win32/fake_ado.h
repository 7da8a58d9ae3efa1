// Fake ADO objects over FakeDispatch: recordsets made of texts, and a connection that serves schema rowsets
// and statements, and can die at a given call.
#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "tests/support/win32/fake_dispatch.h"

namespace tessel::tests {

/// A cell; no value stands for Null.
using Cell = std::optional<std::wstring>;

/// How a recordset gives several rows in one text.
enum class FakeBlocks {
    None,  ///< it has no such member
    Right,
    WithoutLastEnd,  ///< nothing behind the last row
    Fail,            ///< the first call fails
    FailLater,       ///< the second call fails
    Number,          ///< a number instead of a text
    Nothing,         ///< a text without anything
    ColumnTooFew,    ///< the last column is missing
    ColumnTooMany,   ///< there is one that no field tells of
    MoreThanAsked,   ///< all rows at once
    StandStill,      ///< the same rows again and again
};

struct FakeTable {
    std::vector<std::wstring> columns;
    std::vector<std::vector<Cell>> rows;
    bool never_ends = false;   ///< EOF is never true, and the first row repeats
    bool fields_stay = false;  ///< a field object keeps saying what its own row holds
    FakeBlocks blocks = FakeBlocks::None;
};

/// Calls that are still allowed before everything fails; shared by all objects of one connection.
struct FakeLine {
    long calls_left = -1;  ///< negative: for ever
    long calls_made = 0;

    bool Take() {
        ++calls_made;
        if (calls_left < 0) return true;
        if (calls_left == 0) return false;
        --calls_left;
        return true;
    }
};

inline FakeAnswer DeadLine() {
    return Raise(E_FAIL, L"Se perdi\u00f3 la conexi\u00f3n");
}

inline win32::UniqueVariant CellValue(const Cell& cell) {
    return cell ? win32::UniqueVariant(*cell) : win32::UniqueVariant::Null();
}

/// A recordset's rows and where it stands in them.
struct FakeCursor {
    FakeTable table;
    std::size_t row = 0;
    int blocks_given = 0;
};

/// What GetString answers; the arguments are the format, the number of rows and the texts that end columns
/// and rows.
inline FakeAnswer NextBlock(FakeCursor& cursor, const FakeCall& call) {
    const FakeBlocks blocks = cursor.table.blocks;
    if (blocks == FakeBlocks::Fail || (blocks == FakeBlocks::FailLater && cursor.blocks_given > 0))
        return Raise(E_FAIL, L"No se pueden dar las filas");
    if (cursor.row >= cursor.table.rows.size()) return Raise(E_FAIL, L"No hay fila");
    ++cursor.blocks_given;
    if (blocks == FakeBlocks::Number) return Value(7);
    const std::size_t asked = blocks == FakeBlocks::MoreThanAsked ? cursor.table.rows.size()
                                                                  : static_cast<std::size_t>(call.Number(1));
    const std::size_t before = cursor.row;
    std::wstring text;
    for (std::size_t given = 0; given < asked && cursor.row < cursor.table.rows.size(); ++given) {
        std::vector<Cell> row = cursor.table.rows[cursor.row];
        if (blocks == FakeBlocks::ColumnTooFew) row.pop_back();
        if (blocks == FakeBlocks::ColumnTooMany) row.emplace_back(L"de más");
        for (std::size_t i = 0; i < row.size(); ++i)
            text += (i > 0 ? call.Text(2) : L"") + row[i].value_or(call.Text(4));
        text += call.Text(3);
        if (!cursor.table.never_ends) ++cursor.row;
    }
    if (blocks == FakeBlocks::StandStill) cursor.row = before;
    if (blocks == FakeBlocks::Nothing) text.clear();
    if (blocks == FakeBlocks::WithoutLastEnd) text.resize(text.size() - call.Text(3).size());
    return Value(win32::UniqueVariant(std::wstring_view(text)));
}

/// A recordset at its first row.
inline FakePtr MakeRecordset(FakeTable table, std::shared_ptr<FakeLine> line) {
    auto state = std::make_shared<FakeCursor>(FakeCursor{std::move(table)});
    FakePtr recordset = MakeFake();
    if (state->table.blocks != FakeBlocks::None)
        recordset->On(L"GetString", [=](const FakeCall& call) {
            return line->Take() ? NextBlock(*state, call) : DeadLine();
        });
    recordset->On(L"EOF", [=](const FakeCall&) {
        if (!line->Take()) return DeadLine();
        return Value(!state->table.never_ends && state->row >= state->table.rows.size());
    });
    recordset->On(L"MoveNext", [=](const FakeCall&) {
        if (!line->Take()) return DeadLine();
        if (!state->table.never_ends) ++state->row;
        return Value(win32::UniqueVariant());
    });
    recordset->On(L"Close", [=](const FakeCall&) { return Value(win32::UniqueVariant()); });
    recordset->On(L"Fields", [=](const FakeCall&) {
        FakePtr fields = MakeFake();
        fields->Set(L"Count", static_cast<LONG>(state->table.columns.size()));
        fields->On(L"Item", [=](const FakeCall& call) {
            const std::vector<std::wstring>& columns = state->table.columns;
            std::size_t index = columns.size();
            if (call.arguments[0]->vt == VT_BSTR) {
                for (std::size_t i = 0; i < columns.size(); ++i)
                    if (SameName(columns[i], call.Text(0))) index = i;
            } else {
                index = static_cast<std::size_t>(call.Number(0));
            }
            if (index >= columns.size())
                return Raise(static_cast<HRESULT>(0x800A0CC1), L"No se encontr\u00f3 el elemento");
            FakePtr field = MakeFake();
            field->Set(L"Name", columns[index].c_str());
            field->Set(L"Type", 202);
            field->Set(L"DefinedSize", 30);
            field->On(L"Value", [=, own_row = state->row](const FakeCall&) {
                const std::size_t row = state->table.fields_stay ? own_row : state->row;
                if (!line->Take() || row >= state->table.rows.size()) return DeadLine();
                return Value(CellValue(state->table.rows[row][index]));
            });
            return Value(ObjectValue(field));
        });
        return Value(ObjectValue(fields));
    });
    return recordset;
}

/// What a fake connection knows.
struct FakeDatabase {
    std::map<long, FakeTable> rowsets;  ///< by OpenSchema's number; missing ones are not implemented
    bool accepts_criteria = true;       ///< else OpenSchema with criteria fails
    std::map<std::wstring, FakeTable> statements;  ///< by a piece of the statement's text
    std::wstring default_database;
    long state = 1;
};

/// A connection, and the line on which it can be made to die.
struct FakeConnection {
    FakePtr object;
    std::shared_ptr<FakeLine> line;
    std::shared_ptr<std::vector<std::wstring>>
        log;  ///< "20", "4 Clientes", "SELECT …" in the order of the calls
};

/// The rows of a rowset whose table column holds the criterion.
inline FakeTable Restricted(const FakeTable& table, const std::wstring& column, const std::wstring& name) {
    FakeTable result{table.columns, {}};
    result.blocks = table.blocks;
    for (const auto& row : table.rows)
        for (std::size_t i = 0; i < table.columns.size(); ++i)
            if (table.columns[i] == column && row[i] == name) result.rows.push_back(row);
    return result;
}

/// The text at a position of a criteria array.
inline std::wstring Criterion(const VARIANT& criteria, LONG index) {
    win32::UniqueVariant element;
    if (criteria.vt != (VT_ARRAY | VT_VARIANT)) return {};
    if (FAILED(SafeArrayGetElement(criteria.parray, &index, element.Put()))) return {};
    return element.Type() == VT_BSTR ? std::wstring(win32::TextOf(element.Get().bstrVal)) : std::wstring();
}

inline FakeConnection MakeConnection(FakeDatabase database) {
    auto known = std::make_shared<FakeDatabase>(std::move(database));
    FakeConnection connection{MakeFake(), std::make_shared<FakeLine>(),
                              std::make_shared<std::vector<std::wstring>>()};
    const auto line = connection.line;
    const auto log = connection.log;
    connection.object->On(L"State", [=](const FakeCall&) { return Value(static_cast<LONG>(known->state)); });
    connection.object->On(L"DefaultDatabase", [=](const FakeCall&) {
        return line->Take() ? Value(known->default_database.c_str()) : DeadLine();
    });
    connection.object->On(L"OpenSchema", [=](const FakeCall& call) {
        if (!line->Take()) return DeadLine();
        const long number = call.Number(0);
        const bool restricted = call.arguments.size() > 1;
        const LONG place = number == 27 ? 5 : 2;
        const std::wstring name = restricted ? Criterion(*call.arguments[1], place) : L"";
        log->push_back(std::to_wstring(number) + (restricted ? L" " + name : L""));
        const auto found = known->rowsets.find(number);
        if (found == known->rowsets.end() || (restricted && !known->accepts_criteria))
            return Raise(static_cast<HRESULT>(0x800A0CB3), L"El proveedor no lo admite");
        if (!restricted) return Value(ObjectValue(MakeRecordset(found->second, line)));
        const wchar_t* column = number == 27 ? L"FK_TABLE_NAME" : L"TABLE_NAME";
        return Value(ObjectValue(MakeRecordset(Restricted(found->second, column, name), line)));
    });
    connection.object->On(L"Execute", [=](const FakeCall& call) {
        if (!line->Take()) return DeadLine();
        log->push_back(call.Text(0));
        for (const auto& [piece, table] : known->statements)
            if (call.Text(0).find(piece) != std::wstring::npos)
                return Value(ObjectValue(MakeRecordset(table, line)));
        return Raise(E_FAIL, L"No existe la tabla");
    });
    return connection;
}

}  // namespace tessel::tests
