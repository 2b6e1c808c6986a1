// The printed pages on Qt's devices: a painted page's fills, lines and alignments; the PDF file
// with one page per laid-out page, turned when the grid is wide, saved safely; the preview.
#include "qtui/print_painter.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QImage>
#include <QPrintPreviewDialog>
#include <QPrintPreviewWidget>
#include <QRegularExpression>
#include <QTimer>

#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>
#include <vector>

#include "controls/flex_grid.h"
#include "pdf/grid_pdf.h"
#include "qt_test_app.h"
#include "qtui/qt_dialogs.h"
#include "support/file_size_limit.h"
#include "support/temp_dir.h"

namespace quillon {
namespace {

constexpr std::uint32_t kSubtotalFill = 0xC0E0FF; // BGR: light orange

// One header row and `bodyRows` rows of `cols` columns 1500 twips wide. Column 0 holds text,
// the last one a right-aligned number; row 1, when there is one, is a 小计 row with a fill.
void FillGrid(FlexGrid& g, int bodyRows, int cols) {
    g.SetRows(1 + bodyRows);
    g.SetCols(cols);
    g.SetFixedCols(0);
    for (int c = 0; c < cols; ++c) {
        g.SetColWidth(c, 1500);
        g.SetTextMatrix(0, c, c == 0 ? "名称" : "");
    }
    g.SetColAlignment(cols - 1, flexAlignRightCenter);
    for (int r = 1; r < g.Rows(); ++r) {
        g.SetTextMatrix(r, 0, r == 1 ? "小计" : "甲");
        g.SetTextMatrix(r, cols - 1, "123.45");
    }
    if (bodyRows == 0) return;
    g.SetRow(1);
    for (int c = 0; c < cols; ++c) {
        g.SetCol(c);
        g.SetCellBackColor(kSubtotalFill);
    }
}

QByteArray ReadAll(const std::string& path) {
    QFile file(QString::fromStdString(path));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

// Page objects of the file (the page tree is "/Type /Pages").
int CountPdfPages(const QByteArray& pdf) {
    int n = 0;
    auto it = QRegularExpression(QStringLiteral("/Type\\s*/Page(?!s)")).globalMatch(QString::fromLatin1(pdf));
    for (; it.hasNext(); it.next()) ++n;
    return n;
}

// The first page's width and height in points, from its MediaBox.
QSizeF FirstMediaBox(const QByteArray& pdf) {
    const auto m = QRegularExpression(QStringLiteral("/MediaBox\\s*\\[\\s*0\\s+0\\s+([\\d.]+)\\s+([\\d.]+)"))
                       .match(QString::fromLatin1(pdf));
    return m.hasMatch() ? QSizeF(m.captured(1).toDouble(), m.captured(2).toDouble()) : QSizeF();
}

TEST(PrintPdf, OnePagePerLaidOutPageTurnedWhenWide) {
    WithApp app;
    struct Case {
        const char* why;
        int bodyRows, cols;
        int pages;
        bool landscape;
    };
    // A4 upright holds (16838 - 720 - 300 - (720 + 480 + 300 + 120)) = 14498 twips of table: 59
    // rows of 240 under the header. Turned, 15398 wide holds 10 columns of 1500.
    const Case cases[] = {
        {"narrow and short: one upright page", 10, 3, 1, false},
        {"narrow and long: 150 rows over three pages", 150, 3, 3, false},
        {"twelve columns: turned, two bands of one page each", 10, 12, 2, true},
        {"a header alone still prints its page", 0, 3, 1, false},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.why);
        TempDir dir;
        FlexGrid grid;
        FillGrid(grid, c.bodyRows, c.cols);
        const PrintJob job{"预 开 票 汇 总 表", "日期范围:2024年01月01日-2024年12月31日", &grid};
        ASSERT_EQ(c.pages, static_cast<int>(LayoutPrintJob(job).pages.size()));
        const std::string path = dir.File("out.pdf");
        WriteGridPdf(job, path);
        const QByteArray pdf = ReadAll(path);
        EXPECT_TRUE(pdf.startsWith("%PDF-"));
        EXPECT_EQ(c.pages, CountPdfPages(pdf));
        const QSizeF box = FirstMediaBox(pdf);
        EXPECT_NEAR(c.landscape ? 842 : 595, box.width(), 1.0);
        EXPECT_NEAR(c.landscape ? 595 : 842, box.height(), 1.0);
    }
}

TEST(PrintPdf, AFailedWriteLeavesNothingAndASuccessReplacesTheOldFile) {
    WithApp app;
    FlexGrid grid;
    FillGrid(grid, 5, 3);
    const PrintJob job{"标题", "", &grid};
    TempDir dir;

    const std::string missing = dir.File("no-such-folder/out.pdf");
    EXPECT_THROW(WriteGridPdf(job, missing), std::runtime_error);
    EXPECT_FALSE(std::filesystem::exists(dir.Path() / "no-such-folder"));
    EXPECT_TRUE(std::filesystem::is_empty(dir.Path()));

    const std::string path = dir.File("old.pdf");
    std::ofstream(path) << "an earlier file";
    WriteGridPdf(job, path);
    EXPECT_TRUE(ReadAll(path).startsWith("%PDF-"));
    int files = 0;
    for ([[maybe_unused]] const auto& entry : std::filesystem::directory_iterator(dir.Path())) ++files;
    EXPECT_EQ(1, files); // no temporary file left beside it

    EXPECT_THROW(WriteGridPdf({"标题", "", nullptr}, path), std::invalid_argument);
    EXPECT_TRUE(ReadAll(path).startsWith("%PDF-"));
}

// A write stopped half-way (a full disk) leaves the earlier file byte for byte and nothing beside it.
TEST(PrintPdf, AWriteStoppedByAFullDiskKeepsTheEarlierFile) {
    WithApp app;
    FlexGrid grid;
    FillGrid(grid, 150, 12);
    const PrintJob job{"标题", "", &grid};
    TempDir dir;
    const std::string path = dir.File("old.pdf");
    WriteGridPdf(job, path);
    const QByteArray before = ReadAll(path);
    const std::string outcome = RunWithFileSizeLimit(static_cast<rlim_t>(before.size() / 2), [&] {
        try {
            WriteGridPdf(job, path);
        } catch (const std::runtime_error& e) {
            return std::string(e.what()).rfind("cannot write " + path, 0) == 0 ? "refused" : e.what();
        }
        return "written in spite of the limit";
    });
    EXPECT_EQ(outcome, "refused");
    EXPECT_EQ(ReadAll(path), before);
    std::vector<std::string> left;
    for (const auto& entry : std::filesystem::directory_iterator(dir.Path()))
        left.push_back(entry.path().filename().string());
    EXPECT_EQ(left, std::vector<std::string>{"old.pdf"});
}

// One page painted at 96 dpi: 15 twips to the pixel.
QImage PaintFirstPage(const PrintLayout& layout, const FlexGrid& grid) {
    QImage image(layout.pageWidth / 15, layout.pageHeight / 15, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.scale(1.0 / 15, 1.0 / 15);
    PaintPrintPage(painter, layout, layout.pages.front(), grid);
    return image;
}

QRect PixelRect(const TwipsRect& r) {
    return QRect(r.left / 15, r.top / 15, r.width / 15, r.height / 15);
}

const PrintCell& CellAt(const PrintPage& page, int row, int col) {
    for (const PrintCell& c : page.cells)
        if (c.row == row && c.col == col) return c;
    throw std::out_of_range("no such cell on the page");
}

TEST(PrintPainter, FillsLinesAlignmentsAndTheTextsAroundTheTable) {
    WithApp app;
    FlexGrid grid;
    FillGrid(grid, 3, 3);
    const PrintLayout layout = LayoutPrintJob({"汇总表", "日期范围", &grid});
    const QImage image = PaintFirstPage(layout, grid);
    const PrintPage& page = layout.pages.front();
    auto centre = [&](int row, int col) { return PixelRect(CellAt(page, row, col).rect).center(); };

    EXPECT_EQ(QColor(0xFF, 0xE0, 0xC0), image.pixelColor(centre(1, 1))); // 小计 fill, BGR turned
    EXPECT_EQ(QColor(0xFF, 0xFF, 0xFF), image.pixelColor(centre(2, 1))); // the window colour
    EXPECT_EQ(QColor(0xF0, 0xF0, 0xF0), image.pixelColor(centre(0, 1))); // header: the fixed colour

    // A line along the left edge of an empty cell.
    const QRect empty = PixelRect(CellAt(page, 2, 1).rect);
    EXPECT_FALSE(Ink(image, QRect(empty.left() - 1, empty.center().y(), 3, 1), Qt::Horizontal).isEmpty());
    EXPECT_TRUE(Ink(image, empty.adjusted(3, 3, -3, -3), Qt::Horizontal).isEmpty());

    // Text on the left of a left-aligned cell, on the right of a right-aligned one.
    const QRect left = PixelRect(CellAt(page, 2, 0).rect).adjusted(2, 2, -2, -2);
    const QList<int> leftInk = Ink(image, left, Qt::Horizontal);
    ASSERT_FALSE(leftInk.isEmpty());
    EXPECT_LT(leftInk.last(), left.center().x());
    const QRect right = PixelRect(CellAt(page, 2, 2).rect).adjusted(2, 2, -2, -2);
    const QList<int> rightInk = Ink(image, right, Qt::Horizontal);
    ASSERT_FALSE(rightInk.isEmpty());
    EXPECT_GT(rightInk.first(), right.center().x());

    for (const TwipsRect& band : {layout.titleRect, page.subtitleRect, layout.footerRect})
        EXPECT_FALSE(Ink(image, PixelRect(band), Qt::Horizontal).isEmpty());
}

TEST(PrintPreview, OpensTitledInChineseWithThePagesOfTheLayout) {
    WithApp app;
    FlexGrid grid;
    FillGrid(grid, 10, 12);
    const PrintJob job{"预开票汇总表", "", &grid};
    QString title;
    int pages = -1;
    QPageLayout::Orientation orientation = QPageLayout::Portrait;
    QTimer::singleShot(0, [&] {
        auto* dialog = qobject_cast<QPrintPreviewDialog*>(QApplication::activeModalWidget());
        ASSERT_NE(dialog, nullptr);
        title = dialog->windowTitle();
        auto* preview = dialog->findChild<QPrintPreviewWidget*>();
        ASSERT_NE(preview, nullptr);
        preview->updatePreview();
        pages = preview->pageCount();
        orientation = preview->orientation();
        dialog->reject();
    });
    QtDialogs dialogs(QStringLiteral("Quillon"));
    dialogs.PrintPreview(job);
    EXPECT_EQ(QStringLiteral("打印预览"), title);
    EXPECT_EQ(2, pages);
    EXPECT_EQ(QPageLayout::Landscape, orientation);
}

} // namespace
} // namespace quillon
