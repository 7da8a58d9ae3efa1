// Values of a database as the preview shows and copies them: one line, bounded, nothing taken for anything
// but text.
#include <gtest/gtest.h>

#include "common/text.h"
#include "ui/preview.h"
#include "ui/preview_rows.h"

namespace tessel::testing {
namespace {

using namespace std::string_literals;

class OneCell final : public ui::PreviewRows {
public:
    explicit OneCell(std::wstring text) : text_(std::move(text)) {}
    const std::vector<ui::PreviewColumn>& Columns() const override { return columns_; }
    std::int64_t RowCount() const override { return 1; }
    ui::PreviewCell Cell(std::int64_t, int) override { return {text_, false}; }
    std::wstring Trouble() const override { return {}; }

private:
    std::wstring text_;
    std::vector<ui::PreviewColumn> columns_{{L"a\tb\"c", ui::Alignment::Left}};
};

TEST(HostileValue, ControlCharactersBecomeBlanksInACell) {
    EXPECT_EQ(ui::OneLine(L"a\0b"s, 100), L"a b");
    EXPECT_EQ(ui::OneLine(L"a\x1b[31mb\x07\x08\x7f", 100), L"a [31mb  \x7f");
    EXPECT_EQ(ui::OneLine(L"a\r\nb\tc\rd", 100), L"a b c d");
}

TEST(HostileValue, NothingIsInterpretedInACell) {
    for (const wchar_t* text : {L"&Archivo && más", L"%s%n%1!s!", L"<b>x</b>", L"@fecha @{todo}",
                                L"\u202e\u200f\ufeff", L"\U0001F468\u200d\U0001F469", L"'; DROP TABLE t; --"})
        EXPECT_EQ(ToUtf8(ui::OneLine(text, 259)), ToUtf8(text));
}

TEST(HostileValue, AVeryLongTextIsCutWhereTheCellEnds) {
    const std::wstring text(10'000'000, L'x');
    const std::wstring shown = ui::OneLine(text, 259);
    EXPECT_EQ(shown.size(), 259u);
    EXPECT_EQ(shown.back(), L'…');
}

TEST(HostileValue, ACopiedRowKeepsItsColumnsApart) {
    OneCell rows(L"1\t2\r\n\"3\"");
    EXPECT_EQ(ui::RowAsText(rows, 0), L"\"1\t2\r\n\"\"3\"\"\"");
    EXPECT_EQ(ui::HeadersAsText(rows), L"\"a\tb\"\"c\"");
}

TEST(HostileValue, ASearchGoesThroughAVeryLongText) {
    OneCell rows(std::wstring(3'000'000, L'x') + L"\0Ñandú"s);
    ui::RowSearch search(L"ñandú", {0, 0}, false);
    EXPECT_EQ(search.Advance(rows, 10), ui::RowSearch::State::Found);
}

TEST(HostileValue, AReportStaysReadableHoweverMuchTheProviderSays) {
    std::vector<ui::ProviderError> errors(5000, {L"Motor", L"100 % \0oculto"s, L"-1", L"1"});
    const std::wstring report = ui::ErrorReport(std::wstring(10'000'000, L'x') + L"\0y"s, errors);
    EXPECT_LE(report.size(), ui::kLongestReport + 1);
    EXPECT_EQ(report.back(), L'…');
    EXPECT_EQ(report.find(L'\0'), std::wstring::npos);
    const std::wstring many = ui::ErrorReport(L"x", errors);
    EXPECT_LE(std::count(many.begin(), many.end(), L'\n'),
              static_cast<std::ptrdiff_t>(ui::kMostReportLines + 1));
    EXPECT_NE(many.find(L"100 %  oculto"), std::wstring::npos);
}

}  // namespace
}  // namespace tessel::testing
