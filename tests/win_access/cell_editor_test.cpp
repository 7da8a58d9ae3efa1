// A cell of the design grid while it is edited in place.
#include "common/text.h"
#include "tests/win_access/access_fixture.h"
#include "tests/win_access/accessible_laws.h"
#include "tests/win_access/event_log.h"

namespace tessel::testing {

namespace {

class CellEditorTest : public AccessTest {
protected:
    static HWND FocusedEdit() {
        wchar_t name[32] = L"";
        const HWND focus = GetFocus();
        if (focus) GetClassNameW(focus, name, 32);
        return lstrcmpiW(name, L"Edit") == 0 ? focus : nullptr;
    }
    void Open() {
        script_.Do([this] {
            SetFocus(Control(ui::kIdGrid));
            PressKey(VK_F2);
        });
        script_.Until([] { return FocusedEdit() != nullptr; }, "the cell is edited");
    }
    void Finish() {
        script_.Do([] { PressKey(VK_ESCAPE); });
        script_.Until([] { return FocusedEdit() == nullptr; }, "the cell is left");
        CloseAfterwards();
        Run(kCustomersAndOrders);
    }
};

}  // namespace

TEST_F(CellEditorTest, TheEditorIsAChildOfTheGridNamedAsItsCell) {
    Open();
    script_.Do([this] {
        const AccessibleItem grid = WalkOf(ui::kIdGrid);
        ExpectLawfulTree(grid);
        const AccessibleItem& editor = grid.children.back();
        EXPECT_FALSE(editor.own);
        EXPECT_EQ(editor.name, L"Campo, columna 1");
        EXPECT_EQ(RecordedNames::Of(FocusedEdit()), L"Campo, columna 1");
    });
    Finish();
}

TEST_F(CellEditorTest, TheKeyboardIsInTheEditorNotInTheCell) {
    Open();
    script_.Do([this] {
        const auto grid = AccessibleOf(Control(ui::kIdGrid));
        win32::UniqueVariant focus;
        EXPECT_EQ(grid->get_accFocus(focus.Put()), S_OK);
        const auto object = focus.Object().As<IAccessible>();
        ASSERT_TRUE(object);
        HWND hwnd = nullptr;
        EXPECT_EQ(WindowFromAccessibleObject(object.Get(), &hwnd), S_OK);
        EXPECT_EQ(hwnd, FocusedEdit());
        const AccessibleItem* cell = FindAccessible(WalkOf(ui::kIdGrid), L"Campo, columna 1");
        ASSERT_TRUE(cell);
        EXPECT_FALSE(cell->Is(STATE_SYSTEM_FOCUSED));
    });
    Finish();
}

TEST_F(CellEditorTest, TheCellTellsThatItsListIsOpen) {
    const auto is_expanded = [this] {
        const auto grid = AccessibleOf(Control(ui::kIdGrid));
        VARIANT cell = ChildSelf();
        cell.lVal = controls::GridAccessible::CellId(model::GridRow::Campo, 0);
        VARIANT state{};
        EXPECT_EQ(grid->get_accState(cell, &state), S_OK);
        return (state.lVal & STATE_SYSTEM_EXPANDED) != 0;
    };
    Open();
    script_.Do([=] {
        EXPECT_FALSE(is_expanded());
        PressAlt(VK_DOWN);
    });
    script_.Until([=] { return is_expanded(); }, "the list is open");
    script_.Do([] { PressKey(VK_ESCAPE); });
    script_.Until([=] { return !is_expanded(); }, "the list is closed");
    Finish();
}

TEST_F(CellEditorTest, ABoxOfVisibleIsTickedByItsAction) {
    script_.Do([this] {
        const auto grid = AccessibleOf(Control(ui::kIdGrid));
        VARIANT cell = ChildSelf();
        cell.lVal = controls::GridAccessible::CellId(model::GridRow::Visible, 0);
        EXPECT_EQ(grid->accDoDefaultAction(cell), S_OK);
    });
    script_.Until([this] { return Cell(model::GridRow::Visible, 0) == L"No"; }, "the box is unticked");
    CloseAfterwards();
    Run(kCustomersAndOrders);
}

TEST_F(CellEditorTest, AnotherProgramMovesTheFocusToACell) {
    script_.Do([this] {
        SetFocus(Control(ui::kIdEditor));
        const auto grid = AccessibleOf(Control(ui::kIdGrid));
        VARIANT cell = ChildSelf();
        cell.lVal = controls::GridAccessible::CellId(model::GridRow::Orden, 1);
        EXPECT_EQ(grid->accSelect(SELFLAG_TAKEFOCUS | SELFLAG_TAKESELECTION, cell), S_OK);
        EXPECT_EQ(GetFocus(), Control(ui::kIdGrid));
        EXPECT_EQ(Grid().FocusedRow(), model::GridRow::Orden);
        EXPECT_EQ(Grid().FocusedColumn(), 1);
    });
    CloseAfterwards();
    Run(kCustomersAndOrders);
}

}  // namespace tessel::testing
