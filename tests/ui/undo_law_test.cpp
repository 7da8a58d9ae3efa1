// The law of undo and redo: whatever the user did, undoing everything gives the first design and redoing
// everything the last, field by field and in the composed text; and every state between is met on the way.
#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

#include "common/text.h"
#include "model/grid_editing.h"
#include "tests/model/sample_schema.h"
#include "tests/support/seed.h"
#include "tests/ui/fakes.h"
#include "ui/designer_presenter.h"

namespace tessel::ui {
namespace {

using model::GridRow;

/// A design as the user sees it.
struct Picture {
    std::vector<std::wstring> grid;
    std::vector<model::DiagramTable> tables;
    std::vector<model::RelInfo> relations;
    bool distinct = false;
    std::wstring sql;
    friend bool operator==(const Picture&, const Picture&) = default;
};

class UndoLaw : public ::testing::Test {
protected:
    UndoLaw() : random_(tests::Seed()) {
        presenter_.Load();
        presenter_.BindSchema(&schema_);
    }

    std::size_t Below(std::size_t count) { return static_cast<std::size_t>(random_() % count); }
    template <typename T>
    const T& OneOf(const std::vector<T>& values) {
        return values[Below(values.size())];
    }
    /// Mostly among the first columns, where something is.
    int AnyColumn() { return static_cast<int>(Below(10) == 0 ? Below(60) : Below(7)); }
    GridRow AnyRow() { return model::kGridRows[Below(model::kGridRows.size())]; }

    Picture Look() const {
        Picture picture;
        const model::Design& design = presenter_.Design();
        for (int column = 0; column < design.grid.ColumnCount(); ++column) {
            for (const GridRow row : model::kGridRows) picture.grid.push_back(design.grid.Cell(row, column));
            picture.grid.push_back(design.grid.Caption(column));
            picture.grid.push_back(design.grid.IsColumnShown(column) ? L"shown" : L"hidden");
        }
        picture.tables = design.diagram.Tables();
        for (const model::DiagramRelation& relation : design.diagram.Relations())
            picture.relations.push_back(relation.info);
        picture.distinct = design.distinct;
        picture.sql = presenter_.BuildSQL();
        return picture;
    }

    std::wstring AnyText(GridRow row) {
        static const std::vector<std::wstring> fields = {L"Clientes.nombre",
                                                         L"clientes.IDCLIENTE",
                                                         L"Pedidos.Importe",
                                                         L"Pedidos.*",
                                                         L"Sum(Pedidos.Importe)",
                                                         L"1 + 1",
                                                         L"nombre",
                                                         L""};
        static const std::vector<std::wstring> others = {
            L"nombre", L"Total", L"Clientes", L"Suma", L"Si", L"No", L"", L">5", L"Ascendente", L"='x'"};
        return OneOf(row == GridRow::Campo ? fields : others);
    }

    model::CellRange AnyRange() {
        model::CellRange range{AnyRow(), AnyRow(), {}};
        if (range.top > range.bottom) std::swap(range.top, range.bottom);
        const int first = AnyColumn();
        for (int column = first; column < 60 && column < first + 3; ++column) range.columns.push_back(column);
        return range;
    }

    /// The diagram control gives new tables a place as soon as it paints.
    void LayOut() {
        model::Diagram& diagram = presenter_.Design().diagram;
        std::vector<std::wstring> unplaced;
        for (const model::DiagramTable& table : diagram.Tables())
            if (!table.placed) unplaced.push_back(table.name);
        for (const std::wstring& name : unplaced) diagram.SetTableRect(name, {20, 30, 100, 120});
        presenter_.StepDone();
    }

    void Gesture() {
        const std::vector<std::wstring> names = {L"Clientes", L"Pedidos", L"Empleados", L"Productos",
                                                 L"desconocida"};
        const std::vector<std::wstring> fields = {L"nombre", L"IdCliente", L"IdPedido", L"*"};
        model::Diagram& diagram = presenter_.Design().diagram;
        switch (Below(17)) {
            case 0:
            case 1:
            case 2: {
                const GridRow row = AnyRow();
                return presenter_.GridCellCommitted(row, AnyColumn(), AnyText(row));
            }
            case 3:
                return presenter_.DiagramFieldChecked(OneOf(names), OneOf(fields), Below(3) > 0);
            case 4:
                return presenter_.TableChosen(OneOf(names));
            case 5:
                return presenter_.RelationDrawn(OneOf(names), OneOf(fields), OneOf(names), OneOf(fields));
            case 6:
                return presenter_.DistinctClicked(Below(2) == 0);
            case 7:
                presenter_.GridFocusMoved(AnyRow(), AnyColumn());
                return presenter_.RemoveFocusedColumn();
            case 8:
                window_.answer = Below(4) == 0;
                return presenter_.ClearDesign(true);
            case 9:
                return presenter_.GridColumnMoved(AnyColumn(), AnyColumn());
            case 10:
                return presenter_.GridCellsEmptied(AnyRange());
            case 11: {
                model::CellBlock block(1 + Below(3));
                for (auto& row : block) row.assign(2, AnyText(AnyRow()));
                presenter_.GridCellsPasted(AnyRange(), block);
                return;
            }
            case 12:
                return presenter_.InsertColumn();
            case 13:
                return presenter_.TableDropped(OneOf(names));
            case 14:
                return presenter_.FieldDropped(OneOf(names), OneOf(fields), AnyColumn());
            // What the controls and the commands of the diagram do to the model itself.
            case 15:
                diagram.SetTableRect(OneOf(names), {static_cast<int>(Below(50)), 5, 90, 90});
                return presenter_.StepDone();
            default:
                if (Below(2) == 0) {
                    diagram.RemoveTable(OneOf(names));
                } else if (!diagram.Relations().empty()) {
                    diagram.SetRelationKind(diagram.Relations().front().key,
                                            static_cast<model::JoinKind>(Below(3)));
                }
                return presenter_.StepDone();
        }
    }

    schema::Schema schema_ = model::testing_support::SampleSchema();
    test::Calls calls_;
    test::FakeEditor editor_{calls_};
    test::FakeWindow window_{calls_};
    DesignerPresenter presenter_{window_, editor_, nullptr};
    std::mt19937_64 random_;
};

TEST_F(UndoLaw, UndoingEverythingGivesTheFirstDesignAndRedoingEverythingTheLast) {
    for (int round = 0; round < 40; ++round) {
        presenter_.SetDsn(
            L"SELECT Clientes.nombre, Pedidos.Importe FROM Clientes, Pedidos WHERE Pedidos.Importe > 3");
        LayOut();
        std::vector<Picture> states = {Look()};
        std::size_t now = 0;
        for (int step = 0; step < 120; ++step) {
            const std::size_t what = Below(5);
            if (what == 0) {
                ASSERT_EQ(presenter_.CanUndo(), now > 0) << "round " << round << " step " << step;
                presenter_.Undo();
                if (now > 0) --now;
            } else if (what == 1) {
                ASSERT_EQ(presenter_.CanRedo(), now + 1 < states.size())
                    << "round " << round << " step " << step;
                presenter_.Redo();
                if (now + 1 < states.size()) ++now;
            } else {
                Gesture();
                LayOut();
                if (Look() != states[now]) {
                    states.resize(now + 1);
                    states.push_back(Look());
                    ++now;
                }
            }
            ASSERT_TRUE(Look() == states[now]) << "round " << round << " step " << step;
        }
        while (presenter_.CanRedo()) presenter_.Redo();
        ASSERT_TRUE(Look() == states.back()) << "round " << round;
        for (std::size_t state = states.size() - 1; state > 0; --state) {
            presenter_.Undo();
            ASSERT_TRUE(Look() == states[state - 1]) << "round " << round << " back at " << state - 1;
        }
        EXPECT_FALSE(presenter_.CanUndo());
        while (presenter_.CanRedo()) presenter_.Redo();
        ASSERT_TRUE(Look() == states.back()) << "round " << round;
    }
}

TEST_F(UndoLaw, TheTicksAreThoseOfTheGridAfterEveryUndoAndRedo) {
    for (int step = 0; step < 1500; ++step) {
        const std::size_t what = Below(4);
        if (what == 0) {
            presenter_.Undo();
        } else if (what == 1) {
            presenter_.Redo();
        } else {
            Gesture();
        }
        LayOut();
        const std::vector<model::DiagramTable> shown = presenter_.Design().diagram.Tables();
        model::Design again;
        again.diagram.Bind(&schema_);
        again.grid.SetColumns(presenter_.Design().grid.Columns());
        again.diagram.Restore(presenter_.Design().diagram.Save());
        model::SyncDiagramChecks(again);
        for (std::size_t i = 0; i < shown.size(); ++i) {
            ASSERT_EQ(shown[i].all_checked, again.diagram.Tables()[i].all_checked) << "step " << step;
            for (std::size_t field = 0; field < shown[i].fields.size(); ++field) {
                ASSERT_EQ(shown[i].fields[field].checked, again.diagram.Tables()[i].fields[field].checked)
                    << "step " << step;
            }
        }
    }
}

}  // namespace
}  // namespace tessel::ui
