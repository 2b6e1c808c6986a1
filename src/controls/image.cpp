#include "controls/image.h"

#include <utility>

namespace quillon {

Image::Image(std::string name, std::string picture)
    : Control(std::move(name)), picture_(std::move(picture)) {}

void Image::SetPicture(std::string picture) {
    Assign(picture_, std::move(picture), Aspect::Caption);
}

bool Image::ClickImage() {
    if (!Enabled() || !Visible()) return false;
    Click.Raise();
    return true;
}

} // namespace quillon
