#include "schema/win32/ado_rows.h"

#include "common/text.h"

namespace tessel::schema {

using win32::CallResult;

AdoRows::AdoRows(const CallResult& opened, std::size_t limit) : recordset_(opened.Object()), limit_(limit) {
    fields_ = recordset_.Get(L"Fields").Object();
}

AdoRows::~AdoRows() {
    if (recordset_) static_cast<void>(recordset_.Call(L"Close"));
}

bool AdoRows::Next() {
    if (!IsOpen() || failed_ || rows_ >= limit_) return false;
    if (rows_ > 0 && !recordset_.Call(L"MoveNext")) {
        failed_ = true;
        return false;
    }
    const std::optional<bool> at_end = recordset_.Get(L"EOF").Boolean();
    failed_ = !at_end;
    if (failed_ || *at_end) return false;
    ++rows_;
    return true;
}

CallResult AdoRows::Value(const wchar_t* column) const {
    return fields_.Get(L"Item", column).Object().Get(L"Value");
}

std::optional<std::wstring> AdoRows::Text(const wchar_t* column) const {
    return Value(column).Text();
}

std::optional<long> AdoRows::Number(const wchar_t* column) const {
    return Value(column).Number();
}

std::optional<bool> AdoRows::Boolean(const wchar_t* column) const {
    const CallResult value = Value(column);
    if (const auto text = value.Text()) {
        if (SameName(*text, L"YES")) return true;
        if (SameName(*text, L"NO")) return false;
    }
    return value.Boolean();
}

}  // namespace tessel::schema
