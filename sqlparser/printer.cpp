#include "sqlparser/printer.h"

#include <string_view>

#include "sqlparser/expression_printer.h"
#include "sqlparser/token_text.h"

namespace tessel::sql {
namespace {

class StatementPrinter {
public:
    /// `separator` stands between clauses: a line break outside, a blank inside.
    StatementPrinter(const Statement& statement, std::wstring_view separator, std::wstring& out)
        : s_(statement), separator_(separator), out_(out), expressions_(statement, out) {}

    void Whole() {
        if (s_.parameters.length != 0) {
            Tokens(s_.parameters);
            out_ += separator_;
        }
        if (s_.transform.length != 0) {
            Tokens(s_.transform);
            out_ += separator_;
        }
        With();
        out_.append(s_.group_ends.size(), L'(');
        Core();
        CloseGroups(0);
        for (std::size_t i = 0; i < s_.union_operands.size(); ++i) {
            const Statement& operand = *s_.union_operands[i];
            out_ += separator_;
            Tokens(operand.set_operator);
            out_ += separator_;
            StatementPrinter(operand, separator_, out_).Whole();
            CloseGroups(i + 1);
        }
        if (!s_.tail) return;
        StatementPrinter tail(*s_.tail, separator_, out_);
        tail.Clauses();
    }

private:
    void CloseGroups(std::size_t operands) {
        for (const std::size_t end : s_.group_ends) {
            if (end == operands) out_ += L')';
        }
    }

    void With() {
        if (s_.common_tables.empty()) return;
        const Token recursive = FirstToken(s_.source, s_.with_range.offset + 4, s_.with_range.End());
        out_ += recursive.keyword == Keyword::Recursive && recursive.begin < s_.common_tables[0].name.offset
                    ? L"WITH RECURSIVE "
                    : L"WITH ";
        for (const CommonTable& table : s_.common_tables) {
            if (&table != &s_.common_tables.front()) out_ += L", ";
            out_ += s_.Slice(table.name);
            Optional(L" ", table.columns);
            out_ += L" AS (";
            PrintInline(*s_.nested[static_cast<std::size_t>(table.nested)], out_);
            out_ += L')';
        }
        out_ += separator_;
    }

    void Core() {
        if (!s_.value_rows.empty()) return Values();
        if (s_.table_statement.length != 0) {
            Tokens(s_.table_statement);
            return ClausesAfterFrom();
        }
        out_ += L"SELECT";
        if (s_.Distinct) (out_ += L' ') += KeywordText(KeywordAt(s_.distinct_range));
        Optional(L" ", s_.top_range);
        Items(L" ", s_.Columns);
        Optional(std::wstring(separator_) + L"INTO ", s_.into);
        Clauses();
    }

    void Clauses() {
        From();
        Optional(L" ", s_.from_external);
        ClausesAfterFrom();
    }

    void ClausesAfterFrom() {
        Condition(L"WHERE ", s_.where);
        Items(std::wstring(separator_) + L"GROUP BY ", s_.GroupItems);
        Optional(L" ", s_.group_suffix);
        Condition(L"HAVING ", s_.having);
        Items(std::wstring(separator_) + L"ORDER BY ", s_.OrderItems);
        Optional(separator_, s_.pivot);
        for (const TextRange tail : s_.trailing)
            Optional(tail.offset == s_.trailing.front().offset ? separator_ : L" ", tail);
    }

    void Values() {
        out_ += L"VALUES ";
        for (const NodeId row : s_.value_rows) {
            if (row != s_.value_rows.front()) out_ += L", ";
            expressions_.Expression(row);
        }
    }

    void Items(std::wstring_view before, const std::vector<Item>& items) {
        for (const Item& item : items) {
            out_ += &item == &items.front() ? before : L", ";
            expressions_.Expression(item.node);
            if (item.descending) out_ += L" DESC";
            Optional(L" ", item.nulls);
            Optional(L" AS ", item.alias);
        }
    }

    void Condition(std::wstring_view word, NodeId node) {
        if (node == kNoNode) return;
        (out_ += separator_) += word;
        expressions_.Expression(node);
    }

    void From() {
        for (const JoinGroup& group : s_.JoinGroups) {
            if (&group == &s_.JoinGroups.front()) {
                (out_ += separator_) += L"FROM ";
            } else {
                out_ += L", ";
            }
            FromTree(group.root);
        }
    }

    void FromTree(int index) {
        const FromNode& node = s_.From[static_cast<std::size_t>(index)];
        if (!node.is_join) return Table(s_.Tables[static_cast<std::size_t>(node.table)]);
        if (node.parenthesised) out_ += L'(';
        FromTree(node.left);
        JoinWords(node);
        FromTree(node.right);
        if (node.on_node != kNoNode) {
            out_ += L" ON ";
            expressions_.Expression(node.on_node);
        }
        Optional(L" USING ", node.using_columns);
        if (node.parenthesised) out_ += L')';
    }

    void JoinWords(const FromNode& node) {
        switch (node.kind) {
            case JoinKind::Inner:
                out_ += L" INNER JOIN ";
                return;
            case JoinKind::Left:
                out_ += L" LEFT JOIN ";
                return;
            case JoinKind::Right:
                out_ += L" RIGHT JOIN ";
                return;
            case JoinKind::None:
                break;
        }
        const bool comma = s_.source[node.joint.offset] == L',';
        if (!comma) out_ += L' ';
        Tokens(node.joint);
        out_ += L' ';
    }

    void Table(const TableRef& table) {
        if (table.derived) {
            out_ += L'(';
            PrintInline(*s_.nested[static_cast<std::size_t>(table.nested)], out_);
            out_ += L')';
        } else {
            const TextRange first = table.database.length != 0 ? table.database
                                    : table.owner.length != 0  ? table.owner
                                                               : table.name;
            Tokens({first.offset, table.name.End() - first.offset});
        }
        Optional(L" ", table.external);
        Optional(L" AS ", table.alias);
        Optional(L" ", table.columns);
        Optional(L" ", table.hint);
    }

    void Optional(std::wstring_view before, TextRange range) {
        if (range.length == 0) return;
        out_ += before;
        Tokens(range);
    }

    void Tokens(TextRange range) { out_ += CanonicalTokens(s_.source, range); }

    Keyword KeywordAt(TextRange range) const {
        return FirstToken(s_.source, range.offset, range.End()).keyword;
    }

    const Statement& s_;
    std::wstring_view separator_;
    std::wstring& out_;
    ExpressionPrinter expressions_;
};

}  // namespace

void PrintInline(const Statement& statement, std::wstring& out) {
    StatementPrinter(statement, L" ", out).Whole();
}

std::wstring Print(const Statement& statement) {
    std::wstring out;
    StatementPrinter(statement, L"\r\n", out).Whole();
    return out;
}

}  // namespace tessel::sql
