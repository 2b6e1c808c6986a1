#include "qtui/form_view.h"

#include <QCloseEvent>
#include <QMdiArea>

#include <algorithm>

#include "qtui/qt_convert.h"
#include "qtui/user_action.h"

namespace quillon {

// --- FormView

FormView::FormView(Form& form, QWidget* parent) : QWidget(parent), form_(&form) {
    setObjectName(ToQString(form.Name()));
    setAutoFillBackground(true);
    QPalette palette = this->palette();
    palette.setColor(QPalette::Window, ColorFromBgr(kColorButtonFace));
    setPalette(palette);

    for (const Form::Child& child : form.Controls()) {
        std::unique_ptr<ControlBinding> binding = BindControl(*child.control, this);
        if (!binding) continue;
        byControl_[child.control] = binding.get();
        containerOf_[child.control] = child.container;
        bindings_.push_back(std::move(binding));
    }
    // Containers exist now: move each widget into its own, then show what the model shows.
    for (auto& binding : bindings_) {
        const Control* container = containerOf_[binding->Model()];
        auto it = byControl_.find(container);
        QWidget* parentWidget = container && it != byControl_.end() ? it->second->Widget() : this;
        if (binding->Widget()->parentWidget() != parentWidget) binding->Widget()->setParent(parentWidget);
        binding->OnZOrder = [this, container] { Restack(container); };
        binding->RefreshAll();
    }
    for (const auto& [control, container] : containerOf_) Restack(container);
}

FormView::~FormView() {
    Detach();
}

void FormView::Detach() {
    for (auto& binding : bindings_) binding->Detach();
    form_ = nullptr;
}

QWidget* FormView::WidgetOf(const std::string& controlName) const {
    for (const auto& binding : bindings_)
        if (binding->Widget() && binding->Widget()->objectName() == ToQString(controlName))
            return binding->Widget();
    return nullptr;
}

void FormView::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    if (!form_) return;
    Form* form = form_;
    const int width = PixelsToTwips(this->width());
    const int height = PixelsToTwips(this->height());
    // The first size always reaches the window: its controls may stand at their design places.
    if (sized_ && width == form->ScaleWidth() && height == form->ScaleHeight()) return;
    sized_ = true;
    RunUserAction([form, width, height] { form->SetClientSize(width, height); });
}

// Siblings in one container, the highest ZLevel in front; equal levels keep the order the
// window added them in, the later one in front.
void FormView::Restack(const Control* container) {
    std::vector<ControlBinding*> siblings;
    for (const auto& binding : bindings_)
        if (binding->Model() && containerOf_[binding->Model()] == container)
            siblings.push_back(binding.get());
    std::stable_sort(siblings.begin(), siblings.end(), [](ControlBinding* a, ControlBinding* b) {
        return a->Model()->ZLevel() < b->Model()->ZLevel();
    });
    for (ControlBinding* binding : siblings)
        if (binding->Widget()) binding->Widget()->raise();
}

// --- FormSubWindow

FormSubWindow::FormSubWindow(Form& form, QMdiArea* area) : form_(&form) {
    setAttribute(Qt::WA_DeleteOnClose, false);
    view_ = new FormView(form, this);
    setWidget(view_);
    area->addSubWindow(this);
    hide();
    changedId_ = form.Changed.Connect([this](Aspect what) { OnFormChanged(what); });
    unloadedId_ = form.Unloaded.Connect([this] { Detach(); });
    OnFormChanged(Aspect::Caption);
    OnFormChanged(Aspect::Geometry);
}

FormSubWindow::~FormSubWindow() {
    Detach();
}

void FormSubWindow::Detach() {
    if (!form_) return;
    view_->Detach();
    form_->Changed.Disconnect(changedId_);
    form_->Unloaded.Disconnect(unloadedId_);
    form_ = nullptr;
    hide();
    deleteLater();
}

void FormSubWindow::OnFormChanged(Aspect what) {
    if (!form_) return;
    // Also while another change is being followed: a window activated by being brought forward
    // maximises itself from inside that step.
    if (what == Aspect::WindowState) {
        ApplyWindowState();
        return;
    }
    if (syncing_) return;
    if (what == Aspect::Visible && form_->Visible() && !placed_) PlaceByDefault();
    syncing_ = true;
    switch (what) {
    case Aspect::Caption:
        setWindowTitle(ToQString(form_->Caption()));
        break;
    case Aspect::Geometry:
        // A maximised or minimised window keeps the place the frame gives it. Qt's own flag is no
        // guide here: the area clears it while it resizes a maximised window to a new frame size.
        if (placedByFrame_) break;
        setGeometry(TwipsToPixels(form_->Left()), TwipsToPixels(form_->Top()), TwipsToPixels(form_->Width()),
                    TwipsToPixels(form_->Height()));
        break;
    case Aspect::Visible:
        setVisible(form_->Visible());
        break;
    case Aspect::ZOrder:
        if (form_->ZLevel() > 0) {
            if (isHidden() && form_->Visible()) show();
            if (mdiArea()) mdiArea()->setActiveSubWindow(this);
            raise();
        } else {
            lower();
        }
        break;
    default:
        break;
    }
    syncing_ = false;
}

void FormSubWindow::ApplyWindowState() {
    const bool wasSyncing = syncing_;
    syncing_ = true;
    if (form_->WindowState() == 2)
        showMaximized();
    else if (form_->WindowState() == 1)
        showMinimized();
    else
        showNormal();
    syncing_ = wasSyncing;
}

// A window that leaves its place at 0,0 is put where the desktop puts new windows: cascaded
// down and right from the area's corner, past the windows already open, but never further than
// keeps it wholly inside the area. The model learns the place as if the user had moved it there.
void FormSubWindow::PlaceByDefault() {
    placed_ = true;
    if (form_->Left() != 0 || form_->Top() != 0 || !mdiArea()) return;
    int others = 0;
    for (QMdiSubWindow* window : mdiArea()->subWindowList())
        if (window != this && window->isVisible()) ++others;
    const int step = 24 * (others % 8);
    const QSize room = mdiArea()->viewport()->size();
    move(std::clamp(room.width() - width(), 0, step), std::clamp(room.height() - height(), 0, step));
    PushGeometry();
}

void FormSubWindow::closeEvent(QCloseEvent* event) {
    if (!form_) {
        event->accept();
        return;
    }
    // The window decides (Form_QueryUnload); an unload comes back through Detach.
    event->ignore();
    Form* form = form_;
    RunUserAction([form] { form->Close(); });
}

void FormSubWindow::changeEvent(QEvent* event) {
    QMdiSubWindow::changeEvent(event);
    if (event->type() == QEvent::WindowStateChange)
        placedByFrame_ = windowState() & (Qt::WindowMaximized | Qt::WindowMinimized);
}

void FormSubWindow::moveEvent(QMoveEvent* event) {
    QMdiSubWindow::moveEvent(event);
    PushGeometry();
}

void FormSubWindow::resizeEvent(QResizeEvent* event) {
    QMdiSubWindow::resizeEvent(event);
    PushGeometry();
}

// The user moved or sized the window: the model learns its new place, in twips.
void FormSubWindow::PushGeometry() {
    if (!form_ || syncing_) return;
    const QRect g = geometry();
    if (g.x() == TwipsToPixels(form_->Left()) && g.y() == TwipsToPixels(form_->Top()) &&
        g.width() == TwipsToPixels(form_->Width()) && g.height() == TwipsToPixels(form_->Height()))
        return;
    syncing_ = true;
    form_->Move(PixelsToTwips(g.x()), PixelsToTwips(g.y()), PixelsToTwips(g.width()),
                PixelsToTwips(g.height()));
    syncing_ = false;
}

} // namespace quillon
