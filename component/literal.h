// A parameter's value written as a literal, in SQL or in VB style. What conversions mean is the business of
// the variant library under the user's locale: a decimal separator may be a comma, a date text is read as the
// user writes dates, and what cannot be converted is that library's own error.
#pragma once

#include <windows.h>
#include <oaidl.h>

#include <string>
#include <string_view>

namespace tessel::component {

enum class LiteralSyntax { Sql, Vb };

/// Writes the literal of `value` as a value of an ADO type given by name. On failure the HRESULT of the
/// conversion, or of the object whose default property was asked for, and `literal` stays.
HRESULT RenderLiteral(const VARIANT& value, std::wstring_view type_name, LiteralSyntax syntax,
                      std::wstring* literal);

/// The ordinary text of a value, of an object the text of its default property. Failures as above.
HRESULT RenderText(const VARIANT& value, std::wstring* text);

}  // namespace tessel::component
