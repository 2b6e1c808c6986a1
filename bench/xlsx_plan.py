#!/usr/bin/env python3
"""xlsx_plan.py BOOK.xlsx PLAN — the cells, formats, merges, widths and heights of a workbook's
first sheet as the plan xlsx_reference writes again: one tab-separated line each."""
import re
import sys
import zipfile
import xml.etree.ElementTree as ET

NS = {"m": "http://schemas.openxmlformats.org/spreadsheetml/2006/main"}
HALIGN = {"left": 1, "center": 2, "right": 3, "fill": 4, "justify": 5, "centerContinuous": 6, "distributed": 7}
VALIGN = {"top": 8, "bottom": 9, "center": 10, "justify": 11, "distributed": 12}
BORDER = {"thin": 1, "medium": 2, "dashed": 3, "dotted": 4, "thick": 5, "double": 6, "hair": 7}


def clean(text):
    return (text or "").replace("\t", " ").replace("\n", " ")


def cell_ref(ref):
    letters, digits = re.match(r"([A-Z]+)(\d+)", ref).groups()
    col = 0
    for ch in letters:
        col = col * 26 + ord(ch) - 64
    return int(digits) - 1, col - 1


def styles(book):
    root = ET.fromstring(book.read("xl/styles.xml"))
    numfmts = {n.get("numFmtId"): n.get("formatCode") for n in root.iterfind("m:numFmts/m:numFmt", NS)}
    fonts = root.findall("m:fonts/m:font", NS)
    fills = root.findall("m:fills/m:fill", NS)
    borders = root.findall("m:borders/m:border", NS)
    out = []
    for xf in root.iterfind("m:cellXfs/m:xf", NS):
        font = fonts[int(xf.get("fontId", 0))]
        bold = 1 if font.find("m:b", NS) is not None else 0
        size = font.find("m:sz", NS)
        name = font.find("m:name", NS)
        fill = fills[int(xf.get("fillId", 0))].find("m:patternFill/m:fgColor", NS)
        rgb = fill.get("rgb") if fill is not None and fill.get("rgb") else None
        border = borders[int(xf.get("borderId", 0))].find("m:left", NS)
        align = xf.find("m:alignment", NS)
        out.append("\t".join(str(v) for v in [
            "F", bold, size.get("val") if size is not None else 0, name.get("val") if name is not None else "",
            numfmts.get(xf.get("numFmtId"), ""),
            HALIGN.get(align.get("horizontal"), 0) if align is not None else 0,
            VALIGN.get(align.get("vertical"), 0) if align is not None else 0,
            1 if align is not None and align.get("wrapText") == "1" else 0,
            BORDER.get(border.get("style"), 0) if border is not None else 0,
            rgb[-6:] if rgb else "-1"]))
    return out


def main(book_path, plan_path):
    book = zipfile.ZipFile(book_path)
    shared = []
    if "xl/sharedStrings.xml" in book.namelist():
        for si in ET.fromstring(book.read("xl/sharedStrings.xml")).iterfind("m:si", NS):
            shared.append("".join(t.text or "" for t in si.iter("{%s}t" % NS["m"])))
    sheet = ET.fromstring(book.read("xl/worksheets/sheet1.xml"))
    lines = styles(book)
    for col in sheet.iterfind("m:cols/m:col", NS):
        for c in range(int(col.get("min")) - 1, int(col.get("max"))):
            lines.append("W\t%d\t%s" % (c, col.get("width")))
    merged = {}
    for m in sheet.iterfind("m:mergeCells/m:mergeCell", NS):
        first, last = m.get("ref").split(":")
        merged[cell_ref(first)] = cell_ref(last)
    for row in sheet.iterfind("m:sheetData/m:row", NS):
        if row.get("ht"):
            lines.append("H\t%d\t%s" % (int(row.get("r")) - 1, row.get("ht")))
        for c in row.iterfind("m:c", NS):
            r, col = cell_ref(c.get("r"))
            fmt = c.get("s", "0")
            v = c.find("m:v", NS)
            text = shared[int(v.text)] if c.get("t") == "s" and v is not None else (v.text if v is not None else None)
            if (r, col) in merged:
                r2, c2 = merged.pop((r, col))
                lines.append("M\t%d\t%d\t%d\t%d\t%s\t%s" % (r, col, r2, c2, fmt, clean(text)))
            elif text is None:
                lines.append("B\t%d\t%d\t%s" % (r, col, fmt))
            elif c.get("t") in ("s", "str", "inlineStr"):
                lines.append("S\t%d\t%d\t%s\t%s" % (r, col, fmt, clean(text)))
            else:
                lines.append("N\t%d\t%d\t%s\t%s" % (r, col, fmt, text))
    with open(plan_path, "w", encoding="utf-8") as out:
        out.write("\n".join(lines) + "\n")


if __name__ == "__main__":
    main(sys.argv[1], sys.argv[2])
