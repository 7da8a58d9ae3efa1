// Why a relation that the user wants is not drawn, or does not become what was chosen, and what removing a
// table leaves to be done.
#pragma once

namespace tessel::ui::texts {

inline constexpr wchar_t kRelationAlreadyThere[] = L"Esos dos campos ya están relacionados en el diagrama.";
inline constexpr wchar_t kRelationClosesRing[] =
    L"Las dos tablas ya están unidas, directamente o a través de otras, y otra relación repetiría una tabla "
    L"en la "
    L"consulta. Quite antes una de las relaciones que las unen, o escriba la nueva igualdad en la fila "
    L"«Condición:».";
inline constexpr wchar_t kRelationLosesRows[] =
    L"Así la consulta perdería filas que las flechas del diagrama conservan. Cambie antes la clase de las "
    L"otras "
    L"relaciones de estas tablas o quítelas.";

inline constexpr wchar_t kTableStillNamed[] =
    L"En la cuadrícula quedan expresiones o condiciones con campos de la tabla que se ha quitado. Corríjalas "
    L"o quite "
    L"esas columnas.";

}  // namespace tessel::ui::texts
