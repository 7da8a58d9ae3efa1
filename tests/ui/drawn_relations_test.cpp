// Whatever the user draws, changes and removes, the statement composed from it is one that the analysis takes
// back as the same design.
#include <gtest/gtest.h>

#include <random>
#include <set>

#include "analyse/analyse_sql.h"
#include "compose/compose.h"
#include "tests/support/seed.h"
#include "tests/ui/fakes.h"
#include "ui/designer_presenter.h"

namespace tessel::ui {
namespace {

/// The relations as what they mean, whichever table stands left: "A.x=B.y" and the table whose rows are kept.
std::multiset<std::wstring> Joins(const model::Diagram& diagram) {
    std::multiset<std::wstring> joins;
    for (const model::DiagramRelation& relation : diagram.Relations()) {
        const model::RelInfo& info = relation.info;
        std::wstring ends[] = {info.LeftTable + L"." + info.LeftField,
                               info.RightTable + L"." + info.RightField};
        if (ends[1] < ends[0]) std::swap(ends[0], ends[1]);
        const std::wstring kept = info.JType == model::kLeftJoin    ? info.LeftTable
                                  : info.JType == model::kRightJoin ? info.RightTable
                                                                    : L"";
        joins.insert(ends[0] + L"=" + ends[1] + L" " + kept);
    }
    return joins;
}

class DrawnRelations : public ::testing::Test {
protected:
    DrawnRelations() : editor_(calls_), window_(calls_), presenter_(window_, editor_, nullptr) {
        presenter_.Load();
    }

    unsigned Below(unsigned count) { return static_cast<unsigned>(random_() % count); }
    std::wstring SomeTable() {
        const auto& tables = presenter_.Design().diagram.Tables();
        return tables[Below(static_cast<unsigned>(tables.size()))].name;
    }
    std::wstring SomeField() { return std::wstring(1, static_cast<wchar_t>(L'x' + Below(3))); }

    void Step() {
        model::Diagram& diagram = presenter_.Design().diagram;
        switch (Below(8)) {
            case 0:
                presenter_.TableChosen(std::wstring(1, static_cast<wchar_t>(L'A' + Below(7))));
                return;
            case 1:
                if (diagram.Tables().size() < 3) return;
                diagram.SelectTable(SomeTable());
                presenter_.DeleteSelected();
                return;
            case 2:
                if (diagram.Relations().empty()) return;
                diagram.SelectRelation(SomeRelation());
                presenter_.DeleteSelected();
                return;
            case 3:
            case 4:
                if (diagram.Relations().empty()) return;
                window_.chosen_kind = static_cast<model::JoinKind>(Below(3));
                presenter_.RelationActivated(SomeRelation());
                return;
            default:
                if (!diagram.Tables().empty())
                    presenter_.RelationDrawn(SomeTable(), SomeField(), SomeTable(), SomeField());
                return;
        }
    }

    int SomeRelation() {
        const auto& relations = presenter_.Design().diagram.Relations();
        return relations[Below(static_cast<unsigned>(relations.size()))].key;
    }

    std::mt19937_64 random_{tests::Seed()};
    test::Calls calls_;
    test::FakeEditor editor_;
    test::FakeWindow window_;
    DesignerPresenter presenter_;
};

TEST_F(DrawnRelations, ComposeToStatementsThatComeBackAsTheSameDesign) {
    presenter_.TableChosen(L"A");
    presenter_.TableChosen(L"B");
    int with_outer_joins = 0;
    for (int step = 0; step < 1500; ++step) {
        Step();
        window_.messages.clear();
        if (presenter_.Design().diagram.Tables().empty()) continue;
        // One column of every table, so that each stands in the statement.
        model::Design design;
        design.grid.LoadColumns();
        design.diagram.Restore(presenter_.Design().diagram.Save());
        int column = 0;
        for (const model::DiagramTable& table : design.diagram.Tables())
            ASSERT_TRUE(design.grid.SetCell(model::GridRow::Campo, column++, table.name + L".f"));
        const std::wstring text = compose::BuildSQL(design);
        model::Design again;
        again.grid.LoadColumns();
        const analyse::Analysis analysis = analyse::AnalyseSQL(text, again);
        ASSERT_TRUE(analysis.accepted) << testing::PrintToString(text);
        ASSERT_EQ(Joins(again.diagram), Joins(design.diagram)) << testing::PrintToString(text);
        with_outer_joins +=
            text.find(L"LEFT JOIN") != std::wstring::npos || text.find(L"RIGHT JOIN") != std::wstring::npos;
    }
    EXPECT_GT(with_outer_joins, 200);
}

}  // namespace
}  // namespace tessel::ui
