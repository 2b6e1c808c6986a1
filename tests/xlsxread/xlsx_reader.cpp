// xlsx_reader.cpp — a small .xlsx reader (libzip + pugixml) for what libxlsxwriter writes:
// relationships, shared strings, styles, and the sheet's cells, merges, columns and rows.
#include "xlsxread/xlsx_reader.h"

#include <array>
#include <cstdlib>
#include <memory>
#include <stdexcept>

#include <pugixml.hpp>
#include <zip.h>

namespace quillon::xlsxread {

namespace {

struct ZipCloser {
    void operator()(zip_t* z) const { zip_discard(z); }
};
using ZipPtr = std::unique_ptr<zip_t, ZipCloser>;

std::string ReadEntry(zip_t* zip, const std::string& name) {
    zip_stat_t st;
    zip_stat_init(&st);
    if (zip_stat(zip, name.c_str(), 0, &st) != 0) throw std::runtime_error("no part " + name);
    zip_file_t* file = zip_fopen(zip, name.c_str(), 0);
    if (!file) throw std::runtime_error("cannot open part " + name);
    std::string data(st.size, '\0');
    zip_int64_t got = zip_fread(file, data.data(), st.size);
    zip_fclose(file);
    if (got != static_cast<zip_int64_t>(st.size)) throw std::runtime_error("short read of " + name);
    return data;
}

bool HasEntry(zip_t* zip, const std::string& name) {
    return zip_name_locate(zip, name.c_str(), 0) >= 0;
}

pugi::xml_document ParseXml(zip_t* zip, const std::string& name) {
    std::string data = ReadEntry(zip, name);
    pugi::xml_document doc;
    auto result = doc.load_buffer(data.data(), data.size());
    if (!result) throw std::runtime_error("bad XML in " + name + ": " + result.description());
    return doc;
}

// "xl/workbook.xml" + "worksheets/sheet1.xml" → "xl/worksheets/sheet1.xml"; "/xl/x" → "xl/x".
std::string ResolveTarget(const std::string& sourcePart, const std::string& target) {
    if (!target.empty() && target[0] == '/') return target.substr(1);
    std::string base = sourcePart.substr(0, sourcePart.find_last_of('/') + 1);
    std::string path = base + target;
    // Fold "dir/../"
    for (std::size_t up; (up = path.find("/../")) != std::string::npos;) {
        std::size_t start = path.rfind('/', up == 0 ? 0 : up - 1);
        start = start == std::string::npos ? 0 : start + 1;
        path.erase(start, up + 4 - start);
    }
    return path;
}

// Relationship id → (type, target part) of the part `sourcePart`; "" is the package itself.
std::map<std::string, std::pair<std::string, std::string>> ReadRels(zip_t* zip,
                                                                    const std::string& sourcePart) {
    std::string dir = sourcePart.substr(0, sourcePart.find_last_of('/') + 1);
    std::string file = sourcePart.substr(sourcePart.find_last_of('/') + 1);
    std::string relsName = dir + "_rels/" + file + ".rels";
    std::map<std::string, std::pair<std::string, std::string>> rels;
    if (!HasEntry(zip, relsName)) return rels;
    auto doc = ParseXml(zip, relsName);
    for (auto rel : doc.child("Relationships").children("Relationship")) {
        rels[rel.attribute("Id").value()] = {rel.attribute("Type").value(),
                                             ResolveTarget(sourcePart, rel.attribute("Target").value())};
    }
    return rels;
}

bool EndsWith(const std::string& s, const char* suffix) {
    std::string t(suffix);
    return s.size() >= t.size() && s.compare(s.size() - t.size(), t.size(), t) == 0;
}

void AppendUtf8(std::string& out, unsigned long cp) {
    if (cp < 0x80) {
        out += static_cast<char>(cp);
    } else if (cp < 0x800) {
        out += static_cast<char>(0xC0 | (cp >> 6));
        out += static_cast<char>(0x80 | (cp & 0x3F));
    } else {
        out += static_cast<char>(0xE0 | (cp >> 12));
        out += static_cast<char>(0x80 | ((cp >> 6) & 0x3F));
        out += static_cast<char>(0x80 | (cp & 0x3F));
    }
}

// Undoes the file's "_xHHHH_" escapes of characters XML cannot carry.
std::string Unescape(const std::string& text) {
    std::string out;
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == '_' && i + 6 < text.size() && text[i + 1] == 'x' && text[i + 6] == '_') {
            std::string hex = text.substr(i + 2, 4);
            char* end = nullptr;
            unsigned long cp = std::strtoul(hex.c_str(), &end, 16);
            if (end == hex.c_str() + 4) {
                AppendUtf8(out, cp);
                i += 6;
                continue;
            }
        }
        out += text[i];
    }
    return out;
}

// Text of a <si> or <is>: its <t>, or the <t> of every run; phonetic runs left out.
std::string RichText(pugi::xml_node node) {
    if (auto t = node.child("t")) return Unescape(t.text().get());
    std::string text;
    for (auto r : node.children("r")) text += r.child("t").text().get();
    return Unescape(text);
}

const char* BuiltinFormat(int id) {
    switch (id) {
    case 0:
        return "General";
    case 1:
        return "0";
    case 2:
        return "0.00";
    case 3:
        return "#,##0";
    case 4:
        return "#,##0.00";
    case 9:
        return "0%";
    case 10:
        return "0.00%";
    case 11:
        return "0.00E+00";
    case 12:
        return "# ?/?";
    case 13:
        return "# ?\?/?\?";
    case 14:
        return "mm-dd-yy";
    case 15:
        return "d-mmm-yy";
    case 16:
        return "d-mmm";
    case 17:
        return "mmm-yy";
    case 18:
        return "h:mm AM/PM";
    case 19:
        return "h:mm:ss AM/PM";
    case 20:
        return "h:mm";
    case 21:
        return "h:mm:ss";
    case 22:
        return "m/d/yy h:mm";
    case 37:
        return "#,##0 ;(#,##0)";
    case 38:
        return "#,##0 ;[Red](#,##0)";
    case 39:
        return "#,##0.00;(#,##0.00)";
    case 40:
        return "#,##0.00;[Red](#,##0.00)";
    case 45:
        return "mm:ss";
    case 46:
        return "[h]:mm:ss";
    case 47:
        return "mmss.0";
    case 48:
        return "##0.0E+0";
    case 49:
        return "@";
    default:
        return "";
    }
}

bool FlagOn(pugi::xml_node node) {
    // <b/> is on; <b val="0"/> or val="false" is off.
    auto val = node.attribute("val");
    return node && (!val || (std::string(val.value()) != "0" && std::string(val.value()) != "false"));
}

bool AttrTrue(pugi::xml_attribute a) {
    return a && (std::string(a.value()) == "1" || std::string(a.value()) == "true");
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
                         FlagOn(f.child("b"))});

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
        std::size_t fontId = xf.attribute("fontId").as_uint();
        if (fontId < fonts.size()) {
            f.fontName = fonts[fontId].name;
            f.fontSize = fonts[fontId].size;
            f.bold = fonts[fontId].bold;
        }
        std::size_t fillId = xf.attribute("fillId").as_uint();
        if (fillId < fills.size()) {
            f.fillPattern = fills[fillId].first;
            f.fillColor = f.fillPattern.empty() ? "" : fills[fillId].second;
        }
        std::size_t borderId = xf.attribute("borderId").as_uint();
        if (borderId < borders.size()) {
            f.borderLeft = borders[borderId][0];
            f.borderTop = borders[borderId][1];
            f.borderRight = borders[borderId][2];
            f.borderBottom = borders[borderId][3];
        }
        auto align = xf.child("alignment");
        f.horizontal = align.attribute("horizontal").value();
        f.vertical = align.attribute("vertical").value();
        f.wrap = AttrTrue(align.attribute("wrapText"));
        formats.push_back(f);
    }
    return formats;
}

const CellFormat& FormatOf(const std::vector<CellFormat>& formats, std::size_t index) {
    static const CellFormat kNone;
    return index < formats.size() ? formats[index] : kNone;
}

Sheet ReadSheet(zip_t* zip, const std::string& part, const std::string& name,
                const std::vector<std::string>& sharedStrings, const std::vector<CellFormat>& formats) {
    Sheet sheet;
    sheet.name = name;
    sheet.defaultFormat = FormatOf(formats, 0);
    auto doc = ParseXml(zip, part);
    auto ws = doc.child("worksheet");

    for (auto col : ws.child("cols").children("col")) {
        Column c{col.attribute("width").as_double(), AttrTrue(col.attribute("hidden")),
                 AttrTrue(col.attribute("customWidth"))};
        for (int i = col.attribute("min").as_int(); i <= col.attribute("max").as_int(); ++i)
            sheet.columns[i] = c;
    }

    for (auto row : ws.child("sheetData").children("row")) {
        int r = row.attribute("r").as_int();
        Row info;
        if (AttrTrue(row.attribute("customHeight"))) info.height = row.attribute("ht").as_double();
        info.hidden = AttrTrue(row.attribute("hidden"));
        if (AttrTrue(row.attribute("customFormat")))
            info.format = FormatOf(formats, row.attribute("s").as_uint());
        sheet.rows[r] = info;

        int lastCol = 0;
        for (auto c : row.children("c")) {
            auto ref = c.attribute("r");
            auto [cr, cc] = ref ? ParseCellRef(ref.value()) : std::make_pair(r, lastCol + 1);
            lastCol = cc;
            Cell cell;
            cell.styleIndex = c.attribute("s").as_int();
            cell.format = FormatOf(formats, static_cast<std::size_t>(cell.styleIndex));
            std::string t = c.attribute("t").value();
            auto v = c.child("v");
            if (t == "s") {
                cell.type = CellType::SharedString;
                std::size_t index = v.text().as_uint();
                if (index >= sharedStrings.size())
                    throw std::runtime_error("shared string index out of range");
                cell.text = sharedStrings[index];
            } else if (t == "inlineStr") {
                cell.type = CellType::InlineString;
                cell.text = RichText(c.child("is"));
            } else if (t == "b") {
                cell.type = CellType::Boolean;
                cell.number = v.text().as_double();
            } else if (t.empty() || t == "n") {
                cell.type = v ? CellType::Number : CellType::Empty;
                cell.number = v.text().as_double();
            } else {
                cell.type = CellType::Other;
                cell.text = v.text().get();
            }
            sheet.cells[{cr, cc}] = cell;
        }
    }

    for (auto m : ws.child("mergeCells").children("mergeCell"))
        sheet.merges.push_back(ParseAreaRef(m.attribute("ref").value()));
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

std::pair<int, int> ParseCellRef(const std::string& ref) {
    std::size_t i = 0;
    int col = 0, row = 0;
    if (i < ref.size() && ref[i] == '$') ++i;
    for (; i < ref.size() && ref[i] >= 'A' && ref[i] <= 'Z'; ++i) col = col * 26 + (ref[i] - 'A' + 1);
    if (i < ref.size() && ref[i] == '$') ++i;
    for (; i < ref.size() && ref[i] >= '0' && ref[i] <= '9'; ++i) row = row * 10 + (ref[i] - '0');
    if (col == 0 || row == 0 || i != ref.size()) throw std::runtime_error("bad cell reference " + ref);
    return {row, col};
}

Area ParseAreaRef(const std::string& ref) {
    std::size_t colon = ref.find(':');
    auto first = ParseCellRef(ref.substr(0, colon));
    auto last = colon == std::string::npos ? first : ParseCellRef(ref.substr(colon + 1));
    return Area{first.first, first.second, last.first, last.second};
}

Book ReadXlsx(const std::string& path) {
    int error = 0;
    ZipPtr zip(zip_open(path.c_str(), ZIP_RDONLY, &error));
    if (!zip) throw std::runtime_error("cannot open " + path + " as a zip archive");

    std::string workbookPart = "xl/workbook.xml";
    for (const auto& [id, rel] : ReadRels(zip.get(), "")) // the package's own relationships
        if (EndsWith(rel.first, "/officeDocument")) workbookPart = rel.second;

    auto rels = ReadRels(zip.get(), workbookPart);
    std::vector<std::string> sharedStrings;
    Book book;
    for (const auto& [id, rel] : rels) {
        if (EndsWith(rel.first, "/sharedStrings")) {
            auto doc = ParseXml(zip.get(), rel.second);
            for (auto si : doc.child("sst").children("si")) sharedStrings.push_back(RichText(si));
        } else if (EndsWith(rel.first, "/styles")) {
            book.cellFormats = ReadStyles(zip.get(), rel.second);
        }
    }
    book.cellFormatCount = book.cellFormats.size();

    auto wb = ParseXml(zip.get(), workbookPart);
    for (auto s : wb.child("workbook").child("sheets").children("sheet")) {
        auto rel = rels.find(s.attribute("r:id").value());
        if (rel == rels.end()) throw std::runtime_error("sheet without relationship");
        book.sheets.push_back(ReadSheet(zip.get(), rel->second.second, s.attribute("name").value(),
                                        sharedStrings, book.cellFormats));
    }
    return book;
}

} // namespace quillon::xlsxread
