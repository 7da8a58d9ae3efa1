// Every text of the preview: its commands' messages and its window, in one place.
#pragma once

namespace tessel::ui::preview_texts {

inline constexpr wchar_t kNothingToRun[] =
    L"No hay ninguna consulta que ejecutar o existe un error en la definición";
inline constexpr wchar_t kNoConnection[] = L"No hay una conexión válida u ocurrió un error desconocido.";
inline constexpr wchar_t kNoRecordset[] = L"No se pudo crear el objeto ADODB.Recordset: ";
inline constexpr wchar_t kNoRows[] = L"La instrucción se ejecutó, pero no devuelve filas que mostrar.";
inline constexpr wchar_t kNoRowCount[] = L"El proveedor no informa del número de filas.";
inline constexpr wchar_t kTooManyColumns[] = L"El proveedor informa de demasiadas columnas.";
inline constexpr wchar_t kNoWindow[] = L"No se pudo abrir la ventana de vista previa.";
inline constexpr wchar_t kBadPage[] = L"El proveedor devolvió las filas en una forma desconocida.";

inline constexpr wchar_t kTitle[] = L"Vista previa de datos";
inline constexpr wchar_t kRows[] = L"Filas";
inline constexpr wchar_t kClose[] = L"&Cerrar";
inline constexpr wchar_t kNull[] = L"(nulo)";
inline constexpr wchar_t kYes[] = L"Sí";
inline constexpr wchar_t kNo[] = L"No";

inline constexpr wchar_t kRow[] = L"Fila ";
inline constexpr wchar_t kOf[] = L" de ";
inline constexpr wchar_t kNoRow[] = L"Sin filas";
inline constexpr wchar_t kSelectedRows[] = L" seleccionadas";
inline constexpr wchar_t kSearching[] = L"Buscando en la fila ";
inline constexpr wchar_t kNotFound[] = L"No se encontró el texto.";
inline constexpr wchar_t kNotCopied[] = L"No se pudo copiar al portapapeles.";

inline constexpr wchar_t kFindLabel[] = L"&Buscar:";
inline constexpr wchar_t kFindNext[] = L"&Siguiente";
inline constexpr wchar_t kFindPrevious[] = L"&Anterior";

inline constexpr wchar_t kMenuCopyRows[] = L"Copiar &filas\tCtrl+C";
inline constexpr wchar_t kMenuCopyCell[] = L"Copiar &celda\tCtrl+Mayús+C";
inline constexpr wchar_t kMenuSelectAll[] = L"Seleccionar &todo\tCtrl+E";
inline constexpr wchar_t kMenuFind[] = L"&Buscar…\tCtrl+F";

}  // namespace tessel::ui::preview_texts
