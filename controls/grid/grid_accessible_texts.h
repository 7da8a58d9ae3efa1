// What the design grid says to assistive programs, in Spanish.
#pragma once

#include <string>

#include "model/design_grid.h"

namespace tessel::controls {

/// The grid as a whole.
[[nodiscard]] std::wstring GridName();
/// The row of the column headers.
[[nodiscard]] std::wstring HeadersName();
/// The row's caption without its colon: "Condición".
[[nodiscard]] std::wstring RowName(model::GridRow row);
/// "Columna 3, Total".
[[nodiscard]] std::wstring HeaderName(const model::DesignGrid& grid, int column);
/// "Condición, columna 3, Clientes.Pais". The row of the fields does not repeat what its cell says.
[[nodiscard]] std::wstring CellName(const model::DesignGrid& grid, model::GridRow row, int column);

inline constexpr const wchar_t* kEditAction = L"Editar";
inline constexpr const wchar_t* kCheckAction = L"Marcar";
inline constexpr const wchar_t* kUncheckAction = L"Desmarcar";
inline constexpr const wchar_t* kSelectAction = L"Seleccionar";

}  // namespace tessel::controls
