#include "controls/list_box.h"

#include <algorithm>
#include <utility>

#include "base/vb_error.h"

namespace quillon {

namespace {
[[noreturn]] void ThrowInvalidCall() {
    throw VbError(kErrInvalidProcCall, "无效的过程调用或参数");
}
} // namespace

ListBox::ListBox(std::string name, ListStyle style) : Control(std::move(name)), style_(style) {}

void ListBox::SetStyle(ListStyle style) {
    if (style_ == style) return;
    style_ = style;
    Notify(Aspect::Appearance);
}

void ListBox::AddItem(std::string text, int index) {
    if (index == -1) index = ListCount();
    if (index < 0 || index > ListCount()) ThrowInvalidCall();
    items_.insert(items_.begin() + index, std::move(text));
    ticked_.insert(ticked_.begin() + index, false);
    itemData_.insert(itemData_.begin() + index, 0);
    if (listIndex_ >= index) ++listIndex_;
    Notify(Aspect::Items);
}

void ListBox::RemoveItem(int index) {
    if (index < 0 || index >= ListCount()) ThrowInvalidCall();
    items_.erase(items_.begin() + index);
    ticked_.erase(ticked_.begin() + index);
    itemData_.erase(itemData_.begin() + index);
    if (listIndex_ == index)
        listIndex_ = -1;
    else if (listIndex_ > index)
        --listIndex_;
    Notify(Aspect::Items);
}

void ListBox::Clear() {
    items_.clear();
    ticked_.clear();
    itemData_.clear();
    listIndex_ = -1;
    Notify(Aspect::Items);
}

std::string ListBox::List(int index) const {
    if (index < 0 || index >= ListCount()) return {};
    return items_[index];
}

void ListBox::SetList(int index, std::string text) {
    CheckIndex(index);
    if (items_[index] == text) return;
    items_[index] = std::move(text);
    Notify(Aspect::Items);
}

void ListBox::SetListIndex(int index) {
    if (index < -1 || index >= ListCount()) ThrowInvalidPropertyValue();
    if (listIndex_ == index) return;
    listIndex_ = index;
    Notify(Aspect::Selection);
    Click.Raise();
}

bool ListBox::Selected(int index) const {
    if (index < 0 || index >= ListCount()) return false;
    return style_ == ListStyle::CheckBox ? static_cast<bool>(ticked_[index]) : index == listIndex_;
}

void ListBox::SetSelected(int index, bool on) {
    CheckIndex(index);
    if (style_ == ListStyle::Standard) {
        if (on)
            SetListIndex(index);
        else if (listIndex_ == index)
            SetListIndex(-1);
        return;
    }
    if (ticked_[index] != on) {
        ticked_[index] = on;
        Notify(Aspect::Selection);
        ItemCheck.Raise(index);
    }
    SetListIndex(index);
}

int ListBox::SelCount() const {
    if (style_ == ListStyle::Standard) return listIndex_ >= 0 ? 1 : 0;
    return static_cast<int>(std::count(ticked_.begin(), ticked_.end(), true));
}

long ListBox::ItemData(int index) const {
    CheckIndex(index);
    return itemData_[index];
}

void ListBox::SetItemData(int index, long value) {
    CheckIndex(index);
    itemData_[index] = value;
}

void ListBox::CheckIndex(int index) const {
    if (index < 0 || index >= ListCount()) ThrowInvalidArrayIndex();
}

} // namespace quillon
