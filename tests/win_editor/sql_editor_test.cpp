#include "controls/editor/win32/sql_editor.h"

#include <Scintilla.h>
#include <gtest/gtest.h>

#include <cstdio>
#include <string>
#include <vector>

#include "common/win32/dpi.h"
#include "common/win32/module.h"
#include "controls/editor/sql_colouring.h"
#include "hostkit/drive/input.h"
#include "hostkit/drive/script.h"
#include "tests/win_editor/editor_window.h"

namespace tessel::controls {
namespace {

using namespace tessel::testing;

const std::wstring kStatement =
    L"SELECT Clientes.Nombre, Sum(Pedidos.Importe) AS Total\r\n"
    L"FROM (Clientes INNER JOIN Pedidos ON Clientes.IdCliente = Pedidos.IdCliente)\r\n"
    L"WHERE Pedidos.Fecha >= #01/01/2024# AND [Categoría] = 'Bebidas' -- nota\r\n"
    L"  AND Usuario = @winuser AND Total > :mínimo\r\n"
    L"GROUP BY Clientes.Nombre ORDER BY Sum(Pedidos.Importe) DESC;";

std::wstring Repeated(std::wstring_view piece, std::size_t units) {
    std::wstring text;
    while (text.size() < units) text += piece;
    return text;
}

TEST(SqlEditorText, ComesBackByteForByte) {
    EditorWindow window;
    std::wstring lone = L"a";
    lone += static_cast<wchar_t>(0xD83D);
    lone += L"b";
    lone += static_cast<wchar_t>(0xDE00);
    const std::wstring kTexts[] = {
        kStatement,
        L"   ",
        L"a\rb\nc\r\nd\n\r\n\r",
        std::wstring(L"nul\0en medio\0", 13),
        lone,
        L"emoji \U0001F600 combinado e\u0301 árabe \u0627 \uFEFF\u2028fin\uFFFF",
        L"\t tabuladores\t\r\n",
        L"",
    };
    for (const std::wstring& text : kTexts) {
        window.Editor().SetText(text);
        EXPECT_EQ(window.Editor().Text(), text);
    }
}

TEST(SqlEditorText, AMegabyteComesBackAndIsColoured) {
    EditorWindow window;
    const std::wstring text = Repeated(kStatement + L"\r\n", 1 << 20);
    window.Editor().SetText(text);
    EXPECT_EQ(window.Editor().Text(), text);
    window.Send(SCI_DOCUMENTEND);
    // "DESC;" CR LF stands at the end.
    const auto last = static_cast<WPARAM>(window.Send(SCI_GETLENGTH) - 4);
    EXPECT_TRUE(window.Until([&] { return window.Send(SCI_GETENDSTYLED) > static_cast<LRESULT>(last); }));
    EXPECT_EQ(window.Send(SCI_GETSTYLEAT, last), static_cast<LRESULT>(SqlStyle::Keyword));
}

TEST(SqlEditorText, SetTextIsOneUndoableStep) {
    EditorWindow window;
    window.Editor().SetText(L"uno");
    window.Editor().SetText(kStatement);
    EXPECT_TRUE(window.Editor().CanUndo());
    window.Editor().Undo();
    EXPECT_EQ(window.Editor().Text(), L"uno");
    EXPECT_TRUE(window.Editor().CanRedo());
    window.Editor().Redo();
    EXPECT_EQ(window.Editor().Text(), kStatement);
}

TEST(SqlEditorText, TheSameTextAgainChangesNothing) {
    EditorWindow window;
    window.Editor().SetText(kStatement);
    window.Editor().SelectRange({7, 8});
    window.Editor().SetText(kStatement);
    EXPECT_EQ(window.Editor().Selection(), (TextRange{7, 8}));
    window.Editor().Undo();
    EXPECT_EQ(window.Editor().Text(), L"");
}

TEST(SqlEditorText, OnlyTheUsersChangesAreReported) {
    EditorWindow window;
    window.Editor().SetText(L"SELECT 1");
    EXPECT_EQ(window.Changes(), 0);
    window.Editor().Undo();
    EXPECT_GT(window.Changes(), 0);
}

TEST(SqlEditorText, AReadOnlyEditorStillTakesTheProgramsText) {
    EditorWindow window;
    window.Editor().SetReadOnly(true);
    window.Editor().SetText(L"SELECT 1");
    EXPECT_EQ(window.Editor().Text(), L"SELECT 1");
    TypeText(L"x");
    PressKey(VK_F24);
    EXPECT_TRUE(window.Until([] { return !GetQueueStatus(QS_KEY); }));
    EXPECT_EQ(window.Editor().Text(), L"SELECT 1");
}

TEST(SqlEditorSelection, CountsUnitsOfTheText) {
    EditorWindow window;
    window.Editor().SetText(L"año \U0001F600 fin\r\nsegunda");
    window.Editor().SelectRange({4, 2});
    EXPECT_EQ(window.Editor().Selection(), (TextRange{4, 2}));
    window.Editor().SelectRange({7, 3});
    EXPECT_EQ(window.Editor().Selection(), (TextRange{7, 3}));
    window.Editor().SelectRange({12, 5000});
    EXPECT_EQ(window.Editor().Selection(), (TextRange{12, 7}));
    window.Editor().SelectRange({9000, 1});
    EXPECT_EQ(window.Editor().Selection(), (TextRange{19, 0}));
}

TEST(SqlEditorTyping, AccentsDeadKeysAndEnterArrive) {
    EditorWindow window;
    TypeText(L"SELECT Año, Ñandú, \"é\" € \U0001F600");
    PressKey(VK_RETURN);
    TypeText(L"FROM t");
    const std::wstring wanted = L"SELECT Año, Ñandú, \"é\" € \U0001F600\r\nFROM t";
    EXPECT_TRUE(window.Until([&] { return window.Editor().Text() == wanted; }));
    EXPECT_EQ(window.Editor().Text(), wanted);
    EXPECT_GT(window.Changes(), 0);
    PressKey('Z', false, true);
    EXPECT_TRUE(window.Until([&] { return window.Editor().Text() != wanted; }));
}

TEST(SqlEditorTyping, LineEndsStayWhatTheyAre) {
    EditorWindow window;
    window.Editor().SetText(L"a\nb\rc");
    PressKey(VK_END);
    PressKey(VK_RETURN);
    EXPECT_TRUE(window.Until([&] { return window.Editor().Text() == L"a\r\n\nb\rc"; })) << window.Changes();
}

TEST(SqlEditorTyping, TabWritesATabAndControlTabLeaves) {
    EditorWindow window;
    PressKey(VK_TAB);
    EXPECT_TRUE(window.Until([&] { return window.Editor().Text() == L"\t"; }));
    EXPECT_EQ(GetFocus(), window.Editor().Handle());
    PressKey(VK_TAB, false, true);
    EXPECT_TRUE(window.Until([&] { return GetFocus() == window.Button(); }));
    EXPECT_EQ(window.Editor().Text(), L"\t");
}

TEST(SqlEditorTyping, EscapeIsTheDialogs) {
    EditorWindow window;
    MSG escape{};
    escape.hwnd = window.Editor().Handle();
    escape.message = WM_KEYDOWN;
    escape.wParam = VK_ESCAPE;
    const LRESULT code = window.Send(WM_GETDLGCODE, VK_ESCAPE, reinterpret_cast<LPARAM>(&escape));
    EXPECT_EQ(code & DLGC_WANTALLKEYS, 0);
    EXPECT_EQ(code & DLGC_WANTTAB, 0);
    escape.wParam = VK_RETURN;
    EXPECT_NE(window.Send(WM_GETDLGCODE, VK_RETURN, reinterpret_cast<LPARAM>(&escape)) & DLGC_WANTALLKEYS, 0);
}

TEST(SqlEditorTyping, ControlWithALetterWritesNoControlCharacter) {
    EditorWindow window;
    for (WORD key : {'E', 'D', 'L', 'T', 'U', 'Q', 'W', 'K', 'J'}) PressKey(key, false, true);
    TypeText(L"x");
    EXPECT_TRUE(window.Until([&] { return !window.Editor().Text().empty(); }));
    EXPECT_EQ(window.Editor().Text(), L"x");
}

TEST(SqlEditorTyping, TheClipboardKeepsTheTextAsItIs) {
    EditorWindow window;
    window.Editor().SetText(L"uno\ndos \U0001F600 ñ\r\ntres");
    PressKey('A', false, true);
    PressKey('C', false, true);
    PressKey(VK_END, false, true);
    PressKey('V', false, true);
    const std::wstring once = L"uno\ndos \U0001F600 ñ\r\ntres";
    EXPECT_TRUE(window.Until([&] { return window.Editor().Text().size() == 2 * once.size(); }));
    EXPECT_EQ(window.Editor().Text(), once + once);
}

TEST(SqlEditorColours, FollowTheLexer) {
    EditorWindow window;
    window.Editor().SetText(
        L"SELECT [a b], Sum(x) AS n -- fin\r\nFROM t WHERE d=#1/1/24# AND s='x' AND u=@u AND p=:p+1.5");
    EXPECT_EQ(window.Styles(),
              "kkkkkk.nnnnno.fffo.o.kk...cccccc.."
              "kkkk...kkkkk..o########.kkk..osss.kkk..oMM.kkk..oppoddd");
}

TEST(SqlEditorColours, AccentsTakeTheirBytes) {
    EditorWindow window;
    window.Editor().SetText(L"[ñ]ñ'€'");
    EXPECT_EQ(window.Styles(), "nnnn..sssss");
}

TEST(SqlEditorColours, EditingALineColoursTheLinesBelowAsWell) {
    EditorWindow window;
    window.Editor().SetText(L"a\r\nSELECT b\r\n'c'");
    EXPECT_EQ(window.Styles(), "...kkkkkk....sss");
    window.Send(SCI_INSERTTEXT, 0, reinterpret_cast<LPARAM>("/*"));
    EXPECT_EQ(window.Styles(), "cccccccccccccccccc");
    window.Send(SCI_DELETERANGE, 0, 2);
    EXPECT_EQ(window.Styles(), "...kkkkkk....sss");
    // A line break taken away and put back moves the states of the lines.
    window.Send(SCI_INSERTTEXT, 1, reinterpret_cast<LPARAM>(" /*"));
    window.Send(SCI_INSERTTEXT, 14, reinterpret_cast<LPARAM>(" */"));
    EXPECT_EQ(window.Styles(), "..ccccccccccccccc..sss");
    window.Send(SCI_DELETERANGE, 4, 2);
    EXPECT_EQ(window.Styles(), "..ccccccccccccc..sss");
    window.Editor().Undo();
    EXPECT_EQ(window.Styles(), "..ccccccccccccccc..sss");
}

TEST(SqlEditorColours, RefreshColoursEverythingAgain) {
    EditorWindow window;
    window.Editor().SetText(L"SELECT 1");
    EXPECT_EQ(window.Styles(), "kkkkkk.d");
    window.Send(SCI_STARTSTYLING, 0);
    window.Send(SCI_SETSTYLING, 8, static_cast<LPARAM>(SqlStyle::Error));
    EXPECT_EQ(window.Send(SCI_GETENDSTYLED), 8);
    window.Editor().Refresh();
    EXPECT_EQ(window.Styles(), "kkkkkk.d");
}

TEST(SqlEditorColours, ComeFromTheFile) {
    wchar_t folder[MAX_PATH];
    GetTempPathW(MAX_PATH, folder);
    const std::wstring path = std::wstring(folder) + L"SqlEditorColours.ini";
    FILE* file = _wfopen(path.c_str(), L"wb");
    ASSERT_NE(file, nullptr);
    std::fputs("[SQL]\npalabras=ELIGE\nestilo.palabra=#112233 negrita\nestilo.texto=#445566\ntamaño=14\n",
               file);
    std::fclose(file);
    EditorWindow window(path);
    window.Editor().SetText(L"ELIGE a");
    EXPECT_EQ(window.Styles(), "kkkkk..");
    EXPECT_EQ(window.Send(SCI_STYLEGETFORE, static_cast<WPARAM>(SqlStyle::Keyword)),
              LRESULT{RGB(0x11, 0x22, 0x33)});
    EXPECT_EQ(window.Send(SCI_STYLEGETBOLD, static_cast<WPARAM>(SqlStyle::Keyword)), 1);
    EXPECT_EQ(window.Send(SCI_STYLEGETFORE, static_cast<WPARAM>(SqlStyle::Text)),
              LRESULT{RGB(0x44, 0x55, 0x66)});
    EXPECT_EQ(window.Send(SCI_STYLEGETSIZE, STYLE_DEFAULT), 14);
    _wremove(path.c_str());
}

TEST(SqlEditorColours, TheShippedFileLiesBesideTheModule) {
    const std::wstring path = win32::ModuleFolder() + L"SQL.ini";
    EXPECT_NE(GetFileAttributesW(path.c_str()), INVALID_FILE_ATTRIBUTES);
}

TEST(SqlEditorMargin, GrowsWithTheNumberOfLines) {
    EditorWindow window;
    window.Editor().SetText(L"a");
    const LRESULT narrow = window.Send(SCI_GETMARGINWIDTHN, 0);
    EXPECT_GT(narrow, 0);
    window.Editor().SetText(std::wstring(20000, L'\n'));
    const LRESULT wide = window.Send(SCI_GETMARGINWIDTHN, 0);
    EXPECT_GT(wide, narrow);
    window.Editor().SetText(L"a");
    EXPECT_EQ(window.Send(SCI_GETMARGINWIDTHN, 0), narrow);
}

TEST(SqlEditorDpi, FontsAndMarginsGrowTogether) {
    EditorWindow window;
    const LRESULT height = window.Send(SCI_TEXTHEIGHT, 0);
    const LRESULT margin = window.Send(SCI_GETMARGINWIDTHN, 0);
    const int dpi = win32::DpiOf(window.Editor().Handle());
    window.Editor().OnDpiChanged(2 * dpi);
    EXPECT_NEAR(static_cast<double>(window.Send(SCI_TEXTHEIGHT, 0)), 2.0 * static_cast<double>(height), 3.0);
    EXPECT_NEAR(static_cast<double>(window.Send(SCI_GETMARGINWIDTHN, 0)), 2.0 * static_cast<double>(margin),
                6.0);
    window.Editor().OnDpiChanged(dpi);
    EXPECT_EQ(window.Send(SCI_TEXTHEIGHT, 0), height);
}

std::vector<std::wstring> MenuCaptions(HMENU menu) {
    std::vector<std::wstring> captions;
    for (int i = 0; i < GetMenuItemCount(menu); ++i) {
        wchar_t text[80] = L"";
        GetMenuStringW(menu, static_cast<UINT>(i), text, 80, MF_BYPOSITION);
        captions.push_back(text);
    }
    return captions;
}

TEST(SqlEditorMenu, HasTheStandardCommandsInSpanish) {
    EditorWindow window;
    window.Editor().SetText(kStatement);
    std::vector<std::wstring> captions;
    bool undo_enabled = false;
    // The menu runs a loop of its own; the script looks at it from there and chooses by the keyboard.
    Script script;
    script.Until([] { return FindWindowW(L"#32768", nullptr) != nullptr; }, "menu");
    script.Do([&] {
        const HWND popup = FindWindowW(L"#32768", nullptr);
        const auto menu = reinterpret_cast<HMENU>(SendMessageW(popup, MN_GETHMENU, 0, 0));
        captions = MenuCaptions(menu);
        undo_enabled = !(GetMenuState(menu, SCI_UNDO, MF_BYCOMMAND) & MF_GRAYED);
        PressKey('S');
    });
    script.OnTrouble([] { EndMenu(); });
    script.Start();
    window.Send(WM_CONTEXTMENU, reinterpret_cast<WPARAM>(window.Editor().Handle()), MAKELPARAM(-1, -1));
    EXPECT_TRUE(script.Finished()) << script.Trouble();
    EXPECT_EQ(captions,
              (std::vector<std::wstring>{L"&Deshacer\tCtrl+Z", L"&Rehacer\tCtrl+Y", L"", L"Cor&tar\tCtrl+X",
                                         L"&Copiar\tCtrl+C", L"&Pegar\tCtrl+V", L"&Eliminar\tSupr", L"",
                                         L"&Seleccionar todo\tCtrl+A", L"", L"Co&mpletar\tCtrl+Espacio",
                                         L"C&omentar o quitar el comentario\tCtrl+K",
                                         L"Dar &formato\tCtrl+Mayús+F", L"&Ir al otro paréntesis\tCtrl+E"}));
    EXPECT_TRUE(undo_enabled);
    EXPECT_EQ(window.Editor().Selection(), (TextRange{0, kStatement.size()}));
}

// Pictures for a person's eyes, when a folder for them is given.
TEST(SqlEditorPictures, AreSavedAtThreeSizes) {
    wchar_t folder[MAX_PATH];
    if (!GetEnvironmentVariableW(L"TESSEL_PICTURES", folder, MAX_PATH))
        GTEST_SKIP() << "TESSEL_PICTURES is not set";
    for (int dpi : {96, 144, 192}) {
        EditorWindow window(win32::ModuleFolder() + L"SQL.ini");
        window.Editor().OnDpiChanged(dpi);
        window.Editor().SetText(kStatement + L"\r\n/* bloque */ CAST(1.5 AS INTEGER) ? #12/");
        window.Editor().SelectRange({7, 15});
        UpdateWindow(window.Editor().Handle());
        EXPECT_TRUE(SavePicture(window.Handle(),
                                std::wstring(folder) + L"\\editor" + std::to_wstring(dpi) + L".bmp"));
    }
}

TEST(SqlEditorLife, CallsOnADestroyedWindowAreHarmless) {
    EditorWindow window;
    window.Editor().SetText(L"x");
    DestroyWindow(window.Editor().Handle());
    EXPECT_EQ(window.Editor().Handle(), nullptr);
    window.Editor().SetText(L"y");
    window.Editor().Refresh();
    window.Editor().SelectRange({0, 1});
    window.Editor().Undo();
    window.Editor().OnDpiChanged(192);
    EXPECT_EQ(window.Editor().Text(), L"");
    EXPECT_EQ(window.Editor().Selection(), TextRange{});
    EXPECT_FALSE(window.Editor().CanUndo());
    NMHDR header{};
    EXPECT_FALSE(window.Editor().HandleNotify(&header));
}

TEST(SqlEditorLife, ClassesAreRegisteredForThisModuleAndReleased) {
    {
        EditorWindow window;
        WNDCLASSEXW info{};
        info.cbSize = sizeof info;
        EXPECT_TRUE(GetClassInfoExW(win32::ThisModule(), L"Scintilla", &info));
        EXPECT_EQ(info.style & CS_GLOBALCLASS, 0u);
    }
    ReleaseEditorClasses();
    WNDCLASSEXW info{};
    info.cbSize = sizeof info;
    EXPECT_FALSE(GetClassInfoExW(win32::ThisModule(), L"Scintilla", &info));
    EXPECT_FALSE(GetClassInfoExW(win32::ThisModule(), L"ListBoxX", &info));
    EXPECT_FALSE(GetClassInfoExW(win32::ThisModule(), L"CallTip", &info));
    EditorWindow again;
    again.Editor().SetText(L"otra vez");
    EXPECT_EQ(again.Editor().Text(), L"otra vez");
    // The windows that the component opens are there again as well.
    again.Send(SCI_USERLISTSHOW, 1, reinterpret_cast<LPARAM>("uno dos"));
    EXPECT_TRUE(again.Send(SCI_AUTOCACTIVE));
    again.Send(SCI_AUTOCCANCEL);
    EXPECT_FALSE(again.Send(SCI_AUTOCACTIVE));
    again.Send(SCI_CALLTIPSHOW, 0, reinterpret_cast<LPARAM>("tip"));
    EXPECT_TRUE(FindWindowW(L"CallTip", nullptr));
    again.Send(SCI_CALLTIPCANCEL);
}

}  // namespace
}  // namespace tessel::controls
