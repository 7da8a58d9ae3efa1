// Automation decimals from the text that a database gives for them.
#pragma once

#include <windows.h>

#include <oleauto.h>

#include <string_view>

namespace tessel::ado {

/// The exact value of a number written with digits, sign and point. Digits of the fraction that 96 bits or 28
/// places do not hold are cut off. False when the text is no such number or too large.
bool DecimalFromText(std::wstring_view text, DECIMAL* target);

}  // namespace tessel::ado
