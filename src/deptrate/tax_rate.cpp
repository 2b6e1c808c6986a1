#include "deptrate/tax_rate.h"

#include <cmath>
#include <cstdlib>
#include <string_view>

#include "base/vb_error.h"
#include "base/vb_number.h"
#include "db/value.h"

namespace quillon {
namespace {

// Exact decimal text ("-12.34567", "6", ".5") scaled to `places` decimals, half away from zero;
// false when the text is not of that plain shape (an exponent, blanks, letters).
bool ParsePlainDecimal(std::string_view text, int places, long long& scaled) {
    bool negative = false;
    std::size_t i = 0;
    if (i < text.size() && (text[i] == '-' || text[i] == '+')) negative = text[i++] == '-';
    long long whole = 0;
    int digits = 0;
    for (; i < text.size() && text[i] >= '0' && text[i] <= '9'; ++i, ++digits)
        whole = whole * 10 + (text[i] - '0');
    long long fraction = 0;
    int taken = 0;
    bool roundUp = false;
    if (i < text.size() && text[i] == '.') {
        for (++i; i < text.size() && text[i] >= '0' && text[i] <= '9'; ++i, ++digits) {
            if (taken < places) {
                fraction = fraction * 10 + (text[i] - '0');
                ++taken;
            } else if (taken == places) {
                roundUp = text[i] >= '5';
                ++taken;
            }
        }
    }
    if (i != text.size() || digits == 0 || digits > 18) return false;
    for (; taken < places; ++taken) fraction *= 10;
    long long scale = 1;
    for (int p = 0; p < places; ++p) scale *= 10;
    scaled = whole * scale + fraction + (roundUp ? 1 : 0);
    if (negative) scaled = -scaled;
    return true;
}

// A scaled decimal as plain text: no exponent, no trailing zeros, no point when whole.
std::string PlainDecimalText(long long scaled, int places) {
    long long scale = 1;
    for (int p = 0; p < places; ++p) scale *= 10;
    const long long magnitude = std::llabs(scaled);
    std::string text = (scaled < 0 ? "-" : "") + std::to_string(magnitude / scale);
    std::string fraction = std::to_string(magnitude % scale);
    fraction.insert(0, places - fraction.size(), '0');
    while (!fraction.empty() && fraction.back() == '0') fraction.pop_back();
    if (!fraction.empty()) text += "." + fraction;
    return text;
}

} // namespace

TaxRate TaxRateFromValue(const Value& value) {
    if (value.IsNull()) throw VbError(94, "无效使用 Null");
    long long scaled = 0;
    if (ParsePlainDecimal(value.AsText(), 4, scaled)) return TaxRate{scaled};
    // General number text in exponent form ("1E-05"), or a text CDbl still reads.
    return TaxRate{std::llround(value.AsNumber() * 10000.0)};
}

std::string TaxRatePercentText(TaxRate rate) {
    return PlainDecimalText(rate.tenThousandths, 4);
}

std::string TaxRateLiteral(TaxRate rate) {
    // Format first writes the quotient with 15 significant digits, which holds a four-place
    // percentage divided by 100 exactly, so the rounding is decimal, not binary.
    const std::string rounded = Format(static_cast<double>(rate.tenThousandths) / 1000000.0, "0.00");
    long long hundredths = 0;
    ParsePlainDecimal(rounded, 2, hundredths);
    return PlainDecimalText(hundredths, 2);
}

} // namespace quillon
