// form_view.h — Qt skin: a headless window drawn inside the MDI frame. FormView holds one
// binding per control, each widget in its container at its twips geometry, stacked by z-order,
// and reports the client size back to the window (which runs Form_Resize). FormSubWindow
// follows the window's caption, geometry, visibility and z-order and hands the close box to it.
#pragma once

#include <QMdiSubWindow>
#include <QWidget>

#include <map>
#include <memory>
#include <string>
#include <vector>

#include "controls/form.h"
#include "qtui/control_binding.h"

class QMdiArea;

namespace quillon {

class FormView : public QWidget {
public:
    explicit FormView(Form& form, QWidget* parent = nullptr);
    ~FormView() override;

    Form* Model() const { return form_; }
    // Lets go of the window and its controls before they go away.
    void Detach();
    // The widget of a control, by the control's name; nullptr when there is none.
    QWidget* WidgetOf(const std::string& controlName) const;

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void Restack(const Control* container);

    Form* form_;
    std::vector<std::unique_ptr<ControlBinding>> bindings_;
    std::map<const Control*, ControlBinding*> byControl_;
    std::map<const Control*, const Control*> containerOf_;
    bool sized_ = false;
};

class FormSubWindow : public QMdiSubWindow {
public:
    // Adds itself to the area, hidden until the window is shown.
    FormSubWindow(Form& form, QMdiArea* area);
    ~FormSubWindow() override;

    Form* Model() const { return form_; }
    FormView* View() const { return view_; }

    // The window was unloaded: let go of it, disappear, and be deleted later.
    void Detach();

protected:
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void moveEvent(QMoveEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void OnFormChanged(Aspect what);
    void PushGeometry();
    void ApplyWindowState();
    void PlaceByDefault();

    Form* form_;
    FormView* view_;
    Event<Aspect>::Id changedId_ = 0;
    Event<>::Id unloadedId_ = 0;
    bool syncing_ = false;
    bool placed_ = false;
    bool placedByFrame_ = false; // maximised or minimised
};

} // namespace quillon
