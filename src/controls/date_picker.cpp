#include "controls/date_picker.h"

#include <utility>

namespace quillon {

DatePicker::DatePicker(std::string name) : Control(std::move(name)) {}

void DatePicker::SetValue(const DateTime& value) {
    if (value_ == value) return;
    value_ = value;
    Notify(Aspect::Value);
    Change.Raise();
}

void DatePicker::SetCustomFormat(std::string format) {
    Assign(customFormat_, std::move(format), Aspect::Range);
}

} // namespace quillon
