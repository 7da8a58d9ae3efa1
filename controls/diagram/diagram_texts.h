// What the table diagram says to its user, in Spanish: tooltips, the caption of the first row, and the
// commands of its own menu.
#pragma once

#include <string>
#include <string_view>

#include "model/diagram.h"

namespace tessel::controls::diagram {

/// The caption of the row "*".
[[nodiscard]] std::wstring_view AllFieldsCaption();
/// "Clientes.IdCliente = Pedidos.IdCliente (interna)".
[[nodiscard]] std::wstring RelationText(const model::RelInfo& relation);
/// A field's type and keys: "IdCliente: adInteger, clave principal".
[[nodiscard]] std::wstring FieldText(const model::DiagramField& field);
[[nodiscard]] std::wstring AllFieldsText(const model::DiagramTable& table);
[[nodiscard]] std::wstring TableText(const model::DiagramTable& table);
/// What the user is to do for a relation that begins at that table; the field is empty until it is chosen.
[[nodiscard]] std::wstring RelatingText(const std::wstring& table, const std::wstring& field);

/// The commands that change what is seen and not the design, with their keys behind a tab.
[[nodiscard]] std::wstring_view FitCaption();
[[nodiscard]] std::wstring_view FitEntry();
[[nodiscard]] std::wstring_view ActualSizeEntry();
[[nodiscard]] std::wstring_view ArrangeEntry();
[[nodiscard]] std::wstring_view CopyPictureEntry();

}  // namespace tessel::controls::diagram
