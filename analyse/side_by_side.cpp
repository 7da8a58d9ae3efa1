#include "analyse/side_by_side.h"

#include <algorithm>
#include <string>
#include <vector>

#include "analyse/nodes.h"
#include "analyse/normal_form.h"
#include "common/identifiers.h"
#include "model/design_grid.h"

namespace tessel::analyse {

namespace {

using sql::FromNode;
using sql::Item;
using sql::Node;
using sql::NodeId;
using sql::NodeKind;
using sql::Statement;
using namespace std::string_view_literals;

// Composition adds a pair to tell a text from another one, and a pair for every join. With these limits,
// and no expression longer than a cell, the text nests less deeply than the parser allows.
constexpr int kMostParens = 3;
constexpr std::size_t kMostTables = 100;

/// Parts of the statement that the text may give in any order, each of them once.
class Ticks {
public:
    explicit Ticks(std::size_t size) : ticked_(size) {}

    /// Ticks the first part that is left and that `take` finds in the text.
    template <class Take>
    bool TickFirst(Take take) {
        for (std::size_t index = 0; index < ticked_.size(); ++index) {
            if (ticked_[index] || !take(index)) continue;
            ticked_[index] = true;
            ++count_;
            return true;
        }
        return false;
    }
    bool All() const { return count_ == ticked_.size(); }

private:
    std::vector<bool> ticked_;
    std::size_t count_ = 0;
};

class Reader {
public:
    Reader(const StatementScope& scope, const Canonical& canonical, std::wstring_view text)
        : scope_(scope), canonical_(canonical), statement_(scope.Source()), text_(text) {}

    bool Read() {
        return MayBeRead() && ReadSelect() && ReadFrom() && ReadWhere() && ReadGroupBy() && ReadHaving() &&
               ReadOrderBy() && Take(L";"sv) && at_ == text_.size();
    }

private:
    // What the text may hold
    // --------------------------------------------------------------------------------------------------------

    // A "?" means another parameter in another place, and what "#" begins depends on what follows far behind.
    bool MayBeRead() {
        if (!statement_.beyond.empty() || statement_.top_range.length > 0) return false;
        if (statement_.source.find(L'?') != std::wstring_view::npos) return false;
        if (statement_.source.find(L'#') != std::wstring_view::npos) return false;
        if (statement_.Tables.empty() || statement_.Tables.size() > kMostTables) return false;
        for (std::size_t index = 0; index < statement_.Tables.size(); ++index) {
            const sql::TableRef& table = statement_.Tables[index];
            if (table.owner.length > 0 || table.database.length > 0) return false;
            if (scope_.IsTableRepeated(static_cast<int>(index))) return false;
            has_aliases_ = has_aliases_ || table.alias.length > 0;
        }
        return !has_aliases_ || AliasesMayBeRead();
    }

    // With the tables' own names for their aliases the text says the same when every qualifier is known to be
    // a table's, and no nested select can take the name for one of its own.
    bool AliasesMayBeRead() {
        if (!statement_.nested.empty()) return false;
        for (const sql::TableRef& table : statement_.Tables) {
            const std::wstring_view name = statement_.Slice(table.name);
            if (!IsIdentifierStart(name.front()) && name.front() != L'[') return false;
            names_.emplace_back(table.alias.length > 0 ? name : std::wstring_view());
        }
        for (NodeId id = 0; id < statement_.nodes.size(); ++id) {
            const NodeKind kind = statement_.At(id).kind;
            if (kind != NodeKind::Name && kind != NodeKind::Star) continue;
            const StatementScope::NameParts parts = scope_.PartsOf(id);
            const bool is_qualified = parts.count > (kind == NodeKind::Name ? 1u : 0u);
            if (is_qualified && scope_.TableCalled(parts.first) == kNoTable) return false;
        }
        return true;
    }

    // Pieces
    // --------------------------------------------------------------------------------------------------------

    bool Take(std::wstring_view piece) {
        if (!text_.substr(at_).starts_with(piece)) return false;
        at_ += piece.size();
        return true;
    }

    bool TakeParens(std::size_t count) {
        while (count > 0 && Take(L"("sv)) --count;
        return count == 0;
    }

    /// All that `take` takes, or nothing.
    template <class Pieces>
    bool TakeWhole(Pieces take) {
        const std::size_t begin = at_;
        if (take()) return true;
        at_ = begin;
        return false;
    }

    /// The stretch of the statement with the tables' own names.
    bool TakeSlice(TextRange range) {
        if (range.length > model::kMaxCellLength) return false;
        return Take(has_aliases_ ? std::wstring_view(replaced_ = scope_.TextWithTables(range, names_))
                                 : statement_.Slice(range));
    }

    /// The expression, in more parentheses than it had or in as many. "t.*" stands in none.
    bool TakeExpression(NodeId id) {
        const Node& node = statement_.At(id);
        if (TakeSlice(node.Range())) return true;
        if (node.kind == NodeKind::Star) return false;
        return TakeWhole([&] {
            for (int parens = 1; parens <= kMostParens && Take(L"("sv); ++parens) {
                if (TakeSlice(node.Range())) return Take(std::wstring_view(L")))").substr(0, parens));
            }
            return false;
        });
    }

    // The clauses
    // --------------------------------------------------------------------------------------------------------

    bool ReadSelect() {
        if (!Take(statement_.Distinct ? L"SELECT DISTINCTROW "sv : L"SELECT "sv)) return false;
        for (std::size_t index = 0; index < statement_.Columns.size(); ++index) {
            if (index > 0 && !Take(L", "sv)) return false;
            if (!TakeSelectItem(statement_.Columns[index])) return false;
        }
        return Take(L" \r\nFROM "sv);
    }

    // A title that is the field's own name changes nothing. No other is taken that the statement has not.
    bool TakeSelectItem(const Item& item) {
        if (!TakeExpression(item.node)) return false;
        if (IsBareStar(statement_.At(item.node))) has_star_ = true;
        if (item.alias.length > 0) return Take(L" AS "sv) && Take(statement_.Slice(item.alias));
        const NodeId inner = WithoutParens(statement_, item.node);
        if (statement_.At(inner).kind != NodeKind::Name || IsBareName(inner) || !Take(L" AS "sv)) return true;
        adds_titles_ = true;
        NodeId field = statement_.At(inner).first_child;
        while (statement_.At(field).next != sql::kNoNode) field = statement_.At(field).next;
        return Take(statement_.Slice(statement_.At(field).Range()));
    }

    bool ReadFrom() {
        const bool has_joins = statement_.From.size() > statement_.Tables.size();
        if (has_joins) return statement_.JoinGroups.size() == 1 && ReadJoins();
        for (std::size_t index = 0; index < statement_.Tables.size(); ++index) {
            if (index > 0 && !Take(L", "sv)) return false;
            if (!Take(statement_.Slice(statement_.Tables[index].name))) return false;
        }
        return true;
    }

    // Two inner joins may change places with all that belongs to them. Where there are others, the same joins
    // must follow each other in the same order.
    bool ReadJoins() {
        std::vector<int> joins;
        for (std::size_t index = 0; index < statement_.From.size(); ++index) {
            if (statement_.From[index].is_join) joins.push_back(static_cast<int>(index));
        }
        if (!std::ranges::all_of(joins, [&](int join) { return IsEqualityOfFields(Join(join)); }))
            return false;
        const std::size_t begin = at_;
        if (IsChain(joins) && ReadChain(joins)) return true;
        at_ = begin;
        const auto is_inner = [&](int join) { return Join(join).kind == sql::JoinKind::Inner; };
        return !has_star_ && std::ranges::all_of(joins, is_inner) && ReadInnerJoins(joins);
    }

    const FromNode& Join(int index) const { return statement_.From[static_cast<std::size_t>(index)]; }

    bool IsEqualityOfFields(const FromNode& join) const {
        if (join.kind == sql::JoinKind::None || join.on_node == sql::kNoNode) return false;
        const Node& equality = statement_.At(WithoutParens(statement_, join.on_node));
        if (equality.kind != NodeKind::Compare) return false;
        if (static_cast<sql::CompareOp>(equality.op) != sql::CompareOp::Equal) return false;
        const NodeId left = equality.first_child;
        return IsFieldOfTable(left) && IsFieldOfTable(statement_.At(left).next);
    }

    bool IsFieldOfTable(NodeId id) const {
        return statement_.At(id).kind == NodeKind::Name && !IsBareName(id) &&
               scope_.TableOfName(id) != kNoTable;
    }

    /// Every join adds one table to those before it.
    bool IsChain(const std::vector<int>& joins) const {
        int left = Join(joins.front()).left;
        for (const int join : joins) {
            if (Join(join).left != left || Join(Join(join).right).is_join) return false;
            left = join;
        }
        return !Join(Join(joins.front()).left).is_join;
    }

    bool ReadChain(const std::vector<int>& joins) {
        if (!TakeParens(joins.size()) || !TakeTable(Join(Join(joins.front()).left).table)) return false;
        return std::ranges::all_of(joins, [&](int index) {
            const FromNode& join = Join(index);
            return Take(JoinWords(join.kind)) && TakeTable(Join(join.right).table) && Take(L" ON "sv) &&
                   TakeEquality(join) && Take(L") "sv);
        });
    }

    bool ReadInnerJoins(const std::vector<int>& joins) {
        Ticks tables(statement_.Tables.size());
        Ticks conditions(joins.size());
        const auto take_table = [&](std::size_t index) { return TakeTable(static_cast<int>(index)); };
        const auto take_condition = [&](std::size_t index) { return TakeEquality(Join(joins[index])); };
        if (!TakeParens(joins.size()) || !tables.TickFirst(take_table)) return false;
        while (!conditions.All()) {
            const bool joined = Take(JoinWords(sql::JoinKind::Inner)) && tables.TickFirst(take_table) &&
                                Take(L" ON "sv) && conditions.TickFirst(take_condition) && Take(L") "sv);
            if (!joined) return false;
        }
        return tables.All();
    }

    static std::wstring_view JoinWords(sql::JoinKind kind) {
        if (kind == sql::JoinKind::Left) return L" LEFT JOIN "sv;
        if (kind == sql::JoinKind::Right) return L" RIGHT JOIN "sv;
        return L" INNER JOIN "sv;
    }

    /// The whole name of a table in a join.
    bool TakeTable(int index) {
        const TextRange name = statement_.Tables[static_cast<std::size_t>(index)].name;
        return TakeWhole([&] { return Take(statement_.Slice(name)) && text_.substr(at_).starts_with(L' '); });
    }

    bool TakeEquality(const FromNode& join) {
        const NodeId left = statement_.At(WithoutParens(statement_, join.on_node)).first_child;
        const TextRange one = statement_.At(left).Range();
        const TextRange other = statement_.At(statement_.At(left).next).Range();
        const auto take = [&](TextRange first, TextRange second) {
            return TakeWhole([&] {
                return TakeSlice(first) && Take(L" = "sv) && TakeSlice(second) &&
                       text_.substr(at_).starts_with(L')');
            });
        };
        return take(one, other) || take(other, one);
    }

    bool ReadWhere() {
        if (statement_.where == sql::kNoNode) return true;
        where_ = canonical_.ConjunctNodes(statement_.where);
        return Take(L" \r\nWHERE "sv) && ReadConditions(where_);
    }

    // Of conditions that are truth values, their own form is that of their truth.
    bool ReadConditions(const std::vector<NodeId>& conditions) {
        Ticks ticks(conditions.size());
        do {
            const bool taken = ticks.TickFirst([&](std::size_t index) {
                const NodeId id = conditions[index];
                if (!canonical_.IsTruthValue(id)) return false;
                return TakeWhole([&] { return Take(L"("sv) && TakeComparison(id) && Take(L")"sv); }) ||
                       TakeWhole(
                           [&] { return Take(L"(("sv) && TakeSlice(PlaceOf(id)) && Take(L") =True)"sv); });
            });
            if (!taken) return false;
        } while (Take(L" AND "sv));
        return ticks.All();
    }

    // The left side may have lost its parentheses when it stays in one piece without them.
    bool TakeComparison(NodeId id) {
        const Node& node = statement_.At(id);
        if (node.kind != NodeKind::Compare) return false;
        const wchar_t sign = statement_.source[node.payload];
        if (sign != L'=' && sign != L'<' && sign != L'>' && sign != L'!') return false;
        const NodeId inner = WithoutParens(statement_, node.first_child);
        const NodeKind kind = statement_.At(inner).kind;
        const bool is_one_piece = kind == NodeKind::Name || kind == NodeKind::Call;
        if (!TakeExpression(is_one_piece ? inner : node.first_child)) return false;
        return Take(L" "sv) && Take(Sign(static_cast<sql::CompareOp>(node.op))) && Take(L" "sv) &&
               TakeSlice(PlaceOf(statement_.At(node.first_child).next));
    }

    bool ReadGroupBy() {
        if (statement_.GroupItems.empty()) return true;
        if (!Take(L" \r\nGROUP BY "sv)) return false;
        Ticks keys(statement_.GroupItems.size());
        const auto take_key = [&](std::size_t index) {
            return TakeListed(WithoutParens(statement_, statement_.GroupItems[index].node));
        };
        const auto take_condition = [&](NodeId id) {
            return canonical_.IsTruthValue(id) && FirstAggregate(statement_, id) == sql::kNoNode &&
                   TakeListed(id);
        };
        do {
            if (keys.TickFirst(take_key)) continue;
            if (!std::ranges::any_of(where_, take_condition)) return false;
            adds_keys_ = true;
        } while (Take(L", "sv));
        return keys.All();
    }

    /// An entry of GROUP BY up to where the next one begins or the clause ends.
    bool TakeListed(NodeId id) {
        return TakeWhole([&] {
            if (!TakeExpression(id)) return false;
            const std::wstring_view rest = text_.substr(at_);
            return rest.starts_with(L", "sv) || rest.starts_with(L" \r\n"sv) || rest.starts_with(L';');
        });
    }

    // A title or a further key may make of a condition one that could stand in WHERE (group_conditions.h);
    // not of one that holds an aggregate.
    bool ReadHaving() {
        if (statement_.having == sql::kNoNode) return true;
        const std::vector<NodeId> conditions = canonical_.ConjunctNodes(statement_.having);
        const auto has_aggregate = [&](NodeId id) { return FirstAggregate(statement_, id) != sql::kNoNode; };
        if ((adds_titles_ || adds_keys_) && !std::ranges::all_of(conditions, has_aggregate)) return false;
        return Take(L" \r\nHAVING "sv) && ReadConditions(conditions);
    }

    bool ReadOrderBy() {
        for (std::size_t index = 0; index < statement_.OrderItems.size(); ++index) {
            if (!Take(index > 0 ? L", "sv : L" \r\nORDER BY "sv)) return false;
            const Item& item = statement_.OrderItems[index];
            const NodeId key = SortedBy(item.node);
            if (key == sql::kNoNode || !TakeExpression(key)) return false;
            if (item.descending && !Take(L" DESC"sv)) return false;
        }
        return true;
    }

    /// What a sort key stands for; kNoNode when it may be another column in the composed text.
    NodeId SortedBy(NodeId key) const {
        const NodeId own = WithoutParens(statement_, key);
        if (!MayCallColumn(own)) return own;
        const int column = SelectItemOfSortKey(scope_, canonical_, key);
        if (column == kOwnExpression && !adds_titles_ && IsBareName(own)) return own;
        if (column < 0) return sql::kNoNode;
        const NodeId shown =
            WithoutParens(statement_, statement_.Columns[static_cast<std::size_t>(column)].node);
        return MayCallColumn(shown) || IsSameForEveryRow(statement_, shown) ? sql::kNoNode : shown;
    }

    bool MayCallColumn(NodeId id) const {
        return IsBareName(id) || statement_.At(id).kind == NodeKind::Number;
    }

    /// A name of one part, or of parts that are not all there.
    bool IsBareName(NodeId id) const {
        const Node& node = statement_.At(id);
        if (node.kind != NodeKind::Name) return false;
        return node.first_child == sql::kNoNode || statement_.At(node.first_child).next == sql::kNoNode;
    }

    TextRange PlaceOf(NodeId id) const { return statement_.At(id).Range(); }

    const StatementScope& scope_;
    const Canonical& canonical_;
    const Statement& statement_;
    std::wstring_view text_;
    std::size_t at_ = 0;
    bool has_aliases_ = false;
    std::vector<std::wstring> names_;  ///< of the tables that have an alias
    std::wstring replaced_;
    std::vector<NodeId> where_;  ///< the conditions that WHERE demands
    bool has_star_ = false;
    bool adds_titles_ = false;
    bool adds_keys_ = false;  ///< to GROUP BY
};

}  // namespace

bool ReadsAlike(const StatementScope& scope, const Canonical& canonical, std::wstring_view composed) {
    return Reader(scope, canonical, composed).Read();
}

}  // namespace tessel::analyse
