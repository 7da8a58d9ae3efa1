// Composition from designs of any words, and the way back.
#include <fuzzer/FuzzedDataProvider.h>

#include "compose/compose.h"
#include "tests/fuzz/fuzz_input.h"
#include "tests/fuzz/sample_database.h"
#include "tests/laws/reading.h"

using namespace tessel;
using fuzz::Check;

namespace {

std::wstring Text(FuzzedDataProvider& data, std::size_t most) {
    const std::string bytes = data.ConsumeRandomLengthString(most);
    return fuzz::InputText(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
}

std::wstring Name(FuzzedDataProvider& data) {
    const std::vector<laws::Table>& tables = fuzz::SampleDatabase().tables;
    const std::size_t pick = data.ConsumeIntegralInRange<std::size_t>(0, tables.size());
    return pick < tables.size() ? tables[pick].name : Text(data, 12);
}

std::wstring FieldName(FuzzedDataProvider& data, const std::wstring& table) {
    for (const laws::Table& known : fuzz::SampleDatabase().tables) {
        if (known.name != table) continue;
        const std::size_t pick = data.ConsumeIntegralInRange<std::size_t>(0, known.fields.size());
        if (pick < known.fields.size()) return known.fields[pick].name;
    }
    return Text(data, 12);
}

/// One of the words of the row, or any text.
std::wstring Word(FuzzedDataProvider& data, const std::vector<std::wstring>& words) {
    const std::size_t pick = data.ConsumeIntegralInRange<std::size_t>(0, words.size() + 1);
    if (pick < words.size()) return words[pick];
    return pick == words.size() ? std::wstring() : Text(data, 8);
}

void Fill(FuzzedDataProvider& data, model::Design& design) {
    using model::GridRow;
    design.grid.LoadColumns();
    design.diagram.Bind(&fuzz::SampleSchema());
    design.distinct = data.ConsumeBool();
    for (int count = data.ConsumeIntegralInRange(0, 6); count > 0; --count)
        static_cast<void>(design.diagram.AddTable(Name(data), data.ConsumeBool()));
    for (int count = data.ConsumeIntegralInRange(0, 6); count > 0; --count) {
        model::RelInfo relation;
        relation.LeftTable = Name(data);
        relation.LeftField = FieldName(data, relation.LeftTable);
        relation.RightTable = Name(data);
        relation.RightField = FieldName(data, relation.RightTable);
        relation.JType = data.ConsumeIntegralInRange(-1, 3);
        static_cast<void>(design.diagram.AddRelation(relation));
    }
    for (int column = 0; column < model::kGridColumnCount && data.remaining_bytes() > 0; ++column) {
        const std::wstring table = Name(data);
        const std::wstring cells[] = {
            data.ConsumeBool() ? table + L"." + FieldName(data, table) : Text(data, 60),
            data.ConsumeBool() ? std::wstring() : Text(data, 12),
            table,
            Word(data, model::GroupingWords()),
            Word(data, model::VisibleWords()),
            Word(data, model::OrderWords()),
            data.ConsumeBool() ? std::wstring() : Text(data, 24),
            data.ConsumeBool() ? std::wstring() : Text(data, 24)};
        for (std::size_t row = 0; row < std::size(cells); ++row)
            static_cast<void>(design.grid.SetCell(model::kGridRows[row], column, cells[row]));
    }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    FuzzedDataProvider data(bytes, size);
    model::Design design;
    Fill(data, design);
    const std::wstring text = compose::BuildSQL(design);
    Check(text == compose::BuildSQL(design), "composition is a function of the design", text);
    Check(text.empty() || (text.starts_with(L"SELECT ") && text.ends_with(L";")), "a statement's frame",
          text);
    const laws::Reading reading = laws::Read(text, &fuzz::SampleSchema());
    if (!reading.analysis.accepted || !reading.analysis.messages.empty()) return 0;
    const std::string instability = laws::Instability(reading, &fuzz::SampleSchema());
    Check(instability.empty(), instability.c_str(), text, reading.composed);
    return 0;
}
