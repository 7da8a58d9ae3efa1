// What the user reads about errors in the SQL text and about texts that no design can show: the pieces of the
// line under the editor, of the tips over marked places, and of what lblNo adds to its fixed text.
#pragma once

namespace tessel::ui::texts {

inline constexpr wchar_t kErrorPlace[] = L"Línea ";
inline constexpr wchar_t kColumnPlace[] = L", columna ";
inline constexpr wchar_t kOneMoreError[] = L" Hay 1 error más (F8).";
inline constexpr wchar_t kMoreErrorsBefore[] = L" Hay ";
inline constexpr wchar_t kMoreErrorsAfter[] = L" errores más (F8).";

inline constexpr wchar_t kNotShown[] = L"No se puede mostrar en diseño (línea ";
inline constexpr wchar_t kNotShownWhole[] = L"No se puede mostrar entera en diseño (línea ";
inline constexpr wchar_t kPlaceEnd[] = L"): ";
inline constexpr wchar_t kTooLongToCheck[] =
    L"El texto es demasiado largo para revisarlo mientras se escribe.";

inline constexpr wchar_t kReasonError[] = L"El texto contiene un error en la línea ";
inline constexpr wchar_t kReasonNotShown[] = L"No se puede mostrar en diseño lo que hay en la línea ";
inline constexpr wchar_t kReasonInText[] = L"En el texto: ";
inline constexpr wchar_t kLinkAction[] = L"Saltar";
inline constexpr wchar_t kGoToPlace[] = L"Ir a ese lugar del texto SQL";

}  // namespace tessel::ui::texts
