#include "tests/laws/statement_parts.h"

namespace tessel::laws {

namespace {

constexpr int kNoisePercent = 25;

std::wstring InParens(std::wstring text, Random* noise) {
    while (noise && noise->Chance(kNoisePercent)) text = L"(" + text + L")";
    return text;
}

/// How tightly the condition binds as it is written: leaves and NOT above AND, AND above OR.
int Strength(const Condition& condition) {
    switch (condition.kind) {
        case Condition::Kind::Or:
            return 0;
        case Condition::Kind::And:
            return 1;
        case Condition::Kind::Not:
            return 2;
        case Condition::Kind::Leaf:
            return 3;
    }
    return 3;
}

std::wstring ConditionText(const Condition& condition, Random* noise);

std::wstring OperandText(const Condition& operand, int needed, Random* noise) {
    std::wstring text = ConditionText(operand, noise);
    const bool enclosed = operand.parens;
    return !enclosed && Strength(operand) < needed ? L"(" + text + L")" : text;
}

std::wstring ConditionText(const Condition& condition, Random* noise) {
    std::wstring text;
    switch (condition.kind) {
        case Condition::Kind::Leaf:
            text = condition.text;
            break;
        case Condition::Kind::Not:
            text = L"NOT " + OperandText(condition.children[0], 2, noise);
            break;
        case Condition::Kind::And:
        case Condition::Kind::Or: {
            const bool is_and = condition.kind == Condition::Kind::And;
            for (const Condition& child : condition.children) {
                if (!text.empty()) text += is_and ? L" AND " : L" OR ";
                text += OperandText(child, is_and ? 1 : 0, noise);
            }
            break;
        }
    }
    if (condition.parens) text = L"(" + text + L")";
    return InParens(std::move(text), noise);
}

std::wstring FromText(const FromPart& part, bool needs_parens, Random* noise) {
    if (part.kind == FromPart::Kind::Table) {
        return part.alias.empty() ? part.table : part.table + L" AS " + part.alias;
    }
    const wchar_t* word = part.kind == FromPart::Kind::Inner  ? L" INNER JOIN "
                          : part.kind == FromPart::Kind::Left ? L" LEFT JOIN "
                                                              : L" RIGHT JOIN ";
    std::wstring text = FromText(part.operands[0], false, noise) + word +
                        FromText(part.operands[1], true, noise) + L" ON " + ConditionText(part.on, noise);
    if (part.parens || needs_parens) text = L"(" + text + L")";
    return InParens(std::move(text), noise);
}

std::wstring Text(const StatementParts& statement, bool with_keys, Random* noise) {
    std::wstring text = L"SELECT ";
    if (!statement.distinct.empty()) text += statement.distinct + L" ";
    std::wstring list;
    for (const SelectPart& item : statement.select) {
        if (!list.empty()) list += L", ";
        list += item.text;
        if (!item.alias.empty()) list += L" AS " + item.alias;
    }
    if (with_keys) {
        for (const SortPart& key : statement.order) {
            list += L", ";
            list += key.column < 0 ? key.text : statement.select[static_cast<std::size_t>(key.column)].text;
        }
    }
    text += list + L" FROM ";
    for (const FromPart& part : statement.from) {
        if (&part != &statement.from.front()) text += L", ";
        // After a comma, parentheses tell engines apart that join in another order.
        const bool first = &part == &statement.from.front();
        text += FromText(part, false, first ? noise : nullptr);
    }
    if (statement.where) text += L" WHERE " + ConditionText(*statement.where, noise);
    for (const std::wstring& key : statement.group) {
        text += &key == &statement.group.front() ? L" GROUP BY " : L", ";
        text += key;
    }
    if (statement.having) text += L" HAVING " + ConditionText(*statement.having, noise);
    for (const SortPart& key : statement.order) {
        text += &key == &statement.order.front() ? L" ORDER BY " : L", ";
        text += key.text;
        if (key.descending) text += L" DESC";
    }
    return text + statement.tail;
}

void SimplerConditions(const Condition& condition, std::vector<Condition>& simpler) {
    for (std::size_t index = 0; index < condition.children.size(); ++index) {
        simpler.push_back(condition.children[index]);
        std::vector<Condition> inside;
        SimplerConditions(condition.children[index], inside);
        for (Condition& child : inside) {
            Condition copy = condition;
            copy.children[index] = std::move(child);
            simpler.push_back(std::move(copy));
        }
        if (condition.children.size() > 2) {
            Condition copy = condition;
            copy.children.erase(copy.children.begin() + static_cast<std::ptrdiff_t>(index));
            simpler.push_back(std::move(copy));
        }
    }
    if (!condition.parens) return;
    Condition copy = condition;
    copy.parens = false;
    simpler.push_back(std::move(copy));
}

void SimplerFrom(const FromPart& part, std::vector<FromPart>& simpler) {
    for (std::size_t index = 0; index < part.operands.size(); ++index) {
        simpler.push_back(part.operands[index]);
        std::vector<FromPart> inside;
        SimplerFrom(part.operands[index], inside);
        for (FromPart& operand : inside) {
            FromPart copy = part;
            copy.operands[index] = std::move(operand);
            simpler.push_back(std::move(copy));
        }
    }
    if (part.kind == FromPart::Kind::Table) return;
    std::vector<Condition> conditions;
    SimplerConditions(part.on, conditions);
    for (Condition& condition : conditions) {
        FromPart copy = part;
        copy.on = std::move(condition);
        simpler.push_back(std::move(copy));
    }
}

template <typename Item>
std::vector<Item> Without(const std::vector<Item>& items, std::size_t index) {
    std::vector<Item> rest = items;
    rest.erase(rest.begin() + static_cast<std::ptrdiff_t>(index));
    return rest;
}

void SimplerClause(const StatementParts& statement, std::optional<Condition> StatementParts::*clause,
                   std::vector<StatementParts>& simpler) {
    if (!(statement.*clause)) return;
    StatementParts without = statement;
    (without.*clause).reset();
    simpler.push_back(std::move(without));
    std::vector<Condition> conditions;
    SimplerConditions(*(statement.*clause), conditions);
    for (Condition& condition : conditions) {
        StatementParts copy = statement;
        copy.*clause = std::move(condition);
        simpler.push_back(std::move(copy));
    }
}

}  // namespace

std::wstring TextOf(const StatementParts& statement, Random* noise) {
    return Text(statement, false, noise);
}

std::wstring TextWithSortKeys(const StatementParts& statement) {
    return Text(statement, true, nullptr);
}

std::vector<StatementParts> Simpler(const StatementParts& statement) {
    std::vector<StatementParts> simpler;
    SimplerClause(statement, &StatementParts::where, simpler);
    SimplerClause(statement, &StatementParts::having, simpler);
    for (std::size_t index = 0; index < statement.order.size(); ++index) {
        StatementParts copy = statement;
        copy.order = Without(statement.order, index);
        simpler.push_back(std::move(copy));
    }
    for (std::size_t index = 0; index < statement.group.size(); ++index) {
        StatementParts copy = statement;
        copy.group = Without(statement.group, index);
        simpler.push_back(std::move(copy));
    }
    for (std::size_t index = 0; index < statement.from.size(); ++index) {
        std::vector<FromPart> parts;
        SimplerFrom(statement.from[index], parts);
        for (FromPart& part : parts) {
            StatementParts copy = statement;
            copy.from[index] = std::move(part);
            simpler.push_back(std::move(copy));
        }
        if (statement.from.size() == 1) continue;
        StatementParts copy = statement;
        copy.from = Without(statement.from, index);
        simpler.push_back(std::move(copy));
    }
    if (!statement.distinct.empty()) {
        StatementParts copy = statement;
        copy.distinct.clear();
        simpler.push_back(std::move(copy));
    }
    // Sort keys point at select items by their place, so items go last.
    for (std::size_t index = 0; index < statement.select.size() && statement.order.empty(); ++index) {
        if (statement.select.size() > 1) {
            StatementParts copy = statement;
            copy.select = Without(statement.select, index);
            simpler.push_back(std::move(copy));
        }
        if (!statement.select[index].alias.empty()) {
            StatementParts copy = statement;
            copy.select[index].alias.clear();
            simpler.push_back(std::move(copy));
        }
    }
    return simpler;
}

}  // namespace tessel::laws
