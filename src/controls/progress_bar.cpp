#include "controls/progress_bar.h"

#include <algorithm>
#include <utility>

namespace quillon {

ProgressBar::ProgressBar(std::string name) : Control(std::move(name)) {}

void ProgressBar::SetMin(int min) {
    if (min >= max_) ThrowInvalidPropertyValue();
    if (min == min_) return;
    min_ = min;
    value_ = std::clamp(value_, min_, max_);
    Notify(Aspect::Range);
}

void ProgressBar::SetMax(int max) {
    if (max <= min_) ThrowInvalidPropertyValue();
    if (max == max_) return;
    max_ = max;
    value_ = std::clamp(value_, min_, max_);
    Notify(Aspect::Range);
}

void ProgressBar::SetValue(int value) {
    if (value < min_ || value > max_) ThrowInvalidPropertyValue();
    if (value == value_) return;
    value_ = value;
    Notify(Aspect::Value);
}

} // namespace quillon
