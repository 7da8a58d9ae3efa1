// How a member of the ADO objects failed: the HRESULT, the source and the Spanish text that the host sees as
// an automation error. Provider errors also stand, record by record, in the connection's Errors collection.
#pragma once

#include <windows.h>

#include <memory>
#include <string>
#include <vector>

namespace tessel::ado {

/// ADO's own error numbers, which hosts compare with.
enum class AdoError : int {
    BadArgument = 3001,
    NoCurrentRecord = 3021,
    NotAllowedHere = 3219,
    NotSupported = 3251,
    ItemNotFound = 3265,
    ObjectClosed = 3704,
    ObjectOpen = 3705,
    NoConnection = 3709,
};

class [[nodiscard]] Status {
public:
    Status() = default;
    explicit Status(HRESULT code, std::wstring message = {}, std::wstring source = {})
        : code_(code), message_(std::move(message)), source_(std::move(source)) {}
    /// One of ADO's own errors with its text.
    Status(AdoError error);

    explicit operator bool() const { return SUCCEEDED(code_); }
    HRESULT Code() const { return code_; }
    const std::wstring& Message() const { return message_; }
    /// Empty: the object's own name.
    const std::wstring& Source() const { return source_; }

private:
    HRESULT code_ = S_OK;
    std::wstring message_;
    std::wstring source_;
};

/// One diagnostic record of the driver.
struct ErrorRecord {
    std::wstring description;
    std::wstring sql_state;
    long native_error = 0;
    HRESULT number = E_FAIL;
};

/// The records of a connection's last failure, shared by the connection and its Errors collections.
using ErrorList = std::vector<ErrorRecord>;
using SharedErrors = std::shared_ptr<ErrorList>;

/// Who reports a driver's errors.
inline constexpr wchar_t kProviderSource[] = L"Tessel ADO para ODBC";

}  // namespace tessel::ado
