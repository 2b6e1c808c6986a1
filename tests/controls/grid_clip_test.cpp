// A block of grid cells on the clipboard: tab-separated text and the HTML table beside it.
#include "controls/grid_clip.h"

#include <gtest/gtest.h>

#include "controls/flex_grid.h"

namespace quillon {
namespace {

// Two merged header rows over a hidden code column, as the reports build them:
//   序 | 专用发票 (2 cols) | code (hidden) | 备注
struct ReportLikeGrid : FlexGrid {
    ReportLikeGrid() {
        FlexGrid& g = *this;
        g.SetRows(5);
        g.SetCols(5);
        g.SetFixedRows(2);
        g.SetMergeCells(flexMergeRestrictColumns);
        g.SetMergeRow(0, true);
        g.SetMergeCol(0, true);
        const char* text[5][5] = {{"序", "专用发票", "专用发票", "编码", "备注"},
                                  {"序", "金额", "税额", "编码", "备注"},
                                  {"1", "100.00", "6.00", "0101", "a\tb"},
                                  {"2", "", "13.00", "0102", "line1\r\nline2"},
                                  {"合计", "100.00", "19.00", "", "<&\">"}};
        for (int r = 0; r < 5; ++r)
            for (int c = 0; c < 5; ++c) g.SetTextMatrix(r, c, text[r][c]);
        g.SetColWidth(3, 0); // codes are kept out of sight
    }
};

TEST(GridClip, BlockTextRepeatsMergedHeadersAndLeavesHiddenCellsOut) {
    const ReportLikeGrid g;
    struct Case {
        const char* why;
        CellRange block;
        const char* text;
    };
    const Case cases[] = {
        {"the whole grid: each cell of a merged header carries its text, the code column is out",
         {0, 0, 4, 4},
         "序\t专用发票\t专用发票\t备注\n序\t金额\t税额\t备注\n1\t100.00\t6.00\ta b\n2\t\t13.00\tline1  "
         "line2\n"
         "合计\t100.00\t19.00\t<&\">\n"},
        {"one cell", {2, 1, 2, 1}, "100.00\n"},
        {"an empty cell keeps its place between tabs", {3, 0, 3, 2}, "2\t\t13.00\n"},
        {"a block of the hidden column alone gives nothing", {2, 3, 4, 3}, ""},
        {"a block reaching past the grid is cut to it", {3, 4, 9, 9}, "line1  line2\n<&\">\n"},
        {"a block beside the grid gives nothing", {6, 0, 8, 2}, ""},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.why);
        EXPECT_EQ(GridBlockText(g, c.block), c.text);
    }
}

TEST(GridClip, HiddenRowsStayOutOfTheText) {
    ReportLikeGrid g;
    g.SetRowHeight(3, 0);
    EXPECT_EQ(GridBlockText(g, {2, 0, 4, 0}), "1\n合计\n");
}

TEST(GridClip, HtmlTableHoldsTheSameCellsEscaped) {
    const ReportLikeGrid g;
    EXPECT_EQ(
        GridBlockHtml(g, {0, 1, 1, 2}),
        "<table><tr><td>专用发票</td><td>专用发票</td></tr><tr><td>金额</td><td>税额</td></tr></table>");
    EXPECT_EQ(GridBlockHtml(g, {3, 4, 4, 4}),
              "<table><tr><td>line1<br>line2</td></tr><tr><td>&lt;&amp;&quot;&gt;</td></tr></table>");
    EXPECT_EQ(GridBlockHtml(g, {2, 3, 2, 3}), "<table></table>") << "only the hidden column";
}

} // namespace
} // namespace quillon
