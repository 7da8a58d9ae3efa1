// ADODB.Connection: a session, its settings and its errors.
#pragma once

#include "hostkit/ado/cursor.h"
#include "hostkit/ado/dispatch_object.h"

namespace tessel::ado {

/// Where rows are kept, and how a cursor moves, by ADO's own numbers.
inline constexpr long kServerCursor = 2;
inline constexpr long kClientCursor = 3;
inline constexpr long kForwardOnly = 0;
inline constexpr long kStatic = 3;
inline constexpr long kReadOnly = 1;

/// What an executed statement gave.
struct ExecuteResult {
    std::unique_ptr<Cursor> cursor;  ///< null for a statement without rows
    std::shared_ptr<Session> session;
    long rows_affected = -1;
};

class Connection final : public DispatchObject {
public:
    Connection();
    STDMETHODIMP QueryInterface(REFIID iid, void** object) override;

    /// The connection behind an object that a host passes, or an empty pointer for any other object.
    static ComPtr<Connection> From(IDispatch* object);

    bool IsOpen() const { return session_ && session_->IsOpen(); }
    Status OpenWith(const std::wstring& text, const std::wstring& user, const std::wstring& password);
    /// Executes a statement; all rows are read at once when `reads_all`.
    Status Run(const std::wstring& sql, bool reads_all, ExecuteResult* target);

protected:
    ~Connection() override;
    std::span<const Member> Members() const override;
    const wchar_t* Name() const override { return L"ADODB.Connection"; }
    Status InvokeMember(DISPID id, const Invocation& call, UniqueVariant* result) override;

private:
    Status Open(const Invocation& call);
    Status Close();
    Status Execute(const Invocation& call, UniqueVariant* result);
    Status OpenSchema(const Invocation& call, UniqueVariant* result);
    Status Transaction(DISPID id, UniqueVariant* result);
    Status DefaultDatabase(const Invocation& call, UniqueVariant* result);
    Status ErrorsMember(const Invocation& call, UniqueVariant* result);
    Status Setting(const Invocation& call, long* value, UniqueVariant* result);
    Status TextSetting(const Invocation& call, std::wstring* value, UniqueVariant* result);

    SharedErrors errors_;
    std::shared_ptr<Session> session_;
    std::wstring connection_string_;
    std::wstring provider_ = L"MSDASQL";
    long connection_timeout_ = 15;
    long command_timeout_ = 30;
    long cursor_location_ = kServerCursor;
    long transactions_ = 0;
};

/// The statement that an Open or Execute call means: a table's name becomes a statement over its rows.
std::wstring StatementOf(const std::wstring& text, long options);

}  // namespace tessel::ado
