#include "tests/win_grid/grid_fixture.h"

namespace tessel::controls {
namespace {

using testing::Click;
using testing::DoubleClick;
using testing::PressKey;
using testing::SavePicture;
using testing::TypeText;

class GridEditing : public GridTest {
protected:
    bool WaitForEditor(bool open = true) {
        return frame_.WaitFor([&] { return view_.IsEditing() == open; });
    }
    bool WaitForText(const std::wstring& text) {
        return frame_.WaitFor([&] { return view_.IsEditing() && view_.Editor().Text() == text; });
    }
    HWND List() const {
        COMBOBOXINFO info{};
        info.cbSize = sizeof info;
        GetComboBoxInfo(view_.Editor().Combo(), &info);
        return info.hwndList;
    }
    const std::wstring& Cell(GridRow row, int column) const { return grid_.Cell(row, column); }
};

TEST_F(GridEditing, TypingReplacesTheTextAndEnterCommitsAndMovesDown) {
    FillGrid();
    ClickCell(GridRow::Titulo, 1);
    TypeText(L"Año ñandú €");
    ASSERT_TRUE(WaitForText(L"Año ñandú €"));
    PressKey(VK_RETURN);
    ASSERT_TRUE(WaitForEditor(false));
    EXPECT_EQ(Cell(GridRow::Titulo, 1), L"Año ñandú €");
    EXPECT_TRUE(IsOn(GridRow::Tabla, 1));
    EXPECT_EQ(presenter_.commits.size(), 1u);
    EXPECT_EQ(frame_.last_command, 0);
}

TEST_F(GridEditing, F2KeepsTheTextAndTabCommitsAndMovesRight) {
    FillGrid();
    ClickCell(GridRow::Condicion, 1);
    PressKey(VK_F2);
    ASSERT_TRUE(WaitForText(L">1000"));
    PressKey(VK_END);
    TypeText(L"0");
    ASSERT_TRUE(WaitForText(L">10000"));
    PressKey(VK_TAB);
    ASSERT_TRUE(WaitForEditor(false));
    EXPECT_EQ(Cell(GridRow::Condicion, 1), L">10000");
    EXPECT_TRUE(IsOn(GridRow::Condicion, 2));
    EXPECT_EQ(GetFocus(), view_.Handle());
}

TEST_F(GridEditing, DoubleClickEdits) {
    const POINT point = Middle(GridRow::Campo, 2);
    DoubleClick(view_.Handle(), point.x, point.y);
    EXPECT_TRUE(WaitForEditor());
    EXPECT_TRUE(IsOn(GridRow::Campo, 2));
}

TEST_F(GridEditing, EscapeForgetsTheTextAndNothingElse) {
    FillGrid();
    ClickCell(GridRow::Campo, 0);
    TypeText(L"otra cosa");
    ASSERT_TRUE(WaitForText(L"otra cosa"));
    PressKey(VK_ESCAPE);
    ASSERT_TRUE(WaitForEditor(false));
    EXPECT_EQ(Cell(GridRow::Campo, 0), L"Clientes.Nombre");
    EXPECT_TRUE(presenter_.commits.empty());
    EXPECT_EQ(frame_.last_command, 0);
    EXPECT_EQ(GetFocus(), view_.Handle());
}

TEST_F(GridEditing, UnchangedTextIsNotReported) {
    FillGrid();
    ClickCell(GridRow::Campo, 0);
    PressKey(VK_F2);
    ASSERT_TRUE(WaitForEditor());
    PressKey(VK_RETURN);
    ASSERT_TRUE(WaitForEditor(false));
    EXPECT_TRUE(presenter_.commits.empty());
}

TEST_F(GridEditing, ArrowKeysUpAndDownCommitAndMove) {
    ClickCell(GridRow::Condicion, 1);
    TypeText(L"=5");
    ASSERT_TRUE(WaitForText(L"=5"));
    PressKey(VK_UP);
    ASSERT_TRUE(WaitForEditor(false));
    EXPECT_EQ(Cell(GridRow::Condicion, 1), L"=5");
    EXPECT_TRUE(IsOn(GridRow::Orden, 1));
}

TEST_F(GridEditing, ClickElsewhereCommits) {
    ClickCell(GridRow::Campo, 0);
    TypeText(L"Clientes.Nombre");
    ASSERT_TRUE(WaitForText(L"Clientes.Nombre"));
    ClickCell(GridRow::Campo, 3);
    ASSERT_TRUE(WaitForEditor(false));
    EXPECT_EQ(Cell(GridRow::Campo, 0), L"Clientes.Nombre");
    EXPECT_TRUE(frame_.WaitFor([&] { return IsOn(GridRow::Campo, 3); }));
}

TEST_F(GridEditing, LosingTheFocusCommits) {
    ClickCell(GridRow::Campo, 0);
    TypeText(L"Pedidos.Importe");
    ASSERT_TRUE(WaitForText(L"Pedidos.Importe"));
    SetFocus(after_);
    ASSERT_TRUE(WaitForEditor(false));
    EXPECT_EQ(Cell(GridRow::Campo, 0), L"Pedidos.Importe");
    EXPECT_EQ(GetFocus(), after_);
}

TEST_F(GridEditing, DeleteEmptiesTheCell) {
    FillGrid();
    ClickCell(GridRow::Condicion, 1);
    PressKey(VK_DELETE);
    EXPECT_TRUE(frame_.WaitFor([&] { return Cell(GridRow::Condicion, 1).empty(); }));
    ASSERT_EQ(presenter_.commits.size(), 1u);
    PressKey(VK_DELETE);
    frame_.Pump();
    EXPECT_EQ(presenter_.commits.size(), 1u);
}

TEST_F(GridEditing, AltDownOpensTheListAndEnterChooses) {
    ClickCell(GridRow::Visible, 1);
    PressKey(VK_DOWN, false, false, true);
    ASSERT_TRUE(frame_.WaitFor([&] { return view_.Editor().IsListShown(); }));
    PressKey(VK_DOWN);
    PressKey(VK_DOWN);
    frame_.Pump();
    PressKey(VK_RETURN);
    ASSERT_TRUE(WaitForEditor(false));
    EXPECT_EQ(Cell(GridRow::Visible, 1), L"No");
    EXPECT_EQ(presenter_.commits.size(), 1u);
}

TEST_F(GridEditing, ClickOnTheArrowOpensTheListAndAClickChooses) {
    FillGrid();
    ClickCell(GridRow::Agrupacion, 1);
    const RECT cell = view_.CellRect(GridRow::Agrupacion, 1);
    Click(view_.Handle(), cell.right - Px(8), Middle(GridRow::Agrupacion, 1).y);
    ASSERT_TRUE(frame_.WaitFor([&] { return view_.IsEditing() && view_.Editor().IsListShown(); }));
    frame_.Pump();
    SavePicture(frame_.Handle(), "grid_list_open", List());
    RECT item{};
    SendMessageW(List(), LB_GETITEMRECT, 5, reinterpret_cast<LPARAM>(&item));
    Click(List(), (item.left + item.right) / 2, (item.top + item.bottom) / 2);
    ASSERT_TRUE(WaitForEditor(false));
    EXPECT_EQ(Cell(GridRow::Agrupacion, 1), L"Cuenta");
    EXPECT_EQ(presenter_.commits.size(), 1u);
}

TEST_F(GridEditing, ListIsWideEnoughForItsItems) {
    ClickCell(GridRow::Campo, 1);
    PressKey(VK_F4);
    ASSERT_TRUE(frame_.WaitFor([&] { return view_.IsEditing() && view_.Editor().IsListShown(); }));
    RECT list;
    GetWindowRect(List(), &list);
    EXPECT_GT(list.right - list.left, Px(200));
    frame_.Pump();
    SavePicture(frame_.Handle(), "grid_list_wide", List());
}

TEST_F(GridEditing, TypingInAWordRowOpensTheListAtTheWordAndEnterTakesIt) {
    ClickCell(GridRow::Agrupacion, 1);
    TypeText(L"s");
    ASSERT_TRUE(frame_.WaitFor([&] { return view_.IsEditing() && view_.Editor().IsListShown(); }));
    EXPECT_EQ(view_.Editor().Text(), L"s");
    PressKey(VK_RETURN);
    ASSERT_TRUE(WaitForEditor(false));
    EXPECT_EQ(Cell(GridRow::Agrupacion, 1), L"Suma");
}

TEST_F(GridEditing, AWholeWordTypedInAWordRowComesOutAsTyped) {
    ClickCell(GridRow::Agrupacion, 1);
    TypeText(L"Promedio");
    ASSERT_TRUE(frame_.WaitFor([&] { return view_.Editor().Text() == L"Promedio"; }));
    PressKey(VK_RETURN);
    ASSERT_TRUE(WaitForEditor(false));
    EXPECT_EQ(Cell(GridRow::Agrupacion, 1), L"Promedio");
}

TEST_F(GridEditing, TextThatMatchesNoItemStaysAsTyped) {
    ClickCell(GridRow::Agrupacion, 1);
    TypeText(L"xyz");
    ASSERT_TRUE(WaitForText(L"xyz"));
    PressKey(VK_RETURN);
    ASSERT_TRUE(WaitForEditor(false));
    EXPECT_EQ(Cell(GridRow::Agrupacion, 1), L"xyz");
}

TEST_F(GridEditing, TypingAnExpressionIsNeverCompletedFromTheList) {
    ClickCell(GridRow::Campo, 1);
    TypeText(L"Clientes.N");
    ASSERT_TRUE(WaitForText(L"Clientes.N"));
    EXPECT_FALSE(view_.Editor().IsListShown());
    PressKey(VK_RETURN);
    ASSERT_TRUE(WaitForEditor(false));
    EXPECT_EQ(Cell(GridRow::Campo, 1), L"Clientes.N");
}

TEST_F(GridEditing, EscapeWithTheListOpenClosesTheListFirst) {
    FillGrid();
    ClickCell(GridRow::Campo, 0);
    PressKey(VK_F4);
    ASSERT_TRUE(frame_.WaitFor([&] { return view_.IsEditing() && view_.Editor().IsListShown(); }));
    PressKey(VK_DOWN);
    frame_.Pump();
    PressKey(VK_ESCAPE);
    ASSERT_TRUE(frame_.WaitFor([&] { return !view_.Editor().IsListShown(); }));
    EXPECT_TRUE(view_.IsEditing());
    EXPECT_EQ(view_.Editor().Text(), L"Clientes.Nombre");
    PressKey(VK_ESCAPE);
    ASSERT_TRUE(WaitForEditor(false));
    EXPECT_TRUE(presenter_.commits.empty());
    EXPECT_EQ(frame_.last_command, 0);
}

TEST_F(GridEditing, TextOfExactlyTheLimitIsCommitted) {
    view_.BeginEdit(GridRow::Campo, 0);
    const std::wstring text(255, L'ñ');
    SetWindowTextW(view_.Editor().Combo(), text.c_str());
    EXPECT_TRUE(view_.CommitEdit());
    EXPECT_EQ(Cell(GridRow::Campo, 0), text);
}

TEST_F(GridEditing, TextTooLongIsReportedWholeAndStaysInTheEditor) {
    FillGrid();
    view_.BeginEdit(GridRow::Campo, 0);
    const std::wstring text(300, L'x');
    SetWindowTextW(view_.Editor().Combo(), text.c_str());
    EXPECT_FALSE(view_.CommitEdit());
    ASSERT_EQ(presenter_.commits.size(), 1u);
    EXPECT_EQ(presenter_.commits[0], text);
    EXPECT_TRUE(view_.IsEditing());
    EXPECT_EQ(view_.Editor().Text(), text);
    EXPECT_EQ(Cell(GridRow::Campo, 0), L"Clientes.Nombre");
    PressKey(VK_RETURN);
    EXPECT_TRUE(frame_.WaitFor([&] { return presenter_.commits.size() == 2; }));
    EXPECT_TRUE(view_.IsEditing());
    PressKey(VK_ESCAPE);
    EXPECT_TRUE(WaitForEditor(false));
}

TEST_F(GridEditing, TextTooLongLeftByTheFocusIsReportedAndComesBack) {
    view_.BeginEdit(GridRow::Campo, 0);
    SetWindowTextW(view_.Editor().Combo(), std::wstring(300, L'x').c_str());
    SetFocus(after_);
    EXPECT_TRUE(frame_.WaitFor([&] { return presenter_.commits.size() == 1; }));
    EXPECT_TRUE(view_.IsEditing());
    EXPECT_EQ(GetFocus(), view_.Editor().Edit());
    EXPECT_EQ(view_.Editor().Text().size(), 300u);
}

TEST_F(GridEditing, MessageBoxOfThePresenterDoesNotReportTwice) {
    view_.BeginEdit(GridRow::Campo, 0);
    SetWindowTextW(view_.Editor().Combo(), std::wstring(300, L'x').c_str());
    presenter_.on_commit = [&] { SetFocus(before_); };
    EXPECT_FALSE(view_.CommitEdit());
    frame_.Pump();
    EXPECT_EQ(presenter_.commits.size(), 1u);
    EXPECT_TRUE(view_.IsEditing());
}

TEST_F(GridEditing, HidingTheEditedColumnEndsTheEdit) {
    view_.BeginEdit(GridRow::Campo, 2);
    grid_.ShowColumn(2, false);
    EXPECT_FALSE(view_.IsEditing());
    EXPECT_TRUE(presenter_.commits.empty());
}

TEST_F(GridEditing, EditorFollowsItsCellWhenAColumnBeforeItIsResized) {
    view_.BeginEdit(GridRow::Campo, 2);
    grid_.SetColumnWidth(0, 120);
    RECT place;
    GetWindowRect(view_.Editor().Combo(), &place);
    MapWindowPoints(nullptr, view_.Handle(), reinterpret_cast<POINT*>(&place), 2);
    EXPECT_EQ(place.left, view_.CellRect(GridRow::Campo, 2).left);
}

TEST_F(GridEditing, EditorCoversItsCellAndGrowsWithItsText) {
    FillGrid();
    ClickCell(GridRow::Campo, 2);
    PressKey(VK_F2);
    ASSERT_TRUE(WaitForEditor());
    frame_.Pump();
    SavePicture(frame_.Handle(), "grid_editing");
    // All of it is selected and shown from its first letter.
    EXPECT_EQ(SendMessageW(view_.Editor().Edit(), EM_POSFROMCHAR, 0, 0) & 0x8000, 0);
    DWORD start = 1;
    DWORD end = 0;
    SendMessageW(view_.Editor().Edit(), EM_GETSEL, reinterpret_cast<WPARAM>(&start),
                 reinterpret_cast<LPARAM>(&end));
    EXPECT_EQ(start, 0u);
    EXPECT_EQ(end, Cell(GridRow::Campo, 2).size());
    RECT place;
    GetWindowRect(view_.Editor().Combo(), &place);
    MapWindowPoints(nullptr, view_.Handle(), reinterpret_cast<POINT*>(&place), 2);
    const RECT cell = view_.CellRect(GridRow::Campo, 2);
    EXPECT_EQ(place.left, cell.left);
    EXPECT_EQ(place.top, cell.top);
    EXPECT_EQ(place.bottom, cell.bottom);
    EXPECT_GT(place.right, cell.right);
}

TEST_F(GridEditing, EditingColumn60ScrollsToIt) {
    view_.BeginEdit(GridRow::Campo, 59);
    EXPECT_TRUE(view_.IsEditing());
    EXPECT_TRUE(IsOn(GridRow::Campo, 59));
    RECT client;
    GetClientRect(view_.Handle(), &client);
    EXPECT_EQ(view_.CellRect(GridRow::Campo, 59).right, client.right);
    TypeText(L"Clientes.Teléfono");
    ASSERT_TRUE(WaitForText(L"Clientes.Teléfono"));
    PressKey(VK_RETURN);
    ASSERT_TRUE(WaitForEditor(false));
    EXPECT_EQ(Cell(GridRow::Campo, 59), L"Clientes.Teléfono");
}

}  // namespace
}  // namespace tessel::controls
