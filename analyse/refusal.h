// Why a statement cannot be shown as a design: the sentences, and what the steps of the analysis hand to each
// other.
#pragma once

#include <optional>
#include <string>

#include "analyse/normal_form.h"
#include "common/diagnostic.h"
#include "sqlparser/statement.h"

namespace tessel::analyse {

struct Refusal {
    TextRange range;  ///< the construct in the statement's text
    std::wstring message;
};

/// What a step answers: nothing when it went well.
using Outcome = std::optional<Refusal>;

[[nodiscard]] std::wstring BeyondMessage(sql::Beyond what);
[[nodiscard]] std::wstring ChangedClauseMessage(Clause clause);

namespace messages {

inline constexpr std::wstring_view kTop = L"El diseño no puede mostrar la cláusula TOP.";
inline constexpr std::wstring_view kDoubtfulComment =
    L"No todos los motores entienden igual este comentario; el diseño no puede mostrar la instrucción.";
inline constexpr std::wstring_view kDoubtfulBlank =
    L"No todos los motores entienden este carácter como un espacio; el diseño no puede mostrar la "
    L"instrucción.";
inline constexpr std::wstring_view kNumberBeforeWord =
    L"Falta un espacio entre un número y la palabra que lo sigue; el diseño no puede mostrar la instrucción.";
inline constexpr std::wstring_view kNullCharacter =
    L"El diseño no puede mostrar una instrucción que contiene un carácter nulo.";
inline constexpr std::wstring_view kTableAliasDigit =
    L"El diseño no puede mostrar una tabla cuyo alias empieza por una cifra.";
inline constexpr std::wstring_view kTableAliasHash =
    L"El diseño no puede mostrar una tabla cuyo alias contiene el signo #.";
inline constexpr std::wstring_view kNoTables = L"El diseño necesita al menos una tabla en FROM.";
inline constexpr std::wstring_view kTooManyTables = L"El diseño no puede mostrar más de 256 tablas.";
inline constexpr std::wstring_view kQualifiedTable =
    L"El diseño no puede mostrar una tabla con el nombre de su base de datos o de su propietario.";
inline constexpr std::wstring_view kTableTwice =
    L"El diseño no puede mostrar dos veces la misma tabla (combinación de una tabla consigo misma).";
inline constexpr std::wstring_view kJoinCondition =
    L"El diseño solo puede mostrar esta combinación si compara campos de sus tablas y una comparación es de "
    L"igualdad.";
inline constexpr std::wstring_view kJoinCriteria =
    L"El diseño no puede mostrar condiciones adicionales en esta combinación, porque depende de una externa.";
inline constexpr std::wstring_view kJoinBareName =
    L"El diseño no puede mostrar esta condición de la combinación, porque nombra un campo sin su tabla.";
inline constexpr std::wstring_view kJoinNesting =
    L"El diseño no puede mostrar este anidamiento de combinaciones externas.";
inline constexpr std::wstring_view kTooManyColumns = L"El diseño no puede mostrar más de 60 columnas.";
inline constexpr std::wstring_view kCellTooLong =
    L"El texto no cabe en una celda del diseño, que admite hasta 255 caracteres.";
inline constexpr std::wstring_view kStarTwice =
    L"El diseño no puede mostrar dos veces todos los campos de la misma tabla.";
inline constexpr std::wstring_view kGroupOrdinal =
    L"El diseño no puede mostrar una agrupación por número de columna o por un valor fijo numérico.";
inline constexpr std::wstring_view kAmbiguousOrder =
    L"No está claro a qué columna se refiere esta ordenación; el diseño no puede mostrarla.";
inline constexpr std::wstring_view kTotalsFilter =
    L"El diseño no puede filtrar filas en una consulta de totales sin GROUP BY, porque agruparía por el "
    L"filtro.";
inline constexpr std::wstring_view kAggregateInWhere =
    L"Una función de totales no puede estar en WHERE ni en ON; su condición pertenece a HAVING.";
inline constexpr std::wstring_view kHavingWithoutAggregate =
    L"El diseño solo puede mostrar en HAVING condiciones sobre Sum, Count, Avg, Min o Max.";
inline constexpr std::wstring_view kNotReadBack =
    L"El diseño no puede mostrar la instrucción: el texto compuesto a partir de él no se puede analizar.";

}  // namespace messages
}  // namespace tessel::analyse
