#include "controls/label.h"

#include <utility>

namespace quillon {

Label::Label(std::string name, std::string caption)
    : Control(std::move(name)), caption_(std::move(caption)) {}

void Label::SetCaption(std::string caption) {
    Assign(caption_, std::move(caption), Aspect::Caption);
}

} // namespace quillon
