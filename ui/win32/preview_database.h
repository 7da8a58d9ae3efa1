// The host's ADO connection as the preview's database: recordsets by name, and the connection's errors.
#pragma once

#include <windows.h>
#include <oaidl.h>

#include <memory>
#include <string_view>
#include <vector>

#include "common/win32/com.h"
#include "ui/preview.h"

namespace tessel::ui {

class ConnectionDatabase final : public PreviewDatabase {
public:
    /// Shares the connection. May be nullptr: then nothing opens.
    explicit ConnectionDatabase(IDispatch* connection) : connection_(connection) {}

    Result<std::unique_ptr<PreviewRows>> OpenRecordset(std::wstring_view statement) override;
    std::vector<ProviderError> ProviderErrors() override;

private:
    win32::ComPtr<IDispatch> connection_;
};

}  // namespace tessel::ui
