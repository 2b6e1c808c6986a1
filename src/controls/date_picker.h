// date_picker.h — controls layer: headless date picker: the chosen date and the display format.
#pragma once

#include <string>

#include "base/date_time.h"
#include "controls/control.h"

namespace quillon {

class DatePicker : public Control {
public:
    explicit DatePicker(std::string name = {});

    // Until set, the value is the platform's zero date, 1899-12-30.
    const DateTime& Value() const { return value_; }
    // Raises Change when the value differs, whether a user or the code set it.
    void SetValue(const DateTime& value);

    // Display only, e.g. "yyyy-MM-dd"; the value is not affected.
    const std::string& CustomFormat() const { return customFormat_; }
    void SetCustomFormat(std::string format);

    Event<> Change;

private:
    DateTime value_;
    std::string customFormat_;
};

} // namespace quillon
