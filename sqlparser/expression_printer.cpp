#include "sqlparser/expression_printer.h"

#include "sqlparser/printer.h"
#include "sqlparser/token_text.h"

namespace tessel::sql {
namespace {

constexpr std::wstring_view kBinaryTexts[] = {L" + ", L" - ", L" * ", L" / ",    L" \\ ",  L" Mod ",
                                              L" ^ ", L" & ", L" | ", L" BAND ", L" BOR ", L" BXOR "};
constexpr std::wstring_view kCompareTexts[] = {L" = ", L" <> ", L" < ", L" <= ", L" > ", L" >= "};
constexpr std::wstring_view kLogicalTexts[] = {L" AND ", L" OR ", L" XOR ", L" EQV ", L" IMP "};
constexpr std::wstring_view kQuantifierTexts[] = {L"ANY (", L"SOME (", L"ALL ("};
constexpr std::wstring_view kUnaryTexts[] = {L"-", L"+", L"~"};

}  // namespace

void ExpressionPrinter::Expression(NodeId id) {
    const Node& node = s_.At(id);
    switch (node.kind) {
        case NodeKind::Error:
        case NodeKind::Number:
        case NodeKind::String:
        case NodeKind::Date:
        case NodeKind::Macro:
        case NodeKind::Parameter:
        case NodeKind::NamePart:
        case NodeKind::Omitted:
            out_ += s_.Slice(node.Range());
            break;
        case NodeKind::Null:
            out_ += L"NULL";
            break;
        case NodeKind::True:
            out_ += L"TRUE";
            break;
        case NodeKind::False:
            out_ += L"FALSE";
            break;
        case NodeKind::Name:
        case NodeKind::Star:
            Name(node);
            break;
        case NodeKind::Paren:
        case NodeKind::Tuple:
            out_ += L'(';
            Joined(node, L", ");
            out_ += L')';
            break;
        case NodeKind::Escape:
            out_ += L"{fn ";
            Joined(node, {});
            out_ += L'}';
            break;
        case NodeKind::Unary:
        case NodeKind::Not:
            Prefix(node);
            break;
        case NodeKind::Binary:
            Run(node);
            break;
        case NodeKind::Compare:
            Compare(node);
            break;
        case NodeKind::Logical:
            Joined(node, kLogicalTexts[node.op]);
            break;
        case NodeKind::Like:
            Like(node);
            break;
        case NodeKind::Between:
            Between(node);
            break;
        case NodeKind::InList:
        case NodeKind::InSelect:
            In(node);
            break;
        case NodeKind::IsNull:
            Expression(Child(node));
            out_ += node.flags & kNegated ? L" IS NOT NULL" : L" IS NULL";
            break;
        case NodeKind::Exists:
            out_ += L"EXISTS (";
            Joined(node, {});
            out_ += L')';
            break;
        case NodeKind::Quantified:
            out_ += kQuantifierTexts[node.op];
            Joined(node, {});
            out_ += L')';
            break;
        case NodeKind::Call:
            Call(node);
            break;
        case NodeKind::Window:
            Window(node);
            break;
        case NodeKind::Case:
            Case(node);
            break;
        case NodeKind::When:
            out_ += L"WHEN ";
            Joined(node, L" THEN ");
            break;
        case NodeKind::Cast:
            Cast(node);
            break;
        case NodeKind::Subquery:
            out_ += L'(';
            Joined(node, {});
            out_ += L')';
            break;
        case NodeKind::Select:
            PrintInline(*s_.nested[node.payload], out_);
            break;
    }
}

void ExpressionPrinter::Name(const Node& node) {
    if (NeedsItsBlanks(node)) {
        out_ += CanonicalTokens(s_.source, node.Range());
        return;
    }
    for (NodeId part = Child(node); part != kNoNode; part = Next(part)) {
        if (s_.At(part).op == static_cast<std::uint8_t>(NameJoin::Point)) out_ += L'.';
        if (s_.At(part).op == static_cast<std::uint8_t>(NameJoin::Bang)) out_ += L'!';
        out_ += s_.Slice(s_.At(part).Range());
    }
    if (node.kind == NodeKind::Star) out_ += Child(node) == kNoNode ? L"*" : L".*";
}

/// Whether a part of the name may be a number or a macro: the points beside it need the blanks that they
/// have.
bool ExpressionPrinter::NeedsItsBlanks(const Node& node) const {
    for (NodeId part = Child(node); part != kNoNode; part = Next(part)) {
        const wchar_t first = s_.source[s_.At(part).begin];
        const bool macro = first == L'@' && node.kind == NodeKind::Name;
        if (macro || first == L'.' || (first >= L'0' && first <= L'9')) return true;
    }
    return false;
}

void ExpressionPrinter::Joined(const Node& node, std::wstring_view separator) {
    for (NodeId child = Child(node); child != kNoNode; child = Next(child)) {
        if (child != Child(node)) out_ += separator;
        Expression(child);
    }
}

// Operators are canonical, but % and || keep their engine's spelling.
void ExpressionPrinter::Run(const Node& node) {
    const wchar_t sign = s_.source[node.payload];
    if (sign == L'%') {
        Joined(node, L" % ");
    } else if (sign == L'|' && node.op == static_cast<std::uint8_t>(BinaryOp::Concat)) {
        Joined(node, L" || ");
    } else {
        Joined(node, kBinaryTexts[node.op]);
    }
}

// A sign before a sign keeps a blank between, since "--" begins a comment.
void ExpressionPrinter::Prefix(const Node& node) {
    if (node.kind == NodeKind::Not) {
        out_ += L"NOT ";
    } else {
        if (!out_.empty() && out_.back() == L'-') out_ += L' ';
        out_ += kUnaryTexts[node.op];
    }
    Expression(Child(node));
}

void ExpressionPrinter::Compare(const Node& node) {
    const bool is = (s_.source[node.payload] | 32) == L'i';
    if (!is) return Joined(node, kCompareTexts[node.op]);
    Joined(node, node.op == static_cast<std::uint8_t>(CompareOp::Equal) ? L" IS " : L" IS NOT ");
}

void ExpressionPrinter::Like(const Node& node) {
    const NodeId value = Child(node);
    const NodeId pattern = Next(value);
    Expression(value);
    if (node.flags & kNegated) out_ += L" NOT";
    out_ += node.flags & kALike ? L" ALIKE " : L" LIKE ";
    Expression(pattern);
    if (Next(pattern) == kNoNode) return;
    out_ += L" ESCAPE ";
    Expression(Next(pattern));
}

void ExpressionPrinter::Between(const Node& node) {
    const NodeId value = Child(node);
    const NodeId low = Next(value);
    Expression(value);
    out_ += node.flags & kNegated ? L" NOT BETWEEN " : L" BETWEEN ";
    Expression(low);
    out_ += L" AND ";
    Expression(Next(low));
}

// A macro alone may stand for the whole list, parentheses included.
void ExpressionPrinter::In(const Node& node) {
    const NodeId value = Child(node);
    const NodeId first = Next(value);
    Expression(value);
    out_ += node.flags & kNegated ? L" NOT IN " : L" IN ";
    const bool bare =
        s_.source[node.Range().End() - 1] != L')' || s_.At(first).Range().End() == node.Range().End();
    if (!bare) out_ += L'(';
    for (NodeId item = first; item != kNoNode; item = Next(item)) {
        if (item != first) out_ += L", ";
        Expression(item);
    }
    if (!bare) out_ += L')';
}

void ExpressionPrinter::Call(const Node& node) {
    const NodeId name = Child(node);
    Expression(name);
    out_ += L'(';
    if (node.flags & kDistinct) out_ += L"DISTINCT ";
    if (node.flags & kStarArgument) out_ += L'*';
    NodeId before = name;
    for (NodeId argument = Next(name); argument != kNoNode; before = argument, argument = Next(argument)) {
        if (before != name) {
            const Token gap = FirstToken(s_.source, s_.At(before).Range().End(), s_.At(argument).begin);
            if (gap.kind == TokenKind::Word) {
                ((out_ += L' ') += KeywordText(gap.keyword)) += L' ';
            } else {
                out_ += L", ";
            }
        }
        Expression(argument);
    }
    out_ += L')';
}

// What follows the call stays as written but for its blanks: the tree keeps only its expressions.
void ExpressionPrinter::Window(const Node& node) {
    Expression(Child(node));
    out_ += L' ';
    Tokens(s_.At(Child(node)).Range().End(), node.Range().End());
}

void ExpressionPrinter::Case(const Node& node) {
    out_ += L"CASE";
    for (NodeId child = Child(node); child != kNoNode; child = Next(child)) {
        const bool otherwise = (node.flags & kHasElse) && Next(child) == kNoNode;
        out_ += otherwise ? L" ELSE " : L" ";
        Expression(child);
    }
    out_ += L" END";
}

void ExpressionPrinter::Cast(const Node& node) {
    if (node.op == static_cast<std::uint8_t>(CastForm::Function)) {
        const Token word = FirstToken(s_.source, node.begin, node.Range().End());
        (out_ += KeywordText(word.keyword)) += L'(';
        Expression(Child(node));
        out_ += L" AS ";
        Tokens(node.payload, node.Range().End() - 1);
        out_ += L')';
        return;
    }
    Expression(Child(node));
    out_ += node.op == static_cast<std::uint8_t>(CastForm::Collate) ? L" COLLATE " : L"::";
    Tokens(node.payload, node.Range().End());
}

void ExpressionPrinter::Tokens(std::size_t from, std::size_t to) {
    out_ += CanonicalTokens(s_.source, {from, to - from});
}

std::wstring PrintExpression(const Statement& statement, NodeId node) {
    std::wstring out;
    ExpressionPrinter(statement, out).Expression(node);
    return out;
}

}  // namespace tessel::sql
