#include "controls/editor/brace_match.h"

#include <algorithm>

namespace tessel::controls {

namespace {

struct Pair {
    char open = 0;
    char close = 0;
};

constexpr Pair kPairs[] = {{'(', ')'}, {'{', '}'}};

const Pair* PairOf(char ch) {
    for (const Pair& pair : kPairs)
        if (ch == pair.open || ch == pair.close) return &pair;
    return nullptr;
}

}  // namespace

bool IsParenthesis(char ch) {
    return PairOf(ch) != nullptr;
}

Partner FindPartner(std::string_view bytes, std::size_t at, std::size_t limit,
                    const std::function<bool(std::size_t)>& is_code) {
    const Pair* pair = at < bytes.size() ? PairOf(bytes[at]) : nullptr;
    if (!pair) return {};
    const bool forward = bytes[at] == pair->open;
    const std::size_t all = forward ? bytes.size() - 1 - at : at;
    const std::size_t room = std::min(limit, all);
    int depth = 1;
    for (std::size_t step = 1; step <= room; ++step) {
        const std::size_t place = forward ? at + step : at - step;
        const char ch = bytes[place];
        if ((ch != pair->open && ch != pair->close) || !is_code(place)) continue;
        depth += ch == bytes[at] ? 1 : -1;
        if (depth == 0) return {PartnerSearch::Found, place};
    }
    return {room == all ? PartnerSearch::Missing : PartnerSearch::TooFar, 0};
}

std::optional<BracketName> BracketNameAt(std::wstring_view line, sql::LexerState state, std::size_t at) {
    sql::Lexer lexer(line, 0, state);
    for (sql::Token token = lexer.Next(); token.kind != sql::TokenKind::End && token.begin <= at;
         token = lexer.Next()) {
        if (token.kind != sql::TokenKind::BracketName || at >= token.End()) continue;
        const bool is_closed = !(token.flags & sql::kUnterminated);
        // A name that began on another line has its "[" there.
        if (line[token.begin] != L'[') return std::nullopt;
        if (at == token.begin || (is_closed && at + 1 == token.End()))
            return BracketName{token.Range(), is_closed};
        return std::nullopt;
    }
    return std::nullopt;
}

}  // namespace tessel::controls
