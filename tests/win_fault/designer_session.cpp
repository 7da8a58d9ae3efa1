#include "tests/win_fault/designer_session.h"

#include <commctrl.h>

#include "hostkit/drive/input.h"
#include "tests/win_preview/generated_recordset.h"
#include "ui/win32/designer_ids.h"

namespace tessel::tests {

namespace {

constexpr wchar_t kDesigner[] = L"Diseñador de consultas SQL";
constexpr wchar_t kPreview[] = L"Vista previa de datos";
constexpr wchar_t kTree[] = L"Árbol de sintaxis";
constexpr wchar_t kAddTable[] = L"Agregar tabla al diagrama";
constexpr UINT kTickMilliseconds = 10;
constexpr int kPatience = 20;  // ticks
constexpr ULONGLONG kLongestSession = 60'000;

struct WindowSearch {
    std::wstring title;
    HWND found;
};

BOOL CALLBACK HasTitle(HWND hwnd, LPARAM lparam) {
    auto* search = reinterpret_cast<WindowSearch*>(lparam);
    if (!IsWindowVisible(hwnd) || testing::TextOf(hwnd) != search->title) return TRUE;
    search->found = hwnd;
    return FALSE;
}

/// This thread's visible top-level window of that title, or nullptr.
HWND OwnWindow(const wchar_t* title) {
    WindowSearch search{title, nullptr};
    EnumThreadWindows(GetCurrentThreadId(), HasTitle, reinterpret_cast<LPARAM>(&search));
    return search.found;
}

BOOL CALLBACK CountVisible(HWND hwnd, LPARAM lparam) {
    if (IsWindowVisible(hwnd)) ++*reinterpret_cast<int*>(lparam);
    return TRUE;
}

std::string NameOf(HWND window) {
    if (!window) return "nowhere";
    wchar_t name[64] = L"";
    GetClassNameW(window, name, 64);
    return "in a " + ToUtf8(name) + " of id " + std::to_string(GetDlgCtrlID(window));
}

/// False when another program came to the front, which takes the focus away from all of ours.
bool OwnsForeground() {
    DWORD process = 0;
    GetWindowThreadProcessId(GetForegroundWindow(), &process);
    return process == GetCurrentProcessId();
}

class RecordsetFactory final : public win32::ComObject<IClassFactory> {
public:
    explicit RecordsetFactory(std::function<win32::ComPtr<IDispatch>()> make) : make_(std::move(make)) {}
    STDMETHODIMP CreateInstance(IUnknown*, REFIID iid, void** object) override {
        return make_()->QueryInterface(iid, object);
    }
    STDMETHODIMP LockServer(BOOL) override { return S_OK; }

private:
    std::function<win32::ComPtr<IDispatch>()> make_;
};

/// Ticks while the call's loops run. A step that opens a dialog returns only when the dialog is closed, which
/// a tick inside it does.
class Driver {
public:
    explicit Driver(const std::vector<SessionStep>& steps) : steps_(steps), started_(GetTickCount64()) {
        current_ = this;
        timer_ = SetTimer(nullptr, 0, kTickMilliseconds, Tick);
    }
    ~Driver() {
        KillTimer(nullptr, timer_);
        current_ = nullptr;
    }
    Driver(const Driver&) = delete;
    Driver& operator=(const Driver&) = delete;

    const SessionLog& Log() const { return log_; }

private:
    static void CALLBACK Tick(HWND, UINT, UINT_PTR, DWORD) {
        if (current_) current_->Look();
    }

    void Look() {
        const HWND designer = OwnWindow(kDesigner);
        if (GetTickCount64() - started_ > kLongestSession) {
            log_.stuck = true;
            for (HWND window : {testing::OpenMessageBox(), OwnWindow(kPreview), OwnWindow(kTree),
                                OwnWindow(kAddTable), designer})
                if (window) PostMessageW(window, WM_CLOSE, 0, 0);
            return;
        }
        if (const HWND box = testing::OpenMessageBox()) return CloseBox(box);
        if (const HWND preview = OwnWindow(kPreview)) return LookAtPreview(preview);
        if (const HWND tree = OwnWindow(kTree)) return CloseCounted(tree, tree_, log_.trees);
        if (const HWND dialog = OwnWindow(kAddTable)) return CloseCounted(dialog, dialog_, log_.dialogs);
        box_ = preview_ = tree_ = dialog_ = nullptr;
        if (!designer || in_step_ || !IsWindowEnabled(designer)) return;
        log_.designer_shown = true;
        // A gesture that came at a bad moment is lost, and the user makes it again.
        if (next_ == steps_.size() && ++idle_ticks_ < kPatience) return;
        if (next_ == steps_.size()) --next_;
        idle_ticks_ = 0;
        in_step_ = true;
        steps_[next_++](designer);
        in_step_ = false;
    }

    void CloseBox(HWND box) {
        if (box != box_) log_.messages.push_back(testing::MessageBoxText(box));
        box_ = box;
        PostMessageW(box, WM_CLOSE, 0, 0);
    }

    static void CloseCounted(HWND window, HWND& last, int& count) {
        if (window != last) ++count;
        last = window;
        PostMessageW(window, WM_CLOSE, 0, 0);
    }

    /// Goes to its end, so that every page is read, and closes it.
    void LookAtPreview(HWND preview) {
        if (preview == preview_) {
            PostMessageW(preview, WM_CLOSE, 0, 0);
            return;
        }
        preview_ = preview;
        ++log_.previews;
        PostMessageW(GetFocus(), WM_KEYDOWN, VK_END, 0);
        PostMessageW(GetFocus(), WM_KEYUP, VK_END, 0);
    }

    static inline Driver* current_ = nullptr;
    const std::vector<SessionStep>& steps_;
    ULONGLONG started_;
    UINT_PTR timer_ = 0;
    std::size_t next_ = 0;
    int idle_ticks_ = 0;
    bool in_step_ = false;
    HWND box_ = nullptr;
    HWND preview_ = nullptr;
    HWND tree_ = nullptr;
    HWND dialog_ = nullptr;
    SessionLog log_;
};

}  // namespace

RecordsetClass::RecordsetClass(std::function<win32::ComPtr<IDispatch>()> make) {
    CLSID clsid{};
    if (FAILED(CLSIDFromProgID(L"ADODB.Recordset", &clsid))) return;
    const auto factory = win32::MakeObject<RecordsetFactory>(std::move(make));
    CoRegisterClassObject(clsid, factory.Get(), CLSCTX_INPROC_SERVER, REGCLS_MULTIPLEUSE, &cookie_);
}

RecordsetClass::~RecordsetClass() {
    if (cookie_) CoRevokeClassObject(cookie_);
}

HostWindow::HostWindow() {
    window_ = CreateWindowW(L"STATIC", L"Programa", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 300, 200, nullptr,
                            nullptr, nullptr, nullptr);
    edit_ =
        CreateWindowW(L"EDIT", L"", WS_CHILD | WS_VISIBLE, 0, 0, 100, 20, window_, nullptr, nullptr, nullptr);
}

HostWindow::~HostWindow() {
    DestroyWindow(window_);
}

void HostWindow::Focus() const {
    SetActiveWindow(window_);
    SetFocus(edit_);
    SetCursor(LoadCursorW(nullptr, IDC_CROSS));
}

std::string HostWindow::Disturbance() const {
    std::string trouble;
    int visible = 0;
    EnumThreadWindows(GetCurrentThreadId(), CountVisible, reinterpret_cast<LPARAM>(&visible));
    if (visible != 1) trouble += std::to_string(visible) + " windows instead of the host's; ";
    if (!IsWindowEnabled(window_)) trouble += "the host's window is disabled; ";
    if (GetFocus() != edit_ && OwnsForeground()) trouble += "the focus is " + NameOf(GetFocus()) + "; ";
    if (GetCursor() != LoadCursorW(nullptr, IDC_CROSS)) trouble += "the pointer is another; ";
    return trouble;
}

SessionStep PressButton(int id) {
    return [id](HWND designer) {
        const HWND button = testing::Descendant(designer, id);
        if (button && IsWindowEnabled(button)) SendMessageW(button, BM_CLICK, 0, 0);
    };
}

SessionStep DrawEverything() {
    return [](HWND designer) {
        RedrawWindow(designer, nullptr, nullptr,
                     RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_UPDATENOW | RDW_ALLCHILDREN);
    };
}

SessionStep OpenWholeBrowser(int* items) {
    return [items](HWND designer) {
        const HWND tree =
            FindWindowExW(testing::Descendant(designer, ui::kIdBrowser), nullptr, WC_TREEVIEWW, nullptr);
        constexpr int kItemsSelected = 100;
        int seen = 0;
        for (HTREEITEM item = TreeView_GetRoot(tree); item; item = TreeView_GetNextVisible(tree, item)) {
            if (seen < kItemsSelected) TreeView_SelectItem(tree, item);
            TreeView_Expand(tree, item, TVE_EXPAND);
            ++seen;
        }
        if (items) *items = seen;
    };
}

SessionStep ChooseTab(int tab) {
    return [tab](HWND designer) { TabCtrl_SetCurFocus(testing::Descendant(designer, ui::kIdTabs), tab); };
}

SessionStep WalkGridRows() {
    return [](HWND designer) {
        constexpr int kRows = 8;
        const HWND grid = testing::Descendant(designer, ui::kIdGrid);
        if (!IsWindowVisible(grid)) return;
        SetFocus(grid);
        for (int row = 0; row < kRows; ++row) SendMessageW(grid, WM_KEYDOWN, VK_DOWN, 0);
    };
}

SessionAnswer RunSession(_Quillon* quillon, IDispatch* connection, const std::wstring& sql,
                         const std::vector<SessionStep>& steps) {
    SessionAnswer answer;
    BSTR text = win32::Bstr(sql).Detach();
    BSTR caption = win32::Bstr(L"").Detach();
    win32::Bstr result;
    const Driver driver(steps);
    answer.result = quillon->DesingQry(&connection, &text, &caption, result.Put());
    answer.sql = result.View();
    answer.caption = win32::TextOf(caption);
    answer.log = driver.Log();
    SysFreeString(text);
    SysFreeString(caption);
    return answer;
}

FakeConnection SessionConnection() {
    FakeDatabase database;
    database.rowsets[20] = {{L"TABLE_NAME", L"TABLE_TYPE"},
                            {{L"Clientes", L"TABLE"}, {L"Pedidos", L"TABLE"}}};
    database.rowsets[4] = {{L"TABLE_NAME", L"COLUMN_NAME", L"ORDINAL_POSITION", L"DATA_TYPE", L"IS_NULLABLE"},
                           {{L"Clientes", L"IdCliente", L"1", L"3", L"0"},
                            {L"Clientes", L"Nombre", L"2", L"202", L"1"},
                            {L"Pedidos", L"IdPedido", L"1", L"3", L"0"},
                            {L"Pedidos", L"IdCliente", L"2", L"3", L"0"}}};
    database.rowsets[28] = {{L"TABLE_NAME", L"COLUMN_NAME", L"ORDINAL"}, {{L"Clientes", L"IdCliente", L"1"}}};
    database.rowsets[27] = {
        {L"PK_TABLE_NAME", L"PK_COLUMN_NAME", L"FK_TABLE_NAME", L"FK_COLUMN_NAME", L"ORDINAL", L"FK_NAME"},
        {{L"Clientes", L"IdCliente", L"Pedidos", L"IdCliente", L"1", L"FK"}}};
    // One that is read in blocks and one that is not.
    database.rowsets[20].blocks = FakeBlocks::Right;
    database.default_database = L"ventas";
    FakeConnection connection = MakeConnection(std::move(database));
    std::vector<FakePtr> errors;
    for (const wchar_t* description : {L"Falta FROM", L"Línea cortada"}) {
        errors.push_back(MakeFake());
        errors.back()->Set(L"Source", L"Motor");
        errors.back()->Set(L"Description", description);
        errors.back()->Set(L"Number", -2147217900);
        errors.back()->Set(L"NativeError", 102);
    }
    connection.object->On(L"Errors", [collection = MakeCollection(errors, 0)](const FakeCall&) {
        return Value(ObjectValue(collection));
    });
    return connection;
}

FakePtr SessionRecordset(std::vector<std::wstring>* statements) {
    FakePtr recordset = MakeGeneratedRecordset(NumberedColumns(), 300);
    recordset->On(L"CursorLocation", [](const FakeCall&) { return Value(win32::UniqueVariant()); });
    recordset->On(L"Open", [statements](const FakeCall& call) {
        statements->push_back(call.Text(0));
        return Value(win32::UniqueVariant());
    });
    return recordset;
}

FakePtr ForeignParameter(const wchar_t* name, const wchar_t* type, const wchar_t* value) {
    FakePtr parameter = MakeFake();
    parameter->Set(L"Name", name);
    parameter->Set(L"eType", type);
    parameter->Set(L"Value", value);
    return parameter;
}

}  // namespace tessel::tests
