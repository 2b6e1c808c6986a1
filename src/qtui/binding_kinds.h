// binding_kinds.h — Qt skin: the binding makers of each control kind, which BindControl picks
// from. Each takes the control and the Qt parent of the widget it makes.
#pragma once

#include <memory>

#include "qtui/control_binding.h"

namespace quillon {

class Label;
class CommandButton;
class Image;
class Panel;
class CheckBox;
class TextBox;
class ProgressBar;
class StatusBar;
class ListBox;
class ComboBox;
class DatePicker;
class TreeView;
class FlexGrid;

std::unique_ptr<ControlBinding> BindLabel(Label& label, QWidget* parent);
std::unique_ptr<ControlBinding> BindCommandButton(CommandButton& button, QWidget* parent);
std::unique_ptr<ControlBinding> BindImage(Image& image, QWidget* parent);
std::unique_ptr<ControlBinding> BindPanel(Panel& panel, QWidget* parent);
std::unique_ptr<ControlBinding> BindCheckBox(CheckBox& box, QWidget* parent);
std::unique_ptr<ControlBinding> BindTextBox(TextBox& box, QWidget* parent);
std::unique_ptr<ControlBinding> BindProgressBar(ProgressBar& bar, QWidget* parent);
std::unique_ptr<ControlBinding> BindStatusBar(StatusBar& bar, QWidget* parent);
std::unique_ptr<ControlBinding> BindListBox(ListBox& list, QWidget* parent);
std::unique_ptr<ControlBinding> BindComboBox(ComboBox& combo, QWidget* parent);
std::unique_ptr<ControlBinding> BindDatePicker(DatePicker& picker, QWidget* parent);
std::unique_ptr<ControlBinding> BindTreeView(TreeView& tree, QWidget* parent);
std::unique_ptr<ControlBinding> BindFlexGrid(FlexGrid& grid, QWidget* parent);

} // namespace quillon
