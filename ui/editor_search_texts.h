// What the user reads of finding and replacing in the SQL text: captions and notes.
#pragma once

namespace tessel::ui::texts {

// "A", "C" and "U" are the mnemonics of the window's own buttons.
inline constexpr wchar_t kFindLabel[] = L"&Buscar:";
inline constexpr wchar_t kFindNext[] = L"&Siguiente";
inline constexpr wchar_t kFindPrevious[] = L"Ant&erior";
inline constexpr wchar_t kMatchCase[] = L"Distinguir &mayúsculas";
inline constexpr wchar_t kWholeWord[] = L"&Palabra completa";
inline constexpr wchar_t kReplaceLabel[] = L"Reemplazar co&n:";
inline constexpr wchar_t kReplaceOne[] = L"&Reemplazar";
inline constexpr wchar_t kReplaceAll[] = L"Reemplazar &todo";
inline constexpr wchar_t kCloseFind[] = L"Cerrar";

inline constexpr wchar_t kTextNotFound[] = L"No se encontró el texto.";
inline constexpr wchar_t kWentOnFromBeginning[] = L"Se llegó al final y se siguió desde el principio.";
inline constexpr wchar_t kWentOnFromEnd[] = L"Se llegó al principio y se siguió desde el final.";
inline constexpr wchar_t kReplacedOnce[] = L"Se hizo 1 reemplazo.";
inline constexpr wchar_t kReplacedBefore[] = L"Se hicieron ";
inline constexpr wchar_t kReplacedAfter[] = L" reemplazos.";

}  // namespace tessel::ui::texts
