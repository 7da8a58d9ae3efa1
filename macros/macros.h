// Report macros and host parameters inside a statement: "@name", or "@{any text}".
//
// The designer replaces what it can evaluate itself (date, time, user, computer, the host's parameters) and
// leaves what only means something while a report is printed. Replacement is by plain text, as hosts rely
// upon: "@hora" also replaces the beginning of "@horario".
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tessel::macros {

/// The macros that have a meaning of their own, whatever the host's parameters are called: the Spanish names,
/// then the English ones.
inline constexpr std::wstring_view kFixedMacros[] = {
    L"fecha", L"hora", L"fechahora", L"usuariowin", L"nombrepcwin", L"numpagina",  L"paginas",
    L"date",  L"time", L"datetime",  L"winuser",    L"winpcname",   L"pagenumber", L"pages",
};

/// What ReplaceMacros asks its surroundings. A failing answer is no answer: the macro then stays as it is.
class MacroSource {
public:
    virtual ~MacroSource() = default;
    /// The value of the host's parameter of that name as an SQL literal; nothing when there is none.
    virtual std::optional<std::wstring> ParameterLiteral(std::wstring_view name) = 0;
    /// The same parameter's raw value as text.
    virtual std::optional<std::wstring> ParameterText(std::wstring_view name) = 0;
    /// The name of the user logged on, and the computer's network name.
    virtual std::optional<std::wstring> UserName() = 0;
    virtual std::optional<std::wstring> ComputerName() = 0;
};

/// The macros of a text in order of appearance, duplicates kept: the bare name, or "{name}" for the brace
/// form. A brace that is not closed ends the list.
[[nodiscard]] std::vector<std::wstring> GetMacros(std::wstring_view sql);

/// The longest text that an expansion makes, in units. A parameter whose value names itself doubles the text
/// each time it is named; a replacement that would go beyond is not made.
inline constexpr std::size_t kLongestExpansion = std::size_t{1} << 24;

/// The text with its replaceable macros expanded. Time grows linearly with the text as long as no replacement
/// holds an "@" itself, and is limited when one does.
[[nodiscard]] std::wstring ReplaceMacros(std::wstring_view sql, MacroSource& source);

}  // namespace tessel::macros
