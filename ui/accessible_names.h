// What assistive programs call the parts of the designer window that show no caption of their own, in one
// place.
#pragma once

namespace tessel::ui::accessible_names {

inline constexpr wchar_t kTabs[] = L"Vista de la consulta";
inline constexpr wchar_t kFocus[] = L"Diseñador";
inline constexpr wchar_t kMainSplitter[] = L"Divisor entre el esquema y la consulta";
inline constexpr wchar_t kBrowserSplitter[] = L"Divisor entre el esquema y sus propiedades";
inline constexpr wchar_t kPageSplitter[] = L"Divisor entre el diagrama y las columnas";

}  // namespace tessel::ui::accessible_names
