// What a desktop user does with the grid view beyond the old grid: a block selected with the
// mouse or Shift+arrows and copied, the context menu (copy, select all, freeze and unfreeze, print
// preview), and column widths dragged at the header.
#include <gtest/gtest.h>

#include <QAction>
#include <QClipboard>
#include <QKeyEvent>
#include <QMimeData>
#include <QScrollBar>

#include <functional>

#include "grid_view.h"
#include "workbench/excel_export.h"
#include "xlsx/workbook.h"

namespace quillon {
namespace {

// Two header rows with a merged caption over columns 1-2, as the reconciliation grid has, and
// ten body columns of 64 px so that the grid scrolls right in 400 px.
struct ReportGrid : GridView {
    ReportGrid() : GridView(6, 10) {
        grid.SetFixedCols(0);
        grid.SetFixedRows(2);
        grid.SetMergeCells(flexMergeRestrictColumns);
        grid.SetMergeRow(0, true);
        for (int c = 0; c < 10; ++c) {
            grid.SetTextMatrix(0, c, c == 1 || c == 2 ? "专用发票" : "H" + std::to_string(c));
            grid.SetTextMatrix(1, c, "h" + std::to_string(c));
            for (int r = 2; r < 6; ++r) grid.SetTextMatrix(r, c, std::to_string(r * 10 + c));
        }
    }
    void Key(int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        QKeyEvent event(QEvent::KeyPress, key, modifiers);
        QApplication::sendEvent(view, &event);
    }
    static QString Clipboard() { return QGuiApplication::clipboard()->mimeData()->text(); }
    static QString ClipboardHtml() { return QGuiApplication::clipboard()->mimeData()->html(); }
    QAction* MenuAction(const QPoint& at, const char* name) {
        for (QAction* action : view->PrepareContextMenu(at))
            if (action->objectName() == name) return action;
        return nullptr;
    }
    // The point just left of a column's right edge in header row 1.
    QPoint EdgeOf(int col) {
        return QPoint(view->CellRect(1, col).right(), view->CellRect(1, col).center().y());
    }
};

TEST(FlexGridUser, BlockSelectedByDragOrShiftArrowsIsCopiedAsTabSeparatedText) {
    ReportGrid v;
    struct Case {
        const char* why;
        std::function<void(ReportGrid&)> select;
        CellRange block;
        const char* text;
    };
    const Case cases[] = {
        {"dragged from a header cell: the merged caption repeats its text",
         [](ReportGrid& g) {
             g.Mouse(QEvent::MouseButtonPress, g.view->CellRect(0, 1).center());
             g.Mouse(QEvent::MouseMove, g.view->CellRect(2, 2).center());
             g.Mouse(QEvent::MouseButtonRelease, g.view->CellRect(2, 2).center());
         },
         {0, 1, 2, 2},
         "专用发票\t专用发票\nh1\th2\n21\t22\n"},
        {"clicked, then Shift+Down and Shift+Right twice",
         [](ReportGrid& g) {
             g.Click(3, 4);
             g.Key(Qt::Key_Down, Qt::ShiftModifier);
             g.Key(Qt::Key_Right, Qt::ShiftModifier);
             g.Key(Qt::Key_Right, Qt::ShiftModifier);
         },
         {3, 4, 4, 6},
         "34\t35\t36\n44\t45\t46\n"},
        {"Shift+click extends from the last click",
         [](ReportGrid& g) {
             g.Click(5, 5);
             g.Mouse(QEvent::MouseButtonPress, g.view->CellRect(4, 3).center(), Qt::ShiftModifier);
             g.Mouse(QEvent::MouseButtonRelease, g.view->CellRect(4, 3).center(), Qt::ShiftModifier);
         },
         {4, 3, 5, 5},
         "43\t44\t45\n53\t54\t55\n"},
        {"an arrow without Shift leaves one cell, the current one",
         [](ReportGrid& g) {
             g.grid.SetLeftCol(0); // the selections above scrolled the grid right
             g.Click(2, 0);
             g.Key(Qt::Key_Right, Qt::ShiftModifier);
             g.Key(Qt::Key_Down);
         },
         {3, 0, 3, 0},
         "30\n"},
        {"Ctrl+A takes every cell, header rows included",
         [](ReportGrid& g) { g.Key(Qt::Key_A, Qt::ControlModifier); },
         {0, 0, 5, 9},
         nullptr},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.why);
        c.select(v);
        EXPECT_EQ(v.view->Selection(), c.block);
        QGuiApplication::clipboard()->clear();
        v.Key(Qt::Key_C, Qt::ControlModifier);
        if (c.text) {
            EXPECT_EQ(ReportGrid::Clipboard().toStdString(), c.text);
        }
    }
    EXPECT_TRUE(ReportGrid::Clipboard().startsWith(QStringLiteral("H0\t专用发票\t专用发票\tH3")));
    EXPECT_EQ(ReportGrid::Clipboard().count('\n'), 6);
    EXPECT_TRUE(ReportGrid::ClipboardHtml().startsWith(QStringLiteral("<table><tr><td>H0</td>")))
        << "an HTML table beside the text, which spreadsheets paste as cells";
}

TEST(FlexGridUser, ANewResultDropsTheSelection) {
    ReportGrid v;
    v.Key(Qt::Key_A, Qt::ControlModifier);
    v.grid.SetRows(2); // the next run empties the grid and fills it anew
    v.grid.SetRows(8);
    v.grid.SetRow(3);
    v.grid.SetCol(2);
    EXPECT_EQ(v.view->Selection(), (CellRange{3, 2, 3, 2})) << "back to the current cell";
}

TEST(FlexGridUser, ContextMenuFreezesColumnsThatStayWhileTheRestScrolls) {
    ReportGrid v;
    QAction* freeze = v.MenuAction(v.view->CellRect(3, 2).center(), "FreezeColumns");
    ASSERT_NE(freeze, nullptr);
    EXPECT_EQ(freeze->text(), QStringLiteral("冻结到此列"));
    ASSERT_TRUE(freeze->isEnabled());
    QAction* unfreeze = v.MenuAction(v.view->CellRect(3, 2).center(), "Unfreeze");
    ASSERT_NE(unfreeze, nullptr);
    EXPECT_FALSE(unfreeze->isEnabled()) << "nothing to undo yet";
    v.MenuAction(v.view->CellRect(3, 2).center(), "FreezeColumns")->trigger();
    EXPECT_EQ(v.grid.FrozenCols(), 3);

    QScrollBar* bar = v.view->horizontalScrollBar();
    bar->setValue(bar->maximum());
    EXPECT_EQ(v.grid.LeftCol(), 3 + bar->maximum());
    v.Click(3, 1);
    v.Key(Qt::Key_Home);
    EXPECT_EQ(v.grid.LeftCol(), 3) << "Home scrolls back to the start though its column is frozen";
    EXPECT_EQ(bar->value(), 0);
    bar->setValue(bar->maximum());
    EXPECT_GT(v.grid.LeftCol(), 3) << "the grid scrolled right";
    EXPECT_EQ(v.view->CellRect(3, 2).left(), 128) << "the frozen columns stay where they were";
    EXPECT_EQ(v.view->CellRect(3, v.grid.LeftCol()).left(), 192) << "the first scrolled column beside them";
    int row = 0, col = 0;
    ASSERT_TRUE(v.view->CellAt(QPoint(130, 40), row, col));
    EXPECT_EQ(col, 2);
    // The merged caption (columns 1-2) stands in the frozen band, painted whole.
    EXPECT_FALSE(
        Ink(v.Paint(), v.view->CellRect(0, 1).united(v.view->CellRect(0, 2)), Qt::Horizontal).isEmpty());

    struct Case {
        const char* why;
        int col;
        bool enabled;
    };
    for (const Case& c : {Case{"a frozen column", 1, true}, Case{"the last column must scroll", 9, false}}) {
        SCOPED_TRACE(c.why);
        v.grid.SetLeftCol(7);
        EXPECT_EQ(v.MenuAction(v.view->CellRect(3, c.col).center(), "FreezeColumns")->isEnabled(), c.enabled);
    }
    QAction* undo = v.MenuAction(v.view->CellRect(3, 4).center(), "Unfreeze");
    ASSERT_TRUE(undo->isEnabled());
    undo->trigger();
    EXPECT_EQ(v.grid.FrozenCols(), 0);
    EXPECT_EQ(v.grid.StillCols(), 0);
    bar->setValue(2);
    EXPECT_EQ(v.view->CellRect(3, 2).left(), 0) << "unfrozen, column 2 scrolls to the left edge";
}

TEST(FlexGridUser, ContextMenuCopiesSelectsAllAndPreviewsWhenThePreviewIsOffered) {
    ReportGrid v;
    const QPoint cell = v.view->CellRect(4, 3).center();
    QList<QString> names;
    for (QAction* a : v.view->PrepareContextMenu(cell))
        if (!a->isSeparator()) names << a->objectName();
    EXPECT_EQ(names, (QList<QString>{"Copy", "SelectAll", "FreezeColumns", "Unfreeze"}))
        << "no print preview where nobody offers one";

    int previews = 0;
    v.view->PrintPreviewRequested = [&] { ++previews; };
    QAction* print = v.MenuAction(cell, "PrintPreview");
    ASSERT_NE(print, nullptr);
    EXPECT_TRUE(print->text().startsWith(QStringLiteral("打印预览…")));
    print->trigger();
    EXPECT_EQ(previews, 1);

    v.MenuAction(cell, "SelectAll")->trigger();
    EXPECT_EQ(v.view->Selection(), (CellRange{0, 0, 5, 9}));
    // A right click outside the selection selects the cell it was made on, for 复制.
    QMouseEvent right(QEvent::MouseButtonPress, QPointF(cell), v.view->viewport()->mapToGlobal(QPointF(cell)),
                      Qt::RightButton, Qt::RightButton, Qt::NoModifier);
    QApplication::sendEvent(v.view->viewport(), &right);
    EXPECT_EQ(v.view->Selection(), (CellRange{0, 0, 5, 9})) << "inside the selection: kept";
    v.Click(2, 0);
    QApplication::sendEvent(v.view->viewport(), &right);
    EXPECT_EQ(v.view->Selection(), (CellRange{4, 3, 4, 3}));
    v.MenuAction(cell, "Copy")->trigger();
    EXPECT_EQ(ReportGrid::Clipboard(), QStringLiteral("43\n"));
}

TEST(FlexGridUser, DraggedColumnEdgeSetsColWidthAsTheExportReadsIt) {
    ReportGrid v;
    int clicks = 0;
    v.grid.Click.Connect([&] { ++clicks; });
    EXPECT_EQ(v.view->ResizableColumnAt(v.EdgeOf(1)), 1);
    EXPECT_EQ(v.view->ResizableColumnAt(v.EdgeOf(1) + QPoint(0, 40)), -1) << "only within the header rows";
    v.grid.SetColWidth(2, 0); // a hidden column: its edge is its left neighbour's
    EXPECT_EQ(v.view->ResizableColumnAt(v.EdgeOf(1) + QPoint(1, 0)), 1);

    const QPoint edge = v.EdgeOf(1);
    v.Mouse(QEvent::MouseButtonPress, edge);
    v.Mouse(QEvent::MouseMove, edge + QPoint(30, 0));
    v.Mouse(QEvent::MouseButtonRelease, edge + QPoint(30, 0));
    EXPECT_EQ(v.grid.ColWidth(1), PixelsToTwips(64 + 30));
    EXPECT_EQ(clicks, 0) << "a drag of an edge is no click on a cell";
    EXPECT_EQ(v.grid.ColWidth(2), 0) << "the hidden column stays hidden";

    v.Mouse(QEvent::MouseButtonPress, v.EdgeOf(3));
    v.Mouse(QEvent::MouseMove, v.EdgeOf(3) - QPoint(200, 0));
    v.Mouse(QEvent::MouseButtonRelease, v.EdgeOf(3) - QPoint(200, 0));
    EXPECT_EQ(v.grid.ColWidth(3), PixelsToTwips(8)) << "dragged past its left edge, it stays narrow";

    // The workbook's header copy reads the dragged width, as it read a width set by a program.
    Workbook book;
    CopyGridHeaderRow(v.grid, 1, book.Worksheets(1), 5);
    EXPECT_DOUBLE_EQ(book.Worksheets(1).Columns(2).ColumnWidth(), PixelsToTwips(94) / 110.0);
}

} // namespace
} // namespace quillon
