// The preview's commands without a window and without a database: run the statement being designed, or show
// all rows of a table. They decide which message appears and what is sent to the database; opening the
// recordset and showing its rows are their surroundings' work.
//
// Nothing is kept between two commands: a command's rows live until its window closes.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "common/result.h"
#include "macros/macros.h"
#include "ui/preview_rows.h"
#include "ui/views.h"

namespace tessel::ui {

/// One item of the connection's `errors` collection, each property as text.
struct ProviderError {
    std::wstring source;
    std::wstring description;
    std::wstring number;
    std::wstring native_error;
};

/// The connection, as far as the preview uses it.
class PreviewDatabase {
public:
    virtual ~PreviewDatabase() = default;
    /// Opens a new recordset on the statement. A null pointer when there is no recordset and no error either.
    virtual Result<std::unique_ptr<PreviewRows>> OpenRecordset(std::wstring_view statement) = 0;
    /// The connection's errors in collection order; what cannot be read is left out.
    virtual std::vector<ProviderError> ProviderErrors() = 0;
};

/// The window behind the commands.
class PreviewView {
public:
    virtual ~PreviewView() = default;
    virtual Pointer SetPointer(Pointer pointer) = 0;
    /// A plain message box with an OK button.
    virtual void ShowMessage(std::wstring_view text) = 0;
    /// Shows the rows in dlgPVW until the user closes it. The reason when it could not be shown.
    virtual std::optional<Error> ShowRows(PreviewRows& rows) = 0;
};

/// What a statement's macros stand for, asked of the designer's owner, which may be absent.
class OwnerMacros final : public macros::MacroSource {
public:
    explicit OwnerMacros(DesignerOwner* owner) : owner_(owner) {}
    std::optional<std::wstring> ParameterLiteral(std::wstring_view name) override;
    std::optional<std::wstring> ParameterText(std::wstring_view name) override;
    std::optional<std::wstring> UserName() override;
    std::optional<std::wstring> ComputerName() override;

private:
    DesignerOwner* owner_;
};

/// "Ejecutar consulta (vista previa de resultados)" on the designer's current text. The macros are expanded
/// in a copy; a text of white space only gives a message and reaches no database.
void RunStatement(std::wstring_view text, macros::MacroSource& macro_source, PreviewDatabase& database,
                  PreviewView& view);

/// "Ver los datos de la tabla": every row of the table, its name as it stands, without macros.
void ShowTable(std::wstring_view table, PreviewDatabase& database, PreviewView& view);

/// What a message box can show with its button still on the screen.
inline constexpr std::size_t kLongestReport = 4096;
inline constexpr std::size_t kMostReportLines = 40;

/// The text of an error followed by an empty line and one line for each of the provider's errors. What a
/// message box cannot show is cut off, with "…" in its place.
[[nodiscard]] std::wstring ErrorReport(std::wstring_view error_text,
                                       const std::vector<ProviderError>& errors);

}  // namespace tessel::ui
