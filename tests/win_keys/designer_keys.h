// A designer window on which one key is checked: it opens on a statement, is brought where the key means
// something, gets the key, and is looked at.
#pragma once

#include <windows.h>

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "tests/win_dlg_dsn/dlg_dsn_fixture.h"
#include "tests/win_dlg_dsn/recorded_help.h"
#include "tests/win_keys/key_checks.h"

namespace tessel::testing {

inline constexpr wchar_t kOneColumn[] = L"SELECT Clientes.Nombre FROM Clientes";
inline constexpr wchar_t kThreeColumns[] =
    L"SELECT Clientes.IdCliente, Clientes.Nombre, Clientes.Pais FROM Clientes WHERE (Clientes.Pais = 'Perú')";
inline constexpr wchar_t kJoined[] =
    L"SELECT Clientes.Nombre FROM (Clientes INNER JOIN Pedidos ON Clientes.IdCliente = Pedidos.IdCliente)";

class DesignerKeys : public DlgDsnTest {
public:
    using Check = void (*)(DesignerKeys&);
    DesignerKeys(const std::wstring& key, Check check);

    // What a check tells to be done, in this order, while the window is open.

    /// The statement that the window opens on.
    void Open(const wchar_t* statement) { statement_ = statement; }
    /// The key that is checked; and other keys on the way to it.
    void Press();
    void Press(WORD virtual_key, bool shift = false, bool control = false);
    void Type(const wchar_t* text);
    void Do(std::function<void()> action) { script_.Do(std::move(action)); }
    void Until(std::function<bool()> condition, const char* what) {
        script_.Until(std::move(condition), what);
    }
    void FocusOn(std::function<HWND()> window);
    void FocusOn(int id) {
        FocusOn([this, id] { return Control(id); });
    }
    void FocusOnTree() {
        FocusOn([this] { return Tree(); });
    }
    /// The keyboard in a cell of the grid, or on a table of the diagram, -1 being its title.
    void FocusOnCell(model::GridRow row, int column);
    void FocusOnTable(const wchar_t* table);
    /// The SQL tab with its composed text, and the keyboard in the editor.
    void OpenSqlTab();
    /// Nothing is left to be closed: the key itself ends the window, with this answer.
    void EndsWindow(bool accepted) { answer_ = accepted; }

    // What a check looks at.
    using DlgDsnTest::Cell;
    using DlgDsnTest::Control;
    using DlgDsnTest::Diagram;
    using DlgDsnTest::EditorText;
    using DlgDsnTest::Grid;
    ui::DesignerWindow& Window() { return window_; }
    const controls::DesignGridView& GridView() { return window_.GridControl(); }
    const controls::DiagramView& DiagramView() { return window_.DiagramControl(); }
    bool IsAt(model::GridRow row, int column) {
        return Grid().FocusedRow() == row && Grid().FocusedColumn() == column;
    }
    HWND Tree();
    HWND SearchBox();
    HWND Properties();
    bool Checked(const wchar_t* table, const wchar_t* field);
    const RecordedHelp& Help() const { return help_; }
    /// The window's own dialog of that title, once it shows.
    static HWND Dialog(const wchar_t* title);
    static HWND OpenMenu();
    static std::vector<std::wstring> MenuLines();
    static std::wstring ClipboardText();
    static bool HasFocus(HWND window) { return window && GetFocus() == window; }

private:
    void TestBody() override;
    /// Closes a menu, a message or a dialog that a check left open. True when there is none.
    bool NothingIsOpen();

    Stroke stroke_;
    Check check_;
    std::wstring statement_ = kOneColumn;
    std::optional<bool> answer_;
    RecordedHelp help_;
};

}  // namespace tessel::testing
