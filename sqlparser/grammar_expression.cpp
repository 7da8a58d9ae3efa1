// Operators by precedence, without recursion: operands and operators wait on two stacks until a looser
// operator or the end of the expression reduces them.
#include <algorithm>

#include "sqlparser/grammar.h"
#include "sqlparser/messages.h"
#include "sqlparser/sql_parser.h"

namespace tessel::sql {

/// An expression of operators that bind at least as tightly as `lowest`; kNoNode after an error.
NodeId Grammar::Expression(Level lowest) {
    const std::size_t operand_base = operands_.size();
    const std::size_t operator_base = operators_.size();
    for (;;) {
        if (AtPrefix()) PushPrefixes();
        const NodeId operand = Primary();
        if (blocked_) break;
        // An operand alone, as most arguments and items of lists are.
        const bool alone = operands_.size() == operand_base && operators_.size() == operator_base;
        if (alone && (At(TokenKind::Comma) || At(TokenKind::RightParen))) return operand;
        operands_.push_back({operand, kNoNode, height_});
        if (lowest <= Level::Compare) {
            while (AtPredicateTail() && PredicateTail(operator_base)) {
            }
        }
        Operator op;
        if (blocked_ || !ReadOperator(op) || op.level < lowest) break;
        ReduceTo(operator_base, op.level);
        operators_.push_back(op);
        Advance();
    }
    NodeId result = kNoNode;
    if (!blocked_) {
        ReduceTo(operator_base, Level::None);
        result = operands_.back().node;
        height_ = operands_.back().height;
    }
    operands_.resize(operand_base);
    operators_.resize(operator_base);
    return blocked_ ? kNoNode : result;
}

bool Grammar::ReadOperator(Operator& op) {
    const auto set = [&](NodeKind kind, auto code, Level level) {
        op = {kind, static_cast<std::uint8_t>(code), level, token_.begin};
        return true;
    };
    switch (token_.kind) {
        case TokenKind::Word:
            switch (token_.keyword) {
                case Keyword::And:
                    return set(NodeKind::Logical, LogicalOp::And, Level::And);
                case Keyword::Or:
                    return set(NodeKind::Logical, LogicalOp::Or, Level::Or);
                case Keyword::Xor:
                    return set(NodeKind::Logical, LogicalOp::Xor, Level::Xor);
                case Keyword::Eqv:
                    return set(NodeKind::Logical, LogicalOp::Eqv, Level::Eqv);
                case Keyword::Imp:
                    return set(NodeKind::Logical, LogicalOp::Imp, Level::Imp);
                case Keyword::Mod:
                    return set(NodeKind::Binary, BinaryOp::Modulo, Level::Modulo);
                case Keyword::BitAnd:
                    return OperandFollows() && set(NodeKind::Binary, BinaryOp::BitAnd, Level::Concat);
                case Keyword::BitOr:
                    return OperandFollows() && set(NodeKind::Binary, BinaryOp::BitOr, Level::Concat);
                case Keyword::BitXor:
                    return OperandFollows() && set(NodeKind::Binary, BinaryOp::BitXor, Level::Concat);
                default:
                    return false;
            }
        case TokenKind::Equal:
            return set(NodeKind::Compare, CompareOp::Equal, Level::Compare);
        case TokenKind::NotEqual:
            return set(NodeKind::Compare, CompareOp::NotEqual, Level::Compare);
        case TokenKind::Less:
            return set(NodeKind::Compare, CompareOp::Less, Level::Compare);
        case TokenKind::LessEqual:
            return set(NodeKind::Compare, CompareOp::LessEqual, Level::Compare);
        case TokenKind::Greater:
            return set(NodeKind::Compare, CompareOp::Greater, Level::Compare);
        case TokenKind::GreaterEqual:
            return set(NodeKind::Compare, CompareOp::GreaterEqual, Level::Compare);
        case TokenKind::Ampersand:
        case TokenKind::Concat:
            return set(NodeKind::Binary, BinaryOp::Concat, Level::Concat);
        case TokenKind::Pipe:
            return set(NodeKind::Binary, BinaryOp::Other, Level::Concat);
        case TokenKind::Plus:
            return set(NodeKind::Binary, BinaryOp::Add, Level::Add);
        case TokenKind::Minus:
            return set(NodeKind::Binary, BinaryOp::Subtract, Level::Add);
        case TokenKind::Percent:
            return set(NodeKind::Binary, BinaryOp::Modulo, Level::Modulo);
        case TokenKind::Backslash:
            return set(NodeKind::Binary, BinaryOp::IntDivide, Level::IntDivide);
        case TokenKind::Star:
            return set(NodeKind::Binary, BinaryOp::Multiply, Level::Multiply);
        case TokenKind::Slash:
            return set(NodeKind::Binary, BinaryOp::Divide, Level::Multiply);
        case TokenKind::Caret:
            return set(NodeKind::Binary, BinaryOp::Power, Level::Power);
        default:
            return false;
    }
}

// BAND, BOR and BXOR are titles where no value follows.
bool Grammar::OperandFollows() {
    const Token next = Peek();
    if (next.kind != TokenKind::Word) {
        return next.kind != TokenKind::End && next.kind != TokenKind::Comma &&
               next.kind != TokenKind::Semicolon && next.kind != TokenKind::RightParen;
    }
    if (!IsReserved(next.keyword)) return true;
    const TokenKind second = PeekSecond().kind;
    if (second == TokenKind::Point || second == TokenKind::Bang) return true;
    switch (next.keyword) {
        case Keyword::Null:
        case Keyword::True:
        case Keyword::False:
        case Keyword::Case:
            return true;
        case Keyword::Left:
        case Keyword::Right:
        case Keyword::Asc:
        case Keyword::All:
            return second == TokenKind::LeftParen;
        default:
            return false;
    }
}

void Grammar::PushPrefixes() {
    for (;; Advance()) {
        const std::uint32_t begin = token_.begin;
        if (At(Keyword::Not)) {
            operators_.push_back({NodeKind::Not, 0, Level::Not, begin});
        } else if (At(TokenKind::Minus)) {
            operators_.push_back(
                {NodeKind::Unary, static_cast<std::uint8_t>(UnaryOp::Minus), Level::Sign, begin});
        } else if (At(TokenKind::Plus)) {
            operators_.push_back(
                {NodeKind::Unary, static_cast<std::uint8_t>(UnaryOp::Plus), Level::Sign, begin});
        } else if (At(TokenKind::Tilde)) {
            operators_.push_back(
                {NodeKind::Unary, static_cast<std::uint8_t>(UnaryOp::BitNot), Level::Sign, begin});
        } else {
            return;
        }
    }
}

// Builds the nodes of the waiting operators that bind at least as tightly as `level`: all operators group
// from the left. A prefix operator that binds more loosely shields those before it, as in a = NOT b = c.
void Grammar::ReduceTo(std::size_t base, Level level) {
    while (!blocked_ && operators_.size() > base && operators_.back().level >= level) {
        const Operator op = operators_.back();
        operators_.pop_back();
        if (op.kind == NodeKind::Not || op.kind == NodeKind::Unary) {
            ReducePrefix(op);
        } else {
            ReduceBinary(op);
        }
    }
}

void Grammar::ReducePrefix(const Operator& op) {
    Operand& operand = operands_.back();
    if (IsStar(operand.node)) return;
    const NodeId node = Make(op.kind, op.begin, op.op);
    At(node).first_child = operand.node;
    At(node).length = At(operand.node).begin + At(operand.node).length - op.begin;
    At(node).payload = op.begin;
    operand = {node, kNoNode, operand.height + 1};
    CheckHeight(operand.height);
}

// Runs of the same operator make one flat node, so that a million of them stay one level deep.
void Grammar::ReduceBinary(const Operator& op) {
    const Operand right = operands_.back();
    operands_.pop_back();
    Operand& left = operands_.back();
    if (IsStar(left.node) || IsStar(right.node)) return;
    const std::uint32_t stop = At(right.node).begin + At(right.node).length;
    const bool run = op.kind != NodeKind::Compare && left.last_child != kNoNode &&
                     At(left.node).kind == op.kind && At(left.node).op == op.op;
    if (run) {
        At(left.last_child).next = right.node;
        At(left.node).length = stop - At(left.node).begin;
        left.last_child = right.node;
        left.height = std::max(left.height, right.height + 1);
    } else {
        const NodeId node = Make(op.kind, At(left.node).begin, op.op);
        At(node).first_child = left.node;
        At(node).length = stop - At(node).begin;
        At(node).payload = op.begin;
        At(left.node).next = right.node;
        left = {node, right.node, std::max(left.height, right.height) + 1};
    }
    CheckHeight(left.height);
}

// "t.*" is a list of columns and no value.
bool Grammar::IsStar(NodeId node) {
    if (At(node).kind != NodeKind::Star) return false;
    FailAt(At(node).Range(), std::wstring(messages::kStarInExpression));
    return true;
}

// Whoever walks the tree recurses as deep as it is high.
void Grammar::CheckHeight(int height) {
    if (height > kMaxDepth) FailForGood(messages::kTooDeep);
}

}  // namespace tessel::sql
