#include "tests/laws/random_designs.h"

#include <algorithm>

#include "common/text.h"
#include "tests/compose/design_builder.h"

namespace tessel::laws {

namespace {

constexpr int kMostTables = 4;

std::vector<const Table*> SomeTables(Random& random, const Database& database) {
    std::vector<const Table*> tables;
    for (const Table& table : database.tables) tables.push_back(&table);
    random.Shuffle(tables);
    tables.resize(static_cast<std::size_t>(random.Pick(1, kMostTables)));
    return tables;
}

/// Relations in an order in which each touches an earlier one; the tables after the last stand alone.
std::vector<model::RelInfo> SomeRelations(Random& random, const std::vector<const Table*>& tables) {
    std::vector<model::RelInfo> relations;
    for (std::size_t index = 1; index < tables.size() && !random.Chance(15); ++index) {
        const Table& left = *tables[static_cast<std::size_t>(random.Pick(0, static_cast<int>(index) - 1))];
        const Table& right = *tables[index];
        model::RelInfo relation{left.name,         random.Of(left.fields).name,
                                right.name,        random.Of(right.fields).name,
                                random.Pick(0, 2), false};
        // The further comparisons of an inner join are read as criteria.
        if (relation.JType != model::kInnerJoin && random.Chance(25)) {
            relation.RightField += L" AND " + left.name + L"." + random.Of(left.fields).name +
                                   (random.Chance(70) ? L" = " : L" >= ") + right.name + L"." +
                                   random.Of(right.fields).name;
        }
        relations.push_back(std::move(relation));
    }
    return relations;
}

std::wstring Criterion(Random& random, FieldKind kind) {
    static const std::vector<std::wstring> signs = {L"=", L"<>", L"<", L"<=", L">", L">="};
    static const std::vector<std::wstring> others = {L"@desde", L"(1 + 2)", L"#2024-01-31#", L"[Desde qué]"};
    return random.Of(signs) + L" " + (random.Chance(15) ? random.Of(others) : RandomLiteral(random, kind));
}

std::wstring Direction(Random& random) {
    return random.Chance(50) ? L"Ascendente" : L"Descendente";
}

std::vector<std::wstring> NamesOf(const std::vector<const Table*>& tables) {
    std::vector<std::wstring> names;
    for (const Table* table : tables) names.push_back(table->name);
    return names;
}

/// Columns whose texts and captions are all different.
class TidyColumns {
public:
    TidyColumns(Random& random, const std::vector<const Table*>& tables) : random_(random), tables_(tables) {}

    std::vector<test::Column> Make() {
        const bool totals = random_.Chance(35);
        AddOutput(totals);
        AddHidden(totals);
        return columns_;
    }

private:
    void AddOutput(bool totals) {
        const int count = random_.Pick(1, 5);
        bool aggregated = false;
        for (int index = 0; index < count; ++index) {
            const bool last = index + 1 == count;
            const bool aggregate = totals && (random_.Chance(50) || (last && !aggregated));
            aggregated = aggregated || aggregate;
            test::Column column = aggregate ? Aggregate() : random_.Chance(20) ? Computed() : Plain();
            if (!totals && random_.Chance(5)) column = AllFields();
            column.visible = L"Si";
            if (totals) column.agrupacion = aggregate ? L"Expresión" : L"Agrupado por";
            const bool star = column.campo.back() == L'*';
            if (!star && random_.Chance(30)) column.orden = Direction(random_);
            Put(std::move(column));
        }
    }

    // In the order in which the clauses are read: grouping, sorting, filters.
    void AddHidden(bool totals) {
        const auto hide = [&](test::Column column) {
            column.visible = L"No";
            if (column.tabla.empty()) column.titulo.clear();
            Put(std::move(column));
        };
        if (totals && random_.Chance(25)) {
            test::Column column = Plain(true);
            column.agrupacion = L"Agrupado por";
            hide(std::move(column));
        }
        if (random_.Chance(25)) {
            test::Column column = totals ? Aggregate() : Plain(true);
            column.condicion.clear();
            column.alternative.clear();
            if (totals) column.agrupacion = L"Expresión";
            column.orden = Direction(random_);
            hide(std::move(column));
        }
        if (totals) return;
        if (random_.Chance(25)) {
            test::Column column = Plain(true);
            column.condicion = Criterion(random_, FieldKind::Number);
            hide(std::move(column));
        }
        if (random_.Chance(25)) {
            static const std::vector<std::wstring> tests = {L" Like 'a*'", L" Not Like '%x'", L" Is Null",
                                                            L" Between 1 And 2", L" In ('a', 'b')"};
            test::Column column;
            column.campo = L"(" + Plain().campo + random_.Of(tests) + L")";
            column.condicion = L"=True";
            hide(std::move(column));
        }
    }

    test::Column Plain(bool own_name = false) {
        const Table& table = *random_.Of(tables_);
        const Field& field = random_.Of(table.fields);
        test::Column column;
        column.campo = table.name + L"." + field.name;
        column.tabla = table.name;
        column.titulo =
            own_name || random_.Chance(50) ? field.name : L"[y " + std::to_wstring(columns_.size()) + L"]";
        Filter(column, field.kind);
        if (own_name) column.condicion = column.alternative = L"";
        return column;
    }

    test::Column Computed() {
        test::Column column;
        static const std::vector<std::wstring> endings = {L" & 'x'", L" * 2"};
        const std::wstring field = Plain().campo;
        column.campo = random_.Chance(20) ? L"(" + field + L" * 3)" : field + random_.Of(endings);
        if (random_.Chance(50)) column.titulo = L"z" + std::to_wstring(columns_.size());
        return column;
    }

    test::Column AllFields() {
        const Table& table = *random_.Of(tables_);
        test::Column column;
        column.campo = table.name + L".*";
        column.tabla = table.name;
        return column;
    }

    test::Column Aggregate() {
        static const std::vector<std::wstring> words = {L"Sum(", L"Avg(", L"Min(", L"Max(", L"count("};
        test::Column column;
        column.campo = random_.Of(words) + Plain().campo + L")";
        if (random_.Chance(60)) column.titulo = L"t" + std::to_wstring(columns_.size());
        Filter(column, FieldKind::Number);
        return column;
    }

    void Filter(test::Column& column, FieldKind kind) {
        if (!random_.Chance(25)) return;
        column.condicion = Criterion(random_, kind);
        if (random_.Chance(25)) column.alternative = Criterion(random_, kind);
    }

    void Put(test::Column column) {
        for (const test::Column& other : columns_) {
            if (SameName(other.campo, column.campo)) return;
            // A caption stands once, whether its column is shown or not.
            if (!column.titulo.empty() && SameName(other.titulo, column.titulo)) return;
        }
        columns_.push_back(std::move(column));
    }

    Random& random_;
    const std::vector<const Table*>& tables_;
    std::vector<test::Column> columns_;
};

}  // namespace

void FillTidyDesign(Random& random, const Database& database, model::Design& design) {
    const std::vector<const Table*> tables = SomeTables(random, database);
    const std::vector<model::RelInfo> relations = SomeRelations(random, tables);
    test::FillDesign(design, NamesOf(tables), relations, TidyColumns(random, tables).Make(),
                     random.Chance(25));
}

void FillAnyDesign(Random& random, const Database& database, model::Design& design) {
    static const std::vector<std::wstring> groupings = {
        L"", L"", L"Agrupado por", L"Suma", L"suma", L"Cuenta", L"Mínimo", L"Promedio", L"Expresión"};
    static const std::vector<std::wstring> visible = {L"Si", L"Si", L"", L"No", L"no"};
    static const std::vector<std::wstring> orders = {L"", L"", L"Ascendente", L"Descendente", L"descendente",
                                                     L"x"};
    static const std::vector<std::wstring> criteria = {
        L"",    L"",      L"",   L"1",        L"= 1",          L" > 0", L"!= 2",   L"Like 'a'",
        L"'a'", L"=True", L"@m", L"<> False", L"= 1 OR 2 = 2", L"Null", L"Is Null"};
    static const std::vector<std::wstring> aliases = {L"", L"", L"", L"x", L"Id", L"[con blanco]", L"Nombre"};
    const std::vector<const Table*> tables = SomeTables(random, database);
    std::vector<test::Column> columns;
    const int count = random.Pick(1, 5);
    for (int index = 0; index < count; ++index) {
        const Table& table = *random.Of(tables);
        const std::wstring field = table.name + L"." + random.Of(table.fields).name;
        test::Column column;
        switch (random.Pick(0, 7)) {
            case 0:
                column.campo = L"Sum(" + field + L")";
                break;
            case 1:
                column.campo = field + L" + 1";
                break;
            case 2:
                column.campo = L"(" + field + L" Like 'a%')";
                break;
            case 3:
                column.campo = random.Of(table.fields).name;
                break;
            case 4:
                column.campo = random.Chance(50) ? L"*" : table.name + L".*";
                break;
            default:
                column.campo = field;
        }
        column.titulo = random.Of(aliases);
        column.agrupacion = random.Of(groupings);
        column.visible = random.Of(visible);
        column.orden = random.Of(orders);
        column.condicion = random.Of(criteria);
        column.alternative = random.Of(criteria);
        columns.push_back(std::move(column));
    }
    std::vector<model::RelInfo> relations = SomeRelations(random, tables);
    random.Shuffle(relations);
    test::FillDesign(design, NamesOf(tables), relations, columns, random.Chance(25));
}

}  // namespace tessel::laws
