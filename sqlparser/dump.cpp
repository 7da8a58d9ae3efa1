#include "sqlparser/dump.h"

#include <string_view>

#include "common/text.h"
#include "sqlparser/token_text.h"

namespace tessel::sql {
namespace {

constexpr std::wstring_view kUnaryNames[] = {L"neg", L"pos", L"~"};
constexpr std::wstring_view kBinaryNames[] = {L"+", L"-", L"*", L"/",    L"\\",  L"mod",
                                              L"^", L"&", L"|", L"band", L"bor", L"bxor"};
constexpr std::wstring_view kCompareNames[] = {L"=", L"<>", L"<", L"<=", L">", L">="};
constexpr std::wstring_view kLogicalNames[] = {L"and", L"or", L"xor", L"eqv", L"imp"};
constexpr std::wstring_view kQuantifierNames[] = {L"any", L"some", L"all"};
constexpr std::wstring_view kBeyondNames[] = {
    L"Union",         L"Intersect", L"Except",         L"With",       L"DerivedTable", L"Into",
    L"Limit",         L"Offset",    L"Fetch",          L"Parameters", L"Procedure",    L"InDatabase",
    L"FullJoin",      L"CrossJoin", L"NaturalJoin",    L"JoinUsing",  L"OnMissing",    L"Window",
    L"ForUpdate",     L"Values",    L"TableStatement", L"Crosstab",   L"Hint",         L"WithOwnerAccess",
    L"TableFunction", L"Other"};

class Dumper {
public:
    explicit Dumper(const Statement& statement) : s_(statement) {}

    void Expression(NodeId id) {
        const Node& node = s_.At(id);
        switch (node.kind) {
            case NodeKind::Error:
                out_ += L"error";
                break;
            case NodeKind::Number:
            case NodeKind::String:
            case NodeKind::Date:
            case NodeKind::Macro:
            case NodeKind::Parameter:
                out_ += s_.Slice(node.Range());
                break;
            case NodeKind::Null:
                out_ += L"null";
                break;
            case NodeKind::True:
                out_ += L"true";
                break;
            case NodeKind::False:
                out_ += L"false";
                break;
            case NodeKind::Name:
            case NodeKind::Star:
                Name(node);
                break;
            case NodeKind::NamePart:
                out_ += s_.Slice(node.Range());
                break;
            case NodeKind::Paren:
                List(L"paren", node);
                break;
            case NodeKind::Unary:
                List(kUnaryNames[node.op], node);
                break;
            case NodeKind::Binary:
                List(kBinaryNames[node.op], node);
                break;
            case NodeKind::Compare:
                Compare(node);
                break;
            case NodeKind::Logical:
                List(kLogicalNames[node.op], node);
                break;
            case NodeKind::Not:
                List(L"not", node);
                break;
            case NodeKind::Like:
                Negatable(node.flags & kALike ? L"alike" : L"like", node);
                break;
            case NodeKind::Between:
                Negatable(L"between", node);
                break;
            case NodeKind::InList:
                Negatable(L"in", node);
                break;
            case NodeKind::InSelect:
                Negatable(L"in-select", node);
                break;
            case NodeKind::IsNull:
                List(node.flags & kNegated ? L"is-not-null" : L"is-null", node);
                break;
            case NodeKind::Exists:
                List(L"exists", node);
                break;
            case NodeKind::Quantified:
                List(kQuantifierNames[node.op], node);
                break;
            case NodeKind::Call:
                Call(node);
                break;
            case NodeKind::Window:
                List(L"window", node);
                break;
            case NodeKind::Case:
                Case(node);
                break;
            case NodeKind::When:
                List(L"when", node);
                break;
            case NodeKind::Cast:
                Cast(node);
                break;
            case NodeKind::Subquery:
                List(L"subquery", node);
                break;
            case NodeKind::Select:
                Select(*s_.nested[node.payload]);
                break;
            case NodeKind::Tuple:
                List(L"tuple", node);
                break;
            case NodeKind::Omitted:
                out_ += L"(omitted)";
                break;
            case NodeKind::Escape:
                List(L"escape", node);
                break;
        }
    }

    void From(int index) {
        const FromNode& node = s_.From[static_cast<std::size_t>(index)];
        if (!node.is_join) return Table(s_.Tables[static_cast<std::size_t>(node.table)]);
        if (node.parenthesised) out_ += L"(paren ";
        out_ += L'(';
        JoinName(node);
        out_ += L' ';
        From(node.left);
        out_ += L' ';
        From(node.right);
        if (node.on_node != kNoNode) {
            out_ += L' ';
            Expression(node.on_node);
        }
        Tokens(L" using", node.using_columns);
        out_ += L')';
        if (node.parenthesised) out_ += L')';
    }

    void Whole() {
        for (const std::size_t end : s_.group_ends) out_ += L"(group-" + std::to_wstring(end) + L' ';
        Tokens(L"parameters", s_.parameters);
        if (s_.parameters.length != 0) out_ += L' ';
        Tokens(L"transform", s_.transform);
        if (s_.transform.length != 0) out_ += L' ';
        for (const CommonTable& table : s_.common_tables) With(table);
        Core();
        for (const auto& operand : s_.union_operands) {
            out_ += L" (";
            out_ += Lower(CanonicalTokens(s_.source, operand->set_operator));
            out_ += L' ';
            Select(*operand);
            out_ += L')';
        }
        for (std::size_t i = 0; i < s_.group_ends.size(); ++i) out_ += L')';
        if (s_.tail) {
            out_ += L" (tail ";
            Select(*s_.tail);
            out_ += L')';
        }
    }

    std::wstring Take() { return std::move(out_); }

private:
    void Select(const Statement& statement) {
        Dumper inner(statement);
        inner.Whole();
        out_ += inner.Take();
    }

    void With(const CommonTable& table) {
        out_ += L"(with ";
        out_ += s_.Slice(table.name);
        Tokens(L" columns", table.columns);
        out_ += L' ';
        Select(*s_.nested[static_cast<std::size_t>(table.nested)]);
        out_ += L") ";
    }

    void Core() {
        out_ += L"(select";
        if (s_.Distinct) out_ += L" distinct";
        if (s_.top_range.length != 0) Tokens(L" top", s_.top_range);
        Tokens(L" table", s_.table_statement);
        Items(L"columns", s_.Columns);
        for (const NodeId row : s_.value_rows) {
            out_ += L' ';
            Expression(row);
        }
        Tokens(L" into", s_.into);
        if (!s_.JoinGroups.empty()) {
            out_ += L" (from";
            for (const JoinGroup& group : s_.JoinGroups) {
                out_ += L' ';
                From(group.root);
            }
            Tokens(L" external", s_.from_external);
            out_ += L')';
        }
        Condition(L"where", s_.where);
        Items(L"group", s_.GroupItems);
        Tokens(L" group-suffix", s_.group_suffix);
        Condition(L"having", s_.having);
        Items(L"order", s_.OrderItems);
        Tokens(L" pivot", s_.pivot);
        if (!s_.trailing.empty()) {
            out_ += L" (trailing \"";
            for (const TextRange tail : s_.trailing) {
                if (tail.offset != s_.trailing.front().offset) out_ += L' ';
                out_ += CanonicalTokens(s_.source, tail);
            }
            out_ += L"\")";
        }
        out_ += L')';
    }

    void Condition(std::wstring_view name, NodeId node) {
        if (node == kNoNode) return;
        ((out_ += L" (") += name) += L' ';
        Expression(node);
        out_ += L')';
    }

    void Items(std::wstring_view name, const std::vector<Item>& items) {
        if (items.empty()) return;
        (out_ += L" (") += name;
        for (const Item& item : items) {
            out_ += L' ';
            if (item.descending) out_ += L"(desc ";
            if (item.alias.length != 0) out_ += L"(as ";
            Expression(item.node);
            if (item.alias.length != 0) ((out_ += L' ') += s_.Slice(item.alias)) += L')';
            if (item.descending) out_ += L')';
            Tokens(L" nulls", item.nulls);
        }
        out_ += L')';
    }

    /// A part that is kept as text: (name "text").
    void Tokens(std::wstring_view name, TextRange range) {
        if (range.length == 0) return;
        if (name.front() == L' ') {
            out_ += L' ';
            name.remove_prefix(1);
        }
        (((out_ += L'(') += name) += L" \"") += CanonicalTokens(s_.source, range);
        out_ += L"\")";
    }

    void Table(const TableRef& table) {
        if (table.alias.length != 0) out_ += L"(as ";
        if (table.derived) {
            Select(*s_.nested[static_cast<std::size_t>(table.nested)]);
        } else {
            const TextRange first = table.database.length != 0 ? table.database
                                    : table.owner.length != 0  ? table.owner
                                                               : table.name;
            out_ += CanonicalTokens(s_.source, {first.offset, table.name.End() - first.offset});
        }
        if (table.alias.length != 0) ((out_ += L' ') += s_.Slice(table.alias)) += L')';
        Tokens(L" external", table.external);
        Tokens(L" columns", table.columns);
        Tokens(L" hint", table.hint);
    }

    void JoinName(const FromNode& node) {
        switch (node.kind) {
            case JoinKind::Inner:
                out_ += L"inner";
                return;
            case JoinKind::Left:
                out_ += L"left";
                return;
            case JoinKind::Right:
                out_ += L"right";
                return;
            case JoinKind::None:
                break;
        }
        std::wstring words = Lower(CanonicalTokens(s_.source, node.joint));
        for (wchar_t& ch : words) {
            if (ch == L' ') ch = L'-';
        }
        out_ += words;
    }

    void Name(const Node& node) {
        for (NodeId part = node.first_child; part != kNoNode; part = s_.At(part).next) {
            if (s_.At(part).op == static_cast<std::uint8_t>(NameJoin::Point)) out_ += L'.';
            if (s_.At(part).op == static_cast<std::uint8_t>(NameJoin::Bang)) out_ += L'!';
            out_ += s_.Slice(s_.At(part).Range());
        }
        if (node.kind == NodeKind::Star) out_ += node.first_child == kNoNode ? L"*" : L".*";
    }

    void ChildrenOf(const Node& node) {
        for (NodeId child = node.first_child; child != kNoNode; child = s_.At(child).next) {
            out_ += L' ';
            Expression(child);
        }
    }

    void List(std::wstring_view name, const Node& node) {
        (out_ += L'(') += name;
        ChildrenOf(node);
        out_ += L')';
    }

    void Negatable(std::wstring_view name, const Node& node) {
        List(node.flags & kNegated ? L"not-" + std::wstring(name) : std::wstring(name), node);
    }

    void Compare(const Node& node) {
        const bool is = (s_.source[node.payload] | 32) == L'i';
        List(is ? L"is" + std::wstring(kCompareNames[node.op]) : std::wstring(kCompareNames[node.op]), node);
    }

    void Call(const Node& node) {
        std::wstring name = L"call";
        if (node.flags & kDistinct) name += L"-distinct";
        if (node.flags & kStarArgument) name += L"-star";
        List(name, node);
    }

    void Case(const Node& node) {
        std::wstring name = L"case";
        if (node.flags & kHasOperand) name += L"-of";
        if (node.flags & kHasElse) name += L"-else";
        List(name, node);
    }

    void Cast(const Node& node) {
        const bool function = node.op == static_cast<std::uint8_t>(CastForm::Function);
        const bool collate = node.op == static_cast<std::uint8_t>(CastForm::Collate);
        out_ += collate ? L"(collate" : L"(cast";
        ChildrenOf(node);
        out_ += L' ';
        const std::size_t stop = node.Range().End() - (function ? 1 : 0);
        out_ += CanonicalTokens(s_.source, {node.payload, stop - node.payload});
        out_ += L')';
    }

    const Statement& s_;
    std::wstring out_;
};

}  // namespace

std::wstring DumpExpression(const Statement& statement, NodeId node) {
    Dumper dumper(statement);
    dumper.Expression(node);
    return dumper.Take();
}

std::wstring DumpFrom(const Statement& statement, int from) {
    Dumper dumper(statement);
    dumper.From(from);
    return dumper.Take();
}

std::wstring Dump(const Statement& statement) {
    Dumper dumper(statement);
    dumper.Whole();
    return dumper.Take();
}

std::wstring DumpBeyond(const Statement& statement) {
    std::wstring out;
    for (const BeyondItem& item : statement.beyond) {
        if (!out.empty()) out += L' ';
        out += kBeyondNames[static_cast<std::size_t>(item.what)];
    }
    return out;
}

}  // namespace tessel::sql
