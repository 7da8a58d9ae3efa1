#include "hostkit/ado/schema_rowset.h"

#include <cwchar>
#include <functional>
#include <initializer_list>

#include "common/text.h"
#include "hostkit/ado/row_reader.h"

namespace tessel::ado {

using win32::UniqueVariant;

namespace {

using Text = std::optional<std::wstring>;
using CatalogueRow = std::vector<Text>;
using RowVisitor = std::function<void(const CatalogueRow&)>;

struct SchemaColumn {
    const wchar_t* name;
    AdoType type;
};

constexpr AdoType kText = AdoType::VarWChar;
constexpr AdoType kNumber = AdoType::Integer;

constexpr SchemaColumn kTables[] = {
    {L"TABLE_CATALOG", kText},
    {L"TABLE_SCHEMA", kText},
    {L"TABLE_NAME", kText},
    {L"TABLE_TYPE", kText},
    {L"TABLE_GUID", AdoType::Guid},
    {L"DESCRIPTION", kText},
    {L"TABLE_PROPID", kNumber},
    {L"DATE_CREATED", AdoType::DBTimeStamp},
    {L"DATE_MODIFIED", AdoType::DBTimeStamp},
};
constexpr SchemaColumn kViews[] = {
    {L"TABLE_CATALOG", kText},
    {L"TABLE_SCHEMA", kText},
    {L"TABLE_NAME", kText},
    {L"VIEW_DEFINITION", kText},
    {L"CHECK_OPTION", AdoType::Boolean},
    {L"IS_UPDATABLE", AdoType::Boolean},
    {L"DESCRIPTION", kText},
    {L"DATE_CREATED", AdoType::DBTimeStamp},
    {L"DATE_MODIFIED", AdoType::DBTimeStamp},
};
constexpr SchemaColumn kColumns[] = {
    {L"TABLE_CATALOG", kText},
    {L"TABLE_SCHEMA", kText},
    {L"TABLE_NAME", kText},
    {L"COLUMN_NAME", kText},
    {L"COLUMN_GUID", AdoType::Guid},
    {L"COLUMN_PROPID", kNumber},
    {L"ORDINAL_POSITION", kNumber},
    {L"COLUMN_HASDEFAULT", AdoType::Boolean},
    {L"COLUMN_DEFAULT", kText},
    {L"COLUMN_FLAGS", kNumber},
    {L"IS_NULLABLE", AdoType::Boolean},
    {L"DATA_TYPE", kNumber},
    {L"TYPE_GUID", AdoType::Guid},
    {L"CHARACTER_MAXIMUM_LENGTH", kNumber},
    {L"CHARACTER_OCTET_LENGTH", kNumber},
    {L"NUMERIC_PRECISION", kNumber},
    {L"NUMERIC_SCALE", kNumber},
    {L"DATETIME_PRECISION", kNumber},
    {L"DESCRIPTION", kText},
};
constexpr SchemaColumn kPrimaryKeys[] = {
    {L"TABLE_CATALOG", kText},       {L"TABLE_SCHEMA", kText},
    {L"TABLE_NAME", kText},          {L"COLUMN_NAME", kText},
    {L"COLUMN_GUID", AdoType::Guid}, {L"COLUMN_PROPID", kNumber},
    {L"ORDINAL", kNumber},           {L"PK_NAME", kText},
};
constexpr SchemaColumn kForeignKeys[] = {
    {L"PK_TABLE_CATALOG", kText},
    {L"PK_TABLE_SCHEMA", kText},
    {L"PK_TABLE_NAME", kText},
    {L"PK_COLUMN_NAME", kText},
    {L"PK_COLUMN_GUID", AdoType::Guid},
    {L"PK_COLUMN_PROPID", kNumber},
    {L"FK_TABLE_CATALOG", kText},
    {L"FK_TABLE_SCHEMA", kText},
    {L"FK_TABLE_NAME", kText},
    {L"FK_COLUMN_NAME", kText},
    {L"FK_COLUMN_GUID", AdoType::Guid},
    {L"FK_COLUMN_PROPID", kNumber},
    {L"ORDINAL", kNumber},
    {L"UPDATE_RULE", kText},
    {L"DELETE_RULE", kText},
    {L"PK_NAME", kText},
    {L"FK_NAME", kText},
    {L"DEFERRABILITY", kNumber},
};

/// A name argument of a catalogue function; null stands for no restriction.
SQLWCHAR* NameOrNull(const Text& text) {
    return text ? OdbcText(*text) : nullptr;
}
SQLSMALLINT LengthOf(const Text& text) {
    return text ? SQL_NTS : 0;
}

std::optional<long> NumberOf(const Text& text) {
    if (!text || text->empty()) return std::nullopt;
    return std::wcstol(text->c_str(), nullptr, 10);
}

/// A rowset under construction: values are stored by column name, everything else is Null.
class RowBuilder {
public:
    template <std::size_t Count>
    explicit RowBuilder(const SchemaColumn (&definition)[Count]) {
        auto columns = std::make_shared<ColumnList>();
        for (const SchemaColumn& entry : definition) {
            OdbcColumn source;
            source.name = entry.name;
            Column column = ColumnFrom(source);
            column.type = entry.type;
            column.defined_size = IsText(entry.type) ? 128 : 4;
            columns->push_back(std::move(column));
        }
        rows_ = std::make_shared<RowSet>();
        rows_->columns = std::move(columns);
        Begin();
    }

    void Put(const wchar_t* name, UniqueVariant value) {
        for (std::size_t i = 0; i < rows_->columns->size(); ++i)
            if ((*rows_->columns)[i].name == name) row_[i] = std::move(value);
    }
    /// An absent or empty text stays Null.
    void PutText(const wchar_t* name, const Text& text) {
        if (text && !text->empty()) Put(name, UniqueVariant(std::wstring_view(*text)));
    }
    void PutNumber(const wchar_t* name, std::optional<long> number) {
        if (number) Put(name, UniqueVariant(*number));
    }
    void Add() {
        for (const UniqueVariant& value : row_) rows_->rows.Append(value.Get());
        rows_->rows.EndRow();
        Begin();
    }
    /// Adds a whole row by the columns' places. Schemas have many tables, and a Variant for each cell of them
    /// would take longer than asking the driver.
    void AddTexts(std::initializer_list<const Text*> texts) {
        texts_.assign(rows_->columns->size(), {});
        std::size_t column = 0;
        for (const Text* text : texts) {
            if (text && *text) texts_[column] = **text;
            ++column;
        }
        rows_->rows.AddTextRow(texts_);
    }
    std::shared_ptr<RowSet> Take() { return std::move(rows_); }

private:
    void Begin() {
        row_.clear();
        for (std::size_t i = 0; i < rows_->columns->size(); ++i) row_.push_back(UniqueVariant::Null());
    }

    std::shared_ptr<RowSet> rows_;
    std::vector<UniqueVariant> row_;
    std::vector<std::wstring_view> texts_;
};

class SchemaBuilder {
public:
    SchemaBuilder(Session& session, const SchemaCriteria& criteria) : session_(session), criteria_(criteria) {
        const std::wstring current = session.CurrentCatalogue();
        if (!current.empty()) current_catalogue_ = current;
    }

    Status Tables(std::shared_ptr<RowSet>* target) {
        RowBuilder builder(kTables);
        Status read = VisitTables(Criterion(0), Criterion(2), [&](const CatalogueRow& row) {
            if (!Passes(row, 0, 3)) return;
            const Text* const description = row.size() > 4 ? &row[4] : nullptr;
            builder.AddTexts({&row[0], &row[1], &row[2], &row[3], nullptr, description});
        });
        *target = builder.Take();
        return read;
    }

    Status Views(std::shared_ptr<RowSet>* target) {
        RowBuilder builder(kViews);
        Status read = VisitTables(Criterion(0), Criterion(2), [&](const CatalogueRow& row) {
            if (!Passes(row, 0, 2) || !row[3] || !SameName(*row[3], L"VIEW")) return;
            builder.PutText(L"TABLE_CATALOG", row[0]);
            builder.PutText(L"TABLE_SCHEMA", row[1]);
            builder.PutText(L"TABLE_NAME", row[2]);
            if (row.size() > 4) builder.PutText(L"DESCRIPTION", row[4]);
            builder.Add();
        });
        *target = builder.Take();
        return read;
    }

    Status ColumnsOf(std::shared_ptr<RowSet>* target) {
        RowBuilder builder(kColumns);
        const Text catalogue = CatalogueOr(Criterion(0)), schema = Criterion(1), table = Criterion(2);
        const Status read = Visit(
            [&](SQLHSTMT handle) {
                return SQLColumnsW(handle, NameOrNull(catalogue), LengthOf(catalogue), NameOrNull(schema),
                                   LengthOf(schema), NameOrNull(table), LengthOf(table), nullptr, 0);
            },
            17, [&](const CatalogueRow& row) { AddColumn(row, &builder); });
        *target = builder.Take();
        return read;
    }

    Status PrimaryKeys(std::shared_ptr<RowSet>* target) {
        RowBuilder builder(kPrimaryKeys);
        Status read = ForEachTable(0, [&](const CatalogueRow& table) {
            return Visit(
                [&](SQLHSTMT handle) {
                    return SQLPrimaryKeysW(handle, NameOrNull(table[0]), LengthOf(table[0]),
                                           NameOrNull(table[1]), LengthOf(table[1]), NameOrNull(table[2]),
                                           LengthOf(table[2]));
                },
                6,
                [&](const CatalogueRow& row) {
                    builder.PutText(L"TABLE_CATALOG", row[0]);
                    builder.PutText(L"TABLE_SCHEMA", row[1]);
                    builder.PutText(L"TABLE_NAME", row[2]);
                    builder.PutText(L"COLUMN_NAME", row[3]);
                    builder.PutNumber(L"ORDINAL", NumberOf(row[4]));
                    builder.PutText(L"PK_NAME", row[5]);
                    builder.Add();
                });
        });
        *target = builder.Take();
        return read;
    }

    Status ForeignKeys(std::shared_ptr<RowSet>* target) {
        RowBuilder builder(kForeignKeys);
        Status read = ForEachTable(3, [&](const CatalogueRow& table) {
            return Visit(
                [&](SQLHSTMT handle) {
                    return SQLForeignKeysW(handle, nullptr, 0, nullptr, 0, nullptr, 0, NameOrNull(table[0]),
                                           LengthOf(table[0]), NameOrNull(table[1]), LengthOf(table[1]),
                                           NameOrNull(table[2]), LengthOf(table[2]));
                },
                13, [&](const CatalogueRow& row) { AddForeignKey(row, &builder); });
        });
        *target = builder.Take();
        return read;
    }

private:
    static Column TextColumn() {
        Column column;
        column.type = AdoType::VarWChar;
        return column;
    }
    Text Criterion(std::size_t index) const {
        return index < criteria_.size() ? criteria_[index] : std::nullopt;
    }
    /// A server lists the tables of all its databases unless one is named.
    Text CatalogueOr(const Text& catalogue) const { return catalogue ? catalogue : current_catalogue_; }

    /// Whether `count` + 1 columns from `first` on agree with as many criteria from 0 on.
    bool Passes(const CatalogueRow& row, std::size_t first, std::size_t last) const {
        if (criteria_.empty()) return true;
        for (std::size_t i = 0; i + first <= last; ++i)
            if (const Text wanted = Criterion(i); wanted && !SameName(*wanted, row[first + i].value_or(L"")))
                return false;
        return true;
    }

    template <class Catalogue>
    Status Visit(const Catalogue& catalogue, int least_columns, const RowVisitor& visitor) {
        std::unique_ptr<Statement> statement;
        if (Status made = session_.NewStatement(&statement); !made) return made;
        if (Status called = statement->Check(catalogue(statement->Handle())); !called) return called;
        int count = 0;
        if (Status counted = statement->ColumnCount(&count); !counted) return counted;
        if (count < least_columns) return AdoError::NotSupported;
        const ColumnList columns(static_cast<std::size_t>(count), TextColumn());
        RowReader reader(*statement, columns);
        CatalogueRow row;
        for (;;) {
            bool fetched = false;
            if (Status done = reader.Fetch(&fetched); !done || !fetched) return done;
            row.resize(columns.size());
            for (std::size_t i = 0; i < columns.size(); ++i)
                if (Status read = reader.ReadText(i, &row[i]); !read) return read;
            visitor(row);
        }
    }

    /// Visits the tables of a name, or all. More may come than were asked for: drivers take a name as a
    /// pattern.
    Status VisitTables(const Text& wanted_catalogue, const Text& name, const RowVisitor& visitor) {
        const Text catalogue = CatalogueOr(wanted_catalogue);
        // A name with a quotation mark is not trusted to every driver's own statement.
        const Text asked = name && name->find_first_of(L"\\%'\"") == std::wstring::npos ? name : Text();
        return Visit(
            [&](SQLHSTMT handle) {
                return SQLTablesW(handle, NameOrNull(catalogue), LengthOf(catalogue), nullptr, 0,
                                  NameOrNull(asked), LengthOf(asked), nullptr, 0);
            },
            4, visitor);
    }

    /// Calls for each table that the criteria from `first` on allow: ODBC's key functions take one table a
    /// call.
    Status ForEachTable(std::size_t first, const std::function<Status(const CatalogueRow&)>& body) {
        std::vector<CatalogueRow> tables;
        const Text schema = Criterion(first + 1), name = Criterion(first + 2);
        Status read = VisitTables(Criterion(first), name, [&](const CatalogueRow& row) {
            const bool fits = (!schema || SameName(*schema, row[1].value_or(L""))) &&
                              (!name || SameName(*name, row[2].value_or(L"")));
            if (fits && row[3] && SameName(*row[3], L"TABLE")) tables.push_back(row);
        });
        for (CatalogueRow& table : tables) {
            if (!read) break;
            for (std::size_t i : {0, 1})
                if (table[i] && table[i]->empty()) table[i].reset();
            read = body(table);
        }
        return read;
    }

    void AddColumn(const CatalogueRow& row, RowBuilder* builder) const {
        if (!Passes(row, 0, 3)) return;
        OdbcColumn source;
        source.type = static_cast<SQLSMALLINT>(NumberOf(row[4]).value_or(SQL_VARCHAR));
        source.type_name = row[5].value_or(L"");
        source.size = static_cast<SQLULEN>(NumberOf(row[6]).value_or(0));
        source.digits = static_cast<SQLSMALLINT>(NumberOf(row[8]).value_or(0));
        source.nullable = NumberOf(row[10]).value_or(SQL_NULLABLE) != SQL_NO_NULLS;
        const Column column = ColumnFrom(source);
        builder->PutText(L"TABLE_CATALOG", row[0]);
        builder->PutText(L"TABLE_SCHEMA", row[1]);
        builder->PutText(L"TABLE_NAME", row[2]);
        builder->PutText(L"COLUMN_NAME", row[3]);
        builder->PutNumber(L"ORDINAL_POSITION", NumberOf(row[16]));
        // ODBC writes the word NULL for a default that is Null, which is none.
        const bool has_default = row[12] && !row[12]->empty() && *row[12] != L"NULL";
        builder->Put(L"COLUMN_HASDEFAULT", UniqueVariant(has_default));
        if (has_default) builder->PutText(L"COLUMN_DEFAULT", row[12]);
        builder->PutNumber(L"COLUMN_FLAGS", column.attributes);
        builder->Put(L"IS_NULLABLE", UniqueVariant(source.nullable));
        builder->PutNumber(L"DATA_TYPE", SchemaTypeOf(column.type));
        if (IsText(column.type) || IsBinary(column.type))
            builder->PutNumber(L"CHARACTER_MAXIMUM_LENGTH", column.defined_size);
        if (column.precision != kNoPrecision && column.type < AdoType::DBDate)
            builder->PutNumber(L"NUMERIC_PRECISION", column.precision);
        if (column.type == AdoType::Numeric && column.scale != kNoPrecision)
            builder->PutNumber(L"NUMERIC_SCALE", column.scale);
        builder->PutText(L"DESCRIPTION", row[11]);
        builder->Add();
    }

    void AddForeignKey(const CatalogueRow& row, RowBuilder* builder) const {
        if (!Passes(row, 0, 2)) return;
        static constexpr const wchar_t* kNames[] = {
            L"PK_TABLE_CATALOG", L"PK_TABLE_SCHEMA", L"PK_TABLE_NAME", L"PK_COLUMN_NAME",
            L"FK_TABLE_CATALOG", L"FK_TABLE_SCHEMA", L"FK_TABLE_NAME", L"FK_COLUMN_NAME"};
        for (std::size_t i = 0; i < std::size(kNames); ++i) builder->PutText(kNames[i], row[i]);
        builder->PutNumber(L"ORDINAL", NumberOf(row[8]));
        builder->PutText(L"UPDATE_RULE", RuleText(row[9]));
        builder->PutText(L"DELETE_RULE", RuleText(row[10]));
        builder->PutText(L"FK_NAME", row[11]);
        builder->PutText(L"PK_NAME", row[12]);
        if (row.size() > 13) builder->PutNumber(L"DEFERRABILITY", NumberOf(row[13]));
        builder->Add();
    }

    static Text RuleText(const Text& number) {
        switch (NumberOf(number).value_or(-1)) {
            case SQL_CASCADE:
                return L"CASCADE";
            case SQL_RESTRICT:
                return L"RESTRICT";
            case SQL_SET_NULL:
                return L"SET NULL";
            case SQL_NO_ACTION:
                return L"NO ACTION";
            case SQL_SET_DEFAULT:
                return L"SET DEFAULT";
            default:
                return std::nullopt;
        }
    }

    Session& session_;
    const SchemaCriteria& criteria_;
    Text current_catalogue_;
};

}  // namespace

Status ReadSchemaRowset(Session& session, SchemaRowset rowset, const SchemaCriteria& criteria,
                        std::shared_ptr<RowSet>* target) {
    SchemaBuilder builder(session, criteria);
    switch (rowset) {
        case SchemaRowset::Tables:
            return builder.Tables(target);
        case SchemaRowset::Views:
            return builder.Views(target);
        case SchemaRowset::Columns:
            return builder.ColumnsOf(target);
        case SchemaRowset::PrimaryKeys:
            return builder.PrimaryKeys(target);
        case SchemaRowset::ForeignKeys:
            return builder.ForeignKeys(target);
    }
    return AdoError::NotSupported;
}

}  // namespace tessel::ado
