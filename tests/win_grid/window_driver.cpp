#include "tests/win_grid/window_driver.h"

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <vector>

namespace tessel::testing {

namespace {

constexpr auto kPatience = std::chrono::seconds(10);

void Send(INPUT input) {
    SendInput(1, &input, sizeof input);
}

void SendKey(WORD key, bool up) {
    INPUT input{};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = key;
    input.ki.wScan = static_cast<WORD>(MapVirtualKeyW(key, MAPVK_VK_TO_VSC));
    input.ki.dwFlags = up ? KEYEVENTF_KEYUP : 0;
    const bool extended = (key >= VK_PRIOR && key <= VK_DOWN) || key == VK_DELETE || key == VK_INSERT;
    if (extended) input.ki.dwFlags |= KEYEVENTF_EXTENDEDKEY;
    Send(input);
}

void SendMouse(DWORD flags) {
    INPUT input{};
    input.type = INPUT_MOUSE;
    input.mi.dwFlags = flags;
    Send(input);
}

}  // namespace

TestFrame::TestFrame(int width, int height) {
    SetProcessDPIAware();
    const wchar_t name[] = L"TesselTestFrame";
    WNDCLASSEXW wc{};
    wc.cbSize = sizeof wc;
    wc.lpfnWndProc = Procedure;
    wc.hInstance = GetModuleHandleW(nullptr);
    wc.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    wc.hbrBackground = GetSysColorBrush(COLOR_BTNFACE);
    wc.lpszClassName = name;
    RegisterClassExW(&wc);
    hwnd_ = CreateWindowExW(WS_EX_CONTROLPARENT, name, L"Prueba",
                            WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN | WS_VISIBLE, 10, 10, width, height,
                            nullptr, nullptr, wc.hInstance, this);
    SetForegroundWindow(hwnd_);
    Pump();
}

TestFrame::~TestFrame() {
    DestroyWindow(hwnd_);
    Pump();
}

LRESULT CALLBACK TestFrame::Procedure(HWND hwnd, UINT message, WPARAM wparam, LPARAM lparam) {
    if (message == WM_NCCREATE)
        SetWindowLongPtrW(
            hwnd, GWLP_USERDATA,
            reinterpret_cast<LONG_PTR>(reinterpret_cast<CREATESTRUCTW*>(lparam)->lpCreateParams));
    auto* frame = reinterpret_cast<TestFrame*>(GetWindowLongPtrW(hwnd, GWLP_USERDATA));
    if (frame) {
        if (message == WM_COMMAND) frame->last_command = LOWORD(wparam);
        if (message == WM_NOTIFY) ++frame->notifications;
        if (message == WM_CONTEXTMENU) {
            // The default procedure would open the system menu and wait in it.
            ++frame->context_menus;
            return 0;
        }
    }
    return DefWindowProcW(hwnd, message, wparam, lparam);
}

HWND TestFrame::AddButton(const wchar_t* text, int id, const RECT& place, bool is_default) {
    const DWORD style = WS_CHILD | WS_VISIBLE | WS_TABSTOP | (is_default ? BS_DEFPUSHBUTTON : BS_PUSHBUTTON);
    return CreateWindowExW(0, L"BUTTON", text, style, place.left, place.top, place.right - place.left,
                           place.bottom - place.top, hwnd_, reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)),
                           nullptr, nullptr);
}

void TestFrame::Pump() {
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        if (IsDialogMessageW(hwnd_, &message)) continue;
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
}

bool TestFrame::WaitFor(const std::function<bool()>& condition) {
    const auto end = std::chrono::steady_clock::now() + kPatience;
    for (;;) {
        Pump();
        if (condition()) return true;
        if (std::chrono::steady_clock::now() > end) return false;
        MsgWaitForMultipleObjects(0, nullptr, FALSE, 10, QS_ALLINPUT);
    }
}

void MoveMouse(HWND hwnd, int x, int y) {
    POINT point{x, y};
    ClientToScreen(hwnd, &point);
    const int width = GetSystemMetrics(SM_CXSCREEN);
    const int height = GetSystemMetrics(SM_CYSCREEN);
    INPUT input{};
    input.type = INPUT_MOUSE;
    input.mi.dx = (point.x * 65536 + width / 2) / width + 1;
    input.mi.dy = (point.y * 65536 + height / 2) / height + 1;
    input.mi.dwFlags = MOUSEEVENTF_ABSOLUTE | MOUSEEVENTF_MOVE;
    Send(input);
}

void PressMouse(bool right) {
    SendMouse(right ? MOUSEEVENTF_RIGHTDOWN : MOUSEEVENTF_LEFTDOWN);
}
void ReleaseMouse(bool right) {
    SendMouse(right ? MOUSEEVENTF_RIGHTUP : MOUSEEVENTF_LEFTUP);
}

void Click(HWND hwnd, int x, int y) {
    MoveMouse(hwnd, x, y);
    PressMouse();
    ReleaseMouse();
}

void DoubleClick(HWND hwnd, int x, int y) {
    Click(hwnd, x, y);
    Click(hwnd, x, y);
}

void PressKey(WORD key, bool shift, bool control, bool alt) {
    if (shift) SendKey(VK_SHIFT, false);
    if (control) SendKey(VK_CONTROL, false);
    if (alt) SendKey(VK_MENU, false);
    SendKey(key, false);
    SendKey(key, true);
    if (alt) SendKey(VK_MENU, true);
    if (control) SendKey(VK_CONTROL, true);
    if (shift) SendKey(VK_SHIFT, true);
}

void TypeText(const std::wstring& text) {
    for (const wchar_t ch : text) {
        INPUT input{};
        input.type = INPUT_KEYBOARD;
        input.ki.wScan = static_cast<WORD>(ch);
        input.ki.dwFlags = KEYEVENTF_UNICODE;
        Send(input);
        input.ki.dwFlags |= KEYEVENTF_KEYUP;
        Send(input);
    }
}

void SavePicture(HWND hwnd, const std::string& name, HWND popup) {
    const char* folder = std::getenv("TESSEL_SCREENSHOTS");
    if (!folder) return;
    RECT frame;
    GetWindowRect(hwnd, &frame);
    RECT over{};
    RECT all = frame;
    if (popup && GetWindowRect(popup, &over)) UnionRect(&all, &frame, &over);
    const int width = all.right - all.left;
    const int height = all.bottom - all.top;
    BITMAPINFO info{};
    info.bmiHeader = {sizeof(BITMAPINFOHEADER), width, height, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    void* bits = nullptr;
    const HDC screen = GetDC(nullptr);
    const HDC memory = CreateCompatibleDC(screen);
    const HBITMAP bitmap = CreateDIBSection(screen, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    const HGDIOBJ old = SelectObject(memory, bitmap);
    const auto copy = [&](HWND source, const RECT& place) {
        const HDC dc = GetWindowDC(source);
        BitBlt(memory, place.left - all.left, place.top - all.top, place.right - place.left,
               place.bottom - place.top, dc, 0, 0, SRCCOPY);
        ReleaseDC(source, dc);
    };
    copy(hwnd, frame);
    if (popup) copy(popup, over);
    GdiFlush();
    BITMAPFILEHEADER header{};
    header.bfType = 0x4D42;
    header.bfOffBits = sizeof header + sizeof(BITMAPINFOHEADER);
    header.bfSize = header.bfOffBits + static_cast<DWORD>(width) * height * 4;
    if (FILE* file = std::fopen((std::string(folder) + "/" + name + ".bmp").c_str(), "wb")) {
        std::fwrite(&header, sizeof header, 1, file);
        std::fwrite(&info.bmiHeader, sizeof(BITMAPINFOHEADER), 1, file);
        std::fwrite(bits, 4, static_cast<std::size_t>(width) * height, file);
        std::fclose(file);
    }
    SelectObject(memory, old);
    DeleteObject(bitmap);
    DeleteDC(memory);
    ReleaseDC(nullptr, screen);
}

}  // namespace tessel::testing
