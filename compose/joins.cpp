// FROM: the tables in their order, or the relations as chains of parenthesised joins followed by the tables
// that take part in none.
#include <algorithm>
#include <utility>
#include <vector>

#include "common/text.h"
#include "compose/column_view.h"
#include "compose/compose.h"

namespace tessel::compose {

namespace {

using namespace std::string_view_literals;

/// Numbers for names, the same for names that differ in letter case alone. The names stay where they are;
/// they are as few as the tables of a diagram.
class NameNumbers {
public:
    explicit NameNumbers(std::size_t most) { names_.reserve(most); }

    int NumberOf(std::wstring_view name) {
        const auto is_same = [&](std::wstring_view known) { return SameIgnoringCase(known, name); };
        const auto found = std::ranges::find_if(names_, is_same);
        const auto number = static_cast<int>(found - names_.begin());
        if (found == names_.end()) names_.push_back(name);
        return number;
    }

private:
    std::vector<std::wstring_view> names_;
};

/// A name that decides about a relation's place in a chain: two tests compare it without regard to letter
/// case, one of them trimmed too. Equal texts have equal numbers.
struct ChainName {
    int whole = 0;
    int trimmed = 0;

    ChainName(std::wstring_view name, NameNumbers& numbers) {
        const std::wstring_view bare = TrimView(name);
        trimmed = numbers.NumberOf(bare);
        whole = bare.size() == name.size() ? trimmed : numbers.NumberOf(name);
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

void AppendOn(const model::RelInfo& relation, std::wstring& text) {
    text += relation.LeftTable;
    text += L'.';
    text += relation.LeftField;
    text += L" = "sv;
    text += relation.RightTable;
    text += L'.';
    text += relation.RightField;
}

/// A chain whose texts stay in the diagram.
struct Chain {
    struct Step {
        const model::RelInfo* relation = nullptr;
        std::wstring_view table;
    };
    std::wstring_view start;
    std::vector<Step> steps;
};

class ChainBuilder {
public:
    explicit ChainBuilder(PendingRelation& first) {
        chain_.start = first.info.LeftTable;
        Include(first.left);
        Append(first, first.info.RightTable, first.right);
    }

    bool IsTouchedBy(const PendingRelation& relation) const {
        return Holds(names_, relation.left.whole) || Holds(names_, relation.right.whole);
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

    Chain Take() { return std::move(chain_); }

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

    void Append(PendingRelation& relation, std::wstring_view table, const ChainName& name) {
        chain_.steps.push_back({&relation.info, table});
        Include(name);
        relation.used = true;
    }

    void Include(const ChainName& name) {
        Mark(names_, name.whole);
        Mark(trimmed_names_, name.trimmed);
    }

    Chain chain_;
    Marks names_;
    Marks trimmed_names_;
};

std::vector<Chain> ChainsOf(const model::Diagram& diagram) {
    NameNumbers numbers(diagram.Tables().size());
    std::vector<PendingRelation> relations;
    relations.reserve(diagram.Relations().size());
    for (const model::DiagramRelation& relation : diagram.Relations())
        relations.emplace_back(relation.info, numbers);

    std::vector<Chain> chains;
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

std::wstring_view JoinWord(int code) {
    if (code == 2) return L"LEFT"sv;
    if (code == 3) return L"RIGHT"sv;
    return L"INNER"sv;
}

/// One chain as nested joins: every step wraps what stands so far in parentheses and leaves a blank behind.
void AppendChain(const Chain& chain, std::wstring& text) {
    text.append(chain.steps.size(), L'(');
    text += chain.start;
    for (const Chain::Step& step : chain.steps) {
        text += L' ';
        text += JoinWord(step.relation->JType + 1);
        text += L" JOIN "sv;
        text += step.table;
        text += L" ON "sv;
        AppendOn(*step.relation, text);
        text += L") "sv;
    }
}

void AppendTables(const model::Diagram& diagram, std::wstring& text) {
    const std::size_t begin = text.size();
    for (const model::DiagramTable& table : diagram.Tables()) {
        if (text.size() > begin) text += L", "sv;
        text += table.name;
    }
}

void AppendJoins(const model::Diagram& diagram, std::wstring& text) {
    const std::size_t begin = text.size();
    for (const Chain& chain : ChainsOf(diagram)) {
        if (text.size() > begin) text += L", "sv;
        AppendChain(chain, text);
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
        text += L", "sv;
        text += table.name;
    }
}

}  // namespace

void AppendFrom(const model::Diagram& diagram, std::wstring& text) {
    if (diagram.Relations().empty()) {
        AppendTables(diagram, text);
    } else {
        AppendJoins(diagram, text);
    }
}

std::wstring JoinKeyword(int code) {
    return std::wstring(JoinWord(code));
}

std::wstring TableList(const model::Diagram& diagram) {
    std::wstring text;
    AppendTables(diagram, text);
    return text;
}

std::wstring JoinClause(const model::Diagram& diagram) {
    std::wstring text;
    AppendJoins(diagram, text);
    return text;
}

std::vector<model::JPath> BuildJoinChains(const model::Diagram& diagram) {
    std::vector<model::JPath> paths;
    for (const Chain& chain : ChainsOf(diagram)) {
        model::JPath& path = paths.emplace_back();
        path.StartTable = chain.start;
        for (const Chain::Step& step : chain.steps) {
            model::JInfo& join = path.Joins.emplace_back();
            AppendOn(*step.relation, join.OnExp);
            join.Table = step.table;
            join.JType = step.relation->JType;
        }
    }
    return paths;
}

}  // namespace tessel::compose
