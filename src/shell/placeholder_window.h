// placeholder_window.h — shell layer: the window a menu entry opens while its report is not
// built yet; it says so and can be closed. The router swaps it for the real window once that
// window's factory is registered.
#pragma once

#include <string>

#include "controls/command_button.h"
#include "controls/form.h"
#include "controls/label.h"

namespace quillon {

class PlaceholderReportForm : public Form {
public:
    PlaceholderReportForm(std::string windowName, std::string reportCaption);

    Label Label1{"Label1"};
    CommandButton Command1{"Command1", "退出"};

protected:
    void Form_Resize() override;
};

} // namespace quillon
