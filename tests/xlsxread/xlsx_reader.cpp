// xlsx_reader.cpp — a small .xlsx reader (libzip + pugixml) for what libxlsxwriter writes:
// relationships, shared strings, styles, and the sheet's cells, merges, columns and rows.
// Parts it never writes (inline and rich strings, escaped control characters) are not read.
#include "xlsxread/xlsx_reader.h"

#include <algorithm>
#include <array>
#include <memory>
#include <sstream>
#include <stdexcept>

#include <pugixml.hpp>
#include <zip.h>

namespace quillon::xlsxread {

namespace {

struct ZipCloser {
    void operator()(zip_t* z) const { zip_discard(z); }
};
using ZipPtr = std::unique_ptr<zip_t, ZipCloser>;

// Far beyond any part the program writes; a larger size claimed by a damaged archive is refused
// before it is allocated.
constexpr zip_uint64_t kMaxPartSize = 64u << 20;

// Excel's last row and column.
constexpr int kMaxRow = 1048576;
constexpr int kMaxCol = 16384;

// v.at(index), as the reader fails: a runtime_error naming what the index was for.
template <typename T> const T& At(const std::vector<T>& v, std::size_t index, const char* what) {
    if (index >= v.size()) throw std::runtime_error(std::string("no ") + what + " " + std::to_string(index));
    return v[index];
}

std::string ReadEntry(zip_t* zip, const std::string& name) {
    zip_stat_t st;
    zip_stat_init(&st);
    if (zip_stat(zip, name.c_str(), 0, &st) != 0) throw std::runtime_error("no part " + name);
    if (!(st.valid & ZIP_STAT_SIZE) || st.size > kMaxPartSize)
        throw std::runtime_error("bad size of " + name);
    zip_file_t* file = zip_fopen(zip, name.c_str(), 0);
    if (!file) throw std::runtime_error("cannot open part " + name);
    std::string data(st.size, '\0');
    zip_int64_t got = zip_fread(file, data.data(), st.size);
    zip_fclose(file);
    if (got != static_cast<zip_int64_t>(st.size)) throw std::runtime_error("short read of " + name);
    return data;
}

pugi::xml_document ParseXml(zip_t* zip, const std::string& name) {
    std::string data = ReadEntry(zip, name);
    pugi::xml_document doc;
    auto result = doc.load_buffer(data.data(), data.size());
    if (!result) throw std::runtime_error("bad XML in " + name + ": " + result.description());
    return doc;
}

// Relationship id → (type, target part) of the part `sourcePart`; "" is the package itself.
// libxlsxwriter's targets are relative to the source part's folder.
std::map<std::string, std::pair<std::string, std::string>> ReadRels(zip_t* zip,
                                                                    const std::string& sourcePart) {
    std::string dir = sourcePart.substr(0, sourcePart.find_last_of('/') + 1);
    std::string file = sourcePart.substr(sourcePart.find_last_of('/') + 1);
    std::map<std::string, std::pair<std::string, std::string>> rels;
    auto doc = ParseXml(zip, dir + "_rels/" + file + ".rels");
    for (auto rel : doc.child("Relationships").children("Relationship"))
        rels[rel.attribute("Id").value()] = {rel.attribute("Type").value(),
                                             dir + rel.attribute("Target").value()};
    return rels;
}

// The built-in number formats libxlsxwriter refers to by id, for the codes this program uses.
std::string BuiltinFormat(int id) {
    static const std::map<int, std::string> formats = {{0, "General"}, {1, "0"},        {2, "0.00"},
                                                       {3, "#,##0"},   {4, "#,##0.00"}, {49, "@"}};
    auto it = formats.find(id);
    return it == formats.end() ? "" : it->second;
}

std::vector<CellFormat> ReadStyles(zip_t* zip, const std::string& part) {
    auto doc = ParseXml(zip, part);
    auto sheet = doc.child("styleSheet");
    std::map<int, std::string> numFmts;
    for (auto f : sheet.child("numFmts").children("numFmt"))
        numFmts[f.attribute("numFmtId").as_int()] = f.attribute("formatCode").value();

    struct Font {
        std::string name;
        double size = 0;
        bool bold = false;
    };
    std::vector<Font> fonts;
    for (auto f : sheet.child("fonts").children("font"))
        fonts.push_back({f.child("name").attribute("val").value(), f.child("sz").attribute("val").as_double(),
                         !f.child("b").empty()});

    std::vector<std::pair<std::string, std::string>> fills; // pattern, fg rgb
    for (auto f : sheet.child("fills").children("fill")) {
        auto p = f.child("patternFill");
        std::string pattern = p.attribute("patternType").value();
        fills.push_back({pattern == "none" ? "" : pattern, p.child("fgColor").attribute("rgb").value()});
    }

    std::vector<std::array<std::string, 4>> borders; // left, top, right, bottom
    for (auto b : sheet.child("borders").children("border"))
        borders.push_back(
            {b.child("left").attribute("style").value(), b.child("top").attribute("style").value(),
             b.child("right").attribute("style").value(), b.child("bottom").attribute("style").value()});

    std::vector<CellFormat> formats;
    for (auto xf : sheet.child("cellXfs").children("xf")) {
        CellFormat f;
        int numFmtId = xf.attribute("numFmtId").as_int();
        auto custom = numFmts.find(numFmtId);
        f.numberFormat = custom != numFmts.end() ? custom->second : BuiltinFormat(numFmtId);
        const Font& font = At(fonts, xf.attribute("fontId").as_uint(), "font");
        f.fontName = font.name;
        f.fontSize = font.size;
        f.bold = font.bold;
        const auto& fill = At(fills, xf.attribute("fillId").as_uint(), "fill");
        f.fillPattern = fill.first;
        f.fillColor = fill.first.empty() ? "" : fill.second;
        const auto& border = At(borders, xf.attribute("borderId").as_uint(), "border");
        f.borderLeft = border[0];
        f.borderTop = border[1];
        f.borderRight = border[2];
        f.borderBottom = border[3];
        auto align = xf.child("alignment");
        f.horizontal = align.attribute("horizontal").value();
        f.vertical = align.attribute("vertical").value();
        f.wrap = align.attribute("wrapText").as_bool();
        formats.push_back(f);
    }
    return formats;
}

// "B3" → (3, 2), as libxlsxwriter writes references: no "$" marks.
std::pair<int, int> ParseCellRef(const std::string& ref) {
    std::size_t i = 0;
    int col = 0, row = 0;
    for (; i < ref.size() && ref[i] >= 'A' && ref[i] <= 'Z' && col <= kMaxCol; ++i)
        col = col * 26 + (ref[i] - 'A' + 1);
    for (; i < ref.size() && ref[i] >= '0' && ref[i] <= '9' && row <= kMaxRow; ++i)
        row = row * 10 + (ref[i] - '0');
    if (col == 0 || row == 0 || col > kMaxCol || row > kMaxRow || i != ref.size())
        throw std::runtime_error("bad cell reference " + ref);
    return {row, col};
}

Sheet ReadSheet(zip_t* zip, const std::string& part, const std::vector<std::string>& sharedStrings,
                const std::vector<CellFormat>& formats) {
    Sheet sheet;
    sheet.defaultFormat = At(formats, 0, "cell format");
    auto doc = ParseXml(zip, part);
    auto ws = doc.child("worksheet");

    for (auto col : ws.child("cols").children("col")) {
        Column c{col.attribute("width").as_double(), col.attribute("hidden").as_bool()};
        const int min = col.attribute("min").as_int(), max = col.attribute("max").as_int();
        if (min < 1 || max > kMaxCol) throw std::runtime_error("bad column range");
        for (int i = min; i <= max; ++i) sheet.columns[i] = c;
    }

    for (auto row : ws.child("sheetData").children("row")) {
        Row& info = sheet.rows[row.attribute("r").as_int()];
        if (row.attribute("customHeight").as_bool()) info.height = row.attribute("ht").as_double();
        if (row.attribute("customFormat").as_bool())
            info.format = At(formats, row.attribute("s").as_uint(), "cell format");

        for (auto c : row.children("c")) {
            Cell cell;
            cell.format = At(formats, c.attribute("s").as_uint(), "cell format");
            std::string t = c.attribute("t").value();
            auto v = c.child("v");
            if (t == "s") {
                cell.type = CellType::SharedString;
                cell.text = At(sharedStrings, v.text().as_uint(), "shared string");
            } else if (t.empty() || t == "n") {
                cell.type = v ? CellType::Number : CellType::Empty;
                cell.number = v.text().as_double();
            } else {
                cell.type = CellType::Other;
                cell.text = v.text().get();
            }
            sheet.cells[ParseCellRef(c.attribute("r").value())] = cell;
        }
    }

    for (auto m : ws.child("mergeCells").children("mergeCell")) {
        std::string ref = m.attribute("ref").value();
        std::size_t colon = ref.find(':');
        auto first = ParseCellRef(ref.substr(0, colon));
        auto last = colon == std::string::npos ? first : ParseCellRef(ref.substr(colon + 1));
        sheet.merges.push_back(Area{first.first, first.second, last.first, last.second});
    }

    PrintSetup& print = sheet.print;
    auto setup = ws.child("pageSetup");
    print.orientation = setup.attribute("orientation").value();
    print.paperSize = setup.attribute("paperSize").as_int();
    print.fitToWidth = setup.attribute("fitToWidth").as_int(1);
    print.fitToHeight = setup.attribute("fitToHeight").as_int(1);
    print.fitToPage = ws.child("sheetPr").child("pageSetUpPr").attribute("fitToPage").as_bool();
    print.horizontalCentered = ws.child("printOptions").attribute("horizontalCentered").as_bool();
    print.oddFooter = ws.child("headerFooter").child("oddFooter").text().get();
    auto pane = ws.child("sheetViews").child("sheetView").child("pane");
    if (std::string(pane.attribute("state").value()) == "frozen") {
        print.frozenTopLeft = pane.attribute("topLeftCell").value();
        print.frozenRows = pane.attribute("ySplit").as_int();
        print.frozenCols = pane.attribute("xSplit").as_int();
    }
    return sheet;
}

} // namespace

const Cell* Sheet::Find(int row, int col) const {
    auto it = cells.find({row, col});
    return it == cells.end() ? nullptr : &it->second;
}

CellFormat Sheet::FormatAt(int row, int col) const {
    if (const Cell* cell = Find(row, col)) return cell->format;
    auto r = rows.find(row);
    if (r != rows.end() && r->second.format) return *r->second.format;
    return defaultFormat;
}

namespace {

Book ReadBook(zip_t* zipArchive) {
    ZipPtr zip(zipArchive);
    std::string workbookPart = "xl/workbook.xml";
    for (const auto& [id, rel] : ReadRels(zip.get(), "")) // the package's own relationships
        if (rel.first.ends_with("/officeDocument")) workbookPart = rel.second;

    auto rels = ReadRels(zip.get(), workbookPart);
    std::vector<std::string> sharedStrings;
    std::vector<CellFormat> formats;
    for (const auto& [id, rel] : rels) {
        if (rel.first.ends_with("/sharedStrings")) {
            auto doc = ParseXml(zip.get(), rel.second);
            for (auto si : doc.child("sst").children("si"))
                sharedStrings.push_back(si.child("t").text().get());
        } else if (rel.first.ends_with("/styles")) {
            formats = ReadStyles(zip.get(), rel.second);
        }
    }
    Book book;
    book.cellFormatCount = formats.size();

    auto wb = ParseXml(zip.get(), workbookPart);
    for (auto s : wb.child("workbook").child("sheets").children("sheet")) {
        auto rel = rels.find(s.attribute("r:id").value());
        if (rel == rels.end()) throw std::runtime_error("sheet without relationship");
        book.sheets.push_back(ReadSheet(zip.get(), rel->second.second, sharedStrings, formats));
    }
    for (auto name : wb.child("workbook").child("definedNames").children("definedName")) {
        const auto sheet = static_cast<std::size_t>(name.attribute("localSheetId").as_int(-1));
        if (std::string(name.attribute("name").value()) == "_xlnm.Print_Titles" && sheet < book.sheets.size())
            book.sheets[sheet].print.printTitles = name.text().get();
    }
    return book;
}

} // namespace

Book ReadXlsx(const std::string& path) {
    int error = 0;
    zip_t* zip = zip_open(path.c_str(), ZIP_RDONLY, &error);
    if (!zip) throw std::runtime_error("cannot open " + path + " as a zip archive");
    return ReadBook(zip);
}

Book ReadXlsxData(std::string_view bytes) {
    zip_error_t error;
    zip_error_init(&error);
    zip_source_t* source = zip_source_buffer_create(bytes.data(), bytes.size(), 0, &error);
    zip_t* zip = source ? zip_open_from_source(source, ZIP_RDONLY, &error) : nullptr;
    zip_error_fini(&error);
    if (!zip) {
        zip_source_free(source);
        throw std::runtime_error("not a zip archive");
    }
    return ReadBook(zip);
}

std::vector<Area> Sorted(std::vector<Area> areas) {
    std::sort(areas.begin(), areas.end());
    return areas;
}

std::vector<std::string> ShownRow(const Sheet& sheet, int row, int lastCol) {
    std::vector<std::string> shown;
    for (int c = 1; c <= lastCol; ++c) {
        const Cell* cell = sheet.Find(row, c);
        if (!cell || cell->type == CellType::Empty) {
            shown.emplace_back();
        } else if (cell->type == CellType::Number) {
            std::ostringstream number;
            number << "#" << cell->number;
            shown.push_back(number.str());
        } else {
            shown.push_back(cell->text);
        }
    }
    return shown;
}

} // namespace quillon::xlsxread
