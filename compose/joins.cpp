// FROM: the tables in their order, or the relations as chains of parenthesised joins followed by the tables
// that take part in none.
#include <unordered_set>

#include "common/text.h"
#include "compose/compose.h"

namespace tessel::compose {

namespace {

using NameSet = std::unordered_set<std::wstring>;

/// A relation with the forms of its names that decide about its place in a chain: two tests compare the names
/// in lower case, one of them trimmed too.
struct PendingRelation {
    explicit PendingRelation(const model::RelInfo& relation)
        : info(relation), left(Lower(relation.LeftTable)), right(Lower(relation.RightTable)) {
        info.Used = false;
    }

    model::RelInfo info;
    std::wstring left;
    std::wstring right;
};

std::wstring OnText(const model::RelInfo& relation) {
    std::wstring text;
    text.reserve(relation.LeftTable.size() + relation.LeftField.size() + relation.RightTable.size() +
                 relation.RightField.size() + 5);
    text += relation.LeftTable;
    text += L'.';
    text += relation.LeftField;
    text += L" = ";
    text += relation.RightTable;
    text += L'.';
    text += relation.RightField;
    return text;
}

class ChainBuilder {
public:
    explicit ChainBuilder(PendingRelation& first) {
        path_.StartTable = first.info.LeftTable;
        Include(first.left);
        Append(first, first.info.RightTable, first.right);
    }

    bool IsTouchedBy(const PendingRelation& relation) const {
        return names_.contains(relation.left) || names_.contains(relation.right);
    }

    // A relation reached from its right table adds its left one and keeps its stored kind: LEFT stays LEFT
    // (JoinChains.LeftJoinReachedFromItsRightTableStaysLeft).
    void Add(PendingRelation& relation) {
        if (trimmed_names_.contains(Trim(relation.right))) {
            Append(relation, relation.info.LeftTable, relation.left);
        } else {
            Append(relation, relation.info.RightTable, relation.right);
        }
    }

    model::JPath Take() { return std::move(path_); }

private:
    void Append(PendingRelation& relation, const std::wstring& table, const std::wstring& lowered_table) {
        path_.Joins.push_back({OnText(relation.info), table, relation.info.JType});
        Include(lowered_table);
        relation.info.Used = true;
    }

    void Include(const std::wstring& lowered) {
        names_.insert(lowered);
        trimmed_names_.insert(Trim(lowered));
    }

    model::JPath path_;
    NameSet names_;
    NameSet trimmed_names_;
};

/// One chain as nested joins: every step wraps what stands so far in parentheses and leaves a blank behind.
void AppendChain(std::wstring& text, const model::JPath& path) {
    text.append(path.Joins.size(), L'(');
    text += path.StartTable;
    for (const model::JInfo& join : path.Joins) {
        text += L' ';
        text += JoinKeyword(join.JType + 1);
        text += L" JOIN ";
        text += join.Table;
        text += L" ON ";
        text += join.OnExp;
        text += L") ";
    }
}

}  // namespace

std::wstring JoinKeyword(int code) {
    if (code == 2) return L"LEFT";
    if (code == 3) return L"RIGHT";
    return L"INNER";
}

std::wstring TableList(const model::Diagram& diagram) {
    std::wstring list;
    for (const model::DiagramTable& table : diagram.Tables()) {
        if (!list.empty()) list += L", ";
        list += table.name;
    }
    return list;
}

std::vector<model::JPath> BuildJoinChains(const model::Diagram& diagram) {
    std::vector<PendingRelation> relations;
    relations.reserve(diagram.Relations().size());
    for (const model::DiagramRelation& relation : diagram.Relations()) relations.emplace_back(relation.info);

    std::vector<model::JPath> chains;
    for (PendingRelation& first : relations) {
        if (first.info.Used) continue;
        ChainBuilder chain(first);
        // One walk over all relations for a chain. A relation that only a later step brings within reach, but
        // that stands earlier in the order, starts a chain of its own
        // (JoinChains.RelationReachableOnlyThroughALaterOneStartsAnotherChain).
        for (PendingRelation& relation : relations) {
            if (!relation.info.Used && chain.IsTouchedBy(relation)) chain.Add(relation);
        }
        chains.push_back(chain.Take());
    }
    return chains;
}

std::wstring JoinClause(const model::Diagram& diagram) {
    std::wstring text;
    for (const model::JPath& path : BuildJoinChains(diagram)) {
        if (!text.empty()) text += L", ";
        AppendChain(text, path);
    }

    NameSet related;
    for (const model::DiagramRelation& relation : diagram.Relations()) {
        related.insert(Lower(relation.info.LeftTable));
        related.insert(Lower(relation.info.RightTable));
    }
    for (const model::DiagramTable& table : diagram.Tables()) {
        if (related.contains(Lower(table.name))) continue;
        text += L", ";
        text += table.name;
    }
    return text;
}

}  // namespace tessel::compose
