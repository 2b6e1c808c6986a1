// The printed pages of a grid: orientation, rows and columns per page, repeated header rows and
// frozen columns, hidden columns, page order and footers, positions, and merged blocks cut to
// a page. A small paper makes the arithmetic easy to follow by hand.
#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "controls/flex_grid.h"
#include "workbench/print_layout.h"

namespace quillon {
namespace {

// 4000 x 6000 twips, margin 500. Upright: printable width 3000, table from y 1100 (1400 with a
// subtitle) to 5200. Turned: printable width 5000, table from 1100 to 3200.
PaperSpec SmallPaper(PageOrientation orientation = PageOrientation::Automatic) {
    return {4000, 6000, 500, orientation};
}

struct GridShape {
    std::vector<int> colWidths;
    int fixedCols = 0;
    std::vector<int> rowHeights; // the first fixedRows are the header
    int fixedRows = 1;
};

void Shape(FlexGrid& g, const GridShape& s) {
    g.SetFixedRows(0);
    g.SetFixedCols(0);
    g.SetRows(static_cast<int>(s.rowHeights.size()));
    g.SetCols(static_cast<int>(s.colWidths.size()));
    g.SetFixedRows(s.fixedRows);
    g.SetFixedCols(s.fixedCols);
    for (int c = 0; c < g.Cols(); ++c) g.SetColWidth(c, s.colWidths[c]);
    for (int r = 0; r < g.Rows(); ++r) g.SetRowHeight(r, s.rowHeights[r]);
}

std::vector<int> Heights(int header, int headerRows, int body, int bodyRows) {
    std::vector<int> h(headerRows, header);
    h.insert(h.end(), bodyRows, body);
    return h;
}

std::string Join(const std::vector<int>& v) {
    std::string s;
    for (int x : v) s += (s.empty() ? "" : ",") + std::to_string(x);
    return s;
}

// "rows|cols" of each page, in page order.
std::vector<std::string> Describe(const PrintLayout& layout) {
    std::vector<std::string> pages;
    for (const PrintPage& p : layout.pages) pages.push_back(Join(p.rows) + "|" + Join(p.cols));
    return pages;
}

TEST(PrintLayout, OrientationAndPagesOfEachShape) {
    struct Case {
        const char* why;
        GridShape shape;
        std::string subtitle;
        PageOrientation orientation;
        bool landscape;
        std::vector<std::string> pages;
    };
    const auto A = PageOrientation::Automatic;
    const Case cases[] = {
        {"narrow grid: upright, one band, all rows on one page",
         {{900, 900, 900}, 0, Heights(400, 1, 400, 5)},
         "",
         A,
         false,
         {"0,1,2,3,4,5|0,1,2"}},
        {"exactly the printable width still stands upright",
         {{1000, 1000, 1000}, 0, Heights(400, 1, 400, 1)},
         "",
         A,
         false,
         {"0,1|0,1,2"}},
        {"wider than an upright page: turned; two header rows on every page, 3 rows of 400 under them",
         {{1000, 1000, 1000, 1000}, 0, Heights(400, 2, 400, 7), 2},
         "",
         A,
         true,
         {"0,1,2,3,4|0,1,2,3", "0,1,5,6,7|0,1,2,3", "0,1,8|0,1,2,3"}},
        {"rows fill by their own heights: 1000+2000+700 fill the 3700 under the header exactly",
         {{1000}, 0, {400, 1000, 2000, 700, 300, 1500}},
         "",
         A,
         false,
         {"0,1,2,3|0", "0,4,5|0"}},
        {"nine rows of 400 fit under the header without a subtitle",
         {{1000}, 0, Heights(400, 1, 400, 9)},
         "",
         A,
         false,
         {"0,1,2,3,4,5,6,7,8,9|0"}},
        {"a subtitle takes 300: only eight fit",
         {{1000}, 0, Heights(400, 1, 400, 9)},
         "日期",
         A,
         false,
         {"0,1,2,3,4,5,6,7,8|0", "0,9|0"}},
        {"frozen column repeated on the second band; every row page of a band before the next band",
         {{1000, 1000, 1000, 1000, 1000, 1000, 1000}, 1, Heights(400, 1, 400, 5)},
         "",
         A,
         true,
         {"0,1,2,3,4|0,1,2,3,4", "0,5|0,1,2,3,4", "0,1,2,3,4|0,5,6", "0,5|0,5,6"}},
        {"hidden columns left out, and not counted toward the width",
         {{1000, 0, 1000, 1000, 0}, 0, Heights(400, 1, 400, 1)},
         "",
         A,
         false,
         {"0,1|0,2,3"}},
        {"hidden rows left out", {{1000}, 0, {400, 400, 0, 400}}, "", A, false, {"0,1,3|0"}},
        {"a frozen column as wide as the paper is not repeated but paged as the others",
         {{5500, 1000, 1000}, 1, Heights(400, 1, 400, 1)},
         "",
         A,
         true,
         {"0,1|0", "0,1|1,2"}},
        {"a header-only grid prints one page of its header",
         {{1000, 1000}, 0, Heights(400, 1, 400, 0)},
         "",
         A,
         false,
         {"0|0,1"}},
        {"a row taller than the page stands alone on its page",
         {{1000}, 0, {400, 400, 5000, 400}},
         "",
         A,
         false,
         {"0,1|0", "0,2|0", "0,3|0"}},
        {"upright asked for: a wide grid goes on in further column bands",
         {{1000, 1000, 1000, 1000}, 0, Heights(400, 1, 400, 1)},
         "",
         PageOrientation::Portrait,
         false,
         {"0,1|0,1,2", "0,1|3"}},
        {"landscape asked for: a narrow grid is turned anyway",
         {{1000}, 0, Heights(400, 1, 400, 1)},
         "",
         PageOrientation::Landscape,
         true,
         {"0,1|0"}},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(c.why);
        FlexGrid grid;
        Shape(grid, c.shape);
        const PrintLayout layout = LayoutPrintJob({"T", c.subtitle, &grid}, SmallPaper(c.orientation));
        EXPECT_EQ(c.landscape, layout.landscape);
        EXPECT_EQ(c.landscape ? 6000 : 4000, layout.pageWidth);
        EXPECT_EQ(c.landscape ? 4000 : 6000, layout.pageHeight);
        EXPECT_EQ(c.pages, Describe(layout));
    }
}

TEST(PrintLayout, FootersNumberEveryPageOfTheWhole) {
    FlexGrid grid;
    Shape(grid, {{1000, 1000, 1000, 1000, 1000, 1000, 1000}, 1, Heights(400, 1, 400, 5)});
    const PrintLayout layout = LayoutPrintJob({"T", "", &grid}, SmallPaper());
    std::vector<std::string> footers;
    std::vector<int> numbers;
    for (const PrintPage& p : layout.pages) {
        footers.push_back(p.footer);
        numbers.push_back(p.number);
    }
    EXPECT_EQ((std::vector<std::string>{"第 1 页 共 4 页", "第 2 页 共 4 页", "第 3 页 共 4 页",
                                        "第 4 页 共 4 页"}),
              footers);
    EXPECT_EQ((std::vector<int>{1, 2, 3, 4}), numbers);
    EXPECT_EQ("第 12 页 共 120 页", PageFooterText(12, 120));
}

TEST(PrintLayout, PositionsOfTheBandsTheTableAndItsCells) {
    struct Case {
        const char* why;
        std::string subtitle;
        int tableTop;
    };
    for (const Case& c : {Case{"without a subtitle", "", 1100}, Case{"with a subtitle", "日期", 1400}}) {
        SCOPED_TRACE(c.why);
        FlexGrid grid;
        Shape(grid, {{900, 800, 1000}, 0, {400, 300, 500}});
        const PrintLayout layout = LayoutPrintJob({"标题", c.subtitle, &grid}, SmallPaper());
        ASSERT_EQ(1u, layout.pages.size());
        const PrintPage& page = layout.pages[0];
        EXPECT_EQ((TwipsRect{500, 500, 3000, 480}), layout.titleRect);
        EXPECT_EQ((TwipsRect{500, 5200, 3000, 300}), layout.footerRect);
        // The table, 2700 wide, stands centred in the 3000 between the margins.
        EXPECT_EQ((std::vector<int>{650, 1550, 2350}), page.colLefts);
        EXPECT_EQ((std::vector<int>{c.tableTop, c.tableTop + 400, c.tableTop + 700}), page.rowTops);
        EXPECT_EQ((TwipsRect{650, 980, 2850, c.subtitle.empty() ? 0 : 300}), page.subtitleRect);
        ASSERT_EQ(9u, page.cells.size());
        const PrintCell& last = page.cells.back();
        EXPECT_EQ(2, last.row);
        EXPECT_EQ(2, last.col);
        EXPECT_EQ((TwipsRect{2350, c.tableTop + 700, 1000, 500}), last.rect);
    }
}

// Each cell of the page as "row,col:rect" with the block it covers when it is merged.
std::vector<std::string> CellsOf(const PrintPage& page) {
    std::vector<std::string> cells;
    for (const PrintCell& c : page.cells) {
        std::string s = std::to_string(c.row) + "," + std::to_string(c.col);
        if (!c.block.IsSingleCell())
            s += "[" + std::to_string(c.block.row1) + "," + std::to_string(c.block.col1) + "-" +
                 std::to_string(c.block.row2) + "," + std::to_string(c.block.col2) + "]";
        s += "@" + std::to_string(c.rect.left) + "," + std::to_string(c.rect.top) + "," +
             std::to_string(c.rect.width) + "x" + std::to_string(c.rect.height);
        cells.push_back(s);
    }
    return cells;
}

// Two header rows: 序号 merged down column 0, 金额 across columns 1-2 and 税 across 3-5 in row 0.
// Turned, 5000 wide: columns 0-3 (4 x 1200) on the first band, 4-5 on the second, which cuts 税.
// Body column 5 merges 1 1 1 down rows 2-4; a page holds two rows (1300 under 800 of header).
TEST(PrintLayout, MergedCellsStayMergedWithinEachPage) {
    FlexGrid grid;
    Shape(grid, {std::vector<int>(6, 1200), 0, Heights(400, 2, 600, 3), 2});
    const std::vector<std::vector<std::string>> text = {
        {"序号", "金额", "金额", "税", "税", "税"},
        {"序号", "开", "收", "6%", "9%", "13%"},
        {"1", "a", "b", "c", "d", "1"},
        {"2", "a", "b", "c", "d", "1"},
        {"3", "a", "b", "c", "d", "1"},
    };
    for (int r = 0; r < grid.Rows(); ++r)
        for (int c = 0; c < grid.Cols(); ++c) grid.SetTextMatrix(r, c, text[r][c]);
    grid.SetMergeCells(flexMergeFree);
    grid.SetMergeRow(0, true);
    grid.SetMergeCol(0, true);
    grid.SetMergeCol(5, true);

    const PrintLayout layout = LayoutPrintJob({"T", "", &grid}, SmallPaper());
    ASSERT_TRUE(layout.landscape);
    ASSERT_EQ((std::vector<std::string>{"0,1,2,3|0,1,2,3", "0,1,4|0,1,2,3", "0,1,2,3|4,5", "0,1,4|4,5"}),
              Describe(layout));
    // Band 1 stands at 500 + (5000 - 4800) / 2 = 600; band 2, 2400 wide, at 500 + 1300 = 1800.
    EXPECT_EQ((std::vector<std::string>{
                  "0,0[0,0-1,0]@600,1100,1200x800", "0,1[0,1-0,2]@1800,1100,2400x400",
                  "0,3@4200,1100,1200x400", "1,1@1800,1500,1200x400", "1,2@3000,1500,1200x400",
                  "1,3@4200,1500,1200x400", "2,0@600,1900,1200x600", "2,1@1800,1900,1200x600",
                  "2,2@3000,1900,1200x600", "2,3@4200,1900,1200x600", "3,0@600,2500,1200x600",
                  "3,1@1800,2500,1200x600", "3,2@3000,2500,1200x600", "3,3@4200,2500,1200x600"}),
              CellsOf(layout.pages[0]));
    // The 税 block cut by the band edge keeps its text on both; the body block of column 5 is cut
    // by the page edge into rows 2-3 and row 4 alone.
    EXPECT_EQ((std::vector<std::string>{"0,3[0,4-0,5]@1800,1100,2400x400", "1,4@1800,1500,1200x400",
                                        "1,5@3000,1500,1200x400", "2,4@1800,1900,1200x600",
                                        "2,5[2,5-3,5]@3000,1900,1200x1200", "3,4@1800,2500,1200x600"}),
              CellsOf(layout.pages[2]));
    EXPECT_EQ((std::vector<std::string>{"0,3[0,4-0,5]@1800,1100,2400x400", "1,4@1800,1500,1200x400",
                                        "1,5@3000,1500,1200x400", "4,4@1800,1900,1200x600",
                                        "4,5@3000,1900,1200x600"}),
              CellsOf(layout.pages[3]));
}

// The user froze columns 0-1 of the grid above on screen: they are repeated on the second band
// as fixed ones would be. The freeze edge cuts 金额 (columns 1-2): column 1 keeps its text alone.
TEST(PrintLayout, ColumnsTheUserFrozeAreRepeatedOnEveryBand) {
    FlexGrid grid;
    Shape(grid, {std::vector<int>(6, 1200), 0, Heights(400, 2, 600, 3), 2});
    const std::vector<std::vector<std::string>> text = {
        {"序号", "金额", "金额", "税", "税", "税"},
        {"序号", "开", "收", "6%", "9%", "13%"},
        {"1", "a", "b", "c", "d", "1"},
        {"2", "a", "b", "c", "d", "1"},
        {"3", "a", "b", "c", "d", "1"},
    };
    for (int r = 0; r < grid.Rows(); ++r)
        for (int c = 0; c < grid.Cols(); ++c) grid.SetTextMatrix(r, c, text[r][c]);
    grid.SetMergeCells(flexMergeFree);
    grid.SetMergeRow(0, true);
    grid.SetMergeCol(0, true);
    grid.SetMergeCol(5, true);
    grid.SetFrozenCols(2);

    const PrintLayout layout = LayoutPrintJob({"T", "", &grid}, SmallPaper());
    ASSERT_EQ(
        (std::vector<std::string>{"0,1,2,3|0,1,2,3", "0,1,4|0,1,2,3", "0,1,2,3|0,1,4,5", "0,1,4|0,1,4,5"}),
        Describe(layout));
    EXPECT_EQ((std::vector<std::string>{
                  "0,0[0,0-1,0]@600,1100,1200x800", "0,1@1800,1100,1200x400",
                  "0,3[0,4-0,5]@3000,1100,2400x400", "1,1@1800,1500,1200x400", "1,4@3000,1500,1200x400",
                  "1,5@4200,1500,1200x400", "2,0@600,1900,1200x600", "2,1@1800,1900,1200x600",
                  "2,4@3000,1900,1200x600", "2,5[2,5-3,5]@4200,1900,1200x1200", "3,0@600,2500,1200x600",
                  "3,1@1800,2500,1200x600", "3,4@3000,2500,1200x600"}),
              CellsOf(layout.pages[2]));
    grid.SetFrozenCols(0);
    EXPECT_EQ(Describe(LayoutPrintJob({"T", "", &grid}, SmallPaper())).size(), 4u);
    EXPECT_EQ(Describe(LayoutPrintJob({"T", "", &grid}, SmallPaper()))[2], "0,1,2,3|4,5") << "unfrozen";
}

TEST(PrintLayout, AJobWithoutAGridIsRefused) {
    EXPECT_THROW(LayoutPrintJob({"T", "", nullptr}), std::invalid_argument);
}

TEST(PrintLayout, A4TurnsAtItsPrintableWidth) {
    // A4 upright between margins of 720: 11906 - 1440 = 10466 twips.
    for (const auto& [width, landscape] : {std::pair{10466, false}, std::pair{10467, true}}) {
        FlexGrid grid;
        Shape(grid, {{width}, 0, Heights(240, 1, 240, 1)});
        const PrintLayout layout = LayoutPrintJob({"T", "", &grid});
        EXPECT_EQ(landscape, layout.landscape) << width;
        EXPECT_EQ(landscape ? kA4HeightTwips : kA4WidthTwips, layout.pageWidth) << width;
    }
}

} // namespace
} // namespace quillon
