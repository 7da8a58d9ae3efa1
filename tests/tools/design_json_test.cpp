#include "tools/design_json.h"

#include <gtest/gtest.h>

#include "common/text.h"

namespace tessel::tools {
namespace {

using model::GridRow;

/// The design written back, or the reason why it could not be read.
std::string Reread(const std::string& json) {
    model::Design design;
    if (const auto error = ReadDesign(Json::parse(json), design)) return "error: " + ToUtf8(error->message);
    return DesignToJson(design).dump();
}

TEST(DesignJson, WritesItsMembersInOrderWithoutBlanks) {
    const std::string json =
        R"({"distinct":true,"tables":["Clientes","[Detalle de pedidos]"],)"
        R"("relations":[{"LeftTable":"Clientes","LeftField":"a","RightTable":"[Detalle de pedidos]",)"
        R"("RightField":"b","JType":2}],)"
        R"("columns":[{"Campo":"Clientes.Año","Titulo":"Año","Tabla":"Clientes","Agrupacion":"Suma",)"
        R"("Visible":"No","Orden":"Ascendente","Condicion":">1","OR":"'ñ'"}]})";
    EXPECT_EQ(Reread(json), json);
}

TEST(DesignJson, MissingMembersCountAsEmpty) {
    EXPECT_EQ(Reread("{}"), R"({"distinct":false,"tables":[],"relations":[],"columns":[]})");
    EXPECT_EQ(
        Reread(R"({"columns":[{"Campo":"a"}],"relations":null,"tables":null,"distinct":null})"),
        R"({"distinct":false,"tables":[],"relations":[],"columns":[{"Campo":"a","Titulo":"","Tabla":"",)"
        R"("Agrupacion":"","Visible":"","Orden":"","Condicion":"","OR":""}]})");
}

TEST(DesignJson, UnknownMembersAreIgnored) {
    EXPECT_EQ(Reread(R"({"version":7,"columns":[{"Campo":"","otro":1}]})"),
              R"({"distinct":false,"tables":[],"relations":[],"columns":[]})");
}

TEST(DesignJson, NamesAndKindsOfRelationsAreTakenAsTheyStand) {
    model::Design design;
    ASSERT_FALSE(ReadDesign(Json::parse(R"({"tables":["clientes","B"],"relations":[
        {"LeftTable":"Clientes","LeftField":"x","RightTable":"B","RightField":"y","JType":7},
        {"LeftTable":"Clientes","LeftField":"x","RightTable":"B","RightField":"y"}]})"),
                            design));
    ASSERT_EQ(design.diagram.Tables().size(), 2u);
    EXPECT_EQ(design.diagram.Tables()[0].name, L"clientes");
    ASSERT_EQ(design.diagram.Relations().size(), 2u);
    EXPECT_EQ(design.diagram.Relations()[0].info.LeftTable, L"Clientes");
    EXPECT_EQ(design.diagram.Relations()[0].info.JType, 7);
    EXPECT_EQ(design.diagram.Relations()[1].info.JType, 0);
}

TEST(DesignJson, TablesOfRelationsAreAddedBehindTheOthers) {
    EXPECT_EQ(Reread(R"({"tables":["E"],"relations":[{"LeftTable":"A","RightTable":"B"}]})"),
              R"({"distinct":false,"tables":["E","A","B"],"relations":[{"LeftTable":"A","LeftField":"",)"
              R"("RightTable":"B","RightField":"","JType":0}],"columns":[]})");
}

TEST(DesignJson, AColumnKeepsItsPlace) {
    model::Design design;
    ASSERT_FALSE(ReadDesign(Json::parse(R"({"columns":[{"Campo":""},{"Campo":"b","Titulo":"t"}]})"), design));
    EXPECT_EQ(design.grid.Cell(GridRow::Campo, 0), L"");
    EXPECT_EQ(design.grid.Cell(GridRow::Campo, 1), L"b");
    EXPECT_EQ(design.grid.Caption(1), L"t");
}

TEST(DesignJson, SixtyColumnsFitAndSixtyOneDoNot) {
    Json json;
    for (int i = 0; i < 60; ++i) json["columns"].push_back({{"Campo", "c" + std::to_string(i)}});
    model::Design design;
    EXPECT_FALSE(ReadDesign(json, design));
    EXPECT_EQ(design.grid.Cell(GridRow::Campo, 59), L"c59");
    json["columns"].push_back({{"Campo", "c60"}});
    EXPECT_EQ(Reread(json.dump()), "error: un diseño tiene como máximo 60 columnas");
}

TEST(DesignJson, ACellHolds255Characters) {
    Json json;
    json["columns"].push_back({{"Condicion", std::string(255, 'a')}});
    model::Design design;
    EXPECT_FALSE(ReadDesign(json, design));
    json["columns"][0]["Condicion"] = std::string(256, 'a');
    EXPECT_EQ(Reread(json.dump()), "error: \"Condicion\" de la columna 1 tiene más de 255 caracteres");
}

TEST(DesignJson, OtherKindsOfValueAreRefused) {
    const std::pair<const char*, const char*> cases[] = {
        {"[]", "el diseño no es un objeto JSON"},
        {R"({"distinct":"si"})", "\"distinct\" no es verdadero ni falso"},
        {R"({"tables":"A"})", "\"tables\" no es una lista"},
        {R"({"tables":[1]})", "una tabla no es un texto"},
        {R"({"relations":{}})", "\"relations\" no es una lista"},
        {R"({"relations":[1]})", "una relación no es un objeto"},
        {R"({"relations":[{"LeftField":1}]})", "\"LeftField\" de una relación no es un texto"},
        {R"({"relations":[{"JType":"1"}]})", "\"JType\" de una relación no es un entero"},
        {R"({"relations":[{"JType":4294967296}]})", "\"JType\" de una relación no es un entero"},
        {R"({"columns":1})", "\"columns\" no es una lista"},
        {R"({"columns":[1]})", "la columna 1 no es un objeto"},
        {R"({"columns":[{},{"OR":1}]})", "\"OR\" de la columna 2 no es un texto"},
    };
    for (const auto& [json, message] : cases)
        EXPECT_EQ(Reread(json), std::string("error: ") + message) << json;
}

}  // namespace
}  // namespace tessel::tools
