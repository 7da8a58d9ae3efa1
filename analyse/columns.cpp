#include "analyse/columns.h"

#include <algorithm>

#include "analyse/nested_aggregates.h"
#include "analyse/nodes.h"
#include "common/identifiers.h"
#include "common/mdl_global.h"
#include "common/text.h"
#include "compose/column_view.h"
#include "compose/compose.h"
#include "sqlparser/token_text.h"

namespace tessel::analyse {

namespace {

using model::FitsCell;
using model::GridRow;
using sql::Item;
using sql::NodeId;
using sql::NodeKind;

constexpr std::wstring_view kGrouped = L"Agrupado por";
constexpr std::wstring_view kExpression = L"Expresión";
constexpr std::wstring_view kAscending = L"Ascendente";
constexpr std::wstring_view kDescending = L"Descendente";
constexpr std::int16_t kAscendingCode = 1;
constexpr std::int16_t kDescendingCode = 2;

/// The same for texts that differ in letter case alone.
std::uint32_t HashOf(std::wstring_view text) {
    std::uint32_t hash = 0;
    for (const wchar_t ch : text) hash = (hash ^ static_cast<std::uint32_t>(LowerChar(ch))) * 0x9E3779B1u;
    return hash;
}

/// The place of a sort key or of a grouping without what follows the expression.
TextRange PlaceOf(const sql::Statement& statement, const Item& item) {
    return statement.At(item.node).Range();
}

}  // namespace

ColumnBuilder::ColumnBuilder(const StatementScope& scope, const Canonical& canonical,
                             const std::vector<std::wstring>& table_names, model::Design& design)
    : scope_(scope),
      canonical_(canonical),
      statement_(scope.Source()),
      design_(design),
      table_names_(table_names),
      alias_replacements_(table_names.size()) {
    for (std::size_t table = 0; table < alias_replacements_.size(); ++table) {
        if (statement_.Tables[table].alias.length == 0) continue;
        alias_replacements_[table] = table_names[table];
        has_aliases_ = true;
    }
    is_totals_ = ComputesTotals();
}

bool ColumnBuilder::ComputesTotals() const {
    const auto has_aggregate = [&](const Item& item) {
        return FirstAggregate(statement_, item.node) != sql::kNoNode;
    };
    if (HasGroupBy()) return true;
    if (std::ranges::any_of(statement_.Columns, has_aggregate)) return true;
    if (std::ranges::any_of(statement_.OrderItems, has_aggregate)) return true;
    return statement_.having != sql::kNoNode;
}

std::wstring ColumnBuilder::CellText(TextRange range) const {
    return has_aliases_ ? scope_.TextWithTables(range, alias_replacements_) : statement_.Text(range);
}

// Without line breaks and comments a long text may fit after all.
std::wstring ColumnBuilder::FittedText(std::wstring text) {
    if (FitsCell(text)) return text;
    return sql::CanonicalTokens(text, {0, text.size()});
}

std::wstring ColumnBuilder::FieldText(NodeId node) const {
    std::wstring text = FittedText(CellText(node));
    if (!IsAggregate(text)) return text;
    if (FirstAggregate(statement_, node) == sql::kNoNode) return WithHiddenAggregates(text);
    // The aggregate test of the composition does not look behind a parenthesis.
    return hides_aggregates_ ? WithHiddenAggregates(L"(" + text + L")") : text;
}

void ColumnBuilder::HideAggregates() {
    hides_aggregates_ = true;
    is_totals_ = false;
}

Outcome ColumnBuilder::Write(GridRow row, int column, std::wstring_view text, TextRange place) {
    if (design_.grid.SetCell(row, column, text)) return std::nullopt;
    return Refusal{place, std::wstring(messages::kCellTooLong)};
}

int ColumnBuilder::FindColumn(Form form) const {
    const auto found = std::ranges::find(columns_, form, &std::pair<Form, int>::first);
    return found == columns_.end() ? kNoColumn : found->second;
}

bool ColumnBuilder::HasText(std::wstring_view text) const {
    const std::wstring_view trimmed = TrimView(text);
    const bool may_be =
        trimmed.empty() || std::ranges::find(text_hashes_, HashOf(trimmed)) != text_hashes_.end();
    return may_be && model::FieldCol(design_.grid, trimmed) >= 0;
}

std::wstring ColumnBuilder::WithFreeText(std::wstring text) const {
    while (HasText(text)) text = L"(" + text + L")";
    return text;
}

bool ColumnBuilder::IsGrouped(int column) const {
    return Cell(GridRow::Agrupacion, column) == kGrouped;
}

Outcome ColumnBuilder::AddSelectList() {
    for (const Item& item : statement_.Columns) {
        if (Outcome refusal = AddSelectItem(item)) return refusal;
    }
    return std::nullopt;
}

Outcome ColumnBuilder::AddSelectItem(const Item& item) {
    const sql::Node& node = statement_.At(item.node);
    if (!IsBareStar(node) || StarKeepsItsOrder()) {
        return AddSelectColumn(FieldText(item.node), statement_.Slice(item.alias),
                               canonical_.Expression(item.node), item.range);
    }
    for (int table = 0; table < scope_.TableCount(); ++table) {
        const std::wstring text = table_names_[static_cast<std::size_t>(table)] + L".*";
        if (Outcome refusal = AddSelectColumn(text, L"", canonical_.AllFields(table), item.range))
            return refusal;
    }
    return std::nullopt;
}

/// Whether composition names the tables in the order of the text, which is that of the columns of "*".
bool ColumnBuilder::StarKeepsItsOrder() const {
    std::vector<std::wstring> composed;
    for (const model::JPath& chain : compose::BuildJoinChains(design_.diagram)) {
        composed.push_back(chain.StartTable);
        for (const model::JInfo& join : chain.Joins) composed.push_back(join.Table);
    }
    // Tables that no relation names follow in the order of the text.
    for (const std::wstring& name : table_names_) {
        if (std::ranges::find(composed, name) == composed.end()) composed.push_back(name);
    }
    return composed == table_names_;
}

Outcome ColumnBuilder::AddSelectColumn(std::wstring text, std::wstring_view alias, Form form,
                                       TextRange place) {
    if (select_columns_.size() == static_cast<std::size_t>(model::kGridColumnCount)) {
        return Refusal{place, std::wstring(messages::kTooManyColumns)};
    }
    std::wstring_view title = alias;
    std::wstring counted;
    if (HasText(text)) {
        if (text.ends_with(L'*')) return Refusal{place, std::wstring(messages::kStarTwice)};
        // As where fields of two tables have the same name, the title tells them apart.
        const std::vector<std::wstring> parts =
            IsQualifiedName(text) ? SplitQualified(text) : std::vector<std::wstring>();
        if (title.empty() && parts.size() > 1) {
            counted = model::UniqueCaption(design_.grid, -1, model::TitleOfField(parts.back()));
            title = counted;
        }
        text = WithFreeText(std::move(text));
    }
    if (!FitsCell(text) || !FitsCell(title)) return Refusal{place, std::wstring(messages::kCellTooLong)};
    const int column = AddColumn(text, title, model::kShow, form);
    if (column < 0) return Refusal{place, std::wstring(messages::kTooManyColumns)};
    select_columns_.push_back(column);
    return std::nullopt;
}

/// A column of a text that no other column has; -1 when there is none left.
int ColumnBuilder::AddColumn(const std::wstring& text, std::wstring_view title,
                             model::FieldVisibility visibility, Form form) {
    const int column = model::AddNewField(design_, text, title, visibility);
    if (column < 0) return column;
    text_hashes_.push_back(HashOf(TrimView(text)));
    columns_.emplace_back(form, column);
    return column;
}

Outcome ColumnBuilder::SetColumn(const model::ColInfo& record, Form form, TextRange place, int& column) {
    const std::wstring text = WithFreeText(record.Expresion);
    if (!FitsCell(text)) return Refusal{place, std::wstring(messages::kCellTooLong)};
    column = AddColumn(text, L"", model::kHide, form);
    if (column < 0) return Refusal{place, std::wstring(messages::kTooManyColumns)};
    if (!record.GroupBy.empty()) {
        if (Outcome refusal = Write(GridRow::Agrupacion, column, record.GroupBy, place)) return refusal;
    }
    if (record.OrderBy == 0) return std::nullopt;
    const std::wstring_view direction = record.OrderBy == kDescendingCode ? kDescending : kAscending;
    return Write(GridRow::Orden, column, direction, place);
}

/// Whether an engine may take the grouping for the number of a column.
bool ColumnBuilder::MayBeOrdinal(NodeId node) const {
    const NodeKind kind = statement_.At(WithoutParens(statement_, node)).kind;
    if (kind == NodeKind::String || kind == NodeKind::Date || kind == NodeKind::Null) return false;
    return IsConstant(statement_, node);
}

Outcome ColumnBuilder::AddGrouping() {
    for (const Item& item : statement_.GroupItems) {
        const TextRange place = PlaceOf(statement_, item);
        if (MayBeOrdinal(item.node)) return Refusal{place, std::wstring(messages::kGroupOrdinal)};
        const Form form = canonical_.Expression(item.node);
        int column = FindColumn(form);
        if (column != kNoColumn) {
            if (Outcome refusal = Write(GridRow::Agrupacion, column, kGrouped, place)) return refusal;
            continue;
        }
        model::ColInfo record;
        // A condition keeps its parentheses, as it has them where it filters.
        const NodeId inner = WithoutParens(statement_, item.node);
        record.Expresion = FieldText(canonical_.IsTruthValue(inner) ? item.node : inner);
        record.GroupBy = kGrouped;
        if (Outcome refusal = SetColumn(record, form, place, column)) return refusal;
    }
    if (!is_totals_) return std::nullopt;
    for (const int column : select_columns_) {
        if (IsGrouped(column)) continue;
        if (Outcome refusal = Write(GridRow::Agrupacion, column, kExpression, {})) return refusal;
    }
    return std::nullopt;
}

Outcome ColumnBuilder::AddOrdering() {
    int last_column = kNoColumn;
    for (const Item& item : statement_.OrderItems) {
        if (Outcome refusal = AddSortKey(item, last_column)) return refusal;
    }
    return std::nullopt;
}

Outcome ColumnBuilder::AddSortKey(const Item& item, int& last_column) {
    const TextRange place = PlaceOf(statement_, item);
    const int selected = SelectItemOfSortKey(scope_, canonical_, item.node);
    if (selected == kAmbiguous) return Refusal{place, std::wstring(messages::kAmbiguousOrder)};
    const NodeId node =
        selected == kOwnExpression ? item.node : statement_.Columns[static_cast<std::size_t>(selected)].node;
    // Neither a constant of the select list nor sorting again by the same key changes anything.
    if (selected != kOwnExpression && IsSameForEveryRow(statement_, node)) return std::nullopt;
    const Form form = canonical_.Expression(node);
    int column = FindColumn(form);
    if (std::ranges::find(sorted_, form) != sorted_.end()) return std::nullopt;
    sorted_.push_back(form);
    if (column > last_column) {
        last_column = column;
        const std::wstring_view direction = item.descending ? kDescending : kAscending;
        return Write(GridRow::Orden, column, direction, place);
    }
    // A second column of the same expression has to be told from the first.
    model::ColInfo record;
    record.Expresion = FieldText(WithoutParens(statement_, node));
    record.OrderBy = item.descending ? kDescendingCode : kAscendingCode;
    if (is_totals_) record.GroupBy = kExpression;
    if (Outcome refusal = SetColumn(record, form, place, column)) return refusal;
    last_column = column;
    return std::nullopt;
}

Outcome ColumnBuilder::KeepGroupBy() {
    if (!HasGroupBy() || compose::IsTotalsQuery(compose::ViewsOf(design_.grid))) return std::nullopt;
    model::ColInfo record;
    record.Expresion = L"Count(*)";
    int column = kNoColumn;
    return SetColumn(record, kNoForm, PlaceOf(statement_, statement_.GroupItems.front()), column);
}

}  // namespace tessel::analyse
