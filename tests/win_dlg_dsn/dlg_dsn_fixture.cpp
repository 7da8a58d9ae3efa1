#include "tests/win_dlg_dsn/dlg_dsn_fixture.h"

#include <commctrl.h>

#include "common/identifiers.h"

namespace tessel::testing {

namespace {

constexpr int kText = 202;     // adVarWChar
constexpr int kInteger = 3;    // adInteger
constexpr int kDate = 135;     // adDBTimeStamp
constexpr int kNumeric = 131;  // adNumeric

class LiteralSource final : public schema::SchemaSource {
public:
    Result<std::vector<schema::Object>> LoadObjects() override {
        return std::vector<schema::Object>{Named(L"Clientes"), Named(L"Pedidos"),
                                           Named(L"Detalle de pedidos"), Named(L"Productos"),
                                           Named(L"Ventas por país", schema::ObjectKind::View)};
    }

    Result<std::vector<schema::Field>> LoadFields(const schema::Object& object) override {
        if (object.raw_name == L"Clientes")
            return std::vector<schema::Field>{Field(L"IdCliente", kInteger, true), Field(L"Nombre", kText),
                                              Field(L"Pais", kText), Field(L"Teléfono", kText),
                                              Field(L"Fecha de alta", kDate)};
        if (object.raw_name == L"Pedidos")
            return std::vector<schema::Field>{Field(L"IdPedido", kInteger, true),
                                              Field(L"IdCliente", kInteger), Field(L"Fecha", kDate),
                                              Field(L"Importe", kNumeric)};
        if (object.raw_name == L"Detalle de pedidos")
            return std::vector<schema::Field>{Field(L"IdPedido", kInteger, true),
                                              Field(L"IdProducto", kInteger, true),
                                              Field(L"Cantidad", kInteger)};
        return std::vector<schema::Field>{Field(L"IdProducto", kInteger, true), Field(L"Descripción", kText)};
    }

    Result<std::vector<schema::ForeignKey>> LoadForeignKeys() override {
        return std::vector<schema::ForeignKey>{
            {L"FK_Pedidos_Clientes", L"Pedidos", {L"IdCliente"}, L"Clientes", {L"IdCliente"}},
            {L"FK_Detalle_Pedidos", L"[Detalle de pedidos]", {L"IdPedido"}, L"Pedidos", {L"IdPedido"}},
            {L"FK_Detalle_Productos",
             L"[Detalle de pedidos]",
             {L"IdProducto"},
             L"Productos",
             {L"IdProducto"}}};
    }

private:
    static schema::Object Named(std::wstring name, schema::ObjectKind kind = schema::ObjectKind::Table) {
        return {BracketIfNeeded(name), name, kind};
    }
    static schema::Field Field(std::wstring name, int type, bool key = false) {
        schema::Field field;
        field.name = BracketIfNeeded(name);
        field.raw_name = std::move(name);
        field.ado_type = type;
        field.primary_key = key;
        return field;
    }
};

}  // namespace

schema::Schema SmallSchema() {
    return schema::Schema(std::make_unique<LiteralSource>());
}

DlgDsnTest::DlgDsnTest() : schema_(SmallSchema()) {
    EXPECT_TRUE(window_.Create());
    window_.LoadSchema(&schema_, L"ventas");
    script_.OnTrouble([this] {
        if (HWND box = OpenMessageBox()) PostMessageW(box, WM_CLOSE, 0, 0);
        PostMessageW(window_.Handle(), WM_CLOSE, 0, 0);
    });
    script_.Until([this] { return IsWindowVisible(window_.Handle()) != FALSE; }, "the window is visible");
}

bool DlgDsnTest::Run(std::wstring_view statement) {
    window_.Presenter().SetDsn(statement);
    script_.Start();
    const bool answer = window_.ShowModal();
    EXPECT_TRUE(script_.Finished()) << script_.Trouble();
    return answer;
}

void DlgDsnTest::Press(int id) {
    PostMessageW(Control(id), BM_CLICK, 0, 0);
}

void DlgDsnTest::ClickTab(ui::Tab tab) {
    const HWND tabs = Control(ui::kIdTabs);
    RECT item{};
    SendMessageW(tabs, TCM_GETITEMRECT, static_cast<WPARAM>(tab), reinterpret_cast<LPARAM>(&item));
    MouseClick(ScreenPoint(tabs, item));
}

std::wstring DlgDsnTest::EditorText() {
    return window_.EditorText();
}

}  // namespace tessel::testing
