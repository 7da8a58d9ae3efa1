#include "tools/commands.h"

#include <algorithm>
#include <cstddef>
#include <functional>
#include <istream>
#include <iterator>
#include <map>
#include <memory>
#include <optional>
#include <ostream>

#include "analyse/analyse_sql.h"
#include "analyse/syntax_tree.h"
#include "common/mdl_global.h"
#include "common/text.h"
#include "compose/compose.h"
#include "sqlparser/sql_parser.h"
#include "tools/design_json.h"
#include "tools/help_text.h"
#include "tools/macro_commands.h"
#include "tools/schema_json.h"
#include "tools/utf8_file.h"

namespace tessel::tools {

namespace {

struct Options {
    std::string verb;
    std::optional<std::string> operand;
    std::shared_ptr<schema::Schema> schema;
    bool batch = false;
};

struct Streams {
    std::istream& in;
    std::ostream& out;
    std::ostream& err;
};

/// Says why there is no answer, on one line whatever the reason quotes.
int Refuse(const Streams& streams, int status, std::wstring_view reason) {
    std::string line = ToUtf8(reason);
    std::ranges::replace_if(
        line, [](char ch) { return ch == '\r' || ch == '\n'; }, ' ');
    streams.err << "tesselsql: " << line << '\n';
    return status;
}

/// The text of the file named by the operand, or of the input.
Result<std::string> ReadInput(const Options& options, std::istream& in) {
    if (options.operand && *options.operand != "-") return ReadUtf8File(*options.operand);
    return WithoutByteOrderMark(std::string(std::istreambuf_iterator<char>(in), {}));
}

/// The text without the line break that ends its last line.
std::wstring WithoutLastBreak(std::string text) {
    if (text.ends_with('\n')) {
        text.pop_back();
        if (text.ends_with('\r')) text.pop_back();
    }
    return FromUtf8(text);
}

/// The text of a helper verb: the operand itself, or the input.
std::wstring HelperText(const Options& options, std::istream& in) {
    if (options.operand) return FromUtf8(*options.operand);
    return WithoutLastBreak(std::string(std::istreambuf_iterator<char>(in), {}));
}

Result<Json> ParseJson(const std::string& text) {
    Json json = Json::parse(text, nullptr, false);
    if (json.is_discarded()) return Error{L"la entrada no es JSON válido"};
    return json;
}

/// The pieces of a batch: statements between lines that hold only "---".
std::vector<std::string> SplitBatch(const std::string& text) {
    std::vector<std::string> statements;
    std::string current;
    std::size_t start = 0;
    while (start <= text.size()) {
        const std::size_t end = text.find('\n', start);
        const bool last = end == std::string::npos;
        const std::string line = text.substr(start, last ? std::string::npos : end + 1 - start);
        if (line == "---" || line == "---\n" || line == "---\r\n") {
            statements.push_back(std::move(current));
            current.clear();
        } else {
            current += line;
        }
        if (last) break;
        start = end + 1;
    }
    // A separator at the end closes the last statement; it does not begin an empty one.
    if (statements.empty() || !IsAllWhiteSpace(FromUtf8(current))) statements.push_back(std::move(current));
    return statements;
}

Json AnswerOf(const std::wstring& statement, const Options& options, bool with_sql) {
    model::Design design;
    design.grid.LoadColumns();
    design.diagram.Bind(options.schema.get());
    const analyse::Analysis analysis = analyse::AnalyseSQL(statement, design);
    Json answer;
    answer["parsed"] = analysis.parsed;
    answer["accepted"] = analysis.accepted;
    answer["messages"] = Json::array();
    for (const std::wstring& message : analysis.messages) answer["messages"].push_back(ToUtf8(message));
    answer["design"] = DesignToJson(design);
    if (with_sql) answer["sql"] = analysis.accepted ? ToUtf8(compose::BuildSQL(design)) : std::string();
    if (analysis.error) {
        answer["error"]["line"] = analysis.error->line;
        answer["error"]["column"] = analysis.error->column;
        answer["error"]["length"] = analysis.error->range.length;
        answer["error"]["message"] = ToUtf8(analysis.error->message);
    }
    return answer;
}

int Analyse(const Options& options, const Streams& streams, bool with_sql) {
    const Result<std::string> input = ReadInput(options, streams.in);
    if (!input) return Refuse(streams, kUnusable, input.Reason().message);
    if (!options.batch) {
        streams.out << AnswerOf(WithoutLastBreak(*input), options, with_sql).dump() << '\n';
        return kDone;
    }
    for (std::string& statement : SplitBatch(*input))
        streams.out << AnswerOf(WithoutLastBreak(std::move(statement)), options, with_sql).dump() << '\n';
    return kDone;
}

int Compose(const Options& options, const Streams& streams) {
    const Result<std::string> input = ReadInput(options, streams.in);
    if (!input) return Refuse(streams, kUnusable, input.Reason().message);
    const Result<Json> json = ParseJson(*input);
    if (!json) return Refuse(streams, kUnusable, json.Reason().message);
    // What design and roundtrip print can be given back as it is.
    const Json* design_json = &*json;
    if (design_json->is_object() && design_json->contains("design")) design_json = &(*design_json)["design"];
    model::Design design;
    design.diagram.Bind(options.schema.get());
    if (const auto error = ReadDesign(*design_json, design))
        return Refuse(streams, kUnusable, error->message);
    streams.out << ToUtf8(compose::BuildSQL(design));
    return kDone;
}

void PrintTree(const std::vector<analyse::TreeNode>& nodes, int level, std::ostream& out) {
    for (const analyse::TreeNode& node : nodes) {
        out << std::string(static_cast<std::size_t>(level) * 2, ' ') << ToUtf8(node.key) << '\t'
            << ToUtf8(node.text) << '\n';
        PrintTree(node.children, level + 1, out);
    }
}

int Tree(const Options& options, const Streams& streams) {
    const Result<std::string> input = ReadInput(options, streams.in);
    if (!input) return Refuse(streams, kUnusable, input.Reason().message);
    sql::SqlParser parser;
    if (parser.Parse(WithoutLastBreak(*input)) || !parser.GetStatement()) {
        const auto& errors = parser.Errors();
        return Refuse(streams, kNoAnswer,
                      errors.empty() ? L"no se pudo analizar la instrucción"
                                     : L"línea " + std::to_wstring(errors[0].line) + L", columna " +
                                           std::to_wstring(errors[0].column) + L": " + errors[0].message);
    }
    PrintTree(analyse::ShowTree(*parser.GetStatement()), 0, streams.out);
    return kDone;
}

int Aggregate(const Options& options, const Streams& streams) {
    streams.out << (IsAggregate(HelperText(options, streams.in)) ? 1 : 0) << '\n';
    return kDone;
}

int StripParens(const Options& options, const Streams& streams) {
    std::wstring text = HelperText(options, streams.in);
    const Result<std::wstring> stripped = StripOuterParens(text);
    if (!stripped) {
        streams.err << ToUtf8(stripped.Reason().message) << '\n';
        return kNoAnswer;
    }
    streams.out << ToUtf8(*stripped) << '\n';
    return kDone;
}

int AdoClass(const Options& options, const Streams& streams) {
    streams.out << static_cast<int>(ADOTypeClass(HelperText(options, streams.in))) << '\n';
    return kDone;
}

int Descending(const Options& options, const Streams& streams) {
    std::wstring item = HelperText(options, streams.in);
    const bool descending = compose::IsDescending(item);
    streams.out << (descending ? 1 : 0) << '\t' << ToUtf8(compose::StripDescending(item)) << '\n';
    return kDone;
}

/// What a verb takes besides its name.
enum class Takes { Text, Statement, Design };

struct Verb {
    std::function<int(const Options&, const Streams&)> run;
    Takes takes = Takes::Text;
    bool batch = false;
};

const std::map<std::string, Verb>& Verbs() {
    static const std::map<std::string, Verb> kVerbs = {
        {"compose", {Compose, Takes::Design}},
        {"design",
         {[](const Options& o, const Streams& s) { return Analyse(o, s, false); }, Takes::Statement, true}},
        {"roundtrip",
         {[](const Options& o, const Streams& s) { return Analyse(o, s, true); }, Takes::Statement, true}},
        {"tree", {Tree, Takes::Statement}},
        {"aggregate", {Aggregate}},
        {"strip-parens", {StripParens}},
        {"ado-class", {AdoClass}},
        {"descending", {Descending}},
    };
    return kVerbs;
}

using Arguments = std::vector<std::string>;

std::optional<Error> ReadSchemaFile(const std::string& path, Options& options) {
    const Result<std::string> text = ReadUtf8File(path);
    if (!text) return text.Reason();
    const Result<Json> json = ParseJson(*text);
    if (!json) return Error{L"el archivo de --schema no es JSON válido"};
    Result<std::shared_ptr<schema::Schema>> schema = ReadSchema(*json);
    if (!schema) return schema.Reason();
    options.schema = *schema;
    return std::nullopt;
}

Error Surplus(const std::string& argument) {
    return {L"sobra un argumento: " + FromUtf8(argument)};
}

/// A helper verb has no options, so that any text can be given to it; "--" may stand before the text.
std::optional<Error> ReadText(Arguments arguments, Options& options) {
    if (arguments.size() > 1 && arguments.front() == "--") arguments.erase(arguments.begin());
    if (arguments.size() > 1) return Surplus(arguments[1]);
    if (!arguments.empty()) options.operand = arguments.front();
    return std::nullopt;
}

std::optional<Error> ReadOptions(const Arguments& arguments, const Verb& verb, Options& options) {
    bool only_operands = false;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const std::string& argument = arguments[i];
        if (!only_operands && argument == "--") {
            only_operands = true;
        } else if (!only_operands && argument == "--batch" && verb.batch) {
            options.batch = true;
        } else if (!only_operands && argument == "--schema") {
            if (++i == arguments.size()) return Error{L"falta el archivo de --schema"};
            if (auto error = ReadSchemaFile(arguments[i], options)) return error;
        } else if (!only_operands && argument.starts_with("--")) {
            return Error{L"opción desconocida para " + FromUtf8(options.verb) + L": " + FromUtf8(argument)};
        } else if (options.operand) {
            return Surplus(argument);
        } else {
            options.operand = argument;
        }
    }
    return std::nullopt;
}

/// Options may stand before the verb as well; this moves them behind it.
Arguments VerbFirst(Arguments arguments) {
    std::size_t verb = 0;
    while (verb < arguments.size() && (arguments[verb] == "--batch" || arguments[verb] == "--schema")) {
        verb += arguments[verb] == "--schema" ? 2 : 1;
    }
    if (verb >= arguments.size()) return arguments;
    std::rotate(arguments.begin(), arguments.begin() + static_cast<std::ptrdiff_t>(verb),
                arguments.begin() + static_cast<std::ptrdiff_t>(verb) + 1);
    return arguments;
}

}  // namespace

int RunCommand(const std::vector<std::string>& arguments, std::istream& in, std::ostream& out,
               std::ostream& err) {
    const Streams streams{in, out, err};
    Arguments rest = VerbFirst(arguments);
    if (rest.empty()) return Refuse(streams, kUnusable, L"falta el verbo; vea tesselsql --help");
    Options options;
    options.verb = rest.front();
    rest.erase(rest.begin());
    if (options.verb == "--help" || options.verb == "-h") {
        out << ToUtf8(kHelpText);
        return kDone;
    }
    if (IsMacroVerb(options.verb)) {
        const auto error = RunMacroVerb(options.verb, rest, in, out);
        return error ? Refuse(streams, kUnusable, error->message) : kDone;
    }
    const auto verb = Verbs().find(options.verb);
    if (verb == Verbs().end()) {
        return Refuse(streams, kUnusable,
                      L"verbo desconocido: " + FromUtf8(options.verb) + L"; vea tesselsql --help");
    }
    const auto error = verb->second.takes == Takes::Text ? ReadText(rest, options)
                                                         : ReadOptions(rest, verb->second, options);
    if (error) return Refuse(streams, kUnusable, error->message);
    return verb->second.run(options, streams);
}

}  // namespace tessel::tools
