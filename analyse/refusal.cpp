#include "analyse/refusal.h"

namespace tessel::analyse {

namespace {

std::wstring_view BeyondName(sql::Beyond what) {
    using enum sql::Beyond;
    switch (what) {
        case Union:
            return L"consultas unidas con UNION";
        case Intersect:
            return L"intersecciones (INTERSECT)";
        case Except:
            return L"diferencias (EXCEPT)";
        case With:
            return L"expresiones de tabla (WITH)";
        case DerivedTable:
            return L"subconsultas en FROM";
        case Into:
            return L"consultas de creación de tabla (INTO)";
        case Limit:
            return L"la cláusula LIMIT";
        case Offset:
            return L"la cláusula OFFSET";
        case Fetch:
            return L"la cláusula FETCH";
        case Parameters:
            return L"la declaración PARAMETERS";
        case Procedure:
            return L"la declaración PROCEDURE";
        case InDatabase:
            return L"tablas de otra base de datos (IN)";
        case FullJoin:
            return L"combinaciones FULL JOIN";
        case CrossJoin:
            return L"combinaciones CROSS JOIN";
        case NaturalJoin:
            return L"combinaciones NATURAL JOIN";
        case JoinUsing:
            return L"combinaciones con USING";
        case OnMissing:
            return L"combinaciones sin ON";
        case Window:
            return L"funciones de ventana (OVER)";
        case ForUpdate:
            return L"la cláusula FOR UPDATE";
        case Values:
            return L"listas VALUES";
        case TableStatement:
            return L"la instrucción TABLE";
        case Crosstab:
            return L"consultas de referencias cruzadas (TRANSFORM)";
        case Hint:
            return L"indicaciones para el motor";
        case WithOwnerAccess:
            return L"la opción WITH OWNERACCESS";
        case TableFunction:
            return L"funciones que devuelven tablas";
        case Other:
            break;
    }
    return L"esta construcción";
}

std::wstring_view ClauseName(Clause clause) {
    switch (clause) {
        case Clause::Whole:
            return L"la instrucción";
        case Clause::Select:
            return L"la lista de selección";
        case Clause::Distinct:
            return L"DISTINCT";
        case Clause::From:
            return L"la cláusula FROM";
        case Clause::Where:
            return L"la cláusula WHERE";
        case Clause::GroupBy:
            return L"la cláusula GROUP BY";
        case Clause::Having:
            return L"la cláusula HAVING";
        case Clause::OrderBy:
            return L"la cláusula ORDER BY";
    }
    return L"";
}

}  // namespace

std::wstring BeyondMessage(sql::Beyond what) {
    std::wstring message = L"El diseño no puede mostrar ";
    message += BeyondName(what);
    message += L'.';
    return message;
}

std::wstring ChangedClauseMessage(Clause clause) {
    std::wstring message = L"El diseño no puede mostrar ";
    message += ClauseName(clause);
    message += L" sin cambiar su significado.";
    return message;
}

}  // namespace tessel::analyse
