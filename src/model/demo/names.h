// names.h — model layer, demo data: names of people and firms, drawn from fixed pools.
#pragma once

#include <string>

#include "model/demo/rng.h"

namespace quillon::demo {

// Holder of the parking spaces the developer kept.
extern const char* const kDeveloper;

std::string PersonName(Rng& rng);
// "{city}{word}{trade}有限公司".
std::string FirmName(Rng& rng, const char* city);
// `count` decimal digits.
std::string Digits(Rng& rng, int count);

} // namespace quillon::demo
