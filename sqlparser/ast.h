// The syntax tree of a statement: expressions and FROM items as flat arrays of small nodes that refer to the
// source text by offset. Nothing in it owns text, nothing is recursive to destroy, and its size is a small
// multiple of the text's.
//
// Children of a node are a linked list: `first_child`, then each child's `next`. What a kind's children are,
// and what `op` and `flags` mean for it, is said beside the kind.
#pragma once

#include <cstdint>
#include <vector>

#include "common/diagnostic.h"

namespace tessel::sql {

using NodeId = std::uint32_t;
inline constexpr NodeId kNoNode = 0xFFFFFFFFu;

enum class NodeKind : std::uint8_t {
    Error,   ///< a stretch that could not be understood
    Number,  ///< 1, 2.5, 1e3, &HFF
    String,  ///< 'text' or "text"
    Date,    ///< #…#
    Null,
    True,
    False,
    Name,       ///< a (qualified) name; children NamePart
    NamePart,   ///< one identifier, bare, bracketed or quoted; op = NameJoin to the part before ("." or "!")
    Star,       ///< * ; with children NamePart for t.*
    Parameter,  ///< :p, ?
    Macro,      ///< @name, @{any text}
    Paren,      ///< ( expression ); one child
    Unary,      ///< op = UnaryOp; one child
    Binary,     ///< op = BinaryOp, arithmetic and concatenation; two or more children: a + b + c is one node,
                ///< grouped from the left, while a + b - c is a node in a node
    Compare,    ///< op = CompareOp; two children
    Logical,    ///< op = LogicalOp; two or more children, a flat list for a run of the same operator
    Not,        ///< one child
    Like,       ///< flags kNegated, kALike; children: value, pattern, [escape]
    Between,    ///< flags kNegated; children: value, low, high
    InList,     ///< flags kNegated; children: value, item…
    InSelect,   ///< flags kNegated; children: value, Select
    IsNull,     ///< flags kNegated; one child
    Exists,     ///< one child: Select
    Quantified,  ///< op = Quantifier (ANY, SOME, ALL); one child: Select
    Call,  ///< children: Name, argument…; flags kDistinct for COUNT(DISTINCT x), kStarArgument for count(*)
    Window,  ///< a call with OVER (…), FILTER (…) or WITHIN GROUP (…); children: Call, then the expressions
             ///< inside
    Case,  ///< children: [operand], When…, [Else]; flags kHasOperand, kHasElse
    When,  ///< children: condition, result
    Cast,  ///< op = CastForm; one child; the type's (or collation's) text goes from offset `payload` to the
           ///< node's end, the closing parenthesis of CAST not included
    Subquery,  ///< ( SELECT … ) as an expression; one child: Select
    Select,    ///< a nested select; `payload` is its index in Statement::nested
    Tuple,     ///< (a, b)
    Omitted,   ///< an argument left out before a comma, f(a,,b); an empty range
    Escape,    ///< {fn f(x)}, the ODBC spelling of a call; one child, which is all that counts
};

enum class NameJoin : std::uint8_t { First, Point, Bang };
enum class UnaryOp : std::uint8_t { Minus, Plus, BitNot };
enum class BinaryOp : std::uint8_t {
    Add,
    Subtract,
    Multiply,
    Divide,
    IntDivide,
    Modulo,
    Power,
    Concat,
    Other,
    BitAnd,
    BitOr,
    BitXor
};
enum class CompareOp : std::uint8_t { Equal, NotEqual, Less, LessEqual, Greater, GreaterEqual };
enum class LogicalOp : std::uint8_t { And, Or, Xor, Eqv, Imp };
enum class CastForm : std::uint8_t { Colons, Function, Collate };
enum class Quantifier : std::uint8_t { Any, Some, All };

inline constexpr std::uint8_t kNegated = 1;
inline constexpr std::uint8_t kALike = 2;
inline constexpr std::uint8_t kDistinct = 4;
inline constexpr std::uint8_t kStarArgument = 8;
inline constexpr std::uint8_t kHasOperand = 16;
inline constexpr std::uint8_t kHasElse = 32;

struct Node {
    NodeKind kind = NodeKind::Error;
    std::uint8_t op = 0;
    std::uint8_t flags = 0;
    std::uint32_t begin = 0;  ///< wchar_t offset in the statement's text
    std::uint32_t length = 0;
    NodeId first_child = kNoNode;
    NodeId next = kNoNode;
    std::uint32_t payload =
        0;  ///< Compare, Like, InList, …: offset of the operator; Select: index in Statement::nested

    TextRange Range() const { return {begin, length}; }
};

}  // namespace tessel::sql
