// FROM: the tables in their order, or the relations as chains of parenthesised joins followed by the tables
// that take part in none.
#include <algorithm>
#include <unordered_map>
#include <utility>
#include <vector>

#include "common/text.h"
#include "compose/compose.h"

namespace tessel::compose {

namespace {

using NameNumbers = std::unordered_map<std::wstring, int>;

int NumberOf(std::wstring name, NameNumbers& numbers) {
    return numbers.emplace(std::move(name), static_cast<int>(numbers.size())).first->second;
}

/// A name that decides about a relation's place in a chain: two tests compare it in lower case, one of them
/// trimmed too. Equal texts have equal numbers.
struct ChainName {
    int lowered = 0;
    int trimmed = 0;

    ChainName(std::wstring_view name, NameNumbers& numbers) {
        std::wstring text = Lower(name);
        const std::wstring_view bare = TrimView(text);
        trimmed = bare.size() == text.size() ? -1 : NumberOf(std::wstring(bare), numbers);
        lowered = NumberOf(std::move(text), numbers);
        if (trimmed < 0) trimmed = lowered;
    }
};

struct PendingRelation {
    PendingRelation(const model::RelInfo& relation, NameNumbers& numbers)
        : info(relation), left(relation.LeftTable, numbers), right(relation.RightTable, numbers) {}

    const model::RelInfo& info;
    ChainName left;
    ChainName right;
    bool used = false;
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
        return Holds(names_, relation.left.lowered) || Holds(names_, relation.right.lowered);
    }

    // A relation reached from its right table adds its left one and keeps its stored kind: LEFT stays LEFT
    // (JoinChains.LeftJoinReachedFromItsRightTableStaysLeft).
    void Add(PendingRelation& relation) {
        if (Holds(trimmed_names_, relation.right.trimmed)) {
            Append(relation, relation.info.LeftTable, relation.left);
        } else {
            Append(relation, relation.info.RightTable, relation.right);
        }
    }

    model::JPath Take() { return std::move(path_); }

private:
    using Marks = std::vector<bool>;  ///< by a name's number

    static bool Holds(const Marks& marks, int number) {
        return static_cast<std::size_t>(number) < marks.size() && marks[static_cast<std::size_t>(number)];
    }
    static void Mark(Marks& marks, int number) {
        const auto index = static_cast<std::size_t>(number);
        if (index >= marks.size()) marks.resize(index + 1);
        marks[index] = true;
    }

    void Append(PendingRelation& relation, const std::wstring& table, const ChainName& name) {
        path_.Joins.push_back({OnText(relation.info), table, relation.info.JType});
        Include(name);
        relation.used = true;
    }

    void Include(const ChainName& name) {
        Mark(names_, name.lowered);
        Mark(trimmed_names_, name.trimmed);
    }

    model::JPath path_;
    Marks names_;
    Marks trimmed_names_;
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
    NameNumbers numbers;
    std::vector<PendingRelation> relations;
    relations.reserve(diagram.Relations().size());
    for (const model::DiagramRelation& relation : diagram.Relations())
        relations.emplace_back(relation.info, numbers);

    std::vector<model::JPath> chains;
    for (PendingRelation& first : relations) {
        if (first.used) continue;
        ChainBuilder chain(first);
        // One walk over all relations for a chain. A relation that only a later step brings within reach, but
        // that stands earlier in the order, starts a chain of its own
        // (JoinChains.RelationReachableOnlyThroughALaterOneStartsAnotherChain).
        for (PendingRelation& relation : relations) {
            if (!relation.used && chain.IsTouchedBy(relation)) chain.Add(relation);
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

    // Joined by a relation: the names match without regard to letter case, blanks counting.
    const auto is_related = [&](const model::DiagramTable& table) {
        return std::ranges::any_of(diagram.Relations(), [&](const model::DiagramRelation& relation) {
            return SameIgnoringCase(relation.info.LeftTable, table.name) ||
                   SameIgnoringCase(relation.info.RightTable, table.name);
        });
    };
    for (const model::DiagramTable& table : diagram.Tables()) {
        if (is_related(table)) continue;
        text += L", ";
        text += table.name;
    }
    return text;
}

}  // namespace tessel::compose
