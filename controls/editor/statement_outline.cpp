#include "controls/editor/statement_outline.h"

#include <algorithm>
#include <utility>

namespace tessel::controls {

namespace {

using sql::Keyword;
using sql::Token;
using sql::TokenKind;

bool IsNameToken(const Token& token) {
    return token.kind == TokenKind::Word || token.kind == TokenKind::BracketName ||
           token.kind == TokenKind::BackQuoteName || token.kind == TokenKind::QuotedText;
}

bool IsPoint(const Token& token) {
    return token.kind == TokenKind::Point || token.kind == TokenKind::Bang;
}

/// Words that may follow a table and are no alias of it.
bool EndsTable(Keyword keyword) {
    switch (keyword) {
        case Keyword::Full:
        case Keyword::Cross:
        case Keyword::Natural:
        case Keyword::Outer:
        case Keyword::Using:
        case Keyword::Limit:
        case Keyword::Offset:
        case Keyword::Fetch:
        case Keyword::For:
        case Keyword::Window:
        case Keyword::Pivot:
            return true;
        default:
            return sql::IsReserved(keyword);
    }
}

/// The tokens of the text that count, and which of them the caret stands at.
class CaretTokens {
public:
    CaretTokens(std::wstring_view text, std::size_t caret) : text_(text), caret_(caret) {
        sql::Lexer lexer(text);
        for (Token token = lexer.Next(); token.kind != TokenKind::End; token = lexer.Next()) {
            if (token.kind == TokenKind::Space) continue;
            if (token.kind == TokenKind::Comment) {
                if (IsInside(token) || EndsAtCaret(token)) blocked = true;
                continue;
            }
            if (IsInside(token) && IsBracketed(token)) {
                // A bracket that is open swallows what follows it: here the name ends where the caret is, or
                // at a bracket on the same line.
                token.length = static_cast<std::uint32_t>(BracketEnd() - token.begin);
                token.flags = 0;
                lexer = sql::Lexer(text, token.End());
            }
            Add(token);
        }
        if (at == tokens.size()) has_name = false;
    }

    std::vector<Token> tokens;
    std::size_t at = 0;  ///< the token that the caret is in, else the first one after it
    bool has_name = false;
    bool blocked = false;

private:
    bool IsInside(const Token& token) const {
        if (token.begin >= caret_) return false;
        return caret_ < token.End() || (caret_ == token.End() && (token.flags & sql::kUnterminated));
    }
    // A comment to the end of its line goes on with what is typed there.
    bool EndsAtCaret(const Token& token) const { return caret_ == token.End() && text_[token.begin] == L'-'; }
    static bool IsBracketed(const Token& token) {
        return token.kind == TokenKind::BracketName || token.kind == TokenKind::BackQuoteName;
    }
    std::size_t BracketEnd() const {
        for (std::size_t i = caret_; i < text_.size(); ++i) {
            if (text_[i] == L']' || text_[i] == L'`') return i + 1;
            if (text_[i] == L'[' || text_[i] == L'\n' || text_[i] == L'\r') break;
        }
        return caret_;
    }

    void Add(const Token& token) {
        const bool touches = token.begin < caret_ && caret_ <= token.End();
        if (touches) {
            switch (token.kind) {
                case TokenKind::Word:
                case TokenKind::Macro:
                    has_name = true;
                    break;
                case TokenKind::BracketName:
                case TokenKind::BackQuoteName:
                    has_name =
                        caret_ < token.End() || (text_[caret_ - 1] != L']' && text_[caret_ - 1] != L'`');
                    break;
                case TokenKind::Number:
                    blocked = true;
                    break;
                case TokenKind::String:
                case TokenKind::QuotedText:
                case TokenKind::Date:
                    blocked = blocked || IsInside(token);
                    break;
                case TokenKind::Parameter:
                    blocked = blocked || text_[token.begin] == L':';
                    break;
                default:
                    break;
            }
            if (has_name) at = tokens.size();
        }
        tokens.push_back(token);
        if (!has_name && token.begin < caret_) at = tokens.size();
    }

    std::wstring_view text_;
    std::size_t caret_;
};

/// One level of parentheses while the tokens go by.
struct Frame {
    int scope = kNoScope;
    OutlineClause clause = OutlineClause::None;
    bool is_select = false;  ///< a SELECT or FROM stood at this level
    bool is_call = false;    ///< the arguments of a function
    bool in_from = false;
    bool is_group = false;  ///< tables joined in parentheses
    bool wants_table = false;
    bool wants_condition = false;
    bool name_goes_on = false;  ///< a point followed the table's name
    int aliased = -1;           ///< the table that a name would be the alias of
    std::size_t first_table = 0;
    std::size_t right_table = 0;
    int cases = 0;
    std::size_t column_name = 0;  ///< 1 + the index of the name that a column ended with so far
};

class Outliner {
public:
    Outliner(std::wstring_view text, std::size_t caret)
        : text_(text), caret_(caret), input_(text, caret), tokens_(input_.tokens) {}

    StatementOutline Take() {
        frames_.emplace_back();
        for (index_ = 0; index_ < tokens_.size(); ++index_) {
            if (index_ == input_.at) NotePlace();
            Step(tokens_[index_]);
        }
        if (input_.at == tokens_.size()) NotePlace();
        while (frames_.size() > 1) Close();
        EndColumn();
        FinishPlace();
        return std::move(outline_);
    }

private:
    Frame& Top() { return frames_.back(); }
    OutlineScope& ScopeOf(const Frame& frame) {
        return outline_.scopes[static_cast<std::size_t>(frame.scope)];
    }
    std::wstring TextOf(const Token& token) const {
        return std::wstring(text_.substr(token.begin, token.length));
    }

    int NewScope(int parent) {
        outline_.scopes.push_back({parent, {}, {}, {}, false});
        return static_cast<int>(outline_.scopes.size()) - 1;
    }

    /// A word right after a point is a name, unless the caret or a blank parts the two.
    Keyword KeywordOf(const Token& token) const {
        if (token.kind != TokenKind::Word || token.keyword == Keyword::None) return Keyword::None;
        if (index_ > 0 && IsPoint(tokens_[index_ - 1])) {
            const std::uint32_t end = tokens_[index_ - 1].End();
            if (end == token.begin && end != caret_) return Keyword::None;
        }
        return token.keyword;
    }
    bool NextIs(TokenKind kind) const {
        return index_ + 1 < tokens_.size() && tokens_[index_ + 1].kind == kind;
    }

    void Step(const Token& token) {
        switch (token.kind) {
            case TokenKind::LeftParen:
                return Open();
            case TokenKind::RightParen:
                if (frames_.size() > 1) Close();
                return;
            case TokenKind::Semicolon:
                EndColumn();
                if (frames_.size() == 1) Top() = Frame();
                return;
            case TokenKind::Comma:
                return Comma();
            case TokenKind::Star:
                if (Top().is_select && Top().clause == OutlineClause::Select && IsAllFields(index_))
                    ScopeOf(Top()).all_fields = true;
                return;
            case TokenKind::Point:
            case TokenKind::Bang:
                Top().name_goes_on = Top().aliased >= 0;
                return;
            default:
                break;
        }
        if (const Keyword keyword = KeywordOf(token); keyword != Keyword::None && Word(keyword)) return;
        if (IsNameToken(token)) Name(token);
    }

    /// Whether a star stands for all fields; else it multiplies.
    bool IsAllFields(std::size_t star) const {
        if (star == 0) return false;
        const Token& before = tokens_[star - 1];
        return before.kind == TokenKind::Comma || before.kind == TokenKind::LeftParen || IsPoint(before) ||
               (before.kind == TokenKind::Word && sql::IsReserved(before.keyword));
    }

    void Open() {
        const Frame& outer = Top();
        Frame frame;
        frame.scope = outer.scope;
        frame.clause = outer.clause;
        if (outer.clause == OutlineClause::From && outer.in_from) {
            frame.is_group = frame.in_from = frame.wants_table = outer.wants_table;
            if (!outer.wants_table) frame.clause = OutlineClause::Other;
            if (outer.scope != kNoScope)
                frame.first_table = frame.right_table =
                    outline_.scopes[static_cast<std::size_t>(outer.scope)].tables.size();
        } else if (outer.clause == OutlineClause::With) {
            frame.clause = OutlineClause::None;
        } else if (index_ > 0 && IsNameToken(tokens_[index_ - 1])) {
            const Keyword keyword = tokens_[index_ - 1].keyword;
            frame.is_call = !sql::IsReserved(keyword) || keyword == Keyword::Left ||
                            keyword == Keyword::Right || keyword == Keyword::Asc;
        }
        frames_.push_back(frame);
    }

    void Close() {
        EndColumn();
        const Frame inner = Top();
        frames_.pop_back();
        Frame& outer = Top();
        if (outer.clause == OutlineClause::With) {
            if (inner.is_select && !outline_.common_tables.empty())
                outline_.common_tables.back().scope = inner.scope;
            return;
        }
        if (outer.clause != OutlineClause::From || !outer.wants_table || outer.scope == kNoScope) return;
        outer.wants_table = false;
        if (!inner.is_select) return;
        ScopeOf(outer).tables.push_back({L"", L"", inner.scope});
        outer.aliased = static_cast<int>(ScopeOf(outer).tables.size()) - 1;
    }

    void Comma() {
        EndColumn();
        Frame& frame = Top();
        frame.aliased = -1;
        if (!frame.in_from || frame.is_call) return;
        frame.clause = OutlineClause::From;
        frame.wants_table = true;
        frame.wants_condition = false;
    }

    /// True when the word divides the statement; a word that does not is a name.
    bool Word(Keyword keyword) {
        Frame& frame = Top();
        switch (keyword) {
            case Keyword::Select:
                BeginSelect();
                return true;
            case Keyword::From:
                if (frame.is_call) return true;
                BeginFrom();
                return true;
            case Keyword::Where:
                return Begin(OutlineClause::Where);
            case Keyword::Group:
                return Begin(OutlineClause::GroupBy);
            case Keyword::Having:
                return Begin(OutlineClause::Having);
            case Keyword::Order:
                return Begin(OutlineClause::OrderBy);
            case Keyword::Union:
            case Keyword::Intersect:
            case Keyword::Except:
                return Begin(OutlineClause::None);
            case Keyword::Into:
                return Begin(OutlineClause::Other);
            case Keyword::With:
                if (frame.clause == OutlineClause::None) frame.clause = OutlineClause::With;
                return true;
            case Keyword::On:
                if (frame.in_from) {
                    frame.clause = OutlineClause::On;
                    frame.wants_table = frame.wants_condition = false;
                    frame.aliased = -1;
                }
                return true;
            case Keyword::Join:
            case Keyword::Apply:
                if (!frame.in_from) return keyword == Keyword::Join;
                frame.clause = OutlineClause::From;
                frame.wants_table = frame.wants_condition = true;
                frame.aliased = -1;
                frame.right_table = frame.scope == kNoScope ? 0 : ScopeOf(frame).tables.size();
                return true;
            case Keyword::Case:
                ++frame.cases;
                return true;
            case Keyword::End:
                frame.cases = std::max(0, frame.cases - 1);
                return true;
            case Keyword::As:
                return true;
            default:
                break;
        }
        if (!EndsTable(keyword) || NextIs(TokenKind::LeftParen)) return sql::IsReserved(keyword);
        if (frame.in_from && (frame.clause == OutlineClause::On || !frame.wants_table)) {
            const bool joins = keyword == Keyword::Left || keyword == Keyword::Right ||
                               keyword == Keyword::Inner || keyword == Keyword::Full ||
                               keyword == Keyword::Cross || keyword == Keyword::Natural;
            if (joins) frame.clause = OutlineClause::From;
            frame.aliased = -1;
            if (joins || !sql::IsReserved(keyword)) return true;
        }
        return sql::IsReserved(keyword);
    }

    bool Begin(OutlineClause clause) {
        EndColumn();
        Frame& frame = Top();
        frame.clause = clause;
        frame.in_from = frame.wants_table = frame.wants_condition = false;
        frame.aliased = -1;
        return true;
    }

    void BeginSelect() {
        EndColumn();
        Frame& frame = Top();
        const int around = frame.is_select ? ScopeOf(frame).parent : frame.scope;
        const int scope = NewScope(around);
        frame = Frame();
        frame.scope = scope;
        frame.is_select = true;
        frame.clause = OutlineClause::Select;
    }

    void BeginFrom() {
        if (!Top().is_select) BeginSelect();
        Begin(OutlineClause::From);
        Top().in_from = Top().wants_table = true;
    }

    void Name(const Token& token) {
        Frame& frame = Top();
        if (frame.clause == OutlineClause::With) {
            const bool begins = index_ > 0 && (tokens_[index_ - 1].kind == TokenKind::Comma ||
                                               tokens_[index_ - 1].keyword == Keyword::With ||
                                               tokens_[index_ - 1].keyword == Keyword::Recursive);
            if (begins && token.keyword != Keyword::Recursive)
                outline_.common_tables.push_back({TextOf(token), kNoScope});
            return;
        }
        if (frame.clause == OutlineClause::Select && frame.is_select) {
            frame.column_name = index_ + 1;
            return;
        }
        if (frame.scope == kNoScope || !frame.in_from) return;
        std::vector<OutlineTable>& tables = ScopeOf(frame).tables;
        if (frame.name_goes_on && frame.aliased >= 0) {
            tables[static_cast<std::size_t>(frame.aliased)].name = TextOf(token);
            frame.name_goes_on = false;
        } else if (frame.wants_table) {
            frame.wants_table = false;
            tables.push_back({TextOf(token), L"", kNoScope});
            frame.aliased = static_cast<int>(tables.size()) - 1;
        } else if (frame.aliased >= 0) {
            tables[static_cast<std::size_t>(frame.aliased)].alias = TextOf(token);
            frame.aliased = -1;
        }
    }

    /// The column of a select list that ends before the token at hand.
    void EndColumn() {
        Frame& frame = Top();
        const std::size_t name = std::exchange(frame.column_name, 0);
        if (name == 0 || name != index_ || frame.scope == kNoScope) return;
        OutlineScope& scope = ScopeOf(frame);
        scope.columns.push_back(TextOf(tokens_[name - 1]));
        if (name >= 2 && tokens_[name - 2].keyword == Keyword::As)
            scope.titles.push_back(scope.columns.back());
    }

    void NotePlace() {
        const Frame& frame = Top();
        CaretPlace& place = outline_.place;
        place.clause = frame.clause;
        place.scope = frame.scope;
        place.in_select_itself = frame.is_select || frame.is_group || frames_.size() == 1;
        place.wants_table = frame.wants_table;
        place.wants_condition = frame.wants_condition && !frame.wants_table;
        place.in_case = frame.cases > 0;
        place.first_table = frame.first_table;
        place.right_table = frame.right_table;
        place.end_table = frame.scope == kNoScope ? 0 : ScopeOf(frame).tables.size();
    }

    void FinishPlace() {
        CaretPlace& place = outline_.place;
        place.can_complete = !input_.blocked;
        place.name = {caret_, 0};
        if (input_.has_name) {
            const Token& token = tokens_[input_.at];
            place.name = token.Range();
            place.typed = std::wstring(text_.substr(token.begin, caret_ - token.begin));
            place.is_macro = token.kind == TokenKind::Macro;
        }
        const std::size_t at = input_.at;
        if (at == 0) {
            place.wants_value = true;
            return;
        }
        const Token& before = tokens_[at - 1];
        place.opens_parenthesis = before.kind == TokenKind::LeftParen;
        if (before.kind == TokenKind::Word) place.before = before.keyword;
        if (IsPoint(before) && before.End() == place.name.offset) {
            place.is_qualified = true;
            if (at >= 2 && IsNameToken(tokens_[at - 2])) place.qualifier = TextOf(tokens_[at - 2]);
        }
        place.wants_value = LeadsToValue(at - 1);
    }

    /// Whether a value follows the token, and not an operator.
    bool LeadsToValue(std::size_t index) const {
        const Token& token = tokens_[index];
        switch (token.kind) {
            case TokenKind::Word:
                if (index > 0 && IsPoint(tokens_[index - 1])) return false;
                switch (token.keyword) {
                    case Keyword::End:
                    case Keyword::Null:
                    case Keyword::True:
                    case Keyword::False:
                    case Keyword::Asc:
                    case Keyword::Desc:
                        return false;
                    case Keyword::Percent:
                        return true;
                    default:
                        return sql::IsReserved(token.keyword);
                }
            case TokenKind::BracketName:
            case TokenKind::BackQuoteName:
            case TokenKind::String:
            case TokenKind::QuotedText:
            case TokenKind::Number:
                // The count of TOP, not an operand.
                return index > 0 && tokens_[index - 1].keyword == Keyword::Top;
            case TokenKind::Date:
            case TokenKind::Macro:
            case TokenKind::Parameter:
            case TokenKind::RightParen:
            case TokenKind::RightBrace:
                return false;
            case TokenKind::Star:
                return !IsAllFields(index);
            default:
                return true;
        }
    }

    std::wstring_view text_;
    std::size_t caret_;
    CaretTokens input_;
    const std::vector<Token>& tokens_;
    std::size_t index_ = 0;
    std::vector<Frame> frames_;
    StatementOutline outline_;
};

}  // namespace

StatementOutline OutlineOf(std::wstring_view text, std::size_t caret) {
    return Outliner(text, std::min(caret, text.size())).Take();
}

}  // namespace tessel::controls
