#include "controls/form.h"

#include "base/vb_error.h"

namespace quillon {
namespace {

long NextWindowZLevel() {
    static long level = 0;
    return ++level;
}

} // namespace

Form::Form(std::string name, std::string caption) : name_(std::move(name)), caption_(std::move(caption)) {}

Form::~Form() = default;

void Form::SetCaption(std::string caption) {
    if (caption == caption_) return;
    caption_ = std::move(caption);
    Changed.Raise(Aspect::Caption);
}

void Form::Move(int left, int top, int width, int height) {
    left_ = left;
    top_ = top;
    width_ = width;
    height_ = height;
    Changed.Raise(Aspect::Geometry);
}

void Form::SetClientSize(int scaleWidth, int scaleHeight) {
    scaleWidth_ = scaleWidth;
    scaleHeight_ = scaleHeight;
    try {
        Form_Resize();
    } catch (const VbError&) {
        // A window made too small keeps what it could set.
    }
    Changed.Raise(Aspect::Geometry);
}

Control* Form::FindControl(const std::string& name) const {
    for (const auto& c : children_)
        if (c.control->Name() == name) return c.control;
    return nullptr;
}

void Form::Load() {
    if (loaded_) return;
    loaded_ = true;
    Form_Load();
}

void Form::Show() {
    Load();
    if (!visible_) {
        visible_ = true;
        Changed.Raise(Aspect::Visible);
    }
    ZOrder(0);
    Activate();
}

void Form::SetWindowState(int state) {
    if (state < 0 || state > 2) ThrowInvalidPropertyValue();
    if (state == windowState_) return;
    windowState_ = state;
    Changed.Raise(Aspect::WindowState);
}

void Form::Activate() {
    Form_Activate();
}

void Form::ZOrder(int position) {
    zLevel_ = position == 0 ? NextWindowZLevel() : -NextWindowZLevel();
    Changed.Raise(Aspect::ZOrder);
}

bool Form::Close() {
    if (!Form_QueryUnload()) return false;
    Unload();
    return true;
}

void Form::Unload() {
    visible_ = false;
    Unloaded.Raise();
}

void Form::AddControl(Control& control, Control* container) {
    children_.push_back(Child{&control, container});
}

} // namespace quillon
