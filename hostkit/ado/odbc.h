// ODBC with owners: a Session is a connected environment, a Statement one statement handle of it. Failures
// are gathered from all diagnostic records into the connection's error list and answered as a Status.
//
// Closing a session first takes away the handles of the statements still open on it; their owners then find
// them closed. Everything happens in one apartment.
#pragma once

#include <windows.h>

#include <sql.h>
#include <sqlext.h>
#include <sqlucode.h>

#include <memory>
#include <string>
#include <vector>

#include "hostkit/ado/status.h"

namespace tessel::ado {

class Statement;

class Session : public std::enable_shared_from_this<Session> {
public:
    /// Connects with a complete ODBC connection string, never asking the user.
    static Status Open(const std::wstring& odbc_string, long login_seconds, const SharedErrors& errors,
                       std::shared_ptr<Session>* target);
    ~Session();
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    bool IsOpen() const { return connection_ != SQL_NULL_HDBC; }
    void Close();

    /// The connection's current catalogue; empty for engines without catalogues.
    std::wstring CurrentCatalogue() const;
    /// What the driver calls its database: a name, or the path of a file. May be empty.
    std::wstring DatabaseName() const;
    Status UseCatalogue(const std::wstring& name);
    Status BeginTransaction();
    Status EndTransaction(bool commit);

    /// A new statement handle; AdoError::NoConnection when the session is closed.
    Status NewStatement(std::unique_ptr<Statement>* target);

private:
    friend class Statement;
    explicit Session(SharedErrors errors) : errors_(std::move(errors)) {}
    Status Failure(SQLSMALLINT kind, SQLHANDLE handle) const;
    Status Connect(const std::wstring& odbc_string, long login_seconds);

    SQLHENV environment_ = SQL_NULL_HENV;
    SQLHDBC connection_ = SQL_NULL_HDBC;
    std::vector<Statement*> statements_;
    SharedErrors errors_;
};

class Statement {
public:
    ~Statement();
    Statement(const Statement&) = delete;
    Statement& operator=(const Statement&) = delete;

    SQLHSTMT Handle() const { return handle_; }
    bool IsOpen() const { return handle_ != SQL_NULL_HSTMT; }
    void Close();

    void SetTimeout(long seconds);
    Status Execute(const std::wstring& sql);
    /// The number of result columns; 0 for a statement without rows.
    Status ColumnCount(int* count);
    /// Rows changed by the statement, or -1.
    long RowsAffected() const;
    /// Whether the driver lets columns be asked for by value in any order, bound ones too.
    bool MixesBoundColumns() const;
    /// Fetches the next row; `fetched` is false after the last one.
    Status Fetch(bool* fetched);
    /// The Status of a call on this handle, with its diagnostics when it failed.
    Status Check(SQLRETURN result) const;

private:
    friend class Session;
    Statement(std::shared_ptr<Session> session, SQLHSTMT handle);

    std::shared_ptr<Session> session_;
    SQLHSTMT handle_ = SQL_NULL_HSTMT;
};

/// A text argument for ODBC's wide functions, which take it as not const.
inline SQLWCHAR* OdbcText(const std::wstring& text) {
    return const_cast<SQLWCHAR*>(text.c_str());
}

}  // namespace tessel::ado
