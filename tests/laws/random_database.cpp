#include "tests/laws/random_database.h"

#include <algorithm>
#include <memory>

#include "common/identifiers.h"

namespace tessel::laws {

namespace {

constexpr int kMostRows = 5;

const std::vector<std::wstring> kTableNames = {
    L"Clientes", L"Pedidos", L"[Detalle de pedidos]", L"Productos", L"Países", L"Activo", L"[Order]", L"T_5"};

const std::vector<Field> kFields = {
    {L"Id", FieldKind::Number},           {L"Id", FieldKind::Number},
    {L"IdCliente", FieldKind::Number},    {L"Cantidad", FieldKind::Number},
    {L"[Año fiscal]", FieldKind::Number}, {L"[Count]", FieldKind::Number},
    {L"Precio", FieldKind::Real},         {L"Importe", FieldKind::Real},
    {L"Nombre", FieldKind::Text},         {L"Nombre", FieldKind::Text},
    {L"País", FieldKind::Text},           {L"[Nombre completo]", FieldKind::Text},
    {L"Pedidos", FieldKind::Number},      {L"Activo", FieldKind::Truth},
    {L"Enviado", FieldKind::Truth}};

const wchar_t* TypeOf(FieldKind kind) {
    switch (kind) {
        case FieldKind::Number:
            return L"INT";
        case FieldKind::Real:
            return L"DOUBLE";
        case FieldKind::Text:
            return L"VARCHAR(20)";
        case FieldKind::Truth:
            return L"BOOLEAN";
    }
    return L"INT";
}

int AdoTypeOf(FieldKind kind) {
    switch (kind) {
        case FieldKind::Number:
            return 3;
        case FieldKind::Real:
            return 5;
        case FieldKind::Text:
            return 202;
        case FieldKind::Truth:
            return 11;
    }
    return 0;
}

std::wstring BackQuoted(const std::wstring& name) {
    return L"`" + Unbracketed(name) + L"`";
}

class TablesAsSchema : public schema::SchemaSource {
public:
    explicit TablesAsSchema(std::vector<Table> tables) : tables_(std::move(tables)) {}

    Result<std::vector<schema::Object>> LoadObjects() override {
        std::vector<schema::Object> objects;
        for (const Table& table : tables_) {
            const std::wstring raw = Unbracketed(table.name);
            objects.push_back({BracketIfNeeded(raw), raw, schema::ObjectKind::Table});
        }
        return objects;
    }
    Result<std::vector<schema::Field>> LoadFields(const schema::Object& object) override {
        std::vector<schema::Field> fields;
        for (const Table& table : tables_) {
            if (!SameIdentifier(table.name, object.raw_name)) continue;
            for (const Field& field : table.fields) {
                schema::Field known;
                known.raw_name = Unbracketed(field.name);
                known.name = BracketIfNeeded(known.raw_name);
                known.ado_type = AdoTypeOf(field.kind);
                fields.push_back(std::move(known));
            }
        }
        return fields;
    }
    Result<std::vector<schema::ForeignKey>> LoadForeignKeys() override {
        return std::vector<schema::ForeignKey>();
    }

private:
    std::vector<Table> tables_;
};

Table RandomTable(Random& random, const std::wstring& name) {
    Table table;
    table.name = name;
    // Every table can be joined by a number and by a text.
    std::vector<Field> pool = kFields;
    random.Shuffle(pool);
    const std::size_t width = static_cast<std::size_t>(random.Pick(3, 5));
    const auto add = [&](const Field& field) {
        const bool there = std::ranges::any_of(
            table.fields, [&](const Field& other) { return SameIdentifier(other.name, field.name); });
        if (!there) table.fields.push_back(field);
    };
    const auto first_of = [&](FieldKind kind) {
        return *std::ranges::find_if(pool, [&](const Field& field) { return field.kind == kind; });
    };
    add(first_of(FieldKind::Number));
    add(first_of(FieldKind::Text));
    for (const Field& field : pool) {
        if (table.fields.size() < width) add(field);
    }
    const int rows = random.Pick(0, 9) == 0 ? 0 : random.Pick(1, kMostRows);
    for (int row = 0; row < rows; ++row) {
        std::vector<std::wstring> values;
        for (const Field& field : table.fields) {
            values.push_back(random.Chance(20) ? L"NULL" : RandomLiteral(random, field.kind));
        }
        table.rows.push_back(std::move(values));
    }
    return table;
}

}  // namespace

std::wstring RandomLiteral(Random& random, FieldKind kind) {
    static const std::vector<std::wstring> texts = {L"'a'",    L"'A'", L"'ab'", L"'b'",
                                                    L"'o''x'", L"''",  L"'%'"};
    static const std::vector<std::wstring> reals = {L"0.5", L"1.5", L"2.0", L"-1.5", L"1.0"};
    switch (kind) {
        case FieldKind::Number:
            return std::to_wstring(random.Pick(-1, 3));
        case FieldKind::Real:
            return random.Of(reals);
        case FieldKind::Text:
            return random.Of(texts);
        case FieldKind::Truth:
            return random.Chance(50) ? L"True" : L"False";
    }
    return L"0";
}

std::vector<std::wstring> Database::Script() const {
    std::vector<std::wstring> script;
    for (const Table& table : tables) {
        const std::wstring name = BackQuoted(table.name);
        std::wstring create = L"CREATE TABLE " + name + L" (";
        for (const Field& field : table.fields) {
            if (&field != &table.fields.front()) create += L", ";
            create += BackQuoted(field.name) + L" " + TypeOf(field.kind);
        }
        script.push_back(create + L")");
        for (const std::vector<std::wstring>& row : table.rows) {
            std::wstring insert = L"INSERT INTO " + name + L" VALUES (";
            for (const std::wstring& value : row) {
                if (&value != &row.front()) insert += L", ";
                insert += value;
            }
            script.push_back(insert + L")");
        }
    }
    return script;
}

schema::Schema Database::MakeSchema() const {
    return schema::Schema(std::make_unique<TablesAsSchema>(tables));
}

Database RandomDatabase(Random& random) {
    Database database;
    std::vector<std::wstring> names = kTableNames;
    random.Shuffle(names);
    names.resize(static_cast<std::size_t>(random.Pick(4, 6)));
    for (const std::wstring& name : names) database.tables.push_back(RandomTable(random, name));
    return database;
}

}  // namespace tessel::laws
