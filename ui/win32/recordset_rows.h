// The rows of an open recordset, read page by page as the preview's window asks for them. The recordset lives
// on the client side and is driven by name, so that no ADO version is wired in; its position belongs to this
// object. Only a few pages are kept, however many rows there are.
#pragma once

#include <windows.h>

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "common/result.h"
#include "common/win32/com.h"
#include "common/win32/dispatch.h"
#include "ui/preview_rows.h"

namespace tessel::ui {

class RecordsetRows final : public PreviewRows {
public:
    /// Creates an "ADODB.Recordset" with a client-side cursor and opens it on the statement. On failure what
    /// the provider said.
    static Result<std::unique_ptr<PreviewRows>> Open(IDispatch* connection, std::wstring_view statement);
    /// The rows of a recordset that is open already. A closed one is a failure.
    static Result<std::unique_ptr<PreviewRows>> Over(const win32::Dispatch& recordset);

    const std::vector<PreviewColumn>& Columns() const override { return columns_; }
    std::int64_t RowCount() const override { return row_count_; }
    PreviewCell Cell(std::int64_t row, int column) override;
    bool TakeUnread() override { return !reading_ && std::exchange(unread_, false); }
    std::wstring Trouble() const override { return trouble_; }

private:
    /// Consecutive rows as the recordset gave them: an array of fields by rows, or why not.
    struct Page {
        std::int64_t number = -1;
        std::uint64_t last_used = 0;
        std::optional<win32::CallResult> values;
    };

    explicit RecordsetRows(const win32::Dispatch& recordset) : recordset_(recordset) {}
    std::optional<Error> ReadShape();
    const Page& PageAt(std::int64_t number);
    const Page& ReadPage(Page& page, std::int64_t number);
    void ReadRows(Page& page);

    win32::Dispatch recordset_;
    std::vector<PreviewColumn> columns_;
    std::int64_t row_count_ = 0;
    std::vector<Page> pages_;
    std::uint64_t uses_ = 0;
    bool reading_ = false;
    bool unread_ = false;
    std::wstring trouble_;
};

/// A value as the user reads it: dates and numbers in the user's locale, truth values in Spanish, bytes in
/// hexadecimal.
PreviewCell CellOfValue(const VARIANT& value);

}  // namespace tessel::ui
