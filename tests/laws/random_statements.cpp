#include "tests/laws/random_statements.h"

#include <algorithm>

#include "common/identifiers.h"
#include "common/text.h"

namespace tessel::laws {

namespace {

Condition Leaf(std::wstring text) {
    Condition leaf;
    leaf.text = std::move(text);
    return leaf;
}

Condition Joined(Condition::Kind kind, std::vector<Condition> children) {
    Condition joined;
    joined.kind = kind;
    joined.children = std::move(children);
    return joined;
}

}  // namespace

StatementParts RandomStatements::Next(bool bare_joins) {
    StatementParts statement;
    const bool bare_names = random_.Chance(30);
    group_.clear();
    patterns_ = {L"'a%'", L"'%b'", L"'_'", L"'A*'", L"'%'", L"'o%x'"};
    random_.Shuffle(patterns_);
    bare_names_ = bare_names && bare_joins;
    MakeFrom(statement);
    bare_names_ = bare_names;
    if (random_.Chance(65)) statement.where = Clause(false);
    if (random_.Chance(30)) {
        MakeTotals(statement);
    } else {
        MakeList(statement);
    }
    if (random_.Chance(15)) statement.distinct = random_.Chance(50) ? L"DISTINCT" : L"DISTINCTROW";
    MakeOrder(statement);
    if (random_.Chance(2)) MakeTail(statement);
    return statement;
}

std::wstring RandomStatements::Name(const Source& source, const Field& field) {
    const auto owners = std::ranges::count_if(sources_, [&](const Source& other) {
        return std::ranges::any_of(other.table->fields, [&](const Field& candidate) {
            return SameIdentifier(candidate.name, field.name);
        });
    });
    const bool may_be_bare = owners == 1 || random_.Chance(1);
    if (bare_names_ && may_be_bare && random_.Chance(60)) return field.name;
    return source.name + L"." + field.name;
}

RandomStatements::FieldRef RandomStatements::AnyField(const Sources& sources) {
    const Source& source = random_.Of(sources);
    const Field& field = random_.Of(source.table->fields);
    return {Name(source, field), field.kind};
}

std::wstring RandomStatements::FieldOf(const Sources& sources, FieldKind kind) {
    std::vector<std::pair<const Source*, const Field*>> candidates;
    for (const Source& source : sources) {
        for (const Field& field : source.table->fields) {
            if (field.kind == kind) candidates.emplace_back(&source, &field);
        }
    }
    if (candidates.empty()) return {};
    const auto& [source, field] = random_.Of(candidates);
    return Name(*source, *field);
}

std::wstring RandomStatements::NumberValue(int depth) {
    const std::wstring field = FieldOf(sources_, FieldKind::Number);
    if (depth <= 0 || random_.Chance(55)) return field;
    static const std::vector<std::wstring> signs = {L" + ", L" - ", L" * ", L"+", L"*"};
    switch (random_.Pick(0, 6)) {
        case 0:
            return RandomLiteral(random_, FieldKind::Number);
        case 1:
            return L"-" + field;
        case 2:
            return L"Abs(" + NumberValue(depth - 1) + L")";
        case 3:
            return L"(" + NumberValue(depth - 1) + L")";
        default:
            return NumberValue(depth - 1) + random_.Of(signs) + L"(" + NumberValue(depth - 1) + L")";
    }
}

std::wstring RandomStatements::Value(FieldKind kind, int depth) {
    if (kind == FieldKind::Number) return NumberValue(depth);
    const std::wstring field = FieldOf(sources_, kind);
    if (field.empty()) return RandomLiteral(random_, kind);
    if (kind == FieldKind::Text && depth > 0 && random_.Chance(15)) return L"Upper(" + field + L")";
    if (kind == FieldKind::Real && depth > 0 && random_.Chance(15)) return field + L" * 2";
    return field;
}

std::wstring RandomStatements::Aggregate() {
    static const std::vector<std::wstring> words = {L"Sum", L"Min", L"Max", L"Avg", L"SUM"};
    switch (random_.Pick(0, 9)) {
        case 0:
        case 1:
            return random_.Chance(50) ? L"Count(*)" : L"count(*)";
        case 2:
            return L"Count(" + AnyField(sources_).text + L")";
        case 3:
            return L"Count(DISTINCT " + AnyField(sources_).text + L")";
        case 4:
            return L"Sum(" + NumberValue(1) + L") * 2";
        case 5:
            return L"Sum(DISTINCT " + NumberValue(0) + L")";
        default:
            return random_.Of(words) + L"(" + NumberValue(1) + L")";
    }
}

std::wstring RandomStatements::Alias() {
    static const std::vector<std::wstring> names = {L"x",  L"Total",  L"[con blanco]", L"Nombre",  L"Id",
                                                    L"y2", L"Activo", L"[Año]",        L"Cantidad"};
    return random_.Of(names);
}

std::wstring RandomStatements::TableAlias(const Table& table) {
    if (random_.Chance(6)) return random_.Of(database_.tables).name;
    if (random_.Chance(5)) return random_.Chance(50) ? L"Nombre" : L"Id";
    const std::wstring raw = Unbracketed(table.name);
    const std::wstring letters = raw.substr(0, static_cast<std::size_t>(random_.Pick(1, 2)));
    return BracketIfNeeded(letters + (random_.Chance(30) ? L"1" : L""));
}

void RandomStatements::MakeFrom(StatementParts& statement) {
    std::vector<const Table*> tables;
    for (const Table& table : database_.tables) tables.push_back(&table);
    random_.Shuffle(tables);
    static const std::vector<int> counts = {1, 1, 1, 2, 2, 2, 2, 3, 3, 3, 3, 4, 4, 5, 6};
    tables.resize(std::min(tables.size(), static_cast<std::size_t>(random_.Of(counts))));
    if (random_.Chance(2)) tables.push_back(tables.front());
    const bool aliased = random_.Chance(35);
    sources_.clear();
    for (const Table* table : tables) {
        const std::wstring alias = aliased && random_.Chance(85) ? TableAlias(*table) : L"";
        const std::wstring name = alias.empty() ? table->name : alias;
        const bool taken = std::ranges::any_of(
            sources_, [&](const Source& other) { return SameIdentifier(other.name, name); });
        sources_.push_back({table, taken ? L"q" + std::to_wstring(sources_.size()) : name});
    }
    std::size_t begin = 0;
    while (begin < sources_.size()) {
        std::size_t end = sources_.size();
        if (random_.Chance(25))
            end = begin + static_cast<std::size_t>(random_.Pick(1, static_cast<int>(end - begin)));
        statement.from.push_back(Tree(begin, end));
        begin = end;
    }
}

FromPart RandomStatements::Tree(std::size_t begin, std::size_t end) {
    FromPart part;
    if (end - begin == 1) {
        part.table = sources_[begin].table->name;
        if (sources_[begin].name != part.table) part.alias = sources_[begin].name;
        return part;
    }
    static const std::vector<FromPart::Kind> kinds = {FromPart::Kind::Inner, FromPart::Kind::Inner,
                                                      FromPart::Kind::Left, FromPart::Kind::Right};
    part.kind = random_.Of(kinds);
    const bool chain = random_.Chance(60);
    const std::size_t middle =
        chain ? end - 1
              : begin + static_cast<std::size_t>(random_.Pick(1, static_cast<int>(end - begin) - 1));
    part.operands.push_back(Tree(begin, middle));
    part.operands.push_back(Tree(middle, end));
    const auto at = [&](std::size_t index) { return sources_.begin() + static_cast<std::ptrdiff_t>(index); };
    part.on = On(Sources(at(begin), at(middle)), Sources(at(middle), at(end)));
    part.parens = random_.Chance(30);
    return part;
}

std::wstring RandomStatements::Equality(const Sources& left, const Sources& right) {
    const FieldKind kind = random_.Chance(75) ? FieldKind::Number : FieldKind::Text;
    std::wstring first = FieldOf(left, kind);
    std::wstring second = FieldOf(right, kind);
    if (random_.Chance(30)) std::swap(first, second);
    return first + (random_.Chance(15) ? L"=" : L" = ") + second;
}

Condition RandomStatements::On(const Sources& left, const Sources& right) {
    Condition on = Leaf(Equality(left, right));
    Sources both = left;
    both.insert(both.end(), right.begin(), right.end());
    const int shape = random_.Pick(1, 100);
    if (shape > 94) {
        on = Joined(Condition::Kind::And, {on, Leaf(Equality(left, right))});
    } else if (shape > 91) {
        const Condition other =
            Leaf(FieldOf(left, FieldKind::Number) + Sign() + FieldOf(right, FieldKind::Number));
        on = random_.Chance(50) ? Joined(Condition::Kind::And, {on, other})
                                : Joined(Condition::Kind::And, {other, on});
    } else if (shape > 90) {
        on = Joined(Condition::Kind::And, {on, Leaf(Equality(left, right)), Leaf(Equality(left, right))});
    } else if (shape > 85) {
        on = Joined(Condition::Kind::And, {on, Leaf(Test(both))});
    } else if (shape > 82) {
        on = Leaf(FieldOf(left, FieldKind::Number) + Sign() + FieldOf(right, FieldKind::Number));
    } else if (shape > 80) {
        on = Leaf(Test(both));
    } else if (shape > 78) {
        on = Joined(Condition::Kind::Or, {on, Leaf(Equality(left, right))});
    }
    on.parens = random_.Chance(15);
    return on;
}

std::wstring RandomStatements::Sign() {
    static const std::vector<std::wstring> signs = {L" = ",  L" = ", L"=",    L" <> ", L" < ",
                                                    L" <= ", L" > ", L" >= ", L">"};
    return random_.Of(signs);
}

std::wstring RandomStatements::Comparison(bool having) {
    if (having) {
        std::wstring left = !group_.empty() && random_.Chance(15) ? random_.Of(group_) : Aggregate();
        std::wstring right = random_.Chance(85) ? std::to_wstring(random_.Pick(-1, 4)) : Aggregate();
        if (random_.Chance(15)) std::swap(left, right);
        return left + Sign() + right;
    }
    const FieldRef field = AnyField(sources_);
    std::wstring left = random_.Chance(80) ? field.text : Value(field.kind, 1);
    std::wstring right = random_.Chance(80) ? RandomLiteral(random_, field.kind) : Value(field.kind, 1);
    if (random_.Chance(15)) std::swap(left, right);
    return left + Sign() + right;
}

// A predicate that is no comparison between values.
std::wstring RandomStatements::Test(const Sources& sources) {
    const std::wstring negation = random_.Chance(30) ? L" Not" : L"";
    const std::wstring number = FieldOf(sources, FieldKind::Number);
    const std::wstring text = FieldOf(sources, FieldKind::Text);
    const std::wstring truth = FieldOf(sources, FieldKind::Truth);
    const auto literal = [&] { return RandomLiteral(random_, FieldKind::Number); };
    switch (random_.Pick(0, 9)) {
        case 0:
        case 1:
            if (patterns_.empty()) return text + L" Is" + negation + L" Null";
            return text + negation + L" Like " + Pattern();
        case 2:
            return number + negation + L" Between " + literal() + L" And " + literal();
        case 3:
            return number + negation + L" In (" + literal() + L", " + literal() + L")";
        case 4:
            return text + negation + L" In ('a', 'b')";
        case 5:
            return AnyField(sources).text + L" Is" + negation + L" Null";
        case 6:
            return truth.empty() ? number : truth;
        case 7:
            return L"(" + number + negation + L" In (0, 1)) =" + (random_.Chance(50) ? L"True" : L" False");
        case 8:
            return number + L" = " + literal();
        default:
            return number + L" <> " + literal();
    }
}

// Each pattern at most once: MariaDB 10.11 takes "(a Like p) = True" and "(a Not Like p) = True" for the same
// condition and drops one of them.
std::wstring RandomStatements::Pattern() {
    std::wstring pattern = patterns_.back();
    patterns_.pop_back();
    return pattern;
}

std::wstring RandomStatements::SubSelect() {
    const Table& table = random_.Of(database_.tables);
    const Source inner{&table, L"s9"};
    const std::wstring from = L" FROM " + table.name + L" AS s9";
    const std::wstring number = L"s9." + std::ranges::find_if(table.fields, [](const Field& field) {
                                             return field.kind == FieldKind::Number;
                                         })->name;
    switch (random_.Pick(0, 3)) {
        case 0:
            return FieldOf(sources_, FieldKind::Number) + (random_.Chance(30) ? L" Not In" : L" In") +
                   L" (SELECT " + number + from + L")";
        case 1:
            return L"Exists (SELECT *" + from + L" WHERE " + number + L" = " +
                   FieldOf(sources_, FieldKind::Number) + L")";
        case 2:
            return L"Not Exists (SELECT *" + from + L" WHERE " + number + L" > 1)";
        default:
            return FieldOf(sources_, FieldKind::Number) + L" = (SELECT Max(" + number + L")" + from + L")";
    }
}

Condition RandomStatements::Predicate(bool having) {
    Condition predicate;
    if (having) {
        predicate = Leaf(random_.Chance(90) ? Comparison(true) : Aggregate() + L" Between 0 And 2");
    } else if (random_.Chance(4)) {
        predicate = Leaf(SubSelect());
    } else {
        predicate = Leaf(random_.Chance(60) ? Comparison(false) : Test(sources_));
    }
    predicate.parens = random_.Chance(20);
    if (random_.Chance(10)) predicate = Joined(Condition::Kind::Not, {predicate});
    return predicate;
}

Condition RandomStatements::ConditionTree(int depth, bool having) {
    if (depth == 0 || random_.Chance(30)) return Predicate(having);
    std::vector<Condition> children;
    const int count = random_.Pick(2, 3);
    for (int index = 0; index < count; ++index) children.push_back(ConditionTree(depth - 1, having));
    Condition tree = Joined(random_.Chance(60) ? Condition::Kind::And : Condition::Kind::Or, children);
    tree.parens = random_.Chance(20);
    if (random_.Chance(8)) tree = Joined(Condition::Kind::Not, {tree});
    return tree;
}

Condition RandomStatements::Clause(bool having) {
    const int shape = random_.Pick(1, 100);
    if (shape <= 35) return Predicate(having);
    if (shape <= 65) {
        std::vector<Condition> children;
        const int count = random_.Pick(2, 3);
        for (int index = 0; index < count; ++index) children.push_back(Predicate(having));
        return Joined(Condition::Kind::And, children);
    }
    if (shape <= 80) {
        const std::wstring value = having ? Aggregate() : FieldOf(sources_, FieldKind::Number);
        const auto alternative = [&] {
            return Leaf(value + Sign() + RandomLiteral(random_, FieldKind::Number));
        };
        Condition alternatives = Joined(Condition::Kind::Or, {alternative(), alternative()});
        alternatives.parens = random_.Chance(40);
        return alternatives;
    }
    return ConditionTree(3, having);
}

void RandomStatements::MakeList(StatementParts& statement) {
    const int count = random_.Pick(1, 4);
    for (int index = 0; index < count; ++index) {
        SelectPart item;
        const int shape = random_.Pick(1, 100);
        if (shape <= 70) {
            item.text = AnyField(sources_).text;
        } else if (shape <= 88) {
            item.text = Value(random_.Chance(70) ? FieldKind::Number : FieldKind::Text, 2);
        } else if (shape <= 91) {
            item.text = RandomLiteral(random_, FieldKind::Text);
        } else if (shape <= 95 && index == 0) {
            item.text = L"*";
        } else {
            item.text = random_.Of(sources_).name + L".*";
        }
        const bool star = item.text.back() == L'*' && item.text.size() > 0 && shape > 91;
        if (!star && random_.Chance(30)) item.alias = Alias();
        const bool twice = std::ranges::any_of(
            statement.select, [&](const SelectPart& other) { return SameName(other.text, item.text); });
        if (twice && !random_.Chance(15)) continue;
        statement.select.push_back(std::move(item));
    }
}

void RandomStatements::MakeTotals(StatementParts& statement) {
    const int groups = random_.Pick(0, 2);
    for (int index = 0; index < groups; ++index) {
        const int shape = random_.Pick(1, 100);
        group_.push_back(shape <= 80   ? AnyField(sources_).text
                         : shape <= 95 ? NumberValue(1)
                                       : RandomLiteral(random_, FieldKind::Text));
    }
    statement.group = group_;
    std::vector<SelectPart> items;
    for (const std::wstring& key : group_) {
        if (random_.Chance(80)) items.push_back({key, random_.Chance(20) ? Alias() : L""});
    }
    const int aggregates = random_.Pick(items.empty() ? 1 : 0, 2);
    for (int index = 0; index < aggregates; ++index) {
        items.push_back({Aggregate(), random_.Chance(60) ? Alias() : L""});
    }
    random_.Shuffle(items);
    statement.select = std::move(items);
    if (random_.Chance(35)) statement.having = Clause(true);
}

void RandomStatements::MakeOrder(StatementParts& statement) {
    if (!random_.Chance(45)) return;
    const bool totals =
        !statement.group.empty() || statement.select.front().text.find(L'(') != std::wstring::npos;
    const bool starred = std::ranges::any_of(statement.select, [](const SelectPart& item) {
        return item.text == L"*" || item.text.ends_with(L".*");
    });
    const int keys = random_.Pick(1, 3);
    for (int index = 0; index < keys; ++index) {
        SortPart key;
        const int column = random_.Pick(0, static_cast<int>(statement.select.size()) - 1);
        const SelectPart& item = statement.select[static_cast<std::size_t>(column)];
        const int shape = random_.Pick(1, 100);
        if (shape <= 20 && !starred) {
            key.text = std::to_wstring(column + 1);
            key.column = column;
        } else if (shape <= 45 && !item.alias.empty()) {
            key.text = item.alias;
            key.column = column;
        } else if (shape <= 70 && !item.text.ends_with(L"*")) {
            key.text = item.text;
        } else if (!group_.empty()) {
            key.text = random_.Of(group_);
        } else if (totals) {
            key.text = Aggregate();
        } else {
            key.text = random_.Chance(75) ? AnyField(sources_).text : NumberValue(2);
        }
        // A lone literal would be read as a column's number.
        if (key.column < 0 && key.text.find_first_of(L"0123456789'") == 0) continue;
        key.descending = random_.Chance(35);
        statement.order.push_back(std::move(key));
    }
    // Engines look for a name without its table among the aliases first: the keys' values are then not known
    // here. After DISTINCT, keys outside the select list leave the order open.
    for (const SortPart& key : statement.order) {
        const bool listed =
            key.column >= 0 || std::ranges::any_of(statement.select, [&](const SelectPart& item) {
                return item.text == key.text;
            });
        if (!statement.distinct.empty() && !listed) statement.order_known = false;
    }
    for (const SelectPart& item : statement.select) {
        if (item.alias.empty()) continue;
        const auto same_alias = std::ranges::count_if(statement.select, [&](const SelectPart& other) {
            return SameIdentifier(other.alias, item.alias);
        });
        const bool field = std::ranges::any_of(sources_, [&](const Source& source) {
            return std::ranges::any_of(source.table->fields, [&](const Field& candidate) {
                return SameIdentifier(candidate.name, item.alias);
            });
        });
        const bool by_number = std::ranges::all_of(statement.order, [](const SortPart& key) {
            return key.column >= 0 && key.text.find_first_not_of(L"0123456789") == std::wstring::npos;
        });
        if (!by_number && (same_alias > 1 || (field && bare_names_))) statement.order_known = false;
    }
}

void RandomStatements::MakeTail(StatementParts& statement) {
    static const std::vector<std::wstring> tails = {L" LIMIT 2", L" UNION ALL SELECT 1",
                                                    L" UNION SELECT 'a'"};
    statement.tail = random_.Of(tails);
    statement.order_known = false;
}

}  // namespace tessel::laws
