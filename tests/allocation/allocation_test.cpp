// Every allocation of the portable core fails once: nothing is lost but the work that asked for it. What was
// there before stays usable, the pointer comes back, and the next attempt gives the same result as if nothing
// had been.
#include <gtest/gtest.h>

#include <map>

#include "analyse/analyse_sql.h"
#include "analyse/syntax_tree.h"
#include "common/mdl_global.h"
#include "common/text.h"
#include "compose/compose.h"
#include "controls/editor/completion.h"
#include "controls/editor/sql_colouring.h"
#include "macros/macros.h"
#include "model/design.h"
#include "sqlparser/sql_parser.h"
#include "tests/allocation/failing_allocations.h"
#include "ui/designer_presenter.h"
#include "ui/preview.h"

namespace tessel::testing {
namespace {

constexpr wchar_t kStatement[] =
    L"SELECT Clientes.Nombre, Sum(Pedidos.Importe) AS Total FROM (Clientes LEFT JOIN Pedidos ON "
    L"Clientes.IdCliente = "
    L"Pedidos.IdCliente) WHERE (Clientes.Pais = 'Perú' OR Clientes.Pais = 'Chile') AND Clientes.Alta > "
    L"#1/31/2020# "
    L"GROUP BY Clientes.Nombre HAVING Sum(Pedidos.Importe) > 100 ORDER BY Clientes.Nombre DESC ;";
constexpr long kMostAllocations = 200'000;

/// Calls `attempt` with every allocation failing in its turn, until one comes through untouched. It is given
/// the function that runs a body under the failure. Returns how many allocations there were.
long ForEveryAllocation(
    const std::function<void(const std::function<bool(const std::function<void()>&)>& run)>& attempt) {
    for (long at = 0; at < kMostAllocations; ++at) {
        bool reached = false;
        attempt([&](const std::function<void()>& body) { return RunsOutOfMemoryAt(at, body, &reached); });
        if (!reached) return at;
        if (::testing::Test::HasFailure()) {
            ADD_FAILURE() << "at allocation " << at;
            return at;
        }
    }
    ADD_FAILURE() << "no end of allocations";
    return kMostAllocations;
}

TEST(Allocations, ParsingMayFailAnywhere) {
    for (const wchar_t* text :
         {kStatement, L"SELECT a FROM t UNION SELECT b FROM (SELECT c FROM u) AS v", L"SELECT a,, FROM"}) {
        sql::SqlParser reference;
        const bool wrong = reference.Parse(text);
        const long count = ForEveryAllocation([&](const auto& run) {
            sql::SqlParser parser;
            run([&] { static_cast<void>(parser.Parse(text)); });
            // The same object parses again.
            EXPECT_EQ(parser.Parse(text), wrong);
        });
        EXPECT_GT(count, 5);
    }
}

TEST(Allocations, TheSyntaxTreeMayFailAnywhere) {
    sql::SqlParser parser;
    ASSERT_FALSE(parser.Parse(kStatement));
    const long count = ForEveryAllocation([&](const auto& run) {
        run([&] { static_cast<void>(analyse::ShowTree(*parser.GetStatement())); });
        EXPECT_EQ(analyse::ShowTree(*parser.GetStatement()).size(), 6u);
    });
    EXPECT_GT(count, 20);
}

/// A view that needs memory to follow its model.
class GreedyListener final : public ChangeListener {
public:
    void OnChanged() override { text_ = std::wstring(1000, L'x'); }

private:
    std::wstring text_;
};

TEST(Allocations, AnalysisMayFailAnywhereAndLeavesTheDesignAsItWas) {
    model::Design reference;
    ASSERT_TRUE(analyse::AnalyseSQL(kStatement, reference).accepted);
    const std::wstring composed = compose::BuildSQL(reference);
    const long count = ForEveryAllocation([&](const auto& run) {
        GreedyListener view;
        model::Design design;
        design.grid.AddListener(&view);
        design.diagram.AddListener(&view);
        ASSERT_TRUE(analyse::AnalyseSQL(L"SELECT t.a FROM t", design).accepted);
        const std::wstring before = compose::BuildSQL(design);
        // A text that is no statement leaves nothing behind that the next analysis could work with.
        static_cast<void>(analyse::AnalyseSQL(L"", design));
        const bool threw = run([&] { static_cast<void>(analyse::AnalyseSQL(kStatement, design)); });
        const std::wstring now = compose::BuildSQL(design);
        EXPECT_TRUE(threw ? now == before : now == composed) << ToUtf8(now);
        EXPECT_TRUE(analyse::AnalyseSQL(kStatement, design).accepted);
        EXPECT_EQ(ToUtf8(compose::BuildSQL(design)), ToUtf8(composed));
    });
    EXPECT_GT(count, 100);
}

TEST(Allocations, CompositionMayFailAnywhere) {
    model::Design design;
    ASSERT_TRUE(analyse::AnalyseSQL(kStatement, design).accepted);
    const std::wstring composed = compose::BuildSQL(design);
    ForEveryAllocation([&](const auto& run) {
        run([&] { static_cast<void>(compose::BuildSQL(design)); });
        EXPECT_EQ(compose::BuildSQL(design), composed);
    });
}

TEST(Allocations, CompletionMayFailAnywhere) {
    const std::wstring text =
        L"SELECT Clientes.Nombre AS Un título largo FROM Clientes INNER JOIN Pedidos ON Clie";
    const controls::CompletionNames names{
        nullptr, {L"una macro de nombre largo"}, {L"un parámetro de nombre largo"}, nullptr};
    const std::size_t candidates = controls::Complete(text, text.size(), names).candidates.size();
    EXPECT_GT(candidates, 0u);
    const long count = ForEveryAllocation([&](const auto& run) {
        run([&] { static_cast<void>(controls::Complete(text, text.size(), names)); });
        EXPECT_EQ(controls::Complete(text, text.size(), names).candidates.size(), candidates);
    });
    EXPECT_GT(count, 20);
}

TEST(Allocations, ColouringMayFailAnywhere) {
    const std::wstring text(kStatement);
    const std::vector<controls::SqlStyle> styles = controls::ColourText(text, {});
    ForEveryAllocation([&](const auto& run) {
        run([&] { static_cast<void>(controls::ColourText(text, {})); });
        EXPECT_EQ(controls::ColourText(text, {}), styles);
    });
}

TEST(Allocations, ListingAndStrippingMayFailAnywhere) {
    const std::wstring text = L"((@{una macro de nombre largo} + @otra_macro_de_nombre_largo))";
    ForEveryAllocation([&](const auto& run) {
        run([&] {
            std::wstring stripped = text;
            static_cast<void>(macros::GetMacros(text));
            static_cast<void>(StripOuterParens(stripped));
        });
        EXPECT_EQ(macros::GetMacros(text).size(), 2u);
    });
}

class FixedMacros final : public macros::MacroSource {
public:
    std::optional<std::wstring> ParameterLiteral(std::wstring_view) override {
        return L"'un literal que no es corto'";
    }
    std::optional<std::wstring> ParameterText(std::wstring_view) override {
        return L"un @{texto} que no es corto";
    }
    std::optional<std::wstring> UserName() override { return L"un usuario de nombre largo"; }
    std::optional<std::wstring> ComputerName() override { return L"un equipo de nombre largo"; }
};

TEST(Allocations, ExpansionMayFailAnywhere) {
    const std::wstring text =
        L"@fecha @cliente @{texto libre} @winuser @nombrepcwin @cliente @pagenumber @{texto}";
    FixedMacros source;
    const std::wstring expanded = macros::ReplaceMacros(text, source);
    ForEveryAllocation([&](const auto& run) {
        run([&] { static_cast<void>(macros::ReplaceMacros(text, source)); });
        EXPECT_EQ(macros::ReplaceMacros(text, source), expanded);
    });
}

/// Views that allocate nothing themselves.
class QuietViews final : public ui::DesignerView, public ui::EditorView, public ui::PreviewView {
public:
    QuietViews() { text.reserve(4096); }
    ui::Pointer SetPointer(ui::Pointer value) override { return std::exchange(pointer, value); }
    void ProcessEvents() override {}
    void FocusNeutral() override {}
    void ShowTab(ui::Tab) override {}
    void ShowGrid(bool) override {}
    void ShowReason(bool) override {}
    void ShowDistinct(bool) override {}
    void RedrawDiagram() override {}
    void ShowMessage(std::wstring_view) override {}
    void ShowSyntaxTree(const std::vector<analyse::TreeNode>&) override {}
    bool AskYesNo(std::wstring_view) override { return true; }
    void RevealTable(std::wstring_view) override {}
    void BeginRelation(std::wstring_view) override {}
    std::optional<model::JoinKind> AskRelationKind(const model::RelInfo&) override { return std::nullopt; }
    void AddTable(std::wstring_view) override {}
    bool HasConnection() const override { return true; }
    void PreviewTable(std::wstring_view) override {}
    void Hide() override {}
    std::wstring Text() const override { return text; }
    void SetText(std::wstring_view value) override { text = value; }
    void Refresh() override {}
    std::optional<Error> ShowRows(ui::PreviewRows&) override { return std::nullopt; }

    ui::Pointer pointer = ui::Pointer::Default;
    std::wstring text;
};

struct Gesture {
    const char* name;
    std::function<void(ui::DesignerPresenter&)> run;
};

std::vector<Gesture> Gestures() {
    using P = ui::DesignerPresenter;
    using Row = model::GridRow;
    return {
        {"SetDsn",
         [](P& p) { p.SetDsn(L"SELECT Paises.Pais, Paises.Codigo FROM Paises WHERE Paises.Codigo = 'a'"); }},
        {"to the SQL tab", [](P& p) { p.TabClicked(ui::Tab::Sql); }},
        {"there and back",
         [](P& p) {
             p.TabClicked(ui::Tab::Sql);
             p.TabClicked(ui::Tab::Design);
         }},
        {"a cell", [](P& p) { p.GridCellCommitted(Row::Condicion, 0, L"'una condición que no es corta'"); }},
        {"a field", [](P& p) { p.DiagramFieldChecked(L"Clientes", L"Un campo de nombre largo", true); }},
        {"a column removed",
         [](P& p) {
             p.GridFocusMoved(Row::Campo, 0);
             p.RemoveFocusedColumn();
         }},
        {"everything cleared", [](P& p) { p.ClearDesign(true); }},
        {"DISTINCT", [](P& p) { p.DistinctClicked(true); }},
        {"undo and redo",
         [](P& p) {
             p.GridCellCommitted(Row::Titulo, 0, L"Un título que no es corto");
             p.Undo();
             p.Redo();
         }},
        {"the tree", [](P& p) { p.ShowSyntaxTree(); }},
        {"accept", [](P& p) { p.Accept(); }}};
}

/// The statement after the gesture, when nothing fails.
std::wstring TextAfter(const Gesture& gesture) {
    QuietViews views;
    ui::DesignerPresenter presenter(views, views, nullptr);
    presenter.Load();
    presenter.SetDsn(kStatement);
    gesture.run(presenter);
    return presenter.GetSQLText();
}

TEST(Allocations, EveryGestureOfTheDesignerMayFailAnywhere) {
    QuietViews reference_views;
    ui::DesignerPresenter reference(reference_views, reference_views, nullptr);
    reference.Load();
    reference.SetDsn(kStatement);
    const std::wstring composed = reference.GetSQLText();
    for (const Gesture& gesture : Gestures()) {
        SCOPED_TRACE(gesture.name);
        const std::wstring changed = TextAfter(gesture);
        const long count = ForEveryAllocation([&](const auto& run) {
            QuietViews views;
            ui::DesignerPresenter presenter(views, views, nullptr);
            presenter.Load();
            presenter.SetDsn(kStatement);
            run([&] { gesture.run(presenter); });
            EXPECT_EQ(views.pointer, ui::Pointer::Default);
            const std::wstring text = presenter.GetSQLText();
            EXPECT_TRUE(text == composed || text == changed || text == kStatement) << ToUtf8(text);
            if (presenter.CurrentTab() == ui::Tab::Sql) presenter.TabClicked(ui::Tab::Design);
            presenter.SetDsn(kStatement);
            EXPECT_EQ(ToUtf8(presenter.GetSQLText()), ToUtf8(composed));
        });
        std::printf("%s: %ld allocations\n", gesture.name, count);
    }
}

TEST(Allocations, APreviewMayFailAnywhereAndThePointerComesBack) {
    class NoDatabase final : public ui::PreviewDatabase {
    public:
        Result<std::unique_ptr<ui::PreviewRows>> OpenRecordset(std::wstring_view) override {
            return Error{L"un error de texto suficientemente largo"};
        }
        std::vector<ui::ProviderError> ProviderErrors() override {
            return {
                {L"un origen de nombre largo", L"una descripción que no es corta", L"-2147217900", L"102"}};
        }
    };
    FixedMacros source;
    ForEveryAllocation([&](const auto& run) {
        QuietViews views;
        NoDatabase database;
        run([&] { ui::RunStatement(L"SELECT @cliente, @fecha FROM una tabla", source, database, views); });
        EXPECT_EQ(views.pointer, ui::Pointer::Default);
    });
}

}  // namespace
}  // namespace tessel::testing
