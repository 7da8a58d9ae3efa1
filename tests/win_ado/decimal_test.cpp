#include "hostkit/ado/decimal.h"

#include <gtest/gtest.h>

namespace tessel::ado {
namespace {

struct DecimalCase {
    const wchar_t* text;
    ULONG low;
    ULONG middle;
    ULONG high;
    int scale;
    int sign;
};

TEST(DecimalFromText, KeepsEveryDigitThatFits) {
    const DecimalCase cases[] = {
        {L"0", 0, 0, 0, 0, 0},
        {L"0.01", 1, 0, 0, 2, 0},
        {L".5", 5, 0, 0, 1, 0},
        {L"+7.", 7, 0, 0, 0, 0},
        {L"-1234.5600", 12345600, 0, 0, 4, DECIMAL_NEG},
        {L"4294967296", 0, 1, 0, 0, 0},
        {L"18446744073709551616", 0, 0, 1, 0, 0},
        {L"79228162514264337593543950335", 0xFFFFFFFF, 0xFFFFFFFF, 0xFFFFFFFF, 0, 0},
        {L"0.00000000000000000000000000019", 1, 0, 0, 28, 0},
        {L"7922816251426433759354395033.59", 0xFFFFFFFF, 0xFFFFFFFF, 0xFFFFFFFF, 1, 0},
    };
    for (const DecimalCase& entry : cases) {
        SCOPED_TRACE(testing::PrintToString(std::wstring(entry.text)));
        DECIMAL decimal;
        ASSERT_TRUE(DecimalFromText(entry.text, &decimal));
        EXPECT_EQ(decimal.Lo32, entry.low);
        EXPECT_EQ(decimal.Mid32, entry.middle);
        EXPECT_EQ(decimal.Hi32, entry.high);
        EXPECT_EQ(decimal.scale, entry.scale);
        EXPECT_EQ(decimal.sign, entry.sign);
    }
}

TEST(DecimalFromText, RefusesWhatIsNoSuchNumber) {
    for (const wchar_t* text :
         {L"", L"-", L".", L"1e5", L"12a", L"1.2.3", L" 1", L"1,5", L"79228162514264337593543950336"}) {
        DECIMAL decimal;
        EXPECT_FALSE(DecimalFromText(text, &decimal)) << testing::PrintToString(std::wstring(text));
    }
}

}  // namespace
}  // namespace tessel::ado
