// What the table diagram says to assistive programs, in Spanish.
#pragma once

#include <string>

#include "model/diagram.h"

namespace tessel::controls::diagram {

inline constexpr const wchar_t* kDiagramName = L"Diagrama de tablas";
inline constexpr const wchar_t* kCheckFieldAction = L"Marcar";
inline constexpr const wchar_t* kUncheckFieldAction = L"Desmarcar";
inline constexpr const wchar_t* kRelationAction = L"Propiedades";

/// "tabla, 5 campos, 2 marcados".
[[nodiscard]] std::wstring TableDetails(const model::DiagramTable& table);
/// "adInteger, clave principal"; empty for what the schema does not know.
[[nodiscard]] std::wstring FieldDetails(const model::DiagramField& field);
/// "Relación: Clientes.IdCliente = Pedidos.IdCliente, combinación izquierda".
[[nodiscard]] std::wstring RelationName(const model::RelInfo& relation);

}  // namespace tessel::controls::diagram
