#include "analyse/from_form.h"

#include <algorithm>
#include <vector>

#include "analyse/table_groups.h"

namespace tessel::analyse {

namespace {

using Conditions = std::set<std::wstring>;

class Printer {
public:
    Printer(const StatementScope& scope, const Canonical& canonical) : scope_(scope), canonical_(canonical) {}

    /// Without the group's own conditions.
    std::wstring Text(const TableGroup& group) const {
        std::vector<std::wstring> parts;
        for (const int table : group.tables) parts.push_back(canonical_.Table(table));
        for (const AddedRows& rows : group.added) parts.push_back(Text(rows));
        std::ranges::sort(parts);
        std::wstring text = L"{";
        for (const std::wstring& part : parts) text += part + L";";
        return text + L"}";
    }

    void Collect(const std::vector<JoinCondition>& conditions, Conditions& texts) const {
        for (const JoinCondition& condition : conditions) texts.insert(Text(condition));
    }

private:
    // Conditions among the rows to add say, like those of their join, which of them are added.
    std::wstring Text(const AddedRows& rows) const {
        Conditions conditions;
        Collect(rows.on, conditions);
        Collect(rows.group.conditions, conditions);
        std::wstring text = L"left(" + Text(rows.group) + L",";
        for (const std::wstring& condition : conditions) text += condition + L";";
        return text + L")";
    }

    // What a name without its table means depends on the tables that stand around it.
    std::wstring Text(const JoinCondition& condition) const {
        std::wstring text = canonical_.Condition(condition.node);
        if (!condition.has_bare_name) return text;
        const sql::FromNode& join = scope_.Source().From[static_cast<std::size_t>(condition.join)];
        const std::set<int> visible = TablesBelow(join);
        if (static_cast<int>(visible.size()) == scope_.TableCount()) return text;
        std::set<std::wstring> keys;
        for (const int table : visible) keys.insert(canonical_.Table(table));
        text += L" among";
        for (const std::wstring& key : keys) text += L" " + key;
        return text;
    }

    const StatementScope& scope_;
    const Canonical& canonical_;
};

}  // namespace

FromForm NormaliseFrom(const StatementScope& scope, const Canonical& canonical) {
    const Printer printer(scope, canonical);
    TableGroup all;
    FromForm form;
    for (const sql::JoinGroup& item : scope.Source().JoinGroups) {
        if (item.root < 0) continue;
        TableGroup group = GroupOf(scope, canonical, item.root);
        printer.Collect(group.conditions, form.conditions);
        all.tables.insert(all.tables.end(), group.tables.begin(), group.tables.end());
        std::ranges::move(group.added, std::back_inserter(all.added));
    }
    form.groups = printer.Text(all);
    return form;
}

}  // namespace tessel::analyse
