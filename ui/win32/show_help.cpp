#include "ui/win32/show_help.h"

#include <shlobj.h>

#include "common/win32/module.h"
#include "ui/dlg_dsn_texts.h"

namespace tessel::ui {

namespace {

using HtmlHelpFunction = HWND(WINAPI*)(HWND, LPCSTR, UINT, DWORD_PTR);

constexpr wchar_t kSharedFolder[] = L"Tessel\\";

std::wstring WithSeparator(std::wstring folder) {
    if (!folder.empty() && folder.back() != L'\\' && folder.back() != L'/') folder += L'\\';
    return folder;
}

bool IsFile(const std::wstring& path) {
    const DWORD attributes = GetFileAttributesW(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && !(attributes & FILE_ATTRIBUTE_DIRECTORY);
}

std::wstring SharedFolder() {
    wchar_t path[MAX_PATH];
    if (FAILED(SHGetFolderPathW(nullptr, CSIDL_PROGRAM_FILES_COMMON, nullptr, SHGFP_TYPE_CURRENT, path)))
        return {};
    return WithSeparator(path) + kSharedFolder;
}

/// HtmlHelpA, or nullptr on a system without a help viewer. The library is never freed: the help window is
/// its own and may stay open longer than the designer.
HtmlHelpFunction LoadHtmlHelp() {
    static const HMODULE library = win32::LoadSystemLibrary(L"hhctrl.ocx");
    if (!library) return nullptr;
    return reinterpret_cast<HtmlHelpFunction>(reinterpret_cast<void*>(GetProcAddress(library, "HtmlHelpA")));
}

/// The code page's text, or an empty one when it lacks a character of the path.
std::string ToAnsi(const std::wstring& path) {
    const int units = static_cast<int>(path.size());
    // A process whose ANSI code page is UTF-8 lacks no character, and refuses both the flag and the report.
    const bool utf8 = GetACP() == CP_UTF8;
    const DWORD flags = utf8 ? 0 : WC_NO_BEST_FIT_CHARS;
    BOOL substituted = FALSE;
    BOOL* const report = utf8 ? nullptr : &substituted;
    const int length = WideCharToMultiByte(CP_ACP, flags, path.data(), units, nullptr, 0, nullptr, report);
    if (length <= 0 || substituted) return {};
    std::string ansi(static_cast<std::size_t>(length), '\0');
    WideCharToMultiByte(CP_ACP, flags, path.data(), units, ansi.data(), length, nullptr, nullptr);
    return ansi;
}

/// The first candidate that is there, or an empty text.
std::wstring FindHelpFile(const HelpPlatform& platform) {
    for (const std::wstring& folder : {platform.component_folder, platform.shared_folder}) {
        if (folder.empty()) continue;
        std::wstring path = WithSeparator(folder) + kHelpFileName;
        if (platform.file_exists(path)) return path;
    }
    return {};
}

const HelpPlatform* replaced_platform = nullptr;

}  // namespace

std::string AnsiFileName(const std::wstring& path) {
    if (std::string ansi = ToAnsi(path); !ansi.empty()) return ansi;
    const DWORD size = GetShortPathNameW(path.c_str(), nullptr, 0);
    if (size == 0) return {};
    std::wstring short_path(size, L'\0');
    short_path.resize(GetShortPathNameW(path.c_str(), short_path.data(), size));
    return ToAnsi(short_path);
}

HelpPlatform WindowsHelp() {
    HelpPlatform platform;
    platform.component_folder = win32::ModuleFolder();
    platform.shared_folder = SharedFolder();
    platform.file_exists = IsFile;
    platform.html_help = [](HWND owner, const char* file, UINT command, DWORD_PTR data) {
        if (const HtmlHelpFunction html_help = LoadHtmlHelp()) html_help(owner, file, command, data);
    };
    platform.show_error = [](HWND owner, const wchar_t* text) {
        // Without an owner the message would leave the window in front enabled behind it.
        MessageBoxW(owner ? owner : GetActiveWindow(), text, texts::kMessageTitle, MB_OK | MB_ICONSTOP);
    };
    return platform;
}

void ReplaceHelpPlatform(const HelpPlatform* platform) {
    replaced_platform = platform;
}

void ShowHelp(HWND owner, long context_id) {
    ShowHelp(owner, context_id, replaced_platform ? *replaced_platform : WindowsHelp());
}

void ShowHelp(HWND owner, long context_id, const HelpPlatform& platform) {
    const std::wstring path = FindHelpFile(platform);
    if (path.empty()) {
        platform.show_error(owner, kNoHelpFile);
        return;
    }
    const std::string file = AnsiFileName(path);
    if (file.empty()) return;
    if (context_id < 1)
        platform.html_help(owner, file.c_str(), kHelpDisplayIndex, 0);
    else
        platform.html_help(owner, file.c_str(), kHelpContext, static_cast<DWORD_PTR>(context_id));
}

}  // namespace tessel::ui
