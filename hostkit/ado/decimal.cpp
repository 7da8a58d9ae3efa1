#include "hostkit/ado/decimal.h"

namespace tessel::ado {

bool DecimalFromText(std::wstring_view text, DECIMAL* target) {
    *target = DECIMAL{};
    std::size_t at = 0;
    const bool negative = !text.empty() && text[0] == L'-';
    if (!text.empty() && (text[0] == L'-' || text[0] == L'+')) ++at;
    unsigned scale = 0;
    bool in_fraction = false, any_digit = false;
    for (; at < text.size(); ++at) {
        if (text[at] == L'.' && !in_fraction) {
            in_fraction = true;
            continue;
        }
        if (text[at] < L'0' || text[at] > L'9') return false;
        // 96 bits times ten plus the digit, in three parts of 32 bits.
        const ULONG parts[] = {target->Lo32, target->Mid32, target->Hi32};
        ULONG next[3];
        ULONGLONG carry = static_cast<ULONGLONG>(text[at] - L'0');
        for (int i = 0; i < 3; ++i) {
            carry += static_cast<ULONGLONG>(parts[i]) * 10;
            next[i] = static_cast<ULONG>(carry);
            carry >>= 32;
        }
        if (carry != 0 || (in_fraction && scale == 28)) {
            // The digits behind what fits are cut off in a fraction and cannot be left out before the point.
            if (in_fraction) break;
            return false;
        }
        target->Lo32 = next[0];
        target->Mid32 = next[1];
        target->Hi32 = next[2];
        any_digit = true;
        if (in_fraction) ++scale;
    }
    for (; at < text.size(); ++at)
        if (text[at] < L'0' || text[at] > L'9') return false;
    target->scale = static_cast<BYTE>(scale);
    target->sign = negative ? DECIMAL_NEG : 0;
    return any_digit;
}

}  // namespace tessel::ado
