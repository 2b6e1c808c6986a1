// grid_paint [ROWS] — a full repaint of the grid view holding ROWS (50,000) rows of 40 columns,
// offscreen: turn about at the top and in the middle ("paint median min max" in ms), then paging
// on through rows not shown before ("fresh median min max").
#include <QApplication>
#include <QScrollBar>

#include <cstdio>
#include <cstdlib>
#include <string>

#include "bench_clock.h"
#include "controls/flex_grid.h"
#include "qtui/flex_grid_widget.h"

int main(int argc, char** argv) {
    using namespace quillon;
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    const int rows = argc > 1 ? std::atoi(argv[1]) : 50000;
    FlexGrid grid("MSFlexGrid1");
    grid.SetCols(40);
    grid.SetRows(rows + 2);
    grid.SetFixedRows(2);
    grid.SetFixedCols(1);
    for (int r = 0; r < rows + 2; ++r)
        for (int c = 0; c < 40; ++c)
            grid.SetTextMatrix(r, c, c % 3 ? std::to_string(r * 7.25 + c) : "票据" + std::to_string(r));
    FlexGridWidget view;
    view.resize(1280, 800);
    view.SetGrid(&grid);
    view.show();
    QApplication::processEvents();
    int turn = 0;
    const bench::Spread s = bench::TimeRepeated(41, [&] {
        view.verticalScrollBar()->setValue(++turn % 2 ? 0 : rows / 2);
        view.viewport()->repaint();
    });
    bench::Report("paint", s);
    // Paging down through rows no repaint has shown yet: nothing of them is kept.
    const int page = view.viewport()->height() / 10;
    const bench::Spread fresh = bench::TimeRepeated(41, [&] {
        view.verticalScrollBar()->setValue((++turn * page) % rows);
        view.viewport()->repaint();
    });
    bench::Report("fresh", fresh);
    return 0;
}
