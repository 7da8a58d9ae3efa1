#include "hostkit/ado/cursor.h"

#include <algorithm>

#include "hostkit/ado/cell.h"
#include "hostkit/ado/row_reader.h"

namespace tessel::ado {

using win32::UniqueVariant;

namespace {

Status ReadRow(Statement& statement, const ColumnList& columns, std::vector<UniqueVariant>* row) {
    row->clear();
    for (std::size_t i = 0; i < columns.size(); ++i) {
        Status read = ReadCell(statement, static_cast<int>(i + 1), columns[i], &row->emplace_back());
        if (!read) return read;
    }
    return {};
}

class StaticCursor final : public Cursor {
public:
    StaticCursor(std::shared_ptr<const RowSet> rows, std::shared_ptr<Session> session)
        : Cursor(rows->columns), rows_(std::move(rows)), session_(std::move(session)) {}

    bool IsOpen() const override { return session_->IsOpen(); }
    bool AtBegin() const override { return at_ < 0 || Size() == 0; }
    bool AtEnd() const override { return at_ >= Size(); }
    long Count() const override { return Size(); }
    long Position() const override {
        if (AtEnd()) return Size() == 0 ? kPositionUnknown : kPositionEof;
        return at_ < 0 ? kPositionBof : at_ + 1;
    }

    Status First() override { return GoTo(1); }
    Status Last() override { return GoTo(Size()); }
    Status MoveBy(long count) override {
        if ((count > 0 && AtEnd()) || (count < 0 && AtBegin())) return AdoError::NoCurrentRecord;
        const long long wanted = static_cast<long long>(at_) + count;
        at_ = static_cast<long>(std::clamp<long long>(wanted, -1, Size()));
        return {};
    }
    Status GoTo(long position) override {
        if (Size() == 0) return AdoError::NoCurrentRecord;
        if (position < 1 || position > Size()) return AdoError::BadArgument;
        at_ = position - 1;
        return {};
    }

    UniqueVariant Cell(std::size_t column) const override {
        return rows_->rows.Cell(static_cast<std::size_t>(at_), column);
    }
    void AddRowText(std::wstring_view column_end, std::wstring_view null_text,
                    std::wstring* target) const override {
        rows_->rows.AddRowText(static_cast<std::size_t>(at_), columns_->size(), column_end, null_text,
                               target);
    }

private:
    long Size() const { return static_cast<long>(rows_->rows.RowCount()); }

    std::shared_ptr<const RowSet> rows_;
    std::shared_ptr<Session> session_;
    long at_ = 0;  ///< -1 before the first row, Size() after the last one
};

class ForwardCursor final : public Cursor {
public:
    ForwardCursor(std::unique_ptr<Statement> statement, SharedColumns columns, std::wstring sql)
        : Cursor(std::move(columns)), statement_(std::move(statement)), sql_(std::move(sql)) {}

    bool IsOpen() const override { return statement_->IsOpen(); }
    bool AtBegin() const override { return fetched_ == 0 && at_end_; }
    bool AtEnd() const override { return at_end_; }
    long Count() const override { return -1; }
    long Position() const override { return kPositionUnknown; }

    Status First() override {
        if (fetched_ == 1 && !at_end_) return {};
        if (fetched_ == 0 && at_end_) return AdoError::NoCurrentRecord;
        SQLFreeStmt(statement_->Handle(), SQL_CLOSE);
        fetched_ = 0;
        at_end_ = false;
        Status executed = statement_->Execute(sql_);
        return executed ? Fetch() : executed;
    }
    Status Last() override { return AdoError::NotAllowedHere; }
    Status MoveBy(long count) override {
        if (count < 0) return AdoError::NotAllowedHere;
        if (count > 0 && at_end_) return AdoError::NoCurrentRecord;
        for (; count > 0 && !at_end_; --count)
            if (Status fetched = Fetch(); !fetched) return fetched;
        return {};
    }
    Status GoTo(long) override { return AdoError::NotSupported; }
    UniqueVariant Cell(std::size_t column) const override {
        return UniqueVariant::CopyOf(row_[column].Get());
    }

    Status Fetch() {
        bool fetched = false;
        Status done = statement_->Fetch(&fetched);
        if (done && fetched) done = ReadRow(*statement_, *columns_, &row_);
        at_end_ = !done || !fetched;
        if (!at_end_) ++fetched_;
        return done;
    }

private:
    std::unique_ptr<Statement> statement_;
    std::wstring sql_;
    std::vector<UniqueVariant> row_;
    long long fetched_ = 0;
    bool at_end_ = false;
};

}  // namespace

void Cursor::AddRowText(std::wstring_view column_end, std::wstring_view null_text,
                        std::wstring* target) const {
    for (std::size_t i = 0; i < columns_->size(); ++i) {
        if (i > 0) *target += column_end;
        AddValueText(Cell(i), null_text, target);
    }
}

std::unique_ptr<Cursor> MakeStaticCursor(std::shared_ptr<const RowSet> rows,
                                         std::shared_ptr<Session> session) {
    return std::make_unique<StaticCursor>(std::move(rows), std::move(session));
}

Status MakeForwardCursor(std::unique_ptr<Statement> statement, SharedColumns columns, std::wstring sql,
                         std::unique_ptr<Cursor>* target) {
    auto cursor = std::make_unique<ForwardCursor>(std::move(statement), std::move(columns), std::move(sql));
    Status fetched = cursor->Fetch();
    if (fetched) *target = std::move(cursor);
    return fetched;
}

Status ReadAllRows(Statement& statement, const SharedColumns& columns, RowSet* target) {
    target->columns = columns;
    RowReader reader(statement, *columns);
    for (;;) {
        bool fetched = false;
        if (Status done = reader.Fetch(&fetched); !done || !fetched) return done;
        if (Status stored = reader.Store(&target->rows); !stored) return stored;
    }
}

}  // namespace tessel::ado
