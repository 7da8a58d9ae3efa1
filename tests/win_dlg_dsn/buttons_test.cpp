// Every button of the window: its caption, its tip, its mnemonic, and when it can be pressed.
#include <windows.h>

#include <commctrl.h>

#include "tests/win_dlg_dsn/dlg_dsn_fixture.h"
#include "tests/win_dlg_dsn/recorded_help.h"
#include "ui/dlg_dsn_texts.h"

namespace tessel::testing {

namespace texts = ui::texts;

class Buttons : public DlgDsnTest {
protected:
    struct Button {
        int id;
        const wchar_t* caption;
        const wchar_t* tip;
    };
    static constexpr Button kButtons[] = {
        {ui::kIdSyntaxTree, L"Ver árbol de sintaxis", texts::kTipSyntaxTree},
        {ui::kIdAddTable, L"Agregar tabla al diagrama", texts::kTipAddTable},
        {ui::kIdRunQuery, L"Ejecutar consulta (vista previa de resultados)", texts::kTipRunQuery},
        {ui::kIdRemoveColumn, L"Quitar columna", texts::kTipRemoveColumn},
        {ui::kIdClearAll, L"Limpiar todo", texts::kTipClearAll},
        {ui::kIdDistinct, L"DISTINCT", texts::kTipDistinct},
        {ui::kIdAccept, L"&Aceptar", texts::kTipAccept},
        {ui::kIdCancel, L"&Cancelar", texts::kTipCancel},
        {ui::kIdHelp, L"Ay&uda", texts::kTipHelp},
    };

    struct Search {
        HWND control;
        std::wstring tip;
    };
    /// What the thread's tooltip windows say of a control.
    static std::wstring TipOf(HWND control) {
        Search search{control, {}};
        EnumThreadWindows(GetCurrentThreadId(), &Buttons::LookAtTips, reinterpret_cast<LPARAM>(&search));
        return search.tip;
    }
    static BOOL CALLBACK LookAtTips(HWND window, LPARAM data) {
        Search& search = *reinterpret_cast<Search*>(data);
        wchar_t name[40] = L"";
        GetClassNameW(window, name, 40);
        if (lstrcmpiW(name, TOOLTIPS_CLASSW) != 0) return TRUE;
        wchar_t text[200] = L"";
        TTTOOLINFOW info{};
        info.cbSize = sizeof info;
        info.uFlags = TTF_IDISHWND;
        info.hwnd = GetAncestor(search.control, GA_ROOT);
        info.uId = reinterpret_cast<UINT_PTR>(search.control);
        info.lpszText = text;
        SendMessageW(window, TTM_GETTEXTW, 200, reinterpret_cast<LPARAM>(&info));
        if (text[0] != L'\0') search.tip = text;
        return search.tip.empty();
    }

    static BOOL CALLBACK LookForShownTip(HWND window, LPARAM data) {
        wchar_t name[40] = L"";
        GetClassNameW(window, name, 40);
        if (lstrcmpiW(name, TOOLTIPS_CLASSW) != 0 || !IsWindowVisible(window)) return TRUE;
        *reinterpret_cast<bool*>(data) = true;
        return FALSE;
    }

    bool Enabled(int id) { return IsWindowEnabled(Control(id)) != FALSE; }
    void Cancel() {
        script_.Do([this] { Press(ui::kIdCancel); });
    }
};

TEST_F(Buttons, EachHasItsCaptionAndATip) {
    script_.Do([this] {
        for (const Button& button : kButtons) {
            EXPECT_EQ(TextOf(Control(button.id)), button.caption);
            EXPECT_EQ(TipOf(Control(button.id)), button.tip);
            EXPECT_FALSE(std::wstring_view(button.tip).empty());
        }
    });
    Cancel();
    EXPECT_FALSE(Run(kTotalsByCustomer));
}

TEST_F(Buttons, TheTipShowsWhereThePointerRests) {
    const auto tip_is_shown = [] {
        bool shown = false;
        EnumThreadWindows(GetCurrentThreadId(), &Buttons::LookForShownTip, reinterpret_cast<LPARAM>(&shown));
        return shown;
    };
    script_.Do([this, tip_is_shown] {
        EXPECT_FALSE(tip_is_shown());
        MouseMove(MiddleOf(Control(ui::kIdAddTable)));
    });
    script_.Until(tip_is_shown, "the tip");
    Cancel();
    EXPECT_FALSE(Run(kTotalsByCustomer));
}

TEST_F(Buttons, WithoutAQueryNothingCanBeRemovedOrCleared) {
    script_.Do([this] {
        EXPECT_TRUE(Enabled(ui::kIdAddTable));
        EXPECT_FALSE(Enabled(ui::kIdRemoveColumn));
        EXPECT_FALSE(Enabled(ui::kIdClearAll));
        // Without a connection there is nothing to run a query on.
        EXPECT_FALSE(Enabled(ui::kIdRunQuery));
        EXPECT_TRUE(Enabled(ui::kIdHelp));
    });
    Cancel();
    EXPECT_FALSE(Run(L""));
}

TEST_F(Buttons, WithAQueryColumnsCanBeRemovedAndCleared) {
    script_.Do([this] {
        EXPECT_TRUE(Enabled(ui::kIdAddTable));
        EXPECT_TRUE(Enabled(ui::kIdRemoveColumn));
        EXPECT_TRUE(Enabled(ui::kIdClearAll));
        EXPECT_TRUE(Enabled(ui::kIdSyntaxTree));
    });
    Cancel();
    EXPECT_FALSE(Run(kTotalsByCustomer));
}

TEST_F(Buttons, WithoutADesignInForceTheDiagramTakesNoTable) {
    script_.Do([this] {
        EXPECT_FALSE(Enabled(ui::kIdAddTable));
        EXPECT_TRUE(Enabled(ui::kIdAccept));
        EXPECT_TRUE(Enabled(ui::kIdSyntaxTree));
    });
    Cancel();
    EXPECT_FALSE(Run(L"SELECT a FROM t UNION SELECT b FROM u"));
}

TEST_F(Buttons, AltAAccepts) {
    script_.Do([] { PressAlt('A'); });
    EXPECT_TRUE(Run(L"SELECT Clientes.Nombre FROM Clientes"));
}

TEST_F(Buttons, AltCCancels) {
    script_.Do([] { PressAlt('C'); });
    EXPECT_FALSE(Run(L"SELECT Clientes.Nombre FROM Clientes"));
}

TEST_F(Buttons, AltUOpensTheHelp) {
    RecordedHelp help;
    script_.Do([] { PressAlt('U'); });
    script_.Until([&help] { return help.Calls().size() == 1; }, "the help is asked for");
    Cancel();
    EXPECT_FALSE(Run(L"SELECT Clientes.Nombre FROM Clientes"));
}

}  // namespace tessel::testing
