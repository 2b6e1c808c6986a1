// money.cpp — model layer, demo data: tax and money of cents.
#include "model/demo/money.h"

namespace quillon::demo {

Cents TaxOf(Cents gross, int ratePercent) {
    if (ratePercent == 0) return 0;
    const Cents num = gross * ratePercent;
    const Cents den = 100 + ratePercent;
    const Cents half = (2 * (num < 0 ? -num : num) + den) / (2 * den);
    return num < 0 ? -half : half;
}

double Money(Cents c) {
    return static_cast<double>(c) / 100.0;
}

} // namespace quillon::demo
