// The condition trees of WHERE and HAVING, read off the expression trees.
#include "sqlparser/lexer.h"
#include "sqlparser/statement.h"

namespace tessel::sql {
namespace {

class ConditionBuilder {
public:
    explicit ConditionBuilder(const Statement& statement) : statement_(statement) {}

    /// Appends the nodes of an expression: one for a predicate or a group, several for a logical run.
    void Add(NodeId id, std::vector<ConditionNode>& list) const {
        const Node& node = statement_.At(id);
        if (node.kind == NodeKind::Logical) return AddRun(id, list);
        if (const NodeId inside = GroupContents(id); inside != kNoNode) return AddGroup(id, inside, list);
        ConditionNode predicate;
        predicate.text = statement_.Text(node.Range());
        predicate.range = node.Range();
        predicate.node = id;
        list.push_back(std::move(predicate));
    }

private:
    // A tighter run without parentheses (a AND b under OR) stands in the same list.
    void AddRun(NodeId id, std::vector<ConditionNode>& list) const {
        std::size_t stop = 0;
        for (NodeId child = statement_.At(id).first_child; child != kNoNode;
             child = statement_.At(child).next) {
            if (child != statement_.At(id).first_child) AddConnective(stop, statement_.At(child).begin, list);
            Add(child, list);
            stop = statement_.At(child).Range().End();
        }
    }

    // The word between two operands, without the space and the comments around it.
    void AddConnective(std::size_t from, std::size_t to, std::vector<ConditionNode>& list) const {
        Lexer lexer(statement_.source.substr(0, to), from);
        ConditionNode connective;
        connective.kind = ConditionNode::Kind::Connective;
        connective.range = lexer.NextSignificant().Range();
        connective.text = statement_.Text(connective.range);
        list.push_back(std::move(connective));
    }

    void AddGroup(NodeId id, NodeId inside, std::vector<ConditionNode>& list) const {
        const Node& node = statement_.At(id);
        ConditionNode group;
        group.kind = ConditionNode::Kind::Group;
        group.text = node.kind == NodeKind::Not ? L"NOT (" : L"(";
        group.second = L")";
        group.range = node.Range();
        group.node = id;
        Add(inside, group.sub);
        list.push_back(std::move(group));
    }

    // What stands inside "( … )" or "NOT ( … )" when it holds more than one predicate; kNoNode otherwise.
    NodeId GroupContents(NodeId id) const {
        const Node* node = &statement_.At(id);
        NodeId paren = id;
        if (node->kind == NodeKind::Not) paren = node->first_child;
        if (statement_.At(paren).kind != NodeKind::Paren) return kNoNode;
        const NodeId contents = statement_.At(paren).first_child;
        NodeId inner = contents;
        for (;;) {
            node = &statement_.At(inner);
            if (node->kind == NodeKind::Logical) return contents;
            if (node->kind == NodeKind::Not && statement_.At(node->first_child).kind != NodeKind::Paren)
                return kNoNode;
            if (node->kind != NodeKind::Paren && node->kind != NodeKind::Not) return kNoNode;
            inner = node->first_child;
        }
    }

    const Statement& statement_;
};

std::vector<ConditionNode> Build(const Statement& statement, NodeId root) {
    std::vector<ConditionNode> list;
    if (root != kNoNode) ConditionBuilder(statement).Add(root, list);
    return list;
}

}  // namespace

std::vector<ConditionNode> Statement::Where() const {
    return Build(*this, where);
}
std::vector<ConditionNode> Statement::Having() const {
    return Build(*this, having);
}

}  // namespace tessel::sql
