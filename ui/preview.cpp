#include "ui/preview.h"

#include <algorithm>
#include <utility>

#include "common/text.h"
#include "ui/preview_texts.h"

namespace tessel::ui {

namespace {

/// Shows the hourglass while it lives and then the pointer of before.
class Hourglass {
public:
    explicit Hourglass(PreviewView& view) : view_(view), before_(view.SetPointer(Pointer::Hourglass)) {}
    ~Hourglass() { view_.SetPointer(before_); }
    Hourglass(const Hourglass&) = delete;
    Hourglass& operator=(const Hourglass&) = delete;

private:
    PreviewView& view_;
    Pointer before_;
};

/// A NUL would end the text for the system, and too much of it would push the message box's button off the
/// screen.
std::wstring AsMuchAsFits(std::wstring text) {
    std::size_t length = std::min(text.size(), kLongestReport);
    std::size_t lines = 0;
    for (std::size_t i = 0; i < length; ++i) {
        if (text[i] == L'\0') text[i] = L' ';
        if (text[i] == L'\n' && ++lines == kMostReportLines) length = i + 1;
    }
    if (length == text.size()) return text;
    text.resize(length);
    return text + L'…';
}

void Report(const Error& error, PreviewDatabase& database, PreviewView& view) {
    view.ShowMessage(ErrorReport(error.message, database.ProviderErrors()));
}

Result<std::unique_ptr<PreviewRows>> Open(std::wstring_view statement, PreviewDatabase& database,
                                          PreviewView& view) {
    const Hourglass hourglass(view);
    return database.OpenRecordset(statement);
}

void Preview(std::wstring_view statement, PreviewDatabase& database, PreviewView& view) {
    const auto rows = Open(statement, database, view);
    if (!rows) return Report(rows.Reason(), database, view);
    if (!rows.Value()) return view.ShowMessage(preview_texts::kNoConnection);
    if (const auto failure = view.ShowRows(*rows.Value())) Report(*failure, database, view);
}

}  // namespace

std::optional<std::wstring> OwnerMacros::ParameterLiteral(std::wstring_view name) {
    return owner_ ? owner_->ParameterLiteral(name) : std::nullopt;
}

std::optional<std::wstring> OwnerMacros::ParameterText(std::wstring_view name) {
    return owner_ ? owner_->ParameterText(name) : std::nullopt;
}

std::optional<std::wstring> OwnerMacros::UserName() {
    return owner_ ? owner_->UserName() : std::nullopt;
}
std::optional<std::wstring> OwnerMacros::ComputerName() {
    return owner_ ? owner_->ComputerName() : std::nullopt;
}

void RunStatement(std::wstring_view text, macros::MacroSource& macro_source, PreviewDatabase& database,
                  PreviewView& view) {
    if (IsAllWhiteSpace(text)) return view.ShowMessage(preview_texts::kNothingToRun);
    Preview(macros::ReplaceMacros(text, macro_source), database, view);
}

void ShowTable(std::wstring_view table, PreviewDatabase& database, PreviewView& view) {
    Preview(L"Select * from " + std::wstring(table), database, view);
}

std::wstring ErrorReport(std::wstring_view error_text, const std::vector<ProviderError>& errors) {
    std::wstring report(error_text.substr(0, kLongestReport + 1));
    report += L"\r\n\r\n";
    for (const ProviderError& error : errors) {
        if (report.size() > kLongestReport) break;
        report += error.source + L" -> " + error.description + L" (" + error.number + L") (" +
                  error.native_error + L")\r\n";
    }
    return AsMuchAsFits(std::move(report));
}

}  // namespace tessel::ui
