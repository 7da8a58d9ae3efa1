#include "hostkit/ado/status.h"

namespace tessel::ado {

namespace {

const wchar_t* TextOf(AdoError error) {
    switch (error) {
        case AdoError::BadArgument:
            return L"Los argumentos son de un tipo incorrecto, est\u00e1n fuera del intervalo aceptable o "
                   L"est\u00e1n en "
                   L"conflicto unos con otros.";
        case AdoError::NoCurrentRecord:
            return L"No hay ning\u00fan registro actual: el conjunto est\u00e1 antes del primero o "
                   L"despu\u00e9s del \u00faltimo.";
        case AdoError::NotAllowedHere:
            return L"La operaci\u00f3n no est\u00e1 permitida en este contexto.";
        case AdoError::NotSupported:
            return L"El proveedor no admite la operaci\u00f3n solicitada.";
        case AdoError::ItemNotFound:
            return L"No se encuentra en la colecci\u00f3n el elemento que corresponde al nombre o al "
                   L"n\u00famero pedido.";
        case AdoError::ObjectClosed:
            return L"La operaci\u00f3n no est\u00e1 permitida si el objeto est\u00e1 cerrado.";
        case AdoError::ObjectOpen:
            return L"La operaci\u00f3n no est\u00e1 permitida si el objeto est\u00e1 abierto.";
        case AdoError::NoConnection:
            return L"La conexi\u00f3n no se puede usar para esta operaci\u00f3n: falta, est\u00e1 cerrada o "
                   L"no es v\u00e1lida.";
    }
    return L"";
}

}  // namespace

Status::Status(AdoError error)
    : code_(MAKE_HRESULT(SEVERITY_ERROR, FACILITY_CONTROL, static_cast<int>(error))),
      message_(TextOf(error)) {}

}  // namespace tessel::ado
