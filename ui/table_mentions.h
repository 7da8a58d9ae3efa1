// Which texts of the grid name a table.
#pragma once

#include <string_view>

#include "model/design_grid.h"

namespace tessel::ui {

/// True when the text holds a name that is qualified by the table: "Sum(Pedidos.Importe)" names Pedidos.
/// Strings and comments name nothing.
[[nodiscard]] bool NamesTable(std::wstring_view text, std::wstring_view table);

/// True when a field, a criterion or an alternative of the grid names the table.
[[nodiscard]] bool NamesTable(const model::DesignGrid& grid, std::wstring_view table);

}  // namespace tessel::ui
