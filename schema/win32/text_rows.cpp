#include "schema/win32/text_rows.h"

#include <algorithm>
#include <utility>

#include "common/text.h"

namespace tessel::schema {

using win32::CallResult;
using win32::Dispatch;

namespace {

constexpr wchar_t kColumnEndText[] = {kColumnEnd, L'\0'};
constexpr wchar_t kRowEndText[] = {kRowEnd, L'\0'};

/// The format that GetString knows.
constexpr int kClipString = 2;
/// A text of so many rows is some hundred kilobytes long.
constexpr std::size_t kRowsAtOnce = 1000;
/// More columns than any catalogue has.
constexpr LONG kMostColumns = 1000;

/// The number of each wanted column among all; their count for one that is missing. Nothing when the
/// collection does not tell.
std::vector<std::size_t> PlacesOf(TextColumns columns, const Dispatch& fields, std::size_t count) {
    std::vector<std::size_t> places(columns.size(), count);
    for (std::size_t i = 0; i < count; ++i) {
        const auto name = fields.Get(L"Item", static_cast<LONG>(i)).Object().Get(L"Name").Text();
        if (!name) return {};
        for (std::size_t column = 0; column < columns.size(); ++column)
            if (places[column] == count && SameName(*name, columns[column])) places[column] = i;
    }
    return places;
}

}  // namespace

void TextRows::AddRow(std::vector<std::wstring> cells) {
    for (std::wstring& cell : cells)
        cells_.push_back(cell.empty() ? std::wstring_view() : single_.emplace_back(std::move(cell)));
}

bool TextRows::AddBlock(std::wstring_view text, std::size_t columns, std::span<const std::size_t> places,
                        std::size_t most_rows) {
    if (!blocks_.empty() && blocks_.back() == text) return false;
    std::wstring_view left = blocks_.emplace_back(text);
    if (left.ends_with(kRowEnd)) left.remove_suffix(1);
    const std::size_t before = cells_.size();
    std::vector<std::wstring_view> row(columns + 1);
    std::size_t rows = 0;
    bool fits = true;
    for (bool ends = false; fits && !ends; ++rows) {
        const wchar_t* at = left.data();
        const wchar_t* const end = at + left.size();
        std::size_t found = 0;
        for (const wchar_t* begin = at;; ++at) {
            if (at != end && *at != kColumnEnd && *at != kRowEnd) continue;
            if (found < columns) row[found] = std::wstring_view(begin, static_cast<std::size_t>(at - begin));
            ++found;
            begin = at + 1;
            if (at == end || *at == kRowEnd) break;
        }
        ends = at == end;
        left.remove_prefix(static_cast<std::size_t>(at - left.data()) + (ends ? 0 : 1));
        fits = found == columns && rows < most_rows;
        for (const std::size_t place : places) cells_.push_back(row[std::min(place, columns)]);
    }
    if (fits) return true;
    cells_.resize(before);
    blocks_.pop_back();
    return false;
}

BlockReading ReadInBlocks(const Dispatch& recordset, TextColumns columns, std::size_t limit,
                          TextRows* target) {
    if (!recordset.Has(L"GetString")) return BlockReading::NotOffered;
    const Dispatch fields = recordset.Get(L"Fields").Object();
    const LONG count = fields.Get(L"Count").Number().value_or(0);
    if (count <= 0 || count > kMostColumns) return BlockReading::NotOffered;
    const std::vector<std::size_t> places = PlacesOf(columns, fields, static_cast<std::size_t>(count));
    if (places.empty()) return BlockReading::NotOffered;
    while (target->RowCount() < limit) {
        const std::optional<bool> at_end = recordset.Get(L"EOF").Boolean();
        if (!at_end) return BlockReading::Broken;
        if (*at_end) return BlockReading::Complete;
        const std::size_t most_rows = std::min(kRowsAtOnce, limit - target->RowCount());
        const CallResult block = recordset.Call(L"GetString", kClipString, static_cast<LONG>(most_rows),
                                                kColumnEndText, kRowEndText, L"");
        if (!block || block.Value().Type() != VT_BSTR) return BlockReading::Broken;
        const std::wstring_view text = win32::TextOf(block.Value().Get().bstrVal);
        if (!target->AddBlock(text, static_cast<std::size_t>(count), places, most_rows))
            return BlockReading::Broken;
    }
    return BlockReading::Complete;
}

}  // namespace tessel::schema
