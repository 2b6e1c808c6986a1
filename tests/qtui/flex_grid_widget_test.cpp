// The grid view: colours, frozen fixed rows and columns, merged blocks, text placement, the
// user's clicks and keys, and its speed on 50,000 rows.
#include "qtui/flex_grid_widget.h"

#include <gtest/gtest.h>

#include <QKeyEvent>
#include <QMouseEvent>
#include <QScrollBar>

#include <chrono>
#include <memory>

#include "controls/flex_grid.h"
#include "grid_view.h"
#include "qt_test_app.h"
#include "qtui/control_binding.h"
#include "qtui/qt_convert.h"

// QColor lives in the global namespace, so its printer must too.
void PrintTo(const QColor& c, std::ostream* os) {
    *os << c.name().toStdString();
}

namespace quillon {
namespace {

const QColor kWhite(0xFF, 0xFF, 0xFF);
const QColor kButtonFace(0xF0, 0xF0, 0xF0);

TEST(FlexGridWidget, FixedRowsAndColumnsStayWhileTheRestScrollsAllInTheModelsColours) {
    GridView v(200, 30);
    v.grid.SetRow(150);
    v.grid.SetCol(11);
    v.grid.SetCellBackColor(0xC0E0FF);          // the grid's colours are BGR
    v.view->verticalScrollBar()->setValue(149); // the user drags the bar
    v.view->horizontalScrollBar()->setValue(10);
    EXPECT_EQ(v.grid.TopRow(), 150);
    EXPECT_EQ(v.grid.LeftCol(), 11);
    EXPECT_EQ(v.view->CellRect(0, 11).top(), 0) << "the fixed row keeps the top";
    EXPECT_EQ(v.view->CellRect(150, 0).left(), 0) << "the fixed column keeps the left";
    EXPECT_EQ(v.view->CellRect(150, 11), QRect(64, 16, 64, 16)) << "right after the fixed row and column";
    EXPECT_EQ(v.PixelAtCentre(150, 11), QColor(0xFF, 0xE0, 0xC0)) << "the cell's own colour";
    EXPECT_EQ(v.PixelAtCentre(0, 11), kButtonFace) << "a fixed cell";
    EXPECT_EQ(v.PixelAtCentre(151, 12), kWhite) << "an unset cell in the grid's window colour";
    v.grid.SetBackColor(0x00FF00);
    EXPECT_EQ(v.PixelAtCentre(151, 12), QColor(0x00, 0xFF, 0x00)) << "the grid's colour changed";
    int row = 0, col = 0;
    ASSERT_TRUE(v.view->CellAt(QPoint(70, 20), row, col));
    EXPECT_EQ(row, 150);
    EXPECT_EQ(col, 11);
    ASSERT_TRUE(v.view->CellAt(QPoint(5, 5), row, col));
    EXPECT_EQ(row, 0);
    EXPECT_EQ(col, 0);
}

TEST(FlexGridWidget, ScrollBarEndsWhereTheLastRowShowsWhole) {
    GridView v(100, 3, 300, 200);
    QScrollBar* bar = v.view->verticalScrollBar();
    EXPECT_TRUE(bar->isVisible());
    EXPECT_FALSE(v.view->horizontalScrollBar()->isVisible()) << "all columns show";
    bar->setValue(bar->maximum());
    const QRect last = v.view->CellRect(99, 1);
    EXPECT_LE(last.bottom(), v.view->viewport()->height() - 1) << "the last row shows whole";
    EXPECT_GT(last.bottom() + last.height(), v.view->viewport()->height() - 1)
        << "and no row's room is left empty below it";
    v.grid.SetRows(3);             // the report shrank
    QApplication::processEvents(); // the area shows or hides its bars when it next runs
    EXPECT_EQ(bar->maximum(), 0);
    EXPECT_FALSE(bar->isVisible());
    v.grid.SetRows(60); // and grew again after the view was shown
    QApplication::processEvents();
    EXPECT_TRUE(bar->isVisible());
}

TEST(FlexGridWidget, MergedHeaderIsOneBlockWithoutInnerLine) {
    GridView v(4, 4);
    v.grid.SetFixedRows(2);
    v.grid.SetMergeCells(flexMergeRestrictColumns);
    v.grid.SetMergeRow(0, true);
    v.grid.SetFixedAlignment(1, flexAlignCenterCenter);
    const char* header[2][4] = {{"", "专用发票", "专用发票", "普通"}, {"", "金额", "税额", "金额"}};
    for (int r = 0; r < 2; ++r)
        for (int c = 0; c < 4; ++c) v.grid.SetTextMatrix(r, c, header[r][c]);
    const QImage image = v.Paint();
    const int seam = v.view->CellRect(0, 1).right(); // where a line between columns 1 and 2 goes
    const int top = v.view->CellRect(0, 1).top() + 2;
    const int below = v.view->CellRect(1, 1).top() + 2;
    EXPECT_EQ(image.pixelColor(seam, top), kButtonFace) << "no line inside the merged block";
    EXPECT_NE(image.pixelColor(seam, below), kButtonFace) << "the row below keeps its line";
    // The caption is centred over both columns: its ink straddles the seam.
    const QList<int> ink = Ink(image, v.view->CellRect(0, 1).united(v.view->CellRect(0, 2)), Qt::Horizontal);
    ASSERT_FALSE(ink.isEmpty());
    EXPECT_LT(ink.first(), seam);
    EXPECT_GT(ink.last(), seam);
}

TEST(FlexGridWidget, TextFollowsAlignmentAndWordWrap) {
    GridView v(3, 2);
    v.grid.SetColWidth(1, 1920); // 128 px
    v.grid.SetTextMatrix(1, 1, "8888");
    v.grid.SetColAlignment(1, flexAlignLeftCenter);
    const QRect cell = v.view->CellRect(1, 1);
    QList<int> ink = Ink(v.Paint(), cell, Qt::Horizontal);
    ASSERT_FALSE(ink.isEmpty());
    EXPECT_LT(ink.last(), cell.center().x()) << "left aligned";
    v.grid.SetColAlignment(1, flexAlignRightCenter);
    ink = Ink(v.Paint(), cell, Qt::Horizontal);
    ASSERT_FALSE(ink.isEmpty());
    EXPECT_GT(ink.first(), cell.center().x()) << "right aligned";

    v.grid.SetRowHeight(2, 720); // 48 px, room for three lines
    v.grid.SetTextMatrix(2, 1, "很长的文字需要在格子里折行显示");
    const QRect tall = v.view->CellRect(2, 1);
    QList<int> lines = Ink(v.Paint(), tall, Qt::Vertical);
    ASSERT_FALSE(lines.isEmpty());
    EXPECT_LT(lines.last() - lines.first(), 16) << "one line without WordWrap";
    v.grid.SetWordWrap(true);
    lines = Ink(v.Paint(), tall, Qt::Vertical);
    ASSERT_FALSE(lines.isEmpty());
    EXPECT_GT(lines.last() - lines.first(), 16) << "several lines with WordWrap";
}

TEST(FlexGridWidget, ClicksReachTheModelAndItsEvents) {
    GridView v(6, 4);
    int clicks = 0, doubles = 0;
    v.grid.Click.Connect([&] { ++clicks; });
    v.grid.DblClick.Connect([&] { ++doubles; });

    v.Click(3, 2);
    EXPECT_EQ(clicks, 1);
    EXPECT_EQ(v.grid.Row(), 3);
    EXPECT_EQ(v.grid.Col(), 2);

    v.Click(0, 1); // a header cell
    EXPECT_EQ(clicks, 2);
    EXPECT_EQ(v.grid.MouseRow(), 0);
    EXPECT_EQ(v.grid.MouseCol(), 1);
    EXPECT_EQ(v.grid.Row(), 3) << "a fixed cell does not become current";

    // A double click: press, release, double-click, release.
    v.Click(4, 3);
    v.Mouse(QEvent::MouseButtonDblClick, 4, 3);
    v.Mouse(QEvent::MouseButtonRelease, 4, 3);
    EXPECT_EQ(clicks, 3) << "the double click's first half is a click, its end is not";
    EXPECT_EQ(doubles, 1);
    EXPECT_EQ(v.grid.Row(), 4);
    EXPECT_EQ(v.grid.Col(), 3);

    v.Click(QPointF(10, v.view->viewport()->height() - 3)); // below the last row there is no cell
    EXPECT_EQ(clicks, 3);
}

TEST(FlexGridWidget, KeysMoveTheCurrentCellAndScrollItIntoView) {
    GridView v(100, 4, 300, 200);
    auto press = [&](Qt::Key key) {
        QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier);
        QApplication::sendEvent(v.view, &event);
    };
    const int lastWhole = v.view->viewport()->height() / 16 - 1; // rows 1 … lastWhole show whole
    v.grid.SetRow(lastWhole);
    press(Qt::Key_Down);
    EXPECT_EQ(v.grid.Row(), lastWhole + 1);
    EXPECT_EQ(v.grid.TopRow(), 2) << "scrolled by one row to show it whole";
    press(Qt::Key_Right);
    EXPECT_EQ(v.grid.Col(), 2);
    press(Qt::Key_Up);
    press(Qt::Key_Up);
    EXPECT_EQ(v.grid.Row(), lastWhole - 1);
    EXPECT_EQ(v.grid.TopRow(), 2);
    v.grid.SetRow(1);
    press(Qt::Key_Up);
    EXPECT_EQ(v.grid.Row(), 1) << "the fixed row is not reached";
    EXPECT_EQ(v.grid.TopRow(), 1);
}

TEST(FlexGridWidget, DetachedViewPaintsNothingAndIgnoresClicks) {
    auto v = std::make_unique<GridView>(4, 3);
    int clicks = 0;
    v->grid.Click.Connect([&] { ++clicks; });
    v->binding->Detach();
    EXPECT_EQ(v->view->Grid(), nullptr);
    v->Paint(); // must not reach the model
    v->Click(QPointF(70, 20));
    EXPECT_EQ(clicks, 0);
}

// Fifty thousand rows: only the rows on screen are painted, and a paint stays quick wherever
// the grid is scrolled to, with merging on as the reports use it.
TEST(FlexGridWidget, FiftyThousandRowsPaintOnlyWhatShows) {
    GridView v(50'001, 12, 1000, 640);
    v.grid.SetRedraw(false);
    v.grid.SetMergeCells(flexMergeRestrictColumns);
    v.grid.SetMergeCol(1, true);
    for (int r = 1; r < v.grid.Rows(); ++r) {
        v.grid.SetTextMatrix(r, 1, "管理处" + std::to_string(r / 10)); // blocks of ten rows
        for (int c = 2; c < 12; ++c) v.grid.SetTextMatrix(r, c, std::to_string(r * c) + ".00");
    }
    v.grid.SetRedraw(true);
    v.grid.SetTopRow(25'003); // in the middle of a merged block

    const int visibleRows = v.view->viewport()->height() / 16 + 2; // and the fixed row
    const auto started = std::chrono::steady_clock::now();
    constexpr int paints = 20;
    for (int i = 0; i < paints; ++i) {
        v.grid.SetTopRow(25'003 + i * 7);
        v.view->viewport()->repaint();
    }
    const double ms =
        std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - started).count() /
        paints;
    RecordProperty("ms_per_paint", std::to_string(ms));
    EXPECT_LE(v.view->LastPaintedRowCount(), visibleRows);
    EXPECT_LT(ms, 150.0) << "a paint of the visible rows";
    int row = 0, col = 0;
    ASSERT_TRUE(v.view->CellAt(QPoint(100, 20), row, col));
    EXPECT_EQ(row, 25'003 + (paints - 1) * 7);
}

} // namespace
} // namespace quillon
