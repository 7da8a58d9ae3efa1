#include "tests/win_layout/every_window.h"

#include <commctrl.h>

#include "common/win32/activation_context.h"
#include "common/win32/dpi.h"
#include "hostkit/drive/input.h"
#include "hostkit/drive/script.h"
#include "sqlparser/sql_parser.h"
#include "tests/win_dlg_dsn/dlg_dsn_fixture.h"
#include "ui/win32/dlg_add_table.h"
#include "ui/win32/dlg_arbol.h"
#include "ui/win32/dlg_pvw.h"
#include "ui/win32/dlg_relation.h"

namespace tessel::testing {

namespace {

/// Rows that exist only while they are asked for.
class SomeRows final : public ui::PreviewRows {
public:
    const std::vector<ui::PreviewColumn>& Columns() const override { return columns_; }
    std::int64_t RowCount() const override { return 1200; }
    ui::PreviewCell Cell(std::int64_t row, int column) override {
        const std::wstring number = std::to_wstring(row + 1);
        ui::PreviewCell cell;
        cell.text = column == 1 ? L"Cliente número " + number : number;
        cell.is_null = column == 2 && row % 3 == 0;
        return cell;
    }
    std::wstring Trouble() const override { return {}; }

private:
    std::vector<ui::PreviewColumn> columns_ = {{L"IdCliente", ui::Alignment::Right},
                                               {L"Nombre", ui::Alignment::Left},
                                               {L"Teléfono", ui::Alignment::Left}};
};

/// Looks at one window while `show` runs its modal loop.
class Visit {
public:
    explicit Visit(const win32::Window& window) : window_(window) {
        script_.OnTrouble([this] { Close(); });
        script_.Until([this] { return window_.Handle() && IsWindowVisible(window_.Handle()); }, "shown");
    }

    Script& Steps() { return script_; }

    std::string Run(const std::function<void(HWND)>& look, const std::function<void()>& show) {
        script_.Do([&] { look(window_.Handle()); }, "looked at");
        script_.Do([this] { Close(); }, "closed");
        script_.Start();
        show();
        return script_.Finished() ? std::string() : "not reached: " + script_.Trouble();
    }

private:
    void Close() { PostMessageW(window_.Handle(), WM_CLOSE, 0, 0); }

    const win32::Window& window_;
    Script script_;
};

const wchar_t* StatementFor(Shown shown) {
    switch (shown) {
        case Shown::Reason:
            return L"SELECT a FROM t UNION SELECT b FROM u";
        case Shown::SqlError:
            return L"SELECT Clientes.Nombre FROM Clientes WHERE (Clientes.Pais = 'Chile' AND";
        default:
            return kTotalsByCustomer;
    }
}

std::string OpenDesigner(Shown shown, const std::function<void(HWND)>& look) {
    const schema::Schema schema = SmallSchema();
    ui::DesignerWindow window(nullptr);
    if (!window.Create()) return "not created";
    window.LoadSchema(&schema, L"ventas");
    window.Presenter().SetDsn(StatementFor(shown));
    Visit visit(window);
    const HWND form = window.Handle();
    const bool shows_text = shown == Shown::Sql || shown == Shown::SqlReplace || shown == Shown::SqlError;
    const ui::Tab tab = shows_text ? ui::Tab::Sql : ui::Tab::Design;
    visit.Steps().Do([&window, form, tab] {
        if (window.Presenter().CurrentTab() == tab) return;
        const HWND tabs = Descendant(form, ui::kIdTabs);
        SendMessageW(tabs, TCM_SETCURFOCUS, static_cast<WPARAM>(tab), 0);
    });
    // While the text is composed messages are handled, and the editor is empty for a moment.
    visit.Steps().Until(
        [&window, tab] { return window.Presenter().CurrentTab() == tab && !window.EditorText().empty(); },
        "the tab");
    if (shown == Shown::SqlReplace) {
        visit.Steps().Do([form] { SetFocus(Descendant(form, ui::kIdEditor)); });
        visit.Steps().Do([] { PressKey('H', false, true); });
        visit.Steps().Until(
            [form] { return IsWindowVisible(Descendant(form, ui::FindReplaceBar::kIdReplaceText)) != FALSE; },
            "the bar that replaces");
    }
    if (shown == Shown::SqlError)
        visit.Steps().Until([form] { return !TextOf(Descendant(form, ui::kIdErrorLine)).empty(); },
                            "the error is told");
    return visit.Run(look, [&] { window.ShowModal(); });
}

std::string OpenRelation(const std::function<void(HWND)>& look) {
    ui::dlgRelation window;
    Visit visit(window);
    model::RelInfo relation;
    relation.LeftTable = L"[Detalle de pedidos]";
    relation.LeftField = L"IdProducto";
    relation.RightTable = L"Productos";
    relation.RightField = L"IdProducto";
    return visit.Run(look, [&] { static_cast<void>(window.Ask(nullptr, relation)); });
}

std::string OpenAddTable(std::wstring_view table, const std::function<void(HWND)>& look) {
    const schema::Schema schema = SmallSchema();
    ui::dlgAddTable window;
    window.Init(schema, table, [](std::wstring_view) {});
    Visit visit(window);
    return visit.Run(look, [&] { window.Show(nullptr); });
}

std::string OpenPreview(bool with_find_bar, const std::function<void(HWND)>& look) {
    SomeRows rows;
    ui::dlgPVW window(rows);
    Visit visit(window);
    if (with_find_bar) {
        visit.Steps().Do([] { PressKey('F', false, true); });
        visit.Steps().Until(
            [&window] { return IsWindowVisible(Descendant(window.Handle(), ui::FindBar::kIdText)) != 0; },
            "the find bar");
    }
    return visit.Run(look, [&] { static_cast<void>(window.Show(nullptr)); });
}

std::string OpenTree(const std::function<void(HWND)>& look) {
    sql::SqlParser parser;
    if (parser.Parse(kTotalsByCustomer)) return "not parsed";
    const std::vector<analyse::TreeNode> roots = analyse::ShowTree(*parser.GetStatement());
    ui::dlgArbol window(roots, {});
    Visit visit(window);
    return visit.Run(look, [&] { window.ShowTree(nullptr); });
}

WNDPROC g_procedure_before = nullptr;

LRESULT CALLBACK AnySize(HWND hwnd, UINT message, WPARAM wparam, LPARAM lparam) {
    constexpr LONG kAnySize = 20000;
    const LRESULT answer = CallWindowProcW(g_procedure_before, hwnd, message, wparam, lparam);
    if (message == WM_GETMINMAXINFO)
        reinterpret_cast<MINMAXINFO*>(lparam)->ptMaxTrackSize = {kAnySize, kAnySize};
    return answer;
}

}  // namespace

const char* NameOf(Shown shown) {
    switch (shown) {
        case Shown::Design:
            return "Design";
        case Shown::Sql:
            return "Sql";
        case Shown::SqlReplace:
            return "SqlReplace";
        case Shown::SqlError:
            return "SqlError";
        case Shown::Reason:
            return "Reason";
        case Shown::Relation:
            return "Relation";
        case Shown::AddTable:
            return "AddTable";
        case Shown::AddRelatedTable:
            return "AddRelatedTable";
        case Shown::Preview:
            return "Preview";
        case Shown::PreviewFind:
            return "PreviewFind";
        case Shown::Tree:
            return "Tree";
    }
    return "";
}

std::string Open(Shown shown, const std::function<void(HWND)>& look) {
    const win32::ActivationContext context;
    switch (shown) {
        case Shown::Relation:
            return OpenRelation(look);
        case Shown::AddTable:
            return OpenAddTable(L"", look);
        case Shown::AddRelatedTable:
            return OpenAddTable(L"Pedidos", look);
        case Shown::Preview:
        case Shown::PreviewFind:
            return OpenPreview(shown == Shown::PreviewFind, look);
        case Shown::Tree:
            return OpenTree(look);
        default:
            return OpenDesigner(shown, look);
    }
}

void AllowAnySize(HWND window) {
    g_procedure_before = reinterpret_cast<WNDPROC>(
        SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&AnySize)));
}

void Settle() {
    constexpr int kMost = 1000;
    MSG message{};
    for (int i = 0; i < kMost &&
                    PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE | PM_QS_POSTMESSAGE | PM_QS_SENDMESSAGE);
         ++i)
        DispatchMessageW(&message);
}

void BringToScreen(HWND window, const RECT& work_area) {
    RECT suggested = work_area;
    const auto dpi = static_cast<WORD>(win32::DpiOf(window));
    SendMessageW(window, WM_DPICHANGED, MAKEWPARAM(dpi, dpi), reinterpret_cast<LPARAM>(&suggested));
}

}  // namespace tessel::testing
