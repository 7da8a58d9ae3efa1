// Laws over random designs: what a plain design composes is read back as the same design.
#include <gtest/gtest.h>

#include <cstdlib>
#include <random>

#include "common/text.h"
#include "compose/compose.h"
#include "tests/analyse/support.h"
#include "tests/compose/design_builder.h"
#include "tests/support/seed.h"

namespace tessel::analyse {
namespace {

constexpr int kDesigns = 400;

class RandomDesigns {
public:
    explicit RandomDesigns(unsigned seed) : random_(seed) {}

    /// Joined or listed tables, fields, expressions, aliases, sort marks and one criterion a column. Sort
    /// keys and hidden columns stand as the analysis would put them: hidden ones last, with something to do.
    void Fill(model::Design& design) {
        const std::vector<std::wstring> names = {L"Clientes", L"[Detalle de pedidos]", L"Países", L"t4",
                                                 L"T_5"};
        const int table_count = Pick(1, 5);
        std::vector<std::wstring> tables(names.begin(), names.begin() + table_count);
        std::vector<model::RelInfo> relations;
        for (int table = 1; table < table_count; ++table) {
            if (Pick(0, 5) == 0) break;
            const std::wstring left = tables[static_cast<std::size_t>(Pick(0, table - 1))];
            const auto kind = static_cast<std::int32_t>(Pick(0, 2));
            relations.push_back(
                {left, Field(), tables[static_cast<std::size_t>(table)], Field(), kind, false});
        }
        std::vector<test::Column> columns;
        const int column_count = Pick(1, 8);
        for (int index = 0; index < column_count; ++index) {
            test::Column column;
            const std::wstring field = L"f" + std::to_wstring(index);
            const std::wstring table = tables[static_cast<std::size_t>(Pick(0, table_count - 1))];
            const bool expression = Pick(0, 3) == 0;
            column.campo = expression ? table + L"." + field + L" * 2" : table + L"." + field;
            column.tabla = expression ? L"" : table;
            column.titulo =
                expression ? (Pick(0, 1) ? L"" : L"x" + field) : (Pick(0, 1) ? field : L"[y " + field + L"]");
            const bool hidden = index > 0 && index + 1 == column_count && Pick(0, 2) == 0;
            column.visible = hidden ? L"No" : L"Si";
            if (hidden) column.titulo = expression ? L"" : field;
            const int order = Pick(0, 4);
            column.orden = order == 0 ? L"Ascendente" : order == 1 ? L"Descendente" : L"";
            if (Pick(0, 2) == 0 || (hidden && column.orden.empty())) column.condicion = Criterion();
            columns.push_back(std::move(column));
        }
        test::FillDesign(design, tables, relations, columns, Pick(0, 3) == 0);
    }

private:
    int Pick(int low, int high) { return std::uniform_int_distribution<int>(low, high)(random_); }

    std::wstring Field() { return Pick(0, 3) == 0 ? L"[id " + std::to_wstring(Pick(0, 9)) + L"]" : L"Id"; }

    std::wstring Criterion() {
        const wchar_t* signs[] = {L"=", L"<>", L"<", L"<=", L">", L">="};
        const wchar_t* values[] = {L"'Chile'", L"10",      L"-2.5",  L"#2024-01-31#",
                                   L"@desde",  L"(1 + 2)", L"'o''x'"};
        return std::wstring(signs[Pick(0, 5)]) + L" " + values[Pick(0, 6)];
    }

    std::mt19937 random_;
};

unsigned Seed() {
    return static_cast<unsigned>(tests::Seed());
}

std::string Join(const std::vector<std::wstring>& lines) {
    std::wstring text;
    for (const std::wstring& line : lines) text += line + L"\n";
    return ToUtf8(text);
}

TEST(RoundTrips, PlainDesignIsReadBackAsItIs) {
    const unsigned seed = Seed();
    RecordProperty("seed", std::to_string(seed));
    std::cout << "TESSEL_SEED=" << seed << '\n';
    RandomDesigns designs(seed);
    for (int count = 0; count < kDesigns; ++count) {
        model::Design design;
        designs.Fill(design);
        const std::wstring text = compose::BuildSQL(design);
        model::Design again;
        const Analysis analysis = AnalyseSQL(text, again);
        ASSERT_TRUE(analysis.accepted)
            << ToUtf8(text) << (analysis.error ? "\n" + ToUtf8(analysis.error->message) : "");
        ASSERT_TRUE(analysis.messages.empty()) << ToUtf8(text);
        ASSERT_EQ(Join(test::ColumnTexts(again)), Join(test::ColumnTexts(design))) << ToUtf8(text);
        ASSERT_EQ(Join(test::RelationTexts(again)), Join(test::RelationTexts(design))) << ToUtf8(text);
        ASSERT_EQ(again.distinct, design.distinct);
        ASSERT_EQ(ToUtf8(compose::BuildSQL(again)), ToUtf8(text));
    }
}

}  // namespace
}  // namespace tessel::analyse
