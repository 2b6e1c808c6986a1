// label.h — controls layer: headless label: a caption that windows write titles and wait texts to.
#pragma once

#include <string>

#include "controls/control.h"

namespace quillon {

class Label : public Control {
public:
    explicit Label(std::string name = {}, std::string caption = {});

    const std::string& Caption() const { return caption_; }
    void SetCaption(std::string caption);

private:
    std::string caption_;
};

} // namespace quillon
