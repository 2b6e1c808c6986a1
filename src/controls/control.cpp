#include "controls/control.h"

#include <utility>

#include "base/vb_error.h"

namespace quillon {

namespace {
// One counter for the whole process: a later ZOrder(0) is in front of every earlier one.
long zFront = 0;
long zBack = 0;
} // namespace

void ThrowInvalidPropertyValue() {
    throw VbError(kErrInvalidPropertyValue, "无效的属性值");
}
void ThrowInvalidArrayIndex() {
    throw VbError(kErrInvalidArrayIndex, "无效的属性数组索引");
}

Control::Control(std::string name) : name_(std::move(name)) {}

Control::~Control() = default;

void Control::SetLeft(int twips) {
    if (left_ == twips) return;
    left_ = twips;
    Notify(Aspect::Geometry);
}

void Control::SetTop(int twips) {
    if (top_ == twips) return;
    top_ = twips;
    Notify(Aspect::Geometry);
}

void Control::SetWidth(int twips) {
    if (twips < 0) ThrowInvalidPropertyValue();
    if (width_ == twips) return;
    width_ = twips;
    Notify(Aspect::Geometry);
    OnResized();
}

void Control::SetHeight(int twips) {
    if (twips < 0) ThrowInvalidPropertyValue();
    if (height_ == twips) return;
    height_ = twips;
    Notify(Aspect::Geometry);
    OnResized();
}

void Control::Move(int left, int top, int width, int height) {
    if (width < 0 || height < 0) ThrowInvalidPropertyValue();
    const bool resized = width != width_ || height != height_;
    if (!resized && left == left_ && top == top_) return;
    left_ = left;
    top_ = top;
    width_ = width;
    height_ = height;
    Notify(Aspect::Geometry);
    if (resized) OnResized();
}

void Control::SetVisible(bool on) {
    if (visible_ == on) return;
    visible_ = on;
    Notify(Aspect::Visible);
}

void Control::SetEnabled(bool on) {
    if (enabled_ == on) return;
    enabled_ = on;
    Notify(Aspect::Enabled);
}

void Control::ZOrder(int position) {
    if (position != 0 && position != 1) ThrowInvalidPropertyValue();
    zLevel_ = position == 0 ? ++zFront : --zBack;
    Notify(Aspect::ZOrder);
}

void Control::SetFocus() {
    ++focusRequests_;
    Notify(Aspect::Focus);
}

bool Control::Assign(std::string& member, std::string value, Aspect what) {
    if (member == value) return false;
    member = std::move(value);
    Notify(what);
    return true;
}

} // namespace quillon
