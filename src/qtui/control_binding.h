// control_binding.h — Qt skin: one binding per control kind ties a headless control to a real
// widget both ways: the user's action goes to the model (which raises the window's handler),
// the model's Changed event updates the widget. Geometry in twips, 15 to the pixel.
#pragma once

#include <QObject>
#include <QPointer>
#include <QWidget>

#include <functional>
#include <memory>

#include "controls/control.h"

namespace quillon {

class ControlBinding : public QObject {
public:
    // Subscribes to the control; the widget belongs to its Qt parent.
    ControlBinding(Control& control, QWidget* widget);
    // A kind that overrides OnDetach calls Detach in its own destructor.
    ~ControlBinding() override;
    ControlBinding(const ControlBinding&) = delete;
    ControlBinding& operator=(const ControlBinding&) = delete;

    Control* Model() const { return control_; }
    QWidget* Widget() const { return widget_; }

    // Lets go of the control before it goes away; the widget stays, inert.
    void Detach();

    // Brings the widget in line with every part of the control's state.
    void RefreshAll();

    // Called after the control's ZOrder changed, so that the view restacks its siblings.
    std::function<void()> OnZOrder;

protected:
    // Called once when the binding lets go of the control, while the control still exists.
    virtual void OnDetach() {}
    // Kind-specific parts; the common ones (geometry, Visible, Enabled, z-order, focus) are
    // handled before this is called.
    virtual void Refresh(Aspect what) = 0;
    // The user's action reaches the handler through the model only while attached.
    template <typename T> T* ModelAs() const { return static_cast<T*>(control_); }

private:
    void OnChanged(Aspect what);

    Control* control_;
    QPointer<QWidget> widget_;
    Event<Aspect>::Id changedId_ = 0;
};

// Makes the widget and binding for a control of any kind, as a child of parent. Null for a
// kind the skin does not know.
std::unique_ptr<ControlBinding> BindControl(Control& control, QWidget* parent);

} // namespace quillon
