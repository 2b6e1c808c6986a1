#include "controls/check_box.h"

#include <utility>

namespace quillon {

CheckBox::CheckBox(std::string name, std::string caption)
    : Control(std::move(name)), caption_(std::move(caption)) {}

void CheckBox::SetCaption(std::string caption) {
    Assign(caption_, std::move(caption), Aspect::Caption);
}

void CheckBox::SetValue(int value) {
    if (value < 0 || value > 2) ThrowInvalidPropertyValue();
    if (value == value_) return;
    value_ = value;
    Notify(Aspect::Value);
    Click.Raise();
}

} // namespace quillon
