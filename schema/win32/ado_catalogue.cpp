#include "schema/win32/ado_catalogue.h"

namespace tessel::schema {

using win32::CallResult;
using win32::UniqueVariant;

namespace {

/// An array of Variants as ADO takes its criteria; positions left open are Empty.
UniqueVariant CriteriaOf(const Restrictions& restrictions) {
    UniqueVariant criteria;
    SAFEARRAY* array = SafeArrayCreateVector(VT_VARIANT, 0, static_cast<ULONG>(restrictions.size()));
    if (!array) throw std::bad_alloc();
    criteria.Address()->vt = VT_ARRAY | VT_VARIANT;
    criteria.Address()->parray = array;
    for (std::size_t i = 0; i < restrictions.size(); ++i) {
        if (restrictions[i].empty()) continue;
        UniqueVariant text(restrictions[i]);
        LONG index = static_cast<LONG>(i);
        if (FAILED(SafeArrayPutElement(array, &index, text.Address()))) throw std::bad_alloc();
    }
    return criteria;
}

std::wstring WithName(std::wstring statement, std::wstring_view name) {
    std::wstring literal;
    for (const wchar_t ch : name) {
        if (ch == L'\'') literal += L'\'';
        literal += ch;
    }
    for (std::size_t at = statement.find(L"{0}"); at != std::wstring::npos;
         at = statement.find(L"{0}", at + literal.size()))
        statement.replace(at, 3, literal);
    return statement;
}

}  // namespace

bool AdoCatalogue::ReadAll(const CallResult& opened, const RowReader& reader, bool needs_row) {
    if (!opened) {
        last_error_ = opened.Message();
        return false;
    }
    AdoRows rows(opened, row_limit_);
    if (!rows.IsOpen()) return false;
    while (rows.Next()) reader(rows);
    return rows.RowsRead() > 0 || (!needs_row && !rows.Failed());
}

bool AdoCatalogue::ReadRowset(Rowset rowset, const Restrictions& restrictions, const RowReader& reader) {
    return ReadAll(OpenRowset(rowset, restrictions), reader, false);
}

CallResult AdoCatalogue::OpenRowset(Rowset rowset, const Restrictions& restrictions) {
    const long number = static_cast<long>(rowset);
    if (restrictions.empty()) return connection_.Get(L"OpenSchema", number);
    return connection_.Get(L"OpenSchema", number, CriteriaOf(restrictions));
}

CallResult AdoCatalogue::Execute(const std::wstring& sql) {
    return connection_.Get(L"Execute", sql);
}

bool AdoCatalogue::ReadQuery(std::initializer_list<const wchar_t*> statements, std::wstring_view name,
                             const RowReader& reader) {
    for (const wchar_t* statement : statements)
        if (ReadAll(Execute(WithName(statement, name)), reader, true)) return true;
    return false;
}

bool AdoCatalogue::ReadTexts(const Opener& open, TextColumns columns, bool needs_row, TextRows* target) {
    *target = TextRows(columns.size());
    CallResult opened = open();
    const win32::Dispatch recordset = opened.Object();
    const BlockReading reading = ReadInBlocks(recordset, columns, row_limit_, target);
    if (reading == BlockReading::Complete) {
        static_cast<void>(recordset.Call(L"Close"));
        return !needs_row || target->RowCount() > 0;
    }
    if (reading == BlockReading::Broken) {
        static_cast<void>(recordset.Call(L"Close"));
        opened = open();
    }
    TextRows single(columns.size());
    const bool read = ReadAll(
        opened,
        [&](const AdoRows& row) {
            std::vector<std::wstring> cells;
            for (const wchar_t* column : columns) cells.push_back(row.Text(column).value_or(L""));
            single.AddRow(std::move(cells));
        },
        needs_row);
    // The connection may have died half way: what was read before it did stays.
    if (single.RowCount() >= target->RowCount()) *target = std::move(single);
    return read || target->RowCount() > 0;
}

bool AdoCatalogue::ReadRowset(Rowset rowset, const Restrictions& restrictions, TextColumns columns,
                              TextRows* target) {
    return ReadTexts([&] { return OpenRowset(rowset, restrictions); }, columns, false, target);
}

bool AdoCatalogue::ReadQuery(std::initializer_list<const wchar_t*> statements, TextColumns columns,
                             TextRows* target) {
    for (const wchar_t* statement : statements)
        if (ReadTexts([&] { return Execute(statement); }, columns, true, target)) return true;
    return false;
}

}  // namespace tessel::schema
