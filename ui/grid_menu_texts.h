// The captions of the design grid's context menu, with their keys.
#pragma once

namespace tessel::ui::texts {

inline constexpr wchar_t kUndo[] = L"&Deshacer\tCtrl+Z";
inline constexpr wchar_t kRedo[] = L"&Rehacer\tCtrl+Y";
inline constexpr wchar_t kCut[] = L"Cor&tar\tCtrl+X";
inline constexpr wchar_t kCopy[] = L"&Copiar\tCtrl+C";
inline constexpr wchar_t kPaste[] = L"&Pegar\tCtrl+V";
inline constexpr wchar_t kEmpty[] = L"&Vaciar\tSupr";
inline constexpr wchar_t kInsertColumn[] = L"&Insertar columna";
inline constexpr wchar_t kRemoveThisColumn[] = L"&Quitar columna";
inline constexpr wchar_t kMoveLeft[] = L"Mover a la i&zquierda\tCtrl+Mayús+Flecha izquierda";
inline constexpr wchar_t kMoveRight[] = L"Mover a la d&erecha\tCtrl+Mayús+Flecha derecha";

}  // namespace tessel::ui::texts
