#include "hostkit/ado/recordset.h"

#include "common/text.h"
#include "hostkit/ado/fields.h"

namespace tessel::ado {

namespace {

enum : DISPID {
    kFields = DISPID_VALUE,
    kOpen = 1,
    kClose,
    kState,
    kCursorLocation,
    kCursorType,
    kLockType,
    kActiveConnection,
    kSource,
    kEof,
    kBof,
    kMoveFirst,
    kMoveNext,
    kMovePrevious,
    kMoveLast,
    kMove,
    kAbsolutePosition,
    kRecordCount,
    kGetRows,
    kGetString,
};

constexpr Member kMembers[] = {
    {L"Fields", kFields},
    {L"Open", kOpen},
    {L"Close", kClose},
    {L"State", kState},
    {L"CursorLocation", kCursorLocation},
    {L"CursorType", kCursorType},
    {L"LockType", kLockType},
    {L"ActiveConnection", kActiveConnection},
    {L"Source", kSource},
    {L"EOF", kEof},
    {L"BOF", kBof},
    {L"MoveFirst", kMoveFirst},
    {L"MoveNext", kMoveNext},
    {L"MovePrevious", kMovePrevious},
    {L"MoveLast", kMoveLast},
    {L"Move", kMove},
    {L"AbsolutePosition", kAbsolutePosition},
    {L"RecordCount", kRecordCount},
    {L"GetRows", kGetRows},
    {L"GetString", kGetString},
};

/// The only format of GetString.
constexpr long kClipString = 2;

constexpr long kFromFirst = 1;
constexpr long kFromLast = 2;

/// Moves to the place that a Start argument names: the current row unless it is one of ADO's two bookmarks.
Status GoToStart(Cursor& cursor, const Invocation& call, std::size_t index) {
    long start = 0;
    if (Status read = call.Number(index, &start); !read) return read;
    if (start == kFromFirst) return cursor.First();
    if (start == kFromLast) return cursor.Last();
    return start == 0 ? Status() : AdoError::BadArgument;
}

}  // namespace

std::span<const Member> Recordset::Members() const {
    return kMembers;
}

void Recordset::Attach(ComPtr<Connection> connection, std::wstring source, long cursor_location,
                       std::unique_ptr<Cursor> cursor) {
    connection_ = std::move(connection);
    source_ = std::move(source);
    cursor_location_ = cursor_location;
    if (cursor_location == kClientCursor) cursor_type_ = kStatic;
    cursor_ = std::move(cursor);
}

Status Recordset::GetColumns(const ColumnList** columns) const {
    if (!IsOpen()) return AdoError::ObjectClosed;
    *columns = &cursor_->GetColumns();
    return {};
}

Status Recordset::CellValue(std::size_t column, UniqueVariant* result) const {
    if (!IsOpen()) return AdoError::ObjectClosed;
    if (cursor_->AtBegin() || cursor_->AtEnd()) return AdoError::NoCurrentRecord;
    *result = cursor_->Cell(column);
    return {};
}

Status Recordset::InvokeMember(DISPID id, const Invocation& call, UniqueVariant* result) {
    switch (id) {
        case kFields:
            return FieldsMember(call, result);
        case kOpen:
            return Open(call);
        case kClose:
            return Close();
        case kState:
            *result = UniqueVariant(IsOpen() ? 1 : 0);
            return {};
        case kCursorLocation:
            return Setting(call, &cursor_location_, result);
        case kCursorType:
            return Setting(call, &cursor_type_, result);
        case kLockType:
            return Setting(call, &lock_type_, result);
        case kActiveConnection:
            return ActiveConnection(call, result);
        case kSource:
            return Source(call, result);
        default:
            break;
    }
    for (const Member& member : kMembers) {
        if (member.id != id) continue;
        return IsOpen() ? Navigate(id, call, result) : Status(AdoError::ObjectClosed);
    }
    return UnknownMember();
}

Status Recordset::Navigate(DISPID id, const Invocation& call, UniqueVariant* result) {
    switch (id) {
        case kEof:
            *result = UniqueVariant(cursor_->AtEnd());
            return {};
        case kBof:
            *result = UniqueVariant(cursor_->AtBegin());
            return {};
        case kMoveFirst:
            return cursor_->First();
        case kMoveLast:
            return cursor_->Last();
        case kMoveNext:
            return cursor_->MoveBy(1);
        case kMovePrevious:
            return cursor_->MoveBy(-1);
        case kMove: {
            long count = 0;
            if (!call.Has(0)) return AdoError::BadArgument;
            if (Status read = call.Number(0, &count); !read) return read;
            if (Status moved = GoToStart(*cursor_, call, 1); !moved) return moved;
            return cursor_->MoveBy(count);
        }
        case kAbsolutePosition:
            return AbsolutePosition(call, result);
        case kRecordCount:
            *result = UniqueVariant(cursor_->Count());
            return {};
        case kGetRows:
            return GetRows(call, result);
        case kGetString:
            return GetString(call, result);
        default:
            return UnknownMember();
    }
}

Status Recordset::Setting(const Invocation& call, long* value, UniqueVariant* result) {
    if (call.IsPut()) return IsOpen() ? Status(AdoError::ObjectOpen) : call.PutNumber(value);
    *result = UniqueVariant(*value);
    return {};
}

Status Recordset::Source(const Invocation& call, UniqueVariant* result) {
    if (call.IsPut()) return IsOpen() ? Status(AdoError::ObjectOpen) : call.PutText(&source_);
    *result = UniqueVariant(std::wstring_view(source_));
    return {};
}

Status Recordset::UseConnection(const VARIANT& value) {
    if (IDispatch* object = ObjectIn(value)) {
        connection_ = Connection::From(object);
        return connection_ ? Status() : AdoError::BadArgument;
    }
    if (value.vt != VT_BSTR) return AdoError::BadArgument;
    const auto connection = win32::MakeObject<Connection>();
    Status opened = connection->OpenWith(std::wstring(win32::TextOf(value.bstrVal)), {}, {});
    if (opened) connection_ = connection;
    return opened;
}

Status Recordset::ActiveConnection(const Invocation& call, UniqueVariant* result) {
    if (!call.IsPut()) {
        *result = VariantOf(connection_);
        return {};
    }
    if (IsOpen()) return AdoError::ObjectOpen;
    const VARIANT& value = call.PutValue();
    const bool is_nothing =
        value.vt == VT_EMPTY || value.vt == VT_NULL || (value.vt == VT_DISPATCH && !value.pdispVal);
    if (!is_nothing) return UseConnection(value);
    connection_.Reset();
    return {};
}

Status Recordset::Open(const Invocation& call) {
    if (IsOpen()) return AdoError::ObjectOpen;
    long options = 0;
    if (Status read = call.Text(0, &source_); !read) return read;
    if (call.Has(1))
        if (Status used = UseConnection(call.At(1)); !used) return used;
    if (Status read = call.Number(2, &cursor_type_); !read) return read;
    if (Status read = call.Number(3, &lock_type_); !read) return read;
    if (Status read = call.Number(4, &options); !read) return read;
    if (!connection_ || !connection_->IsOpen()) return AdoError::NoConnection;
    if (TrimView(source_).empty()) return AdoError::BadArgument;
    if (cursor_location_ == kClientCursor) cursor_type_ = kStatic;
    ExecuteResult executed;
    Status run = connection_->Run(StatementOf(source_, options), cursor_type_ != kForwardOnly, &executed);
    if (run) cursor_ = std::move(executed.cursor);
    return run;
}

Status Recordset::Close() {
    if (!IsOpen()) return AdoError::ObjectClosed;
    cursor_.reset();
    return {};
}

Status Recordset::FieldsMember(const Invocation& call, UniqueVariant* result) {
    const auto fields = win32::MakeObject<FieldCollection>(ComPtr<Recordset>(this));
    if (call.Has(0)) return fields->Item(call.At(0), result);
    *result = VariantOf(fields);
    return {};
}

Status Recordset::AbsolutePosition(const Invocation& call, UniqueVariant* result) {
    if (!call.IsPut()) {
        *result = UniqueVariant(cursor_->Position());
        return {};
    }
    long position = 0;
    Status read = call.PutNumber(&position);
    return read ? cursor_->GoTo(position) : read;
}

Status Recordset::SelectColumns(const VARIANT& value, std::vector<std::size_t>* selected) const {
    const ColumnList& columns = cursor_->GetColumns();
    const auto name_of = [&](std::size_t i) -> const std::wstring& { return columns[i].name; };
    const auto add = [&](const VARIANT& key) {
        return FindItem(key, columns.size(), name_of, &selected->emplace_back());
    };
    if (value.vt == VT_EMPTY || value.vt == VT_ERROR) {
        for (std::size_t i = 0; i < columns.size(); ++i) selected->push_back(i);
        return {};
    }
    if ((value.vt & VT_ARRAY) == 0) return add(value);
    SAFEARRAY* array = (value.vt & VT_BYREF) != 0 ? *value.pparray : value.parray;
    VARTYPE type = VT_EMPTY;
    LONG first = 0, last = -1;
    if (!array || SafeArrayGetDim(array) != 1 || FAILED(SafeArrayGetVartype(array, &type)) ||
        type != VT_VARIANT || FAILED(SafeArrayGetLBound(array, 1, &first)) ||
        FAILED(SafeArrayGetUBound(array, 1, &last)))
        return AdoError::BadArgument;
    for (LONG i = first; i <= last; ++i) {
        UniqueVariant key;
        if (FAILED(SafeArrayGetElement(array, &i, key.Put()))) return AdoError::BadArgument;
        if (Status found = add(key.Get()); !found) return found;
    }
    return {};
}

Status Recordset::GetRows(const Invocation& call, UniqueVariant* result) {
    long wanted = -1;
    if (Status read = call.Number(0, &wanted); !read) return read;
    if (Status moved = GoToStart(*cursor_, call, 1); !moved) return moved;
    std::vector<std::size_t> selected;
    if (Status found = SelectColumns(call.At(2), &selected); !found) return found;
    if (cursor_->AtBegin() || cursor_->AtEnd()) return AdoError::NoCurrentRecord;
    std::vector<UniqueVariant> cells;
    ULONG rows = 0;
    for (; (wanted < 0 || rows < static_cast<ULONG>(wanted)) && !cursor_->AtEnd(); ++rows) {
        for (const std::size_t column : selected) cells.push_back(cursor_->Cell(column));
        if (Status moved = cursor_->MoveBy(1); !moved) return moved;
    }
    // The left index is the field and varies fastest, so the cells already lie in the array's own order.
    SAFEARRAYBOUND bounds[] = {{static_cast<ULONG>(selected.size()), 0}, {rows, 0}};
    SAFEARRAY* array = SafeArrayCreate(VT_VARIANT, 2, bounds);
    if (!array) throw std::bad_alloc();
    auto* target = static_cast<VARIANT*>(array->pvData);
    for (std::size_t i = 0; i < cells.size(); ++i) target[i] = cells[i].Detach();
    result->Address()->parray = array;
    result->Address()->vt = VT_ARRAY | VT_VARIANT;
    return {};
}

Status Recordset::GetString(const Invocation& call, UniqueVariant* result) {
    long format = kClipString, wanted = -1;
    std::wstring column_end = L"\t", row_end = L"\r", null_text;
    if (Status read = call.Number(0, &format); !read) return read;
    if (Status read = call.Number(1, &wanted); !read) return read;
    if (Status read = call.Text(2, &column_end); !read) return read;
    if (Status read = call.Text(3, &row_end); !read) return read;
    if (Status read = call.Text(4, &null_text); !read) return read;
    if (format != kClipString) return AdoError::BadArgument;
    if (cursor_->AtBegin() || cursor_->AtEnd()) return AdoError::NoCurrentRecord;
    std::wstring text;
    for (long rows = 0; (wanted < 0 || rows < wanted) && !cursor_->AtEnd(); ++rows) {
        cursor_->AddRowText(column_end, null_text, &text);
        text += row_end;
        if (Status moved = cursor_->MoveBy(1); !moved) return moved;
    }
    *result = UniqueVariant(std::wstring_view(text));
    return {};
}

}  // namespace tessel::ado
