// command_button.h — controls layer: headless command button. Click() is what a user's press does:
// nothing while the button is disabled or hidden (buttons are hidden during an export).
#pragma once

#include <string>

#include "controls/control.h"

namespace quillon {

class CommandButton : public Control {
public:
    explicit CommandButton(std::string name = {}, std::string caption = {});

    const std::string& Caption() const { return caption_; }
    void SetCaption(std::string caption);

    // Raises Clicked only when the button is Enabled and Visible; true when it was raised.
    bool Click();

    // The window connects its Command3_Click here (the event cannot share the name Click).
    Event<> Clicked;

private:
    std::string caption_;
};

} // namespace quillon
