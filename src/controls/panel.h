// panel.h — controls layer: headless picture box or frame: a container with geometry, a caption
// (frames), a back colour, and the Resize event that some windows lay their contents out in.
#pragma once

#include <cstdint>
#include <string>

#include "controls/control.h"

namespace quillon {

class Panel : public Control {
public:
    explicit Panel(std::string name = {}, std::string caption = {});

    const std::string& Caption() const { return caption_; }
    void SetCaption(std::string caption);

    // In the grid's byte order (blue in the high byte) or a system colour 0x800000nn.
    std::uint32_t BackColor() const { return backColor_; }
    void SetBackColor(std::uint32_t color);

    // Raised after Width or Height changed.
    Event<> Resize;

protected:
    void OnResized() override { Resize.Raise(); }

private:
    std::string caption_;
    std::uint32_t backColor_ = kColorButtonFace;
};

} // namespace quillon
