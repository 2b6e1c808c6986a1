// check_box.h — controls layer: headless check box (Value 0 clear, 1 ticked, 2 greyed).
#pragma once

#include <string>

#include "controls/control.h"

namespace quillon {

class CheckBox : public Control {
public:
    explicit CheckBox(std::string name = {}, std::string caption = {});

    const std::string& Caption() const { return caption_; }
    void SetCaption(std::string caption);

    int Value() const { return value_; }
    // Raises Click whenever the value changes, from a user's tick or from code alike, as the
    // old check box did. Error 380 outside 0..2.
    void SetValue(int value);

    Event<> Click;

private:
    std::string caption_;
    int value_ = 0;
};

} // namespace quillon
