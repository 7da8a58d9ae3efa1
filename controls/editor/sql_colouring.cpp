#include "controls/editor/sql_colouring.h"

#include "common/text.h"

namespace tessel::controls {

namespace {

using sql::Token;
using sql::TokenKind;

class LineColours {
public:
    LineColours(std::wstring_view line, const SqlWords& words, sql::LexerState& state)
        : line_(line), words_(words) {
        sql::Lexer lexer(line, 0, state);
        for (Token token = lexer.Next(); token.kind != TokenKind::End; token = lexer.Next())
            tokens_.push_back(token);
        state = lexer.State();
    }

    std::vector<StyleRun> Runs() const {
        std::vector<StyleRun> runs;
        for (std::size_t i = 0; i < tokens_.size(); ++i) {
            const SqlStyle style = StyleOf(i);
            if (!runs.empty() && runs.back().style == style) {
                runs.back().length += tokens_[i].length;
            } else {
                runs.push_back({style, tokens_[i].length});
            }
        }
        return runs;
    }

private:
    SqlStyle StyleOf(std::size_t index) const {
        const Token& token = tokens_[index];
        switch (token.kind) {
            case TokenKind::Space:
                return SqlStyle::Text;
            case TokenKind::Comment:
                return SqlStyle::Comment;
            case TokenKind::Word:
                return StyleOfWord(index);
            case TokenKind::BracketName:
            case TokenKind::BackQuoteName:
                return SqlStyle::Name;
            case TokenKind::String:
            case TokenKind::QuotedText:
                return SqlStyle::String;
            case TokenKind::Number:
                return SqlStyle::Number;
            // A date ends on its line, so a missing partner is an error at once. Other marks may close
            // further down.
            case TokenKind::Date:
                return (token.flags & sql::kUnterminated) ? SqlStyle::Error : SqlStyle::Date;
            case TokenKind::Macro:
                return SqlStyle::Macro;
            case TokenKind::Parameter:
                return SqlStyle::Parameter;
            case TokenKind::Unknown:
                return SqlStyle::Error;
            default:
                return SqlStyle::Operator;
        }
    }

    // A word next to a point is a name, whatever it spells: Pedidos.Date, Order.Total.
    SqlStyle StyleOfWord(std::size_t index) const {
        const TokenKind before = KindBefore(index);
        const TokenKind next = index + 1 < tokens_.size() ? tokens_[index + 1].kind : TokenKind::End;
        if (before == TokenKind::Point || before == TokenKind::Bang || next == TokenKind::Point)
            return SqlStyle::Text;
        const std::wstring word = Lower(line_.substr(tokens_[index].begin, tokens_[index].length));
        if (words_.functions.Contains(word) && KindAfter(index) == TokenKind::LeftParen)
            return SqlStyle::Function;
        if (words_.keywords.Contains(word)) return SqlStyle::Keyword;
        if (words_.types.Contains(word)) return SqlStyle::Type;
        return SqlStyle::Text;
    }

    TokenKind KindBefore(std::size_t index) const {
        return index > 0 ? tokens_[index - 1].kind : TokenKind::End;
    }

    TokenKind KindAfter(std::size_t index) const {
        std::size_t i = index + 1;
        while (i < tokens_.size() && tokens_[i].kind == TokenKind::Space) ++i;
        return i < tokens_.size() ? tokens_[i].kind : TokenKind::End;
    }

    std::wstring_view line_;
    const SqlWords& words_;
    std::vector<Token> tokens_;
};

}  // namespace

std::vector<StyleRun> ColourLine(std::wstring_view line, const SqlWords& words, sql::LexerState& state) {
    return LineColours(line, words, state).Runs();
}

std::vector<SqlStyle> ColourText(std::wstring_view text, const SqlWords& words, sql::LexerState state) {
    std::vector<SqlStyle> styles;
    styles.reserve(text.size());
    while (!text.empty()) {
        const std::size_t length = LineLength(text);
        for (const StyleRun& run : ColourLine(text.substr(0, length), words, state))
            styles.insert(styles.end(), run.length, run.style);
        text.remove_prefix(length);
    }
    return styles;
}

std::size_t LineLength(std::wstring_view text) {
    const std::size_t end = text.find_first_of(L"\r\n");
    if (end == std::wstring_view::npos) return text.size();
    const bool pair = text[end] == L'\r' && end + 1 < text.size() && text[end + 1] == L'\n';
    return end + (pair ? 2 : 1);
}

int PackState(sql::LexerState state) {
    return static_cast<int>(state.inside) * 2 + (state.after_operand ? 1 : 0);
}

sql::LexerState UnpackState(int packed) {
    const auto inside = static_cast<sql::LexerState::Inside>(packed / 2);
    if (packed < 0 || inside > sql::LexerState::Inside::BraceMacro) return {};
    return {inside, packed % 2 != 0};
}

}  // namespace tessel::controls
