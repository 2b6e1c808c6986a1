#include "controls/combo_box.h"

#include <algorithm>
#include <utility>

#include "base/vb_error.h"

namespace quillon {

namespace {
[[noreturn]] void ThrowInvalidCall() {
    throw VbError(kErrInvalidProcCall, "无效的过程调用或参数");
}
} // namespace

ComboBox::ComboBox(std::string name) : Control(std::move(name)) {}

void ComboBox::AddItem(std::string text, int index) {
    if (index == -1) index = ListCount();
    if (index < 0 || index > ListCount()) ThrowInvalidCall();
    items_.insert(items_.begin() + index, std::move(text));
    if (listIndex_ >= index) ++listIndex_;
    Notify(Aspect::Items);
}

void ComboBox::RemoveItem(int index) {
    if (index < 0 || index >= ListCount()) ThrowInvalidCall();
    items_.erase(items_.begin() + index);
    if (listIndex_ == index)
        listIndex_ = -1;
    else if (listIndex_ > index)
        --listIndex_;
    Notify(Aspect::Items);
}

void ComboBox::Clear() {
    items_.clear();
    listIndex_ = -1;
    text_.clear();
    Notify(Aspect::Items);
}

std::string ComboBox::List(int index) const {
    if (index < 0 || index >= ListCount()) return {};
    return items_[index];
}

void ComboBox::SetListIndex(int index) {
    if (index < -1 || index >= ListCount()) ThrowInvalidPropertyValue();
    if (listIndex_ == index) return;
    listIndex_ = index;
    if (index >= 0) text_ = items_[index];
    Notify(Aspect::Selection);
    Click.Raise();
}

void ComboBox::SetText(std::string text) {
    if (text_ == text) return;
    text_ = std::move(text);
    const auto found = std::find(items_.begin(), items_.end(), text_);
    listIndex_ = found == items_.end() ? -1 : static_cast<int>(found - items_.begin());
    Notify(Aspect::Text);
    Change.Raise();
}

} // namespace quillon
