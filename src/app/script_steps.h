// script_steps.h — program: the steps of a scripted GUI run (screenshots of a report with its
// results): each step acts on a control of the window in front, through its model, as a user's
// click or typing would, so the window's own handlers run.
#pragma once

#include <string>

namespace quillon {

class Form;

// One step, by the control's name:
//   NAME            click a button, an image or a check box
//   NAME=TEXT       a list: select the first entry that starts with TEXT; a date picker: the
//                   date YYYY-MM-DD; a text box or a combo box: its text
//   NAME@ROW,COL    click a grid cell
//   NAME#KEY        press a key in a text box (13 is Enter)
// Gives an error text, empty when the step was done.
std::string RunScriptStep(Form& form, const std::string& step);

} // namespace quillon
