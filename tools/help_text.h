// What tesselsql --help prints.
#pragma once

#include <string_view>

namespace tessel::tools {

inline constexpr std::wstring_view kHelpText =
    L"tesselsql: el diseñador de consultas desde la línea de comandos. Lee y escribe UTF-8.\n"
    L"\n"
    L"  tesselsql compose [ARCHIVO]      diseño (JSON) a instrucción, exactamente como la compone el "
    L"diseñador\n"
    L"  tesselsql design [ARCHIVO]       instrucción a diseño (JSON)\n"
    L"  tesselsql roundtrip [ARCHIVO]    como design, con el texto compuesto del diseño en \"sql\"\n"
    L"  tesselsql tree [ARCHIVO]         árbol de sintaxis: una línea por nodo, clave, tabulador y texto\n"
    L"\n"
    L"  --schema ARCHIVO                 tablas y campos (JSON); vea más abajo\n"
    L"  --batch                          design y roundtrip: varias instrucciones separadas por una línea "
    L"que solo\n"
    L"                                   tiene ---; un objeto JSON por línea\n"
    L"\n"
    L"  tesselsql aggregate [TEXTO]      1 si la expresión llama a una función de agregado, si no 0\n"
    L"  tesselsql strip-parens [TEXTO]   la expresión sin los paréntesis que la encierran\n"
    L"  tesselsql ado-class [TEXTO]      clase de valor (0 a 5) de un tipo de ADO\n"
    L"  tesselsql descending [TEXTO]     1 o 0, tabulador y el elemento sin su DESC final\n"
    L"\n"
    L"  tesselsql macros [TEXTO]         macros del texto, una por línea\n"
    L"  tesselsql expand [TEXTO]         el texto con sus macros sustituidas\n"
    L"    --param Nombre=adTipo=valor    un parámetro del programa; puede repetirse\n"
    L"    --user NOMBRE, --pc NOMBRE     usuario y equipo; si faltan, los del sistema\n"
    L"\n"
    L"El diseño:\n"
    L"  {\"distinct\":false,\"tables\":[\"Clientes\"],\n"
    L"   "
    L"\"relations\":[{\"LeftTable\":\"\",\"LeftField\":\"\",\"RightTable\":\"\",\"RightField\":\"\","
    L"\"JType\":0}],\n"
    L"   "
    L"\"columns\":[{\"Campo\":\"\",\"Titulo\":\"\",\"Tabla\":\"\",\"Agrupacion\":\"\",\"Visible\":\"\","
    L"\"Orden\":\"\",\n"
    L"               \"Condicion\":\"\",\"OR\":\"\"}]}\n"
    L"  Lo que falta cuenta como vacío. compose admite también el objeto que lo lleva en \"design\".\n"
    L"\n"
    L"El esquema, en cualquiera de estas formas (kind: 1 tabla, 2 vista):\n"
    L"  {\"tables\":[{\"name\":\"Clientes\",\"kind\":1,\"fields\":[\"IdCliente\",\n"
    L"     {\"name\":\"Nombre\",\"type\":\"adVarWChar\",\"size\":40,\"key\":false}]}],\n"
    L"   \"relations\":[{\"LeftTable\":\"Clientes\",\"LeftField\":\"IdCliente\",\n"
    L"                 \"RightTable\":\"Pedidos\",\"RightField\":\"IdCliente\"}]}\n"
    L"  {\"tables\":{\"Clientes\":[\"IdCliente\",\"Nombre\"]}}\n"
    L"  {\"Clientes\":[\"IdCliente\",\"Nombre\"]}\n"
    L"\n"
    L"Sin ARCHIVO o TEXTO, o con ARCHIVO \"-\", se lee la entrada estándar.\n"
    L"Estado de salida: 0 si terminó, 1 si la regla no tiene respuesta, 2 si los argumentos o la entrada no "
    L"sirven.\n";

}  // namespace tessel::tools
