// Lexer, parser, printer, dump, syntax tree and colouring on any text.
#include "analyse/syntax_tree.h"
#include "controls/editor/sql_colouring.h"
#include "controls/editor/sql_ini.h"
#include "sqlparser/dump.h"
#include "sqlparser/lexer.h"
#include "sqlparser/printer.h"
#include "sqlparser/sql_parser.h"
#include "tests/fuzz/fuzz_input.h"

using namespace tessel;
using fuzz::Check;

namespace {

void TokensCoverTheText(const std::wstring& text) {
    sql::Lexer lexer(text);
    std::size_t at = 0;
    for (sql::Token token = lexer.Next(); token.kind != sql::TokenKind::End; token = lexer.Next()) {
        Check(token.begin == at && token.length > 0, "tokens follow each other", text);
        at = token.End();
    }
    Check(at == text.size(), "tokens reach the end", text);
}

void ColouringByLinesIsColouringTheWhole(const std::wstring& text) {
    static const controls::ColouringDefinition definition = controls::BuiltInColouring();
    const std::vector<controls::SqlStyle> whole = controls::ColourText(text, definition.words);
    std::vector<controls::SqlStyle> by_lines;
    sql::LexerState state;
    for (std::wstring_view rest = text; !rest.empty();) {
        const std::size_t length = controls::LineLength(rest);
        for (const controls::StyleRun& run :
             controls::ColourLine(rest.substr(0, length), definition.words, state))
            by_lines.insert(by_lines.end(), run.length, run.style);
        state = controls::UnpackState(controls::PackState(state));
        rest.remove_prefix(length);
    }
    Check(whole == by_lines, "colours by line are the colours of the whole", text);
}

void RangesLieInside(const std::vector<analyse::TreeNode>& nodes, const std::wstring& text) {
    for (const analyse::TreeNode& node : nodes) {
        Check(!node.range || node.range->End() <= text.size(), "a tree node's range lies in the text", text);
        RangesLieInside(node.children, text);
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::wstring text = fuzz::InputText(data, size);
    TokensCoverTheText(text);
    ColouringByLinesIsColouringTheWhole(text);
    sql::SqlParser parser;
    const bool failed = parser.Parse(text);
    Check(failed == !parser.Errors().empty(), "a failure has errors, a success none", text);
    for (const Diagnostic& error : parser.Errors()) {
        Check(error.range.End() <= text.size(), "an error's range lies in the text", text);
        Check(!error.message.empty() && error.line >= 1 && error.column >= 1, "an error says what and where",
              text);
    }
    if (const sql::Statement* statement = parser.GetStatement())
        RangesLieInside(analyse::ShowTree(*statement), text);
    if (failed) return 0;
    const sql::Statement* statement = parser.GetStatement();
    Check(statement != nullptr, "a success has a statement", text);
    const std::wstring dump = sql::Dump(*statement);
    const std::wstring printed = sql::Print(*statement);
    sql::SqlParser again;
    Check(!again.Parse(printed), "what was printed parses", text, printed);
    Check(sql::Dump(*again.GetStatement()) == dump, "what was printed is the same tree", text, printed);
    return 0;
}
