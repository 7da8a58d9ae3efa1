// The preview's window as a user meets it.
#include "ui/win32/dlg_pvw.h"

#include <gtest/gtest.h>

#include "common/win32/activation_context.h"
#include "common/win32/dpi.h"
#include "hostkit/drive/input.h"
#include "hostkit/drive/script.h"
#include "tests/preview/literal_rows.h"
#include "tests/support/win32/process_use.h"
#include "tests/win_preview/generated_recordset.h"
#include "ui/win32/recordset_rows.h"

namespace tessel::testing {

using tests::MemoryInUse;

using tests::MakeGeneratedRecordset;
using tests::NumberedColumns;
using tests::RecordsetLog;
using ui::CellPlace;
using ui::dlgPVW;
using ui::FindBar;
using Texts = std::vector<std::wstring>;

std::wstring ClipboardText() {
    if (!OpenClipboard(nullptr)) return L"(cerrado)";
    std::wstring text = L"(sin texto)";
    if (const HANDLE memory = GetClipboardData(CF_UNICODETEXT))
        if (const auto* data = static_cast<const wchar_t*>(GlobalLock(memory))) {
            text = data;
            GlobalUnlock(memory);
        }
    CloseClipboard();
    return text;
}

class PreviewWindow : public ::testing::Test {
protected:
    void Open(ui::PreviewRows& rows) {
        window_.emplace(rows);
        script_.OnTrouble([this] { PostMessageW(window_->Handle(), WM_CLOSE, 0, 0); });
        script_.Until([this] { return window_->Handle() && IsWindowVisible(window_->Handle()); }, "visible");
    }
    /// Runs the script and then closes the window with Esc.
    void Run() {
        script_.Do([] { PressKey(VK_ESCAPE); });
        script_.Start();
        EXPECT_FALSE(window_->Show(nullptr));
        EXPECT_TRUE(script_.Finished()) << script_.Trouble();
    }
    void UntilStatus(const std::wstring& text) {
        script_.Until([this, text] { return Status() == text; }, "a status line");
    }
    void Key(WORD key, bool shift = false, bool control = false) {
        script_.Do([=] { PressKey(key, shift, control); });
    }

    HWND List() { return window_->List(); }
    std::wstring Status() { return TextOf(Descendant(window_->Handle(), dlgPVW::kIdStatus)); }
    int Width(int column) {
        return static_cast<int>(SendMessageW(List(), LVM_GETCOLUMNWIDTH, static_cast<WPARAM>(column), 0));
    }
    std::wstring CellText(int row, int column) {
        wchar_t text[300] = L"";
        LVITEMW item{};
        item.iSubItem = column;
        item.pszText = text;
        item.cchTextMax = 300;
        SendMessageW(List(), LVM_GETITEMTEXTW, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
        return text;
    }
    LVCOLUMNW Column(int index, std::wstring* text) {
        text->assign(100, L'\0');
        LVCOLUMNW column{};
        column.mask = LVCF_TEXT | LVCF_FMT;
        column.pszText = text->data();
        column.cchTextMax = 100;
        SendMessageW(List(), LVM_GETCOLUMNW, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&column));
        text->resize(wcslen(text->c_str()));
        return column;
    }

    win32::ActivationContext context_;
    Script script_;
    std::optional<dlgPVW> window_;
};

std::unique_ptr<ui::PreviewRows> NumberedRows(LONG count, std::shared_ptr<RecordsetLog> log) {
    const tests::FakePtr recordset = MakeGeneratedRecordset(NumberedColumns(), count, std::move(log));
    auto rows = ui::RecordsetRows::Over(win32::Dispatch(recordset.Get()));
    EXPECT_TRUE(rows);
    return std::move(rows).Value();
}

test::LiteralRows Cities() {
    return test::LiteralRows(
        {L"Nombre", L"Ciudad"},
        {{L"Ana", L"Madrid"}, {L"Óscar", L"(null)"}, {L"Madrid y Cía", L"Mérida"}, {L"Luz", L"MADRIDEJOS"}});
}

TEST_F(PreviewWindow, HasItsTitleItsButtonAndOneColumnForEachField) {
    const auto rows = NumberedRows(3, std::make_shared<RecordsetLog>());
    Open(*rows);
    script_.Do([this] {
        EXPECT_EQ(TextOf(window_->Handle()), L"Vista previa de datos");
        EXPECT_EQ(TextOf(Descendant(window_->Handle(), IDCANCEL)), L"&Cerrar");
        std::wstring name;
        EXPECT_EQ(Column(0, &name).fmt & LVCFMT_JUSTIFYMASK, LVCFMT_LEFT);
        EXPECT_EQ(name, L"Nombre");
        EXPECT_EQ(Column(1, &name).fmt & LVCFMT_JUSTIFYMASK, LVCFMT_RIGHT);
        EXPECT_EQ(name, L"Importe");
        EXPECT_EQ(Header_GetItemCount(ListView_GetHeader(List())), 3);
        EXPECT_EQ(CellText(1, 0), L"Fila 2");
        EXPECT_EQ(CellText(2, 1), L"3");
        EXPECT_EQ(Status(), L"Fila 1 de 3");
        EXPECT_EQ(GetFocus(), List());
    });
    Run();
}

TEST_F(PreviewWindow, ANumberInTheFirstColumnIsRightAlignedToo) {
    const auto log = std::make_shared<RecordsetLog>();
    const tests::FakePtr recordset =
        MakeGeneratedRecordset({{L"n", 3, [](LONG row) { return win32::UniqueVariant(row); }}}, 5, log);
    auto rows = ui::RecordsetRows::Over(win32::Dispatch(recordset.Get()));
    ASSERT_TRUE(rows);
    Open(*rows.Value());
    script_.Do([this] {
        std::wstring name;
        EXPECT_EQ(Column(0, &name).fmt & LVCFMT_JUSTIFYMASK, LVCFMT_RIGHT);
        EXPECT_EQ(name, L"n");
    });
    Run();
}

TEST_F(PreviewWindow, NarrowColumnsKeepTheirWidthsAndAWideOneIsCutTo150) {
    test::LiteralRows rows({L"a", L"Mediana", L"Larga"},
                           {{L"1", L"veinte letras o así", std::wstring(200, L'm')}, {L"22", L"", L"x"}});
    Open(rows);
    script_.Do([this] {
        const int limit = win32::Scale(150, win32::DpiOf(window_->Handle()));
        EXPECT_LT(Width(0), limit / 2);
        EXPECT_GT(Width(1), Width(0));
        EXPECT_LT(Width(1), limit);
        EXPECT_EQ(Width(2), limit);
    });
    Run();
}

TEST_F(PreviewWindow, NullIsShownDistinctly) {
    test::LiteralRows rows = Cities();
    Open(rows);
    script_.Do([this] { EXPECT_EQ(CellText(1, 1), L"(nulo)"); });
    Run();
}

TEST_F(PreviewWindow, WithoutRowsItSaysSo) {
    test::LiteralRows rows({L"a"}, {});
    Open(rows);
    script_.Do([this] { EXPECT_EQ(Status(), L"Sin filas"); });
    Key('C', false, true);
    Key(VK_RIGHT);
    Key('A', false, true);
    script_.Do([this] { EXPECT_EQ(Status(), L"Sin filas"); });
    Run();
}

TEST_F(PreviewWindow, TheStatusLineFollowsTheRowAndTheSelection) {
    test::LiteralRows rows = Cities();
    Open(rows);
    Key(VK_DOWN);
    UntilStatus(L"Fila 2 de 4");
    Key(VK_DOWN, true);
    UntilStatus(L"Fila 3 de 4 (2 seleccionadas)");
    Key('A', false, true);
    UntilStatus(L"Fila 3 de 4 (4 seleccionadas)");
    Run();
}

TEST_F(PreviewWindow, CopiesTheSelectedRowsWithTheirHeaders) {
    test::LiteralRows rows = Cities();
    Open(rows);
    Key(VK_DOWN, true);
    Key('C', false, true);
    script_.Until([] { return ClipboardText() == L"Nombre\tCiudad\r\nAna\tMadrid\r\nÓscar\t\r\n"; },
                  "two rows");
    Key('A', false, true);
    Key('C', false, true);
    script_.Until([] { return ClipboardText().size() > 60; }, "four rows");
    Run();
    EXPECT_EQ(ClipboardText(),
              L"Nombre\tCiudad\r\nAna\tMadrid\r\nÓscar\t\r\nMadrid y Cía\tMérida\r\nLuz\tMADRIDEJOS\r\n");
}

TEST_F(PreviewWindow, CopiesTheCurrentCellAfterMovingWithTheArrows) {
    test::LiteralRows rows = Cities();
    Open(rows);
    Key(VK_DOWN);
    Key(VK_DOWN);
    Key(VK_RIGHT);
    script_.Until([this] { return window_->CurrentCell() == CellPlace{2, 1}; }, "the cell");
    Key('C', true, true);
    script_.Until([] { return ClipboardText() == L"Mérida"; }, "the cell's text");
    Key(VK_RIGHT);
    Key(VK_LEFT);
    Key(VK_LEFT);
    script_.Until([this] { return window_->CurrentCell() == CellPlace{2, 0}; }, "the first column");
    Run();
}

TEST_F(PreviewWindow, AClickMakesTheCellCurrent) {
    test::LiteralRows rows = Cities();
    Open(rows);
    script_.Do([this] {
        RECT cell{};
        ListView_GetSubItemRect(List(), 2, 1, LVIR_BOUNDS, &cell);
        MouseClick(ScreenPoint(List(), cell));
    });
    script_.Until([this] { return window_->CurrentCell() == CellPlace{2, 1}; }, "the clicked cell");
    Run();
}

TEST_F(PreviewWindow, FindGoesFromPlaceToPlaceAndF3GoesOn) {
    test::LiteralRows rows = Cities();
    Open(rows);
    Key('F', false, true);
    script_.Until([this] { return GetFocus() == Descendant(window_->Handle(), FindBar::kIdText); },
                  "the edit");
    script_.Do([] { TypeText(L"madrid"); });
    Key(VK_RETURN);
    script_.Until([this] { return window_->CurrentCell() == CellPlace{0, 1}; }, "the first place");
    Key(VK_F3);
    script_.Until([this] { return window_->CurrentCell() == CellPlace{2, 0}; }, "the second place");
    UntilStatus(L"Fila 3 de 4");
    Key(VK_F3, true);
    script_.Until([this] { return window_->CurrentCell() == CellPlace{0, 1}; }, "the first place again");
    script_.Do([] { TypeText(L"x"); });
    Key(VK_RETURN);
    UntilStatus(L"No se encontró el texto.");
    Key(VK_ESCAPE);
    script_.Until([this] { return GetFocus() == List(); }, "the bar is gone");
    script_.Do([this] {
        EXPECT_FALSE(IsWindowVisible(Descendant(window_->Handle(), FindBar::kIdText)));
        EXPECT_EQ(Status(), L"Fila 1 de 4");
    });
    Run();
}

TEST_F(PreviewWindow, ALongSearchLeavesTheWindowAliveAndEscEndsIt) {
    const auto rows = NumberedRows(1000000, std::make_shared<RecordsetLog>());
    Open(*rows);
    script_.Do([this] { window_->Find(L"no hay tal texto", false); });
    script_.Until([this] { return Status().rfind(L"Buscando en la fila ", 0) == 0; }, "searching");
    Key(VK_ESCAPE);
    script_.Until([this] { return !window_->IsSearching(); }, "the search ended");
    script_.Do([this] { EXPECT_EQ(window_->CurrentCell(), (CellPlace{0, 0})); });
    Run();
}

TEST_F(PreviewWindow, ALostConnectionIsToldInTheStatusLine) {
    const auto log = std::make_shared<RecordsetLog>();
    const auto rows = NumberedRows(100000, log);
    Open(*rows);
    script_.Do([log] { log->broken = true; });
    Key(VK_END);
    UntilStatus(L"Se perdió la conexión");
    Run();
}

TEST_F(PreviewWindow, AMillionRowsAreScrolledToTheEndAndOnlyTheShownOnesAreRead) {
    const auto log = std::make_shared<RecordsetLog>();
    const long long before = MemoryInUse();
    long long open = 0, at_end = 0;
    {
        const auto rows = NumberedRows(1000000, log);
        Open(*rows);
        script_.Do([&] { open = MemoryInUse(); });
        for (int page = 0; page < 50; ++page) Key(VK_NEXT);
        Key(VK_END);
        script_.Until([this] { return window_->CurrentCell().row == 999999; }, "the last row");
        script_.Do([&] {
            UpdateWindow(List());
            const int top = ListView_GetTopIndex(List());
            EXPECT_GT(top, 999900);
            EXPECT_EQ(CellText(999999, 0), L"Fila 1000000");
            at_end = MemoryInUse();
        });
        Run();
    }
    EXPECT_FALSE(log->alive);
    EXPECT_LT(log->rows_given, 20000);
    EXPECT_LE(log->largest_request, 256);
    EXPECT_LT(at_end - before, 24 * 1024);
    std::printf("memory for 1000000 rows: %lld KB open, %lld KB at the end, %ld rows read\n", open - before,
                at_end - before, log->rows_given);
}

}  // namespace tessel::testing
