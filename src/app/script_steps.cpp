#include "app/script_steps.h"

#include <cstdlib>

#include "base/date_time.h"
#include "controls/check_box.h"
#include "controls/combo_box.h"
#include "controls/command_button.h"
#include "controls/date_picker.h"
#include "controls/flex_grid.h"
#include "controls/form.h"
#include "controls/image.h"
#include "controls/list_box.h"
#include "controls/text_box.h"

namespace quillon {

std::string RunScriptStep(Form& form, const std::string& step) {
    const std::size_t mark = step.find_first_of("=@#");
    Control* control = form.FindControl(step.substr(0, mark));
    if (!control) return "no control " + step.substr(0, mark) + " in " + form.Name();
    const char how = mark == std::string::npos ? '!' : step[mark];
    const std::string arg = mark == std::string::npos ? std::string() : step.substr(mark + 1);

    if (how == '!') {
        if (auto* button = dynamic_cast<CommandButton*>(control))
            return button->Click() ? "" : "button is off";
        if (auto* image = dynamic_cast<Image*>(control)) return image->ClickImage() ? "" : "image is off";
        if (auto* box = dynamic_cast<CheckBox*>(control)) {
            box->SetValue(box->Value() == 1 ? 0 : 1);
            return "";
        }
    } else if (how == '=') {
        if (auto* list = dynamic_cast<ListBox*>(control)) {
            for (int i = 0; i < list->ListCount(); ++i)
                if (list->List(i).rfind(arg, 0) == 0) {
                    list->SetListIndex(i);
                    return "";
                }
            return "no entry " + arg;
        }
        if (auto* combo = dynamic_cast<ComboBox*>(control)) {
            combo->SetText(arg); // typed, as the year and month boxes take any text
            return "";
        }
        if (auto* picker = dynamic_cast<DatePicker*>(control)) {
            const auto date = DateTime::ParseIso(arg);
            if (!date) return "not a date: " + arg;
            picker->SetValue(*date);
            return "";
        }
        if (auto* box = dynamic_cast<TextBox*>(control)) {
            box->SetText(arg);
            return "";
        }
    } else if (how == '@') {
        if (auto* grid = dynamic_cast<FlexGrid*>(control)) {
            const std::size_t comma = arg.find(',');
            if (comma == std::string::npos) return "want ROW,COL";
            grid->ClickCell(std::atoi(arg.c_str()), std::atoi(arg.c_str() + comma + 1));
            return "";
        }
    } else if (how == '#') {
        if (auto* box = dynamic_cast<TextBox*>(control)) {
            box->PressKey(std::atoi(arg.c_str()));
            return "";
        }
    }
    return "step " + step + " does not fit that control";
}

} // namespace quillon
