// What the analysis tests share: a schema in a few words, and a design written as text.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "analyse/analyse_sql.h"
#include "common/identifiers.h"
#include "common/text.h"
#include "model/design.h"
#include "schema/schema.h"

namespace tessel::test {

/// Tables of adVarWChar fields; "Activo:11" gives the number of another ADO type.
class FixedSchema : public schema::SchemaSource {
public:
    using Tables = std::vector<std::pair<std::wstring, std::vector<std::wstring>>>;
    explicit FixedSchema(Tables tables) : tables_(std::move(tables)) {}

    Result<std::vector<schema::Object>> LoadObjects() override {
        std::vector<schema::Object> objects;
        for (const auto& [name, fields] : tables_) {
            objects.push_back({BracketIfNeeded(name), name, schema::ObjectKind::Table});
        }
        return objects;
    }
    Result<std::vector<schema::Field>> LoadFields(const schema::Object& object) override {
        std::vector<schema::Field> result;
        for (const auto& [name, fields] : tables_) {
            if (name != object.raw_name) continue;
            for (const std::wstring& text : fields) {
                const std::size_t colon = text.find(L':');
                schema::Field field;
                field.raw_name = text.substr(0, colon);
                field.name = BracketIfNeeded(field.raw_name);
                field.ado_type = colon == std::wstring::npos ? 202 : std::stoi(text.substr(colon + 1));
                result.push_back(std::move(field));
            }
        }
        return result;
    }
    Result<std::vector<schema::ForeignKey>> LoadForeignKeys() override {
        return std::vector<schema::ForeignKey>();
    }

private:
    Tables tables_;
};

inline schema::Schema MakeSchema(FixedSchema::Tables tables) {
    return schema::Schema(std::make_unique<FixedSchema>(std::move(tables)));
}

/// A used column as "Campo|Título|Tabla|Agrupación|Visible|Orden|Condición|OR" without empty cells at the
/// end.
inline std::wstring ColumnText(const model::DesignGrid& grid, int column) {
    std::wstring text;
    for (const model::GridRow row : model::kGridRows) {
        text += grid.Cell(row, column);
        text += L'|';
    }
    while (!text.empty() && text.back() == L'|') text.pop_back();
    return text;
}

inline std::vector<std::wstring> ColumnTexts(const model::Design& design) {
    std::vector<std::wstring> texts;
    for (int column = 0; column < design.grid.ColumnCount(); ++column) {
        if (design.grid.IsColumnUsed(column)) texts.push_back(ColumnText(design.grid, column));
    }
    return texts;
}

/// "A.x = B.y" for an inner join, "A.x => B.y" for LEFT, "A.x <= B.y" for RIGHT.
inline std::vector<std::wstring> RelationTexts(const model::Design& design) {
    std::vector<std::wstring> texts;
    for (const model::DiagramRelation& relation : design.diagram.Relations()) {
        const model::RelInfo& info = relation.info;
        const wchar_t* sign = info.JType == 0 ? L" = " : info.JType == 1 ? L" => " : L" <= ";
        texts.push_back(info.LeftTable + L"." + info.LeftField + sign + info.RightTable + L"." +
                        info.RightField);
    }
    return texts;
}

inline std::vector<std::wstring> TableNames(const model::Design& design) {
    std::vector<std::wstring> names;
    for (const model::DiagramTable& table : design.diagram.Tables()) names.push_back(table.name);
    return names;
}

using Texts = std::vector<std::wstring>;

/// The columns of an accepted statement; anything else fails the test.
inline Texts Columns(const wchar_t* statement, const schema::Schema* schema = nullptr) {
    model::Design design;
    design.diagram.Bind(schema);
    const analyse::Analysis analysis = analyse::AnalyseSQL(statement, design);
    EXPECT_TRUE(analysis.accepted) << ToUtf8(statement)
                                   << (analysis.error ? "\n" + ToUtf8(analysis.error->message) : "");
    EXPECT_TRUE(analysis.messages.empty()) << ToUtf8(statement);
    return ColumnTexts(design);
}

/// The message of an accepted statement whose clause does not fit, and the columns.
inline Texts Messages(const wchar_t* statement, Texts* columns = nullptr) {
    model::Design design;
    const analyse::Analysis analysis = analyse::AnalyseSQL(statement, design);
    EXPECT_TRUE(analysis.accepted) << ToUtf8(statement);
    EXPECT_FALSE(analysis.error);
    if (columns) *columns = ColumnTexts(design);
    return analysis.messages;
}

}  // namespace tessel::test
