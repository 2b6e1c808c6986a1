#include "controls/panel.h"

#include <utility>

namespace quillon {

Panel::Panel(std::string name, std::string caption)
    : Control(std::move(name)), caption_(std::move(caption)) {}

void Panel::SetCaption(std::string caption) {
    Assign(caption_, std::move(caption), Aspect::Caption);
}

void Panel::SetBackColor(std::uint32_t color) {
    if (backColor_ == color) return;
    backColor_ = color;
    Notify(Aspect::Appearance);
}

} // namespace quillon
