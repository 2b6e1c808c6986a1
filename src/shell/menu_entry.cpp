#include "shell/menu_entry.h"

#include <utility>

namespace quillon {

MenuEntry::MenuEntry(std::string name, std::string caption)
    : name_(std::move(name)), caption_(std::move(caption)) {}

void MenuEntry::SetCaption(std::string caption) {
    if (caption == caption_) return;
    caption_ = std::move(caption);
    Changed.Raise(Aspect::Caption);
}

void MenuEntry::SetEnabled(bool on) {
    if (on == enabled_) return;
    enabled_ = on;
    Changed.Raise(Aspect::Enabled);
}

void MenuEntry::SetVisible(bool on) {
    if (on == visible_) return;
    visible_ = on;
    Changed.Raise(Aspect::Visible);
}

bool MenuEntry::Click() {
    if (!enabled_ || !visible_ || IsSeparator()) return false;
    Clicked.Raise();
    return true;
}

} // namespace quillon
