#include "analyse/syntax_tree.h"

#include <cmath>

#include "common/text.h"

namespace tessel::analyse {

namespace {

using sql::ConditionNode;
using sql::Item;
using sql::Join;
using sql::JoinGroup;
using sql::Statement;
using sql::TableRef;

TreeNode MakeNode(std::wstring key, std::wstring text, std::optional<TextRange> range = std::nullopt) {
    if (range && range->length == 0) range.reset();
    return {std::move(key), std::move(text), range, {}};
}

TextRange Around(const std::vector<Item>& items) {
    if (items.empty()) return {};
    return {items.front().range.offset, items.back().range.End() - items.front().range.offset};
}

std::wstring CountText(double count) {
    if (count == std::floor(count) && std::abs(count) < 1e15)
        return std::to_wstring(static_cast<long long>(count));
    std::wstring text = std::to_wstring(count);
    while (text.back() == L'0') text.pop_back();
    return text;
}

std::wstring_view JoinWord(sql::JoinKind kind) {
    switch (kind) {
        case sql::JoinKind::Inner:
            return L"INNER JOIN";
        case sql::JoinKind::Left:
            return L"LEFT JOIN";
        case sql::JoinKind::Right:
            return L"RIGHT JOIN";
        default:
            return L"";
    }
}

/// Builds the tree; columns, joins and tables share one count for their keys.
class TreeBuilder {
public:
    explicit TreeBuilder(const Statement& statement) : statement_(statement) {}

    std::vector<TreeNode> Build() {
        std::vector<TreeNode> roots;
        roots.push_back(Select());
        roots.push_back(From());
        AddConditions(L"@WHERE", L"WHERE", statement_.Where(), statement_.where_range, roots);
        AddConditions(L"@HAVING", L"HAVING", statement_.Having(), statement_.having_range, roots);
        AddItems(L"@GROUP", L"GROUP BY", statement_.GroupItems, roots);
        AddItems(L"@ORDER", L"ORDER BY", statement_.OrderItems, roots);
        return roots;
    }

private:
    std::wstring NextNumber() { return std::to_wstring(next_++); }

    TreeNode Select() {
        TreeNode root = MakeNode(L"@SELECT", L"SELECT", Around(statement_.Columns));
        if (statement_.Distinct) {
            root.children.push_back(MakeNode(L"@DISTINCTROW", L"Distinct", statement_.distinct_range));
        }
        if (statement_.Top > 0) {
            std::wstring text = L"TOP " + CountText(statement_.Top);
            if (statement_.Percent) text += L" PERCENT";
            if (statement_.WithTies) text += L" WITH TIES";
            root.children.push_back(MakeNode(L"@TOP", std::move(text), statement_.top_range));
        }
        if (statement_.Columns.empty()) return root;
        TreeNode columns = MakeNode(L"@Columns", L"Columnas", Around(statement_.Columns));
        for (const Item& item : statement_.Columns) {
            std::wstring text = statement_.Text(item.expression);
            const std::wstring alias = statement_.Text(item.alias);
            if (!TrimView(alias).empty()) text += L" Alias: " + alias;
            columns.children.push_back(MakeNode(L"K" + NextNumber(), std::move(text), item.range));
        }
        root.children.push_back(std::move(columns));
        return root;
    }

    TreeNode From() {
        TreeNode root = MakeNode(L"@FROM", L"FROM", statement_.from_range);
        TreeNode joins = MakeNode(L"@Joins", L"Combinaciones");
        for (const JoinGroup& group : statement_.JoinGroups) {
            for (const Join& join : group.joins) joins.children.push_back(JoinNode(join));
        }
        if (!joins.children.empty()) root.children.push_back(std::move(joins));
        TreeNode tables = MakeNode(L"@Tables", L"Tablas");
        for (const TableRef& table : statement_.Tables) tables.children.push_back(TableNode(table));
        root.children.push_back(std::move(tables));
        return root;
    }

    TreeNode JoinNode(const Join& join) {
        std::wstring text = TableName(join.left_table);
        text += L' ';
        text += JoinWord(join.kind);
        text += L' ';
        text += TableName(join.right_table);
        text += L" ON ";
        text += statement_.Slice(join.on);
        return MakeNode(L"K_" + NextNumber(), std::move(text), join.on);
    }

    std::wstring TableName(int table) const {
        if (table < 0) return {};
        return statement_.Text(statement_.Tables[static_cast<std::size_t>(table)].name);
    }

    TreeNode TableNode(const TableRef& table) {
        std::wstring text;
        if (table.database.length > 0) text += statement_.Text(table.database) + L".";
        if (table.owner.length > 0) text += statement_.Text(table.owner) + L".";
        text += statement_.Slice(table.name);
        if (table.alias.length > 0) text += L" Alias: " + statement_.Text(table.alias);
        return MakeNode(L"K_" + NextNumber(), std::move(text), table.range);
    }

    static void AddConditions(std::wstring key, std::wstring caption,
                              const std::vector<ConditionNode>& conditions, TextRange range,
                              std::vector<TreeNode>& roots) {
        if (conditions.empty()) return;
        TreeNode root = MakeNode(std::move(key), std::move(caption), range);
        for (const ConditionNode& condition : conditions) AddCondition(condition, root);
        roots.push_back(std::move(root));
    }

    static void AddCondition(const ConditionNode& condition, TreeNode& parent) {
        TreeNode node = MakeNode({}, condition.text, condition.range);
        for (const ConditionNode& sub : condition.sub) AddCondition(sub, node);
        parent.children.push_back(std::move(node));
        if (!TrimView(condition.second).empty()) parent.children.push_back(MakeNode({}, condition.second));
    }

    void AddItems(std::wstring key, std::wstring caption, const std::vector<Item>& items,
                  std::vector<TreeNode>& roots) {
        if (items.empty()) return;
        TreeNode root = MakeNode(std::move(key), std::move(caption), Around(items));
        for (const Item& item : items) {
            root.children.push_back(MakeNode({}, statement_.Text(item.expression), item.range));
        }
        roots.push_back(std::move(root));
    }

    const Statement& statement_;
    int next_ = 1;
};

}  // namespace

std::vector<TreeNode> ShowTree(const Statement& statement) {
    return TreeBuilder(statement).Build();
}

}  // namespace tessel::analyse
