#include "analyse/from_form.h"

#include <algorithm>
#include <vector>

#include "analyse/table_groups.h"

namespace tessel::analyse {

namespace {

enum Head : std::uint32_t { kGroupHead = 16u << 24, kAddedHead = 17u << 24, kAmongHead = 18u << 24 };

class Builder {
public:
    Builder(const StatementScope& scope, const Canonical& canonical)
        : scope_(scope), canonical_(canonical), forms_(scope.Numbers()) {}

    /// Without the group's own conditions.
    Form FormOf(const TableGroup& group) const {
        std::vector<Form> parts;
        for (const int table : group.tables) parts.push_back(canonical_.Table(table));
        for (const AddedRows& rows : group.added) parts.push_back(FormOf(rows));
        std::ranges::sort(parts);
        return forms_.Node(kGroupHead, parts);
    }

    void Collect(const std::vector<JoinCondition>& conditions, FormSet& forms) const {
        for (const JoinCondition& condition : conditions) forms.push_back(FormOf(condition));
        MakeSet(forms);
    }

private:
    // Conditions among the rows to add say, like those of their join, which of them are added.
    Form FormOf(const AddedRows& rows) const {
        FormSet conditions;
        Collect(rows.on, conditions);
        Collect(rows.group.conditions, conditions);
        std::vector<Form> parts = {FormOf(rows.group)};
        parts.insert(parts.end(), conditions.begin(), conditions.end());
        return forms_.Node(kAddedHead, parts);
    }

    // What a name without its table means depends on the tables that stand around it.
    Form FormOf(const JoinCondition& condition) const {
        const Form form = canonical_.Condition(condition.node);
        if (!condition.has_bare_name) return form;
        const sql::FromNode& join = scope_.Source().From[static_cast<std::size_t>(condition.join)];
        if (join.stop_table - join.first_table == scope_.TableCount()) return form;
        FormSet tables;
        for (int table = join.first_table; table < join.stop_table; ++table)
            tables.push_back(canonical_.Table(table));
        MakeSet(tables);
        std::vector<Form> parts = {form};
        parts.insert(parts.end(), tables.begin(), tables.end());
        return forms_.Node(kAmongHead, parts);
    }

    const StatementScope& scope_;
    const Canonical& canonical_;
    Forms& forms_;
};

}  // namespace

FromForm NormaliseFrom(const StatementScope& scope, const Canonical& canonical) {
    const Builder builder(scope, canonical);
    TableGroup all;
    FromForm form;
    for (const sql::JoinGroup& item : scope.Source().JoinGroups) {
        if (item.root < 0) continue;
        TableGroup group = GroupOf(scope, canonical, item.root);
        builder.Collect(group.conditions, form.conditions);
        all.tables.insert(all.tables.end(), group.tables.begin(), group.tables.end());
        std::ranges::move(group.added, std::back_inserter(all.added));
    }
    form.groups = builder.FormOf(all);
    return form;
}

}  // namespace tessel::analyse
