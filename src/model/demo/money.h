// money.h — model layer, demo data: money in integer cents, so that sums and taxes are exact
// decimals.
#pragma once

#include <cstdint>

namespace quillon::demo {

using Cents = std::int64_t;

// Tax contained in a gross amount at a rate in percent, rounded half away from zero to the cent.
Cents TaxOf(Cents gross, int ratePercent);

// The amount as the tables store it.
double Money(Cents c);

} // namespace quillon::demo
