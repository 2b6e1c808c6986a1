// The bindings, both ways: a user's action on the widget reaches the model and raises the
// window's event; the model's changes reach the widget. Driven through a FormView as the
// frame draws a window.
#include <gtest/gtest.h>

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QProgressBar>
#include <QPushButton>
#include <QTreeWidget>

#include "controls/check_box.h"
#include "controls/combo_box.h"
#include "controls/command_button.h"
#include "controls/label.h"
#include "controls/list_box.h"
#include "controls/panel.h"
#include "controls/progress_bar.h"
#include "controls/status_bar.h"
#include "controls/text_box.h"
#include "controls/tree_view.h"
#include "qt_test_app.h"
#include "qtui/form_view.h"

namespace quillon {
namespace {

// A window with one control of each kind, some inside a frame; it records its events.
class SampleForm : public Form {
public:
    SampleForm() : Form("frmSample", "样例") {
        Frame1.Move(150, 150, 4500, 3000);
        Label1.Move(150, 300, 1500, 450);
        List1.Move(120, 360, 2400, 1500);
        List2.Move(2700, 360, 1500, 1500);
        AddControl(Frame1);
        AddControl(List1, &Frame1);
        AddControl(List2, &Frame1);
        for (Control* c : std::initializer_list<Control*>{&Label1, &Combo1, &Check1, &Text1, &Command1,
                                                          &ProgressBar1, &StatusBar1, &TreeView1})
            AddControl(*c);
        List1.Click.Connect([this] { ++listClicks; });
        List2.ItemCheck.Connect([this](int index) { checkedItems.push_back(index); });
        Combo1.Click.Connect([this] { ++comboClicks; });
        Combo1.Change.Connect([this] { ++comboChanges; });
        Check1.Click.Connect([this] { ++checkClicks; });
        Text1.Change.Connect([this] { ++textChanges; });
        Text1.KeyPress.Connect([](int& key) {
            if (key >= '0' && key <= '9') key = 0; // this box takes no digits
        });
        Command1.Clicked.Connect([this] { ++commandClicks; });
        TreeView1.NodeCheck.Connect([this](TreeNode& node) { checkedNodes.push_back(node.Key()); });
    }

    Panel Frame1{"Frame1", "条件"};
    Label Label1{"Label1", "标题"};
    ListBox List1{"List1"};
    ListBox List2{"List2", ListStyle::CheckBox};
    ComboBox Combo1{"Combo1"};
    CheckBox Check1{"Check1", "全选"};
    TextBox Text1{"Text1"};
    CommandButton Command1{"Command1", "开始统计"};
    ProgressBar ProgressBar1{"ProgressBar1"};
    StatusBar StatusBar1{"StatusBar1", 3};
    TreeView TreeView1{"TreeView1"};

    int listClicks = 0, comboClicks = 0, comboChanges = 0, checkClicks = 0, textChanges = 0,
        commandClicks = 0;
    std::vector<int> checkedItems;
    std::vector<std::string> checkedNodes;
    int resizes = 0;

protected:
    void Form_Resize() override { ++resizes; }
};

struct Drawn {
    WithApp app;
    SampleForm form;
    FormView view{form};

    Drawn() {
        view.resize(640, 480);
        view.show();
        QApplication::processEvents();
    }
    template <typename W> W* Widget(const char* name) {
        W* widget = dynamic_cast<W*>(view.WidgetOf(name));
        EXPECT_NE(widget, nullptr) << name;
        return widget;
    }
};

std::string Text(const QString& s) {
    return s.toStdString();
}

TEST(Bindings, GeometryContainersAndZOrder) {
    Drawn d;
    auto* label = d.Widget<QLabel>("Label1");
    EXPECT_EQ(label->geometry(), QRect(10, 20, 100, 30)) << "twips to pixels";
    d.form.Label1.Move(300, 450, 3000, 300);
    EXPECT_EQ(label->geometry(), QRect(20, 30, 200, 20));
    auto* frame = d.Widget<QGroupBox>("Frame1");
    EXPECT_EQ(d.Widget<QListWidget>("List1")->parentWidget(), frame) << "a control sits in its container";
    EXPECT_EQ(Text(frame->title()), "条件");

    d.form.Label1.SetVisible(false);
    EXPECT_TRUE(label->isHidden());
    d.form.Command1.SetEnabled(false);
    EXPECT_FALSE(d.Widget<QPushButton>("Command1")->isEnabled());

    d.form.Label1.ZOrder(0);
    EXPECT_EQ(d.view.children().last(), label) << "brought in front of its siblings";
    d.form.Label1.ZOrder(1);
    EXPECT_NE(d.view.children().last(), label);
}

TEST(Bindings, FirstSizeAndEveryResizeRunFormResize) {
    WithApp app;
    SampleForm form; // controls at their design places, client size at the default
    FormView view(form);
    view.resize(form.ScaleWidth() / 15, form.ScaleHeight() / 15);
    view.show();
    QApplication::processEvents();
    EXPECT_GE(form.resizes, 1) << "even when the first size matches the model";
    const int before = form.resizes;
    view.resize(500, 300);
    QApplication::processEvents();
    EXPECT_EQ(form.ScaleWidth(), 7500);
    EXPECT_EQ(form.ScaleHeight(), 4500);
    EXPECT_GT(form.resizes, before);
}

TEST(Bindings, ListBoxesBothWays) {
    Drawn d;
    auto* list = d.Widget<QListWidget>("List1");
    for (const char* entry : {"0101 一区【1】", "0102 二区【2】", "0103 三区【3】"})
        d.form.List1.AddItem(entry);
    ASSERT_EQ(list->count(), 3);
    EXPECT_EQ(Text(list->item(1)->text()), "0102 二区【2】");

    list->setCurrentRow(1); // as a user's click does
    EXPECT_EQ(d.form.List1.ListIndex(), 1);
    EXPECT_EQ(d.form.listClicks, 1);

    d.form.List1.SetListIndex(2); // the window chooses
    EXPECT_EQ(list->currentRow(), 2);
    EXPECT_EQ(d.form.listClicks, 2) << "the model raised it, the widget did not add one";
    d.form.List1.Clear();
    EXPECT_EQ(list->count(), 0);

    list = d.Widget<QListWidget>("List2"); // with check boxes
    d.form.List2.AddItem("发票");
    d.form.List2.AddItem("收据");
    ASSERT_EQ(list->count(), 2);
    EXPECT_EQ(list->item(0)->checkState(), Qt::Unchecked);
    list->item(1)->setCheckState(Qt::Checked); // the user ticks
    EXPECT_TRUE(d.form.List2.Selected(1));
    EXPECT_EQ(d.form.checkedItems, std::vector<int>{1});
    d.form.List2.SetSelected(0, true); // the window ticks
    EXPECT_EQ(list->item(0)->checkState(), Qt::Checked);
}

TEST(Bindings, ComboPickAndTyping) {
    Drawn d;
    auto* combo = d.Widget<QComboBox>("Combo1");
    for (const char* month : {"01", "02", "03"}) d.form.Combo1.AddItem(month);
    d.form.Combo1.SetText("02");
    EXPECT_EQ(Text(combo->currentText()), "02");
    EXPECT_EQ(combo->currentIndex(), 1);

    combo->setCurrentIndex(2);
    emit combo->activated(2); // what a pick from the list sends
    EXPECT_EQ(d.form.Combo1.ListIndex(), 2);
    EXPECT_EQ(d.form.Combo1.Text(), "03");
    EXPECT_EQ(d.form.comboClicks, 1);

    const int changes = d.form.comboChanges;
    combo->lineEdit()->setText("13");
    emit combo->lineEdit()->textEdited("13"); // typing
    EXPECT_EQ(d.form.Combo1.Text(), "13");
    EXPECT_EQ(d.form.Combo1.ListIndex(), -1);
    EXPECT_EQ(d.form.comboChanges, changes + 1);
}

TEST(Bindings, CheckBoxButtonAndBars) {
    Drawn d;
    auto* check = d.Widget<QCheckBox>("Check1");
    EXPECT_EQ(Text(check->text()), "全选");
    check->click();
    EXPECT_EQ(d.form.Check1.Value(), 1);
    EXPECT_EQ(d.form.checkClicks, 1);
    d.form.Check1.SetValue(2);
    EXPECT_EQ(check->checkState(), Qt::PartiallyChecked);

    auto* button = d.Widget<QPushButton>("Command1");
    EXPECT_EQ(Text(button->text()), "开始统计");
    button->click();
    EXPECT_EQ(d.form.commandClicks, 1);
    d.form.Command1.SetCaption("重新统计");
    EXPECT_EQ(Text(button->text()), "重新统计");

    auto* bar = d.Widget<QProgressBar>("ProgressBar1");
    d.form.ProgressBar1.SetMax(40);
    d.form.ProgressBar1.SetValue(10);
    EXPECT_EQ(bar->maximum(), 40);
    EXPECT_EQ(bar->value(), 10);
    d.form.StatusBar1.Panels(2).SetText("单位");
    auto* panel = d.view.WidgetOf("StatusBar1")->findChild<QLabel*>("Panel2");
    ASSERT_NE(panel, nullptr);
    EXPECT_EQ(Text(panel->text()), "单位");
}

TEST(Bindings, TextBoxTypingAndSwallowedKeys) {
    Drawn d;
    auto* edit = d.Widget<QLineEdit>("Text1");
    edit->setFocus();
    auto type = [edit](Qt::Key key, const char* text) {
        QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier, QString::fromUtf8(text));
        QApplication::sendEvent(edit, &press);
    };
    type(Qt::Key_A, "a");
    type(Qt::Key_B, "b");
    EXPECT_EQ(d.form.Text1.Text(), "ab");
    EXPECT_EQ(d.form.textChanges, 2);
    EXPECT_EQ(d.form.Text1.SelStart(), 2) << "the caret stays behind what was typed";
    type(Qt::Key_5, "5");
    EXPECT_EQ(Text(edit->text()), "ab") << "the window's KeyPress swallowed the digit";
    EXPECT_EQ(d.form.Text1.Text(), "ab");
    d.form.Text1.SetText("物业");
    EXPECT_EQ(Text(edit->text()), "物业");
}

TEST(Bindings, TreeFollowsTheModelAndReportsTicks) {
    Drawn d;
    auto* tree = d.Widget<QTreeWidget>("TreeView1");
    d.form.TreeView1.Add("", tvwLast, "01", "01 总部");
    d.form.TreeView1.Add("01", tvwChild, "0101", "0101 一区");
    d.form.TreeView1.Add("01", tvwChild, "0102", "0102 二区");
    QApplication::processEvents(); // the tree follows once per pass of the event loop
    ASSERT_EQ(tree->topLevelItemCount(), 1);
    QTreeWidgetItem* root = tree->topLevelItem(0);
    ASSERT_EQ(root->childCount(), 2);
    EXPECT_EQ(Text(root->child(1)->text(0)), "0102 二区");

    root->child(0)->setCheckState(0, Qt::Checked); // the user ticks
    EXPECT_TRUE(d.form.TreeView1.Nodes("0101").Checked());
    EXPECT_EQ(d.form.checkedNodes, std::vector<std::string>{"0101"});

    d.form.TreeView1.Nodes("01").SetChecked(true); // the window ticks, silently
    QApplication::processEvents();
    EXPECT_EQ(root->checkState(0), Qt::Checked);
    EXPECT_EQ(d.form.checkedNodes.size(), 1u) << "no NodeCheck for the window's own tick";
}

TEST(Bindings, DetachedViewNoLongerReachesTheModel) {
    Drawn d;
    auto* button = d.Widget<QPushButton>("Command1");
    auto* label = d.Widget<QLabel>("Label1");
    d.view.Detach();
    EXPECT_EQ(d.view.Model(), nullptr);
    button->click();
    EXPECT_EQ(d.form.commandClicks, 0) << "the user's click goes nowhere";
    d.form.Label1.SetCaption("后来");
    EXPECT_EQ(Text(label->text()), "标题") << "and the model's changes no longer arrive";
}

} // namespace
} // namespace quillon
