#include "analyse/group_conditions.h"

#include <algorithm>

#include "analyse/nodes.h"
#include "common/identifiers.h"

namespace tessel::analyse {

namespace {

using sql::NodeId;
using sql::NodeKind;

/// Functions whose answer depends on nothing but their arguments. Those that tell "a" from "A" are missing:
/// grouping may take both for one key.
constexpr std::wstring_view kPureFunctions[] = {
    L"abs",         L"cbool",      L"ccur",      L"cdate",   L"cdbl",   L"chr",       L"cint",
    L"clng",        L"coalesce",   L"csng",      L"cstr",    L"cvdate", L"dateadd",   L"datediff",
    L"datepart",    L"dateserial", L"datevalue", L"day",     L"fix",    L"format",    L"hour",
    L"iif",         L"int",        L"isdate",    L"isempty", L"isnull", L"isnumeric", L"lcase",
    L"left",        L"len",        L"lower",     L"ltrim",   L"mid",    L"minute",    L"month",
    L"monthname",   L"nz",         L"right",     L"round",   L"rtrim",  L"second",    L"sgn",
    L"str",         L"switch",     L"trim",      L"ucase",   L"upper",  L"val",       L"weekday",
    L"weekdayname", L"year"};

/// That are compared each with each.
constexpr std::size_t kFewKeys = 12;

/// A control of an open form or report: one value for the whole statement.
bool IsFormReference(const Forms& forms, const StatementScope::NameParts& name) {
    if (name.count <= 2) return false;
    const std::wstring_view first = forms.TextOf(name.first);
    return first == L"forms" || first == L"reports";
}

}  // namespace

GroupConditions::GroupConditions(const StatementScope& scope, const Canonical& canonical)
    : scope_(scope), canonical_(canonical), statement_(scope.Source()) {
    if (statement_.GroupItems.size() <= kFewKeys) return;
    for (const sql::Item& item : statement_.GroupItems) keys_.push_back(canonical.Expression(item.node));
    MakeSet(keys_);
}

bool GroupConditions::IsKey(NodeId id) const {
    if (!keys_.empty()) return Holds(keys_, canonical_.Expression(id));
    return std::ranges::any_of(statement_.GroupItems,
                               [&](const sql::Item& item) { return canonical_.HaveSameForm(item.node, id); });
}

bool GroupConditions::MayStandInWhere(NodeId condition) const {
    return !statement_.GroupItems.empty() && DependsOnKeys(condition) && !NamesAnAlias(condition);
}

bool GroupConditions::DependsOnKeys(NodeId id) const {
    if (IsKey(id)) return true;
    const sql::Node& node = statement_.At(id);
    switch (node.kind) {
        case NodeKind::Number:
        case NodeKind::String:
        case NodeKind::Date:
        case NodeKind::Null:
        case NodeKind::True:
        case NodeKind::False:
        case NodeKind::Parameter:
        case NodeKind::Macro:
        case NodeKind::Omitted:
            return true;
        case NodeKind::Name:
            return scope_.TableOfName(id) == kNoTable &&
                   IsFormReference(scope_.Numbers(), scope_.PartsOf(id));
        case NodeKind::Call:
            return IsCallOfKeys(id);
        case NodeKind::Paren:
        case NodeKind::Unary:
        case NodeKind::Binary:
        case NodeKind::Compare:
        case NodeKind::Logical:
        case NodeKind::Not:
        case NodeKind::Like:
        case NodeKind::Between:
        case NodeKind::InList:
        case NodeKind::IsNull:
            break;
        default:
            return false;
    }
    return AllChildren(statement_, id, [&](NodeId child) { return DependsOnKeys(child); });
}

bool GroupConditions::IsCallOfKeys(NodeId id) const {
    const NodeId callee = statement_.At(id).first_child;
    std::wstring name = IdentifierKey(statement_.Slice(statement_.At(callee).Range()));
    if (name.ends_with(L'$')) name.pop_back();
    if (std::ranges::find(kPureFunctions, name) == std::end(kPureFunctions)) return false;
    return AllChildren(statement_, id, [&](NodeId child) { return child == callee || DependsOnKeys(child); });
}

// Some engines let HAVING, but not WHERE, call a column by its alias.
bool GroupConditions::NamesAnAlias(NodeId id) const {
    const sql::Node& node = statement_.At(id);
    if (node.kind != NodeKind::Name) {
        return AnyChild(statement_, id, [&](NodeId child) { return NamesAnAlias(child); });
    }
    const StatementScope::NameParts name = scope_.PartsOf(id);
    if (name.count != 1) return false;
    for (std::size_t index = 0; index < statement_.Columns.size(); ++index) {
        const NodeId column = statement_.Columns[index].node;
        if (scope_.AliasKey(index) == name.first && !canonical_.HaveSameForm(column, id)) return true;
    }
    return false;
}

}  // namespace tessel::analyse
