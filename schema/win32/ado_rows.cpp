#include "schema/win32/ado_rows.h"

#include "common/text.h"

namespace tessel::schema {

using win32::CallResult;

AdoRows::Member AdoRows::FindMember(const win32::Dispatch& object, const wchar_t* name) {
    return {object, object.IdOf(name)};
}

CallResult AdoRows::Call(const Member& member, WORD flags) {
    if (!member.id) return CallResult(DISP_E_UNKNOWNNAME, {}, {});
    return member.object.InvokeId(*member.id, flags, {});
}

AdoRows::AdoRows(const CallResult& opened, std::size_t limit) : recordset_(opened.Object()), limit_(limit) {
    fields_ = recordset_.Get(L"Fields").Object();
    if (!fields_) return;
    move_next_ = FindMember(recordset_, L"MoveNext");
    end_ = FindMember(recordset_, L"EOF");
}

AdoRows::~AdoRows() {
    if (recordset_) static_cast<void>(recordset_.Call(L"Close"));
}

bool AdoRows::Next() {
    if (!IsOpen() || failed_ || rows_ >= limit_) return false;
    if (rows_ > 0 && !Call(move_next_, DISPATCH_METHOD)) {
        failed_ = true;
        return false;
    }
    const std::optional<bool> at_end = Call(end_, DISPATCH_PROPERTYGET | DISPATCH_METHOD).Boolean();
    failed_ = !at_end;
    if (failed_ || *at_end) return false;
    ++rows_;
    return true;
}

CallResult AdoRows::Value(const wchar_t* column) const {
    for (const Column& known : columns_)
        if (std::wstring_view(known.name) == column)
            return Call(known.value, DISPATCH_PROPERTYGET | DISPATCH_METHOD);
    const win32::Dispatch field = fields_.Get(L"Item", column).Object();
    columns_.push_back({column, FindMember(field, L"Value")});
    return Call(columns_.back().value, DISPATCH_PROPERTYGET | DISPATCH_METHOD);
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
