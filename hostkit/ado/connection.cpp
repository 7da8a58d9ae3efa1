#include "hostkit/ado/connection.h"

#include "common/text.h"
#include "hostkit/ado/connection_string.h"
#include "hostkit/ado/errors.h"
#include "hostkit/ado/recordset.h"
#include "hostkit/ado/schema_rowset.h"
#include "hostkit/ado/sql_dialect.h"

namespace tessel::ado {

namespace {

/// Answered by our Connection alone, so that a Recordset recognises it.
constexpr IID kConnectionIdentity = {
    0x8ef5f1ba, 0x3a0c, 0x4d0a, {0x9f, 0x27, 0x5b, 0x1c, 0x6e, 0x94, 0xd2, 0x70}};

enum : DISPID {
    kConnectionString = DISPID_VALUE,
    kOpen = 1,
    kClose,
    kState,
    kDefaultDatabase,
    kErrors,
    kExecute,
    kOpenSchema,
    kConnectionTimeout,
    kCommandTimeout,
    kCursorLocation,
    kProvider,
    kVersion,
    kBeginTrans,
    kCommitTrans,
    kRollbackTrans,
};

constexpr Member kMembers[] = {
    {L"ConnectionString", kConnectionString},
    {L"Open", kOpen},
    {L"Close", kClose},
    {L"State", kState},
    {L"DefaultDatabase", kDefaultDatabase},
    {L"Errors", kErrors},
    {L"Execute", kExecute},
    {L"OpenSchema", kOpenSchema},
    {L"ConnectionTimeout", kConnectionTimeout},
    {L"CommandTimeout", kCommandTimeout},
    {L"CursorLocation", kCursorLocation},
    {L"Provider", kProvider},
    {L"Version", kVersion},
    {L"BeginTrans", kBeginTrans},
    {L"CommitTrans", kCommitTrans},
    {L"RollbackTrans", kRollbackTrans},
};

constexpr long kCommandTable = 2;
constexpr long kCommandTableDirect = 512;

/// The criteria array of OpenSchema; Empty, Null and empty places restrict nothing. Arrays by reference count
/// too.
Status ReadCriteria(const VARIANT& value, SchemaCriteria* criteria) {
    SAFEARRAY* array = nullptr;
    if ((value.vt & VT_ARRAY) != 0) array = (value.vt & VT_BYREF) != 0 ? *value.pparray : value.parray;
    if (!array) return value.vt == VT_EMPTY || value.vt == VT_NULL ? Status() : AdoError::BadArgument;
    VARTYPE type = VT_EMPTY;
    LONG first = 0, last = -1;
    if (SafeArrayGetDim(array) != 1 || FAILED(SafeArrayGetVartype(array, &type)) ||
        FAILED(SafeArrayGetLBound(array, 1, &first)) || FAILED(SafeArrayGetUBound(array, 1, &last)))
        return AdoError::BadArgument;
    for (LONG i = first; i <= last; ++i) {
        UniqueVariant element;
        if (type == VT_VARIANT) {
            if (FAILED(SafeArrayGetElement(array, &i, element.Put()))) return AdoError::BadArgument;
        } else if (type == VT_BSTR) {
            BSTR text = nullptr;
            if (FAILED(SafeArrayGetElement(array, &i, &text))) return AdoError::BadArgument;
            element.Address()->bstrVal = text;
            element.Address()->vt = VT_BSTR;
        } else {
            return AdoError::BadArgument;
        }
        std::wstring text;
        if (element.Type() != VT_ERROR && !element.IsNothing())
            if (Status converted = ToText(element.Get(), &text); !converted) return converted;
        criteria->push_back(text.empty() ? std::nullopt : std::optional(text));
    }
    return {};
}

}  // namespace

std::wstring StatementOf(const std::wstring& text, long options) {
    if (options == kCommandTable || options == kCommandTableDirect) return L"SELECT * FROM " + text;
    return StatementForEngine(text);
}

Connection::Connection() : errors_(std::make_shared<ErrorList>()) {}

Connection::~Connection() {
    if (session_) session_->Close();
}

STDMETHODIMP Connection::QueryInterface(REFIID iid, void** object) {
    if (!object || iid != kConnectionIdentity) return DispatchObject::QueryInterface(iid, object);
    *object = this;
    AddRef();
    return S_OK;
}

ComPtr<Connection> Connection::From(IDispatch* object) {
    void* found = nullptr;
    if (!object || FAILED(object->QueryInterface(kConnectionIdentity, &found))) return {};
    return ComPtr<Connection>::Adopt(static_cast<Connection*>(found));
}

std::span<const Member> Connection::Members() const {
    return kMembers;
}

Status Connection::InvokeMember(DISPID id, const Invocation& call, UniqueVariant* result) {
    switch (id) {
        case kConnectionString:
            if (call.IsPut() && IsOpen()) return AdoError::ObjectOpen;
            return TextSetting(call, &connection_string_, result);
        case kOpen:
            return Open(call);
        case kClose:
            return Close();
        case kState:
            *result = UniqueVariant(IsOpen() ? 1 : 0);
            return {};
        case kDefaultDatabase:
            return DefaultDatabase(call, result);
        case kErrors:
            return ErrorsMember(call, result);
        case kExecute:
            return Execute(call, result);
        case kOpenSchema:
            return OpenSchema(call, result);
        case kConnectionTimeout:
            return Setting(call, &connection_timeout_, result);
        case kCommandTimeout:
            return Setting(call, &command_timeout_, result);
        case kCursorLocation:
            return Setting(call, &cursor_location_, result);
        case kProvider:
            return TextSetting(call, &provider_, result);
        case kVersion:
            *result = UniqueVariant(L"2.8");
            return {};
        case kBeginTrans:
        case kCommitTrans:
        case kRollbackTrans:
            return Transaction(id, result);
        default:
            return UnknownMember();
    }
}

Status Connection::Setting(const Invocation& call, long* value, UniqueVariant* result) {
    if (call.IsPut()) return call.PutNumber(value);
    *result = UniqueVariant(*value);
    return {};
}

Status Connection::TextSetting(const Invocation& call, std::wstring* value, UniqueVariant* result) {
    if (call.IsPut()) return call.PutText(value);
    *result = UniqueVariant(std::wstring_view(*value));
    return {};
}

Status Connection::Open(const Invocation& call) {
    std::wstring text = connection_string_, user, password;
    if (Status read = call.Text(0, &text); !read) return read;
    if (Status read = call.Text(1, &user); !read) return read;
    if (Status read = call.Text(2, &password); !read) return read;
    return OpenWith(text, user, password);
}

Status Connection::OpenWith(const std::wstring& text, const std::wstring& user,
                            const std::wstring& password) {
    if (IsOpen()) return AdoError::ObjectOpen;
    connection_string_ = text;
    transactions_ = 0;
    return Session::Open(OdbcConnectionString(text, user, password), connection_timeout_, errors_, &session_);
}

Status Connection::Close() {
    if (!IsOpen()) return AdoError::ObjectClosed;
    session_->Close();
    session_.reset();
    return {};
}

Status Connection::DefaultDatabase(const Invocation& call, UniqueVariant* result) {
    if (!IsOpen()) return AdoError::ObjectClosed;
    if (call.IsPut()) {
        std::wstring name;
        if (Status read = call.PutText(&name); !read) return read;
        return session_->UseCatalogue(name);
    }
    std::wstring name = session_->CurrentCatalogue();
    // An engine whose databases are files names none: the file's own name serves.
    if (name.empty())
        name = FileStem(ConnectionAttribute(OdbcConnectionString(connection_string_, {}, {}), L"DATABASE"));
    if (name.empty()) name = FileStem(session_->DatabaseName());
    *result = UniqueVariant(std::wstring_view(name));
    return {};
}

Status Connection::ErrorsMember(const Invocation& call, UniqueVariant* result) {
    const auto collection = win32::MakeObject<ErrorCollection>(errors_);
    if (call.Has(0)) return collection->Item(call.At(0), result);
    *result = VariantOf(collection);
    return {};
}

Status Connection::Run(const std::wstring& sql, bool reads_all, ExecuteResult* target) {
    if (!IsOpen()) return AdoError::ObjectClosed;
    std::unique_ptr<Statement> statement;
    if (Status made = session_->NewStatement(&statement); !made) return made;
    statement->SetTimeout(command_timeout_);
    if (Status executed = statement->Execute(sql); !executed) return executed;
    int count = 0;
    if (Status counted = statement->ColumnCount(&count); !counted) return counted;
    target->session = session_;
    if (count == 0) {
        target->rows_affected = statement->RowsAffected();
        return {};
    }
    SharedColumns columns;
    if (Status described = DescribeColumns(*statement, count, &columns); !described) return described;
    if (!reads_all) return MakeForwardCursor(std::move(statement), columns, sql, &target->cursor);
    const auto rows = std::make_shared<RowSet>();
    if (Status read = ReadAllRows(*statement, columns, rows.get()); !read) return read;
    target->cursor = MakeStaticCursor(rows, session_);
    return {};
}

Status Connection::Execute(const Invocation& call, UniqueVariant* result) {
    std::wstring text;
    long options = 0;
    if (Status read = call.Text(0, &text); !read) return read;
    if (Status read = call.Number(2, &options); !read) return read;
    if (!IsOpen()) return AdoError::ObjectClosed;
    if (TrimView(text).empty()) return AdoError::BadArgument;
    const std::wstring sql = StatementOf(text, options);
    ExecuteResult executed;
    if (Status run = Run(sql, cursor_location_ == kClientCursor, &executed); !run) return run;
    call.WriteBack(1, executed.rows_affected);
    const auto recordset = win32::MakeObject<Recordset>();
    recordset->Attach(ComPtr<Connection>(this), text, cursor_location_, std::move(executed.cursor));
    *result = VariantOf(recordset);
    return {};
}

Status Connection::OpenSchema(const Invocation& call, UniqueVariant* result) {
    if (!IsOpen()) return AdoError::ObjectClosed;
    long number = 0;
    if (!call.Has(0)) return AdoError::BadArgument;
    if (Status read = call.Number(0, &number); !read) return read;
    SchemaCriteria criteria;
    if (call.Has(1))
        if (Status read = ReadCriteria(call.At(1), &criteria); !read) return read;
    std::shared_ptr<RowSet> rows;
    if (Status read = ReadSchemaRowset(*session_, static_cast<SchemaRowset>(number), criteria, &rows); !read)
        return read;
    const auto recordset = win32::MakeObject<Recordset>();
    recordset->Attach(ComPtr<Connection>(this), {}, kClientCursor, MakeStaticCursor(rows, session_));
    *result = VariantOf(recordset);
    return {};
}

Status Connection::Transaction(DISPID id, UniqueVariant* result) {
    if (!IsOpen()) return AdoError::ObjectClosed;
    if (id == kBeginTrans) {
        if (transactions_ > 0) return AdoError::NotSupported;
        if (Status begun = session_->BeginTransaction(); !begun) return begun;
        *result = UniqueVariant(++transactions_);
        return {};
    }
    if (transactions_ == 0) return AdoError::NotAllowedHere;
    Status ended = session_->EndTransaction(id == kCommitTrans);
    if (ended) transactions_ = 0;
    return ended;
}

}  // namespace tessel::ado
