// Rows made of texts, for tests of what shows or searches rows. "(null)" stands for Null.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "ui/preview_rows.h"

namespace tessel::test {

class LiteralRows final : public ui::PreviewRows {
public:
    /// `alive` counts the sources that exist; may be nullptr.
    LiteralRows(const std::vector<std::wstring>& columns, std::vector<std::vector<std::wstring>> rows,
                int* alive = nullptr)
        : rows_(std::move(rows)), alive_(alive) {
        for (const std::wstring& name : columns) columns_.push_back({name, ui::Alignment::Left});
        if (alive_) ++*alive_;
    }
    ~LiteralRows() override {
        if (alive_) --*alive_;
    }
    LiteralRows(const LiteralRows&) = delete;
    LiteralRows& operator=(const LiteralRows&) = delete;

    const std::vector<ui::PreviewColumn>& Columns() const override { return columns_; }
    std::int64_t RowCount() const override { return static_cast<std::int64_t>(rows_.size()); }
    ui::PreviewCell Cell(std::int64_t row, int column) override {
        ++cells_read;
        const std::wstring& text =
            rows_.at(static_cast<std::size_t>(row)).at(static_cast<std::size_t>(column));
        if (text == L"(null)") return {L"", true};
        return {text, false};
    }
    std::wstring Trouble() const override { return {}; }

    int cells_read = 0;

private:
    std::vector<ui::PreviewColumn> columns_;
    std::vector<std::vector<std::wstring>> rows_;
    int* alive_;
};

}  // namespace tessel::test
