#include "analyse/from_form.h"

#include <algorithm>
#include <memory>
#include <vector>

#include "analyse/nodes.h"

namespace tessel::analyse {

namespace {

using Tables = std::set<int>;
using Conditions = std::set<std::wstring>;
using sql::FromNode;
using sql::NodeId;
using sql::NodeKind;

/// The condition of an outer join with what decides whether the join may change its place.
struct OuterCondition {
    Conditions conjuncts;
    Tables tables;           ///< the tables it names
    bool is_strict = false;  ///< a comparison of fields: unknown when one of the tables has no row
};

struct Unit;

struct InnerSet {
    std::vector<std::shared_ptr<const Unit>> units;
    Conditions conditions;
    Tables tables;
};

/// A table, or an outer join that keeps the rows of `kept` and adds those of `added`.
struct Unit {
    int table = kNoTable;
    InnerSet kept;
    InnerSet added;
    OuterCondition on;

    bool IsJoin() const { return table == kNoTable; }
};

void Merge(InnerSet& into, InnerSet&& from) {
    std::ranges::move(from.units, std::back_inserter(into.units));
    into.conditions.merge(from.conditions);
    into.tables.merge(from.tables);
}

bool Meets(const Tables& a, const Tables& b) {
    return std::ranges::any_of(a, [&](int table) { return b.contains(table); });
}

// A filter on the kept side may as well be applied after the join. And where rows are added to rows that were
// added by conditions that fail without them, a LEFT JOIN (b LEFT JOIN c) is (a LEFT JOIN b) LEFT JOIN c.
InnerSet OuterJoin(InnerSet kept, InnerSet added, OuterCondition on) {
    if (added.units.size() == 1 && added.conditions.empty() && added.units[0]->IsJoin()) {
        const Unit& inner = *added.units[0];
        if (inner.on.is_strict && on.is_strict && !Meets(on.tables, inner.added.tables)) {
            return OuterJoin(OuterJoin(std::move(kept), inner.kept, std::move(on)), inner.added, inner.on);
        }
    }
    InnerSet result;
    result.conditions = std::move(kept.conditions);
    kept.conditions.clear();
    result.tables = kept.tables;
    result.tables.insert(added.tables.begin(), added.tables.end());
    auto unit = std::make_shared<Unit>();
    unit->kept = std::move(kept);
    unit->added = std::move(added);
    unit->on = std::move(on);
    result.units.push_back(std::move(unit));
    return result;
}

class Builder {
public:
    Builder(const StatementScope& scope, const Canonical& canonical)
        : scope_(scope), canonical_(canonical), statement_(scope.Source()) {}

    InnerSet Build(int index) const {
        const FromNode& node = statement_.From[static_cast<std::size_t>(index)];
        InnerSet result;
        if (!node.is_join) {
            auto unit = std::make_shared<Unit>();
            unit->table = node.table;
            result.units.push_back(std::move(unit));
            result.tables.insert(node.table);
            return result;
        }
        InnerSet left = Build(node.left);
        InnerSet right = Build(node.right);
        switch (node.kind) {
            case sql::JoinKind::Left:
                return OuterJoin(std::move(left), std::move(right), On(node));
            case sql::JoinKind::Right:
                return OuterJoin(std::move(right), std::move(left), On(node));
            default:
                break;
        }
        result = std::move(left);
        Merge(result, std::move(right));
        result.conditions.merge(canonical_.Conjuncts(node.on_node));
        return result;
    }

    std::wstring Text(const InnerSet& set) const {
        std::vector<std::wstring> units;
        for (const auto& unit : set.units) units.push_back(Text(*unit));
        std::ranges::sort(units);
        std::wstring text = L"{";
        for (const std::wstring& unit : units) text += unit + L";";
        text += L"|";
        for (const std::wstring& condition : set.conditions) text += condition + L";";
        return text + L"}";
    }

private:
    std::wstring Text(const Unit& unit) const {
        if (!unit.IsJoin()) return scope_.TableKey(unit.table);
        std::wstring text = L"left(" + Text(unit.kept) + L"," + Text(unit.added) + L",";
        for (const std::wstring& condition : unit.on.conjuncts) text += condition + L";";
        return text + L")";
    }

    OuterCondition On(const FromNode& node) const {
        OuterCondition on;
        on.conjuncts = canonical_.Conjuncts(node.on_node);
        if (node.on_node == sql::kNoNode) return on;
        const NodeId comparison = WithoutParens(statement_, node.on_node);
        if (statement_.At(comparison).kind != NodeKind::Compare) return on;
        on.is_strict = true;
        for (const NodeId side : ChildrenOf(statement_, comparison)) {
            const NodeId name = WithoutParens(statement_, side);
            const bool is_name = statement_.At(name).kind == NodeKind::Name;
            const int table = is_name ? scope_.TableOfName(name) : kNoTable;
            if (table == kNoTable) on.is_strict = false;
            on.tables.insert(table);
        }
        return on;
    }

    const StatementScope& scope_;
    const Canonical& canonical_;
    const sql::Statement& statement_;
};

}  // namespace

FromForm NormaliseFrom(const StatementScope& scope, const Canonical& canonical) {
    const Builder builder(scope, canonical);
    InnerSet all;
    for (const sql::JoinGroup& group : scope.Source().JoinGroups) {
        if (group.root >= 0) Merge(all, builder.Build(group.root));
    }
    FromForm form;
    form.conditions = std::move(all.conditions);
    all.conditions.clear();
    form.units = builder.Text(all);
    return form;
}

}  // namespace tessel::analyse
