#include "tests/laws/side_by_side.h"

#include "analyse/normal_form.h"
#include "analyse/side_by_side.h"
#include "common/text.h"
#include "sqlparser/lexer.h"
#include "sqlparser/sql_parser.h"

namespace tessel::laws {

namespace {

struct Token {
    std::wstring before;  ///< the blanks
    std::wstring text;
};

std::vector<Token> TokensOf(const std::wstring& statement) {
    std::vector<Token> tokens;
    sql::Lexer lexer(statement);
    std::size_t end = 0;
    for (sql::Token token = lexer.NextSignificant(); token.kind != sql::TokenKind::End;
         token = lexer.NextSignificant()) {
        tokens.push_back(
            {statement.substr(end, token.begin - end), statement.substr(token.begin, token.length)});
        end = token.End();
    }
    return tokens;
}

/// Words and signs of which one is easily taken for the other.
const std::vector<std::vector<std::wstring>> kKin = {
    {L"INNER", L"LEFT", L"RIGHT"}, {L"AND", L"OR"},   {L"=", L"<>", L"<", L">", L"<=", L">="},
    {L"True", L"False", L"Null"},  {L"ASC", L"DESC"}, {L"+", L"-", L"*", L"/"},
    {L"WHERE", L"HAVING"},         {L"(", L"NOT ("},  {L"SELECT", L"SELECT DISTINCTROW", L"SELECT TOP 1"}};

const std::wstring* KinOf(const std::wstring& text, Random& random) {
    for (const std::vector<std::wstring>& kin : kKin) {
        for (const std::wstring& one : kin) {
            if (SameIgnoringCase(one, text)) return &random.Of(kin);
        }
    }
    return nullptr;
}

}  // namespace

bool IsTakenUnparsed(const std::wstring& original, const std::wstring& text, const schema::Schema* schema) {
    sql::SqlParser parser;
    if (parser.Parse(original) || !parser.GetStatement()) return false;
    analyse::Forms forms;
    const analyse::StatementScope scope(*parser.GetStatement(), schema, forms);
    return ReadsAlike(scope, analyse::Canonical(scope), text);
}

std::string UnfoundedReading(const std::wstring& original, const std::wstring& text,
                             const schema::Schema* schema) {
    if (!IsTakenUnparsed(original, text, schema)) return {};
    sql::SqlParser first;
    sql::SqlParser second;
    const std::string pair = ToUtf8(original) + "\n" + ToUtf8(text);
    if (first.Parse(original) || second.Parse(text)) return "does not parse:\n" + pair;
    analyse::Forms forms;
    const analyse::StatementScope first_scope(*first.GetStatement(), schema, forms);
    const analyse::StatementScope second_scope(*second.GetStatement(), schema, forms);
    const auto difference =
        FirstDifference(Normalise(first_scope, analyse::Canonical(first_scope)),
                        Normalise(second_scope, analyse::Canonical(second_scope)), analyse::LeftOut());
    return difference ? "differs:\n" + pair : std::string();
}

std::wstring Spoilt(const std::wstring& statement, Random& random) {
    std::vector<Token> tokens = TokensOf(statement);
    if (tokens.empty()) return statement;
    const auto any = [&] { return random.Pick(0, static_cast<int>(tokens.size()) - 1); };
    const int at = any();
    std::wstring& text = tokens[static_cast<std::size_t>(at)].text;
    switch (random.Pick(0, 4)) {
        case 0:
            tokens.erase(tokens.begin() + at);
            break;
        case 1:
            text += L' ' + text;
            break;
        case 2:
            std::swap(text, tokens[static_cast<std::size_t>(any())].text);
            break;
        case 3:
            text = tokens[static_cast<std::size_t>(any())].text;
            break;
        default:
            if (const std::wstring* kin = KinOf(text, random)) text = *kin;
            break;
    }
    std::wstring spoilt;
    for (const Token& token : tokens) spoilt += token.before + token.text;
    return spoilt;
}

}  // namespace tessel::laws
