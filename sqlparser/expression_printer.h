// The expression half of the printer; printer.h is its face.
#pragma once

#include <string>
#include <string_view>

#include "sqlparser/statement.h"

namespace tessel::sql {

class ExpressionPrinter {
public:
    /// Appends to `out`.
    ExpressionPrinter(const Statement& statement, std::wstring& out) : s_(statement), out_(out) {}

    void Expression(NodeId id);

private:
    void Name(const Node& node);
    [[nodiscard]] bool NeedsItsBlanks(const Node& node) const;
    void Joined(const Node& node, std::wstring_view separator);
    void Run(const Node& node);
    void Prefix(const Node& node);
    void Compare(const Node& node);
    void Like(const Node& node);
    void Between(const Node& node);
    void In(const Node& node);
    void Call(const Node& node);
    void Window(const Node& node);
    void Case(const Node& node);
    void Cast(const Node& node);
    void Tokens(std::size_t from, std::size_t to);
    NodeId Child(const Node& node) const { return node.first_child; }
    NodeId Next(NodeId id) const { return s_.At(id).next; }

    const Statement& s_;
    std::wstring& out_;
};

/// A select on one line, as it stands inside an expression.
void PrintInline(const Statement& statement, std::wstring& out);

}  // namespace tessel::sql
