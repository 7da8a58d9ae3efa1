// The component's window classes: the editor's own and those of the windows it opens.
//
// The component registers the classes of its list and of its tips once in the life of the process, when the
// first editor is created, but unregisters them with every release. A host calls the designer again and
// again, so that every registration after the first has to bring them back.
#include <windows.h>

#include <optional>

#include "common/win32/module.h"
#include "controls/editor/win32/sql_editor.h"

extern "C" int Scintilla_RegisterClasses(void* instance);
extern "C" int Scintilla_ReleaseResources();

namespace Scintilla::Internal {
void Platform_Initialise(void* instance) noexcept;
}

namespace tessel::controls {

namespace {

constexpr const wchar_t* kTipClass = L"CallTip";

bool g_registered = false;
/// The class of the tips as the component registered it; nothing before the first release.
std::optional<WNDCLASSEXW> g_tip_class;

std::optional<WNDCLASSEXW> TipClass() {
    WNDCLASSEXW info{};
    info.cbSize = sizeof info;
    if (!GetClassInfoExW(win32::ThisModule(), kTipClass, &info)) return std::nullopt;
    info.hInstance = win32::ThisModule();
    info.lpszClassName = kTipClass;
    return info;
}

}  // namespace

bool RegisterEditorClasses() {
    if (g_registered) return true;
    g_registered = Scintilla_RegisterClasses(win32::ThisModule()) != 0;
    if (g_registered && g_tip_class) {
        Scintilla::Internal::Platform_Initialise(win32::ThisModule());
        RegisterClassExW(&*g_tip_class);
    }
    return g_registered;
}

void ReleaseEditorClasses() {
    if (!g_registered) return;
    if (const auto tips = TipClass()) g_tip_class = tips;
    Scintilla_ReleaseResources();
    UnregisterClassW(kTipClass, win32::ThisModule());
    g_registered = false;
}

}  // namespace tessel::controls
