#include "workbench/print_layout.h"

#include <algorithm>
#include <stdexcept>

#include "controls/flex_grid.h"

namespace quillon {
namespace {

// Splits `items` into runs whose sizes fit `room`, each run holding at least one item.
std::vector<std::vector<int>> SplitToFit(const std::vector<int>& items, int room, auto sizeOf) {
    std::vector<std::vector<int>> runs;
    int used = 0;
    for (int item : items) {
        const int size = sizeOf(item);
        if (runs.empty() || (!runs.back().empty() && used + size > room)) {
            runs.emplace_back();
            used = 0;
        }
        runs.back().push_back(item);
        used += size;
    }
    if (runs.empty()) runs.emplace_back();
    return runs;
}

// The first and last positions of `sorted` holding a value in [low, high]; first > last if none.
std::pair<int, int> SpanOf(const std::vector<int>& sorted, int low, int high) {
    const auto first = std::lower_bound(sorted.begin(), sorted.end(), low);
    const auto end = std::upper_bound(sorted.begin(), sorted.end(), high);
    return {static_cast<int>(first - sorted.begin()), static_cast<int>(end - sorted.begin()) - 1};
}

class PageBuilder {
public:
    PageBuilder(const FlexGrid& grid, std::vector<CellRange> fixedBlocks)
        : g_(grid), fixedBlocks_(std::move(fixedBlocks)) {}

    void Place(PrintPage& page, int left, int top) const {
        for (int r : page.rows) {
            page.rowTops.push_back(top);
            top += g_.RowHeight(r);
        }
        for (int c : page.cols) {
            page.colLefts.push_back(left);
            left += g_.ColWidth(c);
        }
    }

    // Cells row by row; a merged block, cut to the page, where its first cell on the page is.
    void AddCells(PrintPage& page, const std::vector<CellRange>& bodyBlocks) const {
        const int nRows = static_cast<int>(page.rows.size());
        const int nCols = static_cast<int>(page.cols.size());
        std::vector<int> owner(static_cast<std::size_t>(nRows) * nCols, -1);
        std::vector<PrintCell> blocks;
        auto cut = [&](const CellRange& b) {
            const auto [r1, r2] = SpanOf(page.rows, b.row1, b.row2);
            const auto [c1, c2] = SpanOf(page.cols, b.col1, b.col2);
            if (r1 > r2 || c1 > c2 || (r1 == r2 && c1 == c2)) return;
            PrintCell cell{b.row1, b.col1, {page.rows[r1], page.cols[c1], page.rows[r2], page.cols[c2]}, {}};
            cell.rect = {page.colLefts[c1], page.rowTops[r1],
                         page.colLefts[c2] + g_.ColWidth(page.cols[c2]) - page.colLefts[c1],
                         page.rowTops[r2] + g_.RowHeight(page.rows[r2]) - page.rowTops[r1]};
            const int id = static_cast<int>(blocks.size());
            blocks.push_back(cell);
            for (int r = r1; r <= r2; ++r)
                for (int c = c1; c <= c2; ++c) owner[static_cast<std::size_t>(r) * nCols + c] = id;
        };
        for (const CellRange& b : fixedBlocks_) cut(b);
        for (const CellRange& b : bodyBlocks) cut(b);

        for (int r = 0; r < nRows; ++r)
            for (int c = 0; c < nCols; ++c) {
                const int id = owner[static_cast<std::size_t>(r) * nCols + c];
                if (id < 0) {
                    page.cells.push_back({page.rows[r],
                                          page.cols[c],
                                          {page.rows[r], page.cols[c], page.rows[r], page.cols[c]},
                                          {page.colLefts[c], page.rowTops[r], g_.ColWidth(page.cols[c]),
                                           g_.RowHeight(page.rows[r])}});
                } else if (blocks[id].block.row1 == page.rows[r] && blocks[id].block.col1 == page.cols[c]) {
                    page.cells.push_back(blocks[id]);
                }
            }
    }

private:
    const FlexGrid& g_;
    std::vector<CellRange> fixedBlocks_;
};

} // namespace

std::string PageFooterText(int page, int pageCount) {
    return "第 " + std::to_string(page) + " 页 共 " + std::to_string(pageCount) + " 页";
}

PrintLayout LayoutPrintJob(const PrintJob& job, const PaperSpec& paper) {
    if (!job.grid) throw std::invalid_argument("a print job needs a grid");
    const FlexGrid& g = *job.grid;

    // The columns that stay put on screen, fixed or frozen by the user, are repeated on the pages
    // of the columns further right.
    std::vector<int> fixedCols, scrollCols, fixedRows, bodyRows;
    int totalWidth = 0, fixedWidth = 0, fixedHeight = 0;
    const int stillCols = g.StillCols();
    for (int c = 0; c < g.Cols(); ++c) {
        const int w = g.ColWidth(c);
        if (w <= 0) continue;
        totalWidth += w;
        if (c < stillCols) {
            fixedCols.push_back(c);
            fixedWidth += w;
        } else {
            scrollCols.push_back(c);
        }
    }
    for (int r = 0; r < g.Rows(); ++r) {
        const int h = g.RowHeight(r);
        if (h <= 0) continue;
        if (r < g.FixedRows()) {
            fixedRows.push_back(r);
            fixedHeight += h;
        } else {
            bodyRows.push_back(r);
        }
    }

    PrintLayout layout;
    layout.title = job.title;
    layout.subtitle = job.subtitle;
    const int m = paper.margin;
    layout.landscape = paper.orientation == PageOrientation::Landscape ||
                       (paper.orientation == PageOrientation::Automatic && totalWidth > paper.width - 2 * m);
    layout.pageWidth = layout.landscape ? paper.height : paper.width;
    layout.pageHeight = layout.landscape ? paper.width : paper.height;
    const int printableWidth = layout.pageWidth - 2 * m;
    const int subtitleHeight = job.subtitle.empty() ? 0 : kPrintSubtitleHeight;
    const int tableTop = m + kPrintTitleHeight + subtitleHeight + kPrintHeadGap;
    const int tableBottom = layout.pageHeight - m - kPrintFooterHeight;
    layout.titleRect = {m, m, printableWidth, kPrintTitleHeight};
    layout.footerRect = {m, tableBottom, printableWidth, kPrintFooterHeight};

    // Frozen columns wider than the paper cannot stand beside others: they then page as the rest.
    const bool repeatFixed = fixedWidth > 0 && fixedWidth < printableWidth;
    std::vector<std::vector<int>> bands;
    if (repeatFixed) {
        bands = SplitToFit(scrollCols, printableWidth - fixedWidth, [&g](int c) { return g.ColWidth(c); });
        for (auto& band : bands) band.insert(band.begin(), fixedCols.begin(), fixedCols.end());
    } else {
        std::vector<int> all = fixedCols;
        all.insert(all.end(), scrollCols.begin(), scrollCols.end());
        bands = SplitToFit(all, printableWidth, [&g](int c) { return g.ColWidth(c); });
    }
    const auto rowRuns =
        SplitToFit(bodyRows, tableBottom - tableTop - fixedHeight, [&g](int r) { return g.RowHeight(r); });

    const bool merging = g.MergeCells() != flexMergeNever;
    std::vector<CellRange> fixedBlocks;
    if (merging && !fixedRows.empty()) fixedBlocks = g.MergedRanges(0, fixedRows.back());
    std::vector<std::vector<CellRange>> bodyBlocks(rowRuns.size());
    if (merging)
        for (std::size_t i = 0; i < rowRuns.size(); ++i)
            if (!rowRuns[i].empty()) bodyBlocks[i] = g.MergedRanges(rowRuns[i].front(), rowRuns[i].back());

    const PageBuilder builder(g, std::move(fixedBlocks));
    const int pageCount = static_cast<int>(bands.size() * rowRuns.size());
    layout.pages.reserve(pageCount);
    for (const auto& band : bands) {
        int bandWidth = 0;
        for (int c : band) bandWidth += g.ColWidth(c);
        const int left = m + std::max(0, (printableWidth - bandWidth) / 2); // a narrow table centred
        for (std::size_t i = 0; i < rowRuns.size(); ++i) {
            PrintPage page;
            page.number = static_cast<int>(layout.pages.size()) + 1;
            page.footer = PageFooterText(page.number, pageCount);
            page.rows = fixedRows;
            page.rows.insert(page.rows.end(), rowRuns[i].begin(), rowRuns[i].end());
            page.cols = band;
            builder.Place(page, left, tableTop);
            builder.AddCells(page, bodyBlocks[i]);
            page.subtitleRect = {left, m + kPrintTitleHeight, printableWidth - (left - m), subtitleHeight};
            layout.pages.push_back(std::move(page));
        }
    }
    return layout;
}

} // namespace quillon
