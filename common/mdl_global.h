// mdlGlobal: the stateless helpers shared by the designer and the parameter class. ADO type names and their
// value classes, the aggregate-word test, and the stripping of outer parentheses. All comparisons ignore
// letter case.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

#include "common/result.h"

namespace tessel {

/// How a value of an ADO type is written as a literal.
enum class ValueClass : std::int16_t { None = 0, Number = 1, Text = 2, Boolean = 3, DateTime = 4, Other = 5 };

struct ADOTypeInfo {
    std::int16_t code = 0;   ///< the ADO data-type value
    std::wstring_view name;  ///< the ADO constant's name
    ValueClass value_class = ValueClass::None;
    bool preferred = false;  ///< the representative type of its class
};

/// The 40 ADO types in their fixed order. adGUID counts as a number, adBSTR as a date and adError as nothing:
/// hosts rely on these three.
[[nodiscard]] const std::array<ADOTypeInfo, 40>& ADOTypeTable();

/// The value class of an ADO type name, compared trimmed and lower-cased; an unknown or empty name is text.
[[nodiscard]] ValueClass ADOTypeClass(std::wstring_view typeName);

/// The name of an ADO type code ("adVarWChar"), or an empty text for a code outside the table.
[[nodiscard]] std::wstring_view ADOTypeName(int code);

/// True when the expression calls one of the aggregate words sum, count, compute, avg, min, max.
[[nodiscard]] bool IsAggregate(std::wstring_view expression);

/// True when the word stands in the expression as a function name or as a word of its own after a space or an
/// operator. A fixed list of patterns decides, not a parser: composition depends on exactly these matches.
[[nodiscard]] bool HasFunctionWord(std::wstring_view expression, std::wstring_view word);

/// The expression without the parentheses that enclose all of it, to any depth. The argument is trimmed in
/// place. A single character before an opening parenthesis does not count as a prefix, so "a(b)" loses its
/// ends too. A lone "(" has no inside: that is an invalid-argument error.
[[nodiscard]] Result<std::wstring> StripOuterParens(std::wstring& expression);

}  // namespace tessel
