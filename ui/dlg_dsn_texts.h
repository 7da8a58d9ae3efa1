// Every text of the designer window, in one place.
#pragma once

namespace tessel::ui::texts {

inline constexpr wchar_t kTitle[] = L"Diseñador de consultas SQL";
inline constexpr wchar_t kMessageTitle[] = L"Tessel";

inline constexpr wchar_t kDesignTab[] = L"Vista de Diseño";
inline constexpr wchar_t kSqlTab[] = L"Consulta SQL";
inline constexpr wchar_t kDistinct[] = L"DISTINCT";

inline constexpr wchar_t kSyntaxTree[] = L"Ver árbol de sintaxis";
inline constexpr wchar_t kAddTable[] = L"Agregar tabla al diagrama";
inline constexpr wchar_t kRunQuery[] = L"Ejecutar consulta (vista previa de resultados)";
inline constexpr wchar_t kRemoveColumn[] = L"Quitar columna";
inline constexpr wchar_t kClearAll[] = L"Limpiar todo";
inline constexpr wchar_t kAccept[] = L"&Aceptar";
inline constexpr wchar_t kCancel[] = L"&Cancelar";
inline constexpr wchar_t kHelp[] = L"Ay&uda";

inline constexpr wchar_t kReason[] =
    L"No se puede mostrar más información visual de la consulta porque es demasiado compleja, usa una "
    L"sintaxis no "
    L"conocida o contiene un error.\r\n\r\n"
    L"Realice los cambios manualmente en el código SQL o bórrelo para habilitar el modo de diseño.";

inline constexpr wchar_t kTipSyntaxTree[] = L"Muestra la instrucción analizada en forma de árbol";
inline constexpr wchar_t kTipAddTable[] = L"Elige una tabla o vista y la agrega al diagrama";
inline constexpr wchar_t kTipRunQuery[] = L"Ejecuta la consulta y muestra sus filas";
inline constexpr wchar_t kTipRemoveColumn[] = L"Quita de la consulta la columna seleccionada";
inline constexpr wchar_t kTipClearAll[] = L"Quita todas las columnas de la consulta";
inline constexpr wchar_t kTipDistinct[] = L"Omite las filas repetidas del resultado";
inline constexpr wchar_t kTipAccept[] = L"Cierra el diseñador y devuelve la consulta";
inline constexpr wchar_t kTipCancel[] = L"Cierra el diseñador sin cambiar la consulta";
inline constexpr wchar_t kTipHelp[] = L"Abre la ayuda";

}  // namespace tessel::ui::texts
