// SqlParser: text in, statement or positioned errors out. Knows no design and no database.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "common/diagnostic.h"
#include "sqlparser/statement.h"

namespace tessel::sql {

class SqlParser {
public:
    /// Analyses the text. True when it could not be analysed: `Errors()` then holds at least one diagnostic
    /// and Statement() is what could be recovered, or nothing. An empty text fails.
    ///
    /// The statement before it gives its memory to the new one: a large text that is analysed again and
    /// again, as an editor does, costs the system's pages only once.
    [[nodiscard]] bool Parse(std::wstring_view text);
    /// The same of a text that the statement may keep.
    [[nodiscard]] bool Parse(std::wstring&& text);
    [[nodiscard]] bool Parse(const wchar_t* text) { return Parse(std::wstring_view(text)); }

    /// The analysed statement of the last Parse, or nullptr.
    const Statement* GetStatement() const { return statement_.get(); }
    const std::vector<Diagnostic>& Errors() const { return errors_; }

private:
    std::unique_ptr<Statement> EndLast();
    bool Analyse(std::unique_ptr<Statement> empty);

    std::unique_ptr<Statement> statement_;
    std::shared_ptr<std::wstring> text_;  ///< the statement's
    std::vector<Diagnostic> errors_;
};

/// Depth of nested parentheses, sub-selects and joins that the parser accepts; beyond it is an error, never a
/// stack overflow.
inline constexpr int kMaxDepth = 500;
/// A sub-select takes this many levels at once, since it needs that much more of the stack.
inline constexpr int kSelectLevels = 4;

}  // namespace tessel::sql
