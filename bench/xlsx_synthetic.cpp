// xlsx_synthetic ROWS COLS OUT.xlsx — the program's own workbook layer writing the sheet that
// xlsx_reference synthetic writes: mixed text and money under thin borders. Prints the seconds
// and the cells, as the reference does.
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "xlsx/workbook.h"
#include "xlsx/xl_constants.h"

int main(int argc, char** argv) {
    using namespace quillon;
    if (argc != 4) {
        std::fprintf(stderr, "usage: xlsx_synthetic ROWS COLS OUT.xlsx\n");
        return 2;
    }
    const int rows = std::atoi(argv[1]);
    const int cols = std::atoi(argv[2]);
    const auto start = std::chrono::steady_clock::now();
    Workbook book;
    Worksheet& sheet = book.Worksheets(1);
    char text[64];
    for (int r = 1; r <= rows; ++r)
        for (int c = 1; c <= cols; ++c) {
            if (c % 2 == 1) {
                std::snprintf(text, sizeof text, "票据%07d-%d", r - 1, c - 1);
                sheet.Cells(r, c).SetValue(std::string(text));
            } else {
                sheet.Cells(r, c).SetValue((r - 1) * 0.01 + (c - 1));
            }
        }
    for (int c = 2; c <= cols; c += 2) sheet.Range(1, c, rows, c).SetNumberFormat("#,##0.00");
    sheet.Range(1, 1, rows, cols).Borders().SetLineStyle(xlContinuous);
    book.SaveAs(argv[3]);
    const double seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    std::printf("%.4f %lld\n", seconds, static_cast<long long>(rows) * cols);
    return 0;
}
