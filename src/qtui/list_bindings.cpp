// The choosing kinds: list box (plain or with check boxes), drop-down combo, date picker.
#include <QComboBox>
#include <QDateEdit>
#include <QLineEdit>
#include <QListWidget>
#include <QSignalBlocker>

#include "controls/combo_box.h"
#include "controls/date_picker.h"
#include "controls/list_box.h"
#include "qtui/binding_kinds.h"
#include "qtui/qt_convert.h"
#include "qtui/user_action.h"

namespace quillon {
namespace {

// A user's click makes the entry current (Click); a tick in a check-box list sets the entry's
// Selected (ItemCheck). The model decides; the widget is then brought back in line with it.
class ListBoxBinding : public ControlBinding {
public:
    ListBoxBinding(ListBox& list, QListWidget* widget) : ControlBinding(list, widget), widget_(widget) {
        widget->setSelectionMode(QAbstractItemView::SingleSelection);
        QObject::connect(widget, &QListWidget::currentRowChanged, this, [this](int row) {
            auto* m = ModelAs<ListBox>();
            if (!m || row < 0 || row >= m->ListCount() || row == m->ListIndex()) return;
            RunUserAction([m, row] { m->SetListIndex(row); });
            if (Model()) Refresh(Aspect::Selection);
        });
        QObject::connect(widget, &QListWidget::itemChanged, this, [this](QListWidgetItem* item) {
            auto* m = ModelAs<ListBox>();
            if (!m || m->Style() != ListStyle::CheckBox) return;
            const int row = widget_->row(item);
            const bool on = item->checkState() == Qt::Checked;
            if (row < 0 || row >= m->ListCount() || on == m->Selected(row)) return;
            RunUserAction([m, row, on] { m->SetSelected(row, on); });
            if (Model()) Refresh(Aspect::Selection);
        });
    }

protected:
    void Refresh(Aspect what) override {
        const ListBox& m = *ModelAs<ListBox>();
        QSignalBlocker block(widget_);
        if (what == Aspect::Items || what == Aspect::Appearance) {
            widget_->clear();
            for (int i = 0; i < m.ListCount(); ++i) {
                auto* item = new QListWidgetItem(ToQString(m.List(i)), widget_);
                if (m.Style() == ListStyle::CheckBox) item->setFlags(item->flags() | Qt::ItemIsUserCheckable);
            }
        }
        if (what == Aspect::Items || what == Aspect::Appearance || what == Aspect::Selection) {
            if (m.Style() == ListStyle::CheckBox)
                for (int i = 0; i < widget_->count(); ++i)
                    widget_->item(i)->setCheckState(m.Selected(i) ? Qt::Checked : Qt::Unchecked);
            widget_->setCurrentRow(m.ListIndex());
            if (m.ListIndex() < 0) widget_->clearSelection();
        }
    }

private:
    QListWidget* widget_;
};

// The edit part holds any text; a pick from the list is ListIndex (Click), typing is Text (Change).
class ComboBoxBinding : public ControlBinding {
public:
    ComboBoxBinding(ComboBox& combo, QComboBox* widget) : ControlBinding(combo, widget), widget_(widget) {
        widget->setEditable(true);
        widget->setInsertPolicy(QComboBox::NoInsert);
        widget->setMaxVisibleItems(16);
        QObject::connect(widget, &QComboBox::activated, this, [this](int index) {
            auto* m = ModelAs<ComboBox>();
            if (!m || index < 0 || index >= m->ListCount()) return;
            RunUserAction([m, index] { m->SetListIndex(index); });
            if (Model()) Refresh(Aspect::Selection);
        });
        QObject::connect(widget->lineEdit(), &QLineEdit::textEdited, this, [this](const QString& text) {
            auto* m = ModelAs<ComboBox>();
            if (!m) return;
            writing_ = true;
            RunUserAction([m, &text] { m->SetText(ToUtf8(text)); });
            writing_ = false;
            if (Model() && ModelAs<ComboBox>()->Text() != ToUtf8(widget_->currentText()))
                Refresh(Aspect::Text);
        });
    }

protected:
    void Refresh(Aspect what) override {
        if (writing_) return;
        const ComboBox& m = *ModelAs<ComboBox>();
        QSignalBlocker block(widget_);
        if (what == Aspect::Items) {
            widget_->clear();
            for (int i = 0; i < m.ListCount(); ++i) widget_->addItem(ToQString(m.List(i)));
        }
        if (what == Aspect::Items || what == Aspect::Selection || what == Aspect::Text) {
            if (widget_->currentIndex() != m.ListIndex()) widget_->setCurrentIndex(m.ListIndex());
            if (widget_->currentText() != ToQString(m.Text())) widget_->setEditText(ToQString(m.Text()));
        }
    }

private:
    QComboBox* widget_;
    bool writing_ = false;
};

class DatePickerBinding : public ControlBinding {
public:
    DatePickerBinding(DatePicker& picker, QDateEdit* widget)
        : ControlBinding(picker, widget), widget_(widget) {
        widget->setCalendarPopup(true);
        widget->setMinimumDate(QDate(1753, 1, 1));
        QObject::connect(widget, &QDateEdit::dateChanged, this, [this](QDate date) {
            auto* m = ModelAs<DatePicker>();
            if (!m || !date.isValid()) return;
            DateTime value = m->Value();
            value.year = date.year();
            value.month = date.month();
            value.day = date.day();
            RunUserAction([m, value] { m->SetValue(value); });
            if (Model()) Refresh(Aspect::Value);
        });
    }

protected:
    void Refresh(Aspect what) override {
        const DatePicker& m = *ModelAs<DatePicker>();
        QSignalBlocker block(widget_);
        if (what == Aspect::Range)
            widget_->setDisplayFormat(m.CustomFormat().empty() ? QStringLiteral("yyyy-MM-dd")
                                                               : ToQString(m.CustomFormat()));
        if (what == Aspect::Value) widget_->setDate(QDate(m.Value().year, m.Value().month, m.Value().day));
    }

private:
    QDateEdit* widget_;
};

} // namespace

std::unique_ptr<ControlBinding> BindListBox(ListBox& list, QWidget* parent) {
    auto binding = std::make_unique<ListBoxBinding>(list, new QListWidget(parent));
    binding->RefreshAll();
    return binding;
}

std::unique_ptr<ControlBinding> BindComboBox(ComboBox& combo, QWidget* parent) {
    auto binding = std::make_unique<ComboBoxBinding>(combo, new QComboBox(parent));
    binding->RefreshAll();
    return binding;
}

std::unique_ptr<ControlBinding> BindDatePicker(DatePicker& picker, QWidget* parent) {
    auto binding = std::make_unique<DatePickerBinding>(picker, new QDateEdit(parent));
    binding->RefreshAll();
    return binding;
}

} // namespace quillon
