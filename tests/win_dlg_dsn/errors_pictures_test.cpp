// Pictures of errors, tips, the bar that finds and the reason of a hidden design, for a person's eyes, when
// TESSEL_PICTURES names a folder for them.
#include <windows.h>

#include <Scintilla.h>

#include "common/win32/screen.h"
#include "tests/win_dlg_dsn/dlg_dsn_fixture.h"
#include "ui/win32/find_replace_bar.h"

namespace tessel::testing {

namespace {

struct Looks {
    const wchar_t* name;
    int dpi;
    int width;
    int height;
    bool high_contrast;
};

/// Made before the window, which asks it for its scale.
struct OnScreen {
    explicit OnScreen(const Looks& looks)
        : screen(looks.dpi, RECT{0, 0, looks.width, looks.height}, looks.high_contrast) {}
    win32::SimulatedScreen screen;
};

class ScaledDlgDsn : public OnScreen, public DlgDsnTest {
public:
    ScaledDlgDsn(const Looks& looks, const std::wstring& folder)
        : OnScreen(looks), prefix_(folder + L"\\errors_" + looks.name) {}

    void TakeAll() {
        const std::wstring broken =
            L"SELECT Clientes.Nombre,\r\n    Pais\r\nFROM Clientes\r\nWHERE Pais NOT 5 AND Nombre IS 7";
        script_.Until([this] { return !TextOf(Control(ui::kIdErrorLine)).empty(); }, "the line speaks");
        Take(L"marks");
        script_.Do([this] {
            const HWND editor = Control(ui::kIdEditor);
            const auto at = static_cast<LPARAM>(EditorText().find(L"5"));
            POINT point{static_cast<LONG>(SendMessageW(editor, SCI_POINTXFROMPOSITION, 0, at)) + 3,
                        static_cast<LONG>(SendMessageW(editor, SCI_POINTYFROMPOSITION, 0, at)) + 5};
            ClientToScreen(editor, &point);
            MouseMove(point);
        });
        script_.Until([this] { return SendMessageW(Control(ui::kIdEditor), SCI_CALLTIPACTIVE, 0, 0) != 0; },
                      "the tip");
        script_.Do([this] {
            const HWND tip = FindWindowW(L"CallTip", nullptr);
            EXPECT_NE(tip, nullptr);
            if (tip) Save(tip, L"tip");
        });
        script_.Do([this] { Control(ui::kIdEditor) ? SetFocus(Control(ui::kIdEditor)) : nullptr; });
        script_.Do([] { PressKey('F', false, true); });
        script_.Until([this] { return IsWindowVisible(Control(ui::kIdFindBar)) != FALSE; }, "the bar");
        script_.Do([] { TypeText(L"Pais"); });
        for (int i = 0; i < 3; ++i) script_.Do([] { PressKey(VK_F3); });
        script_.Until([this] { return !TextOf(Control(ui::FindReplaceBar::kIdNote)).empty(); }, "the note");
        Take(L"find");
        script_.Do([] { PressKey('H', false, true); });
        script_.Until(
            [this] { return IsWindowVisible(Control(ui::FindReplaceBar::kIdReplaceText)) != FALSE; },
            "the row for replacing");
        Take(L"replace");
        script_.Do([this] { ClickTab(ui::Tab::Design); });
        script_.Until([this] { return IsWindowVisible(Control(ui::kIdReasonLink)) != FALSE; }, "the link");
        script_.Do([this] { SetFocus(Control(ui::kIdReasonLink)); });
        Take(L"reason");
        script_.Do([this] { PostMessageW(window_.Handle(), WM_CLOSE, 0, 0); });
        EXPECT_FALSE(Run(broken));
    }

private:
    void TestBody() override {}

    void Take(const wchar_t* name) {
        script_.Do([this, name] { Save(window_.Handle(), name); });
    }
    void Save(HWND window, const wchar_t* name) {
        RedrawWindow(window, nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW | RDW_ALLCHILDREN);
        EXPECT_TRUE(SavePicture(window, prefix_ + L"_" + name + L".bmp"));
    }

    std::wstring prefix_;
};

}  // namespace

TEST(ErrorPictures, AtSeveralScales) {
    wchar_t folder[MAX_PATH];
    if (!GetEnvironmentVariableW(L"TESSEL_PICTURES", folder, MAX_PATH))
        GTEST_SKIP() << "TESSEL_PICTURES is not set";
    for (const Looks& looks : {Looks{L"96", 96, 1024, 728, false}, Looks{L"192", 192, 2048, 1456, false},
                               Looks{L"small", 96, 800, 560, false}, Looks{L"contrast", 96, 1024, 728, true}})
        ScaledDlgDsn(looks, folder).TakeAll();
}

}  // namespace tessel::testing
