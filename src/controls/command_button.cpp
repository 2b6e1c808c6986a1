#include "controls/command_button.h"

#include <utility>

namespace quillon {

CommandButton::CommandButton(std::string name, std::string caption)
    : Control(std::move(name)), caption_(std::move(caption)) {}

void CommandButton::SetCaption(std::string caption) {
    Assign(caption_, std::move(caption), Aspect::Caption);
}

bool CommandButton::Click() {
    if (!Enabled() || !Visible()) return false;
    Clicked.Raise();
    return true;
}

} // namespace quillon
