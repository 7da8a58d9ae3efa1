// What the relation dialog says: its captions, and for each kind of join one sentence that names the two
// tables.
#pragma once

#include <string>

#include "model/records.h"

namespace tessel::ui {

namespace texts {

inline constexpr wchar_t kRelationTitle[] = L"Propiedades de la relación";
inline constexpr wchar_t kRelationFields[] = L"Campos relacionados:";
inline constexpr wchar_t kRelationKind[] = L"Filas que se combinan:";
inline constexpr wchar_t kRelationAccept[] = L"&Aceptar";
inline constexpr wchar_t kRelationCancel[] = L"&Cancelar";

}  // namespace texts

/// "Clientes.IdCliente = Pedidos.IdCliente", as it is written in the statement.
[[nodiscard]] std::wstring RelationFields(const model::RelInfo& relation);

/// The kind's name, with its mnemonic, and which rows it gives. An ampersand in a table's name is doubled, so
/// that the sentence can be the caption of a button.
[[nodiscard]] std::wstring KindSentence(const model::RelInfo& relation, model::JoinKind kind);

}  // namespace tessel::ui
