// The dialogs of the designer as an accessibility client finds them.
#include "common/text.h"
#include "tests/preview/literal_rows.h"
#include "tests/win_access/access_fixture.h"
#include "tests/win_access/accessible_laws.h"
#include "ui/win32/dlg_pvw.h"

namespace tessel::testing {

namespace {

class DialogWalkTest : public AccessTest {
protected:
    static HWND Dialog() {
        const HWND dialog = FindWindowW(L"TesselDialog", nullptr);
        return dialog && IsWindowVisible(dialog) ? dialog : nullptr;
    }
    /// Opens a dialog, walks it and closes everything.
    AccessibleItem WalkDialog(std::function<void()> open) {
        AccessibleItem tree;
        script_.Do(std::move(open));
        script_.Until([] { return Dialog() != nullptr; }, "the dialog is open");
        script_.Do([&] {
            tree = WalkAccessible(Dialog());
            ExpectLawfulTree(tree);
            PostMessageW(Dialog(), WM_CLOSE, 0, 0);
        });
        script_.Until([] { return Dialog() == nullptr; }, "the dialog is closed");
        CloseAfterwards();
        Run(kCustomersAndOrders);
        return tree;
    }
};

}  // namespace

TEST_F(DialogWalkTest, AddTable) {
    const AccessibleItem tree = WalkDialog([this] { Press(ui::kIdAddTable); });
    EXPECT_EQ(tree.name, L"Agregar tabla al diagrama");
    for (const wchar_t* name : {L"Tablas relacionadas con", L"Buscar", L"Tablas y vistas", L"Agregar",
                                L"Cerrar", L"Mantener abierta"})
        EXPECT_TRUE(FindAccessible(tree, name)) << ToUtf8(name);
}

TEST_F(DialogWalkTest, SyntaxTree) {
    const AccessibleItem tree = WalkDialog([this] { Press(ui::kIdSyntaxTree); });
    EXPECT_EQ(tree.name, L"Árbol de sintaxis");
    EXPECT_TRUE(FindAccessible(tree, L"Instrucción analizada"));
    EXPECT_TRUE(FindAccessible(tree, L"Cerrar"));
}

TEST_F(DialogWalkTest, RelationProperties) {
    const AccessibleItem tree = WalkDialog([this] {
        const int key = Diagram().Relations().front().key;
        const auto diagram = AccessibleOf(Control(ui::kIdDiagram));
        VARIANT relation = ChildSelf();
        relation.lVal = controls::diagram::DiagramAccessible::RelationId(key);
        EXPECT_EQ(diagram->accDoDefaultAction(relation), S_OK);
    });
    EXPECT_FALSE(tree.name.empty());
    EXPECT_TRUE(FindAccessible(tree, L"Cancelar"));
}

TEST_F(DialogWalkTest, Preview) {
    test::LiteralRows rows({L"Nombre", L"Total"}, {{L"Ana", L"1"}, {L"Luis", L"(null)"}});
    const std::size_t names_before = RecordedNames::Count();
    ui::dlgPVW window(rows);
    AccessibleItem tree;
    Script script;
    script.OnTrouble([&] { PostMessageW(window.Handle(), WM_CLOSE, 0, 0); });
    script.Until([] { return Dialog() != nullptr; }, "the preview is open");
    script.Do([] { PressKey('F', false, true); });
    script.Until([&] { return IsWindowVisible(Descendant(window.Handle(), ui::FindBar::kIdText)) != FALSE; },
                 "the search is open");
    script.Do([&] {
        tree = WalkAccessible(window.Handle());
        ExpectLawfulTree(tree);
        PostMessageW(window.Handle(), WM_CLOSE, 0, 0);
    });
    script.Start();
    EXPECT_FALSE(window.Show(nullptr));
    EXPECT_TRUE(script.Finished()) << script.Trouble();
    EXPECT_EQ(tree.name, L"Vista previa de datos");
    EXPECT_TRUE(FindAccessible(tree, L"Cerrar"));
    EXPECT_EQ(RecordedNames::Count(), names_before);
}

}  // namespace tessel::testing
