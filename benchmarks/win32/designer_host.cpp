#include "benchmarks/win32/designer_host.h"

#include <cstdio>
#include <cstdlib>

#include "benchmarks/win32/measurements.h"
#include "common/text.h"
#include "common/win32/module.h"
#include "hostkit/drive/input.h"
#include "ui/win32/designer_ids.h"

namespace tessel::bench {

using win32::Bstr;
using win32::CallResult;
using win32::ComPtr;
using win32::Dispatch;

namespace {

[[noreturn]] void Fail(const std::string& what) {
    fprintf(stderr, "%s\n", what.c_str());
    std::exit(1);
}

template <class Function>
Function FunctionOf(const wchar_t* library, const char* name) {
    const HMODULE module = LoadLibraryW((win32::ModuleFolder() + library).c_str());
    const FARPROC found = module ? GetProcAddress(module, name) : nullptr;
    if (!found) Fail(ToUtf8(library) + " has no " + name);
    return reinterpret_cast<Function>(reinterpret_cast<void*>(found));
}

HWND VisibleWindow(const wchar_t* class_name, const wchar_t* title) {
    const HWND window = FindWindowW(class_name, title);
    return window && IsWindowVisible(window) ? window : nullptr;
}

FirstPaint* g_first_paint = nullptr;

}  // namespace

DesignerHost::DesignerHost() {
    if (FAILED(FunctionOf<HRESULT(WINAPI*)()>(L"tesselado.dll", "DllRegisterServer")()))
        Fail("tesselado.dll does not register");
    const auto class_object =
        FunctionOf<HRESULT(WINAPI*)(REFCLSID, REFIID, void**)>(L"tesseldsn.dll", "DllGetClassObject");
    ComPtr<IClassFactory> factory;
    if (FAILED(class_object(__uuidof(Quillon), __uuidof(IClassFactory), factory.PutVoid())) ||
        FAILED(factory->CreateInstance(nullptr, __uuidof(_Quillon), designer_.PutVoid())))
        Fail("no Quillon");
}

std::wstring OdbcStringOf(const std::wstring& database) {
    return L"Driver=SQLite3;Database=" + database;
}

Dispatch DesignerHost::Open(const std::wstring& database) const {
    CLSID id{};
    ComPtr<IDispatch> object;
    if (FAILED(CLSIDFromProgID(L"ADODB.Connection", &id)) ||
        FAILED(CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, __uuidof(IDispatch), object.PutVoid())))
        Fail("no ADODB.Connection");
    const Dispatch connection(object);
    const CallResult opened = connection.Call(L"Open", OdbcStringOf(database));
    if (!opened) Fail(ToUtf8(opened.Message()));
    return connection;
}

double DesignerHost::Design(const Dispatch& connection, const std::wstring& sql,
                            const std::function<void(testing::Script&)>& steps) {
    const FirstPaint first_paint(DesignerWindow);
    const auto close = [] { PostMessageW(DesignerWindow(), WM_COMMAND, ui::kIdCancel, 0); };
    testing::Script script;
    script.OnTrouble([&] {
        const HWND box = testing::OpenMessageBox();
        Fail(script.Trouble() + (box ? " " + ToUtf8(testing::MessageBoxText(box)) : std::string()));
    });
    script.Until([&] { return first_paint.At() > 0; }, "the designer is painted");
    if (steps) steps(script);
    script.Do(close, "close");
    script.Start();
    IDispatch* object = connection.Get();
    Bstr statement(sql), caption, answer;
    BSTR text = statement.Get();
    const double begun = Now();
    const HRESULT designed = designer_->DesingQry(&object, &text, caption.Put(), answer.Put());
    if (FAILED(designed) || !script.Finished())
        Fail("the designer was not used as planned: " + script.Trouble());
    return first_paint.At() - begun;
}

HWND DesignerWindow() {
    return VisibleWindow(L"TesselDlgDsn", nullptr);
}
HWND PreviewWindow() {
    return VisibleWindow(nullptr, L"Vista previa de datos");
}

void PaintNow(HWND window) {
    RedrawWindow(window, nullptr, nullptr, RDW_UPDATENOW | RDW_ALLCHILDREN);
    GdiFlush();
}

double SecondsUntilPainted(HWND window, const std::function<void()>& action) {
    PaintNow(window);
    const double begun = Now();
    action();
    PaintNow(window);
    return Now() - begun;
}

FirstPaint::FirstPaint(std::function<HWND()> window) : window_(std::move(window)), before_(g_first_paint) {
    g_first_paint = this;
    hook_ = SetWindowsHookExW(WH_GETMESSAGE, OnMessageFetched, nullptr, GetCurrentThreadId());
}

FirstPaint::~FirstPaint() {
    UnhookWindowsHookEx(hook_);
    g_first_paint = before_;
}

LRESULT CALLBACK FirstPaint::OnMessageFetched(int code, WPARAM wparam, LPARAM lparam) {
    for (FirstPaint* waits = g_first_paint; code >= 0 && waits; waits = waits->before_) waits->Look();
    return CallNextHookEx(nullptr, code, wparam, lparam);
}

// The first message fetched while the window is visible finds it laid out but not painted: painting it from
// here ends when everything is to be seen, which no message would tell.
void FirstPaint::Look() {
    if (at_ > 0 || looking_) return;
    looking_ = true;
    if (const HWND window = window_()) {
        PaintNow(window);
        at_ = Now();
    }
    looking_ = false;
}

}  // namespace tessel::bench
