// print_layout.h — workbench layer: the printed pages of a grid, worked out once without any
// toolkit: the orientation, which grid rows and columns stand on which page and where, the header
// rows repeated at the top of each page, the fixed and frozen columns (FlexGrid::StillCols)
// repeated at the left of the pages of columns further right, the title lines and the page footer. All sizes
// are twips, measured from the paper's top-left corner; a painter only draws what it is told here.
#pragma once

#include <string>
#include <vector>

#include "controls/merged_cells.h"
#include "controls/print_job.h"

namespace quillon {

inline constexpr int kA4WidthTwips = 11906;  // 210 mm
inline constexpr int kA4HeightTwips = 16838; // 297 mm
inline constexpr int kPrintMarginTwips = 720;
// The bands over and under the table.
inline constexpr int kPrintTitleHeight = 480;
inline constexpr int kPrintSubtitleHeight = 300;
inline constexpr int kPrintHeadGap = 120;
inline constexpr int kPrintFooterHeight = 300;

enum class PageOrientation { Automatic, Portrait, Landscape };

struct PaperSpec {
    int width = kA4WidthTwips; // as the sheet stands upright
    int height = kA4HeightTwips;
    int margin = kPrintMarginTwips; // on all four sides
    // Automatic turns the paper when the grid is wider than an upright page's printable width.
    PageOrientation orientation = PageOrientation::Automatic;
};

struct TwipsRect {
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;
    bool operator==(const TwipsRect&) const = default;
};

// One cell, or one merged block cut to what the page holds, drawn with the text and looks of
// its grid cell (the block's top-left one).
struct PrintCell {
    int row = 0;
    int col = 0;
    CellRange block; // the grid cells it covers on this page
    TwipsRect rect;
};

struct PrintPage {
    int number = 0; // from 1
    std::string footer;
    std::vector<int> rows;    // grid rows top to bottom: the fixed ones, then this page's own
    std::vector<int> rowTops; // page y of each of `rows`
    std::vector<int> cols;    // grid columns left to right: repeated frozen ones, then the band's
    std::vector<int> colLefts;
    std::vector<PrintCell> cells;
    TwipsRect subtitleRect; // from the table's left edge to the margin; zero high without a subtitle
};

struct PrintLayout {
    bool landscape = false;
    int pageWidth = 0; // as printed, turned when landscape
    int pageHeight = 0;
    std::string title;
    std::string subtitle;
    TwipsRect titleRect;  // the text centred across the printable width
    TwipsRect footerRect; // the text centred at the foot
    std::vector<PrintPage> pages;
};

// "第 n 页 共 m 页".
std::string PageFooterText(int page, int pageCount);

// The pages of the job's grid on the paper. Rows of height 0 and columns of width 0 are left
// out. Pages run down all rows of the first band of columns, then of the next band. Every page
// carries at least one row and one column of its own, even one too large for it (cut off). A
// table narrower than the printable width stands centred.
PrintLayout LayoutPrintJob(const PrintJob& job, const PaperSpec& paper = {});

} // namespace quillon
