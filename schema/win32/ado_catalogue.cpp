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
    const long number = static_cast<long>(rowset);
    if (restrictions.empty()) return ReadAll(connection_.Get(L"OpenSchema", number), reader, false);
    return ReadAll(connection_.Get(L"OpenSchema", number, CriteriaOf(restrictions)), reader, false);
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

}  // namespace tessel::schema
