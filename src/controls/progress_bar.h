// progress_bar.h — controls layer: headless progress bar (Min, Max, Value) of the exports.
#pragma once

#include <string>

#include "controls/control.h"

namespace quillon {

class ProgressBar : public Control {
public:
    explicit ProgressBar(std::string name = {});

    int Min() const { return min_; }
    int Max() const { return max_; }
    int Value() const { return value_; }
    // Min must stay below Max, else error 380; a Value left outside the new range is pulled in.
    void SetMin(int min);
    void SetMax(int max);
    // Error 380 outside Min..Max.
    void SetValue(int value);

private:
    int min_ = 0;
    int max_ = 100;
    int value_ = 0;
};

} // namespace quillon
