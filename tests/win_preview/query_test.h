// The designer on a database through ADO, with what a test needs to run its statement and look at the
// preview.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "common/win32/dispatch.h"
#include "tests/win_dlg_dsn/dlg_dsn_fixture.h"
#include "ui/win32/dlg_pvw.h"

namespace tessel::testing {

/// An owner with the parameters `pais`, which has no value, and `minimo`, which is 3.
class MinimumOwner final : public ui::DesignerOwner {
public:
    std::vector<std::wstring> ParameterNames() override { return {L"pais", L"minimo"}; }
    std::optional<std::wstring> ParameterLiteral(std::wstring_view name) override {
        if (name == L"minimo") return L"3";
        return std::nullopt;
    }
};

/// Opens an ADO connection with the objects of this machine. An empty one when it cannot be opened.
win32::Dispatch OpenConnection(const std::wstring& connection_string);
/// The connection string of the sample database that the build made.
std::wstring SampleDatabase();
/// The lines that the message must hold for the errors that the connection has now, read one by one here.
std::wstring ErrorLines(const win32::Dispatch& connection);

class QueryTest : public ::testing::Test {
protected:
    static void SetUpTestSuite();
    explicit QueryTest(const std::wstring& connection_string);

    /// The open preview window, or nullptr.
    static HWND Preview();
    static std::wstring Status() { return TextOf(Descendant(Preview(), ui::dlgPVW::kIdStatus)); }
    static std::wstring Cell(int row, int column);
    /// The text of a column's header.
    static std::wstring Header(int column);
    void PressRun() { PostMessageW(Descendant(window_.Handle(), ui::kIdRunQuery), BM_CLICK, 0, 0); }
    void UntilPreview();
    void ClosePreview();
    /// Keeps the text of the message box that comes, and closes it.
    void TakeMessage(std::wstring& message);
    /// Opens the designer on the statement, runs the script and cancels.
    void Run(std::wstring_view statement);

    win32::ActivationContext context_;
    schema::Schema schema_;
    win32::Dispatch connection_;
    MinimumOwner owner_;
    Script script_;
    ui::DesignerWindow window_{&owner_};
};

}  // namespace tessel::testing
