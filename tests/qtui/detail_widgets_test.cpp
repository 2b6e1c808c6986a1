// The detail windows' own pieces in the skin: txtGRD is a real line edit that opens over the
// clicked percentage cell and takes typing and Enter; the pager's images answer a click.
#include <gtest/gtest.h>

#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QToolButton>

#include "controls/flex_grid.h"
#include "controls/form.h"
#include "controls/image.h"
#include "controls/scripted_dialogs.h"
#include "controls/text_box.h"
#include "qt_test_app.h"
#include "qtui/flex_grid_widget.h"
#include "qtui/form_view.h"
#include "qtui/qt_convert.h"
#include "workbench/split_ratio_table.h"

namespace quillon {
namespace {

class SplitForm : public Form {
public:
    SplitForm() : Form("frmSplit", "分账") {
        MSFlexGrid2.Move(120, 120, 5160, 1200);
        AddControl(MSFlexGrid2);
        AddControl(txtGRD);
        AddControl(Image2_2);
        Image2_2.Move(120, 1500, 840, 360);
        table.InitGrid();
        table.FillSplitRatioTable(
            {{.CodeLiteral = "'P1'", .ColumnName = "停车费月租", .Category = "停车服务"}});
        MSFlexGrid2.Click.Connect([this] { table.MSFlexGrid2_Click(); });
        txtGRD.KeyPress.Connect([this](int& key) { table.txtGRD_KeyPress(key); });
        Image2_2.Click.Connect([this] { ++pageClicks; });
    }

    FlexGrid MSFlexGrid2{"MSFlexGrid2"};
    TextBox txtGRD{"txtGRD"};
    Image Image2_2{"Image2_2", "下一页"};
    ScriptedDialogs dialogs;
    SplitRatioTable table{MSFlexGrid2, txtGRD, dialogs};
    int pageClicks = 0;
};

struct SplitView {
    WithApp app;
    SplitForm form;
    FormView view{form};
    FlexGridWidget* grid = nullptr;
    QLineEdit* box = nullptr;

    SplitView() {
        view.resize(500, 300);
        view.show();
        QApplication::processEvents();
        grid = dynamic_cast<FlexGridWidget*>(view.WidgetOf("MSFlexGrid2"));
        box = dynamic_cast<QLineEdit*>(view.WidgetOf("txtGRD"));
    }
    void ClickCell(int row, int col) {
        const QPointF at = grid->CellRect(row, col).center();
        for (QEvent::Type type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
            QMouseEvent event(type, at, grid->viewport()->mapToGlobal(at), Qt::LeftButton,
                              type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton,
                              Qt::NoModifier);
            QApplication::sendEvent(grid->viewport(), &event);
        }
        QApplication::processEvents();
    }
    // Typing as the keyboard does: the keys replace the selected text, Enter goes to the model.
    void Type(const QString& text) {
        for (QChar ch : text) {
            QKeyEvent press(QEvent::KeyPress, 0, Qt::NoModifier, QString(ch));
            QApplication::sendEvent(box, &press);
        }
        QKeyEvent enter(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, "\r");
        QApplication::sendEvent(box, &enter);
        QApplication::processEvents();
    }
};

TEST(DetailWidgets, TheBoxOpensOverTheCellAndTypingGoesIntoTheTable) {
    SplitView v;
    ASSERT_TRUE(v.grid && v.box);
    EXPECT_FALSE(v.box->isVisible());
    v.ClickCell(1, kSplitDeveloperCol);
    ASSERT_TRUE(v.box->isVisible());
    const QRect cell = v.grid->CellRect(1, kSplitDeveloperCol).translated(v.grid->geometry().topLeft());
    EXPECT_LE((v.box->geometry().topLeft() - cell.topLeft()).manhattanLength(), 2)
        << "over the clicked cell, from the cell's geometry";
    EXPECT_EQ(v.box->text(), "70");
    EXPECT_EQ(v.box->selectedText(), "70");

    v.Type("60");
    EXPECT_EQ(v.form.MSFlexGrid2.TextMatrix(1, kSplitDeveloperCol), "60");
    EXPECT_TRUE(v.box->isVisible()) << "on to the property company's cell";
    EXPECT_EQ(v.box->text(), "30");
    v.Type("40");
    EXPECT_EQ(v.form.MSFlexGrid2.TextMatrix(1, kSplitPropertyCol), "40");
    EXPECT_FALSE(v.box->isVisible());
    EXPECT_TRUE(v.form.dialogs.Messages().empty());
}

TEST(DetailWidgets, APageImageAnswersAClick) {
    SplitView v;
    auto* image = dynamic_cast<QToolButton*>(v.view.WidgetOf("Image2_2"));
    ASSERT_NE(image, nullptr);
    EXPECT_EQ(image->text(), "下一页");
    image->click();
    EXPECT_EQ(v.form.pageClicks, 1);
}

} // namespace
} // namespace quillon
