// The names under which the component raises errors, and the texts it gives them.
#pragma once

#include <windows.h>

#include <string>

namespace tessel::component {

inline constexpr wchar_t kQuillonProgId[] = L"Tessel.Quillon";
inline constexpr wchar_t kParameterProgId[] = L"Tessel.cParameter";

/// What a host reads about a failed conversion.
std::wstring ConversionMessage(HRESULT result);

}  // namespace tessel::component
