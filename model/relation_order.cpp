#include "model/relation_order.h"

#include <algorithm>
#include <unordered_set>
#include <utility>

#include "common/identifiers.h"

namespace tessel::model {

namespace {

using TableSet = std::unordered_set<std::wstring>;

std::wstring LeftKey(const DiagramRelation& relation) {
    return IdentifierKey(relation.info.LeftTable);
}
std::wstring RightKey(const DiagramRelation& relation) {
    return IdentifierKey(relation.info.RightTable);
}

bool IsOuter(const DiagramRelation& relation) {
    return relation.info.JType == kLeftJoin || relation.info.JType == kRightJoin;
}

bool HasFurtherComparisons(const DiagramRelation& relation) {
    return FieldOfRelation(relation.info.RightField).size() != relation.info.RightField.size();
}

/// The same join said from its other table. Further comparisons stay behind the equality.
DiagramRelation Turned(const DiagramRelation& relation) {
    const RelInfo& info = relation.info;
    const std::wstring right_field(FieldOfRelation(info.RightField));
    DiagramRelation turned = relation;
    turned.info.LeftTable = info.RightTable;
    turned.info.LeftField = right_field;
    turned.info.RightTable = info.LeftTable;
    turned.info.RightField = info.LeftField + info.RightField.substr(right_field.size());
    if (info.JType == kLeftJoin) turned.info.JType = kRightJoin;
    if (info.JType == kRightJoin) turned.info.JType = kLeftJoin;
    return turned;
}

/// A chain as far as it is written: its tables, and those among them whose rows may be missing.
class Chain {
public:
    explicit Chain(const DiagramRelation& first) {
        tables_ = {LeftKey(first), RightKey(first)};
        if (first.info.JType == kLeftJoin) missing_ = {RightKey(first)};
        if (first.info.JType == kRightJoin) missing_ = {LeftKey(first)};
    }

    /// The relation adds exactly one table.
    bool Reaches(const DiagramRelation& relation) const {
        return tables_.contains(LeftKey(relation)) != tables_.contains(RightKey(relation));
    }

    /// As composition wants it: an outer join has the chain's table on its left.
    DiagramRelation Oriented(const DiagramRelation& relation) const {
        return IsOuter(relation) && tables_.contains(RightKey(relation)) ? Turned(relation) : relation;
    }

    /// Adding the oriented relation takes no kept rows away. A left join never does.
    bool Keeps(const DiagramRelation& oriented) const {
        return oriented.info.JType == kLeftJoin || !missing_.contains(Reached(oriented));
    }

    void Add(const DiagramRelation& oriented) {
        const bool from_left = tables_.contains(LeftKey(oriented));
        const std::wstring added = from_left ? RightKey(oriented) : LeftKey(oriented);
        if (oriented.info.JType == kRightJoin) missing_ = tables_;
        if (oriented.info.JType == kLeftJoin) missing_.insert(added);
        tables_.insert(added);
    }

private:
    /// The chain's table that the relation is reached from.
    std::wstring Reached(const DiagramRelation& relation) const {
        return tables_.contains(LeftKey(relation)) ? LeftKey(relation) : RightKey(relation);
    }

    TableSet tables_;
    TableSet missing_;
};

/// A faithful order that begins with that relation. Inner joins come as early as they can: later their
/// table's rows may be missing.
std::optional<Relations> OrderFrom(const Relations& group, std::size_t first) {
    Relations order = {group[first]};
    Relations waiting = group;
    waiting.erase(waiting.begin() + static_cast<std::ptrdiff_t>(first));
    Chain chain(order.front());
    while (!waiting.empty()) {
        const auto next_of = [&](bool outer) {
            return std::ranges::find_if(waiting, [&](const DiagramRelation& relation) {
                return IsOuter(relation) == outer && chain.Reaches(relation) &&
                       chain.Keeps(chain.Oriented(relation));
            });
        };
        auto next = next_of(false);
        if (next == waiting.end()) next = next_of(true);
        if (next == waiting.end()) return std::nullopt;
        order.push_back(chain.Oriented(*next));
        chain.Add(order.back());
        waiting.erase(next);
    }
    return order;
}

std::optional<Relations> FaithfulOrder(const Relations& group) {
    if (IsFaithfulOrder(group)) return group;
    if (std::ranges::any_of(group, HasFurtherComparisons)) return std::nullopt;
    for (std::size_t first = 0; first < group.size(); ++first)
        if (auto order = OrderFrom(group, first)) return order;
    return std::nullopt;
}

/// The group's relations with that one turned as the chain reaches it where it stands.
Relations WithOriented(Relations group, std::size_t which) {
    if (which == 0) return group;
    Chain chain(group.front());
    for (std::size_t i = 1; i < which; ++i)
        if (chain.Reaches(group[i])) chain.Add(group[i]);
    if (chain.Reaches(group[which])) group[which] = chain.Oriented(group[which]);
    return group;
}

Relations GroupOf(const Relations& relations, std::wstring_view table) {
    Relations group;
    std::ranges::copy_if(relations, std::back_inserter(group), [&](const DiagramRelation& relation) {
        return AreConnected(relations, relation.info.LeftTable, table);
    });
    return group;
}

/// Puts a group where the first of its relations stood, at the end when none did.
Relations Replaced(const Relations& relations, const Relations& group) {
    const auto is_of_group = [&](const DiagramRelation& relation) {
        return std::ranges::find(group, relation.key, &DiagramRelation::key) != group.end();
    };
    Relations result;
    bool is_placed = false;
    for (const DiagramRelation& relation : relations) {
        if (!is_of_group(relation)) {
            result.push_back(relation);
        } else if (!std::exchange(is_placed, true)) {
            result.insert(result.end(), group.begin(), group.end());
        }
    }
    if (!is_placed) result.insert(result.end(), group.begin(), group.end());
    return result;
}

}  // namespace

bool AreConnected(const Relations& relations, std::wstring_view a, std::wstring_view b) {
    TableSet reached = {IdentifierKey(a)};
    const std::wstring wanted = IdentifierKey(b);
    for (bool grown = true; grown && !reached.contains(wanted);) {
        grown = false;
        for (const DiagramRelation& relation : relations) {
            const bool left = reached.contains(LeftKey(relation));
            if (left == reached.contains(RightKey(relation))) continue;
            reached.insert(left ? RightKey(relation) : LeftKey(relation));
            grown = true;
        }
    }
    return reached.contains(wanted);
}

bool IsFaithfulOrder(const Relations& group) {
    if (group.empty()) return true;
    Chain chain(group.front());
    for (std::size_t i = 1; i < group.size(); ++i) {
        if (!chain.Reaches(group[i]) || chain.Oriented(group[i]) != group[i] || !chain.Keeps(group[i]))
            return false;
        chain.Add(group[i]);
    }
    return true;
}

std::optional<Relations> WithRelation(const Relations& relations, const DiagramRelation& added) {
    // The group that was there first goes on, the other one comes to it.
    Relations group = GroupOf(relations, added.info.LeftTable);
    Relations other = GroupOf(relations, added.info.RightTable);
    const auto place = [&](const Relations& of) {
        return of.empty() ? relations.end()
                          : std::ranges::find(relations, of.front().key, &DiagramRelation::key);
    };
    if (place(other) < place(group)) std::swap(group, other);
    const bool was_faithful = IsFaithfulOrder(group) && IsFaithfulOrder(other);
    group.push_back(added);
    if (!other.empty()) {
        // Two chains become one: neither keeps its order then, so both must be free to change it.
        if (!was_faithful) return std::nullopt;
        group.insert(group.end(), other.begin(), other.end());
    } else {
        const std::size_t last = group.size() - 1;
        group = WithOriented(std::move(group), last);
        if (!was_faithful) return Replaced(relations, group);
    }
    const auto order = FaithfulOrder(group);
    return order ? std::optional(Replaced(relations, *order)) : std::nullopt;
}

std::optional<Relations> WithKind(const Relations& relations, int key, JoinKind kind) {
    const auto found = std::ranges::find(relations, key, &DiagramRelation::key);
    if (found == relations.end()) return std::nullopt;
    Relations group = GroupOf(relations, found->info.LeftTable);
    const bool was_faithful = IsFaithfulOrder(group);
    const auto changed = std::ranges::find(group, key, &DiagramRelation::key);
    changed->info.JType = kind;
    const auto which = static_cast<std::size_t>(changed - group.begin());
    group = WithOriented(std::move(group), which);
    if (!was_faithful) return Replaced(relations, group);
    const auto order = FaithfulOrder(group);
    return order ? std::optional(Replaced(relations, *order)) : std::nullopt;
}

}  // namespace tessel::model
