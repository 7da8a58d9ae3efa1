// The contents of the syntax tree: what dlgArbol shows and `tesselsql tree` prints.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "common/diagnostic.h"
#include "sqlparser/statement.h"

namespace tessel::analyse {

struct TreeNode {
    std::wstring key;  ///< empty for condition, grouping and ordering items
    std::wstring text;
    std::optional<TextRange> range;
    std::vector<TreeNode> children;
};

/// The roots of the tree of a statement, in the order in which they are shown.
[[nodiscard]] std::vector<TreeNode> ShowTree(const sql::Statement& statement);

}  // namespace tessel::analyse
