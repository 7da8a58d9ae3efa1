// The tokens of a statement as the formatter sees them: without white space, but with what it was, and with
// the width that any stretch of them has on one line.
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

#include "sqlparser/lexer.h"

namespace tessel::sql {

struct FormatToken {
    Token token;
    bool blank_before = false;  ///< white space stood before it
    bool own_line = false;      ///< a comment with nothing before it on its line
    bool ends_line = false;     ///< a comment with nothing behind it on its line
    bool has_break = false;     ///< its text holds a line break
    std::size_t partner = 0;    ///< of a parenthesis or CASE: the index of the closing token; else its own
};

class FormatTokens {
public:
    explicit FormatTokens(std::wstring_view text);

    std::size_t Size() const { return tokens_.size(); }
    const FormatToken& operator[](std::size_t index) const { return tokens_[index]; }
    std::wstring_view Text(std::size_t index) const {
        return text_.substr(tokens_[index].token.begin, tokens_[index].token.length);
    }
    /// The word that the token is, None for a name after a point or after AS.
    Keyword KeywordAt(std::size_t index) const;
    bool Is(std::size_t index, TokenKind kind) const {
        return index < tokens_.size() && tokens_[index].token.kind == kind;
    }
    bool IsComment(std::size_t index) const { return Is(index, TokenKind::Comment); }

    /// Whether a blank belongs between the token and the one before it.
    bool HasBlankBefore(std::size_t index) const;
    /// The width of the tokens from `begin` up to, not including, `end` on one line.
    std::size_t Width(std::size_t begin, std::size_t end) const;
    /// Whether they can stand on one line: no comment among them ends it, and no token holds a line break.
    bool CanBeFlat(std::size_t begin, std::size_t end) const;
    /// A macro without braces, whose name would go on beyond a line break or a ";": a blank must follow it.
    bool IsBareMacro(std::size_t index) const;

private:
    void MergeEscapedDate();
    void FindPartners();
    bool IsOperand(std::size_t index) const;
    bool IsUnary(std::size_t index) const;

    std::wstring_view text_;
    std::vector<FormatToken> tokens_;
    std::vector<std::size_t> columns_;       ///< where each token would begin if all stood on one line
    std::vector<std::size_t> breaks_;        ///< how many line breaks comments make up to before each token
    std::vector<std::size_t> inner_breaks_;  ///< how many tokens before each hold a line break
};

}  // namespace tessel::sql
