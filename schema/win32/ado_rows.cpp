#include "schema/win32/ado_rows.h"

#include <algorithm>
#include <functional>
#include <utility>

#include "common/text.h"

namespace tessel::schema {

using win32::CallResult;

namespace {

constexpr WORD kRead = DISPATCH_PROPERTYGET | DISPATCH_METHOD;

bool IsSameObject(const win32::Dispatch& a, const win32::Dispatch& b) {
    const auto identity = [](const win32::Dispatch& object) {
        return win32::ComPtr<IDispatch>(object.Get()).As<IUnknown>();
    };
    return identity(a).Get() == identity(b).Get();
}

}  // namespace

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
    const std::optional<bool> at_end = Call(end_, kRead).Boolean();
    failed_ = !at_end;
    if (failed_ || *at_end) return false;
    failed_ = StandsStill();
    if (failed_) return false;
    ++rows_;
    return true;
}

/// Whether what was read of the last rows was always the same. Called between two rows.
bool AdoRows::StandsStill() {
    repeats_ = seen_ == seen_before_ && seen_ != 0 ? repeats_ + 1 : 0;
    seen_before_ = std::exchange(seen_, 0);
    return repeats_ >= kMostRepeats;
}

AdoRows::Member AdoRows::FieldOf(const wchar_t* column) const {
    return FindMember(fields_.Get(L"Item", column).Object(), L"Value");
}

CallResult AdoRows::Value(const wchar_t* column) const {
    if (kind_ == FieldKind::Stays) return Call(FieldOf(column), kRead);
    const auto known = std::find_if(columns_.begin(), columns_.end(), [&](const Column& candidate) {
        return std::wstring_view(candidate.name) == column;
    });
    if (known == columns_.end()) return FirstValue(column);
    // A copy: the object may bring us here again before it answers.
    const Column copy = *known;
    return kind_ == FieldKind::Moves || rows_ == copy.row ? Call(copy.value, kRead) : ComparedValue(copy);
}

CallResult AdoRows::FirstValue(const wchar_t* column) const {
    const Member value = FieldOf(column);
    CallResult first = Call(value, kRead);
    columns_.push_back({column, value, first.Text(), rows_});
    return first;
}

/// The value of a column that was read in an earlier row. Tells the kind of the provider's field objects as
/// soon as a value differs from that row's.
CallResult AdoRows::ComparedValue(const Column& column) const {
    CallResult kept = Call(column.value, kRead);
    const Member field = FieldOf(column.name);
    CallResult fresh = Call(field, kRead);
    if (!fresh || IsSameObject(column.value.object, field.object)) {
        kind_ = FieldKind::Moves;
        return kept;
    }
    const std::optional<std::wstring> now = fresh.Text();
    if (now != column.first) kind_ = kept.Text() == now ? FieldKind::Moves : FieldKind::Stays;
    return fresh;
}

std::optional<std::wstring> AdoRows::Text(const wchar_t* column) const {
    std::optional<std::wstring> text = Value(column).Text();
    seen_ = seen_ * 31 + std::hash<std::wstring_view>()(text ? *text : std::wstring_view()) + 1;
    return text;
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
