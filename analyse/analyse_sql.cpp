#include "analyse/analyse_sql.h"

#include <algorithm>

#include "analyse/canonical.h"
#include "analyse/columns.h"
#include "analyse/criteria.h"
#include "analyse/desk.h"
#include "analyse/doubtful_text.h"
#include "analyse/faithfulness.h"
#include "analyse/group_conditions.h"
#include "analyse/nodes.h"
#include "analyse/refusal.h"
#include "analyse/statement_scope.h"
#include "analyse/tables_and_joins.h"
#include "model/grid_editing.h"

namespace tessel::analyse {

namespace {

using sql::Statement;

/// Builds the design of one statement, step by step, in the desk's draft.
class Rebuild {
public:
    Rebuild(const Statement& statement, const model::Diagram& before, Desk& desk)
        : statement_(statement),
          before_(before),
          desk_(desk),
          design_(desk.draft),
          scope_(statement, before.BoundSchema(), desk.forms),
          canonical_(scope_) {
        design_.grid.StartAgain();
        design_.diagram.StartAgain(before.BoundSchema());
    }

    /// Tables, relations, select list and distinct option: all that a statement with TOP gets.
    Outcome BuildOutput() {
        for (const sql::BeyondItem& item : statement_.beyond)
            return Refusal{item.range, BeyondMessage(item.what)};
        if (Outcome refusal = CheckTables(scope_)) return refusal;
        table_names_ = PlaceTables(scope_, before_, design_.diagram);
        if (Outcome refusal = PlanJoins(scope_, canonical_, table_names_, plan_)) return refusal;
        for (const model::RelInfo& relation : plan_.relations) design_.diagram.AddRelation(relation);
        columns_.emplace(scope_, canonical_, table_names_, design_);
        if (FiltersRowsOfOneGroup()) columns_->HideAggregates();
        design_.distinct = statement_.Distinct;
        return columns_->AddSelectList();
    }

    Outcome BuildRest(std::vector<std::wstring>& shown_messages) {
        if (Outcome refusal = columns_->AddGrouping()) return refusal;
        if (Outcome refusal = columns_->AddOrdering()) return refusal;
        if (Outcome refusal = BuildCriteria(shown_messages)) return refusal;
        if (Outcome refusal = columns_->KeepGroupBy()) return refusal;
        return CheckFaithful(scope_, canonical_, design_, left_out_, desk_.composed);
    }

private:
    /// Whether criteria of WHERE or of joins would have composition group a query of one total row.
    bool FiltersRowsOfOneGroup() {
        const bool totals = columns_->IsTotals() && !columns_->HasGroupBy();
        if (!totals || statement_.having != sql::kNoNode || statement_.top_range.length > 0) return false;
        return FiltersRows();
    }

    bool FiltersRows() { return WhereFits() || !plan_.criteria.empty(); }

    bool WhereFits() {
        if (!where_fits_) {
            const CriteriaBuilder where(scope_, canonical_, *columns_, CriteriaBuilder::Clause::Where);
            where_fits_ = statement_.where != sql::kNoNode && where.CriteriaFit(statement_.where);
        }
        return *where_fits_;
    }

    Outcome BuildCriteria(std::vector<std::wstring>& shown_messages) {
        CriteriaBuilder where(scope_, canonical_, *columns_, CriteriaBuilder::Clause::Where);
        const bool has_where = statement_.where != sql::kNoNode;
        const bool where_fits = WhereFits();
        left_out_.where = has_where && !where_fits;
        if (has_where && where_fits) {
            if (Outcome refusal = RefuseTotal(statement_.where)) return refusal;
        }
        for (const sql::NodeId condition : plan_.criteria) {
            if (Outcome refusal = RefuseTotal(condition)) return refusal;
        }
        if (FiltersRows() && columns_->IsTotals() && !columns_->HasGroupBy()) {
            const TextRange place = where_fits ? statement_.where_range : statement_.from_range;
            return Refusal{place, std::wstring(messages::kTotalsFilter)};
        }
        for (const sql::NodeId condition : plan_.criteria) {
            if (Outcome refusal = where.FillJoinCondition(condition)) return refusal;
        }
        ReadHaving();
        if (where_fits) {
            const bool alone =
                plan_.criteria.empty() && std::ranges::none_of(having_, &HavingCondition::is_on_keys);
            if (Outcome refusal = where.FillCriteria(statement_.where, alone)) return refusal;
        }
        CriteriaBuilder having(scope_, canonical_, *columns_, CriteriaBuilder::Clause::Having);
        const bool has_having = statement_.having != sql::kNoNode;
        left_out_.having = has_having && !having.CriteriaFit(statement_.having);
        if (has_having && !left_out_.having) {
            const bool alone = !where_fits && plan_.criteria.empty();
            if (Outcome refusal = BuildHaving(where, having, alone)) return refusal;
        }
        // One box for both clauses: the text of the later one replaces that of the earlier.
        if (left_out_.having) {
            shown_messages.emplace_back(kHavingTooComplex);
        } else if (left_out_.where) {
            shown_messages.emplace_back(kWhereTooComplex);
        }
        return std::nullopt;
    }

    // No engine takes a total that filters rows, and composition would make a total of the filter.
    Outcome RefuseTotal(sql::NodeId condition) const {
        const sql::NodeId total = FirstAggregate(statement_, condition);
        if (total == sql::kNoNode) return std::nullopt;
        return Refusal{statement_.At(total).Range(), std::wstring(messages::kAggregateInWhere)};
    }

    // Conditions on the keys of the groups are criteria of the grouped columns, which composition writes into
    // WHERE. `alone` tells that no other criteria of WHERE stand in the grid.
    Outcome BuildHaving(CriteriaBuilder& where, CriteriaBuilder& having, bool alone) {
        const auto is_on_keys = [](const HavingCondition& condition) { return condition.is_on_keys; };
        if (std::ranges::all_of(having_, is_on_keys)) return where.FillCriteria(statement_.having, alone);
        if (std::ranges::none_of(having_, is_on_keys)) return having.FillCriteria(statement_.having, true);
        for (const HavingCondition& condition : having_) {
            CriteriaBuilder& builder = condition.is_on_keys ? where : having;
            if (Outcome refusal = builder.FillCriteria(condition.node, false)) return refusal;
        }
        return std::nullopt;
    }

    void ReadHaving() {
        if (statement_.having == sql::kNoNode) return;
        const GroupConditions groups(scope_, canonical_);
        for (const sql::NodeId condition : canonical_.ConjunctNodes(statement_.having))
            having_.push_back({condition, groups.MayStandInWhere(condition)});
    }

    struct HavingCondition {
        sql::NodeId node = sql::kNoNode;
        bool is_on_keys = false;
    };

    const Statement& statement_;
    const model::Diagram& before_;
    Desk& desk_;
    model::Design& design_;
    StatementScope scope_;
    Canonical canonical_;
    std::vector<std::wstring> table_names_;
    JoinPlan plan_;
    std::optional<ColumnBuilder> columns_;
    std::optional<bool> where_fits_;
    std::vector<HavingCondition> having_;
    LeftOut left_out_;
};

// Everything that may run out of memory comes first: a design of which only half was replaced would be
// another statement.
void Commit(model::Design& draft, model::Design& design) {
    model::SyncDiagramChecks(draft);
    design.grid.TakeContents(draft.grid);
    design.grid.SetFocus(model::GridRow::Campo, 0);
    design.diagram.TakeContents(draft.diagram);
    design.distinct = draft.distinct;
}

}  // namespace

Analysis AnalyseSQL(std::wstring_view text, model::Design& design) {
    Analysis analysis;
    BorrowedDesk desk;
    const bool failed = desk->original.Parse(text);
    const Statement* statement = desk->original.GetStatement();
    if (failed || !statement) {
        if (!desk->original.Errors().empty()) analysis.error = desk->original.Errors().front();
        return analysis;
    }
    analysis.parsed = true;

    Rebuild rebuild(*statement, design.diagram, *desk);
    const auto refuse = [&](const Refusal& refusal) {
        analysis.messages.clear();
        analysis.error = MakeDiagnostic(text, refusal.range, refusal.message);
        return analysis;
    };
    if (const Outcome refusal = CheckText(*statement)) return refuse(*refusal);
    if (const Outcome refusal = rebuild.BuildOutput()) return refuse(*refusal);
    if (statement->top_range.length > 0) {
        // The design keeps what was read so far, except of a count that means nothing to it.
        if (statement->Top > 0) Commit(desk->draft, design);
        return refuse({statement->top_range, std::wstring(messages::kTop)});
    }
    if (const Outcome refusal = rebuild.BuildRest(analysis.messages)) return refuse(*refusal);
    Commit(desk->draft, design);
    analysis.accepted = true;
    return analysis;
}

}  // namespace tessel::analyse
