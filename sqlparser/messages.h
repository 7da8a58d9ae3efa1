// Every sentence the parser says. Texts are Spanish, end with a full stop, and name what was written between
// « and ».
#pragma once

#include <string>
#include <string_view>

namespace tessel::sql::messages {

inline constexpr std::wstring_view kEmpty = L"No hay ninguna instrucción SQL.";
inline constexpr std::wstring_view kNotASelect = L"Se esperaba una instrucción SELECT.";
inline constexpr std::wstring_view kInsert =
    L"INSERT es una consulta de datos anexados; se esperaba una instrucción SELECT.";
inline constexpr std::wstring_view kUpdate =
    L"UPDATE es una consulta de actualización; se esperaba una instrucción SELECT.";
inline constexpr std::wstring_view kDelete =
    L"DELETE es una consulta de eliminación; se esperaba una instrucción SELECT.";
inline constexpr std::wstring_view kDefinition =
    L"CREATE, ALTER y DROP son consultas de definición de datos; se esperaba una instrucción SELECT.";
inline constexpr std::wstring_view kExecute =
    L"EXECUTE es la llamada a un procedimiento; se esperaba una instrucción SELECT.";
inline constexpr std::wstring_view kTooLong = L"El texto es demasiado largo.";
inline constexpr std::wstring_view kTooDeep = L"La instrucción tiene demasiados niveles de anidamiento.";
inline constexpr std::wstring_view kUnclosedString = L"El texto entre comillas no está cerrado.";
inline constexpr std::wstring_view kUnclosedBracket = L"Falta el corchete de cierre.";
inline constexpr std::wstring_view kUnclosedBackQuote = L"Falta la comilla invertida de cierre.";
inline constexpr std::wstring_view kUnclosedComment = L"El comentario no está cerrado.";
inline constexpr std::wstring_view kUnclosedDate = L"La fecha no es válida o le falta el signo # de cierre.";
inline constexpr std::wstring_view kUnclosedMacro = L"Falta la llave de cierre de la macro.";
inline constexpr std::wstring_view kMacroWithoutName = L"Falta el nombre de la macro después de @.";
inline constexpr std::wstring_view kEmptyName = L"El nombre entre corchetes o comillas está vacío.";
inline constexpr std::wstring_view kMissingRightParen = L"Falta el paréntesis de cierre.";
inline constexpr std::wstring_view kExtraRightParen = L"Sobra un paréntesis de cierre.";
inline constexpr std::wstring_view kMissingRightBrace = L"Falta la llave de cierre.";
inline constexpr std::wstring_view kExpectedFrom =
    L"Se esperaba una coma, FROM o el final de la instrucción.";
inline constexpr std::wstring_view kExpectedTable = L"Se esperaba el nombre de una tabla.";
inline constexpr std::wstring_view kExpectedJoin = L"Se esperaba JOIN.";
inline constexpr std::wstring_view kExpectedOn = L"Se esperaba ON y la condición de la combinación.";
inline constexpr std::wstring_view kExpectedGroupBy = L"Se esperaba BY después de GROUP.";
inline constexpr std::wstring_view kExpectedOrderBy = L"Se esperaba BY después de ORDER.";
inline constexpr std::wstring_view kExpectedAlias = L"Se esperaba un alias después de AS.";
inline constexpr std::wstring_view kExpectedName =
    L"Se esperaba un nombre después del punto o del signo de admiración.";
inline constexpr std::wstring_view kExpectedNames = L"Se esperaba una lista de nombres entre paréntesis.";
inline constexpr std::wstring_view kExpectedParameter = L"Se esperaba el nombre de un parámetro.";
inline constexpr std::wstring_view kExpectedCommonTable =
    L"Se esperaba el nombre de una expresión de tabla (WITH).";
inline constexpr std::wstring_view kExpectedAnd = L"Falta AND en la condición BETWEEN.";
inline constexpr std::wstring_view kExpectedNull = L"Se esperaba NULL o NOT NULL después de IS.";
inline constexpr std::wstring_view kExpectedInList = L"Se esperaba una lista entre paréntesis después de IN.";
inline constexpr std::wstring_view kExpectedLike = L"Se esperaba LIKE, IN o BETWEEN después de NOT.";
inline constexpr std::wstring_view kExpectedSelect = L"Se esperaba SELECT.";
inline constexpr std::wstring_view kExpectedPivot =
    L"Falta la cláusula PIVOT de la consulta de referencias cruzadas (TRANSFORM).";
inline constexpr std::wstring_view kExpectedWhen = L"Se esperaba WHEN en la expresión CASE.";
inline constexpr std::wstring_view kExpectedThen = L"Se esperaba THEN en la expresión CASE.";
inline constexpr std::wstring_view kExpectedEnd = L"Falta END al final de CASE.";
inline constexpr std::wstring_view kExpectedType = L"Se esperaba un tipo de datos.";
inline constexpr std::wstring_view kExpectedAs = L"Se esperaba AS.";
inline constexpr std::wstring_view kExpectedNumber = L"Se esperaba un número después de TOP.";
inline constexpr std::wstring_view kExpectedTies = L"Se esperaba TIES después de WITH.";
inline constexpr std::wstring_view kExpectedOwnerAccess = L"Se esperaba OWNERACCESS OPTION después de WITH.";
inline constexpr std::wstring_view kExpectedOption = L"Se esperaba OPTION después de WITH OWNERACCESS.";
inline constexpr std::wstring_view kExpectedFirstOrLast = L"Se esperaba FIRST o LAST después de NULLS.";
inline constexpr std::wstring_view kExpectedFirstOrNext = L"Se esperaba FIRST o NEXT después de FETCH.";
inline constexpr std::wstring_view kExpectedRowsOnly =
    L"Se esperaba ROWS ONLY o ROWS WITH TIES al final de FETCH.";
inline constexpr std::wstring_view kExpectedForWhat =
    L"Se esperaba UPDATE, SHARE, READ ONLY, BROWSE, XML o JSON después de FOR.";
inline constexpr std::wstring_view kExpectedWindow =
    L"Se esperaba un nombre, AS y un paréntesis de apertura en WINDOW.";
inline constexpr std::wstring_view kExpectedLeftParen = L"Se esperaba un paréntesis de apertura.";
inline constexpr std::wstring_view kExpectedFile =
    L"Se esperaba el nombre de un archivo entre comillas después de IN.";
inline constexpr std::wstring_view kExpectedSemicolon = L"Falta el punto y coma después de PARAMETERS.";
inline constexpr std::wstring_view kExpectedProcedureEnd = L"Falta el punto y coma después de PROCEDURE.";
inline constexpr std::wstring_view kExpectedJoinOrClause =
    L"Se esperaba una coma, una combinación, otra cláusula o el final de la instrucción.";
inline constexpr std::wstring_view kTextAfterEnd = L"Hay texto después del final de la instrucción.";
inline constexpr std::wstring_view kStarInExpression =
    L"El asterisco no puede formar parte de una expresión.";
inline constexpr std::wstring_view kUnknownCharacter = L"El carácter no es válido en este lugar.";
inline constexpr std::wstring_view kTypographicQuote =
    L"Las comillas tipográficas no son válidas; escriba comillas rectas.";

/// What comes next should have been an expression; `after` is the text before the place, empty when there is
/// none.
[[nodiscard]] inline std::wstring ExpectedExpression(std::wstring_view after) {
    std::wstring text = L"Se esperaba una expresión";
    if (after == L",") {
        text += L" después de la coma";
    } else if (after == L"(") {
        text += L" después del paréntesis de apertura";
    } else if (!after.empty()) {
        (text += L" después de ") += after;
    }
    return text += L'.';
}

[[nodiscard]] inline std::wstring RepeatedClause(std::wstring_view clause) {
    return L"La cláusula " + std::wstring(clause) + L" está repetida.";
}

[[nodiscard]] inline std::wstring MisplacedClause(std::wstring_view clause, std::wstring_view before) {
    return L"La cláusula " + std::wstring(clause) + L" debe ir antes de " + std::wstring(before) + L".";
}

[[nodiscard]] inline std::wstring Unexpected(std::wstring_view what) {
    return L"No se esperaba «" + std::wstring(what) + L"»: falta un operador, una coma o una cláusula.";
}

[[nodiscard]] inline std::wstring UnexpectedInParens(std::wstring_view what) {
    return L"No se esperaba «" + std::wstring(what) +
           L"»: falta un operador, una coma o el paréntesis de cierre.";
}

}  // namespace tessel::sql::messages
