#include "sqlparser/formatter.h"

#include <algorithm>
#include <utility>

#include "sqlparser/format_tokens.h"

namespace tessel::sql {

namespace {

constexpr std::size_t kStep = 4;
constexpr std::wstring_view kLineEnd = L"\r\n";

/// The words that join two conditions.
bool IsConnective(Keyword keyword) {
    return keyword == Keyword::And || keyword == Keyword::Or || keyword == Keyword::Xor ||
           keyword == Keyword::Eqv || keyword == Keyword::Imp;
}

bool IsSetOperator(Keyword keyword) {
    return keyword == Keyword::Union || keyword == Keyword::Intersect || keyword == Keyword::Except;
}

class Formatter {
public:
    explicit Formatter(std::wstring_view text) : tokens_(text) {
        out_.reserve(text.size() + text.size() / 4);
    }

    std::wstring Take() {
        Query(0, tokens_.Size(), 0);
        // A comment to the end of its line would go on with what is typed behind it.
        return std::move(out_);
    }

private:
    // Writing.

    void NewLine(std::size_t indent) {
        indent_ = indent;
        must_break_ = false;
        if (out_.empty()) return;
        if (fresh_) {
            // The line has nothing yet but another indentation.
            out_.resize(out_.size() - column_);
        } else {
            if (tokens_.IsBareMacro(last_)) out_ += L' ';
            out_ += kLineEnd;
        }
        out_.append(indent, L' ');
        column_ = indent;
        fresh_ = true;
    }

    void Put(std::size_t index) {
        if ((must_break_ || tokens_[index].own_line) && !fresh_) NewLine(indent_);
        must_break_ = false;
        if (!fresh_ && tokens_.HasBlankBefore(index)) {
            out_ += L' ';
            ++column_;
        }
        const std::wstring_view text = tokens_.Text(index);
        out_ += text;
        const std::size_t line_break = text.find_last_of(L"\r\n");
        column_ =
            line_break == std::wstring_view::npos ? column_ + text.size() : text.size() - line_break - 1;
        fresh_ = false;
        last_ = index;
        must_break_ = tokens_.IsComment(index) && tokens_[index].ends_line;
    }
    void Put(std::size_t begin, std::size_t end) {
        for (std::size_t i = begin; i < end; ++i) Put(i);
    }

    bool Fits(std::size_t begin, std::size_t end) const {
        if (begin >= end) return true;
        if (must_break_ || !tokens_.CanBeFlat(begin, end)) return false;
        const std::size_t blank = !fresh_ && tokens_.HasBlankBefore(begin) ? 1 : 0;
        return column_ + blank + tokens_.Width(begin, end) <= kFormatWidth;
    }

    // Looking.

    std::size_t Next(std::size_t index) const { return tokens_[index].partner + 1; }
    std::size_t SkipComments(std::size_t begin, std::size_t end) const {
        while (begin < end && tokens_.IsComment(begin)) ++begin;
        return begin;
    }
    Keyword KeywordAfter(std::size_t index) const {
        return tokens_.KeywordAt(SkipComments(index + 1, tokens_.Size()));
    }
    bool IsFollowedByCount(std::size_t index) const {
        const std::size_t next = SkipComments(index + 1, tokens_.Size());
        return tokens_.Is(next, TokenKind::Number) || tokens_.Is(next, TokenKind::Macro) ||
               tokens_.Is(next, TokenKind::Parameter) || tokens_.KeywordAt(next) == Keyword::All;
    }

    bool BeginsClause(std::size_t index, std::size_t query) const {
        const Keyword keyword = tokens_.KeywordAt(index);
        const Keyword next = KeywordAfter(index);
        switch (keyword) {
            case Keyword::Select:
            case Keyword::From:
            case Keyword::Where:
            case Keyword::Having:
            case Keyword::Union:
            case Keyword::Intersect:
            case Keyword::Except:
            case Keyword::Into:
                return true;
            case Keyword::Group:
            case Keyword::Order:
                return next == Keyword::By;
            case Keyword::With:
                return index == query || next == Keyword::OwnerAccess;
            case Keyword::Limit:
            case Keyword::Offset:
                return IsFollowedByCount(index);
            case Keyword::Fetch:
                return next == Keyword::First || next == Keyword::Next;
            case Keyword::For:
                return next == Keyword::Update || next == Keyword::Browse || next == Keyword::Read;
            case Keyword::Pivot:
                return index > query && !tokens_.Is(index + 1, TokenKind::Point);
            default:
                break;
        }
        if (index == 0) return false;
        // What follows ";", and an operand of UNION in parentheses.
        if (tokens_.Is(index - 1, TokenKind::Semicolon)) return !tokens_.Is(index, TokenKind::Semicolon);
        if (!tokens_.Is(index, TokenKind::LeftParen)) return false;
        const Keyword before = tokens_.KeywordAt(index - 1);
        const bool has_second = before == Keyword::All || before == Keyword::Distinct;
        return IsSetOperator(has_second && index > 1 ? tokens_.KeywordAt(index - 2) : before);
    }

    /// Whether a select stands there, itself perhaps in parentheses.
    bool IsQuery(std::size_t begin, std::size_t end) const {
        begin = SkipComments(begin, end);
        if (begin >= end) return false;
        const Keyword keyword = tokens_.KeywordAt(begin);
        if (keyword == Keyword::Select || keyword == Keyword::With) return true;
        if (keyword == Keyword::Transform) return KeywordAfter(begin) != Keyword::None;
        if (!tokens_.Is(begin, TokenKind::LeftParen)) return false;
        const std::size_t next = SkipComments(Next(begin), end);
        return next < end && IsSetOperator(tokens_.KeywordAt(next));
    }

    bool BeginsJoin(std::size_t index) const {
        const Keyword keyword = tokens_.KeywordAt(index);
        const auto before = [&] { return index > 0 ? tokens_.KeywordAt(index - 1) : Keyword::None; };
        switch (keyword) {
            case Keyword::Left:
            case Keyword::Right:
            case Keyword::Inner:
            case Keyword::Full:
            case Keyword::Cross:
            case Keyword::Outer: {
                const Keyword next = KeywordAfter(index);
                const bool joins = next == Keyword::Join || next == Keyword::Outer || next == Keyword::Apply;
                return joins && before() != Keyword::Natural && !GoesBeforeJoin(before());
            }
            case Keyword::Natural:
                return !tokens_.Is(index + 1, TokenKind::Point) && KeywordAfter(index) != Keyword::None;
            case Keyword::Join:
                return !GoesBeforeJoin(before());
            default:
                return false;
        }
    }
    static bool GoesBeforeJoin(Keyword keyword) {
        return keyword == Keyword::Left || keyword == Keyword::Right || keyword == Keyword::Inner ||
               keyword == Keyword::Full || keyword == Keyword::Cross || keyword == Keyword::Outer ||
               keyword == Keyword::Natural;
    }

    // Queries and clauses.

    void Query(std::size_t begin, std::size_t end, std::size_t indent) {
        const std::size_t first = SkipComments(begin, end);
        std::size_t at = begin;
        while (at < end) {
            std::size_t stop = Next(SkipComments(at, end - 1));
            while (stop < end && !BeginsClause(stop, first)) stop = Next(stop);
            stop = std::min(stop, end);
            // Comments on lines of their own belong to the clause that they stand before.
            while (stop < end && stop > at + 1 && tokens_[stop - 1].own_line) --stop;
            if (at != begin) NewLine(indent);
            Clause(at, stop, indent);
            at = stop;
        }
    }

    void Clause(std::size_t begin, std::size_t end, std::size_t indent) {
        indent_ = indent;
        const std::size_t head = SkipComments(begin, end);
        Put(begin, head);
        if (head == end) return;
        const Keyword keyword = tokens_.KeywordAt(head);
        switch (keyword) {
            case Keyword::Select:
                return List(head, EndOfSelectHead(head, end), end, indent);
            case Keyword::Group:
            case Keyword::Order:
                return List(head, std::min(head + 2, end), end, indent);
            case Keyword::Values:
                return List(head, head + 1, end, indent);
            case Keyword::From:
                if (Fits(head, end)) return Put(head, end);
                Put(head);
                return From(head + 1, end, indent);
            case Keyword::Where:
            case Keyword::Having:
                Put(head);
                return Condition(head + 1, end, indent + kStep);
            default:
                return Expression(head, end, indent);
        }
    }

    std::size_t EndOfSelectHead(std::size_t select, std::size_t end) const {
        std::size_t at = select + 1;
        for (; at < end; ++at) {
            const Keyword keyword = tokens_.KeywordAt(at);
            if (tokens_.IsComment(at) || keyword == Keyword::Distinct || keyword == Keyword::DistinctRow ||
                keyword == Keyword::All)
                continue;
            if (keyword != Keyword::Top || at + 1 >= end) break;
            const bool has_count = IsFollowedByCount(at) || tokens_.Is(at + 1, TokenKind::LeftParen);
            if (!has_count) break;
            at = tokens_[at + 1].partner;
            if (tokens_.KeywordAt(at + 1) == Keyword::Percent) ++at;
            if (tokens_.KeywordAt(at + 1) == Keyword::With) at += 2;
        }
        return std::min(at, end);
    }

    /// The end of the entry that begins there: behind its comma and what comments it.
    std::size_t EndOfEntry(std::size_t begin, std::size_t end) const {
        std::size_t at = begin;
        while (at < end && !tokens_.Is(at, TokenKind::Comma)) at = Next(at);
        if (at >= end) return end;
        ++at;
        while (at < end && tokens_.IsComment(at) && !tokens_[at].own_line && tokens_[at].ends_line) ++at;
        return at;
    }

    void List(std::size_t begin, std::size_t entries, std::size_t end, std::size_t indent) {
        if (Fits(begin, end)) return Put(begin, end);
        Put(begin, entries);
        const bool is_single = EndOfEntry(entries, end) == end;
        for (std::size_t at = entries; at < end;) {
            const std::size_t stop = EndOfEntry(at, end);
            if (!is_single) NewLine(indent + kStep);
            Expression(at, stop, is_single ? indent : indent + kStep);
            at = stop;
        }
    }

    // Tables.

    void From(std::size_t begin, std::size_t end, std::size_t indent) {
        indent_ = indent + kStep;
        for (std::size_t at = begin; at < end;) {
            if (tokens_.KeywordAt(at) == Keyword::On) {
                at = On(at, end, indent + kStep);
                indent_ = indent + kStep;
                continue;
            }
            if (at > begin && BeginsJoin(at)) NewLine(indent + kStep);
            if (tokens_.Is(at, TokenKind::LeftParen)) {
                Tables(at, indent + kStep);
                indent_ = indent + kStep;
            } else if (tokens_.Is(at, TokenKind::Comma)) {
                const std::size_t stop = EndOfEntry(at, end);
                Put(at, stop);
                NewLine(indent + kStep);
                at = stop;
                continue;
            } else {
                Put(at);
            }
            at = Next(at);
        }
    }

    void Tables(std::size_t open, std::size_t indent) {
        const std::size_t close = tokens_[open].partner;
        if (Fits(open, close + 1) || IsQuery(open + 1, close)) return Group(open, indent);
        Put(open);
        From(open + 1, close, indent);
        Put(close);
    }

    std::size_t On(std::size_t begin, std::size_t end, std::size_t indent) {
        std::size_t stop = Next(begin);
        while (stop < end && !BeginsJoin(stop) && !tokens_.Is(stop, TokenKind::Comma) &&
               tokens_.KeywordAt(stop) != Keyword::On)
            stop = Next(stop);
        stop = std::min(stop, end);
        if (Fits(begin, stop)) {
            Put(begin, stop);
        } else {
            NewLine(indent + kStep);
            Put(begin);
            Condition(begin + 1, stop, indent + 2 * kStep);
        }
        return stop;
    }

    // Expressions.

    bool IsBreak(std::size_t index, bool& between) const {
        const Keyword keyword = tokens_.KeywordAt(index);
        if (keyword == Keyword::Between) between = true;
        if (!IsConnective(keyword)) return false;
        if (keyword == Keyword::And && between) {
            between = false;
            return false;
        }
        return true;
    }

    bool HasBreak(std::size_t begin, std::size_t end) const {
        bool between = false;
        for (std::size_t at = begin; at < end; at = Next(at))
            if (IsBreak(at, between)) return true;
        return false;
    }

    /// Every AND and OR of this level begins a line.
    void Condition(std::size_t begin, std::size_t end, std::size_t indent) {
        indent_ = indent;
        bool between = false;
        for (std::size_t at = begin; at < end; at = Next(at)) {
            if (IsBreak(at, between)) NewLine(indent);
            PutOrGroup(at, indent);
        }
    }

    void Expression(std::size_t begin, std::size_t end, std::size_t indent) {
        indent_ = indent + kStep;
        for (std::size_t at = begin; at < end; at = Next(at)) PutOrGroup(at, indent);
    }

    void PutOrGroup(std::size_t at, std::size_t indent) {
        if (tokens_[at].partner == at) return Put(at);
        const std::size_t before = indent_;
        Group(at, indent);
        indent_ = before;
    }

    void Group(std::size_t open, std::size_t indent) {
        const std::size_t close = tokens_[open].partner;
        if (Fits(open, close + 1)) return Put(open, close + 1);
        if (!tokens_.Is(open, TokenKind::LeftParen)) return Case(open, close, indent);
        Put(open);
        if (IsQuery(open + 1, close)) {
            NewLine(indent + kStep);
            Query(open + 1, close, indent + kStep);
            NewLine(indent);
        } else if (HasBreak(open + 1, close)) {
            Condition(open + 1, close, indent + kStep);
        } else {
            Arguments(open + 1, close, indent);
        }
        Put(close);
    }

    void Arguments(std::size_t begin, std::size_t end, std::size_t indent) {
        const bool is_single = EndOfEntry(begin, end) == end;
        for (std::size_t at = begin; at < end;) {
            const std::size_t stop = EndOfEntry(at, end);
            if (at != begin) NewLine(indent + kStep);
            Expression(at, stop, is_single ? indent : indent + kStep);
            at = stop;
        }
    }

    void Case(std::size_t open, std::size_t close, std::size_t indent) {
        Put(open);
        indent_ = indent + kStep;
        for (std::size_t at = open + 1; at < close; at = Next(at)) {
            const Keyword keyword = tokens_.KeywordAt(at);
            if (keyword == Keyword::When || keyword == Keyword::Else) NewLine(indent + kStep);
            PutOrGroup(at, indent + kStep);
        }
        NewLine(indent);
        Put(close);
    }

    FormatTokens tokens_;
    std::wstring out_;
    std::size_t column_ = 0;
    std::size_t indent_ = 0;   ///< of a line that a comment makes necessary
    std::size_t last_ = 0;     ///< the token written last
    bool fresh_ = true;        ///< the line has its indentation only
    bool must_break_ = false;  ///< a comment ended the line
};

}  // namespace

std::wstring Format(std::wstring_view text) {
    return Formatter(text).Take();
}

}  // namespace tessel::sql
