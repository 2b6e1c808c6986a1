// The simple kinds: label, command button, picture box or frame, check box, text box, progress
// bar and status bar.
#include <QCheckBox>
#include <QEvent>
#include <QFrame>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QSignalBlocker>
#include <QToolButton>

#include "controls/check_box.h"
#include "controls/command_button.h"
#include "controls/image.h"
#include "controls/label.h"
#include "controls/panel.h"
#include "controls/progress_bar.h"
#include "controls/status_bar.h"
#include "controls/text_box.h"
#include "qtui/binding_kinds.h"
#include "qtui/qt_convert.h"
#include "qtui/user_action.h"

namespace quillon {
namespace {

class LabelBinding : public ControlBinding {
public:
    LabelBinding(Label& label, QLabel* widget) : ControlBinding(label, widget), widget_(widget) {
        widget->setTextFormat(Qt::PlainText);
        widget->setWordWrap(true);
        widget->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    }

protected:
    void Refresh(Aspect what) override {
        if (what == Aspect::Caption) widget_->setText(ToQString(ModelAs<Label>()->Caption()));
    }

private:
    QLabel* widget_;
};

class CommandButtonBinding : public ControlBinding {
public:
    CommandButtonBinding(CommandButton& button, QPushButton* widget)
        : ControlBinding(button, widget), widget_(widget) {
        widget->setAutoDefault(false);
        QObject::connect(widget, &QPushButton::clicked, this, [this] {
            if (auto* m = ModelAs<CommandButton>()) RunUserAction([m] { m->Click(); });
        });
    }

protected:
    void Refresh(Aspect what) override {
        if (what == Aspect::Caption) widget_->setText(ToQString(ModelAs<CommandButton>()->Caption()));
    }

private:
    QPushButton* widget_;
};

// An image that answers a click: a flat button showing what the picture names.
class ImageBinding : public ControlBinding {
public:
    ImageBinding(Image& image, QToolButton* widget) : ControlBinding(image, widget), widget_(widget) {
        widget->setAutoRaise(true);
        widget->setFocusPolicy(Qt::NoFocus);
        widget->setCursor(Qt::PointingHandCursor);
        QObject::connect(widget, &QToolButton::clicked, this, [this] {
            if (auto* m = ModelAs<Image>()) RunUserAction([m] { m->ClickImage(); });
        });
    }

protected:
    void Refresh(Aspect what) override {
        if (what == Aspect::Caption) widget_->setText(ToQString(ModelAs<Image>()->Picture()));
    }

private:
    QToolButton* widget_;
};

// Frames (named Frame…) get a titled box; picture boxes a plain panel in their back colour.
class PanelBinding : public ControlBinding {
public:
    PanelBinding(Panel& panel, QWidget* widget, QGroupBox* group)
        : ControlBinding(panel, widget), widget_(widget), group_(group) {
        widget->setAutoFillBackground(true);
    }

protected:
    void Refresh(Aspect what) override {
        const Panel& m = *ModelAs<Panel>();
        if (what == Aspect::Caption && group_) group_->setTitle(ToQString(m.Caption()));
        if (what == Aspect::Appearance) {
            QPalette palette = widget_->palette();
            palette.setColor(QPalette::Window, ColorFromBgr(m.BackColor()));
            widget_->setPalette(palette);
        }
    }

private:
    QWidget* widget_;
    QGroupBox* group_;
};

class CheckBoxBinding : public ControlBinding {
public:
    CheckBoxBinding(CheckBox& box, QCheckBox* widget) : ControlBinding(box, widget), widget_(widget) {
        QObject::connect(widget, &QCheckBox::clicked, this, [this](bool checked) {
            if (auto* m = ModelAs<CheckBox>()) RunUserAction([m, checked] { m->SetValue(checked ? 1 : 0); });
            if (Model()) Refresh(Aspect::Value);
        });
    }

protected:
    void Refresh(Aspect what) override {
        const CheckBox& m = *ModelAs<CheckBox>();
        QSignalBlocker block(widget_);
        if (what == Aspect::Caption) widget_->setText(ToQString(m.Caption()));
        if (what == Aspect::Value)
            widget_->setCheckState(m.Value() == 1   ? Qt::Checked
                                   : m.Value() == 2 ? Qt::PartiallyChecked
                                                    : Qt::Unchecked);
    }

private:
    QCheckBox* widget_;
};

// Typing writes the whole text into the model, which raises Change; a key the window's
// KeyPress handler swallows (sets to 0) never reaches the editor.
class TextBoxBinding : public ControlBinding {
public:
    TextBoxBinding(TextBox& box, QLineEdit* widget) : ControlBinding(box, widget), widget_(widget) {
        widget->installEventFilter(this);
        QObject::connect(widget, &QLineEdit::textEdited, this, [this](const QString& text) {
            if (auto* m = ModelAs<TextBox>()) {
                writing_ = true;
                RunUserAction([m, &text] { m->SetText(ToUtf8(text)); });
                writing_ = false;
                PushSelection();
                if (Model() && ModelAs<TextBox>()->Text() != ToUtf8(widget_->text())) Refresh(Aspect::Text);
            }
        });
        QObject::connect(widget, &QLineEdit::selectionChanged, this, [this] { PushSelection(); });
        QObject::connect(widget, &QLineEdit::cursorPositionChanged, this, [this] { PushSelection(); });
    }

protected:
    void Refresh(Aspect what) override {
        if (writing_) return;
        const TextBox& m = *ModelAs<TextBox>();
        QSignalBlocker block(widget_);
        if (what == Aspect::Text) widget_->setText(ToQString(m.Text()));
        if (what == Aspect::Text || what == Aspect::Selection) {
            if (m.SelLength() > 0)
                widget_->setSelection(m.SelStart(), m.SelLength());
            else
                widget_->setCursorPosition(m.SelStart());
        }
    }

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (watched != widget_ || event->type() != QEvent::KeyPress || !Model()) return false;
        auto* key = static_cast<QKeyEvent*>(event);
        int code = 0;
        if (key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter)
            code = 13;
        else if (key->key() == Qt::Key_Backspace)
            code = 8;
        else if (key->text().size() == 1 && key->text()[0].unicode() >= 32 && key->text()[0].unicode() < 127)
            code = key->text()[0].unicode();
        if (code == 0) return false;
        int left = code;
        RunUserAction([this, code, &left] { left = ModelAs<TextBox>()->PressKey(code); });
        if (left == code) return false;
        if (left >= 32 && left < 127) widget_->insert(QString(QChar(left)));
        return true; // swallowed, or replaced by another key
    }

private:
    void PushSelection() {
        auto* m = ModelAs<TextBox>();
        if (!m || writing_) return;
        const bool selected = widget_->hasSelectedText();
        const int start = selected ? widget_->selectionStart() : widget_->cursorPosition();
        const int length = selected ? static_cast<int>(widget_->selectedText().size()) : 0;
        writing_ = true;
        m->SetSelStart(start);
        m->SetSelLength(length);
        writing_ = false;
    }

    QLineEdit* widget_;
    bool writing_ = false;
};

class ProgressBarBinding : public ControlBinding {
public:
    ProgressBarBinding(ProgressBar& bar, QProgressBar* widget)
        : ControlBinding(bar, widget), widget_(widget) {
        widget->setTextVisible(false);
    }

protected:
    void Refresh(Aspect what) override {
        const ProgressBar& m = *ModelAs<ProgressBar>();
        if (what == Aspect::Range) widget_->setRange(m.Min(), m.Max());
        if (what == Aspect::Range || what == Aspect::Value) widget_->setValue(m.Value());
    }

private:
    QProgressBar* widget_;
};

// Panels side by side at their own widths, each sunken, the rest of the bar empty.
class StatusBarBinding : public ControlBinding {
public:
    StatusBarBinding(StatusBar& bar, QFrame* widget) : ControlBinding(bar, widget), widget_(widget) {
        auto* layout = new QHBoxLayout(widget);
        layout->setContentsMargins(2, 2, 2, 2);
        layout->setSpacing(2);
    }

protected:
    void Refresh(Aspect what) override {
        if (what != Aspect::Panels) return;
        const StatusBar& m = *ModelAs<StatusBar>();
        auto* layout = static_cast<QHBoxLayout*>(widget_->layout());
        while (QLayoutItem* item = layout->takeAt(0)) {
            delete item->widget();
            delete item;
        }
        for (int i = 1; i <= m.PanelCount(); ++i) {
            auto* panel = new QLabel(ToQString(m.Panels(i).Text()), widget_);
            panel->setFrameShape(QFrame::Panel);
            panel->setFrameShadow(QFrame::Sunken);
            panel->setFixedWidth(TwipsToPixels(m.Panels(i).Width()));
            panel->setObjectName(QStringLiteral("Panel%1").arg(i));
            layout->addWidget(panel);
        }
        layout->addStretch(1);
    }

private:
    QFrame* widget_;
};

template <typename B, typename M, typename W> std::unique_ptr<ControlBinding> Make(M& model, W* widget) {
    auto binding = std::make_unique<B>(model, widget);
    binding->RefreshAll();
    return binding;
}

} // namespace

std::unique_ptr<ControlBinding> BindLabel(Label& label, QWidget* parent) {
    return Make<LabelBinding>(label, new QLabel(parent));
}

std::unique_ptr<ControlBinding> BindCommandButton(CommandButton& button, QWidget* parent) {
    return Make<CommandButtonBinding>(button, new QPushButton(parent));
}

std::unique_ptr<ControlBinding> BindImage(Image& image, QWidget* parent) {
    return Make<ImageBinding>(image, new QToolButton(parent));
}

std::unique_ptr<ControlBinding> BindPanel(Panel& panel, QWidget* parent) {
    std::unique_ptr<PanelBinding> binding;
    if (panel.Name().starts_with("Frame")) {
        auto* group = new QGroupBox(parent);
        binding = std::make_unique<PanelBinding>(panel, group, group);
    } else {
        auto* frame = new QFrame(parent);
        frame->setFrameShape(QFrame::NoFrame);
        binding = std::make_unique<PanelBinding>(panel, frame, nullptr);
    }
    binding->RefreshAll();
    return binding;
}

std::unique_ptr<ControlBinding> BindCheckBox(CheckBox& box, QWidget* parent) {
    return Make<CheckBoxBinding>(box, new QCheckBox(parent));
}

std::unique_ptr<ControlBinding> BindTextBox(TextBox& box, QWidget* parent) {
    return Make<TextBoxBinding>(box, new QLineEdit(parent));
}

std::unique_ptr<ControlBinding> BindProgressBar(ProgressBar& bar, QWidget* parent) {
    return Make<ProgressBarBinding>(bar, new QProgressBar(parent));
}

std::unique_ptr<ControlBinding> BindStatusBar(StatusBar& bar, QWidget* parent) {
    return Make<StatusBarBinding>(bar, new QFrame(parent));
}

} // namespace quillon
