// ADODB.Recordset: settings before it is opened, a cursor while it is open.
#pragma once

#include "hostkit/ado/connection.h"

namespace tessel::ado {

class Recordset final : public DispatchObject {
public:
    Recordset() = default;

    /// Makes this the open recordset of an executed statement, or a closed one when there are no rows.
    void Attach(ComPtr<Connection> connection, std::wstring source, long cursor_location,
                std::unique_ptr<Cursor> cursor);

    bool IsOpen() const { return cursor_ && cursor_->IsOpen(); }
    /// The columns of an open recordset; AdoError::ObjectClosed otherwise.
    Status GetColumns(const ColumnList** columns) const;
    /// A copy of a cell of the current row.
    Status CellValue(std::size_t column, UniqueVariant* result) const;

protected:
    std::span<const Member> Members() const override;
    const wchar_t* Name() const override { return L"ADODB.Recordset"; }
    Status InvokeMember(DISPID id, const Invocation& call, UniqueVariant* result) override;

private:
    Status Open(const Invocation& call);
    Status Close();
    Status ActiveConnection(const Invocation& call, UniqueVariant* result);
    Status UseConnection(const VARIANT& value);
    Status Source(const Invocation& call, UniqueVariant* result);
    Status FieldsMember(const Invocation& call, UniqueVariant* result);
    Status Navigate(DISPID id, const Invocation& call, UniqueVariant* result);
    Status AbsolutePosition(const Invocation& call, UniqueVariant* result);
    Status GetRows(const Invocation& call, UniqueVariant* result);
    Status GetString(const Invocation& call, UniqueVariant* result);
    Status SelectColumns(const VARIANT& value, std::vector<std::size_t>* selected) const;
    Status Setting(const Invocation& call, long* value, UniqueVariant* result);

    ComPtr<Connection> connection_;
    std::wstring source_;
    long cursor_location_ = kServerCursor;
    long cursor_type_ = kForwardOnly;
    long lock_type_ = kReadOnly;
    std::unique_ptr<Cursor> cursor_;
};

}  // namespace tessel::ado
