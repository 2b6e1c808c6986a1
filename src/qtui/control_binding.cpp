#include "qtui/control_binding.h"

#include "controls/check_box.h"
#include "controls/combo_box.h"
#include "controls/command_button.h"
#include "controls/date_picker.h"
#include "controls/flex_grid.h"
#include "controls/image.h"
#include "controls/label.h"
#include "controls/list_box.h"
#include "controls/panel.h"
#include "controls/progress_bar.h"
#include "controls/status_bar.h"
#include "controls/text_box.h"
#include "controls/tree_view.h"
#include "qtui/binding_kinds.h"
#include "qtui/qt_convert.h"

namespace quillon {

ControlBinding::ControlBinding(Control& control, QWidget* widget) : control_(&control), widget_(widget) {
    widget->setObjectName(ToQString(control.Name()));
    changedId_ = control.Changed.Connect([this](Aspect what) { OnChanged(what); });
}

ControlBinding::~ControlBinding() {
    Detach();
}

void ControlBinding::Detach() {
    if (!control_) return;
    OnDetach();
    control_->Changed.Disconnect(changedId_);
    control_ = nullptr;
}

void ControlBinding::RefreshAll() {
    for (Aspect what : {Aspect::Geometry, Aspect::Visible, Aspect::Enabled, Aspect::Caption, Aspect::Text,
                        Aspect::Items, Aspect::Selection, Aspect::Value, Aspect::Range, Aspect::Appearance,
                        Aspect::Panels, Aspect::Nodes, Aspect::Layout, Aspect::Cells, Aspect::CurrentCell})
        OnChanged(what);
}

void ControlBinding::OnChanged(Aspect what) {
    if (!control_ || !widget_) return;
    switch (what) {
    case Aspect::Geometry:
        widget_->setGeometry(TwipsToPixels(control_->Left()), TwipsToPixels(control_->Top()),
                             TwipsToPixels(control_->Width()), TwipsToPixels(control_->Height()));
        break;
    case Aspect::Visible:
        widget_->setVisible(control_->Visible());
        break;
    case Aspect::Enabled:
        widget_->setEnabled(control_->Enabled());
        break;
    case Aspect::ZOrder:
        if (OnZOrder) OnZOrder();
        break;
    case Aspect::Focus:
        widget_->setFocus(Qt::OtherFocusReason);
        break;
    default:
        break;
    }
    Refresh(what);
}

std::unique_ptr<ControlBinding> BindControl(Control& control, QWidget* parent) {
    if (auto* c = dynamic_cast<FlexGrid*>(&control)) return BindFlexGrid(*c, parent);
    if (auto* c = dynamic_cast<Label*>(&control)) return BindLabel(*c, parent);
    if (auto* c = dynamic_cast<CommandButton*>(&control)) return BindCommandButton(*c, parent);
    if (auto* c = dynamic_cast<Image*>(&control)) return BindImage(*c, parent);
    if (auto* c = dynamic_cast<Panel*>(&control)) return BindPanel(*c, parent);
    if (auto* c = dynamic_cast<CheckBox*>(&control)) return BindCheckBox(*c, parent);
    if (auto* c = dynamic_cast<TextBox*>(&control)) return BindTextBox(*c, parent);
    if (auto* c = dynamic_cast<ProgressBar*>(&control)) return BindProgressBar(*c, parent);
    if (auto* c = dynamic_cast<StatusBar*>(&control)) return BindStatusBar(*c, parent);
    if (auto* c = dynamic_cast<ListBox*>(&control)) return BindListBox(*c, parent);
    if (auto* c = dynamic_cast<ComboBox*>(&control)) return BindComboBox(*c, parent);
    if (auto* c = dynamic_cast<DatePicker*>(&control)) return BindDatePicker(*c, parent);
    if (auto* c = dynamic_cast<TreeView*>(&control)) return BindTreeView(*c, parent);
    return nullptr;
}

} // namespace quillon
