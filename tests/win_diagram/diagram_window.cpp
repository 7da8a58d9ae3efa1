#include "tests/win_diagram/diagram_window.h"

#include <cstdio>

#include "common/win32/handles.h"

namespace tessel::controls::testing_support {

namespace {

constexpr DWORD kPatience_ms = 20000;

class LiteralSource : public schema::SchemaSource {
public:
    explicit LiteralSource(TableLiterals tables) : tables_(std::move(tables)) {}

    Result<std::vector<schema::Object>> LoadObjects() override {
        std::vector<schema::Object> objects;
        for (const auto& [name, fields] : tables_) objects.push_back({L"", name, schema::ObjectKind::Table});
        return objects;
    }

    Result<std::vector<schema::Field>> LoadFields(const schema::Object& object) override {
        std::vector<schema::Field> result;
        for (const auto& [name, fields] : tables_) {
            if (name != object.raw_name) continue;
            for (const std::wstring& text : fields) {
                schema::Field field;
                const bool marked = text.front() == L'+' || text.front() == L'-';
                field.raw_name = marked ? text.substr(1) : text;
                field.primary_key = text.front() == L'+';
                field.foreign_key = text.front() == L'-';
                field.ado_type = marked ? 3 : 202;
                field.size = marked ? 0 : 40;
                result.push_back(field);
            }
        }
        return result;
    }

    Result<std::vector<schema::ForeignKey>> LoadForeignKeys() override {
        return std::vector<schema::ForeignKey>();
    }

private:
    TableLiterals tables_;
};

LRESULT CALLBACK FrameProcedure(HWND hwnd, UINT message, WPARAM wparam, LPARAM lparam) {
    return DefWindowProcW(hwnd, message, wparam, lparam);
}

}  // namespace

schema::Schema MakeSchema(const TableLiterals& tables) {
    return schema::Schema(std::make_unique<LiteralSource>(tables));
}

POINT Middle(const RECT& rect) {
    return {(rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2};
}

void RecordingEvents::OnDiagramFieldChecked(std::wstring_view table, std::wstring_view field, bool checked) {
    log.push_back(std::wstring(checked ? L"check " : L"uncheck ") + std::wstring(table) + L"." +
                  std::wstring(field));
    diagram_.SetChecked(table, field, checked);
}

void RecordingEvents::OnDiagramRelationDrawn(std::wstring_view left_table, std::wstring_view left_field,
                                             std::wstring_view right_table, std::wstring_view right_field) {
    log.push_back(L"relate " + std::wstring(left_table) + L"." + std::wstring(left_field) + L" = " +
                  std::wstring(right_table) + L"." + std::wstring(right_field));
    model::RelInfo relation;
    relation.LeftTable = left_table;
    relation.LeftField = left_field;
    relation.RightTable = right_table;
    relation.RightField = right_field;
    diagram_.AddRelation(relation);
}

void RecordingEvents::OnDiagramContextMenu(model::DiagramElement element, POINT screen) {
    log.push_back(L"menu " + std::to_wstring(static_cast<int>(element)));
    menu_at = screen;
}

void RecordingEvents::OnDiagramDelete(model::DiagramElement element) {
    log.push_back(L"delete " + std::to_wstring(static_cast<int>(element)));
    if (element == model::DiagramElement::Relation) diagram_.RemoveRelation(diagram_.SelectedRelation());
    if (element == model::DiagramElement::Table) diagram_.RemoveTable(std::wstring(diagram_.SelectedTable()));
}

void RecordingEvents::OnDiagramRelationActivated(int key) {
    log.push_back(L"activate " + std::to_wstring(key));
}

DiagramWindow::DiagramWindow(const TableLiterals& tables, SIZE size, int dpi_zoom)
    : schema(MakeSchema(tables)) {
    diagram.Bind(&schema);
    WNDCLASSW frame_class{};
    frame_class.lpfnWndProc = FrameProcedure;
    frame_class.hInstance = GetModuleHandleW(nullptr);
    frame_class.lpszClassName = L"DiagramTestFrame";
    RegisterClassW(&frame_class);
    frame = CreateWindowExW(0, frame_class.lpszClassName, L"", WS_POPUP | WS_VISIBLE | WS_CLIPCHILDREN, 0, 0,
                            size.cx, size.cy, nullptr, nullptr, frame_class.hInstance, nullptr);
    if (!view.Create(frame, 1)) return;
    MoveWindow(view.Handle(), 0, 0, size.cx, size.cy, TRUE);
    view.Bind(&diagram, &events);
    view.SetZoom(dpi_zoom);
    SetForegroundWindow(frame);
    SetFocus(view.Handle());
    Pump();
}

DiagramWindow::~DiagramWindow() {
    view.Bind(nullptr, nullptr);
    view.Destroy();
    DestroyWindow(frame);
}

int DiagramWindow::Relate(const std::wstring& left_table, const std::wstring& left_field,
                          const std::wstring& right_table, const std::wstring& right_field, int kind) {
    model::RelInfo relation;
    relation.LeftTable = left_table;
    relation.LeftField = left_field;
    relation.RightTable = right_table;
    relation.RightField = right_field;
    relation.JType = kind;
    return diagram.AddRelation(relation);
}

void DiagramWindow::Pump() {
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        // As a dialog's loop does, which is where the control lives.
        if (IsDialogMessageW(frame, &message)) continue;
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

bool DiagramWindow::PumpUntil(const std::function<bool()>& condition) {
    const DWORD start = GetTickCount();
    while (!condition()) {
        if (GetTickCount() - start > kPatience_ms) return false;
        Pump();
        MsgWaitForMultipleObjects(0, nullptr, FALSE, 20, QS_ALLINPUT);
    }
    return true;
}

void DiagramWindow::Mouse(UINT message, POINT at, WPARAM keys) {
    SendMessageW(view.Handle(), message, keys, MAKELPARAM(at.x, at.y));
    Pump();
}

void DiagramWindow::Click(POINT at) {
    Mouse(WM_MOUSEMOVE, at);
    Mouse(WM_LBUTTONDOWN, at, MK_LBUTTON);
    Mouse(WM_LBUTTONUP, at);
}

void DiagramWindow::Drag(POINT from, POINT to) {
    Mouse(WM_LBUTTONDOWN, from, MK_LBUTTON);
    for (int step = 1; step <= 4; ++step)
        Mouse(WM_MOUSEMOVE, {from.x + (to.x - from.x) * step / 4, from.y + (to.y - from.y) * step / 4},
              MK_LBUTTON);
    Mouse(WM_LBUTTONUP, to);
}

void DiagramWindow::Press(WORD key, bool ctrl, bool shift) {
    BYTE before[256];
    BYTE held[256];
    GetKeyboardState(before);
    GetKeyboardState(held);
    held[VK_CONTROL] = ctrl ? 0x80 : 0;
    held[VK_SHIFT] = shift ? 0x80 : 0;
    SetKeyboardState(held);
    PostMessageW(view.Handle(), WM_KEYDOWN, key, 1);
    PostMessageW(view.Handle(), WM_KEYUP, key, static_cast<LPARAM>(0xC0000001u));
    Pump();
    SetKeyboardState(before);
}

void DiagramWindow::SendMouse(POINT at, DWORD flags) {
    POINT screen = at;
    ClientToScreen(view.Handle(), &screen);
    const int width = GetSystemMetrics(SM_CXSCREEN);
    const int height = GetSystemMetrics(SM_CYSCREEN);
    INPUT input{};
    input.type = INPUT_MOUSE;
    input.mi.dx = (screen.x * 65536 + width / 2) / width + 1;
    input.mi.dy = (screen.y * 65536 + height / 2) / height + 1;
    input.mi.dwFlags = flags | MOUSEEVENTF_ABSOLUTE | MOUSEEVENTF_MOVE;
    SendInput(1, &input, sizeof input);
    Pump();
}

void DiagramWindow::SendKey(WORD key) {
    INPUT inputs[2]{};
    for (INPUT& input : inputs) {
        input.type = INPUT_KEYBOARD;
        input.ki.wVk = key;
    }
    inputs[1].ki.dwFlags = KEYEVENTF_KEYUP;
    SendInput(2, inputs, sizeof(INPUT));
    Pump();
}

bool DiagramWindow::Save(const std::wstring& file) {
    Pump();
    UpdateWindow(view.Handle());
    RECT rect;
    GetWindowRect(frame, &rect);
    const int width = rect.right - rect.left;
    const int height = rect.bottom - rect.top;
    BITMAPINFO info{};
    info.bmiHeader = {sizeof(BITMAPINFOHEADER), width, height, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    void* bits = nullptr;
    const HDC window = GetWindowDC(view.Handle());
    const win32::UniqueMemoryDc memory(CreateCompatibleDC(window));
    const win32::UniqueBitmap bitmap(CreateDIBSection(window, &info, DIB_RGB_COLORS, &bits, nullptr, 0));
    const HGDIOBJ old = SelectObject(memory.get(), bitmap.get());
    const bool copied = BitBlt(memory.get(), 0, 0, width, height, window, 0, 0, SRCCOPY) != 0;
    GdiFlush();
    SelectObject(memory.get(), old);
    ReleaseDC(view.Handle(), window);
    BITMAPFILEHEADER header{};
    header.bfType = 0x4d42;
    header.bfOffBits = sizeof header + sizeof(BITMAPINFOHEADER);
    header.bfSize = header.bfOffBits + static_cast<DWORD>(width * height * 4);
    FILE* out = _wfopen(file.c_str(), L"wb");
    if (!out) return false;
    const std::size_t pixels = static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
    const bool written = std::fwrite(&header, sizeof header, 1, out) == 1 &&
                         std::fwrite(&info.bmiHeader, sizeof info.bmiHeader, 1, out) == 1 &&
                         std::fwrite(bits, 4, pixels, out) == pixels;
    std::fclose(out);
    return copied && written;
}

}  // namespace tessel::controls::testing_support
