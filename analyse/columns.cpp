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
constexpr std::size_t kUsualHiddenColumns = 4;

/// The same for texts that differ in letter case alone. A sum of products, none of which waits for another.
std::uint32_t HashOf(std::wstring_view text) {
    std::uint32_t hash = 0;
    std::uint32_t weight = 0;
    for (const wchar_t ch : TrimView(text)) {
        weight += 0x9E3779B1u;
        const auto code = static_cast<std::uint32_t>(ch);
        const std::uint32_t letter = code < 0x80 ? code : static_cast<std::uint32_t>(LowerWideChar(ch));
        hash += (letter | 0x20) * weight;
    }
    return hash;
}

/// The place of a sort key or of a grouping without what follows the expression.
TextRange PlaceOf(const sql::Statement& statement, const Item& item) {
    return statement.At(item.node).Range();
}

}  // namespace

ColumnBuilder::HashedText::HashedText(std::wstring contents)
    : text(std::move(contents)), hash(HashOf(text)) {}

ColumnBuilder::ColumnBuilder(const StatementScope& scope, const Canonical& canonical,
                             const std::vector<std::wstring>& table_names, model::Design& design)
    : scope_(scope),
      canonical_(canonical),
      statement_(scope.Source()),
      design_(design),
      table_names_(table_names),
      alias_replacements_(table_names.size()) {
    select_columns_.reserve(statement_.Columns.size());
    columns_.reserve(statement_.Columns.size() + kUsualHiddenColumns);
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

int ColumnBuilder::FindColumn(Shown shown) const {
    const auto is_same = [&](const Shown& other) { return AreSame(other, shown); };
    const auto found = std::ranges::find_if(columns_, is_same, &Column::shown);
    return found == columns_.end() ? kNoColumn : found->column;
}

bool ColumnBuilder::AreSame(const Shown& one, const Shown& other) const {
    if (one.node == sql::kNoNode || other.node == sql::kNoNode) return FormOf(one) == FormOf(other);
    if (one.is_condition != other.is_condition)
        return !canonical_.AreUnlike(one.node, other.node) && FormOf(one) == FormOf(other);
    return one.is_condition ? canonical_.HaveSameTruth(one.node, other.node)
                            : canonical_.HaveSameForm(one.node, other.node);
}

Form ColumnBuilder::FormOf(const Shown& shown) const {
    if (shown.table != kNoTable) return canonical_.AllFields(shown.table);
    if (shown.node == sql::kNoNode) return kNoForm;
    return shown.is_condition ? canonical_.Condition(shown.node) : canonical_.Expression(shown.node);
}

bool ColumnBuilder::HasText(const HashedText& text) const {
    const std::wstring_view trimmed = TrimView(text.text);
    const auto may_be = [&](const Column& column) { return column.text_hash == text.hash; };
    if (!trimmed.empty() && std::ranges::none_of(columns_, may_be)) return false;
    return model::FieldCol(design_.grid, trimmed) >= 0;
}

void ColumnBuilder::MakeFree(HashedText& text) const {
    while (HasText(text)) text = HashedText(L"(" + text.text + L")");
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
        return AddSelectColumn(FieldText(item.node), statement_.Slice(item.alias), {item.node}, item.range);
    }
    for (int table = 0; table < scope_.TableCount(); ++table) {
        const std::wstring text = table_names_[static_cast<std::size_t>(table)] + L".*";
        const Shown shown{sql::kNoNode, false, table};
        if (Outcome refusal = AddSelectColumn(text, L"", shown, item.range)) return refusal;
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

Outcome ColumnBuilder::AddSelectColumn(std::wstring field, std::wstring_view alias, Shown shown,
                                       TextRange place) {
    if (select_columns_.size() == static_cast<std::size_t>(model::kGridColumnCount)) {
        return Refusal{place, std::wstring(messages::kTooManyColumns)};
    }
    std::wstring_view title = alias;
    std::wstring counted;
    HashedText text(std::move(field));
    if (HasText(text)) {
        if (text.text.ends_with(L'*')) return Refusal{place, std::wstring(messages::kStarTwice)};
        // As where fields of two tables have the same name, the title tells them apart.
        const std::vector<std::wstring> parts =
            IsQualifiedName(text.text) ? SplitQualified(text.text) : std::vector<std::wstring>();
        if (title.empty() && parts.size() > 1) {
            counted = model::UniqueCaption(design_.grid, -1, model::TitleOfField(parts.back()));
            title = counted;
        }
        MakeFree(text);
    }
    if (!FitsCell(text.text) || !FitsCell(title)) return Refusal{place, std::wstring(messages::kCellTooLong)};
    const int column = AddColumn(text, title, model::kShow, shown);
    if (column < 0) return Refusal{place, std::wstring(messages::kTooManyColumns)};
    select_columns_.push_back(column);
    return std::nullopt;
}

/// A column of a text that no other column has; -1 when there is none left.
int ColumnBuilder::AddColumn(const HashedText& text, std::wstring_view title,
                             model::FieldVisibility visibility, Shown shown) {
    const int column = model::AddNewField(design_, text.text, title, visibility);
    if (column < 0) return column;
    columns_.push_back({shown, column, text.hash});
    return column;
}

Outcome ColumnBuilder::SetColumn(model::ColInfo record, Shown shown, TextRange place, int& column) {
    HashedText text(std::move(record.Expresion));
    MakeFree(text);
    if (!FitsCell(text.text)) return Refusal{place, std::wstring(messages::kCellTooLong)};
    column = AddColumn(text, L"", model::kHide, shown);
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
        const Shown shown{item.node};
        int column = FindColumn(shown);
        if (column != kNoColumn) {
            if (Outcome refusal = Write(GridRow::Agrupacion, column, kGrouped, place)) return refusal;
            continue;
        }
        model::ColInfo record;
        // A condition keeps its parentheses, as it has them where it filters.
        const NodeId inner = WithoutParens(statement_, item.node);
        record.Expresion = FieldText(canonical_.IsTruthValue(inner) ? item.node : inner);
        record.GroupBy = kGrouped;
        if (Outcome refusal = SetColumn(std::move(record), shown, place, column)) return refusal;
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
    const auto is_same = [&](NodeId key) { return canonical_.HaveSameForm(key, node); };
    if (std::ranges::any_of(sorted_, is_same)) return std::nullopt;
    sorted_.push_back(node);
    int column = FindColumn({node});
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
    if (Outcome refusal = SetColumn(std::move(record), {node}, place, column)) return refusal;
    last_column = column;
    return std::nullopt;
}

Outcome ColumnBuilder::KeepGroupBy() {
    if (!HasGroupBy() || compose::IsTotalsQuery(compose::ViewsOf(design_.grid))) return std::nullopt;
    model::ColInfo record;
    record.Expresion = L"Count(*)";
    int column = kNoColumn;
    return SetColumn(std::move(record), {}, PlaceOf(statement_, statement_.GroupItems.front()), column);
}

}  // namespace tessel::analyse
