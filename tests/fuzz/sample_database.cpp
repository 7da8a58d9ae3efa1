#include "tests/fuzz/sample_database.h"

namespace tessel::fuzz {

namespace {

using laws::FieldKind;

laws::Database Make() {
    const auto number = [](const wchar_t* name) { return laws::Field{name, FieldKind::Number}; };
    const auto text = [](const wchar_t* name) { return laws::Field{name, FieldKind::Text}; };
    laws::Database database;
    database.tables = {
        {L"A",
         {number(L"id"), number(L"x"), text(L"n")},
         {{L"1", L"2", L"'a'"}, {L"2", L"NULL", L"'b'"}, {L"2", L"1", L"NULL"}}},
        {L"B",
         {number(L"id"), number(L"x"), text(L"n")},
         {{L"1", L"1", L"'b'"}, {L"2", L"NULL", L"'a'"}, {L"3", L"2", L"'a'"}}},
        {L"Clientes",
         {number(L"IdCliente"), text(L"Nombre"), text(L"Pais")},
         {{L"1", L"'Ana'", L"'Chile'"}, {L"2", L"'Luis'", L"'Peru'"}, {L"3", L"'Eva'", L"NULL"}}},
        {L"Pedidos",
         {number(L"IdPedido"), number(L"IdCliente"), number(L"Importe")},
         {{L"1", L"1", L"100"}, {L"2", L"1", L"2000"}, {L"3", L"2", L"NULL"}, {L"4", L"NULL", L"5"}}},
        {L"[Detalle de pedidos]",
         {number(L"IdPedido"), number(L"Cantidad"), {L"Activo", FieldKind::Truth}},
         {{L"1", L"3", L"1"}, {L"1", L"4", L"0"}, {L"3", L"1", L"NULL"}}},
    };
    return database;
}

}  // namespace

const laws::Database& SampleDatabase() {
    static const laws::Database database = Make();
    return database;
}

const schema::Schema& SampleSchema() {
    static const schema::Schema schema = SampleDatabase().MakeSchema();
    return schema;
}

}  // namespace tessel::fuzz
