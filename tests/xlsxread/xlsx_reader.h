// xlsx_reader.h — test support: reads a .xlsx written by libxlsxwriter back (cell values and
// types, resolved formats, merges, column widths, row heights): tests check the file, not the writer.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace quillon::xlsxread {

enum class CellType { Empty, Number, SharedString, Other };

// One cell's format with every index resolved to what it stands for.
struct CellFormat {
    std::string numberFormat = "General"; // the format code, built-in ids resolved
    std::string fontName;
    double fontSize = 0;
    bool bold = false;
    std::string fillPattern; // "solid", or empty for none
    std::string fillColor;   // fgColor rgb as written, "FFC0C0FF"; empty when none
    std::string horizontal;  // "center", "left", "right", …; empty for general
    std::string vertical;    // "top", "center", …; empty for bottom
    bool wrap = false;
    std::string borderLeft, borderTop, borderRight, borderBottom; // "thin", …; empty for none
};

struct Cell {
    CellType type = CellType::Empty;
    double number = 0; // Number
    std::string text;  // SharedString, Other (the raw <v>)
    CellFormat format;
};

struct Area {
    int firstRow, firstCol, lastRow, lastCol;
    auto operator<=>(const Area&) const = default;
};

// The areas in order, so that two sets of merges compare whatever order they were made in.
std::vector<Area> Sorted(std::vector<Area> areas);

struct Column {
    double width = 0; // as written in the file, padding included
    bool hidden = false;
};

struct Row {
    std::optional<double> height;     // ht when customHeight is set
    std::optional<CellFormat> format; // the row's own format (s with customFormat)
};

// How the sheet prints, as the file states it; attributes it leaves out read as Excel's defaults.
struct PrintSetup {
    std::string orientation;         // pageSetup orientation: "landscape", "portrait", "" when unset
    int paperSize = 0;               // pageSetup paperSize (9 is A4), 0 when unset
    bool fitToPage = false;          // sheetPr/pageSetUpPr fitToPage
    int fitToWidth = 1;              // pageSetup fitToWidth (0: as many as needed)
    int fitToHeight = 1;             // pageSetup fitToHeight
    bool horizontalCentered = false; // printOptions
    std::string printTitles;         // the sheet's _xlnm.Print_Titles, as "Sheet1!$4:$5"
    std::string oddFooter;           // headerFooter
    std::string frozenTopLeft;       // the frozen pane's topLeftCell ("A6"), "" without one
    int frozenRows = 0;              // its ySplit and xSplit
    int frozenCols = 0;
};

struct Sheet {
    std::map<std::pair<int, int>, Cell> cells; // (row, col), 1-based
    std::vector<Area> merges;
    std::map<int, Column> columns; // by column number, each <col> range spread out
    std::map<int, Row> rows;
    CellFormat defaultFormat; // of a cell the file does not hold, in a row without format
    PrintSetup print;

    // The cell at (row, col), or nullptr when the file has no <c> for it.
    const Cell* Find(int row, int col) const;
    // The cell's format; a cell the file does not hold has the default format.
    CellFormat FormatAt(int row, int col) const;
};

struct Book {
    std::vector<Sheet> sheets;       // in workbook order
    std::size_t cellFormatCount = 0; // <cellXfs count>
    const Sheet& First() const { return sheets.at(0); }
};

// A sheet row as a user reads it, columns 1 to lastCol: texts as they are, numbers as "#" and
// their value, empty cells "".
std::vector<std::string> ShownRow(const Sheet& sheet, int row, int lastCol);

// Reads the file; std::runtime_error when it is no readable .xlsx.
Book ReadXlsx(const std::string& path);
// The same from the bytes of a file.
Book ReadXlsxData(std::string_view bytes);

} // namespace quillon::xlsxread
