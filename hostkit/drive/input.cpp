#include "hostkit/drive/input.h"

#include <cstdio>

namespace tessel::testing {

namespace {

void Send(INPUT* inputs, UINT count) {
    SendInput(count, inputs, sizeof(INPUT));
}

void MouseEvent(POINT screen, DWORD flags) {
    const int width = GetSystemMetrics(SM_CXSCREEN);
    const int height = GetSystemMetrics(SM_CYSCREEN);
    INPUT input{};
    input.type = INPUT_MOUSE;
    input.mi.dx = (screen.x * 65536 + width / 2) / width + 1;
    input.mi.dy = (screen.y * 65536 + height / 2) / height + 1;
    input.mi.dwFlags = flags | MOUSEEVENTF_ABSOLUTE | MOUSEEVENTF_MOVE;
    Send(&input, 1);
}

void KeyEvent(WORD key, WORD scan, DWORD flags) {
    INPUT input{};
    input.type = INPUT_KEYBOARD;
    input.ki.wVk = key;
    input.ki.wScan = scan;
    input.ki.dwFlags = flags;
    Send(&input, 1);
}

struct DescendantSearch {
    int id;
    HWND found;
};

BOOL CALLBACK IsSearched(HWND hwnd, LPARAM lparam) {
    auto* search = reinterpret_cast<DescendantSearch*>(lparam);
    if (GetDlgCtrlID(hwnd) != search->id) return TRUE;
    search->found = hwnd;
    return FALSE;
}

}  // namespace

void MouseMove(POINT screen) {
    MouseEvent(screen, 0);
}

void MouseClick(POINT screen, int times) {
    MouseEvent(screen, 0);
    for (int i = 0; i < times; ++i) {
        MouseEvent(screen, MOUSEEVENTF_LEFTDOWN);
        MouseEvent(screen, MOUSEEVENTF_LEFTUP);
    }
}

void RightClick(POINT screen) {
    MouseEvent(screen, 0);
    MouseEvent(screen, MOUSEEVENTF_RIGHTDOWN);
    MouseEvent(screen, MOUSEEVENTF_RIGHTUP);
}

void MouseDrag(POINT from, POINT to) {
    constexpr int kSteps = 8;
    MouseEvent(from, 0);
    MouseEvent(from, MOUSEEVENTF_LEFTDOWN);
    for (int i = 1; i <= kSteps; ++i)
        MouseEvent({from.x + (to.x - from.x) * i / kSteps, from.y + (to.y - from.y) * i / kSteps}, 0);
    MouseEvent(to, MOUSEEVENTF_LEFTUP);
}

void PressKey(WORD virtual_key, bool shift, bool control) {
    if (control) KeyEvent(VK_CONTROL, 0, 0);
    if (shift) KeyEvent(VK_SHIFT, 0, 0);
    KeyEvent(virtual_key, 0, 0);
    KeyEvent(virtual_key, 0, KEYEVENTF_KEYUP);
    if (shift) KeyEvent(VK_SHIFT, 0, KEYEVENTF_KEYUP);
    if (control) KeyEvent(VK_CONTROL, 0, KEYEVENTF_KEYUP);
}

void PressAlt(WORD virtual_key, bool shift) {
    KeyEvent(VK_MENU, 0, 0);
    PressKey(virtual_key, shift);
    KeyEvent(VK_MENU, 0, KEYEVENTF_KEYUP);
}

void TypeText(const wchar_t* text) {
    for (; *text; ++text) {
        KeyEvent(0, *text, KEYEVENTF_UNICODE);
        KeyEvent(0, *text, KEYEVENTF_UNICODE | KEYEVENTF_KEYUP);
    }
}

POINT ScreenPoint(HWND hwnd, const RECT& client_rect) {
    POINT point{(client_rect.left + client_rect.right) / 2, (client_rect.top + client_rect.bottom) / 2};
    ClientToScreen(hwnd, &point);
    return point;
}

POINT MiddleOf(HWND hwnd) {
    RECT client{};
    GetClientRect(hwnd, &client);
    return ScreenPoint(hwnd, client);
}

std::wstring TextOf(HWND hwnd) {
    std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(hwnd)), L'\0');
    GetWindowTextW(hwnd, text.data(), static_cast<int>(text.size()) + 1);
    return text;
}

HWND Descendant(HWND root, int id) {
    DescendantSearch search{id, nullptr};
    EnumChildWindows(root, IsSearched, reinterpret_cast<LPARAM>(&search));
    return search.found;
}

HWND OpenMessageBox() {
    HWND box = nullptr;
    while ((box = FindWindowExW(nullptr, box, L"#32770", nullptr)) != nullptr) {
        DWORD process = 0;
        GetWindowThreadProcessId(box, &process);
        if (process == GetCurrentProcessId() && IsWindowVisible(box)) return box;
    }
    return nullptr;
}

std::wstring MessageBoxText(HWND box) {
    // The text is the static control that is not the icon's.
    HWND child = nullptr;
    while ((child = FindWindowExW(box, child, L"Static", nullptr)) != nullptr)
        if (GetWindowTextLengthW(child) > 0) return TextOf(child);
    return {};
}

bool SavePicture(HWND hwnd, const std::wstring& file) {
    RECT frame{};
    GetWindowRect(hwnd, &frame);
    const int width = frame.right - frame.left;
    const int height = frame.bottom - frame.top;
    const HDC window_dc = GetWindowDC(hwnd);
    const HDC memory = CreateCompatibleDC(window_dc);
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof info.bmiHeader;
    info.bmiHeader.biWidth = width;
    info.bmiHeader.biHeight = height;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    void* bits = nullptr;
    const HBITMAP bitmap = CreateDIBSection(window_dc, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    const HGDIOBJ old = SelectObject(memory, bitmap);
    BitBlt(memory, 0, 0, width, height, window_dc, 0, 0, SRCCOPY);
    GdiFlush();
    bool saved = false;
    if (FILE* out = _wfopen(file.c_str(), L"wb")) {
        const DWORD pixels = static_cast<DWORD>(width) * static_cast<DWORD>(height) * 4;
        BITMAPFILEHEADER header{};
        header.bfType = 0x4d42;
        header.bfOffBits = sizeof header + sizeof info.bmiHeader;
        header.bfSize = header.bfOffBits + pixels;
        saved = fwrite(&header, sizeof header, 1, out) == 1 &&
                fwrite(&info.bmiHeader, sizeof info.bmiHeader, 1, out) == 1 &&
                fwrite(bits, pixels, 1, out) == 1;
        fclose(out);
    }
    SelectObject(memory, old);
    DeleteObject(bitmap);
    DeleteDC(memory);
    ReleaseDC(hwnd, window_dc);
    return saved;
}

}  // namespace tessel::testing
