#include "tools/macro_commands.h"

#include <cstdlib>
#include <istream>
#include <iterator>
#include <ostream>
#include <utility>

#include "common/text.h"
#include "macros/macros.h"
#include "tools/parameter_literal.h"

namespace tessel::tools {

namespace {

struct Parameter {
    std::wstring name;
    std::wstring literal;
    std::wstring text;
};

/// The parameters and names given on the command line; names not given come from the environment.
class CommandLineSource final : public macros::MacroSource {
public:
    std::vector<Parameter> parameters;
    std::optional<std::wstring> user;
    std::optional<std::wstring> computer;

    std::optional<std::wstring> ParameterLiteral(std::wstring_view name) override {
        const Parameter* found = Find(name);
        return found ? std::optional(found->literal) : std::nullopt;
    }
    std::optional<std::wstring> ParameterText(std::wstring_view name) override {
        const Parameter* found = Find(name);
        return found ? std::optional(found->text) : std::nullopt;
    }
    std::optional<std::wstring> UserName() override {
        return user ? user : FromEnvironment({"USERNAME", "USER"});
    }
    std::optional<std::wstring> ComputerName() override {
        return computer ? computer : FromEnvironment({"COMPUTERNAME", "HOSTNAME"});
    }

private:
    const Parameter* Find(std::wstring_view name) const {
        for (const Parameter& parameter : parameters)
            if (SameName(parameter.name, name)) return &parameter;
        return nullptr;
    }
    static std::optional<std::wstring> FromEnvironment(std::initializer_list<const char*> variables) {
        for (const char* variable : variables)
            if (const char* value = std::getenv(variable)) return FromUtf8(value);
        return std::nullopt;
    }
};

/// "Name=adType=value"; the value may hold further "=".
Result<Parameter> ReadParameter(const std::string& argument) {
    const std::wstring text = FromUtf8(argument);
    const std::size_t first = text.find(L'=');
    const std::size_t second = first == std::wstring::npos ? first : text.find(L'=', first + 1);
    if (second == std::wstring::npos) return Error{L"--param se escribe Nombre=adTipo=valor: " + text};
    Parameter parameter;
    parameter.name = text.substr(0, first);
    parameter.text = text.substr(second + 1);
    Result<std::wstring> literal =
        ParameterLiteral(text.substr(first + 1, second - first - 1), parameter.text);
    if (!literal) return literal.Reason();
    parameter.literal = *literal;
    return parameter;
}

/// Reads the arguments. Answers why they cannot be used, or nothing.
std::optional<Error> Read(const std::vector<std::string>& arguments, bool takes_options,
                          CommandLineSource& source, std::optional<std::string>& text) {
    bool only_text = !takes_options;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const std::string& argument = arguments[i];
        if (argument == "--" && !text && i + 1 < arguments.size()) {
            only_text = true;
        } else if (!only_text && (argument == "--param" || argument == "--user" || argument == "--pc")) {
            if (++i == arguments.size()) return Error{L"falta el valor de " + FromUtf8(argument)};
            if (argument == "--user") {
                source.user = FromUtf8(arguments[i]);
            } else if (argument == "--pc") {
                source.computer = FromUtf8(arguments[i]);
            } else {
                Result<Parameter> parameter = ReadParameter(arguments[i]);
                if (!parameter) return parameter.Reason();
                source.parameters.push_back(std::move(parameter).Value());
            }
        } else if (!only_text && argument.starts_with("--")) {
            return Error{L"opción desconocida para expand: " + FromUtf8(argument)};
        } else if (text) {
            return Error{L"sobra un argumento: " + FromUtf8(argument)};
        } else {
            text = argument;
        }
    }
    return std::nullopt;
}

}  // namespace

bool IsMacroVerb(const std::string& verb) {
    return verb == "macros" || verb == "expand";
}

std::optional<Error> RunMacroVerb(const std::string& verb, const std::vector<std::string>& arguments,
                                  std::istream& in, std::ostream& out) {
    CommandLineSource source;
    std::optional<std::string> text;
    if (auto error = Read(arguments, verb == "expand", source, text)) return error;
    if (!text) text = std::string(std::istreambuf_iterator<char>(in), {});
    const std::wstring sql = FromUtf8(*text);
    if (verb == "macros") {
        for (const std::wstring& macro : macros::GetMacros(sql)) out << ToUtf8(macro) << '\n';
    } else {
        out << ToUtf8(macros::ReplaceMacros(sql, source));
    }
    return std::nullopt;
}

}  // namespace tessel::tools
