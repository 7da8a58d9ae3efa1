#include "ui/win32/preview_database.h"

#include "common/win32/dispatch.h"
#include "ui/win32/recordset_rows.h"

namespace tessel::ui {

using win32::Dispatch;

Result<std::unique_ptr<PreviewRows>> ConnectionDatabase::OpenRecordset(std::wstring_view statement) {
    if (!connection_) return std::unique_ptr<PreviewRows>();
    return RecordsetRows::Open(connection_.Get(), statement);
}

std::vector<ProviderError> ConnectionDatabase::ProviderErrors() {
    std::vector<ProviderError> errors;
    const Dispatch collection = Dispatch(connection_).Get(L"errors").Object();
    const auto text_of = [](const Dispatch& error, const wchar_t* property) {
        return error.Get(property).Text().value_or(std::wstring());
    };
    const win32::CallResult walked = win32::WalkCollection(collection, [&](const win32::UniqueVariant& item) {
        const Dispatch error(item.Object());
        if (error)
            errors.push_back({text_of(error, L"Source"), text_of(error, L"Description"),
                              text_of(error, L"Number"), text_of(error, L"nativeerror")});
        return errors.size() < kMostReportLines;
    });
    // A collection that fails half way reports what it gave.
    static_cast<void>(walked);
    return errors;
}

}  // namespace tessel::ui
