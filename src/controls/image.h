// image.h — controls layer: headless image control: a picture that answers a click. The pager's
// four page buttons are images; the picture names what the image shows ("首页" …), so the skin
// can draw it and a test can find it.
#pragma once

#include <string>

#include "controls/control.h"

namespace quillon {

class Image : public Control {
public:
    explicit Image(std::string name = {}, std::string picture = {});

    const std::string& Picture() const { return picture_; }
    void SetPicture(std::string picture);

    // What a user's click does: raises Click when the image is Enabled and Visible; true when raised.
    bool ClickImage();

    Event<> Click;

private:
    std::string picture_;
};

} // namespace quillon
