#include "tests/laws/respelling.h"

#include "common/text.h"
#include "sqlparser/lexer.h"
#include "tests/analyse/support.h"

namespace tessel::laws {

namespace {

constexpr int kCasePercent = 30;
constexpr int kGapPercent = 15;

std::wstring InOtherCase(std::wstring_view word, Random& random) {
    if (!random.Chance(kCasePercent)) return std::wstring(word);
    const bool lower = random.Chance(50);
    std::wstring spelled;
    for (const wchar_t ch : word) {
        const bool plain = ch < 128;
        spelled += lower                               ? LowerChar(ch)
                   : plain && ch >= L'a' && ch <= L'z' ? static_cast<wchar_t>(ch - 32)
                                                       : ch;
    }
    return spelled;
}

std::wstring Gap(Random& random) {
    static const std::vector<std::wstring> gaps = {L" ",  L"  ",        L"\t",           L"\r\n",
                                                   L"\n", L" /* , */ ", L" -- a(b'\r\n", L"\r\n    "};
    return random.Of(gaps);
}

/// A gap here would change the text: a point belongs to its names, and some readers take a function's name
/// only right before its parenthesis.
bool MayPart(sql::TokenKind before, sql::TokenKind after) {
    using sql::TokenKind;
    if (before == TokenKind::Point || after == TokenKind::Point) return false;
    if (before == TokenKind::Word && after == TokenKind::LeftParen) return false;
    return before != TokenKind::Number && after != TokenKind::Number;
}

}  // namespace

std::wstring Respelled(std::wstring_view text, Random& random) {
    std::wstring spelled;
    sql::TokenKind before = sql::TokenKind::Point;
    sql::Lexer lexer(text);
    for (sql::Token token = lexer.Next(); token.kind != sql::TokenKind::End; token = lexer.Next()) {
        const std::wstring_view slice = text.substr(token.begin, token.length);
        if (token.kind == sql::TokenKind::Space) {
            spelled += random.Chance(60) ? std::wstring(slice) : Gap(random);
            before = sql::TokenKind::Point;
            continue;
        }
        if (MayPart(before, token.kind) && random.Chance(kGapPercent)) spelled += Gap(random);
        const bool is_name = token.kind == sql::TokenKind::Word || token.kind == sql::TokenKind::BracketName;
        spelled += is_name ? InOtherCase(slice, random) : std::wstring(slice);
        before = token.kind;
    }
    if (random.Chance(20)) spelled = Gap(random) + spelled;
    if (random.Chance(40)) spelled += random.Chance(50) ? L";" : L" ; \r\n";
    return spelled;
}

std::vector<std::wstring> DesignLines(const model::Design& design) {
    std::vector<std::wstring> lines = {design.distinct ? L"DISTINCT" : L"every row"};
    for (const std::wstring& name : test::TableNames(design)) lines.push_back(L"table " + name);
    for (const std::wstring& relation : test::RelationTexts(design)) lines.push_back(L"relation " + relation);
    for (const std::wstring& column : test::ColumnTexts(design)) lines.push_back(L"column " + column);
    return lines;
}

std::wstring WithoutSpelling(std::wstring_view text) {
    std::wstring words;
    sql::Lexer lexer(text);
    for (sql::Token token = lexer.NextSignificant(); token.kind != sql::TokenKind::End;
         token = lexer.NextSignificant()) {
        const std::wstring_view slice = text.substr(token.begin, token.length);
        words += token.kind == sql::TokenKind::String ? std::wstring(slice) : Lower(slice);
        words += L' ';
    }
    return words;
}

}  // namespace tessel::laws
