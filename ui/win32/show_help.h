// ShowHelp, the sixth procedure of mdlGlobal: finds "tesseldsn.chm" and opens it at its index or at a topic.
// It lives with the windows, not in common/, because it shows one. The topics' numbers are in
// ui/help_contexts.h.
//
// The file is looked for in two places, and the first that holds it wins:
//   1. the component's own folder;
//   2. the installation's shared folder, "Tessel" below the common program files (of the component's bitness:
//      "C:\Program Files\Common Files\Tessel\" or "C:\Program Files (x86)\Common Files\Tessel\").
//
// What touches the system is a value of its own, HelpPlatform, so that the search and the call can be
// followed without a help window. Nothing here throws, and a help viewer that is missing or fails is ignored.
#pragma once

#include <windows.h>

#include <functional>
#include <string>

namespace tessel::ui {

inline constexpr wchar_t kHelpFileName[] = L"tesseldsn.chm";
inline constexpr wchar_t kNoHelpFile[] = L"No se encontró el archivo de ayuda";

// Commands of HTML Help.
inline constexpr UINT kHelpDisplayIndex = 2;
inline constexpr UINT kHelpContext = 15;

struct HelpPlatform {
    /// The candidate folders; a trailing separator is added where one is missing. An empty one is passed
    /// over.
    std::wstring component_folder;
    std::wstring shared_folder;
    std::function<bool(const std::wstring& path)> file_exists;
    /// HtmlHelpA. The file name is in the ANSI code page.
    std::function<void(HWND owner, const char* file, UINT command, DWORD_PTR data)> html_help;
    /// Says that there is no help file: an OK button and the critical-stop icon.
    std::function<void(HWND owner, const wchar_t* text)> show_error;
};

/// The running system. hhctrl.ocx is loaded, from the system directory, by the first call of `html_help`, and
/// stays loaded: its window outlives the call.
HelpPlatform WindowsHelp();

/// Replaces the system that ShowHelp asks, so that a test opens no help window and depends on no help file;
/// nullptr gives the running system back.
void ReplaceHelpPlatform(const HelpPlatform* platform);

/// Opens the help: below 1 the index, otherwise the topic of that number. `owner` may be nullptr.
void ShowHelp(HWND owner, long context_id);
void ShowHelp(HWND owner, long context_id, const HelpPlatform& platform);

/// A file's name in the ANSI code page. A name that the code page does not hold is given by its short form,
/// where the file system keeps one, so that help opens from any folder.
std::string AnsiFileName(const std::wstring& path);

}  // namespace tessel::ui
