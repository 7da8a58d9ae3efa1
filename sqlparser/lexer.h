// Lexer: a statement's text as a row of tokens that covers every character. It never fails: what it cannot
// understand is a token of kind Unknown, what is not closed carries a flag, and the parser or the editor
// decide what to say.
//
// A token is a kind and a range; no text is copied. The lexer can start at the beginning of any line when it
// is given the state in which the line before ended, so an editor colours again only the lines that changed.
#pragma once

#include <cstdint>
#include <string_view>

#include "common/diagnostic.h"
#include "sqlparser/char_class.h"
#include "sqlparser/keywords.h"

namespace tessel::sql {

enum class TokenKind : std::uint8_t {
    End,            ///< after the last character; empty
    Space,          ///< blanks and line breaks
    Comment,        ///< -- to the end of the line, or /* … */
    Word,           ///< bare name or keyword; may begin with a digit or "#"
    BracketName,    ///< [name], "]" inside doubled
    BackQuoteName,  ///< `name`
    String,         ///< 'text'
    QuotedText,     ///< "text": a string, or a name where only a name can stand
    Number,         ///< 1, .5, 1e3, &HFF, 0xFF
    Date,           ///< #…#
    Macro,          ///< @name, @{any text}
    Parameter,      ///< :name, ?
    LeftParen,
    RightParen,
    Comma,
    Semicolon,
    Point,
    Bang,
    LeftBrace,
    RightBrace,
    Equal,
    NotEqual,
    Less,
    LessEqual,
    Greater,
    GreaterEqual,
    Plus,
    Minus,
    Star,
    Slash,
    Backslash,
    Caret,
    Percent,
    Ampersand,
    Concat,
    Pipe,
    Tilde,
    DoubleColon,
    Colon,
    Unknown,  ///< a character that starts nothing
    Blocked,  ///< used by the parser while it looks for a place to go on after an error; never lexed
};

inline constexpr std::uint8_t kUnterminated = 1;  ///< the closing mark is missing
inline constexpr std::uint8_t kDigitFirst = 2;    ///< a word that begins with a digit

struct Token {
    TokenKind kind = TokenKind::End;
    Keyword keyword = Keyword::None;
    std::uint8_t flags = 0;
    std::uint32_t begin = 0;
    std::uint32_t length = 0;

    std::uint32_t End() const { return begin + length; }
    TextRange Range() const { return {begin, length}; }
};

/// What has to be known at the start of a line.
struct LexerState {
    enum class Inside : std::uint8_t {
        Nothing,
        Comment,
        String,
        QuotedText,
        BracketName,
        BackQuoteName,
        BraceMacro
    };
    Inside inside = Inside::Nothing;
    bool after_operand =
        false;  ///< the last token was a value, so that & is an operator and not the start of &HFF

    friend bool operator==(const LexerState&, const LexerState&) = default;
};

class Lexer {
public:
    /// Reads `text` from `begin` up to its end; the text must outlive the lexer.
    explicit Lexer(std::wstring_view text, std::size_t begin = 0, LexerState state = {})
        : text_(text.data()),
          at_(static_cast<std::uint32_t>(begin)),
          end_(static_cast<std::uint32_t>(text.size())),
          state_(state) {}

    /// The next token of any kind, End when there is none; it lasts until the next call.
    [[nodiscard]] const Token& Next();

    /// The next token that is neither space nor comment, likewise. An unclosed comment is returned.
    const Token& NextSignificant();

    /// The token that was read last.
    const Token& Current() const { return token_; }

    /// Whether a number was read that a word follows without a blank.
    bool HasTightNumber() const { return has_tight_number_; }

    /// Whether NextSignificant() has left out a comment.
    bool HasSkippedComment() const { return has_skipped_comment_; }

    /// The state after the last token, to be given to a lexer of the following line.
    LexerState State() const { return state_; }

private:
    wchar_t At(std::uint32_t index) const { return index < end_ ? text_[index] : L'\0'; }
    const Token& Make(TokenKind kind, std::uint32_t stop, std::uint8_t flags = 0,
                      Keyword keyword = Keyword::None);
    const Token& Quoted(TokenKind kind, std::uint32_t content, wchar_t close, LexerState::Inside inside);
    const Token& BlockComment(std::uint32_t content);
    const Token& LineComment();
    const Token& BraceMacro(std::uint32_t content);
    const Token& Begin(std::uint8_t bits);
    const Token& Continue();
    const Token& Space();
    const Token& Word(std::uint32_t from);
    const Token& Number(std::uint32_t stop);
    const Token& NumberOrName();
    const Token& Hash();
    const Token& AtSign();
    const Token& ColonMark();
    const Token& AmpersandMark();
    const Token& PointMark();
    const Token& Operator(wchar_t ch);
    std::uint32_t DateEnd() const;

    const wchar_t* text_;
    std::uint32_t at_;
    std::uint32_t end_;
    LexerState state_;
    bool has_skipped_comment_ = false;
    bool has_tight_number_ = false;
    Token token_;
};

}  // namespace tessel::sql
