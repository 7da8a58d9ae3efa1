#include "controls/browser/browser_model.h"

#include <gtest/gtest.h>

#include <memory>

#include "tests/browser/sample_schema.h"

namespace tessel::controls {
namespace {

using schema::ObjectKind;

class BrowserModelTest : public testing::Test {
protected:
    BrowserModelTest() : schema_(MakeSampleSchema(&field_loads_)) { model_.Load(&schema_, L"ventas"); }

    std::vector<std::wstring> Shown() const {
        std::vector<std::wstring> names;
        for (std::size_t i : model_.Tables()) names.push_back(model_.ObjectAt(i).name);
        for (std::size_t i : model_.Views()) names.push_back(L"v:" + model_.ObjectAt(i).name);
        return names;
    }

    int field_loads_ = 0;
    schema::Schema schema_;
    BrowserModel model_;
};

using Names = std::vector<std::wstring>;

TEST_F(BrowserModelTest, TablesAndViewsApartInTheSchemasOrder) {
    EXPECT_EQ(model_.Caption(), L"ventas");
    EXPECT_EQ(Shown(), (Names{L"Clientes", L"Categorías", L"[Detalle de pedidos]", L"Pedidos",
                              L"v:[Ventas por año]"}));
    EXPECT_EQ(model_.GroupCaption(ObjectKind::Table), L"Tablas (4)");
    EXPECT_EQ(model_.GroupCaption(ObjectKind::View), L"Vistas (1)");
}

TEST_F(BrowserModelTest, FieldsAreReadWhenAskedForAndOnce) {
    EXPECT_EQ(field_loads_, 0);
    const auto fields = model_.FieldsOf(0);
    EXPECT_EQ(field_loads_, 1);
    ASSERT_EQ(fields.size(), 2u);
    EXPECT_EQ(fields[0].name, L"IdCliente");
    EXPECT_EQ(fields[0].type_text, L"Entero largo");
    EXPECT_TRUE(fields[0].primary_key);
    EXPECT_EQ(fields[1].type_text, L"Texto (40)");
    (void)model_.FieldsOf(0);
    EXPECT_EQ(field_loads_, 1);
}

TEST_F(BrowserModelTest, AnObjectWithUnreadableFieldsHasNone) {
    EXPECT_TRUE(model_.FieldsOf(model_.FindObject(L"Pedidos")).empty());
    EXPECT_TRUE(model_.FieldsOf(1000).empty());
}

TEST_F(BrowserModelTest, TheFilterIgnoresCaseAccentsBracketsAndBlanksAround) {
    EXPECT_TRUE(model_.SetFilter(L" PEDIDOS "));
    EXPECT_EQ(Shown(), (Names{L"[Detalle de pedidos]", L"Pedidos"}));
    EXPECT_EQ(model_.GroupCaption(ObjectKind::Table), L"Tablas (2)");
    EXPECT_TRUE(model_.SetFilter(L"categorias"));
    EXPECT_EQ(Shown(), (Names{L"Categorías"}));
    EXPECT_TRUE(model_.SetFilter(L"[ventas por año]"));
    EXPECT_EQ(Shown(), (Names{L"v:[Ventas por año]"}));
    EXPECT_TRUE(model_.SetFilter(L"zzz"));
    EXPECT_EQ(Shown(), Names{});
    EXPECT_TRUE(model_.IsFiltered());
    EXPECT_TRUE(model_.SetFilter(L"  "));
    EXPECT_FALSE(model_.IsFiltered());
    EXPECT_EQ(Shown().size(), 5u);
}

TEST_F(BrowserModelTest, AFilterThatShowsTheSameReportsNoChange) {
    EXPECT_TRUE(model_.SetFilter(L"ped"));
    EXPECT_FALSE(model_.SetFilter(L"pedi"));
    EXPECT_FALSE(model_.SetFilter(L"PEDI"));
    EXPECT_TRUE(model_.SetFilter(L""));
}

TEST_F(BrowserModelTest, TheFilterStaysWhenAnotherSchemaIsLoaded) {
    model_.SetFilter(L"cli");
    int loads = 0;
    const schema::Schema other = MakeSampleSchema(&loads);
    model_.Load(&other, L"otra");
    EXPECT_EQ(Shown(), (Names{L"Clientes"}));
    EXPECT_EQ(model_.Caption(), L"otra");
}

TEST_F(BrowserModelTest, ObjectsAndFieldsAreFoundByNameUnlessFilteredAway) {
    EXPECT_EQ(model_.FindObject(L" detalle de PEDIDOS "), 2u);
    EXPECT_EQ(model_.FindObject(L"Nada"), BrowserModel::kNone);
    EXPECT_EQ(model_.FindField(0, L"nombre"), 1u);
    EXPECT_EQ(model_.FindField(0, L"nada"), BrowserModel::kNone);
    model_.SetFilter(L"cli");
    EXPECT_EQ(model_.FindObject(L"Pedidos"), BrowserModel::kNone);
    EXPECT_EQ(model_.FindObject(L"Clientes"), 0u);
}

TEST_F(BrowserModelTest, ItemsCarryTheKindCodesOfTablesAndViews) {
    EXPECT_EQ(model_.ItemOfObject(2), (BrowserItem{BrowserItem::Kind::Table, L"[Detalle de pedidos]", L""}));
    EXPECT_EQ(model_.ItemOfObject(4), (BrowserItem{BrowserItem::Kind::View, L"[Ventas por año]", L""}));
    EXPECT_EQ(model_.ItemOfField(0, 1), (BrowserItem{BrowserItem::Kind::Field, L"Nombre", L"Clientes"}));
    EXPECT_EQ(static_cast<int>(BrowserItem::Kind::Table), static_cast<int>(ObjectKind::Table));
    EXPECT_EQ(static_cast<int>(BrowserItem::Kind::View), static_cast<int>(ObjectKind::View));
}

TEST_F(BrowserModelTest, NoSchemaIsAnEmptyTree) {
    model_.Load(nullptr, L"Esquema de base de datos");
    EXPECT_TRUE(Shown().empty());
    EXPECT_EQ(model_.FindObject(L"Clientes"), BrowserModel::kNone);
    EXPECT_TRUE(model_.FieldsOf(0).empty());
}

struct TypeCase {
    int ado_type;
    std::int64_t size;
    int precision;
    int scale;
    const wchar_t* text;
};

TEST(FieldTypes, AreDescribedInSpanish) {
    const TypeCase kCases[] = {
        {202, 40, 0, 0, L"Texto (40)"},
        {200, 0, 0, 0, L"Texto"},
        {202, 2147483647, 0, 0, L"Texto"},
        {203, 0, 0, 0, L"Texto largo"},
        {3, 4, 10, 0, L"Entero largo"},
        {2, 2, 5, 0, L"Entero"},
        {20, 8, 19, 0, L"Entero grande"},
        {17, 1, 3, 0, L"Byte"},
        {5, 8, 15, 0, L"Doble"},
        {4, 4, 7, 0, L"Simple"},
        {6, 8, 19, 4, L"Moneda"},
        {131, 0, 10, 2, L"Decimal (10,2)"},
        {14, 0, 0, 0, L"Decimal"},
        {11, 2, 0, 0, L"Sí/No"},
        {7, 8, 0, 0, L"Fecha y hora"},
        {135, 0, 0, 0, L"Fecha y hora"},
        {133, 0, 0, 0, L"Fecha"},
        {134, 0, 0, 0, L"Hora"},
        {205, 0, 0, 0, L"Binario largo"},
        {128, 16, 0, 0, L"Binario (16)"},
        {72, 16, 0, 0, L"Identificador único"},
        {0, 0, 0, 0, L"adEmpty"},
        {9999, 0, 0, 0, L""},
    };
    for (const TypeCase& c : kCases) {
        schema::Field field;
        field.ado_type = c.ado_type;
        field.size = c.size;
        field.precision = c.precision;
        field.scale = c.scale;
        EXPECT_EQ(FieldTypeText(field), c.text) << c.ado_type;
    }
}

}  // namespace
}  // namespace tessel::controls
