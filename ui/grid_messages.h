// What the designer says about the design grid's cells and columns.
#pragma once

namespace tessel::ui::messages {

inline constexpr wchar_t kCellTooLong[] = L"El texto de una celda no puede tener más de 255 caracteres.";
inline constexpr wchar_t kPasteTooLong[] =
    L"El texto de una celda no puede tener más de 255 caracteres. No se ha pegado nada.";
inline constexpr wchar_t kPasteTooWide[] =
    L"No hay tantas columnas a partir de esta: una consulta puede tener 60 columnas como máximo. No se ha "
    L"pegado "
    L"nada.";
inline constexpr wchar_t kPasteTooHigh[] =
    L"No hay tantas filas a partir de esta. Colóquese en una fila más arriba. No se ha pegado nada.";
inline constexpr wchar_t kNoColumnFree[] =
    L"No queda ninguna columna vacía: una consulta puede tener 60 columnas como máximo.";

}  // namespace tessel::ui::messages
