#include "hostkit/ado/odbc.h"

#include <algorithm>

namespace tessel::ado {

namespace {

/// A driver that goes on reporting records without end is stopped here.
constexpr SQLSMALLINT kMostRecords = 100;

ErrorList ReadRecords(SQLSMALLINT kind, SQLHANDLE handle) {
    ErrorList records;
    for (SQLSMALLINT number = 1; number <= kMostRecords; ++number) {
        SQLWCHAR state[6] = {};
        SQLINTEGER native = 0;
        SQLSMALLINT length = 0;
        std::wstring text(SQL_MAX_MESSAGE_LENGTH, L'\0');
        SQLRETURN result = SQLGetDiagRecW(kind, handle, number, state, &native, text.data(),
                                          static_cast<SQLSMALLINT>(text.size()), &length);
        if (result == SQL_SUCCESS_WITH_INFO && length >= static_cast<SQLSMALLINT>(text.size())) {
            text.assign(static_cast<std::size_t>(length) + 1, L'\0');
            result = SQLGetDiagRecW(kind, handle, number, state, &native, text.data(),
                                    static_cast<SQLSMALLINT>(text.size()), &length);
        }
        if (!SQL_SUCCEEDED(result)) break;
        text.resize(wcslen(text.c_str()));
        records.push_back({std::move(text), state, native, E_FAIL});
    }
    return records;
}

SQLPOINTER Integer(long value) {
    return reinterpret_cast<SQLPOINTER>(static_cast<LONG_PTR>(value));
}

}  // namespace

Status Session::Failure(SQLSMALLINT kind, SQLHANDLE handle) const {
    *errors_ = ReadRecords(kind, handle);
    if (errors_->empty())
        errors_->push_back({L"Error no especificado del controlador ODBC.", L"HY000", 0, E_FAIL});
    return Status(E_FAIL, errors_->front().description, kProviderSource);
}

Status Session::Open(const std::wstring& odbc_string, long login_seconds, const SharedErrors& errors,
                     std::shared_ptr<Session>* target) {
    const std::shared_ptr<Session> session(new Session(errors));
    Status connected = session->Connect(odbc_string, login_seconds);
    if (connected) *target = session;
    return connected;
}

Status Session::Connect(const std::wstring& odbc_string, long login_seconds) {
    if (!SQL_SUCCEEDED(SQLAllocHandle(SQL_HANDLE_ENV, SQL_NULL_HANDLE, &environment_)))
        return Status(E_FAIL, L"No se puede iniciar ODBC.", kProviderSource);
    SQLSetEnvAttr(environment_, SQL_ATTR_ODBC_VERSION, Integer(SQL_OV_ODBC3), 0);
    SQLHDBC connection = SQL_NULL_HDBC;
    if (!SQL_SUCCEEDED(SQLAllocHandle(SQL_HANDLE_DBC, environment_, &connection)))
        return Failure(SQL_HANDLE_ENV, environment_);
    if (login_seconds > 0) SQLSetConnectAttrW(connection, SQL_ATTR_LOGIN_TIMEOUT, Integer(login_seconds), 0);
    SQLWCHAR completed[1024] = {};
    SQLSMALLINT length = 0;
    const SQLRETURN result = SQLDriverConnectW(connection, nullptr, OdbcText(odbc_string), SQL_NTS, completed,
                                               1024, &length, SQL_DRIVER_NOPROMPT);
    if (!SQL_SUCCEEDED(result)) {
        Status failure = Failure(SQL_HANDLE_DBC, connection);
        SQLFreeHandle(SQL_HANDLE_DBC, connection);
        return failure;
    }
    connection_ = connection;
    return {};
}

Session::~Session() {
    Close();
    if (environment_ != SQL_NULL_HENV) SQLFreeHandle(SQL_HANDLE_ENV, environment_);
}

void Session::Close() {
    while (!statements_.empty()) statements_.back()->Close();
    if (!IsOpen()) return;
    // A connection with an unfinished transaction refuses to disconnect.
    SQLEndTran(SQL_HANDLE_DBC, connection_, SQL_ROLLBACK);
    SQLDisconnect(connection_);
    SQLFreeHandle(SQL_HANDLE_DBC, connection_);
    connection_ = SQL_NULL_HDBC;
}

std::wstring Session::CurrentCatalogue() const {
    SQLWCHAR text[512] = {};
    SQLINTEGER bytes = 0;
    if (!IsOpen()) return {};
    const SQLRETURN result =
        SQLGetConnectAttrW(connection_, SQL_ATTR_CURRENT_CATALOG, text, sizeof text, &bytes);
    return SQL_SUCCEEDED(result) ? text : L"";
}

std::wstring Session::DatabaseName() const {
    SQLWCHAR text[512] = {};
    SQLSMALLINT bytes = 0;
    if (!IsOpen()) return {};
    return SQL_SUCCEEDED(SQLGetInfoW(connection_, SQL_DATABASE_NAME, text, sizeof text, &bytes)) ? text : L"";
}

Status Session::UseCatalogue(const std::wstring& name) {
    if (!IsOpen()) return AdoError::ObjectClosed;
    const SQLRETURN result =
        SQLSetConnectAttrW(connection_, SQL_ATTR_CURRENT_CATALOG, OdbcText(name), SQL_NTS);
    return SQL_SUCCEEDED(result) ? Status() : Failure(SQL_HANDLE_DBC, connection_);
}

Status Session::BeginTransaction() {
    if (!IsOpen()) return AdoError::ObjectClosed;
    const SQLRETURN result =
        SQLSetConnectAttrW(connection_, SQL_ATTR_AUTOCOMMIT, Integer(SQL_AUTOCOMMIT_OFF), SQL_IS_UINTEGER);
    return SQL_SUCCEEDED(result) ? Status() : Failure(SQL_HANDLE_DBC, connection_);
}

Status Session::EndTransaction(bool commit) {
    if (!IsOpen()) return AdoError::ObjectClosed;
    const SQLRETURN result = SQLEndTran(SQL_HANDLE_DBC, connection_, commit ? SQL_COMMIT : SQL_ROLLBACK);
    if (!SQL_SUCCEEDED(result)) return Failure(SQL_HANDLE_DBC, connection_);
    SQLSetConnectAttrW(connection_, SQL_ATTR_AUTOCOMMIT, Integer(SQL_AUTOCOMMIT_ON), SQL_IS_UINTEGER);
    return {};
}

Status Session::NewStatement(std::unique_ptr<Statement>* target) {
    if (!IsOpen()) return AdoError::NoConnection;
    SQLHSTMT handle = SQL_NULL_HSTMT;
    if (!SQL_SUCCEEDED(SQLAllocHandle(SQL_HANDLE_STMT, connection_, &handle)))
        return Failure(SQL_HANDLE_DBC, connection_);
    target->reset(new Statement(shared_from_this(), handle));
    return {};
}

Statement::Statement(std::shared_ptr<Session> session, SQLHSTMT handle)
    : session_(std::move(session)), handle_(handle) {
    session_->statements_.push_back(this);
}

Statement::~Statement() {
    Close();
}

void Statement::Close() {
    if (!IsOpen()) return;
    std::erase(session_->statements_, this);
    SQLFreeHandle(SQL_HANDLE_STMT, handle_);
    handle_ = SQL_NULL_HSTMT;
}

void Statement::SetTimeout(long seconds) {
    // Drivers without a timeout refuse the attribute, which changes nothing for the caller.
    if (IsOpen() && seconds > 0)
        SQLSetStmtAttrW(handle_, SQL_ATTR_QUERY_TIMEOUT, Integer(seconds), SQL_IS_UINTEGER);
}

Status Statement::Check(SQLRETURN result) const {
    if (SQL_SUCCEEDED(result) || result == SQL_NO_DATA) return {};
    return session_->Failure(SQL_HANDLE_STMT, handle_);
}

Status Statement::Execute(const std::wstring& sql) {
    if (!IsOpen()) return AdoError::ObjectClosed;
    return Check(SQLExecDirectW(handle_, OdbcText(sql), SQL_NTS));
}

Status Statement::ColumnCount(int* count) {
    SQLSMALLINT columns = 0;
    Status counted = Check(SQLNumResultCols(handle_, &columns));
    *count = columns;
    return counted;
}

long Statement::RowsAffected() const {
    SQLLEN rows = -1;
    return SQL_SUCCEEDED(SQLRowCount(handle_, &rows)) ? static_cast<long>(rows) : -1;
}

bool Statement::MixesBoundColumns() const {
    SQLUINTEGER extensions = 0;
    constexpr SQLUINTEGER kWanted = SQL_GD_ANY_COLUMN | SQL_GD_ANY_ORDER | SQL_GD_BOUND;
    const SQLRETURN asked = IsOpen() ? SQLGetInfoW(session_->connection_, SQL_GETDATA_EXTENSIONS, &extensions,
                                                   sizeof extensions, nullptr)
                                     : SQL_ERROR;
    return SQL_SUCCEEDED(asked) && (extensions & kWanted) == kWanted;
}

Status Statement::Fetch(bool* fetched) {
    *fetched = false;
    if (!IsOpen()) return AdoError::ObjectClosed;
    const SQLRETURN result = SQLFetch(handle_);
    *fetched = SQL_SUCCEEDED(result);
    return Check(result);
}

}  // namespace tessel::ado
