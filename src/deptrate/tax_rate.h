// tax_rate.h — deptrate layer: a configured tax rate as an exact four-place percentage, and the
// texts made of it: the column heading and the literal invoice lines are looked up by.
#pragma once

#include <string>

namespace quillon {

class Value;

// 税控盘收费项目设置.税率 as stored there: 6 means 6%. Held in ten-thousandths, so 1.5 is 15000.
struct TaxRate {
    long long tenThousandths = 0;
    bool operator==(const TaxRate&) const = default;
};

// The field's value as an exact four-place decimal, rounded half away from zero at the fifth
// place. Numbers and decimal texts alike ("6", 1.5, "13.0000"); VbError 13 for other text,
// 94 for NULL.
TaxRate TaxRateFromValue(const Value& value);

// The percentage as plain decimal text without trailing zeros: "6", "1.5", "0.25".
std::string TaxRatePercentText(TaxRate rate);

// What invoice lines store for this rate: the percentage divided by 100 and rounded to two places,
// written without trailing zeros. 6 gives "0.06", 10 gives "0.1", and 1.5 gives "0.02": the
// two-place rounding is how the report has always looked rates up.
std::string TaxRateLiteral(TaxRate rate);

} // namespace quillon
