// menu_entry.h — shell layer: one entry of a window's menu, headless: name, caption, Enabled,
// Visible, the entries under it, and the Clicked event its handler hangs on. The Qt skin builds
// the menu bar from these and follows their changes.
#pragma once

#include <string>
#include <vector>

#include "controls/control.h"
#include "controls/event.h"

namespace quillon {

class MenuEntry {
public:
    MenuEntry(std::string name, std::string caption);
    explicit MenuEntry(const std::string& nameAndCaption) : MenuEntry(nameAndCaption, nameAndCaption) {}
    MenuEntry(const MenuEntry&) = delete;
    MenuEntry& operator=(const MenuEntry&) = delete;

    const std::string& Name() const { return name_; }
    const std::string& Caption() const { return caption_; }
    void SetCaption(std::string caption);
    // A caption of "-" draws a separator line instead of an entry.
    bool IsSeparator() const { return caption_ == "-"; }

    bool Enabled() const { return enabled_; }
    void SetEnabled(bool on);
    bool Visible() const { return visible_; }
    void SetVisible(bool on);

    // Entries under this one, in menu order.
    void Add(MenuEntry& child) { children_.push_back(&child); }
    const std::vector<MenuEntry*>& Children() const { return children_; }

    // What a user's pick does: raises Clicked when the entry is enabled and visible and is no
    // separator; true when it was raised.
    bool Click();

    Event<> Clicked;
    Event<Aspect> Changed; // Caption, Enabled, Visible

private:
    std::string name_;
    std::string caption_;
    bool enabled_ = true;
    bool visible_ = true;
    std::vector<MenuEntry*> children_;
};

} // namespace quillon
